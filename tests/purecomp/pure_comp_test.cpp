// The interface of a pure component, without a file.
#include <algorithm>
#include <cstring>
#include <vector>

#include "purecomp/tables.h"
#include "tests/purecomp/record_fixture.h"

namespace zel {
namespace {

using test::ComponentBank;

struct Fetched {
  ZelStatus status;
  std::int32_t equation = 0, tempUnit = 0, propUnit = 0, logBasis = 0, basis = 0, count = 0;
  double factor = 0.0, tMin = 0.0, tMax = 0.0;
  double coefficients[15] = {};
};

Fetched Fetch(ComponentBank& bank, std::uint32_t index) {
  Fetched f{};
  std::fill_n(f.coefficients, 15, -7.0);
  f.status =
      bank->GetCorrelation(index, &f.equation, &f.tempUnit, &f.propUnit, &f.factor, &f.logBasis,
                           &f.basis, &f.count, &f.tMin, &f.tMax, f.coefficients);
  return f;
}

ZelStatus Set(ComponentBank& bank, std::uint32_t index, std::int32_t equation,
              std::int32_t tempUnit, std::int32_t propUnit, std::int32_t basis,
              std::int32_t count) {
  std::vector<double> coefficients(static_cast<std::size_t>(std::max(count, 0)), 2.0);
  return bank->SetCorrelation(index, equation, tempUnit, propUnit, 1, basis, count, 100.0, 200.0,
                              coefficients.data());
}

TEST(PureComp, NewBankIsEmpty) {
  ComponentBank bank;
  std::int32_t number = 1, cas = 1, ref = 1, phase = 1;
  char ids[12][9], name[41], formula[21], smiles[101];
  std::uint8_t keep = 1;
  EXPECT_EQ(bank->GetIdentity(&number, &cas, &ref, ids, name, formula, &keep), kStatusOk);
  EXPECT_EQ(number, 0);
  EXPECT_EQ(cas, 0);
  EXPECT_EQ(ref, 0);
  for (auto const& id : ids) EXPECT_STREQ(id, "");
  EXPECT_STREQ(name, "");
  EXPECT_STREQ(formula, "");
  EXPECT_EQ(keep, 0);
  EXPECT_EQ(bank->GetSmiles(smiles), kStatusNothingNew);
  EXPECT_STREQ(smiles, "");
  EXPECT_EQ(bank->GetPhase(&phase), kStatusOk);
  EXPECT_EQ(phase, 0);
  std::vector<double> values(100);
  bank->GetAllProperties(values.data());
  for (double value : values) EXPECT_TRUE(gen_IsUndefDouble(value));
  bank->GetAllCompleted(values.data());
  for (double value : values) EXPECT_TRUE(gen_IsUndefDouble(value));
}

TEST(PureComp, ClearStartsOver) {
  ComponentBank bank, fresh;
  test::FillComponent(bank.Get());
  bank.Io()->Complete();
  bank.Io()->Clear();
  EXPECT_EQ(test::TextOf(bank.Get()), test::TextOf(fresh.Get()));
}

TEST(PureComp, LongTextsAreCut) {
  ComponentBank bank;
  std::string const longText(300, 'x');
  char ids[12][9] = {};
  bank->SetIdentity(1, 2, 3, ids, longText.c_str(), longText.c_str(), 2);
  bank->SetSmiles(longText.c_str());
  std::int32_t number, cas, ref;
  char name[41], formula[21], smiles[101];
  std::uint8_t keep = 0;
  bank->GetIdentity(&number, &cas, &ref, ids, name, formula, &keep);
  EXPECT_EQ(name, std::string(40, 'x'));
  EXPECT_EQ(formula, std::string(20, 'x'));
  EXPECT_EQ(keep, 1);
  EXPECT_EQ(bank->GetSmiles(smiles), kStatusOk);
  EXPECT_EQ(smiles, std::string(100, 'x'));
}

TEST(PureComp, PropertiesByIndexAndAll) {
  ComponentBank bank;
  std::vector<double> values(100);
  for (std::size_t i = 0; i < 100; ++i) values[i] = static_cast<double>(i);
  EXPECT_EQ(bank->SetAllProperties(values.data()), kStatusOk);
  EXPECT_EQ(bank->SetProperty(99, 0.5), kStatusOk);
  EXPECT_EQ(bank->SetProperty(100, 0.5), kStatusFailed);
  double value = -1.0;
  EXPECT_EQ(bank->GetProperty(99, &value), kStatusOk);
  EXPECT_EQ(value, 0.5);
  EXPECT_EQ(bank->GetProperty(42, &value), kStatusOk);
  EXPECT_EQ(value, 42.0);
  EXPECT_EQ(bank->GetProperty(100, &value), kStatusFailed);
  EXPECT_EQ(bank->GetCompleted(100, &value), kStatusFailed);
  EXPECT_EQ(value, 42.0) << "a failure changes nothing";
  EXPECT_EQ(bank->GetCompleted(99, &value), kStatusOk);
  EXPECT_TRUE(gen_IsUndefDouble(value));
}

TEST(PureComp, ReferenceCodesEndAt32000) {
  ComponentBank bank;
  std::uint32_t code = 5;
  EXPECT_EQ(bank->SetPropertyRefCode(49, 32000), kStatusOk);
  EXPECT_EQ(bank->SetPropertyRefCode(49, 32001), kStatusFailed);
  EXPECT_EQ(bank->GetPropertyRefCode(49, &code), kStatusOk);
  EXPECT_EQ(code, 32000U);
  EXPECT_EQ(bank->SetPropertyRefCode(50, 1), kStatusFailed);
  EXPECT_EQ(bank->GetPropertyRefCode(50, &code), kStatusFailed);
  EXPECT_EQ(code, 0U);
  std::uint32_t codes[50];
  std::fill_n(codes, 50, 32001U);
  codes[3] = 32000;
  EXPECT_EQ(bank->SetAllPropertyRefCodes(codes), kStatusOk);
  bank->GetAllPropertyRefCodes(codes);
  for (std::size_t i = 0; i < 50; ++i) EXPECT_EQ(codes[i], i == 3 ? 32000U : 0U);
}

TEST(PureComp, CorrelationCodesEndOneBeforeTheLastCorrelation) {
  ComponentBank bank;
  std::uint32_t code = 5;
  EXPECT_EQ(bank->SetCorrelationRefCode(16, 32000), kStatusOk);
  EXPECT_EQ(bank->SetCorrelationRefCode(16, 32001), kStatusFailed);
  EXPECT_EQ(bank->GetCorrelationRefCode(16, &code), kStatusOk);
  EXPECT_EQ(code, 32000U);
  EXPECT_EQ(bank->SetCorrelationRefCode(17, 1), kStatusFailed);
  EXPECT_EQ(bank->GetCorrelationRefCode(17, &code), kStatusFailed);
  EXPECT_EQ(code, 0U);
}

// By index: the default unit, and the basis that results from 0, 1 and 2.
struct Expected {
  char const* name;
  std::int32_t unit;
  bool hasBasis;
};
constexpr Expected kExpected[18] = {
    {"VaporPressure", 4015, false},   {"IdealEnthalpy", 28018, true},
    {"LiquidEnthalpy", 28018, true},  {"LatentHeat", 28018, true},
    {"LiquidDensity", 19081, true},   {"LiquidThermal", 35010, false},
    {"VaporThermal", 35010, false},   {"LiquidViscosity", 40010, false},
    {"VaporViscosity", 40010, false}, {"SurfaceTension", 42015, false},
    {"Expansion", 1010, false},       {"SolidEnthalpy", 28018, true},
    {"SolidDensity", 19081, true},    {"IdealGasCp", 30016, true},
    {"LiquidCp", 30016, true},        {"SolidCp", 30016, true},
    {"Dielectric", 0, false},         {"CharacteristicVolume", 19081, true}};

TEST(PureComp, EachCorrelationHasItsDefaultUnitAndBasisRule) {
  for (std::uint32_t i = 0; i < 18; ++i) {
    ComponentBank bank;
    EXPECT_EQ(kCorrelationRows[i].name, kExpected[i].name);
    EXPECT_EQ(Fetch(bank, i).propUnit, kExpected[i].unit) << kExpected[i].name;
    for (std::int32_t basis : {-1, 0, 1, 2}) {
      EXPECT_EQ(Set(bank, i, 1, 10, 0, basis, 1), kStatusOk);
      EXPECT_EQ(Fetch(bank, i).basis, kExpected[i].hasBasis ? std::max(basis, 1) : 0)
          << kExpected[i].name;
    }
    EXPECT_EQ(bank->ResetCorrelation(i), kStatusOk);
    Fetched const f = Fetch(bank, i);
    EXPECT_EQ(f.status, kStatusFailed) << "no coefficient";
    EXPECT_EQ(f.equation, 0);
    EXPECT_EQ(f.tempUnit, 10);
    EXPECT_EQ(f.logBasis, 1);
    EXPECT_EQ(f.basis, 0);
    EXPECT_EQ(f.count, 0);
    EXPECT_EQ(f.propUnit, kExpected[i].unit);
    EXPECT_TRUE(gen_IsUndefDouble(f.tMin));
    EXPECT_TRUE(gen_IsUndefDouble(f.tMax));
  }
}

TEST(PureComp, CorrelationIsJudgedAfterItWasCopied) {
  struct Case {
    std::int32_t equation, tempUnit, propUnit, count;
    bool good;
  };
  for (Case const& c :
       {Case{1, 10, 4015, 1, true}, Case{100, 13, 50999, 15, true}, Case{1, 0, 0, 1, true},
        Case{101, 10, 4015, 1, false}, Case{1, 9, 4015, 1, false}, Case{1, 14, 4015, 1, false},
        Case{1, 1, 4015, 1, false}, Case{1, 10, 51000, 1, false}, Case{1, 10, 4015, 0, false},
        Case{1, 10, 4015, 16, false}, Case{-1, 10, -1, 1, true}}) {
    ComponentBank bank;
    EXPECT_EQ(Set(bank, 3, c.equation, c.tempUnit, c.propUnit, 1, c.count), kStatusOk);
    Fetched const f = Fetch(bank, 3);
    EXPECT_EQ(f.status, c.good ? kStatusOk : kStatusFailed) << c.equation << " " << c.count;
    EXPECT_EQ(f.equation, c.equation);
    EXPECT_EQ(f.tempUnit, c.tempUnit);
    EXPECT_EQ(f.propUnit, c.propUnit);
    EXPECT_EQ(f.count, c.count);
    for (int i = 0; i < 15; ++i) {
      EXPECT_EQ(f.coefficients[i], i < c.count ? 2.0 : -7.0) << "as many as the count says";
    }
  }
}

TEST(PureComp, FactorIsThatOfTheUnit) {
  ComponentBank bank;
  Set(bank, 0, 1, 10, 4025, 0, 1);
  EXPECT_EQ(Fetch(bank, 0).factor, 101.325);
  Set(bank, 0, 1, 10, 0, 0, 1);
  EXPECT_EQ(Fetch(bank, 0).factor, 1.0);
  Set(bank, 0, 1, 10, 50999, 0, 1);
  EXPECT_EQ(Fetch(bank, 0).factor, 1.0) << "no such unit";
}

TEST(PureComp, CorrelationsWithoutANameAreReachedByResetAlone) {
  ComponentBank bank;
  for (std::uint32_t i : {18U, 19U}) {
    EXPECT_EQ(Set(bank, i, 1, 10, 0, 1, 1), kStatusFailed);
    EXPECT_EQ(Fetch(bank, i).status, kStatusFailed);
    EXPECT_EQ(Fetch(bank, i).tempUnit, 0) << "nothing is given";
    EXPECT_EQ(bank->ResetCorrelation(i), kStatusFailed);
    double value = 3.0, slope = 4.0;
    std::int32_t status = 5;
    EXPECT_EQ(bank->EvaluateCorrelation(i, 300, 1, &value, &slope, nullptr, &status),
              kStatusFailed);
    EXPECT_EQ(value, 3.0);
    EXPECT_EQ(slope, 4.0);
  }
  EXPECT_EQ(bank->ResetCorrelation(20), kStatusFailed);
}

TEST(PureComp, SourcesComeInThreeShapes) {
  ComponentBank bank;
  bank->SetProperty(9, 0.8);
  bank.Io()->Complete();
  char text[260];
  std::uint8_t flag = 7;
  EXPECT_EQ(bank->GetPropertySource(50, text, &flag), kStatusOk);
  EXPECT_STREQ(text, "from sg6oF");
  EXPECT_EQ(flag, 0);
  EXPECT_EQ(bank->GetPropertySource(100, text, &flag), kStatusFailed);
  EXPECT_EQ(bank->GetCorrelationSource(19, text, &flag), kStatusOk);
  EXPECT_EQ(bank->GetCorrelationSource(20, text, &flag), kStatusFailed);
  EXPECT_EQ(bank->GetIdentitySource(4, text, &flag), kStatusOk);
  EXPECT_EQ(bank->GetIdentitySource(5, text, &flag), kStatusFailed);

  std::vector<char> flat(100 * 260, 'x');
  std::vector<char*> rows(100);
  std::vector<std::uint8_t> flags(100, 7);
  EXPECT_EQ(bank->GetAllPropertySourcesFlat(flat.data(), flags.data()), kStatusOk);
  EXPECT_STREQ(flat.data() + 50 * 260, "from sg6oF");
  EXPECT_EQ(flags[99], 0);
  std::fill(flat.begin(), flat.end(), 'x');
  for (std::size_t i = 0; i < 100; ++i) rows[i] = i == 51 ? nullptr : flat.data() + 260 * i;
  EXPECT_EQ(bank->GetAllPropertySources(rows.data(), flags.data()), kStatusOk);
  EXPECT_STREQ(rows[50], "from sg6oF");
  EXPECT_EQ(flat[51 * 260], 'x') << "a null pointer is skipped";
  std::uint8_t few[20] = {};
  EXPECT_EQ(bank->GetAllCorrelationSources(rows.data(), few), kStatusOk);
  EXPECT_STREQ(rows[19], "");
  EXPECT_EQ(bank->GetAllIdentitySources(rows.data(), few), kStatusOk);
  EXPECT_EQ(bank->GetAllCorrelationSourcesFlat(flat.data(), few), kStatusOk);
  EXPECT_EQ(bank->GetAllIdentitySourcesFlat(flat.data(), few), kStatusOk);
}

TEST(PureComp, HasNoFieldsByName) {
  ComponentBank bank;
  std::int32_t count = 5;
  EXPECT_EQ(bank.Def()->GetFieldCount(0, &count), kStatusOk);
  EXPECT_EQ(count, 0);
  EXPECT_EQ(bank.Def()->GetFieldList(0, nullptr, nullptr, nullptr, nullptr, nullptr),
            kStatusNotImplemented);
  double value = 1.0;
  EXPECT_EQ(bank.Def()->GetDoubleField("MW", &value), kStatusFailed);
}

// Constants that are only derived have an index but no keyword, so that no document can set them.
TEST(PureComp, DerivedPropertiesHaveNoKeyword) {
  for (PropertyRow const& row : kPropertyRows) {
    EXPECT_TRUE(row.keyword.empty() || row.index < 50) << row.keyword;
  }
}

TEST(PureComp, PropertyTableEndsInItsTwoMarks) {
  std::size_t const rows = std::size(kPropertyRows);
  EXPECT_EQ(rows, 44U);
  EXPECT_EQ(kPropertyRows[rows - 3].index, -999);
  EXPECT_EQ(kPropertyRows[rows - 2].keyword, "MVOL60F");
  EXPECT_EQ(kPropertyRows[rows - 2].index, 10);
  EXPECT_EQ(kPropertyRows[rows - 2].dimension, "spvol");
  EXPECT_EQ(kPropertyRows[rows - 1].index, -9999);
}

}  // namespace
}  // namespace zel

// Banks that do more than their tables say: swaps, enumerations, blocks coded by hand.
#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <limits>
#include <map>

#include "tests/banks/bank_fields.h"
#include "tests/banks/expected_fields.h"
#include "tests/support/bank_types.h"

namespace zel {
namespace {

using test::Fields;
using test::Typed;

std::int32_t FloatWord(double value) {
  return std::bit_cast<std::int32_t>(static_cast<float>(value));
}

struct SwapRow {
  char const* type;
  std::vector<std::pair<char const*, char const*>> exchanged;
};

TEST(SwapPair, ExchangesTheListedMembersAndIsItsOwnInverse) {
  std::vector<std::pair<char const*, char const*>> const six = {{"aij", "aji"}, {"bij", "bji"},
                                                                {"cij", "cji"}, {"dij", "dji"},
                                                                {"eij", "eji"}, {"fij", "fji"}};
  std::vector<std::pair<char const*, char const*>> const four(six.begin(), six.begin() + 4);
  std::vector<std::pair<char const*, char const*>> const three(six.begin(), six.begin() + 3);
  std::vector<SwapRow> const rows = {
      {"WILSON", six},
      {"NRTL", six},
      {"NRTLLL", six},
      {"UNIQUAC", four},
      {"UNIQLL", four},
      {"MARGULES", {six[0]}},
      {"VANLAAR", {six[0]}},
      {"PRH", three},
      {"SRKH", three},
      {"PRM", {{"kij", "kji"}}},
      {"SRKS", {{"kij", "kji"}}},
      {"PRP", {{"kij", "kji"}}},
      {"SRKP", {{"kij", "kji"}}},
      {"SRKM", {{"kij", "kji"}, {"kijd", "kjid"}}},
      {"UNFDORT", {{"Tij", "Tji"}}},
      {"UNFLYNG", {{"Tij", "Tji"}}},
      {"UNFMOD", {{"Tij", "Tji"}}},
      {"PSRK", {{"Tij", "Tji"}}},
      {"UNFORIG", {{"vlij", "vlji"}, {"llij", "llji"}}},
      {"UNIFAC", {{"vlij", "vlji"}, {"llij", "llji"}, {"Tij", "Tji"}}}};
  for (SwapRow const& row : rows) {
    for (test::ExpectedType const& type : test::ExpectedTypes()) {
      if (std::string(type.keyword) != row.type) continue;
      IZelBankDef* bank = NewBank(row.type);
      void* face = nullptr;
      bank->QueryInterface(IID_IZelBankIO, &face);
      auto* io = static_cast<IZelBankIO*>(face);
      double stamp = 0.0;
      std::map<std::string, std::vector<double>> before;
      for (auto const& field : type.fields) {
        if (field.type != 1) continue;
        std::vector<double> values(static_cast<std::size_t>(field.count));
        for (double& value : values) value = ++stamp;
        bank->SetDoubleField(field.name, values.data());
        before[field.name] = values;
      }
      auto expected = before;
      for (auto const& [i, j] : row.exchanged) std::swap(expected[i], expected[j]);
      EXPECT_EQ(io->SwapPair(), kStatusOk);
      Fields const fields(bank);
      for (auto const& [name, values] : expected) {
        EXPECT_EQ(fields.Reals(name.c_str(), values.size()), values) << row.type << " " << name;
      }
      io->SwapPair();
      for (auto const& [name, values] : before) {
        EXPECT_EQ(fields.Reals(name.c_str(), values.size()), values) << row.type << " " << name;
      }
      io->Release();
      bank->Release();
    }
  }
}

TEST(SwapPair, HeatsOfMixingChangeTheSignOfOddMembers) {
  Typed<IZelHMix> bank("HMIX", IID_IZelHMix);
  bank->PutData(1, 2, 3, 4, 5, 6, 7, 8, 300, 400, 1, 2, 9);
  bank.IO()->SwapPair();
  double a, b, c, d, e, f, g, h, tMin, tMax, pMin, pMax;
  std::int32_t code;
  bank->GetData(&a, &b, &c, &d, &e, &f, &g, &h, &tMin, &tMax, &pMin, &pMax, &code);
  EXPECT_EQ((std::vector{a, b, c, d, e, f, g, h}),
            (std::vector<double>{1, -2, 3, -4, 5, -6, 7, -8}));
  EXPECT_EQ(tMin, 300);
  bank.Def()->Clear();
  bank.IO()->SwapPair();
  EXPECT_EQ(Fields(bank.Def()).Reals("bij", 1)[0], 1e35) << "undefined values turn like others";
}

TEST(Azeotrope, FractionTurnsRound) {
  Typed<IZelAzeo> bank("AZEOTROP", IID_IZelAzeo);
  bank->PutData(350, 101, 0.3, 2);
  bank.IO()->SwapPair();
  EXPECT_DOUBLE_EQ(Fields(bank.Def()).Reals("x1", 1)[0], 0.7);
}

TEST(Azeotrope, BasisIsAFloatOnFile) {
  Typed<IZelAzeo> bank("AZEOTROP", IID_IZelAzeo);
  bank->PutData(350, 101, 0.3, 2);
  std::int32_t block[4];
  ASSERT_EQ(bank.IO()->WriteBlock(block, 1), kStatusOk);
  EXPECT_EQ(block[3], FloatWord(2.0));
  struct {
    double stored;
    std::int32_t read;
  } const rows[] = {{2.0, 2},
                    {1.9999999, 2},
                    {1.95, 2},
                    {1.89, 1},
                    {0.0, 0},
                    {-1.0, 0},
                    {-5.0, -4},
                    {1e35, gen_GetUndefInt()},
                    {-1e35, gen_GetUndefInt()},
                    {-2147483648.0, gen_GetUndefInt()},
                    {2147483648.0, gen_GetUndefInt()},
                    {std::numeric_limits<double>::quiet_NaN(), gen_GetUndefInt()},
                    {std::numeric_limits<double>::infinity(), gen_GetUndefInt()}};
  for (auto const& row : rows) {
    block[3] = FloatWord(row.stored);
    bank.IO()->ReadBlock(block, 1);
    EXPECT_EQ(Fields(bank.Def()).Ints("basis", 1)[0], row.read) << row.stored;
  }
  bank.Def()->Clear();
  bank.IO()->WriteBlock(block, 1);
  bank.IO()->ReadBlock(block, 1);
  EXPECT_EQ(Fields(bank.Def()).Ints("basis", 1)[0], gen_GetUndefInt());
}

TEST(Wilson, EnumerationsAreListed) {
  Typed<IZelWilson> bank("WILSON", IID_IZelWilson);
  struct {
    char const* field;
    std::vector<std::string> names;
    std::vector<std::int32_t> values;
    std::int32_t byDefault;
  } const rows[] = {{"form", {"K", "KCAL", "KJ", "NODIME"}, {1010, 24013, 24011, 0}, 0},
                    {"eqnForm", {"EXTWILSON", "WILSON"}, {1, 0}, 1},
                    {"volRatio", {"STD25C", "RACKETT", "NOVOL"}, {1, 2, 0}, 0}};
  for (auto const& row : rows) {
    std::int32_t count = 0;
    ASSERT_EQ(bank.Def()->GetEnumCount(row.field, &count), kStatusOk);
    ASSERT_EQ(count, static_cast<std::int32_t>(row.names.size()));
    char names[4][13];
    std::int32_t values[4];
    std::int32_t index = -1;
    ASSERT_EQ(bank.Def()->GetEnumList(row.field, names, values, &index), kStatusOk);
    EXPECT_EQ(index, row.byDefault);
    for (std::size_t i = 0; i < row.names.size(); ++i) {
      EXPECT_EQ(names[i], row.names[i]);
      EXPECT_EQ(values[i], row.values[i]);
    }
    EXPECT_EQ(Fields(bank.Def()).Ints(row.field, 1)[0],
              row.values[static_cast<std::size_t>(row.byDefault)]);
  }
  std::int32_t count = 0;
  EXPECT_EQ(bank.Def()->GetEnumCount("aij", &count), kStatusNotImplemented);
}

TEST(Wilson, OldBlockLeavesTheNewChoicesAtTheirDefaults) {
  Typed<IZelWilson> bank("WILSON", IID_IZelWilson);
  std::int32_t block[14] = {};
  block[5] = FloatWord(1.5);
  block[12] = 24013;
  bank.Def()->Clear();
  bank.IO()->ReadBlock(block, 1);
  Fields const fields(bank.Def());
  EXPECT_EQ(fields.Ints("form", 1)[0], 24013);
  EXPECT_EQ(fields.Ints("eqnForm", 1)[0], 0);
  EXPECT_EQ(fields.Ints("volRatio", 1)[0], 1);
  EXPECT_TRUE(gen_IsUndefDouble(fields.Reals("bij", 1)[0]));
}

TEST(Alpha, GroupsArePackedIntoOneNumberEach) {
  Typed<IZelAlpha> bank("ALPHA", IID_IZelAlpha);
  std::int32_t const undefined = gen_GetUndefInt();
  std::int32_t const eos[] = {3, 12, undefined};
  std::int32_t const form[] = {7, 105, undefined};
  double const deviation[] = {0.1, 0.2, 0.3};
  double const coef[] = {1, 2, 3, 4, 5, 6, 7, 8, 9};
  bank->PutData(eos, form, deviation, coef, 44);
  std::int32_t block[17] = {};
  block[16] = 77;
  ASSERT_EQ(bank.IO()->WriteBlock(block, 1), kStatusOk);
  std::int32_t const expected[] = {
      44,           307,       FloatWord(0.1), FloatWord(1), FloatWord(2),
      FloatWord(3), 1305,      FloatWord(0.2), FloatWord(4), FloatWord(5),
      FloatWord(6), undefined, FloatWord(0.3), FloatWord(7), FloatWord(8),
      FloatWord(9), 77};
  EXPECT_TRUE(std::equal(block, block + 17, expected));
  bank.Def()->Clear();
  ASSERT_EQ(bank.IO()->ReadBlock(block, 1), kStatusOk);
  Fields const fields(bank.Def());
  EXPECT_EQ(fields.Ints("eos", 3), (std::vector<std::int32_t>{3, 13, undefined}));
  EXPECT_EQ(fields.Ints("form", 3), (std::vector<std::int32_t>{7, 5, undefined}));
  EXPECT_EQ(fields.Reals("deviation", 3), (std::vector<double>{0.1, 0.2, 0.3}));
  EXPECT_EQ(fields.Reals("coef", 9), (std::vector<double>{1, 2, 3, 4, 5, 6, 7, 8, 9}));
  EXPECT_EQ(fields.Ints("refCode", 1)[0], 44);
}

TEST(Alpha, HalfDefinedGroupComesBackWithZero) {
  Typed<IZelAlpha> bank("ALPHA", IID_IZelAlpha);
  std::int32_t const undefined = gen_GetUndefInt();
  std::int32_t const eos[] = {undefined, 4, INT32_MAX};
  std::int32_t const form[] = {7, undefined, INT32_MAX};
  double const none[9] = {};
  bank->PutData(eos, form, none, none, 0);
  std::int32_t block[16];
  bank.IO()->WriteBlock(block, 1);
  EXPECT_EQ(block[1], 7);
  EXPECT_EQ(block[6], 400);
  bank.IO()->ReadBlock(block, 1);
  EXPECT_EQ(Fields(bank.Def()).Ints("eos", 3)[0], 0);
  EXPECT_EQ(Fields(bank.Def()).Ints("form", 3)[1], 0);
}

template <typename Face>
void CheckCurves(char const* type, ZelIid const& id) {
  Typed<Face> bank(type, id);
  double mw[12];
  double kij[12];
  double mwOut[12];
  double kijOut[12];
  for (int i = 0; i < 12; ++i) {
    mw[i] = 10.0 + i;
    kij[i] = 0.5 + i;
  }
  std::int32_t count = 0;
  bank->PutData(3, mw, kij);
  for (char const* field : {"mw", "kij"}) {
    auto const kept = Fields(bank.Def()).Reals(field, 12);
    EXPECT_EQ(kept[2], field == std::string("mw") ? 12.0 : 2.5);
    EXPECT_EQ(std::vector<double>(kept.begin() + 3, kept.end()), std::vector<double>(9));
  }
  bank->GetData(&count, mwOut, kijOut);
  EXPECT_EQ(count, 3);
  EXPECT_EQ(mwOut[2], 12.0);
  for (int i = 3; i < 12; ++i) {
    EXPECT_EQ(mwOut[i], 0.0);
    EXPECT_EQ(kijOut[i], 0.0);
  }
  bank->PutData(12, mw, kij);
  std::int32_t block[25];
  ASSERT_EQ(bank.IO()->WriteBlock(block, 1), kStatusOk);
  EXPECT_EQ(block[0], 12);
  for (int i = 0; i < 12; ++i) {
    EXPECT_EQ(block[1 + 2 * i], FloatWord(mw[i]));
    EXPECT_EQ(block[2 + 2 * i], FloatWord(kij[i]));
  }
  for (std::int32_t stored : {-1, 0, 1, 12, 13, INT32_MAX, INT32_MIN}) {
    block[0] = stored;
    bank.IO()->ReadBlock(block, 1);
    EXPECT_EQ(Fields(bank.Def()).Reals("mw", 12)[11], 21.0) << "all points are read";
    bank->GetData(&count, mwOut, kijOut);
    EXPECT_EQ(count, stored);
    EXPECT_EQ(kijOut[0], stored < 1 ? 0.0 : 0.5);
    EXPECT_EQ(kijOut[11], stored < 12 ? 0.0 : 11.5);
  }
  bank->PutData(INT32_MAX, mw, kij);
  bank->GetData(&count, mwOut, kijOut);
  EXPECT_EQ(count, INT32_MAX);
}

TEST(Curves, PointsBehindTheCountAreZero) {
  CheckCurves<IZelMwPr>("MWPR", IID_IZelMwPr);
  CheckCurves<IZelMwSrk>("MWSRK", IID_IZelMwSrk);
}

TEST(Struct, EntriesBehindTheCountAreZero) {
  Typed<IZelStruct> bank("STRUCT", IID_IZelStruct);
  std::int32_t const ids[] = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10};
  std::int32_t out[10];
  std::int32_t counts[10];
  std::int32_t count = 0;
  bank->PutData(2, ids, ids);
  for (char const* field : {"groupNumber", "groupCount"}) {
    EXPECT_EQ(Fields(bank.Def()).Ints(field, 10),
              (std::vector<std::int32_t>{1, 2, 0, 0, 0, 0, 0, 0, 0, 0}));
  }
  bank->GetData(&count, out, counts);
  EXPECT_EQ(count, 2);
  EXPECT_EQ(std::vector<std::int32_t>(out, out + 10),
            (std::vector<std::int32_t>{1, 2, 0, 0, 0, 0, 0, 0, 0, 0}));
  for (std::int32_t stored : {-1, 10, 11, INT32_MAX, INT32_MIN}) {
    std::int32_t block[21] = {stored};
    for (int i = 1; i < 21; ++i) block[i] = i;
    bank.IO()->ReadBlock(block, 1);
    bank->GetData(&count, out, counts);
    EXPECT_EQ(count, stored);
    EXPECT_EQ(out[9], stored < 10 ? 0 : 10);
    EXPECT_EQ(counts[9], stored < 10 ? 0 : 20);
  }
}

TEST(Unifac, ArraysAlternateInTheBlock) {
  Typed<IZelUnifac> bank("UNIFAC", IID_IZelUnifac);
  double tij[9];
  double tji[9];
  for (int i = 0; i < 9; ++i) {
    tij[i] = 100 + i;
    tji[i] = 200 + i;
  }
  bank->PutData(1, 2, 3, 4, tij, tji);
  std::int32_t block[22];
  bank.IO()->WriteBlock(block, 1);
  double const expected[] = {1,   2,   3,   4,   100, 101, 102, 200, 201, 202, 103,
                             104, 105, 203, 204, 205, 106, 107, 108, 206, 207, 208};
  for (int i = 0; i < 22; ++i) EXPECT_EQ(block[i], FloatWord(expected[i])) << i;
  bank.Def()->Clear();
  bank.IO()->ReadBlock(block, 1);
  EXPECT_EQ(Fields(bank.Def()).Reals("Tij", 9), std::vector<double>(tij, tij + 9));
  EXPECT_EQ(Fields(bank.Def()).Reals("Tji", 9), std::vector<double>(tji, tji + 9));
}

TEST(Ppr78, StoredNumbersAreOnAnotherScale) {
  Typed<IZelPpr78> bank("PPR78", IID_IZelPpr78);
  std::int32_t block[2] = {FloatWord(2.914214), FloatWord(29.14214)};
  bank.IO()->ReadBlock(block, 1);
  EXPECT_NEAR(Fields(bank.Def()).Reals("aij", 1)[0], 1.0, 1e-6);
  EXPECT_NEAR(Fields(bank.Def()).Reals("bij", 1)[0], 10.0, 1e-5);
  bank->PutData(1.0, 10.0);
  bank.IO()->WriteBlock(block, 1);
  EXPECT_EQ(block[0], FloatWord(2.914213562373095));
  bank.Def()->Clear();
  bank.IO()->WriteBlock(block, 1);
  bank.IO()->ReadBlock(block, 1);
  EXPECT_TRUE(gen_IsUndefDouble(Fields(bank.Def()).Reals("aij", 1)[0]));
}

template <typename Face>
void CheckThreePairs(char const* type, ZelIid const& id) {
  Typed<Face> bank(type, id);
  double const tij[] = {1, 2, 3};
  double const tji[] = {4, 5, 6};
  EXPECT_EQ(bank->PutContext("STRUCT12x", "a context of more than twenty"), kStatusOk);
  EXPECT_EQ(bank->PutGroup(7, 0.5, 0.25, 11), kStatusOk);
  Fields const fields(bank.Def());
  EXPECT_EQ(fields.Ints("refCode", 1)[0], 11);
  EXPECT_EQ(bank->PutInteraction(tij, tji, 12), kStatusOk);
  EXPECT_EQ(fields.Text("structure"), "STRUCT12");
  EXPECT_EQ(fields.Text("context"), "a context of more th");
  EXPECT_EQ(fields.Ints("mainGroup", 1)[0], 7);
  EXPECT_EQ(fields.Reals("r", 1)[0], 0.5);
  EXPECT_EQ(fields.Reals("q", 1)[0], 0.25);
  EXPECT_EQ(fields.Reals("Tij", 3), (std::vector<double>{1, 2, 3}));
  EXPECT_EQ(fields.Reals("Tji", 3), (std::vector<double>{4, 5, 6}));
  EXPECT_EQ(fields.Ints("refCode", 1)[0], 12) << "one field serves both";
  char structure[9];
  char context[21];
  bank->GetContext(structure, context);
  EXPECT_STREQ(structure, "STRUCT12");
  std::int32_t group = 0;
  std::int32_t code = 0;
  double r = 0;
  double q = 0;
  bank->GetGroup(&group, &r, &q, &code);
  EXPECT_EQ(group, 7);
  EXPECT_EQ(r, 0.5);
  EXPECT_EQ(q, 0.25);
  EXPECT_EQ(code, 12);
  double out[3];
  double out2[3];
  bank->GetInteraction(out, out2, &code);
  EXPECT_EQ(out[2], 3.0);
  EXPECT_EQ(out2[2], 6.0);
}

TEST(GroupSets, ThreePairsOfOperationsShareOneItem) {
  CheckThreePairs<IZelUnfDort>("UNFDORT", IID_IZelUnfDort);
  CheckThreePairs<IZelUnfLyng>("UNFLYNG", IID_IZelUnfLyng);
  CheckThreePairs<IZelUnfMod>("UNFMOD", IID_IZelUnfMod);
  CheckThreePairs<IZelPsrk>("PSRK", IID_IZelPsrk);
  Typed<IZelUnfOrig> bank("UNFORIG", IID_IZelUnfOrig);
  bank->PutInteraction(1, 2, 3, 4, 5);
  Fields const fields(bank.Def());
  EXPECT_EQ(fields.Reals("vlij", 1)[0], 1);
  EXPECT_EQ(fields.Reals("vlji", 1)[0], 2);
  EXPECT_EQ(fields.Reals("llij", 1)[0], 3);
  EXPECT_EQ(fields.Reals("llji", 1)[0], 4);
  double a, b, c, d;
  std::int32_t code;
  bank->GetInteraction(&a, &b, &c, &d, &code);
  EXPECT_EQ((std::vector{a, b, c, d}), (std::vector<double>{1, 2, 3, 4}));
  EXPECT_EQ(code, 5);
}

TEST(Psrk, NamesTheBanksItRefersTo) {
  Typed<IZelPsrk> bank("PSRK", IID_IZelPsrk);
  EXPECT_EQ(bank->SetRefBankName("purecomp", "TOOLONGNAME"), kStatusOk);
  EXPECT_EQ(bank.Def()->SetRefBankName("ALPHA", "MINE"), kStatusOk);
  EXPECT_EQ(bank->SetRefBankName("NRTL", "NOT"), kStatusOk);
  char name[9];
  EXPECT_EQ(bank.Def()->GetRefBankName("PURECOMP", name), kStatusOk);
  EXPECT_STREQ(name, "TOOLONGN");
  EXPECT_EQ(bank->GetRefBankName("alpha", name), kStatusOk);
  EXPECT_STREQ(name, "MINE");
  EXPECT_EQ(bank->GetRefBankName("NRTL", name), kStatusOk);
  EXPECT_STREQ(name, "");
  std::int32_t old[17] = {};
  bank.Def()->Clear();
  bank.IO()->ReadBlock(old, 1);
  bank->GetRefBankName("ALPHA", name);
  EXPECT_STREQ(name, "") << "a block of the first format has no names";
}

TEST(Banks, OthersReferToNothing) {
  for (char const* keyword : test::BankTypes()) {
    if (std::string(keyword) == "PSRK") continue;
    Typed<IZelBankDef> bank(keyword, IID_IZelBankDef);
    for (char const* kind : {"PURECOMP", "ALPHA"}) {
      char name[9] = "x";
      EXPECT_EQ(bank->SetRefBankName(kind, "A"), kStatusOk) << keyword;
      EXPECT_EQ(bank->GetRefBankName(kind, name), kStatusOk) << keyword;
      EXPECT_STREQ(name, "") << keyword;
    }
  }
}

TEST(Mapping, NameIsCutToTwelve) {
  Typed<IZelOrwMap> bank("ORWMAP", IID_IZelOrwMap);
  char name[13];
  bank->PutData("ABCDEFGHIJKL");
  bank->GetData(name);
  EXPECT_STREQ(name, "ABCDEFGHIJKL");
  bank->PutData("ABCDEFGHIJKLM");
  bank->GetData(name);
  EXPECT_STREQ(name, "ABCDEFGHIJKL");
}

TEST(Peneloux, FieldNamesMatchInAnyCase) {
  Typed<IZelPeneloux> bank("PENELOUX", IID_IZelPeneloux);
  std::int32_t const eos[] = {1, 2};
  double const volumes[] = {0.1, 0.2};
  std::int32_t const codes[] = {5, 6};
  bank->PutData(eos, volumes, volumes, codes);
  EXPECT_EQ(Fields(bank.Def()).Ints("refcode", 2), (std::vector<std::int32_t>{5, 6}));
}

}  // namespace
}  // namespace zel

// Which datum is named when comparisons disagree, and how strongly; slips that show by their size.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <deque>

#include "tests/verify/data_check_fixture.h"
#include "verify/judge/diagnosis.h"
#include "verify/judge/reading.h"
#include "verify/judge/slip.h"
#include "verify/judge/substance.h"

namespace zel::test {
namespace {

constexpr JudgeRule kSources = {"magnitude", "the same constant", 1.0, "by hand"};
constexpr JudgeRule kBoiling = {"vapor-pressure", "p(NBP) = 1 atm", 0.02, "by hand"};
constexpr JudgeRule kCritical = {"critical", "ZC = PC VC/(R TC)", 0.02, "by hand"};

class DiagnosisTest : public ::testing::Test {
 protected:
  // A record of a library; only its place matters here.
  Record const& MakeRecord(char const* library) {
    ComponentView const component;
    GoodComponent{}.Fill(*component.Face());
    CheckedItem item(library, CheckedBank("PURECOMP", "TEST"), {1}, "GOOD", "TEST GOOD");
    return records_.emplace_back(component, std::move(item));
  }
  static Claim Of(Record const& record, zelProperties index) {
    return {&record, Datum::Constant(index)};
  }
  void Compare(JudgeRule const& rule, double deviation, std::vector<Claim> const& claims,
               Stake stake = Stake::kFull) {
    Tension tension;
    tension.rule = &rule;
    for (Claim const& claim : claims) tension.parts.push_back({claim, stake});
    tension.about = claims.front();
    tension.isBetweenSources = &rule == &kSources;
    tension.deviation = deviation;
    tensions_.push_back(std::move(tension));
  }

  std::deque<Record> records_;
  std::vector<Tension> tensions_;
};

TEST_F(DiagnosisTest, DataThatAgreeAreNotSuspect) {
  Record const& one = MakeRecord("one");
  Record const& two = MakeRecord("two");
  Compare(kSources, 0.9, {Of(one, propertyTC), Of(two, propertyTC)});
  EXPECT_TRUE(Diagnose(tensions_).empty());
  EXPECT_TRUE(Diagnose({}).empty());
}

TEST_F(DiagnosisTest, TheOddOneOfThreeSourcesIsTheCulprit) {
  Record const& one = MakeRecord("one");
  Record const& two = MakeRecord("two");
  Record const& three = MakeRecord("three");
  Compare(kSources, 8.0, {Of(one, propertyTC), Of(two, propertyTC)});
  Compare(kSources, 8.2, {Of(two, propertyTC), Of(three, propertyTC)});
  Compare(kSources, 0.1, {Of(one, propertyTC), Of(three, propertyTC)});
  std::vector<Suspicion> const found = Diagnose(tensions_);
  ASSERT_EQ(found.size(), 1U);
  EXPECT_EQ(found[0].claim, Of(two, propertyTC));
  EXPECT_GT(found[0].strength, 0.9);
  ASSERT_EQ(found[0].against.size(), 2U);
  EXPECT_EQ(found[0].against[0].deviation, 8.2) << "the worst first";
}

TEST_F(DiagnosisTest, WhatAgreesElsewhereIsNotTheCulprit) {
  Record const& one = MakeRecord("one");
  Record const& two = MakeRecord("two");
  Claim const boiling = Of(one, propertyNBP);
  Claim const critical = Of(one, propertyTC);
  Compare(kBoiling, 6.0, {boiling, critical});
  Compare(kSources, 0.1, {critical, Of(two, propertyTC)});
  std::vector<Suspicion> const found = Diagnose(tensions_);
  ASSERT_EQ(found.size(), 1U);
  EXPECT_EQ(found[0].claim, boiling);
}

TEST_F(DiagnosisTest, TwoMistakesAreTwoFindings) {
  Record const& one = MakeRecord("one");
  Record const& two = MakeRecord("two");
  Record const& three = MakeRecord("three");
  for (zelProperties const index : {propertyTC, propertyPC}) {
    Record const& wrong = index == propertyTC ? one : two;
    Record const& right = index == propertyTC ? two : one;
    Compare(kSources, 9.0, {Of(wrong, index), Of(right, index)});
    Compare(kSources, 9.0, {Of(wrong, index), Of(three, index)});
    Compare(kSources, 0.2, {Of(right, index), Of(three, index)});
  }
  std::vector<Suspicion> const found = Diagnose(tensions_);
  ASSERT_EQ(found.size(), 2U);
  EXPECT_EQ(found[0].claim, Of(one, propertyTC));
  EXPECT_EQ(found[1].claim, Of(two, propertyPC));
}

TEST_F(DiagnosisTest, StrengthGrowsWithTheDeviationAndWithWitnesses) {
  Record const& one = MakeRecord("one");
  Record const& two = MakeRecord("two");
  double before = 0.0;
  for (double const deviation : {1.2, 2.0, 5.0, 30.0, 1e3}) {
    tensions_.clear();
    Compare(kSources, deviation, {Of(one, propertyTC), Of(two, propertyTC)});
    double const strength = Diagnose(tensions_).at(0).strength;
    EXPECT_GT(strength, before) << deviation;
    EXPECT_LT(strength, 1.0);
    before = strength;
  }
  tensions_.clear();
  Compare(kBoiling, 3.0, {Of(one, propertyNBP)});
  double const alone = Diagnose(tensions_).at(0).strength;
  Compare(kBoiling, 3.0, {Of(one, propertyNBP), Of(two, propertyTC)});
  EXPECT_EQ(Diagnose(tensions_).at(0).strength, alone) << "the same rule is the same witness";
  Compare(kCritical, 3.0, {Of(one, propertyNBP)});
  EXPECT_GT(Diagnose(tensions_).at(0).strength, alone);
}

// Values that agree with all others do not make another datum the culprit for a wrong range.
TEST_F(DiagnosisTest, ValuesThatAgreeDoNotAcquitTheRange) {
  Record const& one = MakeRecord("one");
  Record const& two = MakeRecord("two");
  Claim const curve{&one, Datum::Curve(correlationLiquidDensity)};
  Claim const melting = Of(one, propertyNMP);
  Compare(kBoiling, 20.0, {curve});
  tensions_.back().isOfRange = true;
  tensions_.back().value = 2.0;
  tensions_.back().expected = 1.0;
  tensions_.back().parts.push_back({melting, Stake::kMinor});
  Compare(kCritical, 1.2, {Of(one, propertyVC)});
  tensions_.back().parts.push_back({curve, Stake::kMinor});
  for (int i = 0; i < 5; ++i) {
    Compare(kSources, 0.01, {curve, {&two, Datum::Curve(correlationLiquidDensity)}});
    tensions_.back().value = 1.001;
    tensions_.back().expected = 1.0;
  }
  std::vector<Suspicion> const found = Diagnose(tensions_, 0.5);
  ASSERT_EQ(found.size(), 1U);
  EXPECT_EQ(found[0].claim, curve);
  EXPECT_GT(found[0].strength, 0.8);
}

TEST_F(DiagnosisTest, ADatumThatHardlyMattersIsNotNamed) {
  Record const& one = MakeRecord("one");
  Tension tension;
  tension.rule = &kBoiling;
  tension.parts = {{Of(one, propertyTC), Stake::kMinor}, {Of(one, propertyNBP), Stake::kFull}};
  tension.about = Of(one, propertyTC);
  tension.deviation = 10.0;
  tensions_.push_back(tension);
  EXPECT_EQ(Diagnose(tensions_).at(0).claim, Of(one, propertyNBP));
}

TEST(SubstanceTest, RecordsOfOneCasNumberAreOneSubstance) {
  std::deque<Record> records;
  auto const add = [&](std::int32_t number, std::int32_t cas, char const* formula, char const* id) {
    ComponentView const component;
    GoodComponent good;
    good.number = number;
    good.cas = cas;
    good.formula = formula;
    good.id = id;
    good.Fill(*component.Face());
    records.emplace_back(component, CheckedItem("own", CheckedBank("PURECOMP", "TEST"), {number},
                                                "GOOD", "TEST GOOD"));
  };
  add(1, 7732185, "H2O", "WATER");
  add(2, 7732185, "H2O", "STEAM");  // another number, the same CAS number
  add(1, 64175, "C2H6O", "ETOH");   // the number of water
  add(1, 0, "H2O", "LAKE");         // no CAS number: by number and formula
  add(3, 0, "", "OTHER");
  add(4, 0, "", "STEAM");     // by an ID
  add(5, 0, "CH4", "STEAM");  // the ID, but another formula
  std::vector<Substance> const substances = SubstancesOf(records);
  ASSERT_EQ(substances.size(), 4U);
  EXPECT_EQ(substances[0].Records(),
            (std::vector<Record const*>{&records[0], &records[1], &records[3], &records[5]}));
  EXPECT_EQ(substances[1].Records(), std::vector<Record const*>{&records[2]});
  EXPECT_EQ(substances[2].Records(), std::vector<Record const*>{&records[4]});
  EXPECT_EQ(substances[3].Records(), std::vector<Record const*>{&records[6]});
}

TEST(SlipTest, FactorsAndOffsetsOfUnits) {
  struct {
    double value, expected;
    char const* unit;
    char const* slip;
  } const rows[] = {
      {48.95, 4895.0, "kPa", "bar taken for kPa"},
      {48.31, 4895.0, "kPa", "atm taken for kPa"},
      {710.0, 4895.0, "kPa", "psi taken for kPa"},
      {36716.0, 4895.0, "kPa", "mmHg taken for kPa"},
      {4.895, 4895.0, "kPa", "MPa taken for kPa"},
      {4895e3, 4895.0, "kPa", "Pa taken for kPa"},
      {80.09, 353.24, "K", "C taken for K"},
      {626.39, 353.24, "K", "K taken for C"},
      {176.16, 353.24, "K", "F taken for K"},
      {635.83, 353.24, "K", "R taken for K"},
      {-56196.0, -235.1e3, "kJ/kg-mol", "cal taken for J"},
      {235.1e3, -235.1e3, "kJ/kg-mol", "a lost sign"},
      {-2351e3, -235.1e3, "kJ/kg-mol", "a decimal point that slipped by 1 digit"},
      {-235.1, -235.1e3, "kJ/kg-mol", "a decimal point that slipped by 3 digits"},
      {-235.1e3 * 46.07, -235.1e3, "kJ/kg-mol", "a molar value taken for one per mass"},
      {-56.196, -235.1e3, "kJ/kg-mol", "kcal/mol taken for J/mol"},
      {16.16 * 46.07, 16.16, "kg-mol/m3", "a value per mass taken for a molar one"},
      {16.16 / 46.07, 16.16, "kg-mol/m3", "a molar value taken for one per mass"},
      {0.0618 * 46.07, 0.0618, "m3/kg-mol", "a molar value taken for one per mass"},
      {0.0618 * 16.01846, 0.0618, "m3/kg-mol", "ft3/lb taken for m3/kg"},
      {0.0618 / 16.01846, 0.0618, "m3/kg-mol", "m3/kg taken for ft3/lb"},
      {5.64, 1.69, "debye", "1e-30 C m taken for debye"},
      {0.507, 1.69, "debye", "debye taken for 1e-30 C m"},
      {0.2541, 0.2451, "", "two digits exchanged"},
      {0.5, 0.4, "", ""},
      {4895.0, 4895.0, "kPa", ""},
  };
  for (auto const& row : rows) {
    EXPECT_EQ(LikelySlip(row.value, row.expected, row.unit, 0.003, 46.07), row.slip)
        << row.value << ' ' << row.expected;
  }
  EXPECT_EQ(LikelySlip(gen_GetUndefDouble(), 1.0, "K", 0.01, 46.07), "");
  EXPECT_EQ(LikelySlip(1.0, 0.0, "K", 0.01, 46.07), "");
}

TEST(SlipTest, TwoNeighbouringDigitsExchanged) {
  EXPECT_TRUE(HasExchangedDigits(0.123, 0.213));
  EXPECT_TRUE(HasExchangedDigits(654.0, 645.0));
  EXPECT_TRUE(HasExchangedDigits(3020.0, 3200.0));
  EXPECT_TRUE(HasExchangedDigits(0.2451, 0.2541));
  EXPECT_TRUE(HasExchangedDigits(-4810.0, -8410.0));
  EXPECT_TRUE(HasExchangedDigits(0.072, 0.702)) << "with a zero";
  EXPECT_FALSE(HasExchangedDigits(0.12, 0.21)) << "two digits";
  EXPECT_FALSE(HasExchangedDigits(-4800.0, -8400.0)) << "two digits";
  EXPECT_FALSE(HasExchangedDigits(0.21, 0.21));
  EXPECT_FALSE(HasExchangedDigits(123.0, 321.0)) << "not neighbours";
  EXPECT_FALSE(HasExchangedDigits(1234.0, 2143.0)) << "twice";
  EXPECT_FALSE(HasExchangedDigits(654.0, 655.0));
  EXPECT_FALSE(HasExchangedDigits(654.1, 645.0));
  EXPECT_FALSE(HasExchangedDigits(1.0, 2.0));
  EXPECT_FALSE(HasExchangedDigits(1.0 / 3.0, 2.0 / 3.0)) << "too many digits";
  EXPECT_FALSE(HasExchangedDigits(1e300, 1e299));
  EXPECT_FALSE(HasExchangedDigits(gen_GetUndefDouble(), 1.0));
}

// A difference that has the size of a slip deviates five times as much as one near it.
TEST(SourcesTest, DifferenceOfASlipCountsMore) {
  auto const compared = [](double one, double other) {
    std::deque<Record> records;
    Substance substance;
    for (double const value : {one, other}) {
      ComponentView const component;
      GoodComponent{}.Fill(*component.Face());
      component.Face()->SetProperty(propertyAUTOIGNITION, value);
      records.emplace_back(component,
                           CheckedItem("own", CheckedBank("PURECOMP", "TEST"), {1}, "A", "A"));
      substance.Add(records.back());
    }
    std::vector<Tension> tensions;
    AddSourceComparisons(substance, tensions);
    auto const at = std::find_if(tensions.begin(), tensions.end(), [](Tension const& tension) {
      return tension.about.datum == Datum::Constant(propertyAUTOIGNITION);
    });
    return at == tensions.end() ? -1.0 : at->deviation;
  };
  double const plain = compared(650.0, 611.0);
  EXPECT_NEAR(compared(650.0, 606.0), plain * std::log(650.0 / 606.0) / std::log(650.0 / 611.0),
              1e-9);
  EXPECT_NEAR(compared(651.0, 561.0),
              5.0 * plain * std::log(651.0 / 561.0) / std::log(650.0 / 611.0), 1e-9);
  // Far within the tolerance digits may be exchanged by chance.
  EXPECT_LT(compared(650.12, 650.21), 0.01);
}

struct Limits {
  double low, high;
};

// "the end of the range of 289.17 160.65" for ranges of two sources that are a slip apart.
std::string RangeSlip(Limits one, Limits other) {
  std::deque<Record> records;
  Substance substance;
  for (Limits const& limits : {other, one}) {
    ComponentView const component;
    GoodComponent{}.Fill(*component.Face());
    GoodComponent::Line(*component.Face(), correlationVaporViscosity, limits.low, limits.high,
                        0.001, 1e-5);
    records.emplace_back(component,
                         CheckedItem("own", CheckedBank("PURECOMP", "TEST"), {1}, "A", "A"));
    substance.Add(records.back());
  }
  std::vector<Tension> tensions;
  AddSourceComparisons(substance, tensions);
  for (Tension const& tension : tensions) {
    if (std::string_view(tension.rule->id) != "range-slip") continue;
    EXPECT_TRUE(tension.isOfRange);
    return tension.quantity + NumberText(tension.value) + " " + NumberText(tension.expected);
  }
  return "";
}

TEST(SourcesTest, RangesThatAreASlipApart) {
  std::string const begin = "the beginning of the range of ";
  std::string const end = "the end of the range of ";
  // In R, F and C, and taken for C.
  EXPECT_EQ(RangeSlip({289.17, 1800}, {160.65, 1000}), begin + "289.17 160.65");
  EXPECT_EQ(RangeSlip({-170.5, 1340.33}, {160.65, 1000}), begin + "-170.5 160.65");
  EXPECT_EQ(RangeSlip({-112.5, 726.85}, {160.65, 1000}), begin + "-112.5 160.65");
  EXPECT_EQ(RangeSlip({433.8, 1273.15}, {160.65, 1000}), begin + "433.8 160.65");
  // One limit.
  EXPECT_EQ(RangeSlip({433.8, 1000}, {160.65, 1000}), begin + "433.8 160.65");
  EXPECT_EQ(RangeSlip({160.65, 621.15}, {160.65, 894.3}), end + "621.15 894.3");
  EXPECT_EQ(RangeSlip({160.65, 343}, {160.65, 433}), end + "343 433");
  // None.
  EXPECT_EQ(RangeSlip({160.65, 1000}, {160.65, 1000}), "");
  EXPECT_EQ(RangeSlip({160.65, 1273.15}, {160.65, 1000}), "") << "1000 C and 1000 K";
  EXPECT_EQ(RangeSlip({270, 400}, {150, 400}), "") << "a factor by chance";
  EXPECT_EQ(RangeSlip({433.8, 900}, {160.65, 1000}), "");
  EXPECT_EQ(RangeSlip({189.15, 574.59}, {189.15, 574.59}), "") << "the same in F and K";
  EXPECT_EQ(RangeSlip({189.15, 658.51}, {189.15, 658.15}), "") << "too little";
}

}  // namespace
}  // namespace zel::test

// Constants derived from correlations, and the fill-in as a whole. Expected numbers without a
// remark were computed independently of the code with 40 digits.
#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <random>

#include "purecomp/fill_in.h"
#include "tests/purecomp/fill_in_fixture.h"

namespace zel {
namespace {

using test::FillInTest;
using test::kLatentHeatAt;
using test::kUndefined;
using test::kVaporPressureAt;

using FillInSolubility = FillInTest;
using FillInAcentric = FillInTest;
using FillInWhole = FillInTest;

constexpr int kPolynomial = 1;      // C1 + C2 T
constexpr int kCriticalSeries = 6;  // (1 - T/Tc)(C1 + ...)
constexpr int kNoForm = 50;

std::array<std::uint64_t, kConstants> BitsOf(std::array<double, kConstants> const& values) {
  return std::bit_cast<std::array<std::uint64_t, kConstants>>(values);
}

TEST_F(FillInSolubility, FromHeatOfVaporizationAndMolarVolume) {
  Set(propertyMVOL25C, 0.1);
  SetCorrelation(kLatentHeatAt, kPolynomial, {30000.0});
  EXPECT_NEAR(Completed(propertySOLUPARA), 8.1110595697952028, 1e-14);
  EXPECT_EQ(Label(propertySOLUPARA), "from HVap@25C,MolVol@25C");
  EXPECT_EQ(c.fixed[propertySOLUPARA], kUndefined);
  SetCorrelation(kLatentHeatAt, kPolynomial, {50000.0, -50.0});
  EXPECT_NEAR(Completed(propertySOLUPARA), 8.8296632451390371, 1e-14);
}

TEST_F(FillInSolubility, BelowTheWorkOfExpansionTheRootKeepsItsSign) {
  Set(propertyMVOL25C, 0.1);
  SetCorrelation(kLatentHeatAt, kPolynomial, {1000.0});
  EXPECT_NEAR(Completed(propertySOLUPARA), -1.8802833977674047, 1e-14);
}

TEST_F(FillInSolubility, ARangeThatEndsBelowOrAboveIsExtrapolated) {
  Set(propertyMVOL25C, 0.1);
  SetCorrelation(kLatentHeatAt, kPolynomial, {50000.0, -50.0}, 100.0, 250.0);
  EXPECT_NEAR(Completed(propertySOLUPARA), 8.8296632451390371, 1e-14);
  EXPECT_EQ(Label(propertySOLUPARA), "from HVap@25C,MolVol@25C");
  SetCorrelation(kLatentHeatAt, kPolynomial, {50000.0, -50.0}, 350.0, 400.0);
  EXPECT_NEAR(Completed(propertySOLUPARA), 8.8296632451390371, 1e-14);
}

TEST_F(FillInSolubility, TheTemperatureIsPassedAsItIs) {
  Set(propertyMVOL25C, 0.1);
  SetCorrelation(kLatentHeatAt, kPolynomial, {50000.0, -50.0});
  for (std::int32_t unit : {0, 10, 11, 12, 13}) {
    c.correlations[kLatentHeatAt].tempUnit = unit;
    EXPECT_NEAR(Completed(propertySOLUPARA), 8.8296632451390371, 1e-14) << unit;
  }
}

TEST_F(FillInSolubility, HeatsByWeightBecomeMolar) {
  Set(propertyMVOL25C, 0.1);
  Set(propertyMW, 92.14);
  SetCorrelation(kLatentHeatAt, kPolynomial, {300.0});
  c.correlations[kLatentHeatAt].moleWtBasis = 2;
  EXPECT_NEAR(Completed(propertySOLUPARA), 7.7558022004943701, 1e-14);
}

TEST_F(FillInSolubility, NeedsVolumeAndAHeatThatCanBeEvaluated) {
  SetCorrelation(kLatentHeatAt, kPolynomial, {30000.0});
  EXPECT_EQ(Completed(propertySOLUPARA), kUndefined) << "no volume";
  Set(propertyMVOL25C, 0.1);
  c.correlations[kLatentHeatAt].present = false;
  EXPECT_EQ(Completed(propertySOLUPARA), kUndefined) << "no correlation";
  SetCorrelation(kLatentHeatAt, kPolynomial, {30000.0}, 500.0, 200.0);
  EXPECT_EQ(Completed(propertySOLUPARA), kUndefined) << "limits that leave no temperature";
  EXPECT_EQ(Label(propertySOLUPARA), "");
}

TEST_F(FillInSolubility, AFormThatGivesNothingCountsAsZero) {
  Set(propertyMVOL25C, 0.1);
  SetCorrelation(kLatentHeatAt, kNoForm, {30000.0});
  EXPECT_NEAR(Completed(propertySOLUPARA), -std::sqrt(2478.95952865 / 0.1 / 4.18321 / 1000.0),
              1e-14);
}

TEST_F(FillInSolubility, StoredValueStays) {
  Set(propertyMVOL25C, 0.1);
  Set(propertySOLUPARA, 7.0, "LIB");
  SetCorrelation(kLatentHeatAt, kPolynomial, {30000.0});
  EXPECT_EQ(Completed(propertySOLUPARA), 7.0);
  EXPECT_EQ(Label(propertySOLUPARA), "LIB");
}

// --- acentric factor ----------------------------------------------------------------------------

TEST_F(FillInAcentric, FromVaporPressureAtSevenTenthsOfTheCriticalTemperature) {
  Set(propertyTC, 305.32);
  Set(propertyPC, 4872.0);
  SetCorrelation(kVaporPressureAt, kPolynomial, {0.0, 1.0});  // P is T
  EXPECT_NEAR(Completed(propertyACENTRIC), 0.35785398590100262, 1e-15);
  EXPECT_EQ(Label(propertyACENTRIC), "from PSat,Pc,Tc");
  EXPECT_EQ(c.fixed[propertyACENTRIC], kUndefined);
  SetCorrelation(kVaporPressureAt, kPolynomial, {487.2});
  EXPECT_NEAR(Completed(propertyACENTRIC), 0.0, 1e-15);
  SetCorrelation(kVaporPressureAt, kPolynomial, {48.72});
  EXPECT_NEAR(Completed(propertyACENTRIC), 1.0, 1e-15);
}

TEST_F(FillInAcentric, OutsideTheRangeByExtrapolation) {
  Set(propertyTC, 500.0);
  Set(propertyPC, 1000.0);
  // At the bound of 250 K: ln P linear in 1/T, from P = 250 and slope 1, so ln P = ln 250 + 1 -
  // 250/350 at 350 K.
  SetCorrelation(kVaporPressureAt, kPolynomial, {0.0, 1.0}, 200.0, 250.0);
  double const ln = std::log(250.0) + 1.0 - 250.0 / 350.0;
  EXPECT_NEAR(Completed(propertyACENTRIC), -(ln - std::log(1000.0)) / std::log(10.0) - 1.0, 1e-14);
}

TEST_F(FillInAcentric, ZeroAndNegativePressureRatios) {
  Set(propertyTC, 500.0);
  Set(propertyPC, 1000.0);
  Set(propertyMW, 0.0);
  SetCorrelation(kVaporPressureAt, kPolynomial, {100.0});
  c.correlations[kVaporPressureAt].moleWtBasis = 2;  // the value times a weight of 0
  EXPECT_EQ(Completed(propertyACENTRIC), 99.0);
  Set(propertyMW, -1.0);
  EXPECT_NEAR(Completed(propertyACENTRIC), 0.0, 1e-15);
  Set(propertyMW, 30.0);
  Set(propertyPC, -3000.0);
  EXPECT_NEAR(Completed(propertyACENTRIC), -1.0, 1e-15);
}

TEST_F(FillInAcentric, NeedsCriticalConstantsAndAPressureThatCanBeEvaluated) {
  SetCorrelation(kVaporPressureAt, kPolynomial, {100.0});
  Set(propertyPC, 1000.0);
  EXPECT_EQ(Completed(propertyACENTRIC), kUndefined);
  Set(propertyTC, 500.0);
  Set(propertyPC, kUndefined);
  EXPECT_EQ(Completed(propertyACENTRIC), kUndefined);
  Set(propertyPC, 1000.0);
  c.correlations[kVaporPressureAt].present = false;
  EXPECT_EQ(Completed(propertyACENTRIC), kUndefined);
  SetCorrelation(kVaporPressureAt, kPolynomial, {100.0}, 600.0, 200.0);
  EXPECT_EQ(Completed(propertyACENTRIC), kUndefined);
  EXPECT_EQ(Label(propertyACENTRIC), "");
  Set(propertyACENTRIC, 0.1, "LIB");
  SetCorrelation(kVaporPressureAt, kPolynomial, {100.0});
  EXPECT_EQ(Completed(propertyACENTRIC), 0.1);
  EXPECT_EQ(Label(propertyACENTRIC), "LIB");
}

// A derived critical temperature is used here, but a correlation uses the constants as read.
TEST_F(FillInAcentric, DerivedCriticalTemperature) {
  Set(propertyPC, 4872.0);
  Set(propertyVC, 0.1455);
  Set(propertyZC, 0.279);
  SetCorrelation(kVaporPressureAt, kPolynomial, {0.0, 1.0});
  CompleteComponent(c);
  EXPECT_NEAR(c.completed[propertyTC], 305.58458782866493, 1e-12);
  EXPECT_NEAR(c.completed[propertyACENTRIC], -std::log10(0.7 * 305.58458782866493 / 4872.0) - 1.0,
              1e-14);
  SetCorrelation(kVaporPressureAt, kCriticalSeries, {487.2});
  EXPECT_NEAR(Completed(propertyACENTRIC), 0.0, 1e-14);  // with the derived one it would be 0.52
}

// --- the whole ----------------------------------------------------------------------------------

TEST_F(FillInWhole, AnEmptyComponent) {
  CompleteComponent(c);
  for (std::size_t i = 0; i < kConstants; ++i) {
    bool const touched = i == propertyPARACHOR || i == propertyCNUM || (i >= 53 && i <= 57) ||
                         (i >= 60 && i <= 64) || (i >= 70 && i <= 74) || i == 80;
    EXPECT_EQ(!Label(i).empty(), touched) << i;
    EXPECT_EQ(c.fixed[i], kUndefined);
    if (!touched) {
      EXPECT_EQ(c.completed[i], kUndefined) << i;
    }
  }
  EXPECT_FALSE(c.consistencyWarning);
  EXPECT_EQ(c.phase, 0);
}

// For any data: what was read is unchanged, and the rest depends only on it.
TEST_F(FillInWhole, AnyDataAndTwiceTheSame) {
  std::mt19937 random(7);
  double const odd[] = {0.0,
                        -0.0,
                        1.0,
                        -1.0,
                        1e308,
                        -1e308,
                        -1e35,
                        5e-324,
                        std::numeric_limits<double>::infinity(),
                        -std::numeric_limits<double>::infinity(),
                        std::numeric_limits<double>::quiet_NaN()};
  char const* const formulas[] = {"C2H6",          "petro", "x",   "((CH3)2N)3PO",
                                  "C99999(O)9999", "",      "(((("};
  auto const fresh = std::make_unique<Component>();
  for (int round = 0; round < 4000; ++round) {
    Clear();
    for (double& value : c.fixed) {
      unsigned const kind = random() % 4;
      if (kind == 1) value = odd[random() % std::size(odd)];
      if (kind == 2) value = static_cast<double>(random() % 100'000) / 100.0;
    }
    SetFormula(formulas[random() % std::size(formulas)]);
    for (std::size_t i = 0; i < kCorrelations; ++i) {
      SetCorrelation(i, static_cast<int>(random() % 60),
                     {3.0, odd[random() % std::size(odd)], 0.5, 2.0, 300.0, 0.1, 400.0, 1.0});
    }
    auto const before = c.fixed;
    *fresh = c;
    CompleteComponent(c);
    CompleteComponent(*fresh);
    CompleteComponent(*fresh);
    EXPECT_EQ(BitsOf(c.fixed), BitsOf(before));
    EXPECT_EQ(BitsOf(c.completed), BitsOf(fresh->completed)) << round;
    for (std::size_t i = 0; i < 50; ++i) {
      if (!(before[i] > -1e35)) continue;
      ASSERT_EQ(c.completed[i], before[i]) << i;
      ASSERT_EQ(Label(i), "") << i;
    }
  }
}

}  // namespace
}  // namespace zel

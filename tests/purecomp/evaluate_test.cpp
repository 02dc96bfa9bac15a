// Evaluation of a component's correlations: range, extrapolation, limits, units, basis, evaluation
// of one correlation by another.
#include <cmath>
#include <limits>
#include <vector>

#include "tests/purecomp/evaluate_fixture.h"

namespace zel {
namespace {

using test::ComponentBank;

using test::Evaluate;
using test::Evaluated;
using test::SetCorrelation;

TEST(Evaluate, InsideTheRangeGivesValueDerivativeAndStatusZero) {
  ComponentBank bank;
  SetCorrelation(bank, 1, 1, {10.0, 2.0, 0.5});
  Evaluated const r = Evaluate(bank, 1, 300.0);
  EXPECT_EQ(r.result, kStatusOk);
  EXPECT_EQ(r.value, 10.0 + 600.0 + 45000.0);
  EXPECT_EQ(r.derivative, 302.0);
  EXPECT_EQ(r.status, 0);
  EXPECT_EQ(Evaluate(bank, 1, 300.0, 2).derivative, 1.0);
  EXPECT_EQ(Evaluate(bank, 1, 300.0, 3).derivative, 0.0);
  for (std::int32_t order : {0, -1, INT32_MIN}) {
    EXPECT_EQ(Evaluate(bank, 1, 300.0, order).derivative, 302.0) << "counts as 1";
  }
  Evaluated const w = Evaluate(bank, 1, 300.0, 11);
  EXPECT_EQ(w.weights[0], 1.0);
  EXPECT_EQ(w.weights[1], 300.0);
  EXPECT_EQ(w.weights[2], 90000.0);
  EXPECT_EQ(w.derivative, 5.25) << "left as it came";
}

TEST(Evaluate, AbsentCorrelationsAndIndicesFailAndChangeNothing) {
  ComponentBank bank;
  for (std::uint32_t index : {0U, 17U, 18U, 19U, 20U, 4294967295U}) {
    Evaluated const r = Evaluate(bank, index, 300.0);
    EXPECT_EQ(r.result, kStatusFailed) << index;
    EXPECT_EQ(r.value, 4.75);
    EXPECT_EQ(r.derivative, 5.25);
  }
}

TEST(Evaluate, UnitFactorTurnsTheValueIntoInternalUnits) {
  ComponentBank bank;
  SetCorrelation(bank, 0, 1, {2.0, 0.01}, 200, 400, 4025, 0);
  Evaluated const r = Evaluate(bank, 0, 300.0);
  EXPECT_DOUBLE_EQ(r.value, 5.0 * 101.325);
  EXPECT_DOUBLE_EQ(r.derivative, 0.01 * 101.325);
}

// Units are read from files unchecked.
TEST(Evaluate, UnitThatIsNoneLeavesTheValue) {
  for (std::int32_t const unit :
       {1, 9, 999, 1009, 4009, 4037, 50999, 51010, 999999, -1, -4025, INT32_MIN, INT32_MAX}) {
    ComponentBank bank;
    SetCorrelation(bank, 0, 1, {2.0, 0.01}, 200, 400, unit, 0);
    Evaluated const r = Evaluate(bank, 0, 300.0);
    EXPECT_EQ(r.result, kStatusOk) << unit;
    EXPECT_DOUBLE_EQ(r.value, 5.0) << unit;
    EXPECT_DOUBLE_EQ(r.derivative, 0.01) << unit;
  }
}

// ln P is linear in 1/T through the last point: P = exp(A + B/T) continues as itself.
TEST(Evaluate, VaporPressureAndLiquidViscosityExtrapolateLogarithmically) {
  for (std::uint32_t index : {0U, 7U}) {
    ComponentBank bank;
    SetCorrelation(bank, index, 20, {8.0, -1500.0});
    for (double T : {150.0, 450.0}) {
      Evaluated const r = Evaluate(bank, index, T);
      EXPECT_EQ(r.result, kStatusNothingNew);
      EXPECT_EQ(r.status, T > 400.0 ? 1 : -1);
      double const expected = std::exp(8.0 - 1500.0 / T);
      EXPECT_NEAR(r.value, expected, 1e-12 * expected);
      EXPECT_NEAR(r.derivative, expected * 1500.0 / (T * T), 1e-12 * expected);
    }
  }
}

// In orders 2 and 3 the slope is the derivative of that order.
TEST(Evaluate, LogarithmicExtrapolationUsesTheDerivativeOfTheOrder) {
  ComponentBank bank;
  SetCorrelation(bank, 7, 20, {2.0, -600.0});
  double const T = 450.0, Tx = 400.0;
  for (std::int32_t order : {2, 3}) {
    Evaluated const atEnd = Evaluate(bank, 7, Tx, order);
    Evaluated const r = Evaluate(bank, 7, T, order);
    double const V = atEnd.value, dV = atEnd.derivative;
    double const E = std::exp(std::log(V) - (Tx / T - 1.0) * (Tx / V) * dV);
    double const w = dV * Tx * Tx / (T * T * V);
    double const d2 = w * (E * w - 2.0 * E / T);
    double const d3 = w * ((E * w - 2.0 * E / T) * w - 2.0 * (2.0 * E * w - 3.0 * E / T) / T);
    EXPECT_NEAR(r.value, E, 1e-13 * E);
    EXPECT_NEAR(r.derivative, order == 2 ? d2 : d3, 1e-12 * std::fabs(order == 2 ? d2 : d3));
  }
}

TEST(Evaluate, LogarithmicExtrapolationIsClampedAndNeedsAPositiveValue) {
  ComponentBank bank;
  SetCorrelation(bank, 7, 1, {1.0, 0.0, -1.0 / 90000.0});  // falls to 0 at 300
  Evaluated const negative = Evaluate(bank, 7, 450.0);
  EXPECT_EQ(negative.result, kStatusNothingNew);
  EXPECT_EQ(negative.value, 1e-10) << "0, raised to the limit";
  EXPECT_EQ(negative.derivative, 0.0);
  SetCorrelation(bank, 7, 20, {50.0, -30000.0}, 500.0, 600.0);
  double const expected = std::exp(50.0 - 3e-5);
  EXPECT_NEAR(Evaluate(bank, 7, 1e9).value, expected, 1e-12 * expected);
  SetCorrelation(bank, 7, 20, {75.0, -30000.0}, 500.0, 600.0);
  EXPECT_DOUBLE_EQ(Evaluate(bank, 7, 1e9).value, std::exp(60.0));
}

TEST(Evaluate, OtherCorrelationsExtrapolateLinearly) {
  for (std::uint32_t index : {1U, 2U, 4U, 5U, 6U, 8U, 9U, 11U, 12U, 13U, 14U, 15U, 16U, 17U}) {
    ComponentBank bank;
    SetCorrelation(bank, index, 1, {1000.0, 2.0, 0.25});
    Evaluated const r = Evaluate(bank, index, 450.0);
    EXPECT_EQ(r.result, kStatusNothingNew) << index;
    EXPECT_EQ(r.value, 1000.0 + 800.0 + 40000.0 + 50.0 * 202.0) << index;
    EXPECT_EQ(r.derivative, 202.0);
    Evaluated const second = Evaluate(bank, index, 450.0, 2);
    EXPECT_EQ(second.value, 41800.0 + 50.0 * 0.5) << "the second derivative is the slope";
    EXPECT_EQ(second.derivative, 0.0);
    Evaluated const weights = Evaluate(bank, index, 450.0, 11);
    EXPECT_EQ(weights.value, 41800.0) << "no slope";
    EXPECT_EQ(weights.derivative, 0.0);
    EXPECT_EQ(weights.weights[1], 400.0) << "those of the bound";
  }
}

TEST(Evaluate, LimitsCutTheValueAndItsDerivative) {
  struct Case {
    std::uint32_t index;
    double stored, expected;
  };
  for (Case const& c :
       {Case{0, 1e9, 1e8}, Case{0, -5.0, 1e-10}, Case{0, 1e-11, 1e-10}, Case{3, -5.0, 0.0},
        Case{4, -5.0, 1e-10}, Case{5, -5.0, 1e-10}, Case{6, -5.0, 1e-10}, Case{7, -5.0, 1e-10},
        Case{8, -5.0, 1e-10}, Case{9, -5.0, 1e-10}, Case{12, -5.0, 1e-10}, Case{17, -5.0, 1e-10}}) {
    ComponentBank bank;
    SetCorrelation(bank, c.index, 1, {c.stored - 300.0, 1.0});
    Evaluated const r = Evaluate(bank, c.index, 300.0);
    EXPECT_EQ(r.result, kStatusOk);
    EXPECT_EQ(r.value, c.expected) << c.index;
    EXPECT_EQ(r.derivative, 0.0) << c.index;
  }
  for (std::uint32_t index : {1U, 2U, 11U, 13U, 14U, 15U, 16U}) {
    ComponentBank bank;
    SetCorrelation(bank, index, 1, {-305.0, 1.0});
    EXPECT_EQ(Evaluate(bank, index, 300.0).value, -5.0) << index << " has no limit";
    EXPECT_EQ(Evaluate(bank, index, 300.0).derivative, 1.0);
  }
}

TEST(Evaluate, LatentHeatExtrapolatedBelowZeroIsZero) {
  ComponentBank bank;
  SetCorrelation(bank, 3, 1, {500.0, -1.0});
  Evaluated const r = Evaluate(bank, 3, 600.0);
  EXPECT_EQ(r.result, kStatusNothingNew);
  EXPECT_EQ(r.value, 0.0);
  EXPECT_EQ(r.derivative, 0.0);
}

TEST(Evaluate, ExpansionAlwaysFailsAfterItsValueWasWritten) {
  ComponentBank bank;
  SetCorrelation(bank, 10, 1, {1.0, 2.0});
  Evaluated const inside = Evaluate(bank, 10, 300.0);
  EXPECT_EQ(inside.result, kStatusFailed);
  EXPECT_EQ(inside.value, 601.0);
  EXPECT_EQ(inside.status, 0);
  EXPECT_EQ(Evaluate(bank, 10, 450.0).result, kStatusFailed);
}

TEST(Evaluate, WeightBasisBecomesMolar) {
  for (std::uint32_t index : {1U, 2U, 3U, 4U, 11U, 12U, 13U, 14U, 15U, 17U}) {
    ComponentBank bank;
    bank->SetProperty(0, 50.0);
    SetCorrelation(bank, index, 1, {1000.0, 2.0}, 200, 400, 0, 2);
    bool const isDensity = index == 4 || index == 12;
    Evaluated const r = Evaluate(bank, index, 300.0);
    EXPECT_EQ(r.value, isDensity ? 32.0 : 80000.0) << index;
    EXPECT_EQ(r.derivative, isDensity ? 0.04 : 100.0) << index;
    EXPECT_EQ(Evaluate(bank, index, 300.0, 11).weights[1], 300.0) << "weights stay";
  }
  ComponentBank bank;
  bank->SetProperty(0, 50.0);
  SetCorrelation(bank, 1, 1, {1000.0}, 200, 400, 0, 2);
  EXPECT_EQ(std::signbit(Evaluate(bank, 1, 300.0).derivative), false);
  bank->SetProperty(0, -50.0);
  EXPECT_FALSE(std::signbit(Evaluate(bank, 1, 300.0).derivative)) << "an exact 0 is left alone";
}

TEST(Evaluate, EquationWithoutAFormGivesTheBufferTimesTheFactor) {
  ComponentBank bank;
  SetCorrelation(bank, 1, 50, {1.0}, 200, 400, 28012, 1);
  Evaluated const r = Evaluate(bank, 1, 300.0);
  EXPECT_EQ(r.result, kStatusOk);
  EXPECT_EQ(r.value, 4.75 * 0.001);
  EXPECT_EQ(r.derivative, 5.25 * 0.001);
}

TEST(Evaluate, EquationsAboveAHundredEvaluate) {
  ComponentBank bank;
  SetCorrelation(bank, 1, 117, {10.0, 2.0, 3.0, 0.0, 0.0, 0.0});
  EXPECT_EQ(Evaluate(bank, 1, 300.0).value, 10.0 + 600.0 + 900.0);
}

TEST(Evaluate, FormsCallOtherCorrelations) {
  ComponentBank bank;
  SetCorrelation(bank, 4, 1, {20.0, -0.03125}, 200, 400, 0, 1);
  SetCorrelation(bank, 0, 1, {100.0, 2.0}, 200, 400, 0, 0);
  SetCorrelation(bank, 7, 38, {1.0, 0.5, -0.25});
  double const D = 20.0 - 0.03125 * 300.0, P = 700.0;
  double const expected = std::exp(1.0 + 0.5 * std::log(D) - 0.25 * std::log(P));
  Evaluated const r = Evaluate(bank, 7, 300.0);
  EXPECT_NEAR(r.value, expected, 1e-14 * expected);
  double const slope = expected * (0.5 * -0.03125 / D - 0.25 * 2.0 / P);
  EXPECT_NEAR(r.derivative, slope, 1e-13 * std::fabs(slope));
  // Missing values count as 0, and their logarithm as -230.
  ComponentBank lonely;
  SetCorrelation(lonely, 7, 38, {1.0, 0.0625});
  EXPECT_NEAR(Evaluate(lonely, 7, 300.0).value, std::exp(1.0 - 0.0625 * 230.0), 1e-19);
}

TEST(Evaluate, CorrelationThatCallsItselfEnds) {
  ComponentBank bank;
  SetCorrelation(bank, 4, 38, {1.0, 0.125});
  EXPECT_NEAR(Evaluate(bank, 4, 300.0).value, 1e-10, 1e-10);
  EXPECT_EQ(Evaluate(bank, 4, 300.0).result, kStatusOk);
  SetCorrelation(bank, 0, 38, {1.0, 0.125, 0.125}, 200, 400, 0, 0);
  EXPECT_EQ(Evaluate(bank, 0, 300.0).result, kStatusOk) << "in a circle of two";
  SetCorrelation(bank, 1, 54, {0.0, 0.0, 500.0});
  Evaluated const r = Evaluate(bank, 1, 300.0);
  EXPECT_EQ(r.result, kStatusOk);
  double const x = 1.0 - 300.0 / 500.0;
  EXPECT_NEAR(r.value, 8.314471 * 500.0 * (1.45 * (1.0 - x) - 0.45 * std::log(x)), 1e-9)
      << "the inner call gives 0";
}

TEST(Evaluate, LimitsInDisorderFail) {
  ComponentBank bank;
  SetCorrelation(bank, 1, 1, {1.0}, 400.0, 200.0);
  EXPECT_EQ(Evaluate(bank, 1, 300.0).result, kStatusFailed);
  EXPECT_EQ(Evaluate(bank, 1, 300.0).status, 1);
}

TEST(Evaluate, NoLimitsMeansEverywhere) {
  ComponentBank bank;
  SetCorrelation(bank, 1, 1, {1.0, 1.0}, gen_GetUndefDouble(), gen_GetUndefDouble());
  EXPECT_EQ(Evaluate(bank, 1, 1e6).result, kStatusOk);
  EXPECT_EQ(Evaluate(bank, 1, -1e6).value, 1.0 - 1e6);
}

TEST(Evaluate, TemperaturesThatAreNoneEnd) {
  double const infinite = std::numeric_limits<double>::infinity();
  for (std::uint32_t index = 0; index < 18; ++index) {
    for (std::int32_t equation = 0; equation <= 134; ++equation) {
      ComponentBank bank;
      SetCorrelation(bank, index, equation, {1.5, -2.0, 300.0, 0.5, 1.0, 2.0, 3.0, 4.0, 250.0});
      for (double T : {std::nan(""), infinite, -infinite, 0.0, -1.0}) {
        for (std::int32_t order : {1, 2, 3, 11}) {
          Evaluated const r = Evaluate(bank, index, T, order);
          EXPECT_TRUE(r.status >= -1 && r.status <= 1);
        }
      }
    }
  }
  ComponentBank bank;
  SetCorrelation(bank, 1, 1, {1.0, 2.0});
  Evaluated const above = Evaluate(bank, 1, infinite);
  EXPECT_EQ(above.status, 1);
  EXPECT_EQ(above.value, infinite);
}

// Published: saturated steam at 373.124 K has 101.325 kPa (IAPWS 1995); Wagner form of the same
// source family: ln(P/Pc) = (Tc/T)(a1 t + a2 t^1.5 + ...), here with the four-term constants of
// Reid, Prausnitz and Poling, 4th edition: -7.76451, 1.45838, -2.77580, -1.23303.
TEST(Evaluate, WagnerConstantsOfWaterGiveTheBoilingPoint) {
  ComponentBank bank;
  bank->SetProperty(1, 647.3);
  bank->SetProperty(2, 22120.0);
  SetCorrelation(bank, 0, 47, {-7.76451, 1.45838, -2.77580, -1.23303}, 275.0, 647.3, 4015, 0);
  EXPECT_NEAR(Evaluate(bank, 0, 373.124).value, 101.325, 0.15);
}

}  // namespace
}  // namespace zel

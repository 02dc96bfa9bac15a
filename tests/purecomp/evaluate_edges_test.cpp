// Evaluation beyond a correlation's own range and numbers: sensitivities and slopes at the bound,
// derivatives of called correlations, missing constants.
#include <cmath>
#include <limits>
#include <vector>

#include "tests/purecomp/evaluate_fixture.h"

namespace zel {
namespace {

using test::ComponentBank;

using test::Evaluate;
using test::Evaluated;
using test::kUntouchedValue;
using test::SetCorrelation;

// Sensitivities have no slope.
TEST(EvaluateEdges, SensitivitiesOutsideTheRangeAreThoseOfTheBound) {
  for (std::uint32_t index : {0U, 7U}) {
    ComponentBank bank;
    SetCorrelation(bank, index, 20, {8.0, -1500.0});
    for (double T : {150.0, 450.0, 0.0, std::numeric_limits<double>::infinity()}) {
      double const bound = T < 200.0 ? 200.0 : 400.0;
      double const V = std::exp(8.0 - 1500.0 / bound);
      Evaluated const r = Evaluate(bank, index, T, 11);
      EXPECT_EQ(r.result, kStatusNothingNew);
      EXPECT_EQ(r.value, Evaluate(bank, index, bound).value) << T;
      EXPECT_EQ(r.derivative, 0.0) << T;
      EXPECT_NEAR(r.weights[0], V, 1e-12 * V);
      EXPECT_NEAR(r.weights[1], V / bound, 1e-12 * V);
    }
  }
}

// No logarithm is taken where there is none, and the limit of the exponent is not reached.
TEST(EvaluateEdges, SensitivitiesOutsideTheRangeLeaveAnyValueOfTheBound) {
  ComponentBank bank;
  SetCorrelation(bank, 7, 1, {1e30});
  EXPECT_EQ(Evaluate(bank, 7, 450.0, 11).value, 1e30);
  SetCorrelation(bank, 7, 1, {-5.0});
  EXPECT_EQ(Evaluate(bank, 7, 450.0, 11).value, 1e-10) << "raised to the limit";
  SetCorrelation(bank, 7, 1, {std::nan("")});
  EXPECT_EQ(Evaluate(bank, 7, 450.0, 11).value, 1e-10);
  SetCorrelation(bank, 1, 1, {-5.0, 1.0});
  EXPECT_EQ(Evaluate(bank, 1, std::numeric_limits<double>::infinity(), 11).value, 395.0);
}

// An infinite downward slope counts as 0, so that a density keeps its last value.
TEST(EvaluateEdges, DensityThatEndsAtItsCriticalPointKeepsItsLastValue) {
  ComponentBank bank;
  SetCorrelation(bank, 4, 16, {2.25, 0.27, 400.0, 0.25});
  double const last = 2.25 / 0.27;
  EXPECT_DOUBLE_EQ(Evaluate(bank, 4, 400.0).value, last);
  Evaluated const r = Evaluate(bank, 4, 410.0);
  EXPECT_EQ(r.result, kStatusNothingNew);
  EXPECT_DOUBLE_EQ(r.value, last);
  EXPECT_EQ(r.derivative, 0.0);
}

// The second and third derivative of a Wagner form are infinite at the critical point.
TEST(EvaluateEdges, VaporPressureAboveItsCriticalPointStaysForAnInfiniteSlope) {
  ComponentBank bank;
  bank->SetProperty(1, 400.0);
  bank->SetProperty(2, 4000.0);
  SetCorrelation(bank, 0, 47, {-7.0, 1.5, -2.0, -3.0}, 200, 400, 0, 0);
  double const infinite = std::numeric_limits<double>::infinity();
  for (std::int32_t order : {2, 3}) {
    EXPECT_EQ(Evaluate(bank, 0, 400.0, order).derivative, infinite);
    Evaluated const r = Evaluate(bank, 0, 410.0, order);
    EXPECT_EQ(r.result, kStatusNothingNew);
    EXPECT_NEAR(r.value, 4000.0, 1e-9) << order;
    EXPECT_EQ(r.derivative, 0.0) << order;
  }
}

// At 0 K the step in 1/T is infinite: the exponent is at its limit, or unchanged for a slope of 0.
TEST(EvaluateEdges, LogarithmicExtrapolationToZeroHasNoSlope) {
  ComponentBank bank;
  for (double const slope : {-1.0, 0.0, 1.0}) {
    SetCorrelation(bank, 7, 1, {500.0, slope});
    double const V = 500.0 + 200.0 * slope;
    for (std::int32_t order : {1, 2, 3}) {
      Evaluated const r = Evaluate(bank, 7, 0.0, order);
      double const end = slope < 0.0 ? std::exp(60.0) : 1e-10;
      bool const stays = slope == 0.0 || order > 1;  // no second derivative
      EXPECT_EQ(r.result, kStatusNothingNew);
      EXPECT_NEAR(r.value, stays ? V : end, 1e-12 * r.value) << slope << " " << order;
      EXPECT_EQ(r.derivative, 0.0) << slope << " " << order;
    }
  }
}

// An infinite upward slope counts as 0, as a downward one does.
TEST(EvaluateEdges, LinearExtrapolationFromAnInfiniteSlopeKeepsTheLastValue) {
  for (double const sign : {1.0, -1.0}) {
    ComponentBank bank;
    bank->SetProperty(1, 400.0);
    SetCorrelation(bank, 5, 31, {2.0, sign});
    for (std::int32_t order : {1, 2, 3}) {
      EXPECT_EQ(Evaluate(bank, 5, 400.0, order).derivative,
                -sign * std::numeric_limits<double>::infinity());
      Evaluated const r = Evaluate(bank, 5, 410.0, order);
      EXPECT_EQ(r.value, 2.0) << sign;
      EXPECT_EQ(r.derivative, 0.0) << sign;
    }
  }
}

// exp(g) with g = 1 + 0.5 ln D - 0.25 ln P: the higher derivatives need all lower ones of D and P.
TEST(EvaluateEdges, HigherDerivativesGoThroughCalledCorrelations) {
  ComponentBank bank;
  SetCorrelation(bank, 4, 1, {40.0, -0.125, 1.0 / 4096.0});
  SetCorrelation(bank, 0, 1, {100.0, 2.0, 1.0 / 64.0}, 200, 400, 0, 0);
  SetCorrelation(bank, 7, 38, {1.0, 0.5, -0.25});
  double const T = 300.0;
  struct LogJet {
    double value, first, second, third;
  };
  auto const logOf = [&](double a, double b, double c) {
    double const v = a + b * T + c * T * T, r1 = (b + 2.0 * c * T) / v, r2 = 2.0 * c / v;
    return LogJet{std::log(v), r1, r2 - r1 * r1, 2.0 * r1 * r1 * r1 - 3.0 * r1 * r2};
  };
  LogJet const D = logOf(40.0, -0.125, 1.0 / 4096.0), P = logOf(100.0, 2.0, 1.0 / 64.0);
  double const g1 = 0.5 * D.first - 0.25 * P.first;
  double const g2 = 0.5 * D.second - 0.25 * P.second;
  double const g3 = 0.5 * D.third - 0.25 * P.third;
  double const E = std::exp(1.0 + 0.5 * D.value - 0.25 * P.value);
  double const expected[] = {E * g1, E * (g1 * g1 + g2), E * (g1 * g1 * g1 + 3.0 * g1 * g2 + g3)};
  for (std::int32_t order : {1, 2, 3}) {
    Evaluated const r = Evaluate(bank, 7, T, order);
    double const d = expected[order - 1];
    EXPECT_EQ(r.result, kStatusOk);
    EXPECT_NEAR(r.value, E, 1e-13 * E);
    EXPECT_NEAR(r.derivative, d, 1e-11 * std::fabs(d)) << order;
  }
}

// A called correlation starts from 0 and not from the caller's numbers.
TEST(EvaluateEdges, CalledCorrelationWithoutAFormGivesZero) {
  ComponentBank without, bank;
  SetCorrelation(without, 3, 54, {1.0, 0.25, 500.0});
  SetCorrelation(bank, 3, 54, {1.0, 0.25, 500.0});
  SetCorrelation(bank, 1, 50, {1.0});
  Evaluated const expected = Evaluate(without, 3, 300.0);
  Evaluated const r = Evaluate(bank, 3, 300.0);
  EXPECT_EQ(r.result, kStatusOk);
  EXPECT_EQ(r.value, expected.value);
  EXPECT_EQ(r.derivative, expected.derivative);
  EXPECT_EQ(Evaluate(bank, 1, 300.0).value, kUntouchedValue) << "where a host's number stays";
}

TEST(EvaluateEdges, UndefinedMolecularWeightWeighsAsItStands) {
  for (std::uint32_t index : {1U, 4U, 12U, 13U, 17U}) {
    ComponentBank bank;
    SetCorrelation(bank, index, 1, {1000.0, 2.0}, 200, 400, 0, 2);
    bool const isDensity = index == 4 || index == 12;
    Evaluated const r = Evaluate(bank, index, 300.0);
    EXPECT_EQ(r.result, kStatusOk);
    EXPECT_DOUBLE_EQ(r.value, isDensity ? 1600.0 / -1e35 : 1600.0 * -1e35) << index;
    EXPECT_DOUBLE_EQ(r.derivative, isDensity ? 2.0 / -1e35 : 2.0 * -1e35) << index;
  }
}

TEST(EvaluateEdges, WagnerFormGivesTheCriticalPressureInAnyUnit) {
  for (std::int32_t unit : {0, 4015, 4025}) {
    ComponentBank bank;
    bank->SetProperty(1, 380.0);
    bank->SetProperty(2, 4000.0);
    SetCorrelation(bank, 0, 47, {-7.0, 1.5, -2.0, -3.0}, 200, 400, unit, 0);
    EXPECT_DOUBLE_EQ(Evaluate(bank, 0, 380.0).value, 4000.0) << unit;
  }
}

// Two kinds of units have a factor of 0, by which the critical pressure cannot be divided.
TEST(EvaluateEdges, WagnerFormWithoutAFactorIsNoNumber) {
  for (std::int32_t unit : {43010, 44010}) {
    ComponentBank bank;
    bank->SetProperty(1, 380.0);
    bank->SetProperty(2, 4000.0);
    SetCorrelation(bank, 0, 47, {-7.0, 1.5, -2.0, -3.0}, 200, 400, unit, 0);
    Evaluated const r = Evaluate(bank, 0, 300.0);
    EXPECT_EQ(r.result, kStatusOk) << unit;
    EXPECT_TRUE(std::isnan(r.value)) << unit;
  }
}

// Forms use the critical constants as read, even after a missing one was derived.
TEST(EvaluateEdges, FormsSeeTheConstantsAsRead) {
  ComponentBank bank;
  bank->SetProperty(1, 500.0);
  bank->SetProperty(3, 0.3);
  bank->SetProperty(4, 0.27);
  SetCorrelation(bank, 0, 47, {-7.0}, 200, 400, 0, 0);
  bank.Io()->Complete();
  double derived = 0.0;
  bank->GetCompleted(2, &derived);
  EXPECT_GT(derived, 1000.0);
  EXPECT_EQ(Evaluate(bank, 0, 300.0).value, 1e-10) << "-1e35 times the form, raised to the limit";
}

TEST(EvaluateEdges, FormThatCallsItselfIsThatWithoutAnInnerValue) {
  ComponentBank bank;
  SetCorrelation(bank, 1, 54, {2.0, 0.0, 500.0});
  Evaluated const r = Evaluate(bank, 1, 300.0);
  ComponentBank other;
  SetCorrelation(other, 2, 54, {2.0, 0.0, 500.0});
  Evaluated const alone = Evaluate(other, 2, 300.0);
  EXPECT_EQ(r.result, kStatusOk);
  EXPECT_EQ(r.value, alone.value);
  EXPECT_EQ(r.derivative, alone.derivative);
  EXPECT_EQ(Evaluate(bank, 1, 300.0).value, r.value) << "the mark is taken back";
}

}  // namespace
}  // namespace zel

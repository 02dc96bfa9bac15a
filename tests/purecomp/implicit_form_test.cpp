// Equation 51 with its second virial term: ln(y)/b = L + s y has no closed solution, and none at
// all for some L and s.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <vector>

#include "purecomp/equations.h"

namespace zel {
namespace {

constexpr double kTemperature = 300.0;
constexpr double kLn10 = 2.302585092994046;

struct Result {
  double value = 0.0;
  double derivative = 0.0;
};

class ImplicitForm : public ::testing::Test {
 protected:
  // L from C1, s from C7.
  void Set(double L, double s, int logBasis) {
    std::fill(std::begin(c_), std::end(c_), 0.0);
    c_[0] = L;
    c_[6] = s * kTemperature * kTemperature;
    call_ = {};
    call_.equation = 51;
    call_.coefficientCount = 15;
    call_.coefficients = c_;
    call_.temperature = kTemperature;
    call_.tMin = call_.tMax = -1e35;
    call_.logBasis = logBasis;
  }
  Result Evaluate(int order = 1) {
    Result r;
    call_.order = order;
    EXPECT_EQ(EvaluateEquation(call_, r.value, r.derivative, nullptr), kInRange);
    return r;
  }
  // The value is (C9 + C15 y / T^2) / D: two such values yield y.
  double Y() {
    c_[8] = 1.0;
    c_[14] = 0.0;
    double const one = Evaluate().value;
    c_[8] = 0.0;
    c_[14] = kTemperature * kTemperature;
    return Evaluate().value / one;
  }

  double c_[15] = {};
  EquationCall call_;
};

TEST_F(ImplicitForm, NegativeTermAlwaysHasARoot) {
  for (int const logBasis : {1, 2}) {
    double const b = logBasis == 2 ? kLn10 : 1.0;
    for (double const L : {-20.0, -10.0, -1.0, 0.0, 1.0, 10.0, 20.0}) {
      for (double const s : {-1e-6, -0.01, -1.0, -5.0}) {
        Set(L, s, logBasis);
        double const y = Y();
        double const scale = std::fabs(L) + std::fabs(s * y) + 1.0;
        EXPECT_NEAR(std::log(y) / b, L + s * y, 1e-6 * scale) << L << " " << s << " " << logBasis;
      }
    }
  }
}

// For b L below -1 - ln(b s) there are two roots, of which the lower one is used.
TEST_F(ImplicitForm, PositiveTermHasTheLowerRoot) {
  for (int const logBasis : {1, 2}) {
    double const b = logBasis == 2 ? kLn10 : 1.0;
    for (double const s : {1e-6, 0.01, 1.0, 50.0}) {
      for (double const below : {0.01, 0.5, 3.0, 20.0}) {
        double const L = (-1.0 - std::log(b * s) - below) / b;
        Set(L, s, logBasis);
        double const y = Y();
        EXPECT_NEAR(std::log(y) / b, L + s * y, 1e-6 * (std::fabs(L) + 1.0)) << L << " " << s;
        EXPECT_LT(y, 1.0 / (b * s)) << L << " " << s;
      }
    }
  }
}

TEST_F(ImplicitForm, WithoutTheTermItIsAnExponential) {
  for (double const L : {-3.0, 0.0, 4.5}) {
    Set(L, 0.0, 2);
    EXPECT_NEAR(Y(), std::pow(10.0, L), 1e-12 * std::pow(10.0, L));
  }
}

// Without a root y is 1/(b s) = T^2 / (b C7), so that the value is that of
// (C9 + C12 T) T^2 / (C7 (b - 1)).
TEST_F(ImplicitForm, WithoutARootTheDerivativesAreThoseOfWhatStandsForIt) {
  Set(5.0, 10.0, 2);
  c_[8] = 100.0;
  c_[11] = 1.0;
  double const T = kTemperature;
  double const k = c_[6] * (kLn10 - 1.0);
  EXPECT_NEAR(Evaluate(1).value, (100.0 + T) * T * T / k, 1e-12);
  EXPECT_NEAR(Evaluate(1).derivative, (200.0 * T + 3.0 * T * T) / k, 1e-13);
  EXPECT_NEAR(Evaluate(2).derivative, (200.0 + 6.0 * T) / k, 1e-14);
  EXPECT_NEAR(Evaluate(3).derivative, 6.0 / k, 1e-15);
}

}  // namespace
}  // namespace zel

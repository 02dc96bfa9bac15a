// Where forms have an edge: guards, thresholds, zeros, counts, and the results of plain arithmetic
// where there is no guard.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

#include "purecomp/equations.h"

namespace zel {
namespace {

constexpr double kUntouched = 4.75;
constexpr double kTc = 500.0;
constexpr double kInfinite = std::numeric_limits<double>::infinity();

struct Given {
  double value = kUntouched;
  double derivative = kUntouched;
  double weights[15];
  RangeStatus status = kInRange;
};

// A form with these coefficients and without limits.
class Form {
 public:
  Form(int equation, std::vector<double> coefficients) : c_(std::move(coefficients)) {
    call.equation = equation;
    call.coefficientCount = static_cast<std::int32_t>(c_.size());
    call.tMin = call.tMax = -1e35;
    call.Tc = kTc;
    call.Pc = 4000.0;
    call.Tb = 350.0;
  }
  Given At(double T, std::int32_t order = 1) {
    Given given;
    std::fill_n(given.weights, 15, kUntouched);
    call.coefficients = c_.data();
    call.temperature = T;
    call.order = order;
    given.status = EvaluateEquation(call, given.value, given.derivative, given.weights);
    return given;
  }
  double Value(double T) { return At(T).value; }
  double Derivative(double T, std::int32_t order = 1) { return At(T, order).derivative; }
  double Weight(double T, std::size_t k) { return At(T, kSensitivities).weights[k]; }

  EquationCall call;

 private:
  std::vector<double> c_;
};

TEST(FormGuards, ExponentialEndsAt230WithoutASlope) {
  Form high(12, {100.0, 1000.0});
  EXPECT_DOUBLE_EQ(high.Value(10.0), std::exp(200.0)) << "no clamp in this form";
  EXPECT_NEAR(high.Derivative(10.0) / std::exp(200.0), -10.0, 1e-12);
  Form low(12, {-100.0, -1000.0});
  EXPECT_EQ(high.Value(5.0), 1e100);
  EXPECT_EQ(low.Value(5.0), 1e-100);
  for (Form* form : {&high, &low}) {
    for (std::int32_t order : {1, 2, 3}) EXPECT_EQ(form->Derivative(5.0, order), 0.0);
    for (std::size_t k : {0U, 1U}) EXPECT_EQ(form->Weight(5.0, k), 0.0);
  }
}

TEST(FormGuards, ClampHoldsTheExponentAt60WithoutASlope) {
  for (double sign : {1.0, -1.0}) {
    Form form(20, {0.0, sign * 1000.0});
    EXPECT_DOUBLE_EQ(form.Value(10.0), std::exp(sign * 60.0));
    for (std::int32_t order : {1, 2, 3}) EXPECT_EQ(form.Derivative(10.0, order), 0.0);
    for (std::size_t k : {0U, 1U}) EXPECT_EQ(form.Weight(10.0, k), 0.0);
    EXPECT_NE(form.Derivative(17.0), 0.0) << "59 is within";
  }
}

TEST(FormGuards, LogarithmOfZeroIsMinus230WithoutASlope) {
  Form form(45, {3.0, 2.0});
  EXPECT_DOUBLE_EQ(form.Value(kTc), 3.0 + 2.0 * kTc * 230.0);
  for (std::int32_t order : {1, 2, 3}) EXPECT_EQ(form.Derivative(kTc, order), 0.0);
  EXPECT_DOUBLE_EQ(form.Weight(kTc, 1), kTc * 230.0);
  Form exponential(44, {1.0, 0.125});
  EXPECT_DOUBLE_EQ(exponential.Value(kTc), std::exp(1.0 - 230.0 * 0.125));
  EXPECT_EQ(exponential.Derivative(kTc), 0.0);
}

TEST(FormGuards, LogarithmTakesTheAbsoluteValue) {
  Form form(45, {3.0, 2.0});
  EXPECT_EQ(form.Value(kTc + 50.0), form.Value(kTc - 50.0));
  EXPECT_EQ(form.Derivative(kTc + 50.0), -form.Derivative(kTc - 50.0));
}

// Within the form the guarded root is the larger of the two: the slope is that of a constant.
TEST(FormGuards, LargerOfTwoHasNoSlopeWhereTheBoundIsLarger) {
  Form heat(35, {1.0, 2.0});
  EXPECT_EQ(heat.Value(kTc), heat.Value(kTc + 20.0));
  Form log(42, {0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 1.0, 400.0});
  EXPECT_DOUBLE_EQ(log.Value(450.0), std::log(0.0001));
  for (std::int32_t order : {1, 2, 3}) {
    EXPECT_EQ(heat.Derivative(kTc, order), 0.0);
    EXPECT_EQ(log.Derivative(450.0, order), 0.0);
  }
  EXPECT_EQ(log.Weight(450.0, 7), 0.0);
}

TEST(FormGuards, AnyOtherLogBasisIsTheNaturalOne) {
  Form form(12, {1.5});
  form.call.logBasis = 2;
  EXPECT_DOUBLE_EQ(form.Value(300.0), std::pow(10.0, 1.5));
  for (std::int32_t basis : {1, 0, 3, -1, 999, INT32_MAX, INT32_MIN}) {
    form.call.logBasis = basis;
    EXPECT_DOUBLE_EQ(form.Value(300.0), std::exp(1.5)) << basis;
  }
}

TEST(FormRange, BothZerosAreOneTemperatureAndPositive) {
  Form form(1, {1.0});
  for (double limit : {0.0, -0.0}) {
    for (double T : {0.0, -0.0}) {
      form.call.tMin = form.call.tMax = limit;
      EXPECT_EQ(form.At(T).status, kInRange) << limit << " " << T;
    }
    EXPECT_EQ(form.At(5e-324).status, kAboveRange);
    EXPECT_EQ(form.At(-5e-324).status, kBelowRange) << "opposite signs are never equal";
  }
  form.call.tMin = form.call.tMax = -5e-324;
  EXPECT_EQ(form.At(-0.0).status, kAboveRange);
}

// The limits -1e35 and -1e35, or two equal ones, do not define a variable.
TEST(FormArithmetic, ChebyshevWithoutARangeIsWhatItsTermsGive) {
  EXPECT_EQ(Form(2, {7.0}).Value(300.0), 7.0) << "the first term has no variable";
  EXPECT_EQ(Form(2, {7.0}).Derivative(300.0), 0.0);
  EXPECT_EQ(Form(2, {7.0, 1.0}).Value(300.0), kInfinite);
  EXPECT_EQ(Form(2, {7.0, -1.0}).Value(300.0), -kInfinite);
  EXPECT_DOUBLE_EQ(Form(22, {7.0, 1.0}).Value(300.0), std::exp(60.0));
  EXPECT_DOUBLE_EQ(Form(22, {7.0, -1.0}).Value(300.0), std::exp(-60.0));
  for (int equation : {2, 22}) {
    Form form(equation, {7.0, 1.0});
    form.call.tMin = form.call.tMax = 300.0;
    EXPECT_TRUE(std::isnan(form.Value(300.0))) << equation;
  }
}

TEST(FormArithmetic, FewerCoefficientsThanTheFormNamesCountAsZero) {
  EXPECT_EQ(Form(3, {5.0}).Value(300.0), 0.0) << "an empty sum over an infinite variable";
  EXPECT_EQ(Form(3, {5.0, 0.5}).Value(300.0), 0.0);
  EXPECT_EQ(Form(4, {5.0}).Value(-300.0), 0.0);
  EXPECT_EQ(Form(4, {5.0}).Value(300.0), 5.0) << "below the threshold the first one stands";
  EXPECT_EQ(Form(4, {600.0, 0.5}).Value(300.0), 0.0);
  EXPECT_EQ(Form(41, {5.0}).Value(300.0), 0.0);
  EXPECT_EQ(Form(41, {5.0, 6.0}).Value(300.0), 5.0);
  for (int N : {0, 1, 2, 10, 15}) {
    Form form(23, std::vector<double>(static_cast<std::size_t>(N), 1.0));
    EXPECT_EQ(form.Value(300.0), kUntouched) << N;
  }
  for (std::size_t N = 0; N <= 8; ++N) {
    Form form(51, std::vector<double>(N, 3.0));
    EXPECT_EQ(form.Value(300.0), 0.0) << N << ": no coefficient of the second set";
    EXPECT_EQ(form.Derivative(300.0), 0.0) << N;
  }
}

// C7 belongs only to the full first set, C1 and C2 to every one.
TEST(FormArithmetic, ImplicitFormWithoutItsFullSetLeavesC7Alone) {
  std::vector<double> c(14, 0.0);
  c[0] = 1.0;
  c[1] = 30.0;
  c[8] = 2.0;
  double const plain = Form(51, c).Value(300.0);
  EXPECT_DOUBLE_EQ(plain, 2.0 * std::exp(1.1));
  c[6] = 1e4;
  EXPECT_EQ(Form(51, c).Value(300.0), plain);
  std::vector<double> const nine(c.begin(), c.begin() + 9);
  EXPECT_DOUBLE_EQ(Form(51, nine).Value(300.0), plain);
  c.push_back(0.0);
  EXPECT_NE(Form(51, c).Value(300.0), plain);
}

// The slopes of powers are computed as powers: there is no logarithm of a base of 0 or below.
TEST(FormPowers, ConstantPowersOfZeroAndNegativeNumbers) {
  Form cube(5, {1.0, 3.0, 1000.0});
  EXPECT_DOUBLE_EQ(cube.Value(-2.0), -8.0 / 998.0);
  EXPECT_DOUBLE_EQ(cube.Derivative(-2.0), 12.0 / 998.0 + 8.0 / (998.0 * 998.0));
  EXPECT_EQ(cube.Value(0.0), 0.0);
  EXPECT_EQ(cube.Derivative(0.0, 1), 0.0);
  EXPECT_EQ(cube.Derivative(0.0, 2), 0.0);
  EXPECT_DOUBLE_EQ(cube.Derivative(0.0, 3), 6.0 / 1000.0);
  Form first(5, {1.0, 1.0, 1000.0});
  EXPECT_DOUBLE_EQ(first.Derivative(0.0), 1.0 / 1000.0);
  Form none(5, {1.0, 0.0, 1000.0});
  EXPECT_DOUBLE_EQ(none.Value(0.0), 1.0 / 1000.0);
  EXPECT_DOUBLE_EQ(none.Derivative(0.0), -1.0 / 1e6);
  EXPECT_TRUE(std::isnan(Form(5, {1.0, 2.5, 1000.0}).Value(-2.0)));
}

TEST(FormPowers, NegativeBasesGiveNoNumber) {
  EXPECT_TRUE(std::isnan(Form(31, {2.0, 1.0}).Value(kTc + 10.0))) << "above the critical point";
  EXPECT_EQ(Form(31, {2.0}).Value(kTc + 10.0), 2.0);
  Form latentHeat(53, {0.3, 400.0});
  EXPECT_FALSE(std::isnan(latentHeat.Value(399.0)));
  EXPECT_TRUE(std::isnan(latentHeat.Value(401.0)));
}

TEST(FormPowers, RootOfOneFormIsPlainAndOfTheOtherSigned) {
  EXPECT_FALSE(std::isnan(Form(26, {40.0, 4.0, 300.0, 0.0}).Value(300.0)));
  EXPECT_TRUE(std::isnan(Form(26, {-40.0, 4.0, 300.0, 0.0}).Value(300.0)));
  double const positive = Form(126, {1.0, 400.0, 0.0}).Value(300.0);
  EXPECT_GT(positive, 0.0);
  EXPECT_EQ(Form(126, {1.0, -400.0, 0.0}).Value(-300.0), -positive);
}

// The density form at its own end, and beyond it.
TEST(FormPowers, DensityFormEndsInAnInfiniteSlope) {
  Form form(16, {2.25, 0.27, kTc, 0.25, 0.125});
  double const last = 2.25 / std::pow(0.27, 1.125);
  EXPECT_DOUBLE_EQ(form.Value(kTc), last) << "0 is not replaced";
  EXPECT_EQ(form.Derivative(kTc), -kInfinite);
  EXPECT_DOUBLE_EQ(form.Value(kTc + 1.0), 2.25 / std::pow(0.27, 1.125 + std::pow(1e-14, 0.25)));
  for (std::int32_t order : {1, 2, 3}) EXPECT_EQ(form.Derivative(kTc + 1.0, order), 0.0);
}

TEST(FormZeros, HyperbolicTermsAtZero) {
  for (int equation : {17, 117}) {
    std::vector<double> c = {5.0, 2.0, 3.0, 700.0, 4.0, 300.0};
    EXPECT_EQ(Form(equation, c).Value(0.0), 5.0) << "both quotients are 0";
    EXPECT_EQ(Form(equation, c).Derivative(0.0), 2.0);
    c[3] = 0.0;
    double const fifth = (equation == 17 ? 1200.0 : 4.0) * std::tanh(300.0 / 200.0);
    EXPECT_DOUBLE_EQ(Form(equation, c).Value(200.0), 5.0 + 400.0 + 600.0 - fifth) << equation;
  }
}

// The slopes by hyperbolic sine and cosine end where those overflow, without becoming NaN.
TEST(FormZeros, HyperbolicTermsOfLargeArguments) {
  Form form(17, {5.0, 2.0, 3.0, 700.0, 4.0, 300.0});
  EXPECT_DOUBLE_EQ(form.Value(0.125), 5.0 + 0.25 + 2100.0 - 1200.0);
  EXPECT_EQ(form.Derivative(0.125, 1), 2.0);
  EXPECT_EQ(form.Derivative(0.125, 2), 0.0);
  EXPECT_EQ(form.Derivative(0.125, 3), 0.0);
}

TEST(FormZeros, EmptyOscillatorIsNoNumber) {
  EXPECT_TRUE(std::isnan(Form(24, {1.0, 2.0, 3.0, 0.0}).Value(300.0)));
  EXPECT_EQ(Form(24, {1.0, 2.0, 3.0}).Value(300.0), 601.0) << "a pair needs its second member";
}

TEST(FormZeros, EqualCriticalAndBoilingPointGiveWhatADivisionByZeroGives) {
  for (int equation : {43, 52}) {
    Form grows(equation, {1.0, 0.5});
    Form falls(equation, {1.0, -0.5});
    grows.call.Tb = falls.call.Tb = kTc;
    EXPECT_EQ(grows.Value(300.0), kInfinite) << equation;
    EXPECT_EQ(falls.Value(300.0), 0.0) << equation;
    EXPECT_EQ(grows.Value(600.0), 0.0) << equation << ": below the threshold";
    EXPECT_TRUE(std::isnan(grows.Value(kTc))) << equation;
  }
}

TEST(FormZeros, WagnerFormStillHasItsValueAtTheCriticalPoint) {
  Form form(47, {-7.0, 1.5, -2.0, -3.0});
  for (double factor : {1.0, 101.325, 0.25}) {
    form.call.factor = factor;
    EXPECT_DOUBLE_EQ(form.Value(kTc), 4000.0) << factor;
  }
  form.call.factor = 0.0;
  EXPECT_TRUE(std::isnan(form.Value(kTc)));
  EXPECT_TRUE(std::isnan(form.Value(400.0)));
}

}  // namespace
}  // namespace zel

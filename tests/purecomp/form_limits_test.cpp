// Derivatives and sensitivities at the points where a root, a power or a term of a form begins,
// compared with limits of 50 digits computed independently of the code.
#include "purecomp/form_limits.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <set>

#include "tests/purecomp/equation_row.h"

namespace zel {
namespace {

using test::CallOf;
using test::Row;

constexpr double kInfinite = std::numeric_limits<double>::infinity();
constexpr double kNone = std::numeric_limits<double>::quiet_NaN();  // no limit

Row const kRows[] = {
#include "tests/purecomp/limit_rows.inc"
};

struct Limits {
  double value = 0.0;
  double derivatives[3] = {};
  double weights[15] = {};
};

Limits Evaluate(Row const& row) {
  Limits r;
  for (std::int32_t order = 1; order <= 3; ++order) {
    EquationCall call = CallOf(row);
    call.order = order;
    EXPECT_EQ(EvaluateEquation(call, r.value, r.derivatives[order - 1], nullptr), kInRange);
  }
  EquationCall call = CallOf(row);
  call.order = kSensitivities;
  double none = 0.0;
  EvaluateEquation(call, r.value, none, r.weights);
  return r;
}

bool IsNear(double got, double expected, double scale) {
  if (std::isnan(expected)) return true;
  if (std::isinf(expected)) return got == expected;
  return std::fabs(got - expected) <= 1e-9 * std::max(std::fabs(expected), scale) + 1e-50;
}

// All forms but the seven that limit_rows() of scripts/make_equation_rows.py leaves out.
TEST(FormLimits, RowsAreThereForAllForms) {
  std::set<int> forms;
  for (Row const& row : kRows) forms.insert(row.equation);
  EXPECT_EQ(forms.size(), 44U);
}

TEST(FormLimits, DerivativesAreTheLimitsFromBelow) {
  for (Row const& row : kRows) {
    Limits const r = Evaluate(row);
    EXPECT_TRUE(IsNear(r.value, row.value, 0.0)) << "eq " << row.equation << " N " << row.N;
    for (int k = 0; k < 3; ++k) {
      double const scale = std::fabs(row.value) / std::pow(row.T, k + 1);
      EXPECT_TRUE(IsNear(r.derivatives[k], row.derivatives[k], scale))
          << "eq " << row.equation << " N " << row.N << " T " << row.T << " C " << row.c[0] << " "
          << row.c[1] << " " << row.c[2] << " " << row.c[3] << ": derivative " << k + 1 << " "
          << r.derivatives[k] << " for " << row.derivatives[k];
    }
  }
}

TEST(FormLimits, SensitivitiesAreTheLimitsFromAbove) {
  for (Row const& row : kRows) {
    if (row.equation == 4) continue;  // has none
    Limits const r = Evaluate(row);
    for (int k = 0; k < row.N; ++k) {
      EXPECT_TRUE(IsNear(r.weights[k], row.weights[k], 1e-4 * std::fabs(row.value)))
          << "eq " << row.equation << " N " << row.N << " T " << row.T << " C " << row.c[0] << " "
          << row.c[1] << " " << row.c[2] << " " << row.c[3] << ": sensitivity to C" << k + 1 << " "
          << r.weights[k] << " for " << row.weights[k];
    }
  }
}

// The cube root of form 13 begins at C3.
TEST(FormLimits, Form13AtItsThirdCoefficient) {
  double const c[] = {0.5, 1.1, 600.0, 50.0, 0.01};
  EquationCall call;
  call.equation = 13;
  call.coefficientCount = 5;
  call.coefficients = c;
  call.temperature = 600.0;
  call.tMin = call.tMax = -1e35;
  call.order = kSensitivities;
  double value = 0.0, derivative = 0.0, weights[15] = {};
  EvaluateEquation(call, value, derivative, weights);
  EXPECT_EQ(value, 0.01);
  double const expected[] = {0.0, 0.0, kInfinite, 0.0, 1.0};
  for (int k = 0; k < 5; ++k) EXPECT_EQ(weights[k], expected[k]) << "C" << k + 1;
  for (std::int32_t const order : {1, 2, 3}) {
    call.order = order;
    EvaluateEquation(call, value, derivative, nullptr);
    EXPECT_EQ(derivative, -kInfinite) << order;
  }
}

}  // namespace
}  // namespace zel

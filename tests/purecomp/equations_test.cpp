// Every equation form compared with values of 50 digits computed independently of the code, and the
// rules around the forms: numbers without a form, range, final step, orders.
#include "purecomp/equations.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <set>
#include <vector>

#include "tests/purecomp/equation_row.h"

namespace zel {
namespace {

using test::caller;
using test::CallOf;
using test::Row;

Row const kRows[] = {
#include "tests/purecomp/equation_rows.inc"
};

constexpr double kUntouched = 4.75;

struct Result {
  double value = kUntouched;
  double derivative = kUntouched;
  double weights[15];
  RangeStatus status = kInRange;
};

Result Evaluate(EquationCall const& call) {
  Result r;
  for (double& w : r.weights) w = kUntouched;
  r.status = EvaluateEquation(call, r.value, r.derivative, r.weights);
  return r;
}

// The tolerance is relative to the value, or to the terms of the form where they cancel.
void ExpectNear(double got, double expected, double tolerance, double scale, char const* what,
                Row const& row) {
  constexpr double kNothing = 1e-50;
  double const limit = tolerance * std::max(std::fabs(expected), scale) + kNothing;
  EXPECT_LE(std::fabs(got - expected), limit)
      << "eq " << row.equation << " N " << row.N << " log " << row.logBasis << " T " << row.T
      << ": " << what << " " << got << " for " << expected;
}

// Newton's method of eq 51 ends at 1e-7 of its step: the last digits of the value are not exact.
double ToleranceOf(Row const& row) { return row.equation == 51 && row.N == 15 ? 1e-9 : 4e-12; }

TEST(Equations, ValuesAndDerivativesOfEveryForm) {
  std::set<int> forms;
  for (Row const& row : kRows) {
    forms.insert(row.equation);
    for (int order = 1; order <= 3; ++order) {
      EquationCall call = CallOf(row);
      call.order = order;
      Result const r = Evaluate(call);
      EXPECT_EQ(r.status, kInRange);
      if (!row.written) {
        EXPECT_EQ(r.value, kUntouched) << row.equation << " " << row.T;
        EXPECT_EQ(r.derivative, 0.0) << row.equation << " " << row.T;
        continue;
      }
      double const scale = std::fabs(row.value) / std::pow(std::max(1.0, std::fabs(row.T)), order);
      ExpectNear(r.value, row.value, ToleranceOf(row), 0.0, "value", row);
      ExpectNear(r.derivative, row.derivatives[order - 1], 100 * ToleranceOf(row), scale,
                 "derivative", row);
    }
  }
  EXPECT_EQ(forms.size(), 51U) << "all forms";
}

TEST(Equations, SensitivitiesOfEveryForm) {
  for (Row const& row : kRows) {
    EquationCall call = CallOf(row);
    call.order = kSensitivities;
    Result const r = Evaluate(call);
    EXPECT_EQ(r.derivative, kUntouched);
    bool const fills =
        row.equation != 4 && row.equation != 39 && row.equation != 51 && row.equation != 52;
    for (int k = 0; k < 15; ++k) {
      double const got = r.weights[k];
      if (!fills) {
        EXPECT_EQ(got, kUntouched) << "eq " << row.equation;
      } else if (k < row.N) {
        double const scale = std::fabs(row.value) * 1e-4;
        ExpectNear(got, row.weights[k], 1e-10, scale, "sensitivity", row);
      } else {
        EXPECT_EQ(got, 0.0) << "eq " << row.equation << " C" << k + 1 << " is not in use";
      }
    }
  }
}

// Compared with the order below, so that a derivative cannot be wrong in the same way on both
// sides.
TEST(Equations, EachDerivativeIsTheSlopeOfTheOneBelow) {
  int compared = 0;
  for (Row const& row : kRows) {
    bool const exact = row.equation != 2 && row.equation != 39 && row.equation != 51 &&
                       row.equation != 52 && row.equation != 126 && row.equation != 134;
    if (!row.written || !exact || row.T < 100.0) continue;
    for (int order = 1; order <= 3; ++order) {
      double const h = 1e-3 * row.T / 300.0;
      auto const below = [&](double T) {
        EquationCall call = CallOf(row);
        call.temperature = T;
        call.order = std::max(order - 1, 1);
        Result const r = Evaluate(call);
        return order == 1 ? r.value : r.derivative;
      };
      EquationCall call = CallOf(row);
      call.order = order;
      double const got = Evaluate(call).derivative;
      // Eighth order: (4/5, -1/5, 4/105, -1/280) over h.
      double slope = 0.0;
      double const weights[] = {4.0 / 5, -1.0 / 5, 4.0 / 105, -1.0 / 280};
      for (int k = 1; k <= 4; ++k) {
        slope += weights[k - 1] * (below(row.T + k * h) - below(row.T - k * h)) / h;
      }
      // The order below can be just rounding error relative to the value.
      double const size =
          std::max(std::fabs(below(row.T)), std::fabs(row.value) / std::pow(row.T, order - 1));
      double const noise = 1e-13 * size / h;
      bool const nearAnEnd = std::fabs(row.T - 512.5) < 2.0 || row.T > 512.0;
      if (nearAnEnd || !std::isfinite(slope)) continue;
      ++compared;
      EXPECT_NEAR(got, slope, 1e-6 * std::fabs(slope) + 10 * noise + 1e-45)
          << "eq " << row.equation << " N " << row.N << " T " << row.T << " order " << order;
    }
  }
  EXPECT_GT(compared, 2000);
}

EquationCall Simple(int equation, double const* c, int N, double T) {
  EquationCall call;
  call.caller = &caller;
  call.equation = equation;
  call.coefficients = c;
  call.coefficientCount = N;
  call.temperature = T;
  call.tMin = -1e35;
  call.tMax = -1e35;
  call.Tc = 500.0;
  call.Pc = 4000.0;
  call.Tb = 350.0;
  return call;
}

constexpr double kOnes[15] = {1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1};

TEST(Equations, NumberWithoutAFormLeavesTheValueTimesTheFactor) {
  for (int equation :
       {0,   7,   8,   9,   10,  11,  50,  55,   99, 100, 101, 116,       118,      125,
        127, 133, 135, 200, 201, 217, 999, 1001, -1, -15, -83, INT32_MIN, INT32_MAX}) {
    EquationCall call = Simple(equation, kOnes, 3, 300.0);
    call.factor = 2.0;
    for (int order : {1, 2, 3}) {
      call.order = order;
      Result const r = Evaluate(call);
      EXPECT_EQ(r.value, 2.0 * kUntouched) << equation;
      EXPECT_EQ(r.derivative, 2.0 * kUntouched);
      EXPECT_EQ(r.status, kInRange);
    }
    call.order = kSensitivities;
    Result const r = Evaluate(call);
    EXPECT_EQ(r.value, 2.0 * kUntouched);
    EXPECT_EQ(r.derivative, kUntouched);
    EXPECT_EQ(r.weights[0], kUntouched);
  }
}

TEST(Equations, FinalStepScalesValueAndDerivativeAndAddsTheOffset) {
  double const c[15] = {10.0, 2.0};
  EquationCall call = Simple(1, c, 2, 300.0);
  call.factor = 0.5;
  call.offset = 3.0;
  Result const r = Evaluate(call);
  EXPECT_EQ(r.value, 610.0 * 0.5 + 3.0);
  EXPECT_EQ(r.derivative, 1.0);
  call.order = 7;
  EXPECT_EQ(Evaluate(call).value, r.value);
  EXPECT_EQ(Evaluate(call).derivative, kUntouched) << "other orders leave it";
  call.order = kSensitivities;
  EXPECT_EQ(Evaluate(call).weights[1], 300.0) << "before the final step";
  double value = 0.0, derivative = 0.0;
  EXPECT_EQ(EvaluateEquation(call, value, derivative, nullptr), kInRange);
}

// Pc is in internal units: the forms undo the final step on the critical pressure.
TEST(Equations, WagnerFormsTakeTheFactorOutOfTheCriticalPressure) {
  for (int equation : {47, 48}) {
    double const c[15] = {-7.0, 1.5, -2.0, -3.0};
    EquationCall call = Simple(equation, c, 4, 400.0);
    double const plain = Evaluate(call).value;
    call.factor = 0.001;
    EXPECT_NEAR(Evaluate(call).value, plain, 1e-12 * plain);
    call.temperature = 501.0;
    EXPECT_EQ(Evaluate(call).value, kUntouched * 0.001) << "no value above Tc";
  }
}

TEST(Equations, RangeEndsWithinRounding) {
  EquationCall call = Simple(1, kOnes, 1, 300.0);
  call.tMin = 200.0;
  call.tMax = 300.0;
  auto const statusAt = [&](double T) {
    call.temperature = T;
    return Evaluate(call).status;
  };
  EXPECT_EQ(statusAt(300.0), kInRange);
  EXPECT_EQ(statusAt(300.0 * (1 + 4.5e-16)), kInRange);
  EXPECT_EQ(statusAt(300.0 * (1 + 1.3e-15)), kAboveRange);
  EXPECT_EQ(statusAt(200.0), kInRange);
  EXPECT_EQ(statusAt(200.0 * (1 - 4.5e-16)), kInRange);
  EXPECT_EQ(statusAt(200.0 * (1 - 1.3e-15)), kBelowRange);
  call.temperature = 400.0;
  Result const r = Evaluate(call);
  EXPECT_EQ(r.value, kUntouched) << "nothing is computed outside";
  EXPECT_EQ(r.derivative, kUntouched);
  call.tMax = -1e35;
  EXPECT_EQ(statusAt(1e9), kInRange) << "no upper limit";
  call.tMin = -1e35;
  EXPECT_EQ(statusAt(-1e9), kInRange);
  call.tMin = 300.0;
  call.tMax = 200.0;
  EXPECT_EQ(statusAt(250.0), kAboveRange) << "the upper limit is looked at first";
}

TEST(Equations, CountsOfCoefficientsAreCutToWhatThereIs) {
  EquationCall call = Simple(1, kOnes, 15, 2.0);
  double const all = Evaluate(call).value;
  EXPECT_EQ(all, 32767.0);
  for (int N : {16, 999, INT32_MAX}) {
    call.coefficientCount = N;
    EXPECT_EQ(Evaluate(call).value, all) << N;
  }
  for (int N : {0, -1, INT32_MIN}) {
    call.coefficientCount = N;
    EXPECT_EQ(Evaluate(call).value, 0.0) << N;
  }
}

TEST(Equations, CoefficientsBeyondTheCountDoNotMatter) {
  double poisoned[15];
  for (Row const& row : kRows) {
    std::copy(row.c, row.c + 15, poisoned);
    for (int k = row.N; k < 15; ++k) poisoned[k] = std::numeric_limits<double>::quiet_NaN();
    EquationCall call = CallOf(row);
    double const value = Evaluate(call).value;
    call.coefficients = poisoned;
    double const same = Evaluate(call).value;
    EXPECT_EQ(std::bit_cast<std::uint64_t>(value), std::bit_cast<std::uint64_t>(same))
        << row.equation;
  }
}

TEST(Equations, SignOfTheEighthCoefficientOfForm23DependsOnTheCount) {
  double c[15] = {150.0, 4.0, 12.5, 90.0, 0.5, -0.375, 0.25, 0.125, 0.0};
  double const eight = Evaluate(Simple(23, c, 8, 300.0)).value;
  double const nine = Evaluate(Simple(23, c, 9, 300.0)).value;
  double const q = 90.0 / 390.0;
  double const expected = 2.0 * 8.314471 * 0.125 * std::pow(q, 5) / 5.0 * 90.0 * 8.5;
  EXPECT_NEAR(eight - nine, expected, 1e-9 * std::fabs(expected));
}

// Measured latent heats at the normal boiling point, which the form was fitted to reproduce within
// 2 percent (Sivaraman, Magee and Kobayashi, Ind. Eng. Chem. Fundam. 23 (1984) 97; heats and
// boiling points: CRC Handbook of Chemistry and Physics).
TEST(Equations, Form53GivesLatentHeats) {
  struct Fluid {
    char const* name;
    double acentricFactor, Tc, Tb, heat;  // K, kJ/kg-mol
  };
  constexpr Fluid kFluids[] = {{"benzene", 0.2103, 562.05, 353.24, 30720},
                               {"toluene", 0.2640, 591.75, 383.78, 33180},
                               {"octane", 0.3996, 568.70, 398.77, 34410},
                               {"naphthalene", 0.3020, 748.40, 491.14, 43200}};
  for (Fluid const& fluid : kFluids) {
    double const c[] = {fluid.acentricFactor, fluid.Tc};
    EquationCall call;
    call.equation = 53;
    call.coefficientCount = 2;
    call.coefficients = c;
    call.temperature = fluid.Tb;
    call.tMin = call.tMax = -1e35;
    double value = 0.0;
    double slope = 0.0;
    ASSERT_EQ(EvaluateEquation(call, value, slope, nullptr), kInRange);
    EXPECT_NEAR(value, fluid.heat, 0.03 * fluid.heat) << fluid.name;
    EXPECT_LT(slope, 0.0) << fluid.name;
  }
}

// The slope of a form at a temperature.
double SlopeOf(int equation, std::vector<double> const& c, double T) {
  EquationCall call;
  call.caller = &caller;
  call.equation = equation;
  call.coefficientCount = static_cast<std::int32_t>(c.size());
  call.coefficients = c.data();
  call.temperature = T;
  call.tMin = call.tMax = -1e35;
  double value = 0.0;
  double slope = 0.0;
  EXPECT_EQ(EvaluateEquation(call, value, slope, nullptr), kInRange);
  return slope;
}

// Enthalpies whose slopes are published heat capacities: ideal gas after Aly and Lee (Fluid Phase
// Equilib. 6 (1981) 169), and liquid above ideal gas after Bondi, in the form with the acentric
// factor (Reid, Prausnitz and Poling, The Properties of Gases and Liquids, 4th ed., eq 5-8.1).
TEST(Equations, EnthalpyFormsHaveTheirHeatCapacitiesAsSlopes) {
  for (double T : {150.0, 300.0, 450.0}) {
    double const x = 1900.0 / T, y = 890.0 / T;
    double const alyLee =
        33.0 + 87.0 * std::pow(x / std::sinh(x), 2.0) + 53.0 * std::pow(y / std::cosh(y), 2.0);
    EXPECT_NEAR(SlopeOf(17, {100.0, 33.0, 87.0, 1900.0, 53.0, 890.0}, T), alyLee, 1e-10 * alyLee);

    double const Tr = T / 512.5, omega = 0.56;
    double const bondi =
        1.45 + 0.45 / (1.0 - Tr) +
        0.25 * omega * (17.11 + 25.2 * std::cbrt(1.0 - Tr) / Tr + 1.742 / (1.0 - Tr));
    double const ideal = caller.Call(correlationIdealEnthalpy, T, 1).d[1];
    EXPECT_NEAR(SlopeOf(54, {7.0, omega, 512.5}, T) - ideal, 8.314471 * bondi, 1e-10 * bondi * T);
  }
}

TEST(Equations, AnythingAtAllEnds) {
  double const wild[] = {0.0,
                         -0.0,
                         1.0,
                         -1.0,
                         1e-300,
                         1e300,
                         -1e300,
                         512.5,
                         -1e35,
                         std::numeric_limits<double>::infinity(),
                         -std::numeric_limits<double>::infinity(),
                         std::numeric_limits<double>::quiet_NaN()};
  std::uint32_t seed = 1;
  auto const next = [&] {
    seed = seed * 1664525U + 1013904223U;
    return wild[(seed >> 16) % std::size(wild)];
  };
  for (int equation = 0; equation <= 135; ++equation) {
    for (int round = 0; round < 300; ++round) {
      double c[15];
      for (double& x : c) x = next();
      EquationCall call = Simple(equation, c, round % 17, next());
      call.Tc = next();
      call.Tb = next();
      call.Pc = next();
      call.factor = next();
      for (int order : {1, 2, 3, 11, 0, -5}) {
        call.order = order;
        Evaluate(call);
      }
    }
  }
}

// All derivatives of a form come from one evaluation, and are those of the evaluations by order.
TEST(Equations, AllDerivativesComeFromOneEvaluation) {
  int callsOfOthers = 0;
  for (Row const& row : kRows) {
    EquationCall call = CallOf(row);
    for (int highest = 1; highest <= 3; ++highest) {
      double derivatives[4] = {2.5, 3.5, 3.5, 3.5};
      caller.calls_ = 0;
      ASSERT_EQ(EvaluateDerivatives(call, highest, derivatives), kInRange);
      int const calls = caller.calls_;
      for (call.order = 1; call.order <= highest; ++call.order) {
        double value = 2.5, derivative = 3.5;
        caller.calls_ = 0;
        EvaluateEquation(call, value, derivative, nullptr);
        EXPECT_EQ(calls, caller.calls_) << row.equation;
        EXPECT_EQ(derivatives[0], value) << row.equation;
        EXPECT_EQ(derivatives[call.order], derivative) << row.equation << " " << call.order;
      }
      callsOfOthers += calls;
    }
  }
  EXPECT_GT(callsOfOthers, 0);
}

}  // namespace
}  // namespace zel

// Equation 51: a property of a saturated liquid or vapor whose first coefficient set defines ln y,
// in the full form implicitly through the second virial term s = C7/T^2, and whose second set
// weights the derivative of that relation.
//
// M = N - 8 is the number of first-set coefficients in use; C8 is not used, the second set starts
// at C9. Each term counts only as M allows.
#pragma once

#include <cmath>

#include "purecomp/equation_symbols.h"
#include "purecomp/forms_exponential.h"

namespace zel::forms {

namespace implicit {

inline constexpr int kRounds = 20;
inline constexpr double kTolerance = 1e-07;

// How the solution was found; its derivatives depend on this.
enum class End {
  kRoot,      // it solves the equation
  kVirial,    // 1/(b s), above which no root exists
  kNoVirial,  // exp(b L), the root without the virial term
  kConstant   // where the scan ended: a constant
};

struct Solution {
  double y;
  End end;
};

// Divides y by 3 repeatedly, from exp(-60) down to the floor at most, until ln y - s2 y is below
// L2: a start for the second iteration.
inline Solution Scan(double L2, double s2, double floor) {
  double y = std::exp(-kClamp);
  for (int i = 0; i < 50; ++i) {
    if (Ln(y) - s2 * y < L2) return {y, End::kRoot};
    y /= 3.0;
    if (y <= floor) break;
  }
  return {y, End::kConstant};
}

// A start for the second iteration, or the final answer where none is needed.
inline Solution ChooseStart(double L, double L2, double s2) {
  if (s2 < 0.0) {
    if (L > 0.0) {
      return {(L2 + SignedSqrt(L2 * L2 + 1.0 - 2.0 * s2)) / (1.0 - 2.0 * s2), End::kRoot};
    }
    double const z = L2 + s2;
    return z >= -kClamp ? Solution{Exp(z), End::kRoot} : Scan(L2, s2, 0.0);
  }
  if (s2 == 0.0) return {ExpClamped(L2), End::kNoVirial};
  if (L2 >= -1.0 - Ln(s2)) return {1.0 / s2, End::kVirial};
  if (L2 < -kClamp) return Scan(L2, s2, 1e-30);
  return {Exp(std::min(L2, kClamp)), End::kRoot};
}

// Solves ln(y)/b = L + s y for y, starting from `y`.
inline Solution Solve(double L, double s, double b, double y) {
  double x = Ln(y);
  for (int i = 0; i < kRounds; ++i) {
    double const e = Exp(x) * s;
    double const next = x - (x / b - L - e) / (1.0 / b - e);
    bool const done = kTolerance * std::fabs(x) >= std::fabs(x - next);
    x = next;
    if (done) return {Exp(x), End::kRoot};
  }
  Solution solution = ChooseStart(L, b * L, b * s);
  for (int i = 0; i < kRounds && solution.end == End::kRoot; ++i) {
    y = solution.y;
    solution.y = y - (Ln(y) / b - L - s * y) / (1.0 / (b * y) - s);
    if (kTolerance * std::fabs(y) >= std::fabs(y - solution.y)) break;
  }
  return solution;
}

// Derivatives of a root: each Newton step with the slope at the value makes one more order exact.
template <typename V>
V RootWithDerivatives(V const& L, V const& s, double b, double y) {
  V jet(y);
  if constexpr (IsJet<V>::value) {
    double const slope = 1.0 / (b * y) - ValueOf(s);
    for (int i = 0; i < 3; ++i) {
      V const correction = (Ln(jet) / b - L - s * jet) / slope;
      jet = jet - correction;
      jet.d[0] = y;
    }
  }
  return jet;
}

template <typename V>
V WithDerivatives(V const& L, V const& s, double b, Solution const& solution) {
  switch (solution.end) {
    case End::kVirial: return 1.0 / (b * s);
    case End::kNoVirial: return ExpClamped(b * L);
    case End::kConstant: return V(solution.y);
    default: return RootWithDerivatives(L, s, b, solution.y);
  }
}

}  // namespace implicit

// Equation 51: Two sets of coefficients; M = N - 8 of each are in use. L = C1 + C2/(T + C3) + C4 T
// + C5 T^2 + C6 ln T and y = expc(b L). With M = 7, y solves ln(y)/b = L + y C7/T^2 instead, by
// Newton's method. The value is (C9 + C10/(C3 + T) - C2 C11/(C3 + T)^2 + C12 T + C13 T^2 + C14 ln T
// + C15 y/T^2) / (1/y - C7/T^2).
// Units: those of equation 21 for C1 to C6, Y being the unit of y, C7 K^2/Y; C9 and C14 U/Y, C10
// and C11 U K/Y, C12 U/(K Y), C13 U/(K^2 Y), C15 U K^2/Y^2.
template <typename S>
typename S::Result Eq51(S const& s) {
  using V = typename S::Value;
  int const M = s.N - 8;
  auto const first = [&](int i) { return M > i - 1 ? s.c(i) : decltype(s.c(1))(0.0); };
  auto const C3 = first(3);
  V L = s.c(1) + s.c(2) / (s.T + C3);
  if (M > 3) L = L + s.c(4) * s.T;
  if (M > 4) L = L + s.c(5) * (s.T * s.T);
  bool const hasLog = M > 5 && std::fabs(ValueOf(s.c(6))) > kNoTerm;
  if (hasLog) L = L + s.c(6) * Ln(s.T);

  V y = ExpClamped(s.b * L);
  V const virial = M == 7 ? V(s.c(7) / (s.T * s.T)) : V(0.0);
  if (M == 7) {
    auto const solved = implicit::Solve(ValueOf(L), ValueOf(virial), s.b, ValueOf(y));
    y = implicit::WithDerivatives(L, virial, s.b, solved);
  }
  V const D = 1.0 / y - virial;
  if (ValueOf(D) == 0.0) return V(0.0);

  V sum(0.0);
  if (M >= 1) sum = sum + s.c(9);
  if (M >= 2) sum = sum + s.c(10) / (C3 + s.T);
  if (M >= 3) sum = sum - s.c(2) * s.c(11) / ((C3 + s.T) * (C3 + s.T));
  if (M >= 4) sum = sum + s.c(12) * s.T;
  if (M >= 5) sum = sum + s.c(13) * (s.T * s.T);
  if (M >= 6) sum = sum + s.c(14) * Ln(s.T);
  if (M >= 7) sum = sum + s.c(15) * y / (s.T * s.T);
  return sum / D;
}

}  // namespace zel::forms

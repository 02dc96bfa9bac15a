// Equation forms: polynomials and rational forms in the temperature.
#pragma once

#include <type_traits>

#include "purecomp/equation_symbols.h"

namespace zel::forms {

// Equation 1, polynomial: sum Ci T^(i-1), 1..N.
// Units: Ci U/K^(i-1).
template <typename S>
typename S::Result Eq1(S const& s) {
  return s.Polynomial(1, s.N, s.T);
}

// Chebyshev series over the range of the record.
template <typename S>
typename S::Value ChebyshevSum(S const& s) {
  using V = typename S::Value;
  auto const x = (2.0 * s.T - s.tMax() - s.tMin()) / (s.tMax() - s.tMin());
  std::remove_const_t<decltype(x)> previous(1.0);  // whatever x is: it may be infinite
  auto current = x;
  V sum(0.0);
  for (int i = 1; i <= s.N; ++i) {
    sum = sum + s.c(i) * previous;
    auto const next = 2.0 * x * current - previous;
    previous = current;
    current = next;
  }
  return sum;
}

// Equation 2, Chebyshev series: sum Ci Ch(i-1, x), 1..N, x = (2T - tMax - tMin)/(tMax - tMin).
// Units: Ci U.
template <typename S>
typename S::Result Eq2(S const& s) {
  return ChebyshevSum(s);
}

// Equation 22, Chebyshev vapor pressure: expc(b S/T), S the sum of eq 2.
// Units: Ci K.
template <typename S>
typename S::Result Eq22(S const& s) {
  return ExpClamped(s.b * ChebyshevSum(s) / s.T);
}

// Sum of Ci r^(p(i-1)) over i = 1..N-2, with p = CN.
template <typename S, typename R>
typename S::Value PowerSum(S const& s, R const& r) {
  typename S::Value sum(0.0);
  for (int i = 1; i <= s.N - 2; ++i) sum = sum + s.c(i) * Pow(r, s.c(s.N) * double(i - 1));
  return sum;
}

// Equation 3: sum Ci r^(p(i-1)), 1..N-2, r = T/C(N-1), p = CN. End: r: C1.
// Units: Ci U, C(N-1) K, CN no unit.
template <typename S>
typename S::Result Eq3(S const& s) {
  auto const r = s.T / s.c(s.N - 1);
  if (ValueOf(r) <= kNearCritical) return s.c(1);
  return PowerSum(s, r);
}

// Equation 4: the same with r = 1 - T/C(N-1). End: r: C1.
// Units: as in equation 3, whose sum it is.
template <typename S>
typename S::Result Eq4(S const& s) {
  auto const r = 1.0 - s.T / s.c(s.N - 1);
  if (ValueOf(r) <= kNearCritical) return s.c(1);
  return PowerSum(s, r);
}

// Equation 5: C1 T^C2 / (C3 + T).
// Units: C1 U K^(1-C2), C2 no unit, C3 K.
template <typename S>
typename S::Result Eq5(S const& s) {
  return s.c(1) * Pow(s.T, s.c(2)) / (s.c(3) + s.T);
}

// 1 + Ci/T + Cj/T^2, each term only if N includes its coefficient.
template <typename S>
typename S::Value InverseTerms(S const& s, int i) {
  typename S::Value sum(1.0);
  if (s.N >= i) sum = sum + s.c(i) / s.T;
  if (s.N >= i + 1) sum = sum + s.c(i + 1) / (s.T * s.T);
  return sum;
}

// Equation 18: C1 + C2 T^C3 / (1 + C4/T + C5/T^2).
// Units: C1 U, C2 U/K^C3, C3 no unit, C4 K, C5 K^2.
template <typename S>
typename S::Result Eq18(S const& s) {
  return s.c(1) + s.c(2) * Pow(s.T, s.c(3)) / InverseTerms(s, 4);
}

// Equation 19, DIPPR 102: C1 T^C2 / (1 + C3/T + C4/T^2).
// Units: C1 U/K^C2, C2 no unit, C3 K, C4 K^2.
template <typename S>
typename S::Result Eq19(S const& s) {
  return s.c(1) * Pow(s.T, s.c(2)) / InverseTerms(s, 3);
}

// Equation 25, Shomate: C1 + C2 T + C3 T^2 + C4 T^3 + C5 T^4 + C6/T + C7/T^2.
// Units: Ci U/K^(i-1) up to C5, C6 U K, C7 U K^2.
template <typename S>
typename S::Result Eq25(S const& s) {
  typename S::Value sum = s.Polynomial(1, std::min(s.N, 5), s.T);
  if (s.N >= 6) sum = sum + s.c(6) / s.T;
  if (s.N >= 7) sum = sum + s.c(7) / (s.T * s.T);
  return sum;
}

// Equation 33, Sutherland kind: ssqrt(Tr) / sum Ci Tr^(1-i), 1..N.
// Units: Ci 1/U.
template <typename S>
typename S::Result Eq33(S const& s) {
  auto const Tr = s.Tr();
  return SignedSqrt(Tr) / s.Polynomial(1, s.N, 1.0 / Tr);
}

// Equation 41: C1 + C2/y + C3 ln(y)/b + sum Ci y^(i-3), 4..N-1, y = CN/(T + CN).
// Units: C1 to C(N-1) U, CN K.
template <typename S>
typename S::Result Eq41(S const& s) {
  using V = typename S::Value;
  if (s.N < 2) return V(0.0);
  if (s.N == 2) return V(s.c(1));
  V const y = s.c(s.N) / (s.T + s.c(s.N));
  V sum = s.c(1) + s.c(2) / y;
  if (s.N >= 4) sum = sum + s.c(3) * Ln(y) / s.b;
  if (s.N >= 5) sum = sum + s.Polynomial(4, s.N - 1, y) * y;
  return sum;
}

// Equation 42: sum Ci T^(i-1), 1..6, + C7 ln(max(C8 - T, 0.0001))/b.
// Units: Ci U/K^(i-1) up to C6, C7 U, C8 K.
template <typename S>
typename S::Result Eq42(S const& s) {
  auto const rest = AtLeast(typename S::Value(s.c(8) - s.T), kNearCritical);
  return s.Polynomial(1, 6, s.T) + s.c(7) * Ln(rest) / s.b;
}

}  // namespace zel::forms

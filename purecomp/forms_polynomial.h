// Equation forms: polynomials and rational forms in the temperature.
#pragma once

#include <type_traits>

#include "purecomp/equation_symbols.h"

namespace zel::forms {

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

template <typename S>
typename S::Result Eq2(S const& s) {
  return ChebyshevSum(s);
}

// Sum of Ci r^(p(i-1)) over i = 1..N-2, with p = CN.
template <typename S, typename R>
typename S::Value PowerSum(S const& s, R const& r) {
  typename S::Value sum(0.0);
  for (int i = 1; i <= s.N - 2; ++i) sum = sum + s.c(i) * Pow(r, s.c(s.N) * double(i - 1));
  return sum;
}

template <typename S>
typename S::Result Eq3(S const& s) {
  auto const r = s.T / s.c(s.N - 1);
  if (ValueOf(r) <= kNearCritical) return s.c(1);
  return PowerSum(s, r);
}

template <typename S>
typename S::Result Eq4(S const& s) {
  auto const r = 1.0 - s.T / s.c(s.N - 1);
  if (ValueOf(r) <= kNearCritical) return s.c(1);
  return PowerSum(s, r);
}

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

template <typename S>
typename S::Result Eq18(S const& s) {
  return s.c(1) + s.c(2) * Pow(s.T, s.c(3)) / InverseTerms(s, 4);
}

template <typename S>
typename S::Result Eq19(S const& s) {
  return s.c(1) * Pow(s.T, s.c(2)) / InverseTerms(s, 3);
}

template <typename S>
typename S::Result Eq25(S const& s) {
  typename S::Value sum = s.Polynomial(1, std::min(s.N, 5), s.T);
  if (s.N >= 6) sum = sum + s.c(6) / s.T;
  if (s.N >= 7) sum = sum + s.c(7) / (s.T * s.T);
  return sum;
}

template <typename S>
typename S::Result Eq33(S const& s) {
  auto const Tr = s.Tr();
  return SignedSqrt(Tr) / s.Polynomial(1, s.N, 1.0 / Tr);
}

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

template <typename S>
typename S::Result Eq42(S const& s) {
  auto const rest = AtLeast(typename S::Value(s.c(8) - s.T), kNearCritical);
  return s.Polynomial(1, 6, s.T) + s.c(7) * Ln(rest) / s.b;
}

}  // namespace zel::forms

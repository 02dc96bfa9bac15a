// Equation forms: exponentials, most of them for vapor pressures and viscosities.
#pragma once

#include <cmath>

#include "purecomp/equation_symbols.h"

namespace zel::forms {

// The term in ln T of equations 21 and 51 counts only when the absolute value of its coefficient is
// above this.
inline constexpr double kNoTerm = 2e-35;

// Equation 12, Andrade, extended: exp(b sum Ci T^(1-i)), 1..N.
// Units: Ci K^(i-1).
template <typename S>
typename S::Result Eq12(S const& s) {
  return Exp(s.b * s.Polynomial(1, s.N, 1.0 / s.T));
}

// Equation 13, PPDS 9 viscosity: C5 exp((C1 + C2 r) cbrt(r)), r = (C3 - T)/(T - C4).
// Units: C1 and C2 no unit, C3 and C4 K, C5 U.
template <typename S>
typename S::Result Eq13(S const& s) {
  auto const r = (s.c(3) - s.T) / (s.T - s.c(4));
  return s.c(5) * Exp((s.c(1) + s.c(2) * r) * Cbrt(r));
}

// Equation 14: expc(b (C1 + tau (C2 + C3 ssqrt(tau) + (C4 + C5 tau^3) tau^2)/Tr)). End: C1.
// Units: Ci no unit.
template <typename S>
typename S::Result Eq14(S const& s) {
  auto const tau = s.tau();
  if (ValueOf(tau) <= kNearCritical) return s.c(1);
  auto const inner =
      s.c(2) + s.c(3) * SignedSqrt(tau) + (s.c(4) + s.c(5) * Cube(tau)) * Square(tau);
  return ExpClamped(s.b * (s.c(1) + tau * inner / s.Tr()));
}

// Equation 20, Riedel, DIPPR 101, extended: expc(b (C1 + C2/T + C3 ln T + C4 T^C5 + C6 T^3 + C7 T^6
// + C8/T^2 + C9/T^4 + C10 T^2)).
// Units: C1, C3 and C5 no unit, C2 K, C4 K^-C5, C6 K^-3, C7 K^-6, C8 K^2, C9 K^4, C10 K^-2.
// Coefficients above C10 are ignored; with N = 4 the fourth term is C4 alone, as C5 counts as 0.
template <typename S>
typename S::Result Eq20(S const& s) {
  auto const& T = s.T;
  typename S::Value sum(s.c(1));
  if (s.N >= 2) sum = sum + s.c(2) / T;
  if (s.N >= 3) sum = sum + s.c(3) * Ln(T);
  if (s.N == 4) sum = sum + s.c(4);
  if (s.N >= 5) sum = sum + s.c(4) * Pow(T, s.c(5));
  if (s.N >= 6) sum = sum + s.c(6) * Cube(T);
  if (s.N >= 7) sum = sum + s.c(7) * Square(Cube(T));
  if (s.N >= 8) sum = sum + s.c(8) / Square(T);
  if (s.N >= 9) sum = sum + s.c(9) / Square(Square(T));
  if (s.N >= 10) sum = sum + s.c(10) * Square(T);
  return ExpClamped(s.b * sum);
}

// Equation 21, Antoine, extended: expc(b (C1 + C2/(C3 + T) + C4 T + C5 T^2 + C6 ln T)).
// Units: C1 and C6 no unit, C2 and C3 K, C4 1/K, C5 1/K^2.
template <typename S>
typename S::Result Eq21(S const& s) {
  typename S::Value sum = s.c(1) + s.c(2) / (s.c(3) + s.T);
  sum = sum + s.c(4) * s.T + s.c(5) * (s.T * s.T);
  if (std::fabs(ValueOf(s.c(6))) > kNoTerm) sum = sum + s.c(6) * Ln(s.T);
  return ExpClamped(s.b * sum);
}

// Equation 28: expc(b (C1 + C2/(C3 + T) + C4 T + C5 ln T + C6 T^C7)).
// Units: C1 and C5 no unit, C2 and C3 K, C4 1/K, C6 K^-C7, C7 no unit.
template <typename S>
typename S::Result Eq28(S const& s) {
  typename S::Value sum = s.c(1) + s.c(2) / (s.c(3) + s.T);
  sum = sum + s.c(4) * s.T + s.c(5) * Ln(s.T);
  if (s.N == 6) sum = sum + s.c(6);
  if (s.N == 7) sum = sum + s.c(6) * Pow(s.T, s.c(7));
  // With eight or more coefficients the last term is dropped; stored data depend on it.
  return ExpClamped(s.b * sum);
}

// Equation 37: expc(b (C1 + C2 ((1 - T/C3)^2)^(1/7))).
// Units: C1 and C2 no unit, C3 K.
template <typename S>
typename S::Result Eq37(S const& s) {
  auto const x = 1.0 - s.T / s.c(3);
  return ExpClamped(s.b * (s.c(1) + s.c(2) * PowConst(x * x, 1.0 / 7.0)));
}

// Equation 38: expc(b C1 + C2 ln D + C3 ln P + b C4 T + b C5 T^2 + C6 ln T), D and P the
// component's liquid density and vapor pressure at T.
// Units: C4 1/K, C5 1/K^2, the others no unit, D kg-mol/m3, P kPa.
template <typename S>
typename S::Result Eq38(S const& s) {
  typename S::Value sum(s.b * s.c(1));
  if (s.N >= 2) sum = sum + s.c(2) * Ln(s.Called(correlationLiquidDensity));
  if (s.N >= 3) sum = sum + s.c(3) * Ln(s.Called(correlationVaporPressure));
  if (s.N >= 4) sum = sum + s.b * (s.c(4) * s.T);
  if (s.N >= 5) sum = sum + s.b * (s.c(5) * (s.T * s.T));
  if (s.N >= 6) sum = sum + s.c(6) * Ln(s.T);
  return ExpClamped(sum);
}

// Equation 44: expc(C1 + ln(tau)/b sum Ci Tr^(i-2), 2..N).
// Units: Ci no unit.
template <typename S>
typename S::Result Eq44(S const& s) {
  auto const factor = Ln(s.tau()) / s.b;
  return ExpClamped(s.c(1) + factor * s.Polynomial(2, s.N, s.Tr()));
}

// Wagner form: (Pc - o)/f expc(b (C1 tau + C2 tau^1.5 + C3 u + C4 v)/Tr).
template <typename S, typename X>
typename S::Value Wagner(S const& s, X const& tau, X const& u, X const& v) {
  auto const sum = s.c(1) * tau + s.c(2) * PowOneAndHalf(tau) + s.c(3) * u + s.c(4) * v;
  return (s.Pc() - s.o()) / s.f() * ExpClamped(s.b * sum / s.Tr());
}

// Equation 47, Wagner 3, 6: (Pc - o)/f expc(b (C1 tau + C2 tau^1.5 + C3 tau^3 + C4 tau^6)/Tr). End:
// tau below 0: none.
// Units: Ci no unit, Pc and o kPa, f kPa/U.
template <typename S>
typename S::Result Eq47(S const& s) {
  auto const tau = s.tau();
  return UnlessEnded<S>(ValueOf(tau) < 0.0, {},
                        [&] { return Wagner(s, tau, Cube(tau), Square(Cube(tau))); });
}

// Equation 48, Wagner 2.5, 5: (Pc - o)/f expc(b (C1 tau + C2 tau^1.5 + C3 tau^2.5 + C4 tau^5)/Tr).
// End: below: none.
// Units: Ci no unit, Pc and o kPa, f kPa/U.
template <typename S>
typename S::Result Eq48(S const& s) {
  auto const tau = s.tau();
  return UnlessEnded<S>(ValueOf(tau) < kNearCritical, {}, [&] {
    return Wagner(s, tau, PowOneAndHalf(tau) * tau, Square(Square(tau)) * tau);
  });
}

}  // namespace zel::forms

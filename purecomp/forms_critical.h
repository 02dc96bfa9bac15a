// Equation forms in the reduced temperature, most of them with an end at the critical point.
#pragma once

#include <algorithm>

#include "purecomp/compare_temperature.h"
#include "purecomp/equation_symbols.h"

namespace zel::forms {

inline constexpr double kThird = 1.0 / 3.0;

// Equation 6: tau sum Ci tau^(i-1), 1..N.
// Units: Ci U.
template <typename S>
typename S::Result Eq6(S const& s) {
  auto const tau = s.tau();
  return tau * s.Polynomial(1, s.N, tau);
}

// Equation 15, Watson, DIPPR 106: C1 tau^(C2 + C3 Tr + C4 Tr^2 + ...). End: 0.
// Units: C1 U, the others no unit.
template <typename S>
typename S::Result Eq15(S const& s) {
  auto const tau = s.tau();
  return UnlessEnded<S>(ValueOf(tau) <= kNearCritical, typename S::Value(0.0),
                        [&] { return s.c(1) * Pow(tau, s.Polynomial(2, s.N, s.Tr())); });
}

// Equation 16, Rackett, DIPPR 105: C1 / C2^(1 + C5 + x^C4), x = 1 - T/C3, 1e-14 where negative;
// none for N below 4.
// Units: C1 U, C3 K, the others no unit.
template <typename S>
typename S::Result Eq16(S const& s) {
  constexpr double kAboveCritical = 1e-14;
  if (s.N < 4) return {};
  auto const x = ReplaceBelow0(typename S::Value(1.0 - s.T / s.c(3)), kAboveCritical);
  return s.c(1) / Pow(s.c(2), 1.0 + s.c(5) + Pow(x, s.c(4)));
}

// Equation 27: C1 Tr abs(1 - C2 tau Tr^C3)^(-1/6).
// Units: C1 U, C2 and C3 no unit.
template <typename S>
typename S::Result Eq27(S const& s) {
  auto const Tr = s.Tr();
  auto const inner = 1.0 - s.c(2) * s.tau() * Pow(Tr, s.c(3));
  return s.c(1) * Tr * PowConst(Abs(inner), -1.0 / 6.0);
}

// Equation 29: (C1 + C2 tau)^(-1 - abs(tau)^(2/7)) / C3.
// Units: C1 and C2 no unit, C3 1/U.
template <typename S>
typename S::Result Eq29(S const& s) {
  auto const tau = s.tau();
  auto const exponent = -1.0 - PowConst(Abs(tau), 2.0 / 7.0);
  return Pow(s.c(1) + s.c(2) * tau, exponent) / s.c(3);
}

// Equation 30, Watson, corrected: C1 tau^C2 (1 + C3 tau). End: none.
// Units: C1 U, C2 and C3 no unit.
template <typename S>
typename S::Result Eq30(S const& s) {
  auto const tau = s.tau();
  if (ValueOf(tau) <= kNearCritical) return {};
  return s.c(1) * Pow(tau, s.c(2)) * (1.0 + s.c(3) * tau);
}

// C1 plus the sum of Ci tau^e over i = 2..N, e being the exponents in order.
template <typename S, typename X, std::size_t Count>
typename S::Value TauSum(S const& s, X const& tau, double const (&exponents)[Count]) {
  typename S::Value sum(s.c(1));
  int const last = std::min(s.N, static_cast<int>(Count) + 1);
  for (int i = 2; i <= last; ++i) {
    sum = sum + s.c(i) * PowConst(tau, exponents[static_cast<std::size_t>(i - 2)]);
  }
  return sum;
}

// Equation 31, DIPPR 116 kind: C1 + C2 tau^(1/3) + C3 tau^(2/3) + C4 tau^(5/3) + C5 tau^(16/3)
// + C6 tau^(43/3) + C7 tau^(110/3).
// Units: Ci U.
template <typename S>
typename S::Result Eq31(S const& s) {
  constexpr double kExponents[] = {kThird,        2.0 * kThird,  5.0 * kThird,
                                   16.0 * kThird, 43.0 * kThird, 110.0 * kThird};
  return TauSum(s, s.tau(), kExponents);
}

// Equation 32, DIPPR 116, PPDS 10: C1 + C2 tau^0.35 + C3 tau^(2/3) + C4 tau + C5 tau^(4/3). End:
// C1.
// Units: Ci U.
template <typename S>
typename S::Result Eq32(S const& s) {
  constexpr double kExponents[] = {0.35, 2.0 * kThird, 1.0, 4.0 * kThird};
  auto const tau = s.tau();
  if (ValueOf(tau) <= kNearCritical) return s.c(1);
  return TauSum(s, tau, kExponents);
}

// Equation 34: C1 (1 + C2 tau^(1/3) + C3 tau^(2/3) + C4 tau). End: C1.
// Units: C1 U, the others no unit.
template <typename S>
typename S::Result Eq34(S const& s) {
  auto const tau = s.tau();
  if (ValueOf(tau) <= kNearCritical) return s.c(1);
  auto const root = Cbrt(tau);
  return s.c(1) * (1.0 + s.c(2) * root + s.c(3) * (root * root) + s.c(4) * tau);
}

// Equation 35: R Tc (C1 - C2 ln(t)/b - sum Ci t^(i-2), 3..N), t = max(tau, 0.0001).
// Units: Ci no unit; the value is in kJ/kg-mol.
template <typename S>
typename S::Result Eq35(S const& s) {
  auto const t = AtLeast(s.tau(), kNearCritical);
  auto const sum = s.Polynomial(3, s.N, t) * t;
  return kGasConstant * s.Tc() * (s.c(1) - s.c(2) * (Ln(t) / s.b) - sum);
}

// Equation 36, PPDS 12: R Tc (C1 y + C2 y^2 + C3 tau + C4 tau^2 + C5 tau^6), y = tau^(1/3). End: 0.
// Units: Ci no unit; the value is in kJ/kg-mol.
template <typename S>
typename S::Result Eq36(S const& s) {
  auto const tau = s.tau();
  if (ValueOf(tau) <= kNearCritical) return typename S::Value(0.0);
  auto const y = Exp(Ln(tau) / 3.0);
  auto const sum = s.c(1) * y + s.c(2) * (y * y) + s.c(3) * tau + s.c(4) * (tau * tau) +
                   s.c(5) * Square(Cube(tau));
  return kGasConstant * s.Tc() * sum;
}

// Equation 39: C1 r^(C3 + C4 z + C5 z^2), r = tau/(1 - C2/Tc), z = (T - C6)/(C7 - Tc). End: r: 0.
// Units: C1 U, C2, C6 and C7 K, the others no unit.
// The first derivative uses -1/Tc for dz/dT, whatever C7 is; stored data depend on it.
template <typename S>
typename S::Result Eq39(S const& s) {
  auto const r = s.tau() / (1.0 - s.c(2) / s.Tc());
  if (ValueOf(r) <= kNearCritical) return typename S::Value(0.0);
  typename S::Value z = (s.T - s.c(6)) / (s.c(7) - s.Tc());
  if constexpr (std::is_same_v<typename S::Value, Jet<1>>) z.d[1] = -1.0 / s.Tc();
  return s.c(1) * Pow(r, s.c(3) + s.c(4) * z + s.c(5) * (z * z));
}

// Equation 43, Watson from the boiling point: C1 r^C2, r = (Tc - T)/(Tc - Tb). End: r: 0.
// Units: C1 U, C2 no unit.
template <typename S>
typename S::Result Eq43(S const& s) {
  auto const r = (s.Tc() - s.T) / (s.Tc() - s.Tb());
  if (ValueOf(r) <= kNearCritical) return typename S::Value(0.0);
  return s.c(1) * Pow(r, s.c(2));
}

// Equation 52: (C1 + C3 (T - Tb)/(Tc - T)) r^C2, r as in 43. End: r: 0.
// Units: C1 and C3 U, C2 no unit.
template <typename S>
typename S::Result Eq52(S const& s) {
  auto const r = (s.Tc() - s.T) / (s.Tc() - s.Tb());
  if (ValueOf(r) <= kNearCritical) return typename S::Value(0.0);
  auto const factor = s.c(1) + s.c(3) * ((s.T - s.Tb()) / (s.Tc() - s.T));
  return factor * Pow(r, s.c(2));
}

// Equation 134: sum Ci tau^((i-1)/3), 1..N. End: C1.
// Units: Ci U.
template <typename S>
typename S::Result Eq134(S const& s) {
  auto const tau = s.tau();
  if (ValueOf(tau) <= kNearCritical) return s.c(1);
  return s.Polynomial(1, s.N, Cbrt(tau));
}

}  // namespace zel::forms

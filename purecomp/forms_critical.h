// Equation forms in the reduced temperature, most of them with an end at the critical point.
#pragma once

#include <algorithm>

#include "purecomp/compare_temperature.h"
#include "purecomp/equation_symbols.h"

namespace zel::forms {

inline constexpr double kThird = 1.0 / 3.0;

template <typename S>
typename S::Result Eq6(S const& s) {
  auto const tau = s.tau();
  return tau * s.Polynomial(1, s.N, tau);
}

template <typename S>
typename S::Result Eq15(S const& s) {
  auto const tau = s.tau();
  if (ValueOf(tau) <= kNearCritical) return typename S::Value(0.0);
  return s.c(1) * Pow(tau, s.Polynomial(2, s.N, s.Tr()));
}

template <typename S>
typename S::Result Eq16(S const& s) {
  constexpr double kAboveCritical = 1e-14;
  if (s.N < 4) return {};
  typename S::Value x = 1.0 - s.T / s.c(3);
  if (CompareTemperature(ValueOf(x), 0.0) < 0) x = typename S::Value(kAboveCritical);
  return s.c(1) / Pow(s.c(2), 1.0 + s.c(5) + Pow(x, s.c(4)));
}

template <typename S>
typename S::Result Eq27(S const& s) {
  auto const Tr = s.Tr();
  auto const inner = 1.0 - s.c(2) * s.tau() * Pow(Tr, s.c(3));
  return s.c(1) * Tr * PowConst(Abs(inner), -1.0 / 6.0);
}

template <typename S>
typename S::Result Eq29(S const& s) {
  auto const tau = s.tau();
  auto const exponent = -1.0 - PowConst(Abs(tau), 2.0 / 7.0);
  return Pow(s.c(1) + s.c(2) * tau, exponent) / s.c(3);
}

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

template <typename S>
typename S::Result Eq31(S const& s) {
  constexpr double kExponents[] = {kThird,        2.0 * kThird,  5.0 * kThird,
                                   16.0 * kThird, 43.0 * kThird, 110.0 * kThird};
  return TauSum(s, s.tau(), kExponents);
}

template <typename S>
typename S::Result Eq32(S const& s) {
  constexpr double kExponents[] = {0.35, 2.0 * kThird, 1.0, 4.0 * kThird};
  auto const tau = s.tau();
  if (ValueOf(tau) <= kNearCritical) return s.c(1);
  return TauSum(s, tau, kExponents);
}

template <typename S>
typename S::Result Eq34(S const& s) {
  auto const tau = s.tau();
  if (ValueOf(tau) <= kNearCritical) return s.c(1);
  auto const root = Cbrt(tau);
  return s.c(1) * (1.0 + s.c(2) * root + s.c(3) * (root * root) + s.c(4) * tau);
}

template <typename S>
typename S::Result Eq35(S const& s) {
  auto const t = AtLeast(s.tau(), kNearCritical);
  auto const sum = s.Polynomial(3, s.N, t) * t;
  return kGasConstant * s.Tc() * (s.c(1) - s.c(2) * (Ln(t) / s.b) - sum);
}

template <typename S>
typename S::Result Eq36(S const& s) {
  auto const tau = s.tau();
  if (ValueOf(tau) <= kNearCritical) return typename S::Value(0.0);
  auto const y = Exp(Ln(tau) / 3.0);
  auto const sum = s.c(1) * y + s.c(2) * (y * y) + s.c(3) * tau + s.c(4) * (tau * tau) +
                   s.c(5) * Square(Cube(tau));
  return kGasConstant * s.Tc() * sum;
}

// The first derivative uses -1/Tc for dz/dT, whatever C7 is; stored data depend on it.
template <typename S>
typename S::Result Eq39(S const& s) {
  auto const r = s.tau() / (1.0 - s.c(2) / s.Tc());
  if (ValueOf(r) <= kNearCritical) return typename S::Value(0.0);
  typename S::Value z = (s.T - s.c(6)) / (s.c(7) - s.Tc());
  if constexpr (std::is_same_v<typename S::Value, Jet<1>>) z.d[1] = -1.0 / s.Tc();
  return s.c(1) * Pow(r, s.c(3) + s.c(4) * z + s.c(5) * (z * z));
}

template <typename S>
typename S::Result Eq43(S const& s) {
  auto const r = (s.Tc() - s.T) / (s.Tc() - s.Tb());
  if (ValueOf(r) <= kNearCritical) return typename S::Value(0.0);
  return s.c(1) * Pow(r, s.c(2));
}

template <typename S>
typename S::Result Eq52(S const& s) {
  auto const r = (s.Tc() - s.T) / (s.Tc() - s.Tb());
  if (ValueOf(r) <= kNearCritical) return typename S::Value(0.0);
  auto const factor = s.c(1) + s.c(3) * ((s.T - s.Tb()) / (s.Tc() - s.T));
  return factor * Pow(r, s.c(2));
}

template <typename S>
typename S::Result Eq134(S const& s) {
  auto const tau = s.tau();
  if (ValueOf(tau) <= kNearCritical) return s.c(1);
  return s.Polynomial(1, s.N, Cbrt(tau));
}

}  // namespace zel::forms

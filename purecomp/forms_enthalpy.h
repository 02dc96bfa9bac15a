// Equation forms that integrate a heat capacity, or are derived from one.
#pragma once

#include <algorithm>

#include "purecomp/equation_symbols.h"
#include "purecomp/forms_exponential.h"

namespace zel::forms {

// C1 + C2 T + third and fifth term of eq 17 and 117. At T = 0 both terms are 0; with C4 = 0 the
// third is C3 T, in both equations.
template <typename S, typename Third, typename Fifth>
typename S::Value HyperbolicSum(S const& s, Third const& thirdFactor, Fifth const& fifthFactor) {
  typename S::Value sum = s.c(1) + s.c(2) * s.T;
  bool const atZero = ValueOf(s.T) == 0.0;
  if (ValueOf(s.c(4)) == 0.0) {
    sum = sum + s.c(3) * s.T;
  } else if (!atZero) {
    sum = sum + thirdFactor * Coth(typename S::Value(s.c(4) / s.T));
  }
  if (!atZero) sum = sum - fifthFactor * Tanh(typename S::Value(s.c(6) / s.T));
  return sum;
}

// Equation 17, Aly-Lee, integrated: C1 + C2 T + C3 C4/tanh(C4/T) - C5 C6 tanh(C6/T).
// Units: C1 U, C2, C3 and C5 U/K, C4 and C6 K.
template <typename S>
typename S::Result Eq17(S const& s) {
  return HyperbolicSum(s, s.c(3) * s.c(4), s.c(5) * s.c(6));
}

// Equation 117, Aly-Lee, integrated: C1 + C2 T + C3/tanh(C4/T) - C5 tanh(C6/T).
// Units: C1, C3 and C5 U, C2 U/K, C4 and C6 K.
template <typename S>
typename S::Result Eq117(S const& s) {
  return HyperbolicSum(s, s.c(3), s.c(5));
}

// Equation 23, Wilhoit, integrated: With u = T + C4 and a1 to a5 = C5 to C9: R (C1 + C3 T
// + G C4 (C3 - C2)/u), where G = -S0 u ln(u)/b - S1 C4 + S2 C4^2/(2u) - S3 C4^3/(3u^2)
// + S4 C4^4/(4u^3) - S5 C4^5/(5u^4) + S6 C4^6/(6u^5) and the S are sums of the a with binomial
// weights: S0 = 2 + a1 + a2 + a3 + a4 + a5, S1 = 1 + 2 a1 + 3 a2 + 4 a3 + 5 a4 + 6 a5, S2 = a1
// + 3 a2 + 6 a3 + 10 a4 + 15 a5, S3 = a2 + 4 a3 + 10 a4 + 20 a5, S4 = a3 + 5 a4 + 15 a5, S5 = a4
// + 6 a5, S6 = a5. N = 3 is R (C1 + C3 T); other counts than 3 to 9 give none. With N = 8 the S5
// term is added.
// Units: C1 and C4 K, the others no unit; the value is in kJ/kg-mol.
template <typename S>
typename S::Result Eq23(S const& s) {
  if (s.N < 3 || s.N > 9) return {};
  typename S::Value const linear = s.c(1) + s.c(3) * s.T;
  if (s.N == 3) return kGasConstant * linear;
  auto const u = s.T + s.c(4);
  auto const C4 = s.c(4);
  auto const a1 = s.c(5), a2 = s.c(6), a3 = s.c(7), a4 = s.c(8), a5 = s.c(9);
  auto const S0 = 2.0 + a1 + a2 + a3 + a4 + a5;
  auto const S1 = 1.0 + 2.0 * a1 + 3.0 * a2 + 4.0 * a3 + 5.0 * a4 + 6.0 * a5;
  auto const S2 = a1 + 3.0 * a2 + 6.0 * a3 + 10.0 * a4 + 15.0 * a5;
  auto const S3 = a2 + 4.0 * a3 + 10.0 * a4 + 20.0 * a5;
  auto const S4 = a3 + 5.0 * a4 + 15.0 * a5;
  auto const S5 = a4 + 6.0 * a5;
  auto const S6 = a5;
  auto const q = C4 / u;
  auto const q2 = q * q;
  // With eight coefficients, and only then, this term is added; stored data depend on it.
  double const signOfS5 = s.N == 8 ? 1.0 : -1.0;
  auto const sum = S2 * q / 2.0 - S3 * q2 / 3.0 + S4 * (q2 * q) / 4.0 +
                   signOfS5 * (S5 * (q2 * q2) / 5.0) + S6 * (q2 * q2 * q) / 6.0;
  typename S::Value const G = -1.0 * S0 * u * Ln(u) / s.b - S1 * C4 + C4 * sum;
  return kGasConstant * (linear + G * C4 * (s.c(3) - s.c(2)) / u);
}

// Equation 24, Einstein terms: C1 + C2 T + sum of Ca Cb/(exp(Cb/T) - 1) over (C3, C4), (C5, C6),
// (C7, C8).
// Units: C1 U, C2 U/K, Ca U/K, Cb K.
template <typename S>
typename S::Result Eq24(S const& s) {
  typename S::Value sum = s.c(1) + s.c(2) * s.T;
  for (int i = 3; i + 1 <= std::min(s.N, 8); i += 2) {
    auto const Cb = s.c(i + 1);
    sum = sum + s.c(i) * Cb / (Exp(typename S::Value(Cb / s.T)) - 1.0);
  }
  return sum;
}

// Equation 40, TRC, integrated: At or below C9: R (C1 + C2 T + C3 exp(-C4/T)/C4). Above, with
// y = (T - C9)/(T + C8), to that inside the brackets (C9 + C8)(P + Q + V + W) is added:
// P = C6 (3y^2 + 5y^3/3 + y^4 + 3y^5/5 + y^6/3), Q = (2 C5 + 8 C6) ln(1 - y)/b, V = y (C6 (1/(1
// - y) + 7) + C5 (1 + 1/(1 - y))), W = (C6 - C7/(C9 + C8)^2) y^7/7.
// Units: C1, C4, C8 and C9 K, C2, C5 and C6 no unit, C3 and C7 K^2; the value is in kJ/kg-mol.
template <typename S>
typename S::Result Eq40(S const& s) {
  typename S::Value const base =
      s.c(1) + s.c(2) * s.T + s.c(3) * Exp(typename S::Value(-1.0 * s.c(4) / s.T)) / s.c(4);
  if (ValueOf(s.T) <= ValueOf(s.c(9))) return kGasConstant * base;
  auto const y = (s.T - s.c(9)) / (s.T + s.c(8));
  auto const span = s.c(9) + s.c(8);
  auto const y2 = y * y;
  auto const rest = 1.0 - y;
  auto const C5 = s.c(5);
  auto const C6 = s.c(6);
  auto const P = C6 * (y2 * (3.0 + y * (5.0 / 3.0 + y * (1.0 + y * (0.6 + y / 3.0)))));
  auto const Q = (2.0 * C5 + 8.0 * C6) * Ln(rest) / s.b;
  auto const V = y * (C6 * (1.0 / rest + 7.0) + C5 * (1.0 + 1.0 / rest));
  auto const W = (C6 - s.c(7) / (span * span)) * (Square(y2) * y2 * y) / 7.0;
  return kGasConstant * (span * (P + Q + V + W) + base);
}

// Equation 45: C1 - C2 Tc ln(Tc - T)/b + sum C(k+2) T^k/k, 1..N-2.
// Units: C1 U, C2 U/K, C(k+2) U/K^k.
template <typename S>
typename S::Result Eq45(S const& s) {
  typename S::Value sum = s.c(1) - s.c(2) * s.Tc() * (Ln(s.Tc() - s.T) / s.b);
  auto power = s.T;
  for (int k = 1; k <= s.N - 2; ++k) {
    sum = sum + s.c(k + 2) * power / double(k);
    power = power * s.T;
  }
  return sum;
}

// Equation 46, DIPPR 114, integrated: C1 - Tc (C2^2 ln tau + C3 tau - (C2 C4 + C4^2 tau^2/12) tau^2
// - tau^3 (C2 C5/3 + (C4 C5/10 + C5^2 tau/30) tau^2)). End: below: 0.
// Units: C1 U, C2, C4 and C5 (U/K)^0.5, C3 U/K.
template <typename S>
typename S::Result Eq46(S const& s) {
  auto const tau = s.tau();
  if (ValueOf(tau) < kNearCritical) return typename S::Value(0.0);
  auto const C2 = s.c(2), C3 = s.c(3), C4 = s.c(4), C5 = s.c(5);
  auto const tau2 = tau * tau;
  auto const cubic = C2 * C5 / 3.0 + (C4 * C5 / 10.0 + C5 * C5 * tau / 30.0) * tau2;
  auto const sum =
      C2 * C2 * Ln(tau) + C3 * tau - (C2 * C4 + C4 * C4 * tau2 / 12.0) * tau2 - tau2 * tau * cubic;
  return s.c(1) - s.Tc() * sum;
}

// Equation 49: C1 - b C2^2 Tc ln tau - C3 Tc tau + C2 C4 Tc tau^2 + (Tc tau^3/3)(C2 C5
// + C4 C5 tau^2/5) + Tc tau^6 C6^2/30.
// Units: C1 U, C2, C4, C5 and C6 (U/K)^0.5, C3 U/K.
// Differs from equation 46 on purpose: the last term has C6 instead of C5, and b multiplies.
template <typename S>
typename S::Result Eq49(S const& s) {
  auto const tau = s.tau();
  auto const C2 = s.c(2), C3 = s.c(3), C4 = s.c(4), C5 = s.c(5), C6 = s.c(6);
  auto const tau2 = tau * tau;
  auto const tau3 = tau2 * tau;
  return s.c(1) - s.b * C2 * C2 * s.Tc() * Ln(tau) - C3 * s.Tc() * tau + C2 * C4 * s.Tc() * tau2 +
         s.Tc() * tau3 / 3.0 * (C2 * C5 + C4 * C5 * tau2 / 5.0) +
         s.Tc() * Square(tau3) * (C6 * C6) / 30.0;
}

// Equation 53, latent heat, Sivaraman-Magee-Kobayashi: With x = 1 - T/C2: R C2 (4 (C1 - 0.21) A
// + B), C1 the acentric factor and C2 the critical temperature, A = -28.215 x^(5/6)
// - 82.958 x^1.208 - 0.133 x^(1/3) + x (99.0 + x (19.105 - 2.796 x)), B = -2.467 x^(5/6)
// - 77.521 x^1.208 + 6.537 x^(1/3) + x (59.634 + x (36.009 - 14.606 x)).
// Units: C1 no unit, C2 K; the value is in kJ/kg-mol.
// Latent heat in corresponding states of two reference fluids, benzene (acentric factor 0.21) and
// carbazole (0.46): C1 is the acentric factor, C2 the critical temperature. The sum in brackets is
// the reduced latent heat itself, without a further factor of x.
template <typename S>
typename S::Result Eq53(S const& s) {
  typename S::Value const x = 1.0 - s.T / s.c(2);
  auto const p1 = PowConst(x, 5.0 / 6.0);
  auto const p2 = PowConst(x, 1.208);
  auto const p3 = PowConst(x, 1.0 / 3.0);
  auto const A = -28.215 * p1 - 82.958 * p2 - 0.133 * p3 + x * (99.0 + x * (19.105 - 2.796 * x));
  auto const B = -2.467 * p1 - 77.521 * p2 + 6.537 * p3 + x * (59.634 + x * (36.009 - 14.606 * x));
  return kGasConstant * s.c(2) * (4.0 * (s.c(1) - 0.21) * A + B);
}

// Equation 54: With x = 1 - T/C3 and s = cbrt(x): R (C1 + C3 (H1 + C2 (H2 + H3)/4)) + (I - o)/f, I
// the component's ideal enthalpy at T, H1 = 1.45 (1 - x) - 0.45 ln x, H2 = 17.11 (1 - x)
// - 1.742 ln x, H3 = 25.2 (3s - sqrt(3) atan((1 + 2s)/sqrt(3)) - ln((s (1 + s) + 1)/(s - 1)^2)/2).
// Units: C1 K, C2, the acentric factor, no unit, C3, the critical temperature, K; I kJ/kg-mol.
template <typename S>
typename S::Result Eq54(S const& s) {
  double const root3 = SignedSqrt(3.0);
  typename S::Value const x = 1.0 - s.T / s.c(3);
  auto const r = Cbrt(x);
  auto const H1 = 1.45 * (1.0 - x) - 0.45 * Ln(x);
  auto const H2 = 17.11 * (1.0 - x) - 1.742 * Ln(x);
  auto const ratio = (r * (1.0 + r) + 1.0) / Square(r - 1.0);
  auto const H3 = 25.2 * (3.0 * r - root3 * Atan((1.0 + 2.0 * r) / root3) - 0.5 * Ln(ratio));
  typename S::Value const ideal = (s.Called(correlationIdealEnthalpy) - s.o()) / s.f();
  return kGasConstant * (s.c(1) + s.c(3) * (H1 + 0.25 * s.c(2) * (H2 + H3))) + ideal;
}

}  // namespace zel::forms

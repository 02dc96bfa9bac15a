// Numbers that carry derivatives, and the guarded functions that every equation form uses.
//
// A form is written once, as a template over its number types. With plain doubles it yields a
// value; with a Jet in the temperature also the derivatives with respect to the temperature; with a
// Jet in one coefficient the sensitivity to that coefficient. So a derivative cannot disagree with
// its form. Where a guard applies, the derivative is that of the guarded function.
#pragma once

#include <array>
#include <cmath>
#include <cstddef>
#include <type_traits>

#include "purecomp/compare_temperature.h"

// Inlines all that a function calls. Has no effect with AddressSanitizer, whose checks make such
// functions take minutes to compile.
#ifdef __SANITIZE_ADDRESS__
#define ZEL_FLATTEN gnu::noinline
#else
#define ZEL_FLATTEN gnu::flatten
#endif

namespace zel {

// A value and its first N derivatives with respect to one variable. V is the type of these numbers:
// doubles, or packs of doubles (pack.h).
template <int N, typename V = double>
struct Jet {
  static_assert(N >= 1 && N <= 3);
  static constexpr int kOrder = N;
  std::array<V, N + 1> d{};

  constexpr Jet() = default;
  constexpr Jet(V const& value) {
    d[0] = value;
  }  // NOLINT(google-explicit-constructor): a constant
  static constexpr Jet Variable(V const& value) {
    Jet jet(value);
    jet.d[1] = 1.0;
    return jet;
  }

  constexpr Jet& operator+=(Jet const& o) {
    for (std::size_t i = 0; i < d.size(); ++i) d[i] += o.d[i];
    return *this;
  }
  constexpr Jet& operator-=(Jet const& o) {
    for (std::size_t i = 0; i < d.size(); ++i) d[i] -= o.d[i];
    return *this;
  }
  constexpr Jet& operator*=(double k) {
    for (V& x : d) x *= k;
    return *this;
  }
};

template <typename T>
struct IsJet : std::false_type {};
template <int N, typename V>
struct IsJet<Jet<N, V>> : std::true_type {};

// The type of an expression of both: a Jet if either is one.
template <typename A, typename B>
using Wider = std::conditional_t<IsJet<A>::value, A, B>;

constexpr double ValueOf(double x) noexcept { return x; }
template <int N, typename V>
constexpr V ValueOf(Jet<N, V> const& x) noexcept {
  return x.d[0];
}

// A number of the temperature's type from derivatives with respect to the temperature.
template <int N>
Jet<N> FromDerivatives(Jet<N> const&, double const (&d)[4]) noexcept {
  Jet<N> jet(d[0]);
  for (std::size_t i = 1; i <= N; ++i) jet.d[i] = d[i];
  return jet;
}

// The function g of a Jet, from g and its derivatives at the Jet's value.
inline double Compose(double, double g0, double, double, double) noexcept { return g0; }
template <int N, typename V>
Jet<N, V> Compose(Jet<N, V> const& u, std::type_identity_t<V> const& g0,
                  std::type_identity_t<V> const& g1, std::type_identity_t<V> const& g2,
                  std::type_identity_t<V> const& g3) noexcept {
  Jet<N, V> r(g0);
  r.d[1] = g1 * u.d[1];
  if constexpr (N >= 2) r.d[2] = g2 * u.d[1] * u.d[1] + g1 * u.d[2];
  if constexpr (N >= 3) {
    r.d[3] = g3 * u.d[1] * u.d[1] * u.d[1] + 3.0 * g2 * u.d[1] * u.d[2] + g1 * u.d[3];
  }
  return r;
}

template <int N, typename V>
Jet<N, V> operator-(Jet<N, V> a) {
  return a *= -1.0;
}
template <int N, typename V>
Jet<N, V> operator+(Jet<N, V> a, Jet<N, V> const& b) {
  return a += b;
}
template <int N, typename V>
Jet<N, V> operator+(Jet<N, V> a, double b) {
  a.d[0] += b;
  return a;
}
template <int N, typename V>
Jet<N, V> operator+(double a, Jet<N, V> b) {
  b.d[0] += a;
  return b;
}
template <int N, typename V>
Jet<N, V> operator-(Jet<N, V> a, Jet<N, V> const& b) {
  return a -= b;
}
template <int N, typename V>
Jet<N, V> operator-(Jet<N, V> a, double b) {
  a.d[0] -= b;
  return a;
}
template <int N, typename V>
Jet<N, V> operator-(double a, Jet<N, V> b) {
  b *= -1.0;
  b.d[0] += a;
  return b;
}
template <int N, typename V>
Jet<N, V> operator*(Jet<N, V> a, double b) {
  return a *= b;
}
template <int N, typename V>
Jet<N, V> operator*(double a, Jet<N, V> b) {
  return b *= a;
}
template <int N, typename V>
Jet<N, V> operator*(Jet<N, V> const& a, Jet<N, V> const& b) {
  Jet<N, V> r(a.d[0] * b.d[0]);
  r.d[1] = a.d[1] * b.d[0] + a.d[0] * b.d[1];
  if constexpr (N >= 2) r.d[2] = a.d[2] * b.d[0] + 2.0 * a.d[1] * b.d[1] + a.d[0] * b.d[2];
  if constexpr (N >= 3) {
    r.d[3] = a.d[3] * b.d[0] + 3.0 * (a.d[2] * b.d[1] + a.d[1] * b.d[2]) + a.d[0] * b.d[3];
  }
  return r;
}
template <int N, typename V>
Jet<N, V> operator/(double a, Jet<N, V> const& b) {
  V const i = 1.0 / b.d[0];
  V const g0 = a / b.d[0];
  V const g1 = -g0 * i;
  V const g2 = -2.0 * g1 * i;
  return Compose(b, g0, g1, g2, -3.0 * g2 * i);
}
template <int N, typename V>
Jet<N, V> operator/(Jet<N, V> const& a, double b) {
  Jet<N, V> r;
  for (std::size_t i = 0; i < r.d.size(); ++i) r.d[i] = a.d[i] / b;
  return r;
}
template <int N, typename V>
Jet<N, V> operator/(Jet<N, V> const& a, Jet<N, V> const& b) {
  Jet<N, V> r = a * (1.0 / b);
  r.d[0] = a.d[0] / b.d[0];
  return r;
}

// --- guarded functions --------------------------------------------------------------------------

inline constexpr double kLnOfZero = -230.0;
inline constexpr double kExpLimit = 230.0;
inline constexpr double kExpHigh = 1e100;
inline constexpr double kExpLow = 1e-100;
inline constexpr double kClamp = 60.0;

// Natural logarithm of the absolute value; -230 at 0.
template <typename X>
X Ln(X const& x) {
  double const v = ValueOf(x);
  if (v == 0.0) return X(kLnOfZero);
  double const i = 1.0 / v;
  return Compose(x, std::log(std::fabs(v)), i, -i * i, 2.0 * i * i * i);
}

// Exponential; 1e100 above 230, 1e-100 below -230.
template <typename X>
X Exp(X const& x) {
  double const v = ValueOf(x);
  if (v > kExpLimit) return X(kExpHigh);
  if (v < -kExpLimit) return X(kExpLow);
  double const e = std::exp(v);
  return Compose(x, e, e, e, e);
}

// Limited to -60 to 60.
template <typename X>
X Clamp(X const& x) {
  double const v = ValueOf(x);
  if (v > kClamp) return X(kClamp);
  if (v < -kClamp) return X(-kClamp);
  return x;
}

// Exponential of the clamped argument: the last step of all vapor-pressure-like forms.
template <typename X>
X ExpClamped(X const& x) {
  return Exp(Clamp(x));
}

// Square root of the absolute value with the sign of x.
template <typename X>
X SignedSqrt(X const& x) {
  double const v = ValueOf(x);
  double const root = std::sqrt(std::fabs(v));
  double const g1 = 0.5 / root;
  double const g2 = -0.5 * g1 / v;
  return Compose(x, std::copysign(root, v), g1, g2, -1.5 * g2 / v);
}

// Plain square root: NaN below 0.
template <typename X>
X Sqrt(X const& x) {
  double const v = ValueOf(x);
  double const root = std::sqrt(v);
  double const g1 = 0.5 / root;
  double const g2 = -0.5 * g1 / v;
  return Compose(x, root, g1, g2, -1.5 * g2 / v);
}

// Real cube root with the sign of x.
template <typename X>
X Cbrt(X const& x) {
  double const v = ValueOf(x);
  double const root = std::cbrt(v);
  double const g1 = root / (3.0 * v);
  double const g2 = -2.0 / 3.0 * g1 / v;
  return Compose(x, root, g1, g2, -5.0 / 3.0 * g2 / v);
}

template <typename X>
X Abs(X const& x) {
  return ValueOf(x) < 0.0 ? X(-x) : x;
}

// The larger of x and a bound; at the bound the derivative is 0.
template <typename X>
X AtLeast(X const& x, double bound) {
  return ValueOf(x) > bound ? x : X(bound);
}

template <typename X>
X Tanh(X const& x) {
  double const v = ValueOf(x);
  double const t = std::tanh(v);
  double const c = std::cosh(v);
  double const g1 = 1.0 / (c * c);
  return Compose(x, t, g1, -2.0 * t * g1, g1 * (4.0 * t * t - 2.0 * g1));
}

// 1/tanh(x).
template <typename X>
X Coth(X const& x) {
  double const v = ValueOf(x);
  double const t = 1.0 / std::tanh(v);
  double const s = std::sinh(v);
  double const g1 = -1.0 / (s * s);
  return Compose(x, t, g1, -2.0 * t * g1, g1 * (4.0 * t * t - 2.0 * g1));
}

template <typename X>
X Atan(X const& x) {
  double const v = ValueOf(x);
  double const g1 = 1.0 / (1.0 + v * v);
  double const g2 = -2.0 * v * g1 * g1;
  return Compose(x, std::atan(v), g1, g2, (6.0 * v * v - 2.0) * g1 * g1 * g1);
}

// x to a constant power; the platform's power function, NaN for a negative base unless the power is
// an integer.
template <typename X>
X PowConst(X const& x, double c) {
  double const v = ValueOf(x);
  double const p = std::pow(v, c);
  if constexpr (!IsJet<X>::value) {
    return p;
  } else if (v != 0.0) {
    double const g1 = c * p / v;
    double const g2 = (c - 1.0) * g1 / v;
    return Compose(x, p, g1, g2, (c - 2.0) * g2 / v);
  } else {
    // A derivative whose factor is 0 stays 0, even though the power may be infinite.
    auto const term = [](double k, double e) { return k == 0.0 ? 0.0 : k * std::pow(0.0, e); };
    return Compose(x, p, term(c, c - 1.0), term(c * (c - 1.0), c - 2.0),
                   term(c * (c - 1.0) * (c - 2.0), c - 3.0));
  }
}

// x to any power.
template <typename X, typename E>
Wider<X, E> Pow(X const& x, E const& e) {
  if constexpr (!IsJet<E>::value) {
    return PowConst(x, e);
  } else {
    double const p = std::pow(ValueOf(x), ValueOf(e));
    return Compose(Wider<X, E>(e * Ln(x)), p, p, p, p);
  }
}

// x times its square root.
template <typename X>
X PowOneAndHalf(X const& x) {
  double const v = ValueOf(x);
  double const root = std::sqrt(v);
  return Compose(x, v * root, 1.5 * root, 0.75 / root, -0.375 / (v * root));
}

// x, or another value where it is below 0. NaN counts as below 0.
template <typename X>
X ReplaceBelow0(X const& x, double other) {
  return CompareTemperature(ValueOf(x), 0.0) < 0 ? X(other) : x;
}

template <typename X>
X Square(X const& x) {
  return x * x;
}
template <typename X>
X Cube(X const& x) {
  return x * x * x;
}

}  // namespace zel

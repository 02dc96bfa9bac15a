// The equations of the published correlations as one would write them for one purpose: a switch,
// the value and the first derivative, no guards, nothing shared between forms.
#pragma once

#include <array>
#include <cmath>
#include <cstdint>

namespace zel::bench {

struct HandRecord {
  std::int32_t equation;
  std::int32_t count;
  double b;  // 1, or ln 10 for decimal logarithms
  double factor;
  double Tc;
  double Pc;
  double tMin;
  double tMax;
  std::array<double, 15> c;
};

struct Point {
  double value;
  double slope;
};

namespace by_hand {

constexpr double kR = 8.314471;

inline Point Exponential(double sum, double slope) {
  double const e = std::exp(sum);
  return {e, e * slope};
}

inline Point Polynomial(double const* c, int n, double x) {
  double sum = c[n - 1];
  double slope = 0.0;
  for (int i = n - 2; i >= 0; --i) {
    slope = slope * x + sum;
    sum = sum * x + c[i];
  }
  return {sum, slope};
}

inline Point Watson(HandRecord const& r, double T) {
  double const tau = 1.0 - T / r.Tc;
  if (tau <= 1e-4) return {0.0, 0.0};
  Point const e = Polynomial(&r.c[1], r.count - 1, T / r.Tc);
  double const value = r.c[0] * std::pow(tau, e.value);
  return {value, value * (e.slope * std::log(tau) - e.value / tau) / r.Tc};
}

inline Point Rackett(HandRecord const& r, double T) {
  auto const& c = r.c;
  double const x = 1.0 - T / c[2];
  double const p = std::pow(x, c[3]);
  double const value = c[0] / std::pow(c[1], 1.0 + c[4] + p);
  return {value, value * std::log(c[1]) * c[3] * p / (x * c[2])};
}

inline Point Dippr102(HandRecord const& r, double T) {
  auto const& c = r.c;
  double const i = 1.0 / T;
  double const d = 1.0 + (c[2] + c[3] * i) * i;
  double const value = c[0] * std::pow(T, c[1]) / d;
  return {value, value * i * (c[1] + (c[2] + 2.0 * c[3] * i) * i / d)};
}

inline Point Dippr101(HandRecord const& r, double T) {
  auto const& c = r.c;
  double const i = 1.0 / T;
  double sum = c[0] + c[1] * i + c[2] * std::log(T);
  double slope = (c[2] - c[1] * i) * i;
  if (r.count == 4) sum += c[3];
  if (r.count >= 5) {
    double const p = c[3] * std::pow(T, c[4]);
    sum += p;
    slope += c[4] * p * i;
  }
  if (r.count >= 6) {
    double const T3 = T * T * T;
    sum += T3 * (c[5] + c[6] * T3) + (c[7] + c[8] * i * i) * i * i + c[9] * T * T;
    slope += T * T * (3.0 * c[5] + 6.0 * c[6] * T3) + 2.0 * c[9] * T -
             (2.0 * c[7] + 4.0 * c[8] * i * i) * i * i * i;
  }
  return Exponential(r.b * sum, r.b * slope);
}

inline Point Antoine(HandRecord const& r, double T) {
  auto const& c = r.c;
  double const i = 1.0 / (c[2] + T);
  double sum = c[0] + c[1] * i + T * (c[3] + T * c[4]);
  double slope = c[3] + 2.0 * c[4] * T - c[1] * i * i;
  if (c[5] != 0.0) {
    sum += c[5] * std::log(T);
    slope += c[5] / T;
  }
  return Exponential(r.b * sum, r.b * slope);
}

inline Point Wagner(HandRecord const& r, double T) {
  auto const& c = r.c;
  double const tau = 1.0 - T / r.Tc, root = std::sqrt(tau);
  double const t2 = tau * tau, t5 = t2 * t2 * tau;
  bool const is36 = r.equation == 47;
  double const u = is36 ? t2 * tau : t2 * root, du = is36 ? 3.0 * t2 : 2.5 * tau * root;
  double const v = is36 ? t5 * tau : t5, dv = is36 ? 6.0 * t5 : 5.0 * t2 * t2;
  double const sum = c[0] * tau + c[1] * tau * root + c[2] * u + c[3] * v;
  double const slope = c[0] + 1.5 * c[1] * root + c[2] * du + c[3] * dv;
  double const Tr = T / r.Tc;
  double const value = r.Pc / r.factor * std::exp(r.b * sum / Tr);
  return {value, value * r.b * (-slope - sum / Tr) / T};
}

inline Point Viscosity(HandRecord const& r, double T) {
  auto const& c = r.c;
  double const i = 1.0 / (T - c[3]);
  double const q = (c[2] - T) * i, dq = -(1.0 + q) * i;
  double const root = std::cbrt(q);
  double const value = c[4] * std::exp((c[0] + c[1] * q) * root);
  return {value, value * dq * root * (c[1] + (c[0] + c[1] * q) / (3.0 * q))};
}

inline Point AlyLee(HandRecord const& r, double T) {
  auto const& c = r.c;
  bool const is17 = r.equation == 17;
  double const third = is17 ? c[2] * c[3] : c[2], fifth = is17 ? c[4] * c[5] : c[4];
  double const u = c[3] / T, v = c[5] / T;
  double const su = std::sinh(u), cv = std::cosh(v);
  return {c[0] + c[1] * T + third / std::tanh(u) - fifth * std::tanh(v),
          c[1] + (third * u / (su * su) + fifth * v / (cv * cv)) / T};
}

inline Point Shomate(HandRecord const& r, double T) {
  auto const& c = r.c;
  Point p = Polynomial(c.data(), r.count < 5 ? r.count : 5, T);
  double const i = 1.0 / T;
  p.value += (c[5] + c[6] * i) * i;
  p.slope -= (c[5] + 2.0 * c[6] * i) * i * i;
  return p;
}

inline Point Dippr116(HandRecord const& r, double T) {
  auto const& c = r.c;
  double const tau = 1.0 - T / r.Tc;
  if (tau <= 1e-4) return {c[0], 0.0};
  double const p35 = std::pow(tau, 0.35), p13 = std::cbrt(tau);
  double const value = c[0] + c[1] * p35 + c[2] * p13 * p13 + c[3] * tau + c[4] * p13 * tau;
  double const slope =
      0.35 * c[1] * p35 / tau + 2.0 / 3.0 * c[2] / p13 + c[3] + 4.0 / 3.0 * c[4] * p13;
  return {value, -slope / r.Tc};
}

inline Point Ppds12(HandRecord const& r, double T) {
  auto const& c = r.c;
  double const tau = 1.0 - T / r.Tc;
  if (tau <= 1e-4) return {0.0, 0.0};
  double const y = std::cbrt(tau), t5 = tau * tau * tau * tau * tau;
  double const sum = y * (c[0] + c[1] * y) + tau * (c[2] + c[3] * tau + c[4] * t5);
  double const slope =
      (c[0] + 2.0 * c[1] * y) * y / (3.0 * tau) + c[2] + 2.0 * c[3] * tau + 6.0 * c[4] * t5;
  return {kR * r.Tc * sum, -kR * slope};
}

inline Point Trc(HandRecord const& r, double T) {
  auto const& c = r.c;
  double const e = c[2] * std::exp(-c[3] / T);
  double value = c[0] + c[1] * T + e / c[3], slope = c[1] + e / (T * T);
  if (T > c[8]) {
    double const span = c[8] + c[7], i = 1.0 / (T + c[7]), y = (T - c[8]) * i;
    double const rest = 1.0 - y, o = 1.0 / rest, y2 = y * y, y6 = y2 * y2 * y2;
    double const w = c[5] - c[6] / (span * span);
    double const P = c[5] * y2 * (3.0 + y * (5.0 / 3.0 + y * (1.0 + y * (0.6 + y / 3.0))));
    double const dP = c[5] * y * (6.0 + y * (5.0 + y * (4.0 + y * (3.0 + 2.0 * y))));
    double const q = 2.0 * c[4] + 8.0 * c[5], V = c[5] * (o + 7.0) + c[4] * (1.0 + o);
    value += span * (P + q * std::log(rest) / r.b + y * V + w * y6 * y / 7.0);
    slope += span * (dP - q * o / r.b + V + y * (c[5] + c[4]) * o * o + w * y6) * rest * i;
  }
  return {kR * value, kR * slope};
}

inline Point Dippr114(HandRecord const& r, double T) {
  auto const& c = r.c;
  double const t = 1.0 - T / r.Tc, t2 = t * t, t3 = t2 * t;
  if (t < 1e-4) return {0.0, 0.0};
  double const sum = c[1] * c[1] * std::log(t) + c[2] * t -
                     (c[1] * c[3] + c[3] * c[3] * t2 / 12.0) * t2 -
                     t3 * (c[1] * c[4] / 3.0 + (c[3] * c[4] / 10.0 + c[4] * c[4] * t / 30.0) * t2);
  double const slope = c[1] * c[1] / t + c[2] - 2.0 * c[1] * c[3] * t - c[3] * c[3] * t3 / 3.0 -
                       c[1] * c[4] * t2 - c[3] * c[4] * t2 * t2 / 2.0 - c[4] * c[4] * t2 * t3 / 5.0;
  return {c[0] - r.Tc * sum, slope};
}

}  // namespace by_hand

// NaN outside the range and for other equations.
inline Point ByHand(HandRecord const& r, double T) {
  using namespace by_hand;
  if (T < r.tMin || T > r.tMax) return {NAN, NAN};
  Point p{NAN, NAN};
  switch (r.equation) {
    case 1: p = Polynomial(r.c.data(), r.count, T); break;
    case 12: {
      Point const s = Polynomial(r.c.data(), r.count, 1.0 / T);
      p = Exponential(r.b * s.value, -r.b * s.slope / (T * T));
      break;
    }
    case 13: p = Viscosity(r, T); break;
    case 15: p = Watson(r, T); break;
    case 16: p = Rackett(r, T); break;
    case 17:
    case 117: p = AlyLee(r, T); break;
    case 19: p = Dippr102(r, T); break;
    case 20: p = Dippr101(r, T); break;
    case 21: p = Antoine(r, T); break;
    case 25: p = Shomate(r, T); break;
    case 32: p = Dippr116(r, T); break;
    case 36: p = Ppds12(r, T); break;
    case 40: p = Trc(r, T); break;
    case 46: p = Dippr114(r, T); break;
    case 47:
    case 48: p = Wagner(r, T); break;
    default: break;
  }
  return {p.value * r.factor, p.slope * r.factor};
}

}  // namespace zel::bench

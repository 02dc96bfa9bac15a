#include "purecomp/series.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace zel {
namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
// Powers that differ by less are equal; thirds do not add up to whole numbers exactly.
constexpr double kSamePower = 1e-9;
// A sum is only rounding error when it is smaller than this relative to its terms.
constexpr double kRounding = 1e-13;
// Terms of an expansion: enough for powers down to a tenth.
constexpr std::size_t kTerms = 32;
using Expansion = std::array<double, kTerms>;

double WholeIfNear(double power) {
  double const whole = std::round(power);
  return std::fabs(power - whole) < kSamePower ? whole : power;
}

}  // namespace

Series::Series(double value) { Add({0.0, value}); }

Series Series::Variable(double value, double side) {
  Series x(value);
  x.Add({1.0, side});
  return x;
}

void Series::Add(Term term) {
  term.power = WholeIfNear(term.power);
  if (term.factor == 0.0 || term.power > kOrder) return;
  std::size_t at = 0;
  while (at < count_ && terms_[at].power < term.power - kSamePower) ++at;
  auto const place = terms_.begin() + static_cast<std::ptrdiff_t>(at);
  auto const end = terms_.begin() + static_cast<std::ptrdiff_t>(count_);
  if (at < count_ && place->power <= term.power + kSamePower) {
    double const sum = place->factor + term.factor;
    double const size = std::fabs(place->factor) + std::fabs(term.factor);
    place->factor = sum;
    if (!(std::fabs(sum) <= kRounding * size)) return;
    std::copy(place + 1, end, place);
    --count_;
    return;
  }
  if (at == kMost) return;
  if (count_ < kMost) ++count_;
  std::copy_backward(place, terms_.begin() + static_cast<std::ptrdiff_t>(count_) - 1,
                     terms_.begin() + static_cast<std::ptrdiff_t>(count_));
  *place = term;
}

double Series::Value() const noexcept {
  if (count_ == 0 || terms_[0].power > 0.0) return 0.0;
  Term const& first = terms_[0];
  return first.power == 0.0 ? first.factor
                            : std::copysign(std::numeric_limits<double>::infinity(), first.factor);
}

double Series::Derivative(int order) const noexcept {
  for (std::size_t i = 0; i < count_; ++i) {
    double factor = terms_[i].factor;
    for (int k = 0; k < order; ++k) factor *= terms_[i].power - k;
    if (factor == 0.0) continue;
    double const power = terms_[i].power - order;
    if (power > 0.0) return 0.0;
    if (power == 0.0 || std::isnan(factor)) return factor;
    return std::copysign(std::numeric_limits<double>::infinity(), factor);
  }
  return 0.0;
}

Series& Series::operator+=(Series const& o) {
  for (std::size_t i = 0; i < o.count_; ++i) Add(o.terms_[i]);
  return *this;
}

Series& Series::operator*=(double k) {
  Series const old = *this;
  count_ = 0;
  for (std::size_t i = 0; i < old.count_; ++i) {
    Add({old.terms_[i].power, old.terms_[i].factor * k});
  }
  return *this;
}

Series operator*(Series const& a, Series const& b) {
  Series product;
  for (std::size_t i = 0; i < a.count_; ++i) {
    for (std::size_t j = 0; j < b.count_; ++j) {
      product.Add({a.terms_[i].power + b.terms_[j].power, a.terms_[i].factor * b.terms_[j].factor});
    }
  }
  return product;
}

template <std::size_t Count>
Series Series::Taylor(std::array<double, Count> const& g) const {
  Series rest = *this;
  rest += Series(-Value());
  std::size_t needed = Count;  // for the powers that are kept
  if (rest.count_ == 0)
    needed = 1;
  else if (double const lowest = rest.terms_[0].power; lowest > 0.0) {
    needed = std::min(Count, static_cast<std::size_t>(kOrder / lowest + kSamePower) + 1);
  }
  Series sum;
  for (std::size_t k = needed; k-- > 0;) {
    sum = sum * rest;
    sum += Series(g[k]);
  }
  return sum;
}

// The leading term to the power c, times (1 + the others relative to it) to the power c.
Series PowConst(Series const& x, double c) {
  if (x.count_ == 0) return {std::pow(0.0, c)};
  Series::Term const& first = x.terms_[0];
  Series ratio(1.0);
  for (std::size_t i = 1; i < x.count_; ++i) {
    ratio.Add({x.terms_[i].power - first.power, x.terms_[i].factor / first.factor});
  }
  Expansion binomial;
  binomial[0] = 1.0;
  for (std::size_t k = 1; k < kTerms; ++k) {
    auto const n = static_cast<double>(k);
    binomial[k] = binomial[k - 1] * (c - n + 1.0) / n;
  }
  Series const power = ratio.Taylor(binomial);
  Series result;
  double const factor = std::pow(first.factor, c);
  for (std::size_t i = 0; i < power.count_; ++i) {
    result.Add({power.terms_[i].power + first.power * c, power.terms_[i].factor * factor});
  }
  return result;
}

Series Abs(Series const& x) { return x.LeadsNegative() ? -x : x; }

Series Cbrt(Series const& x) {
  constexpr double kThird = 1.0 / 3.0;
  return x.LeadsNegative() ? -PowConst(-x, kThird) : PowConst(x, kThird);
}

Series Ln(Series const& x) {
  double const v = x.Value();
  if (v == 0.0) return {kLnOfZero};
  Expansion g;
  g[0] = std::log(std::fabs(v));
  double power = -1.0;
  for (std::size_t k = 1; k < kTerms; ++k) {
    power /= -v;
    g[k] = power / static_cast<double>(k);
  }
  return x.Taylor(g);
}

Series Exp(Series const& x) {
  double const v = x.Value();
  if (v > kExpLimit) return {kExpHigh};
  if (v < -kExpLimit) return {kExpLow};
  Expansion g;
  g[0] = std::exp(v);
  for (std::size_t k = 1; k < kTerms; ++k) g[k] = g[k - 1] / static_cast<double>(k);
  return x.Taylor(g);
}

// From (1 + x^2) f' = 1.
Series Atan(Series const& x) {
  double const v = x.Value();
  Expansion g;
  g[0] = std::atan(v);
  g[1] = 1.0 / (1.0 + v * v);
  for (std::size_t k = 1; k + 1 < kTerms; ++k) {
    auto const n = static_cast<double>(k);
    double const before = k >= 2 ? (n - 1.0) * g[k - 1] : 0.0;
    g[k + 1] = -(2.0 * v * n * g[k] + before) * g[1] / (n + 1.0);
  }
  return x.Taylor(g);
}

Series Pow(Series const& x, Series const& e) {
  if (e.IsConstant()) return PowConst(x, e.Value());
  double const v = x.Value();
  if (v == 0.0) return {e.Value() > 0.0 ? 0.0 : kNaN};
  if (v < 0.0) return {kNaN};
  Series const power = e * Ln(x);
  Expansion g;
  g[0] = std::exp(power.Value());
  for (std::size_t k = 1; k < kTerms; ++k) g[k] = g[k - 1] / static_cast<double>(k);
  return power.Taylor(g);
}

Series FromDerivatives(Series const& T, double const (&d)[4]) {
  Series const step = T - T.Value();
  return step.Taylor(std::array<double, 4>{d[0], d[1], d[2] / 2.0, d[3] / 6.0});
}

}  // namespace zel

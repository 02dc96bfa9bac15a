#include "desk/pages/sampled_curve.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace zel::desk {
namespace {

constexpr double kTolerance = 1e-5;
constexpr double kFloor = 1e-3;      // of the greatest value
constexpr double kNarrowest = 1e-6;  // of the range
constexpr int kKinds = 64;           // factor of the kind
constexpr int kLog = 1;
constexpr int kEnd = 2;
// Each set of points holds the one before it, and the check points hold all.
constexpr std::size_t kChecks = 65;
constexpr std::size_t kPoints[] = {2, 3, 5, 9, 17, 33};
constexpr double kRoot = 8;
constexpr double kPi = 3.14159265358979323846;

double Node(std::size_t j, std::size_t count) {
  return std::cos(static_cast<double>(j) * kPi / static_cast<double>(count - 1));
}

double Interpolate(float const* values, std::size_t count, double x) {
  double above = 0.0;
  double below = 0.0;
  for (std::size_t j = 0; j < count; ++j) {
    double const distance = x - Node(j, count);
    if (distance == 0.0) return static_cast<double>(values[j]);
    double weight = (j % 2 == 1 ? -1.0 : 1.0) / distance;
    if (j == 0 || j == count - 1) weight /= 2;
    above += weight * static_cast<double>(values[j]);
    below += weight;
  }
  return above / below;
}

// The temperature at a place between -1 and 1 of a piece, and the place of a temperature.
double TemperatureAt(double x, double low, double high, bool isEnd) {
  if (!isEnd) return low + (high - low) * (1 + x) / 2;
  return high - (high - low) * std::pow((1 - x) / 2, kRoot);
}
double PlaceOf(double kelvin, double low, double high, bool isEnd) {
  if (!isEnd) return 2 * (kelvin - low) / (high - low) - 1;
  return 1 - 2 * std::pow((high - kelvin) / (high - low), 1 / kRoot);
}

class Sampler {
 public:
  Sampler(TemperatureFunction const& function, double low, double high)
      : function_(function), narrowest_((high - low) * kNarrowest), end_(high) {
    for (std::size_t j = 0; j < kChecks; ++j) {
      std::optional<double> const y = function(TemperatureAt(Node(j, kChecks), low, high, false));
      if (y) most_ = std::max(most_, std::abs(*y));
    }
  }

  SampledCurve Run(float low, float high) {
    curve_.numbers = {0.0F, low};
    Divide(low, high);
    curve_.numbers[0] = static_cast<float>(pieces_);
    return std::move(curve_);
  }

 private:
  using Values = std::vector<std::optional<double>>;

  Values CheckValues(double low, double high, bool isEnd) const {
    Values values(kChecks);
    for (std::size_t j = 0; j < kChecks; ++j) {
      double const kelvin = TemperatureAt(Node(j, kChecks), low, high, isEnd);
      values[j] = function_(std::clamp(kelvin, low, high));
    }
    return values;
  }

  static double ErrorOf(double computed, double value, double floor) {
    return std::abs(computed - value) / std::max(std::abs(value), floor);
  }

  // Stores the piece with as few points as are sufficient; false if the greatest number is not.
  bool Fits(Values const& values, float high, int kind) {
    bool const isLog = (kind & kLog) != 0;
    double const floor = IsPositive(values) ? 0.0 : most_ * kFloor;
    for (std::size_t const count : kPoints) {
      std::size_t const stride = (kChecks - 1) / (count - 1);
      std::vector<float> points(count);
      for (std::size_t j = 0; j < count; ++j) {
        double const value = *values[j * stride];
        points[j] = static_cast<float>(isLog ? std::log(value) : value);
      }
      double worst = 0.0;
      for (std::size_t j = 0; j < kChecks && worst <= kTolerance; ++j) {
        double const y = Interpolate(points.data(), count, Node(j, kChecks));
        worst = std::max(worst, ErrorOf(isLog ? std::exp(y) : y, *values[j], floor));
      }
      if (!(worst <= kTolerance)) continue;
      curve_.error = std::max(curve_.error, worst);
      Store(high, kind, points);
      return true;
    }
    return false;
  }

  void Store(float high, int kind, std::vector<float> const& points) {
    ++pieces_;
    curve_.numbers.push_back(high);
    curve_.numbers.push_back(static_cast<float>(kKinds * kind + static_cast<int>(points.size())));
    curve_.numbers.insert(curve_.numbers.end(), points.begin(), points.end());
  }

  static bool IsWhole(Values const& values) {
    return std::all_of(values.begin(), values.end(), [](auto const& one) { return one; });
  }
  static bool IsPositive(Values const& values) {
    return std::all_of(values.begin(), values.end(), [](auto const& one) { return *one > 0.0; });
  }

  bool FitsAnyKind(Values const& values, float high, int kind) {
    if (!IsWhole(values)) return false;
    return Fits(values, high, kind) || (IsPositive(values) && Fits(values, high, kind | kLog));
  }

  void Divide(float low, float high) {
    Values const values = CheckValues(low, high, false);
    if (std::none_of(values.begin(), values.end(), [](auto const& one) { return one; })) {
      return Store(high, 0, {});
    }
    if (FitsAnyKind(values, high, 0)) return;
    if (static_cast<double>(high) >= end_ && FitsAnyKind(CheckValues(low, high, true), high, kEnd))
      return;
    float const middle = low + (high - low) / 2;
    bool const isNarrow = static_cast<double>(high - low) <= narrowest_;
    if (isNarrow || !(middle > low && middle < high)) return StoreJump(values, high);
    Divide(low, middle);
    Divide(middle, high);
  }

  // Around a jump the ends of the piece are joined; a piece with an end without a value has none.
  void StoreJump(Values const& values, float high) {
    if (!values.front() || !values.back()) return Store(high, 0, {});
    Store(high, 0, {static_cast<float>(*values.front()), static_cast<float>(*values.back())});
  }

  TemperatureFunction const& function_;
  double narrowest_;
  double end_;
  double most_ = 0.0;
  int pieces_ = 0;
  SampledCurve curve_;
};

}  // namespace

SampledCurve Sample(TemperatureFunction const& function, double low, double high) {
  // The ends that are stored are within the range, where the function does not extrapolate.
  auto first = static_cast<float>(low);
  auto last = static_cast<float>(high);
  if (static_cast<double>(first) < low) first = std::nextafterf(first, last);
  if (static_cast<double>(last) > high) last = std::nextafterf(last, first);
  if (!(first < last)) return {};
  return Sampler(function, static_cast<double>(first), static_cast<double>(last)).Run(first, last);
}

std::optional<double> ValueOf(SampledCurve const& curve, double kelvin) {
  if (curve.numbers.empty()) return {};
  auto const pieces = static_cast<int>(curve.numbers[0]);
  auto low = static_cast<double>(curve.numbers[1]);
  std::size_t at = 2;
  for (int i = 0; i < pieces; ++i) {
    auto const high = static_cast<double>(curve.numbers[at]);
    int const code = static_cast<int>(curve.numbers[at + 1]);
    auto const count = static_cast<std::size_t>(code % kKinds);
    int const kind = code / kKinds;
    if (kelvin >= low && kelvin <= high) {
      if (count == 0) return {};
      double const x = PlaceOf(kelvin, low, high, (kind & kEnd) != 0);
      double const y = Interpolate(&curve.numbers[at + 2], count, x);
      return (kind & kLog) != 0 ? std::exp(y) : y;
    }
    at += 2 + count;
    low = high;
  }
  return {};
}

}  // namespace zel::desk

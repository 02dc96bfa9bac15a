#include "desk/compare/curve_deviation.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

#include "desk/words/number_range.h"

namespace zel::desk {
namespace {

struct Sample {
  double kelvin;
  double first;
  double second;
};

// The limit that holds for both; undefined if neither has one.
template <typename Choose>
double Common(double one, double other, Choose const& choose) {
  if (zel::gen_IsUndefDouble(one)) return other;
  if (zel::gen_IsUndefDouble(other)) return one;
  return choose(one, other);
}

std::vector<Sample> Samples(PureComponent const& one, Curve const& first,
                            PureComponent const& other, Curve const& second, std::uint32_t index,
                            CurveDeviation const& range, int steps) {
  std::vector<Sample> samples;
  int const last = range.from < range.to ? steps : 0;
  for (int i = 0; i <= last; ++i) {
    double const kelvin = i == steps ? range.to : range.from + (range.to - range.from) * i / steps;
    Point const a = one.At(index, zel::ConvertTemperature(kelvin, kKelvin, first.tempUnit));
    Point const b = other.At(index, zel::ConvertTemperature(kelvin, kKelvin, second.tempUnit));
    if (a.there && b.there) samples.push_back({kelvin, a.value, b.value});
  }
  return samples;
}

}  // namespace

double LimitInKelvin(double limit, Curve const& curve) {
  if (zel::gen_IsUndefDouble(limit)) return limit;
  return zel::ConvertTemperature(limit, curve.tempUnit, kKelvin);
}

double Deviation(double first, double second, double scale) {
  if (first == second) return 0.0;
  if (scale == 0.0) return std::numeric_limits<double>::infinity();
  return (second - first) / std::abs(scale);
}

CurveDeviation DeviationOf(PureComponent const& one, PureComponent const& other,
                           std::uint32_t index, int steps) {
  Curve const first = one.ReadCurve(index);
  Curve const second = other.ReadCurve(index);
  CurveDeviation result;
  result.from = Common(LimitInKelvin(first.tMin, first), LimitInKelvin(second.tMin, second),
                       [](double a, double b) { return std::max(a, b); });
  result.to = Common(LimitInKelvin(first.tMax, first), LimitInKelvin(second.tMax, second),
                     [](double a, double b) { return std::min(a, b); });
  if (zel::gen_IsUndefDouble(result.from) || zel::gen_IsUndefDouble(result.to)) {
    result.why = "the records have no limits";
    return result;
  }
  if (result.from > result.to) {
    result.why =
        "no common range: " + CellText(RangeOf(first, {})) + ", " + CellText(RangeOf(second, {}));
    return result;
  }
  auto const samples = Samples(one, first, other, second, index, result, steps);
  result.points = static_cast<int>(samples.size());
  if (samples.empty()) {
    result.why = "no values in the common range";
    return result;
  }
  double greatest = 0.0;
  bool changesSign = false;
  for (Sample const& sample : samples) {
    greatest = std::max(greatest, std::abs(sample.first));
    changesSign = changesSign || sample.first * samples.front().first < 0.0;
  }
  double sum = 0.0;
  for (Sample const& sample : samples) {
    bool const isWhole = changesSign || sample.first == 0.0;
    double const deviation =
        Deviation(sample.first, sample.second, isWhole ? greatest : sample.first);
    sum += std::abs(deviation);
    bool const isFirst = &sample == &samples.front();
    if (!isFirst && std::abs(deviation) <= std::abs(result.greatest)) continue;
    result.greatest = deviation;
    result.at = sample.kelvin;
    result.first = sample.first;
    result.second = sample.second;
  }
  result.mean = sum / static_cast<double>(samples.size());
  return result;
}

}  // namespace zel::desk

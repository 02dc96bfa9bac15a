#include "desk/compare/curve_deviation.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>
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

// The deviation as a function of the temperature.
class Deviations {
 public:
  Deviations(PureComponent const& one, Curve const& first, PureComponent const& other,
             Curve const& second, std::uint32_t index)
      : one_(one), first_(first), other_(other), second_(second), index_(index) {}

  std::optional<Sample> At(double kelvin) const {
    Point const a = one_.At(index_, zel::ConvertTemperature(kelvin, kKelvin, first_.tempUnit));
    Point const b = other_.At(index_, zel::ConvertTemperature(kelvin, kKelvin, second_.tempUnit));
    if (!a.there || !b.there) return std::nullopt;
    return Sample{kelvin, a.value, b.value};
  }
  void SetScale(std::vector<Sample> const& samples) {
    for (Sample const& sample : samples) {
      greatest_ = std::max(greatest_, std::abs(sample.first));
      changesSign_ = changesSign_ || sample.first * samples.front().first < 0.0;
    }
  }
  bool IsRelativeToGreatest(Sample const& sample) const {
    return changesSign_ || sample.first == 0.0;
  }
  double Of(Sample const& sample) const {
    return Deviation(sample.first, sample.second,
                     IsRelativeToGreatest(sample) ? greatest_ : sample.first);
  }

 private:
  PureComponent const& one_;
  Curve const& first_;
  PureComponent const& other_;
  Curve const& second_;
  std::uint32_t index_;
  double greatest_ = 0.0;
  bool changesSign_ = false;
};

std::vector<Sample> Samples(Deviations const& deviations, CurveDeviation const& range, int steps) {
  std::vector<Sample> samples;
  int const last = range.from < range.to ? steps : 0;
  for (int i = 0; i <= last; ++i) {
    double const kelvin = i == steps ? range.to : range.from + (range.to - range.from) * i / steps;
    std::optional<Sample> const sample = deviations.At(kelvin);
    if (sample) samples.push_back(*sample);
  }
  return samples;
}

// The greatest deviation with the sign of that of `top`, between its neighbors, by golden section.
Sample Refined(Deviations const& deviations, Sample const& low, Sample const& top,
               Sample const& high) {
  if (top.first == 0.0) return top;
  double const sign = deviations.Of(top) < 0.0 ? -1.0 : 1.0;
  auto const height = [&](std::optional<Sample> const& sample) {
    return sample ? sign * deviations.Of(*sample) : -std::numeric_limits<double>::infinity();
  };
  constexpr double kGolden = 0.6180339887498949;
  constexpr int kMostParts = 40;  // 0.618^40 is 4e-9
  constexpr double kNear = 1e-6;
  // A deviation relative to the value has no limit next to a value of 0.
  auto const isZero = [&](Sample const& end) {
    return deviations.IsRelativeToGreatest(end) && !deviations.IsRelativeToGreatest(top);
  };
  double from = low.kelvin;
  double to = high.kelvin;
  double const width = to - from;
  std::optional<Sample> left = deviations.At(to - kGolden * width);
  std::optional<Sample> right = deviations.At(from + kGolden * width);
  for (int i = 0; i < kMostParts; ++i) {
    if (height(left) >= height(right)) {
      to = from + kGolden * (to - from);
      right = left;
      left = deviations.At(to - kGolden * (to - from));
    } else {
      from = to - kGolden * (to - from);
      left = right;
      right = deviations.At(from + kGolden * (to - from));
    }
  }
  bool const isAtZero = (isZero(low) && std::abs(from - low.kelvin) < kNear * width) ||
                        (isZero(high) && std::abs(to - high.kelvin) < kNear * width);
  if (isAtZero) return top;
  std::optional<Sample> const& best = height(left) >= height(right) ? left : right;
  return height(best) > height(top) ? *best : top;
}

// The samples with more of them within the last step to either end, each at half the distance of
// the one before: near a critical temperature, values change over very small differences. Not at an
// end where the value is 0, next to which a relative deviation has no limit.
std::vector<Sample> DenserAtEnds(Deviations const& deviations, std::vector<Sample> samples) {
  if (samples.size() < 2) return samples;
  constexpr int kHalvings = 10;
  Sample const ends[2][2] = {{samples.front(), samples[1]},
                             {samples.back(), samples[samples.size() - 2]}};
  for (auto const& [end, next] : ends) {
    if (end.first == 0.0) continue;
    double distance = next.kelvin - end.kelvin;
    for (int i = 0; i < kHalvings; ++i) {
      distance /= 2.0;
      std::optional<Sample> const sample = deviations.At(end.kelvin + distance);
      if (sample) samples.push_back(*sample);
    }
  }
  std::sort(samples.begin(), samples.end(),
            [](Sample const& a, Sample const& b) { return a.kelvin < b.kelvin; });
  return samples;
}

// The greatest deviation: that of the grid, and those at its greatest peaks, refined.
Sample GreatestOf(Deviations const& deviations, std::vector<Sample> const& samples) {
  auto const size = [&](std::size_t i) { return std::abs(deviations.Of(samples[i])); };
  std::vector<std::size_t> peaks;
  for (std::size_t i = 0; i < samples.size(); ++i) {
    bool const isAboveLast = i == 0 || size(i) >= size(i - 1);
    bool const isAboveNext = i + 1 == samples.size() || size(i) >= size(i + 1);
    if (isAboveLast && isAboveNext) peaks.push_back(i);
  }
  std::stable_sort(peaks.begin(), peaks.end(),
                   [&](std::size_t a, std::size_t b) { return size(a) > size(b); });
  constexpr std::size_t kMostPeaks = 3;
  if (peaks.size() > kMostPeaks) peaks.resize(kMostPeaks);
  Sample best = samples.front();
  for (std::size_t const i : peaks) {
    Sample const& low = samples[i == 0 ? 0 : i - 1];
    Sample const& high = samples[std::min(i + 1, samples.size() - 1)];
    Sample const found = Refined(deviations, low, samples[i], high);
    if (std::abs(deviations.Of(found)) > std::abs(deviations.Of(best))) best = found;
  }
  return best;
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
  Deviations deviations(one, first, other, second, index);
  auto const samples = Samples(deviations, result, steps);
  result.points = static_cast<int>(samples.size());
  if (samples.empty()) {
    result.why = "no values in the common range";
    return result;
  }
  deviations.SetScale(samples);
  double sum = 0.0;
  for (Sample const& sample : samples) sum += std::abs(deviations.Of(sample));
  result.mean = sum / static_cast<double>(samples.size());
  Sample const best = GreatestOf(deviations, DenserAtEnds(deviations, samples));
  result.greatest = deviations.Of(best);
  result.at = best.kelvin;
  result.first = best.first;
  result.second = best.second;
  return result;
}

}  // namespace zel::desk

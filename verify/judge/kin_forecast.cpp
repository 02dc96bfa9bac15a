#include "verify/judge/kin_forecast.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "verify/judge/robust_regression.h"

namespace zel {
namespace {

constexpr std::size_t kNeighbours = 8;
constexpr std::size_t kFewestNeighbours = 4;
constexpr double kSigmas = 3.0;
// The tolerance in the scales of the substances: three, or what 95 in 100 residuals do not exceed,
// and a margin.
constexpr double kShare = 0.95;
constexpr double kMargin = 1.3;
// The factor for the tolerance of a substance that is the only one with a feature of a better set.
constexpr double kUnlike = 3.0;

bool IsUsable(double observed) { return IsDefined(observed) && !std::isnan(observed); }

// What a fit gives for a substance.
struct Estimate {
  double foretold = gen_GetUndefDouble();  // undefined: nothing
  double leverage = 0.0;
  double residual = 0.0;  // observed - foretold, of a substance of the fit
  bool isOfFit = false;
  bool isByItself = false;  // other substances say little about it
};

// The estimates by substance, from a regression or corrected by kin.
class Scatter {
 public:
  Scatter(KinFeatures const& kin, std::vector<Estimate> estimates)
      : kin_(kin), estimates_(std::move(estimates)) {
    sigma_ = SigmaOf(estimates_);
  }

  // Subtracts what the residuals of the nearest kin have in common.
  void Correct() {
    std::vector<Estimate> corrected = estimates_;
    for (std::uint32_t i = 0; i < estimates_.size(); ++i) {
      if (!IsDefined(estimates_[i].foretold)) continue;
      double const common = CommonNear(i);
      corrected[i].foretold += common;
      corrected[i].residual -= common;
    }
    estimates_ = std::move(corrected);
    sigma_ = SigmaOf(estimates_);
  }

  // Sets the tolerances; returns their median.
  double Calibrate(double floor);
  bool IsByItself(std::uint32_t i) const { return estimates_[i].isByItself; }
  double ValueOf(std::uint32_t i) const { return estimates_[i].foretold; }
  double ToleranceOf(std::uint32_t i) const { return tolerances_[i]; }

 private:
  static double SigmaOf(std::vector<Estimate> const& estimates) {
    std::vector<double> off;
    for (Estimate const& one : estimates) {
      if (one.isOfFit) off.push_back(std::abs(one.residual));
    }
    return kSigmaPerMad * MedianOf(std::move(off));
  }

  // Calls `visit` with the residual and the distance of near kin of the fit.
  template <typename Visit>
  std::size_t VisitNear(std::uint32_t i, Visit const& visit) const {
    std::size_t count = 0;
    for (KinFeatures::Near const& near : kin_.NearestOf(i)) {
      if (!estimates_[near.substance].isOfFit) continue;
      visit(estimates_[near.substance].residual, near.distance);
      if (++count == kNeighbours) break;
    }
    return count;
  }

  double CommonNear(std::uint32_t i) const {
    constexpr double kNear = 0.3;  // smaller distances count as this
    constexpr double kShrink = 1.0;
    double sum = 0.0, weights = kShrink;
    constexpr double kMost = 2.0;  // sigmas, of one of them
    double const limit = kMost * sigma_;
    VisitNear(i, [&](double residual, double distance) {
      double const weight = 1.0 / (kNear + distance);
      sum += weight * std::clamp(residual, -limit, limit);
      weights += weight;
    });
    return sum / weights;
  }

  // The scale of the residuals around a substance: half of it from all substances, half from near
  // ones.
  double ScaleOf(std::uint32_t i) const {
    constexpr std::size_t kClosest = 3;
    constexpr double kFarther = 0.15;
    std::array<double, kNeighbours> off{};
    double far = 0.0;
    std::size_t met = 0;
    std::size_t const count = VisitNear(i, [&](double residual, double distance) {
      if (met < kClosest) far += distance / kClosest;
      off[met++] = std::abs(residual);
    });
    double near = 3.0 * sigma_;  // nothing is known of kin
    if (count >= kFewestNeighbours) {
      std::sort(off.begin(), off.begin() + static_cast<std::ptrdiff_t>(count));
      near = kSigmaPerMad * off[count / 2];
    }
    double const scale = std::sqrt((sigma_ * sigma_ + near * near) / 2.0);
    return scale * std::sqrt((1.0 + kFarther * far) * (1.0 + estimates_[i].leverage));
  }

  KinFeatures const& kin_;
  std::vector<Estimate> estimates_;
  double sigma_;
  std::vector<double> tolerances_;
};

double Scatter::Calibrate(double floor) {
  tolerances_.assign(estimates_.size(), 0.0);
  std::vector<double> ratios;
  for (std::uint32_t i = 0; i < estimates_.size(); ++i) {
    if (!IsDefined(estimates_[i].foretold)) continue;
    tolerances_[i] = std::max(ScaleOf(i), 1e-12);
    if (estimates_[i].isOfFit) ratios.push_back(std::abs(estimates_[i].residual) / tolerances_[i]);
  }
  double const sigmas = std::max(kSigmas, kMargin * QuantileOf(std::move(ratios), kShare));
  std::vector<double> known;
  for (std::uint32_t i = 0; i < estimates_.size(); ++i) {
    tolerances_[i] = std::max(floor, sigmas * tolerances_[i]);
    if (estimates_[i].isOfFit) known.push_back(tolerances_[i]);
  }
  return MedianOf(std::move(known));
}

// The estimates by a regression; empty if there are too few substances.
std::vector<Estimate> EstimatesOf(KinFeatures const& kin, FeatureSet const& set,
                                  std::vector<double> const& observed) {
  std::size_t const count = KinFeatures::CountOf(set);
  std::vector<double> rows, values;
  std::vector<Estimate> estimates(kin.Count());
  std::vector<std::uint32_t> fitted;
  std::vector<bool> isFitted(kin.Count(), false);
  for (std::uint32_t const i : kin.Sample()) {
    if (!IsUsable(observed[i]) || !kin.Append(i, set, rows)) continue;
    values.push_back(observed[i]);
    fitted.push_back(i);
  }
  auto const fit = RobustRegression::Fit(rows, count, values);
  if (!fit) return {};
  for (std::size_t k = 0; k < fitted.size(); ++k) {
    auto const& [residual, leverage, isByItself] = fit->Of(k);
    isFitted[fitted[k]] = true;
    estimates[fitted[k]].isByItself = isByItself;
    if (isByItself) continue;
    estimates[fitted[k]] = {values[k] - residual, leverage, residual, true};
  }
  for (std::uint32_t i = 0; i < kin.Count(); ++i) {
    if (isFitted[i] || !IsDefined(observed[i])) continue;
    rows.clear();
    if (!kin.Append(i, set, rows)) continue;
    auto const [value, leverage] = fit->At(rows);
    estimates[i] = {value, leverage};
  }
  return estimates;
}

struct Tried {
  double tolerance;  // the median
  std::uint8_t set;
  Scatter scatter;
};

// Whether at least one in twenty substances is without a forecast.
bool IsWanting(std::vector<double> const& observed, std::vector<Tried> const& tried) {
  std::size_t wanted = 0, missing = 0;
  for (std::uint32_t i = 0; i < observed.size(); ++i) {
    if (!IsDefined(observed[i])) continue;
    ++wanted;
    bool const isForetold = std::any_of(tried.begin(), tried.end(), [&](Tried const& one) {
      return IsDefined(one.scatter.ValueOf(i));
    });
    if (!isForetold) ++missing;
  }
  return 20 * missing > wanted;
}

}  // namespace

std::vector<Forecast> ForecastOf(KinFeatures const& kin, std::span<FeatureSet const> sets,
                                 std::vector<double> const& observed, double floor) {
  std::vector<Tried> tried;
  for (std::size_t set = 0; set < sets.size(); ++set) {
    if (sets[set].isSpare && !IsWanting(observed, tried)) continue;
    auto estimates = EstimatesOf(kin, sets[set], observed);
    if (estimates.empty()) continue;
    Scatter plain(kin, std::move(estimates));
    Scatter corrected = plain;
    corrected.Correct();
    double const plainTolerance = plain.Calibrate(floor);
    double const correctedTolerance = corrected.Calibrate(floor);
    bool const isBetter = correctedTolerance < plainTolerance;
    tried.push_back({std::min(plainTolerance, correctedTolerance), static_cast<std::uint8_t>(set),
                     std::move(isBetter ? corrected : plain)});
  }
  std::vector<Tried const*> order(tried.size());
  std::transform(tried.begin(), tried.end(), order.begin(), [](Tried const& one) { return &one; });
  std::stable_sort(order.begin(), order.end(),
                   [](Tried const* a, Tried const* b) { return a->tolerance < b->tolerance; });
  std::vector<Forecast> forecasts(kin.Count());
  for (std::uint32_t i = 0; i < kin.Count(); ++i) {
    double widening = 1.0;
    for (Tried const* const one : order) {
      if (one->scatter.IsByItself(i)) widening = kUnlike;
      if (!IsDefined(one->scatter.ValueOf(i))) continue;
      forecasts[i] = {one->scatter.ValueOf(i), widening * one->scatter.ToleranceOf(i), one->set};
      break;
    }
  }
  return forecasts;
}

}  // namespace zel

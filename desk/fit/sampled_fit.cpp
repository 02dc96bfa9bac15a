#include "desk/fit/sampled_fit.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "desk/words/failure.h"
#include "desk/words/table.h"

namespace zel::desk {
namespace {

constexpr double kPi = 3.14159265358979323846;

// The zeros of a Chebyshev polynomial, and the ends.
std::vector<FitPoint> Sampled(SampledCurve const& curve, int count) {
  std::vector<FitPoint> points;
  double const middle = (curve.low + curve.high) / 2.0;
  double const half = (curve.high - curve.low) / 2.0;
  auto const add = [&](double kelvin) {
    double const value = curve.curve(kelvin);
    if (std::isfinite(value)) points.push_back({kelvin, value});
  };
  add(curve.low);
  for (int i = 0; i < count; ++i) {
    add(middle - half * std::cos(kPi * (2.0 * i + 1.0) / (2.0 * count)));
  }
  add(curve.high);
  return points;
}

// The measure by which one fit is better than another.
double Badness(FitDeviations const& deviations, bool isRelative) {
  return std::abs(isRelative ? deviations.greatestPercent : deviations.greatest);
}

}  // namespace

std::string SampledFit::Text() const {
  bool const isRelative = !std::isnan(deviations.greatestPercent);
  char const* const percent = isRelative ? "%" : "";
  auto const shown = [&](double relative, double absolute) {
    return Digits(std::abs(isRelative ? relative : absolute)) + percent;
  };
  return "equation " + std::to_string(fit.record.equation) + " from " + Digits(fit.record.tMin) +
         " to " + Digits(fit.record.tMax) +
         " K: " + shown(deviations.meanPercent, deviations.mean) + " on the average, " +
         shown(deviations.greatestPercent, deviations.greatest) + " at most, at " +
         Digits(isRelative ? deviations.greatestPercentAt : deviations.greatestAt) + " K";
}

SampledFit BestSampledFit(zel::ZelCorrelation const& record, SampledCurve const& curve,
                          std::vector<FormChoice> const& choices) {
  NeedLeastSquares();
  if (!(curve.low > 0.0 && curve.low < curve.high)) {
    throw Failure("the range to sample is not a range of temperatures above 0 K");
  }
  std::vector<FitPoint> const points = Sampled(curve, curve.samples);
  constexpr int kChecked = 4;  // times as many
  std::vector<FitPoint> const checked = Sampled(curve, kChecked * curve.samples);
  if (points.size() < 2) throw Failure("the curve has no values in the range");
  bool const isRelative = std::all_of(checked.begin(), checked.end(),
                                      [](FitPoint const& one) { return one.value != 0.0; });
  std::optional<SampledFit> best;
  std::string why = "no equation was given";
  for (FormChoice const& choice : choices) {
    FitTask task;
    task.record = record;
    task.record.equation = choice.equation;
    task.record.coefficientCount = choice.count;
    task.record.tMin = curve.low;
    task.record.tMax = curve.high;
    task.points = points;
    try {
      CurveFit fit = FitCurve(task);
      FitDeviations const deviations = DeviationsFrom(fit.record, checked);
      bool const isBetter =
          !best || Badness(deviations, isRelative) < Badness(best->deviations, isRelative);
      FormChoice const made = {choice.equation, fit.record.coefficientCount};
      if (isBetter) best = SampledFit{std::move(fit), made, deviations};
    } catch (Failure const& failure) {
      why = failure.what();
    }
  }
  if (!best) throw Failure(why);
  return *best;
}

std::vector<FormChoice> UsualChoices(std::uint32_t index) {
  switch (index) {
    case zel::correlationVaporPressure: return {{20, 5}, {47, 4}, {48, 4}, {20, 7}};
    case zel::correlationLiquidViscosity: return {{20, 5}, {12, 4}, {20, 7}};
    case zel::correlationLiquidDensity: return {{16, 4}, {32, 5}, {1, 5}};
    case zel::correlationLatentHeat:
    case zel::correlationSurfaceTension: return {{15, 4}, {15, 5}, {1, 5}};
    case zel::correlationVaporViscosity:
    case zel::correlationVaporThermal: return {{19, 4}, {1, 5}};
    case zel::correlationIdealEnthalpy: return {{17, 6}, {1, 6}};
    default: return {{1, 5}, {1, 7}};
  }
}

}  // namespace zel::desk

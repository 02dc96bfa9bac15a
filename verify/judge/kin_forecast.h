// What the other substances foretell for a number of each substance.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "verify/judge/kin_features.h"

namespace zel {

struct Forecast {
  double value = gen_GetUndefDouble();  // undefined: nothing is foretold
  double tolerance = 0.0;
  std::uint8_t set = 0;  // of the features passed

  bool IsKnown() const { return IsDefined(value); }
};

// A forecast for each substance, from substances other than itself. `observed` has a number for
// each substance, undefined if it has none: then nothing is foretold; NaN for one that cannot be
// used. Of several sets of features, that with the smallest scatter is taken for each substance
// that has its data.
//
// A robust regression is corrected by the residuals of the nearest kin where that makes the scatter
// smaller. The tolerance is three robust standard deviations of the residuals or more, so that
// about one residual in fifty exceeds it, and widened where the forecasts of near kin are poor,
// where a substance has no near kin, and by the leverage; at least `floor`.
std::vector<Forecast> ForecastOf(KinFeatures const& kin, std::span<FeatureSet const> sets,
                                 std::vector<double> const& observed, double floor);

}  // namespace zel

// Where curves are compared, and what their comparisons have in common.
#pragma once

#include <algorithm>
#include <cmath>
#include <optional>

#include "verify/judge/relation_terms.h"

namespace zel {

// The temperature within the range of its own curve that is next to one; without an own curve,
// within the range of another record where it is the nearest.
inline double Near(Reading const& r, zelCorrelations curve, double kelvin) {
  auto const within = [&](Record const& record) {
    KelvinRange const range = record.RangeOf(curve);
    if (!range.IsBounded() || range.low > range.high) return kelvin;
    return std::clamp(kelvin, range.low, range.high);
  };
  if (std::isnan(kelvin)) return kelvin;
  if (r.Own().HasCurve(curve)) return within(r.Own());
  double nearest = std::nan("");
  for (Record const* const record : r.Of().Records()) {
    if (!record->HasCurve(curve)) continue;
    double const at = within(*record);
    if (!(std::abs(nearest - kelvin) <= std::abs(at - kelvin))) nearest = at;
  }
  return std::isnan(nearest) ? kelvin : nearest;
}

template <typename... More>
double Near(Reading const& r, zelCorrelations curve, zelCorrelations next, More... more) {
  return Near(r, curve, Near(r, next, more...));
}

// The one that deviates more; a missing one counts as less than any other.
inline Found Worse(Found const& a, Found const& b) {
  if (!a || !b) return a ? a : b;
  return b->deviation > a->deviation ? b : a;
}

// The tolerance is a factor around the bounds, as a logarithm.
inline Found Within(Datum about, double value, double low, double high, double logTolerance) {
  if (std::isnan(value)) return std::nullopt;
  return AtBound(Outcome::Factor(about, value, std::clamp(value, low, high), logTolerance));
}

// Hydrogen fluoride, which forms chains in liquid and vapor and follows no law of other molecules.
inline bool FormsChains(Reading const& r) {
  return r.Atoms("F") > 0.0 && r.Atoms("H") > 0.0 && r.Atoms("C") == 0.0;
}
// Whether molecules may pair in the vapor, as those of carboxylic acids do; an ester has the same
// formula.
inline bool MayFormPairs(Reading const& r) {
  return FormsChains(r) || (r.Atoms("C") > 0.0 && r.Atoms("H") > 1.0 && r.Atoms("O") > 1.0);
}
// Whether there may be hydrogen bonds.
inline bool MayBond(Reading const& r) {
  return r.Atoms("H") > 0.0 && (r.Atoms("O") > 0.0 || r.Atoms("N") > 0.0);
}
// Whether laws of corresponding states hold at all.
inline bool Corresponds(Reading const& r) { return !IsQuantumFluid(r) && !FormsChains(r); }

// Heat capacities in kJ/kg-mol-K: the curve, or the slope of the enthalpy of a
// component without that curve.
inline double HeatCapacity(Reading& r, zelCorrelations capacity, zelCorrelations enthalpy,
                           double kelvin) {
  double value = r.OwnAt(capacity, kelvin);
  if (std::isnan(value)) value = r.OwnSlope(enthalpy, kelvin);
  if (std::isnan(value)) value = r.At(capacity, kelvin);
  if (std::isnan(value)) value = r.Slope(enthalpy, kelvin);
  return value;
}
inline double IdealGasCapacity(Reading& r, double kelvin) {
  return HeatCapacity(r, correlationIdealGasCp, correlationIdealEnthalpy, kelvin);
}
inline double LiquidCapacity(Reading& r, double kelvin) {
  return HeatCapacity(r, correlationLiquidCp, correlationLiquidEnthalpy, kelvin);
}

}  // namespace zel

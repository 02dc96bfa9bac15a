// What the tables of relations share.
#pragma once

#include <cmath>

#include "verify/judge/reading.h"

namespace zel {

using Found = std::optional<Outcome>;

inline constexpr double kGasConstant = 8.314462618;  // kJ/(kg-mol K), CODATA 2018, exact
inline constexpr double kRoom = 298.15;              // K
inline constexpr double kAtmospheric = 101.325;      // kPa

inline constexpr Datum Of(zelProperties index) { return Datum::Constant(index); }
inline constexpr Datum Of(zelCorrelations index) { return Datum::Curve(index); }

// Hydrogen, helium and neon are too light for corresponding states.
inline bool IsQuantumFluid(Reading const& r) {
  constexpr double kHighest = 50.0;  // K, critical temperature
  double const critical = r.Of().Median(propertyTC);
  return IsDefined(critical) && critical < kHighest;
}

// An outcome about a value of a curve.
inline Found At(Found outcome, double kelvin) {
  if (outcome) outcome->temperature = kelvin;
  return outcome;
}

// A value on the right side of a limit is not evidence that the data are right.
inline Found AtBound(Found outcome) {
  if (outcome) outcome->deviation = std::max(outcome->deviation, 1.0);
  return outcome;
}

// A limit that a value does not exceed, or fall below.
inline Found AtMost(Datum about, double value, double limit, double tolerance) {
  return AtBound(Outcome::Absolute(about, std::max(value, limit), limit, tolerance));
}
inline Found AtLeast(Datum about, double value, double limit, double tolerance) {
  return AtBound(Outcome::Absolute(about, std::min(value, limit), limit, tolerance));
}

}  // namespace zel

// How far two records of a correlation are apart, by their values.
#pragma once

#include <cstdint>
#include <string>

#include "desk/open/pure_component.h"

namespace zel::desk {

// The deviation of the second record from the first over the temperatures that both have, in K.
// Values are those of the correlation in its unit, whatever equations and units the records use.
//
// A deviation is relative to the value of the first record at the same temperature. If that value
// changes its sign within the range, as an enthalpy does at its reference state, deviations are
// relative to the greatest absolute value of the first record on the grid; so are those where the
// first record is 0.
struct CurveDeviation {
  std::string why;  // why the records cannot be compared; empty if they were
  double from = zel::gen_GetUndefDouble();
  double to = zel::gen_GetUndefDouble();
  int points = 0;         // at which both have a value
  double greatest = 0.0;  // with its sign, as a fraction
  double mean = 0.0;      // of the absolute deviations, as a fraction
  double at = 0.0;        // temperature of the greatest
  double first = 0.0;     // values there
  double second = 0.0;
};

// `steps` equal steps over the common range, from 1, whose points give the mean. For the greatest,
// there are further points close to the ends, and the three greatest peaks are refined by golden
// section. Next to a value of 0, where a relative deviation has no limit, it is that of the points.
// A record without a limit takes that of the other one.
CurveDeviation DeviationOf(PureComponent const& one, PureComponent const& other,
                           std::uint32_t index, int steps);

// A limit of the record's range in K; undefined if the range is open there.
double LimitInKelvin(double limit, Curve const& curve);

// The deviation of `second` from `first` relative to `scale`; 0 for equal values, infinite if they
// differ and the scale is 0.
double Deviation(double first, double second, double scale);

}  // namespace zel::desk

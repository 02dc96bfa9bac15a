// What the plausibility checks share.
#pragma once

#include <string>

#include "open/pure_component.h"
#include "words/number_range.h"

namespace zelhost {

inline constexpr double kAtmosphere = 101.325;  // kPa

inline bool Has(double value) { return !zel::gen_IsUndefDouble(value); }

inline std::string Show(double value) { return Digits(value); }

// A value of a correlation at a temperature in K, inside its range only; undefined otherwise.
inline double InsideAt(PureComponent const& component, std::uint32_t curve, double kelvin) {
  Curve const record = component.ReadCurve(curve);
  if (!record.present) return zel::gen_GetUndefDouble();
  Point const point = component.At(curve, Convert(kelvin, kKelvin, record.tempUnit));
  return point.there && point.status == 0 ? point.value : zel::gen_GetUndefDouble();
}

}  // namespace zelhost

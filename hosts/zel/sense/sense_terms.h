// Names for the plausibility checks: constants and correlations by index, and how to read them.
#pragma once

#include <string>

#include "open/pure_component.h"
#include "words/number_range.h"

namespace zelhost {

inline constexpr double kAtmosphere = 101.325;  // kPa

// Constants by index.
enum Constant : std::uint32_t {
  kMW = 0,
  kTC = 1,
  kPC = 2,
  kVC = 3,
  kZC = 4,
  kAcentric = 5,
  kNMP = 7,
  kNBP = 8,
  kTTP = 37,
  kHeatOfVaporization = 47  // at the normal boiling point
};
// Correlations by index.
enum CurveIndex : std::uint32_t {
  kVaporPressure = 0,
  kLiquidEnthalpy = 2,
  kLatentHeat = 3,
  kLiquidDensity = 4,
  kLiquidThermal = 5,
  kLiquidViscosity = 7,
  kVaporViscosity = 8,
  kSurfaceTension = 9,
  kExpansion = 10,
  kSolidEnthalpy = 11,
  kSolidDensity = 12,
  kIdealGasCp = 13,
  kLiquidCp = 14,
  kSolidCp = 15
};

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

// The units of the classes, by position from 10, with their factors.
#pragma once

#include <span>

namespace zel {

struct UnitFactor {
  double factor;
  char const* unit;
};

inline constexpr int kUnitClasses = 50;

// clang-format off
// Temperature; base K, differences.
inline constexpr UnitFactor kTemperatureUnits[] = {
    {1.0, "K"}, {1.0, "C"}, {0.5555556, "R"}, {0.5555556, "F"},
};
// Pressure; base kPa.
inline constexpr UnitFactor kPressureUnits[] = {
    {0.0001, "dyne/cm2"}, {0.0001, "dyne/cm2"}, {0.001, "N/m2"}, {0.001, "Pa"}, {0.001, "Pa"},
    {1.0, "kPa"}, {1000.0, "MPa"}, {100.0, "bar"}, {100.0, "bar"}, {0.133322, "mm Hg"},
    {0.133322, "torr"}, {98.0665, "kg/cm2"}, {98.0665, "kg/cm2"}, {98.0665, "ata"},
    {98.0665, "ata"}, {101.325, "atm"}, {6.89476, "psia"}, {6.89476, "psia"}, {6.89476, "psi"},
    {0.0478803, "psf"}, {0.248843, "in H2O"}, {0.00979698, "mm H2O"}, {3.38639, "in Hg"},
    {0.1, "mbar"}, {0.1, "mbar"}, {98.0665, "ate"}, {98.0665, "ate"},
};
// clang-format on

// By class from 1. Classes without rows are still to come: their factors are 1.
inline constexpr std::span<UnitFactor const> kUnitFactors[kUnitClasses] = {
    kTemperatureUnits, kTemperatureUnits, kTemperatureUnits, kPressureUnits,
};

}  // namespace zel

// Units of unit codes: mass, time, length, area, volume, amount and others. Above each table are
// its classes, at the start of each line the position of its first unit.
#pragma once

#include "frame/units/unit_factor.h"

namespace zel {

// clang-format off
// 1, 2, 3: temperatures, absolute temperatures, temperature differences; base K.
inline constexpr UnitFactor kTemperatureUnits[] = {
    /* 10 */ {1.0, "K"}, {1.0, "C"}, {0.5555556, "R"}, {0.5555556, "F"},
};
// 4, 5 and, without the last two, 6: pressures, absolute pressures, pressure differences; base kPa.
inline constexpr UnitFactor kPressureUnits[] = {
    /* 10 */ {0.0001, "dyne/cm2"}, {0.0001, "dyne/cm2"}, {0.001, "N/m2"}, {0.001, "N/m2"},
    /* 14 */ {0.001, "Pa"}, {1.0, "kPa"}, {1000.0, "MPa"}, {100.0, "bar"}, {100.0, "bar"},
    /* 19 */ {0.133322, "mm Hg"}, {0.133322, "mm Hg"}, {98.0665, "kg/cm2"}, {98.0665, "kg/cm2"},
    /* 23 */ {98.0665, "ata"}, {98.0665, "ate"}, {101.325, "atm"}, {6.89476, "psia"},
    /* 27 */ {6.89476, "psig"}, {6.89476, "psi"}, {0.0478803, "psf"}, {0.248843, "in H2O"},
    /* 31 */ {0.00979698, "mm H2O"}, {3.38639, "in Hg"}, {0.1, "mbar"}, {0.1, "mbar"},
    /* 35 */ {98.0665, "kg/cm2"}, {98.0665, "kg/cm2"},
};
// 7: mass; base kg.
inline constexpr UnitFactor kMassUnits[] = {
    /* 10 */ {0.001, "g"}, {1.0, "kg"}, {1000.0, "tonm"}, {1000.0, "tonm"}, {0.0283495, "oz"},
    /* 15 */ {0.453592, "lb"}, {453.592, "klb"}, {907.185, "ton"}, {907.185, "ton"},
    /* 19 */ {1016.05, "tonl"}, {1016.05, "tonl"}, {0.001, "g"}, {907.185, "ton"},
    /* 23 */ {1000000.0, "Ktonm"}, {1000000.0, "Ktonm"},
};
// 8: time; base s.
inline constexpr UnitFactor kTimeUnits[] = {
    /* 10 */ {1.0, "sec"}, {60.0, "min"}, {3600.0, "hr"}, {3600.0, "hr"}, {86400.0, "day"},
    /* 15 */ {604800.0, "wk"}, {604800.0, "wk"}, {2592000.0, "mon"},
    /* 18 */ {31557600.0, "yr"}, {31557600.0, "yr"},
};
// 9, 10: length, fine length; base m.
inline constexpr UnitFactor kLengthUnits[] = {
    /* 10 */ {1e-10, "ang"}, {1e-09, "mmic"}, {1e-06, "mic"}, {0.001, "mm"}, {0.01, "cm"},
    /* 15 */ {0.1, "dm"}, {1.0, "m"}, {1000.0, "km"}, {0.0254, "in"}, {0.3048, "ft"},
    /* 20 */ {0.9144, "yd"}, {1609.34, "mi"}, {1.0, "m"},
};
// 11: area; base m2.
inline constexpr UnitFactor kAreaUnits[] = {
    /* 10 */ {1e-20, "ang2"}, {1e-18, "mmic2"}, {1e-12, "mic2"}, {1e-6, "mm2"}, {0.0001, "cm2"},
    /* 15 */ {0.01, "dm2"}, {1.0, "m2"}, {1e+6, "km2"}, {0.00064516, "in2"}, {0.092903, "ft2"},
    /* 20 */ {0.836127, "yd2"}, {2.58999e+6, "mi2"}, {10000.0, "hect"},
};
// 12, 13: volume, standard liquid volume; base m3.
inline constexpr UnitFactor kVolumeUnits[] = {
    /* 10 */ {1e-30, "ang3"}, {1e-27, "mmic3"}, {1e-18, "mic3"}, {1e-9, "mm3"}, {1e-6, "cm3"},
    /* 15 */ {0.001, "dm3"}, {1.0, "m3"}, {1e+9, "km3"}, {1.63871e-5, "in3"}, {0.0283168, "ft3"},
    /* 20 */ {0.764555, "yd3"}, {4.16818e+9, "mi3"}, {0.001, "liter"}, {0.00378541, "gal"},
    /* 24 */ {0.00454609, "igal"}, {0.158987, "bbl"}, {158.987, "Mbbl"}, {1.0, "KL"},
    /* 28 */ {3.78541, "Mgal"}, {3785.41, "MMgal"}, {1e+6, "MMm3"}, {28.3168, "Mft3"},
    /* 32 */ {28316.8, "MMft3"},
};
// 14: standard vapor volume, that of an ideal gas at 60 F and 1 atm; base m3.
inline constexpr UnitFactor kGasVolumeUnits[] = {
    /* 10 */ {1e-30, "ang3"}, {1e-30, "ang3"}, {1e-27, "mmic3"}, {1e-27, "mmic3"},
    /* 14 */ {1e-18, "mic3"}, {1e-18, "mic3"}, {1e-9, "mm3"}, {1e-9, "mm3"},
    /* 18 */ {1e-6, "cm3"}, {1e-6, "cm3"}, {0.001, "dm3"}, {0.001, "dm3"}, {1.0, "m3"}, {1.0, "m3"},
    /* 24 */ {1e+9, "km3"}, {1e+9, "km3"}, {1.63871e-5, "in3"}, {1.63871e-5, "in3"},
    /* 28 */ {0.0283168, "ft3"}, {0.0283168, "ft3"}, {0.764555, "yd3"}, {0.764555, "yd3"},
    /* 32 */ {4.16818e+9, "mi3"}, {4.16818e+9, "mi3"}, {0.001, "liter"}, {0.001, "liter"},
    /* 36 */ {0.00378541, "gal"}, {0.00378541, "gal"}, {0.00454609, "igal"}, {0.00454609, "igal"},
    /* 40 */ {0.158987, "bbl"}, {0.158987, "bbl"}, {158.987, "Mbbl"}, {158.987, "Mbbl"},
    /* 44 */ {1.0, "KL"}, {1.0, "KL"}, {3.78541, "Mgal"}, {3.78541, "Mgal"},
    /* 48 */ {3785.41, "MMgal"}, {3785.41, "MMgal"}, {1e+6, "MMm3"}, {1e+6, "MMm3"},
    /* 52 */ {28.3168, "Mft3"}, {28.3168, "Mft3"}, {28316.8, "MMft3"}, {28316.8, "MMft3"},
    /* 56 */ {1.05695, "nm3"}, {1.05695, "nm3"},
};
// 15: amount; base kg-mol.
inline constexpr UnitFactor kMoleUnits[] = {
    /* 10 */ {0.001, "g-mol"}, {1.0, "kg-mol"}, {1000.0, "tonm-mol"}, {0.453592, "lb-mol"},
};
// 18: molecular weight; base kg/kg-mol.
inline constexpr UnitFactor kMolarMassUnits[] = {
    /* 10 */ {1.0, "g/g-mol"}, {1.0, "kg/kg-mol"}, {1.0, "lb/lb-mol"}, {1000.0, "kg/g-mol"},
};
// 43, 44: kinds that no factor can convert. Their positions have no units.
inline constexpr UnitFactor kNoFactorUnits[] = {
    /* 10 */ {0.0, ""}, {0.0, ""}, {0.0, ""}, {0.0, ""}, {0.0, ""}, {0.0, ""}, {0.0, ""}, {0.0, ""},
    /* 18 */ {0.0, ""}, {0.0, ""},
};
// 45 to 48: fractions; base fraction.
inline constexpr UnitFactor kFractionUnits[] = {
    /* 10 */ {1.0, "fraction"}, {0.01, "percent"}, {1e-06, "ppm"},
};
// 49: dipole moment; base debye.
inline constexpr UnitFactor kDipoleUnits[] = {
    /* 10 */ {1.0, "DEB"}, {2.99792e+29, "Coul-m"}, {2.99792e+29, "Coul-m"}, {1e+18, "EU"},
};
// 50: rotation; base revolutions per second.
inline constexpr UnitFactor kRotationUnits[] = {
    /* 10 */ {1.0, "rps"}, {0.0166667, "rpm"}, {0.000277778, "rph"}, {1.15741e-5, "rpd"},
    /* 14 */ {0.159155, "rad/sec"}, {1.0, "revolution/sec"},
};
// clang-format on

}  // namespace zel

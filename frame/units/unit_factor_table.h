// The units behind unit codes: 50 classes, 1617 positions, by class and position from 10.
//
// A unit often has two positions, one behind the other: programs that share these codes gave it two
// spellings. Factors have six digits, but for those that stored data came with.
#pragma once

#include <span>

namespace zel {

struct UnitFactor {
  double factor;
  char const* unit;
};

// clang-format off
// 1, 2, 3: temperatures, absolute temperatures, temperature differences; base K.
inline constexpr UnitFactor kTemperatureUnits[] = {
    {1.0, "K"}, {1.0, "C"}, {0.5555556, "R"}, {0.5555556, "F"},
};
// 4, 5 and, without the last two, 6: pressures, absolute pressures, pressure differences; base kPa.
inline constexpr UnitFactor kPressureUnits[] = {
    {0.0001, "dyne/cm2"}, {0.0001, "dyne/cm2"}, {0.001, "N/m2"}, {0.001, "N/m2"}, {0.001, "Pa"},
    {1.0, "kPa"}, {1000.0, "MPa"}, {100.0, "bar"}, {100.0, "bar"}, {0.133322, "mm Hg"},
    {0.133322, "mm Hg"}, {98.0665, "kg/cm2"}, {98.0665, "kg/cm2"}, {98.0665, "ata"},
    {98.0665, "ate"}, {101.325, "atm"}, {6.89476, "psia"}, {6.89476, "psig"}, {6.89476, "psi"},
    {0.0478803, "psf"}, {0.248843, "in H2O"}, {0.00979698, "mm H2O"}, {3.38639, "in Hg"},
    {0.1, "mbar"}, {0.1, "mbar"}, {98.0665, "kg/cm2"}, {98.0665, "kg/cm2"},
};
// 7: mass; base kg.
inline constexpr UnitFactor kMassUnits[] = {
    {0.001, "g"}, {1.0, "kg"}, {1000.0, "tonm"}, {1000.0, "tonm"}, {0.0283495, "oz"},
    {0.453592, "lb"}, {453.592, "klb"}, {907.185, "ton"}, {907.185, "ton"}, {1016.05, "tonl"},
    {1016.05, "tonl"}, {0.001, "g"}, {907.185, "ton"}, {1000000.0, "Ktonm"}, {1000000.0, "Ktonm"},
};
// 8: time; base s.
inline constexpr UnitFactor kTimeUnits[] = {
    {1.0, "sec"}, {60.0, "min"}, {3600.0, "hr"}, {3600.0, "hr"}, {86400.0, "day"}, {604800.0, "wk"},
    {604800.0, "wk"}, {2592000.0, "mon"}, {31557600.0, "yr"}, {31557600.0, "yr"},
};
// 9, 10: length, fine length; base m.
inline constexpr UnitFactor kLengthUnits[] = {
    {1e-10, "ang"}, {1e-09, "mmic"}, {1e-06, "mic"}, {0.001, "mm"}, {0.01, "cm"}, {0.1, "dm"},
    {1.0, "m"}, {1000.0, "km"}, {0.0254, "in"}, {0.3048, "ft"}, {0.9144, "yd"}, {1609.34, "mi"},
    {1.0, "m"},
};
// 11: area; base m2.
inline constexpr UnitFactor kAreaUnits[] = {
    {1e-20, "ang2"}, {1e-18, "mmic2"}, {1e-12, "mic2"}, {1e-6, "mm2"}, {0.0001, "cm2"},
    {0.01, "dm2"}, {1.0, "m2"}, {1e+6, "km2"}, {0.00064516, "in2"}, {0.092903, "ft2"},
    {0.836127, "yd2"}, {2.58999e+6, "mi2"}, {10000.0, "hect"},
};
// 12, 13: volume, standard liquid volume; base m3.
inline constexpr UnitFactor kVolumeUnits[] = {
    {1e-30, "ang3"}, {1e-27, "mmic3"}, {1e-18, "mic3"}, {1e-9, "mm3"}, {1e-6, "cm3"},
    {0.001, "dm3"}, {1.0, "m3"}, {1e+9, "km3"}, {1.63871e-5, "in3"}, {0.0283168, "ft3"},
    {0.764555, "yd3"}, {4.16818e+9, "mi3"}, {0.001, "liter"}, {0.00378541, "gal"},
    {0.00454609, "igal"}, {0.158987, "bbl"}, {158.987, "Mbbl"}, {1.0, "KL"}, {3.78541, "Mgal"},
    {3785.41, "MMgal"}, {1e+6, "MMm3"}, {28.3168, "Mft3"}, {28316.8, "MMft3"},
};
// 14: standard vapor volume, that of an ideal gas at 60 F and 1 atm; base m3.
inline constexpr UnitFactor kGasVolumeUnits[] = {
    {1e-30, "ang3"}, {1e-30, "ang3"}, {1e-27, "mmic3"}, {1e-27, "mmic3"}, {1e-18, "mic3"},
    {1e-18, "mic3"}, {1e-9, "mm3"}, {1e-9, "mm3"}, {1e-6, "cm3"}, {1e-6, "cm3"}, {0.001, "dm3"},
    {0.001, "dm3"}, {1.0, "m3"}, {1.0, "m3"}, {1e+9, "km3"}, {1e+9, "km3"}, {1.63871e-5, "in3"},
    {1.63871e-5, "in3"}, {0.0283168, "ft3"}, {0.0283168, "ft3"}, {0.764555, "yd3"},
    {0.764555, "yd3"}, {4.16818e+9, "mi3"}, {4.16818e+9, "mi3"}, {0.001, "liter"}, {0.001, "liter"},
    {0.00378541, "gal"}, {0.00378541, "gal"}, {0.00454609, "igal"}, {0.00454609, "igal"},
    {0.158987, "bbl"}, {0.158987, "bbl"}, {158.987, "Mbbl"}, {158.987, "Mbbl"}, {1.0, "KL"},
    {1.0, "KL"}, {3.78541, "Mgal"}, {3.78541, "Mgal"}, {3785.41, "MMgal"}, {3785.41, "MMgal"},
    {1e+6, "MMm3"}, {1e+6, "MMm3"}, {28.3168, "Mft3"}, {28.3168, "Mft3"}, {28316.8, "MMft3"},
    {28316.8, "MMft3"}, {1.05695, "nm3"}, {1.05695, "nm3"},
};
// 15: amount; base kg-mol.
inline constexpr UnitFactor kMoleUnits[] = {
    {0.001, "g-mol"}, {1.0, "kg-mol"}, {1000.0, "tonm-mol"}, {0.453592, "lb-mol"},
};
// 16: mass rate; base kg/s.
inline constexpr UnitFactor kMassRateUnits[] = {
    {0.001, "g/sec"}, {1.66667e-5, "g/min"}, {2.77778e-7, "g/hr"}, {1.0, "kg/sec"},
    {0.0166667, "kg/min"}, {0.000277778, "kg/hr"}, {1000.0, "tonm/sec"}, {16.6667, "tonm/min"},
    {0.277778, "tonm/hr"}, {1000.0, "tonm/sec"}, {16.6667, "tonm/min"}, {0.277778, "tonm/hr"},
    {0.0283495, "oz/sec"}, {0.000472492, "oz/min"}, {7.87487e-6, "oz/hr"}, {0.453592, "lb/sec"},
    {0.00755987, "lb/min"}, {0.000125998, "lb/hr"}, {453.592, "klb/sec"}, {7.55987, "klb/min"},
    {0.125998, "klb/hr"}, {907.185, "ton/sec"}, {15.1197, "ton/min"}, {0.251996, "ton/hr"},
    {907.185, "ton/sec"}, {15.1197, "ton/min"}, {0.251996, "ton/hr"}, {1016.05, "tonl/sec"},
    {16.9341, "tonl/min"}, {0.282235, "tonl/hr"}, {1016.05, "tonl/sec"}, {16.9341, "tonl/min"},
    {0.282235, "tonl/hr"},
};
// 17: molar rate; base kg-mol/s.
inline constexpr UnitFactor kMoleRateUnits[] = {
    {0.001, "g-mol/sec"}, {1.66667e-5, "g-mol/min"}, {2.77778e-7, "g-mol/hr"},
    {1.15741e-8, "g-mol/day"}, {1.65344e-9, "g-mol/wk"}, {3.85802e-10, "g-mol/mon"},
    {3.16881e-11, "g-mol/yr"}, {1.0, "kg-mol/sec"}, {0.0166667, "kg-mol/min"},
    {0.000277778, "kg-mol/hr"}, {1.15741e-5, "kg-mol/day"}, {1.65344e-6, "kg-mol/wk"},
    {3.85802e-7, "kg-mol/mon"}, {3.16881e-8, "kg-mol/yr"}, {1000.0, "tonm-mol/sec"},
    {16.6667, "tonm-mol/min"}, {0.277778, "tonm-mol/hr"}, {0.0115741, "tonm-mol/day"},
    {0.00165344, "tonm-mol/wk"}, {0.000385802, "tonm-mol/mon"}, {3.16881e-5, "tonm-mol/yr"},
    {0.453592, "lb-mol/sec"}, {0.00755987, "lb-mol/min"}, {0.000125998, "lb-mol/hr"},
    {5.24991e-6, "lb-mol/day"}, {7.49987e-7, "lb-mol/wk"}, {1.74997e-7, "lb-mol/mon"},
    {1.43735e-8, "lb-mol/yr"},
};
// 18: molecular weight; base kg/kg-mol.
inline constexpr UnitFactor kMolarMassUnits[] = {
    {1.0, "g/g-mol"}, {1.0, "kg/kg-mol"}, {1.0, "lb/lb-mol"}, {1000.0, "kg/g-mol"},
};
// 19, 20, 21: density, of standard liquid, of standard vapor; base kg/m3.
inline constexpr UnitFactor kDensityUnits[] = {
    {0.001, "g/KL"}, {0.001, "g/KL"}, {1.0, "g/liter"}, {1.0, "g/liter"}, {0.264172, "g/gal"},
    {0.264172, "g/gal"}, {0.00628981, "g/bbl"}, {0.00628981, "g/bbl"}, {1000.0, "kg/liter"},
    {1000.0, "kg/liter"}, {264.172, "kg/gal"}, {264.172, "kg/gal"}, {6.28981, "kg/bbl"},
    {6.28981, "kg/bbl"}, {453.592, "lb/liter"}, {453.592, "lb/liter"}, {119.826, "lb/gal"},
    {119.826, "lb/gal"}, {99.7764, "lb/igal"}, {99.7764, "lb/igal"}, {2.85301, "lb/bbl"},
    {2.85301, "lb/bbl"}, {0.453592, "lb/KL"}, {0.453592, "lb/KL"}, {1e+6, "tonm/liter"},
    {1e+6, "tonm/liter"}, {264172.0, "tonm/gal"}, {264172.0, "tonm/gal"}, {6289.81, "tonm/bbl"},
    {6289.81, "tonm/bbl"}, {907185.0, "ton/liter"}, {907185.0, "ton/liter"}, {239653.0, "ton/gal"},
    {239653.0, "ton/gal"}, {5706.02, "ton/bbl"}, {5706.02, "ton/bbl"}, {1.01605e+6, "tonl/liter"},
    {1.01605e+6, "tonl/liter"}, {268411.0, "tonl/gal"}, {268411.0, "tonl/gal"},
    {6390.74, "tonl/bbl"}, {6390.74, "tonl/bbl"}, {28.3495, "oz/liter"}, {28.3495, "oz/liter"},
    {7.48915, "oz/gal"}, {7.48915, "oz/gal"}, {0.178313, "oz/bbl"}, {0.178313, "oz/bbl"},
    {119826.0, "klb/gal"}, {119826.0, "klb/gal"}, {2853.01, "klb/bbl"}, {2853.01, "klb/bbl"},
    {1.0, "kg/KL"}, {1000.0, "g/cm3"}, {1000.0, "g/cm3"}, {1.0, "g/dm3"}, {1.0, "g/dm3"},
    {0.001, "g/m3"}, {0.001, "g/m3"}, {61.0237, "g/in3"}, {61.0237, "g/in3"}, {0.0353147, "g/ft3"},
    {0.0353147, "g/ft3"}, {1e+6, "kg/cm3"}, {1e+6, "kg/cm3"}, {1000.0, "kg/dm3"},
    {1000.0, "kg/dm3"}, {61023.7, "kg/in3"}, {61023.7, "kg/in3"}, {35.3147, "kg/ft3"},
    {35.3147, "kg/ft3"}, {1.0, "kg/m3"}, {1.0, "kg/m3"}, {1000.0, "tonm/m3"}, {1000.0, "tonm/m3"},
    {1186.55, "ton/yd3"}, {1186.55, "ton/yd3"}, {1729.99, "oz/in3"}, {1729.99, "oz/in3"},
    {27679.9, "lb/in3"}, {27679.9, "lb/in3"}, {16.0185, "lb/ft3"}, {16.0185, "lb/ft3"},
};
// 22, 23: molar volume, of liquid and of vapor; base m3/kg-mol.
inline constexpr UnitFactor kMolarVolumeUnits[] = {
    {0.00220462, "liter/lb-mol"}, {0.00220462, "liter/lb-mol"}, {0.001, "liter/kg-mol"},
    {0.001, "liter/kg-mol"}, {1.0, "liter/g-mol"}, {1.0, "liter/g-mol"}, {1000.0, "m3/g-mol"},
    {1000.0, "m3/g-mol"}, {0.0083454, "gal/lb-mol"}, {0.0083454, "gal/lb-mol"},
    {1e-6, "cm3/kg-mol"}, {1e-6, "cm3/kg-mol"}, {0.001, "cm3/g-mol"}, {0.001, "cm3/g-mol"},
    {1.0, "m3/kg-mol"}, {1.0, "m3/kg-mol"}, {3.61273e-5, "in3/lb-mol"}, {3.61273e-5, "in3/lb-mol"},
    {0.062428, "ft3/lb-mol"}, {0.062428, "ft3/lb-mol"}, {1.68555, "yd3/lb-mol"},
    {1.68555, "yd3/lb-mol"}, {0.0100224, "igal/lb-mol"}, {0.0100224, "igal/lb-mol"},
    {0.350507, "bbl/lb-mol"}, {0.350507, "bbl/lb-mol"}, {1e-6, "liter/tonm-mol"},
    {1e-6, "liter/tonm-mol"}, {2.20462, "m3/lb-mol"}, {2.20462, "m3/lb-mol"},
    {0.001, "m3/tonm-mol"}, {0.001, "m3/tonm-mol"}, {2.20462e-6, "cm3/lb-mol"},
    {2.20462e-6, "cm3/lb-mol"}, {3.78541, "gal/g-mol"}, {3.78541, "gal/g-mol"},
    {0.00378541, "gal/kg-mol"}, {0.00378541, "gal/kg-mol"}, {3.78541e-6, "gal/tonm-mol"},
    {3.78541e-6, "gal/tonm-mol"}, {4.54609, "igal/g-mol"}, {4.54609, "igal/g-mol"},
    {0.00454609, "igal/kg-mol"}, {0.00454609, "igal/kg-mol"}, {0.0163871, "in3/g-mol"},
    {0.0163871, "in3/g-mol"}, {1.63871e-5, "in3/kg-mol"}, {1.63871e-5, "in3/kg-mol"},
    {28.3168, "ft3/g-mol"}, {28.3168, "ft3/g-mol"}, {0.0283168, "ft3/kg-mol"},
    {0.0283168, "ft3/kg-mol"}, {2.83168e-5, "ft3/tonm-mol"}, {2.83168e-5, "ft3/tonm-mol"},
    {0.764555, "yd3/kg-mol"}, {0.764555, "yd3/kg-mol"}, {158.987, "bbl/g-mol"},
    {158.987, "bbl/g-mol"}, {0.158987, "bbl/kg-mol"}, {0.158987, "bbl/kg-mol"},
    {0.000158987, "bbl/tonm-mol"}, {0.000158987, "bbl/tonm-mol"}, {1.0, "KL/kg-mol"},
    {1.0, "KL/kg-mol"},
};
// 24: energy; base kJ.
inline constexpr UnitFactor kEnergyUnits[] = {
    {0.001, "J"}, {1.0, "kJ"}, {0.0041868, "cal"}, {4.1868, "kcal"}, {9.80665e-08, "g-cm"},
    {0.00980665, "kg-m"}, {0.00135582, "ft-lb"}, {1.05506, "BTU"}, {1.8991, "CHU"}, {1.8991, "PCU"},
    {3600.0, "kW-hr"}, {0.001, "J"},
};
// 25, 26, 27: power, heat duty, energy rate; base kW.
inline constexpr UnitFactor kPowerUnits[] = {
    {0.001, "J/sec"}, {1.66667e-5, "J/min"}, {2.77778e-7, "J/hr"}, {1.15741e-8, "J/day"},
    {1.65344e-9, "J/wk"}, {3.85802e-10, "J/mon"}, {3.16881e-11, "J/yr"}, {1.0, "kJ/sec"},
    {0.0166667, "kJ/min"}, {0.000277778, "kJ/hr"}, {1.15741e-5, "kJ/day"}, {1.65344e-6, "kJ/wk"},
    {3.85802e-7, "kJ/mon"}, {3.16881e-8, "kJ/yr"}, {1000.0, "MJ/sec"}, {16.6667, "MJ/min"},
    {0.277778, "MJ/hr"}, {0.0115741, "MJ/day"}, {0.00165344, "MJ/wk"}, {0.000385802, "MJ/mon"},
    {3.16881e-5, "MJ/yr"}, {0.0041868, "cal/sec"}, {6.978e-5, "cal/min"}, {1.163e-6, "cal/hr"},
    {4.84583e-8, "cal/day"}, {6.92262e-9, "cal/wk"}, {1.61528e-9, "cal/mon"},
    {1.32672e-10, "cal/yr"}, {4.1868, "kcal/sec"}, {0.06978, "kcal/min"}, {0.001163, "kcal/hr"},
    {4.84583e-5, "kcal/day"}, {6.92262e-6, "kcal/wk"}, {1.61528e-6, "kcal/mon"},
    {1.32672e-7, "kcal/yr"}, {9.80665e-8, "g-cm/sec"}, {1.63444e-9, "g-cm/min"},
    {2.72407e-11, "g-cm/hr"}, {1.13503e-12, "g-cm/day"}, {1.62147e-13, "g-cm/wk"},
    {3.78343e-14, "g-cm/mon"}, {3.10754e-15, "g-cm/yr"}, {0.00980665, "kg-m/sec"},
    {0.000163444, "kg-m/min"}, {2.72407e-6, "kg-m/hr"}, {1.13503e-7, "kg-m/day"},
    {1.62147e-8, "kg-m/wk"}, {3.78343e-9, "kg-m/mon"}, {3.10754e-10, "kg-m/yr"},
    {0.00135582, "ft-lb/sec"}, {2.2597e-5, "ft-lb/min"}, {3.76616e-7, "ft-lb/hr"},
    {1.56923e-8, "ft-lb/day"}, {2.24176e-9, "ft-lb/wk"}, {5.23078e-10, "ft-lb/mon"},
    {4.29633e-11, "ft-lb/yr"}, {1.05506, "BTU/sec"}, {0.0175843, "BTU/min"},
    {0.000293071, "BTU/hr"}, {1.22113e-5, "BTU/day"}, {1.74447e-6, "BTU/wk"},
    {4.07043e-7, "BTU/mon"}, {3.34327e-8, "BTU/yr"}, {1.8991, "CHU/sec"}, {0.0316517, "CHU/min"},
    {0.000527528, "CHU/hr"}, {2.19803e-5, "CHU/day"}, {3.14005e-6, "CHU/wk"},
    {7.32678e-7, "CHU/mon"}, {6.01789e-8, "CHU/yr"}, {1.8991, "PCU/sec"}, {0.0316517, "PCU/min"},
    {0.000527528, "PCU/hr"}, {2.19803e-5, "PCU/day"}, {3.14005e-6, "PCU/wk"},
    {7.32678e-7, "PCU/mon"}, {6.01789e-8, "PCU/yr"}, {3600.0, "kW-hr/sec"}, {60.0, "kW-hr/min"},
    {1.0, "kW-hr/hr"}, {0.0416667, "kW-hr/day"}, {0.00595238, "kW-hr/wk"},
    {0.00138889, "kW-hr/mon"}, {0.000114077, "kW-hr/yr"}, {0.001, "W"}, {1.0, "kW"},
};
// 28: energy per mass; base kJ/kg.
inline constexpr UnitFactor kSpecificEnergyUnits[] = {
    {1.0, "J/g"}, {1.0, "J/g"}, {0.001, "J/kg"}, {0.001, "J/kg"}, {0.00220462, "J/lb"},
    {0.00220462, "J/lb"}, {1000.0, "kJ/g"}, {1000.0, "kJ/g"}, {1.0, "kJ/kg"}, {1.0, "kJ/kg"},
    {2.20462, "kJ/lb"}, {2.20462, "kJ/lb"}, {1e+6, "MJ/g"}, {1e+6, "MJ/g"}, {1000.0, "MJ/kg"},
    {1000.0, "MJ/kg"}, {2204.62, "MJ/lb"}, {2204.62, "MJ/lb"}, {4.1868, "cal/g"}, {4.1868, "cal/g"},
    {0.0041868, "cal/kg"}, {0.0041868, "cal/kg"}, {0.00923031, "cal/lb"}, {0.00923031, "cal/lb"},
    {4186.8, "kcal/g"}, {4186.8, "kcal/g"}, {4.1868, "kcal/kg"}, {4.1868, "kcal/kg"},
    {9.23031, "kcal/lb"}, {9.23031, "kcal/lb"}, {1055.06, "BTU/g"}, {1055.06, "BTU/g"},
    {1.05506, "BTU/kg"}, {1.05506, "BTU/kg"}, {2.326, "BTU/lb"}, {2.326, "BTU/lb"},
    {1899.1, "CHU/g"}, {1899.1, "CHU/g"}, {1.8991, "CHU/kg"}, {1.8991, "CHU/kg"},
    {4.1868, "CHU/lb"}, {4.1868, "CHU/lb"}, {1899.1, "PCU/g"}, {1899.1, "PCU/g"},
    {1.8991, "PCU/kg"}, {1.8991, "PCU/kg"}, {4.1868, "PCU/lb"}, {4.1868, "PCU/lb"},
    {4186.8, "kcal/g"}, {4186.8, "kcal/g"}, {4.1868, "kcal/kg"}, {4.1868, "kcal/kg"},
    {4.1868, "cal/g"}, {4.1868, "cal/g"}, {0.0041868, "cal/kg"}, {0.0041868, "cal/kg"},
    {1055.06, "BTU/g"}, {1055.06, "BTU/g"}, {1.05506, "BTU/kg"}, {1.05506, "BTU/kg"},
    {2.326, "BTU/lb"}, {2.326, "BTU/lb"},
};
// 29, 30: heat capacity, entropy; base kJ/kg-K.
inline constexpr UnitFactor kSpecificHeatUnits[] = {
    {1.0, "J/g-K"}, {1.0, "J/g-K"}, {0.001, "J/kg-K"}, {0.001, "J/kg-K"}, {1000.0, "kJ/g-K"},
    {1000.0, "kJ/g-K"}, {1.0, "kJ/kg-K"}, {1.0, "kJ/kg-K"}, {1e+6, "MJ/g-K"}, {1e+6, "MJ/g-K"},
    {1000.0, "MJ/kg-K"}, {1000.0, "MJ/kg-K"}, {4.1868, "cal/g-K"}, {4.1868, "cal/g-K"},
    {0.0041868, "cal/kg-K"}, {0.0041868, "cal/kg-K"}, {4186.8, "kcal/g-K"}, {4186.8, "kcal/g-K"},
    {4.1868, "kcal/kg-K"}, {4.1868, "kcal/kg-K"}, {4.1868, "BTU/lb-F"}, {4.1868, "BTU/lb-F"},
    {3418.38, "CHU/g-F"}, {3418.38, "CHU/g-F"}, {3.41838, "CHU/kg-F"}, {3.41838, "CHU/kg-F"},
    {7.53624, "CHU/lb-F"}, {7.53624, "CHU/lb-F"}, {3418.38, "PCU/g-F"}, {3418.38, "PCU/g-F"},
    {3.41838, "PCU/kg-F"}, {3.41838, "PCU/kg-F"}, {7.53624, "PCU/lb-F"}, {7.53624, "PCU/lb-F"},
};
// 31, 32: volume per mass, of liquid and of vapor; base m3/kg.
inline constexpr UnitFactor kSpecificVolumeUnits[] = {
    {0.00220462, "liter/lb"}, {0.00220462, "liter/lb"}, {0.001, "liter/kg"}, {0.001, "liter/kg"},
    {1.0, "liter/g"}, {1.0, "liter/g"}, {1000.0, "m3/g"}, {1000.0, "m3/g"}, {0.0083454, "gal/lb"},
    {0.0083454, "gal/lb"}, {1e-6, "cm3/kg"}, {1e-6, "cm3/kg"}, {0.001, "cm3/g"}, {0.001, "cm3/g"},
    {1.0, "m3/kg"}, {1.0, "m3/kg"}, {3.61273e-5, "in3/lb"}, {3.61273e-5, "in3/lb"},
    {0.062428, "ft3/lb"}, {0.062428, "ft3/lb"}, {1.68555, "yd3/lb"}, {1.68555, "yd3/lb"},
    {0.0100224, "igal/lb"}, {0.0100224, "igal/lb"}, {0.350507, "bbl/lb"}, {0.350507, "bbl/lb"},
    {1e-6, "liter/tonm"}, {1e-6, "liter/tonm"}, {2.20462, "m3/lb"}, {2.20462, "m3/lb"},
    {0.001, "m3/tonm"}, {0.001, "m3/tonm"}, {2.20462e-6, "cm3/lb"}, {2.20462e-6, "cm3/lb"},
    {3.78541, "gal/g"}, {3.78541, "gal/g"}, {0.00378541, "gal/kg"}, {0.00378541, "gal/kg"},
    {3.78541e-6, "gal/tonm"}, {3.78541e-6, "gal/tonm"}, {4.54609, "igal/g"}, {4.54609, "igal/g"},
    {0.00454609, "igal/kg"}, {0.00454609, "igal/kg"}, {0.0163871, "in3/g"}, {0.0163871, "in3/g"},
    {1.63871e-5, "in3/kg"}, {1.63871e-5, "in3/kg"}, {28.3168, "ft3/g"}, {28.3168, "ft3/g"},
    {0.0283168, "ft3/kg"}, {0.0283168, "ft3/kg"}, {2.83168e-5, "ft3/tonm"},
    {2.83168e-5, "ft3/tonm"}, {0.764555, "yd3/kg"}, {0.764555, "yd3/kg"}, {158.987, "bbl/g"},
    {158.987, "bbl/g"}, {0.158987, "bbl/kg"}, {0.158987, "bbl/kg"}, {0.000158987, "bbl/tonm"},
    {0.000158987, "bbl/tonm"}, {1.0, "KL/kg"}, {1.0, "KL/kg"},
};
// 33 and, its first 123, 34: volume rate, standard vapor rate; base m3/s.
inline constexpr UnitFactor kVolumeRateUnits[] = {
    {1e-30, "ang3/sec"}, {1.66667e-32, "ang3/min"}, {2.77778e-34, "ang3/hr"},
    {1.15741e-35, "ang3/day"}, {3.85802e-37, "ang3/mon"}, {3.16881e-38, "ang3/yr"},
    {1e-27, "mmic3/sec"}, {1.66667e-29, "mmic3/min"}, {2.77778e-31, "mmic3/hr"},
    {1.15741e-32, "mmic3/day"}, {3.85802e-34, "mmic3/mon"}, {3.16881e-35, "mmic3/yr"},
    {1e-18, "mic3/sec"}, {1.66667e-20, "mic3/min"}, {2.77778e-22, "mic3/hr"},
    {1.15741e-23, "mic3/day"}, {3.85802e-25, "mic3/mon"}, {3.16881e-26, "mic3/yr"},
    {1e-9, "mm3/sec"}, {1.66667e-11, "mm3/min"}, {2.77778e-13, "mm3/hr"}, {1.15741e-14, "mm3/day"},
    {3.85802e-16, "mm3/mon"}, {3.16881e-17, "mm3/yr"}, {1e-6, "cm3/sec"}, {1.66667e-8, "cm3/min"},
    {2.77778e-10, "cm3/hr"}, {1.15741e-11, "cm3/day"}, {3.85802e-13, "cm3/mon"},
    {3.16881e-14, "cm3/yr"}, {0.001, "dm3/sec"}, {1.66667e-5, "dm3/min"}, {2.77778e-7, "dm3/hr"},
    {1.15741e-8, "dm3/day"}, {3.85802e-10, "dm3/mon"}, {3.16881e-11, "dm3/yr"}, {1.0, "m3/sec"},
    {0.0166667, "m3/min"}, {0.000277778, "m3/hr"}, {1.15741e-5, "m3/day"}, {3.85802e-7, "m3/mon"},
    {3.16881e-8, "m3/yr"}, {1e+9, "km3/sec"}, {1.66667e+7, "km3/min"}, {277778.0, "km3/hr"},
    {11574.1, "km3/day"}, {385.802, "km3/mon"}, {31.6881, "km3/yr"}, {1.63871e-5, "in3/sec"},
    {2.73118e-7, "in3/min"}, {4.55196e-9, "in3/hr"}, {1.89665e-10, "in3/day"},
    {6.32217e-12, "in3/mon"}, {5.19275e-13, "in3/yr"}, {0.0283168, "ft3/sec"},
    {0.000471947, "ft3/min"}, {7.86579e-6, "ft3/hr"}, {3.27741e-7, "ft3/day"},
    {1.09247e-8, "ft3/mon"}, {8.97307e-10, "ft3/yr"}, {0.764555, "yd3/sec"}, {0.0127426, "yd3/min"},
    {0.000212376, "yd3/hr"}, {8.84901e-6, "yd3/day"}, {2.94967e-7, "yd3/mon"},
    {2.42273e-8, "yd3/yr"}, {4.16818e+9, "mi3/sec"}, {6.94697e+7, "mi3/min"},
    {1.15783e+6, "mi3/hr"}, {48242.8, "mi3/day"}, {1608.09, "mi3/mon"}, {132.082, "mi3/yr"},
    {0.001, "liter/sec"}, {1.66667e-5, "liter/min"}, {2.77778e-7, "liter/hr"},
    {1.15741e-8, "liter/day"}, {3.85802e-10, "liter/mon"}, {3.16881e-11, "liter/yr"},
    {0.00378541, "gal/sec"}, {6.30902e-5, "gal/min"}, {1.0515e-6, "gal/hr"},
    {4.38126e-8, "gal/day"}, {1.46042e-9, "gal/mon"}, {1.19952e-10, "gal/yr"},
    {0.00454609, "igal/sec"}, {7.57682e-5, "igal/min"}, {1.2628e-6, "igal/hr"},
    {5.26168e-8, "igal/day"}, {1.75389e-9, "igal/mon"}, {1.44057e-10, "igal/yr"},
    {0.158987, "bbl/sec"}, {0.00264979, "bbl/min"}, {4.41631e-5, "bbl/hr"}, {1.84013e-6, "bbl/day"},
    {6.13377e-8, "bbl/mon"}, {5.038e-9, "bbl/yr"}, {158.987, "Mbbl/sec"}, {2.64979, "Mbbl/min"},
    {0.0441631, "Mbbl/hr"}, {0.00184013, "Mbbl/day"}, {6.13377e-5, "Mbbl/mon"},
    {5.038e-6, "Mbbl/yr"}, {1.0, "KL/sec"}, {0.0166667, "KL/min"}, {0.000277778, "KL/hr"},
    {1.15741e-5, "KL/day"}, {3.85802e-7, "KL/mon"}, {3.16881e-8, "KL/yr"}, {3.78541, "Mgal/sec"},
    {0.0630902, "Mgal/min"}, {0.0010515, "Mgal/hr"}, {4.38126e-5, "Mgal/day"},
    {1.46042e-6, "Mgal/mon"}, {1.19952e-7, "Mgal/yr"}, {3785.41, "MMgal/sec"},
    {63.0902, "MMgal/min"}, {1.0515, "MMgal/hr"}, {0.0438126, "MMgal/day"},
    {0.00146042, "MMgal/mon"}, {0.000119952, "MMgal/yr"}, {1e+6, "MMm3/sec"}, {16666.7, "MMm3/min"},
    {277.778, "MMm3/hr"}, {11.5741, "MMm3/day"}, {0.385802, "MMm3/mon"}, {0.0316881, "MMm3/yr"},
    {28.3168, "Mft3/sec"}, {0.471947, "Mft3/min"}, {0.00786579, "Mft3/hr"},
    {0.000327741, "Mft3/day"}, {1.09247e-5, "Mft3/mon"}, {8.97307e-7, "Mft3/yr"},
    {28316.8, "MMft3/sec"}, {471.947, "MMft3/min"}, {7.86579, "MMft3/hr"}, {0.327741, "MMft3/day"},
    {0.0109247, "MMft3/mon"}, {0.000897307, "MMft3/yr"}, {1.0, "m3/sec"}, {0.0166667, "m3/min"},
    {0.000277778, "m3/hr"}, {1.15741e-5, "m3/day"}, {1.65344e-6, "m3/wk"}, {3.85802e-7, "m3/mon"},
    {3.16881e-8, "m3/yr"},
};
// 35: thermal conductivity; base W/m-K.
inline constexpr UnitFactor kConductivityUnits[] = {
    {1.0, "W/m-K"}, {1.0, "W/m-K"}, {1.0, "W/m-C"}, {1.0, "W/m-C"}, {1000.0, "kW/m-K"},
    {1000.0, "kW/m-K"}, {1000.0, "kW/m-C"}, {1000.0, "kW/m-C"}, {418.68, "cal/sec-cm-C"},
    {418.68, "cal/sec-cm-C"}, {0.001163, "cal/hr-m-C"}, {0.001163, "cal/hr-m-C"},
    {1.163, "kcal/hr-m-C"}, {1.163, "kcal/hr-m-C"}, {1.73073, "BTU/hr-ft-F"},
    {1.73073, "BTU/hr-ft-F"},
};
// 36, 37, 38: heat transfer coefficient, film coefficient, a further one; base W/m2-K.
inline constexpr UnitFactor kHeatTransferUnits[] = {
    {1.0, "W/m2-K"}, {1.0, "W/m2-C"}, {1000.0, "kW/m2-K"}, {41868.0, "cal/sec-cm2-C"},
    {1.163, "kcal/hr-m2-C"}, {1.163, "kcal/hr-m2-K"}, {0.277778, "kJ/hr-m2-K"},
    {5.67826, "BTU/hr-ft2-F"},
};
// 39: heat transfer coefficient times area; base W/K.
inline constexpr UnitFactor kConductanceUnits[] = {
    {1.0, "W/K"}, {1.0, "W/K"}, {1000.0, "kW/K"}, {1000.0, "kW/K"}, {1.163, "kcal/hr-K"},
    {1.163, "kcal/hr-K"}, {0.277778, "kJ/hr-K"}, {0.277778, "kJ/hr-K"}, {0.527528, "BTU/hr-F"},
    {0.527528, "BTU/hr-F"},
};
// 40: viscosity; base cP.
inline constexpr UnitFactor kViscosityUnits[] = {
    {1.0, "cP"}, {100.0, "POIS"}, {1000.0, "Pa-sec"}, {1000.0, "kg/m-sec"}, {1000.0, "kg/m-sec"},
    {16.6667, "kg/m-min"}, {16.6667, "kg/m-min"}, {0.277778, "kg/m-hr"}, {0.277778, "kg/m-hr"},
    {0.0115741, "kg/m-day"}, {0.0115741, "kg/m-day"}, {1488.16, "lb/ft-sec"},
    {1488.16, "lb/ft-sec"}, {24.8027, "lb/ft-min"}, {24.8027, "lb/ft-min"}, {0.413379, "lb/ft-hr"},
    {0.413379, "lb/ft-hr"}, {0.0172241, "lb/ft-day"}, {0.0172241, "lb/ft-day"},
    {47880.3, "lb-sec/ft2"}, {47880.3, "lb-sec/ft2"},
};
// 41: kinematic viscosity; base m2/s.
inline constexpr UnitFactor kKinematicViscosityUnits[] = {
    {1e-6, "cST"}, {0.0001, "ST"}, {0.00064516, "in2/sec"}, {1.0, "m2/sec"},
};
// 42: surface tension; base N/m.
inline constexpr UnitFactor kSurfaceTensionUnits[] = {
    {0.9806614, "g/cm"}, {0.9806614, "g/cm"}, {0.001, "dyne/cm"}, {0.001, "dyne/cm"},
    {0.001, "dyne/cm"}, {1.0, "N/m"}, {1.0, "N/m"}, {5.443092, "PDL/in"}, {5.443092, "PDL/in"},
};
// 43, 44: kinds that no factor can convert.
inline constexpr UnitFactor kNoFactorUnits[] = {
    {0.0, ""}, {0.0, ""}, {0.0, ""}, {0.0, ""}, {0.0, ""}, {0.0, ""}, {0.0, ""}, {0.0, ""},
    {0.0, ""}, {0.0, ""},
};
// 45 to 48: fractions; base fraction.
inline constexpr UnitFactor kFractionUnits[] = {
    {1.0, "fraction"}, {0.01, "percent"}, {1e-06, "ppm"},
};
// 49: dipole moment; base debye.
inline constexpr UnitFactor kDipoleUnits[] = {
    {1.0, "DEB"}, {2.99792e+29, "Coul-m"}, {2.99792e+29, "Coul-m"}, {1e+18, "EU"},
};
// 50: rotation; base revolutions per second.
inline constexpr UnitFactor kRotationUnits[] = {
    {1.0, "rps"}, {0.0166667, "rpm"}, {0.000277778, "rph"}, {1.15741e-5, "rpd"},
    {0.159155, "rad/sec"}, {1.0, "revolution/sec"},
};

// By class from 1.
inline constexpr std::span<UnitFactor const> kUnitFactors[] = {
    kTemperatureUnits, kTemperatureUnits, kTemperatureUnits, kPressureUnits, kPressureUnits,
    std::span(kPressureUnits).first(25), kMassUnits, kTimeUnits, kLengthUnits, kLengthUnits,
    kAreaUnits, kVolumeUnits, kVolumeUnits, kGasVolumeUnits, kMoleUnits,
    kMassRateUnits, kMoleRateUnits, kMolarMassUnits, kDensityUnits, kDensityUnits,
    kDensityUnits, kMolarVolumeUnits, kMolarVolumeUnits, kEnergyUnits, kPowerUnits,
    kPowerUnits, kPowerUnits, kSpecificEnergyUnits, kSpecificHeatUnits, kSpecificHeatUnits,
    kSpecificVolumeUnits, kSpecificVolumeUnits, kVolumeRateUnits,
    std::span(kVolumeRateUnits).first(123), kConductivityUnits,
    kHeatTransferUnits, kHeatTransferUnits, kHeatTransferUnits, kConductanceUnits, kViscosityUnits,
    kKinematicViscosityUnits, kSurfaceTensionUnits, kNoFactorUnits, kNoFactorUnits, kFractionUnits,
    kFractionUnits, kFractionUnits, kFractionUnits, kDipoleUnits, kRotationUnits,
};
// clang-format on
inline constexpr int kUnitClasses = sizeof kUnitFactors / sizeof kUnitFactors[0];

}  // namespace zel

// Units of unit codes: density, volume by mole and by mass. Above each table are its classes, at
// the start of each line the position of its first unit.
#pragma once

#include "frame/units/unit_factor.h"

namespace zel {

// clang-format off
// 19, 20, 21: density, of standard liquid, of standard vapor; base kg/m3.
inline constexpr UnitFactor kDensityUnits[] = {
    /* 10 */ {0.001, "g/KL"}, {0.001, "g/KL"}, {1.0, "g/liter"}, {1.0, "g/liter"},
    /* 14 */ {0.264172, "g/gal"}, {0.264172, "g/gal"}, {0.00628981, "g/bbl"}, {0.00628981, "g/bbl"},
    /* 18 */ {1000.0, "kg/liter"}, {1000.0, "kg/liter"}, {264.172, "kg/gal"}, {264.172, "kg/gal"},
    /* 22 */ {6.28981, "kg/bbl"}, {6.28981, "kg/bbl"}, {453.592, "lb/liter"}, {453.592, "lb/liter"},
    /* 26 */ {119.826, "lb/gal"}, {119.826, "lb/gal"}, {99.7764, "lb/igal"}, {99.7764, "lb/igal"},
    /* 30 */ {2.85301, "lb/bbl"}, {2.85301, "lb/bbl"}, {0.453592, "lb/KL"}, {0.453592, "lb/KL"},
    /* 34 */ {1e+6, "tonm/liter"}, {1e+6, "tonm/liter"},
    /* 36 */ {264172.0, "tonm/gal"}, {264172.0, "tonm/gal"},
    /* 38 */ {6289.81, "tonm/bbl"}, {6289.81, "tonm/bbl"},
    /* 40 */ {907185.0, "ton/liter"}, {907185.0, "ton/liter"},
    /* 42 */ {239653.0, "ton/gal"}, {239653.0, "ton/gal"},
    /* 44 */ {5706.02, "ton/bbl"}, {5706.02, "ton/bbl"},
    /* 46 */ {1.01605e+6, "tonl/liter"}, {1.01605e+6, "tonl/liter"},
    /* 48 */ {268411.0, "tonl/gal"}, {268411.0, "tonl/gal"},
    /* 50 */ {6390.74, "tonl/bbl"}, {6390.74, "tonl/bbl"},
    /* 52 */ {28.3495, "oz/liter"}, {28.3495, "oz/liter"}, {7.48915, "oz/gal"}, {7.48915, "oz/gal"},
    /* 56 */ {0.178313, "oz/bbl"}, {0.178313, "oz/bbl"},
    /* 58 */ {119826.0, "klb/gal"}, {119826.0, "klb/gal"},
    /* 60 */ {2853.01, "klb/bbl"}, {2853.01, "klb/bbl"}, {1.0, "kg/KL"},
    /* 63 */ {1000.0, "g/cm3"}, {1000.0, "g/cm3"}, {1.0, "g/dm3"}, {1.0, "g/dm3"},
    /* 67 */ {0.001, "g/m3"}, {0.001, "g/m3"}, {61.0237, "g/in3"}, {61.0237, "g/in3"},
    /* 71 */ {0.0353147, "g/ft3"}, {0.0353147, "g/ft3"}, {1e+6, "kg/cm3"}, {1e+6, "kg/cm3"},
    /* 75 */ {1000.0, "kg/dm3"}, {1000.0, "kg/dm3"}, {61023.7, "kg/in3"}, {61023.7, "kg/in3"},
    /* 79 */ {35.3147, "kg/ft3"}, {35.3147, "kg/ft3"}, {1.0, "kg/m3"}, {1.0, "kg/m3"},
    /* 83 */ {1000.0, "tonm/m3"}, {1000.0, "tonm/m3"}, {1186.55, "ton/yd3"}, {1186.55, "ton/yd3"},
    /* 87 */ {1729.99, "oz/in3"}, {1729.99, "oz/in3"}, {27679.9, "lb/in3"}, {27679.9, "lb/in3"},
    /* 91 */ {16.0185, "lb/ft3"}, {16.0185, "lb/ft3"},
};
// 22, 23: molar volume, of liquid and of vapor; base m3/kg-mol.
inline constexpr UnitFactor kMolarVolumeUnits[] = {
    /* 10 */ {0.00220462, "liter/lb-mol"}, {0.00220462, "liter/lb-mol"},
    /* 12 */ {0.001, "liter/kg-mol"}, {0.001, "liter/kg-mol"},
    /* 14 */ {1.0, "liter/g-mol"}, {1.0, "liter/g-mol"}, {1000.0, "m3/g-mol"}, {1000.0, "m3/g-mol"},
    /* 18 */ {0.0083454, "gal/lb-mol"}, {0.0083454, "gal/lb-mol"},
    /* 20 */ {1e-6, "cm3/kg-mol"}, {1e-6, "cm3/kg-mol"}, {0.001, "cm3/g-mol"}, {0.001, "cm3/g-mol"},
    /* 24 */ {1.0, "m3/kg-mol"}, {1.0, "m3/kg-mol"},
    /* 26 */ {3.61273e-5, "in3/lb-mol"}, {3.61273e-5, "in3/lb-mol"},
    /* 28 */ {0.062428, "ft3/lb-mol"}, {0.062428, "ft3/lb-mol"},
    /* 30 */ {1.68555, "yd3/lb-mol"}, {1.68555, "yd3/lb-mol"},
    /* 32 */ {0.0100224, "igal/lb-mol"}, {0.0100224, "igal/lb-mol"},
    /* 34 */ {0.350507, "bbl/lb-mol"}, {0.350507, "bbl/lb-mol"},
    /* 36 */ {1e-6, "liter/tonm-mol"}, {1e-6, "liter/tonm-mol"},
    /* 38 */ {2.20462, "m3/lb-mol"}, {2.20462, "m3/lb-mol"},
    /* 40 */ {0.001, "m3/tonm-mol"}, {0.001, "m3/tonm-mol"},
    /* 42 */ {2.20462e-6, "cm3/lb-mol"}, {2.20462e-6, "cm3/lb-mol"},
    /* 44 */ {3.78541, "gal/g-mol"}, {3.78541, "gal/g-mol"},
    /* 46 */ {0.00378541, "gal/kg-mol"}, {0.00378541, "gal/kg-mol"},
    /* 48 */ {3.78541e-6, "gal/tonm-mol"}, {3.78541e-6, "gal/tonm-mol"},
    /* 50 */ {4.54609, "igal/g-mol"}, {4.54609, "igal/g-mol"},
    /* 52 */ {0.00454609, "igal/kg-mol"}, {0.00454609, "igal/kg-mol"},
    /* 54 */ {0.0163871, "in3/g-mol"}, {0.0163871, "in3/g-mol"},
    /* 56 */ {1.63871e-5, "in3/kg-mol"}, {1.63871e-5, "in3/kg-mol"},
    /* 58 */ {28.3168, "ft3/g-mol"}, {28.3168, "ft3/g-mol"},
    /* 60 */ {0.0283168, "ft3/kg-mol"}, {0.0283168, "ft3/kg-mol"},
    /* 62 */ {2.83168e-5, "ft3/tonm-mol"}, {2.83168e-5, "ft3/tonm-mol"},
    /* 64 */ {0.764555, "yd3/kg-mol"}, {0.764555, "yd3/kg-mol"},
    /* 66 */ {158.987, "bbl/g-mol"}, {158.987, "bbl/g-mol"},
    /* 68 */ {0.158987, "bbl/kg-mol"}, {0.158987, "bbl/kg-mol"},
    /* 70 */ {0.000158987, "bbl/tonm-mol"}, {0.000158987, "bbl/tonm-mol"},
    /* 72 */ {1.0, "KL/kg-mol"}, {1.0, "KL/kg-mol"},
};
// 31, 32: volume per mass, of liquid and of vapor; base m3/kg.
inline constexpr UnitFactor kSpecificVolumeUnits[] = {
    /* 10 */ {0.00220462, "liter/lb"}, {0.00220462, "liter/lb"},
    /* 12 */ {0.001, "liter/kg"}, {0.001, "liter/kg"}, {1.0, "liter/g"}, {1.0, "liter/g"},
    /* 16 */ {1000.0, "m3/g"}, {1000.0, "m3/g"}, {0.0083454, "gal/lb"}, {0.0083454, "gal/lb"},
    /* 20 */ {1e-6, "cm3/kg"}, {1e-6, "cm3/kg"}, {0.001, "cm3/g"}, {0.001, "cm3/g"},
    /* 24 */ {1.0, "m3/kg"}, {1.0, "m3/kg"}, {3.61273e-5, "in3/lb"}, {3.61273e-5, "in3/lb"},
    /* 28 */ {0.062428, "ft3/lb"}, {0.062428, "ft3/lb"}, {1.68555, "yd3/lb"}, {1.68555, "yd3/lb"},
    /* 32 */ {0.0100224, "igal/lb"}, {0.0100224, "igal/lb"},
    /* 34 */ {0.350507, "bbl/lb"}, {0.350507, "bbl/lb"}, {1e-6, "liter/tonm"}, {1e-6, "liter/tonm"},
    /* 38 */ {2.20462, "m3/lb"}, {2.20462, "m3/lb"}, {0.001, "m3/tonm"}, {0.001, "m3/tonm"},
    /* 42 */ {2.20462e-6, "cm3/lb"}, {2.20462e-6, "cm3/lb"}, {3.78541, "gal/g"}, {3.78541, "gal/g"},
    /* 46 */ {0.00378541, "gal/kg"}, {0.00378541, "gal/kg"},
    /* 48 */ {3.78541e-6, "gal/tonm"}, {3.78541e-6, "gal/tonm"},
    /* 50 */ {4.54609, "igal/g"}, {4.54609, "igal/g"},
    /* 52 */ {0.00454609, "igal/kg"}, {0.00454609, "igal/kg"},
    /* 54 */ {0.0163871, "in3/g"}, {0.0163871, "in3/g"},
    /* 56 */ {1.63871e-5, "in3/kg"}, {1.63871e-5, "in3/kg"}, {28.3168, "ft3/g"}, {28.3168, "ft3/g"},
    /* 60 */ {0.0283168, "ft3/kg"}, {0.0283168, "ft3/kg"},
    /* 62 */ {2.83168e-5, "ft3/tonm"}, {2.83168e-5, "ft3/tonm"},
    /* 64 */ {0.764555, "yd3/kg"}, {0.764555, "yd3/kg"}, {158.987, "bbl/g"}, {158.987, "bbl/g"},
    /* 68 */ {0.158987, "bbl/kg"}, {0.158987, "bbl/kg"},
    /* 70 */ {0.000158987, "bbl/tonm"}, {0.000158987, "bbl/tonm"}, {1.0, "KL/kg"}, {1.0, "KL/kg"},
};
// clang-format on

}  // namespace zel

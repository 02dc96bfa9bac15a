// Units of unit codes: energy, power, energy by mass. Above each table are its classes, at the
// start of each line the position of its first unit.
#pragma once

#include "frame/units/unit_factor.h"

namespace zel {

// clang-format off
// 24: energy; base kJ.
inline constexpr UnitFactor kEnergyUnits[] = {
    /* 10 */ {0.001, "J"}, {1.0, "kJ"}, {0.0041868, "cal"}, {4.1868, "kcal"}, {9.80665e-08, "g-cm"},
    /* 15 */ {0.00980665, "kg-m"}, {0.00135582, "ft-lb"}, {1.05506, "BTU"}, {1.8991, "CHU"},
    /* 19 */ {1.8991, "PCU"}, {3600.0, "kW-hr"}, {0.001, "J"},
};
// 25, 26, 27: power, heat duty, energy rate; base kW.
inline constexpr UnitFactor kPowerUnits[] = {
    /* 10 */ {0.001, "J/sec"}, {1.66667e-5, "J/min"}, {2.77778e-7, "J/hr"}, {1.15741e-8, "J/day"},
    /* 14 */ {1.65344e-9, "J/wk"}, {3.85802e-10, "J/mon"}, {3.16881e-11, "J/yr"},
    /* 17 */ {1.0, "kJ/sec"}, {0.0166667, "kJ/min"}, {0.000277778, "kJ/hr"}, {1.15741e-5, "kJ/day"},
    /* 21 */ {1.65344e-6, "kJ/wk"}, {3.85802e-7, "kJ/mon"}, {3.16881e-8, "kJ/yr"},
    /* 24 */ {0.0041868, "cal/sec"}, {6.978e-5, "cal/min"}, {1.163e-6, "cal/hr"},
    /* 27 */ {4.84583e-8, "cal/day"}, {6.92262e-9, "cal/wk"}, {1.61528e-9, "cal/mon"},
    /* 30 */ {1.32672e-10, "cal/yr"},
    /* 31 */ {4.1868, "kcal/sec"}, {0.06978, "kcal/min"}, {0.001163, "kcal/hr"},
    /* 34 */ {4.84583e-5, "kcal/day"}, {6.92262e-6, "kcal/wk"}, {1.61528e-6, "kcal/mon"},
    /* 37 */ {1.32672e-7, "kcal/yr"},
    /* 38 */ {9.80665e-8, "g-cm/sec"}, {1.63444e-9, "g-cm/min"}, {2.72407e-11, "g-cm/hr"},
    /* 41 */ {1.13503e-12, "g-cm/day"}, {1.62147e-13, "g-cm/wk"}, {3.78343e-14, "g-cm/mon"},
    /* 44 */ {3.10754e-15, "g-cm/yr"},
    /* 45 */ {0.00980665, "kg-m/sec"}, {0.000163444, "kg-m/min"}, {2.72407e-6, "kg-m/hr"},
    /* 48 */ {1.13503e-7, "kg-m/day"}, {1.62147e-8, "kg-m/wk"}, {3.78343e-9, "kg-m/mon"},
    /* 51 */ {3.10754e-10, "kg-m/yr"},
    /* 52 */ {0.00135582, "ft-lb/sec"}, {2.2597e-5, "ft-lb/min"}, {3.76616e-7, "ft-lb/hr"},
    /* 55 */ {1.56923e-8, "ft-lb/day"}, {2.24176e-9, "ft-lb/wk"}, {5.23078e-10, "ft-lb/mon"},
    /* 58 */ {4.29633e-11, "ft-lb/yr"},
    /* 59 */ {1.05506, "BTU/sec"}, {0.0175843, "BTU/min"}, {0.000293071, "BTU/hr"},
    /* 62 */ {1.22113e-5, "BTU/day"}, {1.74447e-6, "BTU/wk"}, {4.07043e-7, "BTU/mon"},
    /* 65 */ {3.34327e-8, "BTU/yr"},
    /* 66 */ {1.8991, "CHU/sec"}, {0.0316517, "CHU/min"}, {0.000527528, "CHU/hr"},
    /* 69 */ {2.19803e-5, "CHU/day"}, {3.14005e-6, "CHU/wk"}, {7.32678e-7, "CHU/mon"},
    /* 72 */ {6.01789e-8, "CHU/yr"},
    /* 73 */ {1.8991, "PCU/sec"}, {0.0316517, "PCU/min"}, {0.000527528, "PCU/hr"},
    /* 76 */ {2.19803e-5, "PCU/day"}, {3.14005e-6, "PCU/wk"}, {7.32678e-7, "PCU/mon"},
    /* 79 */ {6.01789e-8, "PCU/yr"},
    /* 80 */ {3600.0, "kW-hr/sec"}, {60.0, "kW-hr/min"}, {1.0, "kW-hr/hr"},
    /* 83 */ {0.0416667, "kW-hr/day"}, {0.00595238, "kW-hr/wk"}, {0.00138889, "kW-hr/mon"},
    /* 86 */ {0.000114077, "kW-hr/yr"},
    /* 87 */ {0.001, "J/sec"}, {1.66667e-5, "J/min"}, {2.77778e-7, "J/hr"}, {1.15741e-8, "J/day"},
    /* 91 */ {1.65344e-9, "J/wk"}, {3.85802e-10, "J/mon"}, {3.16881e-11, "J/yr"},
    /* 94 */ {0.001, "W"}, {1.0, "kW"},
};
// 28: energy per mass; base kJ/kg.
inline constexpr UnitFactor kSpecificEnergyUnits[] = {
    /* 10 */ {1.0, "J/g"}, {1.0, "J/g"}, {0.001, "J/kg"}, {0.001, "J/kg"},
    /* 14 */ {0.00220462, "J/lb"}, {0.00220462, "J/lb"},
    /* 16 */ {1000.0, "kJ/g"}, {1000.0, "kJ/g"}, {1.0, "kJ/kg"}, {1.0, "kJ/kg"},
    /* 20 */ {2.20462, "kJ/lb"}, {2.20462, "kJ/lb"},
    /* 22 */ {1e+6, "MJ/g"}, {1e+6, "MJ/g"}, {1000.0, "MJ/kg"}, {1000.0, "MJ/kg"},
    /* 26 */ {2204.62, "MJ/lb"}, {2204.62, "MJ/lb"},
    /* 28 */ {4.1868, "cal/g"}, {4.1868, "cal/g"}, {0.0041868, "cal/kg"}, {0.0041868, "cal/kg"},
    /* 32 */ {0.00923031, "cal/lb"}, {0.00923031, "cal/lb"},
    /* 34 */ {4186.8, "kcal/g"}, {4186.8, "kcal/g"}, {4.1868, "kcal/kg"}, {4.1868, "kcal/kg"},
    /* 38 */ {9.23031, "kcal/lb"}, {9.23031, "kcal/lb"},
    /* 40 */ {1055.06, "BTU/g"}, {1055.06, "BTU/g"}, {1.05506, "BTU/kg"}, {1.05506, "BTU/kg"},
    /* 44 */ {2.326, "BTU/lb"}, {2.326, "BTU/lb"},
    /* 46 */ {1899.1, "CHU/g"}, {1899.1, "CHU/g"}, {1.8991, "CHU/kg"}, {1.8991, "CHU/kg"},
    /* 50 */ {4.1868, "CHU/lb"}, {4.1868, "CHU/lb"},
    /* 52 */ {1899.1, "PCU/g"}, {1899.1, "PCU/g"}, {1.8991, "PCU/kg"}, {1.8991, "PCU/kg"},
    /* 56 */ {4.1868, "PCU/lb"}, {4.1868, "PCU/lb"},
    /* 58 */ {4186.8, "kcal/g"}, {4186.8, "kcal/g"}, {4.1868, "kcal/kg"}, {4.1868, "kcal/kg"},
    /* 62 */ {4.1868, "cal/g"}, {4.1868, "cal/g"}, {0.0041868, "cal/kg"}, {0.0041868, "cal/kg"},
    /* 66 */ {1055.06, "BTU/g"}, {1055.06, "BTU/g"}, {1.05506, "BTU/kg"}, {1.05506, "BTU/kg"},
    /* 70 */ {2.326, "BTU/lb"}, {2.326, "BTU/lb"},
};
// 29, 30: heat capacity, entropy; base kJ/kg-K.
inline constexpr UnitFactor kSpecificHeatUnits[] = {
    /* 10 */ {1.0, "J/g-K"}, {1.0, "J/g-K"}, {0.001, "J/kg-K"}, {0.001, "J/kg-K"},
    /* 14 */ {1000.0, "kJ/g-K"}, {1000.0, "kJ/g-K"}, {1.0, "kJ/kg-K"}, {1.0, "kJ/kg-K"},
    /* 18 */ {1e+6, "MJ/g-K"}, {1e+6, "MJ/g-K"}, {1000.0, "MJ/kg-K"}, {1000.0, "MJ/kg-K"},
    /* 22 */ {4.1868, "cal/g-K"}, {4.1868, "cal/g-K"},
    /* 24 */ {0.0041868, "cal/kg-K"}, {0.0041868, "cal/kg-K"},
    /* 26 */ {4186.8, "kcal/g-K"}, {4186.8, "kcal/g-K"},
    /* 28 */ {4.1868, "kcal/kg-K"}, {4.1868, "kcal/kg-K"},
    /* 30 */ {4.1868, "BTU/lb-F"}, {4.1868, "BTU/lb-F"}, {3418.38, "CHU/g-F"}, {3418.38, "CHU/g-F"},
    /* 34 */ {3.41838, "CHU/kg-F"}, {3.41838, "CHU/kg-F"},
    /* 36 */ {7.53624, "CHU/lb-F"}, {7.53624, "CHU/lb-F"},
    /* 38 */ {3418.38, "PCU/g-F"}, {3418.38, "PCU/g-F"},
    /* 40 */ {3.41838, "PCU/kg-F"}, {3.41838, "PCU/kg-F"},
    /* 42 */ {7.53624, "PCU/lb-F"}, {7.53624, "PCU/lb-F"},
};
// clang-format on

}  // namespace zel

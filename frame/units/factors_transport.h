// Units of unit codes: conductivity, heat transfer, viscosity, surface tension. Above each table
// are its classes, at the start of each line the position of its first unit.
#pragma once

#include "frame/units/unit_factor.h"

namespace zel {

// clang-format off
// 35: thermal conductivity; base W/m-K.
inline constexpr UnitFactor kConductivityUnits[] = {
    /* 10 */ {1.0, "W/m-K"}, {1.0, "W/m-K"}, {1.0, "W/m-C"}, {1.0, "W/m-C"},
    /* 14 */ {1000.0, "kW/m-K"}, {1000.0, "kW/m-K"}, {1000.0, "kW/m-C"}, {1000.0, "kW/m-C"},
    /* 18 */ {418.68, "cal/sec-cm-C"}, {418.68, "cal/sec-cm-C"},
    /* 20 */ {0.001163, "cal/hr-m-C"}, {0.001163, "cal/hr-m-C"},
    /* 22 */ {1.163, "kcal/hr-m-C"}, {1.163, "kcal/hr-m-C"},
    /* 24 */ {1.73073, "BTU/hr-ft-F"}, {1.73073, "BTU/hr-ft-F"},
};
// 36, 37, 38: heat transfer coefficient, film coefficient, a further one; base W/m2-K.
inline constexpr UnitFactor kHeatTransferUnits[] = {
    /* 10 */ {1.0, "W/m2-K"}, {1.0, "W/m2-C"}, {1000.0, "kW/m2-K"}, {41868.0, "cal/sec-cm2-C"},
    /* 14 */ {1.163, "kcal/hr-m2-C"}, {1.163, "kcal/hr-m2-K"}, {0.277778, "kJ/hr-m2-K"},
    /* 17 */ {5.67826, "BTU/hr-ft2-F"},
};
// 39: heat transfer coefficient times area; base W/K.
inline constexpr UnitFactor kConductanceUnits[] = {
    /* 10 */ {1.0, "W/K"}, {1.0, "W/K"}, {1000.0, "kW/K"}, {1000.0, "kW/K"},
    /* 14 */ {1.163, "kcal/hr-K"}, {1.163, "kcal/hr-K"},
    /* 16 */ {0.277778, "kJ/hr-K"}, {0.277778, "kJ/hr-K"},
    /* 18 */ {0.527528, "BTU/hr-F"}, {0.527528, "BTU/hr-F"},
};
// 40: viscosity; base cP.
inline constexpr UnitFactor kViscosityUnits[] = {
    /* 10 */ {1.0, "cP"}, {100.0, "POIS"}, {1000.0, "Pa-sec"},
    /* 13 */ {1000.0, "kg/m-sec"}, {1000.0, "kg/m-sec"},
    /* 15 */ {16.6667, "kg/m-min"}, {16.6667, "kg/m-min"},
    /* 17 */ {0.277778, "kg/m-hr"}, {0.277778, "kg/m-hr"},
    /* 19 */ {0.0115741, "kg/m-day"}, {0.0115741, "kg/m-day"},
    /* 21 */ {1488.16, "lb/ft-sec"}, {1488.16, "lb/ft-sec"},
    /* 23 */ {24.8027, "lb/ft-min"}, {24.8027, "lb/ft-min"},
    /* 25 */ {0.413379, "lb/ft-hr"}, {0.413379, "lb/ft-hr"},
    /* 27 */ {0.0172241, "lb/ft-day"}, {0.0172241, "lb/ft-day"},
    /* 29 */ {47880.3, "lb-sec/ft2"}, {47880.3, "lb-sec/ft2"},
};
// 41: kinematic viscosity; base m2/s.
inline constexpr UnitFactor kKinematicViscosityUnits[] = {
    /* 10 */ {1e-6, "cST"}, {0.0001, "ST"}, {0.00064516, "in2/sec"}, {1.0, "m2/sec"},
};
// 42: surface tension; base N/m. The factors of g/cm and PDL/in are those that stored data were
// made with; they differ from the true ones (0.980665, 5.44311) in the sixth digit.
inline constexpr UnitFactor kSurfaceTensionUnits[] = {
    /* 10 */ {0.9806614, "g/cm"}, {0.9806614, "g/cm"}, {0.001, "dyne/cm"}, {0.001, "dyne/cm"},
    /* 14 */ {0.001, "dyne/cm"}, {1.0, "N/m"}, {1.0, "N/m"},
    /* 17 */ {5.443092, "PDL/in"}, {5.443092, "PDL/in"},
};
// clang-format on

}  // namespace zel

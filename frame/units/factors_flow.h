// Units of unit codes: mass, molar and volume rates. Above each table are its classes, at the start
// of each line the position of its first unit.
#pragma once

#include "frame/units/unit_factor.h"

namespace zel {

// clang-format off
// 16: mass rate; base kg/s.
inline constexpr UnitFactor kMassRateUnits[] = {
    /* 10 */ {0.001, "g/sec"}, {1.66667e-5, "g/min"}, {2.77778e-7, "g/hr"},
    /* 13 */ {1.0, "kg/sec"}, {0.0166667, "kg/min"}, {0.000277778, "kg/hr"},
    /* 16 */ {1000.0, "tonm/sec"}, {16.6667, "tonm/min"}, {0.277778, "tonm/hr"},
    /* 19 */ {1000.0, "tonm/sec"}, {16.6667, "tonm/min"}, {0.277778, "tonm/hr"},
    /* 22 */ {0.0283495, "oz/sec"}, {0.000472492, "oz/min"}, {7.87487e-6, "oz/hr"},
    /* 25 */ {0.453592, "lb/sec"}, {0.00755987, "lb/min"}, {0.000125998, "lb/hr"},
    /* 28 */ {453.592, "klb/sec"}, {7.55987, "klb/min"}, {0.125998, "klb/hr"},
    /* 31 */ {907.185, "ton/sec"}, {15.1197, "ton/min"}, {0.251996, "ton/hr"}, {907.185, "ton/sec"},
    /* 35 */ {15.1197, "ton/min"}, {0.251996, "ton/hr"},
    /* 37 */ {1016.05, "tonl/sec"}, {16.9341, "tonl/min"}, {0.282235, "tonl/hr"},
    /* 40 */ {1016.05, "tonl/sec"}, {16.9341, "tonl/min"}, {0.282235, "tonl/hr"},
};
// 17: molar rate; base kg-mol/s.
inline constexpr UnitFactor kMoleRateUnits[] = {
    /* 10 */ {0.001, "g-mol/sec"}, {1.66667e-5, "g-mol/min"}, {2.77778e-7, "g-mol/hr"},
    /* 13 */ {1.15741e-8, "g-mol/day"}, {1.65344e-9, "g-mol/wk"}, {3.85802e-10, "g-mol/mon"},
    /* 16 */ {3.16881e-11, "g-mol/yr"},
    /* 17 */ {1.0, "kg-mol/sec"}, {0.0166667, "kg-mol/min"}, {0.000277778, "kg-mol/hr"},
    /* 20 */ {1.15741e-5, "kg-mol/day"}, {1.65344e-6, "kg-mol/wk"}, {3.85802e-7, "kg-mol/mon"},
    /* 23 */ {3.16881e-8, "kg-mol/yr"},
    /* 24 */ {1000.0, "tonm-mol/sec"}, {16.6667, "tonm-mol/min"}, {0.277778, "tonm-mol/hr"},
    /* 27 */ {0.0115741, "tonm-mol/day"}, {0.00165344, "tonm-mol/wk"},
    /* 29 */ {0.000385802, "tonm-mol/mon"}, {3.16881e-5, "tonm-mol/yr"},
    /* 31 */ {0.453592, "lb-mol/sec"}, {0.00755987, "lb-mol/min"}, {0.000125998, "lb-mol/hr"},
    /* 34 */ {5.24991e-6, "lb-mol/day"}, {7.49987e-7, "lb-mol/wk"}, {1.74997e-7, "lb-mol/mon"},
    /* 37 */ {1.43735e-8, "lb-mol/yr"},
};
// 33 and, its first 123, 34: volume rate, standard vapor rate; base m3/s.
inline constexpr UnitFactor kVolumeRateUnits[] = {
    /* 10 */ {1e-30, "ang3/sec"}, {1.66667e-32, "ang3/min"}, {2.77778e-34, "ang3/hr"},
    /* 13 */ {1.15741e-35, "ang3/day"}, {3.85802e-37, "ang3/mon"}, {3.16881e-38, "ang3/yr"},
    /* 16 */ {1e-27, "mmic3/sec"}, {1.66667e-29, "mmic3/min"}, {2.77778e-31, "mmic3/hr"},
    /* 19 */ {1.15741e-32, "mmic3/day"}, {3.85802e-34, "mmic3/mon"}, {3.16881e-35, "mmic3/yr"},
    /* 22 */ {1e-18, "mic3/sec"}, {1.66667e-20, "mic3/min"}, {2.77778e-22, "mic3/hr"},
    /* 25 */ {1.15741e-23, "mic3/day"}, {3.85802e-25, "mic3/mon"}, {3.16881e-26, "mic3/yr"},
    /* 28 */ {1e-9, "mm3/sec"}, {1.66667e-11, "mm3/min"}, {2.77778e-13, "mm3/hr"},
    /* 31 */ {1.15741e-14, "mm3/day"}, {3.85802e-16, "mm3/mon"}, {3.16881e-17, "mm3/yr"},
    /* 34 */ {1e-6, "cm3/sec"}, {1.66667e-8, "cm3/min"}, {2.77778e-10, "cm3/hr"},
    /* 37 */ {1.15741e-11, "cm3/day"}, {3.85802e-13, "cm3/mon"}, {3.16881e-14, "cm3/yr"},
    /* 40 */ {0.001, "dm3/sec"}, {1.66667e-5, "dm3/min"}, {2.77778e-7, "dm3/hr"},
    /* 43 */ {1.15741e-8, "dm3/day"}, {3.85802e-10, "dm3/mon"}, {3.16881e-11, "dm3/yr"},
    /* 46 */ {1.0, "m3/sec"}, {0.0166667, "m3/min"}, {0.000277778, "m3/hr"}, {1.15741e-5, "m3/day"},
    /* 50 */ {3.85802e-7, "m3/mon"}, {3.16881e-8, "m3/yr"},
    /* 52 */ {1e+9, "km3/sec"}, {1.66667e+7, "km3/min"}, {277778.0, "km3/hr"}, {11574.1, "km3/day"},
    /* 56 */ {385.802, "km3/mon"}, {31.6881, "km3/yr"},
    /* 58 */ {1.63871e-5, "in3/sec"}, {2.73118e-7, "in3/min"}, {4.55196e-9, "in3/hr"},
    /* 61 */ {1.89665e-10, "in3/day"}, {6.32217e-12, "in3/mon"}, {5.19275e-13, "in3/yr"},
    /* 64 */ {0.0283168, "ft3/sec"}, {0.000471947, "ft3/min"}, {7.86579e-6, "ft3/hr"},
    /* 67 */ {3.27741e-7, "ft3/day"}, {1.09247e-8, "ft3/mon"}, {8.97307e-10, "ft3/yr"},
    /* 70 */ {0.764555, "yd3/sec"}, {0.0127426, "yd3/min"}, {0.000212376, "yd3/hr"},
    /* 73 */ {8.84901e-6, "yd3/day"}, {2.94967e-7, "yd3/mon"}, {2.42273e-8, "yd3/yr"},
    /* 76 */ {4.16818e+9, "mi3/sec"}, {6.94697e+7, "mi3/min"}, {1.15783e+6, "mi3/hr"},
    /* 79 */ {48242.8, "mi3/day"}, {1608.09, "mi3/mon"}, {132.082, "mi3/yr"},
    /* 82 */ {0.001, "liter/sec"}, {1.66667e-5, "liter/min"}, {2.77778e-7, "liter/hr"},
    /* 85 */ {1.15741e-8, "liter/day"}, {3.85802e-10, "liter/mon"}, {3.16881e-11, "liter/yr"},
    /* 88 */ {0.00378541, "gal/sec"}, {6.30902e-5, "gal/min"}, {1.0515e-6, "gal/hr"},
    /* 91 */ {4.38126e-8, "gal/day"}, {1.46042e-9, "gal/mon"}, {1.19952e-10, "gal/yr"},
    /* 94 */ {0.00454609, "igal/sec"}, {7.57682e-5, "igal/min"}, {1.2628e-6, "igal/hr"},
    /* 97 */ {5.26168e-8, "igal/day"}, {1.75389e-9, "igal/mon"}, {1.44057e-10, "igal/yr"},
    /* 100 */ {0.158987, "bbl/sec"}, {0.00264979, "bbl/min"}, {4.41631e-5, "bbl/hr"},
    /* 103 */ {1.84013e-6, "bbl/day"}, {6.13377e-8, "bbl/mon"}, {5.038e-9, "bbl/yr"},
    /* 106 */ {158.987, "Mbbl/sec"}, {2.64979, "Mbbl/min"}, {0.0441631, "Mbbl/hr"},
    /* 109 */ {0.00184013, "Mbbl/day"}, {6.13377e-5, "Mbbl/mon"}, {5.038e-6, "Mbbl/yr"},
    /* 112 */ {1.0, "KL/sec"}, {0.0166667, "KL/min"}, {0.000277778, "KL/hr"},
    /* 115 */ {1.15741e-5, "KL/day"}, {3.85802e-7, "KL/mon"}, {3.16881e-8, "KL/yr"},
    /* 118 */ {3.78541, "Mgal/sec"}, {0.0630902, "Mgal/min"}, {0.0010515, "Mgal/hr"},
    /* 121 */ {4.38126e-5, "Mgal/day"}, {1.46042e-6, "Mgal/mon"}, {1.19952e-7, "Mgal/yr"},
    /* 124 */ {3785.41, "MMgal/sec"}, {63.0902, "MMgal/min"}, {1.0515, "MMgal/hr"},
    /* 127 */ {0.0438126, "MMgal/day"}, {0.00146042, "MMgal/mon"}, {0.000119952, "MMgal/yr"},
    /* 130 */ {1e+6, "MMm3/sec"}, {16666.7, "MMm3/min"}, {277.778, "MMm3/hr"},
    /* 133 */ {11.5741, "MMm3/day"}, {0.385802, "MMm3/mon"}, {0.0316881, "MMm3/yr"},
    /* 136 */ {28.3168, "Mft3/sec"}, {0.471947, "Mft3/min"}, {0.00786579, "Mft3/hr"},
    /* 139 */ {0.000327741, "Mft3/day"}, {1.09247e-5, "Mft3/mon"}, {8.97307e-7, "Mft3/yr"},
    /* 142 */ {28316.8, "MMft3/sec"}, {471.947, "MMft3/min"}, {7.86579, "MMft3/hr"},
    /* 145 */ {0.327741, "MMft3/day"}, {0.0109247, "MMft3/mon"}, {0.000897307, "MMft3/yr"},
    /* 148 */ {1.0, "m3/sec"}, {0.0166667, "m3/min"}, {0.000277778, "m3/hr"},
    /* 151 */ {1.15741e-5, "m3/day"}, {1.65344e-6, "m3/wk"}, {3.85802e-7, "m3/mon"},
    /* 154 */ {3.16881e-8, "m3/yr"},
};
// clang-format on

}  // namespace zel

// The units of unit codes: 50 classes, 1617 positions, by class and position from 10.
//
// A unit often has two consecutive positions: programs that share these codes have two spellings of
// it. Factors have six digits, except those that stored data were made with. A position keeps its
// unit for ever, since codes are stored.
#pragma once

#include <span>

#include "frame/units/factors_basic.h"
#include "frame/units/factors_density.h"
#include "frame/units/factors_energy.h"
#include "frame/units/factors_flow.h"
#include "frame/units/factors_transport.h"
#include "frame/units/unit_factor.h"

namespace zel {

// clang-format off
// By class, from 1.
inline constexpr std::span<UnitFactor const> kUnitFactors[] = {
    /*  1 */ kTemperatureUnits, kTemperatureUnits, kTemperatureUnits,
    /*  4 */ kPressureUnits, kPressureUnits, std::span(kPressureUnits).first(25),
    /*  7 */ kMassUnits, kTimeUnits, kLengthUnits, kLengthUnits, kAreaUnits,
    /* 12 */ kVolumeUnits, kVolumeUnits, kGasVolumeUnits,
    /* 15 */ kMoleUnits, kMassRateUnits, kMoleRateUnits, kMolarMassUnits,
    /* 19 */ kDensityUnits, kDensityUnits, kDensityUnits,
    /* 22 */ kMolarVolumeUnits, kMolarVolumeUnits,
    /* 24 */ kEnergyUnits, kPowerUnits, kPowerUnits, kPowerUnits, kSpecificEnergyUnits,
    /* 29 */ kSpecificHeatUnits, kSpecificHeatUnits,
    /* 31 */ kSpecificVolumeUnits, kSpecificVolumeUnits,
    /* 33 */ kVolumeRateUnits, std::span(kVolumeRateUnits).first(123),
    /* 35 */ kConductivityUnits, kHeatTransferUnits, kHeatTransferUnits, kHeatTransferUnits,
    /* 39 */ kConductanceUnits, kViscosityUnits, kKinematicViscosityUnits, kSurfaceTensionUnits,
    /* 43 */ kNoFactorUnits, kNoFactorUnits,
    /* 45 */ kFractionUnits, kFractionUnits, kFractionUnits, kFractionUnits,
    /* 49 */ kDipoleUnits, kRotationUnits,
};
// clang-format on
inline constexpr int kUnitClasses = sizeof kUnitFactors / sizeof kUnitFactors[0];
static_assert(kUnitClasses == 50);

}  // namespace zel

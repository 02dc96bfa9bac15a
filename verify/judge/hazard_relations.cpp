// Flammability limits, flash point, autoignition; the dielectric constant.
#include <algorithm>

#include "verify/judge/relation_tables.h"
#include "verify/judge/relation_terms.h"

namespace zel {
namespace {

// The mole fraction of fuel in a mixture with air that burns to CO2, H2O, SO2 and hydrogen halides;
// NaN for a substance that does not burn. Only organic fuels burn alike: hydrogen and carbon
// disulfide have much wider limits.
double Stoichiometric(Reading const& r) {
  double const halogens = r.Atoms("F") + r.Atoms("Cl") + r.Atoms("Br") + r.Atoms("I");
  double const oxygen = r.Atoms("C") + r.Atoms("S") + r.Atoms("Si") +
                        (r.Atoms("H") - halogens) / 4.0 - r.Atoms("O") / 2.0;
  constexpr double kAir = 4.773;  // air for one part of oxygen
  bool const isOrganic = r.Atoms("C") > 0.0 && r.Atoms("H") > 0.0;
  return isOrganic && oxygen > 0.0 ? 1.0 / (1.0 + kAir * oxygen) : std::nan("");
}

// G. W. Jones, Chem. Rev. 22 (1938) 1, with factors fitted to 240 limits.
Found LowerLimit(Reading& r, JudgeRule const& rule) {
  constexpr double kShare = 0.5;
  return Outcome::Factor(Of(propertyLOFLAMM), r.OwnConstant(propertyLOFLAMM),
                         kShare * Stoichiometric(r), rule.tolerance);
}

Found UpperLimit(Reading& r, JudgeRule const& rule) {
  constexpr double kShare = 3.7;
  return Outcome::Factor(Of(propertyHIFLAMM), r.OwnConstant(propertyHIFLAMM),
                         kShare * Stoichiometric(r), rule.tolerance);
}

// M. J. Burgess, R. V. Wheeler, J. Chem. Soc. 99 (1911) 2013: a mixture at the limit has about
// 42 MJ/kg-mol.
Found HeatAtLowerLimit(Reading& r, JudgeRule const& rule) {
  constexpr double kHeat = 41500.0;  // kJ/kg-mol
  if (r.Atoms("C") == 0.0 || r.Atoms("H") == 0.0) return std::nullopt;
  double const stored = r.Constant(propertyLOFLAMM);
  return Outcome::Factor(Of(propertyLOFLAMM), stored,
                         kHeat / -r.Constant(propertyHCOMBUST, Stake::kMinor), rule.tolerance);
}

Found OrderOfLimits(Reading& r, JudgeRule const& rule) {
  double const upper = r.Constant(propertyHIFLAMM);
  double const lower = r.Constant(propertyLOFLAMM);
  return AtLeast(Of(propertyHIFLAMM), upper, lower, rule.tolerance * lower);
}

// At the flash point the vapor above the liquid burns.
Found PressureAtFlash(Reading& r, JudgeRule const& rule) {
  double const kelvin = r.Constant(propertyFLASHPOINT);
  double const pressure = r.At(correlationVaporPressure, kelvin, Stake::kMinor);
  constexpr double kExcess = 1.4;  // limits are measured upwards in hotter tubes
  double const expected = kExcess * kAtmospheric * r.Constant(propertyLOFLAMM, Stake::kMinor);
  return At(Outcome::Factor(Of(correlationVaporPressure), pressure, expected, rule.tolerance),
            kelvin);
}

// Two fits to 160 flash points.
Found FlashOfBoiling(Reading& r, JudgeRule const& rule) {
  double const stored = r.Constant(propertyFLASHPOINT);
  double const boiling = r.Constant(propertyNBP, Stake::kMinor);
  return Outcome::Factor(Of(propertyFLASHPOINT), stored, 2.2526 * std::pow(boiling, 0.8172),
                         rule.tolerance);
}

Found FlashOfLimit(Reading& r, JudgeRule const& rule) {
  double const stored = r.Constant(propertyFLASHPOINT);
  double const boiling = r.Constant(propertyNBP, Stake::kMinor);
  double const limit = r.Constant(propertyLOFLAMM, Stake::kMinor);
  return Outcome::Factor(Of(propertyFLASHPOINT), stored,
                         1.1213 * std::pow(boiling, 0.9783) * std::pow(limit, 0.0636),
                         rule.tolerance);
}

Found IgnitionAboveFlash(Reading& r, JudgeRule const& rule) {
  double const flash = r.Constant(propertyFLASHPOINT);
  return AtLeast(Of(propertyAUTOIGNITION), r.Constant(propertyAUTOIGNITION), flash, rule.tolerance);
}

Found DielectricConstant(Reading& r, JudgeRule const& rule) {
  double const stored = r.Constant(propertyDIELECTRIC);
  double const kelvin = r.Constant(propertyTDIELECTRIC, Stake::kMinor);
  double const expected = r.At(correlationDielectric, kelvin);
  constexpr double kGas = 1.1;  // a curve of the gas
  if (expected < kGas && stored >= kGas) return std::nullopt;
  return Outcome::Factor(Of(propertyDIELECTRIC), stored, expected, rule.tolerance);
}

// The substance must be a liquid at that temperature.
Found TemperatureOfDielectric(Reading& r, JudgeRule const& rule) {
  double const kelvin = r.Constant(propertyTDIELECTRIC);
  double const low = r.Constant(propertyNMP, Stake::kMinor);
  double const high = r.Constant(propertyTC, Stake::kMinor);
  if (!(low < high)) return std::nullopt;
  return AtBound(Outcome::Factor(Of(propertyTDIELECTRIC), kelvin, std::clamp(kelvin, low, high),
                                 rule.tolerance));
}

// L. Onsager, J. Am. Chem. Soc. 58 (1936) 1486. Hydrogen bonds raise the dielectric constant, pairs
// of molecules lower it.
Found DipoleOfDielectric(Reading& r, JudgeRule const& rule) {
  double const stored = r.Constant(propertyDIPOLE, Stake::kMinor);
  double const epsilon = r.Constant(propertyDIELECTRIC, Stake::kMinor);
  double const kelvin = r.Constant(propertyTDIELECTRIC, Stake::kMinor);
  double const density = r.At(correlationLiquidDensity, kelvin, Stake::kMinor);
  constexpr double kRefraction = 1.95;  // square of the refractive index
  constexpr double kUnit = 0.16420;     // debye^2 kg-mol/(m3 K): 9 k/(4 pi NA)
  constexpr double kUsual = 1.25;       // by hydrogen bonds, in the mean
  constexpr double kShare = 0.25;
  double const ratio = (epsilon - kRefraction) * (2.0 * epsilon + kRefraction) /
                       (epsilon * (kRefraction + 2.0) * (kRefraction + 2.0));
  double const square = kUnit * kelvin / density * ratio;
  double const expected = std::sqrt(std::max(square, 0.0)) / kUsual;
  return Outcome::Absolute(Of(propertyDIPOLE), stored, expected,
                           rule.tolerance + kShare * expected);
}

constexpr Relation kRows[] = {
    {{"lower-limit", "LOFLAMM = 0.5 of the fuel in a stoichiometric mixture with air", 0.5,
      "factor 1.65: 97 of 100 limits of handbooks are within it"},
     "the formula",
     LowerLimit},
    {{"lower-limit-heat", "LOFLAMM = 41.5 MJ/kg-mol/-HCOMBUST", 0.45,
      "factor 1.57: 96 of 100 limits of handbooks are within it"},
     "HCOMBUST",
     HeatAtLowerLimit},
    {{"upper-limit", "HIFLAMM = 3.7 of the fuel in a stoichiometric mixture with air", 1.1,
      "factor 3: 96 of 100 limits of handbooks are within it"},
     "the formula",
     UpperLimit},
    {{"flammable-range", "HIFLAMM > LOFLAMM", 0.1, "10 % of LOFLAMM"}, "LOFLAMM", OrderOfLimits},
    {{"flash-pressure", "p(FLASHPOINT) = 1.4 LOFLAMM 101.325 kPa", 2,
      "factor 7.39: about 30 K; methods of measurement differ, and so do limits"},
     "LOFLAMM",
     PressureAtFlash},
    {{"flash-boiling", "FLASHPOINT = 2.2526 NBP^0.8172", 0.11,
      "11 %: scatter of 166 flash points; 96 of 100 are within it"},
     "NBP",
     FlashOfBoiling},
    {{"flash-limit", "FLASHPOINT = 1.1213 NBP^0.9783 LOFLAMM^0.0636", 0.09,
      "9 %: scatter of 161 flash points; 96 of 100 are within it"},
     "NBP and LOFLAMM",
     FlashOfLimit},
    {{"ignition-flash", "AUTOIGNITION > FLASHPOINT", 10.0, "10 K"},
     "FLASHPOINT",
     IgnitionAboveFlash},
    {{"dielectric", "DIELECTRIC = dielectric constant at TDIELECTRIC", 0.025,
      "2.5 %: 96 of 100 handbook data are within it"},
     "the curve at TDIELECTRIC",
     DielectricConstant},
    {{"dielectric-temperature", "NMP <= TDIELECTRIC <= TC", 0.08, "8 %: supercooled liquids"},
     "NMP and TC",
     TemperatureOfDielectric},
    {{"dipole-dielectric", "DIPOLE from DIELECTRIC and the liquid density after Onsager", 0.75,
      "0.75 debye and 25 %: hydrogen bonds; 99 of 100 dipole moments are within it"},
     "DIELECTRIC and the liquid density",
     DipoleOfDielectric},
};

}  // namespace

std::span<Relation const> HazardRelations() { return kRows; }

}  // namespace zel

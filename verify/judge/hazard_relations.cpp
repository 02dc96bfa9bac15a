// Flammability limits, flash point, autoignition; the dielectric constant.
#include "verify/judge/relation_tables.h"
#include "verify/judge/relation_terms.h"

namespace zel {
namespace {

// The mole fraction of fuel in a mixture with air that burns to CO2, H2O, SO2 and hydrogen halides;
// NaN for what does not burn.
double Stoichiometric(Reading const& r) {
  double const halogens = r.Atoms("F") + r.Atoms("Cl") + r.Atoms("Br") + r.Atoms("I");
  double const oxygen = r.Atoms("C") + r.Atoms("S") + r.Atoms("Si") +
                        (r.Atoms("H") - halogens) / 4.0 - r.Atoms("O") / 2.0;
  constexpr double kAir = 4.773;  // air for one part of oxygen
  return r.HasFormula() && oxygen > 0.0 ? 1.0 / (1.0 + kAir * oxygen) : std::nan("");
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
  double const stored = r.Constant(propertyLOFLAMM);
  return Outcome::Factor(Of(propertyLOFLAMM), stored,
                         kHeat / -r.Constant(propertyHCOMBUST, Stake::kMinor), rule.tolerance);
}

Found OrderOfLimits(Reading& r, JudgeRule const& rule) {
  double const upper = r.Constant(propertyHIFLAMM, Stake::kMinor);
  double const lower = r.Constant(propertyLOFLAMM, Stake::kMinor);
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

Found FlashOfBoiling(Reading& r, JudgeRule const& rule) {
  constexpr double kRatio = 0.76;
  return Outcome::Factor(Of(propertyFLASHPOINT), r.Constant(propertyFLASHPOINT),
                         kRatio * r.Constant(propertyNBP, Stake::kMinor), rule.tolerance);
}

Found IgnitionAboveFlash(Reading& r, JudgeRule const& rule) {
  double const flash = r.Constant(propertyFLASHPOINT, Stake::kMinor);
  return AtLeast(Of(propertyAUTOIGNITION), r.Constant(propertyAUTOIGNITION, Stake::kMinor), flash,
                 rule.tolerance);
}

Found DielectricConstant(Reading& r, JudgeRule const& rule) {
  double const stored = r.Constant(propertyDIELECTRIC);
  double const kelvin = r.Constant(propertyTDIELECTRIC, Stake::kMinor);
  double const expected = r.At(correlationDielectric, kelvin);
  constexpr double kGas = 1.1;  // a curve of the gas
  if (expected < kGas && stored >= kGas) return std::nullopt;
  return Outcome::Factor(Of(propertyDIELECTRIC), stored, expected, rule.tolerance);
}

constexpr Relation kRows[] = {
    {{"lower-limit", "LOFLAMM = 0.5 of the fuel in a stoichiometric mixture with air", 0.5,
      "factor 1.65: 39 of 40 limits of handbooks are within it"},
     "the formula",
     LowerLimit},
    {{"lower-limit-heat", "LOFLAMM = 41.5 MJ/kg-mol/-HCOMBUST", 0.45,
      "factor 1.57: 39 of 40 limits of handbooks are within it"},
     "HCOMBUST",
     HeatAtLowerLimit},
    {{"upper-limit", "HIFLAMM = 3.7 of the fuel in a stoichiometric mixture with air", 1.1,
      "factor 3: 39 of 40 limits of handbooks are within it"},
     "the formula",
     UpperLimit},
    {{"flammable-range", "HIFLAMM > LOFLAMM", 0.1, "10 % of LOFLAMM"}, "LOFLAMM", OrderOfLimits},
    {{"flash-pressure", "p(FLASHPOINT) = 1.4 LOFLAMM 101.325 kPa", 2,
      "factor 7.39: about 30 K; methods of measurement differ, and so do limits"},
     "LOFLAMM",
     PressureAtFlash},
    {{"flash-boiling", "FLASHPOINT = 0.76 NBP", 0.16,
      "16 %: from gases to alcohols; 39 of 40 flash points of handbooks are within it"},
     "NBP",
     FlashOfBoiling},
    {{"ignition-flash", "AUTOIGNITION > FLASHPOINT", 10.0, "10 K"},
     "FLASHPOINT",
     IgnitionAboveFlash},
    {{"dielectric", "DIELECTRIC = dielectric constant at TDIELECTRIC", 0.025,
      "2.5 %: 49 of 50 handbook data are within it"},
     "the curve at TDIELECTRIC",
     DielectricConstant},
};

}  // namespace

std::span<Relation const> HazardRelations() { return kRows; }

}  // namespace zel

// Volumes and densities of the liquid, the parachor, the van der Waals volume and area.
#include <algorithm>

#include "verify/judge/relation_tables.h"
#include "verify/judge/relation_terms.h"

namespace zel {
namespace {

constexpr double kSixtyFahrenheit = 288.71;  // K
constexpr double kWaterAt60F = 999.016;      // kg/m3

Found MolarVolume(Reading& r, JudgeRule const& rule) {
  double const stored = r.Constant(propertyMVOL25C);
  return Outcome::Relative(Of(propertyMVOL25C), stored, 1.0 / r.At(correlationLiquidDensity, kRoom),
                           rule.tolerance);
}

Found SpecificGravity(Reading& r, JudgeRule const& rule) {
  double const stored = r.Constant(propertySG60F);
  double const density = r.At(correlationLiquidDensity, kSixtyFahrenheit);
  return Outcome::Relative(Of(propertySG60F), stored,
                           density * r.Constant(propertyMW, Stake::kMinor) / kWaterAt60F,
                           rule.tolerance);
}

// Liquids expand by 0.9 % from 60 F to 25 C.
Found GravityAndVolume(Reading& r, JudgeRule const& rule) {
  double const stored = r.Constant(propertySG60F);
  double const density = r.Constant(propertyMW, Stake::kMinor) / r.Constant(propertyMVOL25C);
  constexpr double kExpansion = 1.0092;
  return Outcome::Relative(Of(propertySG60F), stored, kExpansion * density / kWaterAt60F,
                           rule.tolerance);
}

// The parameter with which the equation gives a volume; C. F. Spencer, R. P. Danner, J. Chem. Eng.
// Data 17 (1972) 236.
double RackettOf(Reading& r, double kelvin, double volume) {
  double const critical = r.Constant(propertyTC, Stake::kMinor);
  double const reduced = volume * r.Constant(propertyPC) / (kGasConstant * critical);
  return std::pow(reduced, 1.0 / (1.0 + std::pow(1.0 - kelvin / critical, 2.0 / 7.0)));
}

constexpr double kReduced = 0.6;  // a temperature at which most liquids have a density

Found RackettOfDensity(Reading& r, JudgeRule const& rule) {
  if (IsQuantumFluid(r)) return std::nullopt;
  double const stored = r.Constant(propertyRACKETT);
  double const kelvin = kReduced * r.Constant(propertyTC, Stake::kMinor);
  double const density = r.At(correlationLiquidDensity, kelvin);
  return Outcome::Factor(Of(propertyRACKETT), stored, RackettOf(r, kelvin, 1.0 / density),
                         rule.tolerance);
}

Found RackettOfVolume(Reading& r, JudgeRule const& rule) {
  if (IsQuantumFluid(r)) return std::nullopt;
  double const stored = r.Constant(propertyRACKETT);
  double const volume = r.Constant(propertyMVOL25C);
  return Outcome::Factor(Of(propertyRACKETT), stored, RackettOf(r, kRoom, volume), rule.tolerance);
}

Found RackettOfAcentric(Reading& r, JudgeRule const& rule) {
  if (IsQuantumFluid(r)) return std::nullopt;
  double const stored = r.Constant(propertyRACKETT, Stake::kMinor);
  double const acentric = r.Constant(propertyACENTRIC, Stake::kMinor);
  return Outcome::Factor(Of(propertyRACKETT), stored, 0.29056 - 0.08775 * acentric, rule.tolerance);
}

// The reduced volume of a saturated liquid; R. W. Hankinson, G. H. Thomson, AIChE J. 25 (1979) 653.
double ReducedVolume(double t, double acentric) {
  double const root = std::cbrt(1.0 - t);
  double const simple = 1.0 - 1.52816 * root + 1.43907 * root * root - 0.81446 * (1.0 - t) +
                        0.190454 * root * (1.0 - t);
  double const correction =
      (-0.296123 + 0.386914 * t - 0.0427258 * t * t - 0.0480645 * t * t * t) / (t - 1.00001);
  return simple * (1.0 - acentric * correction);
}

Found CharacteristicOfDensity(Reading& r, JudgeRule const& rule) {
  if (IsQuantumFluid(r)) return std::nullopt;
  double const kelvin = kReduced * r.Constant(propertyTC, Stake::kMinor);
  double const stored = r.At(correlationCharacteristicVolume, kelvin);
  double const density = r.At(correlationLiquidDensity, kelvin);
  double const acentric = r.Constant(propertyACENTRIC, Stake::kMinor);
  return At(Outcome::Factor(Of(correlationCharacteristicVolume), stored,
                            1.0 / (density * ReducedVolume(kReduced, acentric)), rule.tolerance),
            kelvin);
}

Found CharacteristicOfVolume(Reading& r, JudgeRule const& rule) {
  if (IsQuantumFluid(r)) return std::nullopt;
  double const reduced = kRoom / r.Constant(propertyTC, Stake::kMinor);
  double const stored = r.At(correlationCharacteristicVolume, kRoom);
  double const acentric = r.Constant(propertyACENTRIC, Stake::kMinor);
  double const volume = r.Constant(propertyMVOL25C);
  return At(Outcome::Factor(Of(correlationCharacteristicVolume), stored,
                            volume / ReducedVolume(reduced, acentric), rule.tolerance),
            kRoom);
}

Found CharacteristicOfCritical(Reading& r, JudgeRule const& rule) {
  if (IsQuantumFluid(r)) return std::nullopt;
  double const stored = r.At(correlationCharacteristicVolume, kRoom, Stake::kMinor);
  return At(Outcome::Factor(Of(correlationCharacteristicVolume), stored,
                            r.Constant(propertyVC, Stake::kMinor), rule.tolerance),
            kRoom);
}

// M. T. Tyn, W. F. Calus, Processing 21 (1975) 16: in cm3/mol, 0.285 VC^1.048.
Found CriticalVolumeOfBoiling(Reading& r, JudgeRule const& rule) {
  if (IsQuantumFluid(r)) return std::nullopt;
  double const stored = r.Constant(propertyVC, Stake::kMinor);
  double const density =
      r.At(correlationLiquidDensity, r.Constant(propertyNBP, Stake::kMinor), Stake::kMinor);
  return Outcome::Factor(Of(propertyVC), stored,
                         1e-3 * std::pow(1e3 / density / 0.285, 1.0 / 1.048), rule.tolerance);
}

Found CriticalVolumeOfDensity(Reading& r, JudgeRule const& rule) {
  if (IsQuantumFluid(r)) return std::nullopt;
  double const stored = r.Constant(propertyVC, Stake::kMinor);
  double const kelvin = kReduced * r.Constant(propertyTC, Stake::kMinor);
  double const density = r.At(correlationLiquidDensity, kelvin, Stake::kMinor);
  double const acentric = r.Constant(propertyACENTRIC, Stake::kMinor);
  return Outcome::Factor(Of(propertyVC), stored,
                         1.0 / (density * ReducedVolume(kReduced, acentric)), rule.tolerance);
}

Found CriticalVolumeOfVolume(Reading& r, JudgeRule const& rule) {
  if (IsQuantumFluid(r)) return std::nullopt;
  double const stored = r.Constant(propertyVC, Stake::kMinor);
  double const reduced = kRoom / r.Constant(propertyTC, Stake::kMinor);
  double const volume = r.Constant(propertyMVOL25C, Stake::kMinor);
  double const acentric = r.Constant(propertyACENTRIC, Stake::kMinor);
  return Outcome::Factor(Of(propertyVC), stored, volume / ReducedVolume(reduced, acentric),
                         rule.tolerance);
}

// Compared if the record's own curve reaches TC.
Found DensityAtCritical(Reading& r, JudgeRule const& rule) {
  double const critical = r.Constant(propertyTC);
  double const density = r.OwnAt(correlationLiquidDensity, critical, Stake::kMinor);
  return At(Outcome::Factor(Of(correlationLiquidDensity), density,
                            1.0 / r.Constant(propertyVC, Stake::kMinor), rule.tolerance),
            critical);
}

// At the temperature nearest to 25 C at which the record's own surface tension is known.
Found ParachorOfTension(Reading& r, JudgeRule const& rule) {
  double const stored = r.Constant(propertyPARACHOR);
  KelvinRange const range = r.Range(correlationSurfaceTension);
  if (!range.IsBounded() || range.low > range.high) return std::nullopt;
  double const kelvin = std::clamp(kRoom, range.low, range.high);
  double const tension = r.OwnAt(correlationSurfaceTension, kelvin);
  double const liquid = r.At(correlationLiquidDensity, kelvin);
  constexpr double kMost = 0.85;  // of TC: beyond, small differences count
  if (!(kelvin < kMost * r.Of().Median(propertyTC))) return std::nullopt;
  double const pressure = r.Of().Median(propertyNBP) > kelvin
                              ? 0.0
                              : r.At(correlationVaporPressure, kelvin, Stake::kMinor);
  double const vapor = pressure / (kGasConstant * kelvin);
  constexpr double kUnit = 1e3;  // dyn/cm in a N/m, and cm3/mol in a m3/kg-mol
  double const expected = std::pow(kUnit * tension, 0.25) * kUnit / (liquid - vapor);
  return Outcome::Factor(Of(propertyPARACHOR), stored, expected, rule.tolerance);
}

// Corresponding states: what follows is proportional to powers of a liquid volume and of TC, fitted
// to 160 to 220 substances.
Found ParachorOfVolume(Reading& r, JudgeRule const& rule) {
  double const stored = r.Constant(propertyPARACHOR);
  double const volume = r.Constant(propertyMVOL25C);
  double const critical = r.Constant(propertyTC, Stake::kMinor);
  return Outcome::Factor(Of(propertyPARACHOR), stored,
                         62.3 * std::pow(volume, 0.8911) * std::pow(critical, 0.5261),
                         rule.tolerance);
}

Found ParachorOfDensity(Reading& r, JudgeRule const& rule) {
  if (IsQuantumFluid(r)) return std::nullopt;
  double const stored = r.Constant(propertyPARACHOR);
  double const critical = r.Constant(propertyTC, Stake::kMinor);
  double const density = r.At(correlationLiquidDensity, kReduced * critical);
  double const pressure = r.Constant(propertyPC, Stake::kMinor);
  double const expected =
      352.0 * std::pow(density, -0.9244) * std::pow(critical, 0.1918) * std::pow(pressure, 0.0511);
  return Outcome::Factor(Of(propertyPARACHOR), stored, expected, rule.tolerance);
}

Found ParachorOfCritical(Reading& r, JudgeRule const& rule) {
  if (IsQuantumFluid(r)) return std::nullopt;
  double const stored = r.Constant(propertyPARACHOR, Stake::kMinor);
  double const volume = r.Constant(propertyVC, Stake::kMinor);
  double const critical = r.Constant(propertyTC, Stake::kMinor);
  return Outcome::Factor(Of(propertyPARACHOR), stored,
                         196.0 * std::pow(volume, 0.8593) * std::pow(critical, 0.1877),
                         rule.tolerance);
}

// The volume is in units of 15.17 cm3/mol.
Found WaalsOfVolume(Reading& r, JudgeRule const& rule) {
  double const stored = r.Constant(propertyVDWV);
  double const volume = r.Constant(propertyMVOL25C);
  double const critical = r.Constant(propertyTC, Stake::kMinor);
  return Outcome::Factor(Of(propertyVDWV), stored,
                         1.1816 * std::pow(volume, 0.9518) * std::pow(critical, 0.5237),
                         rule.tolerance);
}

Found WaalsOfDensity(Reading& r, JudgeRule const& rule) {
  if (IsQuantumFluid(r)) return std::nullopt;
  double const stored = r.Constant(propertyVDWV, Stake::kMinor);
  double const kelvin = kReduced * r.Constant(propertyTC, Stake::kMinor);
  return Outcome::Factor(Of(propertyVDWV), stored,
                         34.9 / r.At(correlationLiquidDensity, kelvin, Stake::kMinor),
                         rule.tolerance);
}

// The area is in units of 2.5e9 cm2/mol.
Found WaalsArea(Reading& r, JudgeRule const& rule) {
  double const stored = r.Constant(propertyVDWA, Stake::kMinor);
  return Outcome::Factor(Of(propertyVDWA), stored,
                         0.259 + 0.786 * r.Constant(propertyVDWV, Stake::kMinor), rule.tolerance);
}

constexpr Relation kRows[] = {
    {{"molar-volume", "MVOL25C = 1/(liquid density at 25 C)", 0.013,
      "1.3 %: uncertainty of liquid densities; 98 of 100 handbook data are within it"},
     "the liquid density at 25 C",
     MolarVolume},
    {{"specific-gravity", "SG60F = liquid density at 60 F MW/999.016 kg/m3", 0.016,
      "1.6 %: uncertainty of liquid densities; 98 of 100 handbook data are within it"},
     "the liquid density at 60 F",
     SpecificGravity},
    {{"gravity-volume", "SG60F = 1.0092 MW/MVOL25C/999.016 kg/m3", 0.016,
      "1.6 %: expansion from 60 F to 25 C is 0.2 to 2 %"},
     "MW and MVOL25C",
     GravityAndVolume},
    {{"rackett", "RACKETT from the liquid density at 0.6 TC after Spencer and Danner", 0.07,
      "7 %: two critical points of handbooks; 98 of 100 data are within it"},
     "TC, PC and the liquid density at 0.6 TC",
     RackettOfDensity},
    {{"rackett-volume", "RACKETT from MVOL25C after Spencer and Danner", 0.07,
      "7 %: two critical points of handbooks; 98 of 100 data are within it"},
     "TC, PC and MVOL25C",
     RackettOfVolume},
    {{"rackett-acentric", "RACKETT = 0.29056 - 0.08775 ACENTRIC", 0.15,
      "15 %: error of the rule for polar substances"},
     "ACENTRIC",
     RackettOfAcentric},
    {{"characteristic-volume",
      "characteristic volume from the liquid density at 0.6 TC after Hankinson and Thomson", 0.07,
      "7 %: error of the method for polar substances; 95 of 100 data are within it"},
     "the liquid density at 0.6 TC",
     CharacteristicOfDensity},
    {{"characteristic-molar-volume",
      "characteristic volume from MVOL25C after Hankinson and Thomson", 0.07,
      "7 %: error of the method for polar substances; 94 of 100 data are within it"},
     "MVOL25C",
     CharacteristicOfVolume},
    {{"characteristic-critical", "characteristic volume = VC", 0.15,
      "15 %: the one is fitted to densities far below TC; 95 of 100 data are within it"},
     "VC",
     CharacteristicOfCritical},
    {{"boiling-volume", "VC from the liquid density at NBP after Tyn and Calus", 0.16,
      "16 %: error of the method for polar substances; 98 of 100 data are within it"},
     "the liquid density at NBP",
     CriticalVolumeOfBoiling},
    {{"critical-volume", "VC from the liquid density at 0.6 TC after Hankinson and Thomson", 0.16,
      "16 %: error of the method for polar substances; 98 of 100 data are within it"},
     "the liquid density at 0.6 TC and ACENTRIC",
     CriticalVolumeOfDensity},
    {{"critical-molar-volume", "VC from MVOL25C after Hankinson and Thomson", 0.13,
      "13 %: error of the method for polar substances; 98 of 100 data are within it"},
     "MVOL25C and ACENTRIC",
     CriticalVolumeOfVolume},
    {{"critical-density", "liquid density at TC = 1/VC", 0.25,
      "25 %: equations end steeply at TC; 96 of 100 data are within it"},
     "1/VC",
     DensityAtCritical},
    {{"parachor", "PARACHOR = surface tension^0.25/(density of liquid - of vapor)", 0.03,
      "3 %: a quarter of the uncertainty of surface tensions; 98 of 100 data are within it"},
     "surface tension and liquid density",
     ParachorOfTension},
    {{"parachor-volume", "PARACHOR = 62.3 MVOL25C^0.8911 TC^0.5261", 0.06,
      "6 %: scatter of 163 substances; 97 of 100 are within it"},
     "MVOL25C and TC",
     ParachorOfVolume},
    {{"parachor-density", "PARACHOR = 352 (liquid density at 0.6 TC)^-0.9244 TC^0.1918 PC^0.0511",
      0.07, "7 %: scatter of 219 substances; 97 of 100 are within it"},
     "the liquid density at 0.6 TC",
     ParachorOfDensity},
    {{"parachor-critical", "PARACHOR = 196 VC^0.8593 TC^0.1877", 0.15,
      "15 %: scatter of 225 substances; 97 of 100 are within it"},
     "VC and TC",
     ParachorOfCritical},
    {{"waals-volume", "VDWV = 1.1816 MVOL25C^0.9518 TC^0.5237", 0.12,
      "12 %: scatter of 162 substances; 96 of 100 are within it"},
     "MVOL25C and TC",
     WaalsOfVolume},
    {{"waals-density", "VDWV = 34.9/(liquid density at 0.6 TC)", 0.18,
      "18 %: scatter of 219 substances; 96 of 100 are within it"},
     "the liquid density at 0.6 TC",
     WaalsOfDensity},
    {{"waals-area", "VDWA = 0.259 + 0.786 VDWV", 0.2,
      "factor 1.22: rings and branches have less area; 97 of 100 data are within it"},
     "VDWV",
     WaalsArea},
};

}  // namespace

std::span<Relation const> VolumeRelations() { return kRows; }

}  // namespace zel

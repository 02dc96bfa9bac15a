// The identity, the critical point, boiling and melting.
#include "verify/judge/relation_tables.h"
#include "verify/judge/relation_terms.h"

namespace zel {
namespace {

Found WeightOfFormula(Reading& r, JudgeRule const& rule) {
  double const weight = r.OwnConstant(propertyMW);
  double const expected = GetFormulaWeight(r.Own().Identity().formula);
  if (!IsDefined(expected)) return std::nullopt;
  return Outcome::Relative(Of(propertyMW), weight, expected, rule.tolerance);
}

Found CarbonNumber(Reading& r, JudgeRule const& rule) {
  if (!r.HasFormula()) return std::nullopt;
  return Outcome::Absolute(Of(propertyCNUM), r.OwnConstant(propertyCNUM), r.Atoms("C"),
                           rule.tolerance);
}

double Compressibility(Reading& r, Stake stake = Stake::kFull) {
  double const volume = r.Constant(propertyVC, stake);
  return r.Constant(propertyPC, stake) * volume / (kGasConstant * r.Constant(propertyTC, stake));
}

Found CriticalCompressibility(Reading& r, JudgeRule const& rule) {
  double const stored = r.OwnConstant(propertyZC);
  return Outcome::Relative(Of(propertyZC), stored, Compressibility(r), rule.tolerance);
}

// The critical compressibility factor after Pitzer.
Found UsualCompressibility(Reading& r, JudgeRule const& rule) {
  double const volume = r.Constant(propertyVC, Stake::kMinor);
  double const acentric = r.Constant(propertyACENTRIC, Stake::kMinor);
  double const usual = 0.2905 - 0.085 * acentric;
  double const expected = usual * kGasConstant * r.Constant(propertyTC, Stake::kMinor) /
                          r.Constant(propertyPC, Stake::kMinor);
  return Outcome::Factor(Of(propertyVC), volume, expected, rule.tolerance);
}

Found ReducedBoiling(Reading& r, JudgeRule const& rule) {
  constexpr double kUsual = 1.5;
  return Outcome::Factor(Of(propertyTC), r.Constant(propertyTC, Stake::kMinor),
                         kUsual * r.Constant(propertyNBP, Stake::kMinor), rule.tolerance);
}

// Large molecules decompose near TC, so that their critical points are estimates.
double AcentricTolerance(JudgeRule const& rule, double expected) {
  constexpr double kSmall = 0.5;
  return rule.tolerance * (kSmall + std::abs(expected));
}

Found AcentricOfVaporPressure(Reading& r, JudgeRule const& rule) {
  double const acentric = r.Constant(propertyACENTRIC);
  double const pressure = r.At(correlationVaporPressure, 0.7 * r.Constant(propertyTC));
  double const expected = -std::log10(pressure / r.Constant(propertyPC)) - 1.0;
  return Outcome::Absolute(Of(propertyACENTRIC), acentric, expected,
                           AcentricTolerance(rule, expected));
}

// B. I. Lee, M. G. Kesler, AIChE J. 21 (1975) 510: the reduced vapor pressures of simple fluids and
// the correction that the acentric factor multiplies.
struct LeeKesler {
  double simple, correction;
};
LeeKesler ReducedPressure(double t) {
  double const power = std::pow(t, 6);
  return {5.92714 - 6.09648 / t - 1.28862 * std::log(t) + 0.169347 * power,
          15.2518 - 15.6875 / t - 13.4721 * std::log(t) + 0.43577 * power};
}

Found AcentricOfBoiling(Reading& r, JudgeRule const& rule) {
  double const acentric = r.Constant(propertyACENTRIC);
  LeeKesler const f = ReducedPressure(r.Constant(propertyNBP) / r.Constant(propertyTC));
  double const expected =
      (std::log(kAtmospheric / r.Constant(propertyPC)) - f.simple) / f.correction;
  return Outcome::Absolute(Of(propertyACENTRIC), acentric, expected,
                           AcentricTolerance(rule, expected));
}

Found PressureAtBoiling(Reading& r, JudgeRule const& rule) {
  double const boiling = r.Constant(propertyNBP);
  double const pressure = r.At(correlationVaporPressure, boiling);
  return At(Outcome::Factor(Of(correlationVaporPressure), pressure, kAtmospheric, rule.tolerance),
            boiling);
}

// Uses only the record's own curve: if that ends below TC, nothing is compared.
Found PressureAtCritical(Reading& r, JudgeRule const& rule) {
  double const critical = r.Constant(propertyTC);
  double const pressure = r.OwnAt(correlationVaporPressure, critical);
  return At(Outcome::Factor(Of(correlationVaporPressure), pressure, r.Constant(propertyPC),
                            rule.tolerance),
            critical);
}

Found TripleAndMelting(Reading& r, JudgeRule const& rule) {
  return Outcome::Relative(Of(propertyTTP), r.Constant(propertyTTP), r.Constant(propertyNMP),
                           rule.tolerance);
}

// Only a substance that sublimes melts above NBP, under pressure.
Found MeltingBelowBoiling(Reading& r, JudgeRule const& rule) {
  double const boiling = r.Constant(propertyNBP);
  return AtMost(Of(propertyNMP), r.Constant(propertyNMP), boiling, rule.tolerance * boiling);
}

Found MeltingBelowCritical(Reading& r, JudgeRule const& rule) {
  double const limit = r.Constant(propertyTC);
  return AtMost(Of(propertyNMP), r.Constant(propertyNMP), limit, rule.tolerance * limit);
}

// Vapor pressures are less certain the further they are below the boiling point.
Found PressureAtTriple(Reading& r, JudgeRule const& rule) {
  double const triple = r.Constant(propertyTTP);
  double const pressure = r.Constant(propertyPTP);
  double const expected = r.At(correlationVaporPressure, triple);
  constexpr double kLeast = 0.2;
  double const depth = std::log10(std::max(kAtmospheric / expected, 1.0));
  return Outcome::Factor(Of(propertyPTP), pressure, expected,
                         std::max(kLeast, rule.tolerance * depth));
}

// A substance with a boiling point at 1 atm above its triple point has a triple point pressure
// below 1 atm.
Found TriplePressureBelowAtmosphere(Reading& r, JudgeRule const& rule) {
  double const boiling = r.Constant(propertyNBP, Stake::kMinor);
  double const triple = r.Constant(propertyTTP, Stake::kMinor);
  if (!(triple < 0.98 * boiling)) return std::nullopt;
  return AtMost(Of(propertyPTP), r.Constant(propertyPTP), kAtmospheric,
                rule.tolerance * kAtmospheric);
}

constexpr Relation kRows[] = {
    {{"formula-weight", "MW = sum of the atomic weights of the formula", 5e-4,
      "0.05 %: atomic weights of all decades"},
     "the formula",
     WeightOfFormula},
    {{"carbon-number", "CNUM = atoms of C in the formula", 0.1, "0.1: a whole number"},
     "the formula",
     CarbonNumber},
    {{"critical", "ZC = PC VC/(R TC)", 0.03,
      "3 %: rounding of ZC and uncertainty of VC; 93 of 100 handbook data are within it"},
     "PC VC/(R TC)",
     CriticalCompressibility},
    {{"critical-acentric", "PC VC/(R TC) = 0.2905 - 0.085 ACENTRIC", 0.25,
      "factor 1.28: polar and associating substances scatter about Pitzer's line"},
     "TC, PC and ACENTRIC",
     UsualCompressibility},
    {{"boiling-critical", "TC = 1.5 NBP", 0.2,
      "factor 1.22: from 1.26 for long chains to 1.75 for small molecules"},
     "NBP",
     ReducedBoiling},
    {{"acentric", "ACENTRIC = -log10(p(0.7 TC)/PC) - 1", 0.075,
      "0.075 (0.5 + ACENTRIC): critical points of handbooks; 94 of 100 data are within it"},
     "the vapor pressure at 0.7 TC",
     AcentricOfVaporPressure},
    {{"acentric-boiling", "ACENTRIC from NBP, TC and PC after Lee and Kesler", 0.09,
      "0.09 (0.5 + ACENTRIC): error of the method for polar substances; 95 of 100 data are within "
      "it"},
     "NBP, TC and PC",
     AcentricOfBoiling},
    {{"vapor-pressure", "p(NBP) = 101.325 kPa", 0.06,
      "6 %: 2 K in the boiling point; 96 of 100 handbook data are within it"},
     "1 atm at NBP",
     PressureAtBoiling},
    {{"critical-pressure", "p(TC) = PC", 0.08,
      "8 %: uncertainty of critical pressures; 92 of 100 handbook data are within it"},
     "PC",
     PressureAtCritical},
    {{"triple-point", "TTP = NMP", 0.015,
      "1.5 %: air and 1 atm shift the melting point by less; 96 of 100 data are within it"},
     "NMP",
     TripleAndMelting},
    {{"melting-boiling", "NMP <= NBP", 0.08, "8 %: a few substances sublime"},
     "NBP",
     MeltingBelowBoiling},
    {{"melting-critical", "NMP <= TC", 0.02, "2 %"}, "TC", MeltingBelowCritical},
    {{"triple-pressure", "PTP = p(TTP)", 0.17,
      "a factor of 1.5 for each factor of 250 below 1 atm, at least 1.22: extrapolated vapor "
      "pressures"},
     "the vapor pressure at TTP",
     PressureAtTriple},
    {{"triple-below-boiling", "PTP <= 101.325 kPa if TTP < NBP", 0.02, "2 %"},
     "TTP < NBP",
     TriplePressureBelowAtmosphere},
};

}  // namespace

std::span<Relation const> ConstantRelations() { return kRows; }

}  // namespace zel

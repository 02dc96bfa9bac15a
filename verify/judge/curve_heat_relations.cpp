// Heat capacities against the formula and between phases.
#include <array>
#include <string_view>
#include <utility>

#include "verify/judge/curve_points.h"
#include "verify/judge/relation_tables.h"

namespace zel {
namespace {

// Kirchhoff's law: the slope of the latent heat is the difference of the heat capacities of gas and
// liquid.
Found Kirchhoff(Reading& r, JudgeRule const& rule) {
  double const critical = r.Constant(propertyTC, Stake::kMinor);
  double const low = Near(r, correlationLatentHeat, correlationLiquidCp, 0.45 * critical);
  double const high = Near(r, correlationLatentHeat, correlationLiquidCp, 0.65 * critical);
  constexpr double kLeastSpan = 10.0;  // K
  constexpr double kDense = 0.72;      // of TC: above, the vapor is not an ideal gas
  if (!(high - low > kLeastSpan) || high > kDense * critical || MayFormPairs(r))
    return std::nullopt;
  double const liquid = LiquidCapacity(r, (low + high) / 2);
  double const gas = IdealGasCapacity(r, (low + high) / 2);
  double const expected = r.At(correlationLatentHeat, low) - (liquid - gas) * (high - low);
  return At(Outcome::Absolute(Of(correlationLatentHeat), r.At(correlationLatentHeat, high),
                              expected, rule.tolerance * liquid * (high - low)),
            high);
}

constexpr bool IsEnthalpy(zelCorrelations curve) {
  return curve == correlationIdealEnthalpy || curve == correlationLiquidEnthalpy ||
         curve == correlationSolidEnthalpy;
}

// The record's own heat capacity, or the slope of its enthalpy.
template <zelCorrelations kCurve>
double OwnCapacity(Reading& r, double kelvin) {
  return IsEnthalpy(kCurve) ? r.OwnSlope(kCurve, kelvin) : r.OwnAt(kCurve, kelvin);
}

Found InUnit(Found outcome, zelCorrelations curve) {
  if (!outcome) return outcome;
  outcome->unit = "kJ/kg-mol-K";
  if (IsEnthalpy(curve)) outcome->quantity = "the slope of ";
  return outcome;
}

// An outcome about a heat capacity, also one that is the slope of an enthalpy.
Found Capacity(zelCorrelations curve, double value, double expected, double tolerance,
               double kelvin) {
  Found outcome = At(Outcome::Factor(Of(curve), value, expected, tolerance), kelvin);
  return InUnit(outcome, curve);
}

// How far the heat capacity of a liquid is above that of the gas, after Rowlinson and Bondi.
template <zelCorrelations kCurve>
Found LiquidAboveGas(Reading& r, JudgeRule const& rule) {
  if (!Corresponds(r)) return std::nullopt;
  double const critical = r.Constant(propertyTC, Stake::kMinor);
  double const acentric = r.Constant(propertyACENTRIC, Stake::kMinor);
  double const kelvin = Near(r, kCurve, 0.55 * critical);
  double const tau = 1.0 - kelvin / critical;
  constexpr double kLeast = 0.1;
  if (!(tau > kLeast) || !r.Own().HasCurve(kCurve)) return std::nullopt;
  double const above =
      1.45 + 0.45 / tau +
      0.25 * acentric * (17.11 + 25.2 * std::cbrt(tau) / (1.0 - tau) + 1.742 / tau);
  double const expected = IdealGasCapacity(r, kelvin) + kGasConstant * above;
  return Capacity(kCurve, OwnCapacity<kCurve>(r, kelvin), expected, rule.tolerance, kelvin);
}

template <zelCorrelations kCurve>
Found SolidAgainstLiquid(Reading& r, JudgeRule const& rule) {
  if (IsQuantumFluid(r)) return std::nullopt;
  double const melting = r.Constant(propertyNMP, Stake::kMinor);
  double const solidAt = Near(r, kCurve, melting);
  double const liquidAt = Near(r, correlationLiquidCp, correlationLiquidEnthalpy, melting);
  constexpr double kFar = 0.1;
  if (!r.Own().HasCurve(kCurve) || !(std::abs(solidAt - melting) < kFar * melting) ||
      !(std::abs(liquidAt - melting) < kFar * melting))
    return std::nullopt;
  return Capacity(kCurve, OwnCapacity<kCurve>(r, solidAt), 0.8 * LiquidCapacity(r, liquidAt),
                  rule.tolerance, solidAt);
}

template <zelCorrelations kCurve>
Found SolidAgainstGas(Reading& r, JudgeRule const& rule) {
  double const melting = r.Constant(propertyNMP, Stake::kMinor);
  double const solidAt = Near(r, kCurve, melting);
  double const gasAt = Near(r, correlationIdealEnthalpy, correlationIdealGasCp, melting);
  constexpr double kFar = 0.3;
  if (IsQuantumFluid(r) || !r.Own().HasCurve(kCurve) ||
      !(std::abs(solidAt - melting) < kFar * melting))
    return std::nullopt;
  return Capacity(kCurve, OwnCapacity<kCurve>(r, solidAt), 1.3 * IdealGasCapacity(r, gasAt),
                  rule.tolerance, solidAt);
}

// What an atom adds to a heat capacity in units of R: of the ideal gas at 298.15, 500 and 1000 K,
// of the liquid at 298.15 K. Robust sums over published data of 300 substances.
struct AtomShare {
  std::string_view symbol;
  std::array<double, 4> share;
};
constexpr std::array<AtomShare, 10> kShares{{{"C", {1.032, 1.870, 2.650, 1.31}},
                                             {"H", {0.806, 1.138, 1.766, 1.03}},
                                             {"N", {1.505, 2.159, 2.526, 3.36}},
                                             {"O", {1.437, 1.970, 2.398, 3.13}},
                                             {"F", {1.594, 2.231, 2.592, 3.0}},
                                             {"Cl", {2.116, 2.619, 2.755, 3.25}},
                                             {"Br", {2.193, 2.731, 2.845, 3.65}},
                                             {"I", {2.3, 2.8, 2.9, 3.8}},
                                             {"S", {2.191, 2.774, 3.058, 3.53}},
                                             {"Si", {2.784, 2.942, 3.057, 4.1}}}};
constexpr std::array<double, 4> kFixedShare = {-0.309, -1.091, -1.121, 1.9};
constexpr std::array<double, 4> kShareKelvin = {298.15, 500.0, 1000.0, 298.15};

// NaN for small molecules, and for other elements.
double SumOverAtoms(Reading const& r, std::size_t column) {
  double sum = kFixedShare[column];
  double count = 0.0;
  for (auto const& element : r.Of().Atoms()) {
    auto const row = std::find_if(kShares.begin(), kShares.end(), [&](AtomShare const& one) {
      return one.symbol == element.first;
    });
    if (row == kShares.end()) return std::nan("");
    auto const atoms = static_cast<double>(element.second);
    sum += row->share[column] * atoms;
    count += atoms;
  }
  constexpr double kLeast = 5.0;
  return count < kLeast ? std::nan("") : sum * kGasConstant;
}

template <zelCorrelations kCurve, std::size_t kColumn>
Found CapacityOfAtoms(Reading& r, JudgeRule const& rule) {
  if (!r.Own().HasCurve(kCurve)) return std::nullopt;
  // A polynomial is not compared far from the temperature of the sums.
  double const kelvin = Near(r, kCurve, kShareKelvin[kColumn]);
  constexpr double kFar = 0.05;
  if (!(std::abs(kelvin / kShareKelvin[kColumn] - 1.0) < kFar)) return std::nullopt;
  return Capacity(kCurve, OwnCapacity<kCurve>(r, kelvin), SumOverAtoms(r, kColumn), rule.tolerance,
                  kelvin);
}

// At both ends, the value must be between that of a rigid molecule and that of one with all
// vibrations excited.
template <zelCorrelations kCurve>
Found Equipartition(Reading& r, JudgeRule const& rule) {
  KelvinRange const range = r.Range(kCurve);
  double atoms = 0.0;
  for (auto const& [symbol, count] : r.Of().Atoms()) atoms += static_cast<double>(count);
  if (!range.IsBounded() || atoms == 0.0) return std::nullopt;
  double const least = atoms < 2 ? 2.5 : atoms < 4 ? 3.5 : 4.0;
  double const most = atoms < 2 ? 2.5 : atoms < 4 ? 3.0 * atoms - 1.5 : 3.0 * atoms - 2.0;
  Found worst;
  for (double const kelvin : {range.low, (range.low + range.high) / 2, range.high}) {
    Found here = At(Within(Of(kCurve), OwnCapacity<kCurve>(r, kelvin), least * kGasConstant,
                           most * kGasConstant, rule.tolerance),
                    kelvin);
    worst = Worse(worst, InUnit(here, kCurve));
  }
  return worst;
}

// The law of Dulong and Petit, at both ends and between them.
template <zelCorrelations kCurve>
Found DulongPetit(Reading& r, JudgeRule const& rule) {
  KelvinRange const range = r.Range(kCurve);
  double atoms = 0.0;
  for (auto const& [symbol, count] : r.Of().Atoms()) atoms += static_cast<double>(count);
  if (!range.IsBounded() || atoms == 0.0) return std::nullopt;
  Found worst;
  for (double const kelvin : {range.low, (range.low + range.high) / 2, range.high}) {
    double const value = OwnCapacity<kCurve>(r, kelvin);
    double const most = (3.0 * atoms + 3.0) * kGasConstant;
    double const play = rule.tolerance * most;
    Found here = At(
        AtBound(Outcome::Absolute(Of(kCurve), value, std::clamp(value, 0.0, most), play)), kelvin);
    worst = Worse(worst, InUnit(here, kCurve));
  }
  return worst;
}

constexpr Relation kRows[] = {
    {{"kirchhoff", "d(latent heat)/dT = heat capacity of the ideal gas - of the liquid", 0.22,
      "22 % of the heat capacity of the liquid: error of the slope of the latent heat; 49 of 50 "
      "published sets"},
     "the heat capacities of liquid and ideal gas",
     Kirchhoff},
    {{"liquid-cp-gas",
      "heat capacity of the liquid above that of the ideal gas after Rowlinson and Bondi", 0.25,
      "25 %: alcohols and small polar molecules"},
     "the heat capacity of the ideal gas",
     LiquidAboveGas<correlationLiquidCp>},
    {{"liquid-enthalpy-gas",
      "slope of the enthalpy of the liquid above that of the ideal gas after Rowlinson and Bondi",
      0.25, "25 %: alcohols and small polar molecules"},
     "the heat capacity of the ideal gas",
     LiquidAboveGas<correlationLiquidEnthalpy>},
    {{"solid-cp-liquid", "heat capacity of the solid = 0.8 of that of the liquid at NMP", 0.4,
      "factor 1.5: from rigid crystals to those that turn before they melt"},
     "the heat capacity of the liquid",
     SolidAgainstLiquid<correlationSolidCp>},
    {{"solid-enthalpy-liquid",
      "slope of the enthalpy of the solid = 0.8 of the heat capacity of the liquid at NMP", 0.4,
      "factor 1.5: from rigid crystals to those that turn before they melt"},
     "the heat capacity of the liquid",
     SolidAgainstLiquid<correlationSolidEnthalpy>},
    {{"solid-cp-gas", "heat capacity of the solid = 1.3 of that of the ideal gas at NMP", 0.5,
      "factor 1.65: 19 of 20 published data are within it"},
     "the heat capacity of the ideal gas",
     SolidAgainstGas<correlationSolidCp>},
    {{"solid-enthalpy-gas",
      "slope of the enthalpy of the solid = 1.3 of the heat capacity of the ideal gas at NMP", 0.5,
      "factor 1.65: 19 of 20 published data are within it"},
     "the heat capacity of the ideal gas",
     SolidAgainstGas<correlationSolidEnthalpy>},
    {{"ideal-cp-atoms", "heat capacity of the ideal gas at 25 C as a sum over the atoms", 0.2,
      "20 %: rings and double bonds; 49 of 50 published data are within it"},
     "the formula",
     CapacityOfAtoms<correlationIdealGasCp, 0>},
    {{"ideal-cp-atoms-warm", "heat capacity of the ideal gas at 500 K as a sum over the atoms",
      0.09, "9 %: rings and double bonds; 49 of 50 published data are within it"},
     "the formula",
     CapacityOfAtoms<correlationIdealGasCp, 1>},
    {{"ideal-cp-atoms-hot", "heat capacity of the ideal gas at 1000 K as a sum over the atoms",
      0.06, "6 %: branches; 49 of 50 published data are within it"},
     "the formula",
     CapacityOfAtoms<correlationIdealGasCp, 2>},
    {{"ideal-enthalpy-atoms",
      "slope of the enthalpy of the ideal gas at 25 C as a sum over the atoms", 0.2,
      "20 %: rings and double bonds; 49 of 50 published data are within it"},
     "the formula",
     CapacityOfAtoms<correlationIdealEnthalpy, 0>},
    {{"ideal-enthalpy-atoms-warm",
      "slope of the enthalpy of the ideal gas at 500 K as a sum over the atoms", 0.09,
      "9 %: rings and double bonds; 49 of 50 published data are within it"},
     "the formula",
     CapacityOfAtoms<correlationIdealEnthalpy, 1>},
    {{"ideal-enthalpy-atoms-hot",
      "slope of the enthalpy of the ideal gas at 1000 K as a sum over the atoms", 0.06,
      "6 %: branches; 49 of 50 published data are within it"},
     "the formula",
     CapacityOfAtoms<correlationIdealEnthalpy, 2>},
    {{"liquid-cp-atoms", "heat capacity of the liquid at 25 C as a sum over the atoms", 0.2,
      "20 %: rings and hydrogen bonds; 49 of 50 published data are within it"},
     "the formula",
     CapacityOfAtoms<correlationLiquidCp, 3>},
    {{"liquid-enthalpy-atoms",
      "slope of the enthalpy of the liquid at 25 C as a sum over the atoms", 0.2,
      "20 %: rings and hydrogen bonds; 49 of 50 published data are within it"},
     "the formula",
     CapacityOfAtoms<correlationLiquidEnthalpy, 3>},
    {{"ideal-cp-limits",
      "heat capacity of the ideal gas is from that of a rigid molecule to that of one with all "
      "vibrations",
      0.15, "15 %: polynomials at low temperatures"},
     "equipartition",
     Equipartition<correlationIdealGasCp>},
    {{"ideal-enthalpy-limits",
      "slope of the enthalpy of the ideal gas is from that of a rigid molecule to that of one with "
      "all vibrations",
      0.15, "15 %: polynomials at low temperatures"},
     "equipartition",
     Equipartition<correlationIdealEnthalpy>},
    {{"solid-cp-limits", "heat capacity of the solid is 0 to 3 R for each atom, and 3 R", 0.1,
      "10 %"},
     "the rule of Dulong and Petit",
     DulongPetit<correlationSolidCp>},
    {{"solid-enthalpy-limits",
      "slope of the enthalpy of the solid is 0 to 3 R for each atom, and 3 R", 0.1, "10 %"},
     "the rule of Dulong and Petit",
     DulongPetit<correlationSolidEnthalpy>},
};

}  // namespace

std::span<Relation const> CurveHeatRelations() { return kRows; }

}  // namespace zel

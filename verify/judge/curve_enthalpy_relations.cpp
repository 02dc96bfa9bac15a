// Enthalpies against heat capacities, their zeros, and the step between solid and liquid.
#include <array>
#include <utility>

#include "verify/judge/curve_points.h"
#include "verify/judge/relation_tables.h"

namespace zel {
namespace {

// A change of enthalpy and the integral of the heat capacity, over both halves of the common range.
template <zelCorrelations kEnthalpy, zelCorrelations kCapacity>
Found IsIntegral(Reading& r, JudgeRule const& rule) {
  KelvinRange const range = r.Range(kEnthalpy);
  if (!r.Own().HasCurve(kEnthalpy) || !range.IsBounded()) return std::nullopt;
  double const low = Near(r, kEnthalpy, Near(r, kCapacity, range.low));
  double const high = Near(r, kEnthalpy, Near(r, kCapacity, range.high));
  constexpr double kLeastSpan = 3.0;  // K
  if (!(high - low > kLeastSpan)) return std::nullopt;
  constexpr double kOther = 3.0;
  double const tolerance = rule.tolerance * (r.Own().HasCurve(kCapacity) ? 1.0 : kOther);
  Found worst;
  double const middle = (low + high) / 2;
  for (auto const& [from, to] : {std::pair(low, middle), std::pair(middle, high)}) {
    double const change = r.OwnAt(kEnthalpy, to) - r.OwnAt(kEnthalpy, from);
    double const quarter = (to - from) / 4;
    double const expected = (to - from) / 90 *
                            (7 * r.At(kCapacity, from) + 32 * r.At(kCapacity, from + quarter) +
                             12 * r.At(kCapacity, from + 2 * quarter) +
                             32 * r.At(kCapacity, to - quarter) + 7 * r.At(kCapacity, to));
    Found here = At(Outcome::Relative(Of(kEnthalpy), change, expected, tolerance), to);
    if (here) here->quantity = "a change of ";
    worst = Worse(worst, here);
  }
  return worst;
}

// How far the record's own enthalpy is from zero at a temperature, in K; beyond the range, it is
// computed by the equation, with the heat capacity at the end of the range.
double DistanceFromZero(Reading& r, zelCorrelations enthalpy, double kelvin) {
  double const slope = r.OwnSlope(enthalpy, Near(r, enthalpy, kelvin));
  double const value = r.Own().Extended(enthalpy, kelvin);
  return IsDefined(value) ? value / slope : std::nan("");
}

// Of the temperatures at which authors usually set enthalpies to zero, finds the one at which the
// record's own enthalpy is nearest to zero. An equation is less accurate beyond its range.
Found NearestZero(Reading& r, zelCorrelations enthalpy, double tolerance) {
  KelvinRange const range = r.Range(enthalpy);
  if (!r.Own().HasCurve(enthalpy) || !range.IsBounded()) return std::nullopt;
  constexpr double kFahrenheit60 = 288.706;  // K
  constexpr double kNearlyZero = 1.0;        // K: some equations have no value at 0 K
  constexpr double kBeyond = 0.05;
  Found nearest;
  for (double const chosen : {kNearlyZero, 273.15, kFahrenheit60, kRoom, range.low,
                              r.Of().Median(propertyNMP), r.Of().Median(propertyNBP)}) {
    if (!IsDefined(chosen)) continue;
    double const outside = std::max({range.low - chosen, chosen - range.high, 0.0});
    double const zero = chosen - DistanceFromZero(r, enthalpy, chosen);
    Found const here = Outcome::Absolute(Of(enthalpy), zero, chosen, tolerance + kBeyond * outside);
    if (here && (!nearest || here->deviation < nearest->deviation)) nearest = here;
  }
  if (!nearest) return std::nullopt;
  nearest->unit = "K";
  nearest->quantity = "the zero of ";
  return nearest;
}

// The record's own enthalpy at a temperature near its range.
double Extrapolated(Reading& r, zelCorrelations enthalpy, double kelvin) {
  constexpr double kFar = 0.05;  // of the temperature
  double const at = Near(r, enthalpy, kelvin);
  if (!(std::abs(at - kelvin) <= kFar * kelvin)) return std::nan("");
  return r.OwnAt(enthalpy, at) + r.OwnSlope(enthalpy, at) * (kelvin - at);
}

// The heat of fusion against the step from its own enthalpy of the solid to that of the liquid.
Found StepOfFusion(Reading& r, double tolerance) {
  if (!r.Own().HasCurve(correlationSolidEnthalpy) || !r.Own().HasCurve(correlationLiquidEnthalpy))
    return std::nullopt;
  double const melting = r.Constant(propertyNMP, Stake::kMinor);
  double const heat = r.Constant(propertyHFUSIONNMP);
  double const step = Extrapolated(r, correlationLiquidEnthalpy, melting) -
                      Extrapolated(r, correlationSolidEnthalpy, melting);
  return Outcome::Absolute(Of(propertyHFUSIONNMP), heat, step, tolerance * std::abs(heat));
}

constexpr double kStep = 0.1;    // tolerance
constexpr double kKelvin = 1.0;  // of a zero

// If each of the two has a zero of its own, nothing is compared.
Found HeatOfStep(Reading& r, JudgeRule const& rule) {
  Found const solid = NearestZero(r, correlationSolidEnthalpy, kKelvin);
  Found const liquid = NearestZero(r, correlationLiquidEnthalpy, kKelvin);
  if (!solid || !liquid || (solid->deviation <= 1.0 && liquid->deviation <= 1.0))
    return std::nullopt;
  return StepOfFusion(r, rule.tolerance);
}

// Enthalpies are zero at a temperature that the author chooses, are enthalpies of formation there,
// or continue those of the other phase.
template <zelCorrelations kEnthalpy>
Found IsZeroSomewhere(Reading& r, JudgeRule const& rule) {
  Found nearest = NearestZero(r, kEnthalpy, rule.tolerance);
  if (!nearest || nearest->deviation <= 1.0) return AtBound(nearest);
  double const formation = r.Of().Median(propertyHFORMATION);
  constexpr double kFormation = 0.1;
  Found const formed = Outcome::Relative(
      Of(kEnthalpy), r.OwnAt(kEnthalpy, Near(r, kEnthalpy, kRoom)), formation, kFormation);
  if (IsDefined(formation) && formed && formed->deviation <= 1.0) return AtBound(formed);
  Found const step = kEnthalpy == correlationIdealEnthalpy ? Found() : StepOfFusion(r, kStep);
  if (step && step->deviation <= 1.0) nearest->deviation = 1.0;
  return nearest;
}

constexpr Relation kRows[] = {
    {{"ideal-enthalpy-slope", "change of ideal gas enthalpy = integral of the heat capacity", 0.01,
      "1 %: the same quantity; 3 % where the heat capacity is from another source"},
     "the heat capacity of the ideal gas",
     IsIntegral<correlationIdealEnthalpy, correlationIdealGasCp>},
    {{"liquid-enthalpy-slope", "change of liquid enthalpy = integral of the heat capacity", 0.02,
      "2 %: the same quantity; 6 % where the heat capacity is from another source"},
     "the heat capacity of the liquid",
     IsIntegral<correlationLiquidEnthalpy, correlationLiquidCp>},
    {{"solid-enthalpy-slope", "change of solid enthalpy = integral of the heat capacity", 0.02,
      "2 %: the same quantity; 6 % where the heat capacity is from another source"},
     "the heat capacity of the solid",
     IsIntegral<correlationSolidEnthalpy, correlationSolidCp>},
    {{"ideal-enthalpy-zero",
      "enthalpy of the ideal gas = 0 at 0 K, 0 C, 60 F, 25 C, NMP, NBP or the lower limit, or "
      "HFORMATION at 25 C",
      1, "1 K, and 5 % of the distance from the range"},
     "the states that people choose",
     IsZeroSomewhere<correlationIdealEnthalpy>},
    {{"liquid-enthalpy-zero",
      "enthalpy of the liquid = 0 at 0 K, 0 C, 60 F, 25 C, NMP, NBP or the lower limit, or "
      "HFORMATION at 25 C",
      1, "1 K, and 5 % of the distance from the range"},
     "the states that people choose",
     IsZeroSomewhere<correlationLiquidEnthalpy>},
    {{"solid-enthalpy-zero",
      "enthalpy of the solid = 0 at 0 K, 0 C, 60 F, 25 C, NMP, NBP or the lower limit, or "
      "HFORMATION at 25 C",
      1, "1 K, and 5 % of the distance from the range"},
     "the states that people choose",
     IsZeroSomewhere<correlationSolidEnthalpy>},
    {{"fusion-enthalpy",
      "HFUSIONNMP = enthalpy of the liquid - of the solid at NMP, where only one has a zero of its "
      "own",
      kStep, "10 %: enthalpies near the melting point"},
     "the enthalpies of liquid and solid at NMP",
     HeatOfStep},
};

}  // namespace

std::span<Relation const> CurveEnthalpyRelations() { return kRows; }

}  // namespace zel

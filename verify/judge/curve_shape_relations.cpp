// The shape of a curve over its range: which way it runs, and between which bounds.
#include "verify/judge/curve_points.h"
#include "verify/judge/relation_tables.h"

namespace zel {
namespace {

enum class Way : std::uint8_t { kFalls, kRises };

// Finds, at 16 steps over the range, the point at which the curve turns back the farthest from its
// extreme so far. Near the end of a curve that falls to zero the measure is a tenth of its size at
// the beginning. Where pairs of molecules break up in the vapor, its curves have extremes.
template <zelCorrelations kCurve, Way kWay>
Found RunsOneWay(Reading& r, JudgeRule const& rule) {
  constexpr int kSteps = 16;
  constexpr double kSmall = 0.1;
  KelvinRange const range = r.Range(kCurve);
  if (!range.IsBounded() || !(range.low < range.high)) return std::nullopt;
  constexpr bool kIsOfLiquid = kCurve == correlationLiquidThermal || kCurve == correlationLiquidCp;
  if (kIsOfLiquid && IsQuantumFluid(r)) return std::nullopt;
  constexpr bool kIsOfPairs = kCurve == correlationLatentHeat || kCurve == correlationVaporThermal;
  double const tolerance = kIsOfPairs && MayFormPairs(r) ? 1.0 : rule.tolerance;
  double extreme = r.OwnAt(kCurve, range.low);
  double const least = kWay == Way::kFalls ? kSmall * std::abs(extreme) : 0.0;
  Found worst;
  for (int i = 1; i <= kSteps; ++i) {
    double const kelvin = range.low + (range.high - range.low) * i / kSteps;
    double const value = r.OwnAt(kCurve, kelvin);
    double const back = kWay == Way::kRises ? extreme - value : value - extreme;
    double const play = tolerance * std::max(std::abs(extreme), least);
    Found here = Outcome::Absolute(Of(kCurve), value, back > 0.0 ? extreme : value, play);
    worst = Worse(worst, At(here, kelvin));
    bool const isFarther = kWay == Way::kRises ? value > extreme : value < extreme;
    if (isFarther || std::isnan(extreme)) extreme = value;
  }
  return AtBound(worst);
}

struct Bounds {
  double low;
  double high;
};

// Compares values at three places with the bounds of the property in its internal unit.
template <zelCorrelations kCurve, Bounds const& kBounds>
Found IsWithin(Reading& r, JudgeRule const& rule) {
  KelvinRange const range = r.Range(kCurve);
  if (!range.IsBounded()) return std::nullopt;
  Found worst;
  for (double const kelvin : {range.low, (range.low + range.high) / 2, range.high}) {
    worst = Worse(worst, At(Within(Of(kCurve), r.OwnAt(kCurve, kelvin), kBounds.low, kBounds.high,
                                   rule.tolerance),
                            kelvin));
  }
  return worst;
}

// Compares values at three places; a curve that is zero is not compared.
template <zelCorrelations kCurve>
Found IsNotNegative(Reading& r, JudgeRule const& rule) {
  KelvinRange const range = r.Range(kCurve);
  if (!range.IsBounded()) return std::nullopt;
  Found worst;
  for (double const kelvin : {range.low, (range.low + range.high) / 2, range.high}) {
    double const value = r.OwnAt(kCurve, kelvin);
    double const play = rule.tolerance * std::abs(value);
    if (value == 0.0) continue;
    worst = Worse(worst, At(AtLeast(Of(kCurve), value, 0.0, play), kelvin));
  }
  return worst;
}

// About the widest of published curves.
constexpr Bounds kVaporPressure = {1e-12, 5e4};
constexpr Bounds kLiquidDensity = {0.3, 90.0};
constexpr Bounds kLiquidThermal = {0.015, 0.95};
constexpr Bounds kVaporThermal = {0.001, 0.6};
constexpr Bounds kLiquidViscosity = {0.002, 1e8};
constexpr Bounds kVaporViscosity = {0.0006, 0.16};
constexpr Bounds kSurfaceTension = {1e-11, 0.6};
constexpr Bounds kSolidDensity = {1.0, 120.0};
constexpr Bounds kDielectric = {1.0, 215.0};

constexpr Relation kRows[] = {
    {{"vapor-pressure-rises", "vapor pressure rises with T", 0.005, "0.5 % of the value"},
     "the value before",
     RunsOneWay<correlationVaporPressure, Way::kRises>},
    {{"latent-heat-falls", "latent heat falls with T", 0.03,
      "3 % of the value; factor 2 where molecules may pair in the vapor"},
     "the value before",
     RunsOneWay<correlationLatentHeat, Way::kFalls>},
    {{"liquid-density-falls", "density of the liquid falls with T", 0.005,
      "0.5 %: the maximum of water"},
     "the value before",
     RunsOneWay<correlationLiquidDensity, Way::kFalls>},
    {{"liquid-thermal-falls", "thermal conductivity of the liquid falls with T", 0.27,
      "27 %: water and glycols have a maximum"},
     "the value before",
     RunsOneWay<correlationLiquidThermal, Way::kFalls>},
    {{"vapor-thermal-rises", "thermal conductivity of the vapor rises with T", 0.02,
      "2 % of the value; factor 2 where molecules may pair in the vapor"},
     "the value before",
     RunsOneWay<correlationVaporThermal, Way::kRises>},
    {{"liquid-viscosity-falls", "viscosity of the liquid falls with T", 0.02,
      "2 % of the value: ends of fitted curves"},
     "the value before",
     RunsOneWay<correlationLiquidViscosity, Way::kFalls>},
    {{"vapor-viscosity-rises", "viscosity of the vapor rises with T", 0.005, "0.5 % of the value"},
     "the value before",
     RunsOneWay<correlationVaporViscosity, Way::kRises>},
    {{"surface-tension-falls", "surface tension falls with T", 0.01, "1 % of the value"},
     "the value before",
     RunsOneWay<correlationSurfaceTension, Way::kFalls>},
    {{"solid-density-falls", "density of the solid falls with T", 0.01, "1 % of the value"},
     "the value before",
     RunsOneWay<correlationSolidDensity, Way::kFalls>},
    {{"ideal-cp-rises", "heat capacity of the ideal gas rises with T", 0.06,
      "6 %: polynomials of small molecules, which are nearly constant at low temperatures"},
     "the value before",
     RunsOneWay<correlationIdealGasCp, Way::kRises>},
    {{"liquid-cp-rises", "heat capacity of the liquid rises with T", 0.03,
      "3 %: curves with a minimum; 49 of 50 published curves are within it"},
     "the value before",
     RunsOneWay<correlationLiquidCp, Way::kRises>},
    {{"solid-cp-rises", "heat capacity of the solid rises with T", 0.02,
      "2 %: fits over a transition"},
     "the value before",
     RunsOneWay<correlationSolidCp, Way::kRises>},
    {{"dielectric-falls", "dielectric constant falls with T", 0.1,
      "10 %: acids and higher alcohols have a minimum"},
     "the value before",
     RunsOneWay<correlationDielectric, Way::kFalls>},
    {{"vapor-pressure-bounds", "vapor pressure is at most 50000 kPa", 0.3,
      "factor 1.35 beyond the bounds of published curves"},
     "the bounds of the property",
     IsWithin<correlationVaporPressure, kVaporPressure>},
    {{"liquid-density-bounds", "density of the liquid is 0.3 to 90 kg-mol/m3", 0.2,
      "20 % beyond the bounds of published curves"},
     "the bounds of the property",
     IsWithin<correlationLiquidDensity, kLiquidDensity>},
    {{"liquid-thermal-bounds", "thermal conductivity of the liquid is 0.015 to 0.95 W/m-K", 0.3,
      "factor 1.35 beyond the bounds of published curves"},
     "the bounds of the property",
     IsWithin<correlationLiquidThermal, kLiquidThermal>},
    {{"vapor-thermal-bounds", "thermal conductivity of the vapor is 0.001 to 0.6 W/m-K", 0.3,
      "factor 1.35 beyond the bounds of published curves"},
     "the bounds of the property",
     IsWithin<correlationVaporThermal, kVaporThermal>},
    {{"liquid-viscosity-bounds", "viscosity of the liquid is 0.002 to 1e8 cP", 0.7,
      "factor 2 beyond the bounds of published curves"},
     "the bounds of the property",
     IsWithin<correlationLiquidViscosity, kLiquidViscosity>},
    {{"vapor-viscosity-bounds", "viscosity of the vapor is 0.0006 to 0.16 cP", 0.3,
      "factor 1.35 beyond the bounds of published curves"},
     "the bounds of the property",
     IsWithin<correlationVaporViscosity, kVaporViscosity>},
    {{"surface-tension-bounds", "surface tension is at most 0.6 N/m", 0.3,
      "factor 1.35 beyond the bounds of published curves"},
     "the bounds of the property",
     IsWithin<correlationSurfaceTension, kSurfaceTension>},
    {{"solid-density-bounds", "density of the solid is 1 to 120 kg-mol/m3", 0.2,
      "20 % beyond the bounds of published curves"},
     "the bounds of the property",
     IsWithin<correlationSolidDensity, kSolidDensity>},
    {{"ideal-cp-positive", "heat capacity of the ideal gas is not below 0", 0.01, "none"},
     "physics",
     IsNotNegative<correlationIdealGasCp>},
    {{"liquid-cp-positive", "heat capacity of the liquid is not below 0", 0.01, "none"},
     "physics",
     IsNotNegative<correlationLiquidCp>},
    {{"solid-cp-positive", "heat capacity of the solid is not below 0", 0.05,
      "polynomials near 0 K"},
     "physics",
     IsNotNegative<correlationSolidCp>},
    {{"dielectric-bounds", "dielectric constant is 1 to 215", 0.1,
      "10 % beyond the bounds of published curves"},
     "the bounds of the property",
     IsWithin<correlationDielectric, kDielectric>},
};

}  // namespace

std::span<Relation const> CurveShapeRelations() { return kRows; }

}  // namespace zel

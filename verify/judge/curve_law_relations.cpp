// The laws that curves follow over their range, by the principle of corresponding states.
#include <utility>

#include "verify/judge/curve_points.h"
#include "verify/judge/relation_tables.h"

namespace zel {
namespace {

// The factor by which a property changes, as a logarithm over T/TC, and the range in which that
// holds.
struct Law {
  double (*logarithm)(double reduced);
  double lowest;   // of T/TC
  double highest;  // of T/TC
  double part;     // what is added to the change; the tolerance is a part of the sum
};

double LatentHeat(double t) { return 0.38 * std::log(1.0 - t); }      // Watson
double SurfaceTension(double t) { return 1.22 * std::log(1.0 - t); }  // Guggenheim
double LiquidDensity(double t) {                                      // Rackett, 0.27 for ZC
  return 1.309 * std::pow(1.0 - t, 2.0 / 7.0);
}
double LiquidThermal(double t) {  // Riedel
  return std::log(3.0 + 20.0 * std::pow(1.0 - t, 2.0 / 3.0));
}
double VaporViscosity(double t) {  // Lucas
  return std::log(0.807 * std::pow(t, 0.618) - 0.357 * std::exp(-0.449 * t) +
                  0.340 * std::exp(-4.058 * t) + 0.018);
}
double VaporThermal(double t) { return 1.7 * std::log(t); }
double LiquidViscosity(double t) { return 2.8 / t; }

// The law of vapor pressures for an acentric factor.
double LeeKesler(double t, double acentric) {
  double const log = std::log(t);
  double const sixth = std::pow(t, 6.0);
  return 5.92714 - 6.09648 / t - 1.28862 * log + 0.169347 * sixth +
         acentric * (15.2518 - 15.6875 / t - 13.4721 * log + 0.43577 * sixth);
}
double VaporPressure(double t) { return LeeKesler(t, 0.35); }

// The part of the record's own range in which a law holds, in K.
KelvinRange RangeOfLaw(Reading const& r, zelCorrelations curve, Law const& law, double critical) {
  KelvinRange range = r.Range(curve);
  if (!range.IsBounded() || std::isnan(critical)) return {0.0, 0.0};
  return {std::max(range.low, law.lowest * critical), std::min(range.high, law.highest * critical)};
}

constexpr double kLeastSpan = 0.03;  // of TC

// The change over both halves of that part.
template <zelCorrelations kCurve, Law const& kLaw>
Found FollowsLaw(Reading& r, JudgeRule const& rule) {
  double const critical = r.Constant(propertyTC, Stake::kMinor);
  if (!Corresponds(r)) return std::nullopt;
  KelvinRange const range = RangeOfLaw(r, kCurve, kLaw, critical);
  if (!(range.high - range.low > kLeastSpan * critical)) return std::nullopt;
  constexpr bool kIsOfPairs = kCurve == correlationLatentHeat || kCurve == correlationVaporThermal;
  constexpr double kPairs = 3.0;
  constexpr double kBonds = 1.6;
  double const more = kIsOfPairs && MayFormPairs(r)                      ? kPairs
                      : kCurve == correlationLiquidThermal && MayBond(r) ? kBonds
                                                                         : 1.0;
  double const middle = (range.low + range.high) / 2;
  Found worst;
  for (auto const& [from, to] : {std::pair(range.low, middle), std::pair(middle, range.high)}) {
    double const change = kLaw.logarithm(to / critical) - kLaw.logarithm(from / critical);
    double const expected = r.OwnAt(kCurve, from) * std::exp(change);
    double const tolerance = rule.tolerance * more * (std::abs(change) + kLaw.part);
    worst =
        Worse(worst, At(Outcome::Factor(Of(kCurve), r.OwnAt(kCurve, to), expected, tolerance), to));
  }
  return AtBound(worst);
}

// Between the ends of that part, at three places: how far the curve bends from the law that is put
// through the ends.
template <zelCorrelations kCurve, Law const& kLaw>
Found BendsByLaw(Reading& r, JudgeRule const& rule) {
  double const critical = r.Constant(propertyTC, Stake::kMinor);
  if (!Corresponds(r)) return std::nullopt;
  KelvinRange const range = RangeOfLaw(r, kCurve, kLaw, critical);
  if (!(range.high - range.low > 2 * kLeastSpan * critical)) return std::nullopt;
  double const first = kLaw.logarithm(range.low / critical);
  double const span = kLaw.logarithm(range.high / critical) - first;
  double const low = std::log(r.OwnAt(kCurve, range.low));
  double const change = std::log(r.OwnAt(kCurve, range.high)) - low;
  Found worst;
  for (double const place : {0.25, 0.5, 0.75}) {
    double const kelvin = 1.0 / ((1.0 - place) / range.low + place / range.high);
    double const share = (kLaw.logarithm(kelvin / critical) - first) / span;
    double const expected = std::exp(low + share * change);
    double const tolerance =
        rule.tolerance * (kLaw.part + std::abs(change) * share * (1.0 - share));
    worst = Worse(
        worst,
        At(Outcome::Factor(Of(kCurve), r.OwnAt(kCurve, kelvin), expected, tolerance), kelvin));
  }
  return worst;
}

constexpr Law kLatentHeat = {LatentHeat, 0.3, 0.85, 0.15};
constexpr Law kSurfaceTension = {SurfaceTension, 0.3, 0.85, 0.1};
constexpr Law kLiquidDensity = {LiquidDensity, 0.3, 0.95, 0.05};
constexpr Law kLiquidThermal = {LiquidThermal, 0.3, 0.85, 0.1};
constexpr Law kVaporViscosity = {VaporViscosity, 0.4, 2.0, 0.1};
constexpr Law kVaporThermal = {VaporThermal, 0.5, 2.0, 0.2};
constexpr Law kVaporPressure = {VaporPressure, 0.4, 1.0, 0.1};
constexpr Law kLiquidViscosity = {LiquidViscosity, 0.35, 0.8, 0.2};

// The vapor pressure after Lee and Kesler from TC, PC and the acentric factor, below and above the
// temperature at which that factor is defined.
template <int kPercent>
Found LeeKeslerPressure(Reading& r, JudgeRule const& rule) {
  if (!Corresponds(r)) return std::nullopt;
  double const critical = r.Constant(propertyTC);
  double const acentric = r.Constant(propertyACENTRIC, Stake::kMinor);
  double const pressure = r.Constant(propertyPC, Stake::kMinor);
  double const kelvin = Near(r, correlationVaporPressure, kPercent / 100.0 * critical);
  constexpr double kSolid = 0.98;  // of NMP
  if (kelvin < kSolid * r.Of().Median(propertyNMP)) return std::nullopt;
  double const t = kelvin / critical;
  constexpr double kDefined = 0.7;
  constexpr double kPart = 0.05;
  double const tolerance = rule.tolerance * (std::abs(kDefined / t - 1.0) + kPart);
  return At(Outcome::Factor(Of(correlationVaporPressure), r.OwnAt(correlationVaporPressure, kelvin),
                            pressure * std::exp(LeeKesler(t, acentric)), tolerance),
            kelvin);
}

constexpr Relation kRows[] = {
    {{"latent-heat-law", "latent heat ~ (1 - T/TC)^0.38", 0.4,
      "40 % of the change and of 0.15, as a logarithm: exponents are 0.3 to 0.45; three times that "
      "where molecules may pair in the vapor"},
     "its own curve and Watson's law",
     FollowsLaw<correlationLatentHeat, kLatentHeat>},
    {{"surface-tension-law", "surface tension ~ (1 - T/TC)^1.22", 0.35,
      "35 % of the change and of 0.1, as a logarithm: exponents are 1 to 1.4"},
     "its own curve and Guggenheim's law",
     FollowsLaw<correlationSurfaceTension, kSurfaceTension>},
    {{"liquid-density-law", "ln(density of the liquid) ~ 1.31 (1 - T/TC)^(2/7)", 0.3,
      "30 % of the change and of 0.05, as a logarithm: compressibility factors are 0.23 to 0.30"},
     "its own curve and Rackett's law",
     FollowsLaw<correlationLiquidDensity, kLiquidDensity>},
    {{"liquid-thermal-law", "thermal conductivity of the liquid ~ 3 + 20 (1 - T/TC)^(2/3)", 0.5,
      "50 % of the change and of 0.1, as a logarithm; 80 % where hydrogen bonds are possible"},
     "its own curve and Riedel's law",
     FollowsLaw<correlationLiquidThermal, kLiquidThermal>},
    {{"vapor-viscosity-law", "viscosity of the vapor over T after Lucas", 0.3,
      "30 % of the change and of 0.1, as a logarithm: polar molecules"},
     "its own curve and the law of Lucas",
     FollowsLaw<correlationVaporViscosity, kVaporViscosity>},
    {{"vapor-thermal-law", "thermal conductivity of the vapor ~ T^1.7", 0.4,
      "40 % of the change and of 0.2, as a logarithm: exponents are 1 to 2.4; three times that "
      "where molecules may pair in the vapor"},
     "its own curve and the power 1.7",
     FollowsLaw<correlationVaporThermal, kVaporThermal>},
    {{"liquid-viscosity-law", "ln(viscosity of the liquid) ~ 2.8 TC/T", 1.1,
      "factor 2 in the slope, and 0.2, as a logarithm: from small to bulky molecules"},
     "its own curve and Andrade's law",
     FollowsLaw<correlationLiquidViscosity, kLiquidViscosity>},
    {{"vapor-pressure-law", "ln(vapor pressure) over T after Lee and Kesler", 0.5,
      "50 % of the change and of 0.1, as a logarithm: acentric factors of 0 to 1"},
     "its own curve and the law of Lee and Kesler",
     FollowsLaw<correlationVaporPressure, kVaporPressure>},
    {{"vapor-pressure-bend", "ln(vapor pressure) bends over T as after Lee and Kesler", 0.2,
      "20 % of how far a line between the ends is long, as a logarithm: 49 of 50 published curves"},
     "the ends of its own curve",
     BendsByLaw<correlationVaporPressure, kVaporPressure>},
    {{"liquid-viscosity-bend", "ln(viscosity of the liquid) is nearly linear in 1/T", 0.5,
      "50 % of how far a line between the ends is long, as a logarithm: 49 of 50 published curves"},
     "the ends of its own curve",
     BendsByLaw<correlationLiquidViscosity, kLiquidViscosity>},
    {{"vapor-pressure-cold", "vapor pressure at 0.5 TC after Lee and Kesler", 1.9,
      "factor 2.3 at 0.5 TC, less at higher temperatures: error of the method for polar "
      "substances"},
     "TC, PC and the acentric factor",
     LeeKeslerPressure<50>},
    {{"vapor-pressure-warm", "vapor pressure at 0.85 TC after Lee and Kesler", 1.6,
      "37 %: error of the method for polar substances"},
     "TC, PC and the acentric factor",
     LeeKeslerPressure<85>},
};

}  // namespace

std::span<Relation const> CurveLawRelations() { return kRows; }

}  // namespace zel

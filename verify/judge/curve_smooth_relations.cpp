// Checks that a curve has no poles and no kinks within its range.
#include <array>

#include "verify/judge/curve_points.h"
#include "verify/judge/relation_tables.h"

namespace zel {
namespace {

// The transformation that makes a curve nearly straight.
enum class View : std::uint8_t {
  kPlain,      // the value over T
  kLogarithm,  // its logarithm over that of T
  kInverse,    // its logarithm over 1/T
};

struct Smooth {
  zelCorrelations curve;
  View view;
  double part;     // of the tolerance: of the change between the neighbouring points
  double highest;  // of TC: above, the curve may end steeply
};

double Between(View view, KelvinRange const& range, double part) {
  switch (view) {
    case View::kInverse: return 1.0 / ((1.0 - part) / range.low + part / range.high);
    case View::kLogarithm: return range.low * std::pow(range.high / range.low, part);
    case View::kPlain: break;
  }
  return range.low + (range.high - range.low) * part;
}

// Measures, at 16 steps over the range, how far a value is from the cubic through the two values on
// each side. That is little wherever the curve is smooth, however it bends.
template <Smooth const& kSmooth>
Found IsSmooth(Reading& r, JudgeRule const& rule) {
  constexpr int kSteps = 16;
  KelvinRange range = r.Range(kSmooth.curve);
  double const critical = r.Of().Median(propertyTC);
  if (kSmooth.highest > 0.0 && IsDefined(critical)) {
    range.high = std::min(range.high, kSmooth.highest * critical);
  }
  constexpr double kColdest = 1.0;  // K
  range.low = std::max(range.low, kColdest);
  if (!range.IsBounded() || !(range.low < range.high)) return std::nullopt;
  std::array<double, kSteps + 1> kelvins{}, values{}, seen{};
  for (std::size_t i = 0; i <= kSteps; ++i) {
    double const part = static_cast<double>(i) / kSteps;
    kelvins[i] = Between(kSmooth.view, range, part);
    values[i] = r.OwnAt(kSmooth.curve, kelvins[i]);
    seen[i] = kSmooth.view == View::kPlain ? values[i] : std::log(values[i]);
  }
  Found worst;
  for (std::size_t i = 2; i + 2 <= kSteps; ++i) {
    double const expected = (4.0 * (seen[i - 1] + seen[i + 1]) - (seen[i - 2] + seen[i + 2])) / 6.0;
    double const change = std::abs(seen[i + 1] - seen[i - 1]);
    bool const isPlain = kSmooth.view == View::kPlain;
    double const scale = isPlain ? std::abs(expected) : 1.0;
    double const play = rule.tolerance * scale + kSmooth.part * change;
    Found here = At(Outcome::Absolute(Of(kSmooth.curve), seen[i], expected, play), kelvins[i]);
    if (here && !isPlain) {
      here->value = values[i];
      here->expected = std::exp(expected);
    }
    worst = Worse(worst, here);
  }
  return worst && worst->deviation > 1.0 ? worst : std::nullopt;
}

constexpr double kLiquid = 0.9;
constexpr Smooth kVaporPressure = {correlationVaporPressure, View::kInverse, 0.01, 0.0};
constexpr Smooth kIdealEnthalpy = {correlationIdealEnthalpy, View::kPlain, 0.05, 0.0};
constexpr Smooth kLiquidEnthalpy = {correlationLiquidEnthalpy, View::kPlain, 0.05, kLiquid};
constexpr Smooth kSolidEnthalpy = {correlationSolidEnthalpy, View::kPlain, 0.05, 0.0};
constexpr Smooth kLatentHeat = {correlationLatentHeat, View::kPlain, 0.05, kLiquid};
constexpr Smooth kLiquidDensity = {correlationLiquidDensity, View::kPlain, 0.05, kLiquid};
constexpr Smooth kSolidDensity = {correlationSolidDensity, View::kPlain, 0.05, 0.0};
constexpr Smooth kLiquidThermal = {correlationLiquidThermal, View::kPlain, 0.05, kLiquid};
constexpr Smooth kVaporThermal = {correlationVaporThermal, View::kLogarithm, 0.05, 0.0};
constexpr Smooth kLiquidViscosity = {correlationLiquidViscosity, View::kInverse, 0.05, kLiquid};
constexpr Smooth kVaporViscosity = {correlationVaporViscosity, View::kLogarithm, 0.05, 0.0};
constexpr Smooth kSurfaceTension = {correlationSurfaceTension, View::kPlain, 0.05, kLiquid};
constexpr Smooth kIdealGasCp = {correlationIdealGasCp, View::kPlain, 0.05, 0.0};
constexpr Smooth kLiquidCp = {correlationLiquidCp, View::kPlain, 0.05, kLiquid};
constexpr Smooth kSolidCp = {correlationSolidCp, View::kPlain, 0.05, 0.0};
constexpr Smooth kDielectric = {correlationDielectric, View::kPlain, 0.05, kLiquid};

constexpr char kText[] =
    "2 %, and 5 % of the change between the values beside (1 % for vapor pressures)";
constexpr char kFrom[] = "the values on both sides";

template <Smooth const& kSmooth>
constexpr Relation Row(char const* id, char const* formula) {
  return {{id, formula, 0.02, kText}, kFrom, IsSmooth<kSmooth>};
}

constexpr Relation kRows[] = {
    Row<kVaporPressure>("vapor-pressure-smooth", "vapor pressure has no pole and no kink"),
    Row<kIdealEnthalpy>("ideal-enthalpy-smooth",
                        "enthalpy of the ideal gas has no pole and no kink"),
    Row<kLiquidEnthalpy>("liquid-enthalpy-smooth",
                         "enthalpy of the liquid has no pole and no kink"),
    Row<kLatentHeat>("latent-heat-smooth", "latent heat has no pole and no kink"),
    Row<kLiquidDensity>("liquid-density-smooth", "density of the liquid has no pole and no kink"),
    Row<kLiquidThermal>("liquid-thermal-smooth",
                        "thermal conductivity of the liquid has no pole and no kink"),
    Row<kVaporThermal>("vapor-thermal-smooth",
                       "thermal conductivity of the vapor has no pole and no kink"),
    Row<kLiquidViscosity>("liquid-viscosity-smooth",
                          "viscosity of the liquid has no pole and no kink"),
    Row<kVaporViscosity>("vapor-viscosity-smooth",
                         "viscosity of the vapor has no pole and no kink"),
    Row<kSurfaceTension>("surface-tension-smooth", "surface tension has no pole and no kink"),
    Row<kSolidEnthalpy>("solid-enthalpy-smooth", "enthalpy of the solid has no pole and no kink"),
    Row<kSolidDensity>("solid-density-smooth", "density of the solid has no pole and no kink"),
    Row<kIdealGasCp>("ideal-cp-smooth", "heat capacity of the ideal gas has no pole and no kink"),
    Row<kLiquidCp>("liquid-cp-smooth", "heat capacity of the liquid has no pole and no kink"),
    Row<kSolidCp>("solid-cp-smooth", "heat capacity of the solid has no pole and no kink"),
    Row<kDielectric>("dielectric-smooth", "dielectric constant has no pole and no kink"),
};

}  // namespace

std::span<Relation const> CurveSmoothRelations() { return kRows; }

}  // namespace zel

// Curves of different properties against each other: vapor pressure and latent heat, viscosities
// and thermal conductivities, solid and liquid.
#include "verify/judge/curve_points.h"
#include "verify/judge/relation_tables.h"

namespace zel {
namespace {

// The difference of the compressibility factors of vapor and liquid after Haggenmacher. If, by the
// formula, the vapor can consist of pairs of molecules, the latent heat may be as low as half of
// that.
template <int kPercent>
Found Clapeyron(Reading& r, JudgeRule const& rule) {
  if (IsQuantumFluid(r)) return std::nullopt;
  double const critical = r.Constant(propertyTC, Stake::kMinor);
  double const kelvin =
      Near(r, correlationVaporPressure, correlationLatentHeat, kPercent / 100.0 * critical);
  constexpr double kHighest = 0.9;  // of TC
  if (!(kelvin < kHighest * critical)) return std::nullopt;
  double const pressure = r.At(correlationVaporPressure, kelvin);
  double const slope = r.Slope(correlationVaporPressure, kelvin);
  double const t = kelvin / critical;
  double const reduced = pressure / r.Constant(propertyPC, Stake::kMinor);
  double const expected =
      kGasConstant * kelvin * kelvin * slope / pressure * std::sqrt(1.0 - reduced / (t * t * t));
  double const heat = r.At(correlationLatentHeat, kelvin);
  constexpr double kPairs = 0.6;
  double const tolerance = MayFormPairs(r) && heat < expected ? kPairs : rule.tolerance;
  return At(Outcome::Factor(Of(correlationLatentHeat), heat, expected, tolerance), kelvin);
}

// Eucken's factor as modified for molecules of several atoms.
Found Eucken(Reading& r, JudgeRule const& rule) {
  double const boiling = r.Constant(propertyNBP, Stake::kMinor);
  double const kelvin = Near(r, correlationVaporViscosity, correlationVaporThermal, 1.3 * boiling);
  double const heat = IdealGasCapacity(r, kelvin) - kGasConstant;
  constexpr double kFactor = 0.95;
  // 1 cP times 1 kJ/kg-K is 1 W/m-K.
  double const expected = kFactor * r.At(correlationVaporViscosity, kelvin) /
                          r.Constant(propertyMW) * (1.32 * heat + 1.77 * kGasConstant);
  return At(Outcome::Factor(Of(correlationVaporThermal), r.At(correlationVaporThermal, kelvin),
                            expected, rule.tolerance),
            kelvin);
}

// Eyring: the slope of ln(viscosity) over 1/T is about a quarter of the energy of vaporization.
Found ViscosityOfLatentHeat(Reading& r, JudgeRule const& rule) {
  double const critical = r.Constant(propertyTC, Stake::kMinor);
  if (FormsChains(r)) return std::nullopt;
  double const middle = Near(r, correlationLatentHeat, correlationLiquidViscosity, 0.55 * critical);
  double const step = 0.03 * critical;
  double const low = Near(r, correlationLiquidViscosity, middle - step);
  double const high = Near(r, correlationLiquidViscosity, middle + step);
  if (!(high - low > step)) return std::nullopt;
  double const energy = r.At(correlationLatentHeat, middle) - kGasConstant * middle;
  double const change = 0.27 * energy / kGasConstant * (1.0 / low - 1.0 / high);
  double const warm = r.At(correlationLiquidViscosity, high);
  return At(
      AtBound(Outcome::Factor(Of(correlationLiquidViscosity), r.At(correlationLiquidViscosity, low),
                              warm * std::exp(change), rule.tolerance * change)),
      low);
}

// Stefan: the energy of a molecule in the surface is a part of that of vaporization.
Found SurfaceTensionOfLatentHeat(Reading& r, JudgeRule const& rule) {
  double const critical = r.Constant(propertyTC, Stake::kMinor);
  double const kelvin = Near(r, correlationLatentHeat, correlationSurfaceTension, 0.6 * critical);
  constexpr double kHighest = 0.8;  // of TC
  if (!(kelvin < kHighest * critical) || IsQuantumFluid(r)) return std::nullopt;
  double const energy = r.At(correlationLatentHeat, kelvin) - kGasConstant * kelvin;
  double const volume = 1.0 / r.At(correlationLiquidDensity, kelvin);
  constexpr double kAvogadro = 6.02214076e26;  // per kg-mol
  constexpr double kPart = 0.13;
  double const expected =
      kPart * energy * 1e3 / (std::cbrt(kAvogadro) * std::pow(volume, 2.0 / 3.0));
  return At(
      AtBound(Outcome::Factor(Of(correlationSurfaceTension),
                              r.At(correlationSurfaceTension, kelvin), expected, rule.tolerance)),
      kelvin);
}

Found SolidOfLiquidDensity(Reading& r, JudgeRule const& rule) {
  double const melting = r.Constant(propertyNMP, Stake::kMinor);
  double const solidAt = Near(r, correlationSolidDensity, melting);
  double const liquidAt = Near(r, correlationLiquidDensity, melting);
  constexpr double kFar = 0.1;
  if (!(std::abs(liquidAt - melting) < kFar * melting)) return std::nullopt;
  return At(Outcome::Factor(Of(correlationSolidDensity), r.At(correlationSolidDensity, solidAt),
                            1.13 * r.At(correlationLiquidDensity, liquidAt), rule.tolerance),
            solidAt);
}

constexpr Relation kRows[] = {
    {{"clapeyron-cold", "latent heat = R T^2 d(ln p)/dT (1 - (p/PC)/(T/TC)^3)^0.5 at 0.5 TC", 0.08,
      "8 %: slopes of vapor pressures far below the atmosphere; 60 % where molecules may pair in "
      "the vapor"},
     "the slope of the vapor pressure",
     Clapeyron<50>},
    {{"clapeyron", "the same at 0.65 TC", 0.06,
      "6 %: slopes of vapor pressures; 60 % where molecules may pair in the vapor"},
     "the slope of the vapor pressure",
     Clapeyron<65>},
    {{"clapeyron-warm", "the same at 0.82 TC", 0.13,
      "13 %: error of the compressibility factors after Haggenmacher"},
     "the slope of the vapor pressure",
     Clapeyron<82>},
    {{"eucken",
      "thermal conductivity of the vapor = 0.95 viscosity/MW (1.32 (heat capacity - R) + 1.77 R)",
      0.25, "25 %: error of Eucken's factor; 49 of 50 published sets are within it"},
     "viscosity and heat capacity of the gas",
     Eucken},
    {{"viscosity-slope",
      "-d ln(viscosity of the liquid)/dT = 0.27 (latent heat - R T)/(R T^2) near 0.55 TC", 1.3,
      "130 % of the slope: bulky molecules and hydrogen bonds"},
     "the latent heat",
     ViscosityOfLatentHeat},
    {{"surface-energy", "surface tension = 0.13 (latent heat - R T)/(N^(1/3) V^(2/3)) at 0.6 TC",
      0.6, "factor 1.8: Stefan's rule from alcohols to inert gases"},
     "latent heat and density of the liquid",
     SurfaceTensionOfLatentHeat},
    {{"solid-density-liquid", "density of the solid = 1.13 of that of the liquid at NMP", 0.15,
      "15 %: crystals that turn, and water, to flat molecules; 49 of 50 published data are within "
      "it"},
     "the density of the liquid",
     SolidOfLiquidDensity},
};

}  // namespace

std::span<Relation const> CurvePairRelations() { return kRows; }

}  // namespace zel

// Curves against the critical constants by the principle of corresponding states.
#include "verify/judge/curve_points.h"
#include "verify/judge/relation_tables.h"

namespace zel {
namespace {

constexpr double kBar = 100.0;  // kPa

// Molecules with hydrogen bonds follow corresponding states less well.
double Scatter(Reading const& r, double more) { return MayBond(r) ? more : 1.0; }

// A value at a part of TC, or at the temperature of the record's own range that is nearest to that.
struct Place {
  double critical;
  double kelvin;
  double reduced;

  Place(Reading& r, zelCorrelations curve, double part, Stake stake)
      : critical(r.Constant(propertyTC, stake)),
        kelvin(Near(r, curve, part * critical)),
        reduced(kelvin / critical) {}
};

Found Compared(Reading& r, zelCorrelations curve, Place const& place, double expected,
               double tolerance) {
  if (!Corresponds(r)) return std::nullopt;
  return At(Outcome::Factor(Of(curve), r.OwnAt(curve, place.kelvin), expected, tolerance),
            place.kelvin);
}

Found Pitzer(Reading& r, JudgeRule const& rule) {
  Place const at(r, correlationLatentHeat, 0.7, Stake::kFull);
  double const acentric = r.Constant(propertyACENTRIC, Stake::kMinor);
  double const tau = 1.0 - at.reduced;
  double const expected = kGasConstant * at.critical *
                          (7.08 * std::pow(tau, 0.354) + 10.95 * acentric * std::pow(tau, 0.456));
  double const value = r.Own().At(correlationLatentHeat, at.kelvin);
  constexpr double kPairs = 0.6;
  double const tolerance = MayFormPairs(r) && value < expected ? kPairs : rule.tolerance;
  return Compared(r, correlationLatentHeat, at, 1.02 * expected, tolerance);
}

Found Lucas(Reading& r, JudgeRule const& rule) {
  Place const at(r, correlationVaporViscosity, 0.9, Stake::kMinor);
  double const pressure = r.Constant(propertyPC, Stake::kMinor) / kBar;
  double const weight = r.Constant(propertyMW, Stake::kMinor);
  double const t = at.reduced;
  double const reduced = 0.807 * std::pow(t, 0.618) - 0.357 * std::exp(-0.449 * t) +
                         0.340 * std::exp(-4.058 * t) + 0.018;
  // The unit is micropoise; a cP is 1e4 of them.
  double const unit =
      std::pow(weight * weight * weight * std::pow(pressure, 4.0) / at.critical, 1.0 / 6.0) / 0.176;
  return Compared(r, correlationVaporViscosity, at, 1e-4 * reduced * unit,
                  rule.tolerance * Scatter(r, 1.6));
}

Found SatoRiedel(Reading& r, JudgeRule const& rule) {
  Place const at(r, correlationLiquidThermal, 0.6, Stake::kMinor);
  double const boiling = r.Constant(propertyNBP, Stake::kMinor) / at.critical;
  double const weight = r.Constant(propertyMW, Stake::kMinor);
  auto const term = [](double t) { return 3.0 + 20.0 * std::pow(1.0 - t, 2.0 / 3.0); };
  return Compared(r, correlationLiquidThermal, at,
                  1.11 / std::sqrt(weight) * term(at.reduced) / term(boiling),
                  rule.tolerance * Scatter(r, 1.8));
}

Found LetsouStiel(Reading& r, JudgeRule const& rule) {
  Place const at(r, correlationLiquidViscosity, 0.78, Stake::kMinor);
  constexpr double kLeast = 0.6;
  if (!(at.reduced > kLeast)) return std::nullopt;
  double const pressure = r.Constant(propertyPC, Stake::kMinor) * 1e3;
  double const acentric = r.Constant(propertyACENTRIC, Stake::kMinor);
  double const weight = r.Constant(propertyMW, Stake::kMinor);
  double const t = at.reduced;
  double const reduced = 0.015174 - 0.02135 * t + 0.0075 * t * t +
                         acentric * (0.042552 - 0.07674 * t + 0.0340 * t * t);
  double const unit = std::sqrt(weight) * std::pow(pressure, 2.0 / 3.0) /
                      std::pow(at.critical, 1.0 / 6.0) / 2173.424;  // cP
  return Compared(r, correlationLiquidViscosity, at, 1.07 * reduced * unit, rule.tolerance);
}

Found BrockBird(Reading& r, JudgeRule const& rule) {
  Place const at(r, correlationSurfaceTension, 0.6, Stake::kMinor);
  double const pressure = r.Constant(propertyPC, Stake::kMinor) / kBar;
  double const boiling = r.Constant(propertyNBP, Stake::kMinor) / at.critical;
  double const q =
      0.1196 * (1.0 + boiling * std::log(pressure / 1.01325) / (1.0 - boiling)) - 0.279;
  double const expected = 1e-3 * std::pow(pressure, 2.0 / 3.0) * std::cbrt(at.critical) * q *
                          std::pow(1.0 - at.reduced, 11.0 / 9.0);
  return Compared(r, correlationSurfaceTension, at, expected, rule.tolerance * Scatter(r, 3.5));
}

Found YamadaGunn(Reading& r, JudgeRule const& rule) {
  Place const at(r, correlationLiquidDensity, 0.7, Stake::kMinor);
  double const pressure = r.Constant(propertyPC, Stake::kMinor);
  double const acentric = r.Constant(propertyACENTRIC, Stake::kMinor);
  double const z = 0.29056 - 0.08775 * acentric;
  double const volume = kGasConstant * at.critical / pressure *
                        std::pow(z, 1.0 + std::pow(1.0 - at.reduced, 2.0 / 7.0));
  return Compared(r, correlationLiquidDensity, at, 1.0 / volume, rule.tolerance * Scatter(r, 2.0));
}

constexpr Relation kRows[] = {
    {{"latent-heat-state", "latent heat at 0.7 TC from TC and the acentric factor after Pitzer",
      0.11, "11 %: polar substances; 60 % where molecules may pair in the vapor"},
     "TC and the acentric factor",
     Pitzer},
    {{"vapor-viscosity-state", "viscosity of the vapor at 0.9 TC from TC, PC and MW after Lucas",
      0.17, "17 %, and 27 % where hydrogen bonds are possible: without a dipole term"},
     "TC, PC and MW",
     Lucas},
    {{"liquid-thermal-state",
      "thermal conductivity of the liquid at 0.6 TC from TC, NBP and MW after Sato and Riedel",
      0.45,
      "factor 1.6: inorganic and fluorinated molecules; 2.2 where hydrogen bonds are possible"},
     "TC, NBP and MW",
     SatoRiedel},
    {{"liquid-viscosity-state",
      "viscosity of the liquid at 0.78 TC from TC, PC, MW and the acentric factor after Letsou and "
      "Stiel",
      0.65, "factor 1.9: extrapolated below 0.76 TC"},
     "TC, PC, MW and the acentric factor",
     LetsouStiel},
    {{"surface-tension-state", "surface tension at 0.6 TC from TC, PC and NBP after Brock and Bird",
      0.15, "15 %, and factor 1.7 where hydrogen bonds are possible"},
     "TC, PC and NBP",
     BrockBird},
    {{"liquid-density-state",
      "density of the liquid at 0.7 TC from TC, PC and the acentric factor after Yamada and Gunn",
      0.17, "17 %, and 34 % where hydrogen bonds are possible: errors of critical pressures"},
     "TC, PC and the acentric factor",
     YamadaGunn},
};

}  // namespace

std::span<Relation const> CurveStateRelations() { return kRows; }

}  // namespace zel

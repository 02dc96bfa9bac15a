// The range of a curve against the temperatures at which its phase exists.
#include "verify/judge/curve_points.h"
#include "verify/judge/relation_tables.h"

namespace zel {
namespace {

enum class Part : std::uint8_t { kKelvin, kMelting, kBoiling, kCritical };

// A limit: a part of a temperature of the substance, but at least `kelvin`.
struct Limit {
  double part;
  Part of;
  double kelvin = 0.0;
};

// Between which limits the ends of the range of a curve are.
struct Ends {
  zelCorrelations curve;
  Limit lowLeast, lowMost;
  Limit highLeast, highMost;
};

double KelvinOf(Reading& r, Limit const& limit) {
  double kelvin = 0.0;
  if (limit.of == Part::kMelting) {
    kelvin = r.Constant(propertyNMP, Stake::kMinor);
    if (std::isnan(kelvin)) kelvin = r.Constant(propertyTTP, Stake::kMinor);
  }
  if (limit.of == Part::kBoiling) kelvin = r.Constant(propertyNBP, Stake::kMinor);
  if (limit.of == Part::kCritical) kelvin = r.Constant(propertyTC, Stake::kMinor);
  return std::isnan(kelvin) ? kelvin : std::max(limit.part * kelvin, limit.kelvin);
}

Found About(char const* end, Found outcome) {
  if (outcome) {
    outcome->unit = "K";
    outcome->quantity = end;
  }
  return outcome;
}

// The end that is farther outside its limits. Tolerances are parts of the limit, of one near 0 K
// parts of 100 K.
template <Ends const& kEnds>
Found IsUsual(Reading& r, JudgeRule const& rule) {
  if (!r.Own().HasCurve(kEnds.curve)) return std::nullopt;
  ZelCorrelation const& own = r.Own().Curve(kEnds.curve);
  if (!IsDefined(own.tMin) || !IsDefined(own.tMax)) return std::nullopt;
  KelvinRange const range = r.OwnRange(kEnds.curve);
  if (!(range.low < range.high)) {
    return About("the beginning of the range of ",
                 Outcome::Absolute(Of(kEnds.curve), range.low, range.high, 0.0));
  }
  Found worst;
  auto const add = [&](char const* which, double end, double least, double most) {
    constexpr double kCold = 100.0;
    for (double const limit : {std::max(end, least), std::min(end, most)}) {
      double const play = rule.tolerance * std::max(limit, kCold);
      worst =
          Worse(worst, About(which, AtBound(Outcome::Absolute(Of(kEnds.curve), end, limit, play))));
    }
  };
  add("the beginning of the range of ", range.low, KelvinOf(r, kEnds.lowLeast),
      KelvinOf(r, kEnds.lowMost));
  add("the end of the range of ", range.high, KelvinOf(r, kEnds.highLeast),
      KelvinOf(r, kEnds.highMost));
  return worst;
}

constexpr Ends kVaporPressure = {correlationVaporPressure,
                                 {0.90, Part::kMelting},
                                 {0.72, Part::kCritical},
                                 {0.50, Part::kCritical},
                                 {1.03, Part::kCritical}};
constexpr Ends kLatentHeat = {correlationLatentHeat,
                              {0.93, Part::kMelting},
                              {0.70, Part::kCritical},
                              {0.85, Part::kCritical},
                              {1.03, Part::kCritical}};
constexpr Ends kLiquidDensity = {correlationLiquidDensity,
                                 {0.93, Part::kMelting},
                                 {0.70, Part::kCritical},
                                 {0.85, Part::kCritical},
                                 {1.03, Part::kCritical}};
constexpr Ends kLiquidThermal = {correlationLiquidThermal,
                                 {0.95, Part::kMelting},
                                 {0.65, Part::kCritical},
                                 {0.52, Part::kCritical},
                                 {1.01, Part::kCritical}};
constexpr Ends kLiquidViscosity = {correlationLiquidViscosity,
                                   {0.92, Part::kMelting},
                                   {0.65, Part::kCritical},
                                   {0.46, Part::kCritical},
                                   {1.01, Part::kCritical}};
constexpr Ends kSurfaceTension = {correlationSurfaceTension,
                                  {0.95, Part::kMelting},
                                  {0.65, Part::kCritical},
                                  {0.58, Part::kCritical},
                                  {1.01, Part::kCritical}};
constexpr Ends kLiquidEnthalpy = {correlationLiquidEnthalpy,
                                  {0.95, Part::kMelting},
                                  {0.65, Part::kCritical},
                                  {0.50, Part::kCritical},
                                  {1.01, Part::kCritical}};
constexpr Ends kLiquidCp = {correlationLiquidCp,
                            {0.90, Part::kMelting},
                            {0.72, Part::kCritical},
                            {0.45, Part::kCritical},
                            {1.01, Part::kCritical}};
constexpr Ends kDielectric = {correlationDielectric,
                              {0.85, Part::kMelting},
                              {0.75, Part::kCritical, 330.0},
                              {0.40, Part::kCritical},
                              {0.0, Part::kKelvin, 1600.0}};
constexpr Ends kCharacteristicVolume = {correlationCharacteristicVolume,
                                        {0.10, Part::kCritical},
                                        {0.75, Part::kCritical},
                                        {0.40, Part::kCritical},
                                        {1.05, Part::kCritical}};
constexpr Ends kVaporThermal = {correlationVaporThermal,
                                {0.80, Part::kMelting},
                                {1.10, Part::kBoiling, 305.0},
                                {0.95, Part::kCritical},
                                {0.0, Part::kKelvin, 3500.0}};
constexpr Ends kVaporViscosity = {correlationVaporViscosity,
                                  {0.80, Part::kMelting},
                                  {1.10, Part::kBoiling, 305.0},
                                  {1.00, Part::kCritical},
                                  {0.0, Part::kKelvin, 3500.0}};
constexpr Ends kIdealEnthalpy = {correlationIdealEnthalpy,
                                 {0.0, Part::kKelvin, 45.0},
                                 {0.0, Part::kKelvin, 310.0},
                                 {0.0, Part::kKelvin, 390.0},
                                 {0.0, Part::kKelvin, 6000.0}};
constexpr Ends kIdealGasCp = {correlationIdealGasCp,
                              {0.0, Part::kKelvin, 45.0},
                              {0.0, Part::kKelvin, 310.0},
                              {0.0, Part::kKelvin, 390.0},
                              {0.0, Part::kKelvin, 6000.0}};
constexpr Ends kSolidEnthalpy = {correlationSolidEnthalpy,
                                 {0.0, Part::kKelvin},
                                 {0.95, Part::kMelting},
                                 {0.50, Part::kMelting},
                                 {1.10, Part::kMelting}};
constexpr Ends kSolidDensity = {correlationSolidDensity,
                                {0.0, Part::kKelvin},
                                {1.02, Part::kMelting},
                                {0.0, Part::kKelvin},
                                {1.08, Part::kMelting}};
constexpr Ends kSolidCp = {correlationSolidCp,
                           {0.0, Part::kKelvin},
                           {0.95, Part::kMelting},
                           {0.50, Part::kMelting},
                           {1.10, Part::kMelting}};

constexpr char const* kText = "4 % of the limit, which is that of 49 of 50 published ranges";
constexpr char const* kFrom = "the usual range";

constexpr Relation kRows[] = {
    {{"vapor-pressure-range",
      "vapor pressure: the range begins at 0.9 NMP to 0.72 TC and ends at 0.5 TC to 1.03 TC", 0.04,
      kText},
     kFrom,
     IsUsual<kVaporPressure>},
    {{"latent-heat-range",
      "latent heat: the range begins at 0.93 NMP to 0.7 TC and ends at 0.85 TC to 1.03 TC", 0.04,
      kText},
     kFrom,
     IsUsual<kLatentHeat>},
    {{"liquid-density-range",
      "density of the liquid: the range begins at 0.93 NMP to 0.7 TC and ends at 0.85 TC to 1.03 "
      "TC",
      0.04, kText},
     kFrom,
     IsUsual<kLiquidDensity>},
    {{"liquid-thermal-range",
      "thermal conductivity of the liquid: the range begins at 0.95 NMP to 0.65 TC and ends at "
      "0.52 TC to 1.01 TC",
      0.04, kText},
     kFrom,
     IsUsual<kLiquidThermal>},
    {{"liquid-viscosity-range",
      "viscosity of the liquid: the range begins at 0.92 NMP to 0.65 TC and ends at 0.46 TC to "
      "1.01 TC",
      0.04, kText},
     kFrom,
     IsUsual<kLiquidViscosity>},
    {{"surface-tension-range",
      "surface tension: the range begins at 0.95 NMP to 0.65 TC and ends at 0.58 TC to 1.01 TC",
      0.04, kText},
     kFrom,
     IsUsual<kSurfaceTension>},
    {{"liquid-enthalpy-range",
      "enthalpy of the liquid: the range begins at 0.95 NMP to 0.65 TC and ends at 0.5 TC to 1.01 "
      "TC",
      0.04, kText},
     kFrom,
     IsUsual<kLiquidEnthalpy>},
    {{"liquid-cp-range",
      "heat capacity of the liquid: the range begins at 0.9 NMP to 0.72 TC and ends at 0.45 TC to "
      "1.01 TC",
      0.04, kText},
     kFrom,
     IsUsual<kLiquidCp>},
    {{"dielectric-range",
      "dielectric constant: the range begins at 0.85 NMP to 0.75 TC (or 330 K) and ends at 0.4 TC "
      "to 1600 K",
      0.04, kText},
     kFrom,
     IsUsual<kDielectric>},
    {{"characteristic-volume-range",
      "characteristic volume: the range begins at 0.1 TC to 0.75 TC and ends at 0.4 TC to 1.05 TC",
      0.04, kText},
     kFrom,
     IsUsual<kCharacteristicVolume>},
    {{"vapor-thermal-range",
      "thermal conductivity of the vapor: the range begins at 0.8 NMP to 1.1 NBP (or 305 K) and "
      "ends at 0.95 TC to 3500 K",
      0.04, kText},
     kFrom,
     IsUsual<kVaporThermal>},
    {{"vapor-viscosity-range",
      "viscosity of the vapor: the range begins at 0.8 NMP to 1.1 NBP (or 305 K) and ends at 1 TC "
      "to 3500 K",
      0.04, kText},
     kFrom,
     IsUsual<kVaporViscosity>},
    {{"ideal-enthalpy-range",
      "enthalpy of the ideal gas: the range begins at 45 K to 310 K and ends at 390 K to 6000 K",
      0.04, kText},
     kFrom,
     IsUsual<kIdealEnthalpy>},
    {{"ideal-cp-range",
      "heat capacity of the ideal gas: the range begins at 45 K to 310 K and ends at 390 K to 6000 "
      "K",
      0.04, kText},
     kFrom,
     IsUsual<kIdealGasCp>},
    {{"solid-enthalpy-range",
      "enthalpy of the solid: the range begins at most at 0.95 NMP and ends at 0.5 NMP to 1.1 NMP",
      0.04, kText},
     kFrom,
     IsUsual<kSolidEnthalpy>},
    {{"solid-density-range",
      "density of the solid: the range begins at most at 1.02 NMP and ends at most at 1.08 NMP",
      0.04, kText},
     kFrom,
     IsUsual<kSolidDensity>},
    {{"solid-cp-range",
      "heat capacity of the solid: the range begins at most at 0.95 NMP and ends at 0.5 NMP to 1.1 "
      "NMP",
      0.04, kText},
     kFrom,
     IsUsual<kSolidCp>},
};

}  // namespace

std::span<Relation const> CurveRangeRelations() { return kRows; }

}  // namespace zel

// The range of a curve against the temperatures at which its phase exists, and where such curves
// begin and end in handbooks.
#include "verify/judge/curve_points.h"
#include "verify/judge/relation_tables.h"

namespace zel {
namespace {

enum class Part : std::uint8_t { kKelvin, kMelting, kBoiling, kCritical, kVapor };

// A limit: a part of a temperature of the substance, but at least `kelvin`.
struct Limit {
  double part;
  Part of;
  double kelvin = 0.0;
};

// The limits between which the ends of the range of a curve are.
struct Ends {
  zelCorrelations curve;
  Limit lowLeast, lowMost;
  Limit highLeast, highMost;
};

// The temperature up to which vapors are heated; it is much higher for inert gases and substances
// that cannot burn or decompose to coke.
double HottestVapor(Reading const& r) {
  constexpr double kInertGases = 200.0;
  bool const isStable = r.HasFormula() && r.Atoms("H") == 0.0;
  return isStable || r.Of().Median(propertyTC) < kInertGases ? 6000.0 : 1650.0;
}

double KelvinOf(Reading& r, Limit const& limit) {
  double kelvin = 0.0;
  switch (limit.of) {
    case Part::kKelvin: break;
    case Part::kMelting:
      kelvin = r.Constant(propertyNMP, Stake::kMinor);
      if (std::isnan(kelvin)) kelvin = r.Constant(propertyTTP, Stake::kMinor);
      break;
    case Part::kBoiling: kelvin = r.Constant(propertyNBP, Stake::kMinor); break;
    case Part::kCritical: kelvin = r.Constant(propertyTC, Stake::kMinor); break;
    case Part::kVapor: return HottestVapor(r);
  }
  return std::isnan(kelvin) ? kelvin : std::max(limit.part * kelvin, limit.kelvin);
}

// The play of an end at its limit: a part of the limit, or of 100 K for a limit near 0 K. A few
// liquids were measured where others are not, but none above TC or below 0 K, where the play is
// smaller.
double PlayOf(Limit const& limit, double kelvin, double end, double tolerance) {
  constexpr double kCold = 100.0;
  constexpr double kImpossible = 0.2;
  bool const isAboveCritical = limit.of == Part::kCritical && limit.part > 1.0;
  double const part = isAboveCritical || end < 0.0 ? kImpossible * tolerance : tolerance;
  return part * std::max(kelvin, kCold);
}

// Whether an end is outside its limits.
Found IsBetween(Reading& r, JudgeRule const& rule, zelCorrelations curve, double end,
                Limit const& least, Limit const& most) {
  double const low = std::max(end, KelvinOf(r, least));
  double const high = std::min(end, KelvinOf(r, most));
  auto const compared = [&](double kelvin, Limit const& limit) {
    return AtBound(
        Outcome::Absolute(Of(curve), end, kelvin, PlayOf(limit, kelvin, end, rule.tolerance)));
  };
  return Worse(compared(low, least), compared(high, most));
}

Found About(char const* end, Found outcome) {
  if (outcome) {
    outcome->unit = "K";
    outcome->quantity = end;
  }
  return outcome;
}

// Curves without limits are not compared.
bool HasLimits(Record const& own, zelCorrelations curve) {
  return own.HasCurve(curve) && IsDefined(own.Curve(curve).tMin) &&
         IsDefined(own.Curve(curve).tMax);
}

template <Ends const& kEnds>
Found Begins(Reading& r, JudgeRule const& rule) {
  if (!HasLimits(r.Own(), kEnds.curve)) return std::nullopt;
  KelvinRange const range = r.OwnRange(kEnds.curve);
  constexpr char const* kBeginning = "the beginning of the range of ";
  if (!(range.low < range.high)) {
    return About(kBeginning, Outcome::Absolute(Of(kEnds.curve), range.low, range.high, 0.0));
  }
  return About(kBeginning,
               IsBetween(r, rule, kEnds.curve, range.low, kEnds.lowLeast, kEnds.lowMost));
}

template <Ends const& kEnds>
Found Finishes(Reading& r, JudgeRule const& rule) {
  if (!HasLimits(r.Own(), kEnds.curve)) return std::nullopt;
  double const high = r.OwnRange(kEnds.curve).high;
  return About("the end of the range of ",
               IsBetween(r, rule, kEnds.curve, high, kEnds.highLeast, kEnds.highMost));
}

constexpr Ends kVaporPressure = {correlationVaporPressure,
                                 {0.80, Part::kMelting},
                                 {0.76, Part::kCritical},
                                 {0.48, Part::kCritical},
                                 {1.045, Part::kCritical}};
constexpr Ends kLatentHeat = {correlationLatentHeat,
                              {0.86, Part::kMelting},
                              {1.30, Part::kMelting},
                              {0.93, Part::kCritical},
                              {1.035, Part::kCritical}};
constexpr Ends kLiquidDensity = {correlationLiquidDensity,
                                 {0.87, Part::kMelting},
                                 {1.30, Part::kMelting},
                                 {0.93, Part::kCritical},
                                 {1.045, Part::kCritical}};
constexpr Ends kLiquidThermal = {correlationLiquidThermal,
                                 {0.95, Part::kMelting},
                                 {1.60, Part::kMelting},
                                 {0.55, Part::kCritical},
                                 {1.005, Part::kCritical}};
constexpr Ends kLiquidViscosity = {correlationLiquidViscosity,
                                   {0.87, Part::kMelting},
                                   {0.69, Part::kCritical},
                                   {0.46, Part::kCritical},
                                   {1.01, Part::kCritical}};
constexpr Ends kSurfaceTension = {correlationSurfaceTension,
                                  {0.95, Part::kMelting},
                                  {0.67, Part::kCritical},
                                  {0.59, Part::kCritical},
                                  {1.015, Part::kCritical}};
constexpr Ends kLiquidEnthalpy = {correlationLiquidEnthalpy,
                                  {0.93, Part::kMelting},
                                  {0.66, Part::kCritical},
                                  {0.49, Part::kCritical},
                                  {1.01, Part::kCritical}};
constexpr Ends kLiquidCp = {correlationLiquidCp,
                            {0.84, Part::kMelting},
                            {0.74, Part::kCritical},
                            {0.44, Part::kCritical},
                            {1.015, Part::kCritical}};
constexpr Ends kDielectric = {correlationDielectric,
                              {0.80, Part::kMelting},
                              {0.78, Part::kCritical, 330.0},
                              {0.41, Part::kCritical},
                              {0.0, Part::kKelvin, 1600.0}};
constexpr Ends kCharacteristicVolume = {correlationCharacteristicVolume,
                                        {0.10, Part::kCritical},
                                        {0.75, Part::kCritical},
                                        {0.40, Part::kCritical},
                                        {1.05, Part::kCritical}};
constexpr Ends kVaporThermal = {correlationVaporThermal,
                                {0.70, Part::kMelting},
                                {1.12, Part::kBoiling, 305.0},
                                {0.88, Part::kCritical},
                                {0.0, Part::kVapor}};
constexpr Ends kVaporViscosity = {correlationVaporViscosity,
                                  {0.75, Part::kMelting},
                                  {1.15, Part::kBoiling, 305.0},
                                  {0.98, Part::kCritical},
                                  {0.0, Part::kVapor}};
constexpr Ends kIdealEnthalpy = {correlationIdealEnthalpy,
                                 {0.0, Part::kKelvin, 45.0},
                                 {0.0, Part::kKelvin, 301.0},
                                 {0.0, Part::kKelvin, 480.0},
                                 {0.0, Part::kKelvin, 6100.0}};
constexpr Ends kIdealGasCp = {correlationIdealGasCp,
                              {0.0, Part::kKelvin, 45.0},
                              {0.0, Part::kKelvin, 301.0},
                              {0.0, Part::kKelvin, 480.0},
                              {0.0, Part::kKelvin, 6100.0}};
constexpr Ends kSolidEnthalpy = {correlationSolidEnthalpy,
                                 {0.0, Part::kKelvin},
                                 {0.99, Part::kMelting},
                                 {0.47, Part::kMelting},
                                 {1.12, Part::kMelting}};
constexpr Ends kSolidDensity = {correlationSolidDensity,
                                {0.0, Part::kKelvin},
                                {1.01, Part::kMelting},
                                {0.0, Part::kKelvin},
                                {1.10, Part::kMelting}};
constexpr Ends kSolidCp = {correlationSolidCp,
                           {0.0, Part::kKelvin},
                           {0.99, Part::kMelting},
                           {0.47, Part::kMelting},
                           {1.12, Part::kMelting}};

constexpr char const* kText =
    "6 % beyond the limits that 99 of 100 published ranges keep; 1.2 % above TC and below 0 K";
constexpr char const* kFrom = "the usual range";

constexpr Relation kRows[] = {
    {{"vapor-pressure-begin", "vapor pressure begins at 0.8 NMP to 0.76 TC", 0.06, kText},
     kFrom,
     Begins<kVaporPressure>},
    {{"vapor-pressure-end", "vapor pressure ends at 0.48 TC to 1.045 TC", 0.06, kText},
     kFrom,
     Finishes<kVaporPressure>},
    {{"latent-heat-begin", "latent heat begins at 0.86 NMP to 1.3 NMP", 0.06, kText},
     kFrom,
     Begins<kLatentHeat>},
    {{"latent-heat-end", "latent heat ends at 0.93 TC to 1.035 TC", 0.06, kText},
     kFrom,
     Finishes<kLatentHeat>},
    {{"liquid-density-begin", "density of the liquid begins at 0.87 NMP to 1.3 NMP", 0.06, kText},
     kFrom,
     Begins<kLiquidDensity>},
    {{"liquid-density-end", "density of the liquid ends at 0.93 TC to 1.045 TC", 0.06, kText},
     kFrom,
     Finishes<kLiquidDensity>},
    {{"liquid-thermal-begin", "thermal conductivity of the liquid begins at 0.95 NMP to 1.6 NMP",
      0.06, kText},
     kFrom,
     Begins<kLiquidThermal>},
    {{"liquid-thermal-end", "thermal conductivity of the liquid ends at 0.55 TC to 1.005 TC", 0.06,
      kText},
     kFrom,
     Finishes<kLiquidThermal>},
    {{"liquid-viscosity-begin", "viscosity of the liquid begins at 0.87 NMP to 0.69 TC", 0.06,
      kText},
     kFrom,
     Begins<kLiquidViscosity>},
    {{"liquid-viscosity-end", "viscosity of the liquid ends at 0.46 TC to 1.01 TC", 0.06, kText},
     kFrom,
     Finishes<kLiquidViscosity>},
    {{"surface-tension-begin", "surface tension begins at 0.95 NMP to 0.67 TC", 0.06, kText},
     kFrom,
     Begins<kSurfaceTension>},
    {{"surface-tension-end", "surface tension ends at 0.59 TC to 1.015 TC", 0.06, kText},
     kFrom,
     Finishes<kSurfaceTension>},
    {{"liquid-enthalpy-begin", "enthalpy of the liquid begins at 0.93 NMP to 0.66 TC", 0.06, kText},
     kFrom,
     Begins<kLiquidEnthalpy>},
    {{"liquid-enthalpy-end", "enthalpy of the liquid ends at 0.49 TC to 1.01 TC", 0.06, kText},
     kFrom,
     Finishes<kLiquidEnthalpy>},
    {{"liquid-cp-begin", "heat capacity of the liquid begins at 0.84 NMP to 0.74 TC", 0.06, kText},
     kFrom,
     Begins<kLiquidCp>},
    {{"liquid-cp-end", "heat capacity of the liquid ends at 0.44 TC to 1.015 TC", 0.06, kText},
     kFrom,
     Finishes<kLiquidCp>},
    {{"dielectric-begin", "dielectric constant begins at 0.8 NMP to 0.78 TC (or 330 K)", 0.06,
      kText},
     kFrom,
     Begins<kDielectric>},
    {{"dielectric-end", "dielectric constant ends at 0.41 TC to 1600 K", 0.06, kText},
     kFrom,
     Finishes<kDielectric>},
    {{"characteristic-volume-begin", "characteristic volume begins at 0.1 TC to 0.75 TC", 0.06,
      kText},
     kFrom,
     Begins<kCharacteristicVolume>},
    {{"characteristic-volume-end", "characteristic volume ends at 0.4 TC to 1.05 TC", 0.06, kText},
     kFrom,
     Finishes<kCharacteristicVolume>},
    {{"vapor-thermal-begin",
      "thermal conductivity of the vapor begins at 0.7 NMP to 1.12 NBP (or 305 K)", 0.06, kText},
     kFrom,
     Begins<kVaporThermal>},
    {{"vapor-thermal-end",
      "thermal conductivity of the vapor ends at 0.88 TC to 1650 K (6000 K without hydrogen or if "
      "TC is below 200 K)",
      0.06, kText},
     kFrom,
     Finishes<kVaporThermal>},
    {{"vapor-viscosity-begin", "viscosity of the vapor begins at 0.75 NMP to 1.15 NBP (or 305 K)",
      0.06, kText},
     kFrom,
     Begins<kVaporViscosity>},
    {{"vapor-viscosity-end",
      "viscosity of the vapor ends at 0.98 TC to 1650 K (6000 K without hydrogen or if TC is below "
      "200 K)",
      0.06, kText},
     kFrom,
     Finishes<kVaporViscosity>},
    {{"ideal-enthalpy-begin", "enthalpy of the ideal gas begins at 45 K to 301 K", 0.06, kText},
     kFrom,
     Begins<kIdealEnthalpy>},
    {{"ideal-enthalpy-end", "enthalpy of the ideal gas ends at 480 K to 6100 K", 0.06, kText},
     kFrom,
     Finishes<kIdealEnthalpy>},
    {{"ideal-cp-begin", "heat capacity of the ideal gas begins at 45 K to 301 K", 0.06, kText},
     kFrom,
     Begins<kIdealGasCp>},
    {{"ideal-cp-end", "heat capacity of the ideal gas ends at 480 K to 6100 K", 0.06, kText},
     kFrom,
     Finishes<kIdealGasCp>},
    {{"solid-enthalpy-begin", "enthalpy of the solid begins at most at 0.99 NMP", 0.06, kText},
     kFrom,
     Begins<kSolidEnthalpy>},
    {{"solid-enthalpy-end", "enthalpy of the solid ends at 0.47 NMP to 1.12 NMP", 0.06, kText},
     kFrom,
     Finishes<kSolidEnthalpy>},
    {{"solid-density-begin", "density of the solid begins at most at 1.01 NMP", 0.06, kText},
     kFrom,
     Begins<kSolidDensity>},
    {{"solid-density-end", "density of the solid ends at most at 1.1 NMP", 0.06, kText},
     kFrom,
     Finishes<kSolidDensity>},
    {{"solid-cp-begin", "heat capacity of the solid begins at most at 0.99 NMP", 0.06, kText},
     kFrom,
     Begins<kSolidCp>},
    {{"solid-cp-end", "heat capacity of the solid ends at 0.47 NMP to 1.12 NMP", 0.06, kText},
     kFrom,
     Finishes<kSolidCp>},
};

}  // namespace

std::span<Relation const> CurveRangeRelations() { return kRows; }

}  // namespace zel

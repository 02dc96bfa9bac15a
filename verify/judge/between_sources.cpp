// The same datum of two sources.
#include <algorithm>
#include <iterator>

#include "verify/component_checks.h"
#include "verify/judge/reading.h"
#include "verify/judge/slip.h"

namespace zel {
namespace {

// How much two good sources differ at most: by the greater of the two tolerances.
struct ConstantRow {
  zelProperties index;
  double relative;
  double absolute;  // in the constant's unit
};

// For most constants one in fifty pairs of published values differs by more than twice that; for
// none more than one in eight.
constexpr ConstantRow kConstants[] = {
    {propertyMW, 5e-4, 0.0},          {propertyTC, 0.015, 0.0},
    {propertyPC, 0.06, 30.0},         {propertyVC, 0.05, 0.002},
    {propertyZC, 0.045, 0.0},         {propertyACENTRIC, 0.05, 0.03},
    {propertyNMP, 0.01, 1.0},         {propertyNBP, 0.006, 0.5},
    {propertySG60F, 0.02, 0.0},       {propertyMVOL25C, 0.02, 0.0},
    {propertySOLUPARA, 0.04, 0.0},    {propertyPARACHOR, 0.04, 0.0},
    {propertyRACKETT, 0.035, 0.0},    {propertyDIPOLE, 0.075, 0.15},
    {propertyRADIUS, 0.05, 0.0},      {propertyDIELECTRIC, 0.05, 0.05},
    {propertyVDWA, 0.05, 0.0},        {propertyVDWV, 0.05, 0.0},
    {propertyGFORMATION, 0.01, 2000}, {propertyHFORMATION, 0.02, 4000},
    {propertyFLASHPOINT, 0.033, 0.0}, {propertyLOFLAMM, 0.17, 0.001},
    {propertyHIFLAMM, 0.13, 0.0},     {propertyAUTOIGNITION, 0.04, 0.0},
    {propertyGHV, 0.01, 0.0},         {propertyLHV, 0.01, 0.0},
    {propertyTTP, 0.007, 0.5},        {propertyPTP, 0.5, 0.0},
    {propertyHCOMBUST, 0.01, 3000},   {propertyHFUSIONNMP, 0.12, 100},
    {propertyHVAPNBP, 0.03, 0.0}};

struct CurveRow {
  zelCorrelations index;
  double tolerance;  // relative
  bool isEnthalpy;   // the zero is free, so that differences are compared
};

constexpr CurveRow kCurves[] = {
    {correlationVaporPressure, 0.06, false},   {correlationIdealEnthalpy, 0.03, true},
    {correlationLiquidEnthalpy, 0.05, true},   {correlationLatentHeat, 0.065, false},
    {correlationLiquidDensity, 0.02, false},   {correlationLiquidThermal, 0.03, false},
    {correlationVaporThermal, 0.075, false},   {correlationLiquidViscosity, 0.11, false},
    {correlationVaporViscosity, 0.045, false}, {correlationSurfaceTension, 0.12, false},
    {correlationSolidEnthalpy, 0.08, true},    {correlationSolidDensity, 0.05, false},
    {correlationIdealGasCp, 0.03, false},      {correlationLiquidCp, 0.04, false},
    {correlationSolidCp, 0.08, false},         {correlationDielectric, 0.06, false}};

constexpr JudgeRule kRules[] = {
    {"magnitude", "the same constant in two libraries", 1.0,
     "by constant, from 0.05 % (MW) to 50 % (PTP): mostly one in fifty pairs of handbook values "
     "differs by more than twice that, at most one in eight; a fifth of it for exactly a slip"},
    {"curves", "the same curve in two libraries, at five temperatures of the common range", 1.0,
     "by curve, from 2 % (density of liquids) to 11 % (viscosity of liquids): one in thirty "
     "pairs of published correlations differs by more than twice that"},
    {"range-slip",
     "the range of the same curve in two libraries: limits are not apart by exactly the difference "
     "between K and C, F or R, or by two digits that are exchanged",
     0.2, "0.2 K; both limits by the same difference, or the other limit equal"}};
constexpr JudgeRule const& kConstantRule = kRules[0];
constexpr JudgeRule const& kCurveRule = kRules[1];
constexpr JudgeRule const& kRangeRule = kRules[2];

Tension Between(JudgeRule const& rule, Record const& one, Record const& other, Datum datum) {
  Tension tension;
  tension.rule = &rule;
  tension.about = {&one, datum};
  tension.parts = {{{&one, datum}, Stake::kFull}, {{&other, datum}, Stake::kFull}};
  tension.unit = datum.Unit();
  tension.isBetweenSources = true;
  tension.from = other.Item().library + " " + other.Item().bank.name;
  return tension;
}

double DeviationOf(ConstantRow const& row, double a, double b) {
  if (a == b) return 0.0;
  double const ratio = b == 0.0 ? 0.0 : a / b;
  double const most = std::max(std::abs(a), std::abs(b));
  double const relative = ratio > 0.0 ? std::abs(std::log(ratio)) : std::abs(a - b) / most;
  double const deviation = relative / row.relative;
  return row.absolute > 0.0 ? std::min(deviation, std::abs(a - b) / row.absolute) : deviation;
}

// A difference that is exactly that of a slip is hardly a difference between two measurements.
double WithSlip(double deviation, Datum datum, double a, double b, double molecularWeight) {
  constexpr double kTimes = 5.0;
  constexpr double kLeast = 0.3;  // tolerances
  constexpr double kExact = 0.004;
  if (deviation < kLeast || (LikelySlip(a, b, datum.Unit(), kExact, molecularWeight).empty() &&
                             LikelySlip(b, a, datum.Unit(), kExact, molecularWeight).empty()))
    return deviation;
  return kTimes * deviation;
}

void CompareConstants(Record const& one, Record const& other, double molecularWeight,
                      std::vector<Tension>& tensions) {
  for (ConstantRow const& row : kConstants) {
    double const a = one.Constant(row.index);
    double const b = other.Constant(row.index);
    if (!IsDefined(a) || !IsDefined(b)) continue;
    Tension tension = Between(kConstantRule, one, other, Datum::Constant(row.index));
    tension.value = a;
    tension.expected = b;
    tension.deviation =
        WithSlip(DeviationOf(row, a, b), tension.about.datum, a, b, molecularWeight);
    tensions.push_back(std::move(tension));
  }
}

// The number by which curves are compared: the value, or the mean slope around the temperature.
double ComparedAt(Record const& record, CurveRow const& row, double kelvin, double step) {
  if (!row.isEnthalpy) return record.At(row.index, kelvin);
  double const low = record.At(row.index, kelvin - step);
  double const high = record.At(row.index, kelvin + step);
  return IsDefined(low) && IsDefined(high) ? (high - low) / (2 * step) : gen_GetUndefDouble();
}

// Vapor pressures far below the atmosphere are measured with greater errors.
double ToleranceAt(CurveRow const& row, double value) {
  constexpr double kPerLogarithm = 0.4;
  if (row.index != correlationVaporPressure || !(value > 0.0) || value > kAtmosphere)
    return row.tolerance;
  return row.tolerance * (1.0 + kPerLogarithm * std::log(kAtmosphere / value));
}

void CompareCurves(Record const& one, Record const& other, double criticalTemperature,
                   std::vector<Tension>& tensions) {
  constexpr double kNearCritical = 0.97;
  constexpr double kPlaces[] = {0.1, 0.3, 0.5, 0.7, 0.9};
  for (CurveRow const& row : kCurves) {
    if (!one.HasCurve(row.index) || !other.HasCurve(row.index)) continue;
    KelvinRange const a = one.RangeOf(row.index);
    KelvinRange const b = other.RangeOf(row.index);
    if (!a.IsBounded() || !b.IsBounded()) continue;
    double const low = std::max(a.low, b.low);
    double high = std::min(a.high, b.high);
    if (IsDefined(criticalTemperature) && row.index != correlationIdealGasCp &&
        row.index != correlationIdealEnthalpy) {
      high = std::min(high, kNearCritical * criticalTemperature);
    }
    if (!(high > low)) continue;
    Tension worst = Between(kCurveRule, one, other, Datum::Curve(row.index));
    bool isCompared = false;
    for (double const place : kPlaces) {
      double const kelvin = low + (high - low) * place;
      double const step = (high - low) / 10;
      double const x = ComparedAt(one, row, kelvin, step);
      double const y = ComparedAt(other, row, kelvin, step);
      if (!IsDefined(x) || !IsDefined(y)) continue;
      // The smaller is compared with the greater, which has a logarithm if one of them has.
      auto const outcome = Outcome::Factor(worst.about.datum, std::min(x, y), std::max(x, y),
                                           ToleranceAt(row, std::min(std::abs(x), std::abs(y))));
      if (!outcome || (isCompared && outcome->deviation <= worst.deviation)) continue;
      isCompared = true;
      worst.value = x;
      worst.expected = y;
      worst.temperature = kelvin;
      worst.deviation = outcome->deviation;
    }
    if (row.isEnthalpy) worst.unit = "kJ/kg-mol-K";
    if (isCompared) tensions.push_back(std::move(worst));
  }
}

// How a temperature changes if it is stored in another scale than the stated one.
struct ScaleSlip {
  double factor;
  double offset;  // K

  double Of(double kelvin) const { return factor * kelvin + offset; }
};
constexpr ScaleSlip kScaleSlips[] = {{1.0, -273.15},   {1.0, 273.15},  {1.8, 0.0},
                                     {1.0 / 1.8, 0.0}, {1.8, -459.67}, {1.0 / 1.8, 459.67 / 1.8}};

bool IsSame(double a, double b) {
  constexpr double kPart = 0.001;
  return std::abs(a - b) <= std::min(kRangeRule.tolerance, kPart * std::abs(b));
}

// Whether one limit shows a slip where the other limit is equal: degrees C, or two exchanged
// digits. Round numbers can differ by a factor of 1.8, or as 1000 C and 1000 K do, by chance.
bool IsSlip(double a, double b) {
  constexpr double kLeast = 0.01;
  constexpr double kRound = 50.0;  // K
  if (std::abs(a - b) < kLeast * std::abs(b)) return false;
  if (HasExchangedDigits(a, b)) return true;
  bool const isRound = std::fmod(std::min(a, b), kRound) == 0.0;
  return !isRound && (IsSame(a, b - 273.15) || IsSame(a, b + 273.15));
}

// The range as it is stored; unbounded unless the curve has both limits.
KelvinRange StoredRange(Record const& record, std::uint32_t curve) {
  if (!record.HasCurve(curve)) return {};
  ZelCorrelation const& stored = record.Curve(curve);
  return IsDefined(stored.tMin) && IsDefined(stored.tMax) ? record.RangeOf(curve) : KelvinRange();
}

void CompareRanges(Record const& one, Record const& other, std::vector<Tension>& tensions) {
  constexpr double kDeviation = 10.0;  // two ranges are hardly that far apart by chance
  for (CurveRow const& row : kCurves) {
    KelvinRange const a = StoredRange(one, row.index);
    KelvinRange const b = StoredRange(other, row.index);
    if (!a.IsBounded() || !b.IsBounded()) continue;
    bool const isLowSlip = IsSame(a.high, b.high) && IsSlip(a.low, b.low);
    bool const isHighSlip = IsSame(a.low, b.low) && IsSlip(a.high, b.high);
    bool const areBoth =
        std::any_of(std::begin(kScaleSlips), std::end(kScaleSlips), [&](ScaleSlip const& slip) {
          return IsSame(a.low, slip.Of(b.low)) && IsSame(a.high, slip.Of(b.high));
        });
    if (!isLowSlip && !isHighSlip && !areBoth) continue;
    Tension tension = Between(kRangeRule, one, other, Datum::Curve(row.index));
    tension.isOfRange = true;
    tension.unit = "K";
    tension.quantity = isHighSlip ? "the end of the range of " : "the beginning of the range of ";
    tension.value = isHighSlip ? a.high : a.low;
    tension.expected = isHighSlip ? b.high : b.low;
    tension.deviation = kDeviation;
    tensions.push_back(std::move(tension));
  }
}

}  // namespace

std::span<JudgeRule const> SourceRules() { return kRules; }

void AddSourceComparisons(Substance const& substance, std::vector<Tension>& tensions) {
  auto const& records = substance.Records();
  double const critical = substance.Median(propertyTC);
  double const weight = substance.Median(propertyMW);
  for (std::size_t i = 1; i < records.size(); ++i) {
    for (std::size_t earlier = 0; earlier < i; ++earlier) {
      CompareConstants(*records[i], *records[earlier], weight, tensions);
      CompareCurves(*records[i], *records[earlier], critical, tensions);
      CompareRanges(*records[i], *records[earlier], tensions);
    }
  }
}

}  // namespace zel

#include "verify/judge/record.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "zelaccess/Units.h"

namespace zel {
namespace {

constexpr double kSlack = 0.5;  // K, beyond the ends of a range

// Kelvins in one unit of a curve's temperatures.
double KelvinsPerDegree(std::int32_t unit) {
  return ConvertTemperature(1.0, unit, kKelvin) - ConvertTemperature(0.0, unit, kKelvin);
}

// The range in which curves of a kind are fitted. None for solids, whose curves end at a melting
// point that a record may not have.
KelvinRange UsualRange(std::uint32_t curve, double critical, double melting) {
  if (!IsDefined(critical) || !(critical > 0.0)) return {};
  switch (curve) {
    case correlationIdealEnthalpy:
    case correlationVaporThermal:
    case correlationVaporViscosity:
    case correlationIdealGasCp: return {0.5 * critical, 1.3 * critical};
    case correlationSolidEnthalpy:
    case correlationSolidDensity:
    case correlationSolidCp: return {};
    default: break;
  }
  // Viscosities above the boiling point are rarely measured, and equations are unreliable there.
  double const high = (curve == correlationLiquidViscosity ? 0.75 : 0.9) * critical;
  double const low = 0.4 * critical;
  return {IsDefined(melting) ? std::max(low, melting) : low, high};
}

// Whether the curve is a constant number, which needs no range.
bool IsAnywhere(ZelCorrelation const& curve) {
  constexpr std::int32_t kPolynomial = 1;
  return curve.equation == kPolynomial && curve.coefficientCount == 1 && !IsDefined(curve.tMin) &&
         !IsDefined(curve.tMax);
}

double ValueOf(ZelCorrelation taken, double temperature) {
  taken.tMin = taken.tMax = gen_GetUndefDouble();
  double value = std::numeric_limits<double>::quiet_NaN();
  EvaluateOne(taken, temperature, 1, &value, nullptr, nullptr, nullptr);
  return value;
}

// Finds the constants whose small changes change the value in the middle of the range.
std::vector<std::uint32_t> ConstantsUsedBy(ZelCorrelation const& taken) {
  constexpr double kMiddle = 300.0;  // of a curve without a range, in its unit
  constexpr double kChange = 1.01;
  struct {
    zelProperties index;
    double ZelCorrelation::*member;
  } const rows[] = {{propertyMW, &ZelCorrelation::molecularWeight},
                    {propertyTC, &ZelCorrelation::criticalTemperature},
                    {propertyPC, &ZelCorrelation::criticalPressure},
                    {propertyNBP, &ZelCorrelation::boilingPoint}};
  bool const hasRange = IsDefined(taken.tMin) && IsDefined(taken.tMax);
  double const temperature = hasRange ? (taken.tMin + taken.tMax) / 2 : kMiddle;
  double const before = ValueOf(taken, temperature);
  std::vector<std::uint32_t> used;
  for (auto const& row : rows) {
    ZelCorrelation changed = taken;
    if (!IsDefined(changed.*row.member)) continue;
    changed.*row.member *= kChange;
    double const after = ValueOf(changed, temperature);
    if (after != before && std::isnan(after) == std::isnan(before)) used.push_back(row.index);
  }
  return used;
}

}  // namespace

char const* Datum::Name() const {
  return IsCurve() ? CorrelationRows()[Index()].name
                   : ConstantRow(static_cast<zelProperties>(Index())).keyword;
}

char const* Datum::Unit() const {
  return IsCurve() ? CorrelationRows()[Index()].unit
                   : ConstantRow(static_cast<zelProperties>(Index())).unit;
}

Record::Record(ComponentView const& component, CheckedItem item)
    : item_(std::move(item)), identity_(component.Identity()) {
  CompositionOf(identity_.formula, atoms_);
  char smiles[101] = {};
  if (component.Face()->GetSmiles(smiles) == kStatusOk) smiles_ = smiles;
  constants_.fill(gen_GetUndefDouble());
  for (ZelConstantInfo const& row : ConstantRows()) {
    constants_[row.index] = component.Constant(row.index);
  }
  curves_.fill(-1);
  for (std::uint32_t i = 0; i < kJudgedCurves; ++i) {
    ZelCorrelation taken;
    if (i == correlationExpansion || component.Record(i) == nullptr ||
        TakeCorrelation(component.Face(), i, taken) != kStatusOk)
      continue;
    curves_[i] = static_cast<std::int8_t>(taken_.size());
    taken_.push_back(taken);
    used_.push_back(ConstantsUsedBy(taken));
  }
}

std::vector<std::uint32_t> const& Record::ConstantsOf(std::uint32_t curve) const {
  return used_[static_cast<std::size_t>(curves_[curve])];
}

void Record::Complete(double molecularWeight, double criticalTemperature, double criticalPressure,
                      double boilingPoint) {
  for (ZelCorrelation& taken : taken_) {
    auto const complete = [](double& own, double other) {
      if (!IsDefined(own)) own = other;
    };
    complete(taken.molecularWeight, molecularWeight);
    complete(taken.criticalTemperature, criticalTemperature);
    complete(taken.criticalPressure, criticalPressure);
    complete(taken.boilingPoint, boilingPoint);
  }
}

bool Record::Has(Datum datum) const {
  return datum.IsCurve() ? HasCurve(datum.Index()) : IsDefined(Constant(datum.Index()));
}

ZelCorrelation const& Record::Curve(std::uint32_t curve) const {
  return taken_[static_cast<std::size_t>(curves_[curve])];
}

KelvinRange Record::RangeOf(std::uint32_t curve) const {
  KelvinRange range;
  if (!HasCurve(curve)) return range;
  ZelCorrelation const& taken = Curve(curve);
  if (IsDefined(taken.tMin)) range.low = ConvertTemperature(taken.tMin, taken.tempUnit, kKelvin);
  if (IsDefined(taken.tMax)) range.high = ConvertTemperature(taken.tMax, taken.tempUnit, kKelvin);
  KelvinRange const usual = UsualRange(curve, Constant(propertyTC), Constant(propertyNMP));
  if (!IsDefined(range.low)) range.low = usual.low;
  if (!IsDefined(range.high)) range.high = usual.high;
  return range;
}

// A form without a value leaves the number that it was passed.
double Record::Evaluate(std::uint32_t curve, double kelvin, double* slope) const {
  ZelCorrelation unlimited = Curve(curve);
  unlimited.tMin = unlimited.tMax = gen_GetUndefDouble();
  double value = std::numeric_limits<double>::quiet_NaN();
  double derivative = value;
  double const temperature = ConvertTemperature(kelvin, kKelvin, unlimited.tempUnit);
  ZelStatus const status =
      EvaluateOne(unlimited, temperature, 1, &value, &derivative, nullptr, nullptr);
  if (status == kStatusFailed || !std::isfinite(value)) return gen_GetUndefDouble();
  if (slope != nullptr) {
    *slope = std::isfinite(derivative) ? derivative / KelvinsPerDegree(unlimited.tempUnit)
                                       : gen_GetUndefDouble();
  }
  return value;
}

double Record::Extended(std::uint32_t curve, double kelvin) const {
  return HasCurve(curve) && IsDefined(kelvin) ? Evaluate(curve, kelvin, nullptr)
                                              : gen_GetUndefDouble();
}

double Record::At(std::uint32_t curve, double kelvin) const {
  if (!HasCurve(curve) || !IsDefined(kelvin)) return gen_GetUndefDouble();
  KelvinRange const range = RangeOf(curve);
  bool const isInside =
      IsAnywhere(Curve(curve)) ||
      (range.IsBounded() && kelvin >= range.low - kSlack && kelvin <= range.high + kSlack);
  return isInside ? Evaluate(curve, kelvin, nullptr) : gen_GetUndefDouble();
}

double Record::Slope(std::uint32_t curve, double kelvin) const {
  if (!IsDefined(At(curve, kelvin))) return gen_GetUndefDouble();
  double slope = gen_GetUndefDouble();
  Evaluate(curve, kelvin, &slope);
  return slope;
}

std::string Record::StoredText(Datum datum) const {
  if (!datum.IsCurve()) return Shown(Constant(datum.Index()));
  if (!HasCurve(datum.Index())) return {};
  ZelCorrelation const& taken = Curve(datum.Index());
  std::string text = std::to_string(taken.equation);
  for (std::int32_t const code : {taken.tempUnit, taken.logBasis, taken.moleWtBasis}) {
    text += " " + std::to_string(code);
  }
  for (double const number : {taken.factor, taken.tMin, taken.tMax}) text += " " + Shown(number);
  for (std::int32_t i = 0; i < taken.coefficientCount; ++i) {
    text += " " + Shown(taken.coefficients[i]);
  }
  return text;
}

}  // namespace zel

#include "verify/judge/reading.h"

#include <algorithm>
#include <limits>

namespace zel {
namespace {

constexpr double kMissing = std::numeric_limits<double>::quiet_NaN();

}  // namespace

double Reading::Note(Record const* from, Datum datum, double value, Stake stake) {
  if (from == nullptr || !IsDefined(value)) return kMissing;
  Claim const claim{from, datum};
  auto const known = std::find_if(parts_.begin(), parts_.end(),
                                  [&](Tension::Part const& part) { return part.claim == claim; });
  if (known == parts_.end()) {
    parts_.push_back({claim, stake});
  } else if (stake == Stake::kFull) {
    known->stake = stake;
  }
  return value;
}

double Reading::OwnConstant(std::uint32_t index, Stake stake) {
  return Note(&own_, Datum::Constant(index), own_.Constant(index), stake);
}

double Reading::OwnAt(std::uint32_t curve, double kelvin, Stake stake) {
  return Note(&own_, Datum::Curve(curve), own_.At(curve, kelvin), stake);
}

double Reading::OwnSlope(std::uint32_t curve, double kelvin, Stake stake) {
  return Note(&own_, Datum::Curve(curve), own_.Slope(curve, kelvin), stake);
}

double Reading::Constant(std::uint32_t index, Stake stake) {
  if (IsDefined(own_.Constant(index))) return OwnConstant(index, stake);
  Record const* const other = substance_.MedianRecord(index);
  if (other == nullptr) return kMissing;
  return Note(other, Datum::Constant(index), other->Constant(index), stake);
}

double Reading::At(std::uint32_t curve, double kelvin, Stake stake) {
  if (!(kelvin > 0.0)) return kMissing;
  double const own = OwnAt(curve, kelvin, stake);
  if (!std::isnan(own)) return own;
  Record const* const other = substance_.RecordAt(curve, kelvin);
  if (other == nullptr) return kMissing;
  return Note(other, Datum::Curve(curve), other->At(curve, kelvin), stake);
}

double Reading::Slope(std::uint32_t curve, double kelvin, Stake stake) {
  if (!(kelvin > 0.0)) return kMissing;
  double const own = OwnSlope(curve, kelvin, stake);
  if (!std::isnan(own)) return own;
  Record const* const other = substance_.RecordAt(curve, kelvin);
  if (other == nullptr) return kMissing;
  return Note(other, Datum::Curve(curve), other->Slope(curve, kelvin), stake);
}

KelvinRange Reading::Range(std::uint32_t curve) const { return own_.RangeOf(curve); }

KelvinRange Reading::OwnRange(std::uint32_t curve, Stake stake) {
  if (own_.HasCurve(curve)) Note(&own_, Datum::Curve(curve), 0.0, stake);
  return Range(curve);
}

double Reading::Atoms(char const* element) const {
  Composition const& atoms = substance_.Atoms();
  auto const at = atoms.find(element);
  return at == atoms.end() ? 0.0 : static_cast<double>(at->second);
}

Claim Reading::ClaimOf(Datum datum) const {
  auto const at = std::find_if(parts_.begin(), parts_.end(), [&](Tension::Part const& part) {
    return part.claim.datum == datum;
  });
  return at == parts_.end() ? Claim{&own_, datum} : at->claim;
}

namespace {

// The deviation of a value that is impossible where it is compared.
constexpr double kImpossible = 1e3;

std::optional<Outcome> Made(Datum about, double value, double expected, double deviation) {
  if (!std::isfinite(value) || !std::isfinite(expected) || std::isnan(deviation))
    return std::nullopt;
  return Outcome{about, value, expected, std::min(std::abs(deviation), kImpossible)};
}

}  // namespace

std::optional<Outcome> Outcome::Relative(Datum about, double value, double expected,
                                         double tolerance) {
  return Made(about, value, expected, (value - expected) / (tolerance * std::abs(expected)));
}

std::optional<Outcome> Outcome::Absolute(Datum about, double value, double expected,
                                         double tolerance) {
  return Made(about, value, expected, (value - expected) / tolerance);
}

std::optional<Outcome> Outcome::Factor(Datum about, double value, double expected,
                                       double logTolerance) {
  if (!(expected > 0.0)) return std::nullopt;  // beyond where the relation holds
  bool const hasLogarithm = value > 0.0;
  return Made(about, value, expected,
              hasLogarithm ? std::log(value / expected) / logTolerance : kImpossible);
}

}  // namespace zel

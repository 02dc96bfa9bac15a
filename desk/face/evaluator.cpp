#include <zelaccess/DeskEvaluator.h>
#include <zelaccess/Units.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <limits>
#include <mutex>
#include <utility>

#include "desk/face/data.h"
#include "desk/face/units.h"

namespace zel::desk {

struct EvaluatorData {
  EvaluatorData(UnitOfValues unit, std::string temperatures)
      : values(std::move(unit)), temperatureUnit(std::move(temperatures)) {}

  UnitOfValues values;
  std::string temperatureUnit;
  std::int32_t recordUnit = 10;  // of the record's temperatures: 10 K, 11 C, 12 R, 13 F
  std::int32_t order = 1;
  double zero = 0.0;           // absolute zero in the record's unit
  double slopeFactor = 1.0;    // from derivatives of the record to those in the units of the caller
  bool mayBeBelowZero = true;  // the range does not exclude temperatures below absolute zero
  bool hasLow = false;         // the correlation has a value at the lower end of its range
  bool hasHigh = false;
  bool isDetached = false;
  std::uint32_t index = 0;
  ZelCorrelation correlation;                      // if it is detached
  std::shared_ptr<ComponentData const> component;  // else

  ZelStatus Run(ZelBatch const& batch) const {
    if (isDetached) return zel::EvaluateBatch(correlation, batch);
    std::lock_guard const alone(component->lock);
    return zel::EvaluateComponentBatch(component->component.operator->(), index, batch);
  }
  // Statuses are needed where some values are outside of the range; `isOutside` is true if earlier
  // chunks had such values, and is set if this one has.
  void EvaluateChunk(EvaluatorArrays const& chunk, bool& isOutside) const;
  ZelStatus RunChunk(double const* temperatures, EvaluatorArrays const& chunk) const;
  void CleanChunk(double const* temperatures, EvaluatorArrays const& chunk) const;
};

namespace {

constexpr std::int32_t kKelvin = 10;
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
// The chunk is so small that its results are still in the processor's cache when they are checked.
constexpr std::size_t kChunk = 2048;

std::uint64_t BitsOf(double value) {
  std::uint64_t bits = 0;
  std::memcpy(&bits, &value, sizeof bits);
  return bits;
}
constexpr std::uint64_t kSign = std::uint64_t{1} << 63U;

// The sign bit is set if a value is infinite, not a number, or as large as an undefined one. The
// compiler makes vector instructions of this loop, which it would not with comparisons.
std::uint64_t LargeIn(double const* values, std::size_t count) {
  constexpr double kLarge = 1e34;
  std::uint64_t const toSign = kSign - BitsOf(kLarge);
  std::uint64_t found = 0;
  for (std::size_t i = 0; i < count; ++i) found |= (BitsOf(values[i]) & ~kSign) + toSign;
  return found;
}

// The sign bit is set if a value is below the least.
std::uint64_t BelowIn(double const* values, std::size_t count, double least) {
  std::uint64_t found = 0;
  for (std::size_t i = 0; i < count; ++i) found |= BitsOf(values[i] - least);
  return found;
}

zel::ZelCorrelationInfo const& InfoOf(std::uint32_t index) {
  if (index >= Correlations().size()) throw UnknownWord("", "there is no such correlation");
  return Correlations()[index];
}

double AbsoluteZero(std::int32_t unit) {
  switch (unit) {
    case 11: return -273.15;
    case 13: return -459.67;
    default: return 0.0;
  }
}

bool IsNumber(double value) { return std::isfinite(value) && !zel::gen_IsUndefDouble(value); }

// Converts temperatures of the caller to the unit of the record.
void ToRecord(std::string const& unit, std::int32_t recordUnit, double* temperatures,
              std::size_t count) {
  char const* const record = TemperatureUnit(recordUnit);
  if (unit == record) return;
  zel::InitZelAccess();
  if (!zel::ConvertUnits("Temp", unit.c_str(), record, temperatures,
                         static_cast<std::int32_t>(count))) {
    throw UnknownWord("", unit + " is not a unit of temperatures");
  }
}

// The change of a temperature of the record when that of the caller changes by 1.
double StepOfRecord(std::string const& unit, std::int32_t recordUnit) {
  double step = 1.0;
  zel::ConvertUnits("TempDiff", unit.c_str(), TemperatureUnit(recordUnit), &step, 1);
  return step;
}

std::shared_ptr<EvaluatorData> Prepared(std::uint32_t index, std::int32_t recordUnit,
                                        EvaluationOptions const& options) {
  zel::ZelCorrelationInfo const& info = InfoOf(index);
  if (options.order < 1 || options.order > 3) {
    throw UnknownWord(
        "", "the order of a derivative is 1, 2 or 3, not " + std::to_string(options.order));
  }
  auto data = std::make_shared<EvaluatorData>(
      UnitOfValues(info.unit, zel::GetCorrelationDimension(index), options.unit, info.label),
      options.temperatureUnit);
  data->index = index;
  data->recordUnit = recordUnit;
  data->order = options.order;
  data->zero = AbsoluteZero(recordUnit);
  double probe = 1.0;
  ToRecord(options.temperatureUnit, recordUnit, &probe, 1);  // throws if it is not a unit
  data->slopeFactor = data->values.Step() *
                      std::pow(StepOfRecord(options.temperatureUnit, recordUnit), options.order);
  return data;
}

// An extrapolation is a value only if the correlation has a value at the end of the range.
void FindEnds(EvaluatorData& data, double tMin, double tMax) {
  auto const hasValueAt = [&data](double temperature) {
    double value = kNan;
    ZelBatch batch;
    batch.count = 1;
    batch.temperatures = &temperature;
    batch.order = data.order;
    batch.values = &value;
    return data.Run(batch) != kStatusFailed && !std::isnan(value);
  };
  data.mayBeBelowZero = zel::gen_IsUndefDouble(tMin) || !(tMin >= data.zero);
  data.hasLow = hasValueAt(tMin);
  data.hasHigh = hasValueAt(tMax);
}

}  // namespace

// Results without a value become NaN. `temperatures` are in the record's unit.
void EvaluatorData::CleanChunk(double const* temperatures, EvaluatorArrays const& chunk) const {
  for (std::size_t i = 0; i < chunk.count; ++i) {
    std::int32_t const status = chunk.statuses == nullptr ? 0 : chunk.statuses[i];
    bool const isThere =
        !(zel::ConvertTemperature(temperatures[i], recordUnit, kKelvin) < 0.0) &&
        (status == 0 || (IsNumber(chunk.values[i]) && (status > 0 ? hasHigh : hasLow)));
    for (double* const results : {chunk.values, chunk.derivatives}) {
      if (results != nullptr && (!isThere || !IsNumber(results[i]))) results[i] = kNan;
    }
  }
}

// Evaluates a chunk; results without a value are NaN.
ZelStatus EvaluatorData::RunChunk(double const* temperatures, EvaluatorArrays const& chunk) const {
  std::fill_n(chunk.values, chunk.count, kNan);
  if (chunk.derivatives != nullptr) std::fill_n(chunk.derivatives, chunk.count, kNan);
  if (chunk.statuses != nullptr) std::fill_n(chunk.statuses, chunk.count, 0);
  ZelBatch batch;
  batch.count = static_cast<std::int64_t>(chunk.count);
  batch.temperatures = temperatures;
  batch.order = order;
  batch.mode = chunk.mode;
  batch.values = chunk.values;
  batch.derivatives = chunk.derivatives;
  batch.statuses = chunk.statuses;
  return Run(batch);
}

// Evaluates at most kChunk elements.
void EvaluatorData::EvaluateChunk(EvaluatorArrays const& chunk, bool& isOutside) const {
  std::array<double, kChunk> converted;
  std::array<double, kChunk> spare;
  std::array<std::int32_t, kChunk> spareStatuses;
  EvaluatorArrays done = chunk;
  double const* temperatures = chunk.temperatures;
  if (temperatureUnit != TemperatureUnit(recordUnit)) {
    std::copy_n(temperatures, chunk.count, converted.data());
    ToRecord(temperatureUnit, recordUnit, converted.data(), chunk.count);
    temperatures = converted.data();
  }
  if (done.values == nullptr) done.values = spare.data();
  if (done.statuses == nullptr && isOutside) done.statuses = spareStatuses.data();
  ZelStatus const result = RunChunk(temperatures, done);
  isOutside = isOutside || result != kStatusOk;
  if (isOutside && done.statuses == nullptr) {
    done.statuses = spareStatuses.data();
    RunChunk(temperatures, done);
  }
  std::uint64_t odd = LargeIn(done.values, chunk.count);
  if (mayBeBelowZero) odd |= BelowIn(temperatures, chunk.count, zero);
  if (done.derivatives != nullptr) odd |= LargeIn(done.derivatives, chunk.count);
  if (result != kStatusOk || (odd & kSign) != 0) CleanChunk(temperatures, done);
  if (chunk.values != nullptr) values.Convert(chunk.values, chunk.count);
  if (chunk.derivatives == nullptr || slopeFactor == 1.0) return;
  for (std::size_t i = 0; i < chunk.count; ++i) chunk.derivatives[i] *= slopeFactor;
}

Evaluator::Evaluator(Component const& component, zel::Correlation correlation,
                     EvaluationOptions const& options) {
  auto const index = static_cast<std::uint32_t>(correlation);
  zel::ZelCorrelationInfo const& info = InfoOf(index);
  Curve curve;
  ZelCorrelation taken;
  bool isDetached = false;
  {
    std::lock_guard const alone(component.data_->lock);
    PureComponent const& merged = component.data_->component;
    curve = merged.ReadCurve(index);
    isDetached = zel::TakeCorrelation(merged.operator->(), index, taken) == zel::kStatusOk;
  }
  auto const data = Prepared(index, curve.tempUnit, options);
  if (!curve.present) {
    throw MissingDatum(
        "", "component " + component.data_->word + " has no correlation of " + info.label);
  }
  data->isDetached = isDetached;
  data->correlation = taken;
  if (!isDetached) data->component = component.data_;
  FindEnds(*data, curve.tMin, curve.tMax);
  data_ = data;
}

Evaluator::Evaluator(ZelCorrelation const& correlation, EvaluationOptions const& options) {
  auto const data = Prepared(correlation.index, correlation.tempUnit, options);
  data->isDetached = true;
  data->correlation = correlation;
  FindEnds(*data, correlation.tMin, correlation.tMax);
  data_ = data;
}

double Evaluator::Value(double temperature) const {
  double value = kNan;
  std::int32_t status = 0;
  if (data_->isDetached && data_->values.IsInternal() &&
      data_->temperatureUnit == TemperatureUnit(data_->recordUnit)) {
    zel::EvaluateOne(data_->correlation, temperature, 1, &value, nullptr, nullptr, &status);
    bool const isPlain = status == 0 && temperature >= data_->zero && std::fabs(value) < 1e34;
    if (isPlain) return value;
    value = kNan;
  }
  EvaluatorArrays one;
  one.count = 1;
  one.temperatures = &temperature;
  one.values = &value;
  Evaluate(one);
  return value;
}

void Evaluator::Evaluate(EvaluatorArrays const& arrays) const {
  bool isOutside = false;
  for (std::size_t first = 0; first < arrays.count; first += kChunk) {
    auto const from = [first](auto* results) {
      return results == nullptr ? nullptr : results + first;
    };
    EvaluatorArrays chunk = arrays;
    chunk.count = std::min(kChunk, arrays.count - first);
    chunk.temperatures = from(arrays.temperatures);
    chunk.values = from(arrays.values);
    chunk.derivatives = from(arrays.derivatives);
    chunk.statuses = from(arrays.statuses);
    data_->EvaluateChunk(chunk, isOutside);
  }
}

std::string const& Evaluator::Unit() const { return data_->values.Text(); }

ZelCorrelation const* Evaluator::Detached() const {
  return data_->isDetached ? &data_->correlation : nullptr;
}

}  // namespace zel::desk

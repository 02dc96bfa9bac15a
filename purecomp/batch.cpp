// Correlations by themselves, and batches: the public functions.
#include "zelaccess/Batch.h"

#include <algorithm>
#include <typeinfo>

#include "purecomp/batch_run.h"
#include "purecomp/evaluate.h"
#include "purecomp/pure_comp.h"

namespace zel {
namespace {

// Null for a component that is null or not of this library.
Component const* DataOf(IZelPureComp* component) noexcept {
  if (component == nullptr || typeid(*component) != typeid(PureComp_i)) return nullptr;
  return &static_cast<PureComp_i*>(component)->Data();
}

// Refers to the correlation. False for one that cannot be evaluated by itself.
bool MakeCurve(ZelCorrelation const& correlation, Curve& curve) noexcept {
  if (correlation.index >= kNamedCorrelations || EvaluatesOthers(correlation.equation)) {
    return false;
  }
  EquationCall& call = curve.call;
  call.equation = correlation.equation;
  call.coefficientCount = correlation.coefficientCount;
  call.coefficients = correlation.coefficients;
  call.tMax = correlation.tMax;
  call.tMin = correlation.tMin;
  call.factor = correlation.factor;
  call.Tc = correlation.criticalTemperature;
  call.Pc = correlation.criticalPressure;
  call.Tb = correlation.boilingPoint;
  call.logBasis = correlation.logBasis;
  curve.end = {&kCurveRules[correlation.index], correlation.moleWtBasis == kWeightBasis,
               &correlation.molecularWeight};
  return true;
}

ZelStatus RunBatch(Curve& curve, ZelBatch const& batch) noexcept {
  BatchRun run(curve, batch);
  if (batch.mode != batchVector || !RunVector(run, batch)) RunExact(run, batch);
  return run.Total();
}

// Reports a failure for each element.
ZelStatus FailAll(ZelBatch const& batch) noexcept {
  for (std::int64_t i = 0; batch.results != nullptr && i < batch.count; ++i) {
    batch.results[i * batch.resultStride] = kStatusFailed;
  }
  return batch.count == 0 ? kStatusOk : kStatusFailed;
}

// Calls `evaluate` for each element as for a single evaluation.
template <typename Evaluate>
ZelStatus RunEach(ZelBatch const& batch, Evaluate const& evaluate) noexcept {
  auto const at = [](auto* first, std::int64_t i, std::int64_t stride) {
    return first != nullptr ? first + i * stride : nullptr;
  };
  BatchResult total;
  std::int32_t unwanted = 0;  // so that something is wanted of each element
  for (std::int64_t i = 0; i < batch.count; ++i) {
    std::int32_t* const status = at(batch.statuses, i, batch.statusStride);
    ZelStatus const result = evaluate(
        i, batch.temperatures[i * batch.temperatureStride], at(batch.values, i, batch.valueStride),
        at(batch.derivatives, i, batch.derivativeStride), at(batch.weights, i, batch.weightStride),
        status != nullptr ? status : &unwanted);
    if (batch.results != nullptr) batch.results[i * batch.resultStride] = result;
    total.Add(result);
  }
  return total.Total();
}

}  // namespace

ZelStatus TakeCorrelation(IZelPureComp* component, std::uint32_t index,
                          ZelCorrelation& correlation) {
  Component const* const data = DataOf(component);
  if (data == nullptr || index >= kNamedCorrelations) return kStatusFailed;
  CorrelationRecord const& record = data->correlations[index];
  if (!record.present || EvaluatesOthers(record.equation)) return kStatusFailed;
  correlation.index = index;
  correlation.equation = record.equation;
  correlation.coefficientCount = record.coefficientCount;
  correlation.tempUnit = record.tempUnit;
  correlation.propUnit = record.propUnit;
  correlation.logBasis = record.logBasis;
  correlation.moleWtBasis = record.moleWtBasis;
  correlation.reserved = 0;
  correlation.factor = record.factor;
  correlation.tMin = record.tMin;
  correlation.tMax = record.tMax;
  std::copy(record.coefficients.begin(), record.coefficients.end(), correlation.coefficients);
  correlation.molecularWeight = data->fixed[propertyMW];
  correlation.criticalTemperature = data->fixed[propertyTC];
  correlation.criticalPressure = data->fixed[propertyPC];
  correlation.boilingPoint = data->fixed[propertyNBP];
  return kStatusOk;
}

ZelStatus EvaluateOne(ZelCorrelation const& correlation, double temperature, std::int32_t order,
                      double* value, double* derivative, double* weights, std::int32_t* status) {
  Curve curve;
  if (NothingWanted(value, derivative, weights, status) || !MakeCurve(correlation, curve)) {
    return kStatusFailed;
  }
  double unwantedValue = 0.0;
  double unwantedDerivative = 0.0;
  std::int32_t unwantedStatus = 0;
  return EvaluateCurve(curve, temperature, order, value ? *value : unwantedValue,
                       derivative ? *derivative : unwantedDerivative, weights,
                       status ? *status : unwantedStatus);
}

ZelStatus EvaluateBatch(ZelCorrelation const& correlation, ZelBatch const& batch) {
  if (!IsSound(batch)) return kStatusFailed;
  Curve curve;
  return MakeCurve(correlation, curve) ? RunBatch(curve, batch) : FailAll(batch);
}

ZelStatus EvaluateComponentBatch(IZelPureComp* component, std::uint32_t index,
                                 ZelBatch const& batch) {
  Component const* const data = DataOf(component);
  if (data == nullptr || !IsSound(batch)) return kStatusFailed;
  Evaluator evaluator(*data);
  if (!evaluator.CanEvaluate(index)) return FailAll(batch);
  Evaluator::Running const running(evaluator, index);
  Curve curve = evaluator.CurveOf(index);
  return RunBatch(curve, batch);
}

ZelStatus EvaluateEachCorrelation(ZelCorrelation const* correlations, ZelBatch const& batch) {
  if (!IsSound(batch) || (correlations == nullptr && batch.count > 0)) return kStatusFailed;
  return RunEach(batch, [&](std::int64_t i, double temperature, auto... outputs) {
    return EvaluateOne(correlations[i], temperature, batch.order, outputs...);
  });
}

ZelStatus EvaluateAllCorrelations(IZelPureComp* component, ZelBatch const& batch) {
  Component const* const data = DataOf(component);
  if (data == nullptr || !IsSound(batch) || batch.count > kNamedCorrelations) return kStatusFailed;
  return RunEach(batch, [&](std::int64_t i, double temperature, auto... outputs) {
    return EvaluateRecord(*data, static_cast<std::uint32_t>(i), temperature, batch.order,
                          outputs...);
  });
}

ZelStatus EvaluateEachComponent(IZelPureComp* const* components, std::uint32_t index,
                                ZelBatch const& batch) {
  if (!IsSound(batch) || (components == nullptr && batch.count > 0)) return kStatusFailed;
  return RunEach(batch, [&](std::int64_t i, double temperature, auto... outputs) {
    Component const* const data = DataOf(components[i]);
    if (data == nullptr) return kStatusFailed;
    return EvaluateRecord(*data, index, temperature, batch.order, outputs...);
  });
}

}  // namespace zel

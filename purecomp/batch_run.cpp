#include "purecomp/batch_run.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "purecomp/equation_kernel.h"

namespace zel {
namespace {

template <typename T>
Strided<T> ArrayOr(T* wanted, std::int64_t stride, T& unwanted) noexcept {
  return wanted != nullptr ? Strided<T>{wanted, stride} : Strided<T>{&unwanted, 0};
}

}  // namespace

BatchRun::BatchRun(Curve& curve, ZelBatch const& batch) noexcept
    : temperatures{batch.temperatures, batch.temperatureStride},
      values(ArrayOr(batch.values, batch.valueStride, unwanted_.value)),
      derivatives(ArrayOr(batch.derivatives, batch.derivativeStride, unwanted_.derivative)),
      statuses(ArrayOr(batch.statuses, batch.statusStride, unwanted_.status)),
      results(ArrayOr(batch.results, batch.resultStride, unwanted_.result)),
      curve_(curve),
      batch_(batch) {}

// All temperatures on one side of the range are extrapolated from the same point.
BatchRun::Bound const& BatchRun::BoundAt(std::int32_t status) noexcept {
  Bound& bound = status == kAboveRange ? above_ : below_;
  if (bound.isKnown) return bound;
  bound.isKnown = true;
  EquationCall call = curve_.call;
  call.temperature = status == kAboveRange ? call.tMax : call.tMin;
  call.order = std::max(batch_.order, 1);
  bound.value = bound.derivative = std::numeric_limits<double>::quiet_NaN();
  RangeStatus const there = EvaluateEquation(call, bound.value, bound.derivative, nullptr);
  // A form without a value leaves the NaN that it was passed.
  bound.isUsable = there == kInRange && !std::isnan(bound.value);
  return bound;
}

ZelStatus BatchRun::Evaluate(double temperature, double& value, double& derivative, double* weights,
                             std::int32_t& status) noexcept {
  EquationCall const& call = curve_.call;
  Extrapolation const mode = curve_.end.rules->extrapolation;
  status = RangeOf(temperature, call.tMin, call.tMax);
  bool const sharesBound =
      status != kInRange && mode != Extrapolation::kFails && batch_.order <= kThirdDerivative;
  if (sharesBound && BoundAt(status).isUsable) {
    Bound const& from = BoundAt(status);
    value = from.value;
    derivative = from.derivative;
    double const at = status == kAboveRange ? call.tMax : call.tMin;
    ExtrapolateFrom(mode, std::max(batch_.order, 1), temperature, at, value, derivative);
    curve_.end.Finish(value, derivative);
    return kStatusNothingNew;
  }
  return EvaluateCurve(curve_, temperature, batch_.order, value, derivative, weights, status);
}

void BatchRun::One(std::int64_t i) noexcept {
  double* const weights =
      batch_.weights != nullptr ? batch_.weights + i * batch_.weightStride : nullptr;
  double value = batch_.values != nullptr ? values[i] : 0.0;
  double derivative = batch_.derivatives != nullptr ? derivatives[i] : 0.0;
  std::int32_t status = statuses[i];
  ZelStatus const result = Evaluate(temperatures[i], value, derivative, weights, status);
  values[i] = value;
  derivatives[i] = derivative;
  statuses[i] = status;
  results[i] = result;
  result_.Add(result);
}

}  // namespace zel

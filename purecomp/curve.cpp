#include "purecomp/curve.h"

#include <algorithm>
#include <cmath>

#include "frame/limits.h"

namespace zel {
namespace {

// An infinite or missing slope at a bound counts as 0.
double FiniteSlope(double slope) noexcept { return std::isfinite(slope) ? slope : 0.0; }

// ln V linear in 1/T. For orders 2 and 3 the slope used is the derivative of that order, and the
// formulas are exact only for a first derivative: programs that use stored data depend on both. At
// temperature 0 the exponent is at its limit, and the slope is 0.
void ExtrapolateLogarithmic(double T, double Tx, double V, double dV, int order, double& value,
                            double& derivative) {
  if (!(V > 0.0)) {
    value = 0.0;
    return;
  }
  dV = FiniteSlope(dV);
  double const change = dV == 0.0 ? 0.0 : (Tx / T - 1.0) * (Tx / V) * dV;
  double const E = Exp(Clamp(Ln(V) - change));
  double const w = dV * Tx * Tx / (T * T * V);
  value = E;
  switch (order) {
    case kSecondDerivative: derivative = w * (E * w - 2.0 * E / T); break;
    case kThirdDerivative:
      derivative = w * ((E * w - 2.0 * E / T) * w - 2.0 * (2.0 * E * w - 3.0 * E / T) / T);
      break;
    default: derivative = E * w;
  }
  derivative = FiniteSlope(derivative);
}

void ExtrapolateLinear(double T, double Tx, double V, double dV, int order, double& value,
                       double& derivative) {
  double const slope = dV > kUndefinedLimit ? FiniteSlope(dV) : 0.0;
  value = V + (T - Tx) * slope;
  derivative = order >= kSecondDerivative ? 0.0 : slope;
}

double BoundOf(EquationCall const& call, std::int32_t status) noexcept {
  return status == kAboveRange ? call.tMax : call.tMin;
}

}  // namespace

void ExtrapolateFrom(Extrapolation mode, std::int32_t order, double temperature, double bound,
                     double& value, double& derivative) {
  double const V = value;
  double const dV = derivative;
  if (order > kThirdDerivative) {
    // Order 11, the sensitivities, has no slope: the value is that at the bound.
    if (mode == Extrapolation::kLogarithmic && !(V > 0.0)) value = 0.0;
    derivative = 0.0;
  } else if (mode == Extrapolation::kLogarithmic) {
    ExtrapolateLogarithmic(temperature, bound, V, dV, order, value, derivative);
  } else {
    ExtrapolateLinear(temperature, bound, V, dV, order, value, derivative);
  }
}

ZelStatus EvaluateCurve(Curve& curve, double temperature, std::int32_t order, double& value,
                        double& derivative, double* weights, std::int32_t& status) {
  EquationCall& call = curve.call;
  Extrapolation const mode = curve.end.rules->extrapolation;
  call.temperature = temperature;
  call.order = std::max(order, 1);
  status = EvaluateEquation(call, value, derivative, weights);
  // A correlation that must not be extrapolated always fails, after the value was written.
  if (mode == Extrapolation::kFails) return kStatusFailed;
  if (status != kInRange) {
    double const bound = BoundOf(call, status);
    call.temperature = bound;
    if (EvaluateEquation(call, value, derivative, weights) != kInRange) return kStatusFailed;
    ExtrapolateFrom(mode, call.order, temperature, bound, value, derivative);
  }
  curve.end.Finish(value, derivative);
  return status == kInRange ? kStatusOk : kStatusNothingNew;
}

CalledCorrelation EvaluateCalled(Curve& curve, double temperature, int highest) {
  EquationCall& call = curve.call;
  Extrapolation const mode = curve.end.rules->extrapolation;
  if (mode == Extrapolation::kFails) return {};
  highest = std::max(highest, 1);
  CalledCorrelation at;
  call.temperature = temperature;
  std::int32_t const status = EvaluateDerivatives(call, highest, at.d);
  double const bound = BoundOf(call, status);
  if (status != kInRange) {
    call.temperature = bound;
    if (EvaluateDerivatives(call, highest, at.d) != kInRange) return {};
  }
  CalledCorrelation called;
  for (int order = 1; order <= highest; ++order) {
    double value = at.d[0];
    double derivative = at.d[order];
    if (status != kInRange) ExtrapolateFrom(mode, order, temperature, bound, value, derivative);
    curve.end.Finish(value, derivative);
    if (order == 1) called.d[0] = value;
    called.d[order] = derivative;
  }
  return called;
}

}  // namespace zel

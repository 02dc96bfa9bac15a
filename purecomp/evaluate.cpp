#include "purecomp/evaluate.h"

#include <algorithm>
#include <cmath>

#include "frame/limits.h"
#include "frame/units/unit_factors.h"

namespace zel {
namespace {

constexpr std::int32_t kWeightBasis = 2;

// Limit codes of the correlation table.
constexpr std::int32_t kNotNegative = 9;
constexpr std::int32_t kPressure = 10;
constexpr double kSmallestValue = 1e-10;
constexpr double kLargestPressure = 1e8;

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

void ApplyLimit(std::int32_t code, double& value, double& derivative) {
  if (code == kNoLimit) return;
  double const lowest = code == kNotNegative ? 0.0 : kSmallestValue;
  if (lowest > value) {
    value = lowest;
    derivative = 0.0;
  }
  if (code == kPressure && value > kLargestPressure) {
    value = kLargestPressure;
    derivative = 0.0;
  }
}

// Values on a weight basis become molar: densities are divided by the molecular weight, all others
// multiplied.
void ToMolar(std::uint32_t index, double molecularWeight, double& value, double& derivative) {
  bool const isDensity = index == correlationLiquidDensity || index == correlationSolidDensity;
  auto const convert = [&](double x) {
    return isDensity ? x / molecularWeight : x * molecularWeight;
  };
  value = convert(value);
  if (derivative != 0.0) derivative = convert(derivative);
}

}  // namespace

ZelStatus Evaluator::Extrapolate(EquationCall call, Extrapolation mode, double temperature,
                                 double bound, double& value, double& derivative, double* weights) {
  if (mode == Extrapolation::kFails) return kStatusFailed;
  call.temperature = bound;
  if (EvaluateEquation(call, value, derivative, weights) != kInRange) return kStatusFailed;
  double const V = value;
  double const dV = derivative;
  if (call.order > kThirdDerivative) {
    // With sensitivities there is no slope: the value is that at the bound.
    if (mode == Extrapolation::kLogarithmic && !(V > 0.0)) value = 0.0;
    derivative = 0.0;
  } else if (mode == Extrapolation::kLogarithmic) {
    ExtrapolateLogarithmic(temperature, bound, V, dV, call.order, value, derivative);
  } else {
    ExtrapolateLinear(temperature, bound, V, dV, call.order, value, derivative);
  }
  return kStatusOk;
}

ZelStatus Evaluator::Evaluate(std::uint32_t index, double temperature, std::int32_t order,
                              double& value, double& derivative, double* weights,
                              std::int32_t& status) {
  if (index >= kNamedCorrelations) return kStatusFailed;
  Correlation const& record = component_.correlations[index];
  std::uint32_t const mark = 1U << index;
  if (!record.present || (running_ & mark) != 0) return kStatusFailed;
  CorrelationRow const& row = kCorrelationRows[index];
  EquationCall call;
  call.caller = this;
  call.equation = record.equation;
  call.coefficientCount = record.coefficientCount;
  call.coefficients = record.coefficients.data();
  call.temperature = temperature;
  call.tMax = record.tMax;
  call.tMin = record.tMin;
  call.order = std::max(order, 1);
  call.factor = record.propUnit == 0 ? 1.0 : GetUnitFactor(record.propUnit);
  call.Tc = component_.fixed[propertyTC];
  call.Pc = component_.fixed[propertyPC];
  call.Tb = component_.fixed[propertyNBP];
  call.logBasis = record.logBasis;

  running_ |= mark;
  ZelStatus result = kStatusOk;
  status = EvaluateEquation(call, value, derivative, weights);
  if (status != kInRange) {
    double const bound = status == kAboveRange ? record.tMax : record.tMin;
    result = Extrapolate(call, row.extrapolation, temperature, bound, value, derivative, weights);
  }
  running_ &= ~mark;
  // Index 10 always fails, after the value was written.
  if (result != kStatusOk || row.extrapolation == Extrapolation::kFails) return kStatusFailed;
  ApplyLimit(row.limit, value, derivative);
  if (record.moleWtBasis == kWeightBasis) {
    ToMolar(index, component_.fixed[propertyMW], value, derivative);
  }
  return status == kInRange ? kStatusOk : kStatusNothingNew;
}

// A call that fails yields 0 for the value and each derivative.
CalledCorrelation Evaluator::Call(std::uint32_t index, double temperature, int highest) {
  CalledCorrelation called;
  std::int32_t status = 0;
  for (int order = 1; order <= std::max(highest, 1); ++order) {
    double value = 0.0;
    double derivative = 0.0;
    ZelStatus const result =
        Evaluate(index, temperature, order, value, derivative, nullptr, status);
    if (result == kStatusFailed) return {};
    if (order == 1) called.d[0] = value;
    called.d[order] = derivative;
  }
  return called;
}

}  // namespace zel

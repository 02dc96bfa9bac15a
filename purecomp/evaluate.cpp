#include "purecomp/evaluate.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "purecomp/curve.h"
#include "purecomp/equation_kernel.h"

namespace zel {
namespace {

// The inputs of a form in their places in the component.
struct RecordConstants {
  Component const& component;
  CorrelationRecord const& record;

  double Tc() const { return component.fixed[propertyTC]; }
  double Pc() const { return component.fixed[propertyPC]; }
  double Tb() const { return component.fixed[propertyNBP]; }
  double tMin() const { return record.tMin; }
  double tMax() const { return record.tMax; }
  double factor() const { return record.factor; }
  double offset() const { return 0.0; }
};

struct Point {
  double value;
  double slope;
};

// The value and the first derivative of a form inside its range, before the final step: the most
// frequent evaluation, without the arguments of a call. The slope is NaN where this is not enough:
// for numbers without a form, forms that evaluate other correlations, and where the slope is a
// limit.
inline Point FormOfRecord(RecordConstants const& at, double temperature, double value) {
  using Inputs = Symbols<Jet<1>, double, RecordConstants>;
  CorrelationRecord const& record = at.record;
  Point point{value, std::numeric_limits<double>::quiet_NaN()};
  WithForm(record.equation, [&](auto number, auto const& form) {
    constexpr int kEquation = decltype(number)::value;
    if constexpr (!EvaluatesOthers(kEquation)) {
      int const N = std::clamp(record.coefficientCount, 0, kMaxCoefficients);
      Inputs const s{Jet<1>::Variable(temperature), N, record.coefficients.data(),
                     LogFactor(record.logBasis), at};
      ValueAndDerivative<kEquation, 1>(form, s, point.value, point.slope);
    }
    return true;
  });
  return point;
}

CurveEnd EndOf(Component const& component, std::uint32_t index) noexcept {
  return {&kCurveRules[index], component.correlations[index].moleWtBasis == kWeightBasis,
          &component.fixed[propertyMW]};
}

// All other evaluations.
[[gnu::noinline]] ZelStatus EvaluateAnyRecord(Component const& component, std::uint32_t index,
                                              double temperature, std::int32_t order, double* value,
                                              double* derivative, double* weights,
                                              std::int32_t* status) {
  double unwantedValue = 0.0;
  double unwantedDerivative = 0.0;
  std::int32_t unwantedStatus = 0;
  return Evaluator(component).Evaluate(index, temperature, order, value ? *value : unwantedValue,
                                       derivative ? *derivative : unwantedDerivative, weights,
                                       status ? *status : unwantedStatus);
}

}  // namespace

bool Evaluator::CanEvaluate(std::uint32_t index) const noexcept {
  return index < kNamedCorrelations && component_.correlations[index].present &&
         (running_ & (1U << index)) == 0;
}

Curve Evaluator::CurveOf(std::uint32_t index) noexcept {
  CorrelationRecord const& record = component_.correlations[index];
  Curve curve;
  EquationCall& call = curve.call;
  call.caller = this;
  call.equation = record.equation;
  call.coefficientCount = record.coefficientCount;
  call.coefficients = record.coefficients.data();
  call.tMax = record.tMax;
  call.tMin = record.tMin;
  call.factor = record.factor;
  call.Tc = component_.fixed[propertyTC];
  call.Pc = component_.fixed[propertyPC];
  call.Tb = component_.fixed[propertyNBP];
  call.logBasis = record.logBasis;
  curve.end = EndOf(component_, index);
  return curve;
}

ZelStatus Evaluator::Evaluate(std::uint32_t index, double temperature, std::int32_t order,
                              double& value, double& derivative, double* weights,
                              std::int32_t& status) {
  if (!CanEvaluate(index)) return kStatusFailed;
  Running const running(*this, index);
  Curve curve = CurveOf(index);
  return EvaluateCurve(curve, temperature, order, value, derivative, weights, status);
}

// A call that fails yields 0 for the value and each derivative.
CalledCorrelation Evaluator::Call(std::uint32_t index, double temperature, int highest) {
  if (!CanEvaluate(index)) return {};
  Running const running(*this, index);
  Curve curve = CurveOf(index);
  return EvaluateCalled(curve, temperature, highest);
}

// Flattened: with all forms in one body the symbols stay in registers, which halves the cost of a
// call apart from its arithmetic.
[[ZEL_FLATTEN]] ZelStatus EvaluateRecord(Component const& component, std::uint32_t index,
                                         double temperature, std::int32_t order, double* value,
                                         double* derivative, double* weights,
                                         std::int32_t* status) {
  if (order <= kFirstDerivative && index < kNamedCorrelations && index != correlationExpansion) {
    CorrelationRecord const& record = component.correlations[index];
    if (record.present && RangeOf(temperature, record.tMin, record.tMax) == kInRange) {
      Point point = FormOfRecord({component, record}, temperature, value != nullptr ? *value : 0.0);
      if (!std::isnan(point.slope)) [[likely]] {
        point.value = point.value * record.factor + 0.0;
        point.slope *= record.factor;
        EndOf(component, index).Finish(point.value, point.slope);
        if (value != nullptr) *value = point.value;
        if (derivative != nullptr) *derivative = point.slope;
        if (status != nullptr) *status = kInRange;
        return kStatusOk;
      }
    }
  }
  return EvaluateAnyRecord(component, index, temperature, order, value, derivative, weights,
                           status);
}

}  // namespace zel

// Evaluation of a component's correlations: units, extrapolation, limits, basis.
#pragma once

#include <cstdint>

#include "purecomp/component.h"
#include "purecomp/curve.h"
#include "purecomp/equations.h"
#include "zelaccess/Types.h"

namespace zel {

// Evaluates correlations of one component. Its only state is the marks that stop a correlation from
// calling itself through forms that evaluate another correlation.
class Evaluator final : public CorrelationCaller {
 public:
  explicit Evaluator(Component const& component) noexcept : component_(component) {}

  // kStatusOk inside the range, kStatusNothingNew (1) when the value was extrapolated,
  // kStatusFailed for an index above 17, an absent correlation, or an extrapolation that is not
  // allowed. An order below 1 counts as 1. `value` and `derivative` are in and out: see
  // EvaluateEquation. `status` is 0 inside the range, 1 above, -1 below. A failure after the record
  // was found may have changed the numbers. For a sound record, no result other than a failure is
  // NaN. The value is finite, and so is an extrapolated derivative, since an infinite slope at the
  // bound counts as 0. Inside the range a derivative is infinite only where that of the form is
  // unbounded as the temperature is approached from below: where a power begins, as in orders 1 and
  // above of 16 at C3 for C4 below 1, and in orders 2 and 3 of 47 at Tc. The same holds for a
  // sensitivity, such as that of 13 to C3 at C3.
  ZelStatus Evaluate(std::uint32_t index, double temperature, std::int32_t order, double& value,
                     double& derivative, double* weights, std::int32_t& status);

  CalledCorrelation Call(std::uint32_t index, double temperature, int highest) override;

  // True for a correlation that is set, and that is not being evaluated.
  bool CanEvaluate(std::uint32_t index) const noexcept;
  // The same correlation, for evaluations at many temperatures. It refers to the component and to
  // this evaluator.
  Curve CurveOf(std::uint32_t index) noexcept;

  // Marks a correlation as being evaluated.
  class Running {
   public:
    Running(Evaluator& evaluator, std::uint32_t index) noexcept
        : evaluator_(evaluator), mark_(1U << index) {
      evaluator_.running_ |= mark_;
    }
    Running(Running const&) = delete;
    Running& operator=(Running const&) = delete;
    ~Running() { evaluator_.running_ &= ~mark_; }

   private:
    Evaluator& evaluator_;
    std::uint32_t mark_;
  };

 private:
  Component const& component_;
  std::uint32_t running_ = 0;  // a bit per correlation under evaluation
};

// The same for one evaluation; null outputs are skipped.
ZelStatus EvaluateRecord(Component const& component, std::uint32_t index, double temperature,
                         std::int32_t order, double* value, double* derivative, double* weights,
                         std::int32_t* status);

}  // namespace zel

// What the loops of batches have in common.
#pragma once

#include <algorithm>
#include <array>
#include <limits>

#include "purecomp/batch_run.h"
#include "purecomp/equation_kernel.h"

namespace zel {

// A copy of what a loop reads, which the compiler can keep in registers.
struct LoopInputs {
  explicit LoopInputs(Curve const& curve) noexcept
      : call(curve.call),
        count(std::clamp(call.coefficientCount, 0, kMaxCoefficients)),
        b(LogFactor(call.logBasis)),
        rules(*curve.end.rules),
        isWeight(curve.end.isWeight),
        molecularWeight(isWeight ? *curve.end.molecularWeight : 0.0) {
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    lowest = call.tMin > kUndefinedLimit ? call.tMin : -kInfinity;
    highest = call.tMax > kUndefinedLimit ? call.tMax : kInfinity;
    std::copy_n(call.coefficients, count, coefficients.begin());
  }
  template <typename X>
  Symbols<X, double> At(X const& temperature) const noexcept {
    return {temperature, count, coefficients.data(), b, CallConstants{&call}};
  }
  void Finish(double& value, double& derivative) const noexcept {
    CurveEnd{&rules, isWeight, &molecularWeight}.Finish(value, derivative);
  }

  EquationCall call;
  int count;
  double b;
  std::array<double, kMaxCoefficients> coefficients;
  CurveRules rules;
  bool isWeight;
  double molecularWeight;
  double lowest;
  double highest;
};

}  // namespace zel

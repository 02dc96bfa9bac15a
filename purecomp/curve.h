// One correlation with all that its evaluation needs, and the steps around its form: limits,
// extrapolation, basis.
#pragma once

#include <array>
#include <cstdint>
#include <limits>

#include "purecomp/component.h"
#include "purecomp/equations.h"
#include "zelaccess/Types.h"

namespace zel {

// What the evaluation does with the values of a correlation, by index.
struct CurveRules {
  Extrapolation extrapolation = Extrapolation::kLinear;
  bool isDensity = false;
  double lowest = -std::numeric_limits<double>::infinity();
  double highest = std::numeric_limits<double>::infinity();
};

namespace curve_rules {

constexpr CurveRules Of(std::size_t index) {
  constexpr std::int32_t kNotNegative = 9;
  constexpr std::int32_t kPressure = 10;
  CorrelationRow const& row = kCorrelationRows[index];
  CurveRules rules;
  rules.extrapolation = row.extrapolation;
  rules.isDensity = index == correlationLiquidDensity || index == correlationSolidDensity;
  if (row.limit != kNoLimit) rules.lowest = row.limit == kNotNegative ? 0.0 : 1e-10;
  if (row.limit == kPressure) rules.highest = 1e8;
  return rules;
}

constexpr std::array<CurveRules, kNamedCorrelations> All() {
  std::array<CurveRules, kNamedCorrelations> all;
  for (std::size_t index = 0; index < all.size(); ++index) all[index] = Of(index);
  return all;
}

}  // namespace curve_rules

inline constexpr std::array<CurveRules, kNamedCorrelations> kCurveRules = curve_rules::All();

inline constexpr std::int32_t kWeightBasis = 2;

// What turns a value of the form into that of the correlation.
struct CurveEnd {
  CurveRules const* rules = nullptr;
  bool isWeight = false;
  double const* molecularWeight = nullptr;  // read for values on a weight basis only

  // Applies the limits of the value; values on a weight basis become molar: densities are divided
  // by the molecular weight, all others multiplied.
  void Finish(double& value, double& derivative) const noexcept {
    if (rules->lowest > value) {
      value = rules->lowest;
      derivative = 0.0;
    }
    if (value > rules->highest) {
      value = rules->highest;
      derivative = 0.0;
    }
    if (!isWeight) return;
    value = ToMolar(value);
    if (derivative != 0.0) derivative = ToMolar(derivative);
  }
  double ToMolar(double x) const noexcept {
    return rules->isDensity ? x / *molecularWeight : x * *molecularWeight;
  }
};

struct Curve {
  EquationCall call;  // evaluations set the temperature and the order
  CurveEnd end;
};

// Evaluates a curve as Evaluator::Evaluate does.
ZelStatus EvaluateCurve(Curve& curve, double temperature, std::int32_t order, double& value,
                        double& derivative, double* weights, std::int32_t& status);

// The value and the derivatives up to `highest`, from one evaluation of the form; each as an
// evaluation of that order yields it. All are 0 when it fails.
CalledCorrelation EvaluateCalled(Curve& curve, double temperature, int highest);

// The value and the derivative of an order outside the range, from those at the bound.
void ExtrapolateFrom(Extrapolation mode, std::int32_t order, double temperature, double bound,
                     double& value, double& derivative);

}  // namespace zel

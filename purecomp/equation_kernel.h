// What evaluations have in common: the range, the value and the derivatives of a form.
#pragma once

#include <cmath>
#include <utility>

#include "frame/limits.h"
#include "purecomp/compare_temperature.h"
#include "purecomp/equations.h"
#include "purecomp/form_list.h"

namespace zel {

// The comparisons within rounding matter only on the far side of a limit.
inline RangeStatus RangeOf(double T, double tMin, double tMax) noexcept {
  if (tMax > kUndefinedLimit && T >= tMax && CompareTemperature(T, tMax) > 0) return kAboveRange;
  if (tMin > kUndefinedLimit && !(T >= tMin) && CompareTemperature(T, tMin) < 0) return kBelowRange;
  return kInRange;
}

// Orders whose derivative is defined other than by differentiation. Stored data and the programs
// that use it depend on each.
enum class DerivativeRule { kExact, kFirstInstead, kZero };

constexpr DerivativeRule RuleOf(int equation, int order) noexcept {
  if (equation == 126 || equation == 134) return DerivativeRule::kZero;
  if (order >= 2 && equation == 52) return DerivativeRule::kZero;
  if (order >= 2 && equation == 2) return DerivativeRule::kFirstInstead;
  return DerivativeRule::kExact;
}

// A derivative of a Jet. Where a lower one is infinite, all above it are too, with the same sign,
// seen from below; the Jet then has the difference of two infinite terms.
template <int Order>
double DerivativeOf(Jet<Order> const& jet, int order) {
  double const derivative = jet.d[static_cast<std::size_t>(order)];
  if constexpr (Order >= 2) {
    if (std::isnan(derivative) && order >= 2) [[unlikely]] {
      if (std::isinf(jet.d[1])) return jet.d[1];
      if (std::isinf(jet.d[2])) return jet.d[2];
    }
  }
  return derivative;
}

// The result of a form, none where it has no value.
template <typename Form, typename S>
typename S::Result ResultOf(Form const& form, S const& s) {
  return form(s);
}

// Evaluates a form and one derivative of it. `value` stays as it is where the form has none.
template <int Equation, int Order, typename Form, typename S>
void ValueAndDerivative(Form const& form, S const& s, double& value, double& derivative) {
  constexpr DerivativeRule kRule = RuleOf(Equation, Order);
  auto const result = ResultOf(form, s);
  derivative = 0.0;
  if (!result) return;
  value = result->d[0];
  if constexpr (kRule == DerivativeRule::kExact) derivative = DerivativeOf(*result, Order);
  if constexpr (kRule == DerivativeRule::kFirstInstead) derivative = result->d[1];
}

}  // namespace zel

#include "purecomp/equations.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>

#include "purecomp/equation_kernel.h"
#include "purecomp/form_limits.h"

namespace zel {
namespace {

constexpr bool FillsWeights(int equation) noexcept {
  return equation != 4 && equation != 39 && equation != 51 && equation != 52;
}

// False for a number without a form.
bool ValueOnly(EquationCall const& call, int N, double& value) {
  return WithForm(call.equation, [&](auto, auto const& form) {
    auto const s = MakeSymbols(call, call.temperature, N, call.coefficients);
    if (auto const result = ResultOf(form, s)) value = *result;
    return true;
  });
}

enum class Found { kNoForm, kNoValue, kValue };

// The value of a form and its derivatives by differentiation. Flattened: with all forms in one body
// the symbols stay in registers, which halves the cost of a call apart from its arithmetic.
template <int Order>
[[ZEL_FLATTEN]] Found Differentiate(EquationCall const& call, int N, Jet<Order>& jet) {
  auto const T = Jet<Order>::Variable(call.temperature);
  Found found = Found::kNoForm;
  WithForm(call.equation, [&](auto, auto const& form) {
    auto const result = ResultOf(form, MakeSymbols(call, T, N, call.coefficients));
    found = result ? Found::kValue : Found::kNoValue;
    if (result) jet = *result;
    return true;
  });
  return found;
}

// The derivative that the rule of an equation defines.
template <int Order>
double DerivativeByRule(int equation, Jet<Order> const& jet, int order) {
  switch (RuleOf(equation, order)) {
    case DerivativeRule::kZero: return 0.0;
    case DerivativeRule::kFirstInstead: return jet.d[1];
    default: return DerivativeOf(jet, order);
  }
}

template <int Order>
void WithDerivative(EquationCall const& call, int N, double& value, double& derivative) {
  Jet<Order> jet;
  Found const found = Differentiate(call, N, jet);
  if (found == Found::kNoForm) return;
  derivative = 0.0;
  if (found == Found::kNoValue) return;
  value = jet.d[0];
  derivative = DerivativeByRule(call.equation, jet, Order);
}

// The same for all orders up to a highest one.
template <int Highest>
void WithDerivatives(EquationCall const& call, int N, double* derivatives) {
  Jet<Highest> jet;
  Found const found = Differentiate(call, N, jet);
  if (found == Found::kNoForm) return;
  std::fill_n(derivatives + 1, Highest, 0.0);
  if (found == Found::kValue) {
    derivatives[0] = jet.d[0];
    for (int order = 1; order <= Highest; ++order) {
      derivatives[order] = DerivativeByRule(call.equation, jet, order);
    }
  }
  // The first derivative of this form is not that of a Jet of a higher order.
  constexpr int kOwnFirstDerivative = 39;
  if (Highest > 1 && call.equation == kOwnFirstDerivative) {
    WithDerivative<1>(call, N, derivatives[0], derivatives[1]);
  }
}

void Sensitivities(EquationCall const& call, int N, double* weights) {
  if (weights == nullptr || !FillsWeights(call.equation)) return;
  std::fill_n(weights, kMaxCoefficients, 0.0);
  std::array<Jet<1>, kMaxCoefficients> jets;
  double const* c = call.coefficients;
  std::copy_n(c, N, jets.begin());
  for (std::size_t k = 0; k < static_cast<std::size_t>(N); ++k) {
    jets[k] = Jet<1>::Variable(c[k]);
    WithForm(call.equation, [&](auto, auto const& form) {
      auto const s = MakeSymbols(call, call.temperature, N, jets.data());
      auto const result = ResultOf(form, s);
      weights[k] = result ? result->d[1] : 0.0;
      return true;
    });
    if (std::isnan(weights[k])) weights[k] = SensitivityLimit(call, N, k).value_or(weights[k]);
    jets[k] = c[k];
  }
}

}  // namespace

RangeStatus EvaluateEquation(EquationCall const& call, double& value, double& derivative,
                             double* weights) {
  RangeStatus const status = RangeOf(call.temperature, call.tMin, call.tMax);
  if (status != kInRange) return status;
  double number = value;  // in registers until the end
  double slope = derivative;
  int const N = std::clamp(call.coefficientCount, 0, kMaxCoefficients);
  switch (call.order) {
    case kFirstDerivative: WithDerivative<1>(call, N, number, slope); break;
    case kSecondDerivative: WithDerivative<2>(call, N, number, slope); break;
    case kThirdDerivative: WithDerivative<3>(call, N, number, slope); break;
    default:
      if (ValueOnly(call, N, number) && call.order == kSensitivities) {
        Sensitivities(call, N, weights);
      }
  }
  bool const hasSlope = call.order >= kFirstDerivative && call.order <= kThirdDerivative;
  if (std::isnan(slope) && hasSlope && std::isfinite(number)) [[unlikely]] {
    slope = DerivativeLimit(call, N, call.order).value_or(slope);
  }
  value = number * call.factor + call.offset;
  derivative = hasSlope ? slope * call.factor : slope;
  return kInRange;
}

RangeStatus EvaluateDerivatives(EquationCall const& call, int highest, double* derivatives) {
  RangeStatus const status = RangeOf(call.temperature, call.tMin, call.tMax);
  if (status != kInRange) return status;
  int const N = std::clamp(call.coefficientCount, 0, kMaxCoefficients);
  switch (highest) {
    case kFirstDerivative: WithDerivatives<1>(call, N, derivatives); break;
    case kSecondDerivative: WithDerivatives<2>(call, N, derivatives); break;
    default: WithDerivatives<3>(call, N, derivatives);
  }
  bool const isFinite = std::isfinite(derivatives[0]);
  for (int order = 1; order <= highest; ++order) {
    double& derivative = derivatives[order];
    if (std::isnan(derivative) && isFinite) {
      derivative = DerivativeLimit(call, N, order).value_or(derivative);
    }
    derivative *= call.factor;
  }
  derivatives[0] = derivatives[0] * call.factor + call.offset;
  return kInRange;
}

}  // namespace zel

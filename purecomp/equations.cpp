#include "purecomp/equations.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>

#include "frame/limits.h"
#include "purecomp/compare_temperature.h"
#include "purecomp/form_implicit.h"
#include "purecomp/form_limits.h"
#include "purecomp/forms_critical.h"
#include "purecomp/forms_enthalpy.h"
#include "purecomp/forms_exponential.h"
#include "purecomp/forms_polynomial.h"
#include "purecomp/forms_viscosity.h"

namespace zel {
namespace {

// The forms by number: one line each, as in docs/equations.md. Passes the result to `take` within
// each case, so that it stays in registers; false for a number without a form.
template <typename S, typename Take>
bool Form(int equation, S const& s, Take const& take) {
  using namespace forms;  // NOLINT(google-build-using-namespace): the list below
  using Result = typename S::Result;
  switch (equation) {
    case 1: return take(Result(Eq1(s)));
    case 2: return take(Result(Eq2(s)));
    case 3: return take(Result(Eq3(s)));
    case 4: return take(Result(Eq4(s)));
    case 5: return take(Result(Eq5(s)));
    case 6: return take(Result(Eq6(s)));
    case 12: return take(Result(Eq12(s)));
    case 13: return take(Result(Eq13(s)));
    case 14: return take(Result(Eq14(s)));
    case 15: return take(Result(Eq15(s)));
    case 16: return take(Result(Eq16(s)));
    case 17: return take(Result(Eq17(s)));
    case 18: return take(Result(Eq18(s)));
    case 19: return take(Result(Eq19(s)));
    case 20: return take(Result(Eq20(s)));
    case 21: return take(Result(Eq21(s)));
    case 22: return take(Result(Eq22(s)));
    case 23: return take(Result(Eq23(s)));
    case 24: return take(Result(Eq24(s)));
    case 25: return take(Result(Eq25(s)));
    case 26: return take(Result(Eq26(s)));
    case 27: return take(Result(Eq27(s)));
    case 28: return take(Result(Eq28(s)));
    case 29: return take(Result(Eq29(s)));
    case 30: return take(Result(Eq30(s)));
    case 31: return take(Result(Eq31(s)));
    case 32: return take(Result(Eq32(s)));
    case 33: return take(Result(Eq33(s)));
    case 34: return take(Result(Eq34(s)));
    case 35: return take(Result(Eq35(s)));
    case 36: return take(Result(Eq36(s)));
    case 37: return take(Result(Eq37(s)));
    case 38: return take(Result(Eq38(s)));
    case 39: return take(Result(Eq39(s)));
    case 40: return take(Result(Eq40(s)));
    case 41: return take(Result(Eq41(s)));
    case 42: return take(Result(Eq42(s)));
    case 43: return take(Result(Eq43(s)));
    case 44: return take(Result(Eq44(s)));
    case 45: return take(Result(Eq45(s)));
    case 46: return take(Result(Eq46(s)));
    case 47: return take(Result(Eq47(s)));
    case 48: return take(Result(Eq48(s)));
    case 49: return take(Result(Eq49(s)));
    case 51: return take(Result(Eq51(s)));
    case 52: return take(Result(Eq52(s)));
    case 53: return take(Result(Eq53(s)));
    case 54: return take(Result(Eq54(s)));
    case 117: return take(Result(Eq117(s)));
    case 126: return take(Result(Eq126(s)));
    case 134: return take(Result(Eq134(s)));
    default: return false;
  }
}

constexpr bool FillsWeights(int equation) noexcept {
  return equation != 4 && equation != 39 && equation != 51 && equation != 52;
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

bool ValueOnly(EquationCall const& call, int N, double& value) {
  return Form(call.equation, MakeSymbols(call, call.temperature, N, call.coefficients),
              [&](auto const& result) {
                if (result) value = *result;
                return true;
              });
}

// The highest derivative of a Jet. Where a lower one is infinite, all above it are too, with the
// same sign, seen from below; the Jet then has the difference of two infinite terms.
template <int Order>
double HighestOf(Jet<Order> const& jet) {
  double const highest = jet.d[Order];
  if constexpr (Order >= 2) {
    if (std::isnan(highest)) [[unlikely]] {
      if (std::isinf(jet.d[1])) return jet.d[1];
      if (std::isinf(jet.d[2])) return jet.d[2];
    }
  }
  return highest;
}

// Flattened: with all forms in one body the symbols stay in registers, which halves the cost of a
// call apart from its arithmetic.
template <int Order>
[[gnu::flatten]] void WithDerivative(EquationCall const& call, int N, double& value,
                                     double& derivative) {
  DerivativeRule const rule = RuleOf(call.equation, Order);
  auto const T = Jet<Order>::Variable(call.temperature);
  Form(call.equation, MakeSymbols(call, T, N, call.coefficients), [&](auto const& result) {
    derivative = 0.0;
    if (!result) return true;
    value = result->d[0];
    if (rule == DerivativeRule::kExact) derivative = HighestOf(*result);
    if (rule == DerivativeRule::kFirstInstead) derivative = result->d[1];
    return true;
  });
}

void Sensitivities(EquationCall const& call, int N, double* weights) {
  if (weights == nullptr || !FillsWeights(call.equation)) return;
  std::fill_n(weights, kMaxCoefficients, 0.0);
  std::array<Jet<1>, kMaxCoefficients> jets;
  double const* c = call.coefficients;
  std::copy_n(c, N, jets.begin());
  for (std::size_t k = 0; k < static_cast<std::size_t>(N); ++k) {
    jets[k] = Jet<1>::Variable(c[k]);
    Form(call.equation, MakeSymbols(call, call.temperature, N, jets.data()),
         [&](auto const& result) {
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
  double const T = call.temperature;
  // The comparisons within rounding matter only on the far side of a limit.
  if (call.tMax > kUndefinedLimit && T >= call.tMax && CompareTemperature(T, call.tMax) > 0) {
    return kAboveRange;
  }
  if (call.tMin > kUndefinedLimit && !(T >= call.tMin) && CompareTemperature(T, call.tMin) < 0) {
    return kBelowRange;
  }
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

}  // namespace zel

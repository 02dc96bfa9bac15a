#include "purecomp/equations.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>

#include "purecomp/compare_temperature.h"
#include "purecomp/form_implicit.h"
#include "purecomp/forms_critical.h"
#include "purecomp/forms_enthalpy.h"
#include "purecomp/forms_exponential.h"
#include "purecomp/forms_polynomial.h"
#include "purecomp/forms_viscosity.h"

namespace zel {
namespace {

constexpr double kUndefinedLimit = -1e35;
constexpr double kLn10 = 2.302585092994046;

// The forms by number: one line each, as in docs/equations.md.
template <typename S>
typename S::Result Form(int equation, S const& s) {
  using namespace forms;  // NOLINT(google-build-using-namespace): the list below
  switch (equation) {
    case 1: return Eq1(s);
    case 2: return Eq2(s);
    case 3: return Eq3(s);
    case 4: return Eq4(s);
    case 5: return Eq5(s);
    case 6: return Eq6(s);
    case 12: return Eq12(s);
    case 13: return Eq13(s);
    case 14: return Eq14(s);
    case 15: return Eq15(s);
    case 16: return Eq16(s);
    case 17: return Eq17(s);
    case 18: return Eq18(s);
    case 19: return Eq19(s);
    case 20: return Eq20(s);
    case 21: return Eq21(s);
    case 22: return ExpClamped(s.b * ChebyshevSum(s) / s.T);
    case 23: return Eq23(s);
    case 24: return Eq24(s);
    case 25: return Eq25(s);
    case 26: return Eq26(s);
    case 27: return Eq27(s);
    case 28: return Eq28(s);
    case 29: return Eq29(s);
    case 30: return Eq30(s);
    case 31: return Eq31(s);
    case 32: return Eq32(s);
    case 33: return Eq33(s);
    case 34: return Eq34(s);
    case 35: return Eq35(s);
    case 36: return Eq36(s);
    case 37: return Eq37(s);
    case 38: return Eq38(s);
    case 39: return Eq39(s);
    case 40: return Eq40(s);
    case 41: return Eq41(s);
    case 42: return Eq42(s);
    case 43: return Eq43(s);
    case 44: return Eq44(s);
    case 45: return Eq45(s);
    case 46: return Eq46(s);
    case 47: return Eq47(s);
    case 48: return Eq48(s);
    case 49: return Eq49(s);
    case 51: return Eq51(s);
    case 52: return Eq52(s);
    case 53: return Eq53(s);
    case 54: return Eq54(s);
    case 117: return Eq117(s);
    case 126: return Eq126(s);
    case 134: return Eq134(s);
    default: return {};
  }
}

constexpr bool NamesForm(int equation) noexcept {
  return (equation >= 1 && equation <= 6) || (equation >= 12 && equation <= 49) ||
         (equation >= 51 && equation <= 54) || equation == 117 || equation == 126 ||
         equation == 134;
}

constexpr bool FillsWeights(int equation) noexcept {
  return equation != 4 && equation != 39 && equation != 51 && equation != 52;
}

// Where the derivative of an order is told otherwise than by differentiation. Stored data and the
// programs that use it depend on each.
enum class DerivativeRule { kExact, kFirstInstead, kZero };

constexpr DerivativeRule RuleOf(int equation, int order) noexcept {
  if (equation == 126 || equation == 134) return DerivativeRule::kZero;
  if (order >= 2 && equation == 52) return DerivativeRule::kZero;
  if (order >= 2 && equation == 2) return DerivativeRule::kFirstInstead;
  return DerivativeRule::kExact;
}

template <typename X, typename C>
Symbols<X, C> MakeSymbols(EquationCall const& call, X const& T, int N, C const* coefficients) {
  double const b = call.logBasis == 2 ? kLn10 : 1.0;
  return {T, N, coefficients, b, call};
}

void ValueOnly(EquationCall const& call, int N, double& value) {
  if (auto const result =
          Form(call.equation, MakeSymbols(call, call.temperature, N, call.coefficients))) {
    value = *result;
  }
}

// Flattened: with all forms in one body the symbols stay in registers, which halves the cost of a
// call beside its arithmetic.
template <int Order>
[[gnu::flatten]] void WithDerivative(EquationCall const& call, int N, double& value,
                                     double& derivative) {
  DerivativeRule const rule = RuleOf(call.equation, Order);
  auto const T = Jet<Order>::Variable(call.temperature);
  auto const result = Form(call.equation, MakeSymbols(call, T, N, call.coefficients));
  derivative = 0.0;
  if (!result) return;
  value = result->d[0];
  if (rule == DerivativeRule::kExact) derivative = result->d[Order];
  if (rule == DerivativeRule::kFirstInstead) derivative = result->d[1];
}

void Sensitivities(EquationCall const& call, int N, double* weights) {
  if (weights == nullptr || !FillsWeights(call.equation)) return;
  std::fill_n(weights, kMaxCoefficients, 0.0);
  std::array<Jet<1>, kMaxCoefficients> jets;
  double const* c = call.coefficients;
  std::copy_n(c, N, jets.begin());
  for (std::size_t k = 0; k < static_cast<std::size_t>(N); ++k) {
    jets[k] = Jet<1>::Variable(c[k]);
    auto const result = Form(call.equation, MakeSymbols(call, call.temperature, N, jets.data()));
    weights[k] = result ? result->d[1] : 0.0;
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
  if (NamesForm(call.equation)) {
    int const N = std::clamp(call.coefficientCount, 0, kMaxCoefficients);
    switch (call.order) {
      case kFirstDerivative: WithDerivative<1>(call, N, number, slope); break;
      case kSecondDerivative: WithDerivative<2>(call, N, number, slope); break;
      case kThirdDerivative: WithDerivative<3>(call, N, number, slope); break;
      default: ValueOnly(call, N, number);
    }
    if (call.order == kSensitivities) Sensitivities(call, N, weights);
  }
  value = number * call.factor + call.offset;
  bool const hasSlope = call.order >= kFirstDerivative && call.order <= kThirdDerivative;
  derivative = hasSlope ? slope * call.factor : slope;
  return kInRange;
}

}  // namespace zel

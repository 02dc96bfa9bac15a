// The numeric routine of the evaluation of correlations.
#pragma once

#include <cstdint>

#include "purecomp/equation_symbols.h"

namespace zel {

// What to compute in addition to the value.
enum EquationOrder : std::int32_t {
  kFirstDerivative = 1,
  kSecondDerivative = 2,
  kThirdDerivative = 3,
  kSensitivities = 11
};

enum RangeStatus : std::int32_t { kInRange = 0, kAboveRange = 1, kBelowRange = -1 };

// One evaluation. Temperatures are in the unit of the record's limits and coefficients: nothing is
// converted. Limits at or below -1e35 mean none.
struct EquationCall : FormConstants {
  std::int32_t equation = 0;
  std::int32_t coefficientCount = 0;
  double const* coefficients = nullptr;  // as many as the count says, up to 15
  double temperature = 0.0;
  std::int32_t order = kFirstDerivative;
  std::int32_t logBasis = 1;
};

// The factor b of forms with logarithms.
constexpr double LogFactor(std::int32_t logBasis) noexcept {
  constexpr double kLn10 = 2.302585092994046;
  return logBasis == 2 ? kLn10 : 1.0;
}

// True for the forms that evaluate other correlations of their component.
constexpr bool EvaluatesOthers(int equation) noexcept { return equation == 38 || equation == 54; }

// The symbols of a form, with the temperature and the coefficients in the form's number types.
template <typename X, typename C>
Symbols<X, C> MakeSymbols(EquationCall const& call, X const& T, int N, C const* coefficients) {
  return {T, N, coefficients, LogFactor(call.logBasis), CallConstants{&call}};
}

// Evaluates a form at a temperature inside the range; outside it only returns the status. `value`
// and `derivative` are in and out: a number without a form leaves both unchanged, a form without a
// value at that temperature leaves `value` unchanged, and the final step (times factor, plus
// offset) is applied to them all the same. `derivative` receives the derivative of the requested
// order; orders other than 1 to 3 leave it. `weights` (15, may be null) receive, for order 11, the
// partial derivatives of the form's value before the final step with respect to the coefficients, 0
// for those not in use; forms 4, 39, 51 and 52 leave them. Where a root or a power in a form
// begins, derivatives and sensitivities are their limits there, infinite where they are unbounded.
RangeStatus EvaluateEquation(EquationCall const& call, double& value, double& derivative,
                             double* weights);

// The value and the derivatives up to `highest` (1 to 3) at `derivatives` 0 to `highest`, in and
// out, from one evaluation of the form: each is what EvaluateEquation yields for that order.
RangeStatus EvaluateDerivatives(EquationCall const& call, int highest, double* derivatives);

}  // namespace zel

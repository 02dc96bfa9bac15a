// The symbols of equation forms.
//
// Above each form are its number, usual name and formula in the notation of docs/equations.md, with
// which a test compares them. "End" is the value where a form stops before the critical point. The
// units of the coefficients follow: U is the unit of the value before the final step, K the unit of
// the temperature.
//
//   T        temperature, in the unit of the limits and coefficients
//   Tc, Tb   critical temperature and normal boiling point, K
//   Pc       critical pressure, kPa
//   tau, Tr  1 - T/Tc, T/Tc
//   R        gas constant, kPa m3/(kg-mol K)
//   b        1 for natural logarithms, ln 10 for decimal ones
//   f, o     factor and offset of the final step
//   Ci, N    coefficient i, number of coefficients in use
//   ln, exp, expc, ssqrt, cbrt  Ln, Exp, ExpClamped, SignedSqrt, Cbrt of jet.h
#pragma once

#include <cstddef>
#include <optional>

#include "purecomp/jet.h"
#include "zelaccess/PureComp.h"

namespace zel {

inline constexpr double kGasConstant = 8.314471;  // kPa m3/(kg-mol K)
inline constexpr int kMaxCoefficients = 15;
// At or below this value of tau, a form that is singular at the critical point takes its limit
// instead.
inline constexpr double kNearCritical = 0.0001;

// The value of another correlation of the same component at the same temperature, with derivatives
// up to the third; 0 where it cannot be evaluated.
struct CalledCorrelation {
  double d[4] = {};
};

class CorrelationCaller {
 public:
  // `index` is a correlation index; `highest` the highest derivative needed (0 to 3).
  virtual CalledCorrelation Call(std::uint32_t index, double temperature, int highest) = 0;

 protected:
  ~CorrelationCaller() = default;
};

// The inputs that are the same for all forms: limits, unit, and constants of the component.
struct FormConstants {
  CorrelationCaller* caller = nullptr;
  double tMax = 0.0;
  double tMin = 0.0;
  double factor = 1.0;  // of the final step
  double offset = 0.0;
  double Tc = 0.0;  // K
  double Pc = 0.0;  // kPa
  double Tb = 0.0;  // K
};

// What a form returns: none leaves the caller's value untouched.
template <typename Value>
struct ResultFor {
  using Type = std::optional<Value>;
};

// Reads the inputs from a call.
struct CallConstants {
  FormConstants const* from;

  double Tc() const { return from->Tc; }
  double Pc() const { return from->Pc; }
  double Tb() const { return from->Tb; }
  double tMin() const { return from->tMin; }
  double tMax() const { return from->tMax; }
  double factor() const { return from->factor; }
  double offset() const { return from->offset; }
  CorrelationCaller* caller() const { return from->caller; }
};

// X is the type of the temperature, C that of the coefficients: at most one of them is a Jet. K has
// the inputs that are the same for all forms, which are read by the forms that use them only.
template <typename X, typename C, typename K = CallConstants>
struct Symbols {
  using Value = Wider<X, C>;
  using Result = typename ResultFor<Value>::Type;

  X T;
  int N;                  // coefficients in use, 0 to 15
  C const* coefficients;  // N of them; those beyond count as 0
  double b;               // log basis factor: 1 or ln 10
  K at;

  C c(int i) const { return i >= 1 && i <= N ? coefficients[i - 1] : C(0.0); }
  double Tc() const { return at.Tc(); }
  double Pc() const { return at.Pc(); }
  double Tb() const { return at.Tb(); }
  double tMin() const { return at.tMin(); }
  double tMax() const { return at.tMax(); }
  double f() const { return at.factor(); }
  double o() const { return at.offset(); }
  X tau() const { return 1.0 - T / Tc(); }
  X Tr() const { return T / Tc(); }

  // Sum of Ci x^(i - first) over i = first..last, by Horner's rule from the highest down.
  template <typename Y>
  Wider<Y, C> Polynomial(int first, int last, Y const& x) const {
    if (last < first) return Wider<Y, C>(0.0);
    Wider<Y, C> sum(c(last));
    for (int i = last - 1; i >= first; --i) sum = sum * x + c(i);
    return sum;
  }

  // The value of another correlation, as a number of the temperature's type.
  X Called(std::uint32_t index) const {
    if constexpr (IsJet<X>::value) {
      return FromDerivatives(T, at.caller()->Call(index, ValueOf(T), X::kOrder).d);
    } else {
      return at.caller()->Call(index, T, 0).d[0];
    }
  }
};

// The rest of a form, or the end of the form where it has ended. Packs have their own.
template <typename S, typename Rest>
typename S::Result UnlessEnded(bool hasEnded, typename S::Result const& end, Rest const& rest) {
  if (hasEnded) return end;
  return typename S::Result(rest());
}

}  // namespace zel

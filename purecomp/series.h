// A number next to a point at which a root or a power begins: a sum of powers, not only whole ones,
// of a small positive step.
//
// Where the argument of a root is 0 its slope is infinite, and a Jet yields 0 times infinity
// although the result of the form may have a limit. The same forms with this number type yield that
// limit. It is slow, and used only at points where a Jet yields NaN.
#pragma once

#include <array>

#include "purecomp/jet.h"

namespace zel {

class Series {
 public:
  static constexpr int kOrder = 3;  // higher powers than this are not kept

  Series() = default;
  Series(double value);  // NOLINT(google-explicit-constructor): a constant
  // A variable that is a step away from `value`; `side` 1 above it, -1 below it.
  static Series Variable(double value, double side);

  // The limit of the number itself, infinite with a negative power.
  double Value() const noexcept;
  // The limit of a derivative with respect to the step, order 1 to 3: infinite where it is
  // unbounded.
  double Derivative(int order) const noexcept;
  bool IsConstant() const noexcept {
    return count_ == 0 || (count_ == 1 && terms_[0].power == 0.0);
  }

  Series& operator+=(Series const& o);
  Series& operator*=(double k);
  friend Series operator*(Series const& a, Series const& b);
  friend Series PowConst(Series const& x, double c);
  friend Series Abs(Series const& x);
  friend Series Cbrt(Series const& x);

  // The sum of g[k] times the k-th power of this number minus its limit.
  template <std::size_t Count>
  Series Taylor(std::array<double, Count> const& g) const;

 private:
  struct Term {
    double power = 0.0;
    double factor = 0.0;  // never 0
  };
  void Add(Term term);
  bool LeadsNegative() const noexcept { return count_ > 0 && terms_[0].factor < 0.0; }

  static constexpr std::size_t kMost = 48;
  std::array<Term, kMost> terms_;  // in ascending order of power
  std::size_t count_ = 0;
};

template <>
struct IsJet<Series> : std::true_type {};

inline double ValueOf(Series const& x) noexcept { return x.Value(); }

inline Series operator-(Series a) { return a *= -1.0; }
inline Series operator+(Series a, Series const& b) { return a += b; }
inline Series operator+(Series a, double b) { return a += Series(b); }
inline Series operator+(double a, Series b) { return b += Series(a); }
inline Series operator-(Series a, Series const& b) { return a += -b; }
inline Series operator-(Series a, double b) { return a += Series(-b); }
inline Series operator-(double a, Series const& b) { return -b + a; }
inline Series operator*(Series a, double b) { return a *= b; }
inline Series operator*(double a, Series b) { return b *= a; }
inline Series operator/(Series a, double b) { return a *= 1.0 / b; }
inline Series operator/(Series const& a, Series const& b) { return a * PowConst(b, -1.0); }
inline Series operator/(double a, Series const& b) { return PowConst(b, -1.0) * a; }

// The guarded functions, as for a Jet.
Series Ln(Series const& x);
Series Exp(Series const& x);
Series Atan(Series const& x);
Series Pow(Series const& x, Series const& e);
inline Series Pow(Series const& x, double e) { return PowConst(x, e); }
inline Series Pow(double x, Series const& e) { return Pow(Series(x), e); }
inline Series Sqrt(Series const& x) { return PowConst(x, 0.5); }
inline Series PowOneAndHalf(Series const& x) { return PowConst(x, 1.5); }

// A number of the temperature's type from derivatives with respect to the temperature.
Series FromDerivatives(Series const& T, double const (&d)[4]);

}  // namespace zel

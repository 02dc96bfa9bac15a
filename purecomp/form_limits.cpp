#include "purecomp/form_limits.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "purecomp/forms_critical.h"
#include "purecomp/forms_enthalpy.h"
#include "purecomp/forms_exponential.h"
#include "purecomp/forms_viscosity.h"
#include "purecomp/series.h"

namespace zel {
namespace {

template <typename S>
std::optional<Series> FormAsSeries(int equation, S const& s) {
  using namespace forms;  // NOLINT(google-build-using-namespace): the list below
  switch (equation) {
    case 13: return Eq13(s);
    case 16: return Eq16(s);
    case 26: return Eq26(s);
    case 29: return Eq29(s);
    case 31: return Eq31(s);
    case 37: return Eq37(s);
    case 47: return Eq47(s);
    case 53: return Eq53(s);
    case 54: return Eq54(s);
    default: return std::nullopt;
  }
}

// The limit of `make(side)`, a form next to the point, from the first of the two sides that has
// one.
template <typename Make>
std::optional<double> LimitFrom(double firstSide, int order, Make const& make) {
  for (double const side : {firstSide, -firstSide}) {
    std::optional<Series> const form = make(side);
    if (!form) return std::nullopt;
    double const limit = form->Derivative(order);
    if (!std::isnan(limit)) return order % 2 == 0 ? limit : limit * side;
  }
  return std::nullopt;
}

}  // namespace

std::optional<double> DerivativeLimit(EquationCall const& call, int N, int order) {
  return LimitFrom(-1.0, order, [&](double side) {
    Series const T = Series::Variable(call.temperature, side);
    return FormAsSeries(call.equation, MakeSymbols(call, T, N, call.coefficients));
  });
}

std::optional<double> SensitivityLimit(EquationCall const& call, int N, std::size_t k) {
  return LimitFrom(1.0, 1, [&](double side) {
    std::array<Series, kMaxCoefficients> c;
    std::copy_n(call.coefficients, N, c.begin());
    c[k] = Series::Variable(call.coefficients[k], side);
    return FormAsSeries(call.equation, MakeSymbols(call, call.temperature, N, c.data()));
  });
}

}  // namespace zel

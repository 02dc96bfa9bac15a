// The results that a successful evaluation of a sound record may have.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <iterator>
#include <string>

#include "zelaccess/ZelAccess.h"

namespace zel::test {

struct Evaluation {
  double temperature = 0.0;
  std::int32_t order = 0;
  ZelStatus result = kStatusFailed;
  double value = 0.0;
  double derivative = 0.0;
  double weights[15] = {};
  std::int32_t status = 99;
};

inline Evaluation Evaluate(IZelPureComp& component, std::uint32_t index, double T,
                           std::int32_t order) {
  Evaluation found;
  found.temperature = T;
  found.order = order;
  found.result = component.EvaluateCorrelation(index, T, order, &found.value, &found.derivative,
                                               found.weights, &found.status);
  return found;
}

// True if a number of the evaluation, approached from below, keeps its sign and grows without
// bound: each of the last 20 halvings of the distance increases it, and all together by a factor of
// 100, as for any power of the distance below -1/3. Farther away other terms of a form can be
// larger.
template <typename Number>
bool GrowsBeyondBounds(IZelPureComp& component, std::uint32_t index, Evaluation const& infinite,
                       Number const& number) {
  constexpr int kFirst = 26;
  constexpr int kLast = 46;
  constexpr double kFactor = 100.0;
  double first = 0.0;
  double before = 0.0;
  for (int k = kFirst; k <= kLast; ++k) {
    double const T = infinite.temperature * (1.0 - std::ldexp(1.0, -k));
    Evaluation const near = Evaluate(component, index, T, infinite.order);
    double const here = number(near);
    bool const isAlike = near.result == kStatusOk && std::isfinite(here) &&
                         std::signbit(here) == std::signbit(number(infinite));
    if (!isAlike || std::abs(here) <= before) return false;
    before = std::abs(here);
    if (k == kFirst) first = before;
  }
  return before > kFactor * first;
}

// Empty, or what is wrong with a result that is not kStatusFailed. Values are finite, nothing is
// NaN, and a derivative or sensitivity is infinite only inside the range where that of the form is
// unbounded.
inline std::string WhatIsUnsound(IZelPureComp& component, std::uint32_t index,
                                 Evaluation const& found) {
  if (!std::isfinite(found.value)) return "the value is not finite";
  bool const allFinite = std::isfinite(found.derivative) &&
                         std::all_of(std::begin(found.weights), std::end(found.weights),
                                     [](double weight) { return std::isfinite(weight); });
  if (allFinite) return "";
  auto const look = [&](std::string const& name, auto const& number) -> std::string {
    if (std::isfinite(number(found))) return "";
    if (std::isnan(number(found))) return name + " is NaN";
    if (found.status != 0) return name + " is infinite outside the range";
    return GrowsBeyondBounds(component, index, found, number)
               ? ""
               : name + " is infinite where that of the form is not";
  };
  std::string wrong = look("the derivative", [](Evaluation const& e) { return e.derivative; });
  for (std::size_t k = 0; wrong.empty() && k < std::size(found.weights); ++k) {
    wrong = look("sensitivity " + std::to_string(k + 1),
                 [k](Evaluation const& e) { return e.weights[k]; });
  }
  return wrong;
}

}  // namespace zel::test

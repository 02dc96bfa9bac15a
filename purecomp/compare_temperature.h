// Comparison of temperatures within rounding.
#pragma once

#include <algorithm>
#include <cmath>

namespace zel {

// 0 when a and b are equal within rounding, otherwise 1 for a >= b and -1 for a < b. Opposite signs
// are never equal; 0 and -0.0 count as positive.
inline int CompareTemperature(double a, double b) noexcept {
  constexpr double kRelative = 7.77e-16;
  constexpr double kSmallFactor = 1287001287001287.0;
  bool const sameSign = (a < 0.0) == (b < 0.0);
  if (sameSign) {
    double const m = std::max(std::fabs(a), std::fabs(b));
    double const n = std::min(std::fabs(a), std::fabs(b));
    bool const equal = m >= 1.0 ? (m - n) / m < kRelative : m >= (m - n) * kSmallFactor;
    if (equal) return 0;
  }
  return a >= b ? 1 : -1;
}

}  // namespace zel

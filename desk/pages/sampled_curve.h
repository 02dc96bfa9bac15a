// A correlation as numbers from which a page computes its values.
#pragma once

#include <functional>
#include <optional>
#include <vector>

namespace zel::desk {

// A function over temperatures in K; nothing where it has no value.
using TemperatureFunction = std::function<std::optional<double>(double kelvin)>;

// The curve between low and high as numbers of 4 bytes: the number of pieces, the lower end of the
// first one, and for each piece its upper end, 64 times its kind plus the number of its points, and
// the values at these points. The points are cos(j pi / (points - 1)), j from 0, of the piece
// stretched to -1 to 1: Chebyshev points, through which a polynomial is drawn. Kind 1: the values
// are natural logarithms. Kind 2: the distance x from the upper end is stretched, to
// (x / width)^(1/8), for the steep end of a curve at the critical point. A piece without points has
// no values.
struct SampledCurve {
  std::vector<float> numbers;
  // The greatest relative error of the curve at its check points, of which there are twice as many
  // as points. In a piece that has a value of 0 or below, errors are relative to at least 1e-3 of
  // the curve's greatest value.
  double error = 0.0;
};

// Chooses pieces and points such that the error is at most 1e-5, except within a millionth of the
// range around a place where the function jumps.
SampledCurve Sample(TemperatureFunction const& function, double low, double high);

// The value that a page computes; nothing outside the curve and where it has no value.
std::optional<double> ValueOf(SampledCurve const& curve, double kelvin);

}  // namespace zel::desk

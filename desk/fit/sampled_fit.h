// Equations fitted to a curve that is known at any temperature: what a record of another kind is
// replaced with.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "desk/fit/curve_fit.h"

namespace zel::desk {

// An equation and its number of coefficients; 0: as many as it usually has.
struct FormChoice {
  int equation = 0;
  int count = 0;
};

struct SampledFit {
  CurveFit fit;
  FormChoice choice;
  // How far the record is from the curve at `checked` temperatures, most of which are between those
  // that were fitted.
  FitDeviations deviations;
  // "equation 20 from 200 to 500 K: 0.012% on the average, 0.034% at most, at 210.5 K";
  // without the signs of % if the curve is 0 somewhere
  std::string Text() const;
};

struct SampledCurve {
  // Values in the unit of the correlation by temperatures in K; NaN where the correlation has no
  // value.
  std::function<double(double)> curve;
  double low = 0.0;  // K
  double high = 0.0;
  int samples = 60;  // to fit, denser near the ends
};

// Fits each of the equations, and returns the one with the least greatest deviation, in % unless
// the curve is 0 somewhere. `record` is that of FitTask: the index, units, the factor and constants
// of the component; range, equation and number of coefficients are set here. An equation that does
// not suit the curve is passed over. Throws Failure if none does, with the reason of the last one,
// and for a range in which the curve has too few values.
SampledFit BestSampledFit(zel::ZelCorrelation const& record, SampledCurve const& curve,
                          std::vector<FormChoice> const& choices);

// The usual choices for a correlation, by index: equations that its records have in published data.
std::vector<FormChoice> UsualChoices(std::uint32_t index);

}  // namespace zel::desk

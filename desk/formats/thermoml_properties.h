// The properties of ThermoML that are values of correlations, and coverage factors.
#pragma once

#include <string>

namespace zel::desk {

// How a property becomes a value of a correlation: the number, or its inverse, times a factor, and
// times or divided by the molecular weight.
struct MeasuredProperty {
  char const* property;
  char const* phase;
  char const* correlation;
  double factor;
  int power;        // 1, or -1 for the inverse
  int weightPower;  // of the molecular weight
};
// Null for a property that no correlation has in this phase. "Crystal" is also "Crystal 1" to
// "Crystal 5"; any other phase is one by its whole name.
MeasuredProperty const* FindMeasuredProperty(std::string const& property, std::string const& phase);

// The factor of an expanded uncertainty with this level of confidence in percent, for normal
// deviations: 2 for 95, 3 for 99.7. NaN for a level that is not one: below 50 or not below 100.
double CoverageFactorOf(double confidence);

}  // namespace zel::desk

// A correlation of a component by its name, and the messages about records without values.
#pragma once

#include <string>
#include <vector>

#include "desk/open/pure_component.h"
#include "desk/words/failure.h"

namespace zel::desk {

// Throws Failure if the word is neither the name of a correlation nor the unique beginning of one.
zel::ZelCorrelationInfo const& CorrelationNamed(std::string const& word);

// Throws Failure if the component, named by `word`, does not have the correlation.
Curve CurveOf(PureComponent const& component, zel::ZelCorrelationInfo const& info,
              std::string const& word);

// "component XXX, VaporPressure: " and what is wrong with its record; empty if nothing is.
std::string WarningOf(std::string const& component, zel::ZelCorrelationInfo const& info,
                      Curve const& curve);

// A hint about a temperature without a unit that in K is below the ranges of all records, but in
// degrees Celsius would be within one of them: "25 is in K and below the range; 25C is in degrees
// Celsius". Empty if no word is such a number, and if a unit of temperatures was chosen.
std::string HintForBareNumber(std::vector<std::string> const& words,
                              std::vector<Curve> const& curves, DisplayUnits const& units);

// The error for a correlation without a value at any of the temperatures.
Failure NoValue(std::string const& component, zel::ZelCorrelationInfo const& info,
                Curve const& curve);

}  // namespace zel::desk

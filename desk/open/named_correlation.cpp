#include "desk/open/named_correlation.h"

#include <zelaccess/Types.h>
#include <zelaccess/Verify.h>

#include "desk/words/letters.h"
#include "desk/words/number_range.h"

namespace zel::desk {

zel::ZelCorrelationInfo const& CorrelationNamed(std::string const& word) {
  zel::ZelCorrelationInfo const* const found = FindCorrelation(word);
  if (found == nullptr) {
    if (FindConstant(word) != nullptr) {
      throw Failure(UpperCase(word) +
                    " is a constant, not a correlation; `zel why` and `zel table` "
                    "show its value");
    }
    throw Failure("\"" + word + "\" is not a correlation, or the beginning of several" +
                  DidYouMeanCorrelation(word) + " `zel types " + kPureType + "` lists them");
  }
  return *found;
}

Curve CurveOf(PureComponent const& component, zel::ZelCorrelationInfo const& info,
              std::string const& word) {
  Curve curve = component.ReadCurve(IndexOf(info));
  if (!curve.present) throw Failure("component " + word + " has no " + info.name);
  return curve;
}

std::string WarningOf(std::string const& component, zel::ZelCorrelationInfo const& info,
                      Curve const& curve) {
  std::string const fault = FaultOf(curve);
  return fault.empty() ? "" : "component " + component + ", " + info.name + ": " + fault;
}

std::string HintForBareNumber(std::vector<std::string> const& words,
                              std::vector<Curve> const& curves, DisplayUnits const& units) {
  constexpr std::int32_t kCelsius = kKelvin + 1;
  if (units.UnitFor("K") != "K") return "";
  for (std::string const& word : words) {
    if (word.empty() || word.find_first_not_of("0123456789.") != std::string::npos) continue;
    double const kelvin = ParseTemperature(word, units).In(kKelvin);
    double const celsius = zel::ConvertTemperature(kelvin, kCelsius, kKelvin);
    bool mayBeCelsius = false;
    bool isBelowAll = true;
    for (Curve const& curve : curves) {
      bool const isOpen = zel::gen_IsUndefDouble(curve.tMin) || zel::gen_IsUndefDouble(curve.tMax);
      if (!curve.present || isOpen) continue;
      double const low = zel::ConvertTemperature(curve.tMin, curve.tempUnit, kKelvin);
      double const high = zel::ConvertTemperature(curve.tMax, curve.tempUnit, kKelvin);
      isBelowAll = isBelowAll && kelvin < low;
      mayBeCelsius = mayBeCelsius || (celsius >= low && celsius <= high);
    }
    if (!isBelowAll || !mayBeCelsius) continue;
    return std::string(word)
        .append(" is in K and below the range; ")
        .append(word)
        .append("C is in degrees Celsius");
  }
  return "";
}

Failure NoValue(std::string const& component, zel::ZelCorrelationInfo const& info,
                Curve const& curve) {
  std::string const warning = WarningOf(component, info, curve);
  if (!warning.empty()) return Failure(warning);
  return Failure("component " + component + ", " + info.name + ": equation " +
                 std::to_string(curve.equation) + " has no value at these temperatures");
}

}  // namespace zel::desk

#include "desk/open/named_correlation.h"

#include "desk/words/letters.h"

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

Failure NoValue(std::string const& component, zel::ZelCorrelationInfo const& info,
                Curve const& curve) {
  std::string const warning = WarningOf(component, info, curve);
  if (!warning.empty()) return Failure(warning);
  return Failure("component " + component + ", " + info.name + ": equation " +
                 std::to_string(curve.equation) + " has no value at these temperatures");
}

}  // namespace zel::desk

// Correlations that are called with temperatures.
#pragma once

#include <zelaccess/DeskEvaluator.h>

#include <map>
#include <optional>
#include <string>
#include <tuple>

#include "common.h"

namespace zelpython {

// A correlation that is called with temperatures. Its functions are called with the interpreter's
// lock, which they release while they evaluate arrays.
class Curve {
 public:
  Curve(desk::Component const& component, std::uint32_t index);
  explicit Curve(zel::ZelCorrelation const& correlation);

  double Value(double temperature) const { return evaluator_.Value(temperature); }
  // A value, an array, or one of these with its statuses.
  py::object Call(Doubles const& temperatures, std::string const& unit,
                  std::string const& temperatureUnit, int order, bool status,
                  std::string const& mode);
  // Values and derivatives.
  py::tuple Both(Doubles const& temperatures, std::string const& unit,
                 std::string const& temperatureUnit, int order, std::string const& mode);
  // A row for each temperature, with a column for each of 15 coefficients.
  py::array_t<double> Sensitivities(Doubles const& temperatures) const;
  std::string const& Unit() const { return evaluator_.Unit(); }
  // Throws UnknownWord if it cannot be separated from its component.
  zel::ZelCorrelation const& Detached() const;

 private:
  desk::Evaluator const& EvaluatorFor(desk::EvaluationOptions const& options);

  desk::Evaluator evaluator_;  // in internal units
  std::optional<desk::Component> component_;
  std::uint32_t index_;
  std::map<std::tuple<std::string, std::string, int>, desk::Evaluator> others_;
};

// The members of a correlation by name; what is undefined is NaN.
py::dict RecordOf(zel::ZelCorrelation const& correlation);
zel::ZelCorrelation CorrelationOf(py::dict const& record);

}  // namespace zelpython

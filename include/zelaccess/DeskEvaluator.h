/// \file
/// Evaluators: one correlation, prepared once to be evaluated often, into the caller's arrays.
///
///     zel::desk::Evaluator const pressure(ethanol, zel::Correlation::VaporPressure, {"bar"});
///     double const p = pressure.Value(351.4);
///     zel::desk::EvaluatorArrays arrays;
///     arrays.count = temperatures.size();
///     arrays.temperatures = temperatures.data();
///     arrays.values = values.data();
///     pressure.Evaluate(arrays);
///
/// Errors are those of Desk.h.
#ifndef ZELACCESS_DESKEVALUATOR_H
#define ZELACCESS_DESKEVALUATOR_H

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

#include "zelaccess/Batch.h"
#include "zelaccess/Desk.h"

namespace zel::desk {

/// Temperatures, and what is computed at them: arrays of the caller, without gaps.
struct EvaluatorArrays {
  std::size_t count = 0;                 ///< Number of elements.
  double const* temperatures = nullptr;  ///< In the evaluator's unit of temperatures. They must not
                                         ///< share memory with the results.
  double* values = nullptr;              ///< Receives the values, NaN where the equation has no
                                         ///< value; may be null.
  double* derivatives = nullptr;         ///< Receives the derivatives of the evaluator's order, NaN
                                         ///< where the equation has no value; may be null.
  std::int32_t* statuses = nullptr;      ///< Receives 0 inside the range, 1 above, -1 below; may be
                                         ///< null.
  zelBatchModes mode = batchExact;       ///< batchVector: faster, within 1e-12 of a value.
};

struct EvaluatorData;

/// A correlation, prepared with units and order. Copies are cheap: they share the data, which do
/// not change. Any number of threads may use one object at the same time. Values are those of
/// Component::Evaluate.
class ZEL_DESK_API Evaluator {
 public:
  /// Prepares a correlation of a component, which may end before the evaluator. Throws what
  /// Component::Evaluate throws.
  /// \param component    the component
  /// \param correlation  the correlation
  /// \param options      units, and the order of the derivative
  Evaluator(Component const& component, zel::Correlation correlation,
            EvaluationOptions const& options = {});
  /// Prepares a correlation by itself, for example with coefficients of a fit. Throws UnknownWord
  /// for an index above 17 and for units and an order as above.
  /// \param correlation  the record (Correlation.h); equations 38 and 54 have no value here
  /// \param options      units, and the order of the derivative
  explicit Evaluator(ZelCorrelation const& correlation, EvaluationOptions const& options = {});

  /// Evaluates at one temperature.
  /// \param temperature  in the unit of temperatures
  /// \return the value; NaN where the equation has none
  double Value(double temperature) const;
  /// Evaluates at many temperatures. Throws UnknownWord for temperatures and values that cannot be
  /// expressed in the unit asked for.
  /// \param arrays  temperatures and results
  void Evaluate(EvaluatorArrays const& arrays) const;

  /// Returns the unit of the values.
  /// \return empty for a pure number
  std::string const& Unit() const;
  /// Returns the correlation by itself.
  /// \return null for equations that evaluate other correlations of their component (38 and 54);
  ///         valid as long as this object or a copy of it lives
  ZelCorrelation const* Detached() const;

 private:
  std::shared_ptr<EvaluatorData const> data_;
};

}  // namespace zel::desk

#endif  // ZELACCESS_DESKEVALUATOR_H

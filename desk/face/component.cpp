#include <zelaccess/Desk.h>
#include <zelaccess/DeskEvaluator.h>
#include <zelaccess/Units.h>

#include <algorithm>
#include <cmath>
#include <mutex>

#include "desk/face/data.h"
#include "desk/face/units.h"

namespace zel::desk {
namespace {

constexpr std::int32_t kKelvin = 10;

zel::ZelConstantInfo const* InfoOf(std::uint32_t index) {
  auto const& all = Constants();
  auto const at =
      std::find_if(all.begin(), all.end(), [index](auto const& row) { return row.index == index; });
  return at == all.end() ? nullptr : &*at;
}

Citation CitationIn(std::map<std::uint32_t, Citation> const& citations, std::uint32_t index) {
  auto const at = citations.find(index);
  return at == citations.end() ? Citation{} : at->second;
}

std::optional<double> InKelvin(double value, std::int32_t unit) {
  if (zel::gen_IsUndefDouble(value)) return std::nullopt;
  return zel::ConvertTemperature(value, unit, kKelvin);
}

}  // namespace

desk::Identity Component::Identity() const {
  std::lock_guard const alone(data_->lock);
  return data_->component.ReadIdentity();
}

std::optional<ConstantValue> Component::Constant(zel::Constant constant,
                                                 std::string const& unit) const {
  auto const index = static_cast<std::uint32_t>(constant);
  zel::ZelConstantInfo const* const info = InfoOf(index);
  if (info == nullptr) return std::nullopt;
  UnitOfValues const shown(info->unit, zel::GetConstantDimension(index), unit, info->label);
  std::lock_guard const alone(data_->lock);
  PureComponent const& component = data_->component;
  double value = component.Completed(index);
  if (zel::gen_IsUndefDouble(value) || !std::isfinite(value)) return std::nullopt;
  shown.Convert(&value, 1);
  Citation const citation = CitationIn(data_->citations.constants, index);
  return ConstantValue{value,
                       shown.Text(),
                       component.ConstantSource(index),
                       component.ConstantCode(index),
                       component.State(index),
                       citation.text,
                       citation.doi};
}

std::optional<CorrelationData> Component::Correlation(zel::Correlation correlation) const {
  auto const index = static_cast<std::uint32_t>(correlation);
  std::lock_guard const alone(data_->lock);
  Curve const curve = data_->component.ReadCurve(index);
  if (!curve.present) return std::nullopt;
  Citation const citation = CitationIn(data_->citations.curves, index);
  return CorrelationData{curve.equation,
                         curve.coefficients,
                         InKelvin(curve.tMin, curve.tempUnit),
                         InKelvin(curve.tMax, curve.tempUnit),
                         zel::GetUnitCodeName(curve.propUnit),
                         curve.source,
                         curve.refCode,
                         citation.text,
                         citation.doi};
}

CorrelationValues Component::Evaluate(zel::Correlation correlation,
                                      std::vector<double> const& temperatures,
                                      EvaluationOptions const& options) const {
  Evaluator const evaluator(*this, correlation, options);
  CorrelationValues result;
  result.unit = evaluator.Unit();
  result.temperatureUnit = options.temperatureUnit;
  result.values.resize(temperatures.size());
  result.derivatives.resize(temperatures.size());
  result.statuses.resize(temperatures.size());
  EvaluatorArrays arrays;
  arrays.count = temperatures.size();
  arrays.temperatures = temperatures.data();
  arrays.values = result.values.data();
  arrays.derivatives = result.derivatives.data();
  arrays.statuses = result.statuses.data();
  evaluator.Evaluate(arrays);
  return result;
}

}  // namespace zel::desk

#include <zelaccess/Batch.h>
#include <zelaccess/Desk.h>
#include <zelaccess/Units.h>

#include <algorithm>
#include <cmath>
#include <limits>

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

// The temperatures in the unit of the record.
std::vector<double> ForRecord(std::vector<double> temperatures, std::string const& unit,
                              Curve const& curve) {
  zel::InitZelAccess();
  if (!zel::ConvertUnits("Temp", unit.c_str(), TemperatureUnit(curve.tempUnit), temperatures.data(),
                         static_cast<std::int32_t>(temperatures.size()))) {
    throw UnknownWord("", unit + " is not a unit of temperatures");
  }
  return temperatures;
}

// How many units of the record one unit of the host is, as differences.
double StepOfRecord(std::string const& unit, Curve const& curve) {
  double step = 1.0;
  zel::ConvertUnits("TempDiff", unit.c_str(), TemperatureUnit(curve.tempUnit), &step, 1);
  return step;
}

// Evaluates the correlation in its own units; NaN where there is no value.
void EvaluateIn(PureComponent const& component, std::uint32_t index,
                std::vector<double> const& temperatures, std::int32_t order,
                CorrelationValues& result) {
  double const nan = std::numeric_limits<double>::quiet_NaN();
  result.values.assign(temperatures.size(), nan);
  result.derivatives.assign(temperatures.size(), nan);
  result.statuses.assign(temperatures.size(), 0);
  zel::ZelBatch batch;
  batch.count = static_cast<std::int64_t>(temperatures.size());
  batch.temperatures = temperatures.data();
  batch.order = order;
  batch.values = result.values.data();
  batch.derivatives = result.derivatives.data();
  batch.statuses = result.statuses.data();
  zel::EvaluateComponentBatch(component.operator->(), index, batch);
  std::int32_t const unit = component.ReadCurve(index).tempUnit;
  for (std::size_t i = 0; i < temperatures.size(); ++i) {
    if (zel::ConvertTemperature(temperatures[i], unit, kKelvin) < 0.0) {
      result.values[i] = result.derivatives[i] = nan;
    } else if (result.statuses[i] != 0) {
      // An extrapolation is a value only if there is one at the end of the range.
      Point const point = component.At(index, temperatures[i], order);
      result.values[i] = point.there ? point.value : nan;
      result.derivatives[i] = point.there ? point.slope : nan;
      result.statuses[i] = point.status;
    }
    for (double* const value : {&result.values[i], &result.derivatives[i]}) {
      if (!std::isfinite(*value) || zel::gen_IsUndefDouble(*value)) *value = nan;
    }
  }
}

}  // namespace

desk::Identity Component::Identity() const { return data_->component.ReadIdentity(); }

std::optional<ConstantValue> Component::Constant(zel::Constant constant,
                                                 std::string const& unit) const {
  auto const index = static_cast<std::uint32_t>(constant);
  zel::ZelConstantInfo const* const info = InfoOf(index);
  if (info == nullptr) return std::nullopt;
  UnitOfValues const shown(info->unit, zel::GetConstantDimension(index), unit, info->label);
  PureComponent const& component = data_->component;
  std::vector<double> value = {component.Completed(index)};
  if (zel::gen_IsUndefDouble(value[0]) || !std::isfinite(value[0])) return std::nullopt;
  shown.Convert(value);
  Citation const citation = CitationIn(data_->citations.constants, index);
  return ConstantValue{value[0],
                       shown.Text(),
                       component.ConstantSource(index),
                       component.ConstantCode(index),
                       component.State(index),
                       citation.text,
                       citation.doi};
}

std::optional<CorrelationData> Component::Correlation(zel::Correlation correlation) const {
  auto const index = static_cast<std::uint32_t>(correlation);
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
  auto const index = static_cast<std::uint32_t>(correlation);
  if (index >= Correlations().size()) throw UnknownWord("", "there is no such correlation");
  zel::ZelCorrelationInfo const& info = Correlations()[index];
  if (options.order < 1 || options.order > 3) {
    throw UnknownWord(
        "", "the order of a derivative is 1, 2 or 3, not " + std::to_string(options.order));
  }
  UnitOfValues const shown(info.unit, zel::GetCorrelationDimension(index), options.unit,
                           info.label);
  Curve const curve = data_->component.ReadCurve(index);
  if (!curve.present) {
    throw MissingDatum("", "component " + data_->word + " has no correlation of " + info.label);
  }
  CorrelationValues result;
  result.unit = shown.Text();
  result.temperatureUnit = options.temperatureUnit;
  EvaluateIn(data_->component, index, ForRecord(temperatures, options.temperatureUnit, curve),
             options.order, result);
  shown.Convert(result.values);
  double const factor =
      shown.Step() * std::pow(StepOfRecord(options.temperatureUnit, curve), options.order);
  for (double& derivative : result.derivatives) derivative *= factor;
  return result;
}

}  // namespace zel::desk

// Correlations that are called with temperatures.
#include "curves.h"

#include <cstdint>
#include <limits>
#include <memory>
#include <tuple>

namespace zelpython {
namespace {

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

zel::zelBatchModes ModeNamed(std::string const& word) {
  if (word == "exact") return zel::batchExact;
  if (word == "vector") return zel::batchVector;
  throw desk::UnknownWord("", "mode is \"exact\" or \"vector\", not \"" + word + "\"");
}

template <typename T>
py::array_t<T> LikeThe(Doubles const& other) {
  return py::array_t<T>(std::vector<py::ssize_t>(other.shape(), other.shape() + other.ndim()));
}

// An array as it is; the value of an array without dimensions.
template <typename T>
py::object ArrayOrValue(py::array_t<T> const& array) {
  if (array.ndim() == 0) return py::cast(*array.data());
  return array;
}

// A field of a record, as Python passes it; its default if the record does not have it.
template <typename T>
void Take(py::dict const& record, char const* name, T& field) {
  if (record.contains(name) && !record[name].is_none()) field = record[name].cast<T>();
}

double OrNan(double value) { return zel::gen_IsUndefDouble(value) ? kNan : value; }
double OrUndefined(double value) { return value == value ? value : zel::gen_GetUndefDouble(); }

}  // namespace

Curve::Curve(desk::Component const& component, std::uint32_t index)
    : evaluator_(component, static_cast<zel::Correlation>(index)),
      component_(component),
      index_(index) {}

Curve::Curve(zel::ZelCorrelation const& correlation)
    : evaluator_(correlation), index_(correlation.index) {}

desk::Evaluator const& Curve::EvaluatorFor(desk::EvaluationOptions const& options) {
  auto const key = std::make_tuple(options.unit, options.temperatureUnit, options.order);
  auto at = others_.find(key);
  if (at == others_.end()) {
    desk::Evaluator const made =
        component_ ? desk::Evaluator(*component_, static_cast<zel::Correlation>(index_), options)
                   : desk::Evaluator(*evaluator_.Detached(), options);
    at = others_.emplace(key, made).first;
  }
  return at->second;
}

py::object Curve::Call(Doubles const& temperatures, std::string const& unit,
                       std::string const& temperatureUnit, int order, bool status,
                       std::string const& mode) {
  if (order < 0 || order > 3) {
    throw desk::UnknownWord("", "order is 0 for the value, 1, 2 or 3 for that derivative, not " +
                                    std::to_string(order));
  }
  desk::Evaluator const evaluator = EvaluatorFor({unit, temperatureUnit, order == 0 ? 1 : order});
  py::array_t<double> const results = LikeThe<double>(temperatures);
  py::array_t<std::int32_t> statuses;
  desk::EvaluatorArrays arrays;
  arrays.count = static_cast<std::size_t>(temperatures.size());
  arrays.temperatures = temperatures.data();
  arrays.mode = ModeNamed(mode);
  double* const data = const_cast<double*>(results.data());
  (order == 0 ? arrays.values : arrays.derivatives) = data;
  if (status) {
    statuses = LikeThe<std::int32_t>(temperatures);
    arrays.statuses = statuses.mutable_data();
  }
  Unlocked([&] { evaluator.Evaluate(arrays); });
  if (!status) return ArrayOrValue(results);
  return py::make_tuple(ArrayOrValue(results), ArrayOrValue(statuses));
}

py::tuple Curve::Both(Doubles const& temperatures, std::string const& unit,
                      std::string const& temperatureUnit, int order, std::string const& mode) {
  desk::Evaluator const evaluator = EvaluatorFor({unit, temperatureUnit, order});
  py::array_t<double> values = LikeThe<double>(temperatures);
  py::array_t<double> derivatives = LikeThe<double>(temperatures);
  desk::EvaluatorArrays arrays;
  arrays.count = static_cast<std::size_t>(temperatures.size());
  arrays.temperatures = temperatures.data();
  arrays.mode = ModeNamed(mode);
  arrays.values = values.mutable_data();
  arrays.derivatives = derivatives.mutable_data();
  Unlocked([&] { evaluator.Evaluate(arrays); });
  return py::make_tuple(ArrayOrValue(values), ArrayOrValue(derivatives));
}

zel::ZelCorrelation const& Curve::Detached() const {
  zel::ZelCorrelation const* const record = evaluator_.Detached();
  if (record == nullptr) {
    throw desk::UnknownWord(
        "",
        "this equation evaluates other correlations of its component, so that it has no "
        "value by itself: call the correlation of the component instead");
  }
  return *record;
}

py::array_t<double> Curve::Sensitivities(Doubles const& temperatures) const {
  constexpr py::ssize_t kWeights = 15;
  zel::ZelCorrelation const record = Detached();
  py::array_t<double> all({temperatures.size(), kWeights});
  zel::ZelBatch batch;
  batch.count = temperatures.size();
  batch.temperatures = temperatures.data();
  batch.order = 11;
  batch.weights = all.mutable_data();
  std::fill_n(batch.weights, all.size(), kNan);
  double const factor = zel::FactorOf(record);
  Unlocked([&] {
    zel::EvaluateBatch(record, batch);
    for (py::ssize_t i = 0; i < batch.count * kWeights; ++i) batch.weights[i] *= factor;
    return 0;
  });
  return all;
}

py::dict RecordOf(zel::ZelCorrelation const& correlation) {
  py::dict record;
  record["index"] = correlation.index;
  record["equation"] = correlation.equation;
  py::list coefficients;
  for (std::int32_t i = 0; i < correlation.coefficientCount; ++i) {
    coefficients.append(correlation.coefficients[i]);
  }
  record["coefficients"] = coefficients;
  record["tempUnit"] = correlation.tempUnit;
  record["propUnit"] = correlation.propUnit;
  record["logBasis"] = correlation.logBasis;
  record["moleWtBasis"] = correlation.moleWtBasis;
  record["factor"] = correlation.factor;
  record["tMin"] = OrNan(correlation.tMin);
  record["tMax"] = OrNan(correlation.tMax);
  record["molecularWeight"] = OrNan(correlation.molecularWeight);
  record["criticalTemperature"] = OrNan(correlation.criticalTemperature);
  record["criticalPressure"] = OrNan(correlation.criticalPressure);
  record["boilingPoint"] = OrNan(correlation.boilingPoint);
  return record;
}

zel::ZelCorrelation CorrelationOf(py::dict const& record) {
  zel::ZelCorrelation correlation;
  Take(record, "index", correlation.index);
  Take(record, "equation", correlation.equation);
  std::vector<double> coefficients;
  Take(record, "coefficients", coefficients);
  if (coefficients.size() > std::size(correlation.coefficients)) {
    throw desk::UnknownWord("", "a correlation has at most 15 coefficients, not " +
                                    std::to_string(coefficients.size()));
  }
  std::copy(coefficients.begin(), coefficients.end(), correlation.coefficients);
  correlation.coefficientCount = static_cast<std::int32_t>(coefficients.size());
  Take(record, "tempUnit", correlation.tempUnit);
  Take(record, "propUnit", correlation.propUnit);
  Take(record, "logBasis", correlation.logBasis);
  Take(record, "moleWtBasis", correlation.moleWtBasis);
  Take(record, "factor", correlation.factor);
  for (auto const& [name, field] :
       {std::pair("tMin", &zel::ZelCorrelation::tMin),
        std::pair("tMax", &zel::ZelCorrelation::tMax),
        std::pair("molecularWeight", &zel::ZelCorrelation::molecularWeight),
        std::pair("criticalTemperature", &zel::ZelCorrelation::criticalTemperature),
        std::pair("criticalPressure", &zel::ZelCorrelation::criticalPressure),
        std::pair("boilingPoint", &zel::ZelCorrelation::boilingPoint)}) {
    double value = kNan;
    Take(record, name, value);
    correlation.*field = OrUndefined(value);
  }
  return correlation;
}

// Element i is correlation i at temperature i.
py::array_t<double> EvaluateEach(std::vector<Curve*> const& curves, Doubles const& temperatures) {
  if (static_cast<py::ssize_t>(curves.size()) != temperatures.size()) {
    throw desk::UnknownWord("", "there must be a temperature for each correlation");
  }
  std::vector<zel::ZelCorrelation> records;
  records.reserve(curves.size());
  for (Curve const* const curve : curves) records.push_back(curve->Detached());
  py::array_t<double> values = LikeThe<double>(temperatures);
  zel::ZelBatch batch;
  batch.count = temperatures.size();
  batch.temperatures = temperatures.data();
  batch.values = values.mutable_data();
  std::fill_n(batch.values, values.size(), kNan);
  Unlocked([&] { return zel::EvaluateEachCorrelation(records.data(), batch); });
  return values;
}

void AddCurves(py::module_& module) {
  py::class_<Curve>(module, "Curve")
      .def(py::init<desk::Component const&, std::uint32_t>(), py::arg("component"),
           py::arg("index"))
      .def(py::init([](py::dict const& record) {
             return std::make_unique<Curve>(CorrelationOf(record));
           }),
           py::arg("record"))
      .def("__call__", &Curve::Value, py::arg("temperature").noconvert(), py::pos_only())
      .def("__call__", &Curve::Call, py::arg("temperature"), py::arg("unit") = "",
           py::arg("temperature_unit") = "K", py::arg("order") = 0, py::arg("status") = false,
           py::arg("mode") = "exact")
      .def("both", &Curve::Both, py::arg("temperature"), py::arg("unit") = "",
           py::arg("temperature_unit") = "K", py::arg("order") = 1, py::arg("mode") = "exact")
      .def("sensitivities", &Curve::Sensitivities, py::arg("temperature"))
      .def("record", [](Curve const& curve) { return RecordOf(curve.Detached()); })
      .def_property_readonly("unit", [](Curve const& curve) { return StrOrNone(curve.Unit()); });
  module.def("evaluate_each", &EvaluateEach, py::arg("curves"), py::arg("temperatures"));
}

}  // namespace zelpython

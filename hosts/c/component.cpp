// Components: identity, constants, correlations and their values.
#include <zelaccess/DeskEvaluator.h>
#include <zelaccess/Verify.h>

#include <algorithm>

#include "search.h"

namespace desk = zel::desk;

struct zel_evaluator {
  desk::Evaluator evaluator;
};

using zelc::CopyText;
using zelc::Guarded;
using zelc::MakeHandle;
using zelc::Need;
using zelc::NeedText;
using zelc::Refusal;

namespace {

bool IsSameWord(std::string const& one, char const* other) {
  auto const upper = [](char letter) {
    return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
  };
  std::string const two = other;
  return std::equal(one.begin(), one.end(), two.begin(), two.end(),
                    [&](char a, char b) { return upper(a) == upper(b); });
}

zel::Constant ConstantNamed(char const* keyword) {
  std::string const word = NeedText(keyword, "keyword");
  std::int32_t count = 0;
  zel::ZelConstantInfo const* const rows = zel::GetConstantCatalogue(count);
  for (std::int32_t i = 0; i < count; ++i) {
    if (IsSameWord(word, rows[i].keyword)) return static_cast<zel::Constant>(rows[i].index);
  }
  throw Refusal(ZEL_UNKNOWN_WORD, "there is no constant \"" + word + "\"");
}

desk::ConstantValue ConstantOf(zel_component const* component, char const* keyword,
                               char const* unit) {
  std::optional<desk::ConstantValue> found =
      Need(component, "component")
          .component.Constant(ConstantNamed(keyword), zelc::TextOrEmpty(unit));
  if (!found) throw Refusal(ZEL_NO_VALUE, "the component has no ", keyword, "");
  return *std::move(found);
}

desk::CorrelationData CorrelationOf(zel_component const* component, char const* name) {
  auto const index = static_cast<zel::Correlation>(zelc::CorrelationNamed(name));
  std::optional<desk::CorrelationData> found =
      Need(component, "component").component.Correlation(index);
  if (!found) throw Refusal(ZEL_NO_VALUE, "the component has no ", name, "");
  return *std::move(found);
}

// A text about a constant or a correlation.
template <typename Datum>
std::string const& TextOf(Datum const& datum, std::int32_t which) {
  switch (which) {
    case ZEL_TEXT_UNIT: return datum.unit;
    case ZEL_TEXT_SOURCE: return datum.source;
    case ZEL_TEXT_CITATION: return datum.citation;
    case ZEL_TEXT_DOI: return datum.doi;
    default: throw Refusal(ZEL_BAD_ARGUMENT, "a datum has no such text");
  }
}

std::string const& TextOf(desk::Identity const& identity, std::int32_t which) {
  switch (which) {
    case ZEL_TEXT_NAME: return identity.name;
    case ZEL_TEXT_CAS: return identity.cas;
    case ZEL_TEXT_FORMULA: return identity.formula;
    default: throw Refusal(ZEL_BAD_ARGUMENT, "a component has no such text");
  }
}

desk::EvaluationOptions OptionsFor(zel_evaluation const* given) {
  zel_evaluation const evaluation = zelc::OptionsOf(given);
  desk::EvaluationOptions options;
  options.unit = zelc::TextOrEmpty(evaluation.unit);
  std::string const temperatures = zelc::TextOrEmpty(evaluation.temperature_unit);
  if (!temperatures.empty()) options.temperatureUnit = temperatures;
  if (evaluation.order != 0) options.order = evaluation.order;
  return options;
}

static_assert(zelc::Agree(ZEL_BATCH_EXACT, zel::batchExact) &&
                  zelc::Agree(ZEL_BATCH_VECTOR, zel::batchVector),
              "the numbers are passed on");

}  // namespace

std::uint32_t zelc::CorrelationNamed(char const* name) {
  std::string const word = NeedText(name, "name");
  std::int32_t count = 0;
  zel::ZelCorrelationInfo const* const rows = zel::GetCorrelationCatalogue(count);
  for (std::int32_t i = 0; i < count; ++i) {
    if (IsSameWord(word, rows[i].name)) return static_cast<std::uint32_t>(i);
  }
  throw Refusal(ZEL_UNKNOWN_WORD, "there is no correlation \"" + word + "\"");
}

zel_status zel_component_free(zel_component** component) {
  return zelc::EndHandle(component, "component");
}

zel_status zel_component_identity(zel_component const* component, zel_identity* identity) {
  return Guarded([&] {
    desk::Identity const found = Need(component, "component").component.Identity();
    Need(identity, "identity") = {found.number, found.refCode,
                                  static_cast<std::int32_t>(found.ids.size()),
                                  found.keepsFormula ? 1 : 0};
  });
}

zel_status zel_component_text(zel_component const* component, int32_t which, char* text,
                              size_t size, size_t* length) {
  return Guarded([&] {
    desk::Identity const found = Need(component, "component").component.Identity();
    CopyText(TextOf(found, which), text, size, length);
  });
}

zel_status zel_component_id(zel_component const* component, int32_t index, char* text, size_t size,
                            size_t* length) {
  return Guarded([&] {
    desk::Identity const found = Need(component, "component").component.Identity();
    if (index < 0 || static_cast<std::size_t>(index) >= found.ids.size()) {
      throw Refusal(ZEL_BAD_ARGUMENT, "there is no ID " + std::to_string(index) +
                                          " of a component that has " +
                                          std::to_string(found.ids.size()));
    }
    CopyText(found.ids[static_cast<std::size_t>(index)], text, size, length);
  });
}

zel_status zel_component_constant(zel_component const* component, char const* keyword,
                                  char const* unit, zel_constant* constant) {
  return Guarded([&] {
    desk::ConstantValue const found = ConstantOf(component, keyword, unit);
    Need(constant, "constant") = {found.value, found.state, found.code};
  });
}

zel_status zel_component_constant_text(zel_component const* component, char const* keyword,
                                       int32_t which, char* text, size_t size, size_t* length) {
  return Guarded([&] {
    CopyText(TextOf(ConstantOf(component, keyword, nullptr), which), text, size, length);
  });
}

zel_status zel_component_correlation(zel_component const* component, char const* name,
                                     zel_correlation* correlation) {
  return Guarded([&] {
    desk::CorrelationData const found = CorrelationOf(component, name);
    zel_correlation record = {};
    record.equation = found.equation;
    std::size_t const count = std::min(found.coefficients.size(), std::size(record.coefficients));
    record.coefficient_count = static_cast<std::int32_t>(count);
    std::copy_n(found.coefficients.begin(), count, record.coefficients);
    record.t_min = found.tMin.value_or(zelc::kNan);
    record.t_max = found.tMax.value_or(zelc::kNan);
    record.reference_code = found.code;
    Need(correlation, "correlation") = record;
  });
}

zel_status zel_component_correlation_text(zel_component const* component, char const* name,
                                          int32_t which, char* text, size_t size, size_t* length) {
  return Guarded(
      [&] { CopyText(TextOf(CorrelationOf(component, name), which), text, size, length); });
}

zel_status zel_evaluator_new(zel_component const* component, char const* name,
                             zel_evaluation const* evaluation, zel_evaluator** evaluator) {
  return MakeHandle(evaluator, "evaluator", [&] {
    auto const index = static_cast<zel::Correlation>(zelc::CorrelationNamed(name));
    return std::unique_ptr<zel_evaluator>(new zel_evaluator{
        desk::Evaluator(Need(component, "component").component, index, OptionsFor(evaluation))});
  });
}

zel_status zel_evaluator_free(zel_evaluator** evaluator) {
  return zelc::EndHandle(evaluator, "evaluator");
}

zel_status zel_evaluator_unit(zel_evaluator const* evaluator, char* text, size_t size,
                              size_t* length) {
  return Guarded(
      [&] { CopyText(Need(evaluator, "evaluator").evaluator.Unit(), text, size, length); });
}

zel_status zel_evaluator_value(zel_evaluator const* evaluator, double temperature, double* value) {
  return Guarded([&] {
    desk::Evaluator const& prepared = Need(evaluator, "evaluator").evaluator;
    Need(value, "value") = prepared.Value(temperature);
  });
}

zel_status zel_evaluator_batch(zel_evaluator const* evaluator, size_t count,
                               double const* temperatures, double* values, double* derivatives,
                               int32_t* ranges, int32_t batch) {
  return Guarded([&] {
    desk::Evaluator const& prepared = Need(evaluator, "evaluator").evaluator;
    desk::EvaluatorArrays arrays;
    arrays.count = count;
    arrays.temperatures = zelc::NeedArray(temperatures, count, "temperatures");
    arrays.values = values;
    arrays.derivatives = derivatives;
    arrays.statuses = ranges;
    arrays.mode = static_cast<zel::zelBatchModes>(
        zelc::NeedAmong(batch, ZEL_BATCH_EXACT, ZEL_BATCH_VECTOR, "batch"));
    prepared.Evaluate(arrays);
  });
}

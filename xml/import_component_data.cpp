// Constants and correlations of a component.
#include <algorithm>
#include <array>
#include <iterator>

#include "frame/ascii.h"
#include "frame/number_text.h"
#include "frame/units/unit_system.h"
#include "purecomp/tables.h"
#include "xml/code_words.h"
#include "xml/import_attributes.h"
#include "xml/import_component.h"
#include "xml/import_text.h"

namespace zel {

namespace {

enum PropertyAttribute : std::size_t { kPropertyName, kValue, kUom, kPropertyRefCode, kOfProperty };
constexpr std::array<NameRow, kOfProperty> kPropertyAttributes{{{"name", NameMode::kOnce},
                                                                {"value", NameMode::kOnce},
                                                                {"uom", NameMode::kOnce},
                                                                {"refcode", NameMode::kOnce}}};

// The attributes of a correlation are walked twice: first for its name, then for its values.
enum CorrelationAttribute : std::size_t {
  kName,
  kEquation,
  kTMin,
  kTMax,
  kRefCode,
  kTempUnit,
  kPropUnit,
  kLogBasis,
  kMoleWtBasis,
  kOfCorrelation
};
using CorrelationNames = std::array<NameRow, kOfCorrelation>;

constexpr CorrelationNames NamesOfPass(bool first) {
  NameMode const what = first ? NameMode::kOnce : NameMode::kSkip;
  NameMode const content = first ? NameMode::kSkip : NameMode::kOnce;
  return {{{"name", what},
           {"equation", what},
           {"tMin", content},
           {"tMax", content},
           {"refCode", content},
           {"tempUnit", content},
           {"propUnit", content},
           {"logBasis", content},
           {"moleWtBasis", content}}};
}
constexpr CorrelationNames kFirstPass = NamesOfPass(true);
constexpr CorrelationNames kSecondPass = NamesOfPass(false);

// Rows that only mark the end of a part of the table have no name; `name` is never empty here.
PropertyRow const* FindProperty(std::string_view name) {
  auto const row = std::find_if(std::begin(kPropertyRows), std::end(kPropertyRows),
                                [&](PropertyRow const& r) { return SameText(r.keyword, name); });
  return row == std::end(kPropertyRows) ? nullptr : row;
}

std::string RequiredText(bool first, bool second, std::string_view both, std::string_view one,
                         std::string_view other, std::string_view node) {
  std::string_view const what = !first && !second ? both : !first ? one : other;
  return std::string(what) + " required on the component <" + std::string(node) + "> node";
}

bool IsGiven(std::optional<std::string> const& value) { return value && !value->empty(); }

constexpr std::size_t kCoefficients = 15;

// One correlation, as in GetCorrelation and SetCorrelation.
struct CorrelationData {
  std::int32_t equation = 0;
  std::int32_t tempUnit = 0;
  std::int32_t propUnit = 0;
  std::int32_t logBasis = 0;
  std::int32_t basis = 0;
  std::int32_t count = 0;
  double tMin = gen_GetUndefDouble();
  double tMax = gen_GetUndefDouble();
  std::array<double, kCoefficients> coefficients;
  std::uint32_t refCode = 0;

  // The data that the component has, even if they are not a valid correlation yet.
  CorrelationData(IZelPureComp* component, std::uint32_t index) {
    coefficients.fill(gen_GetUndefDouble());
    double factor = 0.0;
    component->GetCorrelation(index, &equation, &tempUnit, &propUnit, &factor, &logBasis, &basis,
                              &count, &tMin, &tMax, coefficients.data());
    component->GetCorrelationRefCode(index, &refCode);
  }

  void TakeCoefficients(XmlNode node, TextChecks& checks) {
    Tokens tokens(node.Text());
    std::string_view token;
    std::size_t found = 0;
    while ((found < kCoefficients || checks.On()) && tokens.Next(token)) {
      if (found < kCoefficients) {
        coefficients[found] = checks.Real(node, token);
        ++count;
      }
      ++found;
    }
    checks.CheckCount(node, found, kCoefficients);
  }

  void Store(IZelPureComp* component, std::uint32_t index) const {
    component->SetCorrelation(index, equation, tempUnit, propUnit, logBasis, basis, count, tMin,
                              tMax, coefficients.data());
    component->SetCorrelationRefCode(index, refCode);
  }
};

// Reads one attribute in the second pass; returns the kind of word that was not understood, or
// nothing.
std::string_view TakeAttribute(std::size_t attribute, XmlNode node, std::string_view value,
                               std::string_view dimension, ImportRun& run, CorrelationData& data) {
  switch (attribute) {
    case kTMin: data.tMin = run.texts.Real(node, value, "tMin"); return {};
    case kTMax: data.tMax = run.texts.Real(node, value, "tMax"); return {};
    case kRefCode:
      data.refCode = static_cast<std::uint32_t>(run.texts.Int(node, value, "refCode"));
      return {};
    case kTempUnit: return TakeCode(kTempUnitWords, value, data.tempUnit) ? "" : "temperature unit";
    case kPropUnit:
      data.propUnit = run.unitWords.CodeOf(dimension, value);
      return data.propUnit != 0 ? "" : "property unit";
    case kLogBasis: return TakeCode(kLogBasisWords, value, data.logBasis) ? "" : "log form";
    default: return TakeCode(kBasisWords, value, data.basis) ? "" : "basis";
  }
}

}  // namespace

Verdict ComponentImport::ReadProperty(XmlNode node) {
  ImportIterator_i walk =
      ImportIterator_i::OverAttributes(run_, node, kPropertyAttributes, "component <property>");
  AttributeValues<kOfProperty> values;
  if (TakeAttributes(walk, values) == Verdict::kStop) return Verdict::kStop;
  bool const hasName = IsGiven(values[kPropertyName]);
  bool const hasValue = IsGiven(values[kValue]);
  if (!hasName || !hasValue) {
    return Report(RequiredText(hasName, hasValue, "A property name and value are",
                               "A property name is", "A property value is", "property"));
  }
  std::string const& name = *values[kPropertyName];
  PropertyRow const* row = FindProperty(name);
  if (row == nullptr) return Unrecognized("property", name);
  double value = run_.texts.Real(node, *values[kValue], "value");
  if (!row->dimension.empty() && IsGiven(values[kUom])) {
    std::string const dimension(row->dimension);
    if (!ConvertToInternal(dimension.c_str(), values[kUom]->c_str(), value)) {
      return Unrecognized("unit of measure", *values[kUom], "property", name);
    }
  }
  auto const index = static_cast<std::uint32_t>(row->index);
  std::int32_t const refCode =
      values[kPropertyRefCode] ? run_.texts.Int(node, *values[kPropertyRefCode], "refCode") : 0;
  CheckFirst(node, "property", index, row->keyword);
  if (run_.texts.Refused()) return run_.texts.LastVerdict();
  component_->SetProperty(index, value);
  component_->SetPropertyRefCode(index, static_cast<std::uint32_t>(refCode));
  return Verdict::kGoOn;
}

// A second element of one correlation adds to the count of coefficients, but its own coefficients
// replace the first ones from the start.
Verdict ComponentImport::ReadCorrelation(XmlNode node) {
  ImportIterator_i walk =
      ImportIterator_i::OverAttributes(run_, node, kFirstPass, "component <correlation>");
  AttributeValues<kOfCorrelation> values;
  if (TakeAttributes(walk, values) == Verdict::kStop) return Verdict::kStop;
  bool const hasName = IsGiven(values[kName]);
  bool const hasEquation = IsGiven(values[kEquation]);
  if (!hasName || !hasEquation) {
    return Report(RequiredText(hasName, hasEquation, "A correlation name and equation number are",
                               "A correlation name is", "An equation number is", "correlation"));
  }
  std::string const& name = *values[kName];
  auto const row = std::find_if(std::begin(kCorrelationRows), std::end(kCorrelationRows),
                                [&](CorrelationRow const& r) { return SameText(r.name, name); });
  if (row == std::end(kCorrelationRows)) return Unrecognized("correlation", name);
  auto const index = static_cast<std::uint32_t>(row - std::begin(kCorrelationRows));
  CorrelationData data(component_.Get(), index);
  data.equation = run_.texts.Int(node, *values[kEquation], "equation");

  if (run_.texts.Ended()) return Verdict::kStop;
  walk.ResetWalk(kSecondPass);
  XmlNode attribute;
  std::size_t match = 0;
  while (walk.NextNode(attribute, match)) {
    std::string_view const value = attribute.Value();
    std::string_view const unknown = TakeAttribute(match, node, value, row->dimension, run_, data);
    if (!unknown.empty()) return Unrecognized(unknown, value, "correlation", name);
    if (run_.texts.Ended()) return Verdict::kStop;
  }
  if (walk.Aborted()) return Verdict::kStop;
  data.TakeCoefficients(node, run_.texts);
  CheckFirst(node, "correlation", index, row->name);
  if (run_.texts.Refused()) return run_.texts.LastVerdict();
  data.Store(component_.Get(), index);
  return Verdict::kGoOn;
}

}  // namespace zel

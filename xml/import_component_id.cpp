// The identity of a component.
#include <array>

#include "frame/ascii.h"
#include "frame/number_text.h"
#include "maint/component_identity.h"
#include "purecomp/formula.h"
#include "xml/import_attributes.h"
#include "xml/import_component.h"
#include "xml/import_text.h"

namespace zel {

namespace {

enum IdAttribute : std::size_t {
  kNumber,
  kName,
  kFormula,
  kCasNum,
  kRefCode,
  kKeepFormula,
  kCount
};
constexpr std::array<NameRow, kCount> kIdAttributes{{{"number", NameMode::kOnce},
                                                     {"name", NameMode::kOnce},
                                                     {"formula", NameMode::kOnce},
                                                     {"casNum", NameMode::kOnce},
                                                     {"refCode", NameMode::kOnce},
                                                     {"keepFormula", NameMode::kOnce}}};
constexpr std::size_t kLongestNumber = 8;

bool IsFormula(std::string_view formula) {
  constexpr std::size_t kSlots = 20;
  std::array<ElementSymbol, kSlots> elements{};
  std::array<std::int32_t, kSlots> counts{};
  std::int32_t found = 0;
  return CountElements(formula, {elements, counts, 0}, found);
}

// Reads the attributes and the text, but not the number.
void Take(XmlNode node, AttributeValues<kCount> const& values, TextChecks& checks,
          ComponentIdentity& identity) {
  if (values[kName]) {
    checks.CheckText(node, *values[kName], sizeof identity.name, "name");
    CopyText(*values[kName], identity.name, sizeof identity.name);
  }
  if (values[kFormula]) {
    checks.CheckText(node, *values[kFormula], sizeof identity.formula, "formula");
    CopyText(*values[kFormula], identity.formula, sizeof identity.formula);
  }
  if (values[kRefCode]) identity.refCode = checks.Int(node, *values[kRefCode], "refCode");
  if (values[kKeepFormula]) identity.keepFormula = 1;  // whatever its value
  if (values[kNumber]) identity.number = checks.Int(node, *values[kNumber], "number");
  if (values[kCasNum]) {
    identity.casNumber =
        static_cast<std::int32_t>(static_cast<long>(casn(values[kCasNum]->c_str())));
  }
  Tokens tokens(node.Text());
  std::string_view token;
  std::size_t found = 0;
  while ((found < ComponentIdentity::kIds || checks.On()) && tokens.Next(token)) {
    if (found < ComponentIdentity::kIds) {
      checks.CheckText(node, token, ComponentIdentity::kIdSize);
      CopyText(token, identity.ids[found], ComponentIdentity::kIdSize);
    }
    ++found;
  }
  checks.CheckCount(node, found, ComponentIdentity::kIds);
}

std::string MissingText(bool number, bool id) {
  std::string_view const what = !number && !id ? "A library number and at least one library ID are"
                                : !number      ? "A library number is"
                                               : "At least one library ID is";
  return std::string(what) + " required on the component <id> node";
}

}  // namespace

Verdict ComponentImport::ReadIdentity(XmlNode node) {
  ImportIterator_i walk =
      ImportIterator_i::OverAttributes(run_, node, kIdAttributes, "component <id>");
  AttributeValues<kCount> values;
  if (TakeAttributes(walk, values) == Verdict::kStop) return Verdict::kStop;
  ComponentIdentity identity(component_.Get());
  Take(node, values, run_.texts, identity);
  if (run_.texts.Ended()) return Verdict::kStop;

  bool const hasId = identity.ids[0][0] != '\0';
  if (!values[kNumber] || !hasId) return Report(MissingText(values[kNumber].has_value(), hasId));
  if (values[kNumber]->size() > kLongestNumber) {
    return Report("Ordwin Id or Libary Number is exceeding more than 8 digits for the component " +
                  std::string(identity.name));
  }
  run_.log.SetItemLabel("Component \"" + std::string(identity.ids[0]) + "\" (" + *values[kNumber] +
                        ")");
  bool const badCas = values[kCasNum] && !values[kCasNum]->empty() && identity.casNumber == 0;
  if (badCas && Report("CAS number \"" + *values[kCasNum] + "\" is invalid") == Verdict::kStop)
    return Verdict::kStop;
  if (checksFormulas_ && !IsFormula(identity.formula) &&
      Report("Chemical formula \"" + std::string(identity.formula) + "\" is invalid") ==
          Verdict::kStop) {
    return Verdict::kStop;
  }
  component_->SetIdentity(identity.number, identity.casNumber, identity.refCode, identity.ids,
                          identity.name, identity.formula, identity.keepFormula);
  number_ = identity.number;
  identityRefused_ = run_.texts.Refused();
  return Verdict::kGoOn;
}

}  // namespace zel

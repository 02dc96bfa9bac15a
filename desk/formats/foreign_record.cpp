#include "desk/formats/foreign_record.h"

#include <algorithm>
#include <map>
#include <sstream>

#include "desk/files/plain_input.h"
#include "desk/formats/foreign_units.h"
#include "desk/open/storable.h"
#include "desk/words/failure.h"

namespace zel::desk {
namespace {

constexpr std::size_t kNameLength = 40;
constexpr std::size_t kFormulaLength = 20;
constexpr std::size_t kSmilesLength = 100;
constexpr std::streamoff kMostBytes = 256 << 20;

bool CanBeStored(std::string const& text, DocumentPlace place) {
  try {
    CheckLetters(text, "");
    CheckDocument(text, place, "");
    return true;
  } catch (Failure const&) {
    return false;
  }
}

// A letter that a name can have, for one that it cannot.
char Replacement(char letter) {
  if (letter == '[' || letter == '{') return '(';
  if (letter == ']' || letter == '}') return ')';
  return '?';
}

// The atoms of a formula without parentheses by element; empty if it is not one.
std::map<std::string, long> Atoms(std::string const& text) {
  std::map<std::string, long> atoms;
  std::size_t at = 0;
  auto const isLower = [](char c) { return c >= 'a' && c <= 'z'; };
  auto const isDigit = [](char c) { return c >= '0' && c <= '9'; };
  while (at < text.size()) {
    if (text[at] < 'A' || text[at] > 'Z') return {};
    std::string element(1, text[at++]);
    if (at < text.size() && isLower(text[at])) element += text[at++];
    long count = 0;
    for (; at < text.size() && isDigit(text[at]) && count < 100000; ++at) {
      count = 10 * count + (text[at] - '0');
    }
    bool const hasCount = at > 0 && isDigit(text[at - 1]);
    if (hasCount && (count == 0 || count >= 100000)) return {};
    atoms[element] += hasCount ? count : 1;
  }
  return atoms;
}

// Carbon and hydrogen first, the others by letter; all by letter without carbon.
std::string HillFormula(std::map<std::string, long> const& atoms) {
  std::string formula;
  auto const put = [&](std::string const& element, long count) {
    formula += element + (count == 1 ? "" : std::to_string(count));
  };
  bool const isOrganic = atoms.count("C") != 0;
  for (char const* first : {"C", "H"}) {
    if (isOrganic && atoms.count(first) != 0) put(first, atoms.at(first));
  }
  for (auto const& [element, count] : atoms) {
    if (!isOrganic || (element != "C" && element != "H")) put(element, count);
  }
  return formula;
}

}  // namespace

char const* ToText(Fate fate) {
  switch (fate) {
    case Fate::kTaken: return "taken";
    case Fate::kConverted: return "converted";
    case Fate::kNoPlace: return "no place";
    default: return "refused";
  }
}

std::size_t ForeignComponent::Note(std::size_t at, std::string const& tag, Fate fate,
                                   std::string const& datum, std::string const& what) {
  data.push_back({at, tag, fate, datum, what});
  return data.size() - 1;
}

void AddConstant(ForeignComponent& component, std::string const& keyword,
                 ForeignNumber const& number) {
  zel::ZelConstantInfo const* const info = FindConstant(keyword);
  std::size_t const origin = component.Note(number.line, number.tag, Fate::kTaken, keyword);
  ForeignDatum& datum = component.data[origin];
  bool const isThere = std::any_of(component.constants.begin(), component.constants.end(),
                                   [&](ForeignConstant const& one) { return one.info == info; });
  try {
    if (isThere) throw Failure("a second value of " + keyword);
    bool const hasUnit = *info->unit == '\0' || !UnitWord(number.unit).empty() || keyword == "MW";
    if (!hasUnit) {
      datum.fate = Fate::kNoPlace;
      datum.what = kNoUnit;
      return;
    }
    bool isSame = false;
    double const value = InternalValue(number.text, number.unit, info->unit, keyword, isSame);
    component.constants.push_back({info, value, origin});
    if (isSame) return;
    datum.fate = Fate::kConverted;
    datum.what = number.text + " " + number.unit + " is " + Digits(value) +
                 (*info->unit == '\0' ? "" : " " + std::string(info->unit));
  } catch (std::runtime_error const& error) {
    datum.fate = Fate::kRefused;
    datum.what = error.what();
  }
}

void SetName(ForeignComponent& component, std::size_t line, std::string const& tag,
             std::string const& text) {
  std::string name;
  for (std::size_t i = 0; i < text.size(); ++i) {
    // Of a letter of several bytes, the first is replaced and the others are left out.
    bool const isRest = (static_cast<unsigned char>(text[i]) & 0xC0U) == 0x80U;
    if (isRest) continue;
    std::string const one(1, text[i]);
    bool const isGood = CanBeStored(one, DocumentPlace::kAttribute);
    name += isGood ? text[i] : Replacement(text[i]);
  }
  name = name.substr(0, kNameLength);
  component.name = name;
  bool const isSame = name == text;
  component.Note(line, tag, isSame ? Fate::kTaken : Fate::kConverted, "name",
                 isSame ? "" : "is \"" + name + "\"");
}

std::string FormulaOfElements(std::string const& text) {
  std::string const formula = HillFormula(Atoms(text));
  bool const isKnown = !zel::gen_IsUndefDouble(zel::GetFormulaWeight(formula.c_str()));
  return isKnown ? formula : "";
}

void SetFormula(ForeignComponent& component, std::size_t line, std::string const& tag,
                std::string const& text) {
  std::string const formula = FormulaOfElements(text);
  if (formula.empty()) {
    component.Note(line, tag, Fate::kNoPlace, "formula",
                   "it is not a formula of elements and counts");
  } else if (formula.size() > kFormulaLength) {
    component.Note(line, tag, Fate::kNoPlace, "formula", "it is longer than 20 characters");
  } else {
    component.formula = formula;
    component.Note(line, tag, formula == text ? Fate::kTaken : Fate::kConverted, "formula",
                   formula == text ? "" : text + " is " + formula);
  }
}

void SetSmiles(ForeignComponent& component, std::size_t line, std::string const& tag,
               std::string const& text) {
  bool const fits = text.size() <= kSmilesLength && CanBeStored(text, DocumentPlace::kElement);
  if (fits) component.smiles = text;
  component.Note(line, tag, fits ? Fate::kTaken : Fate::kNoPlace, "SMILES",
                 fits ? "" : "it is too long or has characters that a library does not have");
}

void SetCas(ForeignComponent& component, std::size_t line, std::string const& tag,
            std::string const& text) {
  bool const isGood = static_cast<long>(zel::casn(text.c_str())) != 0;
  if (isGood) component.cas = text;
  component.Note(
      line, tag, isGood ? Fate::kTaken : Fate::kRefused, "CAS number",
      isGood ? "" : "\"" + text + "\" is not a CAS number: its form or check digit is wrong");
}

std::string ForeignText(std::string const& path) {
  std::ifstream file = OpenPlainInput(path);
  file.seekg(0, std::ios::end);
  if (file.tellg() > kMostBytes) throw Failure(path + ": is larger than 256 MB");
  file.seekg(0);
  std::ostringstream text;
  text << file.rdbuf();
  if (file.bad()) throw Failure(path + ": cannot be read");
  return text.str();
}

}  // namespace zel::desk

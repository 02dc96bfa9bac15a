#include "frame/units/unit_binder.h"

#include <algorithm>
#include <cstdlib>

#include "frame/ascii.h"
#include "frame/units/class_definition.h"
#include "frame/units/unit_match.h"

namespace zel {
namespace {

using Error = UnitTableError;

// The longest chain of definitions that refer to each other.
constexpr int kMostDepth = 64;

// Classes that the library's own words and the custom classes need beyond the lists of the table.
// Specific quantities are per mass; whether a mole or a mass is meant is stated with the value.
struct BuiltInClass {
  char const* name;
  char const* definition;
  std::vector<std::string> units;
};
std::vector<BuiltInClass> const& BuiltInClasses() {
  static std::vector<BuiltInClass> const classes = {
      {"Length", "Leng", {}},
      {"Pressure", "Pres", {}},
      {"Density", "Mass / Vol", {}},
      {"VaporDensity", "Mass / Vol", {}},
      {"PetroDensity", "Mass / Vol", {"spgr", "API"}},
      {"SpVol", "Vol / Mass", {}},
      {"VapSpVol", "Vol / Mass", {}},
      {"MolarVolume", "Vol / Mole", {}},
      {"SpEnthalpy", "Energy / Mass", {}},
      {"SpEntropy", "Energy / TempDiff Mass", {}},
  };
  return classes;
}

// True for classes of differences, for which the zero of a unit does not matter.
bool IsDifference(std::string_view name) {
  return SameText(name, "TempDiff") || SameText(name, "PresDiff");
}

}  // namespace

Error UnitBinder::Bind() {
  std::vector<UnitRow> const& rows = catalogue_.table_.units;
  for (std::size_t i = 0; i < rows.size(); ++i) {
    rowsOfText_[rows[i].text].push_back(static_cast<int>(i));
  }
  Error error = AddLists();
  if (error == Error::kNone) error = AddCustomClasses();
  if (error != Error::kNone) return error;
  AddBuiltInClasses();
  for (std::size_t i = 0; i < catalogue_.classes_.size() && error == Error::kNone; ++i) {
    error = BindClass(static_cast<int>(i), 0);
  }
  for (UnitList const& list : catalogue_.table_.commonLists) {
    std::vector<int> unused;
    if (error == Error::kNone) error = BindRows(list.units, unused);
  }
  if (error == Error::kNone) error = CheckBasis();
  return error == Error::kNone ? BindSlates() : error;
}

Error UnitBinder::AddClass(std::string const& name, Class*& added) {
  int const next = static_cast<int>(catalogue_.classes_.size());
  if (!catalogue_.classOfName_.emplace(LowerText(name), next).second) return Error::kDuplicate;
  added = &catalogue_.classes_.emplace_back();
  added->name = name;
  added->isDifference = IsDifference(name);
  added->same = next;
  return Error::kNone;
}

Error UnitBinder::AddLists() {
  for (UnitList const& list : catalogue_.table_.lists) {
    Class* added = nullptr;
    Error error = AddClass(list.name, added);
    if (error == Error::kNone) error = BindRows(list.units, added->rows);
    if (error != Error::kNone) return error;
  }
  return Error::kNone;
}

Error UnitBinder::BindRows(std::vector<std::string> const& texts, std::vector<int>& rows) const {
  int anchor = 0;
  for (auto text = texts.rbegin(); text != texts.rend(); ++text) {
    auto const found = rowsOfText_.find(*text);
    if (found == rowsOfText_.end()) return Error::kUnknownUnit;
    if (found->second.size() == 1) anchor = found->second.front();
  }
  std::vector<bool> taken(catalogue_.table_.units.size(), false);
  for (std::string const& text : texts) {
    std::vector<int> const& found = rowsOfText_.find(text)->second;
    int const row = *std::min_element(found.begin(), found.end(), [anchor](int a, int b) {
      return std::abs(a - anchor) < std::abs(b - anchor);
    });
    if (taken[static_cast<std::size_t>(row)]) return Error::kDuplicate;
    taken[static_cast<std::size_t>(row)] = true;
    rows.push_back(row);
  }
  return Error::kNone;
}

Error UnitBinder::AddCustomClasses() {
  for (CustomClass const& custom : catalogue_.table_.classes) {
    int const known = catalogue_.FindClass(custom.name);
    Class* added = nullptr;
    if (known >= 0) {
      added = &ClassAt(known);
      if (added->rows.empty() || !added->definition.empty()) return Error::kDuplicate;
      // A class defined by its own name is the list of that name.
      if (SameText(custom.definition, custom.name)) continue;
    } else {
      Error const error = AddClass(custom.name, added);
      if (error != Error::kNone) return error;
    }
    added->definition = custom.definition;
  }
  return Error::kNone;
}

void UnitBinder::AddBuiltInClasses() {
  for (BuiltInClass const& builtIn : BuiltInClasses()) {
    Class* added = nullptr;
    if (AddClass(builtIn.name, added) != Error::kNone) continue;  // the table has its own
    added->definition = builtIn.definition;
    added->builtIn = true;
    for (std::string const& unit : builtIn.units) {
      auto const found = rowsOfText_.find(unit);
      if (found != rowsOfText_.end()) added->rows.push_back(found->second.front());
    }
  }
}

Error UnitBinder::BindClass(int unitClass, int depth) {
  Class& bound = ClassAt(unitClass);
  if (bound.state == Class::State::kBinding) return Error::kCyclicClasses;
  if (bound.state != Class::State::kOpen) return Error::kNone;
  if (depth > kMostDepth) return Error::kTooComplex;
  bound.state = Class::State::kBinding;
  Error const error = bound.definition.empty() ? Error::kNone : BindDefinition(unitClass, depth);
  bool const absent = bound.builtIn && error == Error::kUnknownClass;
  bound.state = absent ? Class::State::kAbsent : Class::State::kBound;
  return absent ? Error::kNone : error;
}

Error UnitBinder::BindDefinition(int unitClass, int depth) {
  Class& bound = ClassAt(unitClass);
  std::vector<DefinitionFactor> names;
  if (!ReadDefinition(bound.definition, names)) return Error::kDefinition;
  std::vector<Factor> factors;
  for (DefinitionFactor const& name : names) {
    Error const error = AddFactor(name.name, name.above, depth, factors);
    if (error != Error::kNone) return error;
  }
  int exponent = 1;
  int const only = names.size() == 1 ? FactorClass(names.front().name, exponent) : -1;
  if (only >= 0 && exponent == 1 && names.front().above && bound.rows.empty()) {
    Class const& other = ClassAt(only);
    bound.rows = other.rows;
    bound.factors = other.factors;
    bound.isDifference = other.isDifference;
    bound.same = other.same;
    return Error::kNone;
  }
  bound.factors = std::move(factors);
  return Error::kNone;
}

int UnitBinder::FactorClass(std::string_view name, int& exponent) const {
  exponent = 1;
  int const found = catalogue_.FindClass(name);
  if (found >= 0 || name.size() < 2) return found;
  char const digit = name.back();
  if (digit < '1' || digit > '9') return -1;
  exponent = digit - '0';
  return catalogue_.FindClass(name.substr(0, name.size() - 1));
}

Error UnitBinder::AddFactor(std::string_view name, bool above, int depth,
                            std::vector<Factor>& factors) {
  int exponent = 1;
  int const found = FactorClass(name, exponent);
  if (found < 0) return Error::kUnknownClass;
  Error const error = BindClass(found, depth + 1);
  if (error != Error::kNone) return error;
  Class const& other = ClassAt(found);
  if (other.state == Class::State::kAbsent) return Error::kUnknownClass;
  if (!above) exponent = -exponent;
  if (!other.rows.empty()) {
    factors.push_back({found, exponent});
  } else {
    for (Factor const& factor : other.factors) {
      factors.push_back({factor.unitClass, factor.exponent * exponent});
    }
  }
  bool const tooHigh = std::any_of(factors.begin(), factors.end(), [](Factor const& factor) {
    return std::abs(factor.exponent) > kMostExponent;
  });
  bool const tooMany = factors.size() > static_cast<std::size_t>(kMostFactors);
  return tooHigh || tooMany ? Error::kDefinition : Error::kNone;
}

Error UnitBinder::CheckBasis() const {
  for (UnitList const& list : catalogue_.table_.lists) {
    if (!SameText(list.name, "Basis")) continue;
    for (std::string const& unit : list.units) {
      if (catalogue_.FindClass(unit) < 0) return Error::kBasis;
    }
  }
  return Error::kNone;
}

Error UnitBinder::BindSlates() {
  std::vector<UnitSlate> const& slates = catalogue_.table_.slates;
  for (std::size_t i = 0; i < slates.size(); ++i) {
    std::string const name = LowerText(slates[i].name);
    if (!catalogue_.slateOfName_.emplace(name, static_cast<int>(i)).second) {
      return Error::kDuplicate;
    }
  }
  if (catalogue_.slateOfName_.count("qrinternal") == 0) return Error::kNoInternalSlate;
  catalogue_.slateUnits_.resize(slates.size());
  slateStates_.resize(slates.size(), SlateState::kOpen);
  for (std::size_t i = 0; i < slates.size(); ++i) {
    Error const error = OwnUnits(slates[i], catalogue_.slateUnits_[i]);
    if (error != Error::kNone) return error;
  }
  for (std::size_t i = 0; i < slates.size(); ++i) {
    Error const error = Inherit(i);
    if (error != Error::kNone) return error;
  }
  return Error::kNone;
}

Error UnitBinder::OwnUnits(UnitSlate const& slate, std::vector<UnitChoice>& units) {
  units.resize(catalogue_.classes_.size());
  for (auto const& [name, text] : slate.units) {
    int const found = catalogue_.FindClass(name);
    if (found < 0) return Error::kUnknownClass;
    UnitChoice& unit = units[static_cast<std::size_t>(found)];
    if (!unit.rows.empty()) return Error::kDuplicate;
    bool const known = MatchUnit(catalogue_, found, text, UnitForm::kText, budget_, unit);
    if (budget_ < 0) return Error::kTooComplex;
    if (!known) return Error::kSlateUnit;
  }
  return Error::kNone;
}

Error UnitBinder::Inherit(std::size_t slate) {
  if (slateStates_[slate] == SlateState::kInheriting) return Error::kCyclicSlates;
  if (slateStates_[slate] == SlateState::kDone) return Error::kNone;
  slateStates_[slate] = SlateState::kInheriting;
  UnitSlate const& row = catalogue_.table_.slates[slate];
  for (std::string const& from : {row.copyFrom, row.parent}) {
    if (from.empty()) continue;
    auto const found = catalogue_.slateOfName_.find(LowerText(from));
    if (found == catalogue_.slateOfName_.end()) return Error::kUnknownSlate;
    auto const other = static_cast<std::size_t>(found->second);
    Error const error = Inherit(other);
    if (error != Error::kNone) return error;
    std::vector<UnitChoice>& units = catalogue_.slateUnits_[slate];
    for (std::size_t i = 0; i < units.size(); ++i) {
      if (units[i].rows.empty()) units[i] = catalogue_.slateUnits_[other][i];
    }
  }
  slateStates_[slate] = SlateState::kDone;
  return Error::kNone;
}

}  // namespace zel

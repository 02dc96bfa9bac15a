#include "desk/formats/foreign_identity.h"

#include <algorithm>

#include "desk/open/item_key.h"
#include "desk/words/failure.h"
#include "desk/words/letters.h"

namespace zel::desk {
namespace {

constexpr std::size_t kIdLength = 8;

bool IsDigitsOnly(std::string const& text) {
  return text.find_first_not_of("0123456789") == std::string::npos;
}

// The letters and digits of a name, and the signs of a charge at its end.
std::string PlainIdOf(std::string const& name, bool keepsCharge) {
  std::size_t const end = name.find_last_not_of("+-") + 1;
  std::string id;
  for (char const letter : UpperCase(name.substr(0, end))) {
    bool const isKept = (letter >= 'A' && letter <= 'Z') || (letter >= '0' && letter <= '9');
    if (isKept) id += letter;
  }
  if (id.empty()) return "";
  std::string const charge = keepsCharge ? name.substr(end).substr(0, kIdLength - 1) : "";
  id = id.substr(0, kIdLength - charge.size());
  if (IsDigitsOnly(id)) id = ("C" + id).substr(0, kIdLength - charge.size());
  return id + charge;
}

// The ID with a number at its end.
std::string Numbered(std::string const& id, int number, bool isFormula) {
  std::string const tail = (isFormula ? "#" : "") + std::to_string(number);
  std::string made = id.substr(0, kIdLength - tail.size()) + tail;
  if (IsDigitsOnly(made)) made = "C" + id.substr(0, kIdLength - 1 - tail.size()) + tail;
  return made;
}

}  // namespace

ForeignIdentities::ForeignIdentities(Library const& library, BankName bank, ForeignFile const& file)
    : library_(library), bank_(std::move(bank)), namesAreFormulas_(file.namesAreFormulas) {
  for (ForeignComponent const& one : file.components) {
    ++names_[UpperCase(one.name)];
    ids_.insert(PlainIdOf(one.name, namesAreFormulas_));
  }
  PureComponent const component;
  std::int32_t words[10] = {};
  library.Maint().BeginItemWalk(bank_.type.c_str(), bank_.name.c_str());
  while (library.Maint().NextItem(words, component.Def())) Add(component.ReadIdentity());
  library.Maint().EndItemWalk();
}

void ForeignIdentities::Add(Identity const& identity) {
  known_.insert({UpperCase(identity.name),
                 {identity.number, identity.name, FormulaOfElements(identity.formula)}});
}

bool ForeignIdentities::IsInLibrary(std::string const& word) const {
  PureComponent const component;
  Library const* const names = library_.InSession().names.get();
  for (Library const* library : {&library_, names}) {
    if (library == nullptr) continue;
    for (BankName const& bank : library->Banks(kPureType)) {
      if (ReadComponent(*library, bank, word, component)) return true;
    }
  }
  return false;
}

std::string ForeignIdentities::NumberOf(ForeignComponent const& component) const {
  PureComponent const found;
  if (!component.cas.empty()) {
    bool const isThere = ReadComponent(library_, bank_, component.cas, found);
    return isThere ? std::to_string(found.ReadIdentity().number) : "";
  }
  std::string const& name = component.name;
  std::string const upper = UpperCase(name);
  auto const isSameFormula = [&](std::string const& formula) {
    return !formula.empty() && formula == component.formula;
  };
  auto const differs = [&](std::string const& formula) {
    return !formula.empty() && !component.formula.empty() && formula != component.formula;
  };
  std::vector<Known const*> exact;
  std::vector<Known const*> alike;
  auto const [begin, end] = known_.equal_range(upper);
  for (auto at = begin; !name.empty() && at != end; ++at) {
    Known const& one = at->second;
    bool const isAlike = namesAreFormulas_ ? isSameFormula(one.formula) : !differs(one.formula);
    if (one.name == name) {
      exact.push_back(&one);
    } else if (isAlike) {
      alike.push_back(&one);
    }
  }
  std::vector<Known const*> const& all = exact.empty() ? alike : exact;
  if (all.size() > 1) {
    throw Failure(std::to_string(all.size()) + " components of the bank have the name " + name);
  }
  if (all.size() == 1) {
    std::string const& formula = all.front()->formula;
    if (!differs(formula)) return std::to_string(all.front()->number);
    throw Failure(name + " has the formula " + formula + " in the bank, not " + component.formula);
  }
  if (!MayBeName(name) || !IsIdForm(name) || !ReadComponent(library_, bank_, name, found)) {
    return "";
  }
  Identity const identity = found.ReadIdentity();
  bool const isMade =
      PlainIdOf(identity.name, true) == upper || PlainIdOf(identity.name, false) == upper;
  bool const isIt = isSameFormula(FormulaOfElements(identity.formula)) && !isMade;
  return isIt ? std::to_string(identity.number) : "";
}

bool ForeignIdentities::IsNameOfOther(std::string const& id,
                                      ForeignComponent const& component) const {
  auto const at = names_.find(id);
  if (at == names_.end()) return false;
  return UpperCase(component.name) != id || at->second > 1;
}

bool ForeignIdentities::IsWrongId(std::string const& id, ForeignComponent const& component) const {
  bool const isOther = namesAreFormulas_ && id != component.name && !FormulaOfElements(id).empty();
  return isOther || IsInLibrary(id);
}

std::string ForeignIdentities::NewIdFor(ForeignComponent const& component) const {
  std::string id = PlainIdOf(component.name, namesAreFormulas_);
  if (id.empty()) return "";
  bool const isTaken = id != component.name && IsNameOfOther(id, component);
  if (!isTaken && !IsWrongId(id, component)) return id;
  for (int i = 2;; ++i) {
    std::string made = Numbered(id, i, namesAreFormulas_);
    bool const isOfOther = IsNameOfOther(made, component) || ids_.count(made) != 0;
    if (!isOfOther && !IsWrongId(made, component)) return made;
  }
}

}  // namespace zel::desk

#include "desk/open/component_numbers.h"

#include <zelaccess/Casn.h>

#include <algorithm>
#include <optional>

#include "desk/open/identity_conflict.h"
#include "desk/open/item_key.h"
#include "desk/open/pure_component.h"
#include "desk/words/letters.h"

namespace zel::desk {
namespace {

constexpr std::int32_t kFirstOwnNumber = 21000000;

std::optional<zel::ZelIdentity> IdentityIn(Library const& library, std::string const& word) {
  PureComponent const component;
  for (BankName const& bank : library.Banks(kPureType)) {
    if (ReadComponent(library, bank, word, component)) return component.Compared();
  }
  return std::nullopt;
}

// The component of exactly this name.
std::optional<zel::ZelIdentity> NamedIn(Library const& library, std::string const& name) {
  std::optional<zel::ZelIdentity> found;
  for (BankName const& bank : library.Banks(kPureType)) {
    PureComponent const component;
    std::int32_t words[10] = {};
    library.Maint().BeginItemWalk(bank.type.c_str(), bank.name.c_str());
    while (!found && library.Maint().NextItem(words, component.Def())) {
      if (UpperCase(component.ReadIdentity().name) == UpperCase(name)) found = component.Compared();
    }
    library.Maint().EndItemWalk();
  }
  return found;
}

// The component of the library that is the same substance, by ID, CAS number or name.
std::optional<zel::ZelIdentity> SameIn(Library const& library, zel::ZelIdentity const& identity) {
  std::vector<std::string> words;
  for (char const* id : identity.ids) {
    if (*id != '\0') words.emplace_back(id);
  }
  if (identity.casNumber != 0) {
    words.emplace_back(static_cast<char const*>(zel::casn(identity.casNumber)));
  }
  for (std::string const& word : words) {
    auto const one = IdentityIn(library, word);
    if (one && AreOneSubstance(identity, *one)) return one;
  }
  if (*identity.name == '\0') return std::nullopt;
  auto const namesake = NamedIn(library, identity.name);
  return namesake && AreOneSubstance(identity, *namesake) ? namesake : std::nullopt;
}

struct Substance {
  std::optional<zel::ZelIdentity> meant;            // in the first library that has it
  std::vector<std::optional<zel::ZelIdentity>> in;  // in each library
  std::optional<zel::ZelIdentity> inNames;
};

Substance SubstanceOf(std::vector<Library> const& libraries, std::string const& word) {
  Substance one;
  for (Library const& library : libraries) {
    one.in.push_back(IdentityIn(library, word));
    if (!one.meant) one.meant = one.in.back();
  }
  if (!libraries.empty() && libraries.front().InSession().names) {
    Library const& names = *libraries.front().InSession().names;
    one.inNames = one.meant ? SameIn(names, *one.meant) : IdentityIn(names, word);
    if (!one.meant) one.meant = one.inNames;
  }
  for (std::size_t i = 0; one.meant && i < libraries.size(); ++i) {
    bool const isIt = one.in[i] && AreOneSubstance(*one.meant, *one.in[i]);
    if (!isIt) one.in[i] = SameIn(libraries[i], *one.meant);
  }
  return one;
}

// The numbers of all libraries, each once, published ones first.
std::vector<std::int32_t> CommonNumbers(Substance const& substance) {
  std::vector<std::optional<zel::ZelIdentity>> all = substance.in;
  all.push_back(substance.inNames);
  std::vector<std::int32_t> numbers;
  for (auto const& one : all) {
    if (!one || std::count(numbers.begin(), numbers.end(), one->number) != 0) continue;
    numbers.push_back(one->number);
  }
  std::stable_partition(numbers.begin(), numbers.end(),
                        [](std::int32_t number) { return number < kFirstOwnNumber; });
  return numbers;
}

}  // namespace

ComponentNumbers NumbersOf(std::vector<Library> const& libraries, std::string const& word) {
  Substance const substance = SubstanceOf(libraries, word);
  ComponentNumbers numbers;
  numbers.isKnown = substance.meant.has_value();
  numbers.shown =
      numbers.isKnown && substance.meant->ids[0][0] != '\0' ? substance.meant->ids[0] : word;
  std::vector<std::int32_t> common = CommonNumbers(substance);
  ComponentWord const parsed = ParseComponent(word);
  auto const* const number = std::get_if<long>(&parsed);
  if (!numbers.isKnown && number != nullptr) common = {static_cast<std::int32_t>(*number)};
  numbers.inLibraries.resize(libraries.size());
  for (std::size_t i = 0; i < libraries.size(); ++i) {
    if (substance.in[i]) {
      numbers.inLibraries[i] = {substance.in[i]->number};
      continue;
    }
    for (std::int32_t const one : common) {
      auto const own = IdentityIn(libraries[i], std::to_string(one));
      if (!own || AreOneSubstance(*substance.meant, *own)) numbers.inLibraries[i].push_back(one);
    }
  }
  return numbers;
}

}  // namespace zel::desk

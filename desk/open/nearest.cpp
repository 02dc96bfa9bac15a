#include "desk/open/nearest.h"

#include <cstdint>
#include <optional>

#include "desk/open/pure_component.h"
#include "desk/words/letters.h"
#include "desk/words/nearest_word.h"

namespace zel::desk {
namespace {

bool IsNumber(std::string const& word) {
  return word.find_first_not_of("0123456789") == std::string::npos;
}

bool IsCas(std::string const& word) {
  return word.find('-') != std::string::npos &&
         word.find_first_not_of("0123456789-") == std::string::npos;
}

// The texts that a word of this form is compared with.
std::vector<std::string> NamesLike(std::string const& word, Identity const& identity) {
  if (IsNumber(word)) return {std::to_string(identity.number)};
  if (IsCas(word)) return {identity.cas};
  std::vector<std::string> names = identity.ids;
  names.push_back(UpperCase(identity.name));
  return names;
}

// "NBUTANE (Butane)"; for a number or a CAS number, the parentheses show that of the component.
std::string Described(std::string const& word, Identity const& identity) {
  std::string text = identity.ids.empty() ? std::to_string(identity.number) : identity.FirstId();
  if (IsCas(word)) return text + " (" + identity.cas + ")";
  if (IsNumber(word)) return text + " (" + std::to_string(identity.number) + ")";
  return text + (identity.name.empty() ? "" : " (" + identity.name + ")");
}

}  // namespace

ComponentBanks BanksKnownTo(Library const& library) {
  ComponentBanks banks;
  for (Library const* one :
       {&library, static_cast<Library const*>(library.InSession().names.get())}) {
    if (one == nullptr) continue;
    for (BankName const& bank : one->Banks(kPureType)) banks.emplace_back(one, bank);
  }
  return banks;
}

std::string NearestTo(std::string const& word, ComponentBanks const& banks) {
  std::string const wanted = UpperCase(word);
  std::size_t least = SIZE_MAX;
  bool hasAny = false;
  Identity nearest;
  for (auto const& [library, bank] : banks) {
    PureComponent const component;
    std::int32_t words[10] = {};
    library->Maint().BeginItemWalk(bank.type.c_str(), bank.name.c_str());
    while (library->Maint().NextItem(words, component.Def())) {
      hasAny = true;
      Identity identity = component.ReadIdentity();
      for (std::string const& name : NamesLike(wanted, identity)) {
        std::optional<std::size_t> const distance =
            DistanceOf(wanted, name, !IsNumber(wanted) && !IsCas(wanted));
        if (!distance || *distance >= least) continue;
        least = *distance;
        nearest = identity;
      }
    }
    library->Maint().EndItemWalk();
  }
  if (least != SIZE_MAX) return "; the nearest ID is " + Described(wanted, nearest);
  return hasAny ? "; `zel find " + banks.front().first->Path() + "` lists components" : "";
}

}  // namespace zel::desk

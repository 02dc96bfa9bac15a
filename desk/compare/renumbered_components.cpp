#include "desk/compare/renumbered_components.h"

#include <algorithm>
#include <iterator>

#include "desk/open/fields.h"
#include "desk/open/item_key.h"
#include "desk/open/item_numbers.h"
#include "desk/open/pure_component.h"

namespace zel::desk {
namespace {

using Numbers = std::set<std::int32_t>;

Numbers NumbersOf(Library const& library, BankName const& bank) {
  PureComponent const component;
  Numbers numbers;
  for (StoredWords const& words : Keys(library, bank, *component.Def())) numbers.insert(words[0]);
  return numbers;
}

// The numbers that only the first set has, by ID; those of components without an ID are left out.
std::multimap<std::string, std::int32_t> OnlyIn(Numbers const& one, Numbers const& other,
                                                Library const& library) {
  std::vector<std::int32_t> only;
  std::set_difference(one.begin(), one.end(), other.begin(), other.end(), std::back_inserter(only));
  PureComponent const component;
  KeyWords words(library, *component.Def());
  std::multimap<std::string, std::int32_t> byId;
  for (std::int32_t const number : only) {
    std::string const word = words.Of({number})[0];
    if (word != std::to_string(number)) byId.emplace(word, number);
  }
  return byId;
}

bool IsRead(Library const& library, BankName const& bank, zel::IZelBankDef& item,
            StoredWords const& words) {
  zel::Handle<zel::Key> const key = StoredKey(words);
  try {
    return library.Maint().ReadItem(&item, bank.name.c_str(), key.get());
  } catch (unsigned long const address) {
    std::string const shown = Joined(KeyWords(library, item).Of(words));
    library.TellUnread(ToText(bank) + " " + shown, address);
    return false;
  }
}

// All component numbers in the items of banks.
Numbers NumbersIn(Library const& library, std::vector<BankName> const& banks) {
  Numbers all;
  for (BankName const& bank : banks) {
    zel::Handle<zel::IZelBankDef> const item = BankOrNone(bank.type);
    if (!item) continue;
    ItemNumbers const numbers(*item);
    if (!numbers.HasAny()) continue;
    for (StoredWords const& words : Keys(library, bank, *item)) {
      if (numbers.AreInField() && !IsRead(library, bank, *item, words)) continue;
      for (std::int32_t const number : numbers.Of(words)) all.insert(number);
    }
  }
  return all;
}

bool HasBank(std::vector<BankName> const& banks, BankName const& bank) {
  return std::any_of(banks.begin(), banks.end(),
                     [&](BankName const& known) { return ToText(known) == ToText(bank); });
}

}  // namespace

RenumberedComponents FindRenumbered(Library const& one, std::vector<BankName> const& banksOfOne,
                                    Library const& other,
                                    std::vector<BankName> const& banksOfOther) {
  RenumberedComponents found;
  for (BankName const& bank : banksOfOne) {
    if (bank.type != kPureType || !HasBank(banksOfOther, bank)) continue;
    Numbers const here = NumbersOf(one, bank);
    Numbers const there = NumbersOf(other, bank);
    auto const gone = OnlyIn(here, there, one);
    if (gone.empty()) continue;
    auto const added = OnlyIn(there, here, other);
    for (auto const& [id, number] : gone) {
      auto const at = added.find(id);
      if (at == added.end()) continue;
      bool const isOne = gone.count(id) == 1 && added.count(id) == 1;
      bool const isKnown = found.numbers.count(number) != 0;
      if (isOne && (!isKnown || found.numbers[number] == at->second)) {
        found.numbers[number] = at->second;
      } else {
        found.ambiguous.insert({number, at->second});
      }
    }
  }
  if (found.numbers.empty()) return found;
  Numbers const ofOne = NumbersIn(one, banksOfOne);
  Numbers const ofOther = NumbersIn(other, banksOfOther);
  for (auto at = found.numbers.begin(); at != found.numbers.end();) {
    bool const isWhole = ofOther.count(at->first) == 0 && ofOne.count(at->second) == 0 &&
                         found.ambiguous.count(at->first) == 0;
    if (!isWhole) found.ambiguous.insert({at->first, at->second});
    at = isWhole ? std::next(at) : found.numbers.erase(at);
  }
  return found;
}

}  // namespace zel::desk

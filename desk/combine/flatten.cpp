#include "desk/combine/flatten.h"

#include <algorithm>
#include <map>
#include <optional>
#include <set>
#include <utility>

#include "desk/combine/bank_copy.h"
#include "desk/notes/carried_notes.h"
#include "desk/notes/memo.h"
#include "desk/notes/merged_citations.h"
#include "desk/open/fields.h"
#include "desk/open/item_key.h"
#include "desk/open/item_numbers.h"
#include "desk/open/members.h"
#include "desk/words/failure.h"

namespace zel::desk {
namespace {

struct Counts {
  std::int64_t items = 0;
  std::int64_t constants = 0;
  std::int64_t correlations = 0;
  CodeCounts codes;
};

void AddIdentityCode(PureComponent const& component, CodeCounts& codes) {
  std::int32_t const code = component.ReadIdentity().refCode;
  if (code > 0) ++codes[static_cast<std::uint32_t>(code)];
}

class Flattener {
 public:
  Flattener(PreferenceList& list, Library const& to, FlattenOptions const& options)
      : list_(list), to_(to), options_(options), counts_(list.Count()) {}

  Flattened Take();

 private:
  using InLibrary = std::pair<std::size_t, std::int32_t>;  // library of the list, number there

  BankName BankFor(std::string const& type);
  void AllComponents();
  std::string BestWord(zel::ZelIdentity const& identity) const;
  void Component(std::string const& word);
  void Count(std::string const& word, std::int32_t number);
  void Bank(std::size_t library, BankName const& bank);
  bool Item(std::size_t library, BankName const& bank, BankName const& target,
            zel::IZelBankDef& item, StoredWords const& stored, std::string const& shown);
  bool HasComponent(std::size_t library, std::int32_t number) const;
  // The number in the new library; nothing for a component that is not wanted.
  std::optional<std::int32_t> NumberFor(std::size_t library, std::int32_t number) const;

  PreferenceList& list_;
  Library const& to_;
  FlattenOptions const& options_;
  Flattened result_;
  std::vector<Counts> counts_;                           // by bank of the list
  std::set<std::pair<std::size_t, std::int32_t>> done_;  // bank of the list, number there
  std::map<InLibrary, std::int32_t> numbers_;
  std::map<std::int32_t, std::string> written_;  // words by number
};

BankName Flattener::BankFor(std::string const& type) {
  BankName bank{type, options_.bank};
  if (to_.Maint().BankExists(type.c_str(), bank.name.c_str())) return bank;
  if (!to_.Maint().CreateBank(type.c_str(), bank.name.c_str(), 0)) {
    throw Failure(to_.Path() + ": bank " + ToText(bank) + " cannot be created");
  }
  return bank;
}

Flattened Flattener::Take() {
  BankName const components = BankFor(kPureType);
  std::string sources;
  for (std::size_t i = 0; i < list_.Count(); ++i) sources += "\n" + list_.Name(i);
  sources = ("Merged from, the preferred one first:" + sources).substr(0, kMemoSize - 1);
  to_.Maint().SetBankMemo(kPureType, components.name.c_str(), sources.c_str());
  if (options_.components.empty()) {
    AllComponents();
  } else {
    for (std::string const& word : options_.components) Component(word);
  }
  for (std::size_t i = 0; i < list_.Count(); ++i) {
    result_.taken.Add(list_.Name(i), ToText(components), counts_[i].items, counts_[i].constants,
                      counts_[i].correlations);
    Append(result_.citations,
           CarryNotes(LibraryAt(list_, i), BankAt(list_, i), *PureComponent().Def(),
                      counts_[i].codes, to_, components));
  }
  result_.components = static_cast<std::int64_t>(written_.size());
  for (std::size_t i = 0; i < list_.Libraries().size(); ++i) {
    for (BankName const& bank : list_.Libraries()[i].Banks()) {
      if (bank.type != kPureType && !IsNotesBank(bank)) Bank(i, bank);
    }
  }
  return std::move(result_);
}

void Flattener::AllComponents() {
  for (PlacedComponent const& one : list_.Components()) {
    if (done_.count({one.place, one.identity.number}) == 0) Component(BestWord(one.identity));
  }
}

// The first ID or the number, whichever more banks know; the ID if equally many do.
std::string Flattener::BestWord(zel::ZelIdentity const& identity) const {
  std::string number = std::to_string(identity.number);
  std::string id = identity.ids[0];
  if (id.empty()) return number;
  auto const found = [&](std::string const& word) {
    int count = 0;
    for (std::size_t i = 0; i < list_.Count(); ++i) {
      PureComponent const part;
      if (list_.Read(i, word, part)) ++count;
    }
    return count;
  };
  return found(number) > found(id) ? number : id;
}

void Flattener::Component(std::string const& word) {
  PureComponent merged;
  list_.Search(word, merged);
  std::int32_t const number = merged.ReadIdentity().number;
  auto const [at, isNew] = written_.emplace(number, list_.Lookup(word));
  if (!isNew) {
    if (at->second == list_.Lookup(word)) return;  // named twice
    throw Failure("components " + at->second + " and " + list_.Lookup(word) +
                  " of the sources have the same number, " + std::to_string(number) +
                  "; `zel renumber` changes it in one of them, --components leaves one out");
  }
  Count(word, number);
  zel::Handle<zel::Key> const key = StoredKey({number});
  WriteItem(to_, {kPureType, options_.bank}, *merged.Def(), *key, word);
}

// Counts for each bank what was taken from it, and notes which numbers the component has there.
void Flattener::Count(std::string const& word, std::int32_t number) {
  std::set<std::uint32_t> constants;
  std::set<std::uint32_t> curves;
  bool isFirst = true;
  for (std::size_t i = 0; i < list_.Count(); ++i) {
    PureComponent const part;
    if (!list_.Read(i, word, part)) continue;
    if (std::exchange(isFirst, false)) AddIdentityCode(part, counts_[i].codes);
    std::int32_t const own = part.Compared().number;
    done_.insert({i, own});
    numbers_.emplace(InLibrary{list_.LibraryOf(i), own}, number);
    ++counts_[i].items;
    for (auto const& row : Constants()) {
      if (zel::gen_IsUndefDouble(part.Constant(row.index))) continue;
      if (!constants.insert(row.index).second) continue;
      ++counts_[i].constants;
      ++counts_[i].codes[part.ConstantCode(row.index)];
    }
    for (auto const& row : Correlations()) {
      Curve const curve = part.ReadCurve(IndexOf(row));
      if (!curve.present || !curves.insert(IndexOf(row)).second) continue;
      ++counts_[i].correlations;
      ++counts_[i].codes[curve.refCode];
    }
  }
}

bool Flattener::HasComponent(std::size_t library, std::int32_t number) const {
  Library const& from = list_.Libraries()[library];
  std::vector<BankName> const banks = from.Banks(kPureType);
  PureComponent const component;
  return std::any_of(banks.begin(), banks.end(), [&](BankName const& bank) {
    return ReadComponent(from, bank, std::to_string(number), component);
  });
}

// A number in a library that does not have the component means the component of another library.
std::optional<std::int32_t> Flattener::NumberFor(std::size_t library, std::int32_t number) const {
  auto const at = numbers_.find({library, number});
  if (at != numbers_.end()) return at->second;
  if (!HasComponent(library, number)) {
    for (std::size_t i = 0; i < list_.Libraries().size(); ++i) {
      auto const other = numbers_.find({i, number});
      if (other != numbers_.end()) return other->second;
    }
  } else if (!options_.components.empty()) {
    return std::nullopt;
  }
  bool const isWanted = options_.components.empty() || written_.count(number) != 0;
  return isWanted ? std::optional(number) : std::nullopt;
}

void Flattener::Bank(std::size_t library, BankName const& bank) {
  Library const& from = list_.Libraries()[library];
  zel::Handle<zel::IZelBankDef> const item = BankOrNone(bank.type);
  if (!item) {
    result_.leftOut.Add(from.Path(), ToText(bank));
    return;
  }
  BankName const target = BankFor(bank.type);
  KeyWords words(from, *item);
  std::vector<StoredWords> keys;
  from.Walk(bank, [&] { keys = Keys(from, bank, *item); });
  std::int64_t taken = 0;
  CodeCounts codes;
  for (StoredWords const& stored : keys) {
    if (!Item(library, bank, target, *item, stored, Joined(words.Of(stored)))) continue;
    ++taken;
    AddCodes(*item, codes);
  }
  Append(result_.citations, CarryNotes(from, bank, *item, codes, to_, target));
  result_.items += taken;
  result_.taken.Add(from.Path() + ":" + bank.name, ToText(target), taken, Cell(), Cell());
}

// False for an item that is not taken.
bool Flattener::Item(std::size_t library, BankName const& bank, BankName const& target,
                     zel::IZelBankDef& item, StoredWords const& stored, std::string const& shown) {
  Library const& from = list_.Libraries()[library];
  zel::Handle<zel::Key> const key = StoredKey(stored);
  try {
    if (!from.Maint().ReadItem(&item, bank.name.c_str(), key.get())) {
      RefuseItem(from, bank, shown, "cannot be read");
    }
  } catch (unsigned long const address) {
    from.TellUnread(ToText(bank) + " " + shown, address);
    return false;
  }
  ItemNumbers const numbers(item);
  for (std::int32_t const number : numbers.Of(stored)) {
    if (!NumberFor(library, number)) return false;
  }
  StoredWords moved = stored;
  numbers.Replace(moved, [&](std::int32_t number) { return *NumberFor(library, number); });
  zel::Handle<zel::Key> const place = StoredKey(moved);
  if (to_.Maint().ItemExists(&item, target.name.c_str(), place.get())) return false;
  WriteItem(to_, target, item, *place, shown);
  return true;
}

}  // namespace

Flattened::Flattened()
    : taken("taken",
            {{"source", ""}, {"bank", ""}, {"items", ""}, {"constants", ""}, {"correlations", ""}}),
      leftOut("left out", {{"library", ""}, {"bank", ""}}) {}

Flattened Flatten(PreferenceList& list, Library const& to, FlattenOptions const& options) {
  return Flattener(list, to, options).Take();
}

}  // namespace zel::desk

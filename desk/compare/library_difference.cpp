#include "desk/compare/library_difference.h"

#include <zelaccess/Key_p.h>

#include <algorithm>
#include <array>
#include <map>
#include <optional>
#include <set>
#include <utility>

#include "desk/compare/renumbered_components.h"
#include "desk/notes/memo.h"
#include "desk/notes/note_differences.h"
#include "desk/notes/parameter_meanings.h"
#include "desk/open/fields.h"
#include "desk/open/item_key.h"
#include "desk/open/item_numbers.h"
#include "desk/open/item_values.h"
#include "desk/open/members.h"
#include "desk/words/failure.h"

namespace zel::desk {
namespace {

class Difference {
 public:
  Difference(Library const& one, Library const& other, DifferenceOptions const& options,
             Table& table)
      : one_(one), other_(other), options_(options), table_(table) {}

  void All();

 private:
  void Header();
  void Bank(BankName const& bank);
  void OnlyIn(Library const& library, std::string const& place) {
    bool const first = &library == &one_;
    Row(place, "whole", first ? "there" : "not there", first ? "not there" : "there", Cell());
  }

  void Row(std::string const& place, std::string field, Cell one, Cell other, Cell unit,
           bool isNoteUnit = false) {
    std::vector<Cell> row =
        RowOf(place, std::move(field), std::move(one), std::move(other), std::move(unit));
    Append(row, ItemMembers(bank_, parts_));
    isNoteUnit ? table_.AddAsIs(std::move(row)) : table_.Add(std::move(row));
  }
  void Field(std::string const& place, char const* field, Cell one, Cell other);
  void Memos(std::string const& place, std::vector<std::string> const& one,
             std::vector<std::string> const& other);
  void BankHeader(BankName const& bank);
  // The item of the second library by its key in the first one, for items whose keys differ.
  using Followers = std::map<StoredWords, StoredWords>;
  Followers FollowersIn(BankName const& bank, zel::IZelBankDef& item, ItemNumbers const& numbers,
                        std::vector<StoredWords> const& a, std::vector<StoredWords> const& b) const;
  StoredWords Renumbered(StoredWords key, ItemNumbers const& numbers) const;
  void ItemIn(Library const& library, BankName const& bank, StoredWords const& key,
              KeyWords& words);
  void Item(BankName const& bank, StoredWords const& stored, std::string const& place,
            ItemNumbers const& numbers);
  bool HasFollowed(DifferingValue const& value, ItemNumbers const& numbers) const;

  Library const& one_;
  Library const& other_;
  DifferenceOptions const& options_;
  Table& table_;
  std::string bank_;                                // that is compared
  std::array<std::vector<desk::Field>, 2> fields_;  // of its items, in both libraries
  std::vector<std::string> parts_;                  // what names the item that is compared
  RenumberedComponents renumbered_;
  bool commonNotesDiffer_ = false;
};

void Difference::Field(std::string const& place, char const* field, Cell one, Cell other) {
  if (one != other) Row(place, field, std::move(one), std::move(other), Cell());
}

// The notes in memos for the same data, then the text of the first memo. Notes in another order, or
// written in another way, are a difference of the memo as a whole.
void Difference::Memos(std::string const& place, std::vector<std::string> const& one,
                       std::vector<std::string> const& other) {
  std::size_t const rows = table_.Rows().size();
  for (DifferingNote& note : DifferingNotes(one, other)) {
    Row(place, std::move(note.name), Text(std::move(note.one)), Text(std::move(note.other)),
        Cell());
  }
  Field(place, "memo", Text(TextBesidesNotes(one[0])), Text(TextBesidesNotes(other[0])));
  if (table_.Rows().size() == rows) Field(place, "memo", Text(one[0]), Text(other[0]));
}

void Difference::Header() {
  auto const header = [](Library const& library) {
    char description[101] = {};
    char version[13] = {};
    library.File().GetDescriptionAndVersion(description, version);
    return std::array<std::string, 2>{description, version};
  };
  auto const a = header(one_);
  auto const b = header(other_);
  Field("library", "description", Text(a[0]), Text(b[0]));
  Field("library", "version", Text(a[1]), Text(b[1]));
  std::size_t const rows = table_.Rows().size();
  Memos("library", CommonMemos(one_), CommonMemos(other_));
  commonNotesDiffer_ = table_.Rows().size() != rows;
}

// The notes in the memo of a bank of notes are compared with the header of the library.
void Difference::BankHeader(BankName const& bank) {
  auto const format = [&](Library const& library) {
    return Cell(std::int64_t{library.Maint().GetBankFormat(bank.type.c_str(), bank.name.c_str())});
  };
  Field(ToText(bank), "format", format(one_), format(other_));
  std::string a = MemoIn(one_, bank);
  std::string b = MemoIn(other_, bank);
  bool const isDone = options_.bank.empty() && IsNotesBank(bank) && commonNotesDiffer_;
  if (isDone) {
    a = TextBesidesNotes(a);
    b = TextBesidesNotes(b);
  }
  Memos(ToText(bank), {a}, {b});
}

StoredWords Difference::Renumbered(StoredWords key, ItemNumbers const& numbers) const {
  if (numbers.AreInField()) return key;
  numbers.Replace(key, [&](std::int32_t number) {
    auto const at = renumbered_.numbers.find(number);
    return at == renumbered_.numbers.end() ? number : at->second;
  });
  return key;
}

Difference::Followers Difference::FollowersIn(BankName const& bank, zel::IZelBankDef& item,
                                              ItemNumbers const& numbers,
                                              std::vector<StoredWords> const& a,
                                              std::vector<StoredWords> const& b) const {
  Followers followers;
  if (renumbered_.numbers.empty() || !numbers.HasAny()) return followers;
  for (StoredWords const& key : a) {
    StoredWords const moved = Renumbered(key, numbers);
    if (moved == key) continue;
    zel::Handle<zel::Key> const named = StoredKey(moved);
    if (!other_.Maint().ItemExists(&item, bank.name.c_str(), named.get())) continue;
    // A pair may be stored in the other order.
    std::int32_t const* const words = dynamic_cast<zel::Key_p const&>(*named).GetKeyWords();
    StoredWords const stored(words, words + key.size());
    if (std::binary_search(b.begin(), b.end(), stored)) followers[key] = stored;
  }
  return followers;
}

// A row for an item that only one library has. A component that has different numbers in the two
// libraries is named by its number, too.
void Difference::ItemIn(Library const& library, BankName const& bank, StoredWords const& key,
                        KeyWords& words) {
  std::vector<std::string> shown = words.Of(key);
  parts_ = shown;
  for (std::size_t i = 0; i < shown.size() && i < key.size(); ++i) {
    std::string const number = std::to_string(key[i]);
    if (renumbered_.ambiguous.count(key[i]) == 0 || shown[i] == number) continue;
    parts_[i] = number;
    shown[i] += " (" + number + ")";
  }
  OnlyIn(library, ToText(bank) + " " + Joined(shown));
}

// Both lists of keys are in ascending order; equal keys are items that both libraries have.
void Difference::Bank(BankName const& bank) {
  BankHeader(bank);
  zel::Handle<zel::IZelBankDef> const item = BankOfType(bank.type);
  fields_[0] = FieldsIn(one_, bank, *item);
  fields_[1] = FieldsIn(other_, bank, *item);
  auto const a = Keys(one_, bank, *item);
  auto const b = Keys(other_, bank, *item);
  KeyWords wordsA(one_, *item);
  KeyWords wordsB(other_, *item);
  ItemNumbers const numbers(*item);
  Followers const followers = FollowersIn(bank, *item, numbers, a, b);
  std::set<StoredWords> following;
  for (auto const& [from, to] : followers) following.insert(to);
  if (options_.progress) options_.progress(ToText(bank), a.size());
  std::size_t i = 0, k = 0;
  while (i < a.size() || k < b.size()) {
    if (k < b.size() && following.count(b[k]) != 0) {
      ++k;
      continue;
    }
    bool const inA = k == b.size() || (i < a.size() && a[i] <= b[k]);
    bool const inB = i == a.size() || (k < b.size() && b[k] <= a[i]);
    if (inA && (inB || followers.count(a[i]) != 0)) {
      parts_ = wordsA.Of(a[i]);
      Item(bank, a[i], ToText(bank) + " " + Joined(parts_), numbers);
    } else {
      inA ? ItemIn(one_, bank, a[i], wordsA) : ItemIn(other_, bank, b[k], wordsB);
    }
    if (inA) {
      ++i;
      if (options_.progress) options_.progress("", 0);
    }
    if (inB) ++k;
  }
  parts_.clear();
}

// True for the number in a mapping to a component that has another number now.
bool Difference::HasFollowed(DifferingValue const& value, ItemNumbers const& numbers) const {
  if (!numbers.AreInField() || value.name != ItemNumbers::FieldName()) return false;
  return std::any_of(renumbered_.numbers.begin(), renumbered_.numbers.end(),
                     [&](auto const& change) {
                       return value.one == Cell(std::int64_t{change.first}) &&
                              value.other == Cell(std::int64_t{change.second});
                     });
}

void Difference::Item(BankName const& bank, StoredWords const& stored, std::string const& place,
                      ItemNumbers const& numbers) {
  bool isRead = true;
  auto const read = [&](Library const& library, zel::IZelBankDef* item, StoredWords const& words) {
    zel::Handle<zel::Key> const key = StoredKey(words);
    try {
      if (library.Maint().ReadItem(item, bank.name.c_str(), key.get())) return;
    } catch (unsigned long const address) {
      library.TellUnread(place, address);
      isRead = false;
      return;
    }
    throw Failure(library.Path() + ": " + place + " cannot be read");
  };
  auto const valuesIn = [&](Library const& library, StoredWords const& words) {
    if (bank.type == kPureType) {
      PureComponent const component;
      read(library, component.Def(), words);
      return ValuesOf(component);
    }
    zel::Handle<zel::IZelBankDef> const item = BankOfType(bank.type);
    read(library, item.get(), words);
    return ValuesOf(*item, fields_[&library == &one_ ? 0 : 1]);
  };
  std::vector<NamedValue> const a = valuesIn(one_, stored);
  std::vector<NamedValue> const b = valuesIn(other_, Renumbered(stored, numbers));
  if (!isRead) return;
  for (DifferingValue& value : DifferingValues(a, b)) {
    if (HasFollowed(value, numbers)) continue;
    Row(place, value.name, std::move(value.one), std::move(value.other), Text(value.unit),
        value.isNoteUnit);
  }
}

BankName NamedInEither(Library const& one, Library const& other, std::string const& word) {
  try {
    return one.Bank(word);
  } catch (Error const&) {
    return other.Bank(word);
  }
}

void Difference::All() {
  auto const has = [](std::vector<BankName> const& banks, BankName const& bank) {
    return std::any_of(banks.begin(), banks.end(),
                       [&](BankName const& known) { return ToText(known) == ToText(bank); });
  };
  std::vector<BankName> a = one_.Banks();
  std::vector<BankName> b = other_.Banks();
  if (!options_.bank.empty()) {
    BankName const bank = NamedInEither(one_, other_, options_.bank);
    auto const isOther = [&](BankName const& known) { return ToText(known) != ToText(bank); };
    for (std::vector<BankName>* banks : {&a, &b}) {
      banks->erase(std::remove_if(banks->begin(), banks->end(), isOther), banks->end());
    }
  } else {
    Header();
  }
  renumbered_ = FindRenumbered(one_, a, other_, b);
  for (BankName const& bank : a) {
    bank_ = ToText(bank);
    if (!has(b, bank)) {
      OnlyIn(one_, ToText(bank));
    } else if (BankOrNone(bank.type)) {
      Bank(bank);
    } else {
      Row(ToText(bank), "whole", "unknown type", "not compared", Cell());
    }
  }
  for (BankName const& bank : b) {
    bank_ = ToText(bank);
    if (!has(a, bank)) OnlyIn(other_, bank_);
  }
}

}  // namespace

Table DifferencesOf(Library const& one, Library const& other, DifferenceOptions const& options) {
  std::vector<Column> heads = {{"item", ""},
                               {"field", ""},
                               {options.first, "", false, true},
                               {options.second, "", false, true},
                               {"unit", ""}};
  Append(heads, ItemColumns());
  Table table("differences", std::move(heads));
  Difference(one, other, options, table).All();
  return table;
}

}  // namespace zel::desk

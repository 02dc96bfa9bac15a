#include "desk/compare/library_difference.h"

#include <algorithm>
#include <array>
#include <utility>

#include "desk/notes/parameter_meanings.h"
#include "desk/open/fields.h"
#include "desk/open/item_key.h"
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
  void BankHeader(BankName const& bank);
  void Item(BankName const& bank, std::vector<std::int32_t> const& stored,
            std::string const& place);

  Library const& one_;
  Library const& other_;
  DifferenceOptions const& options_;
  Table& table_;
  std::string bank_;                                // that is compared
  std::array<std::vector<desk::Field>, 2> fields_;  // of its items, in both libraries
  std::vector<std::string> parts_;                  // what names the item that is compared
};

void Difference::Field(std::string const& place, char const* field, Cell one, Cell other) {
  if (one != other) Row(place, field, std::move(one), std::move(other), Cell());
}

void Difference::Header() {
  auto const header = [](Library const& library) {
    char description[101] = {};
    char version[13] = {};
    char memo[kMemoSize] = {};
    library.File().GetDescriptionAndVersion(description, version);
    library.File().GetMemo(memo);
    return std::array<std::string, 3>{description, version, memo};
  };
  auto const a = header(one_);
  auto const b = header(other_);
  static constexpr char const* kNames[] = {"description", "version", "memo"};
  for (std::size_t i = 0; i < a.size(); ++i) Field("library", kNames[i], Text(a[i]), Text(b[i]));
}

void Difference::BankHeader(BankName const& bank) {
  auto const format = [&](Library const& library) {
    return Cell(std::int64_t{library.Maint().GetBankFormat(bank.type.c_str(), bank.name.c_str())});
  };
  auto const memo = [&](Library const& library) {
    char text[kMemoSize] = {};
    library.Maint().GetBankMemo(bank.type.c_str(), bank.name.c_str(), text);
    return Text(text);
  };
  Field(ToText(bank), "format", format(one_), format(other_));
  Field(ToText(bank), "memo", memo(one_), memo(other_));
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
  if (options_.progress) options_.progress(ToText(bank), a.size());
  std::size_t i = 0, k = 0;
  while (i < a.size() || k < b.size()) {
    bool const inA = k == b.size() || (i < a.size() && a[i] <= b[k]);
    bool const inB = i == a.size() || (k < b.size() && b[k] <= a[i]);
    parts_ = inA ? wordsA.Of(a[i]) : wordsB.Of(b[k]);
    std::string const place = ToText(bank) + " " + Joined(parts_);
    if (inA && inB) {
      Item(bank, a[i], place);
    } else {
      OnlyIn(inA ? one_ : other_, place);
    }
    if (inA) {
      ++i;
      if (options_.progress) options_.progress("", 0);
    }
    if (inB) ++k;
  }
  parts_.clear();
}

void Difference::Item(BankName const& bank, std::vector<std::int32_t> const& stored,
                      std::string const& place) {
  zel::Handle<zel::Key> const key = StoredKey(stored);
  bool isRead = true;
  auto const read = [&](Library const& library, zel::IZelBankDef* item) {
    try {
      if (library.Maint().ReadItem(item, bank.name.c_str(), key.get())) return;
    } catch (unsigned long const address) {
      library.TellUnread(place, address);
      isRead = false;
      return;
    }
    throw Failure(library.Path() + ": " + place + " cannot be read");
  };
  auto const valuesIn = [&](Library const& library) {
    if (bank.type == kPureType) {
      PureComponent const component;
      read(library, component.Def());
      return ValuesOf(component);
    }
    zel::Handle<zel::IZelBankDef> const item = BankOfType(bank.type);
    read(library, item.get());
    return ValuesOf(*item, fields_[&library == &one_ ? 0 : 1]);
  };
  std::vector<NamedValue> const a = valuesIn(one_);
  std::vector<NamedValue> const b = valuesIn(other_);
  if (!isRead) return;
  for (DifferingValue& value : DifferingValues(a, b)) {
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

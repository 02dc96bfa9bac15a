// Rows that set the fields of items of any type except pure components.
#include <zelaccess/Key_p.h>

#include <algorithm>

#include "desk/notes/parameter_meanings.h"
#include "desk/open/component_name.h"
#include "desk/open/field_text.h"
#include "desk/open/fields.h"
#include "desk/open/item_key.h"
#include "desk/open/storable.h"
#include "desk/tables/group_counts.h"
#include "desk/tables/row_form.h"
#include "desk/tables/table_heads.h"
#include "desk/words/failure.h"
#include "desk/words/letters.h"

namespace zel::desk {
namespace {

constexpr std::int32_t kComponents = 0;  // of keys

struct FieldColumn {
  TableColumn column;
  Field field;
  DisplayUnits units;
};

class ItemRows final : public RowForm {
 public:
  ItemRows(TableTarget const& target, std::vector<TableColumn> columns)
      : target_(target),
        item_(BankOfType(target.bank.type)),
        old_(BankOfType(target.bank.type)),
        facts_(*item_),
        all_(FieldsIn(*target.library, target.bank, *item_)) {
    std::vector<Field> const& fields = all_;
    std::vector<std::string> candidates;
    for (Field const& field : fields) {
      candidates.push_back(field.name);
      std::optional<TableColumn> column = TakeColumn(columns, {field.name});
      if (!column) continue;
      DisplayUnits units;
      if (field.isNoteUnit) {
        RefuseOtherUnit(*column, field.unit);
      } else {
        units = column->UnitsFor(field.unit, target.units);
      }
      fields_.push_back({std::move(*column), field, std::move(units)});
    }
    TakeGroups(columns, fields, candidates);
    std::size_t const parts = facts_.keyKind == 2 ? 1 : static_cast<std::size_t>(facts_.keyWords);
    for (std::size_t part = 0; part < parts; ++part) TakeKey(columns, part, parts, candidates);
    RefuseRest(columns, candidates);
    if (facts_.shortestKey > 0 && keys_.empty()) {
      throw Failure("no column names the items; their heads are " + Joined(KeyHeads(parts)));
    }
  }

  RowResult Apply(TextRow const& row) override {
    Library const& library = *target_.library;
    std::vector<std::string> const words = WordsOf(row);
    zel::Handle<zel::Key> const key = KeyIn(library, *item_, words);
    std::string const shown = words.empty() ? "-" : Joined(words);
    char const* const bank = target_.bank.name.c_str();
    bool const isThere = library.Maint().ReadItem(item_.get(), bank, key.get());
    std::vector<NamedValue> before;
    if (isThere) {
      Once(StoredWords(*key), row.line);
      before = ValuesOf(*item_, all_);
      library.Maint().ReadItem(old_.get(), bank, key.get());
    }
    if (!isThere) {
      RefuseSelf(words);
      constexpr std::int32_t kText = 2;
      if (facts_.keyKind == kText) CheckDocument(words[0], DocumentPlace::kElement, "a key");
      item_->Clear();
    }
    for (FieldColumn const& one : fields_) {
      std::string const& text = one.column.In(row);
      if (text.empty()) continue;
      try {
        SetFieldText(*item_, one.field, text, one.units);
      } catch (std::runtime_error const& error) {
        throw Failure(shown + ", " + one.field.name + ": " + error.what());
      }
    }
    SetGroups(row, shown);
    std::vector<NamedValue> const wanted = ValuesOf(*item_, all_);
    if (!library.Maint().WriteItem(item_.get(), bank, key.get()) ||
        !library.Maint().ReadItem(item_.get(), bank, key.get())) {
      throw Failure(shown + " cannot be written" + WhyNotFound(library, *item_, words));
    }
    std::vector<NamedValue> const after = ValuesOf(*item_, all_);
    try {
      CheckStored(wanted, after);
    } catch (Failure const& failure) {
      TakeBack(isThere, *key);
      throw Failure(shown + ": " + failure.what());
    }
    if (!isThere) {
      Once(StoredWords(*key), row.line);
      return {RowState::kNew, shown, "", "", words};
    }
    std::string const what = Differences(before, after, target_.units);
    return {what.empty() ? RowState::kSame : RowState::kChanged, shown, what, "", words};
  }

 private:
  static void RefuseOtherUnit(TableColumn const& column, std::string const& unit) {
    if (column.Unit().empty() || column.Unit() == unit) return;
    throw Failure("column " + column.Name() + ": its unit is " + unit +
                  ", as a note says, and such units are not converted");
  }

  // Restores the item as it was before, or removes it from the bank.
  void TakeBack(bool wasThere, zel::Key& key) {
    zel::LibMaint& maint = target_.library->Maint();
    if (wasThere) {
      maint.WriteItem(old_.get(), target_.bank.name.c_str(), &key);
    } else {
      maint.DeleteItem(target_.bank.type.c_str(), target_.bank.name.c_str(), &key);
    }
  }

  // The key as it is stored, of an item that is there.
  std::string StoredWords(zel::Key& key) const {
    std::int32_t const* const stored = dynamic_cast<zel::Key_p const&>(key).GetKeyWords();
    std::string text;
    for (std::int32_t i = 0; i < facts_.keyWords; ++i) text += std::to_string(stored[i]) + " ";
    return text;
  }

  void TakeKey(std::vector<TableColumn>& columns, std::size_t part, std::size_t parts,
               std::vector<std::string>& candidates) {
    std::vector<std::string> const heads = HeadsOfKey(part, parts);
    candidates.insert(candidates.end(), heads.begin(), heads.end());
    std::vector<TableColumn> ofPart;
    while (std::optional<TableColumn> column = TakeColumn(columns, heads)) {
      ofPart.push_back(std::move(*column));
    }
    if (!ofPart.empty()) keys_.push_back(std::move(ofPart));
  }

  // A column that has the groups of a molecule with their counts, for types that keep them in
  // fields of their own.
  void TakeGroups(std::vector<TableColumn>& columns, std::vector<Field> const& fields,
                  std::vector<std::string>& candidates) {
    auto const named = [&](char const* name) {
      return std::find_if(fields.begin(), fields.end(),
                          [name](Field const& field) { return field.name == name; });
    };
    auto const count = named("count");
    auto const number = named("groupNumber");
    auto const each = named("groupCount");
    if (count == fields.end() || number == fields.end() || each == fields.end()) return;
    candidates.emplace_back("groups");
    groups_ = TakeColumn(columns, {"groups"});
    if (!groups_) return;
    groupFields_ = {*count, *number, *each};
    for (FieldColumn const& one : fields_) {
      if (!Any(groupFields_, one.field.name)) continue;
      throw Failure("column groups sets " + one.field.name + " too; --ignore leaves a column out");
    }
  }

  static bool Any(std::vector<Field> const& fields, std::string const& name) {
    return std::any_of(fields.begin(), fields.end(),
                       [&](Field const& field) { return field.name == name; });
  }

  void SetGroups(TextRow const& row, std::string const& shown) {
    std::string const text = CellOf(groups_, row);
    if (text.empty()) return;
    try {
      GroupCounts const groups = GroupCountsIn(text);
      std::string numbers;
      std::string counts;
      for (std::int32_t const number : groups.numbers) numbers += std::to_string(number) + " ";
      for (std::int32_t const count : groups.counts) counts += std::to_string(count) + " ";
      SetFieldText(*item_, groupFields_[0], std::to_string(groups.numbers.size()), {});
      SetFieldText(*item_, groupFields_[1], numbers, {});
      SetFieldText(*item_, groupFields_[2], counts, {});
    } catch (std::runtime_error const& error) {
      throw Failure(shown + ", groups: " + error.what());
    }
  }

  // The words of the key. Of several columns that name the same part, the first one with a cell
  // counts; the others must not contradict it.
  std::vector<std::string> WordsOf(TextRow const& row) const {
    std::vector<std::string> words;
    for (std::vector<TableColumn> const& columns : keys_) {
      std::string& word = words.emplace_back();
      for (TableColumn const& column : columns) {
        std::string const& cell = column.In(row);
        if (word.empty()) word = cell;
        if (cell.empty() || cell == word) continue;
        std::string const one = Meaning(word);
        std::string const other = Meaning(cell);
        if (one.empty() || other.empty() || one == other) continue;
        std::string what = column.Name();
        what.append(" is ").append(cell).append(", which is ").append(other);
        throw Failure(what.append(", but ").append(word).append(" is ").append(one));
      }
    }
    while (!words.empty() && words.back().empty()) words.pop_back();
    return words;
  }

  // What a word of the key means: the number of a component, else the word itself. Empty for a
  // component that is not known.
  std::string Meaning(std::string const& word) const {
    if (facts_.keyKind != kComponents) return word;
    Library const& library = *target_.library;
    std::int32_t number = 0;
    try {
      ComponentWord const component = ParseComponent(LookupWord(word, BanksKnownTo(library)));
      if (long const* const given = std::get_if<long>(&component)) return std::to_string(*given);
      zel::casn const* const cas = std::get_if<zel::casn>(&component);
      number = cas != nullptr
                   ? library.Maint().FindNumberByCas(*cas)
                   : library.Maint().FindNumberById(std::get<std::string>(component).c_str());
    } catch (Failure const&) {
      return "";
    }
    return number == 0 ? "" : std::to_string(number);
  }

  // A pair is of two components, unless its type has data of one component too.
  void RefuseSelf(std::vector<std::string> const& words) const {
    bool const isPair = facts_.keyKind == kComponents && facts_.shortestKey == 2;
    if (!isPair || words.size() != 2 || Meaning(words[0]) != Meaning(words[1])) return;
    if (words[0] == words[1] || !Meaning(words[0]).empty()) {
      throw Failure(Joined(words) + " is a pair of a component with itself");
    }
  }

  static std::vector<std::string> KeyHeads(std::size_t parts) {
    std::vector<std::string> heads;
    for (std::size_t i = 0; i < parts; ++i) heads.push_back(HeadsOfKey(i, parts).front());
    return heads;
  }

  TableTarget target_;
  zel::Handle<zel::IZelBankDef> item_;
  zel::Handle<zel::IZelBankDef> old_;  // what is there before it is changed
  BankFacts facts_;
  std::vector<Field> all_;
  std::vector<FieldColumn> fields_;
  std::optional<TableColumn> groups_;  // "1(2) 14(1)"
  std::vector<Field> groupFields_;     // which it sets: how many, their numbers, their counts
  std::vector<std::vector<TableColumn>> keys_;  // for each part, those that name it
};

}  // namespace

std::unique_ptr<RowForm> ItemForm(TableTarget const& target, std::vector<TableColumn> columns) {
  return std::make_unique<ItemRows>(target, std::move(columns));
}

}  // namespace zel::desk

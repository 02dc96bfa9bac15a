// Rows that set the fields of items of any type except pure components.
#include <zelaccess/Key_p.h>

#include <algorithm>

#include "desk/open/field_text.h"
#include "desk/open/fields.h"
#include "desk/open/item_key.h"
#include "desk/tables/row_form.h"
#include "desk/tables/table_heads.h"
#include "desk/words/failure.h"
#include "desk/words/letters.h"

namespace zel::desk {
namespace {

struct FieldColumn {
  TableColumn column;
  Field field;
  DisplayUnits units;
};

class ItemRows final : public RowForm {
 public:
  ItemRows(TableTarget const& target, std::vector<TableColumn> columns)
      : target_(target), item_(BankOfType(target.bank.type)), facts_(*item_) {
    std::vector<Field> const fields = FieldsOf(*item_);
    std::vector<std::string> candidates;
    for (Field const& field : fields) {
      candidates.push_back(field.name);
      std::optional<TableColumn> column = TakeColumn(columns, {field.name});
      if (!column) continue;
      DisplayUnits units = column->UnitsFor(field.unit, target.units);
      fields_.push_back({std::move(*column), field, std::move(units)});
    }
    std::size_t const parts = facts_.keyKind == 2 ? 1 : static_cast<std::size_t>(facts_.keyWords);
    for (std::size_t part = 0; part < parts; ++part) TakeKey(columns, part, parts, candidates);
    RefuseRest(columns, candidates);
    if (facts_.shortestKey > 0 && keys_.empty()) {
      throw Failure("no column names the items; their heads are " + Joined(KeyHeads(parts)));
    }
  }

  RowResult Apply(TextRow const& row) override {
    Library const& library = *target_.library;
    std::vector<std::string> words;
    for (TableColumn const& column : keys_) words.push_back(column.In(row));
    while (!words.empty() && words.back().empty()) words.pop_back();
    zel::Handle<zel::Key> const key = KeyIn(library, *item_, words);
    std::string const shown = words.empty() ? "-" : Joined(words);
    char const* const bank = target_.bank.name.c_str();
    bool const isThere = library.Maint().ReadItem(item_.get(), bank, key.get());
    std::vector<NamedValue> before;
    if (isThere) {
      Once(StoredWords(*key), row.line);
      before = ValuesOf(*item_);
    }
    if (!isThere) item_->Clear();
    for (FieldColumn const& one : fields_) {
      std::string const& text = one.column.In(row);
      if (text.empty()) continue;
      try {
        SetFieldText(*item_, one.field, text, one.units);
      } catch (std::runtime_error const& error) {
        throw Failure(shown + ", " + one.field.name + ": " + error.what());
      }
    }
    if (!library.Maint().WriteItem(item_.get(), bank, key.get()) ||
        !library.Maint().ReadItem(item_.get(), bank, key.get())) {
      throw Failure(shown + " cannot be written" + WhyNotFound(library, *item_, words));
    }
    if (!isThere) {
      Once(StoredWords(*key), row.line);
      return {RowState::kNew, shown, ""};
    }
    std::string const what = Differences(before, ValuesOf(*item_), target_.units);
    return {what.empty() ? RowState::kSame : RowState::kChanged, shown, what};
  }

 private:
  // The key as it is stored, of an item that is there.
  std::string StoredWords(zel::Key& key) const {
    std::int32_t const* const stored = dynamic_cast<zel::Key_p const&>(key).GetKeyWords();
    std::string text;
    for (std::int32_t i = 0; i < facts_.keyWords; ++i) text += std::to_string(stored[i]) + " ";
    return text;
  }

  // Of several columns that name the same part, the first kind of head counts; the others are for
  // the reader.
  void TakeKey(std::vector<TableColumn>& columns, std::size_t part, std::size_t parts,
               std::vector<std::string>& candidates) {
    bool isFirst = true;
    std::vector<std::string> const heads = HeadsOfKey(part, parts);
    candidates.insert(candidates.end(), heads.begin(), heads.end());
    while (std::optional<TableColumn> column = TakeColumn(columns, heads)) {
      if (isFirst) keys_.push_back(std::move(*column));
      isFirst = false;
    }
  }

  static std::vector<std::string> KeyHeads(std::size_t parts) {
    std::vector<std::string> heads;
    for (std::size_t i = 0; i < parts; ++i) heads.push_back(HeadsOfKey(i, parts).front());
    return heads;
  }

  TableTarget target_;
  zel::Handle<zel::IZelBankDef> item_;
  BankFacts facts_;
  std::vector<FieldColumn> fields_;
  std::vector<TableColumn> keys_;
};

}  // namespace

std::unique_ptr<RowForm> ItemForm(TableTarget const& target, std::vector<TableColumn> columns) {
  return std::make_unique<ItemRows>(target, std::move(columns));
}

}  // namespace zel::desk

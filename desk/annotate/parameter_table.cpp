#include "desk/annotate/parameter_table.h"

#include <algorithm>
#include <set>

#include "desk/notes/memo.h"
#include "desk/notes/note_lines.h"
#include "desk/tables/table_columns.h"
#include "desk/tables/table_export.h"
#include "desk/tables/text_table.h"
#include "desk/words/failure.h"
#include "desk/words/letters.h"

namespace zel::desk {
namespace {

constexpr char kEquation[] = "equation";

// What a word of a table means: one bank, or with an empty name all banks of a type. Nothing if the
// library has no such bank.
std::optional<BankName> BankOf(Library const& library, std::string const& word) {
  std::size_t const colon = std::min(word.find(':'), word.size());
  BankName bank{UpperCase(word.substr(0, colon)), UpperCase(word.substr(colon))};
  bank.name.erase(0, 1);
  if (!BankOrNone(bank.type)) throw Failure("there is no bank type " + bank.type);
  bool const isThere = bank.name.empty()
                           ? !library.Banks(bank.type).empty()
                           : library.Maint().BankExists(bank.type.c_str(), bank.name.c_str());
  return isThere ? std::optional(std::move(bank)) : std::nullopt;
}

// The text of a unit, without the brackets that enclose it in a note.
std::string UnitText(std::string const& unit, std::string const& field) {
  std::string text = NoteText(unit, "the unit of " + field);
  if (text.find_first_of("[]") == std::string::npos) return text;
  throw Failure("the unit of " + field + " has a bracket: " + text);
}

// The note that a row or a user gives.
Note NoteFor(BankName const& bank, std::string const& field, std::string const& unit,
             std::string const& text) {
  Note note;
  note.text = NoteText(text, "the meaning of " + field);
  note.unit = UnitText(unit, field);
  note.kind = NoteKind::kEquation;
  if (LowerCase(field) == kEquation) {
    if (!note.unit.empty()) throw Failure("an equation has no unit");
    return note;
  }
  zel::Handle<zel::IZelBankDef> const item = BankOfType(bank.type);
  note.kind = NoteKind::kParameter;
  note.key = FieldNamed(*item, field).name;
  return note;
}

}  // namespace

Table MeaningTable(Library const& library, std::optional<BankName> const& bank) {
  Table table("parameters", MeaningColumns("bank"));
  for (BankName const& one : bank ? std::vector<BankName>{*bank} : library.Banks()) {
    zel::Handle<zel::IZelBankDef> const item = BankOrNone(one.type);
    if (!item) continue;
    AddMeanings(MeaningIn(library, one, *item), ToText(one), table);
  }
  return table;
}

std::string ExportMeanings(Library const& library, std::optional<BankName> const& bank,
                           std::string const& path, std::int64_t& count) {
  TextTable table;
  table.heads = {"type", "field", "unit", "meaning"};
  InFormOf(path, table);  // an unknown ending is an error before the work
  std::set<std::pair<std::string, std::string>> seen;
  for (BankName const& one : bank ? std::vector<BankName>{*bank} : library.Banks()) {
    zel::Handle<zel::IZelBankDef> const item = BankOrNone(one.type);
    if (!item) continue;
    Meanings const meanings(library, one);
    std::vector<std::string> names = {""};  // the equation
    for (Field const& field : ParametersOf(*item)) names.push_back(field.name);
    for (std::string const& name : names) {
      Note const* const note = meanings.Find(name);
      if (note == nullptr) continue;
      std::string const place = meanings.IsOfBank(name) ? ToText(one) : one.type;
      std::string const shown = name.empty() ? kEquation : name;
      if (!seen.emplace(place, shown).second) continue;
      table.rows.push_back({0, {place, shown, note->unit, note->text}});
    }
  }
  count = static_cast<std::int64_t>(table.rows.size());
  return InFormOf(path, table);
}

bool SetMeaning(Library const& library, BankName const& bank, std::string const& field,
                std::string const& unit, std::string const& text) {
  Note note = NoteFor(bank, field, unit, text);
  if (bank.name.empty()) {
    note.key = CommonKey(bank.type, note.key);
    if (note.text.empty()) return RemoveCommonNote(library, note.kind, note.key);
    for (NoteLines const& notes : CommonNotes(library)) {
      Note const* const there = notes.Find(note.kind, note.key);
      if (there != nullptr && there->text == note.text && there->unit == note.unit) return false;
    }
    SetCommonNote(library, note);
    return true;
  }
  std::string const before = MemoIn(library, bank);
  NoteLines lines(before);
  if (note.text.empty()) {
    lines.Remove(note.kind, note.key);
  } else {
    lines.Set(note);
  }
  std::string const after = lines.ToText();
  if (after == before) return false;
  SetMemoIn(library, bank, after);
  return true;
}

ImportedMeanings::ImportedMeanings()
    : rows("parameters",
           {{"line", ""}, {"bank", ""}, {"field", ""}, {"result", ""}, {"what", ""}}) {}

ImportedMeanings ImportMeanings(Library const& library, std::string const& path) {
  TextTable table = ReadTextTable(path);
  std::vector<TableColumn> columns = ChosenColumns(table, {});
  auto const type = TakeColumn(columns, {"type", "bank"});
  auto const field = TakeColumn(columns, {"field", "parameter"});
  auto const unit = TakeColumn(columns, {"unit"});
  auto const meaning = TakeColumn(columns, {"meaning"});
  if (!type || !field || !meaning || !columns.empty()) {
    throw Failure(path + ": the columns are type, field, unit and meaning");
  }
  ImportedMeanings result;
  for (TextRow const& row : table.rows) {
    ++result.read;
    auto const line = static_cast<std::int64_t>(row.line);
    std::string const& name = field->In(row);
    try {
      std::optional<BankName> const bank = BankOf(library, type->In(row));
      if (meaning->In(row).empty()) throw Failure(name + " has no meaning");
      if (!bank) {
        ++result.unused;
        continue;
      }
      bool const isChanged =
          SetMeaning(library, *bank, name, unit ? unit->In(row) : "", meaning->In(row));
      ++(isChanged ? result.changed : result.same);
      if (isChanged) result.rows.Add(line, type->In(row), name, "changed", meaning->In(row));
    } catch (Failure const& refused) {
      ++result.refused;
      result.rows.Add(line, type->In(row), name, "refused", std::string(refused.what()));
    }
  }
  return result;
}

}  // namespace zel::desk

#include "desk/notes/parameter_meanings.h"

#include <algorithm>

#include "desk/notes/memo.h"
#include "desk/notes/note_lines.h"
#include "desk/words/letters.h"

namespace zel::desk {
namespace {

constexpr char const* kOthers[] = {"TMIN", "TMAX", "PMIN", "PMAX", "REFCODE"};

}  // namespace

std::vector<Field> ParametersOf(zel::IZelBankDef& bank) {
  std::vector<Field> fields = FieldsOf(bank);
  bool hasNumber = false;
  auto const isOther = [&](Field const& field) {
    std::string const name = UpperCase(field.name);
    bool const is = std::find(std::begin(kOthers), std::end(kOthers), name) != std::end(kOthers);
    hasNumber = hasNumber || (!is && field.type == zel::fieldReal);
    return is;
  };
  fields.erase(std::remove_if(fields.begin(), fields.end(), isOther), fields.end());
  if (!hasNumber) fields.clear();
  return fields;
}

std::string CommonKey(std::string const& type, std::string const& field) {
  return field.empty() ? type : type + " " + field;
}

Meanings::Meanings(Library const& library, BankName const& bank)
    : type_(bank.type), own_(ReadableMemo(library, bank)), common_(CommonNotes(library)) {}

Note const* Meanings::Find(std::string const& field) const {
  NoteKind const kind = field.empty() ? NoteKind::kEquation : NoteKind::kParameter;
  if (Note const* const own = own_.Find(kind, field)) return own;
  for (NoteLines const& notes : common_) {
    if (Note const* const note = notes.Find(kind, CommonKey(type_, field))) return note;
  }
  return nullptr;
}

bool Meanings::IsOfBank(std::string const& field) const {
  NoteKind const kind = field.empty() ? NoteKind::kEquation : NoteKind::kParameter;
  return own_.Find(kind, field) != nullptr;
}

ModelMeaning MeaningIn(Library const& library, BankName const& bank, zel::IZelBankDef& item) {
  ModelMeaning model;
  std::vector<Field> const fields = ParametersOf(item);
  if (fields.empty()) return model;
  Meanings const notes(library, bank);
  if (Note const* const note = notes.Find("")) model.equation = note->text;
  for (Field const& field : fields) {
    ParameterMeaning parameter{field.name, field.unit, ""};
    // A label that only repeats the name is not a meaning.
    if (LowerCase(field.label) != LowerCase(field.name)) parameter.meaning = field.label;
    if (Note const* const note = notes.Find(field.name)) {
      parameter.unit = note->unit.empty() ? "-" : note->unit;
      parameter.meaning = note->text;
    }
    model.parameters.push_back(std::move(parameter));
  }
  return model;
}

std::vector<Field> FieldsIn(Library const& library, BankName const& bank, zel::IZelBankDef& item) {
  std::vector<Field> fields = FieldsOf(item);
  if (ParametersOf(item).empty()) return fields;
  Meanings const notes(library, bank);
  for (Field& field : fields) {
    if (field.type != zel::fieldReal || !field.unit.empty()) continue;
    Note const* const note = notes.Find(field.name);
    if (note == nullptr || note->unit.empty() || note->unit == "-") continue;
    field.unit = note->unit;
    field.isNoteUnit = true;
  }
  return fields;
}

std::vector<Column> MeaningColumns(std::string const& place) {
  constexpr char kNone[] = "not known";
  std::vector<Column> columns;
  if (!place.empty()) columns.push_back({place, ""});
  columns.push_back({"field", ""});
  columns.push_back({"unit", "", false, false, false, kNone});
  columns.push_back({"meaning", "", false, false, false, kNone});
  return columns;
}

void AddMeanings(ModelMeaning const& model, std::string const& place, Table& table) {
  if (model.parameters.empty()) return;
  auto const add = [&](std::string const& field, std::string const& unit,
                       std::string const& meaning) {
    std::vector<Cell> row;
    if (!place.empty()) row.emplace_back(place);
    row.emplace_back(field);
    row.push_back(Text(unit));
    row.push_back(Text(meaning));
    table.Add(std::move(row));
  };
  // An equation has no unit.
  add("equation", "-", model.equation);
  for (ParameterMeaning const& one : model.parameters) add(one.field, one.unit, one.meaning);
}

}  // namespace zel::desk

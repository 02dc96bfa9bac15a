// How the data of a bank use the parameters of its model.
//
// Banks hold numbers under the names of fields, and most have no unit of their own: the keeper of
// the data decides the form of the model. Notes say so (note_lines.h): in the memo of a bank for
// that bank, in the memo of the library, or in a bank of notes (memo.h), for all banks of a type.
#pragma once

#include <string>
#include <vector>

#include "desk/notes/note_lines.h"
#include "desk/open/fields.h"
#include "desk/open/library.h"
#include "desk/words/table.h"

namespace zel::desk {

struct ParameterMeaning {
  std::string field;
  std::string unit;     // "-" for a pure number; empty: not known
  std::string meaning;  // empty: not known
};

struct ModelMeaning {
  std::string equation;  // empty: not known
  std::vector<ParameterMeaning> parameters;
};

// The notes about parameters that are for one bank.
class Meanings {
 public:
  // A memo that cannot be read counts as empty and is reported as by Library::TellUnread.
  Meanings(Library const& library, BankName const& bank);
  // The note about a field, or about the equation if the name is empty; null without such a note.
  Note const* Find(std::string const& field) const;
  // True if it is in the memo of the bank.
  bool IsOfBank(std::string const& field) const;

 private:
  std::string type_;
  NoteLines own_;
  std::vector<NoteLines> common_;
};
// The key of a note about a field, or about the equation, for all banks of a type.
std::string CommonKey(std::string const& type, std::string const& field);

// The fields of a bank type that are parameters of a model: all but the bounds of the range and the
// reference code. None for a type without numbers, such as that of names.
std::vector<Field> ParametersOf(zel::IZelBankDef& bank);

// The fields of the items of a bank. Numbers that have no unit by their type have that of a note.
std::vector<Field> FieldsIn(Library const& library, BankName const& bank, zel::IZelBankDef& item);

// What is known about the parameters of a bank: by notes, else by its type.
ModelMeaning MeaningIn(Library const& library, BankName const& bank, zel::IZelBankDef& item);

// The columns of a table of meanings: where (if `place` is not empty), field, unit and meaning.
// In text, empty cells are shown as not known.
std::vector<Column> MeaningColumns(std::string const& place);
// Adds a row "equation" and a row for each parameter; none for a model without parameters. `place`
// is left out of the rows if it is empty.
void AddMeanings(ModelMeaning const& model, std::string const& place, Table& table);

}  // namespace zel::desk

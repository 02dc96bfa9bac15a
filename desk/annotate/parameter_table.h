// The meaning of the parameters of models as tables: equation, unit and meaning of each.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "desk/notes/parameter_meanings.h"
#include "desk/open/library.h"
#include "desk/words/table.h"

namespace zel::desk {

// The rows of AddMeanings for each bank, or for one. Banks of types without numbers are left out.
Table MeaningTable(Library const& library, std::optional<BankName> const& bank = {});

struct ImportedMeanings {
  std::int64_t read = 0;
  std::int64_t changed = 0;  // notes that are new or differ from those before
  std::int64_t same = 0;
  std::int64_t unused = 0;  // rows for types of which the library has no bank
  std::int64_t refused = 0;
  Table rows;  // those that change something or are refused

  ImportedMeanings();
};

// Writes the rows of a table into a library that is open for update. The columns are type (a bank
// type, for all banks of the type, or TYPE:NAME for one bank), field ("equation" for the equation
// of the model), unit (none for a pure number) and meaning. Throws Failure for a file that cannot
// be read or has other columns, and if a memo has no room.
ImportedMeanings ImportMeanings(Library const& library, std::string const& path);

// What notes of a library, or of a bank, say about parameters, as text in the form that the ending
// of the path means: .csv, .tsv or .json; ImportMeanings reads it back. Throws WrongUsage for
// another ending. `count` receives the number of rows.
std::string ExportMeanings(Library const& library, std::optional<BankName> const& bank,
                           std::string const& path, std::int64_t& count);

// Sets the meaning of one field, or the equation, for a bank, or, if its name is empty, for all
// banks of its type; an empty text removes the note. False if nothing changes. Throws Failure for a
// field that the type does not have, for a text that a memo cannot hold, and if the memo has no
// room.
bool SetMeaning(Library const& library, BankName const& bank, std::string const& field,
                std::string const& unit, std::string const& text);

}  // namespace zel::desk

// Notes that go with data from one library to another.
#pragma once

#include <string>
#include <vector>

#include "desk/notes/citations.h"
#include "desk/notes/item_codes.h"
#include "desk/open/library.h"
#include "desk/words/table.h"

namespace zel::desk {

// A code that data of two sources have, and that these cite in different ways.
struct CitationConflict {
  std::string bank;  // that has the data now
  Citation kept;     // what they are cited for there
  Citation other;    // what the copied data are cited for in their source
  std::string from;
};

// Copies the notes about items that were copied from a bank into one of another library, which is
// open for update: the citations of these codes, and the meaning of the parameters of `item`, which
// is of the banks' type. If the library cites something else for a code, the citation is put into
// the memo of the bank if all of the bank's data with the code are those copied. A citation of `to`
// that differs is kept, Session::Note reports it, and both citations are returned.
std::vector<CitationConflict> CarryNotes(Library const& from, BankName const& fromBank,
                                         zel::IZelBankDef& item, CodeCounts const& codes,
                                         Library const& to, BankName const& toBank);

// A row for each: code, bank, citation kept, other citation, where that is from.
Table ConflictTable(std::vector<CitationConflict> const& conflicts);

}  // namespace zel::desk

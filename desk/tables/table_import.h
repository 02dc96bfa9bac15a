// Imports tables into banks: components, correlations, pairs, groups and any other items.
#pragma once

#include <cstdint>
#include <string>

#include "desk/tables/row_form.h"
#include "desk/tables/table_columns.h"

namespace zel::desk {

struct ImportedTable {
  std::int64_t read = 0;  // rows
  std::int64_t isNew = 0;
  std::int64_t changed = 0;
  std::int64_t same = 0;
  std::int64_t refused = 0;
  std::int64_t warned = 0;  // of those that are not refused
  // The new components that got the next free number, because neither the table nor the library of
  // --names has one for them. Other libraries can have another number for such a component, and
  // this number for another one.
  Table given{"given numbers", {{"component", ""}, {"number", ""}}};
  // About components that were written, which they did not have before.
  std::vector<Finding> findings;
  // Those that were changed or refused or have a warning, or all. The columns after "what" are the
  // parts of "item", for programs; a refused row has none.
  Table rows{"rows",
             {{"line", ""},
              {"item", ""},
              {"result", ""},
              {"what", ""},
              {"item 1", ""},
              {"item 2", ""},
              {"item 3", ""},
              {"datum", ""}}};
};

// The bank that a word means, which is made if the word is TYPE:NAME and the bank does not exist.
// Throws Failure.
BankName BankForTable(Library& library, std::string const& word);

// Writes what the table holds into the library of the target, which is open for update. A row that
// is refused changes nothing, and the rows after it are still read; the caller must not keep the
// library if it wants all rows or none. `listAll` also lists rows that are new or change nothing.
//
// A cell without a value leaves the datum as it is. Numbers are in the unit that the cell or the
// head names ("1.2 bar", "PC [bar]"), else in the display unit. Throws Failure if a column is not
// of such a table.
ImportedTable ImportTable(TableTarget const& target, std::string const& path,
                          ColumnChoice const& choice, bool listAll);

// The same for a table in memory, whose name in messages is `shownAs`.
ImportedTable ImportRows(TableTarget const& target, TextTable table, std::string const& shownAs,
                         ColumnChoice const& choice, bool listAll);

}  // namespace zel::desk

// A whole library as tables of texts, and back: what a database holds.
//
// library    description, version and memo, one row
// banks      type, name, format, memo and the tables of each bank, in their order
// columns    table, column, unit and meaning
// citations  code, citation and DOI; for people, since the memos have them
//
// and for each bank a table TYPE_NAME of its items; for components also TYPE_NAME_correlations and
// TYPE_NAME_groups. Numbers are in internal units, in all digits.
#pragma once

#include <string>
#include <vector>

#include "desk/formats/sqlite_tables.h"
#include "desk/open/library.h"
#include "desk/words/table.h"

namespace zel::desk {

std::vector<SqlTable> TablesOf(Library const& library);

struct LibraryImport {
  std::int64_t read = 0;  // rows
  std::int64_t isNew = 0;
  std::int64_t changed = 0;
  std::int64_t same = 0;
  std::int64_t refused = 0;
  Table banks{"banks",
              {{"bank", ""},
               {"read", ""},
               {"new", ""},
               {"changed", ""},
               {"the same", ""},
               {"refused", ""}}};
  // Those that were refused, and in a bank that was there those that were changed; or all.
  Table rows{"rows", {{"table", ""}, {"line", ""}, {"item", ""}, {"result", ""}, {"what", ""}}};
};

// The tables of a library in a database: those that its table `banks` names, and the three that
// belong to all. Throws Failure as TablesInSqlite.
std::vector<SqlTable> LibraryTablesIn(std::string const& path);

// Writes the tables into a library that is open for update. A bank that it does not have is made,
// with its format and memo; description, version and memo of the library are set where it has
// none. A row that is refused changes nothing. Throws Failure for tables that are not those of a
// library, and for a table that two banks name.
LibraryImport ImportTables(Library& library, std::vector<SqlTable> const& tables, bool listAll);

}  // namespace zel::desk

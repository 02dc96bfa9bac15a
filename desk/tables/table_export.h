// Banks as tables that ImportTable reads back to the same values.
#pragma once

#include <string>

#include "desk/open/library.h"
#include "desk/tables/table_heads.h"
#include "desk/tables/text_table.h"
#include "desk/words/display_units.h"

namespace zel::desk {

// All items of a bank, with the heads of HeadsOf and all digits; columns without a value are left
// out. Numbers are in display units, gauge pressures in absolute ones, and the heads say so. Items
// of components and pairs have their numbers, and their IDs as far as they are known in columns
// that an import passes over.
TextTable ExportTable(Library const& library, BankName const& bank, TableKind kind,
                      DisplayUnits const& units);

// The table in the form that the ending of the path means: .csv, .tsv or .json; CSV for standard
// output. Throws WrongUsage for another ending.
std::string InFormOf(std::string const& path, TextTable const& table);

}  // namespace zel::desk

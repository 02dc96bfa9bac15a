// What a text in a table consists of, for columns that programs read.
#pragma once

#include <string>
#include <vector>

#include "desk/open/pure_component.h"
#include "desk/words/table.h"

namespace zel::desk {

// The limits and the unit of RangeOf, for the columns "range from", "range to" and "range unit";
// nothing where a limit is open, and no unit if both are.
std::vector<Cell> RangeMembers(Curve const& curve, DisplayUnits const& units);
std::vector<Column> RangeColumns();

// The equation and the range of a record, for the columns "NAME equation", "NAME range from" and so
// on; nothing for a record that is missing.
std::vector<Cell> RecordMembers(Curve const& curve, DisplayUnits const& units);
std::vector<Column> RecordColumns(std::string const& name);

// What an item is named by, for the columns "item 1", "item 2" and "item 3".
std::vector<Cell> PartMembers(std::vector<std::string> const& parts);
std::vector<Column> PartColumns();

// The bank of an item and its parts, for the column "bank" and those of PartColumns.
std::vector<Cell> ItemMembers(std::string const& bank, std::vector<std::string> const& parts);
std::vector<Column> ItemColumns();

// Appends columns, or the cells of a row.
template <typename Part>
void Append(std::vector<Part>& all, std::vector<Part> const& more) {
  all.insert(all.end(), more.begin(), more.end());
}

}  // namespace zel::desk

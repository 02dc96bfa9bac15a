// Numbers with a decimal comma, as spreadsheets in many countries write them.
#pragma once

#include <cstddef>
#include <string>

#include "desk/tables/text_table.h"

namespace zel::desk {

// Whether a column with this head holds texts in which a comma between digits is not a decimal
// sign: names, IDs, formulas and other words for components and items.
bool HoldsNames(std::string const& head);

// Writes the numbers of a column with points: "351,39" and "78,31 C", and each number of a list
// with blanks between them. Other texts stay as they are. Throws Failure, with the line, for a
// number with a point, which may separate thousands.
void ReplaceDecimalCommas(TextTable& table, std::size_t column);

}  // namespace zel::desk

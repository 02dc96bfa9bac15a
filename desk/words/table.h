// Tables of values, as the desk's functions return them; their cells.
#pragma once

#include <zelaccess/DeskTable.h>

#include <cstdint>
#include <string>
#include <vector>

namespace zel::desk {

// A cell with a number; nothing if it is undefined.
Cell Number(double value);
// A cell with a text; nothing if it is empty.
Cell Text(std::string text);
// Texts with blanks between them; nothing for an empty list.
Cell Texts(std::vector<std::string> const& texts);
// A reference code; nothing for 0.
Cell Code(std::uint32_t code);
// 7 significant digits.
std::string Digits(double value);
// The cell as shown in a table in text form: a dash for nothing.
std::string CellText(Cell const& cell);

}  // namespace zel::desk

// Compiled once, in table.cpp.
extern template class std::vector<zel::desk::Cell>;

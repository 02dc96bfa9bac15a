// Tables of values, as the desk's functions return them.
#pragma once

#include <cstdint>
#include <string>
#include <type_traits>
#include <utility>
#include <variant>
#include <vector>

namespace zel::desk {

// Nothing (a dash in text, null in JSON), a text, a whole number, a number, yes or no.
using Cell = std::variant<std::monostate, std::string, std::int64_t, double, bool>;

// A cell with a number; nothing if it is undefined.
Cell Number(double value);
// A cell with a text; nothing if it is empty.
Cell Text(std::string text);
// Texts with blanks between them; nothing if there are none.
Cell Texts(std::vector<std::string> const& texts);
// A reference code; nothing for 0.
Cell Code(std::uint32_t code);
// 7 significant digits.
std::string Digits(double value);
// The cell as shown in a table in text form.
std::string CellText(Cell const& cell);

// Adds a cell to the end of a row.
void Append(std::vector<Cell>& row, Cell cell);

// A row of cells. A list in braces must not be used: if memory runs out in the middle of one, GCC
// 12 destroys cells that were never constructed.
template <typename... Values>
std::vector<Cell> RowOf(Values&&... values) {
  std::vector<Cell> row;
  row.reserve(sizeof...(values));
  (Append(row, Cell(std::forward<Values>(values))), ...);
  return row;
}

struct Column {
  std::string name;        // the heading in text and CSV, the member in JSON
  std::string unit;        // in brackets after the heading; in JSON under "units" of the report
  bool optional = false;   // left out of text that would be too wide
  bool unitInRow = false;  // the unit of each value is in the column "unit" of its row
  bool hidden = false;     // for programs: not in text
  std::string none = {};   // what text shows for an empty cell; a dash if this is empty
};

class Table {
 public:
  Table(std::string name, std::vector<Column> columns);
  // As many cells as columns.
  void Add(std::vector<Cell> row);
  template <typename... Values,
            typename = std::enable_if_t<(std::is_constructible_v<Cell, Values> && ...)>>
  void Add(Values&&... values) {
    Add(RowOf(std::forward<Values>(values)...));
  }
  bool Empty() const { return rows_.empty(); }

  std::string const& Name() const { return name_; }
  std::vector<Column> const& Columns() const { return columns_; }
  std::vector<std::vector<Cell>> const& Rows() const { return rows_; }

 private:
  std::string name_;
  std::vector<Column> columns_;
  std::vector<std::vector<Cell>> rows_;
};

}  // namespace zel::desk

// Compiled once, in table.cpp.
extern template class std::vector<zel::desk::Cell>;

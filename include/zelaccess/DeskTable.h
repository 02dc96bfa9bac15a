/// \file
/// Tables of values, as the desk returns them (Desk.h, DeskChanges.h).
#ifndef ZELACCESS_DESKTABLE_H
#define ZELACCESS_DESKTABLE_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <type_traits>
#include <utility>
#include <variant>
#include <vector>

#include "zelaccess/DeskErrors.h"

namespace zel::desk {

/// A cell: empty, a text, a whole number, a number, or yes or no. It is empty where a datum is
/// undefined or missing.
class Cell : public std::variant<std::monostate, std::string, std::int64_t, double, bool> {
 public:
  /// What it is, for std::get and the other functions of variants.
  using Variant = std::variant<std::monostate, std::string, std::int64_t, double, bool>;

  using Variant::Variant;
  using Variant::operator=;
  /// Makes an empty cell.
  Cell() = default;
  /// Copies a cell. It assigns: the copy constructor of the standard library of GCC 12 destroys a
  /// text that was never constructed if memory runs out.
  /// \param other  the cell
  Cell(Cell const& other) : Cell() { *this = other; }
  /// Moves a cell.
  /// \param other  the cell; unspecified afterwards
  Cell(Cell&& other) noexcept = default;
  /// Copies a cell.
  /// \param other  the cell
  /// \return this cell
  Cell& operator=(Cell const& other) = default;
  /// Moves a cell.
  /// \param other  the cell; unspecified afterwards
  /// \return this cell
  Cell& operator=(Cell&& other) noexcept = default;
  ~Cell() = default;
};

/// Adds a cell to a row.
/// \param row   the row
/// \param cell  what is added at its end
ZEL_DESK_API void Append(std::vector<Cell>& row, Cell cell);

/// Makes a row of cells. It moves them; a list in braces would copy each.
/// \param values  what the cells hold
/// \return a cell for each
template <typename... Values>
std::vector<Cell> RowOf(Values&&... values) {
  std::vector<Cell> row;
  row.reserve(sizeof...(values));
  (Append(row, Cell(std::forward<Values>(values))), ...);
  return row;
}

/// A column of a table.
struct Column {
  std::string name;        ///< Its heading.
  std::string unit;        ///< Unit of its numbers; empty for pure numbers, texts and `unitInRow`.
  bool optional = false;   ///< May be left out where there is not room for all columns.
  bool unitInRow = false;  ///< The unit of each number is in the column "unit" of its row.
  bool hidden = false;     ///< For programs: not shown in text.
  std::string none = {};   ///< What text shows for an empty cell; empty: a dash.
  bool fixedUnit = false;  ///< Its numbers are not converted to display units.
};

/// A name, columns, and rows with a cell for each column.
class ZEL_DESK_API Table {
 public:
  /// \param name     what the rows are
  /// \param columns  the columns
  Table(std::string name, std::vector<Column> columns);
  /// Adds a row.
  /// \param row  as many cells as columns; cells that are missing at its end hold nothing
  void Add(std::vector<Cell> row);
  /// Adds a row of values.
  /// \param values  what its cells hold
  template <typename... Values,
            typename = std::enable_if_t<(std::is_constructible_v<Cell, Values> && ...)>>
  void Add(Values&&... values) {
    Add(RowOf(std::forward<Values>(values)...));
  }
  /// Adds a row whose numbers are not converted to display units, whatever its unit.
  /// \param row  as many cells as columns; cells that are missing at its end hold nothing
  void AddAsIs(std::vector<Cell> row);
  /// Says whether the numbers of a row are not converted.
  /// \param row  from 0, less than the number of rows
  /// \return true for a row of AddAsIs
  bool IsAsIs(std::size_t row) const;
  /// Says whether it has no rows.
  /// \return true if it has none
  bool Empty() const { return rows_.empty(); }
  /// Returns what the rows are.
  /// \return the name
  std::string const& Name() const { return name_; }
  /// Returns the columns.
  /// \return the columns, in order
  std::vector<Column> const& Columns() const { return columns_; }
  /// Returns the rows.
  /// \return the rows; each has a cell for each column
  std::vector<std::vector<Cell>> const& Rows() const { return rows_; }

 private:
  std::string name_;
  std::vector<Column> columns_;
  std::vector<std::vector<Cell>> rows_;
  std::vector<std::size_t> asIs_;  // rows that are not converted, in ascending order
};

}  // namespace zel::desk

#endif  // ZELACCESS_DESKTABLE_H

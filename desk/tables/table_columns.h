// What the columns of a table mean, by their heads or by a mapping file.
#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "desk/tables/text_table.h"
#include "desk/words/display_units.h"

namespace zel::desk {

// How a user says what columns mean.
struct ColumnChoice {
  // A file with lines "HEAD = MEANING", e.g. "m = rmw" or "Tcrit = TC [C]"; "HEAD =" leaves the
  // column out, "MEANING := VALUE" gives all rows a value for which there is no column. Lines that
  // begin with "#" are comments. Empty for none.
  std::string mapPath;
  std::vector<std::string> ignored;  // heads
  std::vector<std::string> where;    // "HEAD=VALUE": only rows with this cell
  bool decimalComma = false;         // numbers are written "351,39"
};

// A column with what its head means: the name in front of the unit in brackets.
class TableColumn {
 public:
  TableColumn(std::string const& head, std::size_t at);
  TableColumn(std::string const& meaning, std::string fixed);

  std::string const& Name() const { return name_; }
  std::string const& Unit() const { return unit_; }
  // A column by which rows were chosen. It is data only if the table has such a column.
  void MakeSpare() { isSpare_ = true; }
  bool IsSpare() const { return isSpare_; }
  bool Is(std::string const& name) const;
  bool IsOneOf(std::vector<std::string> const& names) const;
  // The cell of a row, or the value that all rows have.
  std::string const& In(TextRow const& row) const;
  // The units in which numbers of the column are, for data in the internal unit `unit`: that of the
  // head, else `shown`. Throws Failure if the head names another kind of unit.
  DisplayUnits UnitsFor(std::string const& unit, DisplayUnits const& shown) const;

 private:
  std::string name_;
  std::string unit_;
  std::optional<std::size_t> at_;
  std::string fixed_;
  bool isSpare_ = false;
};

// The columns that are not left out. Removes the rows that are not chosen from the table. Throws
// Failure for a mapping or a choice of a head that the table does not have, and for a choice that
// no row meets.
std::vector<TableColumn> ChosenColumns(TextTable& table, ColumnChoice const& choice);

// Takes the columns with one of these names out of the list; the earlier name is preferred.
std::optional<TableColumn> TakeColumn(std::vector<TableColumn>& columns,
                                      std::vector<std::string> const& names);
// Throws Failure, with suggestions, if columns are left that are not spare.
void RefuseRest(std::vector<TableColumn> const& rest, std::vector<std::string> const& candidates);

}  // namespace zel::desk

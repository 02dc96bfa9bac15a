// Results as rows and columns.
#include <algorithm>
#include <variant>

#include "border.h"

namespace {

using zel::desk::Cell;
using zel::desk::Column;
using zelc::CopyText;
using zelc::Guarded;
using zelc::Need;
using zelc::Refusal;

Column const& ColumnOf(zel_table const* table, std::size_t column) {
  std::vector<Column> const& columns = Need(table, "table").table.Columns();
  if (column < columns.size()) return columns[column];
  throw Refusal(ZEL_BAD_ARGUMENT, "there is no column " + std::to_string(column) +
                                      " in a table of " + std::to_string(columns.size()));
}

Cell const& CellOf(zel_table const* table, std::size_t row, std::size_t column) {
  ColumnOf(table, column);
  std::vector<std::vector<Cell>> const& rows = table->table.Rows();
  if (row < rows.size()) return rows[row][column];
  throw Refusal(ZEL_BAD_ARGUMENT, "there is no row " + std::to_string(row) + " in a table of " +
                                      std::to_string(rows.size()));
}

Cell const& FilledCell(zel_table const* table, std::size_t row, std::size_t column) {
  Cell const& cell = CellOf(table, row, column);
  if (std::holds_alternative<std::monostate>(cell)) {
    throw Refusal(ZEL_NO_VALUE, "the cell is empty");
  }
  return cell;
}

std::int32_t KindOf(Cell const& cell) {
  struct Visitor {
    std::int32_t operator()(std::monostate) const { return ZEL_CELL_EMPTY; }
    std::int32_t operator()(std::string const&) const { return ZEL_CELL_TEXT; }
    std::int32_t operator()(std::int64_t) const { return ZEL_CELL_INTEGER; }
    std::int32_t operator()(double) const { return ZEL_CELL_NUMBER; }
    std::int32_t operator()(bool) const { return ZEL_CELL_YES_NO; }
  };
  return std::visit(Visitor{}, static_cast<Cell::Variant const&>(cell));
}

// NaN for what is not a number.
double NumberOf(Cell const& cell) {
  if (double const* const number = std::get_if<double>(&cell)) return *number;
  if (std::int64_t const* const whole = std::get_if<std::int64_t>(&cell)) {
    return static_cast<double>(*whole);
  }
  if (bool const* const yes = std::get_if<bool>(&cell)) return *yes ? 1.0 : 0.0;
  return zelc::kNan;
}

}  // namespace

zel_status zel_table_free(zel_table** table) { return zelc::EndHandle(table, "table"); }

zel_status zel_table_size(zel_table const* table, size_t* rows, size_t* columns) {
  return Guarded([&] {
    zel::desk::Table const& held = Need(table, "table").table;
    if (rows != nullptr) *rows = held.Rows().size();
    if (columns != nullptr) *columns = held.Columns().size();
  });
}

zel_status zel_table_column(zel_table const* table, char const* name, size_t* column) {
  return Guarded([&] {
    std::vector<Column> const& columns = Need(table, "table").table.Columns();
    std::string const heading = zelc::NeedText(name, "name");
    Need(column, "column");
    auto const at = std::find_if(columns.begin(), columns.end(),
                                 [&](Column const& one) { return one.name == heading; });
    if (at == columns.end()) {
      throw Refusal(ZEL_UNKNOWN_WORD, "the table has no column \"" + heading + "\"");
    }
    *column = static_cast<std::size_t>(at - columns.begin());
  });
}

zel_status zel_table_heading(zel_table const* table, size_t column, char* text, size_t size,
                             size_t* length) {
  return Guarded([&] { CopyText(ColumnOf(table, column).name, text, size, length); });
}

zel_status zel_table_unit(zel_table const* table, size_t column, char* text, size_t size,
                          size_t* length) {
  return Guarded([&] { CopyText(ColumnOf(table, column).unit, text, size, length); });
}

zel_status zel_table_kind(zel_table const* table, size_t row, size_t column, int32_t* kind) {
  return Guarded([&] {
    std::int32_t const found = KindOf(CellOf(table, row, column));
    Need(kind, "kind") = found;
  });
}

zel_status zel_table_number(zel_table const* table, size_t row, size_t column, double* number) {
  return Guarded([&] {
    Cell const& cell = FilledCell(table, row, column);
    if (std::holds_alternative<std::string>(cell)) {
      throw Refusal(ZEL_WRONG_TYPE, "the cell holds a text, not a number");
    }
    Need(number, "number") = NumberOf(cell);
  });
}

zel_status zel_table_integer(zel_table const* table, size_t row, size_t column, int64_t* integer) {
  return Guarded([&] {
    Cell const& cell = FilledCell(table, row, column);
    if (std::int64_t const* const whole = std::get_if<std::int64_t>(&cell)) {
      Need(integer, "integer") = *whole;
    } else if (bool const* const yes = std::get_if<bool>(&cell)) {
      Need(integer, "integer") = *yes ? 1 : 0;
    } else {
      throw Refusal(ZEL_WRONG_TYPE, "the cell does not hold a whole number");
    }
  });
}

zel_status zel_table_text(zel_table const* table, size_t row, size_t column, char* text,
                          size_t size, size_t* length) {
  return Guarded([&] {
    std::string const* const held = std::get_if<std::string>(&FilledCell(table, row, column));
    if (held == nullptr) throw Refusal(ZEL_WRONG_TYPE, "the cell holds a number, not a text");
    CopyText(*held, text, size, length);
  });
}

zel_status zel_table_numbers(zel_table const* table, size_t column, double* values, size_t count) {
  return Guarded([&] {
    ColumnOf(table, column);
    zelc::NeedArray(values, count, "values");
    std::vector<std::vector<Cell>> const& rows = table->table.Rows();
    if (count < rows.size()) {
      throw Refusal(ZEL_TOO_SMALL, "the array has room for " + std::to_string(count) + " of " +
                                       std::to_string(rows.size()) + " rows");
    }
    for (std::size_t row = 0; row < rows.size(); ++row) values[row] = NumberOf(rows[row][column]);
  });
}

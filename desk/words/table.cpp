#include "desk/words/table.h"

#include <zelaccess/Types.h>

#include <algorithm>
#include <charconv>
#include <cmath>

template class std::vector<zel::desk::Cell>;

namespace zel::desk {

Cell Number(double value) {
  if (zel::gen_IsUndefDouble(value) || !std::isfinite(value)) return {};
  return value;
}

Cell Text(std::string text) {
  if (text.empty()) return {};
  return text;
}

Cell Texts(std::vector<std::string> const& texts) {
  std::string joined;
  for (std::string const& text : texts) joined += (joined.empty() ? "" : " ") + text;
  return Text(joined);
}

Cell Code(std::uint32_t code) {
  if (code == 0) return {};
  return std::int64_t{code};
}

std::string Digits(double value) {
  char text[32];
  auto const [end, error] =
      std::to_chars(text, text + sizeof(text), value, std::chars_format::general, 7);
  return {text, end};
}

void Append(std::vector<Cell>& row, Cell cell) { row.push_back(std::move(cell)); }

std::string CellText(Cell const& cell) {
  struct Printer {
    std::string operator()(std::monostate) const { return "-"; }
    std::string operator()(std::string const& text) const { return text; }
    std::string operator()(std::int64_t number) const { return std::to_string(number); }
    std::string operator()(double number) const { return Digits(number); }
    std::string operator()(bool yes) const { return yes ? "yes" : "no"; }
  };
  return std::visit(Printer{}, cell);
}

Table::Table(std::string name, std::vector<Column> columns)
    : name_(std::move(name)), columns_(std::move(columns)) {}

void Table::Add(std::vector<Cell> row) {
  row.resize(columns_.size());
  rows_.push_back(std::move(row));
}

void Table::AddAsIs(std::vector<Cell> row) {
  asIs_.push_back(rows_.size());
  Add(std::move(row));
}

bool Table::IsAsIs(std::size_t row) const {
  return std::binary_search(asIs_.begin(), asIs_.end(), row);
}

}  // namespace zel::desk

#include "output/report.h"

#include <zelaccess/Types.h>

#include <fmt/format.h>

#include <cmath>

#include "output/report_forms.h"

namespace zelhost {

std::string Head(Column const& column) {
  return column.unit.empty() ? column.name : column.name + " [" + column.unit + "]";
}

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

std::string Digits(double value) { return fmt::format("{:.7g}", value); }

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

void Report::Fact(std::string name, Cell value) {
  facts_.push_back({std::move(name), std::move(value)});
}

void Report::Warning(std::string name, Cell value) {
  facts_.push_back({std::move(name), std::move(value), true});
}

Table& Report::Begin(std::string name, std::vector<Column> columns) {
  return tables_.emplace_back(std::move(name), std::move(columns));
}

bool Report::MakeChange() {
  if (!change_) return false;
  change_();
  return true;
}

void Report::Add(Table table) { tables_.push_back(std::move(table)); }

std::string Print(Report const& report, Form form) {
  switch (form) {
    case Form::kJson: return PrintJson(report);
    case Form::kCsv: return PrintCsv(report);
    default: return PrintText(report);
  }
}

}  // namespace zelhost

// The tables of a report as comma-separated values.
#include <fmt/format.h>

#include <algorithm>

#include "desk/words/number_words.h"
#include "output/report_forms.h"

namespace zelhost {
namespace {

// Spreadsheets run a cell that begins with one of these as a formula, with or without quotes around
// it. An apostrophe in front makes it a text. Numbers, and lists of numbers, stay as they are.
bool MayRun(std::string const& text) {
  if (text.empty() || std::string("=+-@\t\r\n").find(text[0]) == std::string::npos) return false;
  for (std::size_t at = 0; at < text.size();) {
    std::size_t const end = std::min(text.find(' ', at), text.size());
    if (end == at || !IsNumberWord(text.substr(at, end - at))) return true;
    at = end + 1;
  }
  return false;
}

std::string CsvText(std::string const& text) {
  std::string const safe = MayRun(text) ? "'" + text : text;
  if (safe == text && text.find_first_of(",;\t\"\n\r") == std::string::npos) return text;
  std::string quoted = "\"";
  for (char const c : safe) {
    if (c == '"') quoted += '"';
    quoted += c;
  }
  return quoted + '"';
}

std::string CsvCell(Cell const& cell) {
  if (std::holds_alternative<std::monostate>(cell)) return "";
  // As many digits as are needed to read the number back exactly.
  if (auto const* number = std::get_if<double>(&cell)) return fmt::format("{}", *number);
  if (auto const* text = std::get_if<std::string>(&cell)) return CsvText(*text);
  return CellText(cell);
}

void PrintTable(Table const& table, std::string& out) {
  auto const line = [&](auto const& cells, auto const& text) {
    for (std::size_t i = 0; i < cells.size(); ++i) {
      if (i != 0) out += ',';
      out += text(cells[i]);
    }
    out += '\n';
  };
  line(table.Columns(), [](Column const& column) { return CsvText(Head(column)); });
  for (auto const& row : table.Rows()) line(row, CsvCell);
}

}  // namespace

std::string PrintCsv(Report const& report) {
  Table warnings("warnings", {{"warning", ""}, {"text", ""}});
  for (auto const& fact : report.Facts()) {
    if (fact.isWarning) warnings.Add(fact.name, fact.value);
  }
  std::vector<Table const*> tables;
  for (std::size_t i = 0; i < report.Tables().size(); ++i) {
    if (!report.IsAside(i)) tables.push_back(&report.Tables()[i]);
  }
  Table facts("facts", {{"fact", ""}, {"value", ""}});
  if (tables.empty()) {
    for (auto const& fact : report.Facts()) {
      if (!fact.isWarning) facts.Add(fact.name, fact.value);
    }
    if (!facts.Empty()) tables.push_back(&facts);
  }
  if (!warnings.Empty()) tables.push_back(&warnings);
  std::string out;
  bool const titled = tables.size() > 1;
  for (Table const* const table : tables) {
    if (!out.empty()) out += '\n';
    if (titled) out += CsvText(table->Name()) + '\n';
    PrintTable(*table, out);
  }
  return out;
}

}  // namespace zelhost

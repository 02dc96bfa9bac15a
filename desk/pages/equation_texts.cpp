#include "desk/pages/equation_texts.h"

#include <algorithm>
#include <charconv>
#include <string_view>

#include "desk/pages/embedded.h"

namespace zel::desk {
namespace {

std::string_view Trimmed(std::string_view text) {
  std::size_t const first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') + 1 - first);
}

// The cells of a row "| a | b |" of a table; none for another line.
std::vector<std::string> CellsOf(std::string_view line) {
  std::vector<std::string> cells;
  if (line.empty() || line.front() != '|') return cells;
  line.remove_prefix(1);
  for (std::size_t bar = line.find('|'); bar != std::string_view::npos; bar = line.find('|')) {
    cells.emplace_back(Trimmed(line.substr(0, bar)));
    line.remove_prefix(bar + 1);
  }
  return cells;
}

std::vector<std::string_view> LinesOf(std::string_view text) {
  std::vector<std::string_view> lines;
  while (!text.empty()) {
    std::size_t const end = std::min(text.find('\n'), text.size());
    lines.push_back(text.substr(0, end));
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return lines;
}

// The lines between the heading and the next one.
std::vector<std::string_view> Section(std::string_view heading) {
  std::vector<std::string_view> found;
  bool isIn = false;
  for (std::string_view const line : LinesOf(Embedded(kEquationDocument))) {
    if (line.substr(0, 3) == "## ") isIn = line.substr(3) == heading;
    if (isIn) found.push_back(line);
  }
  return found;
}

// The paragraph that begins with "**23.** ", without this beginning.
std::string Paragraph(std::vector<std::string_view> const& lines, int number) {
  std::string const begin = "**" + std::to_string(number) + ".** ";
  std::string text;
  for (std::string_view const line : lines) {
    if (!text.empty()) {
      if (line.empty()) break;
      text += " " + std::string(line);
    } else if (line.substr(0, begin.size()) == begin) {
      text = line.substr(begin.size());
    }
  }
  return text;
}

std::vector<EquationText> ReadEquations() {
  std::vector<EquationText> equations;
  std::vector<std::string_view> const lines = Section("Forms");
  for (std::string_view const line : lines) {
    std::vector<std::string> cells = CellsOf(line);
    int number = 0;
    if (cells.size() != 4) continue;
    std::string const& word = cells[0];
    if (std::from_chars(word.data(), word.data() + word.size(), number).ec != std::errc()) continue;
    if (cells[2] == "below") cells[2] = Paragraph(lines, number);
    equations.push_back({number, cells[1], cells[2], cells[3]});
  }
  return equations;
}

std::vector<std::pair<std::string, std::string>> ReadSymbols() {
  std::vector<std::pair<std::string, std::string>> symbols;
  for (std::string_view const line : Section("Symbols")) {
    std::vector<std::string> cells = CellsOf(line);
    if (cells.size() != 2 || cells[0] == "Symbol" || cells[0].substr(0, 1) == "-") continue;
    std::string& meaning = cells[1];
    meaning.erase(std::remove(meaning.begin(), meaning.end(), '`'), meaning.end());
    symbols.emplace_back(std::move(cells[0]), std::move(cells[1]));
  }
  return symbols;
}

}  // namespace

std::vector<EquationText> const& EquationTexts() {
  static std::vector<EquationText> const equations = ReadEquations();
  return equations;
}

std::vector<std::pair<std::string, std::string>> const& EquationSymbols() {
  static std::vector<std::pair<std::string, std::string>> const symbols = ReadSymbols();
  return symbols;
}

}  // namespace zel::desk

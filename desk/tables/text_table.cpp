#include "desk/tables/text_table.h"

#include <algorithm>
#include <iostream>
#include <set>
#include <string_view>

#include "desk/files/plain_input.h"
#include "desk/tables/json_table.h"
#include "desk/tables/separated_values.h"
#include "desk/words/failure.h"
#include "desk/words/letters.h"

namespace zel::desk {
namespace {

constexpr char kBlanks[] = " \t\r\n";

std::string Trimmed(std::string const& text) {
  std::size_t const first = text.find_first_not_of(kBlanks);
  if (first == std::string::npos) return "";
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

// Data tables for people, with columns aligned by blanks.
bool IsAligned(std::string const& text) {
  return text.compare(0, 2, "#!") == 0 || text.find("\n#!") != std::string::npos;
}

std::vector<std::string> BlankSeparated(std::string const& line) {
  std::istringstream words(line);
  std::vector<std::string> cells;
  for (std::string word; words >> word;) cells.push_back(word);
  return cells;
}

std::vector<TextRow> AlignedRows(std::string const& text) {
  std::vector<TextRow> rows;
  std::istringstream lines(text);
  std::string line;
  for (std::size_t number = 1; std::getline(lines, line); ++number) {
    bool const isHead = line.compare(0, 2, "#!") == 0;
    if (isHead) line.erase(0, 2);
    if (!isHead && line.compare(0, 1, "#") == 0) continue;
    std::vector<std::string> cells = BlankSeparated(line.substr(0, line.find("  #")));
    if (!cells.empty()) rows.push_back({number, std::move(cells)});
  }
  return rows;
}

// Whether each byte above ASCII belongs to a sequence of UTF-8.
bool IsUtf8(std::string const& text) {
  std::size_t following = 0;  // bytes that the sequence still needs
  for (char const c : text) {
    auto const byte = static_cast<unsigned char>(c);
    bool const continues = byte >= 0x80 && byte < 0xC0;
    if (continues != (following > 0)) return false;
    following = continues ? following - 1 : byte < 0xC0 ? 0 : byte < 0xE0 ? 1 : byte < 0xF0 ? 2 : 3;
  }
  return following == 0;
}

void CheckHeads(TextTable const& table, std::string const& shownAs) {
  std::set<std::string> seen;
  for (std::string const& head : table.heads) {
    if (!IsUtf8(head)) {
      throw Failure(shownAs +
                    ": a head is not UTF-8 text; a spreadsheet saves it as \"CSV UTF-8\"");
    }
    if (head.empty()) throw Failure(shownAs + ": a column has no head");
    if (!seen.insert(LowerCase(head)).second) {
      throw Failure(std::string(shownAs).append(": two columns have the head ").append(head));
    }
  }
}

// The first row is the heads.
TextTable TableOf(std::vector<TextRow> rows, std::string const& shownAs) {
  TextTable table;
  for (TextRow& row : rows) {
    for (std::string& cell : row.cells) cell = Trimmed(cell);
    bool const isEmpty = std::all_of(row.cells.begin(), row.cells.end(),
                                     [](std::string const& cell) { return cell.empty(); });
    if (isEmpty) continue;
    if (table.heads.empty()) {
      table.heads = std::move(row.cells);
      continue;
    }
    if (row.cells.size() != table.heads.size()) {
      row.fault = std::to_string(row.cells.size()) + " values, but there are " +
                  std::to_string(table.heads.size()) + " columns";
      row.cells.resize(table.heads.size());
    }
    for (std::string& cell : row.cells) {
      if (cell == "-") cell.clear();
      if (IsProtected(cell)) cell.erase(0, 1);
    }
    table.rows.push_back(std::move(row));
  }
  if (table.heads.empty()) throw Failure(shownAs + ": is empty; the first line names the columns");
  return table;
}

}  // namespace

std::size_t TextTable::Find(std::string const& head) const {
  auto const at = std::find_if(heads.begin(), heads.end(), [&](std::string const& one) {
    return LowerCase(one) == LowerCase(head);
  });
  return static_cast<std::size_t>(at - heads.begin());
}

namespace {

TextTable Parse(std::string const& given, std::string const& shownAs) {
  constexpr std::string_view kByteOrderMark = "\xef\xbb\xbf";
  std::string const text = given.compare(0, 3, kByteOrderMark) == 0 ? given.substr(3) : given;
  bool const isBook = text.compare(0, 4, "PK\003\004") == 0;  // .xlsx, .ods
  if (isBook || text.find('\0') != std::string::npos) {
    throw Failure(shownAs + ": is not a text file; a spreadsheet saves one as \"CSV UTF-8\"");
  }
  std::size_t const first = text.find_first_not_of(kBlanks);
  TextTable table;
  if (first != std::string::npos && text[first] == '{') {
    throw Failure(shownAs + ": is not a table: in JSON, that is an array of objects, [{...}, ...]");
  }
  if (first != std::string::npos && text[first] == '[') {
    table = ParseJsonTable(text, shownAs);
  } else if (IsAligned(text)) {
    table = TableOf(AlignedRows(text), shownAs);
  } else {
    table = TableOf(SeparatedRows(text, shownAs), shownAs);
  }
  CheckHeads(table, shownAs);
  return table;
}

void RefuseFaults(TextTable const& table, std::string const& shownAs) {
  for (TextRow const& row : table.rows) {
    if (row.fault.empty()) continue;
    throw Failure(shownAs + ", line " + std::to_string(row.line) + ": " + row.fault);
  }
}

}  // namespace

TextTable ParseTextTable(std::string const& text, std::string const& shownAs) {
  TextTable table = Parse(text, shownAs);
  RefuseFaults(table, shownAs);
  return table;
}

TextTable ReadTextTable(std::string const& path, bool keepsBadRows) {
  bool const isInput = path == "-" || path == "/dev/stdin";
  std::ifstream file;
  if (!isInput) file = OpenPlainInput(path);
  std::istream& input = isInput ? std::cin : file;
  std::string text;
  std::vector<char> piece(1 << 16);
  do {
    input.read(piece.data(), static_cast<std::streamsize>(piece.size()));
    text.append(piece.data(), static_cast<std::size_t>(input.gcount()));
  } while (input);
  if (input.bad()) throw Failure(path + ": cannot be read");
  std::string const shownAs = isInput ? "standard input" : path;
  return keepsBadRows ? Parse(text, shownAs) : ParseTextTable(text, shownAs);
}

}  // namespace zel::desk

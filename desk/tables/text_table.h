// Tables in files, as texts.
#pragma once

#include <string>
#include <vector>

namespace zel::desk {

struct TextRow {
  std::size_t line = 0;  // where it begins in the file, from 1
  std::vector<std::string> cells;
  std::string fault = {};  // "6 values, but there are 7 columns"; empty for a good row
};

// Cells are without blanks at their ends; a cell without a value is empty. All rows have as many
// cells as there are heads.
struct TextTable {
  std::vector<std::string> heads;
  std::vector<TextRow> rows;

  // The column with this head, in upper or lower case; heads.size() if the table does not have it.
  std::size_t Find(std::string const& head) const;
};

// Reads a table from a file, or from standard input if the path is "-":
//
// - values separated by commas, semicolons or tabs, whichever is most frequent in the first line,
//   which has the heads; a line "sep=;" before it names the separator. Values can be in double
//   quotes and then contain separators, line ends and doubled quotes. A byte order mark, empty
//   lines and lines of empty values are skipped;
// - JSON, an array of objects whose members are the cells: texts, numbers, true, false, null, or
//   arrays of these. The heads are the members of all objects in the order in which they occur;
// - values separated by blanks, if a line begins with "#!", which has the heads. A value "-" is
//   missing. Other lines that begin with "#" and what follows "  #" are comments.
//
// In values separated by commas, semicolons or tabs, "-" is a missing value too. An apostrophe
// before =, +, -, @, a blank or a control character, with which tables protect spreadsheets from
// formulas and texts from being read as something else, is removed.
//
// Throws Failure with the file and the line for a file that cannot be read, is not such a table,
// has a head twice or none, or a row with another number of cells. With `keepsBadRows`, such a row
// has a fault instead, and as many cells as there are heads.
TextTable ReadTextTable(std::string const& path, bool keepsBadRows = false);
// The same from a text; `shownAs` is its name in messages.
TextTable ParseTextTable(std::string const& text, std::string const& shownAs);

// The table as separated values that ReadTextTable reads back to the same cells, without blanks at
// their ends.
std::string ToCsv(TextTable const& table, char separator);
// The table as a JSON array of objects.
std::string ToJson(TextTable const& table);

}  // namespace zel::desk

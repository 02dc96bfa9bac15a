#include "desk/tables/decimal_comma.h"

#include <algorithm>
#include <sstream>
#include <vector>

#include "desk/words/failure.h"
#include "desk/words/letters.h"

namespace zel::desk {
namespace {

constexpr char kDigits[] = "0123456789";

// A number in front of anything else: where its decimal sign is, or npos.
std::size_t DecimalSignIn(std::string const& word) {
  std::size_t const first = word.find_first_not_of("+-");
  if (first == std::string::npos || first > 1) return std::string::npos;
  std::size_t const sign = word.find_first_not_of(kDigits, first);
  if (sign == std::string::npos || (word[sign] != ',' && word[sign] != '.')) {
    return std::string::npos;
  }
  bool const hasDigits =
      sign > first || (sign + 1 < word.size() && word[sign + 1] >= '0' && word[sign + 1] <= '9');
  return hasDigits ? sign : std::string::npos;
}

std::string WithPoints(std::string const& cell, std::size_t line) {
  std::istringstream words(cell);
  std::string text;
  for (std::string word; words >> word;) {
    std::size_t const sign = DecimalSignIn(word);
    if (sign != std::string::npos) {
      if (word[sign] == '.') {
        throw Failure("line " + std::to_string(line) + ": \"" + word +
                      "\" has a point, and numbers with a decimal comma have none");
      }
      word[sign] = '.';
    }
    text += (text.empty() ? "" : " ") + word;
  }
  return text;
}

}  // namespace

bool HoldsNames(std::string const& head) {
  static std::vector<std::string> const names = {"name", "component", "item", "id",    "ids",
                                                 "cas",  "formula",   "key",  "smiles"};
  std::string const lower = LowerCase(head);
  return std::any_of(names.begin(), names.end(), [&](std::string const& name) {
    return lower == name || lower.rfind(name + " ", 0) == 0;
  });
}

void ReplaceDecimalCommas(TextTable& table, std::size_t column) {
  for (TextRow& row : table.rows) row.cells[column] = WithPoints(row.cells[column], row.line);
}

}  // namespace zel::desk

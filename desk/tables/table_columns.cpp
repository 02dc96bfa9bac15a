#include "desk/tables/table_columns.h"

#include <algorithm>
#include <sstream>

#include "desk/files/plain_input.h"
#include "desk/tables/decimal_comma.h"
#include "desk/words/failure.h"
#include "desk/words/letters.h"
#include "desk/words/mass_units.h"
#include "desk/words/nearest_word.h"

namespace zel::desk {
namespace {

std::string Trimmed(std::string const& text) {
  std::size_t const first = text.find_first_not_of(" \t\r");
  if (first == std::string::npos) return "";
  return text.substr(first, text.find_last_not_of(" \t\r") - first + 1);
}

// "TC [K]" is a name and a unit.
std::pair<std::string, std::string> NameAndUnit(std::string const& head) {
  std::size_t const open = head.rfind('[');
  if (open == std::string::npos || head.empty() || head.back() != ']') return {Trimmed(head), ""};
  return {Trimmed(head.substr(0, open)), Trimmed(head.substr(open + 1, head.size() - open - 2))};
}

struct Mapping {
  std::vector<std::pair<std::string, std::string>> meanings;  // by head
  std::vector<std::pair<std::string, std::string>> fixed;     // by meaning
};

Mapping ReadMapping(std::string const& path) {
  Mapping mapping;
  if (path.empty()) return mapping;
  std::ifstream file = OpenPlainInput(path);
  std::string line;
  for (std::size_t number = 1; std::getline(file, line); ++number) {
    line = Trimmed(line);
    if (line.empty() || line[0] == '#') continue;
    std::size_t const equal = line.find('=');
    if (equal == std::string::npos || equal == 0) {
      throw Failure(path + ", line " + std::to_string(number) +
                    ": is neither HEAD = MEANING nor MEANING := VALUE");
    }
    bool const isFixed = line[equal - 1] == ':';
    auto& rows = isFixed ? mapping.fixed : mapping.meanings;
    rows.emplace_back(Trimmed(line.substr(0, isFixed ? equal - 1 : equal)),
                      Trimmed(line.substr(equal + 1)));
  }
  return mapping;
}

std::size_t Found(TextTable const& table, std::string const& head) {
  std::size_t const at = table.Find(head);
  if (at == table.heads.size()) {
    throw Failure("there is no column " + head + DidYouMean(head, table.heads) +
                  " the table has other columns");
  }
  return at;
}

void KeepRows(TextTable& table, std::vector<std::string> const& where) {
  for (std::string const& condition : where) {
    std::size_t const equal = condition.find('=');
    if (equal == std::string::npos) throw WrongUsage("\"" + condition + "\" is not HEAD=VALUE");
    std::size_t const at = Found(table, condition.substr(0, equal));
    std::string const value = condition.substr(equal + 1);
    std::vector<std::string> cells;
    for (TextRow const& row : table.rows) cells.push_back(row.cells[at]);
    // For a faulty row it is not known which cell belongs to which column.
    auto const isOther = [&](TextRow const& row) {
      return row.fault.empty() && row.cells[at] != value;
    };
    auto const kept = std::remove_if(table.rows.begin(), table.rows.end(), isOther);
    table.rows.erase(kept, table.rows.end());
    if (table.rows.empty() && !cells.empty()) {
      std::string const near = NearestWord(value, cells);
      throw Failure("no row has \"" + value + "\" in the column " + table.heads[at] +
                    (near.empty() ? "" : "; did you mean " + near + "?"));
    }
  }
}

// Without this check, a second column of one name would be left over.
void RefuseTwice(std::vector<TableColumn> const& columns) {
  for (auto at = columns.begin(); at != columns.end(); ++at) {
    auto const isSame = [at](TableColumn const& other) { return other.Is(at->Name()); };
    if (std::none_of(columns.begin(), at, isSame)) continue;
    throw Failure("several columns mean " + at->Name() + "; --ignore leaves a column out");
  }
}

}  // namespace

TableColumn::TableColumn(std::string const& head, std::size_t at) : at_(at) {
  std::tie(name_, unit_) = NameAndUnit(head);
}

TableColumn::TableColumn(std::string const& meaning, std::string fixed) : fixed_(std::move(fixed)) {
  std::tie(name_, unit_) = NameAndUnit(meaning);
}

bool TableColumn::Is(std::string const& name) const { return LowerCase(name_) == LowerCase(name); }

bool TableColumn::IsOneOf(std::vector<std::string> const& names) const {
  return std::any_of(names.begin(), names.end(),
                     [this](std::string const& name) { return Is(name); });
}

std::string const& TableColumn::In(TextRow const& row) const {
  return at_ ? row.cells[*at_] : fixed_;
}

DisplayUnits TableColumn::UnitsFor(std::string const& unit, DisplayUnits const& shown) const {
  if (unit_.empty()) return shown;
  std::string const named = UnitNamed(unit_, unit);
  if (named == unit) return {};
  if (IsPerMassOf(unit_, unit)) {
    throw Failure("column " + name_ + ": " + WhyNotPerMass(unit_, unit));
  }
  if (named.empty()) {
    throw Failure("column " + name_ + ": " + unit_ + " is not a unit for " +
                  (unit.empty() ? "pure numbers" : "values in " + unit));
  }
  return DisplayUnits(unit_);
}

std::vector<TableColumn> ChosenColumns(TextTable& table, ColumnChoice const& choice) {
  Mapping const mapping = ReadMapping(choice.mapPath);
  std::vector<bool> isLeftOut(table.heads.size());
  std::vector<std::string> meanings = table.heads;
  for (std::string const& head : choice.ignored) isLeftOut[Found(table, head)] = true;
  std::vector<bool> isSpare(table.heads.size());
  for (std::string const& condition : choice.where) {
    std::size_t const at = table.Find(condition.substr(0, condition.find('=')));
    if (at < isSpare.size()) isSpare[at] = true;
  }
  for (auto const& [head, meaning] : mapping.meanings) {
    std::size_t const at = Found(table, head);
    meanings[at] = meaning;
    isLeftOut[at] = meaning.empty();
    isSpare[at] = false;
  }
  KeepRows(table, choice.where);
  std::vector<TableColumn> columns;
  for (std::size_t i = 0; i < meanings.size(); ++i) {
    if (isLeftOut[i]) continue;
    columns.emplace_back(meanings[i], i);
    if (isSpare[i]) columns.back().MakeSpare();
    bool const hasNumbers = !isSpare[i] && !HoldsNames(columns.back().Name());
    if (choice.decimalComma && hasNumbers) ReplaceDecimalCommas(table, i);
  }
  for (auto const& [meaning, value] : mapping.fixed) columns.emplace_back(meaning, value);
  RefuseTwice(columns);
  return columns;
}

std::optional<TableColumn> TakeColumn(std::vector<TableColumn>& columns,
                                      std::vector<std::string> const& names) {
  for (std::string const& name : names) {
    auto const at = std::find_if(columns.begin(), columns.end(),
                                 [&](TableColumn const& column) { return column.Is(name); });
    if (at == columns.end()) continue;
    std::optional<TableColumn> taken = std::move(*at);
    columns.erase(at);
    return taken;
  }
  return std::nullopt;
}

void RefuseRest(std::vector<TableColumn> const& rest, std::vector<std::string> const& candidates) {
  std::vector<std::string> left;
  for (TableColumn const& column : rest) {
    if (!column.IsSpare()) left.push_back(column.Name());
  }
  if (left.empty()) return;
  std::string names;
  for (std::string const& name : left) names += (names.empty() ? "" : ", ") + name;
  throw Failure("not a column of such a table: " + names + DidYouMean(left.front(), candidates) +
                " `zel template` lists the heads; --ignore leaves a column out");
}

}  // namespace zel::desk

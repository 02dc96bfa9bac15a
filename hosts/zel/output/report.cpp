#include "output/report.h"

#include <algorithm>
#include <iterator>

#include "output/report_forms.h"

namespace zelhost {

std::string Head(Column const& column) {
  return column.unit.empty() ? column.name : column.name + " [" + column.unit + "]";
}

void Report::Fact(std::string name, Cell value) {
  facts_.push_back({std::move(name), std::move(value)});
}

void Report::Fact(std::string name, std::string shownAs, Cell value) {
  facts_.push_back({std::move(name), std::move(value), false, false, std::move(shownAs)});
}

void Report::JsonFact(std::string name, Cell value) {
  facts_.push_back({std::move(name), std::move(value), false, true});
}

void Report::JsonFacts(std::vector<Column> const& columns, std::vector<Cell> const& cells) {
  for (std::size_t i = 0; i < columns.size(); ++i) JsonFact(columns[i].name, cells[i]);
}

void Report::Warning(std::string name, Cell value) {
  facts_.push_back({std::move(name), std::move(value), true});
}

Table& Report::Begin(std::string name, std::vector<Column> columns) {
  return tables_.emplace_back(std::move(name), std::move(columns));
}

void Report::ShowIn(DisplayUnits const& units) {
  if (units.AreInternal()) return;
  for (Table& table : tables_) table = InDisplayUnits(table, units);
  auto const fact = [this](char const* name) {
    return std::find_if(facts_.begin(), facts_.end(),
                        [name](NamedFact const& one) { return one.name == name; });
  };
  auto const value = fact("value");
  auto const unit = fact("unit");
  if (value == facts_.end() || unit == facts_.end()) return;
  Table pair("", {{"value", ""}, {"unit", ""}});
  pair.Add(value->value, unit->value);
  Table const shown = InDisplayUnits(pair, units);
  value->value = shown.Rows()[0][0];
  unit->value = shown.Rows()[0][1];
}

bool Report::MakeChange() {
  if (!change_) return false;
  change_();
  return true;
}

void Report::Add(Table table) { tables_.push_back(std::move(table)); }

void Report::AddFirst(Table table) {
  std::set<std::size_t> moved;
  for (std::size_t const aside : asides_) moved.insert(aside + 1);
  asides_ = std::move(moved);
  tables_.insert(tables_.begin(), std::move(table));
}

void Report::AddAside(Table table) {
  asides_.insert(tables_.size());
  Add(std::move(table));
}

void Report::Add(Table table, std::vector<Column> const& onlyJson) {
  std::set<std::string> names;
  for (Column const& column : onlyJson) names.insert(column.name);
  Add(std::move(table), std::move(names));
}

void Report::Add(Table table, std::set<std::string> onlyJson) {
  onlyJson_[table.Name()] = std::move(onlyJson);
  Add(std::move(table));
}

namespace {

// The table without some columns.
Table Without(Table const& table, std::set<std::string> const& names) {
  std::vector<Column> columns;
  for (Column const& column : table.Columns()) {
    if (names.count(column.name) == 0) columns.push_back(column);
  }
  Table shown(table.Name(), std::move(columns));
  for (std::vector<Cell> const& row : table.Rows()) {
    std::vector<Cell> cells;
    for (std::size_t i = 0; i < row.size(); ++i) {
      if (names.count(table.Columns()[i].name) == 0) cells.push_back(row[i]);
    }
    shown.Add(std::move(cells));
  }
  return shown;
}

}  // namespace

Report Report::ForPeople() const {
  Report shown;
  std::copy_if(facts_.begin(), facts_.end(), std::back_inserter(shown.facts_),
               [](NamedFact const& fact) { return !fact.onlyJson; });
  for (NamedFact& fact : shown.facts_) {
    if (!fact.shownAs.empty()) fact.name = fact.shownAs;
  }
  shown.asides_ = asides_;
  for (Table const& table : tables_) {
    auto const hidden = onlyJson_.find(table.Name());
    shown.Add(hidden == onlyJson_.end() ? table : Without(table, hidden->second));
  }
  return shown;
}

std::string Print(Report const& report, Form form, std::string const& command) {
  if (report.Document()) return *report.Document();
  switch (form) {
    case Form::kJson: return PrintJson(report, command);
    case Form::kCsv: return PrintCsv(report.ForPeople());
    default: return PrintText(report.ForPeople(), OutputScreen());
  }
}

}  // namespace zelhost

#include "output/report.h"

#include <algorithm>

#include "output/report_forms.h"

namespace zelhost {

std::string Head(Column const& column) {
  return column.unit.empty() ? column.name : column.name + " [" + column.unit + "]";
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

void Report::AddAside(Table table) {
  asides_.insert(tables_.size());
  Add(std::move(table));
}

std::string Print(Report const& report, Form form) {
  switch (form) {
    case Form::kJson: return PrintJson(report);
    case Form::kCsv: return PrintCsv(report);
    default: return PrintText(report, OutputScreen());
  }
}

}  // namespace zelhost

// The results of a command, as facts and tables, printed as text, JSON or CSV.
//
// Every command builds one Report, so that the three forms cannot disagree: a fact is a line of
// text and a member in JSON, a table is columns of text and an array of objects. A member has the
// name of the fact or column, in lower case and with "_" for blanks.
#pragma once

#include <functional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "desk/words/display_units.h"
#include "desk/words/table.h"
#include "output/desk.h"

namespace zelhost {

class Report {
 public:
  void Fact(std::string name, Cell value);
  // A fact that every form shows; CSV, which has no facts, shows it in a table "warnings".
  void Warning(std::string name, Cell value);
  // The table stays valid until the next one is begun.
  Table& Begin(std::string name, std::vector<Column> columns);
  void Add(Table table);
  // A table that explains another one; CSV leaves it out.
  void AddAside(Table table);
  // Converts the numbers of tables, and a fact "value" whose unit is the fact "unit".
  void ShowIn(DisplayUnits const& units);
  // The change that the report describes. It is made after the text of the report, so that nothing
  // is changed if memory for the text runs out.
  void SetChange(std::function<void()> change) { change_ = std::move(change); }
  // Makes the change; false if the report has none.
  bool MakeChange();

  struct NamedFact {
    std::string name;
    Cell value;
    bool isWarning = false;
  };
  std::vector<NamedFact> const& Facts() const { return facts_; }
  std::vector<Table> const& Tables() const { return tables_; }
  bool IsAside(std::size_t table) const { return asides_.count(table) != 0; }

 private:
  std::vector<NamedFact> facts_;
  std::vector<Table> tables_;
  std::set<std::size_t> asides_;  // indices
  std::function<void()> change_;
};

enum class Form { kText, kJson, kCsv };

// Text within 80 columns, or those of the terminal, if texts can be broken; JSON as one object; CSV
// as the tables and warnings, with their names in front and an empty line between them if there are
// several.
std::string Print(Report const& report, Form form);

}  // namespace zelhost

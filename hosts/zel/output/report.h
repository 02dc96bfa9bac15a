// The results of a command, as facts and tables, printed as text, JSON or CSV.
//
// Every command builds one Report, so that the three forms cannot disagree: a fact is a line of
// text and a member in JSON, a table is columns of text and an array of objects. A member has the
// name of the fact or column, in lower case and with "_" for blanks.
#pragma once

#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "desk/words/display_units.h"
#include "desk/words/table.h"
#include "output/desk.h"
#include "output/error_json.h"

namespace zelhost {

class Report {
 public:
  void Fact(std::string name, Cell value);
  // A fact whose name in text differs from its name for programs: "would change" for "changed".
  void Fact(std::string name, std::string shownAs, Cell value);
  // A fact that only JSON has.
  void JsonFact(std::string name, Cell value);
  // The same for some cells, with the names of columns.
  void JsonFacts(std::vector<Column> const& columns, std::vector<Cell> const& cells);
  // A fact that every form shows; CSV, which has no facts, shows it in a table "warnings".
  void Warning(std::string name, Cell value);
  // The table stays valid until the next one is begun.
  Table& Begin(std::string name, std::vector<Column> columns);
  void Add(Table table);
  void AddFirst(Table table);
  // A table that explains another one; CSV leaves it out.
  void AddAside(Table table);
  // A document that is printed instead of facts and tables, whatever the form.
  void SetDocument(std::string text) { document_ = std::move(text); }
  // Sets the error of a command that fails although it has a report; a member in JSON.
  void SetProblem(Problem problem) { problem_ = std::move(problem); }
  // Sets the lines of standard error, a member in JSON.
  void SetLines(std::vector<std::string> lines) { lines_ = std::move(lines); }
  // Converts the numbers of tables, and a fact "value" whose unit is the fact "unit".
  void ShowIn(DisplayUnits const& units);
  // The change that the report describes. It is made after the text of the report, so that nothing
  // is changed if memory for the text runs out.
  void SetChange(std::function<void()> change) { change_ = std::move(change); }
  // Adds a table of which only JSON has the named columns.
  void Add(Table table, std::set<std::string> onlyJson);
  void Add(Table table, std::vector<Column> const& onlyJson);
  // The report without what only JSON has, and with the names of facts that people see.
  Report ForPeople() const;
  // Makes the change; false if the report has none.
  bool MakeChange();

  struct NamedFact {
    std::string name;
    Cell value;
    bool isWarning = false;
    bool onlyJson = false;
    std::string shownAs{};  // empty for the name
  };
  std::vector<NamedFact> const& Facts() const { return facts_; }
  std::vector<Table> const& Tables() const { return tables_; }
  bool IsAside(std::size_t table) const { return asides_.count(table) != 0; }
  std::optional<std::string> const& Document() const { return document_; }
  std::optional<Problem> const& TheProblem() const { return problem_; }
  std::vector<std::string> const& Lines() const { return lines_; }

 private:
  std::vector<NamedFact> facts_;
  std::vector<Table> tables_;
  std::set<std::size_t> asides_;  // indices
  std::function<void()> change_;
  std::map<std::string, std::set<std::string>> onlyJson_;  // by table
  std::optional<std::string> document_;
  std::optional<Problem> problem_;
  std::vector<std::string> lines_;
};

enum class Form { kText, kJson, kCsv };

// The version of the schemas of all JSON objects. A member that is added does not change it.
inline constexpr int kSchemaVersion = 1;

// Text within 80 columns, or those of the terminal, if texts can be broken; JSON as one object,
// whose member `schema` is "zel/" and the command; CSV as the tables and warnings, with their names
// in front and an empty line between them if there are several.
std::string Print(Report const& report, Form form, std::string const& command = "");

}  // namespace zelhost

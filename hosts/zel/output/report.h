// The results of a command, as facts and tables, printed as text, JSON or CSV.
//
// Every command builds one Report, so that the three forms cannot disagree: a fact is a line of
// text and a member in JSON, a table is columns of text and an array of objects. A member has the
// name of the fact or column, in lower case and with "_" for blanks.
#pragma once

#include <concepts>
#include <cstdint>
#include <cstdio>
#include <functional>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace zelhost {

// Nothing (a dash in text, null in JSON), a text, a whole number, a number, yes or no.
using Cell = std::variant<std::monostate, std::string, std::int64_t, double, bool>;

// A cell with a number; nothing if it is undefined.
Cell Number(double value);
// A cell with a text; nothing if it is empty.
Cell Text(std::string text);
// Texts with blanks between them; nothing if there are none.
Cell Texts(std::vector<std::string> const& texts);
// A reference code; nothing for 0.
Cell Code(std::uint32_t code);
// 7 significant digits.
std::string Digits(double value);
// The cell as shown in a table in text form.
std::string CellText(Cell const& cell);

// A row of cells. A list in braces must not be used: if memory runs out in the middle of one, GCC
// 12 destroys cells that were never constructed.
template <typename... Values>
std::vector<Cell> RowOf(Values&&... values) {
  std::vector<Cell> row;
  row.reserve(sizeof...(values));
  (row.emplace_back(std::forward<Values>(values)), ...);
  return row;
}

struct Column {
  std::string name;       // the heading in text and CSV, the member in JSON
  std::string unit;       // in brackets after the heading; in JSON under "units" of the report
  bool optional = false;  // left out of text that would be too wide
};

class Table {
 public:
  Table(std::string name, std::vector<Column> columns);
  // As many cells as columns.
  void Add(std::vector<Cell> row);
  template <typename... Values>
  requires(std::constructible_from<Cell, Values>&&...) void Add(Values&&... values) {
    Add(RowOf(std::forward<Values>(values)...));
  }
  bool Empty() const { return rows_.empty(); }

  std::string const& Name() const { return name_; }
  std::vector<Column> const& Columns() const { return columns_; }
  std::vector<std::vector<Cell>> const& Rows() const { return rows_; }

 private:
  std::string name_;
  std::vector<Column> columns_;
  std::vector<std::vector<Cell>> rows_;
};

class Report {
 public:
  void Fact(std::string name, Cell value);
  // A fact that every form shows; CSV, which has no facts, shows it in a table "warnings".
  void Warning(std::string name, Cell value);
  // The table stays valid until the next one is begun.
  Table& Begin(std::string name, std::vector<Column> columns);
  void Add(Table table);
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

 private:
  std::vector<NamedFact> facts_;
  std::vector<Table> tables_;
  std::function<void()> change_;
};

enum class Form { kText, kJson, kCsv };

// Text within 80 columns, if texts can be broken; JSON as one object; CSV as the tables and
// warnings, with their names in front and an empty line between them if there are several.
std::string Print(Report const& report, Form form);

}  // namespace zelhost

#include "desk/formats/library_tables.h"

#include <algorithm>
#include <map>
#include <set>
#include <utility>

#include "desk/annotate/references.h"
#include "desk/notes/memo.h"
#include "desk/open/field_text.h"
#include "desk/open/fields.h"
#include "desk/open/pure_component.h"
#include "desk/tables/table_export.h"
#include "desk/tables/table_import.h"
#include "desk/words/failure.h"
#include "desk/words/letters.h"

namespace zel::desk {
namespace {

constexpr char kLibrary[] = "library";
constexpr char kBanks[] = "banks";
constexpr char kColumns[] = "columns";
constexpr char kCitations[] = "citations";
constexpr TableKind kKinds[] = {TableKind::kItems, TableKind::kCorrelations, TableKind::kGroups};
constexpr char const* kKindColumns[] = {"items", "correlations", "groups"};

// "TC [K]" is a column TC and a unit.
std::pair<std::string, std::string> NameAndUnit(std::string const& head) {
  std::size_t const open = head.rfind(" [");
  if (open == std::string::npos || head.back() != ']') return {head, ""};
  return {head.substr(0, open), head.substr(open + 2, head.size() - open - 3)};
}

std::string MeaningOf(std::vector<TableHead> const& heads, std::string const& name) {
  auto const at = std::find_if(heads.begin(), heads.end(),
                               [&](TableHead const& head) { return head.name == name; });
  return at == heads.end() ? "" : at->meaning;
}

// A column for each coefficient instead of one with all.
void SpreadCoefficients(TextTable& table) {
  if (table.heads.back() != "coefficients") return;
  table.heads.pop_back();
  std::size_t most = 0;
  std::vector<std::vector<std::string>> lists;
  for (TextRow& row : table.rows) {
    lists.push_back(ListWords(row.cells.back()));
    row.cells.pop_back();
    most = std::max(most, lists.back().size());
  }
  table.heads.emplace_back("n");
  for (std::size_t i = 1; i <= most; ++i) table.heads.push_back("C" + std::to_string(i));
  for (std::size_t i = 0; i < lists.size(); ++i) {
    std::vector<std::string>& cells = table.rows[i].cells;
    cells.push_back(std::to_string(lists[i].size()));
    lists[i].resize(most);
    cells.insert(cells.end(), lists[i].begin(), lists[i].end());
  }
}

class TableWriter {
 public:
  explicit TableWriter(Library const& library) : library_(library) {
    for (char const* name : {kLibrary, kBanks, kColumns, kCitations}) Name(name);
    banks_ = {kBanks, {"type", "name", "format", "memo", "items", "correlations", "groups"}, {}};
    columns_ = {kColumns, {"table", "column", "unit", "meaning"}, {}};
  }

  std::vector<SqlTable> Tables() {
    std::vector<SqlTable> data;
    for (BankName const& bank : library_.Banks()) AddBank(bank, data);
    std::vector<SqlTable> tables = {About(), std::move(banks_), std::move(columns_), Cited()};
    for (SqlTable& table : data) tables.push_back(std::move(table));
    return tables;
  }

 private:
  // A name that no other table has; SQL does not tell upper from lower case.
  std::string Name(std::string const& wanted) {
    std::string name = wanted;
    for (int i = 2; !names_.insert(UpperCase(name)).second; ++i) {
      name = wanted + "_" + std::to_string(i);
    }
    return name;
  }

  SqlTable About() const {
    char description[101] = {};
    char version[13] = {};
    library_.File().GetDescriptionAndVersion(description, version);
    return {kLibrary,
            {"description", "version", "memo"},
            {{description, version, MemoIn(library_, {})}}};
  }

  SqlTable Cited() const {
    SqlTable table{kCitations, {"code", "in", "doi", "citation"}, {}};
    Table const references = ReferenceTable(library_);
    for (std::vector<Cell> const& row : references.Rows()) {
      if (std::holds_alternative<std::monostate>(row[4])) continue;
      auto const text = [](Cell const& cell) {
        return std::holds_alternative<std::monostate>(cell) ? std::string() : CellText(cell);
      };
      table.rows.push_back({text(row[0]), text(row[2]), text(row[3]), text(row[4])});
    }
    return table;
  }

  void AddBank(BankName const& bank, std::vector<SqlTable>& data) {
    char const* const type = bank.type.c_str();
    std::int32_t const format = library_.Maint().GetBankFormat(type, bank.name.c_str());
    std::vector<std::string> row = {bank.type, bank.name, std::to_string(format),
                                    MemoIn(library_, bank)};
    for (std::size_t i = 0; i < std::size(kKinds); ++i) {
      bool const isThere = i == 0 || bank.type == kPureType;
      row.push_back(isThere ? AddTable(bank, i, data) : "");
    }
    banks_.rows.push_back(std::move(row));
  }

  std::string AddTable(BankName const& bank, std::size_t kind, std::vector<SqlTable>& data) {
    TextTable table = ExportTable(library_, bank, kKinds[kind], DisplayUnits());
    if (table.rows.empty()) return "";
    SpreadCoefficients(table);
    std::string wanted = bank.type + "_" + bank.name;
    if (kind != 0) wanted += std::string("_") + kKindColumns[kind];
    SqlTable made{Name(wanted), {}, {}};
    std::vector<TableHead> const meanings = HeadsOf(bank.type, kKinds[kind]);
    std::set<std::string> seen;
    for (std::string const& head : table.heads) {
      auto const [name, unit] = NameAndUnit(head);
      if (!seen.insert(UpperCase(name)).second) {
        throw Failure(ToText(bank) + ": two columns " + name);
      }
      made.columns.push_back(name);
      columns_.rows.push_back({made.name, name, unit, MeaningOf(meanings, name)});
    }
    for (TextRow const& row : table.rows) made.rows.push_back(row.cells);
    data.push_back(std::move(made));
    return data.back().name;
  }

  Library const& library_;
  std::set<std::string> names_;
  SqlTable banks_;
  SqlTable columns_;
};

std::string SqlCell(SqlTable const& table, std::vector<std::string> const& row,
                    std::string const& column) {
  auto const at = std::find(table.columns.begin(), table.columns.end(), column);
  if (at == table.columns.end()) {
    throw Failure("the table " + table.name + " has no column " + column);
  }
  return row[static_cast<std::size_t>(at - table.columns.begin())];
}

class TableReader {
 public:
  TableReader(Library& library, std::vector<SqlTable> const& tables, bool listAll)
      : library_(library), tables_(tables), listAll_(listAll) {}

  LibraryImport Run() {
    SqlTable const& banks = Named(kBanks);
    SetAbout(Named(kLibrary));
    for (std::vector<std::string> const& row : banks.rows) ReadBank(banks, row);
    return std::move(done_);
  }

 private:
  SqlTable const* Find(std::string const& name) const {
    auto const at = std::find_if(tables_.begin(), tables_.end(),
                                 [&](SqlTable const& table) { return table.name == name; });
    return at == tables_.end() ? nullptr : &*at;
  }
  SqlTable const& Named(std::string const& name) const {
    SqlTable const* const table = Find(name);
    if (table == nullptr) throw Failure("there is no table " + name);
    return *table;
  }

  void SetAbout(SqlTable const& table) {
    if (table.rows.size() != 1) throw Failure("the table library does not have one row");
    std::vector<std::string> const& row = table.rows.front();
    char description[101] = {};
    char version[13] = {};
    library_.File().GetDescriptionAndVersion(description, version);
    std::string const newDescription = SqlCell(table, row, "description");
    std::string const newVersion = SqlCell(table, row, "version");
    if (newDescription.size() >= sizeof description || newVersion.size() >= sizeof version) {
      throw Failure("the description or the version of the library is too long");
    }
    library_.File().SetDescriptionAndVersion(
        *description != '\0' ? description : newDescription.c_str(),
        *version != '\0' ? version : newVersion.c_str());
    std::string const memo = SqlCell(table, row, "memo");
    if (MemoIn(library_, {}).empty() && !memo.empty()) SetMemoIn(library_, {}, memo);
  }

  void ReadBank(SqlTable const& banks, std::vector<std::string> const& row) {
    BankName const named = {SqlCell(banks, row, "type"), SqlCell(banks, row, "name")};
    bool const isThere = library_.Maint().BankExists(named.type.c_str(), named.name.c_str());
    std::string const shown = ToText(named);
    isNewBank_ = !isThere;
    if (!isThere) MakeBank(named, SqlCell(banks, row, "format"), SqlCell(banks, row, "memo"));
    LibraryImport const before = done_;
    TableTarget const target = {&library_, named, {}};
    for (char const* column : kKindColumns) {
      std::string const table = SqlCell(banks, row, column);
      if (table.empty()) continue;
      if (!read_.insert(table).second) throw Failure("two banks have the table " + table);
      ReadTable(target, Named(table));
    }
    done_.banks.Add(shown, done_.read - before.read, done_.isNew - before.isNew,
                    done_.changed - before.changed, done_.same - before.same,
                    done_.refused - before.refused);
  }

  void MakeBank(BankName const& bank, std::string const& formatWord, std::string const& memo) {
    BankOfType(bank.type);  // throws for a type that does not exist
    std::int32_t const format = WholeNumber(formatWord, "the format of bank " + ToText(bank));
    bool const isGood = !bank.name.empty() && bank.name.size() < kNameSize;
    if (!isGood || !library_.Maint().CreateBank(bank.type.c_str(), bank.name.c_str(), format)) {
      throw Failure("the bank " + ToText(bank) + " cannot be made");
    }
    if (!memo.empty()) SetMemoIn(library_, bank, memo);
  }

  void ReadUnits() {
    SqlTable const& columns = Named(kColumns);
    for (std::vector<std::string> const& row : columns.rows) {
      units_.insert({{SqlCell(columns, row, "table"), SqlCell(columns, row, "column")},
                     SqlCell(columns, row, "unit")});
    }
  }

  // The heads with their units.
  std::string HeadOf(SqlTable const& table, std::string const& column) const {
    auto const at = units_.find({table.name, column});
    return at == units_.end() ? column : ToText(TableHead{column, at->second, ""});
  }

  void ReadTable(TableTarget const& target, SqlTable const& table) {
    if (units_.empty()) ReadUnits();
    TextTable text;
    for (std::string const& column : table.columns) text.heads.push_back(HeadOf(table, column));
    for (std::vector<std::string> const& row : table.rows) {
      text.rows.push_back({text.rows.size() + 1, row});
    }
    ImportedTable const imported =
        ImportRows(target, std::move(text), "table " + table.name, {}, listAll_);
    done_.read += imported.read;
    done_.isNew += imported.isNew;
    done_.changed += imported.changed;
    done_.same += imported.same;
    done_.refused += imported.refused;
    for (std::vector<desk::Cell> const& row : imported.rows.Rows()) {
      bool const isChanged = CellText(row[2]) == ToText(RowState::kChanged);
      if (isChanged && isNewBank_ && !listAll_) continue;
      done_.rows.Add(std::string(table.name), desk::Cell(row[0]), desk::Cell(row[1]),
                     desk::Cell(row[2]), desk::Cell(row[3]));
    }
  }

  Library& library_;
  std::vector<SqlTable> const& tables_;
  bool listAll_;
  bool isNewBank_ = false;                                            // that is being read
  std::map<std::pair<std::string, std::string>, std::string> units_;  // by table and column
  std::set<std::string> read_;                                        // tables
  LibraryImport done_;
};

}  // namespace

std::vector<SqlTable> TablesOf(Library const& library) { return TableWriter(library).Tables(); }

std::vector<SqlTable> LibraryTablesIn(std::string const& path) {
  std::set<std::string> wanted = {kLibrary, kBanks, kColumns};
  for (SqlTable const& banks :
       TablesInSqlite(path, [](std::string const& name) { return name == kBanks; })) {
    for (std::vector<std::string> const& row : banks.rows) {
      for (char const* column : kKindColumns) wanted.insert(SqlCell(banks, row, column));
    }
  }
  return TablesInSqlite(path, [&](std::string const& name) { return wanted.count(name) != 0; });
}

LibraryImport ImportTables(Library& library, std::vector<SqlTable> const& tables, bool listAll) {
  return TableReader(library, tables, listAll).Run();
}

}  // namespace zel::desk

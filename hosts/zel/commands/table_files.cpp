#include "commands/table_files.h"

#include <algorithm>
#include <utility>

#include "commands/shared_options.h"
#include "desk/files/output_file.h"
#include "desk/files/standard_output.h"
#include "desk/open/unfinished_change.h"
#include "desk/tables/table_export.h"
#include "desk/tables/table_import.h"
#include "desk/words/failure.h"
#include "output/progress.h"

namespace zelhost {

void AddTableInput(Command& command, TableOptions& options) {
  command.Option("--table", options.path, "a table (CSV, TSV, JSON) instead of documents", "FILE")
      .Option("--map", options.columns.mapPath, "lines HEAD = MEANING, MEANING := VALUE", "FILE")
      .Option("--ignore", options.columns.ignored, "leave these columns out", "HEAD...")
      .Option("--where", options.columns.where, "only rows with this cell", "HEAD=VALUE...")
      .Flag("--decimal-comma", options.columns.decimalComma, "numbers are written 351,39")
      .Flag("--skip-bad", options.skipBad, "import the other rows if some are refused");
}

void AddTableOutput(Command& command, TableOptions& options) {
  command.Option("--table", options.path, "a table (.csv, .tsv, .json) instead; - for CSV", "FILE")
      .Option("--kind", options.kind, "of components: constants, correlations or groups", "KIND");
}

namespace {

constexpr std::size_t kWhat = 3;  // the column "what" of the rows of an import

bool HasDecimalCommas(Table const& rows) {
  auto const hasOne = [](std::vector<Cell> const& row) {
    return CellText(row[kWhat]).find("the decimal sign is a point") != std::string::npos;
  };
  return std::any_of(rows.Rows().begin(), rows.Rows().end(), hasOne);
}

}  // namespace

void AddGivenNumbers(Session const& session, Table given, Report& report) {
  if (given.Empty()) return;
  std::size_t const count = given.Rows().size();
  std::string text = std::to_string(count) +
                     (count == 1 ? " new component has" : " new components have") +
                     " got the next free number, see below; ";
  text +=
      session.namesPath.empty()
          ? "for components that other libraries know, import with --names LIBRARY, which gives "
            "them the numbers and IDs that they have there"
          : session.namesPath + " does not know them";
  report.Warning("number warning", text);
  report.Add(std::move(given));
}

Report ImportTableFile(Session& session, LibraryChange change, std::string const& bank,
                       TableOptions const& options, bool listAll) {
  if (bank.empty())
    throw WrongUsage("--table needs --bank BANK, or --bank TYPE:NAME for a new one");
  TableTarget target;
  target.library = &change.Open();
  target.bank = BankForTable(change.Open(), bank);
  target.units = session.units;
  ImportedTable imported;
  {
    Waiting const waiting("importing " + options.path);
    imported = ImportTable(target, options.path, options.columns, listAll);
  }
  Report report;
  report.Fact("library", change.Open().Path());
  report.Fact("bank", ToText(target.bank));
  report.Fact("read", imported.read);
  report.Fact("new", imported.isNew);
  report.Fact("changed", imported.changed);
  report.Fact("the same", imported.same);
  report.Fact("refused", imported.refused);
  bool const hasCommas = HasDecimalCommas(imported.rows);
  if (imported.warned != 0) {
    report.Warning("warning", std::to_string(imported.warned) +
                                  (imported.warned == 1 ? " row has" : " rows have") +
                                  " fewer coefficients than usual, see below");
  }
  report.Add(std::move(imported.rows),
             std::set<std::string>{"item 1", "item 2", "item 3", "datum"});
  bool const isRefused = imported.refused != 0 && !options.skipBad;
  if (!isRefused) AddGivenNumbers(session, std::move(imported.given), report);
  AddDataWarning(imported.findings, options.isStrict && !isRefused, report);
  // Nothing has changed, so no version is kept.
  if (imported.read > 0 && imported.same == imported.read && !change.IsDryRun()) return report;
  if (!isRefused) {
    PutInPlaceAfter(report, std::move(change));
    return report;
  }
  Error const error(options.path, std::to_string(imported.refused) + " of " +
                                      std::to_string(imported.read) +
                                      " rows are refused, see the report; nothing is changed; " +
                                      (hasCommas ? "--decimal-comma reads numbers such as 351,39"
                                                 : "--skip-bad imports the others"));
  report.SetProblem(ProblemOf(error));
  session.Print(report);
  throw error;
}

Report ExportTableFile(Session& session, std::string const& library, std::string const& bank,
                       TableOptions const& options) {
  if (bank.empty()) throw WrongUsage("--table needs --bank");
  bool const isOutput = IsStandardOutput(options.path);
  if (isOutput && session.form != Form::kText) {
    throw WrongUsage("--json and a table on standard output exclude each other");
  }
  InFormOf(options.path, {});  // an unknown ending is an error before the work
  Library const from = OpenFinished(session, library);
  BankName const which = from.Bank(bank);
  TextTable const table =
      ExportTable(from, which, TableKindNamed(options.kind, which.type), session.units);
  WriteFile(options.path, InFormOf(options.path, table));
  NoteMark(session, from, options.path);
  Report report;
  if (isOutput) return report;  // only the table
  report.Fact("exported", library);
  report.Fact("bank", ToText(which));
  report.Fact("rows", static_cast<std::int64_t>(table.rows.size()));
  report.Fact("to", options.path);
  return report;
}

}  // namespace zelhost

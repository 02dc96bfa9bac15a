#include "commands/sqlite_files.h"

#include <utility>

#include "commands/shared_options.h"
#include "desk/files/output_file.h"
#include "desk/files/standard_output.h"
#include "desk/findings/written_data.h"
#include "desk/formats/formats.h"
#include "desk/formats/library_tables.h"
#include "desk/open/unfinished_change.h"
#include "desk/words/failure.h"
#include "output/progress.h"

namespace zelhost {

Report ExportSqliteFile(Session& session, std::string const& library, std::string const& path) {
  RefuseLibraryPath(path);
  if (IsStandardOutput(path)) throw WrongUsage("a database is not written to standard output");
  Library const from = OpenFinished(session, library);
  Report report;
  {
    Waiting const waiting("exporting " + library);
    std::vector<SqlTable> const tables = TablesOf(from);
    std::int64_t rows = 0;
    for (SqlTable const& table : tables) rows += static_cast<std::int64_t>(table.rows.size());
    WriteFile(path, SqliteBytes(tables));
    report.Fact("exported", library);
    report.Fact("tables", static_cast<std::int64_t>(tables.size()));
    report.Fact("rows", rows);
  }
  NoteMark(session, from, path);
  report.Fact("to", path);
  return report;
}

Report ImportSqliteFile(Session& session, LibraryChange change, ForeignFiles const& files) {
  std::string const& path = files.paths.front();
  LibraryImport done;
  ImportedComponents const written(change.Open(), "");
  try {
    Waiting const waiting("importing " + path);
    std::vector<SqlTable> const tables = LibraryTablesIn(path);
    bool const isComplete = session.form != Form::kText || files.listAll;
    done = ImportTables(change.Open(), tables, isComplete);
  } catch (Failure const& failure) {
    std::string const what = failure.what();
    throw Failure(what.compare(0, path.size(), path) == 0 ? what : path + ": " + what);
  }
  Report report;
  report.Fact("library", change.Open().Path());
  report.Fact("format", std::string(kSqliteFormat));
  report.Fact("read", done.read);
  report.Fact("new", done.isNew);
  report.Fact("changed", done.changed);
  report.Fact("the same", done.same);
  report.Fact("refused", done.refused);
  report.Add(std::move(done.banks));
  report.Add(std::move(done.rows));
  bool const isRefused = done.refused != 0 && !files.skipBad;
  AddDataWarning(written.Errors(), files.isStrict && !isRefused, report);
  if (!isRefused) {
    PutInPlaceAfter(report, std::move(change));
    return report;
  }
  Error const error(path, std::to_string(done.refused) + " of " + std::to_string(done.read) +
                              " rows are refused, see the report; nothing is changed; "
                              "--skip-bad imports the others");
  report.SetProblem(ProblemOf(error));
  session.Print(report);
  throw error;
}

}  // namespace zelhost

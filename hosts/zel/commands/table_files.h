// Tables in files: those that `import --table` reads and `export --table` writes.
#pragma once

#include <string>
#include <vector>

#include "commands/command.h"
#include "desk/change/library_change.h"
#include "desk/tables/table_columns.h"

namespace zelhost {

struct TableOptions {
  std::string path;
  std::string kind;
  ColumnChoice columns;
  bool skipBad = false;
  bool isStrict = false;  // implausible values are an error
};

// Adds a warning and a table of the new components that have got the next free number.
void AddGivenNumbers(Session const& session, Table given, Report& report);

void AddTableInput(Command& command, TableOptions& options);
void AddTableOutput(Command& command, TableOptions& options);

// Throws Failure, after it has printed the report, if a row is refused and `skipBad` is not set.
Report ImportTableFile(Session& session, LibraryChange change, std::string const& bank,
                       TableOptions const& options, bool listAll);
Report ExportTableFile(Session& session, std::string const& library, std::string const& bank,
                       TableOptions const& options);

}  // namespace zelhost

// Whole libraries as databases of SQLite.
#pragma once

#include <string>

#include "commands/foreign_files.h"

namespace zelhost {

Report ExportSqliteFile(Session& session, std::string const& library, std::string const& path);
// Throws Failure, after it has printed the report, if rows are refused and `skipBad` is not set.
Report ImportSqliteFile(Session& session, LibraryChange change, ForeignFiles const& files);

}  // namespace zelhost

// The forms of other programs' files that can be imported.
#pragma once

#include <string>
#include <vector>

#include "desk/formats/foreign_record.h"

namespace zel::desk {

struct ForeignOptions {
  std::string range;  // "low" or "high"; empty: the rule of the form
};

// A form, its name on the command line, and its reader. A reader throws Failure with the path, and
// with the line and what is wrong, for a file that is not of the form; single data that are wrong
// are refused (Fate) and leave the rest readable.
struct ForeignFormat {
  char const* name;
  char const* what;
  ForeignFile (*read)(std::string const& path, ForeignOptions const& options);
  bool hasRange;  // takes ForeignOptions::range
};
std::vector<ForeignFormat> const& ForeignFormats();
// Throws WrongUsage, with the names that there are, for another name.
ForeignFormat const& ForeignFormatNamed(std::string const& name);

// A form whose files hold whole libraries (library_tables.h).
inline constexpr char kSqliteFormat[] = "sqlite";
// All forms, with that one.
struct FormatName {
  std::string name;
  std::string what;
};
std::vector<FormatName> AllFormats();

ForeignFile ReadChemsep(std::string const& path, ForeignOptions const& options);
ForeignFile ReadCoolProp(std::string const& path, ForeignOptions const& options);

}  // namespace zel::desk

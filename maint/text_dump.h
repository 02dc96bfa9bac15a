// Text dumps: tab-separated indexes next to a library, which show what is in it without opening it.
//
// `<name>.bnk` lists the banks. `<name>.<bank>.cmp` lists the components of a bank of type
// PURECOMP, two lines each: name, phase, first ID, formula, CAS number, normal boiling point and
// molecular weight (internal units), marks; then the other IDs, if any, each after a tab. <name> is
// the library's file name without extension. Files that cannot be written do not appear.
#pragma once

#include <string>

#include "maint/lib_maint.h"

namespace zel {

// Writes all indexes of a library, replacing existing ones.
void WriteTextDumps(LibFile* library);
// Writes the index of banks in `folder`, which ends in a separator; `name` is the library's name.
void WriteBankIndex(LibFile* library, std::string const& folder, std::string const& name);
void WriteComponentIndex(LibFile* library, char const* bank, std::string const& path);
// Removes all indexes of a library of that name.
void DeleteTextDump(std::string const& folder, std::string const& name);

}  // namespace zel

// What a library holds, the files of a folder, and the functions of the public headers.
#pragma once

#include <map>
#include <set>
#include <string>

#include "tests/long/refused_steps.h"

namespace zel::test {

// By place, "item VANLAAR VLE 21000000 21000001" for example. A place that cannot be read has the
// text kUnreadable.
using State = std::map<std::string, std::string>;
inline constexpr char kUnreadable[] = "cannot be read";

// Everything that an open library holds.
State StateOf(LibFile* library);

// By name.
using Files = std::map<std::string, std::string>;
Files FilesIn(std::string const& folder);
// Makes the files of a folder these and no others. Files that are the same in both are not written.
void PutFiles(std::string const& folder, Files const& files, Files const& present);

// The functions of the public headers except those of the desk, overloads once: "Class::Function"
// or "Function".
std::set<std::string> PublicFunctions();

}  // namespace zel::test

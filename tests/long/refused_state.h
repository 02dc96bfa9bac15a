// What a library holds, and the files of a folder.
#pragma once

#include <map>
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

}  // namespace zel::test

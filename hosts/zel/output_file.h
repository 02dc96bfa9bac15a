// Files that a command writes.
#pragma once

#include <string>

namespace zelhost {

// Writes the whole file, or leaves what was there: the text goes into a file beside it first.
// Throws Failure with the reason.
void WriteFile(std::string const& path, std::string const& text);

// Throws Failure for a path that ends as those of a library's files do, .lb1 to .lb9: no document
// takes their place.
void RefuseLibraryPath(std::string const& path);

}  // namespace zelhost

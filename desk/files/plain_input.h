// Files that are read as a whole.
#pragma once

#include <filesystem>
#include <fstream>

namespace zel::desk {

// Throws Failure for a file that cannot be opened and for what is not a regular file: a device may
// have no end. Throws std::bad_alloc if memory runs out.
std::ifstream OpenPlainInput(std::filesystem::path const& path);

}  // namespace zel::desk

// Splits and composes paths. Both `/` and `\` are separators.
#pragma once

#include <string>
#include <string_view>

namespace zel {

struct PathParts {
  std::string folder;     // with its last separator; empty when there is none
  std::string name;       // without extension
  std::string extension;  // from the last point on; the name ".txt" is all extension
};

PathParts SplitPath(std::string_view path);

// The absolute form of a path relative to `folder` (to the working folder when that is empty):
// joined with `/`, with "." and ".." resolved by their text alone, without access to the disk. An
// empty path stays empty; a relative path becomes empty while the working folder has no name, for
// example because it was deleted.
std::string AbsolutePath(std::string_view path, std::string_view folder = {});

}  // namespace zel

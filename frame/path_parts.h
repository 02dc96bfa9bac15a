// Paths taken apart and put together. Both `/` and `\` separate.
#pragma once

#include <string>
#include <string_view>

namespace zel {

struct PathParts {
  std::string folder;     // with its last separator; empty when there is none
  std::string name;       // without extension
  std::string extension;  // from the last point on; ".txt" alone is all extension
};

PathParts SplitPath(std::string_view path);

// The path seen from `folder` (the working folder when empty): absolute, put together with `/`, and
// without "." and ".." parts, which are taken in without a look at the disk. Empty stays empty; so
// is a relative path while the working folder has no name, such as one that was deleted.
std::string AbsolutePath(std::string_view path, std::string_view folder = {});

}  // namespace zel

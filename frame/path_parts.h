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

// How absolute paths of a system begin: with a separator, or with a drive or a share, where the
// path is `C:/x` or `//server/share/x`. A path without the drive is on that of the folder; one with
// a drive alone, `C:x`, begins in the folder if that is on the same drive, else in the drive's
// root. The prefix of long paths, `\\?\`, is left out.
enum class PathRoots { kSlash, kDrives };
// The same for any system and working folder.
std::string AbsolutePathFrom(std::string_view path, std::string_view folder,
                             std::string_view working, PathRoots roots);

}  // namespace zel

// Copies of library files, and who may read and write them.
#pragma once

#include <sys/types.h>

#include <filesystem>
#include <optional>

namespace zelhost {

// Mode and, where it is to be kept, owner and group of a file.
struct FileAccess {
  struct Owner {
    uid_t user;
    gid_t group;
  };
  mode_t mode;
  std::optional<Owner> owner;
};

// Of a file that is there; throws std::filesystem::filesystem_error when it is not.
FileAccess AccessOf(std::filesystem::path const& file);
// Owner and group as far as this user may give files away, the mode always.
void GiveAccess(std::filesystem::path const& file, FileAccess const& access);

// The mode that most libraries in the folder have, the stricter one when two are as frequent; none
// when there is no library.
std::optional<mode_t> ModeOfLibrariesIn(std::filesystem::path const& folder);
// The mode that the umask leaves to a file that anybody may read and write. Makes such a file for a
// moment: to ask for the umask is to change it, which other threads would notice.
// Throws std::filesystem::filesystem_error.
mode_t ModeOfNewFilesIn(std::filesystem::path const& folder);

// Copies into a new file that belongs to this user alone. Holes stay holes, and a file system that
// can share blocks shares them. The copy is not on disk yet: see SyncPath.
// Throws std::filesystem::filesystem_error, also when there is something at `to`.
void CopyWithHoles(std::filesystem::path const& from, std::filesystem::path const& to);

// Makes a new file of one line, which belongs to this user alone; what is at the path is never
// followed or opened. Throws std::filesystem::filesystem_error.
void MakeMark(std::filesystem::path const& path);

// Asks the system to put a file or folder on disk, as far as it can.
void SyncPath(std::filesystem::path const& path);

}  // namespace zelhost

// Copies of library files, and who may read and write them.
#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace zel::desk {

// Permissions as POSIX counts them. On Windows files have those that their folder passes on: 0666,
// or 0444 for a file that may not be written.
using FileMode = unsigned;

// The mode of a file and, if they are to be kept, its owner and group.
struct FileAccess {
  struct Owner {
    unsigned user;
    unsigned group;
  };
  FileMode mode;
  std::optional<Owner> owner;
};

// Returns the access of a file; throws std::filesystem::filesystem_error if it does not exist.
FileAccess AccessOf(std::filesystem::path const& file);
// Sets the mode, and the owner and the group as far as this user may change them.
void GiveAccess(std::filesystem::path const& file, FileAccess const& access);

// The mode that most libraries in the folder have, the stricter one if two are equally frequent;
// nothing if there is no library.
std::optional<FileMode> ModeOfLibrariesIn(std::filesystem::path const& folder);
// The mode that the umask leaves of one that lets everybody read and write. Makes such a file for a
// moment: the umask cannot be read without changing it, which other threads would notice. Throws
// std::filesystem::filesystem_error.
FileMode ModeOfNewFilesIn(std::filesystem::path const& folder);

// Copies into a new file that only this user can read and write. Holes remain holes, and blocks are
// shared if the file system can do that. The copy is not on disk yet: see SyncFile. Throws
// std::filesystem::filesystem_error, also if `to` exists.
void CopyWithHoles(std::filesystem::path const& from, std::filesystem::path const& to);

// Makes a new file with the text, which only this user can read and write; whatever is at the path
// is never followed or opened. Throws std::filesystem::filesystem_error.
void WriteNewFile(std::filesystem::path const& path, std::string const& text);
// The same with one line, which says what the file is.
void MakeMark(std::filesystem::path const& path);

// Has the system write the contents of a file to disk. Throws std::filesystem::filesystem_error if
// that fails.
void SyncFile(std::filesystem::path const& path);
// The same for which files a folder has.
void SyncFolder(std::filesystem::path const& path);
// Asks the system to write a file or folder to disk, as far as it can.
void SyncPath(std::filesystem::path const& path);

}  // namespace zel::desk

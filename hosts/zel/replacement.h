// Changes of a library that happen as a whole or not at all.
//
// A change works on a copy in a hidden folder beside the library, .NAME.zel-new, and locks the
// library against everyone meanwhile, as an update does. When all is written and on disk the folder
// is renamed to .NAME.zel-ready: from then on the change counts. Its files are then moved over the
// old ones, the first file away at the start and in place at the end, so that in between nobody can
// open old and new mixed. A kill before the renaming leaves the old library; after it, the next
// command that opens the library finishes the move.
#pragma once

#include <optional>
#include <string>

#include "library.h"

namespace zelhost {

class Command;

struct ChangeOptions {
  std::string password;
  bool inPlace = false;
};
void AddChangeOptions(Command& command, ChangeOptions& options);

// A file held under the lock that library files have; nobody else can then open it.
class FileLock {
 public:
  // Throws Failure when the file cannot be opened for writing or somebody else has it.
  static FileLock Take(std::string const& path, std::string const& shownAs);
  FileLock(FileLock&& other) noexcept;
  FileLock& operator=(FileLock&& other) noexcept;
  ~FileLock();

 private:
  explicit FileLock(int descriptor) : descriptor_(descriptor) {}
  int descriptor_;
};

class LibraryChange {
 public:
  // Makes the copy, or opens the library itself for `inPlace`.
  LibraryChange(std::string const& path, ChangeOptions const& options);
  // A new library that takes the place of what is at `path`, if anything is.
  static LibraryChange New(std::string const& path, zel::libTypes kind);
  LibraryChange(LibraryChange&& other) noexcept;
  LibraryChange& operator=(LibraryChange&&) = delete;
  // Drops what was not put in place.
  ~LibraryChange();

  // The library to change, open for update.
  Library& Open() { return *library_; }
  // Closes it and makes it the library at the path. Nothing of this object is usable then.
  void PutInPlace();

 private:
  explicit LibraryChange(std::string path) : path_(std::move(path)) {}

  std::string path_;    // of the library's first file, without symbolic links
  std::string folder_;  // of the copy; empty when there is none
  std::optional<FileLock> original_;
  std::optional<FileLock> work_;
  std::optional<Library> library_;
};

// Finishes a change of the library that was cut off while it was moved into place.
void FinishChange(std::string const& path);

}  // namespace zelhost

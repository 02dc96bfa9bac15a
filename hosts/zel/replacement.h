// Changes of a library that happen as a whole or not at all.
//
// A change works on a copy in a hidden folder beside the library, .NAME.lb1.zel-new, and locks the
// library against everyone meanwhile, as an update does. When all is written and on disk the folder
// is renamed to .NAME.lb1.zel-ready: from then on the change counts. Its files are then moved over
// the old ones, the first file away at the start and in place at the end, so that in between nobody
// can open old and new mixed. A kill before the renaming leaves the old library; after it, the next
// command that opens the library finishes the move.
#pragma once

#include <optional>
#include <string>

#include "file_lock.h"
#include "library.h"

namespace zelhost {

class Command;

struct ChangeOptions {
  std::string password;
  bool inPlace = false;
};
void AddChangeOptions(Command& command, ChangeOptions& options);

// The hidden folder of one change, locked. It goes with its owner unless it was made ready.
class WorkFolder {
 public:
  // Throws Failure when another program works in it, or it cannot be made.
  WorkFolder(std::string const& library, std::string const& shownAs);
  WorkFolder(WorkFolder const&) = delete;
  WorkFolder& operator=(WorkFolder const&) = delete;
  ~WorkFolder();

  // Where the copy of the library's first file is.
  std::string First() const;
  // From now on the copy counts: moves it over the library. Throws Failure when the library is new
  // and another program has made one meanwhile.
  void PutInPlace(bool isNew);

 private:
  std::string library_;
  std::string folder_;  // empty once it is ready
  std::optional<FileLock> lock_;
};

class LibraryChange {
 public:
  // Makes the copy, or opens the library itself for `inPlace`.
  LibraryChange(std::string const& path, ChangeOptions const& options);
  // A new library at a path where nothing is, or with `replace` in the place of the library there.
  static LibraryChange New(std::string const& path, zel::libTypes kind, bool replace,
                           std::string const& password);

  // The library to change, open for update.
  Library& Open() { return *library_; }
  // Closes it and makes it the library at the path. Nothing of this object is usable then.
  void PutInPlace();

 private:
  LibraryChange() = default;
  void OpenCopy(std::string const& path, ChangeOptions const& options);

  bool isNew_ = false;
  std::optional<FileLock> original_;
  std::unique_ptr<WorkFolder> work_;  // none in place
  std::optional<Library> library_;
};

// True while a change is being moved into place.
bool IsBeingChanged(std::string const& path);
// Finishes a change of the library that was cut off while it was moved into place.
void FinishChange(std::string const& path);

}  // namespace zelhost

// The hidden folder in which the next state of a library is made, and its way into place, of which
// open/change_places.h has the steps.
#pragma once

#include <optional>
#include <string>

#include "files/file_copy.h"
#include "files/file_lock.h"

namespace zelhost {

// Locked against other programs; goes with its owner unless its files were put in place.
class WorkFolder {
 public:
  // `library` is a path without symbolic links. Throws Failure, which names `shownAs`, when another
  // program works in the folder or it cannot be made.
  WorkFolder(std::string const& library, std::string const& shownAs);
  WorkFolder(WorkFolder const&) = delete;
  WorkFolder& operator=(WorkFolder const&) = delete;
  ~WorkFolder();

  std::string const& Path() const { return folder_; }
  // Where the copy of the library's first file is.
  std::string First() const;
  // Whoever has this access to the library may clear the folder away, or put the library back, when
  // this program was cut off. Until then the folder is this user's alone. Throws Failure.
  void Share(FileAccess const& access) const;
  // The next library's files take the place of the library's. Throws Failure when they cannot, or
  // the library is new and another program has made one meanwhile; the old library is then as it
  // was.
  void PutInPlace(bool isNew);

 private:
  void Prepare(bool isNew);

  std::string library_;
  std::string shownAs_;
  std::string folder_;
  std::optional<FileLock> lock_;
};

}  // namespace zelhost

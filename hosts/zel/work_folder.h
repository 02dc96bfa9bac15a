// The hidden folder in which the next state of a library is made, and its way into place.
//
// The copy grows in .NAME.lb1.zel-new beside the library. When it is whole and on disk, the folder
// becomes .NAME.lb1.zel-ready and these moves follow:
//
//   1. the library's first file goes into the folder as `old`,
//   2. each other file goes there as `old2`, `old3`, ..., and the new one takes its place,
//   3. the new first file takes its place.
//
// The last move decides. Before the first one the old library is in place and whole; between them
// the first file is away and nobody can open anything; after the last one the new library is in
// place and whole. What was cut off before the last move is moved back by the next command that
// names the library, so that a host that opened the library since never loses what it wrote, and a
// command that failed changes nothing later.
#pragma once

#include <optional>
#include <string>

#include "file_copy.h"
#include "file_lock.h"

namespace zelhost {

// Files of a library have the numbers 1 to 9.
inline constexpr int kMostFiles = 9;
// The path of file `number` of the library whose first file is `first`.
std::string FileOf(std::string first, int number);

// The path that a file has without symbolic links, also when the file itself is not there.
// Throws std::filesystem::filesystem_error when its folder cannot be found.
std::string WithoutLinks(std::string const& path);

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

// True while a change is being moved into place, or was cut off then.
bool IsBeingChanged(std::string const& path);
// Clears away what a command left that was cut off, and puts the old library back where it had been
// moved away. Throws Failure when that cannot be done, or when another program has made a library
// in the place since.
void FinishChange(std::string const& path);

}  // namespace zelhost

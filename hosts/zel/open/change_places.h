// Where the files of a library are while a change of it is made and put in place.
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

#include <filesystem>
#include <string>
#include <system_error>

#include "words/failure.h"

namespace zelhost {

// Files of a library have the numbers 1 to 9.
inline constexpr int kMostFiles = 9;
// The path of file `number` of the library whose first file is `first`.
std::string FileOf(std::string first, int number);

// The path that a file has without symbolic links, also when the file itself is not there.
// Throws std::filesystem::filesystem_error when its folder cannot be found.
std::string WithoutLinks(std::string const& path);

// Links count as there, whatever they lead to. What this user may not look at does not, nor what
// can have no such name. Any other failure is not an answer: a file taken for missing would be left
// out.
bool Exists(std::filesystem::path const& path);

// Never over a file that is there, as far as the file system can tell.
void MoveToFreePlace(std::filesystem::path const& from, std::filesystem::path const& to);

// The folder of a change that is being made, and that of one that is being put in place.
std::filesystem::path NewFolder(std::filesystem::path const& library);
std::filesystem::path ReadyFolder(std::filesystem::path const& library);
// In each of them.
inline constexpr char kLockName[] = "lock";

// A folder that a stranger put in the place of one of ours is not looked into: a link, or, where
// anybody may make files but not touch those of others, one that is not of this user or of the
// library's owner.
bool IsOurs(std::filesystem::path const& folder, std::filesystem::path const& library);

// The lock goes last: a folder without it has nothing more in it that counts. What cannot be
// removed now is tried again by the next command.
void RemoveFolder(std::filesystem::path const& folder) noexcept;

// True while a change is being moved into place, or was cut off then.
bool IsBeingChanged(std::string const& path);

// The files of one change, by number; the first has the number 1.
class ChangePlaces {
 public:
  // A path without symbolic links.
  explicit ChangePlaces(std::string library);

  std::filesystem::path Place(int number) const { return FileOf(library_, number); }
  // In the ready folder: the next state of a file, the old one, and the mark of a file that the old
  // library does not have.
  std::filesystem::path New(int number) const { return FileOf(first_, number); }
  std::filesystem::path Old(int number) const;
  std::filesystem::path Added(int number) const;
  std::filesystem::path const& Ready() const { return ready_; }
  std::filesystem::path Folder() const { return std::filesystem::path(library_).parent_path(); }

 private:
  std::string library_;
  std::filesystem::path ready_;
  std::string first_;
};
// The name of that mark.
std::string AddedName(int number);

// What std::filesystem refuses, in the words of this program.
template <typename Work>
void OrFail(std::string const& path, char const* what, Work const& work) {
  try {
    work();
  } catch (std::filesystem::filesystem_error const& error) {
    if (error.code() == std::errc::not_enough_memory) throw;
    throw Failure(path + ": " + what + ": " + error.code().message());
  }
}

}  // namespace zelhost

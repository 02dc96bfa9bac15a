// Where the files of a library are while a change of it is made and put in place.
//
// The copy is made in .NAME.lb1.zel-new next to the library. When it is whole and on disk, the
// folder is renamed to .NAME.lb1.zel-ready. A change that admits readers waits until programs that
// have the library open finish; programs that open it now let the change go first. Then no program
// can open the library, and these moves follow:
//
//   1. the library's first file is moved into the folder as `old`, and after it what says how that
//      was last closed: its journal as `old.journal`, its mark as `old.open`,
//   2. each other file is moved there as `old2`, `old3`, ..., and the new one takes its place,
//   3. the new first file takes its place.
//
// The last move decides. Before the first move the old library is in place and whole; between the
// moves the first file is missing; after the last one the new library is in place and whole. If a
// change is interrupted before the last move, the next command that names the library moves the
// files back, so that a host that opened the library since never loses what it wrote, and a command
// that failed changes nothing later.
#pragma once

#include <filesystem>
#include <string>
#include <system_error>

#include "desk/words/failure.h"

namespace zel::desk {

// The files of a library are numbered 1 to 9.
inline constexpr int kMostFiles = 9;
// The path of file `number` of the library whose first file is `first`.
std::string FileOf(std::string first, int number);

// The path of a file without symbolic links, even if the file itself does not exist. Throws
// std::filesystem::filesystem_error if its folder cannot be found.
std::string WithoutLinks(std::string const& path);

// True for a link, wherever it leads. False for a path that this user may not look at, and for a
// name that is too long. Throws on any other failure: a file wrongly taken for missing would be
// left out.
bool Exists(std::filesystem::path const& path);

// The folder of a change that is being made, and that of one that is being put in place.
std::filesystem::path NewFolder(std::filesystem::path const& library);
std::filesystem::path ReadyFolder(std::filesystem::path const& library);
// The lock file in each of them.
inline constexpr char kLockName[] = "lock";

// False for a folder that another user may have put in the place of one of ours, and that is
// therefore not opened: a link, or, in a folder with the sticky bit, one that belongs neither to
// this user nor to the library's owner.
bool IsOurs(std::filesystem::path const& folder, std::filesystem::path const& library);

// True while a program works in the folder: it holds the lock.
bool IsAtWork(std::filesystem::path const& folder);

// Removes the lock last: a folder without it contains nothing that is still needed. The next
// command tries again to remove what cannot be removed now.
void RemoveFolder(std::filesystem::path const& folder) noexcept;

// True while a change is about to be moved into place, is moved, or was interrupted then.
bool IsBeingChanged(std::string const& path);
// True if the library's first file exists, or will exist when a change is in place.
bool IsThereOrBeingChanged(std::string const& path);

// The paths of the files of one change, by number; the first file has the number 1.
class ChangePlaces {
 public:
  // A path without symbolic links.
  explicit ChangePlaces(std::string library);

  std::filesystem::path Place(int number) const { return FileOf(library_, number); }
  // Paths in the ready folder: of the new state of a file, of the old one, and of the mark for a
  // file that the old library does not have.
  std::filesystem::path New(int number) const { return FileOf(first_, number); }
  std::filesystem::path Old(int number) const;
  std::filesystem::path Added(int number) const;
  // The files next to the old library that say how it was last closed, with one of kCloseEndings,
  // and their paths in the ready folder.
  std::filesystem::path Close(char const* ending) const { return library_ + ending; }
  std::filesystem::path OldClose(char const* ending) const;
  std::filesystem::path const& Ready() const { return ready_; }
  std::filesystem::path Folder() const { return std::filesystem::path(library_).parent_path(); }

 private:
  std::string library_;
  std::filesystem::path ready_;
  std::string first_;
};
// The name of that mark.
std::string AddedName(int number);
// The endings of a journal and of the mark.
inline constexpr char const* kCloseEndings[] = {".journal", ".open"};

// Does the work and throws Failure for an error of std::filesystem.
template <typename Work>
void OrFail(std::string const& path, char const* what, Work const& work) {
  try {
    work();
  } catch (std::filesystem::filesystem_error const& error) {
    if (error.code() == std::errc::not_enough_memory) throw;
    throw Failure(path + ": " + what + ": " + error.code().message());
  }
}

}  // namespace zel::desk

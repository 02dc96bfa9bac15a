#include "desk/open/change_places.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <new>
#include <utility>

#include "desk/files/file_lock.h"
#include "desk/files/folder.h"

namespace zel::desk {

namespace fs = std::filesystem;

namespace {

constexpr char kOldName[] = "old";  // with the number of the file for all but the first

fs::path Beside(fs::path const& library, char const* ending) {
  return library.parent_path() / ("." + library.filename().string() + ending);
}

}  // namespace

fs::path NewFolder(fs::path const& library) { return Beside(library, ".zel-new"); }

fs::path ReadyFolder(fs::path const& library) { return Beside(library, ".zel-ready"); }

bool Exists(fs::path const& path) {
  std::error_code error;
  fs::file_status const status = fs::symlink_status(path, error);
  if (!error || status.type() == fs::file_type::not_found) return fs::exists(status);
  if (error == std::errc::permission_denied || error == std::errc::filename_too_long) return false;
  throw fs::filesystem_error("", path, error);
}

void MoveToFreePlace(fs::path const& from, fs::path const& to) {
  if (::renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0) return;
  bool const isKnown = errno != EINVAL && errno != ENOSYS;
  if (!isKnown && !Exists(to)) return fs::rename(from, to);
  if (!isKnown) errno = EEXIST;
  throw fs::filesystem_error("", to, std::error_code(errno, std::generic_category()));
}

bool IsOurs(fs::path const& folder, fs::path const& library) {
  struct stat info = {};
  struct stat around = {};
  struct stat there = {};
  if (::lstat(folder.c_str(), &info) != 0 || !S_ISDIR(info.st_mode)) return false;
  if (::stat(folder.parent_path().c_str(), &around) != 0) return false;
  if ((around.st_mode & S_ISVTX) == 0 || info.st_uid == ::geteuid()) return true;
  return ::lstat(library.c_str(), &there) == 0 && info.st_uid == there.st_uid;
}

bool IsAtWork(fs::path const& folder) { return FileLock::IsHeld((folder / kLockName).string()); }

void RemoveFolder(fs::path const& folder) noexcept {
  try {
    std::error_code ignored;
    for (std::string const& name : NamesIn(folder, ignored)) {
      if (name != kLockName) RemoveTree(folder / name, ignored);
    }
    fs::remove(folder / kLockName, ignored);
    fs::remove(folder, ignored);
  } catch (std::bad_alloc const&) {
    // The next command has more memory.
  }
}

std::string FileOf(std::string first, int number) {
  if (!first.empty()) first.back() = static_cast<char>('0' + number);
  return first;
}

std::string WithoutLinks(std::string const& path) {
  constexpr int kMostLinks = 40;
  fs::path whole = fs::absolute(path);
  for (int i = 0; fs::is_symlink(fs::symlink_status(whole)); ++i) {
    if (i == kMostLinks) {
      throw fs::filesystem_error("", path,
                                 std::make_error_code(std::errc::too_many_symbolic_link_levels));
    }
    whole = whole.parent_path() / fs::read_symlink(whole);
  }
  return (fs::canonical(whole.parent_path()) / whole.filename()).string();
}

bool IsBeingChanged(std::string const& path) {
  try {
    return Exists(ReadyFolder(WithoutLinks(path)));
  } catch (fs::filesystem_error const&) {
    return false;
  }
}

// A file that was not there when the first look came is there when the moves are done.
bool IsThereOrBeingChanged(std::string const& path) {
  std::error_code none;
  return fs::exists(path, none) || IsBeingChanged(path) || fs::exists(path, none);
}

ChangePlaces::ChangePlaces(std::string library)
    : library_(std::move(library)),
      ready_(ReadyFolder(library_)),
      first_((ready_ / fs::path(library_).filename()).string()) {}

fs::path ChangePlaces::Old(int number) const {
  return ready_ / (kOldName + (number == 1 ? std::string() : std::to_string(number)));
}

fs::path ChangePlaces::Added(int number) const { return ready_ / AddedName(number); }

std::string AddedName(int number) { return "add" + std::to_string(number); }

}  // namespace zel::desk

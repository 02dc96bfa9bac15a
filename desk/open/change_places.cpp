#include "desk/open/change_places.h"

#include <new>
#include <utility>

#include "desk/files/folder.h"
#include "desk/files/system.h"
#include "desk/open/work_lock.h"

namespace zel::desk {

namespace fs = std::filesystem;

namespace {

constexpr char kOldName[] = "old";  // with the number of the file for all but the first

fs::path Beside(fs::path const& library, char const* ending) {
  return Inside(library.parent_path(), "." + library.filename().string() + ending);
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

bool IsOurs(fs::path const& folder, fs::path const& library) {
  return IsOwnFolder(folder, library);
}

bool IsAtWork(fs::path const& folder) { return WorkLock::IsHeld(folder); }

void RemoveFolder(fs::path const& folder) noexcept {
  try {
    std::error_code ignored;
    for (std::string const& name : NamesIn(folder, ignored)) {
      if (name != kLockName) RemoveTree(Inside(folder, name), ignored);
    }
    fs::remove(Inside(folder, kLockName), ignored);
    fs::remove(folder, ignored);
  } catch (std::bad_alloc const&) {
    // The next command, with more memory, removes it.
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
    whole = Inside(whole.parent_path(), fs::read_symlink(whole));
  }
  return Inside(fs::canonical(whole.parent_path()), whole.filename()).string();
}

bool IsBeingChanged(std::string const& path) {
  try {
    return Exists(ReadyFolder(WithoutLinks(path)));
  } catch (fs::filesystem_error const&) {
    return false;
  }
}

// A file that did not exist at the first look may exist now that the moves are done.
bool IsThereOrBeingChanged(std::string const& path) {
  std::error_code none;
  return fs::exists(path, none) || IsBeingChanged(path) || fs::exists(path, none);
}

ChangePlaces::ChangePlaces(std::string library)
    : library_(std::move(library)),
      ready_(ReadyFolder(library_)),
      first_(Inside(ready_, fs::path(library_).filename()).string()) {}

fs::path ChangePlaces::Old(int number) const {
  return Inside(ready_, kOldName + (number == 1 ? std::string() : std::to_string(number)));
}

fs::path ChangePlaces::Added(int number) const { return Inside(ready_, AddedName(number)); }

fs::path ChangePlaces::OldClose(char const* ending) const {
  return Inside(ready_, std::string(kOldName) + ending);
}

std::string AddedName(int number) { return "add" + std::to_string(number); }

}  // namespace zel::desk

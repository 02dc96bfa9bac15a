// The lock of the folder in which a change of a library is made and put in place. It goes with the
// folder when that is renamed, and with the program that holds it, also if that is killed.
#pragma once

#include <filesystem>
#include <string>
#include <utility>

#include "desk/files/file_lock.h"

namespace zel::desk {

class WorkLock {
 public:
  // Throws LibraryInUse, which names `shownAs`, if another program holds the lock, and Failure if
  // it cannot be locked. In the folder is a file with the name kLockName.
  static WorkLock Take(std::filesystem::path const& folder, std::string const& shownAs);
  // True if any program holds the lock of a folder that exists.
  static bool IsHeld(std::filesystem::path const& folder);

 private:
  explicit WorkLock(FileLock file) : file_(std::move(file)) {}

  FileLock file_;
};

}  // namespace zel::desk

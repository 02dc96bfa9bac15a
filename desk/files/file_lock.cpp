// What does not depend on the system.
#include "desk/files/file_lock.h"

#include <utility>

namespace zel::desk {

FileLock FileLock::Take(std::string const& path, std::string const& shownAs) {
  return Open(false, path, shownAs);
}

FileLock FileLock::Share(std::string const& path, std::string const& shownAs) {
  return Open(true, path, shownAs);
}

FileLock::FileLock(FileLock&& other) noexcept : file_(std::exchange(other.file_, -1)) {}

FileLock& FileLock::operator=(FileLock&& other) noexcept {
  std::swap(file_, other.file_);
  return *this;
}

}  // namespace zel::desk

#include "desk/files/file_lock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstring>
#include <thread>
#include <utility>

#include "desk/words/failure.h"

namespace zel::desk {
namespace {

// False if the path now names a file other than the one that was opened.
bool IsAt(int descriptor, std::string const& path) {
  struct stat opened = {};
  struct stat there = {};
  return fstat(descriptor, &opened) == 0 && lstat(path.c_str(), &there) == 0 &&
         opened.st_dev == there.st_dev && opened.st_ino == there.st_ino;
}

}  // namespace

FileLock FileLock::Take(std::string const& path, std::string const& shownAs) {
  int const descriptor = open(path.c_str(), O_RDWR | O_CLOEXEC | O_NOFOLLOW);
  if (descriptor < 0) {
    throw Failure(shownAs + ": " +
                  (errno == ENOENT ? "not found" : std::string(std::strerror(errno))));
  }
  FileLock lock(descriptor);
  struct flock whole = {};
  whole.l_type = F_WRLCK;
  whole.l_whence = SEEK_SET;
  if (fcntl(descriptor, F_OFD_SETLK, &whole) != 0 || !IsAt(descriptor, path)) {
    throw LibraryInUse(shownAs, "another program has it open", zel::openDenied);
  }
  return lock;
}

FileLock::FileLock(FileLock&& other) noexcept : descriptor_(std::exchange(other.descriptor_, -1)) {}

FileLock& FileLock::operator=(FileLock&& other) noexcept {
  std::swap(descriptor_, other.descriptor_);
  return *this;
}

FileLock::~FileLock() {
  if (descriptor_ >= 0) close(descriptor_);
}

// There is no turn on a file system without such locks, or while the program that called this one
// keeps the folder locked; most callers then go on without it.
FolderTurn::FolderTurn(std::string const& folder, Patience patience)
    : descriptor_(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {
  int const tries = patience == Patience::kNone ? 1 : 200;
  constexpr std::chrono::milliseconds kBetween{10};
  for (int i = 0; descriptor_ >= 0 && i < tries; ++i) {
    if (flock(descriptor_, LOCK_EX | LOCK_NB) == 0) {
      isHeld_ = true;
      return;
    }
    if (errno != EWOULDBLOCK && errno != EINTR) return;
    if (i + 1 < tries) std::this_thread::sleep_for(kBetween);
  }
}

FolderTurn::~FolderTurn() {
  if (descriptor_ >= 0) close(descriptor_);
}

}  // namespace zel::desk

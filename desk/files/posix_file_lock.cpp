// Locks of a POSIX system.
#include "desk/files/file_lock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstring>
#include <thread>

#include "desk/words/failure.h"

namespace zel::desk {
namespace {

int DescriptorOf(std::intptr_t file) { return static_cast<int>(file); }

// False if the path now names a file other than the one that was opened.
bool IsAt(int descriptor, std::string const& path) {
  struct stat opened = {};
  struct stat there = {};
  return fstat(descriptor, &opened) == 0 && lstat(path.c_str(), &there) == 0 &&
         opened.st_dev == there.st_dev && opened.st_ino == there.st_ino;
}

// A lock of the whole file.
struct flock LockOf(short type) {
  struct flock whole = {};
  whole.l_type = type;
  whole.l_whence = SEEK_SET;
  return whole;
}

bool Lock(int descriptor, short type) {
  struct flock whole = LockOf(type);
  return fcntl(descriptor, F_OFD_SETLK, &whole) == 0;
}

// True if the lock of another open would be in the way of one of this type.
bool IsInTheWay(int descriptor, short type) {
  struct flock whole = LockOf(type);
  return fcntl(descriptor, F_OFD_GETLK, &whole) == 0 && whole.l_type != F_UNLCK;
}

[[noreturn]] void RefuseOpen(std::string const& shownAs) {
  throw LibraryInUse(shownAs, "another program has it open", zel::openDenied);
}

}  // namespace

FileLock FileLock::Open(bool isShared, std::string const& path, std::string const& shownAs) {
  int const descriptor = open(path.c_str(), O_RDWR | O_CLOEXEC | O_NOFOLLOW);
  if (descriptor < 0 && errno == ENOENT) {
    throw LibraryInUse(shownAs, "is being changed by another program; try again",
                       zel::openNotFound);
  }
  if (descriptor < 0) throw Failure(shownAs + ": " + std::strerror(errno));
  FileLock lock(descriptor);
  if (!Lock(descriptor, isShared ? F_RDLCK : F_WRLCK) || !IsAt(descriptor, path))
    RefuseOpen(shownAs);
  return lock;
}

bool FileLock::IsHeld(std::string const& path) {
  int const descriptor = open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK);
  if (descriptor < 0) return false;
  FileLock const closed(descriptor);
  return IsInTheWay(descriptor, F_WRLCK);
}

bool FileLock::HasReaders() const { return IsInTheWay(DescriptorOf(file_), F_WRLCK); }

void FileLock::KeepReadersOut(std::string const& shownAs) {
  if (!Lock(DescriptorOf(file_), F_WRLCK)) RefuseOpen(shownAs);
}

FileLock::~FileLock() {
  if (file_ >= 0) close(DescriptorOf(file_));
}

// A turn cannot be had on a file system without such locks, or while the program that called this
// one keeps the folder locked; most callers then go on without it.
FolderTurn::FolderTurn(std::string const& folder, Patience patience)
    : file_(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {
  int const tries = patience == Patience::kNone ? 1 : 200;
  constexpr std::chrono::milliseconds kBetween{10};
  for (int i = 0; file_ >= 0 && i < tries; ++i) {
    if (flock(DescriptorOf(file_), LOCK_EX | LOCK_NB) == 0) {
      isHeld_ = true;
      return;
    }
    if (errno != EWOULDBLOCK && errno != EINTR) return;
    if (i + 1 < tries) std::this_thread::sleep_for(kBetween);
  }
}

FolderTurn::~FolderTurn() {
  if (file_ >= 0) close(DescriptorOf(file_));
}

}  // namespace zel::desk

// Open files of the system and their locks.
#pragma once

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

namespace zel::platform {

// The outcome of a call that a signal may have cut short.
template <typename Call>
auto Retry(Call const& call) noexcept {
  auto result = call();
  while (result == -1 && errno == EINTR) result = call();
  return result;
}

// Bound to this open, not to the process: a lock of the process kind would not hold against another
// open of the same process, and would fall at any close.
inline bool LockWithoutWaiting(int fd, bool exclusive) noexcept {
#ifdef F_OFD_SETLK
  struct flock lock {};
  lock.l_type = static_cast<short>(exclusive ? F_WRLCK : F_RDLCK);
  lock.l_whence = SEEK_SET;
  return ::fcntl(fd, F_OFD_SETLK, &lock) == 0;
#else
  return ::flock(fd, (exclusive ? LOCK_EX : LOCK_SH) | LOCK_NB) == 0;
#endif
}

// An open file of the system, closed with its owner.
class Descriptor {
 public:
  explicit Descriptor(int fd) noexcept : fd_(fd) {}
  Descriptor(Descriptor&& other) noexcept : fd_(std::exchange(other.fd_, -1)) {}
  Descriptor& operator=(Descriptor&& other) noexcept {
    std::swap(fd_, other.fd_);
    return *this;
  }
  ~Descriptor() {
    if (fd_ >= 0) ::close(fd_);
  }
  int Get() const noexcept { return fd_; }
  // Hands the file over: the owner closes it no more.
  int Release() noexcept { return std::exchange(fd_, -1); }

 private:
  int fd_;
};

}  // namespace zel::platform

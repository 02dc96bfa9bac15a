// Open files of the system and their locks.
#pragma once

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <ctime>
#include <utility>

namespace zel::platform {

// The result of a call, which is repeated while signals interrupt it.
template <typename Call>
auto Retry(Call const& call) noexcept {
  auto result = call();
  while (result == -1 && errno == EINTR) result = call();
  return result;
}

// A call that would make a file longer than the process's limit (RLIMIT_FSIZE) fails with EFBIG,
// and the system also sends SIGXFSZ, which ends a host that does not handle it. The signal's
// disposition belongs to the host and is shared by its threads, so it is not changed: the signal is
// blocked for this thread during the call, and consumed if the call raised it. It is sent to the
// thread that made the call, so no other thread can receive it meanwhile. Comparing with the limit
// in advance is not enough: another thread or program can lower it in between. A signal that was
// already pending, because the host had blocked it, stays pending.
template <typename Call>
auto WithoutSizeSignal(Call const& call) noexcept {
  sigset_t size;
  sigset_t before;
  sigset_t waiting;
  sigemptyset(&size);
  sigaddset(&size, SIGXFSZ);
  sigemptyset(&waiting);
  bool const blocked = ::pthread_sigmask(SIG_BLOCK, &size, &before) == 0;
  if (blocked && sigismember(&before, SIGXFSZ) == 1) ::sigpending(&waiting);
  auto const result = Retry(call);
  int const reason = errno;
  if (blocked) {
    bool const isOurs = sigismember(&waiting, SIGXFSZ) == 0;
    if (result == -1 && reason == EFBIG && isOurs) {
      timespec const now = {};
      Retry([&] { return ::sigtimedwait(&size, nullptr, &now); });
    }
    ::pthread_sigmask(SIG_SETMASK, &before, nullptr);
  }
  errno = reason;
  return result;
}

// The lock belongs to this open, not to the process: a process-wide lock would not exclude another
// open in the same process, and would be released at any close.
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
  // Gives up ownership: the destructor no longer closes the file.
  int Release() noexcept { return std::exchange(fd_, -1); }

 private:
  int fd_;
};

}  // namespace zel::platform

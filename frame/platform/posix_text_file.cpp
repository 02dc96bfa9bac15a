// Text files of a POSIX system.
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "frame/platform/posix_descriptor.h"
#include "frame/platform/text_calls.h"

namespace zel::platform {

namespace {

constexpr mode_t kNewFileMode = 0666;

Descriptor Open(char const* path, int flags) noexcept {
  return Descriptor(Retry([&] { return ::open(path, flags | O_CLOEXEC, kNewFileMode); }));
}

}  // namespace

int OpenEmptyTextFile(std::string const& path) {
  Descriptor file = Open(path.c_str(), O_WRONLY | O_CREAT);
  if (file.Get() < 0) return -1;
  if (!LockWithoutWaiting(file.Get(), true) && (errno == EAGAIN || errno == EACCES)) return -1;
  // Anything but a plain file, such as a pipe, has no length.
  if (::ftruncate(file.Get(), 0) != 0 && errno != EINVAL) return -1;
  return file.Release();
}

std::int64_t WriteTextFile(int file, char const* from, std::size_t count) noexcept {
  return WithoutSizeSignal([&] { return ::write(file, from, count); });
}

bool CloseTextFile(int file) noexcept { return ::close(file) == 0; }

OpenedText OpenTextFile(std::string const& path) {
  struct stat status {};
  if (path.empty() || ::stat(path.c_str(), &status) != 0) return {ReadResult::kMissing};
  if (!S_ISREG(status.st_mode)) return {ReadResult::kUnreadable};
  int const file = Open(path.c_str(), O_RDONLY).Release();
  if (file < 0) return {ReadResult::kUnreadable};
  return {ReadResult::kRead, file, static_cast<std::uint64_t>(status.st_size)};
}

std::int64_t ReadTextFileAt(int file, std::uint64_t place, char* to, std::size_t room) noexcept {
  return Retry([&] { return ::pread(file, to, room, static_cast<off_t>(place)); });
}

}  // namespace zel::platform

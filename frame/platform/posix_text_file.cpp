#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstring>

#include "frame/platform/posix_descriptor.h"
#include "frame/platform/text_file.h"

namespace zel::platform {

namespace {

constexpr std::size_t kBufferBytes = 1 << 16;
constexpr mode_t kNewFileMode = 0666;

Descriptor Open(char const* path, int flags) noexcept {
  return Descriptor(Retry([&] { return ::open(path, flags | O_CLOEXEC, kNewFileMode); }));
}

// Opens a file to be overwritten. A file that is open as a library, here or elsewhere, is left
// alone: library files have the same lock.
int OpenEmpty(char const* path) noexcept {
  Descriptor file = Open(path, O_WRONLY | O_CREAT);
  if (file.Get() < 0) return -1;
  if (!LockWithoutWaiting(file.Get(), true) && (errno == EAGAIN || errno == EACCES)) return -1;
  // Anything but a plain file, such as a pipe, has no length.
  if (::ftruncate(file.Get(), 0) != 0 && errno != EINVAL) return -1;
  return file.Release();
}

// A file is read into one text whose length must fit an int, as document parsers require.
constexpr std::size_t kLongestText = INT_MAX;

// Reads to the end of an open file; the size is only a hint. False when the file is too long.
bool ReadAll(int file, std::size_t sizeHint, std::string& text) {
  std::size_t length = 0;
  text.resize(sizeHint + 1);
  for (;;) {
    if (length > kLongestText) return false;
    if (length == text.size()) text.resize(2 * text.size());
    ssize_t const n =
        Retry([&] { return ::read(file, text.data() + length, text.size() - length); });
    if (n < 0) return false;
    if (n == 0) break;
    length += static_cast<std::size_t>(n);
  }
  text.resize(length);
  return true;
}

}  // namespace

TextFile::TextFile(std::string const& path)
    : buffer_(new char[kBufferBytes]), file_(OpenEmpty(path.c_str())) {}

TextFile::~TextFile() { Close(); }

void TextFile::Flush() {
  std::size_t done = 0;
  while (file_ >= 0 && done < used_) {
    ssize_t const n =
        WithoutSizeSignal([&] { return ::write(file_, buffer_.get() + done, used_ - done); });
    if (n <= 0) break;
    done += static_cast<std::size_t>(n);
  }
  lost_ = lost_ || done < used_;
  used_ = 0;
}

void TextFile::Put(std::string_view text) {
  while (!text.empty()) {
    if (used_ == kBufferBytes) Flush();
    std::size_t const n = std::min(text.size(), kBufferBytes - used_);
    std::memcpy(buffer_.get() + used_, text.data(), n);
    used_ += n;
    text.remove_prefix(n);
  }
}

char* TextFile::Room(std::size_t size) {
  if (kBufferBytes - used_ < size) Flush();
  return buffer_.get() + used_;
}

bool TextFile::Close() {
  if (file_ < 0) return false;
  Flush();
  if (::close(file_) != 0) lost_ = true;
  file_ = -1;
  return !lost_;
}

ReadResult TextInput::Open(std::string const& path) {
  Close();
  struct stat status {};
  if (path.empty() || ::stat(path.c_str(), &status) != 0) return ReadResult::kMissing;
  if (!S_ISREG(status.st_mode)) return ReadResult::kUnreadable;
  size_ = static_cast<std::uint64_t>(status.st_size);
  file_ = zel::platform::Open(path.c_str(), O_RDONLY).Release();
  return file_ < 0 ? ReadResult::kUnreadable : ReadResult::kRead;
}

void TextInput::Close() noexcept {
  if (file_ >= 0) ::close(file_);
  file_ = -1;
}

std::optional<std::size_t> TextInput::Read(std::uint64_t place, char* buffer,
                                           std::size_t room) noexcept {
  std::size_t length = 0;
  while (length < room) {
    ssize_t const n = Retry([&] {
      return ::pread(file_, buffer + length, room - length, static_cast<off_t>(place + length));
    });
    if (n < 0) return std::nullopt;
    if (n == 0) break;
    length += static_cast<std::size_t>(n);
  }
  return length;
}

ReadResult ReadTextFile(std::string const& path, std::string& text) {
  struct stat status {};
  if (path.empty() || ::stat(path.c_str(), &status) != 0) return ReadResult::kMissing;
  if (!S_ISREG(status.st_mode)) return ReadResult::kUnreadable;
  auto const size = static_cast<std::size_t>(status.st_size);
  if (size > kLongestText) return ReadResult::kUnreadable;
  Descriptor const file = Open(path.c_str(), O_RDONLY);
  if (file.Get() < 0) return ReadResult::kUnreadable;
  return ReadAll(file.Get(), size, text) ? ReadResult::kRead : ReadResult::kUnreadable;
}

}  // namespace zel::platform

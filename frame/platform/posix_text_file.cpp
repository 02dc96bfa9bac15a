#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstring>

#include "frame/platform/text_file.h"

namespace zel::platform {

namespace {

constexpr std::size_t kBufferBytes = 1 << 16;
constexpr mode_t kNewFileMode = 0666;

// The outcome of a call that a signal may have cut short.
template <typename Call>
ssize_t Retried(Call const& call) {
  ssize_t n = 0;
  do {
    n = call();
  } while (n < 0 && errno == EINTR);
  return n;
}

int Open(char const* path, int flags) {
  return static_cast<int>(Retried([&] { return ::open(path, flags | O_CLOEXEC, kNewFileMode); }));
}

// A file is read into one text whose length fits an int, as parsers of documents take it.
constexpr std::size_t kLongestText = INT_MAX;

// A descriptor that is closed with its scope.
class OpenFile {
 public:
  explicit OpenFile(int file) : file_(file) {}
  OpenFile(OpenFile const&) = delete;
  OpenFile& operator=(OpenFile const&) = delete;
  ~OpenFile() {
    if (file_ >= 0) ::close(file_);
  }
  int Get() const noexcept { return file_; }

 private:
  int file_;
};

// Reads to the end of an open file; the size is only a hint. False when the file is too long.
bool ReadAll(int file, std::size_t sizeHint, std::string& text) {
  std::size_t length = 0;
  text.resize(sizeHint + 1);
  for (;;) {
    if (length > kLongestText) return false;
    if (length == text.size()) text.resize(2 * text.size());
    ssize_t const n =
        Retried([&] { return ::read(file, text.data() + length, text.size() - length); });
    if (n < 0) return false;
    if (n == 0) break;
    length += static_cast<std::size_t>(n);
  }
  text.resize(length);
  return true;
}

}  // namespace

TextFile::TextFile(std::string const& path)
    : file_(Open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC)), buffer_(new char[kBufferBytes]) {}

TextFile::~TextFile() { Close(); }

void TextFile::Flush() {
  std::size_t done = 0;
  while (file_ >= 0 && done < used_) {
    ssize_t const n = Retried([&] { return ::write(file_, buffer_.get() + done, used_ - done); });
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

ReadResult ReadTextFile(std::string const& path, std::string& text) {
  struct stat status {};
  if (path.empty() || ::stat(path.c_str(), &status) != 0) return ReadResult::kMissing;
  if (!S_ISREG(status.st_mode)) return ReadResult::kUnreadable;
  auto const size = static_cast<std::size_t>(status.st_size);
  if (size > kLongestText) return ReadResult::kUnreadable;
  OpenFile const file(Open(path.c_str(), O_RDONLY));
  if (file.Get() < 0) return ReadResult::kUnreadable;
  return ReadAll(file.Get(), size, text) ? ReadResult::kRead : ReadResult::kUnreadable;
}

}  // namespace zel::platform

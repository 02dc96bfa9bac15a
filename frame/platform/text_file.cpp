#include "frame/platform/text_file.h"

#include <algorithm>
#include <climits>
#include <cstring>

#include "frame/platform/text_calls.h"

namespace zel::platform {

namespace {

constexpr std::size_t kBufferBytes = 1 << 16;

// A file is read into one text whose length must fit an int, as document parsers require.
constexpr std::size_t kLongestText = INT_MAX;

// Reads to the end of an open file; the size is only a hint. False when the file is too long.
bool ReadAll(TextInput& file, std::string& text) {
  std::size_t length = 0;
  text.resize(static_cast<std::size_t>(file.Size()) + 1);
  for (;;) {
    if (length > kLongestText) return false;
    if (length == text.size()) text.resize(2 * text.size());
    auto const n = file.Read(length, text.data() + length, text.size() - length);
    if (!n) return false;
    if (*n == 0) break;
    length += *n;
  }
  text.resize(length);
  return true;
}

}  // namespace

TextFile::TextFile(std::string const& path)
    : buffer_(new char[kBufferBytes]), file_(OpenEmptyTextFile(path)) {}

TextFile::~TextFile() { Close(); }

void TextFile::Flush() {
  std::size_t done = 0;
  while (file_ >= 0 && done < used_) {
    std::int64_t const n = WriteTextFile(file_, buffer_.get() + done, used_ - done);
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
  if (!CloseTextFile(file_)) lost_ = true;
  file_ = -1;
  return !lost_;
}

ReadResult TextInput::Open(std::string const& path) {
  Close();
  OpenedText const opened = OpenTextFile(path);
  file_ = opened.file;
  size_ = opened.size;
  return opened.result;
}

void TextInput::Close() noexcept {
  if (file_ >= 0) CloseTextFile(file_);
  file_ = -1;
}

std::optional<std::size_t> TextInput::Read(std::uint64_t place, char* buffer,
                                           std::size_t room) noexcept {
  std::size_t length = 0;
  while (length < room) {
    std::int64_t const n = ReadTextFileAt(file_, place + length, buffer + length, room - length);
    if (n < 0) return std::nullopt;
    if (n == 0) break;
    length += static_cast<std::size_t>(n);
  }
  return length;
}

ReadResult ReadTextFile(std::string const& path, std::string& text) {
  TextInput file;
  ReadResult const result = file.Open(path);
  if (result != ReadResult::kRead) return result;
  if (file.Size() > kLongestText) return ReadResult::kUnreadable;
  return ReadAll(file, text) ? ReadResult::kRead : ReadResult::kUnreadable;
}

}  // namespace zel::platform

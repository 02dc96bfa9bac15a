// Text files, written sequentially and read whole or in pieces.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace zel::platform {

// A file written through a buffer. Text that cannot be written is dropped; Close reports it.
class TextFile {
 public:
  // Creates the file, or empties an existing one. A file that is open as a library or as another
  // TextFile cannot be opened.
  explicit TextFile(std::string const& path);
  TextFile(TextFile const&) = delete;
  TextFile& operator=(TextFile const&) = delete;
  ~TextFile();

  // False when the file could not be opened.
  explicit operator bool() const noexcept { return file_ >= 0; }

  void Put(std::string_view text);
  void Put(char c) { Put(std::string_view(&c, 1)); }
  // Room for `size` characters at the end of the buffer, at most kLargestPiece; Advance then says
  // how many of them were filled.
  static constexpr std::size_t kLargestPiece = 256;
  char* Room(std::size_t size);
  void Advance(std::size_t size) noexcept { used_ += size; }

  // Writes what is left and closes; false when something was lost.
  bool Close();

 private:
  void Flush();

  std::unique_ptr<char[]> buffer_;  // first, so that no file is open yet when the allocation fails
  int file_;
  bool lost_ = false;
  std::size_t used_ = 0;
};

enum class ReadResult : std::uint8_t { kRead, kMissing, kUnreadable };
// All bytes of a file; one of 2 GiB or more is unreadable. `text` is undefined unless it was read.
ReadResult ReadTextFile(std::string const& path, std::string& text);

// A file that is read in pieces. It stays the same file if another one takes its place.
class TextInput {
 public:
  TextInput() noexcept = default;
  TextInput(TextInput const&) = delete;
  TextInput& operator=(TextInput const&) = delete;
  ~TextInput() { Close(); }

  // The same results as ReadTextFile, but a file may have any size.
  ReadResult Open(std::string const& path);
  void Close() noexcept;
  // Bytes, when it was opened; 0 also for files of the system that do not know their size.
  std::uint64_t Size() const noexcept { return size_; }
  // Bytes from this place on: as many as there is room for, fewer at the end of the file, and
  // nothing if they cannot be read.
  std::optional<std::size_t> Read(std::uint64_t place, char* buffer, std::size_t room) noexcept;

 private:
  int file_ = -1;
  std::uint64_t size_ = 0;
};

}  // namespace zel::platform

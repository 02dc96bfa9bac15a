// Text files, written sequentially and read whole.
#pragma once

#include <cstdint>
#include <memory>
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

}  // namespace zel::platform

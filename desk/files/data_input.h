// A file that is read in pieces, without its holes.
#pragma once

#include <cstdint>
#include <filesystem>
#include <vector>

namespace zel::desk {

// All throw std::filesystem::filesystem_error.
class DataInput {
 public:
  explicit DataInput(std::filesystem::path const& path);
  DataInput(DataInput const&) = delete;
  DataInput& operator=(DataInput const&) = delete;
  ~DataInput();

  // The place of the next data that is not in a hole, from `at` on; the end of the file if there is
  // none. `at` itself on a file system that does not tell.
  std::int64_t NextData(std::int64_t at) const;
  std::int64_t Size() const;
  // Fills the piece from the file at `at`; less than that only at its end.
  std::size_t Read(std::vector<char>& piece, std::int64_t at) const;

 private:
  [[noreturn]] void Refuse() const;

  std::filesystem::path path_;
  std::intptr_t file_;  // handle or descriptor of the system
};

}  // namespace zel::desk

// What the files of a library held before some work, so that the work can be taken back.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <vector>

#include "frame/platform/block_file.h"
#include "store/format.h"

namespace zel {

// Keeps each page of a file before it is first overwritten. What is past the old end of the file is
// not kept.
class UndoPages {
 public:
  // Keeps what a write of this range is going to overwrite. False if that cannot be read, or if
  // memory runs out: the write must then fail.
  bool Keep(int number, platform::BlockFile& file, std::uint64_t offset,
            std::size_t count) noexcept;
  // Writes the old content and length back. False if that fails.
  bool TakeBack(int number, platform::BlockFile& file) const noexcept;

 private:
  static constexpr std::uint64_t kPage = 4096;
  struct File {
    std::optional<std::uint64_t> size;
    std::map<std::uint64_t, std::vector<std::byte>> pages;  // by page number
  };

  File const& Of(int number) const noexcept { return files_[static_cast<std::size_t>(number)]; }

  std::array<File, format::kFileSlots> files_;
};

}  // namespace zel

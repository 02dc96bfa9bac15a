// The free blocks of a library, as a short sorted list of extents.
#pragma once

#include <array>
#include <cstdint>

#include "store/format.h"

namespace zel {

// A run of free blocks of one file. The extent of size 999999 is the open tail of its file: taking
// from it moves its address and never its size.
struct Extent {
  std::int32_t address = 0;  // of the first block
  std::int32_t size = 0;     // in blocks
  std::int32_t file = 0;
};

// The block table (125 words) of a new library: the open tails of its two files.
void MakeBlockTable(std::int32_t* table, std::int32_t libType) noexcept;

// Best-fit allocation. The list is kept in descending order of size, then file, then address, has
// at most 62 entries and room for one more, which only holds a freed run until the next sort: the
// smallest one is then dropped, and its blocks are lost for good.
class ExtentList {
 public:
  // Reads the block table (125 words). Impossible entries - another library's type, a missing file,
  // blocks outside a file, an overlap with an earlier entry - are dropped.
  void Load(std::int32_t const* table, std::int32_t libType, std::int32_t fileCount) noexcept;
  // Writes count, sizes and addresses into the block table; unused slots become 0.
  void Store(std::int32_t* table) const noexcept;

  // Takes `blocks` blocks of a file from the smallest extent that has them; returns the address of
  // the first, or the null address. A run never extends past block 999,999.
  std::int32_t Take(std::int32_t file, std::int64_t blocks) noexcept;
  // Returns a run, joining it with its neighbours in one pass over the list: two neighbours that
  // become adjacent late in the pass can stay separate until a later call joins them. Neighbours
  // are recognised by their addresses alone. Throws the address when some of the blocks are already
  // free.
  void GiveBack(std::int32_t address, std::int64_t blocks, std::int32_t file);

  // True when some blocks of the run are free.
  bool Overlaps(std::int32_t address, std::int64_t blocks, std::int32_t file) const noexcept;

  int Count() const noexcept { return count_; }
  Extent const& operator[](int i) const noexcept { return entries_[static_cast<std::size_t>(i)]; }

 private:
  void Sort() noexcept;

  int count_ = 0;
  std::array<Extent, format::kExtentsOnFile + 1> entries_{};
};

}  // namespace zel

// The owner of each block of a library.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "store/block_store.h"
#include "verify/findings.h"

namespace zel {

// Every part of a library claims the blocks that belong to it. A block that is claimed twice, free
// and claimed, or after the end of its file is damage; one that is neither claimed nor free is
// lost.
class BlockClaims {
 public:
  BlockClaims(BlockStore& store, Findings& findings);

  // Sets the owner for the following claims.
  void SetOwner(std::string name);
  std::string const& Owner() const { return owners_.back(); }
  // Sets the item of the owner for the following claims; empty for the owner itself.
  void SetItem(std::string item) { item_ = std::move(item); }
  // The place that findings name: the owner and its item.
  std::string Place() const { return item_.empty() ? Owner() : Owner() + " " + item_; }
  // Claims a run of blocks that holds `words` words. False, with a finding, if it cannot belong to
  // the owner.
  bool Claim(std::int32_t address, std::int32_t words);
  // Claims a run that several items of the current owner can share; claimed once.
  bool ClaimShared(std::int32_t address, std::int32_t words);
  // Reads the words of a claimed block. False, with a finding, if they cannot be read.
  bool Read(std::int32_t address, std::int32_t words, std::int32_t* buffer);
  // The blocks that were claimed so far.
  std::int64_t Claimed() const noexcept { return claimed_; }
  // Marks the blocks of an extent as free; the endless tail extends to the end of its file.
  void Free(Extent const& extent);
  // Reports blocks that were not claimed, and the sizes.
  void Close();

 private:
  using Owner32 = std::uint32_t;
  static constexpr Owner32 kNobody = 0;
  static constexpr Owner32 kFree = 1;

  struct Run {
    std::int32_t file;
    std::int64_t first;
    std::int64_t count;
  };
  bool RunOf(std::int32_t address, std::int32_t words, Run& run);
  bool Take(Run const& run, std::int32_t address, Owner32 tolerated);
  Owner32 Current() const noexcept { return static_cast<Owner32>(owners_.size() - 1); }

  BlockStore& store_;
  Findings& findings_;
  std::vector<std::string> owners_;
  std::string item_;
  std::int64_t claimed_ = 0;  // blocks
  // By file number, an owner per block.
  std::array<std::vector<Owner32>, format::kFileSlots> blocks_;
};

}  // namespace zel

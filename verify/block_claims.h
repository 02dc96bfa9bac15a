// Who owns each block of a library.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "store/block_store.h"
#include "verify/findings.h"

namespace zel {

// Every part of a library claims the blocks that it says are its own. What is claimed twice, free
// and claimed, or behind the end of its file is damage; what nobody claims and is not free is lost.
class BlockClaims {
 public:
  BlockClaims(BlockStore& store, Findings& findings);

  // Makes an owner of this name the one that claims.
  void SetOwner(std::string name);
  std::string const& Owner() const { return owners_.back(); }
  // The item of the owner that claims; empty for the owner itself.
  void SetItem(std::string item) { item_ = std::move(item); }
  // What findings name: the owner and its item.
  std::string Place() const { return item_.empty() ? Owner() : Owner() + " " + item_; }
  // A run of blocks that hold `words` words. False, with a finding, when it cannot be the owner's.
  bool Claim(std::int32_t address, std::int32_t words);
  // A run that several items of the present owner can share; claimed once.
  bool ClaimShared(std::int32_t address, std::int32_t words);
  // The words of a block that was claimed. False, with a finding, when they cannot be read.
  bool Read(std::int32_t address, std::int32_t words, std::int32_t* buffer);
  // Free blocks of an extent; the open tail reaches to the end of its file.
  void Free(Extent const& extent);
  // Tells of blocks that nobody claimed, and of the sizes.
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
  // By file number, an owner per block.
  std::array<std::vector<Owner32>, format::kFileSlots> blocks_;
};

}  // namespace zel

#include "verify/block_claims.h"

#include <algorithm>

namespace zel {

namespace f = format;

BlockClaims::BlockClaims(BlockStore& store, Findings& findings)
    : store_(store), findings_(findings), owners_{"nobody", "the free blocks"} {
  for (int file = 1; file <= store.FileCount(); ++file) {
    std::int64_t const count = std::min<std::int64_t>(store.BlocksInFile(file), f::kMaxBlock);
    blocks_[static_cast<std::size_t>(file)].assign(static_cast<std::size_t>(count), kNobody);
  }
}

void BlockClaims::SetOwner(std::string name) {
  owners_.push_back(std::move(name));
  item_.clear();
}

bool BlockClaims::RunOf(std::int32_t address, std::int32_t words, Run& run) {
  BlockAddress const a = BlockAddress::Split(address);
  bool const isBlock = a.type == store_.LibType() && a.file >= 1 && a.file <= store_.FileCount() &&
                       a.block >= 1 && store_.BlockWords(a.file) >= 1;
  if (!isBlock) {
    findings_.Damage("block-address", Place(),
                     "block address " + std::to_string(address) + " is none of this library");
    return false;
  }
  std::int64_t const size = store_.BlockWords(a.file);
  run = {a.file, a.block - 1, std::max<std::int64_t>(1, (words + size - 1) / size)};
  auto const inFile = static_cast<std::int64_t>(blocks_[static_cast<std::size_t>(a.file)].size());
  std::int64_t const end = (run.first * size + words) * f::kWordBytes;
  if (run.first + run.count > inFile || end > store_.BytesInFile(a.file)) {
    findings_.Damage("block-behind-end", Place(),
                     "block " + std::to_string(address) + " lies behind the end of file " +
                         std::to_string(a.file) + ", which has " + std::to_string(inFile));
    return false;
  }
  return true;
}

bool BlockClaims::Take(Run const& run, std::int32_t address, Owner32 tolerated) {
  auto const begin =
      blocks_[static_cast<std::size_t>(run.file)].begin() + static_cast<std::ptrdiff_t>(run.first);
  auto const end = begin + static_cast<std::ptrdiff_t>(run.count);
  auto const taken = std::find_if(
      begin, end, [&](Owner32 owner) { return owner != kNobody && owner != tolerated; });
  if (taken != end) {
    findings_.Damage(*taken == kFree ? "block-free-and-used" : "block-owned-twice", Place(),
                     "block " + std::to_string(address + (taken - begin)) + " belongs to " +
                         owners_[*taken] + " too");
    return false;
  }
  std::fill(begin, end, Current());
  claimed_ += run.count;
  return true;
}

bool BlockClaims::Claim(std::int32_t address, std::int32_t words) {
  Run run{};
  return RunOf(address, words, run) && Take(run, address, kNobody);
}

bool BlockClaims::Read(std::int32_t address, std::int32_t words, std::int32_t* buffer) {
  if (store_.ReadBlock(address, words, buffer) >= 0) return true;
  findings_.Damage("block-unreadable", Place(),
                   "block " + std::to_string(address) + " cannot be read");
  return false;
}

bool BlockClaims::ClaimShared(std::int32_t address, std::int32_t words) {
  Run run{};
  return RunOf(address, words, run) && Take(run, address, Current());
}

void BlockClaims::Free(Extent const& extent) {
  BlockAddress const a = BlockAddress::Split(extent.address);
  std::vector<Owner32>& blocks = blocks_[static_cast<std::size_t>(a.file)];
  auto const first = std::min<std::size_t>(static_cast<std::size_t>(a.block - 1), blocks.size());
  std::size_t const rest = blocks.size() - first;
  std::size_t const count =
      extent.size == f::kOpenTail ? rest : std::min(rest, static_cast<std::size_t>(extent.size));
  std::fill_n(blocks.begin() + static_cast<std::ptrdiff_t>(first), count, kFree);
}

void BlockClaims::Close() {
  for (int file = 1; file <= store_.FileCount(); ++file) {
    std::vector<Owner32> const& blocks = blocks_[static_cast<std::size_t>(file)];
    auto const lost = std::count(blocks.begin(), blocks.end(), kNobody);
    auto const unused = std::count(blocks.begin(), blocks.end(), kFree);
    std::string const place = "file " + std::to_string(file);
    if (lost > 0) {
      auto const first = std::find(blocks.begin(), blocks.end(), kNobody) - blocks.begin();
      findings_.Warning(
          "block-leaked", place,
          std::to_string(lost) + " of " + std::to_string(blocks.size()) +
              " blocks belong to nothing and are not free, the first of them block " +
              std::to_string(first + 1) +
              "; deleted banks and items leave such, and a copy of the library bank by "
              "bank is without them");
    }
    findings_.Note("sizes", place,
                   std::to_string(blocks.size()) + " blocks of " +
                       std::to_string(store_.BlockWords(file)) + " words, " +
                       std::to_string(unused) + " free");
  }
}

}  // namespace zel

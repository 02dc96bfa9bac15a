#include "store/extents.h"

#include <algorithm>
#include <tuple>

#include "store/block_address.h"

namespace zel {
namespace {

bool LiesAhead(Extent const& a, Extent const& b) noexcept {
  return std::tie(a.size, a.file, a.address) > std::tie(b.size, b.file, b.address);
}

// Block number of an extent. That of an exhausted tail may be one more than an address has digits
// for, so it is not read from the block digits.
std::int64_t BlockOf(Extent const& e) noexcept {
  return e.address % format::kTypeFactor - std::int64_t{e.file} * format::kFileFactor;
}

// The first address after an extent; an open tail has none.
std::int64_t EndOf(Extent const& e) noexcept {
  return e.size >= format::kOpenTail ? INT64_MAX : std::int64_t{e.address} + e.size;
}

bool CanBeTrue(Extent const& e, std::int32_t libType, std::int32_t fileCount) noexcept {
  BlockAddress const a = BlockAddress::Split(e.address);
  std::int32_t const first = a.file == 1 ? format::kFirstFreeBlockOfFile1 : 1;
  return e.address > 0 && a.type == libType && a.file >= 1 && a.file <= fileCount &&
         a.block >= first &&
         (e.size == format::kOpenTail || a.block + std::int64_t{e.size} <= format::kMaxBlock + 1);
}

}  // namespace

void MakeBlockTable(std::int32_t* table, std::int32_t libType) noexcept {
  constexpr std::int32_t kFirstFree[] = {format::kFirstFreeBlockOfFile1,
                                         format::kFirstFreeBlockOfFile2};
  std::fill_n(table, format::kHeaderWords, 0);
  table[format::kExtentCount] = format::kFilesOfNewLibrary;
  for (int i = 0; i < format::kFilesOfNewLibrary; ++i) {
    table[format::kExtentSizes + i] = format::kOpenTail;
    table[format::kExtentAddresses + i] = BlockAddress{libType, i + 1, kFirstFree[i]}.Word();
  }
}

void ExtentList::Load(std::int32_t const* table, std::int32_t libType,
                      std::int32_t fileCount) noexcept {
  entries_.fill({});
  count_ = 0;
  for (int i = 0; i < format::kExtentsOnFile; ++i) {
    Extent e{table[format::kExtentAddresses + i], table[format::kExtentSizes + i], 0};
    if (e.size <= 0) continue;
    e.file = BlockAddress::Split(e.address).file;
    if (!CanBeTrue(e, libType, fileCount) || Overlaps(e.address, e.size, e.file)) continue;
    entries_[static_cast<std::size_t>(count_++)] = e;
  }
  Sort();
}

void ExtentList::Store(std::int32_t* table) const noexcept {
  table[format::kExtentCount] = count_;
  for (int i = 0; i < format::kExtentsOnFile; ++i) {
    Extent const e = i < count_ ? (*this)[i] : Extent{};
    table[format::kExtentSizes + i] = e.size;
    table[format::kExtentAddresses + i] = e.address;
  }
}

// The list is nearly in order: a change moves one or two entries.
void ExtentList::Sort() noexcept {
  for (auto next = entries_.begin(); next != entries_.begin() + count_; ++next) {
    if (next == entries_.begin() || !LiesAhead(*next, next[-1])) continue;
    std::rotate(std::upper_bound(entries_.begin(), next, *next, LiesAhead), next, next + 1);
  }
  for (int i = std::min(count_, format::kExtentsOnFile); i > 0; --i) {
    if ((*this)[i - 1].size > 0) {
      count_ = i;
      return;
    }
  }
}

bool ExtentList::Overlaps(std::int32_t address, std::int64_t blocks,
                          std::int32_t file) const noexcept {
  std::int64_t const end = blocks >= format::kOpenTail ? INT64_MAX : address + blocks;
  return std::any_of(entries_.begin(), entries_.begin() + count_, [&](Extent const& e) {
    return e.size > 0 && e.file == file && e.address < end && address < EndOf(e);
  });
}

std::int32_t ExtentList::Take(std::int32_t file, std::int64_t blocks) noexcept {
  for (int i = count_ - 1; i >= 0; --i) {
    Extent& e = entries_[static_cast<std::size_t>(i)];
    std::int64_t const behind = BlockOf(e) + blocks;
    if (e.file != file || e.size < blocks || behind > format::kMaxBlock + 1) continue;
    std::int32_t const address = e.address;
    e.address += static_cast<std::int32_t>(blocks);
    if (e.size != format::kOpenTail) e.size -= static_cast<std::int32_t>(blocks);
    Sort();
    return address;
  }
  return format::kNullAddress;
}

void ExtentList::GiveBack(std::int32_t address, std::int64_t blocks, std::int32_t file) {
  if (Overlaps(address, blocks, file)) ThrowBlockError(address, BlockFault::kNotOccupied);
  for (int i = 0; i < count_; ++i) {
    Extent& e = entries_[static_cast<std::size_t>(i)];
    // A run that absorbed a tail is so long that an extent of the next file can be at its end: that
    // extent is absorbed too, and its blocks are lost. Tails come first in the list and cannot be
    // met this way.
    if (address + blocks == e.address) {
      blocks += e.size;
      e = {};
    }
    if (e.size > 0 && e.size < format::kOpenTail && e.address + e.size == address) {
      address = e.address;
      blocks += e.size;
      e = {};
    }
  }
  auto const size = static_cast<std::int32_t>(std::min<std::int64_t>(blocks, format::kOpenTail));
  entries_[static_cast<std::size_t>(count_++)] = {address, size, file};
  Sort();
}

}  // namespace zel

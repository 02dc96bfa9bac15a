// One node of a tree that may be damaged.
#pragma once

#include <cstdint>

#include "verify/salvage/broken_library.h"
#include "verify/salvage/tree_shape.h"

namespace zel {

// What can still be read from a block that should be a node. The links tell most about it: those of
// a node are all null or all addresses, and are where the widths of the tree put them. So a wrong
// count is noticed, and an entry between two words that are not links is damaged.
class NodeReading {
 public:
  enum class Link : std::uint8_t { kNull, kChild, kBad };

  // Whether words after the last entry of a node are zeros in this library. In a library from a
  // writer that does not clear them, a count that became too small goes unnoticed.
  enum class Tails : std::uint8_t { kUnknown, kClean };

  // False if the block is not a node of this shape, or cannot be read.
  bool Read(BrokenLibrary const& library, std::int32_t address, TreeShape const& shape,
            Tails tails);

  std::int32_t Address() const noexcept { return address_; }
  bool IsLeaf() const noexcept { return own_ == Link::kNull; }
  // The entries that may be there, from 1; not all of them are good.
  std::int32_t Count() const noexcept { return count_; }
  std::int32_t const* Entry(std::int32_t i) const noexcept {
    return words_ + format::kNodeEntries + (i - 1) * shape_.Width();
  }
  bool EntryIsGood(std::int32_t i) const noexcept;
  std::int32_t LinkWord(std::int32_t i) const noexcept {
    return words_[format::kNodeLinks + i * shape_.Width()];
  }
  bool LinkIsGood(std::int32_t i) const noexcept { return ClassOf(LinkWord(i)) == own_; }
  // The neighbours when the node was split; may be any words.
  std::int32_t Previous() const noexcept { return words_[format::kNodePrevious]; }
  std::int32_t Next() const noexcept { return words_[format::kNodeNext]; }
  // The share of good links among those that a node with these entries has, 0 to 1.
  double GoodLinks() const noexcept { return goodLinks_; }
  // True when the node itself states this count.
  bool CountIsStated() const noexcept { return words_[format::kNodeCount] == count_; }
  // True when all words after the last entry are zeros.
  bool TailIsClean() const noexcept;

 private:
  Link ClassOf(std::int32_t word) const noexcept;
  bool Fits(std::int32_t count, Link kind);
  bool Derive();

  BrokenLibrary const* library_ = nullptr;
  TreeShape shape_;
  std::int32_t address_ = 0;
  std::int32_t const* words_ = nullptr;
  std::int32_t count_ = 0;
  Link own_ = Link::kNull;
  double goodLinks_ = 0.0;
};

}  // namespace zel

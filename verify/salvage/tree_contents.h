// What can be read of one tree by following its links.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <set>
#include <vector>

#include "verify/salvage/node_reading.h"

namespace zel {

// An entry, key first, in the image of its file.
struct FoundEntry {
  std::int32_t const* words = nullptr;
  std::int32_t node = 0;    // the address of the node that holds it
  bool isScanned = false;   // not reached by links from the root
  bool isOutdated = false;  // from a free block
};

// A place where something of the tree is missing: the entries before and after it, null at the
// ends.
struct TreeGap {
  std::int32_t const* before = nullptr;
  std::int32_t const* after = nullptr;
  std::int32_t link = 0;  // the word that should lead there
  int height = 0;         // of the missing part, 1 for a leaf; 0 where it is not known
  bool isFilled = false;  // the scan found something that belongs here
};

struct TreeContents {
  std::vector<FoundEntry> entries;  // in ascending order of keys
  std::vector<FoundEntry> keyless;  // entries whose keys cannot be right
  std::vector<TreeGap> gaps;        // missing subtrees
  std::vector<TreeGap> holes;       // missing entries within nodes that were read
  std::set<std::int32_t> nodes;     // addresses of the nodes that belong to the tree
  std::int64_t cleanTails = 0;      // nodes with zeros after the last entry
  std::int64_t dirtyTails = 0;
  int height = 0;
};

// Walks from a root through all links that can be followed. Of the entries, those that are in order
// are kept, as many as possible; a node most of whose entries are out of order is in a wrong place
// and does not count as reached.
class TreeWalk {
 public:
  // The number of nodes that all walks together may visit, so that links of a damaged or forged
  // library that lead to the same nodes again and again take no more time and memory than a few
  // times the library.
  class Budget {
   public:
    explicit Budget(BrokenLibrary const& library);
    bool Take() noexcept { return left_ > 0 && left_-- > 0; }

   private:
    std::int64_t left_;
  };

  // Whether an entry can be right at all.
  using Test = std::function<bool(std::int32_t const* entry)>;

  // The budget must outlive the walk.
  TreeWalk(BrokenLibrary const& library, Budget& budget, TreeShape const& shape,
           NodeReading::Tails tails, Test test)
      : library_(library), budget_(budget), shape_(shape), tails_(tails), test_(std::move(test)) {}

  // Nodes that belong to other trees, or are outdated, whatever leads to them; the set is the
  // caller's.
  void LeaveOut(std::set<std::int32_t> const& nodes) { leftOut_.push_back(&nodes); }

  // A null root is an empty tree.
  TreeContents From(std::int32_t root);

 private:
  struct Step {
    std::int32_t const* words;  // null for something that is missing
    std::size_t visit;
    std::int32_t link;  // 0 for a missing entry
    int level;          // of the missing part
    bool isKept;
    bool canBeTrue;
  };
  struct Visit {
    std::int32_t address;
    std::int64_t entries;
    std::int64_t kept;
    bool isLeaf;

    // The few entries of an inner node can all be damaged although the node is in its place.
    bool IsMisplaced() const noexcept { return entries >= (isLeaf ? 1 : 3) && 2 * kept < entries; }
  };

  bool MayEnter(std::int32_t address, int level);
  void Enter(std::int32_t address, int level);
  void Miss(std::int32_t link, int level);
  void KeepThoseInOrder();
  void ReleaseMisplaced();
  TreeContents Contents() const;

  BrokenLibrary const& library_;
  Budget& budget_;
  TreeShape shape_;
  NodeReading::Tails tails_;
  Test test_;
  std::vector<std::set<std::int32_t> const*> leftOut_;
  std::vector<Step> steps_;
  std::vector<Visit> visits_;
  std::map<std::int32_t, int> visitsOf_;
  std::vector<std::int32_t> path_;
  std::int64_t clean_ = 0;
  std::int64_t dirty_ = 0;
  int leafLevel_ = 0;
};

}  // namespace zel

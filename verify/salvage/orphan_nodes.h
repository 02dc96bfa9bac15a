// Nodes that no tree reaches.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <set>
#include <utility>
#include <vector>

#include "verify/salvage/tree_contents.h"

namespace zel {

// A node that no other unreached node leads to, with all that it leads to.
struct OrphanTree {
  std::int32_t root = 0;
  bool isFree = false;  // its block is free: what it holds was replaced, or deleted
  TreeContents contents;
};

// All blocks that can hold a node, look like one, and are not reached. Each belongs to the widths
// that its links, the order of its keys and its entries suit best.
class OrphanNodes {
 public:
  // Whether an entry can be one of a tree of this shape.
  using Test = std::function<bool(TreeShape const& shape, std::int32_t const* entry)>;

  // `shapes` are those that the nodes of the library can have.
  OrphanNodes(BrokenLibrary const& library, std::set<std::int32_t> const& reached,
              std::set<TreeShape> const& shapes, NodeReading::Tails tails, Test const& test);

  // The unreached trees with nodes of this shape, those with most entries first.
  std::vector<OrphanTree> Trees(TreeShape const& shape, TreeWalk::Test const& test) const;
  // True if the node is a leaf, and an unreached leaf in a block that is not free has keys between
  // the first and the last one of this leaf.
  bool HasLeafInPlaceOf(std::int32_t node, TreeShape const& shape) const;
  // The uppermost unreached node from which links lead to a node that is reached; that node itself
  // if nothing leads to it. Free blocks do not count.
  std::int32_t Above(std::int32_t node, TreeShape const& shape) const;

 private:
  using Widths = std::pair<std::int32_t, std::int32_t>;  // of key and data in the entry
  static Widths WidthsOf(TreeShape const& shape) { return {shape.keyWords, shape.entryDataWords}; }
  void Place(std::int32_t address, std::set<TreeShape> const& shapes, Test const& test);
  // By the address of a child: the unreached node that leads to it.
  using ParentMap = std::map<std::int32_t, std::int32_t>;
  ParentMap FindParents(TreeShape const& shape, bool alsoFree) const;
  ParentMap const& Parents(TreeShape const& shape, bool alsoFree) const;

  BrokenLibrary const& library_;
  NodeReading::Tails tails_;
  std::map<Widths, std::vector<std::int32_t>> nodes_;
  mutable std::map<std::pair<Widths, bool>, ParentMap> parents_;  // as far as they were asked for
};

}  // namespace zel

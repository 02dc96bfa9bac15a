// The rebuild: every entry except the deleted one is inserted into a new tree, node by node in
// breadth-first order, and each old node is freed as soon as its entries have moved. The new tree
// is built in memory and then written, each node once.
#include <algorithm>
#include <unordered_set>

#include "store/btree_write.h"

namespace zel {

namespace f = format;

// All nodes in breadth-first order. Damage - a cycle, a shared node, an impossible
// count, too deep a tree, a node that cannot be freed - throws the address here, before anything
// changes.
std::vector<BTree_i::NodeOnFile> BTree_i::NodesInBreadth(NodeSlabs& slabs) {
  std::int64_t bound = 0;
  std::vector<NodeOnFile> nodes;
  nodes.push_back({head_.rootAddress, nullptr});
  std::unordered_set<std::int32_t> seen{head_.rootAddress};
  std::size_t endOfLevel = 1;
  int depth = 1;
  for (std::size_t i = 0; i < nodes.size(); ++i) {
    if (i == endOfLevel) {
      endOfLevel = nodes.size();
      if (++depth > kMaxDepth) store_.Throw(nodes[i].address, BlockFault::kBadNode);
    }
    nodes[i].image = slabs.Take();
    std::int32_t const* node = nodes[i].image->data();
    ReadNode(nodes[i].address, nodes[i].image->data());
    if (!WithinBlocks(static_cast<std::int64_t>(i) + 1, bound))
      store_.Throw(nodes[i].address, BlockFault::kBadNode);
    for (int k = 0; k <= node[f::kNodeCount]; ++k) {
      std::int32_t const child = node[LinkAt(k)];
      if (child == f::kNullAddress) continue;
      if (!seen.insert(child).second) store_.Throw(child, BlockFault::kBadNode);
      nodes.push_back({child, nullptr});
    }
  }
  CheckBlocksOf(nodes);
  return nodes;
}

// Throws the address of a node some of whose blocks count as free or belong to another node.
void BTree_i::CheckBlocksOf(std::vector<NodeOnFile> const& nodes) const {
  std::vector<std::int32_t> addresses;
  addresses.reserve(nodes.size());
  for (NodeOnFile const& node : nodes) addresses.push_back(node.address);
  std::sort(addresses.begin(), addresses.end());
  std::int64_t free = 0;  // first address after the previous node
  for (std::int32_t const address : addresses) {
    if (address < free) store_.Throw(address, BlockFault::kBadNode);
    free = address + store_.CheckFreeable(address, f::kNodeWords);
  }
}

// Nothing is written before the new tree is complete: a failure until then, as of a read or for
// lack of room or memory, leaves the old tree as it was.
void BTree_i::Rebuild(std::int32_t const* deletedKey) {
  if (head_.rootAddress == f::kNullAddress) store_.Throw(f::kNullAddress, BlockFault::kEmptyTree);
  NodeSlabs slabs;
  std::vector<NodeOnFile> const nodes = NodesInBreadth(slabs);
  ForgetAll();
  ExtentList const extents = store_.Extents();
  std::int32_t const oldRoot = head_.rootAddress;
  NodesInMemory built;
  Written written;
  built_ = &built;
  head_.SetRoot(f::kNullAddress);
  try {
    for (NodeOnFile const& node : nodes) {
      MoveEntries(node.image->data(), deletedKey);
      std::int32_t address = node.address;
      store_.FreeBlock(address, f::kNodeWords);
    }
    built_ = nullptr;
    if (head_.rootAddress != f::kNullAddress) WriteBuilt(built, head_.rootAddress, written);
  } catch (...) {
    built_ = nullptr;
    ForgetAll();
    if (UndoRebuild(nodes, written)) {
      store_.Extents() = extents;
      head_.SetRoot(oldRoot);
    } else {
      head_.SetRoot(written.largest);
    }
    throw;
  }
  ForgetAll();
}

// Writes a subtree of the new tree, each node after those below it; returns its entries. What is
// complete at any moment can be walked.
std::int64_t BTree_i::WriteBuilt(NodesInMemory const& built, std::int32_t address,
                                 Written& written) {
  std::int32_t const* node = built.At(address);
  std::int64_t entries = node[f::kNodeCount];
  for (int k = 0; k <= node[f::kNodeCount]; ++k) {
    std::int32_t const child = node[LinkAt(k)];
    if (child != f::kNullAddress) entries += WriteBuilt(built, child, written);
  }
  written.started = true;
  WriteNode(address, node);
  if (entries > written.entries) {
    written.entries = entries;
    written.largest = address;
  }
  return entries;
}

// Writes the old nodes back, in whose blocks new ones may be. False when the file refuses that,
// too, and something of the new tree is there instead.
bool BTree_i::UndoRebuild(std::vector<NodeOnFile> const& nodes, Written const& written) noexcept {
  if (!written.started) return true;
  try {
    for (NodeOnFile const& node : nodes) {
      std::int32_t address = node.address;
      WriteNode(address, node.image->data());
    }
  } catch (...) {
    return written.entries == 0;
  }
  return true;
}

// Inserts the entries of an old node into the new tree, except the deleted key.
void BTree_i::MoveEntries(std::int32_t const* node, std::int32_t const* deletedKey) {
  bool stayed = false;  // the last entry went into a leaf that was not split: its path is good
  for (int k = 1; k <= node[f::kNodeCount]; ++k) {
    std::int32_t const* entry = node + EntryAt(k);
    if (CompareKey(entry, deletedKey) == 0) continue;
    std::int32_t const* data = nullptr;
    if (!(stayed && BelongsIntoLeaf(entry)) && Find(entry, data)) {
      stayed = false;
      continue;  // a damaged tree has the key twice
    }
    bool grew = false;
    stayed = current_ != kNoLevel && level_[current_].words[f::kNodeCount] < head_.maxEntries;
    InsertEntry(current_, entry, f::kNullAddress, f::kNullAddress, grew);
  }
}

// True if a key belongs into the leaf of the entry inserted last, after that entry: the position is
// then the place.
bool BTree_i::BelongsIntoLeaf(std::int32_t const* key) {
  Level& leaf = level_[current_];
  std::int32_t const count = leaf.words[f::kNodeCount];
  int index = leaf.index;
  if (CompareKey(leaf.words + EntryAt(index), key) >= 0) return false;
  while (index < count && CompareKey(leaf.words + EntryAt(index + 1), key) < 0) ++index;
  if (index < count) {
    if (CompareKey(leaf.words + EntryAt(index + 1), key) == 0) return false;
  } else {
    // The next entry in key order is in the lowest node above that has one right of the path.
    for (int k = current_ - 1; k >= 0; --k) {
      Level const& above = level_[k];
      if (above.index == above.words[f::kNodeCount]) continue;
      if (CompareKey(above.words + EntryAt(above.index + 1), key) <= 0) return false;
      break;
    }
  }
  leaf.index = index;
  return true;
}

}  // namespace zel

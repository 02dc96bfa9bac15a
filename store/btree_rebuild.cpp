// The rebuild: every entry except the deleted one is inserted into a new tree, node by node in
// breadth-first order, and each old node is freed as soon as its entries have moved. The new tree
// is built in memory and then written, each node once. The old nodes are read where they are in a
// mapped file; before they are overwritten they are copied, so that they can be written back,
// unless no write can fail.
#include <algorithm>
#include <array>
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
  nodes.push_back({head_.rootAddress, nullptr, false});
  std::unordered_set<std::int32_t> seen{head_.rootAddress};
  std::size_t endOfLevel = 1;
  int depth = 1;
  for (std::size_t i = 0; i < nodes.size(); ++i) {
    if (i == endOfLevel) {
      endOfLevel = nodes.size();
      if (++depth > kMaxDepth) store_.Throw(nodes[i].address, BlockFault::kBadNode);
    }
    LoadOldNode(nodes[i], slabs);
    std::int32_t const* node = nodes[i].image;
    if (!WithinBlocks(static_cast<std::int64_t>(i) + 1, bound))
      store_.Throw(nodes[i].address, BlockFault::kBadNode);
    for (int k = 0; k <= node[f::kNodeCount]; ++k) {
      std::int32_t const child = node[LinkAt(k)];
      if (child == f::kNullAddress) continue;
      if (!seen.insert(child).second) store_.Throw(child, BlockFault::kBadNode);
      nodes.push_back({child, nullptr, false});
    }
  }
  CheckBlocksOf(nodes);
  return nodes;
}

void BTree_i::LoadOldNode(NodeOnFile& node, NodeSlabs& slabs) {
  node.image = store_.NodeInPlace(node.address);
  node.isInPlace = node.image != nullptr;
  if (node.isInPlace) return CheckNode(node.image, node.address);
  std::int32_t* const image = slabs.Take();
  node.image = image;
  ReadNode(node.address, image);
}

// Makes copies of the old nodes that are in place, from which they can be written back, unless no
// write of a new node can fail.
void BTree_i::KeepOldNodes(std::vector<NodeOnFile>& nodes, NodeSlabs& slabs,
                           NodesInMemory const& built) {
  bool const cannotFail =
      std::all_of(built.images.begin(), built.images.end(),
                  [this](auto const& image) { return store_.NodeWriteCannotFail(image.first); });
  if (cannotFail) return;
  for (NodeOnFile& node : nodes) {
    if (!node.isInPlace) continue;
    std::int32_t* const image = slabs.Take();
    node.image = std::copy_n(node.image, f::kNodeWords, image) - f::kNodeWords;
    node.isInPlace = false;
  }
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
  NodeSlabs slabs(f::kNodeWords);
  std::vector<NodeOnFile> nodes = NodesInBreadth(slabs);
  ForgetAll();
  ExtentList const extents = store_.Extents();
  std::int32_t const oldRoot = head_.rootAddress;
  NodesInMemory built{NodeSlabs(LinkAt(head_.maxEntries) + 1), {}};
  Written written;
  built_ = &built;
  head_.SetRoot(f::kNullAddress);
  try {
    for (NodeOnFile const& node : nodes) {
      MoveEntries(node.image, deletedKey);
      std::int32_t address = node.address;
      store_.FreeBlock(address, f::kNodeWords);
    }
    built_ = nullptr;
    KeepOldNodes(nodes, slabs, built);
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
  std::array<std::int32_t, f::kNodeWords> whole;
  std::fill(std::copy_n(node, built.slabs.ImageWords(), whole.begin()), whole.end(), 0);
  written.started = true;
  WriteNode(address, whole.data());
  if (entries > written.entries) {
    written.entries = entries;
    written.largest = address;
  }
  return entries;
}

// Writes the old nodes back into their blocks, which may hold new nodes by now. False when that
// fails too, so that part of the new tree remains instead.
bool BTree_i::UndoRebuild(std::vector<NodeOnFile> const& nodes, Written const& written) noexcept {
  if (!written.started) return true;
  try {
    for (NodeOnFile const& node : nodes) {
      if (node.isInPlace) return false;
      std::int32_t address = node.address;
      WriteNode(address, node.image);
    }
  } catch (...) {
    return written.entries == 0;
  }
  return true;
}

// Inserts the entries of an old node into the new tree, except the deleted key. Most go into a leaf
// next to each other: such a run is inserted at once, with the result of an insert of each.
void BTree_i::MoveEntries(std::int32_t const* node, std::int32_t const* deletedKey) {
  bool stayed = false;  // the last entry went into a leaf that was not split: its path is good
  for (int k = 1; k <= node[f::kNodeCount];) {
    std::int32_t const* entry = node + EntryAt(k);
    std::int32_t const* data = nullptr;
    if (CompareKey(entry, deletedKey) == 0) {
      ++k;
    } else if (!(stayed && BelongsIntoLeaf(entry)) && Find(entry, data)) {
      stayed = false;
      ++k;  // a damaged tree has the key twice
    } else if (int const run = CountRun(node, k, deletedKey); run > 0) {
      PutRun(node, k, run);
      stayed = true;
      k += run;
    } else {
      bool grew = false;
      InsertEntry(current_, entry, f::kNullAddress, f::kNullAddress, grew);
      stayed = false;
      ++k;
    }
  }
}

// The number of entries of an old node, from the `first`, which belongs to the position, that go
// into the leaf there one after the other without splitting it; 0 if the first does not.
int BTree_i::CountRun(std::int32_t const* node, int first,
                      std::int32_t const* deletedKey) const noexcept {
  if (current_ == kNoLevel) return 0;
  std::int32_t const room = head_.maxEntries - level_[current_].words[f::kNodeCount];
  int const most = std::min(room, node[f::kNodeCount] - first + 1);
  if (most <= 1) return std::max(most, 0);
  std::int32_t const* const next = NextKey();
  int run = 1;
  for (std::int32_t const* last = node + EntryAt(first); run < most; ++run) {
    std::int32_t const* const entry = last + width_;
    bool const follows = CompareKey(last, entry) < 0 &&
                         (next == nullptr || CompareKey(entry, next) < 0) &&
                         CompareKey(entry, deletedKey) != 0;
    if (!follows) break;
    last = entry;
  }
  return run;
}

// Inserts a run at the position, which becomes that of its last entry.
void BTree_i::PutRun(std::int32_t const* node, int first, int run) noexcept {
  Level& leaf = level_[current_];
  std::int32_t* const own = Own(leaf);
  int const i = leaf.index;
  std::int32_t* const place = own + EntryAt(i + 1);
  auto const words = static_cast<std::ptrdiff_t>(run) * width_;
  std::copy_backward(place, own + LinkAt(own[f::kNodeCount]) + 1,
                     own + LinkAt(own[f::kNodeCount] + run) + 1);
  std::copy_n(node + EntryAt(first), words, place);
  for (int k = i + 1; k <= i + run; ++k) own[LinkAt(k)] = f::kNullAddress;
  own[f::kNodeCount] += run;
  leaf.index = i + run;
}

// The key after the position in a leaf, also in a node above; null at the end of the tree.
std::int32_t const* BTree_i::NextKey() const noexcept {
  for (int k = current_; k >= 0; --k) {
    Level const& level = level_[k];
    if (level.index < level.words[f::kNodeCount]) return level.words + EntryAt(level.index + 1);
  }
  return nullptr;
}

// True if a key belongs in the leaf of the entry inserted last, after that entry; the position is
// then the place for it.
bool BTree_i::BelongsIntoLeaf(std::int32_t const* key) {
  Level& leaf = level_[current_];
  std::int32_t const count = leaf.words[f::kNodeCount];
  int const before = leaf.index;
  if (CompareKey(leaf.words + EntryAt(before), key) >= 0) return false;
  while (leaf.index < count && CompareKey(leaf.words + EntryAt(leaf.index + 1), key) < 0) {
    ++leaf.index;
  }
  std::int32_t const* const next = NextKey();
  if (next == nullptr || CompareKey(key, next) < 0) return true;
  leaf.index = before;
  return false;
}

}  // namespace zel

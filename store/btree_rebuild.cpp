// The rebuild: every entry except the deleted one is inserted into a new tree, node by node in
// breadth-first order, and each old node is freed as soon as its entries have moved.
#include <algorithm>
#include <unordered_set>

#include "store/btree_write.h"

namespace zel {

namespace f = format;

// Addresses of all nodes in breadth-first order. Damage - a cycle, a shared node, an impossible
// count, too deep a tree, a node that cannot be freed - throws the address here, before anything
// changes.
std::vector<BTree_i::NodeOnFile> BTree_i::NodesInBreadth() {
  std::int64_t bound = 0;
  std::vector<NodeOnFile> nodes{{head_.rootAddress, 0}};
  std::unordered_set<std::int32_t> seen{head_.rootAddress};
  NodeBuffer buffer(store_.Nodes());
  std::int32_t const* node = buffer.Words();
  std::size_t endOfLevel = 1;
  int depth = 1;
  for (std::size_t i = 0; i < nodes.size(); ++i) {
    if (i == endOfLevel) {
      endOfLevel = nodes.size();
      if (++depth > kMaxDepth) store_.Throw(nodes[i].address, BlockFault::kBadNode);
    }
    nodes[i].bytes = ReadNode(nodes[i].address, buffer.Words());
    if (!WithinBlocks(static_cast<std::int64_t>(i) + 1, bound))
      store_.Throw(nodes[i].address, BlockFault::kBadNode);
    for (int k = 0; k <= node[f::kNodeCount]; ++k) {
      std::int32_t const child = node[LinkAt(k)];
      if (child == f::kNullAddress) continue;
      if (!seen.insert(child).second) store_.Throw(child, BlockFault::kBadNode);
      nodes.push_back({child, 0});
    }
  }
  CheckBlocksOf(nodes);
  return nodes;
}

// Throws the address of a node some of whose blocks count as free or belong to another node.
void BTree_i::CheckBlocksOf(std::vector<NodeOnFile> nodes) const {
  std::sort(nodes.begin(), nodes.end(),
            [](NodeOnFile const& a, NodeOnFile const& b) { return a.address < b.address; });
  std::int64_t free = 0;  // first address after the previous node
  for (NodeOnFile const& node : nodes) {
    if (node.address < free) store_.Throw(node.address, BlockFault::kBadNode);
    free = node.address + store_.CheckFreeable(node.address, f::kNodeWords);
  }
}

void BTree_i::Rebuild(std::int32_t const* deletedKey) {
  if (head_.rootAddress == f::kNullAddress) store_.Throw(f::kNullAddress, BlockFault::kEmptyTree);
  std::vector<NodeOnFile> const nodes = NodesInBreadth();
  ForgetAll();
  std::int32_t const oldRoot = head_.rootAddress;
  head_.SetRoot(f::kNullAddress);
  NodeBuffer buffer(store_.Nodes());
  bool freedOne = false;
  try {
    for (NodeOnFile const& node : nodes) {
      std::int32_t address = node.address;
      // A failed read must not be taken for a node without entries.
      if (ReadNode(address, buffer.Words()) != node.bytes)
        store_.Throw(address, BlockFault::kNotRead);
      MoveEntries(buffer.Words(), deletedKey);
      store_.FreeBlock(address, f::kNodeWords);
      freedOne = true;
    }
  } catch (...) {
    if (!freedOne) head_.SetRoot(oldRoot);  // the old tree is still whole
    throw;
  }
}

// Inserts the entries of an old node into the new tree, except the deleted key.
void BTree_i::MoveEntries(std::int32_t const* node, std::int32_t const* deletedKey) {
  for (int k = 1; k <= node[f::kNodeCount]; ++k) {
    std::int32_t const* entry = node + EntryAt(k);
    if (CompareKey(entry, deletedKey) == 0) continue;
    std::int32_t const* data = nullptr;
    if (Find(entry, data)) continue;  // a damaged tree has the key twice
    bool grew = false;
    InsertEntry(current_, entry, f::kNullAddress, f::kNullAddress, grew);
  }
}

}  // namespace zel

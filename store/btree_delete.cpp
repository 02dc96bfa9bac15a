// Deletion. A fast path handles the cases near the leaves; all others rebuild the tree.
#include <algorithm>

#include "store/btree_write.h"

namespace zel {

namespace f = format;

bool BTree_i::Delete(std::int32_t const* key) {
  ForgetClosed();
  if (head_.rootAddress != f::kNullAddress) CheckHead();
  store_.CheckWritable(head_.rootAddress);
  ForgetOnFailure guard(*this);
  if (!DeleteNearLeaves(key)) Rebuild(key);
  guard.Done();
  current_ = kNoLevel;
  atEntry_ = false;
  return true;
}

// False where it does not apply, also when the key is absent; nothing has then changed.
bool BTree_i::DeleteNearLeaves(std::int32_t const* key) {
  std::int32_t const* data = nullptr;
  if (!Find(key, data)) return false;
  Level& level = level_[current_];
  if (!IsLeaf(level.words)) return DeleteFromInner(level);
  std::int32_t* node = Own(level);  // leaves are never merged, and may become empty
  DropFromNode(node, EntryAt(level.index));
  WriteLevel(level);
  return true;
}

// Removes the words of one entry and one link from a node, from `firstWord` on.
void BTree_i::DropFromNode(std::int32_t* node, int firstWord) const noexcept {
  int const count = node[f::kNodeCount];
  int const end = LinkAt(count) + 1;
  std::copy(node + firstWord + width_, node + end, node + firstWord);
  std::fill(node + end - width_, node + end, 0);
  node[f::kNodeCount] = count - 1;
}

// Deletes the entry at the position, whose node is an inner node directly above leaves. All leaves
// have the same depth, each under one link; where damage breaks that, the rebuild decides, which
// loses nothing or throws.
bool BTree_i::DeleteFromInner(Level& level) {
  int const p = level.index;
  std::int32_t* node = Own(level);
  std::int32_t const c = node[f::kNodeCount];
  std::int32_t leftAddress = node[LinkAt(p - 1)];
  std::int32_t rightAddress = node[LinkAt(p)];

  NodeBuffer rightBuffer(store_.Nodes());
  std::int32_t* right = rightBuffer.Words();
  ReadNode(rightAddress, right);
  if (!IsLeaf(right) || leftAddress == rightAddress) return false;
  std::int32_t const nR = right[f::kNodeCount];

  if (c >= 2 && nR == 0) {
    DropFromNode(node, EntryAt(p));  // entry and right link
    WriteLevel(level);
    Forget(rightAddress, nullptr);
    store_.FreeBlock(rightAddress, f::kNodeWords);
    return true;
  }

  NodeBuffer leftBuffer(store_.Nodes());
  std::int32_t* left = leftBuffer.Words();
  ReadNode(leftAddress, left);
  if (!IsLeaf(left)) return false;
  std::int32_t const nL = left[f::kNodeCount];

  if (c >= 2 && nL == 0) {
    DropFromNode(node, LinkAt(p - 1));  // left link and entry: the right link takes its place
    WriteLevel(level);
    Forget(leftAddress, nullptr);
    store_.FreeBlock(leftAddress, f::kNodeWords);
    return true;
  }
  if (c >= 2 && nL + nR <= head_.maxEntries) {
    std::copy_n(right + f::kNodeLinks, nR * width_ + 1, left + LinkAt(nL));
    left[f::kNodeCount] = nL + nR;
    WriteNode(leftAddress, left);
    Forget(leftAddress, nullptr);
    DropFromNode(node, EntryAt(p));
    WriteLevel(level);
    Forget(rightAddress, nullptr);
    store_.FreeBlock(rightAddress, f::kNodeWords);
    return true;
  }
  bool const rightIsPoor = nR <= nL || nR < 2;
  if (nL < 2 && rightIsPoor) return false;
  if (rightIsPoor) {
    std::copy_n(left + EntryAt(nL), head_.entryWords, node + EntryAt(p));
    std::fill_n(left + EntryAt(nL), width_, 0);
    left[f::kNodeCount] = nL - 1;
    WriteNode(leftAddress, left);
    Forget(leftAddress, nullptr);
  } else {
    std::copy_n(right + EntryAt(1), head_.entryWords, node + EntryAt(p));
    DropFromNode(right, EntryAt(1));
    WriteNode(rightAddress, right);
    Forget(rightAddress, nullptr);
  }
  WriteLevel(level);
  return true;
}

}  // namespace zel

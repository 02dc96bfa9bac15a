// Deletion. A fast path handles the cases near the leaves; all others rebuild the tree.
#include <algorithm>
#include <vector>

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
// have the same depth, each under one link; where damage breaks that, the tree is rebuilt, which
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
    DropFromNode(node, EntryAt(p));
    WriteBoth(leftAddress, left, level.address, node);
    Forget(leftAddress, nullptr);
    Forget(level.address, &level);
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
  } else {
    std::copy_n(right + EntryAt(1), head_.entryWords, node + EntryAt(p));
    DropFromNode(right, EntryAt(1));
  }
  std::int32_t const poorer = rightIsPoor ? leftAddress : rightAddress;
  // The node above has the entry before the leaf gives it up.
  WriteBoth(level.address, node, poorer, rightIsPoor ? left : right);
  Forget(poorer, nullptr);
  Forget(level.address, &level);
  return true;
}

// Writes two nodes. If the second cannot be written, the first is written back.
void BTree_i::WriteBoth(std::int32_t first, std::int32_t const* firstWords, std::int32_t second,
                        std::int32_t const* secondWords) {
  std::vector<KeptNode> old(1);
  old[0].address = first;
  ReadNode(first, old[0].words.data());
  WriteNode(first, firstWords);
  try {
    WriteNode(second, secondWords);
  } catch (...) {
    WriteBack(old);
    throw;
  }
}

// Writes nodes back as they were. False if that fails too.
bool BTree_i::WriteBack(std::vector<KeptNode> const& nodes) noexcept {
  constexpr std::int32_t kBytes = f::kNodeWords * f::kWordBytes;
  bool isDone = true;
  for (KeptNode const& node : nodes) {
    std::int32_t address = node.address;
    try {
      isDone = store_.WriteBlock(address, f::kNodeWords, node.words.data(), 0) == kBytes && isDone;
    } catch (...) {
      isDone = false;
    }
  }
  return isDone;
}

}  // namespace zel

// Insertion, with a split that is uneven by design: a load in ascending order leaves nodes three
// quarters full.
#include <algorithm>
#include <array>
#include <cstring>
#include <memory>
#include <utility>
#include <vector>

#include "store/btree_write.h"

namespace zel {

namespace f = format;

// During a rebuild a new node is only given its address, and others are in memory already.
void BTree_i::WriteNode(std::int32_t& address, std::int32_t const* words) {
  if (built_ != nullptr) {
    if (address != f::kNullAddress) return;
    std::int32_t* const image = built_->slabs.Take();
    std::copy_n(words, built_->slabs.ImageWords(), image);
    std::int32_t const reserved = store_.Reserve(f::kNodeWords);
    built_->images.insert_or_assign(reserved, image);
    address = reserved;
    return;
  }
  constexpr std::int32_t kBytes = f::kNodeWords * f::kWordBytes;
  if (store_.WriteBlock(address, f::kNodeWords, words, 0) != kBytes) {
    store_.Throw(address, BlockFault::kNotWritten);
  }
}

// Writes a level's node; no other buffer keeps an older image of it.
void BTree_i::WriteLevel(Level& level) {
  bool const isNew = level.address == f::kNullAddress;
  WriteNode(level.address, level.words);
  if (built_ != nullptr && isNew) level.words = built_->At(level.address);
  Forget(level.address, &level);
}

bool BTree_i::WriteCurrentNode() {
  ForgetClosed();
  if (current_ == kNoLevel || !atEntry_) return false;
  ForgetOnFailure guard(*this);
  WriteLevel(level_[current_]);
  guard.Done();
  return true;
}

bool BTree_i::Insert(std::int32_t const* key, std::int32_t left, std::int32_t right) {
  std::array<std::int32_t, f::kNodeWords> const zeros{};
  return InsertWhole(key, zeros.data(), left, right);
}

bool BTree_i::InsertWithData(std::int32_t const* key, std::int32_t const* data) {
  return InsertWhole(key, data, f::kNullAddress, f::kNullAddress);
}

bool BTree_i::InsertWhole(std::int32_t const* key, std::int32_t const* data, std::int32_t left,
                          std::int32_t right) {
  ForgetClosed();
  bool const searched = current_ != kNoLevel || head_.rootAddress == f::kNullAddress;
  if (atEntry_ || walk_ != WalkState::kEnded || !searched) return false;
  CheckHead();
  store_.CheckWritable(head_.rootAddress);
  std::array<std::int32_t, f::kNodeWords> entry;
  std::copy_n(data, head_.entryDataWords, std::copy_n(key, head_.keyWords, entry.begin()));

  ForgetOnFailure guard(*this);
  bool grew = false;
  InsertEntry(current_, entry.data(), left, right, grew);
  guard.Done();
  if (grew) ++current_;  // the new root's buffer is now the first
  atEntry_ = true;
  return grew;
}

// Throws the root when the tree has its greatest depth and every node of the path is full: the new
// root must be refused before the first split is written.
void BTree_i::CheckRoomToGrow(int level) const {
  if (level + 1 < kMaxDepth) return;
  bool const full =
      std::all_of(level_, level_ + kMaxDepth, [this](Level const& l) { return IsFull(l); });
  if (full) store_.Throw(head_.rootAddress, BlockFault::kBadNode);
}

// Inserts a whole entry into the node of a level. If it cannot be written after a split, the nodes
// are written back: what moved into the new nodes would be lost.
void BTree_i::InsertEntry(int level, std::int32_t const* entry, std::int32_t left,
                          std::int32_t right, bool& grew) {
  CheckRoomToGrow(level);
  growth_.reset();
  bool const splits = built_ == nullptr && level != kNoLevel && IsFull(level_[level]);
  if (!splits) return RaiseEntry(level, entry, left, right, grew);
  auto before = std::make_unique<Growth>();
  before->nodes = NodesToSplit(level);
  before->extents = store_.Extents();
  before->root = head_.rootAddress;
  try {
    RaiseEntry(level, entry, left, right, grew);
  } catch (...) {
    if (WriteBack(before->nodes)) store_.Extents() = before->extents;
    throw;
  }
  if (grew) growth_ = std::move(before);
}

void BTree_i::TakeBackGrowth() noexcept {
  if (growth_ == nullptr) return;
  if (WriteBack(growth_->nodes)) std::swap(store_.Extents(), growth_->extents);
  head_.SetRoot(growth_->root);
  growth_.reset();
  ForgetAll();
}

bool BTree_i::IsFull(Level const& level) const noexcept {
  return level.words[f::kNodeCount] >= head_.maxEntries;
}

// The nodes that an insert at a level changes, from there up.
std::vector<BTree_i::KeptNode> BTree_i::NodesToSplit(int level) const {
  std::vector<KeptNode> nodes;
  for (int k = level; k != kNoLevel; --k) {
    nodes.push_back({level_[k].address, {}});
    std::copy_n(level_[k].words, f::kNodeWords, nodes.back().words.begin());
    if (!IsFull(level_[k])) break;
  }
  return nodes;
}

// Inserts an entry at a level, and the entries that splits move up into the levels above.
void BTree_i::RaiseEntry(int level, std::int32_t const* entry, std::int32_t left,
                         std::int32_t right, bool& grew) {
  std::array<std::int32_t, f::kNodeWords> rising;
  std::copy_n(entry, head_.entryWords, rising.begin());
  for (int k = level; k != kNoLevel; --k) {
    Level& l = level_[k];
    if (!IsFull(l)) {
      PutIntoNode(l, rising.data(), left, right);
      return;
    }
    SplitNode(l, rising.data(), left, right);
  }
  PutNewRoot(rising.data(), left, right);
  grew = true;
}

void BTree_i::PutIntoNode(Level& level, std::int32_t const* entry, std::int32_t left,
                          std::int32_t right) {
  std::int32_t* node = Own(level);
  int const count = node[f::kNodeCount];
  int const i = level.index;
  std::int32_t* place = node + EntryAt(i + 1);
  std::memmove(place + width_, place,
               sizeof(std::int32_t) * std::size_t(count - i) * static_cast<std::size_t>(width_));
  node[LinkAt(i)] = left;
  std::copy_n(entry, head_.entryWords, place);
  node[LinkAt(i + 1)] = right;
  node[f::kNodeCount] = count + 1;
  level.index = i + 1;
  WriteLevel(level);
}

// Builds the contents of the node from link[0] on with the entry added, one entry more than a node
// has room for.
void BTree_i::BuildContents(Level const& level, std::int32_t const* entry, std::int32_t left,
                            std::int32_t right, std::int32_t* contents) const noexcept {
  std::int32_t const* old = level.words + f::kNodeLinks;
  int const count = level.words[f::kNodeCount];
  int const ahead = level.index * width_;
  contents = std::copy_n(old, ahead, contents);
  *contents++ = left;
  contents = std::copy_n(entry, head_.entryWords, contents);
  *contents++ = right;
  std::copy_n(old + ahead + 1, (count - level.index) * width_, contents);
}

namespace {

// Makes a node of `count` entries, in an image of `words` words, from contents that begin with its
// link[0].
void FillNode(std::int32_t* node, std::int32_t words, int width, std::int32_t count,
              std::int32_t parent, std::int32_t previous, std::int32_t next,
              std::int32_t const* contents) {
  node[f::kNodeCount] = count;
  node[f::kNodeParent] = parent;
  node[f::kNodePrevious] = previous;
  node[f::kNodeNext] = next;
  std::int32_t* end = std::copy_n(contents, count * width + 1, node + f::kNodeLinks);
  std::fill(end, node + words, 0);
}

}  // namespace

// On return `entry`, `left` and `right` are those to insert one level up. The node with the new
// entry stays in the level's buffer, under its old address, and the position follows it.
void BTree_i::SplitNode(Level& level, std::int32_t* entry, std::int32_t& left,
                        std::int32_t& right) {
  std::array<std::int32_t, f::kNodeWords + f::kNodeWords> contents;
  BuildContents(level, entry, left, right, contents.data());
  int const c = level.words[f::kNodeCount] + 1;
  int const q = c / 4;
  int const t = c - q == level.index + 1 ? 1 : 0;  // keeps the new entry from moving up
  int const a = q + t;                             // entries of the right part
  int const b = c - a - 1;                         // entries of the left part
  std::int32_t const* rightContents = contents.data() + (b + 1) * width_;
  std::int32_t const parent = level.words[f::kNodeParent];
  std::int32_t const previous = level.words[f::kNodePrevious];
  std::int32_t const next = level.words[f::kNodeNext];
  bool const newEntryGoesRight = level.index + 1 > b;

  std::int32_t const words = ImageWords();
  NodeBuffer added(store_.Nodes());
  std::int32_t* kept = Own(level);
  std::int32_t addedAddress = f::kNullAddress;
  if (newEntryGoesRight) {
    FillNode(added.Words(), words, width_, b, parent, previous, level.address, contents.data());
    WriteNode(addedAddress, added.Words());
    FillNode(kept, words, width_, a, parent, addedAddress, next, rightContents);
    left = addedAddress;
    right = level.address;
    level.index -= b;
  } else {
    FillNode(added.Words(), words, width_, a, parent, level.address, next, rightContents);
    WriteNode(addedAddress, added.Words());
    FillNode(kept, words, width_, b, parent, previous, addedAddress, contents.data());
    left = level.address;
    right = addedAddress;
    level.index += 1;
  }
  // The entry between the parts moves up; it is after the left part's last link.
  std::copy_n(contents.data() + b * width_ + 1, head_.entryWords, entry);
  WriteLevel(level);
}

void BTree_i::PutNewRoot(std::int32_t const* entry, std::int32_t left, std::int32_t right) {
  if (levels_ == kMaxDepth) {  // the last buffer is past the path: only a cache
    Level const& last = level_[--levels_];
    if (last.own != nullptr) store_.Nodes().GiveBack(std::unique_ptr<NodeImage>(last.own));
  }
  Level root{f::kNullAddress, 1, nullptr, store_.Nodes().Take().release()};
  std::int32_t* node = root.own->data();
  std::fill_n(node, f::kNodeWords, 0);
  node[f::kNodeCount] = 1;
  node[f::kNodeParent] = node[f::kNodePrevious] = node[f::kNodeNext] = f::kNullAddress;
  node[LinkAt(0)] = left;
  std::copy_n(entry, head_.entryWords, node + EntryAt(1));
  node[LinkAt(1)] = right;
  root.words = node;
  // The chain takes the buffer before the write, so that a failure returns it to the pool.
  std::copy_backward(level_, level_ + levels_, level_ + levels_ + 1);
  level_[0] = root;
  ++levels_;
  WriteLevel(level_[0]);
  head_.SetRoot(level_[0].address);
}

}  // namespace zel

// On-file B-tree of fixed-width integer keys.
//
// A B-tree in the strict sense: entries (key words, then data words) are in inner nodes as well as
// in leaves, and a search can end in an inner node. Keys compare word by word as signed integers.
//
// The tree object keeps a chain of level buffers, one per level from the root down, each of which
// records the node that it holds: the path of the last search. Find, Insert, Delete and the walk
// share it as their position. In a library open for reading a buffer points to the node in the
// mapped file; in one open for update it holds its own copy.
//
// Invariants between operations:
// - no node is in two buffers, and each buffer equals its block on file: a buffer whose block was
//   written or freed in another way is invalidated, and a failed write drops the whole chain, as
//   does closing the library's files, which also ends position and walk;
// - the root in the object equals the root in the head record.
//
// Costs: a search reads one node per level, except those that it shares with the last path. Insert
// writes one node, three per level that splits. Delete near the leaves writes one to two nodes;
// all other deletions, also that of an absent key, rebuild the tree: this reads and writes each
// node once and takes memory for all entries and, where writes can fail, for all nodes.
//
// Damaged data: a node whose entry count is impossible, a path of more than 64 nodes, a walk or a
// rebuild that visits more nodes than the files have blocks, and an unusable head throw the block
// store's exception with the address in question. A rebuild checks the whole tree before it changes
// anything, and one that fails leaves the tree as it was; only if writing the old nodes back fails
// too, the largest part of the new tree that is on file remains. Two tree objects on one head do
// not see each other's writes; destroy the first before making the second.
#pragma once

#include <cstdint>
#include <cstdio>
#include <unordered_map>
#include <vector>

#include "store/block_store.h"
#include "store/btree_head.h"
#include "store/node_pool.h"

namespace zel {

class Key;

class BTree_i {
 public:
  static constexpr int kMaxDepth = 64;

  // Neither the store nor the head record is owned; both must outlive the tree.
  BTree_i(BlockStore& store, std::int32_t* headRecord);
  BTree_i(BTree_i const&) = delete;
  BTree_i& operator=(BTree_i const&) = delete;
  virtual ~BTree_i();

  BTreeHead_i const& Head() const noexcept { return head_; }

  // True with the entry's data when the key is found. Otherwise false, and the position is the
  // place in the leaf where the key belongs. Pointers into a node stay valid until the next
  // operation on this object.
  bool Find(std::int32_t const* key, std::int32_t const*& data);
  bool Find(Key* key, std::int32_t const*& data);
  // Inserts a bare key, its data words zero, at the position of the last failed Find, which becomes
  // the position of the new entry. True when the tree grew a level. Does nothing and returns false
  // when the last search succeeded, without a search before, and within a walk. Callers outside the
  // tree pass null links.
  bool Insert(std::int32_t const* key, std::int32_t left, std::int32_t right);
  bool Insert(Key* key, std::int32_t left, std::int32_t right);
  // The same for a caller that has the data already: as many words as the entry's data. Key and
  // data are written to the file in one write.
  bool InsertWithData(std::int32_t const* key, std::int32_t const* data);
  // Undoes the last insert, which returned true, if the new root cannot be recorded. Nothing may
  // have been inserted or deleted since.
  void TakeBackGrowth() noexcept;
  // Returns true, also when the key is absent: the tree is then rebuilt with the same keys. Throws
  // the null address on an empty tree. Afterwards the tree has no position.
  bool Delete(std::int32_t const* key);
  bool Delete(Key* key);
  // The data of the entry at the position, for changes in place; false without a position.
  bool GetCurrentData(std::int32_t*& data);
  // Writes the node of the entry at the position; false without a position.
  bool WriteCurrentNode();

  // In-order walk: WalkBegin returns key and data length (0 and 0 for an empty tree), then WalkNext
  // returns entry after entry, key first. The walk is undefined after other operations in between.
  void WalkBegin(std::int32_t& keyWords, std::int32_t& dataWords);
  bool WalkNext(std::int32_t const*& entry) {
    if (walkLeft_ > 0 && closings_ == store_.Closings() &&
        *walkLink_ == format::kNullAddress) {  // the next entry of a leaf
      entry = walkLink_ + 1;
      walkLink_ += width_;
      --walkLeft_;
      ++level_[current_].index;
      return true;
    }
    return WalkOn(entry);
  }

  // True if the data that Find has just found are in a copy of the node, which the next operation
  // can overwrite.
  bool IsAtCopy() const noexcept {
    Level const& level = level_[current_];
    return level.own != nullptr && level.words == level.own->data();
  }

  // The number of searches and walks so far.
  std::uint64_t Searches() const noexcept { return searches_; }

  // -1, 0 or 1.
  int CompareKey(std::int32_t const* a, std::int32_t const* b) const noexcept {
    for (std::int32_t i = 0; i < head_.keyWords; ++i) {
      if (a[i] != b[i]) return a[i] < b[i] ? -1 : 1;
    }
    return 0;
  }

  // Report of the tree's structure; see btree_dump.cpp.
  bool DumpTree(std::int32_t indent, std::FILE* stream, std::int32_t expected);

 private:
  struct Level {
    std::int32_t address;       // of the node held, null for none
    std::int32_t index;         // position: the current entry, or the one before the link
    std::int32_t const* words;  // the node, here or in place
    NodeImage* own;             // this level's copy, from the pool; null until needed
  };
  // A node as it was on file.
  struct KeptNode {
    std::int32_t address;
    NodeImage words;
  };
  // What the last insert changed, if it gave the tree a new root.
  struct Growth {
    std::vector<KeptNode> nodes;
    ExtentList extents;
    std::int32_t root;
  };
  enum class WalkState : std::uint8_t { kEnded, kAtLink, kAtEntry };
  static constexpr int kNoLevel = -1;

  // Node layout.
  int Width() const noexcept { return width_; }
  int LinkAt(int i) const noexcept { return format::kNodeLinks + i * width_; }
  int EntryAt(int i) const noexcept { return format::kNodeEntries + (i - 1) * width_; }
  std::int32_t NodeLimit() const noexcept { return format::kNodeRoom / width_; }
  static bool IsLeaf(std::int32_t const* node) noexcept {
    return node[format::kNodeLinks] == format::kNullAddress;
  }

  // Level buffers (btree_find.cpp).
  void CheckHead() const;
  Level& Enter(int level, std::int32_t address);
  void Load(Level& level, std::int32_t address);
  std::int32_t ReadNode(std::int32_t address, std::int32_t* words);
  void CheckNode(std::int32_t const* words, std::int32_t address) const;
  std::int32_t* Own(Level& level);
  void Forget(std::int32_t address, Level const* except) noexcept;
  void ForgetAll() noexcept;
  void ForgetClosed() noexcept;
  bool WithinBlocks(std::int64_t visits, std::int64_t& bound) const noexcept;
  int Search(std::int32_t const* words, std::int32_t const* key, bool& found) const noexcept;

  // Walk (btree_walk.cpp).
  bool WalkOn(std::int32_t const*& entry);
  void EndWalk() noexcept;

  // Insertion (btree_insert.cpp).
  bool IsFull(Level const& level) const noexcept;
  void WriteNode(std::int32_t& address, std::int32_t const* words);
  void WriteLevel(Level& level);
  bool InsertWhole(std::int32_t const* key, std::int32_t const* data, std::int32_t left,
                   std::int32_t right);
  void CheckRoomToGrow(int level) const;
  void InsertEntry(int level, std::int32_t const* entry, std::int32_t left, std::int32_t right,
                   bool& grew);
  void PutIntoNode(Level& level, std::int32_t const* entry, std::int32_t left, std::int32_t right);
  void RaiseEntry(int level, std::int32_t const* entry, std::int32_t left, std::int32_t right,
                  bool& grew);
  std::vector<KeptNode> NodesToSplit(int level) const;
  void SplitNode(Level& level, std::int32_t* entry, std::int32_t& left, std::int32_t& right);
  void PutNewRoot(std::int32_t const* entry, std::int32_t left, std::int32_t right);
  void BuildContents(Level const& level, std::int32_t const* entry, std::int32_t left,
                     std::int32_t right, std::int32_t* contents) const noexcept;

  // Deletion (btree_delete.cpp, btree_rebuild.cpp).
  bool DeleteNearLeaves(std::int32_t const* key);
  bool DeleteFromInner(Level& level);
  void WriteBoth(std::int32_t first, std::int32_t const* firstWords, std::int32_t second,
                 std::int32_t const* secondWords);
  bool WriteBack(std::vector<KeptNode> const& nodes) noexcept;
  void DropFromNode(std::int32_t* node, int firstWord) const noexcept;
  void Rebuild(std::int32_t const* deletedKey);
  void MoveEntries(std::int32_t const* node, std::int32_t const* deletedKey);
  struct NodeOnFile {
    std::int32_t address;
    std::int32_t const* image;
    bool isInPlace;  // the image is the file's own
  };
  // The nodes of a tree that is being built, by address: only the words that can be in use.
  struct NodesInMemory {
    NodeSlabs slabs;
    std::unordered_map<std::int32_t, std::int32_t*> images;

    std::int32_t const* At(std::int32_t address) const { return images.at(address); }
  };
  std::int32_t ImageWords() const noexcept {
    return built_ != nullptr ? built_->slabs.ImageWords() : format::kNodeWords;
  }
  std::vector<NodeOnFile> NodesInBreadth(NodeSlabs& slabs);
  void LoadOldNode(NodeOnFile& node, NodeSlabs& slabs);
  void KeepOldNodes(std::vector<NodeOnFile>& nodes, NodeSlabs& slabs, NodesInMemory const& built);
  void CheckBlocksOf(std::vector<NodeOnFile> const& nodes) const;
  bool BelongsIntoLeaf(std::int32_t const* key);
  std::int32_t const* NextKey() const noexcept;
  int CountRun(std::int32_t const* node, int first, std::int32_t const* deletedKey) const noexcept;
  void PutRun(std::int32_t const* node, int first, int run) noexcept;
  // What a rebuild has written so far.
  struct Written {
    bool started = false;
    std::int64_t entries = 0;  // of the largest complete subtree
    std::int32_t largest = format::kNullAddress;
  };
  std::int64_t WriteBuilt(NodesInMemory const& built, std::int32_t address, Written& written);
  bool UndoRebuild(std::vector<NodeOnFile> const& nodes, Written const& written) noexcept;

  class ForgetOnFailure;

  BlockStore& store_;
  std::uint64_t searches_ = 0;
  std::unique_ptr<Growth> growth_;
  std::uint32_t closings_;  // of the store, when the buffers were last known to be good
  BTreeHead_i head_;
  bool isUsable_;           // of the head
  int width_;               // words of an entry and the link after it
  int levels_ = 0;          // buffers made
  int current_ = kNoLevel;  // the position's level
  bool atEntry_ = false;    // the position is an entry, not a place between entries
  WalkState walk_ = WalkState::kEnded;
  std::int64_t walkVisits_ = 0;
  std::int64_t walkBound_ = 0;
  // While the walk is after an entry: the link right of it, and the entries left in the node.
  std::int32_t const* walkLink_ = nullptr;
  std::int32_t walkLeft_ = 0;
  NodesInMemory* built_ = nullptr;  // during a rebuild: all nodes are there, none is on file
  Level level_[kMaxDepth];          // only the first levels_ are in use
};

}  // namespace zel

// Trees at the limits of the head's values, trees of other capacities, links that meet again, and
// rebuilds that fail.
#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <set>

#include "tests/store/btree_fixture.h"
#include "tests/support/failing_file_system.h"

namespace zel {
namespace {

namespace f = format;
using test::BTreeTest;
using test::kNode1;
using test::kNull;
using Words = std::vector<std::int32_t>;
using BTreeLimitsTest = BTreeTest;

// Three entries of 330 words fill a node; a split works on four of them.
TEST_F(BTreeLimitsTest, WidestEntriesSplitMoveAndRebuild) {
  constexpr std::int32_t kDataWords = 329;
  std::int32_t head[8];
  InitTreeHead(head, false, 1, kDataWords, 11);
  ASSERT_EQ(head[f::kHeadMaxEntries], 3);
  BTree_i tree(library_->Store(), head);
  std::int32_t const* data = nullptr;
  std::set<std::int32_t> left;
  auto const check = [&] {
    for (std::int32_t key : left) {
      ASSERT_TRUE(tree.Find(&key, data)) << key;
      for (std::int32_t w = 0; w < kDataWords; ++w) ASSERT_EQ(data[w], key * 1000 + w) << key;
    }
  };
  for (std::int32_t i = 0; i < 60; ++i) {
    std::int32_t const key = i * 37 % 61;
    ASSERT_FALSE(tree.Find(&key, data));
    tree.Insert(&key, kNull, kNull);
    std::int32_t* own = nullptr;
    ASSERT_TRUE(tree.GetCurrentData(own));
    for (std::int32_t w = 0; w < kDataWords; ++w) {
      ASSERT_EQ(own[w], 0);
      own[w] = key * 1000 + w;
    }
    ASSERT_TRUE(tree.WriteCurrentNode());
    left.insert(key);
  }
  check();
  for (std::int32_t i = 0; i < 60; i += 2) {
    std::int32_t const key = i * 37 % 61;
    ASSERT_TRUE(tree.Delete(&key));
    left.erase(key);
    check();
  }
  EXPECT_EQ(left.size(), 30U);
}

TEST_F(BTreeLimitsTest, TenKeyWordsAreTheMost) {
  std::int32_t head[8];
  InitTreeHead(head, false, 10, 1, 11);
  BTree_i tree(library_->Store(), head);
  std::int32_t key[10] = {1, 2, 3, 4, 5, 6, 7, 8, 9, 0};
  std::int32_t const* data = nullptr;
  for (std::int32_t last : {3, -1, 2}) {
    key[9] = last;
    ASSERT_FALSE(tree.Find(key, data));
    tree.Insert(key, kNull, kNull);
  }
  std::int32_t keyWords = 0;
  std::int32_t dataWords = 0;
  tree.WalkBegin(keyWords, dataWords);
  EXPECT_EQ(keyWords, 10);
  for (std::int32_t last : {-1, 2, 3}) {
    ASSERT_TRUE(tree.WalkNext(data));
    EXPECT_EQ(data[9], last);
  }
}

// A library may have been made with a larger capacity: its nodes are read, and split when an entry
// is added.
TEST_F(BTreeLimitsTest, NodeAboveTheCapacityIsReadSplitAndDeletedFrom) {
  for (std::int32_t most : {5, 10, 330, 331}) {
    head_[f::kHeadRootAddress] = kNull;
    head_[f::kHeadMaxEntries] = 331;
    Words keys;
    {
      BTree_i wide(library_->Store(), head_.data());
      for (std::int32_t i = 1; i <= most; ++i) {
        keys.push_back(2 * i);
        Put(wide, 2 * i);
      }
    }
    ASSERT_EQ(Node(head_[f::kHeadRootAddress])[0], most) << "one node";
    head_[f::kHeadMaxEntries] = 4;
    EXPECT_EQ(Keys(), keys);
    PutAll({7});
    keys.push_back(7);
    std::sort(keys.begin(), keys.end());
    EXPECT_EQ(Keys(), keys) << most;
    EXPECT_EQ(Node(head_[f::kHeadRootAddress])[0], 1) << "it was split";
    BTree_i tree(library_->Store(), head_.data());
    for (std::int32_t key : {2, 6, 999}) EXPECT_TRUE(tree.Delete(&key));
    keys.erase(keys.begin());
    keys.erase(std::find(keys.begin(), keys.end(), 6));
    EXPECT_EQ(Keys(), keys) << most;
  }
}

TEST_F(BTreeLimitsTest, UnusableHeadOfAnEmptyTreeHasNoKeysAndTakesNone) {
  for (int word : {f::kHeadNodeWords, f::kHeadEntryWords, f::kHeadKeyWords, f::kHeadMaxEntries}) {
    std::array<std::int32_t, 8> head = head_;
    head[static_cast<std::size_t>(word)] = 0;
    BTree_i tree(library_->Store(), head.data());
    std::int32_t const key[10] = {1};
    std::int32_t const* data = nullptr;
    EXPECT_FALSE(tree.Find(key, data)) << word;
    EXPECT_EQ(Thrown([&] { tree.Insert(key, kNull, kNull); }), 990000000UL) << word;
    EXPECT_EQ(Thrown([&] { tree.Delete(key); }), 990000000UL) << word;
    std::int32_t keyWords = 5;
    std::int32_t dataWords = 5;
    tree.WalkBegin(keyWords, dataWords);
    EXPECT_EQ(keyWords, 0) << word;
  }
}

TEST_F(BTreeLimitsTest, RootOfAnotherTypeThrowsItself) {
  PutAll({1, 2});
  head_[f::kHeadRootAddress] += 10'000'000;
  BTree_i tree(library_->Store(), head_.data());
  std::int32_t const key = 1;
  std::int32_t const* data = nullptr;
  std::int32_t n = 0;
  auto const root = static_cast<unsigned long>(kNode1 + 10'000'000);
  EXPECT_EQ(Thrown([&] { tree.Find(&key, data); }), root);
  EXPECT_EQ(Thrown([&] { tree.WalkBegin(n, n); }), root);
  EXPECT_EQ(Thrown([&] { tree.Delete(&key); }), root);
}

// The entry that the rebuild reaches first, breadth first, is the one that is kept.
TEST_F(BTreeLimitsTest, KeyThatADamagedTreeHoldsTwiceIsKeptOnce) {
  PutAll({1, 2, 3, 4, 5});
  Words left = Node(kNode1 + 1);
  ASSERT_EQ(left[11], 3);
  left[11] = 5;  // also in the leaf on the right
  left[12] = 77;
  WriteNode(kNode1 + 1, left);
  ASSERT_EQ(Keys(), (Words{1, 2, 5, 4, 5}));
  BTree_i tree(library_->Store(), head_.data());
  std::int32_t const absent = 99;
  EXPECT_TRUE(tree.Delete(&absent));
  EXPECT_EQ(Keys(), (Words{1, 2, 4, 5}));
  std::int32_t const key = 5;
  std::int32_t const* data = nullptr;
  ASSERT_TRUE(tree.Find(&key, data));
  EXPECT_EQ(*data, 77);
}

// Thirty nodes, each under both links of the one above: a billion paths and no cycle.
TEST_F(BTreeLimitsTest, WalkOverSharedNodesEndsWithTheBlocksOfTheFiles) {
  constexpr std::int32_t kNodes = 30;
  for (std::int32_t i = 0; i < kNodes; ++i) {
    std::int32_t address = kNull;
    std::int32_t const below = i + 1 < kNodes ? kNode1 + i + 1 : kNull;
    Words node{1, kNull, kNull, kNull, below, i, 0, below};
    node.resize(f::kNodeWords);
    library_->WriteBlock(address, f::kNodeWords, node.data(), 2);
    ASSERT_EQ(address, kNode1 + i);
  }
  head_[f::kHeadRootAddress] = kNode1;
  BTree_i tree(library_->Store(), head_.data());
  std::int32_t n = 0;
  std::int32_t entries = 0;
  std::int32_t const* entry = nullptr;
  tree.WalkBegin(n, n);
  unsigned long const word = Thrown([&] {
    while (tree.WalkNext(entry) && entries < 1000) ++entries;
  });
  EXPECT_GT(word, static_cast<unsigned long>(kNode1));
  EXPECT_LT(word, static_cast<unsigned long>(kNode1 + kNodes));
  EXPECT_LE(entries, kNodes);
  std::int32_t const absent = 99;
  auto const before = files_.Contents("/t.lb2");
  EXPECT_EQ(Thrown([&] { tree.Delete(&absent); }), static_cast<unsigned long>(kNode1 + 1));
  EXPECT_EQ(files_.Contents("/t.lb2"), before);
}

TEST_F(BTreeLimitsTest, NodeThatCouldNotBeReadIsAskedForAgain) {
  test::FailingFileSystem failing(files_);
  LibFile_i library(failing, accUpdate, "/f.lb1", "f");
  ASSERT_EQ(library.CreateNew(libKind11), openOk);
  {
    BTree_i tree(library.Store(), head_.data());
    for (std::int32_t key : {1, 2, 3, 4, 5}) Put(tree, key);
  }
  std::int32_t const key = 5;
  std::int32_t const* data = nullptr;
  for (int n : {1, 2}) {  // the root, or the leaf
    BTree_i tree(library.Store(), head_.data());
    failing.FailAt(n, false);
    EXPECT_THROW(tree.Find(&key, data), unsigned long) << n;
    ASSERT_TRUE(tree.Find(&key, data)) << n;
    EXPECT_EQ(*data, 50);
  }
}

// An entry was current when the walk continued; after the failure there is none.
TEST_F(BTreeLimitsTest, WalkThatBreaksOffStandsAtNoEntry) {
  PutAll({1, 2, 3, 4, 5});
  Words leaf = Node(kNode1);  // right of 4
  leaf[4] = 0;
  WriteNode(kNode1, leaf);
  BTree_i tree(library_->Store(), head_.data());
  std::int32_t n = 0;
  std::int32_t* own = nullptr;
  std::int32_t const* entry = nullptr;
  tree.WalkBegin(n, n);
  for (std::int32_t key : {1, 2, 3, 4}) {
    ASSERT_TRUE(tree.WalkNext(entry));
    ASSERT_EQ(entry[0], key);
  }
  EXPECT_TRUE(tree.GetCurrentData(own));
  EXPECT_THROW(tree.WalkNext(entry), unsigned long);
  EXPECT_FALSE(tree.GetCurrentData(own));
  EXPECT_FALSE(tree.WriteCurrentNode());
  EXPECT_THROW(tree.WalkNext(entry), unsigned long) << "and again";
  EXPECT_FALSE(tree.GetCurrentData(own));
}

// Whichever operation fails: the rebuild throws, the head names a tree that can be walked, and
// nothing is lost. When all later operations fail, too, so that old nodes cannot be written back, a
// part of the new tree is there; but nothing is lost before a node has been written.
TEST_F(BTreeLimitsTest, RebuildThatBreaksOffThrowsAndLeavesATrueRoot) {
  Words all;
  for (std::int32_t key = 1; key <= 21; ++key) all.push_back(key);
  constexpr int kNodes = 9;
  for (bool inPlace : {false, true}) {
    SCOPED_TRACE(inPlace);
    // All nodes are read, unless they are in place in the machine's order of bytes, and the first
    // node of the new tree is written.
    bool const isRead = !inPlace || std::endian::native != std::endian::little;
    int const kBeforeAnyChange = (isRead ? kNodes : 0) + 1;
    bool failed = true;
    int n = 1;
    for (; failed; ++n) {
      for (bool forEver : {true, false}) {
        SCOPED_TRACE(n);
        test::MemoryFileSystem files;
        files.ServeViews(inPlace);
        test::FailingFileSystem failing(files);
        LibFile_i library(failing, accUpdate, "/t.lb1", "t");
        ASSERT_EQ(library.CreateNew(libKind11), openOk);
        head_[f::kHeadRootAddress] = kNull;
        BTree_i tree(library.Store(), head_.data());
        for (std::int32_t key : all) Put(tree, key);
        ASSERT_EQ(head_[f::kHeadRootAddress], kNode1 + 8);
        std::int32_t const absent = 99;
        failing.FailAt(n, forEver);
        failed = false;
        try {
          tree.Delete(&absent);
        } catch (unsigned long) {
          failed = true;
        }
        EXPECT_EQ(failed, failing.Operations() >= n);
        failing.FailAt(0, false);
        EXPECT_EQ(head_[f::kHeadRootAddress], tree.Head().rootAddress);
        Words keys;
        std::int32_t words = 0;
        std::int32_t const* entry = nullptr;
        tree.WalkBegin(words, words);
        while (tree.WalkNext(entry)) keys.push_back(entry[0]);
        if (n <= kBeforeAnyChange || !forEver || !failed) {
          EXPECT_EQ(keys, all);
        } else {
          EXPECT_TRUE(std::includes(all.begin(), all.end(), keys.begin(), keys.end()));
          EXPECT_FALSE(keys.empty());
        }
      }
    }
    // Each node is read once, unless it is in place, and written once.
    int const operations = isRead ? 2 * kNodes : kNodes;
    EXPECT_GT(n, operations);
    EXPECT_LE(n, operations + 4);
  }
}

}  // namespace
}  // namespace zel

// Compares the tree with the literal model, node by node: all small cases, larger ones by random
// scripts.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <map>
#include <numeric>
#include <random>
#include <set>

#include "store/btree.h"
#include "store/lib_file.h"
#include "tests/support/memory_file_system.h"
#include "tests/support/tree_model.h"

namespace zel {
namespace {

using test::TreeModel;
using Words = TreeModel::Words;
constexpr int kType = 11;
constexpr int kDataWords = 2;

// A tree in a library in memory, and the model that received the same calls.
class Pair {
 public:
  Pair(int keyWords, int capacity)
      : library_(files_, accUpdate, "/t.lb1", "t"),
        model_(kType, static_cast<std::size_t>(keyWords), static_cast<std::size_t>(capacity)) {
    EXPECT_EQ(library_.CreateNew(libKind11), openOk);
    InitTreeHead(head_.data(), false, keyWords, kDataWords, kType);
    head_[format::kHeadMaxEntries] = capacity;
    tree_.emplace(library_.Store(), head_.data());
  }

  void Insert(Words key) {
    std::int32_t const* data = nullptr;
    Words entry = key;
    entry.push_back(++stamp_);
    entry.push_back(-stamp_);
    key.resize(10);
    bool const wasThere = tree_->Find(key.data(), data);
    EXPECT_EQ(!wasThere, model_.Insert(entry));
    if (wasThere) return;
    std::int32_t const before = tree_->Head().rootAddress;
    bool const grew = tree_->Insert(key.data(), format::kNullAddress, format::kNullAddress);
    EXPECT_EQ(grew, tree_->Head().rootAddress != before);
    std::int32_t* own = nullptr;
    ASSERT_TRUE(tree_->GetCurrentData(own));
    EXPECT_EQ(own[0], 0) << "data of a new entry is zero";
    own[0] = stamp_;
    own[1] = -stamp_;
    ASSERT_TRUE(tree_->WriteCurrentNode());
  }

  void Delete(Words key) {
    if (model_.Root() == TreeModel::kNull) return;
    model_.Delete(key);
    key.resize(10);
    EXPECT_TRUE(tree_->Delete(key.data()));
  }

  // Every node of the file, read back, is the model's node; unused words are zero.
  void Compare() {
    ASSERT_EQ(head_[format::kHeadRootAddress], model_.Root());
    std::set<long> reached;
    if (model_.Root() != TreeModel::kNull) Reach(model_.Root(), reached);
    ASSERT_EQ(reached.size(), model_.Nodes().size()) << "a node leaked";
    for (auto const& [address, node] : model_.Nodes()) CompareNode(address, node);
    CompareWalk();
  }

 private:
  void Reach(long address, std::set<long>& reached) {
    reached.insert(address);
    for (long link : model_.Nodes().at(address).links) {
      if (link != TreeModel::kNull) Reach(link, reached);
    }
  }

  void CompareNode(long address, TreeModel::Node const& node) {
    std::array<std::int32_t, format::kNodeWords> words;
    library_.ReadBlock(static_cast<std::int32_t>(address), format::kNodeWords, words.data());
    std::vector<std::int32_t> expected{static_cast<int>(node.entries.size()),
                                       static_cast<int>(node.parent),
                                       static_cast<int>(node.previous), static_cast<int>(node.next),
                                       static_cast<int>(node.links[0])};
    for (std::size_t i = 0; i < node.entries.size(); ++i) {
      expected.insert(expected.end(), node.entries[i].begin(), node.entries[i].end());
      expected.push_back(static_cast<int>(node.links[i + 1]));
    }
    expected.resize(format::kNodeWords, 0);
    ASSERT_TRUE(std::equal(words.begin(), words.end(), expected.begin())) << "node " << address;
  }

  void CompareWalk() {
    std::array<std::int32_t, 8> head = head_;
    BTree_i walk(library_.Store(), head.data());
    std::int32_t keyWords = 0;
    std::int32_t dataWords = 0;
    walk.WalkBegin(keyWords, dataWords);
    std::int32_t const* entry = nullptr;
    for (Words const& expected : model_.Walk()) {
      ASSERT_TRUE(walk.WalkNext(entry));
      ASSERT_TRUE(std::equal(expected.begin(), expected.end(), entry));
    }
    EXPECT_FALSE(walk.WalkNext(entry));
    EXPECT_EQ(entry, nullptr);
  }

  test::MemoryFileSystem files_;
  LibFile_i library_;
  std::array<std::int32_t, 8> head_{};
  std::optional<BTree_i> tree_;
  TreeModel model_;
  int stamp_ = 0;
};

TEST(BTreeModel, EveryInsertionOrderOfSevenKeysWithEverySingleDelete) {
  std::array<int, 7> order{};
  std::iota(order.begin(), order.end(), 1);
  do {
    for (int deleted = 0; deleted <= 7; ++deleted) {  // 0 is an absent key
      Pair pair(1, 4);
      for (int key : order) pair.Insert({key});
      if (deleted == 0) pair.Compare();
      pair.Delete({deleted});
      pair.Compare();
      if (::testing::Test::HasFailure()) {
        FAIL() << "order " << ::testing::PrintToString(order) << ", deleted " << deleted;
      }
    }
  } while (std::next_permutation(order.begin(), order.end()));
}

TEST(BTreeModel, RandomScriptsAtSeveralCapacitiesAndKeyLengths) {
  for (int capacity : {3, 4, 5, 8, 60}) {
    for (int keyWords : {1, 2, 4}) {
      for (unsigned seed = 0; seed < 12; ++seed) {
        std::mt19937 random(seed);
        Pair pair(keyWords, capacity);
        for (int step = 0; step < 200; ++step) {
          Words key(static_cast<std::size_t>(keyWords));
          for (int& word : key) word = static_cast<int>(random() % (keyWords == 1 ? 90 : 6)) - 3;
          if (random() % 3 == 0) {
            pair.Delete(key);
          } else {
            pair.Insert(key);
          }
          if (step % 10 == 9) pair.Compare();
          if (::testing::Test::HasFailure()) {
            FAIL() << "capacity " << capacity << ", words " << keyWords << ", seed " << seed;
          }
        }
      }
    }
  }
}

TEST(BTreeModel, LongLoadsInBothDirections) {
  for (bool ascending : {true, false}) {
    Pair pair(1, 4);
    for (int i = 1; i <= 3000; ++i) pair.Insert({ascending ? i : -i});
    pair.Compare();
  }
}

// Runs of entries that are inserted at once have the result of single inserts.
TEST(BTreeModel, RebuildsOfThreeLevels) {
  for (int capacity : {8, 60}) {
    for (bool ascending : {true, false}) {
      SCOPED_TRACE(capacity);
      std::mt19937 random(7);
      std::vector<int> keys(capacity == 8 ? 700 : 6000);
      std::iota(keys.begin(), keys.end(), 1);
      if (!ascending) std::shuffle(keys.begin(), keys.end(), random);
      Pair pair(1, capacity);
      for (int key : keys) pair.Insert({key});
      pair.Delete({0});  // absent
      pair.Compare();
      std::shuffle(keys.begin(), keys.end(), random);
      for (int i = 0; i < 40; ++i) pair.Delete({keys[static_cast<std::size_t>(i)]});
      pair.Delete({0});
      pair.Compare();
    }
  }
}

}  // namespace
}  // namespace zel

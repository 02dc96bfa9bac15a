// Invariants of every tree on file, whatever was done to it: one depth, order, counts, no
// navigation by neighbours, no block lost.
#include <gtest/gtest.h>

#include <cstdint>
#include <random>
#include <set>

#include "tests/store/btree_fixture.h"

namespace zel {
namespace {

namespace f = format;
using test::BTreeTest;
using test::kNode1;
using test::kNull;
using Words = std::vector<std::int32_t>;

class BTreeStructureTest : public BTreeTest {
 protected:
  void Check() {
    reached_.clear();
    leafDepth_ = 0;
    keys_ = 0;
    std::int32_t const root = head_[f::kHeadRootAddress];
    if (root != kNull) Visit(root, 1, INT64_MIN, INT64_MAX);
    // Blocks of the second file that are neither free nor part of the tree.
    std::int64_t lost = -static_cast<std::int64_t>(reached_.size());
    ExtentList const& free = library_->Store().Extents();
    for (int i = 0; i < free.Count(); ++i) {
      if (free[i].file != 2) continue;
      lost += free[i].size == f::kOpenTail ? free[i].address - kNode1 : -free[i].size;
    }
    EXPECT_EQ(lost, 0);
  }
  int KeyCount() const { return keys_; }

 private:
  // All keys below the address are between the two.
  void Visit(std::int32_t address, int depth, std::int64_t low, std::int64_t high) {
    ASSERT_TRUE(reached_.insert(address).second) << "one link leads to a node";
    Words const node = Node(address);
    std::int32_t const count = node[0];
    ASSERT_GE(count, 0);
    ASSERT_LE(count, head_[f::kHeadMaxEntries]);
    EXPECT_EQ(node[f::kNodeParent], kNull);
    bool const leaf = node[4] == kNull;
    if (leaf) {
      if (leafDepth_ == 0) leafDepth_ = depth;
      EXPECT_EQ(depth, leafDepth_) << "all leaves lie at one depth";
    } else {
      EXPECT_GE(count, 1) << "of an inner node";
    }
    for (int i = 0; i <= count; ++i) {
      auto const at = static_cast<std::size_t>(4 + 3 * i);
      std::int64_t const next = i < count ? node[at + 1] : high;
      EXPECT_LT(low, next);
      EXPECT_EQ(node[at] == kNull, leaf) << "a node has all its links or none";
      if (!leaf) Visit(node[at], depth + 1, low, next);
      low = next;
    }
    keys_ += count;
  }

  std::set<std::int32_t> reached_;
  int leafDepth_ = 0;
  int keys_ = 0;
};

TEST_F(BTreeStructureTest, HoldsAfterEveryStepOfRandomScripts) {
  for (std::int32_t capacity : {3, 4, 5, 8}) {
    for (unsigned seed = 0; seed < 25; ++seed) {
      SCOPED_TRACE("capacity " + std::to_string(capacity) + ", seed " + std::to_string(seed));
      library_ = std::make_unique<LibFile_i>(files_, accUpdate, "/t.lb1", "t");
      ASSERT_EQ(library_->CreateNew(libKind11), openOk);
      head_[f::kHeadRootAddress] = kNull;
      head_[f::kHeadMaxEntries] = capacity;
      std::mt19937 random(seed);
      std::set<std::int32_t> keys;
      {
        BTree_i tree(library_->Store(), head_.data());
        for (int step = 0; step < 200; ++step) {
          auto const key = static_cast<std::int32_t>(random() % 60);
          if (random() % 5 < (step / 50 % 2 == 0 ? 4U : 2U)) {
            Put(tree, key);
            keys.insert(key);
          } else if (!keys.empty() && (random() % 8 == 0 || keys.count(key) != 0)) {
            EXPECT_TRUE(tree.Delete(&key));
            keys.erase(key);
          }
          Check();
          ASSERT_EQ(KeyCount(), static_cast<int>(keys.size()));
          ASSERT_FALSE(HasFailure()) << "step " << step;
        }
      }
      EXPECT_EQ(Keys(), Words(keys.begin(), keys.end()));
      library_->CloseLibFile();
    }
  }
}

// Ascending loads fill three quarters, random ones more than half, descending ones a quarter.
TEST_F(BTreeStructureTest, LoadsFillTheirNodesByTheirOrder) {
  std::vector<std::int32_t> shuffled(3000);
  for (std::size_t i = 0; i < shuffled.size(); ++i) shuffled[i] = static_cast<std::int32_t>(i);
  std::mt19937 random(1);
  for (std::size_t i = shuffled.size(); i > 1; --i) {
    std::swap(shuffled[i - 1], shuffled[random() % i]);
  }
  struct {
    Words keys;
    double least, most;
  } rows[] = {{{}, 0.74, 0.76}, {shuffled, 0.52, 0.62}, {{}, 0.24, 0.34}};
  for (std::int32_t i = 0; i < 3000; ++i) {
    rows[0].keys.push_back(i);
    rows[2].keys.push_back(-i);
  }
  for (auto const& row : rows) {
    library_ = std::make_unique<LibFile_i>(files_, accUpdate, "/t.lb1", "t");
    ASSERT_EQ(library_->CreateNew(libKind11), openOk);
    head_[f::kHeadRootAddress] = kNull;
    BTree_i tree(library_->Store(), head_.data());
    for (std::int32_t key : row.keys) Put(tree, key);
    Check();
    double const nodes = library_->Store().Extents()[0].address - kNode1;
    double const fill = 3000 / (4 * nodes);
    EXPECT_GE(fill, row.least);
    EXPECT_LE(fill, row.most);
  }
}

}  // namespace
}  // namespace zel

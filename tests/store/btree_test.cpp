// Single behaviours of the tree.
#include <gtest/gtest.h>

#include "frame/module.h"
#include "store/key.h"
#include "tests/store/btree_fixture.h"
#include "tests/support/failing_file_system.h"

namespace zel {
namespace {

namespace f = format;
using test::BTreeTest;
using test::kNode1;
using test::kNull;
using Words = std::vector<std::int32_t>;

TEST_F(BTreeTest, HeadsHaveTheCapacitiesOfTheirEntries) {
  struct {
    bool indirect;
    int keyWords, dataWords, entryWords, capacity;
  } const kRows[] = {{false, 4, 16, 20, 47},
                     {false, 2, 1, 3, 248},
                     {false, 1, 1, 2, 331},
                     {false, 2, 14, 16, 58},
                     {true, 1, 250, 2, 331}};
  for (auto const& row : kRows) {
    std::int32_t head[8];
    InitTreeHead(head, row.indirect, row.keyWords, row.dataWords, 12);
    EXPECT_EQ(Words(head, head + 8),
              (Words{row.indirect ? 1 : 2, 1000, row.entryWords, row.keyWords, row.dataWords,
                     row.capacity, 122000000, kNull}));
  }
}

TEST_F(BTreeTest, DeleteTestFlagMakesCapacityFour) {
  std::int32_t head[8];
  SetDeleteTestFlag(true);
  InitTreeHead(head, false, 2, 14, 11);
  SetDeleteTestFlag(false);
  EXPECT_EQ(head[f::kHeadMaxEntries], 4);
  InitTreeHead(head, false, 2, 14, 11);
  EXPECT_EQ(head[f::kHeadMaxEntries], 58);
}

TEST_F(BTreeTest, DigitsOfTheHeadSurvive) {
  std::int32_t head[8] = {112, 1000, 3, 2, 1, 248, 112000000, kNull};
  {
    BTreeHead_i const view(head);
    EXPECT_EQ(view.storageKind, 2);
    EXPECT_EQ(view.digit1, 1);
    EXPECT_EQ(view.digit2, 1);
    head[0] = 0;
  }
  EXPECT_EQ(head[0], 112);
}

TEST_F(BTreeTest, OnlyThreeDigitsOfTheDigitWordCount) {
  struct {
    std::int32_t word, kind, digit1, digit2, back;
  } const kRows[] = {{1, 1, 0, 0, 1},      {2, 2, 0, 0, 2},           {4982, 2, 8, 9, 982},
                     {-112, 2, 1, 1, 112}, {INT32_MAX, 7, 4, 6, 647}, {INT32_MIN, 8, 4, 6, 648}};
  for (auto const& row : kRows) {
    std::int32_t head[8] = {row.word, 1000, 3, 2, 1, 248, 112000000, kNull};
    {
      BTreeHead_i const view(head);
      EXPECT_EQ(view.storageKind, row.kind) << row.word;
      EXPECT_EQ(view.digit1, row.digit1) << row.word;
      EXPECT_EQ(view.digit2, row.digit2) << row.word;
    }
    EXPECT_EQ(head[0], row.back);
    EXPECT_EQ(Words(head + 1, head + 8), (Words{1000, 3, 2, 1, 248, 112000000, kNull}));
  }
}

TEST_F(BTreeTest, FindOnAnEmptyTreeGivesFalse) {
  BTree_i tree(library_->Store(), head_.data());
  std::int32_t const key = 1;
  std::int32_t const* data = nullptr;
  EXPECT_FALSE(tree.Find(&key, data));
  std::int32_t* own = nullptr;
  EXPECT_FALSE(tree.GetCurrentData(own));
  EXPECT_FALSE(tree.WriteCurrentNode());
}

TEST_F(BTreeTest, FindOnAnEmptyTreeReadsNothing) {
  test::FailingFileSystem counter(files_);
  LibFile_i library(counter, accUpdate, "/c.lb1", "c");
  ASSERT_EQ(library.CreateNew(libKind11), openOk);
  BTree_i tree(library.Store(), head_.data());
  int const before = counter.Operations();
  std::int32_t const key = 1;
  std::int32_t const* data = nullptr;
  EXPECT_FALSE(tree.Find(&key, data));
  EXPECT_EQ(counter.Operations(), before);
}

TEST_F(BTreeTest, FailedFindLeavesNoEntryToChangeOrWrite) {
  PutAll({1, 2});
  BTree_i tree(library_->Store(), head_.data());
  std::int32_t const key = 3;
  std::int32_t const* data = nullptr;
  ASSERT_FALSE(tree.Find(&key, data));
  std::int32_t* own = nullptr;
  EXPECT_FALSE(tree.GetCurrentData(own));
  EXPECT_FALSE(tree.WriteCurrentNode());
  EXPECT_FALSE(tree.Insert(&key, kNull, kNull)) << "the place is still the one found";
  EXPECT_TRUE(tree.WriteCurrentNode());
  EXPECT_EQ(Keys(), (Words{1, 2, 3}));
  EXPECT_TRUE(tree.Delete(&key));
  EXPECT_FALSE(tree.GetCurrentData(own));
  EXPECT_FALSE(tree.WriteCurrentNode());
}

TEST_F(BTreeTest, FifthKeyInOrderSplitsThreeAndOne) {
  PutAll({1, 2, 3, 4, 5});
  EXPECT_EQ(head_[f::kHeadRootAddress], kNode1 + 2);
  Words const root = Node(kNode1 + 2);
  EXPECT_EQ(root[0], 1);
  EXPECT_EQ(root[4], kNode1 + 1);
  EXPECT_EQ(root[5], 4);
  EXPECT_EQ(root[7], kNode1);
  EXPECT_EQ(Node(kNode1 + 1)[0], 3);
  EXPECT_EQ(Node(kNode1)[0], 1);
  EXPECT_EQ(Node(kNode1)[5], 5);
}

TEST_F(BTreeTest, EntryThatWouldRiseStaysBelow) {
  PutAll({1, 2, 3, 5, 4});
  Words const root = Node(kNode1 + 2);
  EXPECT_EQ(root[5], 3);
  EXPECT_EQ(Node(kNode1 + 1)[0], 2);
  Words const right = Node(kNode1);
  EXPECT_EQ(right[0], 2);
  EXPECT_EQ(right[5], 4);
  EXPECT_EQ(right[8], 5);
}

TEST_F(BTreeTest, DescendingLoadLeavesSingleEntries) {
  PutAll({5, 4, 3, 2, 1});
  Words const root = Node(kNode1 + 2);
  EXPECT_EQ(root[5], 4);
  EXPECT_EQ(root[4], kNode1);
  EXPECT_EQ(root[7], kNode1 + 1);
  EXPECT_EQ(Node(kNode1)[0], 3);
  EXPECT_EQ(Node(kNode1 + 1)[0], 1);
}

TEST_F(BTreeTest, TwentyFirstKeyGrowsAThirdLevel) {
  BTree_i tree(library_->Store(), head_.data());
  for (std::int32_t key = 1; key <= 20; ++key) Put(tree, key);
  EXPECT_EQ(Node(kNode1 + 2)[0], 4) << "root 4 8 12 16";
  std::int32_t const key = 21;
  std::int32_t const* data = nullptr;
  ASSERT_FALSE(tree.Find(&key, data));
  EXPECT_TRUE(tree.Insert(&key, kNull, kNull));
  EXPECT_EQ(tree.Head().rootAddress, kNode1 + 8);
  EXPECT_EQ(head_[f::kHeadRootAddress], kNode1 + 8) << "the record has the root at once";
  Words const root = Node(kNode1 + 8);
  EXPECT_EQ(root[5], 16);
  EXPECT_EQ(root[4], kNode1 + 7);
  EXPECT_EQ(root[7], kNode1 + 2);
  std::int32_t* own = nullptr;
  ASSERT_TRUE(tree.GetCurrentData(own)) << "the position is the new entry";
  *own = 210;
  tree.WriteCurrentNode();
  ASSERT_TRUE(tree.Find(&key, data));
  EXPECT_EQ(*data, 210);
}

TEST_F(BTreeTest, LoadsInBothDirectionsMakeTheseNodes) {
  struct Expected {
    std::int32_t node;  // in order of allocation
    Words keys, links;  // links by the same numbers, 0 for null; empty to skip the comparison
  };
  auto const check = [&](std::vector<Expected> const& nodes) {
    for (Expected const& expected : nodes) {
      Words const node = Node(kNode1 + expected.node - 1);
      Words keys;
      Words links{node[4] == kNull ? 0 : node[4] - kNode1 + 1};
      for (std::size_t i = 0; i < static_cast<std::size_t>(node[0]); ++i) {
        keys.push_back(node[5 + 3 * i]);
        std::int32_t const link = node[7 + 3 * i];
        links.push_back(link == kNull ? 0 : link - kNode1 + 1);
      }
      EXPECT_EQ(keys, expected.keys) << expected.node;
      if (!expected.links.empty()) {
        EXPECT_EQ(links, expected.links) << expected.node;
      }
    }
  };
  PutAll({1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17});
  EXPECT_EQ(head_[f::kHeadRootAddress], kNode1 + 2);
  check({{3, {4, 8, 12, 16}, {2, 4, 5, 6, 1}},
         {2, {1, 2, 3}, {0, 0, 0, 0}},
         {6, {13, 14, 15}, {0, 0, 0, 0}},
         {1, {17}, {0, 0}}});
  PutAll({18, 19, 20, 21});
  EXPECT_EQ(head_[f::kHeadRootAddress], kNode1 + 8);
  check({{9, {16}, {8, 3}},
         {8, {4, 8, 12}, {2, 4, 5, 6}},
         {3, {20}, {7, 1}},
         {7, {17, 18, 19}, {0, 0, 0, 0}},
         {1, {21}, {0, 0}}});

  library_ = std::make_unique<LibFile_i>(files_, accUpdate, "/down.lb1", "d");
  ASSERT_EQ(library_->CreateNew(libKind11), openOk);
  head_[f::kHeadRootAddress] = kNull;
  PutAll({17, 16, 15, 14, 13, 12, 11, 10, 9, 8, 7, 6, 5, 4, 3, 2, 1});
  EXPECT_EQ(head_[f::kHeadRootAddress], kNode1 + 8);
  check({{9, {10, 14}, {3, 12, 8}},
         {3, {4, 6, 8}, {}},
         {12, {12}, {}},
         {8, {16}, {}},
         {1, {1, 2, 3}, {0, 0, 0, 0}}});
}

TEST_F(BTreeTest, SplitTellsTheNewNeighboursOnly) {
  PutAll({10, 20, 30, 40, 50});  // the new entry right: the new node is the left part
  Words left = Node(kNode1 + 1);
  Words right = Node(kNode1);
  EXPECT_EQ(Words(left.begin() + 1, left.begin() + 4), (Words{kNull, kNull, kNode1}));
  EXPECT_EQ(Words(right.begin() + 1, right.begin() + 4), (Words{kNull, kNode1 + 1, kNull}));
  PutAll({9, 8});  // the new entry left: the new node is the right part
  left = Node(kNode1 + 1);
  Words const added = Node(kNode1 + 3);
  EXPECT_EQ(left[5], 8);
  EXPECT_EQ(Words(left.begin() + 1, left.begin() + 4), (Words{kNull, kNull, kNode1 + 3}));
  EXPECT_EQ(Words(added.begin() + 1, added.begin() + 4), (Words{kNull, kNode1 + 1, kNode1}));
  right = Node(kNode1);
  EXPECT_EQ(right[f::kNodePrevious], kNode1 + 1) << "outer neighbours are left to go stale";
}

TEST_F(BTreeTest, EntryOfAnInnerNodeIsFoundAndChanged) {
  PutAll({1, 2, 3, 4, 5});
  BTree_i tree(library_->Store(), head_.data());
  std::int32_t const key = 4;
  std::int32_t const* data = nullptr;
  ASSERT_TRUE(tree.Find(&key, data));
  EXPECT_EQ(*data, 40);
  std::int32_t* own = nullptr;
  ASSERT_TRUE(tree.GetCurrentData(own));
  *own = 41;
  EXPECT_TRUE(tree.WriteCurrentNode());
  EXPECT_EQ(Node(kNode1 + 2)[6], 41);
}

TEST_F(BTreeTest, InsertAfterASuccessfulOrNoSearchDoesNothing) {
  PutAll({1, 2});
  BTree_i tree(library_->Store(), head_.data());
  std::int32_t const key = 2;
  EXPECT_FALSE(tree.Insert(&key, kNull, kNull));
  std::int32_t const* data = nullptr;
  ASSERT_TRUE(tree.Find(&key, data));
  EXPECT_FALSE(tree.Insert(&key, kNull, kNull));
  EXPECT_EQ(Keys(), (Words{1, 2}));
}

// An insertion at a walk's position in an inner node would treat the link there as that of a leaf.
TEST_F(BTreeTest, InsertWithinAWalkDoesNothing) {
  PutAll({1, 2, 3, 4, 5});
  BTree_i tree(library_->Store(), head_.data());
  std::int32_t n = 0;
  std::int32_t const key = 9;
  std::int32_t const* entry = nullptr;
  tree.WalkBegin(n, n);
  EXPECT_FALSE(tree.Insert(&key, kNull, kNull));
  for (int i = 1; i <= 5; ++i) {
    ASSERT_TRUE(tree.WalkNext(entry));
    EXPECT_FALSE(tree.Insert(&key, kNull, kNull));
  }
  EXPECT_FALSE(tree.WalkNext(entry));
  EXPECT_FALSE(tree.WalkNext(entry)) << "ended for good";
  EXPECT_FALSE(tree.Insert(&key, kNull, kNull));
  EXPECT_EQ(Keys(), (Words{1, 2, 3, 4, 5}));
}

TEST_F(BTreeTest, WalkMayChangeTheEntriesThatItGives) {
  PutAll({1, 2, 3, 4, 5, 6, 7});
  BTree_i tree(library_->Store(), head_.data());
  std::int32_t n = 0;
  std::int32_t const* entry = nullptr;
  tree.WalkBegin(n, n);
  while (tree.WalkNext(entry)) {
    std::int32_t* own = nullptr;
    ASSERT_TRUE(tree.GetCurrentData(own));
    EXPECT_EQ(own, entry + 1);
    *own = -entry[0];
    ASSERT_TRUE(tree.WriteCurrentNode());
  }
  for (std::int32_t key = 1; key <= 7; ++key) {
    std::int32_t const* data = nullptr;
    BTree_i fresh(library_->Store(), head_.data());
    ASSERT_TRUE(fresh.Find(&key, data));
    EXPECT_EQ(*data, -key);
  }
}

TEST_F(BTreeTest, OnlyEntryOfALeafLeavesItEmptyAndTheWalkSkipsIt) {
  PutAll({1, 2, 3, 4, 5});
  BTree_i tree(library_->Store(), head_.data());
  std::int32_t const key = 5;
  EXPECT_TRUE(tree.Delete(&key));
  EXPECT_EQ(Node(kNode1)[0], 0);
  EXPECT_EQ(Keys(), (Words{1, 2, 3, 4}));
}

TEST_F(BTreeTest, AbsentKeyIsDeletedWithSuccessAndKeepsTheKeySet) {
  PutAll({1, 2, 3, 4, 5});
  BTree_i tree(library_->Store(), head_.data());
  std::int32_t const key = 99;
  Words before = Node(head_[f::kHeadRootAddress]);
  before.resize(8);
  EXPECT_TRUE(tree.Delete(&key));
  EXPECT_EQ(Keys(), (Words{1, 2, 3, 4, 5}));
  // The rebuild inserted the root's entry first: 4, then 1 2 3, and 5 split that leaf again.
  Words const rebuilt = Node(head_[f::kHeadRootAddress]);
  EXPECT_EQ(rebuilt[0], 1);
  EXPECT_EQ(rebuilt[5], 4);
  EXPECT_NE(Words(rebuilt.begin(), rebuilt.begin() + 8), before) << "with other nodes under it";
}

// Case E writes the left child through a separate buffer; the level buffer that held it must not
// supply its old image to the next insertion.
TEST_F(BTreeTest, NodesChangedByADeleteAreReadAgain) {
  BTree_i tree(library_->Store(), head_.data());
  for (std::int32_t key : {17, 7, 22, 4, 15}) Put(tree, key);
  std::int32_t const key = 17;
  EXPECT_TRUE(tree.Delete(&key));
  Put(tree, 10);
  EXPECT_EQ(Keys(), (Words{4, 7, 10, 15, 22}));
}

TEST_F(BTreeTest, EntryAboveInnerNodesIsDeletedByARebuild) {
  Words keys;
  for (std::int32_t key = 1; key <= 21; ++key) keys.push_back(key);
  BTree_i tree(library_->Store(), head_.data());
  for (std::int32_t key : keys) Put(tree, key);
  std::int32_t const root = head_[f::kHeadRootAddress];
  ASSERT_EQ(Node(root)[5], 16) << "of the root, whose children are inner nodes";
  std::int32_t const key = 16;
  EXPECT_TRUE(tree.Delete(&key));
  EXPECT_NE(head_[f::kHeadRootAddress], root);
  keys.erase(keys.begin() + 15);
  EXPECT_EQ(Keys(), keys);
  std::int32_t const* data = nullptr;
  for (std::int32_t left : keys) {
    ASSERT_TRUE(tree.Find(&left, data));
    EXPECT_EQ(*data, left * 10) << "data moves with its key";
  }
}

TEST_F(BTreeTest, LastKeyGoneByARebuildLeavesAnEmptyTree) {
  PutAll({1, 2, 3, 4, 5});
  BTree_i tree(library_->Store(), head_.data());
  for (std::int32_t key : {1, 2, 3, 5, 4}) tree.Delete(&key);
  EXPECT_EQ(head_[f::kHeadRootAddress], kNull);
  std::int32_t const key = 4;
  EXPECT_EQ(Thrown([&] { tree.Delete(&key); }), 990000000UL);
}

TEST_F(BTreeTest, WalkOfAnEmptyTreeGivesZeroLengths) {
  BTree_i tree(library_->Store(), head_.data());
  std::int32_t keyWords = 5;
  std::int32_t dataWords = 5;
  tree.WalkBegin(keyWords, dataWords);
  EXPECT_EQ(keyWords, 0);
  EXPECT_EQ(dataWords, 0);
  std::int32_t const* entry = head_.data();
  EXPECT_FALSE(tree.WalkNext(entry));
  EXPECT_EQ(entry, nullptr);
}

TEST_F(BTreeTest, KeysCompareAsSignedWordsFromTheFirst) {
  std::int32_t head[8];
  InitTreeHead(head, false, 2, 1, 11);
  BTree_i const tree(library_->Store(), head);
  std::int32_t const a[] = {1, -1};
  std::int32_t const b[] = {1, 1};
  std::int32_t const c[] = {-2, 9};
  EXPECT_EQ(tree.CompareKey(a, b), -1);
  EXPECT_EQ(tree.CompareKey(b, a), 1);
  EXPECT_EQ(tree.CompareKey(c, a), -1);
  EXPECT_EQ(tree.CompareKey(a, a), 0);
}

TEST_F(BTreeTest, KeysServeAsTheirResolvedWords) {
  BTree_i tree(library_->Store(), head_.data());
  Key_i key;
  bool swapped = false;
  std::int32_t const* data = nullptr;
  for (long number : {3L, 1L, 2L}) {
    key.SetKey(number);
    ASSERT_TRUE(key.ResolveKey(nullptr, 0, swapped));
    EXPECT_FALSE(tree.Find(&key, data));
    EXPECT_EQ(tree.Insert(&key, kNull, kNull), number == 3);
  }
  EXPECT_EQ(Keys(), (Words{1, 2, 3}));
  EXPECT_TRUE(tree.Delete(&key));
  EXPECT_EQ(Keys(), (Words{1, 3}));
  Key* none = nullptr;
  EXPECT_FALSE(tree.Find(none, data));
}

TEST_F(BTreeTest, ReaderFindsInPlaceAndCannotWrite) {
  for (bool views : {true, false}) {
    files_.ServeViews(views);
    if (library_->GetBankTree() != nullptr && library_->Store().Mode() == accUpdate) {
      PutAll({1, 2, 3, 4, 5});
      library_->CloseLibFile();
    }
    library_ = std::make_unique<LibFile_i>(files_, accRead, "/t.lb1", "t");
    ASSERT_EQ(library_->OpenExisting({false, {}}, nullptr), openOk);
    BTree_i tree(library_->Store(), head_.data());
    std::int32_t const key = 3;
    std::int32_t const* data = nullptr;
    ASSERT_TRUE(tree.Find(&key, data));
    EXPECT_EQ(*data, 30);
    std::int32_t* own = nullptr;
    ASSERT_TRUE(tree.GetCurrentData(own));
    *own = 31;
    EXPECT_EQ(Thrown([&] { tree.WriteCurrentNode(); }), static_cast<unsigned long>(kNode1 + 1));
    ASSERT_TRUE(tree.Find(&key, data));
    EXPECT_EQ(*data, 30) << "a write that failed leaves nothing behind";
    auto const root = static_cast<unsigned long>(head_[f::kHeadRootAddress]);
    EXPECT_EQ(Thrown([&] { tree.Delete(&key); }), root);
    std::int32_t const absent = 9;
    EXPECT_EQ(Thrown([&] { tree.Delete(&absent); }), root);
    ASSERT_FALSE(tree.Find(&absent, data));
    EXPECT_EQ(Thrown([&] { tree.Insert(&absent, kNull, kNull); }), root);
  }
}

}  // namespace
}  // namespace zel

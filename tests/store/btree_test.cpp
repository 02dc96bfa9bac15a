// Single behaviours of the tree, and the channels of damage.
#include <gtest/gtest.h>

#include <array>
#include <vector>

#include "frame/module.h"
#include "store/btree.h"
#include "store/key.h"
#include "store/lib_file.h"
#include "tests/support/memory_file_system.h"

namespace zel {
namespace {

namespace f = format;
constexpr std::int32_t kNull = f::kNullAddress;
constexpr std::int32_t kNode1 = 112000001;

class BTreeTest : public ::testing::Test {
 protected:
  BTreeTest() : library_(std::make_unique<LibFile_i>(files_, accUpdate, "/t.lb1", "t")) {
    library_->CreateNew(libKind11);
    InitTreeHead(head_.data(), false, 1, 1, 11);
    head_[f::kHeadMaxEntries] = 4;
  }

  void Put(BTree_i& tree, std::int32_t key) {
    std::int32_t const* found = nullptr;
    if (tree.Find(&key, found)) return;
    tree.Insert(&key, kNull, kNull);
    std::int32_t* data = nullptr;
    ASSERT_TRUE(tree.GetCurrentData(data));
    *data = key * 10;
    tree.WriteCurrentNode();
  }
  void PutAll(std::initializer_list<std::int32_t> keys) {
    BTree_i tree(library_->Store(), head_.data());
    for (std::int32_t key : keys) Put(tree, key);
  }
  std::vector<std::int32_t> Node(std::int32_t address) {
    std::vector<std::int32_t> words(f::kNodeWords);
    library_->ReadBlock(address, f::kNodeWords, words.data());
    return words;
  }
  void WriteNode(std::int32_t address, std::vector<std::int32_t> words) {
    words.resize(f::kNodeWords);
    library_->WriteBlock(address, f::kNodeWords, words.data(), 0);
  }
  std::vector<std::int32_t> Keys() {
    BTree_i tree(library_->Store(), head_.data());
    std::int32_t keyWords = 0;
    std::int32_t dataWords = 0;
    tree.WalkBegin(keyWords, dataWords);
    std::vector<std::int32_t> keys;
    std::int32_t const* entry = nullptr;
    while (tree.WalkNext(entry)) keys.push_back(entry[0]);
    return keys;
  }
  template <typename Action>
  static unsigned long Thrown(Action const& action) {
    try {
      action();
    } catch (unsigned long word) {
      return word;
    }
    return 0;
  }

  test::MemoryFileSystem files_;
  std::unique_ptr<LibFile_i> library_;
  std::array<std::int32_t, 8> head_{};
};

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

TEST_F(BTreeTest, FindOnAnEmptyTreeGivesFalse) {
  BTree_i tree(library_->Store(), head_.data());
  std::int32_t const key = 1;
  std::int32_t const* data = nullptr;
  EXPECT_FALSE(tree.Find(&key, data));
  std::int32_t* own = nullptr;
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
  EXPECT_TRUE(tree.Delete(&key));
  EXPECT_EQ(Keys(), (Words{1, 2, 3, 4, 5}));
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
    EXPECT_NE(Thrown([&] { tree.Delete(&key); }), 0UL);
    std::int32_t const absent = 9;
    ASSERT_FALSE(tree.Find(&absent, data));
    EXPECT_NE(Thrown([&] { tree.Insert(&absent, kNull, kNull); }), 0UL);
  }
}

// --- damage ----------------------------------------------------------------------------------

TEST_F(BTreeTest, HeadThatIsNotUsableThrowsItsRoot) {
  PutAll({1, 2, 3, 4, 5});
  struct {
    int word;
    std::int32_t value;
  } const kBad[] = {{f::kHeadNodeWords, 999},        {f::kHeadNodeWords, 0},
                    {f::kHeadNodeWords, -1},         {f::kHeadKeyWords, 0},
                    {f::kHeadKeyWords, -1},          {f::kHeadKeyWords, 2},
                    {f::kHeadKeyWords, 11},          {f::kHeadKeyWords, INT32_MAX},
                    {f::kHeadEntryWords, 1},         {f::kHeadEntryWords, 0},
                    {f::kHeadEntryWords, -7},        {f::kHeadEntryWords, 995},
                    {f::kHeadEntryWords, INT32_MAX}, {f::kHeadMaxEntries, 2},
                    {f::kHeadMaxEntries, 0},         {f::kHeadMaxEntries, -1},
                    {f::kHeadMaxEntries, 332},       {f::kHeadMaxEntries, INT32_MIN}};
  std::int32_t const key[10] = {3};
  std::int32_t const* data = nullptr;
  for (auto const& bad : kBad) {
    std::array<std::int32_t, 8> head = head_;
    head[static_cast<std::size_t>(bad.word)] = bad.value;
    BTree_i tree(library_->Store(), head.data());
    auto const root = static_cast<unsigned long>(head_[f::kHeadRootAddress]);
    EXPECT_EQ(Thrown([&] { tree.Find(key, data); }), root) << bad.word << " " << bad.value;
    std::int32_t n = 0;
    EXPECT_EQ(Thrown([&] { tree.WalkBegin(n, n); }), root);
    EXPECT_EQ(Thrown([&] { tree.Delete(key); }), root);
  }
}

TEST_F(BTreeTest, NodeWithAnImpossibleCountThrowsItsAddress) {
  PutAll({1, 2, 3, 4, 5});
  for (std::int32_t count : {-1, 332, INT32_MAX, INT32_MIN}) {
    Words node = Node(kNode1);
    node[0] = count;
    WriteNode(kNode1, node);
    BTree_i tree(library_->Store(), head_.data());
    std::int32_t const key = 5;
    std::int32_t const* data = nullptr;
    EXPECT_EQ(Thrown([&] { tree.Find(&key, data); }), static_cast<unsigned long>(kNode1)) << count;
    auto const before = files_.Contents("/t.lb2");
    EXPECT_EQ(Thrown([&] { tree.Delete(&key); }), static_cast<unsigned long>(kNode1));
    std::int32_t const absent = 99;
    EXPECT_EQ(Thrown([&] { tree.Delete(&absent); }), static_cast<unsigned long>(kNode1));
    EXPECT_EQ(files_.Contents("/t.lb2"), before) << "nothing changed before the throw";
  }
}

TEST_F(BTreeTest, WildLinksThrowTheLink) {
  PutAll({1, 2, 3, 4, 5});
  for (std::int32_t link : {0, -5, 1, 122000001, 110000001, 112000000, 113000001, INT32_MAX}) {
    Words root = Node(kNode1 + 2);
    root[7] = link;
    WriteNode(kNode1 + 2, root);
    BTree_i tree(library_->Store(), head_.data());
    std::int32_t const key = 5;
    std::int32_t const* data = nullptr;
    auto const word = static_cast<unsigned long>(static_cast<std::uint32_t>(link));
    EXPECT_EQ(Thrown([&] { tree.Find(&key, data); }), word) << link;
    EXPECT_EQ(Thrown([&] { Keys(); }), word) << link;
  }
}

TEST_F(BTreeTest, BlockBehindTheEndIsAnEmptyNodeWhoseLinkThrows) {
  PutAll({1, 2, 3, 4, 5});
  Words root = Node(kNode1 + 2);
  root[7] = 112000999;
  WriteNode(kNode1 + 2, root);
  BTree_i tree(library_->Store(), head_.data());
  std::int32_t const key = 5;
  std::int32_t const* data = nullptr;
  bool threw = false;
  try {
    tree.Find(&key, data);
  } catch (unsigned long word) {
    threw = true;
    EXPECT_EQ(word, 0UL);
  }
  EXPECT_TRUE(threw);
}

TEST_F(BTreeTest, CycleEndsEverything) {
  PutAll({1, 2, 3, 4, 5});
  Words root = Node(kNode1 + 2);
  root[7] = kNode1 + 2;
  WriteNode(kNode1 + 2, root);
  BTree_i tree(library_->Store(), head_.data());
  std::int32_t const key = 5;
  std::int32_t const* data = nullptr;
  auto const self = static_cast<unsigned long>(kNode1 + 2);
  EXPECT_EQ(Thrown([&] { tree.Find(&key, data); }), self);
  EXPECT_NE(Thrown([&] { Keys(); }), 0UL) << "the walk is bounded";
  auto const before = files_.Contents("/t.lb2");
  EXPECT_EQ(Thrown([&] { tree.Delete(&key); }), self);
  EXPECT_EQ(files_.Contents("/t.lb2"), before);
  EXPECT_EQ(head_[f::kHeadRootAddress], kNode1 + 2);
}

TEST_F(BTreeTest, SharedNodeThrowsBeforeARebuild) {
  PutAll({1, 2, 3, 4, 5});
  Words root = Node(kNode1 + 2);
  root[7] = kNode1 + 1;
  WriteNode(kNode1 + 2, root);
  BTree_i tree(library_->Store(), head_.data());
  std::int32_t const absent = 99;
  auto const before = files_.Contents("/t.lb2");
  EXPECT_EQ(Thrown([&] { tree.Delete(&absent); }), static_cast<unsigned long>(kNode1 + 1));
  EXPECT_EQ(files_.Contents("/t.lb2"), before);
}

}  // namespace
}  // namespace zel

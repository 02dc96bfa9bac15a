// Damaged trees: no access outside a buffer, every operation ends, and errors are reported as
// specified.
#include <gtest/gtest.h>

#include "tests/store/btree_fixture.h"
#include "tests/support/file_words.h"
#include "tests/support/text_stream.h"

namespace zel {
namespace {

namespace f = format;
using test::BTreeTest;
using test::kNode1;
using test::kNull;
using Words = std::vector<std::int32_t>;

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

// A node written by hand: entries of one key word and one data word, ten times the key, between
// their links.
Words NodeOf(Words const& keys, Words const& links) {
  Words node{static_cast<std::int32_t>(keys.size()), kNull, kNull, kNull, links[0]};
  for (std::size_t i = 0; i < keys.size(); ++i) {
    node.insert(node.end(), {keys[i], keys[i] * 10, links[i + 1]});
  }
  return node;
}

class DamagedTreeTest : public BTreeTest {
 protected:
  // Allocates `count` nodes, to be written by hand.
  void TakeNodes(int count) {
    Words const empty(f::kNodeWords);
    for (int i = 0; i < count; ++i) {
      std::int32_t address = kNull;
      library_->WriteBlock(address, f::kNodeWords, empty.data(), 2);
    }
  }
  // A delete that must throw `word`, with nothing changed.
  void ExpectDeleteThrows(std::int32_t key, std::int32_t word) {
    BTree_i tree(library_->Store(), head_.data());
    auto const before = files_.Contents("/t.lb2");
    std::int32_t const root = head_[f::kHeadRootAddress];
    EXPECT_EQ(Thrown([&] { tree.Delete(&key); }), static_cast<unsigned long>(word));
    EXPECT_EQ(files_.Contents("/t.lb2"), before);
    EXPECT_EQ(head_[f::kHeadRootAddress], root);
  }
};

TEST_F(DamagedTreeTest, LeafBesideAnInnerNodeLosesNothingToADelete) {
  for (bool leftHasEntries : {true, false}) {
    char const* path = leftHasEntries ? "/a.lb1" : "/b.lb1";
    library_ = std::make_unique<LibFile_i>(files_, accUpdate, path, "t");
    ASSERT_EQ(library_->CreateNew(libKind11), openOk);
    // Root 10 20 over (inner, leaf 12, leaf 22); the inner node 5 over 4 and 7, or empty over 4.
    TakeNodes(6);
    head_[f::kHeadRootAddress] = kNode1;
    WriteNode(kNode1, NodeOf({10, 20}, {kNode1 + 1, kNode1 + 2, kNode1 + 3}));
    WriteNode(kNode1 + 1,
              leftHasEntries ? NodeOf({5}, {kNode1 + 4, kNode1 + 5}) : NodeOf({}, {kNode1 + 4}));
    WriteNode(kNode1 + 2, NodeOf({12}, {kNull, kNull}));
    WriteNode(kNode1 + 3, NodeOf({22}, {kNull, kNull}));
    WriteNode(kNode1 + 4, NodeOf({4}, {kNull, kNull}));
    WriteNode(kNode1 + 5, NodeOf({7}, {kNull, kNull}));
    BTree_i tree(library_->Store(), head_.data());
    std::int32_t const key = 10;
    EXPECT_TRUE(tree.Delete(&key));
    EXPECT_EQ(Keys(), leftHasEntries ? (Words{4, 5, 7, 12, 20, 22}) : (Words{4, 12, 20, 22}));
  }
}

// Its entries would be appended to themselves, and its block freed while it is still linked.
TEST_F(DamagedTreeTest, NodeOnBothSidesOfAnEntryThrows) {
  PutAll({1, 2, 3, 4, 5, 6, 7, 8, 9});
  std::int32_t const rootAddress = head_[f::kHeadRootAddress];
  Words root = Node(rootAddress);
  ASSERT_GE(root[0], 2);
  root[7] = root[4];
  WriteNode(rootAddress, root);
  ExpectDeleteThrows(root[5], root[4]);
}

TEST_F(DamagedTreeTest, NodeThatCountsAsFreeThrowsBeforeARebuild) {
  PutAll({1, 2, 3, 4, 5});
  std::int32_t address = kNode1 + 1;
  library_->FreeBlock(address, f::kNodeWords);
  ExpectDeleteThrows(99, kNode1 + 1);
  EXPECT_EQ(Keys(), (Words{1, 2, 3, 4, 5}));
}

// In a file of smaller blocks a node occupies several of them.
TEST_F(DamagedTreeTest, NodesThatShareBlocksThrowBeforeARebuild) {
  constexpr std::int32_t kRun = 111000003;
  for (std::int32_t apart : {1, 3, 4}) {
    head_[f::kHeadRootAddress] = kNull;
    PutAll({10});
    std::int32_t run = kNull;
    Words const room(4000);
    library_->WriteBlock(run, 4000, room.data(), 1);
    Words left = NodeOf({5}, {kNull, kNull});
    Words right = NodeOf({15}, {kNull, kNull});
    left.resize(250);
    right.resize(250);
    std::int32_t second = run + apart;
    library_->WriteBlock(run, 250, left.data(), 0);
    library_->WriteBlock(second, 250, right.data(), 0);
    std::int32_t const root = head_[f::kHeadRootAddress];
    WriteNode(root, NodeOf({10}, {run, second}));
    if (apart < 4) {
      ExpectDeleteThrows(99, second);
    } else {
      BTree_i tree(library_->Store(), head_.data());
      std::int32_t const absent = 99;
      EXPECT_TRUE(tree.Delete(&absent));
    }
    EXPECT_EQ(Keys(), (Words{5, 10, 15})) << apart;
    EXPECT_GE(run, kRun);
  }
}

TEST_F(DamagedTreeTest, ManyLinksBehindTheEndEndARebuild) {
  TakeNodes(1);
  head_[f::kHeadRootAddress] = kNode1;
  Words keys;
  Words links{kNode1 + 500};
  for (std::int32_t i = 1; i <= 300; ++i) {
    keys.push_back(i);
    links.push_back(i == 300 ? kNull : kNode1 + 500 + i);
  }
  WriteNode(kNode1, NodeOf(keys, links));
  ExpectDeleteThrows(999, kNode1 + 500);
}

// A chain of full nodes, each under the last link of the one above.
class DeepTreeTest : public DamagedTreeTest {
 protected:
  void MakeChain(int depth) {
    TakeNodes(depth);
    head_[f::kHeadRootAddress] = kNode1;
    for (int d = 0; d < depth; ++d) {
      std::int32_t const below = d + 1 < depth ? kNode1 + d + 1 : kNull;
      WriteNode(kNode1 + d, NodeOf({4 * d + 1, 4 * d + 2, 4 * d + 3, 4 * d + 4},
                                   {kNull, kNull, kNull, kNull, below}));
    }
  }
};

TEST_F(DeepTreeTest, PathOfSixtyFourNodesIsTheLongest) {
  MakeChain(64);
  EXPECT_EQ(Keys().size(), 256U);
  BTree_i tree(library_->Store(), head_.data());
  std::int32_t const key = 999;
  std::int32_t const* data = nullptr;
  EXPECT_FALSE(tree.Find(&key, data));
  // Every node of the path is full: a new root would be one too many, so nothing is split.
  auto const before = files_.Contents("/t.lb2");
  EXPECT_EQ(Thrown([&] { tree.Insert(&key, kNull, kNull); }), static_cast<unsigned long>(kNode1));
  EXPECT_EQ(files_.Contents("/t.lb2"), before);

  WriteNode(kNode1, NodeOf({2, 3, 4}, {kNull, kNull, kNull, kNode1 + 1}));
  BTree_i roomy(library_->Store(), head_.data());
  ASSERT_FALSE(roomy.Find(&key, data));
  EXPECT_FALSE(roomy.Insert(&key, kNull, kNull)) << "the splits end in the old root";
  EXPECT_TRUE(roomy.Find(&key, data));
}

TEST_F(DeepTreeTest, SixtyFifthNodeThrowsItsAddress) {
  MakeChain(65);
  BTree_i tree(library_->Store(), head_.data());
  std::int32_t const key = 999;
  std::int32_t const* data = nullptr;
  auto const last = static_cast<unsigned long>(kNode1 + 64);
  EXPECT_EQ(Thrown([&] { tree.Find(&key, data); }), last);
  EXPECT_EQ(Thrown([&] { Keys(); }), last);
  ExpectDeleteThrows(999, kNode1 + 64);
}

// The buffers left by a search over a cycle must not prevent a new root.
TEST_F(DeepTreeTest, TreeGrowsAfterASearchThatWentTooDeep) {
  PutAll({1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18, 19, 20});
  std::int32_t const rootAddress = head_[f::kHeadRootAddress];
  Words root = Node(rootAddress);
  root[4] = rootAddress;
  WriteNode(rootAddress, root);
  BTree_i tree(library_->Store(), head_.data());
  std::int32_t const lost = 1;
  std::int32_t const* data = nullptr;
  EXPECT_EQ(Thrown([&] { tree.Find(&lost, data); }), static_cast<unsigned long>(rootAddress));
  std::int32_t const key = 21;
  ASSERT_FALSE(tree.Find(&key, data));
  EXPECT_TRUE(tree.Insert(&key, kNull, kNull));
  for (std::int32_t present = 13; present <= 21; ++present) {
    EXPECT_TRUE(tree.Find(&present, data)) << present;
  }
}

// A node that is reached at two depths is in one buffer at a time.
TEST_F(DamagedTreeTest, SharedNodeIsNotWrittenBackFromAnOlderImage) {
  TakeNodes(3);
  head_[f::kHeadRootAddress] = kNode1;
  WriteNode(kNode1, NodeOf({6, 20}, {kNode1 + 1, kNode1 + 2, kNull}));
  WriteNode(kNode1 + 2, NodeOf({5, 15}, {kNull, kNull, kNull}));
  WriteNode(kNode1 + 1, NodeOf({4}, {kNull, kNode1 + 2}));
  BTree_i tree(library_->Store(), head_.data());
  std::int32_t const* data = nullptr;
  std::int32_t* own = nullptr;
  auto const change = [&](std::int32_t key, std::int32_t value) {
    ASSERT_TRUE(tree.Find(&key, data));
    ASSERT_TRUE(tree.GetCurrentData(own));
    *own = value;
    ASSERT_TRUE(tree.WriteCurrentNode());
  };
  std::int32_t const throughBoth = 5;
  ASSERT_TRUE(tree.Find(&throughBoth, data));
  change(15, 1);
  change(5, 2);
  Words const shared = Node(kNode1 + 2);
  EXPECT_EQ(shared[6], 2);
  EXPECT_EQ(shared[9], 1);
}

// An existing library may keep its nodes in a third file, which is opened when it is first read.
TEST_F(DamagedTreeTest, TreeInAFileNotOpenedYetIsWhole) {
  constexpr std::int32_t kThird = 113000001;
  constexpr int kChildren = 40;
  library_->CloseLibFile();
  auto& header = files_.Contents("/t.lb1");
  auto const put = [](auto& bytes, std::size_t word, std::int32_t value) {
    test::PutFileWord(bytes.data() + 4 * word, value);
  };
  put(header, f::kFileCount, 3);
  put(header, f::kFileState + 3, 1);
  put(header, f::kBlockWords + 3, f::kNodeWords);
  auto& third = files_.Contents("/t.lb3");
  Words keys;
  Words links{kThird + 1};
  for (std::int32_t i = 1; i <= kChildren; ++i) {
    keys.push_back(2 * i);
    links.push_back(kThird + 1 + i);
  }
  std::vector<Words> nodes{NodeOf(keys, links)};
  for (std::int32_t i = 0; i <= kChildren; ++i)
    nodes.push_back(NodeOf({2 * i + 1}, {kNull, kNull}));
  for (Words& node : nodes) {
    node.resize(f::kNodeWords);
    for (std::int32_t const word : node) {
      third.resize(third.size() + 4);
      test::PutFileWord(&third[third.size() - 4], word);
    }
  }
  head_[f::kHeadRootAddress] = kThird;
  head_[f::kHeadMaxEntries] = 331;
  auto const open = [&] {
    library_.reset();
    library_ = std::make_unique<LibFile_i>(files_, accUpdate, "/t.lb1", "t");
    ASSERT_EQ(library_->OpenExisting({false, {}}, nullptr), openOk);
  };
  open();
  test::TextStream const stream;
  EXPECT_TRUE(
      BTree_i(library_->Store(), head_.data()).DumpTree(0, stream.Get(), 2 * kChildren + 1));
  open();
  EXPECT_EQ(Keys().size(), 2U * kChildren + 1);
  open();
  BTree_i tree(library_->Store(), head_.data());
  std::int32_t const absent = 999;
  EXPECT_TRUE(tree.Delete(&absent));
  EXPECT_EQ(Keys().size(), 2U * kChildren + 1);
}

}  // namespace
}  // namespace zel

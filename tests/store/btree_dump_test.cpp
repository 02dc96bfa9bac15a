// The exact text of the tree report.
#include <gtest/gtest.h>

#include <string>

#include "store/btree.h"
#include "store/lib_file.h"
#include "tests/support/memory_file_system.h"
#include "tests/support/text_stream.h"

namespace zel {
namespace {

class DumpTest : public ::testing::Test {
 protected:
  DumpTest() : library_(files_, accUpdate, "/t.lb1", "t") { library_.CreateNew(libKind11); }

  void MakeHead(bool indirect, int keyWords, int dataWords, int capacity) {
    InitTreeHead(head_, indirect, keyWords, dataWords, 11);
    head_[format::kHeadMaxEntries] = capacity;
  }
  void Insert(BTree_i& tree, std::int32_t a, std::int32_t b, std::int32_t value) {
    std::int32_t const key[10] = {a, b};
    std::int32_t const* found = nullptr;
    ASSERT_FALSE(tree.Find(key, found));
    tree.Insert(key, format::kNullAddress, format::kNullAddress);
    std::int32_t* data = nullptr;
    ASSERT_TRUE(tree.GetCurrentData(data));
    *data = value;
    tree.WriteCurrentNode();
  }
  std::string Dump(int indent, int expected, bool& verdict) {
    test::TextStream const stream;
    BTree_i tree(library_.Store(), head_);
    verdict = tree.DumpTree(indent, stream.Get(), expected);
    return stream.Text();
  }

  test::MemoryFileSystem files_;
  LibFile_i library_;
  std::int32_t head_[8] = {};
  bool verdict_ = false;
};

TEST_F(DumpTest, SmallTreeWithTwoKeyAndTwoDataWords) {
  MakeHead(false, 2, 2, 4);
  {
    BTree_i tree(library_.Store(), head_);
    for (int i = 1; i <= 5; ++i) Insert(tree, i, -i, i * 16);
  }
  EXPECT_EQ(Dump(2, -1, verdict_),
            "\n"
            "  Node----------  No  Link  Key----------------  Data-------------------  Link\n"
            "   0 (112000003)   1  ( 1)  /00000004/-0000004/  /0x00000040/0x00000000/  ( 2)\n"
            "  --------------  --  ----  -------------------  -----------------------  ----\n"
            "   1 (112000002)   3  (--)  /00000001/-0000001/  /0x00000010/0x00000000/  (--)\n"
            "                            /00000002/-0000002/  /0x00000020/0x00000000/  (--)\n"
            "                            /00000003/-0000003/  /0x00000030/0x00000000/  (--)\n"
            "  --------------  --  ----  -------------------  -----------------------  ----\n"
            "   2 (112000001)   1  (--)  /00000005/-0000005/  /0x00000050/0x00000000/  (--)\n"
            "  --------------  --  ----  -------------------  -----------------------  ----\n"
            "  Total entries    5\n\n");
  EXPECT_TRUE(verdict_);
}

TEST_F(DumpTest, VerdictIsInTheResultOnly) {
  MakeHead(false, 1, 1, 4);
  {
    BTree_i tree(library_.Store(), head_);
    Insert(tree, 1, 0, 1);
  }
  EXPECT_NE(Dump(0, 1, verdict_).find("Total entries    1 - passed\n\n"), std::string::npos);
  EXPECT_TRUE(verdict_);
  EXPECT_NE(Dump(0, 2, verdict_).find("Total entries    1 - passed\n\n"), std::string::npos);
  EXPECT_FALSE(verdict_);
}

TEST_F(DumpTest, EmptyTreeIsMissing) {
  MakeHead(false, 1, 1, 4);
  ::testing::internal::CaptureStdout();
  std::string const text = Dump(0, 0, verdict_);
  EXPECT_EQ(::testing::internal::GetCapturedStdout(), "990000000\n");
  EXPECT_EQ(text,
            "\n"
            "Node----------  No  Link  Key-------  Data--------  Link\n"
            " 0 ( missing )\n"
            "--------------  --  ----  ----------  ------------  ----\n"
            "Total entries    0 - passed\n\n");
  EXPECT_TRUE(verdict_);
}

TEST_F(DumpTest, EmptyLeafShowsNoEntries) {
  MakeHead(false, 1, 1, 4);
  BTree_i tree(library_.Store(), head_);
  Insert(tree, 1, 0, 1);
  std::int32_t const key = 1;
  EXPECT_TRUE(tree.Delete(&key));
  EXPECT_NE(Dump(0, -1, verdict_).find("\n 0 (112000001)   0  (--)\n"), std::string::npos);
}

TEST_F(DumpTest, EmptyNodeWithALinkIsAnError) {
  MakeHead(false, 1, 1, 4);
  BTree_i tree(library_.Store(), head_);
  Insert(tree, 1, 0, 1);
  std::int32_t node[1000] = {0, 990000000, 990000000, 990000000, 112000001};
  std::int32_t address = 112000001;
  library_.WriteBlock(address, 1000, node, 0);
  EXPECT_NE(
      Dump(0, -1, verdict_).find("\n 0 (112000001)   0  **** Error - pointer should be missing\n"),
      std::string::npos);
}

TEST_F(DumpTest, DataColumnsOfAnAddressedTreeRunOnAndStopAtTheNode) {
  MakeHead(true, 1, 250, 331);
  {
    BTree_i tree(library_.Store(), head_);
    for (int i = 1; i <= 331; ++i) Insert(tree, i, 0, i);
  }
  std::string const text = Dump(0, 331, verdict_);
  EXPECT_TRUE(verdict_);
  // The last entry is at words 995 and 996, its link at 997; past the node there are zeros.
  EXPECT_NE(text.find("/00000331/  /0x0000014b/0x3b023380/0x00000000/"), std::string::npos);
}

TEST_F(DumpTest, DataColumnsAreNoneToAThousandWhateverTheHeadSays) {
  auto const count = [](std::string const& text, std::string const& piece) {
    std::size_t n = 0;
    for (std::size_t at = text.find(piece); at != std::string::npos;
         at = text.find(piece, at + 1)) {
      ++n;
    }
    return n;
  };
  MakeHead(false, 1, 1, 4);
  {
    BTree_i tree(library_.Store(), head_);
    Insert(tree, 5, 0, 7);
  }
  struct {
    std::int32_t words;
    std::size_t columns;
  } const rows[] = {{INT32_MIN, 0}, {-1, 0},      {0, 0},       {1, 1},
                    {999, 999},     {1000, 1000}, {1001, 1000}, {INT32_MAX, 1000}};
  for (auto const& row : rows) {
    head_[format::kHeadDataWords] = row.words;
    std::string const text = Dump(0, 1, verdict_);
    EXPECT_TRUE(verdict_);
    EXPECT_EQ(count(text, "/0x"), row.columns) << row.words;
    std::size_t const more = row.columns < 2 ? 0 : row.columns - 1;
    std::string const title = text.substr(1, text.find('\n', 1) - 1);
    EXPECT_EQ(title.size(), std::string("Node----------  No  Link  Key-------").size() +
                                std::string("  Data--------  Link").size() + 11 * more)
        << row.words;
  }
}

TEST_F(DumpTest, PrefixIsLimited) {
  MakeHead(false, 1, 1, 4);
  {
    BTree_i tree(library_.Store(), head_);
    Insert(tree, 1, 0, 1);
  }
  EXPECT_EQ(Dump(50, -1, verdict_).substr(1, 24), std::string(19, ' ') + "Node-");
  EXPECT_EQ(Dump(-5, -1, verdict_).substr(1, 5), "Node-");
}

TEST_F(DumpTest, NodeThatComesBackIsListedOnce) {
  MakeHead(false, 1, 1, 4);
  BTree_i tree(library_.Store(), head_);
  Insert(tree, 1, 0, 1);
  std::int32_t node[1000] = {1, 990000000, 990000000, 990000000, 112000001, 5, 0, 112000001};
  std::int32_t address = 112000001;
  library_.WriteBlock(address, 1000, node, 0);
  std::string const text = Dump(0, -1, verdict_);
  EXPECT_NE(text.find(" 0 (112000001)   1  ( 0)  /00000005/  /0x00000000/  ( 0)\n"),
            std::string::npos);
  EXPECT_NE(text.find("Total entries    1\n"), std::string::npos);
}

TEST_F(DumpTest, LinksThatLeadNowhereDoNotHideTheNodesBehindThem) {
  MakeHead(false, 1, 1, 331);
  BTree_i tree(library_.Store(), head_);
  Insert(tree, 1, 0, 1);
  std::int32_t const leaf[1000] = {1, 990000000, 990000000, 990000000, 990000000, 99, 7, 990000000};
  std::int32_t good = 990000000;
  library_.WriteBlock(good, 1000, leaf, 2);
  ASSERT_EQ(good, 112000002);
  std::int32_t node[1000] = {20, 990000000, 990000000, 990000000, 990000000};
  for (int i = 1; i <= 20; ++i) {
    node[3 * i + 2] = i;
    node[3 * i + 4] = i == 20 ? good : 5 + i;  // no addresses, except the last
  }
  std::int32_t address = 112000001;
  library_.WriteBlock(address, 1000, node, 0);
  std::string const text = Dump(0, 21, verdict_);
  EXPECT_TRUE(verdict_);
  EXPECT_NE(text.find("\n 1 (000000006)   0  (--)\n"), std::string::npos);
  EXPECT_NE(text.find("\n19 (000000024)   0  (--)\n"), std::string::npos);
  EXPECT_NE(text.find("\n20 (112000002)   1  (--)  /00000099/  /0x00000007/  (--)\n"),
            std::string::npos);
}

TEST_F(DumpTest, UnusableHeadThrowsItsRoot) {
  MakeHead(false, 1, 1, 4);
  {
    BTree_i tree(library_.Store(), head_);
    Insert(tree, 1, 0, 1);
  }
  head_[format::kHeadKeyWords] = 11;
  BTree_i tree(library_.Store(), head_);
  EXPECT_THROW(tree.DumpTree(0, stderr, -1), unsigned long);
}

}  // namespace
}  // namespace zel

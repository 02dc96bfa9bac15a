// The integrity check: a sound library has no findings, each kind of damage has its own.
#include <gtest/gtest.h>

#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include "maint/lib_maint.h"
#include "purecomp/record_format.h"
#include "store/bank_key.h"
#include "store/key.h"
#include "store/packed_text.h"
#include "tests/support/sample_component.h"
#include "tests/support/sample_library.h"
#include "zelaccess/Module.h"
#include "zelaccess/Verify.h"

namespace zel {
namespace {

namespace f = format;
using test::kSamplePath;
using test::kSamplePath2;

struct Found {
  zelFindings severity;
  std::string id;
  std::string place;
  std::string text;
};

class Sink final : public ZelFindingSink {
 public:
  void Found(zelFindings severity, char const* id, char const* place, char const* text) override {
    all.push_back({severity, id, place, text});
  }
  // The findings except notes, as "id place", one per line.
  std::string Lines() const {
    std::string lines;
    for (auto const& one : all) {
      if (one.severity != findingNote) lines += one.id + " " + one.place + "\n";
    }
    return lines;
  }
  bool Has(std::string const& id) const {
    for (auto const& one : all) {
      if (one.id == id) return true;
    }
    return false;
  }
  std::vector<zel::Found> all;
};

class VerifyTest : public ::testing::Test, protected test::SampleFiles {
 protected:
  std::unique_ptr<LibFile_i> Open(accModes mode = accRead) {
    auto library = std::make_unique<LibFile_i>(files_, mode, kSamplePath, "sample");
    EXPECT_EQ(library->OpenExisting({false, ""}, nullptr), openOk);
    return library;
  }
  // Returns the result; the findings are in sink_.
  bool Verify() {
    sink_.all.clear();
    auto const library = Open();
    return VerifyLibrary(library.get(), sink_);
  }
  std::size_t HeadOf(char const* type, char const* name) {
    return EntryOf(type, name) + 4 * f::kBankHead;
  }
  // Byte offset of a bank's root node.
  std::size_t RootOf(char const* type, char const* name) {
    std::int32_t const root = Get(kSamplePath2, HeadOf(type, name) + 4 * f::kHeadRootAddress);
    return static_cast<std::size_t>(root % f::kFileFactor - 1) * 4 * f::kNodeWords;
  }
  std::size_t MainBlock() {
    return static_cast<std::size_t>(test::SampleComponentAddress(files_) % f::kFileFactor - 1) * 4 *
           f::kBlockWordsOfFile1;
  }

  Sink sink_;
};

TEST_F(VerifyTest, SoundLibraryGivesNoDamage) {
  EXPECT_TRUE(Verify()) << sink_.Lines();
  for (auto const& one : sink_.all) EXPECT_NE(one.severity, findingDamage) << one.text;
  EXPECT_TRUE(sink_.Has("sizes"));
}

TEST_F(VerifyTest, ChangesNoByte) {
  auto const first = files_.Contents(kSamplePath);
  auto const second = files_.Contents(kSamplePath2);
  Verify();
  EXPECT_EQ(files_.Contents(kSamplePath), first);
  EXPECT_EQ(files_.Contents(kSamplePath2), second);
}

TEST_F(VerifyTest, ClosedOrMissingLibraryIsTold) {
  EXPECT_FALSE(VerifyLibrary(nullptr, sink_));
  auto const library = Open();
  library->CloseLibFile();
  EXPECT_FALSE(VerifyLibrary(library.get(), sink_));
  EXPECT_EQ(sink_.Lines(), "header the library\nheader the library\n");
}

TEST_F(VerifyTest, HeadOfABankThatCannotBeTrue) {
  Put(kSamplePath2, HeadOf("VANLAAR", "B1") + 4 * f::kHeadNodeWords, 999);
  EXPECT_FALSE(Verify());
  EXPECT_EQ(sink_.Lines().substr(0, 22), "tree-head VANLAAR:B1\nb");  // and its node is lost
}

TEST_F(VerifyTest, RecordLengthThatTheTypeDoesNotHave) {
  Put(kSamplePath2, HeadOf("PURECOMP", "B1") + 4 * f::kHeadDataWords, 249);
  EXPECT_FALSE(Verify());
  EXPECT_EQ(sink_.Lines(), "bank PURECOMP:B1\n");
}

TEST_F(VerifyTest, EntryCountThatCannotBe) {
  for (std::int32_t const count : {-1, 249, INT32_MAX, INT32_MIN}) {
    Put(kSamplePath2, RootOf("VANLAAR", "B1"), count);
    EXPECT_FALSE(Verify());
    EXPECT_EQ(sink_.Lines(), "tree-node VANLAAR:B1\n") << count;
  }
}

TEST_F(VerifyTest, SomeLinksThereAndSomeNot) {
  Put(kSamplePath2, RootOf("VANLAAR", "B1") + 4 * f::kNodeLinks, 112000001);
  EXPECT_FALSE(Verify());
  EXPECT_EQ(sink_.Lines(), "tree-links VANLAAR:B1\n");
}

TEST_F(VerifyTest, RootOfAnotherBank) {
  std::int32_t const other = Get(kSamplePath2, HeadOf("NRTL", "B1") + 4 * f::kHeadRootAddress);
  Put(kSamplePath2, HeadOf("WILSON", "B1") + 4 * f::kHeadRootAddress, other);
  EXPECT_FALSE(Verify());
  EXPECT_TRUE(sink_.Has("block-owned-twice")) << sink_.Lines();
  EXPECT_TRUE(sink_.Has("block-leaked")) << sink_.Lines();
}

TEST_F(VerifyTest, RootBehindTheEndOfItsFile) {
  Put(kSamplePath2, HeadOf("WILSON", "B1") + 4 * f::kHeadRootAddress, 112999999);
  EXPECT_FALSE(Verify());
  EXPECT_TRUE(sink_.Has("block-behind-end")) << sink_.Lines();
}

TEST_F(VerifyTest, RootInFreeRoom) {
  // The endless tail of the second file is changed to begin one block too early.
  std::int32_t const table = 4 * f::kBlockWordsOfFile1;
  for (int i = 0; i < 2; ++i) {
    std::size_t const at = static_cast<std::size_t>(table + 4 * (f::kExtentAddresses + i));
    std::int32_t const address = Get(kSamplePath, at);
    if (address / f::kFileFactor % 10 == 2) Put(kSamplePath, at, address - 1);
  }
  EXPECT_FALSE(Verify());
  EXPECT_TRUE(sink_.Has("block-free-and-used")) << sink_.Lines();
}

TEST_F(VerifyTest, ExtentsThatCannotBeTrue) {
  Put(kSamplePath, 4 * f::kBlockWordsOfFile1, 40);
  EXPECT_FALSE(Verify());
  EXPECT_EQ(sink_.Lines(), "extent the block table\n");
}

TEST_F(VerifyTest, TailOfAFileLost) {
  Put(kSamplePath, 4 * (f::kBlockWordsOfFile1 + f::kExtentSizes), 5);
  EXPECT_FALSE(Verify());
  EXPECT_TRUE(sink_.Has("extent")) << sink_.Lines();
}

TEST_F(VerifyTest, MemoOfTooManyWords) {
  auto const library = Open(accUpdate);
  library->SetMemo("a memo");
  library->CloseLibFile();
  Put(kSamplePath, 4 * f::kMemoWords, 1001);
  EXPECT_FALSE(Verify());
  EXPECT_TRUE(sink_.Has("memo")) << sink_.Lines();
}

TEST_F(VerifyTest, KeysOutOfOrder) {
  {
    auto const library = Open(accUpdate);
    LibMaint_i maint(library.get());
    IZelBankDef* const bank = NewBank("VANLAAR");
    Key* key = Key::NewKey();
    for (long number = 5; number < 12; ++number) {
      key->SetKey(10000000 + number, 20000000L);
      EXPECT_TRUE(maint.WriteItem(bank, "B1", key));
    }
    Key::DelKey(key);
    bank->Release();
  }
  EXPECT_TRUE(Verify());
  Put(kSamplePath2, RootOf("VANLAAR", "B1") + 4 * f::kNodeEntries, 10000999);
  EXPECT_FALSE(Verify());
  EXPECT_EQ(sink_.Lines(), "tree-order VANLAAR:B1\n");
}

TEST_F(VerifyTest, LeafAtAnotherDepth) {
  // A root with two leaves; then the second leaf gets a child.
  SetDeleteTestFlag(true);
  std::int32_t second = 0;
  {
    auto const library = Open(accUpdate);
    LibMaint_i maint(library.get());
    ASSERT_TRUE(maint.CreateBank("VANLAAR", "DEEP", 0));
    IZelBankDef* const bank = NewBank("VANLAAR");
    Key* key = Key::NewKey();
    for (long number = 1; number < 30; ++number) {
      key->SetKey(10000000 + number, 20000000L);
      EXPECT_TRUE(maint.WriteItem(bank, "DEEP", key));
    }
    Key::DelKey(key);
    bank->Release();
  }
  SetDeleteTestFlag(false);
  ASSERT_TRUE(Verify()) << sink_.Lines();
  std::size_t const root = RootOf("VANLAAR", "DEEP");
  std::int32_t const left = Get(kSamplePath2, root + 4 * f::kNodeLinks);
  std::size_t const child = static_cast<std::size_t>(left % f::kFileFactor - 1) * 4 * f::kNodeWords;
  second = Get(kSamplePath2, child + 4 * f::kNodeLinks);
  ASSERT_NE(second, f::kNullAddress);
  Put(kSamplePath2, root + 4 * f::kNodeLinks, second);  // a leaf where an inner node was
  EXPECT_FALSE(Verify());
  EXPECT_TRUE(sink_.Has("tree-depth")) << sink_.Lines();
  EXPECT_TRUE(sink_.Has("block-leaked")) << sink_.Lines();
}

TEST_F(VerifyTest, NodeThatIsItsOwnChild) {
  std::int32_t const root = Get(kSamplePath2, HeadOf("VANLAAR", "B1") + 4 * f::kHeadRootAddress);
  std::size_t const node = RootOf("VANLAAR", "B1");
  std::int32_t const width =
      Get(kSamplePath2, HeadOf("VANLAAR", "B1") + 4 * f::kHeadEntryWords) + 1;
  Put(kSamplePath2, node + 4 * f::kNodeLinks, root);
  Put(kSamplePath2, node + 4 * static_cast<std::size_t>(f::kNodeLinks + width), root);
  EXPECT_FALSE(Verify());
  EXPECT_TRUE(sink_.Has("block-owned-twice")) << sink_.Lines();
}

TEST_F(VerifyTest, RecordOfAnotherComponent) {
  Put(kSamplePath, MainBlock(), 4711);
  EXPECT_FALSE(Verify());
  EXPECT_TRUE(sink_.Has("item")) << sink_.Lines();
}

TEST_F(VerifyTest, ConstantThatIsNoNumber) {
  Put(kSamplePath, MainBlock() + 4 * record::kConstants, 0x7FC00000);
  EXPECT_FALSE(Verify());
  EXPECT_TRUE(sink_.Has("item")) << sink_.Lines();
}

TEST_F(VerifyTest, FieldThatIsNoNumber) {
  std::size_t const node = RootOf("VANLAAR", "B1");
  // tMin, the fifth word of the record, after two key words.
  Put(kSamplePath2, node + 4 * (f::kNodeEntries + 6), 0x7FC00000);
  EXPECT_FALSE(Verify());
  EXPECT_EQ(sink_.Lines(), "item VANLAAR:B1\n");
}

TEST_F(VerifyTest, IdentifiersThatAreNotInTheirTrees) {
  ASSERT_TRUE(Verify());
  std::string const before = sink_.Lines();
  // The component gets other identifiers without a change of the trees.
  Put(kSamplePath, MainBlock() + 4 * record::kCasNumber, 7732185);
  Put(kSamplePath, MainBlock() + 4 * record::kIds, 12345678);
  EXPECT_TRUE(Verify()) << "warnings alone";
  EXPECT_NE(sink_.Lines(), before);
  EXPECT_TRUE(sink_.Has("identifier-missing")) << sink_.Lines();
}

// The trees of identifiers must agree with the component itself.
TEST_F(VerifyTest, IdentifierOfAnotherComponent) {
  {
    auto const library = Open(accUpdate);
    LibMaint_i maint(library.get());
    test::ComponentBank other;
    Key* key = Key::NewKey();
    key->SetKey(4711L);
    char ids[12][9] = {"OTHERID"};
    other->SetIdentity(4711, 7732185, 0, ids, "OTHER", "C2H6O", 0);
    ASSERT_TRUE(maint.WriteItem(other.Def(), "B1", key));
    Key::DelKey(key);
  }
  ASSERT_TRUE(Verify()) << sink_.Lines();
  std::int32_t id[2];
  TextToWords("OTHERID", id, 2);
  std::int32_t const entries[][3] = {{id[0], id[1], 4711}, {7732185, 4711, 0}};
  for (int tree = 0; tree < 2; ++tree) {
    auto& bytes = files_.Contents(kSamplePath2);
    std::size_t const length = tree == 0 ? 12 : 8;
    std::size_t at = 0;
    while (at + length <= bytes.size() &&
           std::memcmp(bytes.data() + at, entries[tree], length) != 0) {
      at += 4;
    }
    ASSERT_LE(at + length, bytes.size()) << tree;
    Put(kSamplePath2, at + length - 4, test::kSampleComponent);
    EXPECT_EQ(Verify(), tree == 1);
    EXPECT_TRUE(sink_.Has(tree == 0 ? "identifier-wrong" : "identifier-stale")) << sink_.Lines();
    Put(kSamplePath2, at + length - 4, 4712);
    Verify();
    EXPECT_TRUE(sink_.Has(tree == 0 ? "identifier-wrong" : "identifier-stale")) << sink_.Lines();
    Put(kSamplePath2, at + length - 4, 4711);
  }
}

TEST_F(VerifyTest, IdOfAComponentThatIsGone) {
  {
    auto const library = Open(accUpdate);
    LibMaint_i maint(library.get());
    Key* key = Key::NewKey();
    key->SetKey(static_cast<long>(test::kSampleComponent));
    EXPECT_TRUE(maint.DeleteItem("PURECOMP", "B1", key));
    Key::DelKey(key);
  }
  EXPECT_TRUE(Verify());
  EXPECT_TRUE(sink_.Has("identifier-stale")) << sink_.Lines();
  EXPECT_TRUE(sink_.Has("block-leaked")) << sink_.Lines();
}

TEST_F(VerifyTest, BlocksOfADeletedBankAreLeaked) {
  {
    auto const library = Open(accUpdate);
    LibMaint_i maint(library.get());
    EXPECT_TRUE(maint.DeleteBank("VANLAAR", "B1"));
  }
  EXPECT_TRUE(Verify());
  EXPECT_TRUE(sink_.Has("block-leaked")) << sink_.Lines();
}

TEST_F(VerifyTest, RoomOfAFileThatNobodyAskedForYet) {
  ZelFileRoom room;
  EXPECT_TRUE(GetFileRoom(Open().get(), 2, room));
  EXPECT_GT(room.blocks, 0);
}

TEST_F(VerifyTest, RoomOfTheFiles) {
  ZelFileRoom room;
  auto const library = Open(accUpdate);
  ASSERT_TRUE(GetFileRoom(library.get(), 1, room));
  EXPECT_EQ(room.blockBytes, 4 * f::kBlockWordsOfFile1);
  std::int64_t const freeBefore = room.freeBlocks;
  std::int32_t const runsBefore = room.freeRuns;
  std::int64_t const blocksBefore = room.blocks;
  // A run of three blocks becomes free in front of another one.
  std::vector<std::int32_t> const words(static_cast<std::size_t>(3 * f::kBlockWordsOfFile1), 7);
  std::int32_t address = f::kNullAddress;
  std::int32_t behind = f::kNullAddress;
  auto const length = static_cast<std::int32_t>(words.size());
  library->WriteBlock(address, length, words.data(), 1);
  library->WriteBlock(behind, length, words.data(), 1);
  ASSERT_TRUE(GetFileRoom(library.get(), 1, room));
  EXPECT_EQ(room.blocks, blocksBefore + 6);
  library->FreeBlock(address, length);
  ASSERT_TRUE(GetFileRoom(library.get(), 1, room));
  EXPECT_EQ(room.freeBlocks, freeBefore + 3);
  EXPECT_EQ(room.freeRuns, runsBefore + 1);
  ASSERT_TRUE(GetFileRoom(library.get(), 2, room));
  EXPECT_EQ(room.blockBytes, 4 * f::kNodeWords);
  for (std::int32_t const file : {-1, 0, 3, 9, 10}) {
    EXPECT_FALSE(GetFileRoom(library.get(), file, room)) << file;
  }
  EXPECT_FALSE(GetFileRoom(nullptr, 1, room));
  library->CloseLibFile();
  EXPECT_FALSE(GetFileRoom(library.get(), 1, room));
}

// Whatever the bytes are, the check ends and does not throw.
TEST_F(VerifyTest, EveryThirteenthBitFlipped) {
  for (char const* path : {kSamplePath, kSamplePath2}) {
    auto& bytes = files_.Contents(path);
    std::size_t const used = bytes.size();
    for (std::size_t bit = 0; bit < used * 8; bit += 13 * 97) {
      bytes[bit / 8] ^= static_cast<std::byte>(1U << (bit % 8));
      sink_.all.clear();
      LibFile_i library(files_, accRead, kSamplePath, "sample");
      bool opened = false;
      try {
        opened = library.OpenExisting({false, ""}, nullptr) == openOk;
      } catch (unsigned long) {
      }
      if (opened) {
        EXPECT_NO_THROW(VerifyLibrary(&library, sink_)) << path << " bit " << bit;
      }
      bytes[bit / 8] ^= static_cast<std::byte>(1U << (bit % 8));
    }
  }
}

TEST_F(VerifyTest, FilesCutShort) {
  for (char const* path : {kSamplePath, kSamplePath2}) {
    auto const whole = files_.Contents(path);
    for (std::size_t length = 0; length < whole.size(); length += 997) {
      files_.Contents(path).resize(length);
      LibFile_i library(files_, accRead, kSamplePath, "sample");
      bool opened = false;
      try {
        opened = library.OpenExisting({false, ""}, nullptr) == openOk;
      } catch (unsigned long) {
      }
      bool sound = false;
      if (opened) {
        EXPECT_NO_THROW(sound = VerifyLibrary(&library, sink_));
      }
      EXPECT_FALSE(sound) << path << " of " << length << " bytes";
      library.CloseLibFile();
      files_.Contents(path) = whole;
    }
  }
}

}  // namespace
}  // namespace zel

// Pure components read and written by LibMaint, and the identifiers that are entered with them.
#include <cstring>
#include <string>

#include "frame/ascii.h"
#include "tests/maint/maint_fixture.h"
#include "tests/support/file_words.h"
#include "tests/support/sample_component.h"

namespace zel {
namespace {

using test::ComponentBank;

class ComponentsTest : public test::MaintTest {
 protected:
  ComponentsTest() { EXPECT_TRUE(Maint().CreateBank("PURECOMP", "PURE", 0)); }

  bool Write(std::int32_t number, std::int32_t cas, std::initializer_list<char const*> ids,
             double mw = 46.0) {
    char texts[12][9] = {};
    std::size_t n = 0;
    for (char const* id : ids) CopyText(id, texts[n++], sizeof texts[0]);
    bank_.Io()->Clear();
    bank_->SetIdentity(number, cas, 0, texts, "A NAME", "C2H6O", 0);
    bank_->SetProperty(0, mw);
    key_.SetKey(static_cast<long>(number));
    return Maint().WriteItem(bank_.Def(), "PURE", &key_);
  }
  template <typename Part>
  bool Read(Part part) {
    key_.SetKey(part);
    return Maint().ReadItem(bank_.Def(), "PURE", &key_);
  }
  double Mw() {
    double mw = 0.0;
    bank_->GetProperty(0, &mw);
    return mw;
  }

  ComponentBank bank_;
};

TEST_F(ComponentsTest, ComponentIsFoundByNumberIdAndCasNumber) {
  ASSERT_TRUE(Write(10000007, 64175, {"ETHANOL", "ETOH"}));
  ASSERT_TRUE(Write(10000326, 7732185, {"WATER"}, 18.0));
  Reopen(accRead);
  EXPECT_TRUE(Read(10000007L));
  EXPECT_EQ(Mw(), 46.0);
  EXPECT_TRUE(Read("etoh"));
  EXPECT_TRUE(Read("ETHANOL"));
  EXPECT_EQ(Mw(), 46.0);
  EXPECT_TRUE(Read(casn("7732-18-5")));
  EXPECT_EQ(Mw(), 18.0);
  EXPECT_FALSE(Read("METHANOL"));
  EXPECT_EQ(Maint().Log().PendingText(), "Unable to identify components used in key");
  EXPECT_EQ(Maint().FindNumberById("water"), 10000326);
  EXPECT_EQ(Maint().FindNumberByCas(casn("64-17-5")), 10000007);
}

TEST_F(ComponentsTest, WholeComponentComesBack) {
  test::FillComponent(bank_.Get());
  key_.SetKey(10000123L);
  ASSERT_TRUE(Maint().WriteItem(bank_.Def(), "PURE", &key_));
  ASSERT_TRUE(Read("ID12"));
  ComponentBank again;
  ASSERT_TRUE(Maint().ReadItem(again.Def(), "PURE", &key_));
  EXPECT_EQ(test::TextOf(bank_.Get()), test::TextOf(again.Get()));
  char text[260];
  std::uint8_t flag = 9;
  bank_->GetPropertySource(0, text, &flag);
  EXPECT_STREQ(text, "Mine:PURE");
}

TEST_F(ComponentsTest, EntriesOfIdentifiersAreNeverChanged) {
  ASSERT_TRUE(Write(100, 64175, {"ONE", "SHARED"}));
  ASSERT_FALSE(Write(200, 64175, {"TWO", "shared"})) << "an identifier means one component";
  ASSERT_TRUE(Write(200, 64175, {"TWO"}));
  EXPECT_EQ(Maint().FindNumberById("ONE"), 100);
  EXPECT_EQ(Maint().FindNumberById("SHARED"), 100) << "still the first";
  EXPECT_EQ(Maint().FindNumberById("TWO"), 200);
  EXPECT_EQ(Maint().FindNumberByCas(casn("64-17-5")), 100);
  key_.SetKey(100L);
  ASSERT_TRUE(Maint().DeleteItem("PURECOMP", "PURE", &key_));
  EXPECT_EQ(Maint().FindNumberById("ONE"), 100) << "and it stays when its component goes";
}

TEST_F(ComponentsTest, RewritingEntersNewIdentifiersToo) {
  ASSERT_TRUE(Write(100, 0, {"ONE"}));
  ASSERT_TRUE(Read(100L));
  char const ids[12][9] = {"ONE", "second"};
  bank_->SetIdentity(100, 64175, 0, ids, "A NAME", "C2H6O", 0);
  ASSERT_TRUE(Maint().RewriteItem(bank_.Def()));
  EXPECT_EQ(Maint().FindNumberById("SECOND"), 100);
  EXPECT_EQ(Maint().FindNumberByCas(casn("64-17-5")), 100);
}

// Entering the identifiers of a component does not change which item is the current one.
TEST_F(ComponentsTest, WrittenComponentIsTheItemAtHand) {
  for (double const mw : {18.0, 32.0}) {  // a new item, then an existing one
    ASSERT_TRUE(Write(100, 64175, {"ONE", "TWO"}, mw));
    bank_->SetProperty(0, mw + 0.5);
    char const ids[12][9] = {"ONE", "TWO", "THREE"};
    bank_->SetIdentity(100, 64175, 0, ids, "A NAME", "C2H6O", 0);
    ASSERT_TRUE(Maint().RewriteItem(bank_.Def()));
    Reopen(accUpdate);
    ASSERT_TRUE(Read(100L));
    EXPECT_EQ(Mw(), mw + 0.5);
    EXPECT_EQ(Maint().FindNumberById("THREE"), 100);
  }
}

// An index that cannot be read gets no new entries, since they would be in the wrong place. The
// record itself has been written by then.
TEST_F(ComponentsTest, IndexThatCannotBeReadEndsAWrite) {
  constexpr int kTrees[] = {1, 2};  // character IDs, CAS numbers
  constexpr std::int32_t kNowhere = 112'999'999;
  ASSERT_TRUE(Write(100, 64175, {"ONE"}));
  for (int const tree : kTrees) {
    Library().CloseLibFile();
    std::byte* const file1 = files_.Contents("/m.lb1").data();
    std::int32_t const address =
        test::FileWord(file1 + format::kWordBytes * format::kTreeHeadsAddress);
    std::int32_t const head =
        (address % format::kFileFactor - 1) * format::kBlockWordsOfFile1 + tree * 8;
    std::byte* const root = file1 + format::kWordBytes * (head + format::kHeadRootAddress);
    std::int32_t whole = 0;
    std::memcpy(&whole, root, sizeof whole);
    test::PutFileWord(root, kNowhere);
    Reopen(accUpdate);
    std::int32_t const number = 200 + tree;
    std::string const id = "NEW" + std::to_string(tree);
    EXPECT_THROW(Write(number, 7732185, {id.c_str()}, 18.0), unsigned long) << tree;
    BTree_i* const damaged = tree == 1 ? Library().GetCharIdTree() : Library().GetCasTree();
    EXPECT_EQ(damaged->Head().rootAddress, kNowhere) << "left as it is";
    EXPECT_TRUE(Read(static_cast<long>(number)));
    Library().CloseLibFile();
    std::memcpy(files_.Contents("/m.lb1").data() + (root - file1), &whole, sizeof whole);
    Reopen(accUpdate);
    EXPECT_EQ(Maint().FindNumberById("ONE"), 100);
    EXPECT_EQ(Maint().FindNumberByCas(casn("64-17-5")), 100);
  }
}

TEST_F(ComponentsTest, CasNumberThatIsNoneIsPassedOver) {
  ASSERT_TRUE(Write(100, 64176, {"ONE"}));
  ASSERT_TRUE(Write(200, 0, {"TWO"}));
  EXPECT_EQ(Library().GetCasTree()->Head().rootAddress, 990000000) << "nothing was entered";
  ASSERT_TRUE(Write(300, 64175, {"THREE"}));
  EXPECT_EQ(Maint().FindNumberByCas(casn("64-17-5")), 300) << "the tree is in order";
  Maint().BeginIdWalk();
  std::string ids;
  std::int32_t number = 0;
  char id[9];
  while (Maint().NextId(number, id)) ids += std::string(id) + " ";
  EXPECT_EQ(ids, "ONE THREE TWO ");
}

TEST_F(ComponentsTest, HundredsOfComponentsGrowAllTrees) {
  constexpr int kCount = 900;
  for (int i = 0; i < kCount; ++i) {
    std::string const id = "C" + std::to_string(i * 7919 % kCount);
    ASSERT_TRUE(Write(1000 + i * 7919 % kCount, 0, {id.c_str(), ("X" + id).c_str()}));
  }
  Reopen(accRead);
  for (int i = 0; i < kCount; ++i) {
    EXPECT_EQ(Maint().FindNumberById(("XC" + std::to_string(i)).c_str()), 1000 + i);
    EXPECT_TRUE(Read(static_cast<long>(1000 + i)));
  }
  Maint().BeginItemWalk("PURECOMP", "PURE");
  std::int32_t words[10];
  int items = 0;
  while (Maint().NextItem(words, bank_.Def())) EXPECT_EQ(words[0], 1000 + items++);
  EXPECT_EQ(items, kCount);
}

// Puts another word into the entry of a component in bank PURE.
void PatchEntry(LibFile_i& library, std::int32_t number, std::int32_t word) {
  std::int32_t const* found = nullptr;
  ASSERT_TRUE(library.FindBank("PURECOMP", "PURE", found, false));
  std::int32_t head[format::kHeadWords];
  std::copy_n(found + format::kBankHead, format::kHeadWords, head);
  BTree_i tree(library.Store(), head);
  std::int32_t const key[10] = {number};
  ASSERT_TRUE(tree.Find(key, found));
  std::int32_t* entry = nullptr;
  ASSERT_TRUE(tree.GetCurrentData(entry));
  *entry = word;
  ASSERT_TRUE(tree.WriteCurrentNode());
}

// A write that is interrupted between the entry and the record leaves an entry without an address.
TEST_F(ComponentsTest, EntryWithoutARecordIsMended) {
  ASSERT_TRUE(Write(100, 0, {"ONE"}));
  for (std::int32_t address : {0, 990000000}) {
    PatchEntry(Library(), 100, address);
    ASSERT_TRUE(Write(100, 0, {"ONE"}, 58.0));
    Reopen(accUpdate);
    ASSERT_TRUE(Read(100L)) << address;
    EXPECT_EQ(Mw(), 58.0) << address;
  }
}

// The data of a component are in other blocks: its entry needs one word for the address, and has
// none here.
TEST_F(ComponentsTest, EntryWithoutAWordForTheAddressIsNotRead) {
  ASSERT_TRUE(Write(100, 0, {"ONE"}));
  std::int32_t const* found = nullptr;
  ASSERT_TRUE(Library().FindBank("PURECOMP", "PURE", found, false));
  std::int32_t* entry = nullptr;
  ASSERT_TRUE(Library().GetBankTree()->GetCurrentData(entry));
  std::int32_t* const head = entry + format::kBankHead;
  std::int32_t& entryWords = head[format::kHeadEntryWords];
  ASSERT_EQ(entryWords, 2);
  entryWords = 1;
  EXPECT_FALSE(Read(100L));
  EXPECT_EQ(Maint().Log().PendingText(), "Incorrect data block length");
}

TEST_F(ComponentsTest, ReaderOfAProtectedLibrarySeesTheFlag) {
  ASSERT_TRUE(Write(100, 0, {"ONE"}));
  Library().SetPassword(2, "SECRET");
  ASSERT_TRUE(Read(100L));
  char text[260];
  std::uint8_t flag = 0;
  bank_->GetPropertySource(0, text, &flag);
  EXPECT_EQ(flag, 1);
}

TEST_F(ComponentsTest, WritingInALibraryOpenForReadingThrows) {
  ASSERT_TRUE(Write(100, 0, {"ONE"}));
  Reopen(accRead);
  ASSERT_TRUE(Read(100L));
  EXPECT_THROW(Maint().WriteItem(bank_.Def(), "PURE", &key_), unsigned long);
  EXPECT_TRUE(Read(100L));
}

}  // namespace
}  // namespace zel

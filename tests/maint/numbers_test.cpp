// Component numbers: looking them up, and assigning new ones.
#include "tests/maint/maint_fixture.h"

namespace zel {
namespace {

class NumbersTest : public test::MaintTest {
 protected:
  NumbersTest() : index_(indexFiles_, accUpdate, "/i.lb1", "Index") { index_.CreateNew(libKind12); }

  test::MemoryFileSystem indexFiles_;
  LibFile_i index_;
};

TEST_F(NumbersTest, LibraryIsAskedBeforeTheNameIndex) {
  AddCas(64175, 7);
  AddId("ETHANOL", 7);
  std::int32_t cas[10] = {7732185};
  AddTo(*index_.GetCasTree(), cas, 12);
  cas[0] = 64175;
  AddTo(*index_.GetCasTree(), cas, 99);
  bool fromIndex = true;
  EXPECT_EQ(Maint().FindNumberByCas(casn("64-17-5"), fromIndex), 7);
  EXPECT_FALSE(fromIndex);
  EXPECT_EQ(Maint().FindNumberById("ethanol", fromIndex), 7);
  EXPECT_EQ(Maint().FindNumberByCas(casn("7732-18-5"), fromIndex), 0) << "no name index";
  LibFile::SetOrdwinNameIndex(&index_);
  EXPECT_EQ(Maint().FindNumberByCas(casn("7732-18-5"), fromIndex), 12);
  EXPECT_TRUE(fromIndex);
  EXPECT_EQ(Maint().FindNumberByCas(casn("7732-18-5")), 12);
  EXPECT_EQ(Maint().FindNumberById("NOBODY", fromIndex), 0);
  EXPECT_FALSE(fromIndex);
  EXPECT_EQ(Maint().FindNumberById("NOBODY"), 0);
  EXPECT_EQ(Maint().FindNumberById("TOOLONGID"), 0);
}

TEST_F(NumbersTest, NewNumbersStartAtTheHostsOwn) {
  EXPECT_EQ(Maint().NextComponentNumber(), 21000000);
  EXPECT_EQ(Maint().NextComponentNumber(), 21000001);
}

TEST_F(NumbersTest, TakenNumbersArePassedOver) {
  AddId("MINE", 21000000);
  AddId("OTHER", 12);
  std::int32_t id[10] = {1, 2};
  AddTo(*index_.GetCharIdTree(), id, 21000001);
  LibFile::SetOrdwinNameIndex(&index_);
  EXPECT_EQ(Maint().NextComponentNumber(), 21000002);
  LibFile::ClearOrdwinNameIndex();
  Maint().CollectUsedNumbers();
  EXPECT_EQ(Maint().NextComponentNumber(), 21000001);
}

TEST_F(NumbersTest, NumbersEnteredLaterAreSeenOnlyByCollectingAnew) {
  EXPECT_EQ(Maint().NextComponentNumber(), 21000000);
  AddId("LATER", 21000001);
  EXPECT_EQ(Maint().NextComponentNumber(), 21000001);
  Maint().CollectUsedNumbers();
  EXPECT_EQ(Maint().NextComponentNumber(), 21000000) << "given out, and never entered";
  EXPECT_EQ(Maint().NextComponentNumber(), 21000002);
}

TEST_F(NumbersTest, LibMaintOnAClosedLibraryAnswersNothing) {
  Library().CloseLibFile();
  EXPECT_EQ(Maint().FindNumberById("X"), 0);
  EXPECT_FALSE(Maint().BankExists("NRTL", "A"));
  EXPECT_FALSE(Maint().CreateBank("NRTL", "A", 0));
  EXPECT_FALSE(Maint().DeleteBank("NRTL", "A"));
  EXPECT_FALSE(Maint().ReadItem(vanLaar_.Get(), "A", &key_));
  char type[9];
  char name[9];
  Maint().BeginBankWalk();
  EXPECT_FALSE(Maint().NextBank(type, name));
  EXPECT_EQ(Maint().NextComponentNumber(), 21000000);
}

TEST_F(NumbersTest, LibMaintOnNoLibraryAnswersNothing) {
  LibMaint_i none(nullptr);
  EXPECT_FALSE(none.BankExists("NRTL", "A"));
  EXPECT_FALSE(none.CreateBank("NRTL", "A", 0));
  EXPECT_FALSE(none.WriteItem(vanLaar_.Get(), "A", &key_));
  EXPECT_EQ(none.FindNumberByCas(casn("64-17-5")), 0);
}

}  // namespace
}  // namespace zel

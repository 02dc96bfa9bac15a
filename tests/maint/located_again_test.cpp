// A bank that was located before is not searched for again, and what was remembered of it is given
// up as soon as something else could have changed it.
#include <array>
#include <optional>

#include "tests/maint/maint_fixture.h"
#include "zelaccess/Module.h"

namespace zel {
namespace {

class LocatedAgainTest : public test::MaintTest {
 protected:
  LocatedAgainTest() {
    SetDeleteTestFlag(true);  // few entries make a deep tree
    for (char const* name : {"A", "B"}) Maint().CreateBank("VANLAAR", name, 0);
    SetDeleteTestFlag(false);
  }

  bool Write(LibMaint_i& maint, char const* name, long number, double aij) {
    key_.SetKey(number, 1000L);
    SetAij(aij, 0);
    return maint.WriteItem(vanLaar_.Get(), name, &key_);
  }
  // The stored aij; -1 for an item that is not there.
  double Read(LibMaint_i& maint, char const* name, long number) {
    key_.SetKey(number, 1000L);
    return maint.ReadItem(vanLaar_.Get(), name, &key_) ? Aij() : -1.0;
  }
  bool Exists(LibMaint_i& maint, char const* name, long number) {
    key_.SetKey(number, 1000L);
    return maint.ItemExists(vanLaar_.Get(), name, &key_);
  }
  bool Delete(LibMaint_i& maint, char const* name, long number) {
    key_.SetKey(number, 1000L);
    return maint.DeleteItem("VANLAAR", name, &key_);
  }
};

TEST_F(LocatedAgainTest, ReaderSearchesTheDirectoryOnceForEachBank) {
  for (long i = 1; i <= 20; ++i) {
    Write(Maint(), "A", i, double(i));
    Write(Maint(), "B", i, double(100 + i));
  }
  Reopen(accRead);
  EXPECT_EQ(Read(Maint(), "A", 1), 1.0);
  EXPECT_EQ(Read(Maint(), "B", 1), 101.0);
  std::uint64_t const searches = Library().DirectorySearches();
  for (long i = 2; i <= 20; ++i) {
    EXPECT_EQ(Read(Maint(), "A", i), double(i));
    EXPECT_EQ(Read(Maint(), "B", i), double(100 + i));
    EXPECT_TRUE(Exists(Maint(), "A", i));
    EXPECT_FALSE(Exists(Maint(), "A", 100 + i));
  }
  EXPECT_EQ(Library().DirectorySearches(), searches);
}

TEST_F(LocatedAgainTest, WriterSearchesTheDirectoryOnlyWhenTheRootMoves) {
  Write(Maint(), "A", 1, 1.0);
  std::uint64_t const searches = Library().DirectorySearches();
  for (long i = 2; i <= 60; ++i) ASSERT_TRUE(Write(Maint(), "A", i, double(i)));
  // Each new level stores the head, which finds the entry by one or two searches.
  EXPECT_LE(Library().DirectorySearches() - searches, 2U * 6U);
  Reopen(accRead);
  for (long i = 1; i <= 60; ++i) EXPECT_EQ(Read(Maint(), "A", i), double(i));
}

TEST_F(LocatedAgainTest, WritesOfAnotherObjectAreSeen) {
  LibMaint_i other(library_.get());
  for (long i = 1; i <= 40; ++i) {
    EXPECT_EQ(Read(Maint(), "A", i), -1.0);
    ASSERT_TRUE(Write(other, "A", i, double(i)));
    EXPECT_EQ(Read(Maint(), "A", i), double(i));
    ASSERT_TRUE(Write(Maint(), "A", 100 + i, double(100 + i)));
    EXPECT_EQ(Read(other, "A", 100 + i), double(100 + i));
  }
  for (long i = 1; i <= 40; ++i) {
    EXPECT_EQ(Read(Maint(), "A", i), double(i));
    EXPECT_EQ(Read(other, "A", 100 + i), double(100 + i));
  }
}

TEST_F(LocatedAgainTest, DeletesOfAnotherObjectAreSeenRebuildsToo) {
  LibMaint_i other(library_.get());
  for (long i = 1; i <= 60; ++i) Write(Maint(), "A", i, double(i));
  for (long gone = 1; gone <= 60; ++gone) {
    EXPECT_TRUE(Exists(Maint(), "A", gone));
    ASSERT_TRUE(Delete(other, "A", gone));
    EXPECT_FALSE(Exists(Maint(), "A", gone));
    for (long i = gone + 1; i <= 60; ++i) ASSERT_EQ(Read(Maint(), "A", i), double(i)) << gone;
  }
}

TEST_F(LocatedAgainTest, OwnDeletesAndRebuildsAreSeen) {
  for (long i = 1; i <= 60; ++i) Write(Maint(), "A", i, double(i));
  for (long gone = 60; gone >= 1; --gone) {
    ASSERT_TRUE(Delete(Maint(), "A", gone));
    EXPECT_FALSE(Exists(Maint(), "A", gone));
    EXPECT_FALSE(Delete(Maint(), "A", gone));
    for (long i = 1; i < gone; ++i) ASSERT_EQ(Read(Maint(), "A", i), double(i)) << gone;
  }
  EXPECT_TRUE(Write(Maint(), "A", 7, 7.0));
  EXPECT_EQ(Read(Maint(), "A", 7), 7.0);
}

TEST_F(LocatedAgainTest, DeletesOfSeveralTypesTakeTurns) {
  Maint().CreateBank("NRTL", "A", 0);
  FaceRef<IZelBankDef> const nrtl(NewBank("NRTL"));
  Key_i key;
  key.SetKey(1L, 1000L);
  for (int round = 0; round < 3; ++round) {
    ASSERT_TRUE(Write(Maint(), "A", 1, 1.0));
    ASSERT_TRUE(Maint().WriteItem(nrtl.Get(), "A", &key));
    EXPECT_FALSE(Maint().DeleteItem("NOTYPE", "A", &key));
    EXPECT_FALSE(Maint().DeleteItem(nullptr, "A", &key));
    EXPECT_TRUE(Maint().DeleteItem("NRTL", "A", &key));
    EXPECT_TRUE(Exists(Maint(), "A", 1));
    EXPECT_FALSE(Maint().DeleteItem("nrtl", "A", &key)) << "gone";
    EXPECT_TRUE(Delete(Maint(), "A", 1));
    EXPECT_FALSE(Maint().ItemExists(nrtl.Get(), "A", &key));
    EXPECT_FALSE(Exists(Maint(), "A", 1));
  }
}

TEST_F(LocatedAgainTest, BankThatIsDeletedAndMadeAgainIsNew) {
  LibMaint_i other(library_.get());
  ASSERT_TRUE(Write(Maint(), "A", 1, 1.0));
  ASSERT_TRUE(other.DeleteBank("VANLAAR", "A"));
  EXPECT_FALSE(Exists(Maint(), "A", 1));
  EXPECT_FALSE(Write(Maint(), "A", 2, 2.0));
  EXPECT_STREQ(std::string(Maint().Log().PendingText()).c_str(),
               "Unable to locate \"VANLAAR\" bank \"A\"");
  ASSERT_TRUE(other.CreateBank("VANLAAR", "A", 0));
  EXPECT_FALSE(Exists(Maint(), "A", 1));
  ASSERT_TRUE(Write(Maint(), "A", 3, 3.0));
  ASSERT_TRUE(Maint().DeleteBank("VANLAAR", "A"));
  EXPECT_FALSE(Exists(Maint(), "A", 3));
  EXPECT_FALSE(Exists(other, "A", 3));
}

TEST_F(LocatedAgainTest, ClosedLibraryHasNoBanksAndAReopenedOneHas) {
  for (accModes const mode : {accUpdate, accRead}) {
    if (mode == accUpdate) Write(Maint(), "A", 1, 1.0);
    if (mode == accRead) Reopen(accRead);
    EXPECT_EQ(Read(Maint(), "A", 1), 1.0);
    Library().CloseLibFile();
    EXPECT_FALSE(Exists(Maint(), "A", 1)) << mode;
    EXPECT_EQ(Read(Maint(), "A", 1), -1.0);
    ASSERT_EQ(Library().ReopenLibFile(), openOk);
    EXPECT_EQ(Read(Maint(), "A", 1), 1.0);
    EXPECT_EQ(Read(Maint(), "A", 2), -1.0);
  }
}

// What is written while the library is closed for this object is read after it was opened again.
TEST_F(LocatedAgainTest, ReopenedReaderReadsWhatWasWrittenMeanwhile) {
  Write(Maint(), "A", 1, 1.0);
  Reopen(accRead);
  EXPECT_EQ(Read(Maint(), "A", 1), 1.0);
  Library().CloseLibFile();
  {
    LibFile_i writer(files_, accUpdate, "/m.lb1", "Mine");
    ASSERT_EQ(writer.OpenExisting({true, ""}, nullptr), openOk);
    LibMaint_i maint(&writer);
    for (long i = 1; i <= 30; ++i) Write(maint, "A", i, double(i + 1));
  }
  ASSERT_EQ(Library().ReopenLibFile(), openOk);
  for (long i = 1; i <= 30; ++i) EXPECT_EQ(Read(Maint(), "A", i), double(i + 1));
}

// The blocks of a deleted bank's tree are used for another one: no node of the old tree is written.
TEST_F(LocatedAgainTest, BlocksWrittenDirectlyEndWhatIsRemembered) {
  Write(Maint(), "A", 1, 1.0);
  std::int32_t const* entry = nullptr;
  ASSERT_TRUE(Library().FindBank("VANLAAR", "A", entry, false));
  std::int32_t root = entry[int{format::kBankHead} + int{format::kHeadRootAddress}];
  std::array<std::int32_t, format::kNodeWords> node;
  Library().ReadBlock(root, format::kNodeWords, node.data());
  EXPECT_EQ(Read(Maint(), "A", 1), 1.0);
  node[format::kNodeCount] = 0;
  Library().WriteBlock(root, format::kNodeWords, node.data(), 0);
  EXPECT_FALSE(Exists(Maint(), "A", 1));
}

TEST_F(LocatedAgainTest, ObjectsOfOtherTypesTakeTurns) {
  Maint().CreateBank("NRTL", "A", 0);
  Maint().CreateBank("PSRK", "A", 1);
  Maint().CreateBank("PSRK", "B", 2);
  FaceRef<IZelBankDef> const nrtl(NewBank("NRTL"));
  FaceRef<IZelBankDef> const psrk(NewBank("PSRK"));
  Key_i key;
  key.SetKey(1L, 1000L);
  double const aij = 4.0;
  nrtl->SetDoubleField("aij", &aij);
  psrk->SetStringField("pureComp", "PURE");
  ASSERT_TRUE(Maint().WriteItem(nrtl.Get(), "A", &key));
  ASSERT_TRUE(Maint().WriteItem(psrk.Get(), "A", &key));
  ASSERT_TRUE(Maint().WriteItem(psrk.Get(), "B", &key));
  ASSERT_TRUE(Write(Maint(), "A", 1, 1.0));
  Reopen(accRead);
  for (int round = 0; round < 2; ++round) {
    double value = 0.0;
    char text[9];
    EXPECT_EQ(Read(Maint(), "A", 1), 1.0);
    key.SetKey(1L, 1000L);
    ASSERT_TRUE(Maint().ReadItem(nrtl.Get(), "A", &key));
    nrtl->GetDoubleField("aij", &value);
    EXPECT_EQ(value, 4.0);
    ASSERT_TRUE(Maint().ReadItem(psrk.Get(), "B", &key));
    psrk->GetStringField("pureComp", text);
    EXPECT_STREQ(text, "PURE");
    ASSERT_TRUE(Maint().ReadItem(psrk.Get(), "A", &key));  // the format without that field
    psrk->GetStringField("pureComp", text);
    EXPECT_STREQ(text, "");
    EXPECT_FALSE(Maint().ReadItem(nrtl.Get(), "B", &key));
  }
}

// A name is another bank's if it differs anywhere, and whatever it is, the answer is that of an
// object that remembers nothing.
TEST_F(LocatedAgainTest, NamesLikeThatOfARememberedBankAreOthers) {
  constexpr char kName[] = "ABCDEFGH";
  Maint().CreateBank("VANLAAR", kName, 0);
  ASSERT_TRUE(Write(Maint(), kName, 1, 1.0));
  Reopen(accRead);
  for (char const* other :
       {"ABCDEFGX", "ABCDEFG", "XBCDEFGH", "ABCDEFGHI", "ABCDEFGHABCDEFGH", "abcdefgh", "", " "}) {
    ASSERT_TRUE(Exists(Maint(), kName, 1));
    LibMaint_i fresh(&Library());
    EXPECT_EQ(Exists(Maint(), other, 1), Exists(fresh, other, 1)) << other;
  }
  EXPECT_FALSE(Exists(Maint(), "ABCDEFGX", 1));
  EXPECT_FALSE(Exists(Maint(), "ABCDEFG", 1));
  ASSERT_TRUE(Exists(Maint(), kName, 1));
  EXPECT_FALSE(Exists(Maint(), nullptr, 1));
}

}  // namespace
}  // namespace zel

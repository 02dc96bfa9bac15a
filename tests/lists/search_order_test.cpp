// The state that is kept from one search to the next, and where a search ends.
#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>

#include "tests/lists/search_fixture.h"

namespace zel {
namespace {

using test::ComponentBank;
using test::kA;
using test::kAA;

class SearchOrderTest : public test::SearchTest {
 protected:
  // A component without any datum, so that reading it changes nothing.
  void WriteEmptyComponent(std::size_t library, long number) {
    LibMaint_i maint(files_[library].get());
    ASSERT_TRUE(maint.CreateBank("PURECOMP", "A", 0));
    ComponentBank const empty;
    Key_i key;
    key.SetKey(number);
    ASSERT_TRUE(maint.WriteItem(empty.Def(), "A", &key));
  }
};

TEST_F(SearchOrderTest, FirstBankWithTheKeyEndsTheSearchWhateverItHolds) {
  WriteEmptyComponent(0, 0);
  WriteComponent(1, "A", 0, {{0, 46.069}});
  search_.SetLibraryBanks(2, all_, kAA);
  ComponentBank bank;
  EXPECT_FALSE(FindComponent(bank, 0, false)) << "the second bank is not asked";
  EXPECT_EQ(Source(bank.Def()), "");
  ASSERT_TRUE(FindComponent(bank, 0, true));
  EXPECT_EQ(Source(bank.Def()), "Lib1:A");
}

TEST_F(SearchOrderTest, NumbersOfIdsAreLookedUpAnewForEverySearch) {
  Write(0, "VANLAAR", "A", 5, 77, 1.5);
  Write(0, "VANLAAR", "A", 5, 78, 2.5);
  WriteComponent(1, "A", 77, {});
  WriteComponent(2, "A", 78, {});
  search_.SetLibraryBanks(1, all_, kA);
  Key_i key;
  key.SetKey(5L, "ID1");
  LibFile::SetOrdwinNameIndex(all_[1]);
  ASSERT_TRUE(search_.Search(&key, vanLaar_.Get(), false));
  EXPECT_EQ(Aij(vanLaar_.Get()), 1.5);
  LibFile::SetOrdwinNameIndex(all_[2]);
  ASSERT_TRUE(search_.Search(&key, vanLaar_.Get(), false));
  EXPECT_EQ(Aij(vanLaar_.Get()), 2.5);
}

TEST_F(SearchOrderTest, OneComponentStandsForAPairWithItself) {
  FaceRef<IZelBankDef> const hocv(NewBank("HOCV"));
  Write(0, "HOCV", "A", 7, 7, 1.5, 0, "eta");
  search_.SetLibraryBanks(1, all_, kA);
  Key_i key;
  key.SetKey(7L);
  ASSERT_TRUE(search_.Search(&key, hocv.Get(), false));
  double eta = 0.0;
  hocv->GetDoubleField("eta", &eta);
  EXPECT_EQ(eta, 1.5);
  EXPECT_EQ(key.GetCompCount(), 2);
}

TEST_F(SearchOrderTest, EachBankIsReadInItsOwnFormat) {
  FaceRef<IZelBankDef> const nrtl(NewBank("NRTL"));
  // The second format adds fij and five others.
  Write(0, "NRTL", "A", 1, 2, 1.5, 1);
  Write(1, "NRTL", "A", 3, 4, 2.5, 2, "fij");
  search_.SetLibraryBanks(2, all_, kAA);
  double fij = 0.0;
  ASSERT_TRUE(Find(nrtl.Get(), 1, 2));
  EXPECT_EQ(Aij(nrtl.Get()), 1.5);
  nrtl->GetDoubleField("fij", &fij);
  EXPECT_TRUE(gen_IsUndefDouble(fij));
  ASSERT_TRUE(Find(nrtl.Get(), 3, 4));
  nrtl->GetDoubleField("fij", &fij);
  EXPECT_EQ(fij, 2.5);
}

TEST_F(SearchOrderTest, NamesDropPairsAndLocatedBanksInBothForms) {
  Write(0, "VANLAAR", "A", 1, 2, 1.0);
  char const* const asTexts[] = {"A"};
  constexpr char kNone[1][9] = {"NONE"};
  for (bool const byRows : {true, false}) {
    auto const setNames = [&] {
      byRows ? search_.SetBankNames(1, kA) : search_.SetBankNames(1, asTexts);
    };
    search_.SetLibraryBanks(1, all_, kA);
    ASSERT_TRUE(Find(vanLaar_.Get(), 1, 2));
    setNames();
    EXPECT_FALSE(Find(vanLaar_.Get(), 1, 2)) << "the libraries went with the pairs";
    search_.SetLibraries(1, all_);
    ASSERT_TRUE(Find(vanLaar_.Get(), 1, 2));
    search_.SetBankNames(1, kNone);
    EXPECT_FALSE(Find(vanLaar_.Get(), 1, 2));
    setNames();
    ASSERT_TRUE(Find(vanLaar_.Get(), 1, 2));
    // Pairs drop libraries and names that were set before.
    search_.SetLibraryBanks(0, nullptr, nullptr);
    setNames();
    EXPECT_FALSE(Find(vanLaar_.Get(), 1, 2));
  }
}

// Names of nine letters without a terminator: nothing after the array row is read.
TEST_F(SearchOrderTest, NamesWithoutRoomForAnEndAreCutToo) {
  Write(0, "VANLAAR", "ABCDEFGH", 1, 2, 1.0);
  char names[1][9];
  std::memcpy(names, "ABCDEFGHI", sizeof names);
  search_.SetLibraryBanks(1, all_, names);
  EXPECT_TRUE(Find(vanLaar_.Get(), 1, 2));
  search_.SetLibraries(1, all_);
  search_.SetBankNames(1, names);
  EXPECT_TRUE(Find(vanLaar_.Get(), 1, 2));
}

TEST_F(SearchOrderTest, ProtectionIsThatOfTheLastSearch) {
  WriteComponent(0, "A", 77, {{0, 46.069}});
  WriteComponent(1, "A", 78, {{0, 32.042}});
  files_[1]->SetPassword(2, "SECRET");
  search_.SetLibraryBanks(2, all_, kAA);
  ComponentBank bank;
  char text[260];
  std::uint8_t isProtected = 9;
  ASSERT_TRUE(FindComponent(bank, 78, true));
  bank.Def()->GetSource(text, &isProtected);
  EXPECT_EQ(isProtected, 1);
  ASSERT_TRUE(FindComponent(bank, 77, true));
  bank.Def()->GetSource(text, &isProtected);
  EXPECT_EQ(isProtected, 0);
}

}  // namespace
}  // namespace zel

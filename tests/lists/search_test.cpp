// Finding items in several libraries in order of preference.
#include "lists/lib_search.h"

#include <gtest/gtest.h>

#include <new>
#include <string>
#include <type_traits>

#include "tests/lists/search_fixture.h"
#include "tests/support/allocations.h"

namespace zel {
namespace {

// Copying a handle must not copy the object.
static_assert(!std::is_copy_constructible_v<LibSearch_i> &&
              !std::is_copy_assignable_v<LibSearch_i>);

using test::ComponentBank;
using test::kA;
using test::kAA;
using test::kAAA;

class SearchTest : public test::SearchTest {};

TEST_F(SearchTest, NothingSetFindsNothing) {
  Write(0, "VANLAAR", "A", 1, 2, 3.5);
  EXPECT_FALSE(Find(vanLaar_.Get(), 1, 2));
  search_.SetLibraries(1, all_);
  EXPECT_FALSE(Find(vanLaar_.Get(), 1, 2)) << "no names";
  search_.SetBankNames(1, kA);
  EXPECT_TRUE(Find(vanLaar_.Get(), 1, 2));
  EXPECT_EQ(Aij(vanLaar_.Get()), 3.5);
  EXPECT_FALSE(search_.Search(nullptr, vanLaar_.Get(), false));
  EXPECT_TRUE(gen_IsUndefDouble(Aij(vanLaar_.Get()))) << "what was found before is gone";
  Key_i key;
  EXPECT_FALSE(search_.Search(&key, nullptr, false));
}

TEST_F(SearchTest, NameStandsForTheBankOfTheFirstLibrary) {
  Write(0, "VANLAAR", "A", 1, 2, 3.5);
  Write(1, "VANLAAR", "A", 5, 6, 4.5);
  search_.SetLibraries(2, all_);
  search_.SetBankNames(1, kA);
  EXPECT_TRUE(Find(vanLaar_.Get(), 1, 2));
  EXPECT_EQ(Source(vanLaar_.Get()), "Lib0:A");
  EXPECT_FALSE(Find(vanLaar_.Get(), 5, 6)) << "a later bank of that name is not searched";
  double value = 0.0;
  vanLaar_->GetDoubleField("aij", &value);
  EXPECT_TRUE(gen_IsUndefDouble(value)) << "cleared";
}

TEST_F(SearchTest, NamesComeBeforeLibraries) {
  Write(0, "VANLAAR", "B", 1, 2, 1.0);
  Write(1, "VANLAAR", "A", 1, 2, 2.0);
  char const names[2][9] = {"A", "B"};
  search_.SetLibraries(2, all_);
  search_.SetBankNames(2, names);
  ASSERT_TRUE(Find(vanLaar_.Get(), 1, 2));
  EXPECT_EQ(Source(vanLaar_.Get()), "Lib1:A");
}

TEST_F(SearchTest, PairsOfOneNameAreAllSearched) {
  Write(0, "VANLAAR", "A", 1, 2, 3.5);
  Write(1, "VANLAAR", "A", 5, 6, 4.5);
  search_.SetLibraryBanks(2, all_, kAA);
  EXPECT_TRUE(Find(vanLaar_.Get(), 5, 6));
  EXPECT_EQ(Source(vanLaar_.Get()), "Lib1:A");
  std::uint8_t flags[2] = {9, 9};
  vanLaar_->GetSourceFlags(flags);
  EXPECT_EQ(flags[0], 0);
  EXPECT_EQ(flags[1], 1);
  EXPECT_TRUE(Find(vanLaar_.Get(), 1, 2));
  vanLaar_->GetSourceFlags(flags);
  EXPECT_EQ(flags[0], 1);
  EXPECT_EQ(flags[1], 0) << "flags start anew";
}

TEST_F(SearchTest, FlagForAllBanksCountsForComponentsOnly) {
  Write(0, "VANLAAR", "A", 1, 2, 3.5);
  Write(1, "VANLAAR", "A", 1, 2, 4.5);
  search_.SetLibraryBanks(2, all_, kAA);
  ASSERT_TRUE(Find(vanLaar_.Get(), 1, 2, true));
  EXPECT_EQ(Aij(vanLaar_.Get()), 3.5);
  EXPECT_EQ(Source(vanLaar_.Get()), "Lib0:A");
  std::uint8_t flags[2];
  vanLaar_->GetSourceFlags(flags);
  EXPECT_EQ(flags[1], 0);
}

TEST_F(SearchTest, ComponentIsMergedFromAllPairsAndCompleted) {
  WriteComponent(0, "A", 77, {{0, 46.069}});
  WriteComponent(1, "A", 78, {{1, 1.0}});
  WriteComponent(2, "A", 77, {{0, 99.0}, {9, 0.789}});
  search_.SetLibraryBanks(3, all_, kAAA);
  ComponentBank bank;
  ASSERT_TRUE(FindComponent(bank, 77, true));
  double value = 0.0;
  bank->GetProperty(0, &value);
  EXPECT_EQ(value, 46.069) << "the first library wins";
  bank->GetProperty(9, &value);
  EXPECT_EQ(value, 0.789);
  bank->GetCompleted(50, &value);
  EXPECT_DOUBLE_EQ(value, 141.5 / 0.789 - 131.5);
  char text[260];
  std::uint8_t flag = 0;
  bank->GetPropertySource(0, text, &flag);
  EXPECT_STREQ(text, "Lib0:A");
  bank->GetPropertySource(9, text, &flag);
  EXPECT_STREQ(text, "Lib2:A");
  EXPECT_EQ(Source(bank.Def()), "Multiple");
  std::uint8_t flags[3];
  bank.Def()->GetSourceFlags(flags);
  EXPECT_EQ(flags[0], 1);
  EXPECT_EQ(flags[1], 0);
  EXPECT_EQ(flags[2], 1);
  ASSERT_TRUE(FindComponent(bank, 77, false));
  bank->GetProperty(9, &value);
  EXPECT_TRUE(gen_IsUndefDouble(value)) << "the first bank alone";
  EXPECT_EQ(Source(bank.Def()), "Lib0:A");
}

TEST_F(SearchTest, CriticalConstantsOfTwoLibrariesThatContradictAreWarnedOf) {
  // TC and PC of one library with VC and ZC of another; X of the four is 0.59.
  WriteComponent(0, "A", 77, {{1, 514.0}, {2, 6137.0}});
  WriteComponent(1, "A", 77, {{3, 0.1}, {4, 0.241}});
  WriteComponent(2, "A", 77, {{1, 514.0}, {2, 6137.0}, {3, 0.1}, {4, 0.241}});
  ComponentBank bank;
  std::uint8_t flag = 0;
  char text[260];
  search_.SetLibraryBanks(3, all_, kAAA);
  ASSERT_TRUE(FindComponent(bank, 77, true));
  bank->GetConsistencyWarning(&flag, text);
  EXPECT_EQ(flag, 1);
  EXPECT_STREQ(text,
               "The [Pc*Vc/(R*Zc*Tc) = 1] consistency check is showing an error greater than 10% "
               "for ETHANOL.");
  search_.SetLibraryBanks(1, &all_[2], kA);
  ASSERT_TRUE(FindComponent(bank, 77, true));
  bank->GetConsistencyWarning(&flag, text);
  EXPECT_EQ(flag, 0) << "one library is trusted";
  EXPECT_STREQ(text, "");
}

TEST_F(SearchTest, PairsThatMemoryCouldNotHoldAreNoPairs) {
  Write(0, "VANLAAR", "A", 1, 2, 3.5);
  static constexpr char kMany[8][9] = {"A", "B", "C", "D", "E", "F", "G", "H"};
  LibFile* const libraries[] = {all_[0], all_[0], all_[0], all_[0],
                                all_[0], all_[0], all_[0], all_[0]};
  int refused = 0;
  for (int nth = 1; nth <= 16; ++nth) {
    search_.SetLibraryBanks(3, libraries, kMany);
    {
      test::AllocationWatch const watch(nth);
      try {
        search_.SetLibraryBanks(8, libraries, kMany);
        continue;
      } catch (std::bad_alloc const&) {
        ++refused;
      }
    }
    EXPECT_FALSE(Find(vanLaar_.Get(), 1, 2)) << nth;
  }
  EXPECT_GT(refused, 0);
}

TEST_F(SearchTest, WithoutPairsTheSourceIsTheLastBankRead) {
  WriteComponent(0, "A", 77, {{0, 46.069}});
  WriteComponent(2, "B", 77, {{9, 0.789}});
  char const* names[] = {"A", "B"};
  search_.SetLibraries(3, all_);
  search_.SetBankNames(2, names);
  ComponentBank bank;
  ASSERT_TRUE(FindComponent(bank, 77, true));
  EXPECT_EQ(Source(bank.Def()), "Lib2:B");
  double value = 0.0;
  bank->GetProperty(0, &value);
  EXPECT_EQ(value, 46.069);
}

TEST_F(SearchTest, ComponentWithNothingInItIsNotFound) {
  WriteComponent(0, "A", 77, {});
  ComponentBank empty;
  {
    LibMaint_i maint(files_[1].get());
    ASSERT_TRUE(maint.CreateBank("PURECOMP", "A", 0));
    Key_i key;
    key.SetKey(0L);
    ASSERT_TRUE(maint.WriteItem(empty.Def(), "A", &key));
  }
  search_.SetLibraryBanks(2, all_, kAA);
  ComponentBank bank;
  EXPECT_TRUE(FindComponent(bank, 77, true)) << "an identity is data";
  EXPECT_FALSE(FindComponent(bank, 0, true));
  std::int32_t phase = 9;
  bank->GetPhase(&phase);
  EXPECT_EQ(phase, 0) << "cleared";
}

TEST_F(SearchTest, ProtectedLibrariesAreToldByFlag) {
  WriteComponent(0, "A", 77, {{0, 46.069}});
  WriteComponent(1, "A", 77, {{9, 0.789}});
  files_[1]->SetPassword(2, "SECRET");
  search_.SetLibraryBanks(2, all_, kAA);
  ComponentBank bank;
  ASSERT_TRUE(FindComponent(bank, 77, true));
  char text[260];
  std::uint8_t flag = 9;
  bank->GetPropertySource(0, text, &flag);
  EXPECT_EQ(flag, 0);
  bank->GetPropertySource(9, text, &flag);
  EXPECT_EQ(flag, 1);
  bank.Def()->GetSource(text, &flag);
  EXPECT_EQ(flag, 1) << "any of them";
}

TEST_F(SearchTest, BankThatDoesNotFitIsPassedOver) {
  Write(0, "VANLAAR", "A", 1, 2, 3.5);
  Write(1, "VANLAAR", "A", 1, 2, 4.5);
  for (int word : {format::kHeadKeyWords, format::kHeadDataWords, format::kHeadEntryWords}) {
    std::int32_t const before = PutInHead(word, 5);
    search_.SetLibraries(2, all_);
    search_.SetBankNames(1, kA);
    EXPECT_TRUE(Find(vanLaar_.Get(), 1, 2));
    EXPECT_EQ(Source(vanLaar_.Get()), "Lib1:A") << word;
    search_.SetLibraryBanks(2, all_, kAA);
    EXPECT_TRUE(Find(vanLaar_.Get(), 1, 2));
    EXPECT_EQ(Source(vanLaar_.Get()), "Lib1:A") << word;
    PutInHead(word, before);
  }
  search_.SetLibraryBanks(2, all_, kAA);
  EXPECT_TRUE(Find(vanLaar_.Get(), 1, 2));
  EXPECT_EQ(Source(vanLaar_.Get()), "Lib0:A") << "mended";
}

TEST_F(SearchTest, ReversedPairShowsTheCallersOrder) {
  {
    LibMaint_i maint(files_[0].get());
    ASSERT_TRUE(maint.CreateBank("VANLAAR", "A", 0));
    double const values[2] = {1.5, 2.5};
    vanLaar_->SetDoubleField("aij", &values[0]);
    vanLaar_->SetDoubleField("aji", &values[1]);
    Key_i key;
    key.SetKey(3L, 9L);
    ASSERT_TRUE(maint.WriteItem(vanLaar_.Get(), "A", &key));
  }
  search_.SetLibraryBanks(1, all_, kA);
  ASSERT_TRUE(Find(vanLaar_.Get(), 9, 3));
  EXPECT_EQ(Aij(vanLaar_.Get()), 2.5);
  ASSERT_TRUE(Find(vanLaar_.Get(), 3, 9));
  EXPECT_EQ(Aij(vanLaar_.Get()), 1.5);
}

TEST_F(SearchTest, OtherTypeLocatesAnew) {
  FaceRef<IZelBankDef> const wilson(NewBank("WILSON"));
  FaceRef<IZelBankDef> const nrtl(NewBank("NRTL"));
  Write(0, "WILSON", "A", 1, 2, 1.0);
  Write(0, "NRTL", "A", 1, 2, 2.0);
  search_.SetLibraryBanks(1, all_, kA);
  EXPECT_TRUE(Find(wilson.Get(), 1, 2));
  EXPECT_EQ(Aij(wilson.Get()), 1.0);
  EXPECT_TRUE(Find(nrtl.Get(), 1, 2));
  EXPECT_EQ(Aij(nrtl.Get()), 2.0);
  {
    LibMaint_i maint(files_[0].get());
    ASSERT_TRUE(maint.DeleteBank("WILSON", "A"));
  }
  EXPECT_FALSE(Find(wilson.Get(), 1, 2)) << "it was located again";
}

TEST_F(SearchTest, LocatedBanksStayUntilTheListChanges) {
  Write(0, "VANLAAR", "A", 1, 2, 1.0);
  search_.SetLibraryBanks(1, all_, kA);
  ASSERT_TRUE(Find(vanLaar_.Get(), 1, 2));
  {
    LibMaint_i maint(files_[0].get());
    ASSERT_TRUE(maint.DeleteBank("VANLAAR", "A"));
  }
  EXPECT_TRUE(Find(vanLaar_.Get(), 1, 2)) << "no look into the directory";
  search_.SetLibraryBanks(1, all_, kA);
  EXPECT_FALSE(Find(vanLaar_.Get(), 1, 2));
}

TEST_F(SearchTest, EachSettingDropsWhatItReplaces) {
  Write(0, "VANLAAR", "A", 1, 2, 1.0);
  Write(1, "VANLAAR", "A", 1, 2, 2.0);
  search_.SetLibraries(1, all_);
  search_.SetBankNames(1, kA);
  search_.SetLibraries(1, all_ + 1);
  ASSERT_TRUE(Find(vanLaar_.Get(), 1, 2)) << "names stay";
  EXPECT_EQ(Aij(vanLaar_.Get()), 2.0);
  char const* none[] = {"NONE"};
  search_.SetBankNames(1, none);
  EXPECT_FALSE(Find(vanLaar_.Get(), 1, 2));
  char const* again[] = {"A"};
  search_.SetBankNames(1, again);
  ASSERT_TRUE(Find(vanLaar_.Get(), 1, 2)) << "libraries stay";
  EXPECT_EQ(Aij(vanLaar_.Get()), 2.0);
  search_.SetLibraryBanks(1, all_, kA);
  ASSERT_TRUE(Find(vanLaar_.Get(), 1, 2));
  EXPECT_EQ(Aij(vanLaar_.Get()), 1.0);
  search_.SetLibraries(1, all_);
  EXPECT_FALSE(Find(vanLaar_.Get(), 1, 2)) << "pairs drop names set before";
  search_.SetBankNames(1, kA);
  EXPECT_TRUE(Find(vanLaar_.Get(), 1, 2));
  search_.SetLibraryBanks(0, nullptr, nullptr);
  EXPECT_FALSE(Find(vanLaar_.Get(), 1, 2));
  search_.SetLibraryBanks(-1, nullptr, nullptr);
  EXPECT_FALSE(Find(vanLaar_.Get(), 1, 2));
}

TEST_F(SearchTest, LongNamesAreCutAndNullLibrariesPassedOver) {
  Write(1, "VANLAAR", "ABCDEFGH", 1, 2, 1.0);
  LibFile* const libraries[] = {nullptr, all_[1]};
  char const* names[] = {nullptr, "ABCDEFGHIJ"};
  search_.SetLibraries(2, libraries);
  search_.SetBankNames(2, names);
  EXPECT_TRUE(Find(vanLaar_.Get(), 1, 2));
}

TEST_F(SearchTest, ComponentIsFoundByIdAndCasNumberInEachLibrary) {
  WriteComponent(0, "A", 77, {{0, 46.0}});
  WriteComponent(1, "A", 88, {{9, 0.7}});
  search_.SetLibraryBanks(2, all_, kAA);
  ComponentBank bank;
  Key_i key;
  key.SetKey("id1");
  ASSERT_TRUE(search_.Search(&key, bank.Def(), true));
  EXPECT_EQ(Source(bank.Def()), "Multiple") << "each library has its own number for the ID";
  key.SetKey(casn("64-17-5"));
  ASSERT_TRUE(search_.Search(&key, bank.Def(), true));
  EXPECT_EQ(Source(bank.Def()), "Multiple");
  key.SetKey("NOBODY");
  EXPECT_FALSE(search_.Search(&key, bank.Def(), true));
}

TEST_F(SearchTest, BlockErrorPassesThroughAndTheNextSearchGoesOn) {
  Write(0, "VANLAAR", "A", 1, 2, 1.0);
  constexpr std::int32_t kNowhere = 122000001;
  std::int32_t const before = PutInHead(format::kHeadRootAddress, kNowhere);
  search_.SetLibraryBanks(1, all_, kA);
  try {
    Find(vanLaar_.Get(), 1, 2);
    ADD_FAILURE() << "the root cannot be read";
  } catch (unsigned long address) {
    EXPECT_EQ(address, static_cast<unsigned long>(kNowhere));
  }
  EXPECT_EQ(vanLaar_->AddRef(), 2) << "no face is left behind";
  vanLaar_->Release();
  PutInHead(format::kHeadRootAddress, before);
  search_.SetLibraryBanks(1, all_, kA);
  EXPECT_TRUE(Find(vanLaar_.Get(), 1, 2));
}

TEST(LibSearch, IsAHandleThatIsEndedOnce) {
  LibSearch* search = LibSearch::NewLibSearch();
  ASSERT_NE(search, nullptr);
  auto* wider = dynamic_cast<LibSearch_p*>(search);
  ASSERT_NE(wider, nullptr);
  wider->ReservedSearch();
  LibSearch::DelLibSearch(search);
  EXPECT_EQ(search, nullptr);
  LibSearch::DelLibSearch(search);
  LibSearch_p* none = nullptr;
  LibSearch_p::DelLibSearch(none);
}

}  // namespace
}  // namespace zel

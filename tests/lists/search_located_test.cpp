// Banks that a search has located: many banks, keys that libraries resolve differently, and
// libraries that change or cannot be read.
#include <gtest/gtest.h>

#include <algorithm>

#include "frame/ascii.h"
#include "frame/module.h"
#include "tests/lists/search_fixture.h"

namespace zel {
namespace {

using test::ComponentBank;
using test::kA;
using test::kAA;

class SearchLocatedTest : public test::SearchTest {
 protected:
  // Enters an identifier of component `number` in a library.
  void AddId(std::size_t library, char const* id, std::int32_t number) {
    if (!files_[library]->HasBank("PURECOMP", "IDS")) {
      LibMaint_i(files_[library].get()).CreateBank("PURECOMP", "IDS", 0);
    }
    ComponentBank bank;
    char ids[12][9] = {};
    CopyText(id, ids[0], sizeof ids[0]);
    bank->SetIdentity(number, 0, 0, ids, "Name", "", 0);
    Key_i key;
    key.SetKey(static_cast<long>(number));
    LibMaint_i maint(files_[library].get());
    ASSERT_TRUE(maint.WriteItem(bank.Def(), "IDS", &key));
  }
  // Writes a pair whose parameters differ by order.
  void WriteBoth(std::size_t library, long i, long j, double aij, double aji) {
    LibMaint_i maint(files_[library].get());
    if (!maint.BankExists("VANLAAR", "A")) {
      ASSERT_TRUE(maint.CreateBank("VANLAAR", "A", 0));
    }
    vanLaar_->SetDoubleField("aij", &aij);
    vanLaar_->SetDoubleField("aji", &aji);
    Key_i key;
    key.SetKey(i, j);
    ASSERT_TRUE(maint.WriteItem(vanLaar_.Get(), "A", &key));
  }
  // Makes the entry of a component in bank A refer to an address that does not exist.
  void LoseRecord(std::size_t library, std::int32_t number) {
    constexpr std::int32_t kNowhere = 122'000'001;
    std::int32_t const* found = nullptr;
    ASSERT_TRUE(files_[library]->FindBank("PURECOMP", "A", found, false));
    std::int32_t head[format::kHeadWords];
    std::copy_n(found + format::kBankHead, format::kHeadWords, head);
    BTree_i tree(files_[library]->Store(), head);
    std::int32_t const key[10] = {number};
    ASSERT_TRUE(tree.Find(key, found));
    std::int32_t* entry = nullptr;
    ASSERT_TRUE(tree.GetCurrentData(entry));
    *entry = kNowhere;
    ASSERT_TRUE(tree.WriteCurrentNode());
  }
};

// Each located bank works on its own copy of the head, which must not move while others are added
// and banks that do not fit are dropped in between.
TEST_F(SearchLocatedTest, ManyBanksAndOnesThatDoNotFitBetweenThem) {
  constexpr int kBanks = 40;
  std::vector<LibFile*> libraries;
  auto const names = std::make_unique<char[][9]>(kBanks);
  for (int n = 0; n < kBanks; ++n) {
    char(&name)[9] = names[static_cast<std::size_t>(n)];
    CopyText("B" + std::to_string(n), name, sizeof name);
    Write(0, "VANLAAR", name, n, 100, n + 0.5);
    libraries.push_back(all_[0]);
    if (n % 2 == 0) continue;
    std::int32_t const* found = nullptr;
    std::int32_t* data = nullptr;
    ASSERT_TRUE(files_[0]->FindBank("VANLAAR", name, found, false));
    ASSERT_TRUE(files_[0]->GetBankTree()->GetCurrentData(data));
    std::int32_t* head = data + format::kBankHead;
    head[format::kHeadDataWords] = 13;
    ASSERT_TRUE(files_[0]->GetBankTree()->WriteCurrentNode());
  }
  search_.SetLibraryBanks(kBanks, libraries.data(), names.get());
  for (int round = 0; round < 2; ++round) {
    for (int n = 0; n < kBanks; ++n) {
      ASSERT_EQ(Find(vanLaar_.Get(), n, 100), n % 2 == 0) << n;
      if (n % 2 != 0) continue;
      EXPECT_EQ(Aij(vanLaar_.Get()), n + 0.5);
      std::vector<std::uint8_t> flags(kBanks, 9);
      vanLaar_->GetSourceFlags(flags.data());
      for (int i = 0; i < kBanks; ++i) EXPECT_EQ(flags[static_cast<std::size_t>(i)], i == n) << i;
    }
  }
}

// The copies of heads are from the time when the banks were located. Items that have moved since
// are not found through them, but whatever is found is a valid item.
TEST_F(SearchLocatedTest, RootsThatMoveAreSeenAfterTheListIsSetAnew) {
  constexpr long kItems = 60;
  SetDeleteTestFlag(true);  // nodes of few entries
  {
    LibMaint_i maint(files_[0].get());
    ASSERT_TRUE(maint.CreateBank("VANLAAR", "A", 0));
    ASSERT_TRUE(maint.CreateBank("VANLAAR", "OTHER", 0));
  }
  SetDeleteTestFlag(false);
  Write(0, "VANLAAR", "A", 1, 1000, 1.0);
  search_.SetLibraryBanks(1, all_, kA);
  ASSERT_TRUE(Find(vanLaar_.Get(), 1, 1000));
  auto const countFound = [&] {
    long found = 0;
    for (long i = 1; i <= kItems; ++i) {
      try {
        if (!Find(vanLaar_.Get(), i, 1000)) continue;
      } catch (unsigned long) {
        continue;  // a block that is no longer a node of this tree
      }
      EXPECT_EQ(Aij(vanLaar_.Get()), double(i));
      ++found;
    }
    return found;
  };
  for (long i = 2; i <= kItems; ++i) Write(0, "VANLAAR", "A", i, 1000, double(i));
  long const seen = countFound();
  EXPECT_LT(seen, kItems) << "the root that was located is no longer the root";
  EXPECT_GT(seen, 0);
  search_.SetLibraryBanks(1, all_, kA);
  EXPECT_EQ(countFound(), kItems);

  // Deletes free nodes, and another bank reuses them.
  for (long i = 2; i <= kItems; ++i) {
    Key_i key;
    key.SetKey(i, 1000L);
    ASSERT_TRUE(LibMaint_i(files_[0].get()).DeleteItem("VANLAAR", "A", &key));
    Write(0, "VANLAAR", "OTHER", i, 2000, double(-i));
    EXPECT_LE(countFound(), kItems);
  }
  search_.SetLibraryBanks(1, all_, kA);
  EXPECT_EQ(countFound(), 1);
  ASSERT_TRUE(Find(vanLaar_.Get(), 1, 1000));
  EXPECT_EQ(Aij(vanLaar_.Get()), 1.0);
}

// The numbers of two IDs are in one order in the first library and in the other order in the
// second: whether the item is swapped depends on the library in which it was found.
TEST_F(SearchLocatedTest, PairIsTurnedByTheLibraryItWasFoundIn) {
  AddId(0, "P", 9);
  AddId(0, "Q", 5);
  AddId(1, "P", 5);
  AddId(1, "Q", 9);
  Key_i key;
  WriteBoth(0, 100, 200, 7.0, 8.0);
  WriteBoth(1, 5, 9, 1.5, 2.5);
  key.SetKey("P", "Q");
  search_.SetLibraryBanks(2, all_, kAA);
  ASSERT_TRUE(search_.Search(&key, vanLaar_.Get(), false));
  EXPECT_EQ(Aij(vanLaar_.Get()), 1.5)
      << "turned in the first library alone, which has no such item";
  LibFile* const otherWay[] = {all_[1], all_[0]};
  WriteBoth(0, 5, 9, 3.5, 4.5);
  {
    LibMaint_i maint(files_[1].get());
    Key_i gone;
    gone.SetKey(5L, 9L);
    ASSERT_TRUE(maint.DeleteItem("VANLAAR", "A", &gone));
  }
  search_.SetLibraryBanks(2, otherWay, kAA);
  ASSERT_TRUE(search_.Search(&key, vanLaar_.Get(), false));
  EXPECT_EQ(Aij(vanLaar_.Get()), 4.5);
}

// Plain words are put into stored order again for each bank.
TEST_F(SearchLocatedTest, PlainWordsAreTurnedInEveryBank) {
  WriteBoth(0, 100, 200, 7.0, 8.0);
  WriteBoth(1, 100, 300, 7.0, 8.0);
  WriteBoth(2, 3, 7, 1.5, 2.5);
  std::int32_t const words[] = {7, 3};
  Key_i key;
  key.SetKeyWords(2, words);
  search_.SetLibraryBanks(3, all_, test::kAAA);
  for (int round = 0; round < 2; ++round) {
    ASSERT_TRUE(search_.Search(&key, vanLaar_.Get(), false));
    EXPECT_EQ(Aij(vanLaar_.Get()), 2.5) << round;
  }
}

// A record that cannot be read ends the search with the error of its block. Data from earlier banks
// are kept, and no reference to the bank is leaked.
TEST_F(SearchLocatedTest, RecordThatCannotBeReadLeavesTheBankAsItIs) {
  WriteComponent(0, "A", 77, {{0, 46.069}});
  WriteComponent(1, "A", 77, {{9, 0.789}});
  LoseRecord(1, 77);
  search_.SetLibraryBanks(2, all_, kAA);
  ComponentBank bank;
  EXPECT_THROW(FindComponent(bank, 77, true), unsigned long);
  double value = 0.0;
  bank->GetProperty(0, &value);
  EXPECT_EQ(value, 46.069);
  ComponentBank const untouched;
  EXPECT_EQ(bank.Def()->AddRef(), untouched.Def()->AddRef());
  bank.Def()->Release();
  untouched.Def()->Release();
  ASSERT_TRUE(FindComponent(bank, 77, false)) << "the search goes on";
  EXPECT_EQ(Source(bank.Def()), "Lib0:A");
}

}  // namespace
}  // namespace zel

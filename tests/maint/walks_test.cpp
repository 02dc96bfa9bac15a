// Walks over IDs, banks and items.
#include <algorithm>
#include <cstdint>

#include "tests/maint/maint_fixture.h"

namespace zel {
namespace {

class WalksTest : public test::MaintTest {
 protected:
  std::vector<std::string> Banks(char const* filter) {
    std::vector<std::string> found;
    char type[9];
    char name[9];
    Maint().BeginBankWalk(filter);
    while (Maint().NextBank(type, name)) found.push_back(std::string(type) + ":" + name);
    EXPECT_STREQ(type, "");
    EXPECT_STREQ(name, "");
    return found;
  }
};

using Names = std::vector<std::string>;

TEST_F(WalksTest, BanksComeInDirectoryOrderWithoutTheirMark) {
  Maint().CreateBank("NRTLLL", "B", 2);
  Maint().CreateBank("NRTL", "B", 2);
  Maint().CreateBank("NRTL", "A", 1);
  Maint().CreateBank("AZEOTROP", "C", 0);
  // By packed value: the mark after NRTL sorts after the letter L.
  EXPECT_EQ(Banks(""), (Names{"AZEOTROP:C", "NRTL:A", "NRTLLL:B", "NRTL:B"}));
  EXPECT_EQ(Banks("NRTL"), (Names{"NRTL:A", "NRTL:B"}));
  EXPECT_EQ(Banks("nrtl"), Names{}) << "the filter compares exactly";
  EXPECT_EQ(Banks(nullptr).size(), 4U);
}

TEST_F(WalksTest, IdsComeWithTheirNumbers) {
  AddId("WATER", 12);
  AddId("ETHANOL", 7);
  Maint().BeginIdWalk();
  std::int32_t number = 0;
  char id[9];
  ASSERT_TRUE(Maint().NextId(number, id));
  EXPECT_STREQ(id, "ETHANOL");
  EXPECT_EQ(number, 7);
  ASSERT_TRUE(Maint().NextId(number, id));
  EXPECT_STREQ(id, "WATER");
  EXPECT_EQ(number, 12);
  EXPECT_FALSE(Maint().NextId(number, id));
  EXPECT_STREQ(id, "");
  EXPECT_EQ(number, 0);
  EXPECT_FALSE(Maint().NextId(number, id)) << "and again";
}

TEST_F(WalksTest, ItemsComeInKeyOrderWithTheirData) {
  Maint().CreateBank("VANLAAR", "A", 0);
  for (long i : {5L, 1L, 9L, 3L}) {
    SetAij(double(i), 0);
    key_.SetKey(i, 100L);
    Maint().WriteItem(vanLaar_.Get(), "A", &key_);
  }
  ASSERT_TRUE(Maint().BeginItemWalk("vanlaar", "a"));
  std::int32_t words[10];
  for (std::int32_t i : {1, 3, 5, 9}) {
    ASSERT_TRUE(Maint().NextItem(words, vanLaar_.Get()));
    EXPECT_EQ(words[0], i);
    EXPECT_EQ(words[1], 100);
    EXPECT_EQ(Aij(), double(i));
    char source[260];
    std::uint8_t flag = 0;
    vanLaar_->GetSource(source, &flag);
    EXPECT_STREQ(source, "") << "a walk sets no source";
  }
  EXPECT_FALSE(Maint().NextItem(words, vanLaar_.Get()));
  EXPECT_EQ(words[0], 0);
  EXPECT_TRUE(Maint().BeginItemWalk("VANLAAR", "A"));
  ASSERT_TRUE(Maint().NextItemKey(words));
  EXPECT_EQ(words[0], 1);
  EXPECT_FALSE(Maint().RewriteItem(vanLaar_.Get()));
  EXPECT_FALSE(Maint().BeginItemWalk("VANLAAR", "NONE"));
  EXPECT_FALSE(Maint().NextItemKey(words));
}

TEST_F(WalksTest, EmptyBankEndsWithKeyWordsOfZero) {
  Maint().CreateBank("VANLAAR", "A", 0);
  for (bool const withItem : {true, false}) {
    std::int32_t words[3] = {7, 7, 7};
    ASSERT_TRUE(Maint().BeginItemWalk("VANLAAR", "A"));
    EXPECT_FALSE(withItem ? Maint().NextItem(words, vanLaar_.Get()) : Maint().NextItemKey(words));
    EXPECT_EQ(words[0], 0);
    EXPECT_EQ(words[1], 0);
    EXPECT_EQ(words[2], 7) << "and none behind them";
  }
}

TEST_F(WalksTest, ItemsOfAnOldBankComeInItsFormat) {
  FaceRef<IZelBankDef> const nrtl(NewBank("NRTL"));
  double const values[2] = {1.5, 2.5};
  for (std::int32_t format : {1, 2}) {
    std::string const name = std::to_string(format);
    ASSERT_TRUE(Maint().CreateBank("NRTL", name.c_str(), format));
    nrtl->SetDoubleField("aij", values);
    nrtl->SetDoubleField("dij", values + 1);
    key_.SetKey(1L, 2L);
    ASSERT_TRUE(Maint().WriteItem(nrtl.Get(), name.c_str(), &key_));
    ASSERT_TRUE(Maint().BeginItemWalk("NRTL", name.c_str()));
    std::int32_t words[10];
    ASSERT_TRUE(Maint().NextItem(words, nrtl.Get()));
    double aij = 0, dij = 0;
    nrtl->GetDoubleField("aij", &aij);
    nrtl->GetDoubleField("dij", &dij);
    EXPECT_EQ(aij, 1.5);
    EXPECT_EQ(dij, format == 1 ? -1e35 : 2.5);
  }
}

TEST_F(WalksTest, BankOfAnotherTypeGetsNoItem) {
  Maint().CreateBank("VANLAAR", "A", 0);
  SetAij(1, 2);
  key_.SetKey(1L, 2L);
  Maint().WriteItem(vanLaar_.Get(), "A", &key_);
  FaceRef<IZelBankDef> const other(NewBank("UNIQUAC"));
  std::int32_t words[10];
  Maint().BeginItemWalk("VANLAAR", "A");
  EXPECT_FALSE(Maint().NextItem(words, other.Get()));
  EXPECT_FALSE(Maint().NextItem(words, nullptr));
  EXPECT_TRUE(Maint().NextItem(words, vanLaar_.Get())) << "the walk has not moved";
}

TEST_F(WalksTest, OnlyTheCurrentWalkGoesOn) {
  Maint().CreateBank("VANLAAR", "A", 0);
  AddId("WATER", 12);
  std::int32_t number = 0;
  std::int32_t words[10];
  char id[9];
  char name[9];
  EXPECT_FALSE(Maint().NextId(number, id)) << "none was begun";
  Maint().BeginIdWalk();
  EXPECT_FALSE(Maint().NextBank(id, name));
  EXPECT_FALSE(Maint().NextItemKey(words));
  EXPECT_TRUE(Maint().NextId(number, id));
  Maint().BeginBankWalk();
  EXPECT_FALSE(Maint().NextId(number, id));
  EXPECT_TRUE(Maint().NextBank(id, name));
  Maint().EndBankWalk();
  EXPECT_FALSE(Maint().NextBank(id, name));
  Maint().BeginIdWalk();
  Maint().ItemExists(vanLaar_.Get(), "A", &key_);
  EXPECT_FALSE(Maint().NextId(number, id)) << "an item access ends a walk";
}

// A walk keeps its own head, whatever node of the directory is in the library's buffer by then.
TEST_F(WalksTest, ItemsGoOnBesideLookUpsOfOtherBanks) {
  constexpr int kBanks = 150;  // more than a node of the directory holds
  for (int b = 0; b < kBanks; ++b) {
    std::string const name = "N" + std::to_string(b);
    ASSERT_TRUE(Maint().CreateBank("VANLAAR", name.c_str(), 0));
    SetAij(double(b), 0);
    for (long i : {1L, 2L, 3L}) {
      key_.SetKey(i, 1000L + b);
      ASSERT_TRUE(Maint().WriteItem(vanLaar_.Get(), name.c_str(), &key_));
    }
  }
  std::int32_t words[10];
  for (int b : {0, 70, kBanks - 1}) {
    ASSERT_TRUE(Maint().BeginItemWalk("VANLAAR", ("N" + std::to_string(b)).c_str()));
    for (std::int32_t i : {1, 2, 3}) {
      for (int other = 0; other < kBanks; ++other) {
        ASSERT_TRUE(Maint().BankExists("VANLAAR", ("N" + std::to_string(other)).c_str()));
      }
      ASSERT_TRUE(Maint().NextItem(words, vanLaar_.Get())) << b;
      EXPECT_EQ(words[0], i);
      EXPECT_EQ(words[1], 1000 + b);
      EXPECT_EQ(Aij(), double(b));
    }
    EXPECT_FALSE(Maint().NextItem(words, vanLaar_.Get()));
  }
}

// Callers have room for ten words: a bank whose head claims longer keys is treated as empty.
TEST_F(WalksTest, KeysOfMoreThanTenWordsAreNoKeys) {
  Maint().CreateBank("VANLAAR", "A", 0);
  SetAij(1, 2);
  key_.SetKey(1L, 2L);
  ASSERT_TRUE(Maint().WriteItem(vanLaar_.Get(), "A", &key_));
  for (std::int32_t claimed : {11, 22, 500, -1, INT32_MAX}) {
    std::int32_t const* found = nullptr;
    std::int32_t* entry = nullptr;
    ASSERT_TRUE(Library().FindBank("VANLAAR", "A", found, false));
    ASSERT_TRUE(Library().GetBankTree()->GetCurrentData(entry));
    std::int32_t* head = entry + format::kBankHead;
    head[format::kHeadKeyWords] = claimed;
    ASSERT_TRUE(Library().GetBankTree()->WriteCurrentNode());
    for (bool const withItem : {true, false}) {
      std::vector<std::int32_t> words(600, 7);
      EXPECT_THROW(Maint().BeginItemWalk("VANLAAR", "A"), unsigned long);
      EXPECT_FALSE(withItem ? Maint().NextItem(words.data(), vanLaar_.Get())
                            : Maint().NextItemKey(words.data()))
          << claimed;
      EXPECT_TRUE(std::all_of(words.begin() + 10, words.end(), [](auto w) { return w == 7; }));
    }
  }
}

TEST_F(WalksTest, TwoObjectsOnOneReaderWalkIndependently) {
  for (char const* name : {"A", "B", "C"}) Maint().CreateBank("VANLAAR", name, 0);
  Reopen(accRead);
  LibMaint_i other(&Library());
  char type[9];
  char first[9];
  char second[9];
  Maint().BeginBankWalk();
  other.BeginBankWalk();
  for (char const* name : {"A", "B", "C"}) {
    ASSERT_TRUE(Maint().NextBank(type, first));
    ASSERT_TRUE(other.NextBank(type, second));
    EXPECT_STREQ(first, name);
    EXPECT_STREQ(second, name);
  }
}

}  // namespace
}  // namespace zel

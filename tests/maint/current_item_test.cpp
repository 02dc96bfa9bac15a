// The current item: which operations set it, keep it or end it.
#include <functional>

#include "frame/module.h"
#include "tests/maint/maint_fixture.h"

namespace zel {
namespace {

class CurrentItemTest : public test::MaintTest {
 protected:
  CurrentItemTest() {
    EXPECT_TRUE(Maint().CreateBank("VANLAAR", "A", 0));
    SetAij(3, 4);
    SetKey();
    EXPECT_TRUE(Maint().WriteItem(vanLaar_.Get(), "A", &key_));
  }
  void SetKey() { key_.SetKey(1L, 2L); }
  bool Read() {
    SetKey();
    return Maint().ReadItem(vanLaar_.Get(), "A", &key_);
  }
  bool Rewrite() { return Maint().RewriteItem(vanLaar_.Get()); }

  std::int32_t words_[10] = {};
  std::int32_t number_ = 0;
  char type_[9] = {};
  char name_[9] = {};
  char memo_[4000] = {};
};

struct Call {
  char const* what;
  std::function<void()> run;
};

TEST_F(CurrentItemTest, StaysThroughLookUpsOfBanksAndNumbers) {
  std::vector<Call> const calls = {
      {"BankExists", [&] { Maint().BankExists("VANLAAR", "NONE"); }},
      {"GetBankFormat", [&] { Maint().GetBankFormat("NRTL", "A"); }},
      {"GetBankMemo", [&] { Maint().GetBankMemo("VANLAAR", "A", memo_); }},
      {"SetBankMemo", [&] { Maint().SetBankMemo("VANLAAR", "A", "memo"); }},
      {"FindNumberById", [&] { Maint().FindNumberById("WATER"); }},
      {"GetIdOfNumber", [&] { Maint().GetIdOfNumber(12, name_); }},
      {"NextComponentNumber", [&] { Maint().NextComponentNumber(); }}};
  for (Call const& call : calls) {
    ASSERT_TRUE(Read());
    call.run();
    EXPECT_TRUE(Rewrite()) << call.what;
  }
}

TEST_F(CurrentItemTest, EndsWithWhatTakesTheTreeOrFails) {
  Key_i absent;
  absent.SetKey(8L, 9L);
  std::vector<Call> const calls = {
      {"CreateBank", [&] { EXPECT_FALSE(Maint().CreateBank("VANLAAR", "A", 0)); }},
      {"DeleteBank", [&] { Maint().DeleteBank("VANLAAR", "NONE"); }},
      {"ItemExists", [&] { EXPECT_TRUE(Maint().ItemExists(vanLaar_.Get(), "A", &key_)); }},
      {"ReadItem", [&] { EXPECT_FALSE(Maint().ReadItem(vanLaar_.Get(), "A", &absent)); }},
      {"WriteItem", [&] { EXPECT_FALSE(Maint().WriteItem(vanLaar_.Get(), "NONE", &key_)); }},
      {"DeleteItem", [&] { EXPECT_FALSE(Maint().DeleteItem("VANLAAR", "A", &absent)); }},
      {"DeleteItem of no type", [&] { EXPECT_FALSE(Maint().DeleteItem("NOTYPE", "A", &key_)); }},
      {"CreateBank of no type", [&] { EXPECT_FALSE(Maint().CreateBank("NOTYPE", "A", 0)); }},
      {"BeginIdWalk", [&] { Maint().BeginIdWalk(); }},
      {"BeginBankWalk", [&] { Maint().BeginBankWalk(); }},
      {"BeginItemWalk", [&] { EXPECT_TRUE(Maint().BeginItemWalk("VANLAAR", "A")); }},
      {"EndIdWalk", [&] { Maint().EndIdWalk(); }},
      {"EndBankWalk", [&] { Maint().EndBankWalk(); }},
      {"EndItemWalk", [&] { Maint().EndItemWalk(); }},
      {"NextId", [&] { EXPECT_FALSE(Maint().NextId(number_, name_)); }},
      {"NextBank", [&] { EXPECT_FALSE(Maint().NextBank(type_, name_)); }},
      {"NextItem", [&] { EXPECT_FALSE(Maint().NextItem(words_, vanLaar_.Get())); }},
      {"NextItemKey", [&] { EXPECT_FALSE(Maint().NextItemKey(words_)); }}};
  for (Call const& call : calls) {
    ASSERT_TRUE(Read());
    call.run();
    EXPECT_FALSE(Rewrite()) << call.what;
  }
}

// An item of a walk can be read but not rewritten.
TEST_F(CurrentItemTest, IsNoneWithinAWalk) {
  ASSERT_TRUE(Maint().BeginItemWalk("VANLAAR", "A"));
  ASSERT_TRUE(Maint().NextItem(words_, vanLaar_.Get()));
  EXPECT_FALSE(Rewrite());
}

TEST_F(CurrentItemTest, FailedReadLeavesTheBankEmpty) {
  for (char const* name : {"A", "NONE"}) {
    SetAij(3, 4);
    key_.SetKey(8L, 9L);
    EXPECT_FALSE(Maint().ReadItem(vanLaar_.Get(), name, &key_));
    EXPECT_TRUE(gen_IsUndefDouble(Aij())) << name;
  }
  SetAij(3, 4);
  EXPECT_FALSE(Maint().ItemExists(vanLaar_.Get(), "A", &key_));
  EXPECT_EQ(Aij(), 3.0) << "a question changes nothing";
}

// The position is that of the new entry, even if its node was split by the insert.
TEST_F(CurrentItemTest, IsTheNewOneAfterEveryInsert) {
  SetDeleteTestFlag(true);
  Maint().CreateBank("VANLAAR", "D", 0);
  SetDeleteTestFlag(false);
  constexpr long kItems = 101;
  for (long n = 0; n < kItems; ++n) {
    long const i = n * 37 % kItems;
    SetAij(-1, -1);
    key_.SetKey(i, 1000L);
    ASSERT_TRUE(Maint().WriteItem(vanLaar_.Get(), "D", &key_));
    SetAij(double(i), 0);
    ASSERT_TRUE(Rewrite()) << i;
  }
  Reopen(accRead);
  for (long i = 0; i < kItems; ++i) {
    key_.SetKey(i, 1000L);
    ASSERT_TRUE(Maint().ReadItem(vanLaar_.Get(), "D", &key_));
    EXPECT_EQ(Aij(), double(i));
  }
}

TEST_F(CurrentItemTest, ReasonStaysWhereThereIsNoneToTell) {
  key_.SetKey(8L, 9L);
  ASSERT_FALSE(Maint().ReadItem(vanLaar_.Get(), "A", &key_));
  EXPECT_FALSE(Maint().CreateBank("VANLAAR", "A", 0));
  EXPECT_FALSE(Maint().CreateBank("NOTYPE", "A", 0));
  EXPECT_FALSE(Maint().DeleteItem("NOTYPE", "A", &key_));
  EXPECT_FALSE(Maint().BeginItemWalk("VANLAAR", "NONE"));
  EXPECT_EQ(Maint().Log().PendingText(), "Error reading bank index");
  EXPECT_EQ(Maint().GetLastErrorText(), nullptr);
}

}  // namespace
}  // namespace zel

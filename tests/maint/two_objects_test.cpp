// Two objects working on one library: a rewrite finds the item where it is by then.
#include <optional>

#include "tests/maint/maint_fixture.h"
#include "zelaccess/Module.h"

namespace zel {
namespace {

class TwoObjectsTest : public test::MaintTest {
 protected:
  TwoObjectsTest() {
    SetDeleteTestFlag(true);  // few entries make a deep tree
    Maint().CreateBank("VANLAAR", "A", 0);
    SetDeleteTestFlag(false);
  }

  void Write(LibMaint_i& maint, long number, double aij) {
    Key_i key;
    key.SetKey(number, 1000L);
    SetAij(aij, 0);
    ASSERT_TRUE(maint.WriteItem(vanLaar_.Get(), "A", &key));
  }
  bool Read(LibMaint_i& maint, long number) {
    Key_i key;
    key.SetKey(number, 1000L);
    return maint.ReadItem(vanLaar_.Get(), "A", &key);
  }
  bool Rewrite(LibMaint_i& maint, double aij) {
    SetAij(aij, 0);
    return maint.RewriteItem(vanLaar_.Get());
  }
};

TEST_F(TwoObjectsTest, RewriteAfterInsertsOfAnotherLosesNothing) {
  constexpr long kItems = 60;
  std::optional<LibMaint_i> other(library_.get());
  for (long i = 0; i < kItems; i += 2) Write(Maint(), i, double(i));
  for (long i = 0; i < kItems; i += 2) {
    ASSERT_TRUE(Read(Maint(), i));
    Write(*other, i + 1, double(i + 1));
    ASSERT_TRUE(Rewrite(Maint(), double(i) + 0.5)) << i;
  }
  other.reset();  // before its library
  Reopen(accRead);
  for (long i = 0; i < kItems; ++i) {
    ASSERT_TRUE(Read(Maint(), i)) << i;
    EXPECT_EQ(Aij(), i % 2 == 0 ? double(i) + 0.5 : double(i));
  }
}

TEST_F(TwoObjectsTest, RewriteAfterItsOwnInsertAndThoseOfAnother) {
  std::optional<LibMaint_i> other(library_.get());
  Write(Maint(), 1, 1);
  for (long i = 2; i < 20; ++i) Write(*other, i, double(i));
  ASSERT_TRUE(Rewrite(Maint(), 7));
  ASSERT_TRUE(Rewrite(Maint(), 8));
  other.reset();  // before its library
  Reopen(accRead);
  ASSERT_TRUE(Read(Maint(), 1));
  EXPECT_EQ(Aij(), 8.0);
  for (long i = 2; i < 20; ++i) {
    ASSERT_TRUE(Read(Maint(), i)) << i;
    EXPECT_EQ(Aij(), double(i));
  }
}

TEST_F(TwoObjectsTest, ItemThatAnotherDeletedIsNotRewritten) {
  LibMaint_i other(library_.get());
  for (long i = 0; i < 20; ++i) Write(Maint(), i, double(i));
  ASSERT_TRUE(Read(Maint(), 7));
  Key_i key;
  key.SetKey(7L, 1000L);
  ASSERT_TRUE(other.DeleteItem("VANLAAR", "A", &key));
  EXPECT_FALSE(Rewrite(Maint(), 70));
  EXPECT_FALSE(Read(other, 7));
  for (long i = 0; i < 20; ++i) EXPECT_EQ(Read(other, i), i != 7) << i;
}

TEST_F(TwoObjectsTest, BankThatAnotherDeletedAndMadeAgainIsNotWrittenTo) {
  LibMaint_i other(library_.get());
  Write(Maint(), 1, 1);
  ASSERT_TRUE(Read(Maint(), 1));
  ASSERT_TRUE(other.DeleteBank("VANLAAR", "A"));
  EXPECT_FALSE(Rewrite(Maint(), 2));
  ASSERT_TRUE(other.CreateBank("VANLAAR", "A", 0));
  EXPECT_FALSE(Rewrite(Maint(), 2));
  EXPECT_FALSE(Read(other, 1));
}

}  // namespace
}  // namespace zel

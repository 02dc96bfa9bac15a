// What records of items say by themselves.
#include <gtest/gtest.h>

#include <bit>
#include <stdexcept>

#include "tests/support/sample_library.h"
#include "tests/support/stored_items.h"
#include "verify/salvage/item_checks.h"

namespace zel {
namespace {

BankShape const& ShapeNamed(char const* type) {
  for (BankShape const& shape : BankShapes()) {
    if (shape.type == type) return shape;
  }
  throw std::logic_error(type);
}

std::int32_t WordOf(float value) { return std::bit_cast<std::int32_t>(value); }

TEST(ItemChecksTest, RecordsThatNoWriterLeavesAreNotPlausible) {
  ItemChecks checks;
  BankShape const& rackett = ShapeNamed("RACKETT");
  struct Row {
    std::int32_t key, value;
    bool isPlausible;
  };
  Row const rows[] = {{7, WordOf(0.28F), true},       {7, 0, true},
                      {-1, WordOf(0.28F), false},     {7, WordOf(1e-30F), false},
                      {7, WordOf(-1e35F), true},      {7, WordOf(-0.28F), true},
                      {7, 0x7f800000, false},         {7, 0x7fc00000, false},
                      {7, 10000001 /* tiny */, false}};
  for (Row const& row : rows) {
    std::int32_t const entry[] = {row.key, row.value};
    EXPECT_EQ(checks.IsPlausible(rackett, entry), row.isPlausible) << row.key << " " << row.value;
  }
}

TEST(ItemChecksTest, WordsThatAFormatDoesNotUseAreZero) {
  ItemChecks checks;
  BankShape const& vanLaar = ShapeNamed("VANLAAR");
  std::vector<std::int32_t> record(14);
  std::vector<bool> used;
  EXPECT_TRUE(checks.IsOfFormat(vanLaar, record.data(), used));
  ASSERT_EQ(used.size(), 14U);
  EXPECT_TRUE(used[5]);   // aij
  EXPECT_FALSE(used[9]);  // between the parameters and the code
  record[9] = 1;
  EXPECT_FALSE(checks.IsOfFormat(vanLaar, record.data(), used));
}

TEST(ItemChecksTest, NumberThatIsNoneBecomesUndefined) {
  ItemChecks checks;
  BankHeading const bank = MakeHeading(ShapeNamed("RACKETT"), "X", 0);
  std::int32_t data[] = {0x7fc00000};
  EXPECT_EQ(checks.Mend(bank, data), std::vector<std::string>{"zRa"});
  EXPECT_EQ(data[0], WordOf(-1e35F));
  EXPECT_TRUE(checks.Mend(bank, data).empty());
}

TEST(ItemChecksTest, ItemsOfAllTypesArePlausible) {
  test::MemoryFileSystem files;
  test::MakeSampleLibrary(files);
  ItemChecks checks;
  int count = 0;
  test::StoredItems const items =
      test::ReadItems({{files.Contents(test::kSamplePath), files.Contents(test::kSamplePath2)}});
  for (auto const& [name, item] : items) {
    for (BankShape const& shape : BankShapes()) {
      bool const isIt = shape.type == name.type && !shape.shape.isAddressed &&
                        item.values.size() == static_cast<std::size_t>(shape.shape.dataWords);
      if (!isIt) continue;
      ++count;
      std::vector<std::int32_t> entry = name.key;
      entry.insert(entry.end(), item.values.begin(), item.values.end());
      std::vector<bool> used;
      EXPECT_TRUE(checks.IsPlausible(shape, entry.data())) << name.type;
      EXPECT_TRUE(checks.IsOfFormat(shape, item.values.data(), used)) << name.type;
    }
  }
  EXPECT_EQ(count, 54);
}

}  // namespace
}  // namespace zel

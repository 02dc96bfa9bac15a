#include <gtest/gtest.h>

#include <array>
#include <random>
#include <vector>

#include "store/extents.h"
#include "tests/support/extent_model.h"

namespace zel {
namespace {

constexpr std::int32_t kFile1 = 111000000;
constexpr std::int32_t kFile2 = 112000000;

ExtentList NewList() {
  std::array<std::int32_t, 125> table{};
  MakeBlockTable(table.data(), 11);
  ExtentList list;
  list.Load(table.data(), 11, 2);
  return list;
}

TEST(Extents, NewLibraryHasTwoOpenTails) {
  ExtentList const list = NewList();
  ASSERT_EQ(list.Count(), 2);
  EXPECT_EQ(list[0].address, 112000001);
  EXPECT_EQ(list[0].size, 999999);
  EXPECT_EQ(list[1].address, 111000003);
  EXPECT_EQ(list[1].size, 999999);
}

TEST(Extents, TailMovesAndNeverShrinks) {
  ExtentList list = NewList();
  EXPECT_EQ(list.Take(1, 5), kFile1 + 3);
  EXPECT_EQ(list.Take(1, 1), kFile1 + 8);
  EXPECT_EQ(list[1].size, 999999);
  EXPECT_EQ(list[1].address, kFile1 + 9);
}

TEST(Extents, NeighboursFreedOneAfterTheOtherJoin) {
  ExtentList list = NewList();
  list.Take(1, 10);  // blocks 3 to 12
  list.GiveBack(kFile1 + 5, 1, 1);
  list.GiveBack(kFile1 + 4, 1, 1);
  ASSERT_EQ(list.Count(), 3);
  EXPECT_EQ(list[2].address, kFile1 + 4);
  EXPECT_EQ(list[2].size, 2);
}

TEST(Extents, FreedRunThatMeetsTheTailTakesItOver) {
  ExtentList list = NewList();
  list.Take(2, 4);
  list.GiveBack(kFile2 + 4, 1, 2);
  ASSERT_EQ(list.Count(), 2);
  EXPECT_EQ(list[0].address, kFile2 + 4);
  EXPECT_EQ(list[0].size, 999999);
}

TEST(Extents, RunThatTakesATailOverTakesWhatStandsAtItsEnd) {
  for (int block : {3, 4, 5}) {
    ExtentList list;
    std::array<std::int32_t, 125> table{};
    table[0] = 2;
    table[1] = 999999;
    table[63] = kFile1 + 3;
    table[2] = 2;
    table[64] = kFile2 + block;
    list.Load(table.data(), 11, 2);
    ASSERT_EQ(list.Count(), 2);
    list.Take(1, 2);
    list.GiveBack(kFile1 + 4, 1, 1);  // ends at address kFile2 + 4 with the tail's size
    EXPECT_EQ(list[0].address, kFile1 + 4);
    EXPECT_EQ(list[0].size, 999999);
    ASSERT_EQ(list.Count(), block == 4 ? 1 : 2) << block;
  }
}

TEST(Extents, SixtyThirdExtentIsLost) {
  ExtentList list = NewList();
  list.Take(1, 1000);
  // 60 single blocks and runs, never neighbours; then the list of 62 is full.
  for (int i = 0; i < 60; ++i) list.GiveBack(kFile1 + 10 + 10 * i, 2, 1);
  ASSERT_EQ(list.Count(), 62);
  list.GiveBack(kFile1 + 900, 1, 1);  // the smallest: is dropped
  EXPECT_EQ(list.Count(), 62);
  for (int i = 0; i < list.Count(); ++i) EXPECT_NE(list[i].address, kFile1 + 900);
  list.GiveBack(kFile1 + 920, 5, 1);  // larger: pushes a smaller one out
  EXPECT_EQ(list.Count(), 62);
  EXPECT_EQ(list[2].address, kFile1 + 920);
  EXPECT_EQ(list[2].size, 5);
}

// An exhausted extent is the last of the list only when no open tail is left.
TEST(Extents, ListWithoutAnyFreeBlockKeepsItsCount) {
  std::array<std::int32_t, 125> table{};
  table[1] = 2;
  table[63] = kFile1 + 10;
  ExtentList list;
  list.Load(table.data(), 11, 2);
  EXPECT_EQ(list.Take(1, 2), kFile1 + 10);
  EXPECT_EQ(list.Count(), 1);
  EXPECT_EQ(list[0].size, 0);
  EXPECT_EQ(list.Take(1, 1), format::kNullAddress);
  list.GiveBack(kFile1 + 30, 3, 1);
  ASSERT_EQ(list.Count(), 1);
  EXPECT_EQ(list[0].address, kFile1 + 30);
  EXPECT_EQ(list[0].size, 3);
}

TEST(Extents, FreedRunOfAnyLengthIsCutToTheLargestSize) {
  for (std::int64_t blocks : {std::int64_t{999996}, std::int64_t{INT32_MAX}}) {
    std::array<std::int32_t, 125> table{};
    table[1] = 3;
    table[63] = kFile2 + 2;
    ExtentList list;
    list.Load(table.data(), 11, 2);
    list.GiveBack(kFile2 + 5, blocks, 2);
    ASSERT_EQ(list.Count(), 1) << "joined with the one in front";
    EXPECT_EQ(list[0].address, kFile2 + 2);
    EXPECT_EQ(list[0].size, 999999) << blocks;
  }
}

TEST(Extents, DoubleFreeThrowsTheAddress) {
  ExtentList list = NewList();
  list.Take(2, 10);
  list.GiveBack(kFile2 + 3, 2, 2);
  for (auto [block, size] : {std::pair{3, 1}, {4, 1}, {2, 3}, {11, 1}, {10, 5}}) {
    try {
      list.GiveBack(kFile2 + block, size, 2);
      ADD_FAILURE() << block;
    } catch (unsigned long word) {
      EXPECT_EQ(word, static_cast<unsigned long>(kFile2 + block));
    }
  }
}

TEST(Extents, RunNeverReachesBehindTheLastBlock) {
  ExtentList list;
  std::array<std::int32_t, 125> table{};
  table[0] = 1;
  table[1] = 999999;
  table[63] = kFile2 + 999998;
  list.Load(table.data(), 11, 2);
  EXPECT_EQ(list.Take(2, 3), format::kNullAddress);
  EXPECT_EQ(list.Take(2, 2), kFile2 + 999998);
  EXPECT_EQ(list.Take(2, 1), format::kNullAddress);
}

TEST(Extents, EntriesThatCannotBeTrueAreDropped) {
  struct {
    std::int32_t size, address;
  } const kBad[] = {{0, kFile1 + 5},
                    {-1, kFile1 + 5},
                    {5, 0},
                    {5, -5},
                    {5, format::kNullAddress},
                    {5, 121000005},
                    {5, 113000001},
                    {5, kFile1},
                    {5, kFile1 + 2},
                    {5, kFile2},
                    {1000000, kFile2 + 1},
                    {INT32_MAX, kFile2 + 1},
                    {2, kFile2 + 999999}};
  for (auto const& bad : kBad) {
    std::array<std::int32_t, 125> table{};
    table[0] = 1;
    table[1] = bad.size;
    table[63] = bad.address;
    ExtentList list;
    list.Load(table.data(), 11, 2);
    EXPECT_EQ(list.Count(), 0) << bad.size << " at " << bad.address;
  }
}

TEST(Extents, OverlappingEntryIsDropped) {
  std::array<std::int32_t, 125> table{};
  table[0] = 2;
  table[1] = 10;
  table[63] = kFile2 + 5;
  table[2] = 3;
  table[64] = kFile2 + 14;
  ExtentList list;
  list.Load(table.data(), 11, 2);
  ASSERT_EQ(list.Count(), 1);
  EXPECT_EQ(list[0].size, 10);
}

TEST(Extents, StoreClearsPlacesBehindTheCount) {
  std::array<std::int32_t, 125> table;
  table.fill(77);
  NewList().Store(table.data());
  EXPECT_EQ(table[0], 2);
  for (std::size_t i = 2; i < 62; ++i) {
    EXPECT_EQ(table[1 + i], 0);
    EXPECT_EQ(table[63 + i], 0);
  }
}

TEST(Extents, RandomScriptsAgreeWithTheLiteralModel) {
  for (unsigned seed = 0; seed < 200; ++seed) {
    std::mt19937 random(seed);
    ExtentList list = NewList();
    test::ExtentModel model(11);
    struct Run {
      std::int32_t address;
      int blocks;
      int file;
    };
    std::vector<Run> taken;
    for (int step = 0; step < 400; ++step) {
      bool const take = taken.empty() || random() % 100 < (step < 200 ? 70U : 40U);
      if (take) {
        int const file = 1 + static_cast<int>(random() % 2);
        int const blocks = 1 + static_cast<int>(random() % 4);
        std::int32_t const address = list.Take(file, blocks);
        ASSERT_EQ(address, model.Take(file, blocks));
        taken.push_back({address, blocks, file});
      } else {
        std::size_t const at = random() % taken.size();
        Run const run = taken[at];
        taken.erase(taken.begin() + static_cast<long>(at));
        list.GiveBack(run.address, run.blocks, run.file);
        model.GiveBack(run.address, run.blocks, run.file);
      }
      ASSERT_EQ(list.Count(), static_cast<int>(model.Entries().size()));
      for (int i = 0; i < list.Count(); ++i) {
        ASSERT_EQ(list[i].address, model.Entries()[static_cast<std::size_t>(i)].address);
        ASSERT_EQ(list[i].size, model.Entries()[static_cast<std::size_t>(i)].size);
      }
    }
  }
}

TEST(Extents, AllPlacesOfTheTableAreReadWhateverItsCountSays) {
  std::array<std::int32_t, 125> table{};
  table[0] = -3;
  table[1] = 2;
  table[63] = kFile1 + 10;
  table[62] = 4;  // the last place, after empty ones
  table[124] = kFile2 + 20;
  ExtentList list;
  list.Load(table.data(), 11, 2);
  ASSERT_EQ(list.Count(), 2);
  EXPECT_EQ(list[0].address, kFile2 + 20);
  EXPECT_EQ(list[1].address, kFile1 + 10);
  list.Load(table.data(), 12, 2);
  EXPECT_EQ(list.Count(), 0) << "what was there before is gone";
}

TEST(Extents, OrderIsBySizeThenFileThenAddressDescending) {
  std::array<std::int32_t, 125> table{};
  std::int32_t const addresses[] = {kFile1 + 10, kFile2 + 30, kFile1 + 90, kFile2 + 70};
  for (std::size_t i = 0; i < 4; ++i) {
    table[1 + i] = 5;
    table[63 + i] = addresses[i];
  }
  table[5] = 6;
  table[67] = kFile1 + 3;
  ExtentList list;
  list.Load(table.data(), 11, 2);
  std::vector<std::int32_t> found;
  for (int i = 0; i < list.Count(); ++i) found.push_back(list[i].address);
  EXPECT_EQ(found, (std::vector<std::int32_t>{kFile1 + 3, kFile2 + 70, kFile2 + 30, kFile1 + 90,
                                              kFile1 + 10}));
  EXPECT_EQ(list.Take(2, 5), kFile2 + 30) << "of equal ones the last, the lowest address";
}

TEST(Extents, NeighboursThatMeetLateStayApartUntilALaterFree) {
  std::array<std::int32_t, 125> table{};
  table[1] = 6;
  table[63] = kFile1 + 10;  // blocks 10 to 15
  table[2] = 3;
  table[64] = kFile1 + 16;  // blocks 16 to 18, directly after
  ExtentList list;
  list.Load(table.data(), 11, 2);
  list.GiveBack(kFile1 + 19, 1, 1);  // the pass is past the larger one when it joins the other
  ASSERT_EQ(list.Count(), 2);
  EXPECT_EQ(list[0].address, kFile1 + 10);
  EXPECT_EQ(list[1].address, kFile1 + 16);
  EXPECT_EQ(list[1].size, 4);
  list.GiveBack(kFile1 + 20, 3, 1);
  ASSERT_EQ(list.Count(), 2);
  EXPECT_EQ(list[0].size, 7) << "now the one in front of the other in the list";
  list.GiveBack(kFile1 + 23, 1, 1);
  ASSERT_EQ(list.Count(), 1);
  EXPECT_EQ(list[0].address, kFile1 + 10);
  EXPECT_EQ(list[0].size, 14);
}

}  // namespace
}  // namespace zel

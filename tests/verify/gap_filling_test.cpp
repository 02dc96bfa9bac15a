// Unreached trees and the banks that they can belong to.
#include "verify/salvage/gap_filling.h"

#include <gtest/gtest.h>

#include <array>
#include <deque>

namespace zel {
namespace {

// A directory can name thousands of banks of one type, each with a wrong root, and there can be
// thousands of unreached leaves: whether an entry is possible is looked at once for each type.
TEST(GapFillingTest, EntriesAreLookedAtOnceForEachType) {
  constexpr int kBanks = 40;
  constexpr std::int32_t kTrees = 10;
  constexpr std::int32_t kEntries = 20;
  TreeShape shape;
  shape.keyWords = 1;
  shape.entryDataWords = 1;
  std::deque<SalvagedTree> banks(kBanks);
  std::vector<SalvagedTree*> pointers;
  for (SalvagedTree& bank : banks) {
    bank.heading.type = pointers.size() % 2 == 0 ? "NRTL" : "WILSON";
    bank.heading.shape = shape;
    bank.contents.gaps.emplace_back();
    pointers.push_back(&bank);
  }
  std::deque<std::array<std::int32_t, 2>> words;
  std::vector<OrphanTree> orphans;
  for (std::int32_t i = 0; i < kTrees; ++i) {
    OrphanTree& orphan = orphans.emplace_back();
    orphan.root = 1000 + i;
    orphan.contents.height = 1;
    orphan.contents.nodes.insert(orphan.root);
    for (std::int32_t k = 0; k < kEntries; ++k) {
      words.push_back({i * kEntries + k, 7});
      orphan.contents.entries.push_back({words.back().data(), orphan.root});
    }
  }
  BrokenLibrary const library;
  int looks = 0;
  std::set<std::int32_t> used;
  GapFilling filling(library, pointers, [&](BankHeading const& bank, std::int32_t const*) {
    ++looks;
    return bank.type == "WILSON";
  });
  filling.Fill(orphans, used);
  EXPECT_EQ(looks, 2 * kTrees * kEntries);
  EXPECT_EQ(used.size(), std::size_t{kTrees});
  std::size_t placed = 0;
  for (SalvagedTree const& bank : banks) {
    if (bank.heading.type == "NRTL") {
      EXPECT_TRUE(bank.contents.entries.empty());
    }
    placed += bank.contents.entries.size();
  }
  EXPECT_EQ(placed, std::size_t{kTrees * kEntries});
}

}  // namespace
}  // namespace zel

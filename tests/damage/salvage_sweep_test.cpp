// Damage of all kinds and at many places: a salvage always ends, with a sound library that has what
// is intact. scripts/salvage-rate measures it on many more libraries.
#include <gtest/gtest.h>

#include <cstring>

#include "maint/lib_maint.h"
#include "store/key.h"
#include "tests/support/damage.h"
#include "tests/support/sample_library.h"
#include "tests/support/sanitizers.h"
#include "verify/salvage/salvage.h"
#include "zelaccess/Verify.h"

namespace zel {
namespace {

using test::LibraryBytes;
using test::StoredItems;

#if ZEL_ADDRESS_SANITIZER || ZEL_THREAD_SANITIZER
constexpr std::size_t kStride = 30011;
constexpr std::uint64_t kSeeds = 2;
#else
constexpr std::size_t kStride = 1499;
constexpr std::uint64_t kSeeds = 12;
#endif

struct Damages final : ZelFindingSink {
  void Found(zelFindings severity, char const*, char const* place, char const* text) override {
    if (severity == findingDamage) texts += std::string(place) + ": " + text + "\n";
  }
  std::string texts;
};

struct Shares {
  double intact = 0;
  double walkable = 0;
  double rescued = 0;
  double rescuedWalkable = 0;
};

class SalvageSweepTest : public ::testing::Test {
 protected:
  void SetUp() override {
    test::MemoryFileSystem files;
    test::MakeSampleLibrary(files);
    whole_ = {{files.Contents(test::kSamplePath), files.Contents(test::kSamplePath2)}};
    items_ = test::ReadItems(whole_);
    ASSERT_EQ(items_.size(), 55U);
  }
  // The items of what is salvaged, which must be sound.
  StoredItems Salvage(LibraryBytes const& broken) {
    test::MemoryFileSystem files;
    files.Contents("/a.lb1") = broken.file[0];
    files.Contents("/a.lb2") = broken.file[1];
    libTypes type{};
    EXPECT_EQ(FindTypeOnFiles(files, "/a.lb1", type), openOk);
    LibFile_i rescued(files, accUpdate, "/r.lb1", "r");
    EXPECT_EQ(rescued.CreateNew(type), openOk);
    ZelSalvageCounts counts;
    openErrors const error = SalvageFiles(files, "/a.lb1", "", &rescued, nullptr, counts);
    EXPECT_TRUE(error == openOk || error == openPasswordNeeded);
    isProtected_ = error != openOk;
    rescued.CloseLibFile();
    EXPECT_EQ(rescued.ReopenLibFile(), openOk);
    Damages damages;
    EXPECT_TRUE(VerifyLibrary(&rescued, damages)) << damages.texts;
    rescued.CloseLibFile();
    StoredItems items = test::ReadItems({{files.Contents("/r.lb1"), files.Contents("/r.lb2")}});
    EXPECT_EQ(counts.items, static_cast<std::int64_t>(items.size()));
    return items;
  }
  // What of the intact items is there, in whatever bank.
  Shares Compare(LibraryBytes const& broken, StoredItems const& rescued) const {
    std::multimap<std::vector<std::int32_t>, test::StoredItem const*> byKey;
    for (auto const& [name, item] : rescued) byKey.emplace(name.key, &item);
    Shares shares;
    for (auto const& [name, item] : items_) {
      if (!item.IsIntact(whole_, broken)) continue;
      auto const [from, to] = byKey.equal_range(name.key);
      bool const isThere = std::any_of(
          from, to, [&item = item](auto const& one) { return one.second->values == item.values; });
      double const walkable = item.CanBeWalkedTo(whole_, broken) ? 1.0 : 0.0;
      shares.intact += 1.0;
      shares.walkable += walkable;
      shares.rescued += isThere ? 1.0 : 0.0;
      shares.rescuedWalkable += isThere ? walkable : 0.0;
    }
    return shares;
  }

  LibraryBytes whole_;
  StoredItems items_;
  bool isProtected_ = false;
};

TEST_F(SalvageSweepTest, OneWrongBitCostsNoIntactItem) {
  for (int file : {0, 1}) {
    for (std::size_t bit = 0; bit < 8 * whole_.file[file].size(); bit += kStride) {
      LibraryBytes broken = whole_;
      broken.file[file][bit / 8] ^= static_cast<std::byte>(1 << (bit % 8));
      StoredItems const rescued = Salvage(broken);
      if (isProtected_) continue;
      Shares const shares = Compare(broken, rescued);
      ASSERT_EQ(shares.rescued, shares.intact) << "file " << file + 1 << " bit " << bit;
      ASSERT_GE(shares.intact, 54);
    }
  }
}

TEST_F(SalvageSweepTest, AnyLengthCostsHardlyAnIntactItem) {
  for (int file : {0, 1}) {
    for (std::size_t size = 0; size < whole_.file[file].size(); size += kStride) {
      LibraryBytes broken = whole_;
      broken.file[file].resize(size);
      Shares const shares = Compare(broken, Salvage(broken));
      // Without the directory, a bank of a single item can look like one of another type.
      EXPECT_GE(shares.rescued, 0.95 * shares.intact - 1.0)
          << "file " << file + 1 << " length " << size;
    }
  }
}

TEST_F(SalvageSweepTest, DamageOfEveryKindCostsFewIntactItems) {
  Shares all;
  for (test::DamageKind const& kind : test::DamageKinds()) {
    for (std::uint64_t seed = 1; seed <= kSeeds; ++seed) {
      std::mt19937_64 random(seed);
      LibraryBytes broken = whole_;
      int const times = kind.isRepeated ? static_cast<int>(1 + seed) : 1;
      for (int i = 0; i < times; ++i) kind.apply(broken, random);
      SCOPED_TRACE(std::string(kind.name) + " " + std::to_string(seed));
      Shares const shares = Compare(broken, Salvage(broken));
      all.intact += shares.intact;
      all.walkable += shares.walkable;
      all.rescued += shares.rescued;
      all.rescuedWalkable += shares.rescuedWalkable;
    }
  }
  EXPECT_GT(all.walkable, 10 * kSeeds);
  EXPECT_GE(all.rescuedWalkable, 0.99 * all.walkable);
  EXPECT_GE(all.rescued, 0.95 * all.intact) << all.rescued << " of " << all.intact;
}

TEST_F(SalvageSweepTest, HostileWordsNeverEndIt) {
  constexpr std::int32_t kHostile[] = {-1,        INT32_MAX, INT32_MIN, 990000000, 111000001,
                                       112000000, 112000001, 112999999, 119000001, 250};
  std::mt19937_64 random(3);
  for (std::size_t image = 0; image < 20 * kSeeds; ++image) {
    LibraryBytes broken = whole_;
    for (int n = 0; n < 200; ++n) {
      auto& bytes = broken.file[random() % 2];
      std::size_t const at = random() % (bytes.size() / 4) * 4;
      std::int32_t const word = kHostile[random() % std::size(kHostile)];
      std::memcpy(bytes.data() + at, &word, 4);
    }
    Salvage(broken);
  }
}

}  // namespace
}  // namespace zel

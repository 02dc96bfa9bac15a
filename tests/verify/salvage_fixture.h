// A library in memory that is damaged and salvaged.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "maint/lib_maint.h"
#include "tests/support/memory_file_system.h"
#include "tests/support/stored_items.h"
#include "verify/salvage/salvage.h"

namespace zel::test {

struct SalvageRecord {
  zelSalvageKinds kind;
  zelSalvageStates state;
  zelSalvageWays way;
  std::string bank;  // TYPE:NAME; empty for the library
  std::vector<std::int32_t> key;
  std::string text;
};

class SalvageRecords final : public ZelSalvageSink {
 public:
  void Salvaged(ZelSalvageRecord const& r) override {
    std::string const bank = *r.type == '\0' ? "" : std::string(r.type) + ":" + r.bank;
    all.push_back({r.kind, r.state, r.way, bank, {r.keyWords, r.keyWords + r.keyCount}, r.text});
  }
  // Those that were not simply taken.
  std::vector<SalvageRecord> Notable() const;

  std::vector<SalvageRecord> all;
};

class SalvageFixture : public ::testing::Test {
 protected:
  static constexpr char kBroken[] = "/broken.lb1";
  static constexpr char kBroken2[] = "/broken.lb2";
  static constexpr char kRescued[] = "/rescued.lb1";
  static constexpr char kRescued2[] = "/rescued.lb2";

  // Makes the library by what `fill` does.
  template <typename Fill>
  void Make(Fill const& fill) {
    LibFile_i library(files_, accUpdate, kBroken, "broken");
    ASSERT_EQ(library.CreateNew(libKind12), openOk);
    LibMaint_i maint(&library);
    fill(library, maint);
    library.CloseLibFile();
    whole_ = BytesOf(kBroken, kBroken2);
    items_ = ReadItems(whole_);
  }
  LibraryBytes BytesOf(char const* first, char const* second) {
    return {{files_.Contents(first), files_.Contents(second)}};
  }
  std::int32_t WordAt(int file, std::size_t byte) const;
  void PutWord(int file, std::size_t byte, std::int32_t word);
  // Salvages into a new library, whose items are then in `rescued_`, and which must be sound.
  openErrors Salvage(char const* password = "");
  // The bytes of the node with the root of a bank; the node below it at a link.
  std::size_t RootOf(char const* type, char const* name) const;
  std::size_t EntryOf(char const* type, char const* name) const;
  std::size_t NodeAt(std::size_t node, std::size_t entryWords, std::size_t link) const;
  static std::size_t OffsetOf(std::int32_t address) {
    return static_cast<std::size_t>(address % 1'000'000 - 1) *
           (address / 1'000'000 % 10 == 1 ? 1000 : 4000);
  }
  // Items of the library that the rescued one does not have with the same values.
  std::vector<ItemName> Missing() const;
  std::vector<ItemName> Added() const;

  MemoryFileSystem files_;
  LibraryBytes whole_;
  StoredItems items_;
  StoredItems rescued_;
  SalvageRecords records_;
  ZelSalvageCounts counts_;
};

// Pairs 1-2, 1-3, ... in a bank of a type with fields aij and bij, `step` apart.
void WritePairs(LibMaint_i& maint, char const* type, char const* name, long from, long to,
                long step = 1);
// Components with these numbers, all different.
void WriteComponents(LibMaint_i& maint, char const* name, long from, long to);

}  // namespace zel::test

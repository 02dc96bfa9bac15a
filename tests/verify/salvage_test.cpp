// What a salvage takes out of a damaged library, and what it leaves.
#include <bit>
#include <cmath>
#include <cstring>

#include "store/key.h"
#include "tests/support/sample_library.h"
#include "tests/verify/salvage_fixture.h"

namespace zel::test {
namespace {

constexpr std::size_t kPairWords = 22;  // of an entry of NRTL: two of key, twenty of data

class SalvageTest : public SalvageFixture {
 protected:
  // Two banks of pairs with the same keys, one of components, memos and texts.
  void MakeUsual() {
    Make([](LibFile_i& library, LibMaint_i& maint) {
      WritePairs(maint, "NRTL", "VLE", 0, 400);
      WritePairs(maint, "NRTL", "OTHER", 0, 400, 2);
      WritePairs(maint, "UNIQUAC", "OWN", 0, 60);
      WriteComponents(maint, "OWN", 1001, 1061);
      maint.SetBankMemo("NRTL", "VLE", "of the bank");
      library.SetMemo("of the library");
      library.SetDescriptionAndVersion("Described", "1.2");
      library.SetReservedWords(7, 8);
    });
  }
  std::size_t TreeHeads() const { return OffsetOf(WordAt(1, 20)); }
  // The first record of the kind and state.
  SalvageRecord const* Told(zelSalvageKinds kind, zelSalvageStates state) const {
    for (SalvageRecord const& one : records_.all) {
      if (one.kind == kind && one.state == state) return &one;
    }
    return nullptr;
  }
  void Clear(int file, std::size_t from, std::size_t bytes) {
    auto& all = files_.Contents(file == 1 ? kBroken : kBroken2);
    std::fill_n(all.begin() + static_cast<std::ptrdiff_t>(from), bytes, std::byte{0});
  }
  // Everything is there, and under its own name.
  void ExpectAll() {
    EXPECT_TRUE(Missing().empty()) << Missing().size();
    EXPECT_TRUE(Added().empty()) << Added().size();
    EXPECT_EQ(counts_.items, static_cast<std::int64_t>(items_.size()));
    EXPECT_EQ(counts_.lost + counts_.keyless + counts_.gaps, 0);
  }
};

TEST_F(SalvageTest, UndamagedLibraryComesOutTheSame) {
  MakeUsual();
  ASSERT_EQ(Salvage(), openOk);
  ExpectAll();
  EXPECT_EQ(counts_.banks, 4);
  EXPECT_EQ(counts_.scanned + counts_.altered, 0);
  EXPECT_TRUE(records_.Notable().empty());
  LibFile_i library(files_, accUpdate, kRescued, "r");
  ASSERT_EQ(library.OpenExisting({true, ""}, nullptr), openOk);
  char text[4000];
  char version[13];
  library.GetDescriptionAndVersion(text, version);
  EXPECT_STREQ(text, "Described");
  EXPECT_STREQ(version, "1.2");
  library.GetMemo(text);
  EXPECT_STREQ(text, "of the library");
  std::int32_t a = 0;
  std::int32_t b = 0;
  library.GetReservedWords(a, b);
  EXPECT_EQ(a, 7);
  EXPECT_EQ(b, 8);
  libTypes type{};
  accModes mode{};
  library.GetLibInfo(type, mode);
  EXPECT_EQ(type, libKind12);
  LibMaint_i maint(&library);
  maint.GetBankMemo("NRTL", "VLE", text);
  EXPECT_STREQ(text, "of the bank");
  EXPECT_EQ(maint.FindNumberById("C1007"), 1007);
}

TEST_F(SalvageTest, EveryBankTypeAndFormatComesOutTheSame) {
  MemoryFileSystem sample;
  MakeSampleLibrary(sample);
  files_.Contents(kBroken) = sample.Contents(kSamplePath);
  files_.Contents(kBroken2) = sample.Contents(kSamplePath2);
  items_ = ReadItems(BytesOf(kBroken, kBroken2));
  ASSERT_EQ(items_.size(), 55U);
  ASSERT_EQ(Salvage(), openOk);
  ExpectAll();
  EXPECT_TRUE(records_.Notable().empty());
}

TEST_F(SalvageTest, OrderOfRecordsIsThatOfBanksAndKeys) {
  MakeUsual();
  ASSERT_EQ(Salvage(), openOk);
  std::vector<std::string> banks;
  for (std::size_t i = 0; i < records_.all.size(); ++i) {
    SalvageRecord const& one = records_.all[i];
    if (one.kind == salvageBank) {
      banks.push_back(one.bank);
      continue;
    }
    ASSERT_EQ(one.kind, salvageItem);
    ASSERT_EQ(one.bank, banks.back());
    if (records_.all[i - 1].kind == salvageItem) {
      EXPECT_LT(records_.all[i - 1].key, one.key);
    }
  }
  EXPECT_EQ(banks,
            (std::vector<std::string>{"NRTL:OTHER", "NRTL:VLE", "PURECOMP:OWN", "UNIQUAC:OWN"}));
}

TEST_F(SalvageTest, WhatWasDeletedFromASoundLibraryStaysDeleted) {
  Make([](LibFile_i&, LibMaint_i& maint) {
    WritePairs(maint, "NRTL", "VLE", 0, 400);
    WritePairs(maint, "NRTL", "OLD", 0, 400);
    WriteComponents(maint, "OWN", 1001, 1061);
    maint.DeleteBank("NRTL", "OLD");
    Key_i key;
    for (long i = 0; i < 400; i += 3) {
      key.SetKey(1 + i / 50, 101 + i % 50);
      ASSERT_TRUE(maint.DeleteItem("NRTL", "VLE", &key));
    }
    for (long number = 1001; number < 1061; number += 5) {
      key.SetKey(number);
      ASSERT_TRUE(maint.DeleteItem("PURECOMP", "OWN", &key));
    }
  });
  ASSERT_EQ(Salvage(), openOk);
  ExpectAll();
}

TEST_F(SalvageTest, HeaderOfZerosIsReplaced) {
  MakeUsual();
  Clear(1, 0, 1000);
  ASSERT_EQ(Salvage(), openOk);
  ExpectAll();
  auto const* told = Told(salvageHeader, salvageAltered);
  ASSERT_NE(told, nullptr);
  LibFile_i library(files_, accRead, kRescued, "r");
  libTypes type{};
  ASSERT_EQ(library.OpenExisting({true, ""}, &type), openOk);
  EXPECT_EQ(type, libKind12) << "the type of the addresses";
}

TEST_F(SalvageTest, MemoIsFoundWithoutItsAddress) {
  MakeUsual();
  Clear(1, 0, 1000);
  ASSERT_EQ(Salvage(), openOk);
  auto const memo = [&] {
    LibFile_i library(files_, accRead, kRescued, "r");
    EXPECT_EQ(library.OpenExisting({true, ""}, nullptr), openOk);
    char text[4000];
    library.GetMemo(text);
    return std::string(text);
  };
  EXPECT_EQ(memo(), "of the library");
  files_.Contents(kBroken) = whole_.file[0];
  PutWord(1, 28, -1);
  ASSERT_EQ(Salvage(), openOk);
  EXPECT_EQ(memo(), "of the library");
  // Nothing says which of two it is.
  files_.Contents(kBroken2).resize(files_.Contents(kBroken2).size() + 4000);
  char const other[] = "another text";
  std::memcpy(files_.Contents(kBroken2).data() + whole_.file[1].size(), other, sizeof other);
  Clear(1, 1000, 1000);  // the block table, which says that the block is free
  ASSERT_EQ(Salvage(), openOk);
  EXPECT_EQ(memo(), "");
  ASSERT_NE(Told(salvageHeader, salvageLost), nullptr);
}

TEST_F(SalvageTest, WrongBlockSizesAreNotBelieved) {
  MakeUsual();
  PutWord(1, 76 + 4, 500);
  PutWord(1, 76 + 8, 2000);
  ASSERT_EQ(Salvage(), openOk);
  ExpectAll();
}

TEST_F(SalvageTest, BlockTableOfZerosIsNotNeeded) {
  MakeUsual();
  Clear(1, 1000, 1000);
  ASSERT_EQ(Salvage(), openOk);
  ExpectAll();
}

TEST_F(SalvageTest, HeadsOfZerosAreFoundAgainByTheNodes) {
  MakeUsual();
  Clear(1, TreeHeads(), 96);
  ASSERT_EQ(Salvage(), openOk);
  ExpectAll();
}

TEST_F(SalvageTest, WrongAddressOfTheHeadsIsFoundOut) {
  MakeUsual();
  PutWord(1, 20, 121000005);
  ASSERT_EQ(Salvage(), openOk);
  ExpectAll();
  EXPECT_EQ(counts_.scanned, 0);
}

TEST_F(SalvageTest, WithoutTheSecondFileTheComponentsComeBack) {
  MakeUsual();
  files_.Remove(kBroken2);
  ASSERT_EQ(Salvage(), openOk);
  EXPECT_EQ(counts_.items, 60);
  EXPECT_EQ(counts_.scanned, 60);
  for (auto const& [name, item] : rescued_) {
    EXPECT_EQ(name.type, "PURECOMP");
    EXPECT_EQ(name.bank, "FOUND1");
    EXPECT_EQ(item.values, items_.at({"PURECOMP", "OWN", name.key}).values);
  }
}

TEST_F(SalvageTest, WithoutTheFirstFileTheOtherItemsComeBack) {
  MakeUsual();
  files_.Remove(kBroken);
  ASSERT_EQ(Salvage(), openOk);
  EXPECT_TRUE(Added().empty());
  for (ItemName const& name : Missing()) EXPECT_EQ(name.type, "PURECOMP");
  EXPECT_EQ(Missing().size(), 60U);
  EXPECT_EQ(counts_.lost, 60);
}

TEST_F(SalvageTest, SubtreeBehindADamagedLinkIsFoundByItsKeys) {
  MakeUsual();
  std::size_t const root = RootOf("NRTL", "VLE");
  PutWord(2, root + 4 * (4 + 2 * (kPairWords + 1)), 12345);
  ASSERT_EQ(Salvage(), openOk);
  ExpectAll();
  EXPECT_GT(counts_.scanned, 10);
  for (SalvageRecord const& one : records_.Notable()) {
    EXPECT_EQ(one.bank, "NRTL:VLE") << "the other bank has the same keys";
    EXPECT_EQ(one.way, salvageByScan);
    EXPECT_EQ(one.state, salvageTaken);
  }
}

TEST_F(SalvageTest, SubtreesOfTwoBanksWithTheSameKeysGoWhereTheirNeighboursAre) {
  MakeUsual();
  for (char const* name : {"VLE", "OTHER"}) {
    PutWord(2, RootOf("NRTL", name) + 4 * (4 + 1 * (kPairWords + 1)), -1);
  }
  ASSERT_EQ(Salvage(), openOk);
  ExpectAll();
}

TEST_F(SalvageTest, LeafOfZerosIsLostAloneAndNamed) {
  MakeUsual();
  std::size_t const leaf = NodeAt(RootOf("NRTL", "VLE"), kPairWords, 2);
  auto const lost = static_cast<std::size_t>(WordAt(2, leaf));
  Clear(2, leaf, 4000);
  ASSERT_EQ(Salvage(), openOk);
  EXPECT_EQ(Missing().size(), lost);
  EXPECT_TRUE(Added().empty());
  EXPECT_EQ(counts_.gaps, 1);
  auto const* gap = Told(salvageGap, salvageLost);
  ASSERT_NE(gap, nullptr);
  EXPECT_EQ(gap->bank, "NRTL:VLE");
  std::size_t const root = RootOf("NRTL", "VLE");
  auto const key = [&](std::size_t entry) {
    std::size_t const at = root + 4 * (5 + (entry - 1) * (kPairWords + 1));
    return std::to_string(WordAt(2, at)) + " " + std::to_string(WordAt(2, at + 4));
  };
  EXPECT_EQ(gap->text, "a part of the tree after " + key(2) + " before " + key(3));
}

TEST_F(SalvageTest, LeavesBelowALostRootAreJoined) {
  MakeUsual();
  std::size_t const root = RootOf("NRTL", "VLE");
  auto const lost = static_cast<std::size_t>(WordAt(2, root));
  Clear(2, root, 4000);
  ASSERT_EQ(Salvage(), openOk);
  EXPECT_EQ(Missing().size(), lost) << "the entries of the root";
  EXPECT_TRUE(Added().empty());
  EXPECT_EQ(counts_.gaps, static_cast<std::int64_t>(lost)) << "each between two leaves";
}

TEST_F(SalvageTest, WrongRootInTheDirectoryIsCorrected) {
  MakeUsual();
  std::size_t const head = EntryOf("NRTL", "VLE") + 4 * (4 + 8);
  std::int32_t const leaf = WordAt(2, RootOf("NRTL", "VLE") + 4 * 4);
  for (std::int32_t const root : {0, -1, 122000999, leaf}) {
    PutWord(2, head + 28, root);
    ASSERT_EQ(Salvage(), openOk);
    EXPECT_TRUE(Missing().empty()) << root << ": " << Missing().size();
    EXPECT_TRUE(Added().empty());
    EXPECT_EQ(counts_.gaps, 0);
  }
}

TEST_F(SalvageTest, WidthsOfAHeadAreThoseOfTheType) {
  MakeUsual();
  std::size_t const head = EntryOf("NRTL", "VLE") + 4 * (4 + 8);
  for (std::size_t word = 0; word < 7; ++word) {
    for (std::int32_t const value : {0, -1, 3, 1000000}) {
      PutWord(2, head + 4 * word, value);
      ASSERT_EQ(Salvage(), openOk);
      ExpectAll();
      PutWord(2, head + 4 * word, WordAt(2, head + 4 * word));
    }
  }
}

TEST_F(SalvageTest, WrongCountIsNotBelieved) {
  MakeUsual();
  for (std::int32_t const count : {0, 1, 7, 44, 1000, -5}) {
    PutWord(2, NodeAt(RootOf("NRTL", "VLE"), kPairWords, 1), count);
    PutWord(2, RootOf("UNIQUAC", "OWN"), count);
    ASSERT_EQ(Salvage(), openOk);
    ExpectAll();
  }
}

TEST_F(SalvageTest, CountIsBelievedWhereTailsAreNotCleared) {
  Make([](LibFile_i&, LibMaint_i& maint) {
    for (char const* name : {"A", "B", "C", "D", "E"}) WritePairs(maint, "NRTL", name, 0, 10);
  });
  // What a writer that does not clear them leaves of a deleted last entry.
  for (char const* name : {"A", "B", "C", "D", "E"}) PutWord(2, RootOf("NRTL", name), 9);
  ASSERT_EQ(Salvage(), openOk);
  EXPECT_EQ(counts_.items, 45);
  EXPECT_EQ(counts_.keyless + counts_.gaps, 0);
}

TEST_F(SalvageTest, ItemWhoseKeyCannotBeTrueIsToldWithoutIt) {
  MakeUsual();
  std::size_t const leaf = NodeAt(RootOf("NRTL", "VLE"), kPairWords, 2);
  PutWord(2, leaf + 4 * (5 + 3 * (kPairWords + 1)), 77777);
  ASSERT_EQ(Salvage(), openOk);
  EXPECT_EQ(Missing().size(), 1U);
  EXPECT_TRUE(Added().empty());
  EXPECT_EQ(counts_.keyless, 1);
  auto const* told = Told(salvageItem, salvageKeyless);
  ASSERT_NE(told, nullptr);
  EXPECT_EQ(told->bank, "NRTL:VLE");
  ASSERT_EQ(told->key.size(), 2U);
  EXPECT_EQ(told->key[0], 77777);
}

TEST_F(SalvageTest, SectorOfZerosCostsOnlyTheEntriesInIt) {
  MakeUsual();
  std::size_t const leaf = NodeAt(RootOf("NRTL", "VLE"), kPairWords, 2);
  Clear(2, leaf + 512, 512);
  LibraryBytes const broken = BytesOf(kBroken, kBroken2);
  ASSERT_EQ(Salvage(), openOk);
  EXPECT_GE(Missing().size(), 4U);
  for (ItemName const& name : Missing()) EXPECT_FALSE(items_.at(name).IsIntact(whole_, broken));
}

TEST_F(SalvageTest, NodesThatWereSwappedAreTold) {
  MakeUsual();
  std::size_t const root = RootOf("NRTL", "VLE");
  std::size_t const a = NodeAt(root, kPairWords, 1);
  std::size_t const b = NodeAt(root, kPairWords, 5);
  auto& bytes = files_.Contents(kBroken2);
  std::swap_ranges(bytes.begin() + static_cast<std::ptrdiff_t>(a),
                   bytes.begin() + static_cast<std::ptrdiff_t>(a) + 4000,
                   bytes.begin() + static_cast<std::ptrdiff_t>(b));
  ASSERT_EQ(Salvage(), openOk);
  EXPECT_TRUE(Missing().empty()) << Missing().size();
  EXPECT_TRUE(Added().empty());
}

TEST_F(SalvageTest, NumberThatIsNoneBecomesUndefined) {
  MakeUsual();
  std::size_t const leaf = NodeAt(RootOf("NRTL", "VLE"), kPairWords, 2);
  PutWord(2, leaf + 4 * (5 + 2 + 5), std::bit_cast<std::int32_t>(std::nanf("")));
  ASSERT_EQ(Salvage(), openOk);
  EXPECT_EQ(Missing().size(), 1U);
  EXPECT_EQ(counts_.altered, 1);
  auto const* told = Told(salvageItem, salvageAltered);
  ASSERT_NE(told, nullptr);
  EXPECT_EQ(told->text, "not a number: aij");
}

TEST_F(SalvageTest, DirectoryOfZerosIsMadeAnewFromTheTrees) {
  MakeUsual();
  Clear(2, OffsetOf(WordAt(1, TreeHeads() + 28)), 4000);
  ASSERT_EQ(Salvage(), openOk);
  EXPECT_EQ(counts_.items, static_cast<std::int64_t>(items_.size()));
  EXPECT_EQ(counts_.banks, 4);
  std::map<std::string, int> types;
  for (auto const& [name, item] : rescued_) {
    ++types[name.type];
    EXPECT_EQ(name.bank.substr(0, 5), "FOUND");
  }
  EXPECT_EQ(types["PURECOMP"], 60);
  EXPECT_NE(Told(salvageHeader, salvageLost), nullptr);
  ASSERT_NE(Told(salvageBank, salvageAltered), nullptr);
}

TEST_F(SalvageTest, BankOfASoundTypeWithADamagedNameKeepsItsItems) {
  MakeUsual();
  std::size_t const entry = EntryOf("UNIQUAC", "OWN");
  PutWord(2, entry, WordAt(2, entry) ^ 1);
  ASSERT_EQ(Salvage(), openOk);
  EXPECT_EQ(rescued_.count({"UNIQUAC", "OWN", {1, 101}}), 1U) << "the type is the nearest one";
  EXPECT_TRUE(Missing().empty());
}

}  // namespace
}  // namespace zel::test

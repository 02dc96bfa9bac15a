// What a salvage takes of pure components, whose records are in blocks of their own; identifiers;
// refusals.
#include <bit>
#include <limits>

#include "purecomp/record_format.h"
#include "store/key.h"
#include "tests/verify/salvage_fixture.h"

namespace zel::test {
namespace {

namespace r = record;

class SalvageComponentsTest : public SalvageFixture {
 protected:
  void MakeComponents() {
    Make([](LibFile_i&, LibMaint_i& maint) { WriteComponents(maint, "OWN", 1001, 1061); });
  }
  // The byte of an entry's key, and of its record.
  std::size_t EntryOfComponent(std::int32_t number) const {
    return items_.at({"PURECOMP", "OWN", {number}}).bytes[0].from;
  }
  std::size_t RecordOf(std::int32_t number) const {
    return items_.at({"PURECOMP", "OWN", {number}}).bytes[1].from;
  }
  SalvageRecord const* Told(std::int32_t number) const {
    for (SalvageRecord const& one : records_.all) {
      if (one.kind == salvageItem && one.key == std::vector<std::int32_t>{number}) return &one;
    }
    return nullptr;
  }
  void ExpectAll() {
    EXPECT_TRUE(Missing().empty()) << Missing().size();
    EXPECT_TRUE(Added().empty()) << Added().size();
  }
};

TEST_F(SalvageComponentsTest, RecordIsFoundWithoutItsAddress) {
  MakeComponents();
  for (std::int32_t const address : {0, -1, 121000999, WordAt(2, EntryOfComponent(1031) + 4)}) {
    PutWord(2, EntryOfComponent(1030) + 4, address);
    ASSERT_EQ(Salvage(), openOk);
    ExpectAll();
    ASSERT_NE(Told(1030), nullptr);
    EXPECT_EQ(Told(1030)->way, salvageByScan);
    EXPECT_EQ(Told(1030)->text, "its entry leads elsewhere");
  }
}

TEST_F(SalvageComponentsTest, NumberOfTheRecordReplacesADamagedKey) {
  MakeComponents();
  for (std::int32_t const key : {0, -7, 500, 99999}) {
    PutWord(2, EntryOfComponent(1030), key);
    ASSERT_EQ(Salvage(), openOk);
    ExpectAll();
    ASSERT_NE(Told(1030), nullptr);
    EXPECT_EQ(Told(1030)->way, salvageByScan);
  }
}

TEST_F(SalvageComponentsTest, NumberOfTheEntryReplacesADamagedOneInTheRecord) {
  MakeComponents();
  PutWord(1, RecordOf(1030), 5);
  ASSERT_EQ(Salvage(), openOk);
  ExpectAll();
  ASSERT_NE(Told(1030), nullptr);
  EXPECT_EQ(Told(1030)->state, salvageAltered);
  EXPECT_EQ(Told(1030)->text,
            "its record has the number 5; missing: its record had another number");
}

TEST_F(SalvageComponentsTest, RecordsBelowALostLeafAreFoundByTheirNumbers) {
  MakeComponents();
  std::size_t const root = RootOf("PURECOMP", "OWN");
  auto& bytes = files_.Contents(kBroken2);
  std::fill_n(bytes.begin() + static_cast<std::ptrdiff_t>(root), 4000, std::byte{0});
  ASSERT_EQ(Salvage(), openOk);
  ExpectAll();
  EXPECT_EQ(counts_.scanned, 60);
  EXPECT_EQ(Told(1030)->text, "its entry is lost");
}

TEST_F(SalvageComponentsTest, DeletedComponentComesBackOnlyIntoAGap) {
  Make([](LibFile_i&, LibMaint_i& maint) {
    WriteComponents(maint, "OWN", 1001, 1061);
    Key_i key;
    for (long const number : {1010L, 1050L}) {
      key.SetKey(number);
      ASSERT_TRUE(maint.DeleteItem("PURECOMP", "OWN", &key));
    }
  });
  PutWord(2, EntryOfComponent(1030), -7);
  PutWord(2, EntryOfComponent(1030) + 4, -7);
  ASSERT_EQ(Salvage(), openOk);
  ExpectAll();
}

TEST_F(SalvageComponentsTest, RecordOfZerosIsLostAndNamed) {
  MakeComponents();
  auto& bytes = files_.Contents(kBroken);
  std::fill_n(bytes.begin() + static_cast<std::ptrdiff_t>(RecordOf(1030)), 1000, std::byte{0});
  ASSERT_EQ(Salvage(), openOk);
  ASSERT_EQ(Missing().size(), 1U);
  EXPECT_EQ(counts_.lost, 1);
  ASSERT_NE(Told(1030), nullptr);
  EXPECT_EQ(Told(1030)->state, salvageLost);
  EXPECT_EQ(Told(1030)->text, "its record cannot be read");
}

// Damage can give two components the same ID, of letters that no writer stores.
TEST_F(SalvageComponentsTest, IdsThatCannotBeTrueAreLeftOut) {
  MakeComponents();
  for (std::int32_t const number : {1020, 1030}) {
    PutWord(1, RecordOf(number) + 4 * std::size_t{r::kIds}, -1'111'111'111);
  }
  ASSERT_EQ(Salvage(), openOk);
  EXPECT_EQ(Missing().size(), 2U);
  EXPECT_EQ(counts_.altered, 2);
  ASSERT_NE(Told(1030), nullptr);
  EXPECT_EQ(Told(1030)->state, salvageAltered);
  EXPECT_EQ(Told(1030)->text, "missing: 1 ID");
}

// An ID that damage has given to another component as well stays with its own, whichever comes
// first.
TEST_F(SalvageComponentsTest, AnIdBelongsToOneComponent) {
  constexpr std::int32_t kCases[][2] = {{1020, 1030}, {1030, 1020}};
  for (auto const& [owner, other] : kCases) {
    MakeComponents();
    for (std::size_t i = 0; i < std::size_t{r::kIdWords}; ++i) {
      std::size_t const at = 4 * (std::size_t{r::kIds} + i);
      PutWord(1, RecordOf(other) + at, WordAt(1, RecordOf(owner) + at));
    }
    ASSERT_EQ(Salvage(), openOk);
    EXPECT_EQ(Missing().size(), 1U);
    ASSERT_NE(Told(other), nullptr);
    EXPECT_EQ(Told(other)->text, "missing: 1 ID");
    ASSERT_NE(Told(owner), nullptr);
    EXPECT_EQ(Told(owner)->state, salvageTaken);
    LibFile_i library(files_, accRead, kRescued, "r");
    ASSERT_EQ(library.OpenExisting({true, ""}, nullptr), openOk);
    LibMaint_i maint(&library);
    EXPECT_EQ(maint.FindNumberById(("C" + std::to_string(owner)).c_str()), owner);
  }
}

// The bank's entry has no type that could be one; records in blocks of their own are those of
// components, whose addresses are made anew.
TEST_F(SalvageComponentsTest, BankOfAnUnknownTypeIsOneOfComponents) {
  MakeComponents();
  PutWord(2, EntryOf("PURECOMP", "OWN"), 1'512'345'678);
  PutWord(2, EntryOf("PURECOMP", "OWN") + 4, -87'654'321);
  ASSERT_EQ(Salvage(), openOk);
  ExpectAll();
}

TEST_F(SalvageComponentsTest, PartsThatCannotBeReadAreNamed) {
  MakeComponents();
  std::int32_t const nan = std::bit_cast<std::int32_t>(std::numeric_limits<float>::quiet_NaN());
  struct Row {
    int word;
    std::int32_t value;
    char const* text;
  };
  Row const rows[] = {{r::kCorrelationAddress, -1, "missing: its correlations"},
                      {r::kCorrelationAddress, 121999999, "missing: its correlations"},
                      {r::kStructureAddress, 1, "missing: its group structures"},
                      {r::kConstants + 1, nan, "missing: 1 constant"}};
  for (Row const& row : rows) {
    std::size_t const at = RecordOf(1030) + 4 * static_cast<std::size_t>(row.word);
    PutWord(1, at, row.value);
    ASSERT_EQ(Salvage(), openOk);
    ASSERT_NE(Told(1030), nullptr);
    EXPECT_EQ(Told(1030)->state, salvageAltered) << row.text;
    EXPECT_EQ(Told(1030)->text, row.text);
    EXPECT_EQ(Missing().size(), 1U);
    EXPECT_EQ(counts_.altered, 1);
    PutWord(1, at, WordAt(1, at));
  }
}

TEST_F(SalvageComponentsTest, CorrelationsOfZerosAreNotTakenForNone) {
  MakeComponents();
  std::size_t const block = items_.at({"PURECOMP", "OWN", {1030}}).bytes.back().from;
  auto& bytes = files_.Contents(kBroken);
  std::fill_n(bytes.begin() + static_cast<std::ptrdiff_t>(block), 1600, std::byte{0});
  ASSERT_EQ(Salvage(), openOk);
  ASSERT_NE(Told(1030), nullptr);
  EXPECT_EQ(Told(1030)->state, salvageAltered);
}

TEST_F(SalvageComponentsTest, IdentifiersAreMadeAnew) {
  MakeComponents();
  std::size_t const heads = OffsetOf(WordAt(1, 20));
  PutWord(1, heads + 4 * (8 + 7), -1);
  ASSERT_EQ(Salvage(), openOk);
  LibFile_i library(files_, accRead, kRescued, "r");
  ASSERT_EQ(library.OpenExisting({true, ""}, nullptr), openOk);
  LibMaint_i maint(&library);
  EXPECT_EQ(maint.FindNumberById("C1001"), 1001);
  EXPECT_EQ(maint.FindNumberById("C1060"), 1060);
}

TEST_F(SalvageComponentsTest, PasswordIsNeededAndKept) {
  Make([](LibFile_i& library, LibMaint_i& maint) {
    WriteComponents(maint, "OWN", 1001, 1003);
    library.SetPassword(1, "secret");
  });
  EXPECT_EQ(Salvage(), openPasswordNeeded);
  EXPECT_EQ(Salvage("other"), openBadPassword);
  EXPECT_EQ(Salvage("secret"), openOk);
  ExpectAll();
  LibFile_i library(files_, accUpdate, kRescued, "r");
  EXPECT_EQ(library.OpenExisting({true, ""}, nullptr), openPasswordNeeded);
  EXPECT_EQ(library.OpenExisting({true, "secret"}, nullptr), openOk);
  library.CloseLibFile();
  // A password that no one can enter.
  std::size_t const word = 4 * (std::size_t{format::kPassword} + 1);
  std::int32_t const before = WordAt(1, word);
  PutWord(1, word, -3);
  EXPECT_EQ(Salvage(), openOk);
  ExpectAll();
  PutWord(1, word, before);
  EXPECT_EQ(Salvage(), openPasswordNeeded);
  PutWord(1, 8, 77);  // the level
  EXPECT_EQ(Salvage(), openOk);
  ExpectAll();
}

TEST_F(SalvageComponentsTest, RefusesWhatIsNoLibraryAtAll) {
  LibFile_i library(files_, accUpdate, kRescued, "r");
  ASSERT_EQ(library.CreateNew(libKind11), openOk);
  libTypes type{};
  EXPECT_EQ(SalvageFiles(files_, "/none.lb1", "", &library, nullptr, counts_), openNotFound);
  EXPECT_EQ(SalvageFiles(files_, "/none.txt", "", &library, nullptr, counts_), openNotLibrary);
  EXPECT_EQ(SalvageFiles(files_, "", "", &library, nullptr, counts_), openNotLibrary);
  EXPECT_EQ(FindTypeOnFiles(files_, "/none.lb1", type), openNotFound);
  EXPECT_EQ(SalvageFiles(files_, kRescued, "", &library, nullptr, counts_), openDenied)
      << "the library itself";
  MakeComponents();
  EXPECT_EQ(SalvageFiles(files_, kBroken, "", nullptr, nullptr, counts_), openFailed);
  library.CloseLibFile();
  EXPECT_EQ(SalvageFiles(files_, kBroken, "", &library, nullptr, counts_), openFailed);
}

TEST_F(SalvageComponentsTest, EmptyFilesGiveAnEmptyLibrary) {
  files_.Contents(kBroken);
  ASSERT_EQ(Salvage(), openOk);
  EXPECT_EQ(counts_.banks, 0);
  EXPECT_EQ(counts_.items, 0);
}

TEST_F(SalvageComponentsTest, SinkCanEndTheSalvage) {
  struct Ending final : ZelSalvageSink {
    void Salvaged(ZelSalvageRecord const&) override { throw 5; }
  } sink;
  MakeComponents();
  LibFile_i library(files_, accUpdate, kRescued, "r");
  ASSERT_EQ(library.CreateNew(libKind11), openOk);
  EXPECT_THROW(SalvageFiles(files_, kBroken, "", &library, &sink, counts_), int);
}

}  // namespace
}  // namespace zel::test

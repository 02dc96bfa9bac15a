// Memory that runs out: each request of each command is refused once. The command then ends with a
// line that says so, or did not need that memory for its result; it never crashes, and its change
// is made as a whole or not at all.
//
// There are many requests, so only some are refused, at most 25 of each command; the environment
// variable ZEL_MEMORY_STEP sets the distance between two of them, 1 means all.
#include <algorithm>
#include <cstdlib>

#include "tests/support/sanitizers.h"
#include "tests/zel/change_fixture.h"

namespace zel::test {
namespace {

constexpr long kLeastStep = 97;
constexpr long kMostRefusals = 25;

// The distance between two refusals for a command that makes this many requests.
long StepOf(long requests) {
  char const* const given = std::getenv("ZEL_MEMORY_STEP");
  if (given != nullptr) return std::max(1L, std::atol(given));
  return std::max(kLeastStep, requests / kMostRefusals);
}

class MemoryTest : public ChangeTest {
 protected:
  void SetUp() override {
#if ZEL_ADDRESS_SANITIZER
    GTEST_SKIP() << "the sanitizer brings its own memory";
#endif
    ChangeTest::SetUp();
  }
  Outcome Run(std::string const& words, std::string const& settings) const {
    return Zel(words, "LD_PRELOAD='" ZEL_REFUSE_MEMORY "' " + settings);
  }
  // Refuses requests over the whole run of the command and calls `then(outcome, sound)` after each,
  // where `sound` is the outcome of the undisturbed command, which must succeed.
  template <typename Before, typename Then>
  void RefuseAllAlong(std::string const& words, Before const& before, Then const& then) {
    before();
    Outcome const sound = Run(words, "ZEL_REQUESTS=requests");
    ASSERT_EQ(sound.status, 0) << words << "\n" << sound.err;
    long const requests = std::atol(FileText(Folder() / "requests").c_str());
    ASSERT_GT(requests, 500) << words;
    int refusals = 0;
    long const step = StepOf(requests);
    for (long at = 1; at <= requests; at += step) {
      before();
      Outcome const outcome = Run(words, "ZEL_REFUSE_AT=" + std::to_string(at));
      SCOPED_TRACE(words + " at " + std::to_string(at) + ": " + outcome.err);
      if (outcome.status != 0) {
        EXPECT_EQ(outcome.status, 1);
        EXPECT_NE(outcome.err.find("out of memory"), std::string::npos);
        ++refusals;
      } else {
        EXPECT_EQ(outcome.out, sound.out);
      }
      then(outcome);
    }
    EXPECT_GT(refusals, 4) << words;
  }
  void RefuseInLook(std::string const& words) {
    RefuseAllAlong(
        words, [] {}, [](Outcome const&) {});
  }
  // Afterwards the folder of the library is as before, or as the command leaves it.
  void RefuseInChange(std::string const& words) {
    PutBack(old_);
    Good(words);
    Contents const whole = Now();
    RefuseAllAlong(
        words, [&] { PutBack(old_); },
        [&](Outcome const& outcome) {
          // The next command removes what was cut off.
          Good("info own/own.lb1");
          EXPECT_TRUE(Now() == (outcome.status == 0 ? whole : old_));
          // Whoever reads the history gives the files of its last version their names.
          Good("log own/own.lb1");
          bool const isToldOfHistory = outcome.err.find("is not kept: ") != std::string::npos;
          HistoryFits(old_, outcome.status == 0 && !isToldOfHistory);
        });
  }
};

TEST_F(MemoryTest, Search) { RefuseInLook("search ETHANOL -l perry.lb1 -l crc.lb1"); }
TEST_F(MemoryTest, Why) { RefuseInLook("why ETHANOL NBP -l perry.lb1 -l crc.lb1"); }
TEST_F(MemoryTest, Coverage) { RefuseInLook("coverage ETHANOL WATER -l perry.lb1 -l sample.lb1"); }
TEST_F(MemoryTest, Eval) { RefuseInLook("eval ETHANOL VaporPressure -l perry.lb1 --at 25C"); }
TEST_F(MemoryTest, Plot) { RefuseInLook("plot VaporPressure ETHANOL -l perry.lb1 -o p.svg"); }
TEST_F(MemoryTest, Sheet) { RefuseInLook("sheet ETHANOL -l perry.lb1 -o sheet.html"); }
TEST_F(MemoryTest, Report) {
  Good("copy perry.lb1 small.lb1 --create --bank PERRY --item ETHANOL");
  RefuseInLook("report -l small.lb1 -o report.html");
}
TEST_F(MemoryTest, Table) { RefuseInLook("table ETHANOL -l perry.lb1 --fields TC NBP --sources"); }
TEST_F(MemoryTest, ExportOneDocument) { RefuseInLook("export own/own.lb1 -o -"); }
TEST_F(MemoryTest, PlotPoints) {
  MakeFile("lab.csv", "T [K],value [kPa]\n300,9\n310,14\n");
  RefuseInLook("plot VaporPressure ETHANOL -l perry.lb1 --points lab.csv -o p.svg");
}
TEST_F(MemoryTest, Points) {
  MakeFile("measured.xml", FileText(ZEL_EXAMPLES "/measured.xml"));
  RefuseInLook("points measured.xml --to VaporPressure");
}
TEST_F(MemoryTest, Info) { RefuseInLook("info sample.lb1"); }
TEST_F(MemoryTest, InfoAsJson) { RefuseInLook("info sample.lb1 --json"); }
TEST_F(MemoryTest, Types) { RefuseInLook("types"); }
TEST_F(MemoryTest, Banks) { RefuseInLook("banks sample.lb1"); }
TEST_F(MemoryTest, Items) { RefuseInLook("items own/own.lb1 OCTANE --fields MON"); }
TEST_F(MemoryTest, Show) { RefuseInLook("show sample.lb1 NRTL ETHANOL WATER --names perry.lb1"); }
TEST_F(MemoryTest, Find) { RefuseInLook("find crc.lb1 --formula C4H10O"); }
TEST_F(MemoryTest, Memo) { RefuseInLook("memo sample.lb1"); }
TEST_F(MemoryTest, Diff) { RefuseInLook("diff own/own.lb1 sample.lb1 --bank OCTANE"); }
TEST_F(MemoryTest, Check) { RefuseInLook("check own/own.lb1"); }
TEST_F(MemoryTest, CheckWithABaseline) {
  MakeFile("known.json", Good("check own/own.lb1 perry.lb1 --json"));
  RefuseInLook("check own/own.lb1 --baseline known.json --format junit");
  RefuseInLook("check own/own.lb1 --format sarif");
}
TEST_F(MemoryTest, Schema) { RefuseInLook("schema why"); }
TEST_F(MemoryTest, Export) { RefuseInLook("export own/own.lb1 -o out.xml"); }
TEST_F(MemoryTest, Dump) { RefuseInLook("dump own/own.lb1"); }
TEST_F(MemoryTest, List) { RefuseInLook("list p.lst --build crc.lb1 --filter '*butane'"); }

TEST_F(MemoryTest, Pairs) { RefuseInLook("pairs NRTL --fields bij -l sample.lb1"); }
TEST_F(MemoryTest, Template) { RefuseInLook("template NRTL"); }
TEST_F(MemoryTest, References) { RefuseInLook("refs sample.lb1"); }
TEST_F(MemoryTest, ReferencesAsBibTeX) { RefuseInLook("refs sample.lb1 -o refs.bib"); }
TEST_F(MemoryTest, Parameters) { RefuseInLook("parameters sample.lb1"); }
TEST_F(MemoryTest, ExportTable) { RefuseInLook("export sample.lb1 --bank NRTL --table out.csv"); }
TEST_F(MemoryTest, Log) {
  Good("set own/own.lb1 --description x");
  RefuseInLook("log own/own.lb1");
}
TEST_F(MemoryTest, Path) { RefuseInLook("path"); }
TEST_F(MemoryTest, Compare) {
  Good("copy perry.lb1 small.lb1 --create --bank PERRY --item ETHANOL");
  RefuseInLook("compare small.lb1 crc.lb1 --codes --missing");
}

TEST_F(MemoryTest, Set) { RefuseInChange("set own/own.lb1 --description x"); }
TEST_F(MemoryTest, SetMemo) { RefuseInChange("memo own/own.lb1 --set x"); }
TEST_F(MemoryTest, Copy) { RefuseInChange("copy sample.lb1 own/own.lb1 --bank RACKETT"); }
TEST_F(MemoryTest, Delete) { RefuseInChange("delete own/own.lb1 OCTANE --whole-bank"); }
TEST_F(MemoryTest, Create) { RefuseInChange("create own/own.lb1 --force --description x"); }
TEST_F(MemoryTest, AddReference) {
  RefuseInChange("refs own/own.lb1 add 11 words --doi 10.1000/182");
}
TEST_F(MemoryTest, SetParameter) {
  RefuseInChange("parameters own/own.lb1 set OCTANE:SAMPLE mon words --unit K");
}
TEST_F(MemoryTest, RemoveReference) {
  Good("refs own/own.lb1 add 11 words --doi 10.1000/182 --keep 0");
  old_ = Now();
  RefuseInChange("refs own/own.lb1 remove 11");
}
TEST_F(MemoryTest, ImportReferences) {
  MakeFile("there.bib", "@article{one,\n  title = {Words},\n  year = {1999},\n}\n");
  RefuseInChange("refs own/own.lb1 import there.bib --first 21");
}
TEST_F(MemoryTest, SetMemoFromAFile) {
  MakeFile("memo.txt", "words\n");
  RefuseInChange("memo own/own.lb1 --file memo.txt");
}
TEST_F(MemoryTest, ImportTable) {
  Good("export own/own.lb1 --bank OCTANE --table octane.csv");
  // The table differs from the library, so that its import is a change that keeps a version.
  Good("edit own/own.lb1 OCTANE 10000007 MON 90 --keep 0");
  old_ = Now();
  RefuseInChange("import own/own.lb1 --table octane.csv --bank OCTANE");
}
TEST_F(MemoryTest, ImportDatabase) {
  Good("export sample.lb1 --sqlite there.db");
  RefuseInChange("import own/own.lb1 there.db --format sqlite");
}
TEST_F(MemoryTest, Undo) {
  Contents const first = old_;
  Good("set own/own.lb1 --description x");
  Contents const second = Now();
  std::filesystem::copy(Own(), Folder() / "kept", std::filesystem::copy_options::recursive);
  RefuseAllAlong(
      "undo own/own.lb1",
      [&] {
        std::filesystem::remove_all(Own());
        std::filesystem::copy(Folder() / "kept", Own(), std::filesystem::copy_options::recursive);
      },
      [&](Outcome const& outcome) {
        Good("info own/own.lb1");
        EXPECT_TRUE(Now() == (outcome.status == 0 ? first : second));
      });
}
TEST_F(MemoryTest, Renumber) { RefuseInChange("renumber own/own.lb1 10000007 21000001"); }
TEST_F(MemoryTest, Merge) { RefuseInChange("merge own/own.lb1 sample.lb1 --theirs"); }
TEST_F(MemoryTest, Edit) { RefuseInChange("edit own/own.lb1 OCTANE 10000007 MON 90"); }
TEST_F(MemoryTest, Fit) {
  MakeFile("lab.csv", "T [K],value [kPa]\n300,9\n310,14\n320,22\n330,34\n");
  Good("copy crc.lb1 own/own.lb1 --bank CRC --item ETHANOL --keep 0");
  old_ = Now();
  RefuseInChange("fit own/own.lb1 lab.csv --to VaporP --equation 20 --terms 2 --component ETHANOL");
}
TEST_F(MemoryTest, Flatten) {
  RefuseInChange("flatten perry.lb1 -o own/own.lb1 --force --components ETHANOL");
}
TEST_F(MemoryTest, Salvage) { RefuseInChange("salvage sample.lb1 own/own.lb1 --force"); }
TEST_F(MemoryTest, Import) {
  Good("export sample.lb1 --bank RACKETT -o bank.xml");
  RefuseInChange("import own/own.lb1 bank.xml");
}

}  // namespace
}  // namespace zel::test

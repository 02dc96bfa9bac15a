// What diff, log and undo report: notes of memos by themselves, and components with another number.
#include <string>
#include <vector>

#include "tests/zel/zel_fixture.h"

namespace zel::test {
namespace {

using nlohmann::json;
namespace fs = std::filesystem;

class DifferenceRowsTest : public ZelTest {
 protected:
  void SetUp() override {
    fs::create_directory(Folder() / "own");
    Good("copy perry.lb1 own/own.lb1 --create --bank PERRY --item ETHANOL");
    Good("copy perry.lb1 own/own.lb1 --bank PERRY --item WATER --keep 0");
    Good("memo own/own.lb1 --clear --keep 0");
  }
  // The item, field and values of each row, as one text.
  static std::vector<std::string> Shown(json const& rows, char const* first, char const* second) {
    std::vector<std::string> all;
    for (json const& row : rows) {
      std::string line = row["item"].get<std::string>() + " | " + row["field"].get<std::string>();
      for (char const* side : {first, second}) {
        json const& value = row[side];
        line += " | " + (value.is_string() ? value.get<std::string>() : value.dump());
      }
      all.push_back(std::move(line));
    }
    return all;
  }
  std::vector<std::string> LastChange() const {
    return Shown(Json("log own/own.lb1 --last 1")["differences"], "before", "after");
  }
  std::vector<std::string> Diff(std::string const& words) const {
    return Shown(Json("diff " + words)["differences"], "first", "second");
  }
  using Lines = std::vector<std::string>;
};

TEST_F(DifferenceRowsTest, ANoteThatIsAddedChangedOrRemovedIsARow) {
  Good("memo own/own.lb1 --set 'Of the plant.'");
  EXPECT_EQ(LastChange(), Lines{"library | memo | null | Of the plant."});
  Good("refs own/own.lb1 add 100 Handbook --doi 10.1000/182");
  EXPECT_EQ(LastChange(), Lines{"library | ref 100 | null | Handbook; doi:10.1000/182"});
  Good("refs own/own.lb1 add 23 'First edition'");
  Good("refs own/own.lb1 add 23 'Second edition' --replace");
  EXPECT_EQ(LastChange(), Lines{"library | ref 23 | First edition | Second edition"});
  Good("refs own/own.lb1 add 7 'Of the bank' --bank PERRY");
  EXPECT_EQ(LastChange(), Lines{"PURECOMP:PERRY | ref 7 | null | Of the bank"});
  Good("memo own/own.lb1 --set \"$(printf 'Of the plant.\\nparameter NRTL bij [K]: energy / R')\"");
  EXPECT_EQ(LastChange(), Lines{"library | parameter NRTL bij | null | energy / R [K]"});
  // Codes are in the order of numbers, and the text of the memo comes last.
  Good("memo own/own.lb1 --clear");
  EXPECT_EQ(LastChange(), (Lines{"library | ref 23 | Second edition | null",
                                 "library | ref 100 | Handbook; doi:10.1000/182 | null",
                                 "library | parameter NRTL bij | energy / R [K] | null",
                                 "library | memo | Of the plant. | null"}));
  json const undone = Json("undo own/own.lb1");
  EXPECT_EQ(undone["differences"].size(), 4U);
  EXPECT_EQ(Row(undone["differences"], "field", "ref 23")["after"], "Second edition");
}

TEST_F(DifferenceRowsTest, AMemoThatDiffersInNoNoteAndNoTextIsShownWhole) {
  Good("memo own/own.lb1 --all --set \"$(printf 'ref 1: one\\nref 2: two')\"");
  Good("memo own/own.lb1 --all --set \"$(printf 'ref 2: two\\nref 1: one')\"");
  EXPECT_EQ(LastChange(),
            Lines{"library | memo | ref 1: one\nref 2: two | ref 2: two\nref 1: one"});
  // The second note about a code counts for nothing, but it is a difference.
  Good("memo own/own.lb1 --all --set \"$(printf 'ref 1: one\\nref 1: two\\nref 2: x')\"");
  EXPECT_EQ(LastChange(), (Lines{"library | ref 1 | one | one\ntwo", "library | ref 2 | two | x"}));
}

TEST_F(DifferenceRowsTest, CitationsThatComeWithAnItemAreARowEach) {
  Good("create own/new.lb1");
  Good("edit own/new.lb1 ETHANOL NBP 78.31C --ref 999 --from perry.lb1");
  json const log = Json("log own/new.lb1");
  std::size_t notes = 0;
  for (json const& row : log["differences"]) {
    EXPECT_NE(row["field"], "memo");
    if (row["field"].get<std::string>().rfind("ref ", 0) != 0) continue;
    ++notes;
    EXPECT_EQ(row["before"], nullptr);
    EXPECT_EQ(row["after"].get<std::string>().find('\n'), std::string::npos);
  }
  EXPECT_EQ(notes, Json("refs own/new.lb1")["references"].size() - 1) << "999 has none";
  EXPECT_EQ(log["differences"].size(), notes + 1);
}

// Wherever in the library the notes are.
TEST_F(DifferenceRowsTest, NotesBeyondTheFirstMemo) {
  std::string const longText(300, 'x');
  for (int code = 100; code < 120; ++code) {
    Good("refs own/own.lb1 add " + std::to_string(code) + " " + longText + " --keep 0");
  }
  ASSERT_EQ(Rows(Json("banks own/own.lb1")["banks"], "type", "OLI"), 1U);
  Good("refs own/own.lb1 add 119 Short --replace");
  EXPECT_EQ(LastChange(), Lines{"library | ref 119 | " + longText + " | Short"});
  std::string const before = "own/.own.lb1.zel-history/1/own.lb1";
  EXPECT_EQ(Diff(before + " own/own.lb1 --bank OLI:NOTES1"),
            Lines{"OLI:NOTES1 | ref 119 | " + longText + " | Short"});
}

TEST_F(DifferenceRowsTest, ARenumberedComponentIsOneRow) {
  Good("copy sample.lb1 own/own.lb1 --bank NRTL");
  MakeFile("m.xml",
           "<bank type=\"OLI\" name=\"M\"><item><characterkey>ETOH</characterkey>"
           "<libnum>10000007</libnum></item></bank>");
  Good("import own/own.lb1 m.xml");
  Good("renumber own/own.lb1 ETHANOL 10000900");
  Lines const row = {"PURECOMP:PERRY ETHANOL | number | 10000007 | 10000900"};
  EXPECT_EQ(LastChange(), row) << "pairs and mappings follow";
  Good("edit own/own.lb1 NRTL ETHANOL WATER bij=77 --names perry.lb1");
  Good("delete own/own.lb1 NRTL ETHANOL BENZENE --names perry.lb1");
  std::string const before = "own/.own.lb1.zel-history/3/own.lb1";
  Lines const both = Diff(before + " own/own.lb1 --names perry.lb1");
  ASSERT_EQ(both.size(), 3U) << both[0];
  EXPECT_EQ(both[0], "NRTL:SAMPLE ETHANOL + BENZENE | whole | there | not there");
  EXPECT_EQ(both[1].find("NRTL:SAMPLE ETHANOL + WATER | bij | "), 0U) << both[1];
  EXPECT_NE(both[1].find(" | 77"), std::string::npos) << both[1];
  EXPECT_EQ(both[2], row[0]);
  Good("undo own/own.lb1");
  Good("undo own/own.lb1");
  json const undone = Json("undo own/own.lb1");
  EXPECT_EQ(Shown(undone["differences"], "before", "after"),
            Lines{"PURECOMP:PERRY ETHANOL | number | 10000900 | 10000007"});
}

// Pairs alone differ in their keys.
TEST_F(DifferenceRowsTest, ABankOfPairsByItselfShowsTheNumbers) {
  Good("copy sample.lb1 own/own.lb1 --bank NRTL --item ETHANOL WATER --names perry.lb1");
  Good("renumber own/own.lb1 ETHANOL 90");
  EXPECT_EQ(Diff("own/.own.lb1.zel-history/2/own.lb1 own/own.lb1 --bank NRTL").size(), 2U);
}

TEST_F(DifferenceRowsTest, ANumberThatNotAllDataHaveIsInTheRows) {
  Good("copy sample.lb1 own/own.lb1 --bank NRTL");
  Good("copy own/own.lb1 own/two.lb1 --create --bank PERRY");
  Good("renumber own/two.lb1 ETHANOL 90");
  Good("copy own/own.lb1 own/two.lb1 --bank NRTL");
  Lines const rows = Diff("own/own.lb1 own/two.lb1");
  EXPECT_EQ(rows, (Lines{"PURECOMP:PERRY ETHANOL (90) | whole | not there | there",
                         "PURECOMP:PERRY ETHANOL (10000007) | whole | there | not there"}));
  auto const members = Json("diff own/own.lb1 own/two.lb1")["differences"];
  EXPECT_EQ(Row(members, "item_1", "90")["second"], "there");
}

}  // namespace
}  // namespace zel::test

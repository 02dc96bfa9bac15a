// Libraries that mark their data as protected: what shows the data, or takes them elsewhere, says
// so.
#include "tests/zel/zel_fixture.h"

namespace zel::test {
namespace {

class MarkedDataTest : public ZelTest {
 protected:
  MarkedDataTest() {
    Good("set perry.lb1 --new-password secret --level 2");
    Good("set crc.lb1 --new-password secret --level 1");
    Good("copy sample.lb1 pairs.lb1 --create --bank NRTL");
    Good("set pairs.lb1 --new-password secret --level 2");
    Good("create own.lb1");
  }
  // The line about the mark on standard error, for a command that succeeds; empty for none.
  std::string NoteOf(std::string const& words) const {
    Outcome const outcome = Zel(words);
    EXPECT_EQ(outcome.status, 0) << words << "\n" << outcome.err;
    return outcome.err;
  }
  static std::string Note(std::string const& library, std::string const& where) {
    return "zel: warning: " + library + ": its data are marked as protected (password level 2); " +
           where + " does not carry the mark\n";
  }
};

TEST_F(MarkedDataTest, ShowShowsTheMark) {
  std::string const mark = "the library marks its data as protected (password level 2)";
  std::string const component = "show perry.lb1 PERRY ETHANOL";
  EXPECT_EQ(Json(component)["protected"], mark);
  EXPECT_NE(Good(component).find("\nprotected  "), std::string::npos) << Good(component);
  EXPECT_NE(Good(component + " --csv").find(mark), std::string::npos);
  std::string const pair = "show pairs.lb1 NRTL ETHANOL WATER --names perry.lb1";
  EXPECT_EQ(Json(pair)["protected"], mark);
  EXPECT_FALSE(Json("show crc.lb1 CRC ETHANOL").contains("protected"));
  EXPECT_FALSE(Json("show sample.lb1 NRTL ETHANOL WATER --names crc.lb1").contains("protected"));
}

TEST_F(MarkedDataTest, WhatTakesDataElsewhereSaysSo) {
  EXPECT_EQ(NoteOf("copy perry.lb1 own.lb1 --bank PERRY --item ETHANOL"),
            Note("perry.lb1", "own.lb1"));
  EXPECT_EQ(NoteOf("merge own.lb1 pairs.lb1 --ours"), Note("pairs.lb1", "own.lb1"));
  EXPECT_EQ(NoteOf("flatten perry.lb1 crc.lb1 -o merged.lb1 --components ETHANOL"),
            Note("perry.lb1", "merged.lb1"));
  EXPECT_EQ(NoteOf("export perry.lb1 -o out.xml --component ETHANOL"),
            Note("perry.lb1", "a document"));
  EXPECT_EQ(NoteOf("export perry.lb1 -o - --component ETHANOL"), Note("perry.lb1", "a document"));
  EXPECT_EQ(NoteOf("export pairs.lb1 --bank NRTL --table out.csv"), Note("pairs.lb1", "out.csv"));
  std::string const problem = Json("copy pairs.lb1 new.lb1 --create")["problems"][0];
  EXPECT_EQ("zel: " + problem + "\n", Note("pairs.lb1", "new.lb1"));
}

TEST_F(MarkedDataTest, OtherwiseNothingIsSaid) {
  EXPECT_EQ(NoteOf("copy crc.lb1 own.lb1 --bank CRC --item ETHANOL"), "") << "level 1";
  EXPECT_EQ(NoteOf("export crc.lb1 -o out.xml --component ETHANOL"), "");
  Good("set own.lb1 --new-password other --level 2");
  EXPECT_EQ(NoteOf("copy perry.lb1 own.lb1 --bank PERRY --item WATER --password other"), "")
      << "it has the mark, too";
}

}  // namespace
}  // namespace zel::test

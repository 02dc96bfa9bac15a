// A library with one item that cannot be read: commands that walk over items report it and
// continue.
#include <cstring>

#include "tests/zel/zel_fixture.h"

namespace zel::test {
namespace {

class BadItemTest : public ZelTest {
 protected:
  // own.lb1: ETHANOL, WATER and BENZENE, the record of WATER at address 0.
  void SetUp() override {
    for (char const* id : {"ETHANOL", "WATER", "BENZENE"}) {
      Good(std::string("copy perry.lb1 own.lb1 --create --bank PERRY --item ") + id);
    }
    std::int32_t const number = Json("show own.lb1 PERRY WATER")["number"];
    bad_ = std::to_string(number);
    std::string bytes = FileText(Folder() / "own.lb2");
    std::size_t place = std::string::npos;
    for (std::size_t at = 0; at + 8 <= bytes.size(); at += 4) {
      std::int32_t words[2];
      std::memcpy(words, &bytes[at], sizeof words);
      if (words[0] == number && words[1] / 1'000'000 == 111) place = at + 4;
    }
    ASSERT_NE(place, std::string::npos);
    bytes.replace(place, 4, 4, '\0');
    MakeFile("own.lb2", bytes);
  }
  // The command reports the item, ends with 1, and its output has the others.
  Outcome GoesOn(std::string const& words) {
    Outcome const outcome = Zel(words);
    EXPECT_EQ(outcome.status, 1) << words;
    std::string const line = "zel: own.lb1: PURECOMP:PERRY ";
    EXPECT_NE(outcome.err.find(line), std::string::npos) << words << "\n" << outcome.err;
    EXPECT_NE(outcome.err.find("; left out\n"), std::string::npos) << words << outcome.err;
    Outcome const strict = Zel(words + " --strict");
    EXPECT_EQ(strict.status, 1) << words;
    if (words.find("--json") == std::string::npos) {
      EXPECT_EQ(strict.out, "") << words;
    } else {
      EXPECT_EQ(nlohmann::json::parse(strict.out)["schema"], "zel/error") << words;
    }
    EXPECT_EQ(strict.err.find("; left out"), std::string::npos) << words << strict.err;
    return outcome;
  }
  static bool HasTheOthers(std::string const& text) {
    return text.find("ETHANOL") != std::string::npos && text.find("BENZENE") != std::string::npos &&
           text.find("WATER") == std::string::npos;
  }

  std::string bad_;
};

TEST_F(BadItemTest, CommandsThatPrint) {
  EXPECT_TRUE(HasTheOthers(GoesOn("items own.lb1 PERRY").out));
  EXPECT_TRUE(HasTheOthers(GoesOn("find own.lb1 --csv").out));
  EXPECT_TRUE(HasTheOthers(GoesOn("list own.lst --build own.lb1 --csv").out));
  Outcome const diff = GoesOn("diff own.lb1 perry.lb1 --bank PERRY --json");
  EXPECT_EQ(diff.out.find("\"PURECOMP:PERRY ETHANOL\""), std::string::npos) << "is the same";
}

TEST_F(BadItemTest, CommandsThatWrite) {
  GoesOn("export own.lb1 -o out.xml");
  EXPECT_TRUE(HasTheOthers(FileText(Folder() / "Bank-PURECOMP-PERRY.xml")));
  GoesOn("dump own.lb1");
  EXPECT_TRUE(HasTheOthers(FileText(Folder() / "own.PERRY.cmp")));
  GoesOn("copy own.lb1 new.lb1 --create");
  EXPECT_FALSE(std::filesystem::exists(Folder() / "x.lb1"));
  EXPECT_TRUE(HasTheOthers(Good("items new.lb1 PERRY --csv")));
  EXPECT_EQ(Json("check new.lb1 --structure")["damage"], 0);
}

// Each bank whose document does not have all of its items is named, with the number that it has.
TEST_F(BadItemTest, ExportReportsBanksThatAreNotWhole) {
  Outcome const outcome = Zel("export own.lb1 -o out.xml --json");
  EXPECT_EQ(outcome.status, 1);
  nlohmann::json const report = nlohmann::json::parse(outcome.out);
  EXPECT_EQ(report["banks_not_whole"], 1);
  ASSERT_EQ(report["missing"].size(), 1U);
  nlohmann::json const row = Row(report["missing"], "bank", "PURECOMP:PERRY");
  EXPECT_EQ(row["items"], 3);
  EXPECT_EQ(row["written"], 2);
  nlohmann::json const whole = Json("export perry.lb1 --bank PERRY -o out.xml");
  EXPECT_FALSE(whole.contains("missing"));
}

TEST_F(BadItemTest, JsonHasTheLinesOfStandardError) {
  Outcome const outcome = Zel("find own.lb1 --json");
  EXPECT_EQ(outcome.status, 1);
  nlohmann::json const report = nlohmann::json::parse(outcome.out);
  ASSERT_EQ(report["problems"].size(), 1U);
  EXPECT_EQ("zel: " + report["problems"][0].get<std::string>() + "\n", outcome.err);
  EXPECT_FALSE(Json("find perry.lb1").contains("problems"));
}

TEST_F(BadItemTest, CheckNamesIt) {
  Outcome const outcome = Zel("check own.lb1");
  EXPECT_EQ(outcome.status, 1);
  EXPECT_NE(outcome.out.find("PURECOMP:PERRY " + bad_), std::string::npos) << outcome.out;
}

TEST_F(BadItemTest, SearchNamesTheComponent) {
  Outcome const outcome = Zel("search " + bad_ + " -l own.lb1 -l crc.lb1");
  EXPECT_EQ(outcome.status, 1);
  EXPECT_NE(outcome.err.find("own.lb1: component " + bad_), std::string::npos) << outcome.err;
  Good("search ETHANOL -l own.lb1 -l crc.lb1");
}

// The item is written again at its old place in the tree.
TEST_F(BadItemTest, CopyMendsIt) {
  Good("copy perry.lb1 own.lb1 --bank PERRY --item WATER --replace");
  EXPECT_EQ(Json("check own.lb1 --structure")["damage"], 0);
  EXPECT_NE(Good("items own.lb1 PERRY").find("WATER"), std::string::npos);
}

}  // namespace
}  // namespace zel::test

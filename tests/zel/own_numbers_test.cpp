// Numbers that a library gives its components by itself: two libraries can give the same one to
// different substances, and different ones to the same substance.
#include "tests/zel/zel_fixture.h"

namespace zel::test {
namespace {

using nlohmann::json;

class OwnNumbersTest : public ZelTest {
 protected:
  json Import(std::string const& library, std::string const& bank, std::string const& table,
              std::string const& options = "") const {
    if (!std::filesystem::exists(Folder() / library)) Good("create " + library);
    MakeFile("t.csv", table);
    return Json("import " + library + " --table t.csv --bank " + bank + options);
  }
};

TEST_F(OwnNumbersTest, ImportReportsTheNumbersThatItGave) {
  json const report =
      Import("own.lb1", "PURECOMP:A", "id,number,TC [K]\nFOO,,500\nWATER,,647\nBAR,21000007,600\n");
  EXPECT_EQ(report["given_numbers"], json::parse(R"([{"component": "FOO", "number": 21000000},
                                                     {"component": "WATER", "number": 21000001}])"));
  EXPECT_EQ(
      report["number_warning"],
      "2 new components have got the next free number, see below; for components that other "
      "libraries know, import with --names LIBRARY, which gives them the numbers and IDs that "
      "they have there");
  EXPECT_EQ(Json("show own.lb1 A WATER")["number"], 21000001);
  // What is there already gets no number, and neither does what is only changed.
  EXPECT_FALSE(Import("own.lb1", "A", "id,TC [K]\nFOO,501\n").contains("given_numbers"));
}

TEST_F(OwnNumbersTest, ImportWithNamesReportsOnlyWhatTheyDoNotKnow) {
  json const report =
      Import("own.lb1", "PURECOMP:A", "id,TC [K]\nWATER,647\nFOO,500\n", " --names perry.lb1");
  ASSERT_EQ(report["given_numbers"].size(), 1U);
  EXPECT_EQ(report["given_numbers"][0]["component"], "FOO");
  EXPECT_NE(report["number_warning"].get<std::string>().find("perry.lb1 does not know them"),
            std::string::npos);
  json const known =
      Import("known.lb1", "PURECOMP:A", "id,TC [K]\nWATER,647\n", " --names perry.lb1");
  EXPECT_FALSE(known.contains("given_numbers"));
  EXPECT_FALSE(known.contains("number_warning"));
}

TEST_F(OwnNumbersTest, TextOfAnImportShowsTheNumbers) {
  Good("create own.lb1");
  MakeFile("t.csv", "id,TC [K]\nFOO,500\n");
  std::string const text = Good("import own.lb1 --table t.csv --bank PURECOMP:A");
  EXPECT_NE(text.find("1 new component has got the next free number"), std::string::npos) << text;
  EXPECT_NE(text.find("21000000"), std::string::npos) << text;
  // Nothing is imported, so no number is given.
  MakeFile("bad.csv", "id,TC [K]\nBAR,500\nBAZ,x\n");
  Outcome const refused = Zel("import own.lb1 --table bad.csv --bank A --json");
  EXPECT_EQ(refused.status, 1);
  EXPECT_EQ(refused.out.find("given_numbers"), std::string::npos) << refused.out;
}

// n1 has FOO and n2 has BAR under one number, and n2 a pair of BAR.
class SameNumberTest : public OwnNumbersTest {
 protected:
  SameNumberTest() {
    Import("n1.lb1", "PURECOMP:A", "id,name,TC [K],NBP [K]\nFOO,Foo,500,300\n");
    Import("n2.lb1", "PURECOMP:B", "id,name,TC [K],PC [bar]\nBAR,Bar,600,40\nBAZ,Baz,650,41\n");
    Import("n2.lb1", "NRTL:B", "i,j,bij\nBAR,BAZ,77\n");
  }
};

TEST_F(SameNumberTest, IsNotOneSubstance) {
  for (char const* words :
       {"flatten n1.lb1 n2.lb1 -o n.lb1", "merge n1.lb1 n2.lb1 --bank PURECOMP:B",
        "search 21000000 -l n1.lb1 -l n2.lb1"}) {
    Outcome const outcome = Zel(words);
    EXPECT_EQ(outcome.status, 1) << words << outcome.out;
    for (char const* part : {"Foo (21000000, FOO) in n1.lb1:A", "Bar (21000000, BAR) in n2.lb1:B",
                             "`zel renumber` gives one of them another number"}) {
      EXPECT_NE(outcome.err.find(part), std::string::npos) << words << outcome.err;
    }
  }
  json const compared = Json("compare n1.lb1 n2.lb1");
  EXPECT_EQ(compared["constants_compared"], 0);
  EXPECT_EQ(compared["identities"].size(), 2U) << compared;
  EXPECT_NE(compared["identity_warning"].get<std::string>().find("`zel renumber` gives one"),
            std::string::npos)
      << compared;
  Good("renumber n2.lb1 BAR 21000009");
  EXPECT_EQ(Json("flatten n1.lb1 n2.lb1 -o n.lb1")["components"], 3);
}

// Names, CAS numbers and formulas say that it is one, and so does a source that says nothing.
TEST_F(SameNumberTest, IsOneSubstanceIfAnythingElseAgrees) {
  for (char const* row :
       {"id,name,number,TC [K]\nOTHER,foo,21000000,500\n",
        "id,name,number,TC [K]\nFOO,Other,21000000,500\n", "name,number,TC [K]\n,21000000,500\n"}) {
    std::filesystem::remove(Folder() / "x.lb1");
    std::filesystem::remove(Folder() / "x.lb2");
    Import("x.lb1", "PURECOMP:X", row);
    EXPECT_EQ(Zel("search 21000000 -l n1.lb1 -l x.lb1").status, 0) << row;
  }
}

TEST_F(SameNumberTest, PairsAreThoseOfTheirLibrary) {
  for (char const* words : {"pairs NRTL --fields bij -l n1.lb1 -l n2.lb1",
                            "pairs NRTL BAR BAZ --fields bij -l n1.lb1 -l n2.lb1"}) {
    json const pairs = Json(words)["pairs"];
    ASSERT_EQ(pairs.size(), 1U) << words;
    EXPECT_EQ(pairs[0]["component_1"], "BAR") << words;
    EXPECT_EQ(pairs[0]["component_2"], "BAZ") << words;
  }
  EXPECT_EQ(Json("pairs NRTL FOO BAZ -l n1.lb1 -l n2.lb1")["found"], 0);
  EXPECT_EQ(Json("pairs NRTL FOO -l n1.lb1 -l n2.lb1")["found"], 0);
  EXPECT_TRUE(
      Json("coverage FOO BAZ --model NRTL -l n1.lb1 -l n2.lb1")["pairs"][0]["from"].is_null());
  EXPECT_EQ(Json("coverage BAR BAZ --model NRTL -l n1.lb1 -l n2.lb1")["pairs"][0]["from"],
            "n2.lb1:B");
  EXPECT_EQ(Json("coverage --model NRTL -l n1.lb1 -l n2.lb1")["components"][0]["component"], "BAR");
}

// The first library numbers ethanol itself, the last one has pairs only, with published numbers.
TEST_F(OwnNumbersTest, PairsAreFoundByTheNumbersOfOtherLibraries) {
  Import("lab.lb1", "PURECOMP:B", "id,TC [K]\nETHANOL,514\n");
  std::string const lists = " -l lab.lb1 -l perry.lb1 -l sample.lb1";
  json const pairs = Json("pairs NRTL ETHANOL METHANOL --fields bij" + lists)["pairs"];
  EXPECT_EQ(pairs,
            Json("pairs NRTL ETHANOL METHANOL --fields bij -l perry.lb1 -l sample.lb1")["pairs"]);
  ASSERT_EQ(pairs.size(), 1U);
  EXPECT_EQ(pairs[0]["from"], "sample.lb1:SAMPLE");
  EXPECT_EQ(Json("coverage ETHANOL METHANOL --model NRTL" + lists)["pairs"][0]["from"],
            "sample.lb1:SAMPLE");
  Good("flatten lab.lb1 perry.lb1 sample.lb1 -o f.lb1");
  EXPECT_EQ(Json("show f.lb1 NRTL ETHANOL METHANOL")["fields"],
            Json("show sample.lb1 NRTL ETHANOL METHANOL --names perry.lb1")["fields"]);
}

}  // namespace
}  // namespace zel::test

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

}  // namespace
}  // namespace zel::test

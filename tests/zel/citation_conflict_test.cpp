// Data of two libraries that cite one reference code in different ways: flatten, merge, copy and
// edit.
#include "tests/zel/zel_fixture.h"

namespace zel::test {
namespace {

using nlohmann::json;

class CitationConflictTest : public ZelTest {
 protected:
  // one.lb1 has ethanol of CRC, two.lb1 water; each cites code 54 in its own way.
  CitationConflictTest() {
    Good("copy crc.lb1 one.lb1 --create --bank CRC --item ETHANOL");
    Good("copy crc.lb1 two.lb1 --create --bank CRC --item WATER");
    Good("refs one.lb1 add 54 First --replace");
    Good("refs two.lb1 add 54 Second --replace --doi 10.1/2");
  }
  static void ExpectConflict(json const& report, std::string const& bank) {
    EXPECT_EQ(report["citation_warning"],
              "1 code is cited in different ways; give the data of one source another code");
    EXPECT_EQ(report["cited_otherwise"], json::array({{{"code", 54},
                                                       {"bank", bank},
                                                       {"kept", "First"},
                                                       {"other", "Second; doi:10.1/2"},
                                                       {"from", "two.lb1:CRC"}}}));
  }
  void ExpectRefused(std::string const& words) const {
    Outcome const outcome = Zel(words + " --strict");
    EXPECT_EQ(outcome.status, 1) << words;
    EXPECT_NE(outcome.err.find("code 54 of PURECOMP:"), std::string::npos) << outcome.err;
    EXPECT_NE(outcome.err.find("as \"First\" and, in two.lb1:CRC, as \"Second\""),
              std::string::npos)
        << outcome.err;
  }
};

TEST_F(CitationConflictTest, TheReportOfFlattenHasBothCitations) {
  ExpectRefused("flatten one.lb1 two.lb1 -o all.lb1");
  EXPECT_FALSE(std::filesystem::exists(Folder() / "all.lb1"));
  ExpectConflict(Json("flatten one.lb1 two.lb1 -o all.lb1"), "PURECOMP:MERGED");
  EXPECT_NE(Good("flatten one.lb1 two.lb1 -o all.lb1 --force --csv")
                .find("54,PURECOMP:MERGED,First,\"Second; doi:10.1/2\",two.lb1:CRC\n"),
            std::string::npos);
}

TEST_F(CitationConflictTest, TheReportsOfMergeAndCopyHaveBothCitations) {
  std::string const before = FileText(Folder() / "one.lb1");
  ExpectRefused("merge one.lb1 two.lb1");
  ExpectRefused("copy two.lb1 one.lb1 --bank CRC --item WATER");
  EXPECT_EQ(FileText(Folder() / "one.lb1"), before);
  ExpectConflict(Json("merge one.lb1 two.lb1 --dry-run"), "PURECOMP:CRC");
  ExpectConflict(Json("copy two.lb1 one.lb1 --bank CRC --item WATER --dry-run"), "PURECOMP:CRC");
  ExpectConflict(Json("copy two.lb1 one.lb1 --bank CRC"), "PURECOMP:CRC");
}

TEST_F(CitationConflictTest, TheReportOfEditHasBothCitations) {
  std::string const before = FileText(Folder() / "one.lb1");
  ExpectRefused("edit one.lb1 CRC WATER DIPOLE=1.85 --from two.lb1");
  EXPECT_EQ(FileText(Folder() / "one.lb1"), before);
  ExpectConflict(Json("edit one.lb1 CRC WATER DIPOLE=1.85 --from two.lb1 --dry-run"),
                 "PURECOMP:CRC");
  ExpectConflict(Json("edit one.lb1 CRC WATER DIPOLE=1.85 --from two.lb1"), "PURECOMP:CRC");
}

// It is in the memo of the bank, so that both banks are cited as before.
TEST_F(CitationConflictTest, ABankFromOneSourceKeepsItsCitation) {
  Good("copy perry.lb1 three.lb1 --create --bank PERRY --item ETHANOL");
  Good("refs three.lb1 add 23 Third --replace");
  for (std::string const words : {"merge one.lb1 three.lb1", "copy three.lb1 one.lb1"}) {
    json const report = Json(words + " --strict");
    EXPECT_FALSE(report.contains("cited_otherwise")) << report;
    EXPECT_FALSE(report.contains("problems")) << report;
    EXPECT_EQ(Json("memo one.lb1 --bank PERRY")["memo"], "ref 23: Third");
    EXPECT_EQ(Json("show one.lb1 PERRY ETHANOL")["references"].size(),
              Json("show three.lb1 PERRY ETHANOL")["references"].size());
    json const perry = Json("show one.lb1 PERRY ETHANOL")["references"];
    EXPECT_EQ(Row(perry, "code", 23)["citation"], "Third");
    EXPECT_EQ(Row(Json("show one.lb1 CRC ETHANOL")["references"], "code", 23)["citation"],
              Row(Json("show crc.lb1 CRC ETHANOL")["references"], "code", 23)["citation"]);
    Good("undo one.lb1");
  }
}

}  // namespace
}  // namespace zel::test

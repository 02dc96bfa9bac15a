// Values that cannot be right: what edit and import report about what they have written.
#include <string>

#include "tests/zel/zel_fixture.h"

namespace zel::test {
namespace {

using nlohmann::json;
namespace fs = std::filesystem;

class ImplausibleTest : public ZelTest {
 protected:
  void SetUp() override {
    fs::create_directory(Folder() / "own");
    Good("copy perry.lb1 own/own.lb1 --create --bank PERRY --item ETHANOL");
  }
  void Refuses(std::string const& words, std::string const& why) const {
    Contents const before = ContentsOf(Folder() / "own");
    Outcome const outcome = Zel(words);
    EXPECT_EQ(outcome.status, 1) << words;
    EXPECT_NE(outcome.err.find(why), std::string::npos) << outcome.err;
    EXPECT_TRUE(ContentsOf(Folder() / "own") == before) << words;
  }
};

TEST_F(ImplausibleTest, AnEditReportsImpossibleValuesAndMakesTheChange) {
  json const edit = Json("edit own/own.lb1 ETHANOL PC=-5 TC=0 MW=-3 HVAPNBP=-5");
  EXPECT_EQ(edit["changed"], 4);
  EXPECT_NE(edit["data_warning"].get<std::string>().find("not plausible"), std::string::npos);
  for (char const* datum : {"PC", "TC", "MW", "HVAPNBP"}) {
    bool isFound = false;
    for (json const& row : edit["implausible"]) {
      isFound = isFound || (row["datum"] == datum && row["id"] == "bounds" &&
                            row["severity"] == "error" && row["item"] == "ETHANOL" &&
                            row["expected_from"] == 0.0 && row["expected_to"].is_null());
    }
    EXPECT_TRUE(isFound) << datum;
  }
  EXPECT_EQ(edit["implausible"][0]["severity"], "error") << "errors first";
  EXPECT_EQ(Row(Json("show own/own.lb1 PERRY ETHANOL")["constants"], "keyword", "PC")["value"], -5);
  std::string const csv = Good("edit own/own.lb1 ETHANOL PC=-6 --csv");
  EXPECT_NE(csv.find("data warning,"), std::string::npos) << csv;
  EXPECT_NE(csv.find("error,bounds,"), std::string::npos) << csv;
}

TEST_F(ImplausibleTest, WhatAComponentHadBeforeIsNotReported) {
  Good("edit own/own.lb1 ETHANOL PC=-5");
  json const edit = Json("edit own/own.lb1 ETHANOL DIPOLE=1.7");
  EXPECT_FALSE(edit.contains("implausible")) << edit;
  EXPECT_FALSE(edit.contains("data_warning")) << edit;
  EXPECT_FALSE(Json("edit own/own.lb1 ETHANOL PC=6137").contains("implausible"));
  // Nor what an item brings that is copied first.
  EXPECT_FALSE(Json("edit own/own.lb1 ACN DIPOLE=3.5 --from perry.lb1").contains("implausible"));
}

TEST_F(ImplausibleTest, ValuesThatContradictOthersAreReported) {
  json const edit = Json("edit own/own.lb1 ETHANOL NBP=300K --dry-run");
  ASSERT_EQ(edit["implausible"].size(), 1U) << edit;
  EXPECT_EQ(edit["implausible"][0]["id"], "vapor-pressure");
  EXPECT_EQ(edit["implausible"][0]["severity"], "warning");
  json const curve =
      Json("edit own/own.lb1 ETHANOL LiquidCp --equation 1 --coefficients -100 --dry-run");
  EXPECT_EQ(Row(curve["implausible"], "id", "monotony")["datum"], "LiquidCp") << curve;
}

TEST_F(ImplausibleTest, StrictRefuses) {
  Refuses("edit own/own.lb1 ETHANOL PC=-5 --strict",
          "own/own.lb1: PERRY ETHANOL: PC is -5 kPa, which is impossible: expected above 0 kPa");
  Good("edit own/own.lb1 ETHANOL PC=6137.5 --strict");
  MakeFile("bad.csv", "id,MW\nETHANOL,-46\n");
  Refuses("import own/own.lb1 --table bad.csv --bank PERRY --strict",
          "MW is -46 kg/kg-mol, which is impossible: expected above 0 kg/kg-mol; and 1 more");
}

TEST_F(ImplausibleTest, AnImportOfATableReportsWhatItsRowsMade) {
  MakeFile("t.csv",
           "number,cas,id,formula,MW,TC [K],PC\n"
           "21000001,7732-18-5,WATER,H2O,-46,647.1,22064\n"
           "21000002,71-43-2,BENZENE,C6H6,78.114,562.05,4895\n"
           "10000007,64-17-5,ETHANOL,C2H6O,46.069,514,-1\n");
  json const import = Json("import own/own.lb1 --table t.csv --bank PERRY");
  EXPECT_EQ(import["new"], 2);
  EXPECT_EQ(import["changed"], 1);
  EXPECT_NE(import["data_warning"].get<std::string>().find("findings"), std::string::npos);
  json const& found = import["implausible"];
  EXPECT_EQ(Rows(found, "item", "BENZENE"), 0U);
  EXPECT_EQ(Rows(found, "item", "WATER"), 2U) << "bounds and formula-weight";
  EXPECT_EQ(Row(found, "item", "ETHANOL")["datum"], "PC");
  json const again = Json("import own/own.lb1 --table t.csv --bank PERRY");
  EXPECT_EQ(again["the_same"], 3);
  EXPECT_FALSE(again.contains("implausible")) << again;
}

// A component is judged after its last row: an earlier one may contradict what a later one sets.
TEST_F(ImplausibleTest, AComponentOfSeveralRowsIsJudgedOnce) {
  MakeFile("k.csv", "component,keyword,value,refCode\nETHANOL,NBP,600,7\nETHANOL,DIPOLE,-1,7\n");
  json const import = Json("import own/own.lb1 --table k.csv --bank PERRY");
  EXPECT_EQ(Rows(import["implausible"], "id", "bounds"), 1U);
  EXPECT_EQ(Rows(import["implausible"], "id", "temperatures"), 1U);
  MakeFile("c.csv",
           "component,correlation,equation,C1,tMin [K],tMax [K]\n"
           "ETHANOL,SolidCp,1,-5,100,150\nETHANOL,LiquidCp,1,100,160,390\n");
  json const curves = Json("import own/own.lb1 --table c.csv --bank PERRY");
  EXPECT_EQ(Row(curves["implausible"], "id", "monotony")["datum"], "SolidCp") << curves;
  EXPECT_EQ(Rows(curves["implausible"], "datum", "LiquidCp"), 0U);
}

// Documents bring whole collections of data, whose contradictions `check` finds; what is impossible
// is reported.
TEST_F(ImplausibleTest, AnImportOfDocumentsReportsImpossibleValues) {
  auto const component = [](std::string const& pressure) {
    return "<comp><id number=\"21000001\" casNum=\"7732-18-5\" formula=\"H2O\"> WATER </id>"
           "<property name=\"MW\" value=\"50\" /><property name=\"PC\" value=\"" +
           pressure + "\" /></comp>";
  };
  auto const document = [&](std::string const& pressure) {
    MakeFile("w.xml", "<bank type=\"PURECOMP\" name=\"W\">" + component(pressure) + "</bank>");
  };
  document("-5");
  Refuses("import own/own.lb1 w.xml --strict", "PC is -5 kPa, which is impossible");
  json const import = Json("import own/own.lb1 w.xml");
  ASSERT_EQ(import["implausible"].size(), 1U) << "not that MW contradicts the formula";
  EXPECT_EQ(import["implausible"][0]["datum"], "PC");
  EXPECT_EQ(import["implausible"][0]["bank"], "PURECOMP:W");
  EXPECT_TRUE(import["findings"].empty()) << import["findings"];
  MakeFile("c.xml", component("-6"));
  json const replaced = Json("import own/own.lb1 c.xml --bank W --replace");
  EXPECT_EQ(Row(replaced["implausible"], "datum", "PC")["value"], -6.0);
  json const again = Json("import own/own.lb1 c.xml --bank W --replace");
  EXPECT_FALSE(again.contains("implausible")) << "it had that value before";
}

TEST_F(ImplausibleTest, PairsHaveNoFindings) {
  Good("copy sample.lb1 own/own.lb1 --bank NRTL");
  json const edit = Json("edit own/own.lb1 NRTL ETHANOL WATER bij=-1e6 --names perry.lb1");
  EXPECT_EQ(edit["changed"], 1);
  EXPECT_FALSE(edit.contains("implausible"));
}

}  // namespace
}  // namespace zel::test

// JSON for programs: schemas, errors, texts as members.
#include "tests/zel/zel_fixture.h"

namespace zel::test {
namespace {

using nlohmann::json;

class JsonTest : public ZelTest {
 protected:
  // The object that a failing command prints.
  json Error(std::string const& words, int status, std::string const& before = "") const {
    Outcome const outcome = Zel(words, before);
    EXPECT_EQ(outcome.status, status) << words;
    json const error = json::parse(outcome.out, nullptr, false);
    EXPECT_FALSE(error.is_discarded()) << words << "\n" << outcome.out;
    if (error.is_discarded()) return {};
    EXPECT_EQ(error["schema"], "zel/error") << words;
    EXPECT_EQ(error["schema_version"], 1);
    EXPECT_EQ(error["status"], status);
    std::string const line = "zel: " + error["error"]["message"].get<std::string>() + "\n";
    EXPECT_EQ(outcome.err, line) << "standard error is as without --json";
    return error;
  }
};

TEST_F(JsonTest, EachObjectNamesItsSchema) {
  for (char const* words : {"info perry.lb1", "find perry.lb1 --id ETHANOL", "types", "check --ids",
                            "why ETHANOL TC -l perry.lb1", "create own.lb1", "path"}) {
    json const object = Json(words);
    std::string const text = words;
    EXPECT_EQ(object["schema"], "zel/" + text.substr(0, text.find(' ')));
    EXPECT_EQ(object["schema_version"], 1);
  }
}

TEST_F(JsonTest, SchemaPrintsThePublishedFile) {
  json const list = Json("schema")["schemas"];
  EXPECT_GE(list.size(), 37U);
  for (json const& row : list) {
    std::string const name = row["schema"].get<std::string>().substr(4);
    EXPECT_EQ(Good("schema " + name), FileText(ZEL_DOCS "/schemas/" + name + ".json")) << name;
  }
  EXPECT_EQ(Good("schema why --json"), Good("schema why"));
  json const error = Error("schema whi --json", 1);
  EXPECT_EQ(error["error"]["near"], json::array({"why"}));
}

TEST_F(JsonTest, FailureIsAnObjectOnStandardOutput) {
  json const missing = Error("why ETHANL NBP -l perry.lb1 --json", 1);
  EXPECT_EQ(missing["command"], "why");
  EXPECT_EQ(missing["error"]["kind"], "MissingComponent");
  EXPECT_EQ(missing["error"]["near"], json::array({"ETHANOL"}));
  EXPECT_FALSE(missing["error"].contains("file"));
  json const open = Error("info none.lb1 --json", 1);
  EXPECT_EQ(open["error"]["kind"], "OpenError");
  EXPECT_EQ(open["error"]["file"], "none.lb1");
  EXPECT_FALSE(open["error"].contains("near"));
  EXPECT_EQ(Error("why ETHANOL NPB -l perry.lb1 --json", 1)["error"]["near"], json::array({"NBP"}));
  MakeFile("bad", "x\n");
  EXPECT_EQ(Error("info perry.lb1 --json", 1, "ZEL_CONFIG=bad")["error"]["file"], "bad");
  EXPECT_EQ(Zel("info none.lb1").out, "") << "only with --json";
}

TEST_F(JsonTest, WrongCommandLineIsOneToo) {
  json const unknown = Error("inffo perry.lb1 --json", 2);
  EXPECT_EQ(unknown["command"], "");
  EXPECT_EQ(unknown["error"]["kind"], "WrongUsage");
  EXPECT_EQ(unknown["error"]["near"], json::array({"info"}));
  EXPECT_EQ(Error("--json --units bar info", 2)["command"], "info");
  EXPECT_EQ(Error("info perry.lb1 --json --strict", 2)["command"], "info");
  EXPECT_EQ(Error("find perry.lb1 --json --csv", 2)["error"]["kind"], "WrongUsage");
  EXPECT_EQ(Zel("info perry.lb1 more -- --json").out, "") << "a word after --";
}

// The report of a failed import is the one object that is printed.
TEST_F(JsonTest, FailedImportHasAnErrorAndItsFindings) {
  MakeFile("bad.xml",
           "<bank type=\"PURECOMP\" name=\"B\"><comp><id number=\"1\" name=\"A\"> A </id>"
           "<prop><MW> 12x </MW></prop></comp>");
  Outcome const outcome = Zel("import own.lb1 bad.xml --create --json");
  EXPECT_EQ(outcome.status, 1);
  json const report = json::parse(outcome.out);
  EXPECT_EQ(report["schema"], "zel/import");
  EXPECT_EQ(report["failed"], "bad.xml");
  EXPECT_EQ(report["error"]["file"], "bad.xml");
  EXPECT_EQ("zel: " + report["error"]["message"].get<std::string>() + "\n", outcome.err);
  MakeFile("bad.csv", "id,TC [K]\nETHANOL,5x4\n");
  Outcome const table = Zel("import perry.lb1 --table bad.csv --bank PERRY --json");
  EXPECT_EQ(table.status, 1);
  EXPECT_EQ(json::parse(table.out)["error"]["kind"], "Error");
  EXPECT_EQ(json::parse(table.out)["refused"], 1);
}

TEST_F(JsonTest, RangesHaveTheirEnds) {
  json const eval = Json("eval ETHANOL VaporPressure -l perry.lb1 --at 300");
  EXPECT_EQ(eval["range"], "159.05 to 514 K");
  EXPECT_EQ(eval["range_from"], 159.05);
  EXPECT_EQ(eval["range_to"], 514.0);
  EXPECT_EQ(eval["range_unit"], "K");
  json const shown = Json("eval ETHANOL VaporPressure -l perry.lb1 --at 25 --units C");
  EXPECT_NEAR(shown["range_to"].get<double>(), 240.85, 1e-9);
  EXPECT_EQ(shown["range_unit"], "C");
  json const searched = Json("search ETHANOL -l perry.lb1")["correlations"];
  EXPECT_EQ(Row(searched, "name", "VaporPressure")["range_to"], 514.0);
  json const why = Json("why ETHANOL VaporPressure -l perry.lb1 -l crc.lb1")["sources"];
  EXPECT_EQ(why[0]["range_from"], 159.05);
  EXPECT_EQ(why[1]["range_from"], 341.0);
  EXPECT_EQ(why[1]["range_unit"], "K");
  json const grid =
      Json("eval ETHANOL VaporPressure --components WATER --at 300K -l perry.lb1")["records"];
  EXPECT_EQ(Row(grid, "component", "ETHANOL")["range_unit"], "K");
  EXPECT_EQ(Zel("search ETHANOL -l perry.lb1 --csv").out.find("range from"), std::string::npos);
  std::string const fields = " --fields VaporPressure SolidDensity TC --units C";
  json const item = Row(Json("items perry.lb1 PERRY" + fields)["items"], "id", "ETHANOL");
  json const row = Json("table ETHANOL -l perry.lb1" + fields)["components"][0];
  for (json const& one : {item, row}) {
    EXPECT_EQ(one["vaporpressure"], "equation 20, -114.1 to 240.85 C");
    EXPECT_EQ(one["vaporpressure_equation"], 20);
    EXPECT_NEAR(one["vaporpressure_range_from"].get<double>(), -114.1, 1e-9);
    EXPECT_EQ(one["vaporpressure_range_unit"], "C");
    EXPECT_EQ(one["soliddensity_equation"], nullptr);
    EXPECT_TRUE(one.contains("soliddensity_range_unit"));
    EXPECT_FALSE(one.contains("tc_equation"));
  }
  EXPECT_EQ(Good("table ETHANOL -l perry.lb1 --csv" + fields).find("Pressure equation"),
            std::string::npos);
  EXPECT_EQ(Good("items perry.lb1 PERRY" + fields).find("range"), std::string::npos);
}

TEST_F(JsonTest, ItemsHaveTheirParts) {
  json const pairs =
      Json("coverage ETHANOL WATER --model NRTL -l perry.lb1 -l sample.lb1")["pairs"];
  EXPECT_EQ(pairs[0]["pair"], "ETHANOL + WATER");
  EXPECT_EQ(pairs[0]["component_1"], "ETHANOL");
  EXPECT_EQ(pairs[0]["component_2"], "WATER");
  json const shown = Json("show sample.lb1 NRTL ETHANOL WATER --names perry.lb1");
  EXPECT_EQ(shown["bank"], "NRTL:SAMPLE");
  EXPECT_EQ(shown["item_2"], "WATER");
  EXPECT_EQ(shown["item_3"], nullptr);
  Good("copy sample.lb1 own.lb1 --create --bank NRTL");
  json const edited = Json("edit own.lb1 NRTL ETHANOL WATER bij=-30 --names perry.lb1");
  EXPECT_EQ(edited["item_1"], "ETHANOL");
  json const differing =
      Json("diff sample.lb1 own.lb1 --bank NRTL --names perry.lb1")["differences"][0];
  EXPECT_EQ(differing["item"], "NRTL:SAMPLE ETHANOL + WATER");
  EXPECT_EQ(differing["bank"], "NRTL:SAMPLE");
  EXPECT_EQ(differing["item_1"], "ETHANOL");
  json const merged =
      Json("merge own.lb1 sample.lb1 --bank NRTL --list --names perry.lb1")["differences"];
  EXPECT_EQ(merged[0]["item_2"], "WATER");
  json const logged = Json("log own.lb1 --names perry.lb1")["differences"];
  EXPECT_EQ(Row(logged, "field", "bij")["item_1"], "ETHANOL");
  MakeFile("pair.csv", "item 1,item 2,bij\nETHANOL,WATER,-31\n");
  json const row = Json("import own.lb1 --table pair.csv --bank NRTL --names perry.lb1")["rows"][0];
  EXPECT_EQ(row["item_2"], "WATER");
  EXPECT_EQ(row["datum"], nullptr);
  MakeFile("curve.csv", "id,correlation,equation,coefficients\nETHANOL,VaporPressure,1,1 2\n");
  json const curve = Json("import perry.lb1 --table curve.csv --bank PERRY")["rows"][0];
  EXPECT_EQ(curve["item"], "ETHANOL VaporPressure");
  EXPECT_EQ(curve["item_1"], "ETHANOL");
  EXPECT_EQ(curve["datum"], "VaporPressure");
  json const removed = Json("delete own.lb1 NRTL ETHANOL WATER --names perry.lb1");
  EXPECT_EQ(removed["removed"], "NRTL:SAMPLE ETHANOL + WATER");
  EXPECT_EQ(removed["item_2"], "WATER");
  json const bank = Json("diff sample.lb1 own.lb1")["differences"];
  EXPECT_EQ(Row(bank, "item", "WILSON:SAMPLE")["bank"], "WILSON:SAMPLE");
  EXPECT_EQ(Row(bank, "item", "WILSON:SAMPLE")["item_1"], nullptr);
}

}  // namespace
}  // namespace zel::test

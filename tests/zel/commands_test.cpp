// What each command of zel finds in libraries of published data.
#include <cmath>
#include <set>
#include <sstream>

#include "tests/zel/zel_fixture.h"

namespace zel::test {
namespace {

using nlohmann::json;

class CommandsTest : public ZelTest {};

TEST_F(CommandsTest, CreateMakesAnEmptyLibrary) {
  Good("create own.lb1 --description 'Plant data' --library-version 3.1 --kind 12");
  json const info = Json("info own.lb1");
  EXPECT_EQ(info["description"], "Plant data");
  EXPECT_EQ(info["version"], "3.1");
  EXPECT_EQ(info["kind"], 12);
  EXPECT_EQ(info["password_level"], 0);
  EXPECT_TRUE(info["banks"].empty());
  EXPECT_EQ(info["files"].size(), 1U) << "the second file comes with the first bank";
}

TEST_F(CommandsTest, CreateReplacesOnlyByForce) {
  std::string const before = FileText(Folder() / "perry.lb1");
  EXPECT_EQ(Zel("create perry.lb1").status, 1);
  EXPECT_EQ(FileText(Folder() / "perry.lb1"), before);
  Good("create perry.lb1 --force");
  EXPECT_TRUE(Json("info perry.lb1")["banks"].empty());
}

TEST_F(CommandsTest, InfoShowsBanksWithTheirCounts) {
  json const info = Json("info sample.lb1");
  EXPECT_EQ(info["library"], "sample.lb1");
  json const nrtl = Row(info["banks"], "type", "NRTL");
  EXPECT_EQ(nrtl["name"], "SAMPLE");
  EXPECT_EQ(nrtl["format"], 2);
  EXPECT_EQ(nrtl["items"], Json("items sample.lb1 NRTL")["items"].size());
  json const second = Row(info["files"], "file", ".lb2");
  EXPECT_EQ(second["block_bytes"], 4000);
  EXPECT_EQ(second["blocks"].get<std::size_t>() * 4000,
            std::filesystem::file_size(Folder() / "sample.lb2"));
}

TEST_F(CommandsTest, MemoOfLibraryAndBank) {
  EXPECT_EQ(Json("memo sample.lb1")["memo"].get<std::string>().substr(0, 8), "ref 91: ");
  Good("memo sample.lb1 --set 'of the plant' --all");
  Good("memo sample.lb1 --bank nrtl --set 'checked in May'");
  EXPECT_EQ(Json("memo sample.lb1")["memo"], "of the plant");
  EXPECT_EQ(Json("memo sample.lb1 --bank NRTL:SAMPLE")["memo"], "checked in May");
  MakeFile("memo.txt", "two\nlines");
  Good("memo sample.lb1 --file memo.txt");
  EXPECT_EQ(Json("memo sample.lb1")["memo"], "two\nlines");
  Good("memo sample.lb1 --clear");
  EXPECT_TRUE(Json("memo sample.lb1")["memo"].is_null());
}

TEST_F(CommandsTest, SetPasswordAsksForItAtEveryChange) {
  Good("set sample.lb1 --new-password sesame --level 2");
  EXPECT_EQ(Json("info sample.lb1")["password_level"], 2);
  EXPECT_EQ(Zel("set sample.lb1 --description x").status, 1);
  Good("set sample.lb1 --description x --password sesame");
  EXPECT_EQ(Json("info sample.lb1")["description"], "x");
  Good("set sample.lb1 --clear-password --password sesame");
  Good("set sample.lb1 --library-version 2");
  json const info = Json("info sample.lb1");
  EXPECT_EQ(info["password_level"], 0);
  EXPECT_EQ(info["version"], "2");
  EXPECT_EQ(info["description"], "x") << "what is not given stays";
}

TEST_F(CommandsTest, TypesAreFifty) {
  json const types = Json("types")["types"];
  EXPECT_EQ(types.size(), 50U);
  std::set<std::string> names;
  for (json const& row : types) names.insert(row["type"]);
  EXPECT_EQ(names.size(), 50U);
  for (std::string const& name : names) {
    json const type = Json("types " + name);
    EXPECT_EQ(type["type"], name);
    EXPECT_FALSE(type["description"].is_null()) << name;
  }
  json const nrtl = Json("types nrtl");
  EXPECT_EQ(nrtl["formats"], 2);
  json const tMin = Row(nrtl["fields"], "field", "tMin");
  EXPECT_EQ(tMin["label"], "Minimum temperature");
  EXPECT_EQ(tMin["unit"], "K");
  json const pure = Json("types PURECOMP");
  EXPECT_EQ(pure["constants"].size(), 41U);
  EXPECT_EQ(pure["correlations"].size(), 18U);
}

TEST_F(CommandsTest, BanksAsCsv) {
  EXPECT_EQ(Good("banks perry.lb1 --csv"),
            "type,name,format,description\nPURECOMP,PERRY,1,Pure component data\n");
}

TEST_F(CommandsTest, ItemsWithFields) {
  json const items = Json("items sample.lb1 NRTL --names perry.lb1 --fields bij alphaij")["items"];
  ASSERT_FALSE(items.empty());
  EXPECT_TRUE(items[0].contains("bij"));
  EXPECT_TRUE(items[0].contains("alphaij"));
  bool found = false;
  for (json const& row : items) {
    found = found || (row["item_1"] == "ETHANOL" && row["item_2"] == "WATER") ||
            (row["item_2"] == "ETHANOL" && row["item_1"] == "WATER");
  }
  EXPECT_TRUE(found);
}

TEST_F(CommandsTest, ShowTurnsAPairRound) {
  auto const value = [](json const& item, char const* field) {
    return Row(item["fields"], "field", field)["value"];
  };
  json const one = Json("show sample.lb1 NRTL ETHANOL WATER --names perry.lb1");
  json const other = Json("show sample.lb1 NRTL 7732-18-5 64-17-5 --names perry.lb1");
  EXPECT_TRUE(value(one, "bij").is_number());
  EXPECT_NE(value(one, "bij"), value(one, "bji"));
  EXPECT_EQ(value(one, "bij"), value(other, "bji"));
  EXPECT_EQ(value(one, "bji"), value(other, "bij"));
  EXPECT_EQ(value(one, "alphaij"), value(other, "alphaij"));
}

TEST_F(CommandsTest, ShowAComponentByAnyOfItsNames) {
  json const byId = Json("show perry.lb1 PERRY ETHANOL");
  EXPECT_EQ(byId["formula"], "C2H6O");
  EXPECT_EQ(byId["cas_number"], "64-17-5");
  EXPECT_EQ(Row(byId["constants"], "keyword", "TC")["value"], 514);
  EXPECT_EQ(Row(byId["constants"], "keyword", "TC")["unit"], "K");
  EXPECT_EQ(Row(byId["constants"], "keyword", "TC")["from"], "perry.lb1:PERRY");
  EXPECT_EQ(Row(byId["correlations"], "name", "VaporPressure")["equation"], 20);
  EXPECT_EQ(Json("show perry.lb1 PURECOMP 64-17-5"), byId);
  EXPECT_EQ(Json("show perry.lb1 purecomp:perry " + std::to_string(byId["number"].get<int>())),
            byId);
}

TEST_F(CommandsTest, ShowAnItemNamedByText) {
  MakeFile("map.xml",
           "<bank type=\"MAPORW\" name=\"MAP\"><item><characterkey>Abc def</characterkey>"
           "<libnum>10000007</libnum></item></bank>");
  Good("import map.lb1 map.xml --create");
  EXPECT_EQ(Json("items map.lb1 MAPORW")["items"][0]["item"], "Abc def");
  EXPECT_EQ(Json("show map.lb1 MAPORW 'Abc def'")["item"], "Abc def");
  Good("delete map.lb1 MAPORW 'Abc def'");
  EXPECT_TRUE(Json("items map.lb1 MAPORW")["items"].empty());
}

// 62.4 lb/ft3 is a different density per mole than per mass.
TEST_F(CommandsTest, ShowTellsTheBasis) {
  json const curves = Json("show perry.lb1 PERRY ETHANOL")["correlations"];
  EXPECT_EQ(Row(curves, "name", "LatentHeat")["per"], "mole");
  EXPECT_TRUE(Row(curves, "name", "VaporPressure")["per"].is_null());
}

TEST_F(CommandsTest, TextOfALibraryDoesNotMoveTheCursor) {
  Good("memo sample.lb1 --set $(printf 'a\\033[31mred') --all");
  EXPECT_EQ(Good("memo sample.lb1"), "memo  a?[31mred\n");
  EXPECT_EQ(Json("memo sample.lb1")["memo"], "a\033[31mred");
}

TEST_F(CommandsTest, ShowCompletes) {
  json const stored = Json("show perry.lb1 PERRY ETHANOL");
  json const whole = Json("show perry.lb1 PERRY ETHANOL --complete");
  EXPECT_TRUE(Row(stored["constants"], "keyword", "CNUM").is_null());
  EXPECT_EQ(Row(whole["constants"], "keyword", "CNUM")["value"], 2);
  EXPECT_EQ(Row(whole["constants"], "keyword", "CNUM")["from"], "from chemical formula");
}

TEST_F(CommandsTest, FindByEachCriterion) {
  auto const ids = [&](std::string const& words) {
    std::set<std::string> found;
    json const report = Json("find crc.lb1 " + words);
    for (json const& row : report["components"]) found.insert(row["id"]);
    EXPECT_EQ(report["found"], report["components"].size());
    return found;
  };
  EXPECT_EQ(ids("--cas 64-17-5"), std::set<std::string>{"ETHANOL"});
  EXPECT_EQ(ids("--id ethan?l"), std::set<std::string>{"ETHANOL"});
  EXPECT_EQ(ids("--name ethanol"), std::set<std::string>{"ETHANOL"});
  std::set<std::string> const isomers = ids("--formula C2H6O");
  EXPECT_TRUE(isomers.count("ETHANOL"));
  json const near = Json("find crc.lb1 --nbp 350:352 --mw :50");
  for (json const& row : near["components"]) {
    EXPECT_GE(row["nbp"].get<double>(), 350);
    EXPECT_LE(row["nbp"].get<double>(), 352);
    EXPECT_LE(row["mw"].get<double>(), 50);
  }
  EXPECT_TRUE(ids("--nbp 350:352 --mw :50").count("ETHANOL"));
  EXPECT_TRUE(ids("--name 'no such thing'").empty());
  EXPECT_EQ(ids("").size(), Json("info crc.lb1")["banks"][0]["items"]);
}

// ln p = c1 + c2/T + c3 ln T + c4 T^c5 with the published coefficients.
TEST_F(CommandsTest, EvalOverTemperaturesInAnyUnit) {
  json const report =
      Json("eval ETHANOL VaporP -l perry.lb1 --at 25C 298.15K 77F 298.15 --derivatives 1");
  json const coefficients = Json("show perry.lb1 PERRY ETHANOL")["coefficients"];
  double c[5] = {};
  for (json const& row : coefficients) {
    if (row["name"] == "VaporPressure") c[row["c"].get<int>() - 1] = row["value"];
  }
  double const t = 298.15;
  double const kilopascal =
      std::exp(c[0] + c[1] / t + c[2] * std::log(t) + c[3] * std::pow(t, c[4]));
  ASSERT_EQ(report["points"].size(), 4U);
  for (json const& point : report["points"]) {
    EXPECT_NEAR(point["value"].get<double>(), kilopascal, 1e-6);
    EXPECT_NEAR(point["t"].get<double>(), t, 1e-9);
    EXPECT_EQ(point["range"], "inside");
  }
  EXPECT_EQ(report["units"]["points"]["value"], "kPa");
  EXPECT_EQ(report["units"]["points"]["d/dt"], "kPa/K");
  double const slope = report["points"][0]["d/dt"];
  json const beside = Json("eval ETHANOL VaporP -l perry.lb1 --at 298.14 298.16")["points"];
  EXPECT_NEAR(slope, (beside[1]["value"].get<double>() - beside[0]["value"].get<double>()) / 0.02,
              1e-5);
}

TEST_F(CommandsTest, EvalTellsTheRange) {
  json const points =
      Json("eval ETHANOL VaporPressure -l perry.lb1 --from 100 --to 600 --steps 5")["points"];
  ASSERT_EQ(points.size(), 6U);
  EXPECT_EQ(points[0]["range"], "below");
  EXPECT_EQ(points[1]["range"], "inside");
  EXPECT_EQ(points[5]["range"], "above");
  EXPECT_EQ(points[5]["t"], 600);
}

TEST_F(CommandsTest, PlotDrawsCurvesWithTheirUnits) {
  Good("plot VaporPressure ETHANOL WATER -l perry.lb1 --log -o vp.svg --from 250 --to 700");
  std::string const svg = FileText(Folder() / "vp.svg");
  EXPECT_EQ(svg.find("<svg "), svg.find('<', svg.find("?>") == std::string::npos ? 0 : 5));
  EXPECT_NE(svg.find("</svg>"), std::string::npos);
  for (char const* part : {"kPa", "Ethanol", "Water", "stroke-dasharray"}) {
    EXPECT_NE(svg.find(part), std::string::npos) << part;
  }
  EXPECT_NE(svg.find(">100</text>"), std::string::npos) << "round values on the axis";
  EXPECT_EQ(svg.find("nan"), std::string::npos);
  EXPECT_EQ(svg.find("inf"), std::string::npos);
  Outcome const lint = Shell("command -v xmllint >/dev/null || exit 0; xmllint --noout vp.svg");
  EXPECT_EQ(lint.status, 0) << lint.err;
}

TEST_F(CommandsTest, PlotOfEachSource) {
  Good("plot VaporPressure ETHANOL -l perry.lb1 -l crc.lb1 --each -o each.svg");
  EXPECT_NE(FileText(Folder() / "each.svg").find("perry.lb1:PERRY"), std::string::npos);
}

TEST_F(CommandsTest, SearchMergesByPreference) {
  json const one = Json("search ETHANOL -l perry.lb1 -l crc.lb1");
  EXPECT_EQ(Row(one["constants"], "keyword", "TC")["from"], "perry.lb1:PERRY");
  EXPECT_EQ(Row(one["constants"], "keyword", "NBP")["from"], "crc.lb1:CRC");
  EXPECT_EQ(Row(one["constants"], "keyword", "CNUM")["state"], "filled in");
  EXPECT_EQ(one["sources"].size(), 2U);
  json const other = Json("search ETHANOL -l crc.lb1:CRC -l perry.lb1:PERRY");
  EXPECT_EQ(Row(other["constants"], "keyword", "TC")["from"], "crc.lb1:CRC");
}

TEST_F(CommandsTest, WhyNamesTheWinnerAndTheMethod) {
  json const tc = Json("why ETHANOL TC -l crc.lb1 -l perry.lb1");
  EXPECT_EQ(tc["from"], "crc.lb1:CRC");
  EXPECT_EQ(Row(tc["sources"], "source", "crc.lb1:CRC")["result"], "won");
  EXPECT_EQ(Row(tc["sources"], "source", "perry.lb1:PERRY")["result"], "comes later");
  json const carbon = Json("why ETHANOL CNUM -l crc.lb1");
  EXPECT_EQ(carbon["state"], "filled in");
  EXPECT_EQ(carbon["from"], "from chemical formula");
  json const curve = Json("why ETHANOL liquiddensity -l crc.lb1 -l perry.lb1");
  EXPECT_EQ(curve["from"], "perry.lb1:PERRY");
}

TEST_F(CommandsTest, CoverageCountsDataAndPairs) {
  json const report = Json("coverage ETHANOL WATER BENZENE -l perry.lb1 -l crc.lb1 -l sample.lb1");
  json const ethanol = Row(report["components"], "component", "ETHANOL");
  EXPECT_EQ(ethanol["stored"].get<int>() + ethanol["filled_in"].get<int>() +
                ethanol["missing"].get<int>(),
            41);
  bool stored = false;
  bool missing = false;
  for (json const& row : report["pairs"]) {
    if (row["model"] != "NRTL") continue;
    stored = stored || (row["pair"] == "ETHANOL + WATER" && row["state"] == "stored" &&
                        row["from"] == "sample.lb1:SAMPLE");
    missing = missing || (row["pair"] == "WATER + BENZENE" && row["state"] == "missing");
  }
  EXPECT_TRUE(stored);
  EXPECT_TRUE(missing);
}

TEST_F(CommandsTest, CoverageOfWhatNobodyHasIsAnError) {
  Outcome const outcome = Zel("coverage ETHANOL NOBODY -l perry.lb1 -l sample.lb1");
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.out, "");
  EXPECT_NE(outcome.err.find("component NOBODY is not in perry.lb1:PERRY"), std::string::npos);
}

// 10.6 C is 283.75 K, and the last temperature of the record.
TEST_F(CommandsTest, LimitOfARecordInAnotherUnitIsInside) {
  MakeFile("c.xml",
           "<bank type=\"PURECOMP\" name=\"C\"><comp><id number=\"7\" name=\"X\"> XXX </id>"
           "<correlation name=\"SurfaceTension\" equation=\"1\" tempUnit=\"c\" propUnit=\"n/m\" "
           "tMin=\"0\" tMax=\"10.6\"> 0.05 -0.001 </correlation></comp></bank>");
  Good("import c.lb1 c.xml --create");
  json const points =
      Json("eval XXX SurfaceTension -l c.lb1 --at 283.75K 273.15K 51.08F")["points"];
  for (json const& point : points) EXPECT_EQ(point["range"], "inside") << point;
}

TEST_F(CommandsTest, NumbersDoNotChangeWithTheLocale) {
  std::string const words = "eval ETHANOL VaporPressure -l perry.lb1 --at 298.15";
  Outcome const other = Zel(words, "LC_ALL=de_DE.UTF-8");
  EXPECT_EQ(other.out, Good(words));
}

// A long name in the last column is broken; tables of numbers fit as they are.
TEST_F(CommandsTest, TextFitsEightyColumns) {
  for (char const* words :
       {"info sample.lb1", "banks sample.lb1", "types", "types NRTL", "types PURECOMP",
        "items sample.lb1 NRTL", "show sample.lb1 STRUCT ETHANOL --names perry.lb1",
        "show perry.lb1 PERRY ETHANOL --complete", "find crc.lb1", "find crc.lb1 --name '*butan*'",
        "eval ETHANOL LiquidDensity -l perry.lb1 --derivatives 3",
        "search ETHANOL -l perry.lb1 -l crc.lb1", "why ETHANOL TC -l perry.lb1",
        "coverage ETHANOL WATER -l perry.lb1 -l sample.lb1 --details", "diff perry.lb1 crc.lb1",
        "check crc.lb1", "check --ids"}) {
    std::istringstream lines(Good(words));
    for (std::string line; std::getline(lines, line);) {
      EXPECT_LE(line.size(), 80U) << words << "\n" << line;
    }
  }
}

TEST_F(CommandsTest, WhyAsCsvHasTheValueAndItsUnit) {
  std::string const nbp = Good("why ETHANOL NBP -l perry.lb1 -l crc.lb1 --csv");
  EXPECT_NE(nbp.find("datum\ncomponent,datum,value,unit,state,from,citation,DOI\n"
                     "Ethanol,\"NBP, normal boiling point\",351.39,K,stored,crc.lb1:CRC,"),
            std::string::npos)
      << nbp;
  EXPECT_NE(nbp.find("sources\nsource,value [K],code,result,citation\nperry.lb1:PERRY,,"),
            std::string::npos)
      << nbp;
  std::string const celsius = Good("why ETHANOL NBP -l crc.lb1 --csv --units C");
  EXPECT_NE(celsius.find(",78.24,C,stored,"), std::string::npos) << celsius;
  EXPECT_NE(celsius.find("source,value [C],"), std::string::npos) << celsius;
  std::string const curve = Good("why ETHANOL VaporPressure -l perry.lb1 --csv");
  EXPECT_NE(curve.find("component,datum,state,from,citation\n"), std::string::npos) << curve;
}

TEST_F(CommandsTest, InfoAsCsv) {
  std::string const text = Good("info crc.lb1 --csv");
  EXPECT_NE(text.find("files\nfile,block bytes,"), std::string::npos) << text;
  EXPECT_NE(text.find("banks\ntype,name,format,items\nPURECOMP,CRC,1,336\n"), std::string::npos)
      << text;
}

TEST_F(CommandsTest, DryRunsSayWhatWouldBe) {
  EXPECT_EQ(Good("set crc.lb1 --description x --dry-run"),
            "would change  crc.lb1\ndry run       nothing was changed\n");
  EXPECT_EQ(Good("create new.lb1 --dry-run"),
            "would create  new.lb1\ndry run       nothing was changed\n");
  EXPECT_EQ(
      Good("delete sample.lb1 NRTL --whole-bank --dry-run").find("would remove  NRTL:SAMPLE\n"),
      0U);
  EXPECT_EQ(Json("set crc.lb1 --description x --dry-run")["changed"], "crc.lb1");
  EXPECT_EQ(Good("set crc.lb1 --description x"), "changed  crc.lb1\n");
}

}  // namespace
}  // namespace zel::test

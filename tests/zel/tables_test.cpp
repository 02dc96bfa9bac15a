// Tables in files: what import --table reads, export --table writes and template names.
#include "desk/tables/text_table.h"
#include "desk/words/failure.h"
#include "tests/zel/tables_fixture.h"

namespace zel::test {
namespace {

using desk::ParseTextTable;
using desk::TextTable;
using nlohmann::json;

std::vector<std::vector<std::string>> CellsOf(TextTable const& table) {
  std::vector<std::vector<std::string>> cells;
  for (desk::TextRow const& row : table.rows) cells.push_back(row.cells);
  return cells;
}

TEST(TextTables, SeparatedValuesInEveryForm) {
  std::vector<std::vector<std::string>> const cells = {{"1", "a, b"}, {"2", ""}};
  for (char const* text :
       {"x,y\n1,\"a, b\"\n2,\n", "x;y\n1;\"a, b\"\n2;-\n", "x\ty\n1\ta, b\n2\t-",
        "\xef\xbb\xbfx,y\r\n\r\n1,\"a, b\"\r\n,\r\n2,\r\n", "\"x\" , \"y\"\n1,\"a, b\"\n 2 , \n",
        "[{\"x\": 1, \"y\": \"a, b\"}, {\"x\": \"2\", \"y\": null}]"}) {
    TextTable const table = ParseTextTable(text, "t");
    EXPECT_EQ(table.heads, (std::vector<std::string>{"x", "y"})) << text;
    EXPECT_EQ(CellsOf(table), cells) << text;
  }
}

TEST(TextTables, QuotesHoldLineEndsAndTheLineOfARowIsWhereItBegins) {
  TextTable const table =
      ParseTextTable("x,y\n\n1,\"two\nlines \"\"quoted\"\"\"\n2,b\n\n\n3,c\n", "t");
  ASSERT_EQ(table.rows.size(), 3U);
  EXPECT_EQ(table.rows[0].cells[1], "two\nlines \"quoted\"");
  EXPECT_EQ(table.rows[0].line, 3U);
  EXPECT_EQ(table.rows[1].line, 5U);
  EXPECT_EQ(table.rows[2].line, 8U);
  TextTable const objects = ParseTextTable("[\n{\"x\": [1, 2.5, null]},\n\n{\"x\": true}]", "t");
  EXPECT_EQ(objects.rows[0].line, 2U);
  EXPECT_EQ(objects.rows[0].cells[0], "1 2.5 -");
  EXPECT_EQ(objects.rows[1].line, 4U);
}

TEST(TextTables, AlignedTablesHaveTheirHeadsAfterAMark) {
  TextTable const table =
      ParseTextTable("# made by hand\n#! i  j   kij\n A  B  0.1  # note\n", "t");
  EXPECT_EQ(table.heads, (std::vector<std::string>{"i", "j", "kij"}));
  EXPECT_EQ(CellsOf(table), (std::vector<std::vector<std::string>>{{"A", "B", "0.1"}}));
}

TEST(TextTables, WhatIsNotATableIsRefused) {
  for (char const* text :
       {"", "\n\n", "x,y\n1\n", "x,y\n1,2,3\n", "x,x\n1,2\n", "x,\n1,2\n", "x,y\n1,\"2\n",
        "x,y\n1,2\"3\n", "[1, 2]", "[{\"x\": {}}]", "[{]", "[]", "[{\"x\": [[1]]}]"}) {
    EXPECT_THROW(ParseTextTable(text, "t"), desk::Failure) << text;
  }
  EXPECT_THROW(ParseTextTable(std::string("x\0y\n", 4), "t"), desk::Failure);
}

TEST(TextTables, WhatIsWrittenReadsBack) {
  TextTable table;
  table.heads = {"a [K]", "b"};
  for (char const* text : {"", "1e-05", "-5", "=1+2", "-x", "'=1", "''@", "a;b", "x\ny", "\"", "'",
                           "1 -2", "-", "'-", " x", " 5", "' x"}) {
    table.rows.push_back({0, {text, "1"}});
  }
  for (std::string const& text : {ToCsv(table, ','), ToCsv(table, '\t'), ToJson(table)}) {
    EXPECT_EQ(CellsOf(ParseTextTable(text, "t")), CellsOf(table)) << text;
    EXPECT_EQ(ParseTextTable(text, "t").heads, table.heads);
  }
  EXPECT_EQ(ToCsv(table, ',').find("\n=1+2"), std::string::npos);
}

TEST_F(TablesTest, ComponentsAreMadeAndChangedAndReported) {
  std::string const first =
      "number,ids,cas,name,formula,TC [K],PC [bar],NBP,TC code\n"
      "7,ETHANOL ETOH,64-17-5,Ethanol,C2H6O,513.9,61.4,78.31C,51\n"
      "8,WATER,7732-18-5,Water,H2O,647.1,-,373.15,\n";
  json const made = Imported("PURECOMP:OWN", first);
  EXPECT_EQ(made["read"], 2);
  EXPECT_EQ(made["new"], 2);
  json const shown = Json("show own.lb1 OWN ETHANOL");
  EXPECT_EQ(shown["number"], 7);
  EXPECT_EQ(shown["ids"], "ETHANOL ETOH");
  EXPECT_DOUBLE_EQ(Row(shown["constants"], "keyword", "PC")["value"], 6140.0);
  EXPECT_DOUBLE_EQ(Row(shown["constants"], "keyword", "NBP")["value"], 351.46);
  EXPECT_EQ(Row(shown["constants"], "keyword", "TC")["code"], 51);
  EXPECT_TRUE(Row(Json("show own.lb1 OWN WATER")["constants"], "keyword", "PC").is_null());
  EXPECT_EQ(Imported("OWN", first)["the_same"], 2);
  // Found by their CAS numbers and IDs; a cell without a value changes nothing.
  json const changed = Imported("OWN", "cas;PC [bar];TC\n64-17-5;61.5;\n7732-18-5;220.64;\n");
  EXPECT_EQ(changed["changed"], 2);
  EXPECT_EQ(changed["rows"][0]["line"], 2);
  EXPECT_EQ(changed["rows"][0]["what"], "PC 6140 to 6150 kPa");
  EXPECT_EQ(changed["rows"][1]["what"], "PC - to 22064 kPa");
  // One of several IDs names the component and leaves the others; a list replaces them.
  EXPECT_EQ(Imported("OWN", "id,TC\nETOH,514\n")["rows"][0]["what"], "TC 513.9 to 514 K");
  EXPECT_EQ(Json("show own.lb1 OWN ETHANOL")["ids"], "ETHANOL ETOH");
  Imported("OWN", "cas,ids\n64-17-5,ETHANOL ALCOHOL\n");
  EXPECT_EQ(Json("show own.lb1 OWN ETHANOL")["ids"], "ETHANOL ALCOHOL");
}

TEST_F(TablesTest, NothingIsChangedIfARowIsRefusedUnlessBadRowsAreSkipped) {
  Imported("PURECOMP:OWN", "number,ids,TC\n7,ETHANOL,513.9\n");
  std::string const before = FileText(Folder() / "own.lb1");
  std::string const bad = "number,ids,cas,TC\n7,ETHANOL,,514\n8,WATER,7732-18-4,\n9,BENZENE,,1,5\n";
  Outcome const wide = Import("OWN", bad);
  EXPECT_EQ(wide.status, 1);
  EXPECT_EQ(Row(json::parse(wide.out, nullptr, false)["rows"], "line", 4)["what"],
            "5 values, but there are 4 columns");
  std::string const rows =
      "number,ids,cas,TC\n7,ETHANOL,,514\n8,WATER,7732-18-4,\n9,BENZENE,,5x\n7,,,1\n,,,3\n"
      "10,TOLUENE,108-88-3,591.8\n11,TOLUENE,,1\n12,ALONGLONGID,,1\n";
  Outcome const outcome = Import("OWN", rows);
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(FileText(Folder() / "own.lb1"), before);
  json const report = json::parse(outcome.out, nullptr, false);
  ASSERT_FALSE(report.is_discarded()) << outcome.out;
  EXPECT_EQ(report["refused"], 6);
  EXPECT_NE(outcome.err.find("6 of 8 rows are refused"), std::string::npos) << outcome.err;
  EXPECT_NE(
      Row(report["rows"], "line", 4)["what"].get<std::string>().find("\"5x\" is not a number"),
      std::string::npos);
  EXPECT_NE(Row(report["rows"], "line", 5)["what"].get<std::string>().find("line 2"),
            std::string::npos);
  json const skipped = Imported("OWN", rows, "--skip-bad");
  EXPECT_EQ(skipped["changed"], 1);
  EXPECT_EQ(skipped["new"], 1);
  EXPECT_EQ(Json("items own.lb1 OWN")["items"].size(), 2U);
}

TEST_F(TablesTest, ColumnsAreMatchedStrictly) {
  for (auto const& [table, words] : std::vector<std::pair<std::string, std::string>>{
           {"number,TCC\n7,1\n", "did you mean TC?"},
           {"TC\n1\n", "no column names the components"},
           {"number,TC [bar]\n7,1\n", "bar is not a unit for values in K"},
           {"number,keyword\n7,TC\n", "needs a column value"},
           {"number,correlation\n7,VaporPressure\n", "equation and coefficients"}}) {
    Outcome const outcome = Import("PURECOMP:OWN", table);
    EXPECT_EQ(outcome.status, 1) << table;
    EXPECT_NE(outcome.err.find(words), std::string::npos) << outcome.err;
  }
  EXPECT_EQ(Import("PURECOMP:OWN", "number,page\n7,1\n", "--ignore page").status, 0);
  EXPECT_EQ(Import("PURECOMP:OWN", "number,page\n7,1\n", "--ignore pages").status, 1);
  MakeFile("map.txt",
           "# names of a report\nNo = number\nTcrit = TC [C]\npage =\nPC [bar] := 61.4\n");
  Imported("PURECOMP:OWN", "No,Tcrit,page\n7,240.75,1\n", "--map map.txt");
  json const shown = Json("show own.lb1 OWN 7");
  EXPECT_DOUBLE_EQ(Row(shown["constants"], "keyword", "TC")["value"], 513.9);
  EXPECT_DOUBLE_EQ(Row(shown["constants"], "keyword", "PC")["value"], 6140.0);
}

TEST_F(TablesTest, ConstantsAndCorrelationsOfOneSourceAreChosenFromALongTable) {
  Imported("PURECOMP:OWN", "number\tids\n7\tETHANOL\n");
  std::string const constants =
      "number\tkeyword\tsource\tvalue\trefCode\n7\tTC\tA\t513.9\t51\n7\tTC\tB\t500\t52\n";
  EXPECT_EQ(Imported("OWN", constants, "--where source=A")["changed"], 1);
  json const tc = Row(Json("show own.lb1 OWN 7")["constants"], "keyword", "TC");
  EXPECT_DOUBLE_EQ(tc["value"], 513.9);
  EXPECT_EQ(tc["code"], 51);
  EXPECT_EQ(Import("OWN", constants, "--ignore source").status, 1);  // twice the same constant
  std::string const curves =
      "number\tcorrelation\tequation\ttempUnit\tpropUnit\tpropUnitCode\tlogBasis\tmoleWtBasis\ttMin"
      "\ttMax\trefCode\tuses\tn\tcoefficients\n"
      "7\tVaporPressure\t20\tK\tkPa\t4015\tln\t-\t159.05\t514\t11\t-\t5\t"
      "66.3962447210179 -7122.3 -7.1424 2.8853e-06 2\n";
  EXPECT_EQ(Imported("OWN", curves, "--ignore uses")["changed"], 1);
  EXPECT_EQ(Imported("OWN", curves, "--ignore uses")["the_same"], 1);
  json const eval = Json("eval ETHANOL VaporPressure -l own.lb1 --at 351.4");
  json const known = Json("eval ETHANOL VaporPressure -l perry.lb1 --at 351.4");
  EXPECT_EQ(eval["points"], known["points"]);
  Outcome const unknown = Import("OWN", "number,keyword,value\n9,TC,1\n");
  EXPECT_NE(unknown.out.find("is not in bank PURECOMP:OWN"), std::string::npos) << unknown.out;
}

// What data/make_libraries makes by tables alone is what the documents in data/xml make.
TEST_F(TablesTest, PublishedTablesMakeTheLibrariesOfTheDocuments) {
  Outcome const made = Shell("mkdir made && '" ZEL_DATA "/../make_libraries' made");
  ASSERT_EQ(made.status, 0) << made.err;
  for (char const* source : {"sample", "perry", "crc", "chemsep", "vdi", "poling", "nist"}) {
    std::string const library = std::string(source) + ".lb1";
    if (!std::filesystem::exists(Folder() / library)) {
      Good("import " + library + " '" ZEL_DATA "/" + source + ".xml' --create");
    }
    std::string words = "diff " + library;
    json const diff = Json(words.append(" made/").append(library));
    EXPECT_EQ(diff["differences"].size(), 0U) << source << diff.dump(1);
    EXPECT_GT(Json("info made/" + library)["banks"].size(), 0U) << source;
  }
}

TEST_F(TablesTest, GroupsOfAMolecule) {
  std::string const names = "--names perry.lb1";
  Outcome const good = Import("STRUCT:OWN", "component,groups\nETHANOL,1(1) 14(1)\n", names);
  EXPECT_EQ(good.status, 0) << good.err;
  json const item = Json("show own.lb1 STRUCT:OWN ETHANOL --names perry.lb1");
  EXPECT_EQ(item["fields"][0]["value"], 2);
  EXPECT_EQ(item["fields"][1]["value"], "1 14 - - - - - - - -");
  EXPECT_EQ(item["fields"][2]["value"], "1 1 - - - - - - - -");
  for (char const* cell :
       {"1", "x(1)", "1(2", "1(2) 3(4) 5(6) 7(8) 9(1) 10(1) 11(1) 12(1) 13(1) 14(1) 15(1)"}) {
    Outcome const bad =
        Import("STRUCT:OWN", std::string("component,groups\nWATER,") + cell + "\n", names);
    EXPECT_EQ(bad.status, 1) << cell;
    EXPECT_NE(bad.out.find("groups: "), std::string::npos) << bad.out;
  }
  Outcome const twice = Import("STRUCT:OWN", "component,groups,count\nWATER,16(1),1\n", names);
  EXPECT_NE(twice.err.find("column groups sets count too"), std::string::npos) << twice.err;
}

TEST_F(TablesTest, WhatIsExportedReadsBackToTheSameValues) {
  for (char const* bank : {"NRTL", "WILSON", "UNIQUAC", "PRO", "PCSAFTPU", "COSTALD", "OCTANE",
                           "GRPDESC", "UNFORIG", "STRUCT"}) {
    for (char const* ending : {"csv", "tsv", "json"}) {
      std::string const file = std::string("e.") + ending;
      Good(std::string("export sample.lb1 --bank ") + bank + " --table " + file);
      Good("create back.lb1 --force");
      Good(std::string("import back.lb1 --bank ") + bank + ":SAMPLE --table " + file);
      json const diff = Json(std::string("diff sample.lb1 back.lb1 --bank ") + bank);
      EXPECT_EQ(diff["differences"].size(), 0U) << bank << " " << ending << diff.dump(1);
    }
  }
}

TEST_F(TablesTest, ComponentsReadBackFromTheirThreeTables) {
  for (std::string const source : {"perry", "crc"}) {
    Good("create back.lb1 --force");
    for (char const* kind : {"constants", "correlations"}) {
      std::string words = "export " + source;
      words.append(".lb1 --bank ").append(source).append(" --kind ").append(kind);
      Good(words.append(" --table e.csv"));
      words = "import back.lb1 --bank PURECOMP:";
      Good(words.append(source).append(" --table e.csv"));
    }
    std::string words = "diff " + source;
    json const diff = Json(words.append(".lb1 back.lb1 --bank ").append(source));
    EXPECT_EQ(diff["differences"].size(), 0U) << source << diff.dump(1);
  }
}

TEST_F(TablesTest, ExportsSayTheirUnitsAndAnUnknownEndingIsAnError) {
  Outcome const out = Zel("export crc.lb1 --bank CRC --table - --units bar,degC");
  EXPECT_NE(out.out.find("PC [bar]"), std::string::npos);
  EXPECT_NE(out.out.find("NBP [C]"), std::string::npos);
  EXPECT_EQ(Zel("export crc.lb1 --bank CRC --table e.xls").status, 2);
  EXPECT_EQ(Zel("export crc.lb1 --table e.csv").status, 2);
  EXPECT_EQ(Zel("export sample.lb1 --bank NRTL --kind groups --table e.csv").status, 2);
  EXPECT_EQ(Zel("import own.lb1 --table e.csv").status, 2);
  EXPECT_EQ(Zel("import own.lb1").status, 2);
  EXPECT_NE(Zel("import own.lb1 --bank CRC:X --table none.csv").status, 0);
  EXPECT_NE(Zel("import own.lb1 --bank PURECOMP:X --table none.csv").err.find("not found"),
            std::string::npos);
}

TEST_F(TablesTest, TemplatesHaveTheHeadsThatImportsKnow) {
  for (char const* type : {"PURECOMP", "NRTL", "WILSON", "STRUCT"}) {
    MakeFile("empty.csv", Good(std::string("template ") + type));
    json const made = Json(std::string("import own.lb1 --table empty.csv --bank ") + type + ":T");
    EXPECT_EQ(made["read"], 0) << type;
  }
  EXPECT_NE(Good("template PURECOMP --kind correlations").find("coefficients"), std::string::npos);
  EXPECT_NE(Good("template PURECOMP --units bar").find("PC [bar]"), std::string::npos);
  EXPECT_EQ(Zel("template NONE").status, 1);
}

TEST_F(TablesTest, ComponentsAreShownSideBySide) {
  json const table =
      Json("table ETHANOL WATER --fields TC NBP VaporPressure --sources -l perry.lb1 -l crc.lb1");
  ASSERT_EQ(table["components"].size(), 2U);
  EXPECT_DOUBLE_EQ(table["components"][0]["nbp"], 351.39);
  EXPECT_EQ(table["components"][0]["nbp_from"], "crc.lb1:CRC");
  EXPECT_EQ(table["components"][0]["vaporpressure"], "equation 20, 159.05 to 514 K");
  EXPECT_EQ(table["units"]["components"]["nbp"], "K");
  MakeFile("list.txt", "# mine\nETHANOL\n\n1-Butanol\n");
  EXPECT_EQ(Json("table --components-of list.txt --fields TC -l crc.lb1")["components"].size(), 2U);
  EXPECT_EQ(static_cast<int>(
                Json("table --filter '2-methyl*' --fields MW -l perry.lb1")["components"].size()),
            Json("find perry.lb1 --name '2-methyl*'")["found"]);
  EXPECT_EQ(Json("table --all --fields MW -l crc.lb1 -l perry.lb1")["components"].size(), 340U);
  EXPECT_EQ(Zel("table --fields MW -l crc.lb1").status, 2);
  EXPECT_EQ(Zel("table NOSUCH --fields MW -l crc.lb1").status, 1);
  EXPECT_EQ(Zel("table ETHANOL --fields NBPP -l crc.lb1").status, 1);
}

TEST_F(TablesTest, ManyCurvesAreEvaluatedOnOneGrid) {
  json const grid = Json(
      "eval ETHANOL VaporPressure --components WATER --correlations LiquidDensity -l perry.lb1 "
      "--at 300 600 --units bar");
  ASSERT_EQ(grid["points"].size(), 2U);
  json const one = Json("eval WATER VaporPressure -l perry.lb1 --at 300");
  EXPECT_NEAR(grid["points"][0]["water_vaporpressure"].get<double>() * 100.0,
              one["points"][0]["value"].get<double>(), 1e-9);
  EXPECT_EQ(grid["units"]["points"]["water_vaporpressure"], "bar");
  EXPECT_TRUE(grid["points"][1]["ethanol_vaporpressure"].is_null());  // outside the range
  EXPECT_EQ(grid["records"].size(), 4U);
  EXPECT_TRUE(Row(grid["records"], "component", "WATER")["equation"].is_number());
  EXPECT_TRUE(grid["records"][3]["equation"].is_null());  // water has no such record
  EXPECT_TRUE(grid["points"][0]["water_liquiddensity"].is_null());
  EXPECT_TRUE(grid["points"][0]["ethanol_liquiddensity"].is_number());
  EXPECT_EQ(Zel("eval ETHANOL VaporPressure --components WATER -l perry.lb1").status, 2);
  // What is named twice has one column.
  Outcome const twice =
      Zel("eval ETHANOL VaporPressure --components ETHANOL WATER ETOH --correlations VaporPressure "
          "vaporp LiquidDensity -l perry.lb1 --at 300 --csv");
  EXPECT_NE(twice.out.find("T [K],ETHANOL VaporPressure [kPa],ETHANOL LiquidDensity [kg-mol/m3],"
                           "WATER VaporPressure [kPa],WATER LiquidDensity [kg-mol/m3]\n"),
            std::string::npos)
      << twice.out;
}

TEST_F(TablesTest, PairsAreShownWithTheirSources) {
  json const pairs =
      Json("pairs NRTL ETHANOL WATER BENZENE --fields bij bji -l sample.lb1 -l perry.lb1");
  EXPECT_EQ(pairs["found"], 2);
  EXPECT_EQ(Row(pairs["pairs"], "component_2", "WATER")["component_1"], "ETHANOL");
  EXPECT_EQ(pairs["pairs"][0]["from"], "sample.lb1:SAMPLE");
  EXPECT_EQ(Json("pairs NRTL -l sample.lb1")["pairs"].size(), 218U);
  // IDs come from the library of --names as well.
  EXPECT_EQ(Json("pairs NRTL -l sample.lb1 --names perry.lb1")["pairs"][0]["component_1"], "CCL4");
  json const ofOne = Json("pairs NRTL ETHANOL -l sample.lb1 -l perry.lb1")["pairs"];
  EXPECT_GT(ofOne.size(), 10U);
  EXPECT_LT(ofOne.size(), 218U);
  for (json const& row : ofOne) {
    EXPECT_TRUE(row["component_1"] == "ETHANOL" || row["component_2"] == "ETHANOL") << row.dump();
  }
  EXPECT_EQ(Zel("pairs RACKETT -l sample.lb1").status, 1);
  EXPECT_EQ(Zel("pairs NRTL NOSUCH -l sample.lb1 -l perry.lb1").status, 1);
}

TEST_F(TablesTest, ATableWithoutValuesSaysHowToShowSome) {
  Outcome const pairs = Zel("pairs NRTL -l sample.lb1");
  EXPECT_EQ(pairs.err,
            "zel: no values are shown; --fields names them, and `zel types NRTL` lists them\n");
  Outcome const table = Zel("table ETHANOL -l crc.lb1");
  EXPECT_EQ(table.err,
            "zel: no values are shown; --fields names constants and correlations, e.g. --fields TC "
            "NBP\n");
  EXPECT_EQ(Zel("pairs NRTL --fields bij -l sample.lb1").err, "");
  EXPECT_EQ(Zel("table ETHANOL --fields TC -l crc.lb1").err, "");
  EXPECT_FALSE(Json("pairs NRTL -l sample.lb1").contains("problems"));
  EXPECT_EQ(Zel("pairs NRTL -l sample.lb1 --csv").err, "");
}

}  // namespace
}  // namespace zel::test

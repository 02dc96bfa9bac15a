// What tables do not set: values that a library cannot keep, records that are not good, rows that
// contradict themselves.
#include "tests/zel/tables_fixture.h"

namespace zel::test {
namespace {

using nlohmann::json;

TEST_F(TablesTest, TemperaturesBelowAbsoluteZeroAreRefused) {
  Imported("PURECOMP:OWN", "number,ids\n7,ETHANOL\n8,WATER\n");
  for (auto const& [bank, table] : std::vector<std::pair<char const*, char const*>>{
           {"OWN", "number,NBP [C]\n7,-300\n"},
           {"OWN", "number,NBP\n7,-300F\n8,-500F\n"},
           {"OWN", "number,keyword,value\n7,NBP,-1\n"},
           {"NRTL:OWN", "item 1,item 2,tMin\n7,8,-1\n"}}) {
    Outcome const outcome = Import(bank, table);
    EXPECT_EQ(outcome.status, 1) << table;
    EXPECT_EQ(json::parse(outcome.out, nullptr, false)["refused"], 1) << table << outcome.out;
    EXPECT_NE(outcome.out.find("it is below absolute zero"), std::string::npos) << outcome.out;
  }
}

// What `zel edit` refuses, a table does not set either.
TEST_F(TablesTest, RecordsOfCorrelationsAreChecked) {
  Imported("PURECOMP:OWN", "number,ids\n7,ETHANOL\n");
  std::string const before = FileText(Folder() / "own.lb1");
  for (auto const& [row, words] : std::vector<std::pair<std::string, std::string>>{
           {"VaporPressure,1,K,kPa,,300,200,1 2", "the range 300 to 200 K ends before it begins"},
           {"VaporPressure,1,C,kPa,,-300,200,1 2", "-300 C is below absolute zero"},
           {"VaporPressure,999,K,kPa,,200,300,1 2", "equation 999 is not known"},
           {"VaporPressure,16,K,kPa,,200,300,1", "needs at least 4 coefficients"},
           {"LiquidDensity,1,K,,4015,200,300,1 2", "unit code 4015 (kPa) is not a unit of Liq"},
           {"LiquidDensity,1,K,kPa,,200,300,1 2", "\\\"kPa\\\" is not a unit of LiquidDensity"},
           {"Dielectric,1,K,,1010,200,300,1 2", "which is a pure number"},
           {"VaporPressure,1,K,kPa,,200,300,1 1e39", "C2 cannot be stored as 1e+39"},
           {"VaporPressure,1,K,kPa,,200,300,1 -2e35", "C2 cannot be stored as -2e+35"}}) {
    Outcome const outcome =
        Import("OWN",
               "number,correlation,equation,tempUnit,propUnit,propUnitCode,tMin,tMax,"
               "coefficients\n7," +
                   row + "\n");
    EXPECT_EQ(outcome.status, 1) << row;
    EXPECT_NE(outcome.out.find(words), std::string::npos) << row << outcome.out;
    EXPECT_EQ(FileText(Folder() / "own.lb1"), before) << row;
  }
}

// Several classes of units have a kPa: that of the correlation counts.
TEST_F(TablesTest, UnitsOfRecordsAreThoseOfTheirCorrelation) {
  Imported("PURECOMP:OWN", "number,ids\n7,ETHANOL\n");
  json const made = Imported("OWN",
                             "number,correlation,equation,propUnit,moleWtBasis,coefficients\n"
                             "7,VaporPressure,20,bar,,1 2\n7,LiquidDensity,1,kg/m3,m,800\n");
  EXPECT_EQ(made["changed"], 2);
  EXPECT_EQ(made["warning"], "1 row has fewer coefficients than usual, see below");
  EXPECT_NE(made["rows"][0]["what"].get<std::string>().find("usually has 5 coefficients"),
            std::string::npos);
  Good("export own.lb1 --bank OWN --kind correlations --table e.csv");
  std::string const table = FileText(Folder() / "e.csv");
  EXPECT_NE(table.find("7,VaporPressure,20,K,bar,4017"), std::string::npos) << table;
  EXPECT_NE(table.find("7,LiquidDensity,1,K,kg/m3,19081"), std::string::npos) << table;
}

TEST_F(TablesTest, TextsThatALibraryCannotKeepAreRefused) {
  Imported("PURECOMP:OWN", "number,ids,name\n7,ETHANOL,Ethanol\n");
  std::string const before = FileText(Folder() / "own.lb1");
  for (auto const& [bank, table] : std::vector<std::pair<char const*, char const*>>{
           {"OWN", "number,name\n7,J\xc3\xbcrgen's\n"},
           {"OWN", "ids,name\n\xc3\x84\xc3\x96,Other\n"},
           {"OWN", "number,name\n7,[bmim]\n"},
           {"OWN", "number,smiles\n7,[Na+]\n"},
           {"OWN", "number,formula\n7,C\xc3\xb6\n"},
           {"MAPORW:OWN", "key\n\xc3\xbc \xc3\xa4k\n"},
           {"GRPDESC:OWN", "item 1,name\n1,\xc3\xbc \xc3\xa4\n"}}) {
    Outcome const outcome = Import(bank, table);
    EXPECT_EQ(outcome.status, 1) << table;
    EXPECT_EQ(json::parse(outcome.out, nullptr, false)["refused"], 1) << table << outcome.out;
    EXPECT_NE(outcome.out.find("has characters that a library cannot store"), std::string::npos)
        << table << outcome.out;
    EXPECT_EQ(FileText(Folder() / "own.lb1"), before) << table;
  }
  json const skipped = Imported("OWN", "number,name\n7,J\xc3\xbcrgen's\n", "--skip-bad");
  EXPECT_EQ(skipped["refused"], 1);
  EXPECT_EQ(Json("show own.lb1 OWN 7")["name"], "Ethanol");
}

// A record holds numbers of single precision, and about -1e35 is no value.
TEST_F(TablesTest, NumbersThatALibraryCannotKeepAreRefused) {
  Imported("PURECOMP:OWN", "number,ids,TC\n7,ETHANOL,513.9\n8,WATER,647\n");
  for (auto const& [bank, table, words] :
       std::vector<std::tuple<char const*, char const*, char const*>>{
           {"OWN", "number,TC\n7,1e39\n", "TC cannot be stored as 1e+39"},
           {"OWN", "number,ZC\n7,-3.4028e38\n", "ZC cannot be stored as -3.4028e+38"},
           {"OWN", "number,keyword,value\n7,ZC,1e39\n", "ZC cannot be stored as 1e+39"},
           {"OWN", "number,ZC\n7,1e-50\n", "ZC cannot be stored as 1e-50, only as 0"},
           {"NRTL:OWN", "item 1,item 2,bij\n7,8,1e39\n", "bij cannot be stored as 1e+39"},
           {"NRTL:OWN", "item 1,item 2,bij\n7,8,-1e36\n", "bij cannot be stored as -1e+36"}}) {
    Outcome const outcome = Import(bank, table);
    EXPECT_EQ(outcome.status, 1) << table;
    EXPECT_NE(outcome.out.find(words), std::string::npos) << table << outcome.out;
  }
  // A row that turned out to be refused only when it was read back leaves what was there.
  Imported("OWN", "number,TC,ZC\n7,500,1e-50\n9,400,1e-50\n8,600,\n", "--skip-bad");
  EXPECT_EQ(Row(Json("show own.lb1 OWN 7")["constants"], "keyword", "TC")["value"], 513.9);
  EXPECT_EQ(Row(Json("show own.lb1 OWN 8")["constants"], "keyword", "TC")["value"], 600);
  EXPECT_EQ(Json("items own.lb1 OWN")["items"].size(), 2U);
  Imported("NRTL:OWN", "item 1,item 2,bij\n7,8,1e-50\n", "--skip-bad");
  EXPECT_EQ(Json("items own.lb1 NRTL")["items"].size(), 0U);
}

// The columns that name an item must agree, and so must the two components of a pair differ.
// A row with too few or too many values is refused like any other bad row.
TEST_F(TablesTest, ARaggedRowIsRefusedInTheReport) {
  std::string const table = "number,ids,TC\n7,ETHANOL,514\n8,WATER\n9,BENZENE,562,1\n";
  Outcome const outcome = Import("PURECOMP:OWN", table);
  EXPECT_EQ(outcome.status, 1);
  json const report = json::parse(outcome.out, nullptr, false);
  EXPECT_EQ(report["read"], 3);
  EXPECT_EQ(report["refused"], 2);
  EXPECT_EQ(Row(report["rows"], "line", 3)["what"], "2 values, but there are 3 columns");
  EXPECT_EQ(Row(report["rows"], "line", 4)["what"], "4 values, but there are 3 columns");
  EXPECT_EQ(Imported("PURECOMP:OWN", table, "--skip-bad")["new"], 1);
  // It is not dropped as a row of another source.
  json const chosen = Imported("OWN", "number,TC,source\n7,515,CRC\n7,516,DIPPR\n7,517\n",
                               "--where source=CRC --skip-bad");
  EXPECT_EQ(chosen["read"], 2);
  EXPECT_EQ(chosen["changed"], 1);
  EXPECT_EQ(chosen["refused"], 1);
}

TEST_F(TablesTest, RowsAreChosenByAColumnThatIsData) {
  std::string const table = "id,TC,source\nAA,300,CRC\nBB,400,DIPPR\n";
  EXPECT_EQ(Imported("PURECOMP:OWN", table, "--where id=AA --ignore source")["new"], 1);
  EXPECT_EQ(Imported("OWN", table, "--where source=DIPPR")["new"], 1);
  EXPECT_EQ(Row(Json("show own.lb1 OWN BB")["constants"], "keyword", "TC")["value"], 400);
  Outcome const none = Import("OWN", table, "--where source=CRX");
  EXPECT_EQ(none.status, 1);
  EXPECT_NE(none.out.find("no row has \\\"CRX\\\" in the column source; did you mean CRC?"),
            std::string::npos)
      << none.out;
}

TEST_F(TablesTest, ARowIsNotTheSameAsARefusedOne) {
  Outcome const outcome =
      Import("PURECOMP:OWN", "number,ids,TC\n7,ETHANOL,x\n7,ETHANOL,514\n7,ETHANOL,515\n");
  json const rows = json::parse(outcome.out, nullptr, false)["rows"];
  ASSERT_EQ(rows.size(), 2U) << outcome.out;
  EXPECT_NE(rows[0]["what"].get<std::string>().find("\"x\" is not a number"), std::string::npos);
  EXPECT_EQ(rows[1]["line"], 4);
  EXPECT_EQ(rows[1]["what"], "the same as line 3 sets");
}

TEST_F(TablesTest, AnIdThatIsTooLongIsSaidSo) {
  Outcome const outcome = Import("PURECOMP:OWN", "ids,TC\nVERYLONGIDENTIFIER,514\n");
  EXPECT_EQ(outcome.status, 1);
  EXPECT_NE(outcome.out.find("an ID has at most 8 characters, not 18"), std::string::npos)
      << outcome.out;
}

TEST_F(TablesTest, ErrorsOfJsonAreWithoutNamesOfExceptions) {
  Outcome const outcome = Import("PURECOMP:OWN", "[{\"ids\": }]");
  EXPECT_EQ(outcome.status, 1);
  EXPECT_NE(outcome.out.find("t.csv: is not JSON: parse error at line 1, column 10"),
            std::string::npos)
      << outcome.out;
  EXPECT_EQ(outcome.out.find("json.exception"), std::string::npos) << outcome.out;
}

TEST_F(TablesTest, ColumnsThatNameTheItemAgree) {
  Imported("PURECOMP:OWN", "number,ids,cas\n3,CCL4,56-23-5\n5,METHANOL,67-56-1\n7,ETHANOL,\n");
  Imported("NRTL:OWN", "item 1,item 2,bij\n3,7,5\n");
  for (auto const& [row, words] : std::vector<std::pair<std::string, std::string>>{
           {"3,METHANOL,,7,", "id 1 is METHANOL, which is 5, but 3 is 3"},
           {"3,,67-56-1,7,", "cas 1 is 67-56-1, which is 5, but 3 is 3"},
           {"3,,,7,CCL4", "id 2 is CCL4, which is 3, but 7 is 7"},
           {"3,,,3,CCL4", "is a pair of a component with itself"},
           {",CCL4,,CCL4,", "is a pair of a component with itself"}}) {
    Outcome const outcome =
        Import("NRTL:OWN", "item 1,id 1,cas 1,item 2,id 2,bij\n" + row + ",9\n");
    EXPECT_EQ(outcome.status, 1) << row;
    EXPECT_NE(outcome.out.find(words), std::string::npos) << row << outcome.out;
  }
  EXPECT_EQ(Imported("HOCV:OWN", "item 1,item 2,eta\n3,3,1.5\n")["new"], 1) << "of one component";
  // The same component, one whose ID is not known, and a row that has only the ID.
  EXPECT_EQ(
      Imported("NRTL:OWN",
               "item 1,id 1,item 2,id 2,bij\n3,CCL4,7,OTHER,6\n,METHANOL,7,ETHANOL,8\n")["new"],
      1);
}

TEST_F(TablesTest, TextsThatLookLikeNoValueReadBack) {
  Imported("PURECOMP:OWN", "number,ids\n7,ETHANOL\n");
  MakeFile("t.json", R"([{"number": 7, "name": "-", "formula": " x"}])");
  Good("import own.lb1 --table t.json --bank OWN");
  for (char const* file : {"e.csv", "e.tsv", "e.json"}) {
    Good(std::string("export own.lb1 --bank OWN --table ") + file);
    Good("create back.lb1 --force");
    Good(std::string("import back.lb1 --bank PURECOMP:OWN --table ") + file);
    json const shown = Json("show back.lb1 OWN 7");
    EXPECT_EQ(shown["name"], "-") << file;
    EXPECT_EQ(Json("diff own.lb1 back.lb1")["differences"].size(), 0U) << file;
  }
}

// Near a vacuum a gauge pressure is always the same number.
TEST_F(TablesTest, SmallPressuresReadBackFromGaugeUnits) {
  Imported("PURECOMP:OWN", "number,ids,PC\n7,ETHANOL,1e-20\n");
  Imported("NRTL:OWN", "item 1,item 2,pMin\n3,7,1e-20\n");
  for (auto const& [unit, absolute] : std::vector<std::pair<std::string, std::string>>{
           {"psig", "psia"}, {"barg", "bar"}, {"kPag", "kPa"}}) {
    Good("create back.lb1 --force");
    for (char const* bank : {"PURECOMP", "NRTL"}) {
      Good(std::string("export own.lb1 --table e.csv --units ") + unit + " --bank " + bank);
      EXPECT_NE(FileText(Folder() / "e.csv").find(" [" + absolute + "]"), std::string::npos)
          << FileText(Folder() / "e.csv");
      Good(std::string("import back.lb1 --table e.csv --bank ") + bank + ":OWN");
    }
    EXPECT_EQ(Json("diff own.lb1 back.lb1")["differences"].size(), 0U) << unit;
  }
}

TEST_F(TablesTest, ATableFromStandardInput) {
  Outcome const outcome = Shell(
      "printf 'number,ids\\n7,ETHANOL\\n' | $ZEL import own.lb1 --bank PURECOMP:OWN --table -");
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_EQ(Json("items own.lb1 OWN")["items"].size(), 1U);
}

TEST_F(TablesTest, WhatIsNotATableIsSaid) {
  for (auto const& [table, words] : std::vector<std::pair<std::string, std::string>>{
           {"{\"number\": 7}", "that is an array of objects"},
           {"[{\"number\": 7, \"TC\": 1, \"TC\": 2}]", "has the member TC twice"},
           {"[{\"number\": 7, \"TC\": 1, \"tc\": 2}]", "has the member tc twice"},
           {"number,TC [K],TC [C]\n7,1,2\n", "several columns mean TC"}}) {
    Outcome const outcome = Import("PURECOMP:OWN", table);
    EXPECT_EQ(outcome.status, 1) << table;
    EXPECT_NE(outcome.err.find(words), std::string::npos) << table << outcome.err;
  }
  EXPECT_EQ(Import("PURECOMP:OWN", "number,TC [K],TC [C]\n7,1,2\n", "--ignore 'TC [C]'").status, 0);
  for (char const* words : {"--table /dev/zero", "--table t.csv --map /dev/zero"}) {
    Outcome const outcome = Zel(std::string("import own.lb1 --bank PURECOMP:OWN ") + words);
    EXPECT_EQ(outcome.status, 1) << words;
    EXPECT_NE(outcome.err.find("/dev/zero: is not a regular file"), std::string::npos)
        << outcome.err;
  }
}

}  // namespace
}  // namespace zel::test

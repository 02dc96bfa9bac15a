// What a newcomer types: words in another order, a unit or a library forgotten, numbers and files
// as a spreadsheet writes them. Each is understood, or answered with what to type instead.
#include <set>

#include "tests/zel/zel_fixture.h"

namespace zel::test {
namespace {

using nlohmann::json;

constexpr int kFailed = 1;
constexpr int kWrongUsage = 2;

class NewcomerTest : public ZelTest {
 protected:
  // The command fails with a line that has the text, and changes nothing.
  void Fails(std::string const& words, int status, std::string const& text) const {
    Contents const before = ContentsOf(Folder());
    Outcome const outcome = Zel(words);
    EXPECT_EQ(outcome.status, status) << words << "\n" << outcome.err;
    EXPECT_NE(outcome.err.find(text), std::string::npos) << words << "\n" << outcome.err;
    EXPECT_TRUE(ContentsOf(Folder()) == before) << words << " changed something";
  }
  // Imports a table into the bank LAB of lab.lb1, which is made.
  Outcome Import(std::string const& table, std::string const& options = "") const {
    MakeFile("lab.csv", table);
    return Zel("import lab.lb1 --create --table lab.csv --bank PURECOMP:LAB --json " + options);
  }
};

TEST_F(NewcomerTest, HelpIsACommandToo) {
  EXPECT_EQ(Good("help"), Good("--help"));
  EXPECT_EQ(Good("help undo"), Good("undo --help"));
  EXPECT_EQ(Good("help undo own.lb1"), Good("undo --help"));
  Fails("help edti", kWrongUsage, "'edti' is not a zel command; did you mean edit?");
  Fails("foo --help", kWrongUsage, "'foo' is not a zel command; see zel --help");
}

TEST_F(NewcomerTest, MissingWordsAreShownInTheirLine) {
  Fails("show perry.lb1 ETHANOL", kWrongUsage,
        "ITEM is required; usage: zel show LIBRARY BANK ITEM...; see zel show --help");
  Fails("items perry.lb1", kWrongUsage, "usage: zel items LIBRARY BANK;");
  Fails("why ETHANOL NBP", kWrongUsage, "--lib is required: -l LIBRARY, once for each;");
  Fails("why ETHANOL -l crc.lb1", kWrongUsage, "usage: zel why COMPONENT DATUM -l SOURCE;");
  Fails("sheet ETHANOL -l perry.lb1", kWrongUsage, "-l SOURCE -o FILE;");
}

TEST_F(NewcomerTest, WordsTooManyAreAnsweredWithTheOptionForThem) {
  Fails("search ETHANOL -l perry.lb1 crc.lb1", kWrongUsage,
        "each library has its own -l: -l crc.lb1");
  Fails("compare perry.lb1 crc.lb1 ETHANOL", kWrongUsage, "--components names components");
  Fails("eval ETHANOL WATER VaporP -l perry.lb1", kWrongUsage,
        "--components and --correlations name further ones");
  Fails("search ETHANOL WATER -l perry.lb1", kWrongUsage, "usage: zel search COMPONENT -l SOURCE");
  Fails("memo crc.lb1 text", kWrongUsage, "usage: zel memo LIBRARY");
  Outcome const option = Zel("memo crc.lb1 --sett x");
  EXPECT_NE(option.err.find("did you mean --set?"), std::string::npos) << option.err;
}

TEST_F(NewcomerTest, LibraryThatDoesNotExistCanBeCreated) {
  Fails("import new.lb1 x.csv", kFailed, "x.csv: not found");
  MakeFile("x.xml", "<library/>");
  Fails("import new.lb1 x.xml", kFailed, "new.lb1: not found; --create makes it");
  Fails("copy perry.lb1 new.lb1", kFailed, "new.lb1: not found; --create makes it");
}

TEST_F(NewcomerTest, FindLooksForATextEverywhere) {
  auto const ids = [&](std::string const& text) {
    std::set<std::string> found;
    json const rows = Json("find perry.lb1 " + text)["components"];
    for (json const& row : rows) found.insert(row["id"]);
    return found;
  };
  EXPECT_EQ(ids("ethanol"), (std::set<std::string>{"ETHANOL", "METHANOL", "DEA"}));
  EXPECT_EQ(ids("C2H6O"), (std::set<std::string>{"ETHANOL", "DME"}));
  EXPECT_EQ(ids("etoh"), std::set<std::string>{"ETHANOL"});
  EXPECT_EQ(ids("64-17-5"), std::set<std::string>{"ETHANOL"});
  EXPECT_EQ(ids("10000007"), std::set<std::string>{"ETHANOL"});
  EXPECT_EQ(ids("ethanol --mw 100:"), std::set<std::string>{"DEA"});
  EXPECT_TRUE(ids("unobtainium").empty());
}

TEST_F(NewcomerTest, SymbolsAndDescriptionsOfData) {
  Fails("why ETHANOL Tb -l crc.lb1", kFailed, "did you mean NBP (normal boiling point)?");
  Fails("why ETHANOL 'normal boiling point' -l crc.lb1", kFailed, "did you mean NBP");
  Fails("eval ETHANOL Psat -l crc.lb1", kFailed, "did you mean VaporPressure (vapor pressure)?");
  Fails("edit perry.lb1 ETHANOL omega=0.6", kFailed, "did you mean ACENTRIC (acentric factor)?");
  Fails("eval ETHANOL NBP -l crc.lb1", kFailed, "NBP is a constant, not a correlation");
  Fails("why ETHANOL NPB -l crc.lb1", kFailed, "did you mean NBP?");
}

TEST_F(NewcomerTest, WordsInTheOrderOfAnotherCommand) {
  Fails("plot ETHANOL VaporPressure -l perry.lb1 -o x.svg", kWrongUsage,
        "zel plot VaporPressure ETHANOL");
  Fails("eval VaporPressure ETHANOL -l perry.lb1", kWrongUsage, "zel eval ETHANOL VaporPressure");
}

TEST_F(NewcomerTest, NumbersAreAnsweredWithWhatIsWrongWithThem) {
  std::string const eval = "eval ETHANOL VaporPressure -l perry.lb1 --at ";
  Fails(eval + "25 C", kWrongUsage, "a unit follows its number without a blank");
  Fails(eval + "25,5C", kWrongUsage, "the decimal sign is a point");
  Fails(eval + "25C,50C", kWrongUsage, "several are written with blanks between them");
  Fails("compare perry.lb1 crc.lb1 --tolerance 0,5%", kWrongUsage, "the decimal sign is a point");
  Fails("find crc.lb1 --nbp 70:80C", kWrongUsage, "only one of two temperatures has a unit");
  EXPECT_EQ(Json("find crc.lb1 --nbp 351.15:79C")["found"], 2);  // 351.15 can only be in K
  EXPECT_EQ(Json("find crc.lb1 --nbp 70C:80C")["found"],
            Json("find crc.lb1 --nbp 70:80 --units C")["found"]);
  EXPECT_GT(Json("find crc.lb1 --nbp 70C:")["found"], 12);
}

TEST_F(NewcomerTest, NumberOutsideTheRangeMayBeInDegreesCelsius) {
  std::string const eval = "eval ETHANOL VaporPressure -l perry.lb1 --at ";
  EXPECT_EQ(Json(eval + "300 25")["warning"],
            "25 is in K and below the range; 25C is in degrees Celsius");
  for (char const* words : {"25K", "300", "1000", "25 --units degC", "25C"}) {
    EXPECT_EQ(Json(eval + words).count("warning"), 0U) << words;
  }
}

TEST_F(NewcomerTest, WordsOfAnEdit) {
  Fails("edit perry.lb1 ETHANOL NBP 78,31C", kWrongUsage, "the decimal sign is a point");
  Fails("edit perry.lb1 ETHANOL NBP 78.31 C", kWrongUsage, "without a blank: 78.31C");
  Fails("edit perry.lb1 ETHANOL NBP = 78.31C", kWrongUsage, "no blanks around =: NBP=VALUE");
  Fails("edit perry.lb1 NBP 78.31C", kWrongUsage, "\"78.31C\" is not a datum");
}

TEST_F(NewcomerTest, NameThatIsNotKnownIsNotCalledATooLongId) {
  Fails("search 'ethyl alcohol' -l perry.lb1", kFailed,
        "\"ethyl alcohol\" is not a component ID or name");
  Outcome const several = Zel("search acetic -l perry.lb1");
  EXPECT_NE(several.err.find("ACETACID (Acetic acid), ACANHY (Acetic anhydride)\n"),
            std::string::npos)
      << several.err;
  Fails("table --fields TC -l perry.lb1", kWrongUsage, "name some, or use --filter or --all");
}

TEST_F(NewcomerTest, DecimalCommasAreReadWhenAskedFor) {
  std::string const sheet =
      "\xef\xbb\xbfname;cas;TC [\xc2\xb0"
      "C];PC;refCode\r\nEthanol;64-17-5;240,9;61,4 bar;7\r\n"
      "1,4-Dioxane;123-91-1;314,9;5210;7\r\n";
  Outcome const refused = Import(sheet);
  EXPECT_EQ(refused.status, kFailed);
  EXPECT_NE(refused.err.find("--decimal-comma reads numbers such as 351,39"), std::string::npos)
      << refused.err;
  EXPECT_FALSE(std::filesystem::exists(Folder() / "lab.lb1"));
  EXPECT_EQ(Import(sheet, "--decimal-comma").status, 0);
  json const shown = Json("show lab.lb1 LAB 64-17-5")["constants"];
  EXPECT_DOUBLE_EQ(Row(shown, "keyword", "TC")["value"], 514.05);
  EXPECT_DOUBLE_EQ(Row(shown, "keyword", "PC")["value"], 6140.0);
  EXPECT_EQ(Json("show lab.lb1 LAB 123-91-1")["name"], "1,4-Dioxane");
  // A point may separate thousands.
  Outcome const thousands = Import("cas;PC\n64-17-5;6.140\n", "--decimal-comma");
  EXPECT_EQ(thousands.status, kFailed);
  EXPECT_NE(thousands.err.find("line 2: \"6.140\" has a point"), std::string::npos)
      << thousands.err;
}

TEST_F(NewcomerTest, DecimalCommasInLists) {
  ASSERT_EQ(Import("number;ids\n7;ETHANOL\n").status, 0);
  ASSERT_EQ(Import("number;correlation;equation;coefficients\n7;LiquidDensity;1;1,5 -2,5e-3\n",
                   "--decimal-comma")
                .status,
            0);
  json const shown = Json("show lab.lb1 LAB 7")["coefficients"];
  ASSERT_EQ(shown.size(), 2U);
  EXPECT_DOUBLE_EQ(shown[0]["value"], 1.5);
  EXPECT_DOUBLE_EQ(shown[1]["value"], -0.0025);
}

TEST_F(NewcomerTest, FilesOfASpreadsheet) {
  EXPECT_EQ(json::parse(Import("sep=;\r\nname;cas\r\nA, B;64-17-5\r\n").out)["new"], 1);
  EXPECT_EQ(Json("show lab.lb1 LAB 64-17-5")["name"], "A, B");
  EXPECT_NE(Import("sep=;\nname;cas;TC\nE;64-17-5;1x\n").out.find("\"line\": 3"),
            std::string::npos);
  for (std::string const& file : {std::string("PK\x03\x04"
                                              "abc"),
                                  std::string("\xff\xfe"
                                              "a\0",
                                              4)}) {
    Outcome const outcome = Import(file);
    EXPECT_NE(outcome.err.find("is not a text file; a spreadsheet saves one as \"CSV UTF-8\""),
              std::string::npos)
        << outcome.err;
  }
  EXPECT_NE(Import("cas;TC [\xb0"
                   "C]\n64-17-5;1\n")
                .err.find("a head is not UTF-8 text"),
            std::string::npos);
  EXPECT_EQ(Import("cas;TC [\xc2\xb0"
                   "C]\n64-17-5;1\n")
                .status,
            0);
  Outcome const heads = Import("Stoff;Tc\nEthanol;240\n");
  EXPECT_NE(heads.err.find("the heads here are Stoff, Tc; --map FILE"), std::string::npos)
      << heads.err;
  MakeFile("x.csv", "cas\n64-17-5\n");
  Fails("import perry.lb1 x.csv", kWrongUsage, "a table is read with --table x.csv --bank BANK");
  Fails("import perry.lb1 --table x.csv --bank LAB", kFailed,
        "TYPE:NAME makes a new bank, such as PURECOMP:LAB");
}

TEST_F(NewcomerTest, NewComponentsOfATableAreThoseOfTheNamedLibrary) {
  ASSERT_EQ(Import("cas,name,TC\n64-17-5,Spirit,514\n", "--names perry.lb1").status, 0);
  json const shown = Json("show lab.lb1 LAB 64-17-5");
  EXPECT_EQ(shown["number"], 10000007);
  EXPECT_EQ(shown["ids"], "ETHANOL ETOH");
  EXPECT_EQ(shown["name"], "Spirit");
  EXPECT_EQ(Json("why ETHANOL TC -l lab.lb1 -l perry.lb1")["from"], "lab.lb1:LAB");
  // A row that has IDs has those only; a number alone is no reason to take another substance's IDs.
  ASSERT_EQ(Import("cas,id\n7732-18-5,AQUA\n", "--names perry.lb1").status, 0);
  EXPECT_EQ(Json("show lab.lb1 LAB AQUA")["ids"], "AQUA");
  ASSERT_EQ(Import("number,cas\n10000009,71-43-2\n", "--names perry.lb1").status, 0);
  EXPECT_EQ(Json("show lab.lb1 LAB 71-43-2")["ids"], nullptr);
}

TEST_F(NewcomerTest, TableThatChangesNothingIsNotAChange) {
  ASSERT_EQ(Import("number,TC\n7,514\n").status, 0);
  ASSERT_EQ(Import("number,TC\n7,515\n").status, 0);
  Contents const before = ContentsOf(Folder());
  json const again = json::parse(Import("number,TC\n7,515\n").out);
  EXPECT_EQ(again["the_same"], 1);
  EXPECT_TRUE(ContentsOf(Folder()) == before);
  EXPECT_EQ(Json("log lab.lb1")["changes"].size(), 1U);
  EXPECT_EQ(json::parse(Import("number,TC\n7,515\n", "--dry-run").out)["dry_run"],
            "nothing was changed");
}

TEST_F(NewcomerTest, PagesAndComparisonsAreInDisplayUnits) {
  Good("sheet ETHANOL -l perry.lb1 -o s.html --units bar,degC");
  std::string const html = FileText(Folder() / "s.html");
  std::string const begin = "<script type=\"application/json\" id=\"data\">";
  std::size_t const from = html.find(begin) + begin.size();
  json const data = json::parse(html.substr(from, html.find("</script>", from) - from));
  EXPECT_EQ(data["temperature"][0], "C");
  EXPECT_DOUBLE_EQ(data["temperature"][1], 1.0);
  EXPECT_DOUBLE_EQ(data["temperature"][2], -273.15);
  EXPECT_EQ(data["constants"][1], json::parse(R"(["TC", "critical temperature", "C"])"));
  EXPECT_EQ(data["correlations"][0][2], "bar");
  json const& constants = data["components"][0]["s"][0][1];
  EXPECT_NEAR(constants[1][1].get<double>(), 240.85, 1e-9);
  EXPECT_NEAR(constants[2][1].get<double>(), 61.37, 1e-9);
  json const rows =
      Json("compare perry.lb1 crc.lb1 --components WATER --units bar,degC")["constants"];
  json const pc = Row(rows, "constant", "PC");
  EXPECT_EQ(pc["unit"], "bar");
  EXPECT_NEAR(pc["first"].get<double>(), 220.64, 1e-9);
  EXPECT_NEAR(pc["second"].get<double>(), 220.4832, 1e-4);
}

TEST_F(NewcomerTest, ListsOfWordsMayHaveCommas) {
  std::string const perry = " -l perry.lb1";
  EXPECT_EQ(Good("table ETHANOL --fields TC,PC,VaporPressure" + perry),
            Good("table ETHANOL --fields TC PC VaporPressure" + perry));
  EXPECT_EQ(Good("table ETHANOL --fields 'TC, PC'" + perry),
            Good("table ETHANOL --fields TC PC" + perry));
  EXPECT_EQ(Good("pairs NRTL --fields bij,bji -l sample.lb1"),
            Good("pairs NRTL --fields bij bji -l sample.lb1"));
  EXPECT_EQ(Good("items perry.lb1 PERRY --fields TC,PC"),
            Good("items perry.lb1 PERRY --fields TC PC"));
  std::string const grid = "eval ETHANOL VaporPressure --at 25C --correlations ";
  EXPECT_EQ(Good(grid + "LatentHeat,LiquidDensity" + perry),
            Good(grid + "LatentHeat LiquidDensity" + perry));
  EXPECT_EQ(Good("check perry.lb1 --silence critical,source"),
            Good("check perry.lb1 --silence critical source"));
  EXPECT_EQ(Good("coverage ETHANOL WATER --model NRTL,WILSON -l sample.lb1" + perry),
            Good("coverage ETHANOL WATER --model NRTL WILSON -l sample.lb1" + perry));
  EXPECT_EQ(Json("edit perry.lb1 ETHANOL --unset TC,PC --dry-run")["changed"], 2);
  Fails("table ETHANOL --fields , -l perry.lb1", kFailed, "\",\" is neither");
  Fails("table ETHANOL --fields TC,PV -l perry.lb1", kFailed, "\"PV\" is neither");
  // Names of components have commas themselves.
  EXPECT_EQ(Json("table 1,3-Butadiene --fields TC" + perry)["components"].size(), 1U);
  Fails("table ETHANOL,WATER --fields TC" + perry, kFailed,
        "several are written with blanks between them");
  Outcome const name = Zel("table 1,5-Dioxane --fields TC" + perry);
  EXPECT_EQ(name.err.find("blanks"), std::string::npos) << name.err;
}

TEST_F(NewcomerTest, OptionWithOneDashOrAnotherSpelling) {
  Fails("table ETHANOL --filds TC -l perry.lb1", kWrongUsage, "did you mean --fields?");
  Fails("table ETHANOL -fields TC -l perry.lb1", kWrongUsage, "did you mean --fields?");
  Fails("table ETHANOL -lperry.lb1 --filds TC", kWrongUsage, "did you mean --fields?");
}

}  // namespace
}  // namespace zel::test

// Numbers in other units than the internal ones, shown and typed.
#include <zelaccess/Units.h>

#include "desk/words/display_units.h"
#include "desk/words/failure.h"
#include "tests/zel/zel_fixture.h"

namespace zel::test {
namespace {

using desk::DisplayUnits;
using nlohmann::json;

class UnitsTest : public ZelTest {};

TEST_F(UnitsTest, AListAppliesToEveryDimensionThatHasTheUnit) {
  DisplayUnits const units("bar,degC,J/mol");
  EXPECT_EQ(units.UnitFor("K"), "C");
  EXPECT_EQ(units.UnitFor("kPa"), "bar");
  EXPECT_EQ(units.UnitFor("kJ/kg-mol"), "J/g-mol");
  EXPECT_EQ(units.UnitFor("kJ/kg-mol-K"), "kJ/kg-mol-K");
  EXPECT_EQ(units.UnitFor("(cal/cm3)^0.5"), "(cal/cm3)^0.5");
  EXPECT_EQ(units.UnitFor(""), "");
  EXPECT_DOUBLE_EQ(units.Shown(351.39, "K"), 78.24);
  EXPECT_DOUBLE_EQ(units.Shown(101.325, "kPa"), 1.01325);
  EXPECT_DOUBLE_EQ(units.Shown(-234800.0, "kJ/kg-mol"), -234800.0);
}

TEST_F(UnitsTest, DerivativesAreConvertedAsDifferences) {
  DisplayUnits const units("bar,F");
  EXPECT_EQ(units.UnitFor("kPa/K"), "bar/F");
  EXPECT_DOUBLE_EQ(units.Shown(180.0, "kPa/K"), 1.0);
  EXPECT_EQ(units.UnitFor("kPa/K2"), "bar/F2");
  EXPECT_DOUBLE_EQ(units.Shown(324.0, "kPa/K2"), 1.0);
  EXPECT_EQ(units.UnitFor("/K"), "/F");
  EXPECT_DOUBLE_EQ(units.Shown(1.8, "/K"), 1.0);
  // A gauge pressure has another zero, but the same difference.
  EXPECT_NEAR(DisplayUnits("barg").Shown(100.0, "kPa/K"), 1.0, 1e-12);
  EXPECT_EQ(DisplayUnits("engineering").UnitFor("kPa/K"), "bar/C");
}

TEST_F(UnitsTest, SetsCanBeNamedAndTheLaterWordHolds) {
  EXPECT_EQ(DisplayUnits("US").UnitFor("kPa"), "psia");
  EXPECT_EQ(DisplayUnits("us").UnitFor("K"), "F");
  EXPECT_EQ(DisplayUnits("Engineering").UnitFor("kPa"), "bar");
  EXPECT_EQ(DisplayUnits("US,bar").UnitFor("kPa"), "bar");
  EXPECT_EQ(DisplayUnits("bar,US").UnitFor("kPa"), "psia");
  EXPECT_EQ(DisplayUnits("SI").UnitFor("debye"), "debye");
}

TEST_F(UnitsTest, AnUnknownWordIsRefusedWithTheNearest) {
  for (char const* words : {"degX", "bar,", ",", "bar,,C", "furlong"}) {
    EXPECT_THROW(DisplayUnits{words}, desk::WrongUsage) << words;
  }
  Outcome const outcome = Zel("--units Metrik find crc.lb1");
  EXPECT_EQ(outcome.status, 2);
  EXPECT_EQ(outcome.out, "");
  EXPECT_NE(outcome.err.find("did you mean Metric?"), std::string::npos) << outcome.err;
}

TEST_F(UnitsTest, NumbersCarryAUnitOrAreInTheDisplayUnit) {
  DisplayUnits const internal;
  DisplayUnits const units("bar,degC");
  EXPECT_DOUBLE_EQ(internal.Read("1.2bar", "kPa", "a pressure"), 120.0);
  EXPECT_DOUBLE_EQ(internal.Read("1.2 bar", "kPa", "a pressure"), 120.0);
  EXPECT_DOUBLE_EQ(internal.Read("120", "kPa", "a pressure"), 120.0);
  EXPECT_DOUBLE_EQ(units.Read("1.2", "kPa", "a pressure"), 120.0);
  EXPECT_DOUBLE_EQ(units.Read("120kPa", "kPa", "a pressure"), 120.0);
  EXPECT_DOUBLE_EQ(units.Read("78.31", "K", "a temperature"), 351.46);
  EXPECT_DOUBLE_EQ(internal.Read("78.31C", "K", "a temperature"), 351.46);
  EXPECT_DOUBLE_EQ(internal.Read("1.7 debye", "debye", "a dipole moment"), 1.7);
  EXPECT_DOUBLE_EQ(internal.Read("0.5", "", "a number"), 0.5);
  for (char const* word : {"", "bar", "1.2parsec", "1.2kJ/kg", "inf", "nan", "1.2 bar bar"}) {
    EXPECT_THROW(internal.Read(word, "kPa", "a pressure"), desk::WrongUsage) << word;
  }
  EXPECT_THROW(internal.Read("0.5bar", "", "a number"), desk::WrongUsage);
}

TEST_F(UnitsTest, EveryCommandShowsAndSaysThem) {
  std::string const units = " --units bar,degC";
  json const found = Json("find crc.lb1 --id ETHANOL" + units);
  EXPECT_DOUBLE_EQ(found["components"][0]["nbp"], 78.24);
  EXPECT_EQ(found["units"]["components"]["nbp"], "C");
  json const shown = Json("show crc.lb1 CRC ETHANOL" + units);
  json const pc = Row(shown["constants"], "keyword", "PC");
  EXPECT_EQ(pc["unit"], "bar");
  EXPECT_DOUBLE_EQ(pc["value"], 61.37);
  EXPECT_EQ(shown["units"]["correlations"]["from_t"], "C");
  json const pair = Json("show sample.lb1 NRTL ETHANOL WATER --names perry.lb1" + units);
  EXPECT_DOUBLE_EQ(Row(pair["fields"], "field", "pMin")["value"], 1.01325);
  EXPECT_EQ(Row(pair["fields"], "field", "pMin")["unit"], "bar");
  EXPECT_DOUBLE_EQ(Row(pair["fields"], "field", "bji")["value"], 624.867);
  json const why = Json("why ETHANOL NBP -l perry.lb1 -l crc.lb1" + units);
  EXPECT_DOUBLE_EQ(why["value"], 78.24);
  EXPECT_EQ(why["unit"], "C");
  EXPECT_DOUBLE_EQ(why["sources"][1]["value"], 78.24);
  EXPECT_EQ(why["units"]["sources"]["value"], "C");
  json const search = Json("search ETHANOL -l perry.lb1" + units);
  EXPECT_EQ(Row(search["correlations"], "name", "VaporPressure")["range"], "-114.1 to 240.85 C");
  json const items = Json("items crc.lb1 CRC --fields NBP VaporPressure" + units);
  EXPECT_DOUBLE_EQ(Row(items["items"], "id", "ETHANOL")["nbp"], 78.24);
  EXPECT_EQ(items["units"]["items"]["nbp"], "C");
}

TEST_F(UnitsTest, EvalShowsAndReadsThem) {
  json const eval = Json("eval ETHANOL VaporPressure -l perry.lb1 --at 25 351.4K --units bar,degC");
  EXPECT_EQ(eval["range"], "-114.1 to 240.85 C");
  EXPECT_EQ(eval["units"]["points"], (json{{"t", "C"}, {"value", "bar"}, {"d/dt", "bar/C"}}));
  EXPECT_DOUBLE_EQ(eval["points"][0]["t"], 25.0);
  EXPECT_NEAR(eval["points"][0]["value"], 0.07924095, 1e-8);
  EXPECT_NEAR(eval["points"][0]["d/dt"], 0.004586987, 1e-9);
  EXPECT_DOUBLE_EQ(eval["points"][1]["t"], 78.25);
}

TEST_F(UnitsTest, ComparisonsAndDifferencesShowThemWithTheirUnits) {
  Good("copy perry.lb1 own.lb1 --create");
  Good("edit own.lb1 ETHANOL PC=70bar TC=500 --units K,kPa");
  std::string const units = " --units bar,degC";
  json const compared = Json("compare perry.lb1 own.lb1 --components ETHANOL" + units);
  json const pressure = Row(compared["constants"], "constant", "PC");
  EXPECT_EQ(pressure["unit"], "bar");
  EXPECT_NEAR(pressure["second"], 70.0, 1e-5);
  EXPECT_NEAR(pressure["first"], 61.37, 1e-5);
  for (std::string const command : {"diff perry.lb1 own.lb1", "log own.lb1", "undo own.lb1"}) {
    json const rows = Json(command + units)["differences"];
    EXPECT_EQ(Row(rows, "field", "PC")["unit"], "bar") << command;
    json const temperature = Row(rows, "field", "TC");
    EXPECT_EQ(temperature["unit"], "C") << command;
    double const edited = temperature[command[0] == 'd'   ? "second"
                                      : command[0] == 'l' ? "after"
                                                          : "before"];
    EXPECT_NEAR(edited, 226.85, 1e-4) << command;
  }
}

// The surface tensions of this library are records in C.
TEST_F(UnitsTest, ABareTemperatureDoesNotDependOnTheRecord) {
  json const kelvin = Json("eval ETHANOL SurfaceTension -l crc.lb1 --at 298.15");
  EXPECT_EQ(kelvin["units"]["points"], (json{{"t", "K"}, {"value", "N/m"}, {"d/dt", "N/m/K"}}));
  EXPECT_DOUBLE_EQ(kelvin["points"][0]["t"], 298.15);
  json const celsius = Json("eval ETHANOL SurfaceTension -l crc.lb1 --at 25 --units C");
  EXPECT_EQ(celsius["points"][0]["value"], kelvin["points"][0]["value"]);
  json const fahrenheit = Json("eval ETHANOL SurfaceTension -l crc.lb1 --at 77 --units F");
  EXPECT_NEAR(fahrenheit["points"][0]["value"], kelvin["points"][0]["value"], 1e-15);
  // With units for other dimensions, temperatures are in K, also those of such a record.
  json const bar = Json("eval ETHANOL SurfaceTension -l crc.lb1 --at 298.15 --units bar");
  EXPECT_EQ(bar["units"]["points"]["t"], "K");
  EXPECT_DOUBLE_EQ(bar["points"][0]["t"], 298.15);
  EXPECT_EQ(bar["units"]["points"]["d/dt"], "N/m/K");
  EXPECT_NEAR(bar["points"][0]["d/dt"], kelvin["points"][0]["d/dt"], 1e-15);
  EXPECT_EQ(Json("find crc.lb1 --nbp 78:79 --units C"),
            Json("find crc.lb1 --nbp 351.15K:352.15K --units C"));
  EXPECT_GT(Json("find crc.lb1 --nbp 78:79 --units C")["found"], 0);
  EXPECT_EQ(Json("find crc.lb1 --nbp 78degC:352.15"), Json("find crc.lb1 --nbp 351.15:79C"));
}

TEST_F(UnitsTest, ChartsHaveThemOnTheirAxes) {
  Good("plot VaporPressure ETHANOL -l perry.lb1 -o k.svg --from 298.15 --to 350");
  EXPECT_NE(FileText(Folder() / "k.svg").find("T [K]"), std::string::npos);
  Good("plot VaporPressure ETHANOL -l perry.lb1 -o c.svg --from 25 --to 76.85 --units bar,C");
  std::string const chart = FileText(Folder() / "c.svg");
  EXPECT_NE(chart.find("T [C]"), std::string::npos);
  EXPECT_NE(chart.find("VaporPressure [bar]"), std::string::npos);
  EXPECT_EQ(chart.find("[K]"), std::string::npos);
}

TEST_F(UnitsTest, TheEnvironmentNamesThemToo) {
  Outcome const outcome = Zel("find crc.lb1 --id ETHANOL --csv", "ZEL_UNITS=degC");
  EXPECT_NE(outcome.out.find("NBP [C]"), std::string::npos) << outcome.out << outcome.err;
  Outcome const option = Zel("find crc.lb1 --id ETHANOL --csv --units K", "ZEL_UNITS=degC");
  EXPECT_NE(option.out.find("NBP [K]"), std::string::npos) << option.out << option.err;
}

// The sentences stay, because a baseline knows a finding by its text.
TEST_F(UnitsTest, NumbersOfFindingsAreInDisplayUnitsAndSentencesAreNot) {
  nlohmann::json const kept = Json("check perry.lb1 crc.lb1")["findings"];
  nlohmann::json const shown = Json("check perry.lb1 crc.lb1 --units bar,C")["findings"];
  ASSERT_EQ(kept.size(), shown.size());
  int count = 0;
  for (std::size_t i = 0; i < kept.size(); ++i) {
    EXPECT_EQ(shown[i]["what"], kept[i]["what"]);
    if (kept[i]["unit"] != "kPa" || !kept[i]["expected_from"].is_number()) continue;
    ++count;
    constexpr double kPerBar = 100.0;
    double const value = kept[i]["value"];
    double const from = kept[i]["expected_from"];
    EXPECT_EQ(shown[i]["unit"], "bar");
    EXPECT_NEAR(shown[i]["value"], value / kPerBar, 1e-9 * value);
    EXPECT_NEAR(shown[i]["expected_from"], from / kPerBar, 1e-9 * from);
  }
  EXPECT_GT(count, 0);
}

bool Has(std::string const& text, std::string const& part) {
  return text.find(part) != std::string::npos;
}

// The conversion needs the molecular weight.
TEST_F(UnitsTest, AUnitPerMassIsNotUsedForWhatIsPerMoleAndSaidSo) {
  std::string const density = "eval ETHANOL LiquidDensity -l perry.lb1 --at 25C";
  std::string const warning =
      "warning: values in kg-mol/m3 are per mole; kg/m3, which is per mass, is not used for them";
  Outcome const shown = Zel(density + " --units kg/m3");
  EXPECT_EQ(shown.status, 0);
  EXPECT_EQ(shown.err, "zel: " + warning + "\n");
  EXPECT_EQ(shown.out, Good(density));
  EXPECT_EQ(Json(density + " --units kg/m3")["problems"], json::array({warning}));
  struct {
    char const* words;
    char const* unit;
  } const rows[] = {
      {"table ETHANOL --fields HVAPNBP -l crc.lb1 --units kJ/kg", "kJ/kg-mol"},
      {"table ETHANOL --fields VC -l crc.lb1 --units cm3/g", "m3/kg-mol"},
      {"table ETHANOL --fields SVTB -l crc.lb1 --units J/g-K", "kJ/kg-mol-K"},
      {"table ETHANOL --fields SVTB -l crc.lb1 --units J/K-g", "kJ/kg-mol-K"},
      {"table ETHANOL --fields VC -l crc.lb1 --units SI,m3/kg", "m3/kg-mol"},
      {"plot LiquidDensity ETHANOL -l perry.lb1 -o x.svg --units lb/ft3", "kg-mol/m3"},
      {"sheet ETHANOL -l perry.lb1 -o x.html --units J/g", "kJ/kg-mol"}};
  for (auto const& row : rows) {
    Outcome const outcome = Zel(row.words);
    EXPECT_EQ(outcome.status, 0) << row.words << "\n" << outcome.err;
    EXPECT_TRUE(Has(outcome.err, "values in " + std::string(row.unit) + " are per mole"))
        << row.words << "\n"
        << outcome.err;
  }
  for (char const* words : {"eval ETHANOL VaporPressure -l perry.lb1 --at 25C --units kg/m3",
                            "table ETHANOL --fields VC -l crc.lb1 --units m3/kg,cm3/mol",
                            "table ETHANOL --fields VC -l crc.lb1 --units US"}) {
    EXPECT_EQ(Zel(words).err, "") << words;
  }
}

TEST_F(UnitsTest, AValuePerMassIsRefusedForWhatIsPerMole) {
  Contents const before = ContentsOf(Folder());
  auto const fails = [&](std::string const& words, std::string const& why) {
    Outcome const outcome = Zel("edit crc.lb1 ETHANOL " + words);
    EXPECT_EQ(outcome.status, 2) << words;
    EXPECT_TRUE(Has(outcome.err, why)) << words << "\n" << outcome.err;
    EXPECT_TRUE(ContentsOf(Folder()) == before) << words;
  };
  fails("HVAPNBP=840J/g",
        "J/g is per mass, but the value is per mole; units such as kJ/kg-mol and kJ/mol fit");
  fails("VC=0.003m3/kg", "m3/kg is per mass, but the value is per mole");
  fails("HVAPNBP=840 --units J/g", "it has no unit, and J/g is per mass");
  EXPECT_EQ(Json("edit crc.lb1 ETHANOL HVAPNBP=38.56kJ/mol --units J/g --dry-run")["already_so"],
            "HVAPNBP");
  MakeFile("v.csv", "id,VC [m3/kg]\nETHANOL,0.003\n");
  Outcome const head = Zel("import crc.lb1 --table v.csv --bank CRC --dry-run");
  EXPECT_TRUE(Has(head.err, "column VC: m3/kg is per mass, but the value is per mole")) << head.err;
  MakeFile("w.csv", "id,VC\nETHANOL,0.003\n");
  Outcome const bare = Zel("import crc.lb1 --table w.csv --bank CRC --units m3/kg --dry-run");
  EXPECT_EQ(bare.status, 1) << bare.out;
  EXPECT_TRUE(Has(bare.out, "it has no unit")) << bare.out;
  Outcome const plot = Zel("plot LiquidDensity ETHANOL -l perry.lb1 --unit kg/m3 -o x.svg");
  EXPECT_TRUE(Has(plot.err, "--unit: kg/m3 is per mass")) << plot.err;
}

TEST_F(UnitsTest, AnotherDimensionIsRefusedToo) {
  Outcome const outcome = Zel("edit crc.lb1 ETHANOL HVAPNBP=840K");
  EXPECT_TRUE(Has(outcome.err, "K is not a unit for values in kJ/kg-mol")) << outcome.err;
  EXPECT_EQ(outcome.status, 2);
}

}  // namespace
}  // namespace zel::test

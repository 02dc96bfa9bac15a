// The units of correlations that users write: per mole and per mass, of temperatures and limits.
#include <nlohmann/json.hpp>

#include "tests/zel/tables_fixture.h"

namespace zel::test {
namespace {

using nlohmann::json;

// A library of ethanol, with a molecular weight of 46.068, in the bank PERRY.
class RecordUnitsTest : public TablesTest {
 protected:
  RecordUnitsTest() { Good("copy perry.lb1 own.lb1 --bank PERRY --item ETHANOL --keep 0"); }

  double Value(std::string const& words) const {
    return Json("eval ETHANOL " + words + " -l own.lb1")["points"][0]["value"];
  }
  json Curve(char const* name) const {
    return Row(Json("show own.lb1 PERRY ETHANOL")["correlations"], "name", name);
  }
  json Edit(std::string const& words) const { return Json("edit own.lb1 ETHANOL " + words); }
  void EditFails(std::string const& words, std::string const& why, int status) const {
    std::string const before = FileText(Folder() / "own.lb1");
    Outcome const outcome = Zel("edit own.lb1 ETHANOL " + words);
    EXPECT_EQ(outcome.status, status) << words << "\n" << outcome.err;
    EXPECT_NE(outcome.err.find(why), std::string::npos) << words << "\n" << outcome.err;
    EXPECT_EQ(FileText(Folder() / "own.lb1"), before) << words;
  }
  // A table with one row for a correlation of ethanol.
  static std::string Table(std::string const& heads, std::string const& cells) {
    return "ids,correlation,equation,coefficients," + heads + "\nETHANOL," + cells + "\n";
  }
  void ImportFails(std::string const& table, std::string const& why) const {
    std::string const before = FileText(Folder() / "own.lb1");
    Outcome const outcome = Import("PERRY", table);
    EXPECT_EQ(outcome.status, 1) << table << outcome.out;
    EXPECT_NE(outcome.out.find(why), std::string::npos) << table << outcome.out;
    EXPECT_EQ(FileText(Folder() / "own.lb1"), before) << table;
  }
};

TEST_F(RecordUnitsTest, AnEditInAUnitPerMoleIsPerMole) {
  struct Case {
    char const* words;
    char const* unit;  // of the record
    double value;      // in the unit of an evaluated value
  };
  for (auto const& [words, unit, value] :
       {Case{"LatentHeat kJ/kg-mol", "kJ/kg", 40000.0}, Case{"LatentHeat J/mol", "J/g", 40000.0},
        Case{"LatentHeat MJ/kmol", "MJ/kg", 40000.0e3},
        Case{"LiquidDensity kg-mol/m3", "kg/m3", 40000.0},
        Case{"LiquidDensity mol/m3", "g/m3", 40.0},
        Case{"IdealGasCp kJ/kg-mol-K", "kJ/kg-K", 40000.0},
        Case{"IdealGasCp 'J/(mol K)'", "J/g-K", 40000.0}}) {
    std::string const text = words;
    std::string const name = text.substr(0, text.find(' '));
    Good("edit own.lb1 ETHANOL " + name + " --equation 1 --coefficients 1 --basis mass");
    Good("edit own.lb1 ETHANOL " + name + " --equation 1 --coefficients 40000 --value-unit " +
         text.substr(name.size() + 1));
    EXPECT_NEAR(Value(name + " --at 300K"), value, 2e-3 * value) << words;
    EXPECT_EQ(Curve(name.c_str())["unit"], unit) << words;
    EXPECT_EQ(Curve(name.c_str())["per"], "mole") << words;
  }
}

TEST_F(RecordUnitsTest, AnEditInAUnitPerMassSaysItsBasis) {
  for (char const* words :
       {"LiquidDensity --equation 1 --coefficients 789 0 --range 270K:300K --value-unit kg/m3",
        "LatentHeat --equation 1 --coefficients 840 --value-unit kJ/kg"}) {
    EditFails(words, "can be stored per mole or per mass: give --basis mass, or mole", 2);
  }
  EditFails("LatentHeat --value-unit kJ/kg-mol --basis mass",
            "kJ/kg-mol is a unit per mole, but the basis is mass", 1);
  Good(
      "edit own.lb1 ETHANOL LiquidDensity --equation 1 --coefficients 789 0 --range 270K:300K "
      "--value-unit kg/m3 --basis mass");
  EXPECT_NEAR(Value("LiquidDensity --at 280K"), 789.0 / 46.068, 0.01);
  // Now the record says that it is per mass.
  Good("edit own.lb1 ETHANOL LiquidDensity --coefficients 0.789 0 --value-unit g/cm3");
  EXPECT_NEAR(Value("LiquidDensity --at 280K"), 789.0 / 46.068, 0.01);
  Good("edit own.lb1 ETHANOL LiquidDensity --coefficients 17 --value-unit kg/m3 --basis mole");
  EXPECT_NEAR(Value("LiquidDensity --at 280K"), 17.0, 1e-6);
}

TEST_F(RecordUnitsTest, ATableInAUnitPerMoleIsPerMole) {
  for (auto const& [name, unit, basis] :
       std::vector<std::tuple<std::string, std::string, std::string>>{
           {"LatentHeat", "kJ/kg-mol", ""},
           {"LatentHeat", "J/mol", "m"},
           {"LiquidDensity", "kmol/m3", ""}}) {
    Imported("PERRY", Table("propUnit,moleWtBasis", name + ",1,840 0," + unit + "," + basis));
    EXPECT_NEAR(Value(name + " --at 300K"), 840.0, 1e-3) << unit;
    EXPECT_EQ(Curve(name.c_str())["per"], "mole") << unit;
  }
  ImportFails(Table("propUnit,moleWtBasis", "LatentHeat,1,840 0,kJ/kg-mol,wt"),
              "kJ/kg-mol is a unit per mole, but the basis is mass");
}

TEST_F(RecordUnitsTest, ATableInAUnitPerMassSaysItsBasis) {
  ImportFails(Table("propUnit", "LatentHeat,1,840 0,kJ/kg"),
              "kJ/kg can be stored per mole or per mass: give moleWtBasis wt, or m");
  ImportFails(Table("propUnit", "LiquidDensity,1,789,kg/m3"),
              "kg/m3 can be stored per mole or per mass");
  Imported("PERRY", Table("propUnit,moleWtBasis", "LatentHeat,1,840 0,kJ/kg,wt"));
  EXPECT_NEAR(Value("LatentHeat --at 300K"), 840.0 * 46.068, 1.0);
  Imported("PERRY", Table("propUnit,moleWtBasis", "LatentHeat,1,840 0,kJ/kg,m"));
  EXPECT_NEAR(Value("LatentHeat --at 300K"), 840.0, 1e-3);
  // With its code, as exports write it, a record is exact.
  Imported("PERRY", Table("propUnit,propUnitCode", "LatentHeat,1,841 0,kJ/kg,28018"));
  EXPECT_NEAR(Value("LatentHeat --at 300K"), 841.0, 1e-3);
  Imported("PERRY", Table("propUnit", "VaporPressure,1,50 0,kPa"));
  EXPECT_NEAR(Value("VaporPressure --at 300K"), 50.0, 1e-5);
}

TEST_F(RecordUnitsTest, AnotherUnitOfTemperaturesKeepsTheRange) {
  json const report = Edit("VaporPressure --temperature-unit C");
  EXPECT_EQ(report["changes"], json::parse(R"([
      {"datum": "VaporPressure from T", "old": "159.05 K", "new": "-114.1 C", "unit": null,
       "old_code": 11, "new_code": 11},
      {"datum": "VaporPressure to T", "old": "514 K", "new": "240.85 C", "unit": null,
       "old_code": 11, "new_code": 11},
      {"datum": "VaporPressure T in", "old": "K", "new": "C", "unit": null,
       "old_code": 11, "new_code": 11}])"));
  json const curve = Curve("VaporPressure");
  EXPECT_EQ(curve["t_in"], "C");
  EXPECT_NEAR(curve["from_t"].get<double>(), 159.05 - 273.15, 1e-4);
  EXPECT_NEAR(curve["to_t"].get<double>(), 514.0 - 273.15, 1e-4);
  Good("edit own.lb1 ETHANOL VaporPressure --temperature-unit K --range 0C:100C");
  EXPECT_EQ(Curve("VaporPressure")["from_t"], 273.15);
}

TEST_F(RecordUnitsTest, BareLimitsOfATableAreInTheDisplayUnit) {
  std::string const row = "VaporPressure,1,50 0,";
  Imported("PERRY", Table("tMin,tMax", row + "25,100"), "--units degC");
  EXPECT_EQ(Curve("VaporPressure")["from_t"], 298.15);
  EXPECT_EQ(Curve("VaporPressure")["to_t"], 373.15);
  EXPECT_EQ(Curve("VaporPressure")["t_in"], "K");
  Imported("PERRY", Table("tMin,tMax", row + "300,400"));
  EXPECT_EQ(Curve("VaporPressure")["from_t"], 300) << "K without --units";
  Imported("PERRY", Table("tMin [F],tMax", row + "212,410K"), "--units degC");
  EXPECT_EQ(Curve("VaporPressure")["from_t"], 373.15) << "the head has a unit";
}

TEST_F(RecordUnitsTest, LimitsAreInTheUnitThatTheRowNames) {
  Imported("PERRY", Table("tempUnit,tMin,tMax", "VaporPressure,1,50 0,degC,25,100"), "--units F");
  EXPECT_EQ(Curve("VaporPressure")["from_t"], 25);
  EXPECT_EQ(Curve("VaporPressure")["t_in"], "C");
}

TEST_F(RecordUnitsTest, EverydaySpellingsAreUnderstoodEverywhere) {
  Good("edit own.lb1 ETHANOL VaporPressure --equation 1 --coefficients 750.062 --value-unit mmHg");
  EXPECT_NEAR(Value("VaporPressure --at 300K"), 100.0, 0.01);
  Imported("PERRY", Table("propUnit", "VaporPressure,1,375.031,mmHg"));
  EXPECT_NEAR(Value("VaporPressure --at 300K"), 50.0, 0.01);
  Good("edit own.lb1 ETHANOL VaporPressure --temperature-unit degC");
  EXPECT_EQ(Curve("VaporPressure")["t_in"], "C");
  Good("edit own.lb1 ETHANOL MW=18g/mol NBP=78degC");
  json const shown = Json("show own.lb1 PERRY ETHANOL");
  EXPECT_EQ(Row(shown["constants"], "keyword", "MW")["value"], 18);
  EXPECT_EQ(Row(shown["constants"], "keyword", "NBP")["value"], 351.15);
  Imported("PERRY", "ids,MW [g/mol]\nETHANOL,46\n");
  EditFails("MW=18lb/mol", "lb/mol is not a unit for values in kg/kg-mol", 2);
}

TEST_F(RecordUnitsTest, ANewRecordSaysItsUnit) {
  Good("edit own.lb1 ETHANOL --unset IdealGasCp SolidDensity");
  for (auto const& [name, unit] : std::vector<std::pair<std::string, std::string>>{
           {"IdealGasCp", "kJ/kg-K"}, {"SolidDensity", "kg/m3"}}) {
    json const report = Edit(name + " --equation 1 --coefficients 65");
    EXPECT_EQ(Row(report["changes"], "datum", (name + " unit").c_str())["new"], unit);
    EXPECT_EQ(Row(report["changes"], "datum", (name + " basis").c_str())["new"], "mole");
    EXPECT_NEAR(Value(name + " --at 300K"), 65.0, 1e-6);
  }
}

}  // namespace
}  // namespace zel::test

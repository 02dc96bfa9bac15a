// The content of the unit table.
#include "frame/units/unit_table.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <set>
#include <string>
#include <vector>

#include "tests/frame/unit_fixture.h"
#include "tests/frame/unit_names.h"

namespace zel {
namespace {

class UnitTableTest : public ::testing::Test {
 protected:
  void SetUp() override {
    ASSERT_EQ(ReadUnitTable(test::RealTableText(), table_), UnitTableError::kNone);
  }

  UnitRow const& Row(std::string const& text) const {
    auto const found = std::find_if(table_.units.begin(), table_.units.end(),
                                    [&](UnitRow const& row) { return row.text == text; });
    EXPECT_NE(found, table_.units.end()) << text;
    return *found;
  }

  UnitSlate const& Slate(std::string const& name) const {
    auto const found = std::find_if(table_.slates.begin(), table_.slates.end(),
                                    [&](UnitSlate const& slate) { return slate.name == name; });
    EXPECT_NE(found, table_.slates.end()) << name;
    return *found;
  }

  UnitTable table_;
};

TEST_F(UnitTableTest, SectionsHaveTheirRows) {
  EXPECT_EQ(table_.units.size(), 318u);
  EXPECT_EQ(table_.lists.size(), 49u);
  EXPECT_EQ(table_.classes.size(), 38u);
  EXPECT_EQ(table_.commonLists.size(), 33u);
  EXPECT_EQ(table_.slates.size(), 19u);
}

TEST_F(UnitTableTest, EveryUnitStandsOnceInTheOrderOfTheQuantities) {
  std::vector<std::string> expected;
  for (test::UnitGroup const& group : test::ExpectedUnits()) {
    expected.insert(expected.end(), group.units.begin(), group.units.end());
  }
  ASSERT_EQ(expected.size(), 316u);
  std::vector<std::string> listed;
  std::vector<std::string> further;
  for (UnitRow const& row : table_.units) {
    bool const named = !row.text.empty() && row.text != "tokens";
    (named ? listed : further).push_back(row.text);
  }
  EXPECT_EQ(listed, expected);
  EXPECT_EQ(further, (std::vector<std::string>{"", "tokens"}));
}

TEST_F(UnitTableTest, OnlyFahrenheitAndFaradShareAText) {
  std::multiset<std::string> texts;
  std::multiset<std::string> keywords;
  for (UnitRow const& row : table_.units) {
    texts.insert(row.text);
    keywords.insert(row.keyword);
    EXPECT_FALSE(row.longText.empty()) << row.text;
  }
  for (std::string const& text : texts) EXPECT_EQ(texts.count(text), text == "F" ? 2u : 1u) << text;
  for (std::string const& word : keywords) {
    EXPECT_EQ(keywords.count(word), word == "F" ? 2u : 1u) << word;
  }
}

TEST_F(UnitTableTest, RowsHaveTheirSixColumns) {
  UnitRow const& pressure = Row("kPa");
  EXPECT_EQ(pressure.keyword, "KPA");
  EXPECT_EQ(pressure.longText, "Kilopascal");
  EXPECT_FALSE(pressure.millionsAsMm);
  EXPECT_EQ(pressure.addition, 0.0);
  EXPECT_EQ(pressure.multiplication, 1000.0);
  EXPECT_EQ(Row("C").addition, 273.15);
  EXPECT_EQ(Row("C").multiplication, 1.8);
  EXPECT_EQ(Row("F").addition, 459.67);
  EXPECT_EQ(Row("F").multiplication, 1.0);
  EXPECT_EQ(Row("psig").addition, 14.6959);
  EXPECT_EQ(Row("").keyword, "NULL");
  EXPECT_TRUE(Row("bbl").millionsAsMm);
  EXPECT_EQ(Row("liter").keyword, "LIT");
  EXPECT_EQ(Row("kg-mol").keyword, "KG-MOLE");
}

TEST_F(UnitTableTest, GaugeRowsCarryTheAtmosphereInTheirOwnUnit) {
  std::set<std::string> const gauges = {"Pag",     "kPag",    "MPag",    "mbarg", "barg",
                                        "in Hgg",  "mm Hgg",  "kg/cm2g", "ate",   "psig",
                                        "in H2Og", "mm H2Og", "ft H2Og"};
  std::size_t seen = 0;
  for (UnitRow const& row : table_.units) {
    if (row.text == "K" || row.text == "C" || row.text == "R" || row.text == "F") continue;
    if (gauges.count(row.text) != 0) {
      ++seen;
      // psig is rounded to six digits.
      double const tolerance = row.text == "psig" ? 0.5 : 1e-6;
      EXPECT_NEAR(row.addition * row.multiplication, 101325.0, tolerance) << row.text;
    } else if (row.text == "API") {
      EXPECT_EQ(row.addition, 131.5);
    } else {
      EXPECT_EQ(row.addition, 0.0) << row.text;
    }
  }
  EXPECT_EQ(seen, gauges.size());
}

TEST_F(UnitTableTest, TwoRowsLackACommaAndNoTextHoldsAQuote) {
  std::string const text(UnitTableResource());
  EXPECT_NE(text.find("\n'mm H2Og','MM H2OG','Millimetre of water gauge'0,"), std::string::npos);
  EXPECT_NE(text.find("\n'scf','SCF','Standard cubic foot'1,"), std::string::npos);
  EXPECT_EQ(text.find('"'), std::string::npos);
  EXPECT_TRUE(std::all_of(text.begin(), text.end(), [](char c) { return c == '\n' || c >= ' '; }));
}

TEST_F(UnitTableTest, EveryListIsThere) {
  std::vector<std::string> const expected = {"Temp",
                                             "TempAbs",
                                             "TempDiff",
                                             "Pres",
                                             "PresAbs",
                                             "PresDiff",
                                             "Time",
                                             "Leng",
                                             "FineLeng",
                                             "Area",
                                             "FineArea",
                                             "Vol",
                                             "StdLiqVol",
                                             "StdVapVol",
                                             "Mass",
                                             "Molar",
                                             "Mole",
                                             "Energy",
                                             "E6Energy",
                                             "Visc",
                                             "Cond",
                                             "Surf",
                                             "Htco",
                                             "UA",
                                             "Foul",
                                             "Dipole",
                                             "KVis",
                                             "Cp",
                                             "Torque",
                                             "Frac",
                                             "MassFrac",
                                             "MoleFrac",
                                             "VolFrac",
                                             "Currency",
                                             "Rotation",
                                             "Angle",
                                             "FlowConductance",
                                             "Basis",
                                             "Potential",
                                             "Current",
                                             "Resistance",
                                             "Inductance",
                                             "Capacitance",
                                             "PetroMass",
                                             "PowerTop",
                                             "E6PowerTop",
                                             "Power",
                                             "Diffusivity"};
  ASSERT_EQ(expected.size(), 48u);
  std::vector<std::string> names;
  for (UnitList const& list : table_.lists) {
    names.push_back(list.name);
    EXPECT_FALSE(list.units.empty()) << list.name;
  }
  ASSERT_EQ(names.back(), "FlowBasis");
  names.pop_back();
  EXPECT_EQ(names, expected);
}

TEST_F(UnitTableTest, EveryUnitIsInAListButDensityUnitsAndTheNumber) {
  std::set<std::string> inLists;
  for (UnitList const& list : table_.lists) inLists.insert(list.units.begin(), list.units.end());
  std::vector<std::string> without;
  for (UnitRow const& row : table_.units) {
    if (inLists.count(row.text) == 0) without.push_back(row.text);
  }
  EXPECT_EQ(without, (std::vector<std::string>{"API", "spgr", ""}));
}

TEST_F(UnitTableTest, BasesAreSpelledAsClasses) {
  std::set<std::string> names;
  for (UnitList const& list : table_.lists) names.insert(list.name);
  for (UnitList const& list : table_.lists) {
    if (list.name != "Basis" && list.name != "FlowBasis") continue;
    for (std::string const& unit : list.units) EXPECT_EQ(names.count(unit), 1u) << unit;
  }
}

struct ClassLine {
  char const* name;
  char const* definition;
  char const* longName;
};
constexpr ClassLine kClasses[] = {
    {"MolarCp", "Energy / Mole TempDiff", ""},
    {"MolarEnergy", "Energy/Mole", ""},
    {"MolarDensity", "Mole/Vol", ""},
    {"MolarEntropy", "Energy / TempDiff Mole", ""},
    {"HXDuty", "Energy/Time", ""},
    {"Film", "Htco", "Film Coefficient"},
    {"RhoVV", "Mass/Leng/Time2", "Rho-V2"},
    {"FineTime", "Time", "Fine Time"},
    {"FineLengInverse", "1/FineLeng", ""},
    {"FlowConductanceValve", "FlowConductance", "Valve Flow Conductance"},
    {"ElecPower", "Power", "Electrical Power"},
    {"MoleRate", "Mole/Time", "Mole Rate"},
    {"WeightRate", "Mass/Time", "Weight Rate"},
    {"StdLVRat", "StdLiqVol/Time", "Standard Liquid Volume Rate"},
    {"StdGVRat", "StdVapVol/Time", "Standard Vapor Volume Rate"},
    {"ActLVRat", "StdLiqVol/Time", "Actual Liquid Volume Rate"},
    {"ActGVRat", "StdVapVol/Time", "Actual Vapor Volume Rate"},
    {"StdLqVol", "StdLiqVol", "Standard Liquid Volume"},
    {"StdVpVol", "StdVapVol", "Standard Vapor Volume"},
    {"TemperatureChg", "TempDiff", "Temperature Change"},
    {"PressureChg", "PresDiff", "Pressure Change"},
    {"Roughness", "Leng", "Roughness"},
    {"Gas-OilRatio", "StdVapVol/StdLiqVol", "Gas-Oil Ratio"},
    {"Liquid-GasRatio", "StdLiqVol/StdVapVol", "Liquid-Gas Ratio"},
    {"ProductivityIdx", "Vol/Time/Pres", "Producivity Index"},
    {"HeatVal", "Energy/StdVapVol", "Heating Value"},
    {"Percent", "Frac", "Percent"},
    {"Fraction", "Frac", "Fraction"},
    {"VaporGravity", "VaporDensity", "Vapor Gravity"},
    {"LiqDensGrav", "PetroDensity", "Liquid Density / Gravity"},
    {"FormationVolFac", "Vol/Vol", "Formation Volume Factor"},
    {"InversePressure", "1/Pressure", "Inverse Pressure"},
    {"InverseLength", "1/Length", "Inverse Length"},
    {"GeoGradient", "TempDiff/Leng", "GEO Gradient"},
    {"MolarRate", "Mole/Time", "Molar Rate"},
    {"Diffusivity", "Leng2/Time", "Diffusivity"},
    {"Inductance", "Inductance", "Electrical Inductance"},
    {"Capacitance", "Capacitance", "Electrical Capacitance"},
};

TEST_F(UnitTableTest, CustomClassesStandAsTheyMust) {
  ASSERT_EQ(std::size(kClasses), table_.classes.size());
  for (std::size_t i = 0; i < std::size(kClasses); ++i) {
    EXPECT_EQ(table_.classes[i].name, kClasses[i].name);
    EXPECT_EQ(table_.classes[i].definition, kClasses[i].definition) << kClasses[i].name;
    EXPECT_EQ(table_.classes[i].longName, kClasses[i].longName) << kClasses[i].name;
  }
}

TEST_F(UnitTableTest, CommonListsAreSubsetsOfTheListOfTheirName) {
  for (UnitList const& common : table_.commonLists) {
    auto const list = std::find_if(table_.lists.begin(), table_.lists.end(),
                                   [&](UnitList const& one) { return one.name == common.name; });
    ASSERT_NE(list, table_.lists.end()) << common.name;
    EXPECT_FALSE(common.units.empty());
    for (std::string const& unit : common.units) {
      EXPECT_EQ(std::count(list->units.begin(), list->units.end(), unit), 1) << unit;
    }
  }
}

TEST_F(UnitTableTest, GeneralSlatesAndTheirKeys) {
  for (char const* name : {"English", "Metric", "SI"}) {
    UnitSlate const& slate = Slate(name);
    EXPECT_TRUE(slate.isSystem) << name;
    EXPECT_FALSE(slate.isHidden) << name;
    EXPECT_EQ(slate.gaugePressureBasis, 101325.0) << name;
    EXPECT_EQ(slate.parent, "") << name;
  }
  EXPECT_TRUE(Slate("Internal").isHidden);
  UnitSlate const& current = Slate("Current");
  EXPECT_TRUE(current.isHidden);
  EXPECT_TRUE(current.allowModify);
  EXPECT_EQ(current.parent, "SI");
  EXPECT_TRUE(current.units.empty());
  EXPECT_EQ(Slate("Costing").copyFrom, "Metric");
  EXPECT_EQ(Slate("QRInternal").parent, "");
  std::set<std::string> names;
  for (UnitSlate const& slate : table_.slates) names.insert(slate.name);
  EXPECT_EQ(names.size(), 19u);
}

}  // namespace
}  // namespace zel

// Measured points from ThermoML: `zel points`, and as points of `plot` and `fit`.
#include <cmath>
#include <nlohmann/json.hpp>

#include "tests/zel/change_fixture.h"
#include "tests/zel/thermoml_document.h"

namespace zel::test {
namespace {

using nlohmann::json;

std::string Pressures() {
  return Data(std::string(kComponent) + Property("Vapor or sublimation pressure, kPa", "Liquid") +
              "<PhaseID><ePhase>Liquid</ePhase></PhaseID><PhaseID><ePhase>Gas</ePhase></PhaseID>" +
              kTemperature + Value("323.15", "12.352", "0.02") + Value("303.15", "4.2469", "0.01") +
              Value("343.15", "31.202", "0.04") + Value("363.15", "70.183", "0.08"));
}

class ThermoMlTest : public ChangeTest {
 protected:
  void Make(std::string const& data) const { MakeFile("m.xml", Document(data)); }
  json Points(std::string const& words) const { return Json("points m.xml " + words); }
  void Fails(std::string const& words, std::string const& why) const {
    Outcome const outcome = Zel(words);
    EXPECT_EQ(outcome.status, 1) << words << "\n" << outcome.out;
    EXPECT_NE(outcome.err.find(why), std::string::npos) << words << "\n" << outcome.err;
  }
};

TEST_F(ThermoMlTest, SetsHaveTheirPublication) {
  Make(Pressures());
  json const report = Points("");
  EXPECT_EQ(report["schema"], "zel/points");
  EXPECT_EQ(report["documents"], 1);
  ASSERT_EQ(report["sets"].size(), 1U);
  EXPECT_EQ(report["sets"][0], json::parse(R"({"compound": "water", "cas": "7732-18-5",
      "correlation": "VaporPressure", "points": 4, "from_t": 303.15, "to_t": 363.15,
      "phase": "Liquid", "method": "Own & tested",
      "citation": "Keeper, A.; Other, B., Points of water, Own Journal, 2020, 1, 2-3",
      "doi": "10.1000/182"})"));
  EXPECT_FALSE(report.contains("passed_over"));
}

// Expanded by 2 at 95%.
TEST_F(ThermoMlTest, PointsAreATableThatPlotAndFitRead) {
  Make(Pressures());
  json const report = Points("--to VaporP --component WATER");
  ASSERT_EQ(report["points"].size(), 4U);
  EXPECT_EQ(report["points"][0]["component"], "7732-18-5");
  EXPECT_EQ(report["points"][0]["t"], 323.15);
  EXPECT_EQ(report["points"][0]["value"], 12.352);
  EXPECT_NEAR(report["points"][0]["uncertainty"], 0.01, 1e-15);
  EXPECT_TRUE(report["points"][0]["pressure"].is_null());
  EXPECT_EQ(report["points"][0]["label"], "Keeper et al. 2020");
  MakeFile("m.csv", Good("points m.xml --to VaporPressure --csv --units bar,C"));
  Good("copy crc.lb1 own/own.lb1 --bank CRC --item WATER");
  std::string const words =
      " --to VaporPressure --equation 20 --terms 3 --component WATER "
      "--residuals --dry-run";
  json const table = Json("fit own/own.lb1 m.csv" + words);
  json const document = Json("fit own/own.lb1 m.xml" + words);
  EXPECT_EQ(document["points"], 4);
  EXPECT_EQ(document["fitted"], "logarithm of the value, weighted by uncertainties");
  EXPECT_EQ(document["residuals"][0]["t"], 303.15);
  for (std::size_t i = 0; i < 3; ++i) {
    double const value = document["coefficients"][i]["value"];
    EXPECT_NEAR(table["coefficients"][i]["value"], value, 1e-5 * std::abs(value));
  }
  json const plain = Json("fit own/own.lb1 m.xml --unweighted" + words);
  EXPECT_EQ(plain["fitted"], "logarithm of the value");
}

TEST_F(ThermoMlTest, PointsAreDrawnOverACurve) {
  Make(Pressures());
  Good("plot VaporPressure WATER -l perry.lb1 --points m.xml -o p.svg");
  EXPECT_NE(FileText(Folder() / "p.svg").find("Keeper et al. 2020, 7732-18-5"), std::string::npos);
  Fails("plot LiquidDensity WATER -l perry.lb1 --points m.xml -o no.svg",
        "m.xml: has no points of LiquidDensity");
  Fails("fit own/own.lb1 m.xml --to LiquidCp --equation 1 --component 10000007",
        "m.xml: has no points of LiquidCp");
}

// 997 kg/m3 of water are 55.342 kg-mol/m3; 18.07e-6 m3/mol are 55.340.
TEST_F(ThermoMlTest, PropertiesAreConverted) {
  struct Case {
    char const* property;
    char const* phase;
    char const* value;
    char const* correlation;
    double converted;
  };
  Case const cases[] = {
      {"Mass density, kg/m3", "Liquid", "997", "LiquidDensity", 55.342},
      {"Mass density, kg/m3", "Crystal", "917", "SolidDensity", 50.902},
      {"Molar volume, m3/mol", "Liquid", "18.07E-6", "LiquidDensity", 55.340},
      {"Specific volume, m3/kg", "Liquid", "1.003E-3", "LiquidDensity", 55.3433},
      {"Amount density, mol/m3", "Liquid", "55342", "LiquidDensity", 55.342},
      {"Viscosity, Pa*s", "Liquid", "8.9E-4", "LiquidViscosity", 0.89},
      {"Viscosity, Pa*s", "Gas", "9.8E-6", "VaporViscosity", 0.0098},
      {"Thermal conductivity, W/m/K", "Liquid", "0.606", "LiquidThermal", 0.606},
      {"Thermal conductivity, W/m/K", "Gas", "0.0186", "VaporThermal", 0.0186},
      {"Surface tension liquid-gas, N/m", "Liquid", "0.072", "SurfaceTension", 0.072},
      {"Molar enthalpy of vaporization or sublimation, kJ/mol", "Liquid", "43.99", "LatentHeat",
       43990.0},
      {"Molar heat capacity at constant pressure, J/K/mol", "Liquid", "75.3", "LiquidCp", 75.3},
      {"Molar heat capacity at constant pressure, J/K/mol", "Crystal 1", "37.8", "SolidCp", 37.8},
      {"Molar heat capacity at constant pressure, J/K/mol", "Ideal gas", "33.6", "IdealGasCp",
       33.6},
      {"Specific heat capacity at saturation pressure, J/K/kg", "Liquid", "4180", "LiquidCp",
       75.303},
      {"Relative permittivity at zero frequency", "Liquid", "78.4", "Dielectric", 78.4},
  };
  for (Case const& one : cases) {
    Make(Data(kComponent + Property(one.property, one.phase) + kTemperature + Pressure("101.325") +
              Value("298.15", one.value, "0")));
    json const report = Points(std::string("--to ") + one.correlation);
    ASSERT_EQ(report["points"].size(), 1U) << one.property;
    EXPECT_NEAR(report["points"][0]["value"], one.converted, 2e-5 * one.converted) << one.property;
    EXPECT_EQ(report["points"][0]["pressure"], 101.325);
  }
}

TEST_F(ThermoMlTest, WhatHasNoPlaceIsListed) {
  std::string const density = Property("Mass density, kg/m3", "Liquid");
  std::string const value = Value("298.15", "997", "1");
  Make(Pressures() + Data(kComponent + density + kTemperature + Pressure("5000") + value + value) +
       Data(std::string(kComponent) + kOther + density + kTemperature + value) +
       Data(kComponent + Property("Critical temperature, K", "Liquid") + kTemperature + value) +
       Data(kComponent + Property("Vapor or sublimation pressure, kPa", "Gas") +
            "<PhaseID><ePhase>Crystal</ePhase></PhaseID>" + kTemperature + value) +
       Data(kComponent + density + Pressure("101") + value) +
       Data(kComponent + density + kTemperature +
            "<Constraint><ConstraintID><ConstraintType><eMiscellaneous>Wavelength, nm"
            "</eMiscellaneous></ConstraintType></ConstraintID><nConstraintValue>589"
            "</nConstraintValue></Constraint>" +
            value));
  json const passed = Points("")["passed_over"];
  ASSERT_EQ(passed.size(), 6U) << passed;
  EXPECT_EQ(Row(passed, "why", "above 150 kPa")["points"], 2);
  EXPECT_EQ(Row(passed, "why", "a mixture")["points"], 1);
  EXPECT_EQ(Row(passed, "why", "no correlation of this property in this phase")["property"],
            "Critical temperature, K");
  EXPECT_EQ(Rows(passed, "why", "of a solid"), 1U);
  EXPECT_EQ(Rows(passed, "why", "no temperature above 0 K or no value"), 1U);
  EXPECT_EQ(Rows(passed, "why", "it depends on: Wavelength, nm"), 1U);
  // At saturation the pressure does not matter.
  Make(Data(kComponent + density +
            "<PhaseID><ePhase>Liquid</ePhase></PhaseID><PhaseID><ePhase>Gas</ePhase></PhaseID>" +
            kTemperature + Pressure("5000") + value));
  EXPECT_EQ(Points("--to LiquidDensity")["points"].size(), 1U);
}

TEST_F(ThermoMlTest, WhatIsWrongIsRefusedWithItsLine) {
  auto const refuses = [&](std::string const& text, std::string const& why) {
    MakeFile("m.xml", text);
    Fails("points m.xml", why);
    Fails("plot VaporPressure WATER -l perry.lb1 --points m.xml -o no.svg", why);
  };
  refuses("<compounds/>", "m.xml, line 1: compounds: is not a DataReport of ThermoML");
  refuses("<DataReport>", "m.xml, line 1: ");
  refuses("<!DOCTYPE a [<!ENTITY b 'c'>]><DataReport>&b;</DataReport>", "a document type");
  refuses(Document(Data(kTemperature)), "line 6: PureOrMixtureData: has no Component");
  refuses(Document(Data("<Component><RegNum><nOrgNum>9</nOrgNum></RegNum></Component>")),
          "compound \"9\" is not described");
  std::string const data = kComponent + Property("Viscosity, Pa*s", "Liquid") + kTemperature;
  refuses(Document(Data(data + Value("298.15", "1,5", "1"))),
          "nPropValue: \"1,5\" is not a number");
  refuses(Document(Data(data + Value("298.15", "1e999", "1"))), "nPropValue");
  refuses(Document(Data(data + Value("", "1", "1"))), "nVarValue: \"\" is not a number");
  refuses(Document(Data(data + Value("298.15", "1", "x"))), "nCombExpandUncertValue");
  Make(Pressures());
  Fails("points m.xml --to LiquidCp", "there are no points of LiquidCp");
  Fails("points m.xml --to VaporPressure --component benzene",
        "there are no points of VaporPressure of benzene");
  Fails("points m.xml --to Nothing", "Nothing");
  Fails("points none.xml", "none.xml");
  Fails("points own/own.lb1", "own/own.lb1");
}

}  // namespace
}  // namespace zel::test

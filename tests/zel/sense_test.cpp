// The plausibility checks: a plausible component has no finding; each implausible one has that of
// its defect, and no other datum is accused.
#include <cstring>

#include "tests/zel/sense_fixture.h"

namespace zel::test {
namespace {

using nlohmann::json;

TEST_F(SenseTest, WhatMakesSenseIsNotWarnedOf) {
  EXPECT_EQ(Warnings(kGood), Ids{}) << report_;
  EXPECT_EQ(WarningsOf("own.lb1 --min-strength 0"), Ids{}) << report_;
}

// The defect and what finds it: the rule, the datum and a part of the report.
struct Defect {
  char const* old;
  char const* replacement;
  char const* id;
  char const* datum;
  char const* text;
};

TEST_F(SenseTest, EachDefectHasItsFinding) {
  Defect const rows[] = {
      {"casNum=\"7732-18-5\"", "", "cas", "CAS number", "no CAS number"},
      {"value=\"18.015\"", "value=\"18.5\"", "formula-weight", "MW",
       "MW is 18.5 kg/kg-mol, expected 18.015 kg/kg-mol from the formula"},
      {"equation=\"1\" tempUnit=\"k\" propUnit=\"kj/kg-k\"",
       "equation=\"99\" tempUnit=\"k\" propUnit=\"kj/kg-k\"", "equation", "LiquidCp",
       "LiquidCp: equation 99 is not known; it cannot be evaluated within its range"},
      {"equation=\"1\" tempUnit=\"k\" propUnit=\"kj/kg-k\"",
       "equation=\"16\" tempUnit=\"k\" propUnit=\"kj/kg-k\"", "equation", "LiquidCp",
       "LiquidCp: equation 16 needs at least 4 coefficients, but the record has 2"},
      {"equation=\"1\" tempUnit=\"k\" propUnit=\"kj/kg-k\"",
       "equation=\"5\" tempUnit=\"k\" propUnit=\"kj/kg-k\"", "equation", "LiquidCp",
       "LiquidCp: equation 5 needs at least 3 coefficients, but the record has 2"},
      {"\"NMP\" value=\"273.15\"", "\"NMP\" value=\"500\"", "melting-boiling", "NMP",
       "NMP of own.lb1 TEST WATER is 500 K, expected 373.15 K from NBP (melting-boiling)"},
      {"\"TTP\" value=\"273.16\"", "\"TTP\" value=\"0.01\"", "triple-point", "TTP",
       "looks like C taken for K"},
      {"value=\"373.15\"", "value=\"700\"", "acentric-boiling", "NBP",
       "TC of own.lb1 TEST WATER is 647.096 K, expected 1050 K from NBP (boiling-critical)"},
      {"value=\"373.15\"", "value=\"100\"", "melting-boiling", "NBP",
       "NMP of own.lb1 TEST WATER is 273.15 K, expected 100 K from NBP"},
      {"value=\"373.15\"", "value=\"390\"", "vapor-pressure", "NBP",
       "VaporPressure of own.lb1 TEST WATER is 179.3012 kPa at 390 K, expected 101.325 kPa"},
      {"tMax=\"533.15\"", "tMax=\"200\"", "liquid-cp-begin", "LiquidCp",
       "the beginning of the range of LiquidCp is 273.16 K, expected 200 K"},
      {"tMax=\"647.096\" refCode=\"1\"> 66", "tMax=\"900\" refCode=\"1\"> 66", "vapor-pressure-end",
       "VaporPressure", "the end of the range of VaporPressure is 900 K"},
      {"value=\"0.2294\"", "value=\"0.4\"", "critical", "ZC",
       "ZC is 0.4, expected 0.2292415 from PC VC/(R TC)"},
      {"value=\"0.0559\"", "value=\"0.559\"", "critical", "VC", "is 0.559 m3/kg-mol"},
      {"value=\"0.344\"", "value=\"0.5\"", "acentric", "ACENTRIC",
       "ACENTRIC of own.lb1 TEST WATER is 0.5, expected 0.3452786 from the vapor pressure"},
      {"0.1294192 -0.0002", "0.01 0.0001", "surface-tension-falls", "SurfaceTension",
       "SurfaceTension is 0.0747096 N/m at 647.096 K"},
      {"0.1294192 -0.0002", "0.25 -0.0002", "surface-tension-law", "SurfaceTension",
       "from its own curve and Guggenheim's law"},
      {"> 75 0.01 <", "> -75 0.01 <", "liquid-cp-positive", "LiquidCp",
       "LiquidCp is -72.2684 kJ/kg-mol-K at 273.16 K, expected 0 kJ/kg-mol-K"},
      {"value=\"0.344\" refCode=\"1\"", "value=\"0.344\"", "source", "ACENTRIC", "ACENTRIC"},
      {"tMax=\"533.15\" refCode=\"1\"", "tMax=\"533.15\"", "source", "LiquidCp", "LiquidCp"}};
  for (Defect const& row : rows) {
    Warnings(With(kGood, row.old, row.replacement));
    std::size_t found = 0;
    for (json const& finding : report_["findings"]) {
      EXPECT_EQ(finding["datum"], row.datum) << row.replacement << "\n" << finding;
      if (IsOf(finding, row.id)) ++found;
    }
    ASSERT_EQ(found, 1U) << row.replacement << "\n" << report_;
    EXPECT_NE(report_.dump().find(row.text), std::string::npos) << row.text << "\n" << report_;
    EXPECT_NE(What().find("own.lb1: TEST WATER: "), std::string::npos) << What();
  }
}

// What one comparison says with a small deviation can be a difference of sources: it is a weak
// finding, the strongest one about the component.
TEST_F(SenseTest, SmallDefectsAreWeakFindings) {
  Defect const rows[] = {
      {"value=\"18.015\"", "value=\"18.03\"", "formula-weight", "MW", "expected 18.015 kg/kg-mol"},
      {"value=\"0.2294\"", "value=\"0.26\"", "critical", "ZC", "ZC is 0.26, expected 0.2292415"},
      {"value=\"373.15\"", "value=\"380\"", "vapor-pressure", "NBP", "128.6318 kPa at 380 K"},
      {"value=\"0.344\"", "value=\"0.4\"", "acentric-boiling", "ACENTRIC", "ACENTRIC is 0.4"},
      {"0.1294192 -0.0002", "0.2 -0.0002", "surface-tension-law", "SurfaceTension",
       "SurfaceTension is 0.08999368 N/m"},
      {"tMax=\"647.096\" refCode=\"1\"> 66", "tMax=\"700\" refCode=\"1\"> 66", "vapor-pressure-end",
       "VaporPressure", "the end of the range of VaporPressure is 700 K"}};
  for (Defect const& row : rows) {
    Warnings(With(kGood, row.old, row.replacement));
    WarningsOf("own.lb1 --min-strength 0");
    ASSERT_GE(report_["findings"].size(), 1U) << row.replacement;
    json const& first = report_["findings"][0];
    EXPECT_TRUE(IsOf(first, row.id)) << first;
    EXPECT_EQ(first["datum"], row.datum) << first;
    EXPECT_LT(first["strength"], 0.9) << first;
    EXPECT_NE(first.dump().find(row.text), std::string::npos) << row.text << "\n" << first;
  }
}

// A record that cannot be evaluated is an error, one that yields another number than intended a
// warning.
TEST_F(SenseTest, EquationWithoutAValueIsAnError) {
  std::string const other = "propUnit=\"kj/kg-k\"";
  std::string const known = "equation=\"1\" tempUnit=\"k\" " + other;
  auto const errors = [&](char const* equation) {
    Ids const ids = Warnings(
        With(kGood, known, std::string("equation=\"") + equation + "\" tempUnit=\"k\" " + other));
    EXPECT_EQ(ids.count("equation"), 1U) << report_;
    for (json const& one : report_["findings"]) EXPECT_EQ(one["datum"], "LiquidCp") << one;
    return report_["errors"].get<int>();
  };
  EXPECT_EQ(errors("99"), 1) << "unknown";
  EXPECT_EQ(errors("16"), 1) << "no value with two coefficients";
  EXPECT_EQ(Zel("check own.lb1").status, 1);
  EXPECT_EQ(Zel("check own.lb1 --silence equation").status, 0);
  EXPECT_EQ(errors("5"), 0) << "C3 counts as 0";
  EXPECT_EQ(Zel("check own.lb1").status, 0);
  // Sound except for its range, which is above the critical point.
  Warnings(
      With(With(kGood,
                "equation=\"20\" tempUnit=\"k\" propUnit=\"kpa\" tMin=\"273.16\"\n      "
                "tMax=\"647.096\"",
                "equation=\"47\" tempUnit=\"k\" propUnit=\"kpa\" tMin=\"700\"\n      tMax=\"800\""),
           "66.74124 -7258.2 -7.3037 4.1653e-06 2", "-7.8 1.8 -2.7 -1.4"));
  EXPECT_NE(report_.dump().find("VaporPressure: equation 47 has no value; it cannot be evaluated"),
            std::string::npos)
      << report_;
}

TEST_F(SenseTest, SharedAndRepeated) {
  std::string other = With(kGood, "number=\"7\"", "number=\"8\"");
  other = With(other, "> WATER <", "> HEAVY <");
  Ids ids = Warnings(kGood + other);
  EXPECT_EQ(ids.count("cas-shared"), 1U) << report_;
  EXPECT_EQ(ids.count("repeated"), 4U) << "three curves, and TC with PC";
  EXPECT_EQ(ids.size(), 5U) << report_;
  EXPECT_EQ(report_.dump().find("another formula"), std::string::npos);
  other = With(other, "formula=\"H2O\"", "formula=\"D2O\"");
  ids = Warnings(kGood + other);
  EXPECT_EQ(ids.count("cas-formula"), 1U);
  EXPECT_EQ(report_["errors"], 1);
  EXPECT_EQ(Zel("check own.lb1").status, 1);
  EXPECT_NE(report_.dump().find("another formula, D2O instead of H2O"), std::string::npos);
}

// A component without a formula between two with different ones, which are then not neighbors.
TEST_F(SenseTest, FormulasOfAllComponentsWithACasNumber) {
  auto const component = [](char const* number, char const* id, char const* formula) {
    return std::string("<comp><id number=\"") + number + "\" name=\"Water\" " + formula +
           " casNum=\"7732-18-5\"> " + id + " </id></comp>";
  };
  Ids ids = Warnings(component("7", "WATER", "formula=\"H2O\"") + component("8", "SECOND", "") +
                     component("9", "HEAVY", "formula=\"D2O\"") +
                     component("10", "TURNED", "formula=\"OH2\""));
  EXPECT_EQ(ids, (Ids{"cas-formula", "cas-formula", "cas-shared"})) << report_;
  std::string const all = report_.dump();
  EXPECT_NE(all.find("TEST HEAVY: has the CAS number 7732-18-5 of TEST WATER and another formula, "
                     "D2O instead of H2O"),
            std::string::npos)
      << all;
  EXPECT_NE(all.find("TEST TURNED: has the CAS number 7732-18-5 of TEST HEAVY and another formula"),
            std::string::npos)
      << all;
}

// Further data of a component, each right and wrong.
TEST_F(SenseTest, DensityLatentHeatAndSolidsBesideConstants) {
  auto const with = [](std::string const& more) {
    return With(kGood, "</comp>", more + "</comp>");
  };
  auto const curve = [](std::string const& name, char const* equation, char const* unit,
                        char const* end, char const* coefficients) {
    return "<correlation name=\"" + name + "\" equation=\"" + equation +
           "\" tempUnit=\"k\" propUnit=\"" + unit + "\" moleWtBasis=\"m\" tMin=\"273\" tMax=\"" +
           end + "\" refCode=\"1\"> " + coefficients + " </correlation>";
  };
  auto const expectFinding = [&](std::string const& component, char const* rule,
                                 char const* datum) {
    Warnings(component);
    ASSERT_EQ(report_["findings"].size(), 1U) << report_;
    EXPECT_TRUE(IsOf(report_["findings"][0], rule)) << report_;
    EXPECT_EQ(report_["findings"][0]["datum"], datum) << report_;
  };
  std::string const heat = R"(<property name="HVAPNBP" value="40650" refCode="1" />)";
  auto const density = [&](char const* coefficients) {
    return with(curve("LiquidDensity", "16", "kg/m3", "647.096", coefficients));
  };
  EXPECT_EQ(Warnings(density("4.9669 0.27788 647.13 0.1874")), Ids{}) << report_;
  expectFinding(density("9.9669 0.27788 647.13 0.1874"), "critical-density", "LiquidDensity");
  EXPECT_NE(report_.dump().find("expected 17.88909 kg-mol/m3 from 1/VC"), std::string::npos)
      << report_;
  auto const latent = [&](char const* coefficients) {
    return with(heat + curve("LatentHeat", "15", "kj/kg", "647.096", coefficients));
  };
  EXPECT_EQ(Warnings(latent("52053 0.3199 -0.212 0.25795")), Ids{}) << report_;
  expectFinding(latent("39000 0.3199 -0.212 0.25795"), "latent-heat", "LatentHeat");
  auto const solid = [&](char const* end) {
    return with(
        "<correlation name=\"SolidDensity\" equation=\"1\" tempUnit=\"k\" propUnit=\"kg/m3\" "
        "moleWtBasis=\"m\" tMin=\"200\" refCode=\"1\" tMax=\"" +
        std::string(end) + "\"> 50 </correlation>");
  };
  EXPECT_EQ(Warnings(solid("273")), Ids{}) << report_;
  expectFinding(solid("500"), "solid-density-end", "SolidDensity");
}

TEST_F(SenseTest, GroupsThatAreNotThere) {
  MakeFile("groups.xml",
           "<bank type=\"UNFORIG\" name=\"G\">"
           "<item><structure> S </structure><context> orig-public </context></item>"
           "<item><numerickey>1</numerickey><mainGroup>1</mainGroup></item>"
           "<item><numerickey>2</numerickey><mainGroup>2</mainGroup></item>"
           "<item><numerickey>9</numerickey><mainGroup>9</mainGroup></item>"
           "<item><numerickey>1 2</numerickey><vlij>10</vlij></item></bank>");
  MakeFile("structures.xml",
           "<bank type=\"STRUCT\" name=\"S\">"
           "<item><keys>10000007</keys><count>2</count><groupNumber>1 2</groupNumber>"
           "<groupCount>1 1</groupCount></item>"
           "<item><keys>10000008</keys><count>2</count><groupNumber>1 5</groupNumber>"
           "<groupCount>1 1</groupCount></item></bank>");
  Good("import own.lb1 groups.xml structures.xml --create");
  EXPECT_EQ(WarningsOf("own.lb1"), (Ids{"group-use", "group-use"})) << report_;
  std::string const all = report_.dump();
  EXPECT_NE(all.find("UNFORIG:G group 9: its main group 9 has no interaction"), std::string::npos)
      << all;
  EXPECT_NE(all.find("STRUCT:S 10000008: has groups that are not in UNFORIG:G: 5"),
            std::string::npos)
      << all;
}

// Such a library comes from another writer: the keys of one pair are swapped in its file.
TEST_F(SenseTest, PairInBothOrders) {
  MakeFile("pairs.xml",
           "<bank type=\"VANLAAR\" name=\"V\">"
           "<item><keys>10000007 10000008</keys><aij>1</aij><aji>2</aji></item>"
           "<item><keys>10000008 10000009</keys><aij>1</aij><aji>3</aji></item></bank>");
  Good("import own.lb1 pairs.xml --create");
  EXPECT_EQ(WarningsOf("own.lb1"), Ids{});
  std::string bytes = FileText(Folder() / "own.lb2");
  auto const words = [](std::int32_t a, std::int32_t b) {
    std::int32_t const pair[] = {a, b};
    std::string text(sizeof pair, '\0');
    std::memcpy(text.data(), pair, sizeof pair);
    return text;
  };
  std::size_t const at = bytes.find(words(10000008, 10000009));
  ASSERT_NE(at, std::string::npos);
  MakeFile("own.lb2", bytes.replace(at, 8, words(10000008, 10000007)));
  EXPECT_EQ(WarningsOf("own.lb1"), (Ids{"pair-twice", "pair-twice"})) << report_;
  EXPECT_NE(report_.dump().find("aij is 1 in one and 3 in the other"), std::string::npos)
      << report_;
}

TEST_F(SenseTest, SilenceIsOfOneKind) {
  std::string const two =
      With(With(kGood, "value=\"18.015\"", "value=\"19\""), "value=\"0.2294\"", "value=\"0.4\"");
  EXPECT_EQ(Warnings(two), (Ids{"critical", "formula-weight"}));
  EXPECT_EQ(WarningsOf("own.lb1 --silence critical"), Ids{"formula-weight"});
  EXPECT_EQ(WarningsOf("own.lb1 --silence critical formula-weight"), Ids{});
  EXPECT_EQ(WarningsOf("own.lb1 --structure"), Ids{});
}

}  // namespace
}  // namespace zel::test

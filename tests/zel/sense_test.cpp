// The plausibility checks: a plausible component causes no warning, each implausible one causes its
// own and no other.
#include <algorithm>
#include <cstring>
#include <set>

#include "tests/zel/zel_fixture.h"

namespace zel::test {
namespace {

using nlohmann::json;

// Water with constants and curves that agree, as an element of a document; tests replace parts of
// it.
constexpr char kGood[] = R"(
  <comp>
    <id number="7" name="Water" formula="H2O" casNum="7732-18-5" refCode="1"> WATER </id>
    <property name="MW" value="18.015" refCode="1" />
    <property name="TC" value="647.096" refCode="1" />
    <property name="PC" value="22064" refCode="1" />
    <property name="VC" value="0.0559" refCode="1" />
    <property name="ZC" value="0.2294" refCode="1" />
    <property name="ACENTRIC" value="0.344" refCode="1" />
    <property name="NMP" value="273.15" refCode="1" />
    <property name="TTP" value="273.16" refCode="1" />
    <property name="NBP" value="373.15" refCode="1" />
    <correlation name="VaporPressure" equation="20" tempUnit="k" propUnit="kpa" tMin="273.16"
      tMax="647.096" refCode="1"> 66.74124 -7258.2 -7.3037 4.1653e-06 2 </correlation>
    <correlation name="SurfaceTension" equation="1" tempUnit="k" propUnit="n/m" tMin="273.16"
      tMax="647.096" refCode="1"> 0.1294192 -0.0002 </correlation>
    <correlation name="LiquidCp" equation="1" tempUnit="k" propUnit="kj/kg-k" moleWtBasis="m"
      tMin="273.16" tMax="533.15" refCode="1"> 75 0.01 </correlation>
  </comp>)";

class SenseTest : public ZelTest {
 protected:
  static std::string With(std::string text, std::string const& old,
                          std::string const& replacement) {
    std::size_t const at = text.find(old);
    EXPECT_NE(at, std::string::npos) << old;
    return text.replace(at, old.size(), replacement);
  }
  // The IDs of the warnings about a library of these components.
  std::multiset<std::string> Warnings(std::string const& components) {
    MakeFile("bank.xml", "<bank type=\"PURECOMP\" name=\"TEST\">" + components + "</bank>");
    Good("create own.lb1 --force");
    Good("import own.lb1 bank.xml");
    return WarningsOf("own.lb1");
  }
  std::multiset<std::string> WarningsOf(std::string const& words) {
    report_ = json::parse(Zel("check " + words + " --json").out);
    EXPECT_EQ(report_["damage"], 0);
    std::multiset<std::string> ids;
    for (json const& row : report_["findings"]) ids.insert(row["id"]);
    return ids;
  }
  std::string What() const { return report_["findings"][0]["what"]; }

  json report_;
};

using Ids = std::multiset<std::string>;

TEST_F(SenseTest, WhatMakesSenseIsNotWarnedOf) { EXPECT_EQ(Warnings(kGood), Ids{}) << report_; }

TEST_F(SenseTest, EachDefectHasItsWarning) {
  struct Row {
    char const* old;
    char const* replacement;
    char const* id;
    char const* text;
  };
  Row const rows[] = {
      {"casNum=\"7732-18-5\"", "", "cas", "no CAS number"},
      {"value=\"18.015\"", "value=\"18.03\"", "formula-weight", "the formula H2O gives 18.015"},
      {"equation=\"1\" tempUnit=\"k\" propUnit=\"kj/kg-k\"",
       "equation=\"99\" tempUnit=\"k\" propUnit=\"kj/kg-k\"", "equation",
       "LiquidCp: equation 99 is not known; it cannot be evaluated within its range"},
      {"equation=\"1\" tempUnit=\"k\" propUnit=\"kj/kg-k\"",
       "equation=\"16\" tempUnit=\"k\" propUnit=\"kj/kg-k\"", "equation",
       "LiquidCp: equation 16 needs at least 4 coefficients, but the record has 2"},
      {"equation=\"1\" tempUnit=\"k\" propUnit=\"kj/kg-k\"",
       "equation=\"5\" tempUnit=\"k\" propUnit=\"kj/kg-k\"", "equation",
       "LiquidCp: equation 5 needs at least 3 coefficients, but the record has 2"},
      {"value=\"273.15\"", "value=\"275\"", "temperatures", "NMP 275 K is above TTP 273.16 K"},
      {"value=\"373.15\"", "value=\"700\"", "temperatures", "NBP 700 K is above TC 647.096 K"},
      {"tMax=\"533.15\"", "tMax=\"200\"", "temperatures",
       "LiquidCp has the range 273.16 K to 200 K"},
      {"value=\"0.2294\"", "value=\"0.26\"", "critical", "ZC is 0.26"},
      {"value=\"0.344\"", "value=\"0.4\"", "acentric", "ACENTRIC is 0.4"},
      {"value=\"373.15\"", "value=\"380\"", "vapor-pressure", "at NBP 380 K"},
      {"0.1294192 -0.0002", "0.01 0.0001", "monotony", "SurfaceTension rises"},
      {"0.1294192 -0.0002", "0.2 -0.0002", "monotony", "at TC, expected 0 N/m"},
      {"> 75 0.01 <", "> -75 0.01 <", "monotony", "LiquidCp is -72"},
      {"value=\"0.344\" refCode=\"1\"", "value=\"0.344\"", "source", "ACENTRIC"},
      {"tMax=\"533.15\" refCode=\"1\"", "tMax=\"533.15\"", "source", "LiquidCp"}};
  for (Row const& row : rows) {
    Ids const ids = Warnings(With(kGood, row.old, row.replacement));
    EXPECT_GE(ids.count(row.id), 1U) << row.replacement << "\n" << report_;
    // A rising curve is not 0 at its end either; everything else causes one warning.
    EXPECT_EQ(std::set<std::string>(ids.begin(), ids.end()).size(), 1U) << report_;
    EXPECT_NE(report_.dump().find(row.text), std::string::npos) << row.text << "\n" << report_;
    EXPECT_NE(What().find("own.lb1: TEST WATER: "), std::string::npos) << What();
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
    EXPECT_EQ(ids, Ids{"equation"}) << report_;
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

TEST_F(SenseTest, EndOfALiquidCurveAboveTheCriticalPoint) {
  Ids const ids =
      Warnings(With(kGood, "tMax=\"647.096\" refCode=\"1\"> 66", "tMax=\"660\" refCode=\"1\"> 66"));
  EXPECT_EQ(ids, Ids{"temperatures"}) << report_;
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

TEST_F(SenseTest, MagnitudeAcrossLibraries) {
  Warnings(kGood);
  Good("copy own.lb1 other.lb1 --create");
  EXPECT_EQ(WarningsOf("own.lb1 other.lb1"), Ids{});
  Warnings(With(kGood, "name=\"ACENTRIC\" value=\"0.344\"", "name=\"DIPOLE\" value=\"1.8\""));
  Good("copy own.lb1 one.lb1 --create");
  Warnings(With(kGood, "name=\"ACENTRIC\" value=\"0.344\"", "name=\"DIPOLE\" value=\"6.2\""));
  EXPECT_EQ(WarningsOf("one.lb1 own.lb1"), Ids{"magnitude"}) << report_;
  EXPECT_NE(What().find("DIPOLE is 6.2 debye, but one.lb1 has 1.8 debye"), std::string::npos)
      << What();
}

// Further data of a component, each right and wrong.
TEST_F(SenseTest, DensityLatentHeatAndSolidsBesideConstants) {
  auto const with = [](std::string const& more) {
    return With(kGood, "</comp>", more + "</comp>");
  };
  auto const curve = [](std::string const& name, std::string const& unit, char const* end,
                        char const* value) {
    return "<correlation name=\"" + name + "\" equation=\"1\" tempUnit=\"k\" propUnit=\"" + unit +
           "\" moleWtBasis=\"m\" tMin=\"200\" tMax=\"" + end + "\" refCode=\"1\"> " + value +
           " </correlation>";
  };
  std::string const heat = R"(<property name="HVAPNBP" value="40650" refCode="1" />)";
  EXPECT_EQ(Warnings(with(curve("LiquidDensity", "kg/m3", "647.096", "18"))), Ids{}) << report_;
  EXPECT_EQ(Warnings(with(curve("LiquidDensity", "kg/m3", "647.096", "40"))),
            Ids{"critical-density"})
      << report_;
  EXPECT_NE(What().find("at TC the liquid density is 40 kg-mol/m3, but VC gives 17.88"),
            std::string::npos)
      << What();
  EXPECT_EQ(Warnings(with(heat + curve("LatentHeat", "kj/kg", "640", "40000"))), Ids{}) << report_;
  EXPECT_EQ(Warnings(with(heat + curve("LatentHeat", "kj/kg", "640", "30000"))), Ids{"latent-heat"})
      << report_;
  EXPECT_EQ(Warnings(with(curve("SolidDensity", "kg/m3", "273", "50"))), Ids{}) << report_;
  EXPECT_EQ(Warnings(with(curve("SolidDensity", "kg/m3", "300", "50"))), Ids{"temperatures"})
      << report_;
  EXPECT_NE(What().find("the end of SolidDensity 300 K is above NMP 273.15 K"), std::string::npos);
}

// In both directions: both libraries have a vapor pressure, one of them a wrong boiling point.
TEST_F(SenseTest, VaporPressureAtTheBoilingPointOfAnotherLibrary) {
  Warnings(kGood);
  Good("copy own.lb1 one.lb1 --create");
  Warnings(With(kGood, "value=\"373.15\"", "value=\"376\""));
  EXPECT_EQ(WarningsOf("own.lb1").count("boiling-point"), 0U);
  for (char const* const both : {"one.lb1 own.lb1", "own.lb1 one.lb1"}) {
    EXPECT_EQ(WarningsOf(both).count("boiling-point"), 1U) << report_;
    EXPECT_NE(
        report_.dump().find("one.lb1: TEST WATER: at NBP 376 K of own.lb1 the vapor pressure"),
        std::string::npos)
        << report_;
  }
}

// Only the first and the last one disagree, in whatever order they are given.
TEST_F(SenseTest, EveryLibraryIsHeldAgainstEveryOther) {
  auto const library = [&](char const* name, std::string const& component) {
    Warnings(component);
    Good(std::string("copy own.lb1 ") + name + " --create");
  };
  std::string const curve = kGood;
  std::size_t const begin = curve.find("<correlation name=\"VaporPressure\"");
  std::size_t const end = curve.find("</correlation>", begin) + 14;
  std::string const noCurve = curve.substr(0, begin) + curve.substr(end);
  std::string const boiling = R"(<property name="NBP" value="373.15" refCode="1" />)";
  std::string const acentric = R"(<property name="ACENTRIC" value="0.344" refCode="1" />)";
  std::string const dipole = R"(<property name="DIPOLE" value="1.8" refCode="1" />)";
  library("curve.lb1", With(With(curve, boiling, ""), acentric, dipole));
  library("none.lb1", With(noCurve, boiling, ""));
  library("boiling.lb1",
          With(With(With(noCurve, "value=\"373.15\"", "value=\"376\""), acentric, dipole),
               "value=\"1.8\"", "value=\"6.2\""));
  Ids const expected = {"boiling-point", "magnitude"};
  EXPECT_EQ(WarningsOf("curve.lb1 none.lb1 boiling.lb1"), expected) << report_;
  EXPECT_EQ(WarningsOf("boiling.lb1 none.lb1 curve.lb1"), expected) << report_;
  EXPECT_EQ(WarningsOf("none.lb1 curve.lb1 boiling.lb1"), expected) << report_;
  EXPECT_EQ(WarningsOf("curve.lb1 none.lb1"), Ids{}) << report_;
  EXPECT_EQ(WarningsOf("none.lb1 boiling.lb1"), Ids{}) << report_;
}

// A component without a CAS number, or whose CAS number the other library does not have, is found
// there by its number or an ID.
TEST_F(SenseTest, ComponentsWithoutACasNumberAcrossLibraries) {
  std::string const cas = "casNum=\"7732-18-5\"";
  std::string const first =
      With(kGood, "name=\"ACENTRIC\" value=\"0.344\"", "name=\"DIPOLE\" value=\"1.8\"");
  std::string const two = With(first, "value=\"1.8\"", "value=\"6.2\"");
  struct Row {
    std::string first, second;
    Ids ids;
  };
  std::string const other = With(two, cas, "");
  Row const rows[] = {
      {With(first, cas, ""), other, {"cas", "cas", "magnitude"}},
      {first, other, {"cas", "magnitude"}},
      {With(first, cas, ""), two, {"cas", "magnitude"}},
      {first, With(other, "number=\"7\"", "number=\"8\""), {"cas", "magnitude"}},
      {first, With(other, "> WATER <", "> STEAM <"), {"cas", "magnitude"}},
      // Neither is in common: two components.
      {first, With(With(other, "> WATER <", "> STEAM <"), "number=\"7\"", "number=\"8\""), {"cas"}},
      // One number for two substances.
      {first,
       With(other, "formula=\"H2O\"", "formula=\"D2O\""),
       {"cas", "formula-weight", "identity"}},
  };
  int count = 0;
  for (Row const& row : rows) {
    std::string const one = "one" + std::to_string(++count) + ".lb1";
    Warnings(row.first);
    Good("copy own.lb1 " + one + " --create");
    Warnings(row.second);
    EXPECT_EQ(WarningsOf(one + " own.lb1"), row.ids) << report_;
    EXPECT_EQ(WarningsOf("own.lb1 " + one), row.ids) << report_;
  }
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
      With(With(kGood, "value=\"18.015\"", "value=\"19\""), "value=\"0.344\"", "value=\"0.4\"");
  EXPECT_EQ(Warnings(two), (Ids{"acentric", "formula-weight"}));
  EXPECT_EQ(WarningsOf("own.lb1 --silence acentric"), Ids{"formula-weight"});
  EXPECT_EQ(WarningsOf("own.lb1 --silence acentric formula-weight"), Ids{});
  EXPECT_EQ(WarningsOf("own.lb1 --structure"), Ids{});
}

}  // namespace
}  // namespace zel::test

// The command compare: two sources by value.
#include <cmath>

#include "tests/zel/zel_fixture.h"

namespace zel::test {
namespace {

using nlohmann::json;

class CompareTest : public ZelTest {
 protected:
  // A library with one bank.
  void Make(std::string const& library, std::string const& components,
            std::string const& bank = "B") const {
    MakeFile("c.xml", "<bank type=\"PURECOMP\" name=\"" + bank + "\">" + components + "</bank>");
    Good("create " + library + " --force");
    Good("import " + library + " c.xml");
  }
  static std::string Component(std::string const& parts, int number = 7,
                               std::string const& id = "XXX", std::string const& more = "") {
    return "<comp><id number=\"" + std::to_string(number) + "\" name=\"X\"" + more + "> " + id +
           " </id>" + parts + "</comp>";
  }
  static std::string Constant(std::string const& name, std::string const& value,
                              std::string const& code = "1") {
    return "<property name=\"" + name + "\" value=\"" + value + "\" refCode=\"" + code + "\" />";
  }
  // C1 + C2 T
  static std::string Line(std::string const& low, std::string const& high,
                          std::string const& coefficients, std::string const& units = "",
                          std::string const& code = "1") {
    std::string const limits = low.empty() ? "" : " tMin=\"" + low + "\" tMax=\"" + high + "\"";
    return "<correlation name=\"VaporPressure\" equation=\"1\" " +
           (units.empty() ? "tempUnit=\"k\" propUnit=\"kpa\"" : units) + limits + " refCode=\"" +
           code + "\"> " + coefficients + " </correlation>";
  }
  json Compared(std::string const& a, std::string const& b, std::string const& words = "") const {
    Make("a.lb1", a, "ONE");
    Make("b.lb1", b, "OTHER");
    return Json("compare a.lb1 b.lb1 " + words);
  }
};

TEST_F(CompareTest, ConstantsAboveTheTolerance) {
  std::string const a = Component(Constant("TC", "500") + Constant("PC", "4000"));
  std::string const b = Component(Constant("TC", "510") + Constant("PC", "4004", "2"));
  json const all = Compared(a, b);
  EXPECT_EQ(all["components_compared"], 1);
  EXPECT_EQ(all["constants_compared"], 2);
  EXPECT_EQ(all["constants_that_differ"], 2);
  json const one = Json("compare a.lb1 b.lb1 --tolerance 1%");
  EXPECT_EQ(one["tolerance_percent"], 1.0);
  ASSERT_EQ(one["constants"].size(), 1U) << one;
  json const row = one["constants"][0];
  EXPECT_EQ(row["component"], "XXX");
  EXPECT_EQ(row["constant"], "TC");
  EXPECT_EQ(row["first"], 500);
  EXPECT_EQ(row["second"], 510);
  EXPECT_EQ(row["unit"], "K");
  EXPECT_DOUBLE_EQ(row["deviation"], 2.0);
  EXPECT_EQ(one["units"]["constants"]["deviation"], "%");
  EXPECT_EQ(Json("compare a.lb1 b.lb1 --tolerance 0.01"), one);
  EXPECT_EQ(Json("compare a.lb1 b.lb1 --tolerance 2%")["constants_that_differ"], 0);
  EXPECT_EQ(Json("compare a.lb1 b.lb1 --tolerance 1.9%")["constants_that_differ"], 1);
  EXPECT_EQ(Json("compare b.lb1 a.lb1 --tolerance 1%")["constants"][0]["deviation"],
            -1000.0 / 510.0);
}

TEST_F(CompareTest, CorrelationsByTheirValues) {
  std::string const kelvin = Component(Line("200", "400", "100 2"));
  std::string const celsius =
      Component(Line("-23.15", "176.85", "6.463 0.02", "tempUnit=\"c\" propUnit=\"bar\"", "9"));
  json const same = Compared(kelvin, celsius, "--tolerance 0.0001%");
  EXPECT_EQ(same["correlations_compared"], 1);
  EXPECT_EQ(same["correlations_that_differ"], 0) << same;
  // From 300 K, where the second begins, to 400 K, where the first ends.
  json const report =
      Compared(Component(Line("200", "400", "100")), Component(Line("300", "500", "97 0.01")));
  ASSERT_EQ(report["correlations"].size(), 1U) << report;
  json const row = report["correlations"][0];
  EXPECT_EQ(row["correlation"], "VaporPressure");
  EXPECT_NEAR(row["greatest"], 1.0, 1e-9);
  EXPECT_EQ(row["at_t"], 400);
  EXPECT_EQ(row["first"], 100);
  EXPECT_NEAR(row["second"], 101.0, 1e-9);
  EXPECT_EQ(row["unit"], "kPa");
  EXPECT_NEAR(row["mean"], 0.5, 1e-9);
  EXPECT_EQ(row["from_t"], 300);
  EXPECT_EQ(row["to_t"], 400);
  EXPECT_EQ(report["units"]["correlations"]["at_t"], "K");
  EXPECT_EQ(Json("compare a.lb1 b.lb1 --tolerance 1.1%")["correlations_that_differ"], 0);
}

// Whatever the grid; close to an end, too.
TEST_F(CompareTest, TheGreatestDeviationIsBetweenPointsOfTheGrid) {
  json const row = Compared(Component(Line("200", "400", "100")),
                            Component(Line("200", "400", "90.4375 0.065 -0.0001")),
                            "--steps 4")["correlations"][0];
  EXPECT_NEAR(row["greatest"], 1.0, 1e-5) << row;
  EXPECT_NEAR(row["at_t"], 325.0, 0.01);
  json const words = Json("compare perry.lb1 crc.lb1 --components WATER");
  ASSERT_FALSE(words["correlations"].empty());
  json const dense = Json("compare perry.lb1 crc.lb1 --components WATER --steps 20000");
  for (std::size_t i = 0; i < dense["correlations"].size(); ++i) {
    double const greatest = dense["correlations"][i]["greatest"];
    EXPECT_NEAR(words["correlations"][i]["greatest"], greatest, 1e-7 * std::abs(greatest));
  }
}

// Where the first goes to 0, the relative deviation has no limit.
TEST_F(CompareTest, NextToAValueOfZeroTheGridDecides) {
  auto const heat = [](std::string const& coefficients) {
    return Component(
        "<correlation name=\"LatentHeat\" equation=\"1\" tempUnit=\"k\" propUnit=\"j/kg\" "
        "moleWtBasis=\"m\" tMin=\"200\" tMax=\"400\"> " +
        coefficients + " </correlation>");
  };
  json const row = Compared(heat("400000 -1000"), heat("401000 -1000"))["correlations"][0];
  EXPECT_EQ(row["at_t"], 399.0) << row;
  EXPECT_NEAR(row["greatest"], 100.0, 1e-6);
}

TEST_F(CompareTest, DeviationsOfTemperaturesAreRelativeToKelvin) {
  std::string const a = Component(Constant("TC", "500"));
  json const report = Compared(a, Component(Constant("TC", "510")), "--units C");
  EXPECT_EQ(report["deviation_of_temperatures"], "relative to the value in K");
  EXPECT_DOUBLE_EQ(report["constants"][0]["deviation"], 2.0);
  EXPECT_FALSE(Json("compare a.lb1 b.lb1").contains("deviation_of_temperatures"));
}

// The deviation where the first is 0 would be infinite.
TEST_F(CompareTest, CurveThatChangesItsSign) {
  auto const enthalpy = [](std::string const& coefficients) {
    return Component(
        "<correlation name=\"IdealEnthalpy\" equation=\"1\" tempUnit=\"k\" propUnit=\"j/kg\" "
        "moleWtBasis=\"m\" tMin=\"300\" tMax=\"400\"> " +
        coefficients + " </correlation>");
  };
  json const row = Compared(enthalpy("-350000 1000"), enthalpy("-349000 1000"))["correlations"][0];
  EXPECT_NEAR(row["greatest"], 2.0, 1e-9) << row;
  EXPECT_NEAR(row["mean"], 2.0, 1e-9);
  EXPECT_EQ(row["unit"], "kJ/kg-mol");
}

TEST_F(CompareTest, CorrelationsThatCannotBeCompared) {
  json const apart =
      Compared(Component(Line("200", "300", "1")), Component(Line("310", "400", "2")));
  EXPECT_EQ(apart["correlations_that_differ"], 0);
  EXPECT_EQ(apart["not_compared"][0]["why"], "no common range: 200 to 300 K, 310 to 400 K");
  json const open = Compared(Component(Line("", "", "1")), Component(Line("", "", "2")));
  EXPECT_EQ(open["not_compared"][0]["why"], "the records have no limits") << open;
  EXPECT_EQ(apart["not_compared"][0]["first_to"], 300.0);
  EXPECT_EQ(apart["not_compared"][0]["second_from"], 310.0);
  EXPECT_EQ(apart["units"]["not_compared"]["second_from"], "K");
  EXPECT_EQ(open["not_compared"][0]["first_from"], nullptr);
  // One limit is enough for both.
  json const half = Compared(Component(Line("", "", "1")), Component(Line("200", "300", "2")));
  EXPECT_EQ(half["correlations"][0]["greatest"], 100) << half;
}

TEST_F(CompareTest, CodesApartFromValues) {
  std::string const a = Component(Constant("TC", "500", "54") + Line("200", "300", "1", "", "3"));
  std::string const b = Component(Constant("TC", "500", "71") + Line("200", "300", "1", "", "4"));
  json const without = Compared(a, b);
  EXPECT_EQ(without["constants_that_differ"], 0);
  EXPECT_FALSE(without.contains("codes"));
  json const codes = Json("compare a.lb1 b.lb1 --codes")["codes"];
  ASSERT_EQ(codes.size(), 2U);
  EXPECT_EQ(Row(codes, "datum", "TC")["first"], 54);
  EXPECT_EQ(Row(codes, "datum", "TC")["second"], 71);
  EXPECT_EQ(Row(codes, "datum", "VaporPressure")["second"], 4);
}

TEST_F(CompareTest, DataOfOneSource) {
  std::string const a = Component(Constant("TC", "500") + Constant("PC", "4000"));
  json const report = Compared(a, Component(Constant("TC", "500") + Line("200", "300", "1")));
  EXPECT_EQ(report["only_in_the_first"], 1);
  EXPECT_EQ(report["only_in_the_second"], 1);
  json const rows = Json("compare a.lb1 b.lb1 --missing")["one_source_only"];
  EXPECT_EQ(Row(rows, "datum", "PC")["source"], "first");
  EXPECT_EQ(Row(rows, "datum", "VaporPressure")["source"], "second");
  EXPECT_EQ(rows.size(), 2U);
}

TEST_F(CompareTest, ComponentsAreFoundByNumberIdOrCasNumber) {
  std::string const value = Constant("TC", "500");
  std::string const water = " casNum=\"7732-18-5\"";
  json const report =
      Compared(Component(value, 1, "SAME") + Component(value, 2, "ID") +
                   Component(value, 3, "CAS", water) + Component(value, 4, "ALONE"),
               Component(value, 1, "OTHER") + Component(value, 22, "ID") +
                   Component(value, 33, "NOCAS", water) + Component(value, 5, "LONELY"));
  EXPECT_EQ(report["components_compared"], 3) << report;
  EXPECT_EQ(Json("compare a.lb1 b.lb1 --components CAS")["components_compared"], 1);
}

TEST_F(CompareTest, DifferentSubstancesAreNotCompared) {
  std::string const a = Component(Constant("TC", "500"), 7, "XXX", " casNum=\"7732-18-5\"");
  std::string const b = Component(Constant("TC", "600"), 7, "XXX", " casNum=\"64-17-5\"");
  json const report = Compared(a, b);
  EXPECT_EQ(report["components_compared"], 0);
  EXPECT_EQ(report["identities"].size(), 2U) << report;
  EXPECT_TRUE(report["identity_warning"].is_string());
  Outcome const named = Zel("compare a.lb1 b.lb1 --components XXX");
  EXPECT_EQ(named.status, 1);
  EXPECT_NE(named.err.find("--accept-identity"), std::string::npos) << named.err;
  json const accepted = Json("compare a.lb1 b.lb1 --components XXX --accept-identity");
  EXPECT_EQ(accepted["constants"][0]["deviation"], 20);
  EXPECT_EQ(accepted["identities"].size(), 2U);
}

// Rows with the ID would be of neither of the two.
TEST_F(CompareTest, AnIdWithTheCasNumberOfAnother) {
  std::string const water = " casNum=\"7732-18-5\"";
  std::string const a = Component(Constant("TC", "500"), 7, "ETHANOL", water);
  std::string const b = Component(Constant("TC", "510"), 7, "ETHANOL", " casNum=\"64-17-5\"") +
                        Component(Constant("TC", "640"), 8, "WATER", water);
  json const report = Compared(a, b);
  EXPECT_EQ(report["components_compared"], 0) << report;
  EXPECT_TRUE(report["identity_warning"].is_string());
  EXPECT_EQ(Zel("compare a.lb1 b.lb1 --components ETHANOL").status, 1);
}

TEST_F(CompareTest, PublishedSources) {
  json const report = Json("compare perry.lb1 crc.lb1:CRC --components ETHANOL water");
  EXPECT_EQ(report["components_compared"], 2);
  json const flash = Row(report["constants"], "constant", "AUTOIGNITION");
  EXPECT_EQ(flash["first"], 636.15);
  EXPECT_EQ(flash["second"], 673.15);
  // Each with itself.
  json const self = Json("compare perry.lb1 perry.lb1 --codes --missing");
  EXPECT_EQ(self["components_compared"], 340);
  EXPECT_GT(self["correlations_compared"], 3000);
  EXPECT_EQ(self["correlations_that_differ"], 0);
  EXPECT_EQ(self["constants"].size() + self["codes"].size() + self["one_source_only"].size(), 0U);
  EXPECT_EQ(Zel("compare perry.lb1 perry.lb1 --exit-code").status, 0);
  EXPECT_EQ(Zel("compare perry.lb1 crc.lb1 --exit-code").status, 1);
  EXPECT_EQ(Zel("compare perry.lb1 crc.lb1").status, 0);
}

TEST_F(CompareTest, CsvHasTheDifferences) {
  std::string const csv = Good("compare perry.lb1 crc.lb1 --components ETHANOL --csv");
  EXPECT_NE(csv.find("component,constant,first,second,unit,deviation [%]"), std::string::npos)
      << csv;
  EXPECT_NE(csv.find("ETHANOL,AUTOIGNITION,636.15,673.15,K,"), std::string::npos) << csv;
}

TEST_F(CompareTest, BadWords) {
  struct {
    char const* words;
    int status;
    char const* text;
  } const rows[] = {
      {"compare perry.lb1", 2, "SECOND is required"},
      {"compare perry.lb1 none.lb1", 1, "none.lb1: not found"},
      {"compare perry.lb1 sample.lb1", 1, "sample.lb1: no bank of pure components"},
      {"compare perry.lb1 crc.lb1:NONE", 1, "no bank PURECOMP:NONE"},
      {"compare perry.lb1 crc.lb1 --components ETHANLO", 1, "the nearest ID is ETHANOL"},
      {"compare perry.lb1 crc.lb1 --components AIR", 1, "component AIR is not in crc.lb1:CRC"},
      {"compare perry.lb1 crc.lb1 --tolerance much", 2, "\"much\" is not a tolerance such as 1%"},
      {"compare perry.lb1 crc.lb1 --tolerance=-1%", 2, "\"-1%\" is not a tolerance"},
      {"compare perry.lb1 crc.lb1 --tolerance %", 2, "\"%\" is not a tolerance"},
      {"compare perry.lb1 crc.lb1 --steps 0", 2, "--steps must be 1 to 100000"},
  };
  for (auto const& row : rows) {
    Outcome const outcome = Zel(row.words);
    EXPECT_EQ(outcome.status, row.status) << row.words << outcome.err;
    EXPECT_NE(outcome.err.find(row.text), std::string::npos) << row.words << "\n" << outcome.err;
  }
}

}  // namespace
}  // namespace zel::test

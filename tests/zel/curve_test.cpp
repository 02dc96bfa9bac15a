// Records of correlations that yield no value, or not the value that they seem to mean.
#include "tests/support/sanitizers.h"
#include "tests/zel/zel_fixture.h"

namespace zel::test {
namespace {

using nlohmann::json;

class CurveTest : public ZelTest {
 protected:
  // A library c.lb1 with component XXX.
  void Make(std::string const& name, std::string const& equation,
            std::string const& coefficients) const {
    MakeFile("c.xml",
             "<bank type=\"PURECOMP\" name=\"B\"><comp><id number=\"7\" name=\"X\"> XXX </id>"
             "<property name=\"TC\" value=\"500\" /><property name=\"PC\" value=\"5000\" />"
             "<property name=\"NBP\" value=\"350\" />"
             "<correlation name=\"" +
                 name + "\" equation=\"" + equation +
                 "\" tempUnit=\"k\" tMin=\"200\" tMax=\"450\"> " + coefficients +
                 " </correlation></comp></bank>");
    Good("create c.lb1 --force");
    Good("import c.lb1 c.xml --lenient");
  }
};

constexpr char kAt[] = " -l c.lb1 --at 300 600 ";

TEST_F(CurveTest, UnknownEquationIsAnError) {
  // The first value would be clipped to 1e-10 kPa, the last to 1e-10 outside the range.
  for (char const* name : {"VaporPressure", "IdealEnthalpy", "LiquidViscosity"}) {
    Make(name, "99", "1 2 3");
    for (std::string const form : {"", "--json", "--csv"}) {
      Outcome const outcome = Zel("eval XXX " + std::string(name) + kAt + form);
      EXPECT_EQ(outcome.status, 1) << name << outcome.out;
      if (form == "--json") {
        EXPECT_EQ(nlohmann::json::parse(outcome.out)["schema"], "zel/error");
      } else {
        EXPECT_EQ(outcome.out, "");
      }
      EXPECT_NE(
          outcome.err.find("component XXX, " + std::string(name) + ": equation 99 is not known"),
          std::string::npos)
          << outcome.err;
    }
    Outcome const plot = Zel("plot " + std::string(name) + " XXX -l c.lb1 -o p.svg");
    EXPECT_EQ(plot.status, 1);
    EXPECT_NE(plot.err.find("equation 99 is not known"), std::string::npos) << plot.err;
    EXPECT_FALSE(std::filesystem::exists(Folder() / "p.svg"));
  }
}

TEST_F(CurveTest, TooFewCoefficientsForAnyValueIsAnError) {
  Make("LiquidDensity", "16", "1.5 0.25");
  Outcome const outcome = Zel("eval XXX LiquidDensity" + std::string(kAt));
  EXPECT_EQ(outcome.status, 1) << outcome.out;
  EXPECT_NE(outcome.err.find("component XXX, LiquidDensity: equation 16 needs at least 4 "
                             "coefficients, but the record has 2"),
            std::string::npos)
      << outcome.err;
}

TEST_F(CurveTest, TooFewCoefficientsIsAWarning) {
  Make("VaporPressure", "21", "14 -2500");
  std::string const warning =
      "component XXX, VaporPressure: equation 21 needs at least 3 coefficients, but the record has "
      "2; missing ones count as 0";
  std::string const words = "eval XXX VaporPressure" + std::string(kAt);
  EXPECT_EQ(Json(words)["warning"], warning);
  EXPECT_TRUE(Json(words)["points"][0]["value"].is_number());
  EXPECT_NE(Good(words + " --csv").find(warning), std::string::npos);
  EXPECT_NE(Good(words).find("equation 21 needs at least 3"), std::string::npos);
  EXPECT_EQ(Json("plot VaporP XXX -l c.lb1 -o p.svg")["warning"], warning);
  EXPECT_NE(FileText(Folder() / "p.svg").find("Warning: component XXX, VaporPressure: equation 21"),
            std::string::npos);
}

// Above the critical temperature the Wagner form has no value.
TEST_F(CurveTest, NoValueAtAnyTemperature) {
  Make("IdealEnthalpy", "48", "-7 1 -2 -3");
  std::string const words = "eval XXX IdealEnthalpy -l c.lb1 --from 200 --to 450 --steps 1 ";
  EXPECT_EQ(Json(words)["points"][1]["range"], "inside");
  MakeFile("wide.xml", FileText(Folder() / "c.xml"));
  Good("create wide.lb1");
  Shell("sed -i 's/tMax=\"450\"/tMax=\"900\"/' wide.xml");
  Good("import wide.lb1 wide.xml");
  json const some = Json("eval XXX IdealEnthalpy -l wide.lb1 --at 300 600");
  EXPECT_TRUE(some["points"][0]["value"].is_number());
  EXPECT_TRUE(some["points"][1]["value"].is_null());
  EXPECT_EQ(some["points"][1]["range"], "no value");
  Outcome const none = Zel("eval XXX IdealEnthalpy -l wide.lb1 --at 600 700");
  EXPECT_EQ(none.status, 1) << none.out;
  EXPECT_NE(none.err.find("component XXX, IdealEnthalpy: equation 48 has no value at these "
                          "temperatures"),
            std::string::npos)
      << none.err;
}

// The equations that zel knows are those that yield a value.
TEST_F(CurveTest, KnownEquationsAreThoseThatGiveValues) {
  std::string const documented = FileText(ZEL_DOCS "/equations.md");
  constexpr int kStep =
      ZEL_ADDRESS_SANITIZER ? 7 : 1;  // the programs that are run are slow with it
  for (int equation = 1; equation <= 100; equation += kStep) {
    std::string const number = std::to_string(equation);
    bool const isKnown = documented.find("\n| " + number + " |") != std::string::npos;
    Make("IdealEnthalpy", number, "1 1 450 1 1 1 1 1 1 1 1 1 1 1 1");
    Outcome const outcome = Zel("eval XXX IdealEnthalpy -l c.lb1 --at 300");
    EXPECT_EQ(outcome.err.find("is not known") == std::string::npos, isKnown)
        << equation << outcome.err;
  }
}

// Of several, they are asked for; each is the number that the correlation alone has.
TEST_F(CurveTest, DerivativesOfSeveralCorrelations) {
  std::string const words =
      "eval ETHANOL VaporPressure -l perry.lb1 --at 25C 700K --components WATER ";
  EXPECT_EQ(Json(words)["points"][0].size(), 3U);
  EXPECT_EQ(Json(words + "--derivatives 0")["points"][0].size(), 3U);
  for (std::string const units : {"", " --units C,bar"}) {
    json const table = Json(words + "--derivatives 2" + units);
    EXPECT_EQ(table["points"][0].size(), 7U);
    for (std::string const id : {"ETHANOL", "WATER"}) {
      json const alone =
          Json("eval " + id + " VaporPressure -l perry.lb1 --at 25C --derivatives 2" + units);
      std::string const member = id == "WATER" ? "water_vaporpressure" : "ethanol_vaporpressure";
      EXPECT_EQ(table["points"][0][member], alone["points"][0]["value"]);
      for (std::string const derivative : {"d/dt", "d2/dt2"}) {
        json const& slope = alone["points"][0][derivative];
        ASSERT_TRUE(slope.is_number());
        EXPECT_EQ(table["points"][0][member + "_" + derivative], slope);
        EXPECT_EQ(table["units"]["points"][member + "_" + derivative],
                  alone["units"]["points"][derivative]);
        EXPECT_TRUE(table["points"][1][member + "_" + derivative].is_null()) << "out of range";
      }
    }
  }
}

TEST_F(CurveTest, BadNumbersOfDerivativesAreRefused) {
  for (std::string const several : {"", " --components WATER", " --correlations LatentHeat"}) {
    for (std::string const number : {"4", "7", "-1"}) {
      Outcome const outcome =
          Zel("eval ETHANOL VaporPressure -l perry.lb1 --at 25C --derivatives " + number + several);
      EXPECT_EQ(outcome.status, 2) << number << several;
      EXPECT_NE(outcome.err.find("--derivatives must be 0 to 3"), std::string::npos) << outcome.err;
    }
  }
}

}  // namespace
}  // namespace zel::test

// `zel points`: which kinds of values, phases and pressures are points, and what their
// uncertainties mean.
#include <chrono>
#include <cmath>
#include <nlohmann/json.hpp>

#include "tests/zel/thermoml_document.h"
#include "tests/zel/zel_fixture.h"

namespace zel::test {
namespace {

using nlohmann::json;

std::string Phases(std::vector<std::string> const& phases) {
  std::string text;
  for (std::string const& phase : phases) {
    text += "<PhaseID><ePhase>" + phase + "</ePhase></PhaseID>";
  }
  return text;
}

// The element with another one as its last child.
std::string Inside(std::string element, std::string const& more) {
  return element.insert(element.rfind("</"), more);
}

class ThermoMlKindsTest : public ZelTest {
 protected:
  json Points(std::string const& data) const {
    MakeFile("m.xml", Document(data));
    return Json("points m.xml");
  }
  // Why the only property of a set is passed over; empty if it is a set of points.
  std::string Why(std::string const& data) const {
    json const report = Points(data);
    bool const isTaken = !report["sets"].empty();
    bool const isPassed = report.contains("passed_over");
    EXPECT_NE(isTaken, isPassed) << report;
    return isPassed ? report["passed_over"][0]["why"].get<std::string>() : "";
  }
};

TEST_F(ThermoMlKindsTest, OnlyDirectValuesAreValues) {
  std::string const density = Property("Mass density, kg/m3", "Liquid");
  auto const presented = [&](std::string const& how) {
    return Data(kComponent + Inside(density, "<ePresentation>" + how + "</ePresentation>") +
                kTemperature + Value("298.15", "1.002", "0"));
  };
  EXPECT_EQ(Why(presented("Direct value, X")), "");
  for (char const* how :
       {"Ratio with the reference state, X/X(REF)", "Difference with the reference state, X-X(REF)",
        "Difference between upper and lower temperature, X(T2)-X(T1)", "Direct value"}) {
    EXPECT_EQ(Why(presented(how)), "presented as: " + std::string(how));
  }
}

// A gas at 50 MPa is not at saturation, whatever else is there.
TEST_F(ThermoMlKindsTest, TheLimitOfThePressureHoldsForGases) {
  auto const viscosity = [](char const* phase, std::vector<std::string> const& phases,
                            char const* kilopascal) {
    return Data(kComponent + Property("Viscosity, Pa*s", phase) + Phases(phases) + kTemperature +
                Pressure(kilopascal) + Value("650", "7E-5", "0"));
  };
  EXPECT_EQ(Why(viscosity("Gas", {"Gas"}, "50000")), "above 150 kPa");
  EXPECT_EQ(Why(viscosity("Gas", {"Liquid", "Gas"}, "5000")), "above 150 kPa");
  EXPECT_EQ(Why(viscosity("Gas", {"Gas"}, "100")), "");
  EXPECT_EQ(Why(viscosity("Liquid", {"Gas"}, "5000")), "above 150 kPa");
  EXPECT_EQ(Why(viscosity("Liquid", {"Liquid"}, "5000")), "above 150 kPa");
  EXPECT_EQ(Why(viscosity("Liquid", {"Liquid", "Gas"}, "5000")), "");
}

TEST_F(ThermoMlKindsTest, PhasesAreTheirWholeNames) {
  std::string const none = "no correlation of this property in this phase";
  auto const density = [](char const* phase) {
    return Data(kComponent + Property("Mass density, kg/m3", phase) + kTemperature +
                Value("250", "900", "0"));
  };
  for (char const* phase : {"Liquid", "Crystal", "Crystal 1", "Crystal 5"}) {
    EXPECT_EQ(Why(density(phase)), "") << phase;
  }
  for (char const* phase :
       {"Liquid crystal of unknown type", "Liquid mixture 1", "Crystal of unknown type",
        "Crystal 6", "Crystal 12", "Metastable crystal", "Glass", "Gas", ""}) {
    EXPECT_EQ(Why(density(phase)), none) << phase;
  }
}

TEST_F(ThermoMlKindsTest, VaporPressuresAreOfLiquids) {
  auto const pressure = [](std::vector<std::string> const& phases) {
    return Data(kComponent + Property("Vapor or sublimation pressure, kPa", "Gas") +
                Phases(phases) + kTemperature + Value("250", "0.1", "0"));
  };
  EXPECT_EQ(Why(pressure({"Liquid", "Gas"})), "");
  EXPECT_EQ(Why(pressure({"Gas", "Crystal 2"})), "of a solid");
  for (char const* phase :
       {"Metastable crystal", "Glass", "Liquid crystal of unknown type", "Fluid (supercritical)"}) {
    EXPECT_EQ(Why(pressure({"Gas", phase})), "of the phase " + std::string(phase));
  }
}

// An expanded uncertainty of 6 and what it is divided by.
TEST_F(ThermoMlKindsTest, CoverageFactorsAreThoseOfTheAssessment) {
  auto const uncertainty = [&](std::string const& stated, std::string const& number) {
    std::string property = Property("Mass density, kg/m3", "Liquid");
    std::size_t const at = property.find("<CombinedUncertainty>");
    property.erase(at, property.find("</Property>") - at);
    std::string value = Value("298.15", "997", "6");
    value.replace(value.find("AssessNum>1<"), 12, "AssessNum>" + number + "<");
    MakeFile("m.xml", Document(Data(kComponent + Inside(property, stated) + kTemperature + value)));
    json const report = Json("points m.xml --to LiquidDensity");
    json const shown = report["points"][0]["uncertainty"];
    return shown.is_null() ? 0.0 : shown.get<double>() * 18.01528;
  };
  auto const assessment = [](char const* number, std::string const& more) {
    return std::string("<CombinedUncertainty><nCombUncertAssessNum>") + number +
           "</nCombUncertAssessNum>" + more + "</CombinedUncertainty>";
  };
  auto const factor = [](char const* k) {
    return std::string("<nCombCoverageFactor>") + k + "</nCombCoverageFactor>";
  };
  auto const level = [](char const* percent) {
    return std::string("<nCombUncertLevOfConfid>") + percent + "</nCombUncertLevOfConfid>";
  };
  struct {
    std::string stated;
    char const* number;
    double k;
  } const rows[] = {
      {assessment("1", factor("3") + level("95")), "1", 3.0},
      {assessment("1", level("95")) + assessment("2", factor("1.5")), "2", 1.5},
      {assessment("1", factor("4")) + assessment("2", level("68")), "2", 1.0},
      {assessment("1", level("99.7")), "1", 3.0},
      {assessment("1", level("99")), "1", 2.576},
      {assessment("1", level("90")), "1", 1.645},
      {assessment("1", level("80")), "1", 1.28155},
      {assessment("1", level("99.9")), "1", 3.29053},
      {assessment("1", ""), "1", 2.0},
      {assessment("1", factor("3")), "7", 3.0},
      {"", "1", 2.0},
  };
  for (auto const& row : rows) {
    EXPECT_NEAR(uncertainty(row.stated, row.number), 6.0 / row.k, 1e-3) << row.stated;
  }
  // Not a level: the uncertainty is not known.
  EXPECT_EQ(uncertainty(assessment("1", level("0.95")), "1"), 0.0);
  for (char const* wrong : {"0", "-2", "x"}) {
    MakeFile("m.xml", Document(Data(kComponent +
                                    Inside(Property("Mass density, kg/m3", "Liquid"),
                                           assessment("1", factor(wrong))) +
                                    kTemperature + Value("298.15", "997", "6"))));
    Outcome const outcome = Zel("points m.xml");
    EXPECT_EQ(outcome.status, 1) << wrong;
    EXPECT_NE(outcome.err.find("nCombCoverageFactor: "), std::string::npos) << outcome.err;
  }
}

std::string Numbered(char const* number) {
  std::string property = Property("Mass density, kg/m3", "Liquid");
  return property.replace(property.find(">1<"), 3, std::string(">") + number + "<");
}

TEST_F(ThermoMlKindsTest, ValuesBelongToOnePropertyOnce) {
  MakeFile("m.xml", Document(Data(kComponent + Numbered("1") + Numbered("1") + kTemperature +
                                  Value("298.15", "997", "1"))));
  Outcome const outcome = Zel("points m.xml");
  EXPECT_EQ(outcome.status, 1);
  EXPECT_NE(outcome.err.find("Property: nPropNumber \"1\" is there twice"), std::string::npos)
      << outcome.err;
  std::string const more =
      "<PropertyValue><nPropNumber>1</nPropNumber><nPropValue>900</nPropValue></PropertyValue>";
  json const report = Points(
      Data(kComponent + Numbered("1") + kTemperature + Inside(Value("298.15", "997", "1"), more)));
  EXPECT_EQ(report["sets"][0]["points"], 1);
  EXPECT_EQ(report["passed_over"][0]["why"], "a second value at the same conditions");
}

// The time grows with the document, not with properties times values.
TEST_F(ThermoMlKindsTest, ManyPropertiesTakeLittleTime) {
  auto const seconds = [&](int count) {
    std::string text;
    std::string values;
    for (int i = 0; i < count; ++i) {
      text += "<Property><nPropNumber>" + std::to_string(i) + "</nPropNumber></Property>";
      values +=
          "<NumValues><PropertyValue><nPropNumber>0</nPropNumber></PropertyValue></NumValues>";
    }
    MakeFile("m.xml", Document(Data(kComponent + text + kTemperature + values)));
    auto const begin = std::chrono::steady_clock::now();
    EXPECT_EQ(Json("points m.xml")["passed_over"][0]["points"], count);
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
  };
  double const small = seconds(5000);
  EXPECT_LT(seconds(40000), 24.0 * small + 1.0);
}

}  // namespace
}  // namespace zel::test

// import --format chemsep: units and ranges that are missing or per mass, and enthalpies.
#include <cmath>

#include "tests/zel/zel_fixture.h"

namespace zel::test {
namespace {

using nlohmann::json;

class ChemsepUnitsTest : public ZelTest {
 protected:
  json Imported(std::string const& elements) const {
    MakeFile("in.xml", "<compounds><compound><CompoundID value='Inventol'/>" + elements +
                           "</compound></compounds>");
    return Json("import --format chemsep own.lb1 in.xml --create");
  }
  json Datum(json const& done, std::string const& tag) const {
    return Row(done["data"], "tag", tag);
  }
  double Value(std::string const& correlation, std::string const& at = "300K") const {
    json const shown = Json("eval INVENTOL " + correlation + " -l own.lb1 --at " + at);
    json const value = shown["points"][0]["value"];
    return value.is_number() ? value.get<double>() : NAN;
  }
  bool Has(std::string const& correlation) const {
    json const shown = Json("show own.lb1 CHEMSEP INVENTOL");
    return !Row(shown["correlations"], "name", correlation).is_null();
  }
};

// Divided or multiplied by 46.069 kg/kmol, by hand.
TEST_F(ChemsepUnitsTest, ValuesPerMassAreKeptPerMass) {
  json const done = Imported(
      "<MolecularWeight units='kg/kmol' value='46.069'/>"
      "<LiquidDensity units='kg/m3'><eqno value='1'/><A value='789'/></LiquidDensity>"
      "<SolidDensity units='g/cm3'><eqno value='1'/><A value='1.2'/></SolidDensity>"
      "<LiquidHeatCapacityCp units='J/kg/K'><eqno value='1'/><A value='2400'/>"
      "</LiquidHeatCapacityCp>"
      "<HeatOfVaporization units='kJ/kg'><eqno value='1'/><A value='840'/></HeatOfVaporization>"
      "<IdealGasHeatCapacityCp units='J/kg/K'><eqno value='2'/><A value='1500'/><B value='2'/>"
      "</IdealGasHeatCapacityCp>");
  struct {
    char const* tag;
    char const* correlation;
    double expected;
  } const rows[] = {
      {"LiquidDensity", "LiquidDensity", 789 / 46.069},
      {"SolidDensity", "SolidDensity", 1200 / 46.069},
      {"LiquidHeatCapacityCp", "LiquidCp", 2.4 * 46.069},
      {"HeatOfVaporization", "LatentHeat", 840 * 46.069},
      {"IdealGasHeatCapacityCp", "IdealGasCp", 2.1 * 46.069},
      // 1.5 (T - 298.15) + 0.001 (T^2 - 298.15^2) kJ/kg
      {"IdealGasHeatCapacityCp", "IdealEnthalpy",
       (1.5 * 1.85 + 0.001 * (90000 - 298.15 * 298.15)) * 46.069},
  };
  for (auto const& row : rows) {
    EXPECT_EQ(Datum(done, row.tag)["result"], "taken") << row.tag << Datum(done, row.tag)["what"];
    EXPECT_NEAR(Value(row.correlation), row.expected, 2e-4 * std::abs(row.expected))
        << row.correlation;
  }
}

TEST_F(ChemsepUnitsTest, ValuesPerMassNeedTheMolecularWeight) {
  json const done = Imported(
      "<LiquidDensity units='kg/m3'><eqno value='1'/><A value='789'/></LiquidDensity>"
      "<SolidDensity units='kmol/m3'><eqno value='1'/><A value='20'/></SolidDensity>");
  EXPECT_EQ(Datum(done, "LiquidDensity")["result"], "no place");
  EXPECT_EQ(Datum(done, "LiquidDensity")["what"],
            "values per mass need MW, which the component does not have");
  EXPECT_FALSE(Has("LiquidDensity"));
  EXPECT_NEAR(Value("SolidDensity"), 20.0, 1e-6);
}

TEST_F(ChemsepUnitsTest, DataWithoutTheirUnitHaveNoPlace) {
  json const done = Imported(
      "<CriticalTemperature value='514'/><CriticalPressure units='_' value='6.1E+06'/>"
      "<CriticalVolume units='' value='0.168'/><HeatOfFormation value='-2.35E+08'/>"
      "<VaporPressure><eqno value='101'/><A value='73.3'/></VaporPressure>"
      "<LiquidDensity units='_'><eqno value='1'/><A value='17'/></LiquidDensity>"
      "<MolecularWeight value='46.069'/><AcentricityFactor value='0.64'/>"
      "<RelativeStaticPermittivity><eqno value='1'/><A value='24'/>"
      "</RelativeStaticPermittivity>");
  for (char const* tag : {"CriticalTemperature", "CriticalPressure", "CriticalVolume",
                          "HeatOfFormation", "VaporPressure", "LiquidDensity"}) {
    EXPECT_EQ(Datum(done, tag)["result"], "no place") << tag;
    EXPECT_EQ(Datum(done, tag)["what"], "the file does not name its unit") << tag;
  }
  for (char const* tag : {"MolecularWeight", "AcentricityFactor", "RelativeStaticPermittivity"}) {
    EXPECT_EQ(Datum(done, tag)["result"], "taken") << tag;
  }
  json const shown = Json("show own.lb1 CHEMSEP INVENTOL");
  EXPECT_EQ(shown["constants"].size(), 2U) << shown["constants"];
  EXPECT_EQ(shown["correlations"].size(), 1U);
}

std::string Heat(char const* equation, std::string const& coefficients) {
  return std::string("<IdealGasHeatCapacityCp units='J/kmol/K'><eqno value='") + equation + "'/>" +
         coefficients + "</IdealGasHeatCapacityCp>";
}

// A heat capacity that is refused gives no enthalpy either.
TEST_F(ChemsepUnitsTest, ARejectedHeatCapacityIsNotIntegrated) {
  struct {
    char const* equation;
    char const* coefficients;
    char const* why;
  } const rows[] = {
      {"2", "<A value='30000'/><B value='10'/><D value='1'/>",
       "equation 2 does not have the coefficient D"},
      {"1", "<A value='30000'/><B value='10'/>", "equation 1 does not have the coefficient B"},
      {"100", "<A value='30000'/><F value='1E-12'/>",
       "equation 100 does not have the coefficient F"},
      {"107", "<A value='33363'/><B value='1'/><C value='1'/><F value='2'/><G value='1'/>",
       "equation 107 does not have the coefficient F, G"},
  };
  for (auto const& row : rows) {
    json const done = Imported(Heat(row.equation, row.coefficients));
    EXPECT_EQ(Datum(done, "IdealGasHeatCapacityCp")["result"], "no place") << row.equation;
    EXPECT_EQ(Datum(done, "IdealGasHeatCapacityCp")["what"], row.why);
    EXPECT_FALSE(Has("IdealEnthalpy")) << row.equation;
  }
}

std::string Density(std::string const& limits) {
  return "<LiquidDensity units='kmol/m3'><eqno value='2'/><A value='20'/><B value='-0.01'/>" +
         limits + "</LiquidDensity>";
}

// Both limits 0: the range is not known.
TEST_F(ChemsepUnitsTest, LimitsOfZeroAreNoRange) {
  json const done = Imported(Density("<Tmin units='K' value='0'/><Tmax units='K' value='0.00'/>"));
  EXPECT_EQ(Datum(done, "LiquidDensity")["result"], "converted");
  EXPECT_EQ(Datum(done, "LiquidDensity")["what"],
            "equation 2 is 1; Tmin and Tmax are 0, which is no range");
  EXPECT_NEAR(Value("LiquidDensity"), 17.0, 1e-6);
  json const shown = Json("show own.lb1 CHEMSEP INVENTOL");
  json const record = Row(shown["correlations"], "name", "LiquidDensity");
  EXPECT_TRUE(record["from_t"].is_null()) << record;
  EXPECT_TRUE(record["to_t"].is_null()) << record;
}

TEST_F(ChemsepUnitsTest, ARangeThatIsNotOneIsRefused) {
  struct {
    char const* limits;
    char const* why;
  } const rows[] = {
      {"<Tmin value='300'/><Tmax value='300'/>", "the range 300 to 300 K is one temperature"},
      {"<Tmin value='300'/><Tmax value='0'/>", "the range 300 to 0 K ends before it begins"},
  };
  for (auto const& row : rows) {
    MakeFile("in.xml", "<compounds><compound><CompoundID value='Inventol'/>" + Density(row.limits) +
                           "</compound></compounds>");
    Outcome const outcome = Zel("import --format chemsep own.lb1 in.xml --create --json");
    EXPECT_EQ(outcome.status, 1) << row.why;
    EXPECT_EQ(Datum(json::parse(outcome.out), "LiquidDensity")["what"], row.why);
  }
  EXPECT_EQ(
      Datum(Imported(Density("<Tmin value='0'/><Tmax value='400'/>")), "LiquidDensity")["result"],
      "taken");
}

// With what is refused, its integral is, too.
TEST_F(ChemsepUnitsTest, AnIntegralIsNotKeptAlone) {
  MakeFile("in.xml",
           "<compounds><compound><CompoundID value='Inventol'/>"
           "<IdealGasHeatCapacityCp units='kPa/K/K'><eqno value='1'/><A value='3'/>"
           "</IdealGasHeatCapacityCp><LiquidDensity units='Pa'><eqno value='1'/><A value='3'/>"
           "</LiquidDensity></compound></compounds>");
  json const done =
      json::parse(Zel("import --format chemsep own.lb1 in.xml --create --skip-bad --json").out);
  for (char const* tag : {"IdealGasHeatCapacityCp", "LiquidDensity"}) {
    EXPECT_EQ(Datum(done, tag)["result"], "refused") << tag;
    EXPECT_NE(Datum(done, tag)["what"].get<std::string>().find("is not a unit of"),
              std::string::npos)
        << Datum(done, tag)["what"];
  }
  EXPECT_TRUE(Json("show own.lb1 CHEMSEP INVENTOL")["correlations"].empty());
}

// An ampersand is one in a value, too.
TEST_F(ChemsepUnitsTest, AttributesHaveTheirLetters) {
  MakeFile("in.xml",
           "<compounds><compound><CompoundID value='A &amp; &#66; &quot;C&quot; &lt;'/>"
           "</compound></compounds>");
  json const done = Json("import --format chemsep own.lb1 in.xml --create");
  EXPECT_EQ(Row(done["data"], "tag", "CompoundID")["what"], "is \"A ? B ?C? ?\"");
}

}  // namespace
}  // namespace zel::test

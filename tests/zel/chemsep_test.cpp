// import --format chemsep: what is taken, converted, without place and refused.
#include <cmath>

#include "tests/zel/zel_fixture.h"

namespace zel::test {
namespace {

using nlohmann::json;

// The substance is invented.
constexpr char kOne[] = R"(<?xml version="1.0" encoding="UTF-8"?>
<compounds>
 <compound>
  <LibraryIndex name="Index" value="7001"/>
  <CompoundID name="Name" value="Inventol"/>
  <CAS name="CAS number" value="64-17-5"/>
  <StructureFormula value="CH3CH2OH"/>
  <Smiles value="CCO"/>
  <MolecularWeight units="kg/kmol" value="46.069"/>
  <CriticalTemperature name="Tc" units="K" value="510"/>
  <CriticalPressure units="Pa" value="6.1E+06"/>
  <CriticalVolume units="m3/kmol" value="0.168"/>
  <AcentricityFactor units="_" value="0.64"/>
  <DipoleMoment units="Coulomb.m" value="3.33564095E-30"/>
  <SolubilityParameter units="J0.5/m1.5" value="20454.82828"/>
  <Parachor units="kg0.25.m3/s0.5/kmol" value="0.02"/>
  <HeatOfFormation units="J/kmol" value="-2.35E+08"/>
  <AbsEntropy units="J/kmol/K" value="280640"/>
  <UnifacVLE name="groups"><group id="1" value="1"/></UnifacVLE>
  <VaporPressure units="Pa"><eqno value="101"/><A value="73.3"/><B value="-7100"/><C value="-7.1"/>
   <D value="2.9E-06"/><E value="2"/><Tmin units="K" value="160"/><Tmax units="K" value="510"/></VaporPressure>
  <AntoineVaporPressure units="Pa"><eqno value="10"/><A value="23.5"/><B value="3795"/><C value="-42"/></AntoineVaporPressure>
  <HeatOfVaporization units="J/kmol"><eqno value="106"/><A value="5.5E+07"/><B value="0.31"/>
   <Tmin units="K" value="160"/><Tmax units="K" value="510"/></HeatOfVaporization>
  <LiquidDensity units="kmol/m3"><eqno value="105"/><A value="1.6"/><B value="0.27"/><C value="510"/>
   <D value="0.23"/><Tmin units="K" value="160"/><Tmax units="K" value="510"/></LiquidDensity>
  <IdealGasHeatCapacityCp units="J/kmol/K"><eqno value="16"/><A value="33000"/><B value="-700"/><C value="11.2"/></IdealGasHeatCapacityCp>
  <RPPHeatCapacityCp units="J/kmol/K"><eqno value="4"/><A value="9000"/><B value="214"/><C value="-0.084"/>
   <D value="1.4E-06"/><Tmin units="K" value="298"/><Tmax units="K" value="1000"/></RPPHeatCapacityCp>
  <SecondVirialCoefficient units="m3/kmol"><eqno value="104"/><A value="0.3"/></SecondVirialCoefficient>
  <LiquidViscosity units="Pa.s"><eqno value="101"/><A value="7.9"/><B value="780"/><C value="-3.04"/>
   <Tmin units="K" value="200"/><Tmax units="K" value="440"/></LiquidViscosity>
  <VaporThermalConductivity units="W/m/K"><eqno value="102"/><A value="0.0006"/><B value="0.79"/><C value="300"/></VaporThermalConductivity>
  <SurfaceTension units="N/m"><eqno value="100"/><A value="0.05"/><B value="-9E-05"/></SurfaceTension>
 </compound>
</compounds>
)";

class ChemsepTest : public ZelTest {
 protected:
  Outcome Import(std::string const& text, std::string const& options = "") const {
    MakeFile("in.xml", text);
    return Zel("import --format chemsep own.lb1 in.xml --create --json " + options);
  }
  json Imported(std::string const& text, std::string const& options = "") const {
    Outcome const outcome = Import(text, options);
    EXPECT_EQ(outcome.status, 0) << outcome.err << outcome.out;
    return json::parse(outcome.out, nullptr, false);
  }
  // The file is refused as a whole, and there is no library.
  void Refuses(std::string const& text, std::string const& why) const {
    Contents const before = ContentsOf(Folder());
    Outcome const outcome = Import(text);
    EXPECT_EQ(outcome.status, 1) << outcome.out;
    EXPECT_NE(outcome.err.find(why), std::string::npos) << outcome.err;
    std::filesystem::remove(Folder() / "in.xml");
    Contents after = ContentsOf(Folder());
    Contents expected = before;
    expected.erase("in.xml");
    EXPECT_TRUE(after == expected) << why << " changed something";
  }
  static std::string With(std::string const& elements) {
    return "<compounds>\n<compound>\n<CompoundID value='Inventol'/>\n<CAS value='64-17-5'/>\n" +
           elements + "</compound></compounds>";
  }
};

TEST_F(ChemsepTest, TakesConvertsAndReportsEachDatum) {
  json const done = Imported(kOne);
  EXPECT_EQ(done["bank"], "PURECOMP:CHEMSEP");
  EXPECT_EQ(done["format"], "chemsep");
  EXPECT_EQ(done["read"], 1);
  EXPECT_EQ(done["new"], 1);
  EXPECT_EQ(done["refused_data"], 0);
  struct {
    char const* tag;
    char const* result;
    json datum;
    json what;
  } const rows[] = {
      {"LibraryIndex", "no place", nullptr, "a component has no such datum"},
      {"CompoundID", "taken", "name", nullptr},
      {"CAS", "taken", "CAS number", nullptr},
      {"StructureFormula", "converted", "formula", "CH3CH2OH is C2H6O"},
      {"Smiles", "taken", "SMILES", nullptr},
      {"MolecularWeight", "taken", "MW", nullptr},
      {"CriticalTemperature", "taken", "TC", nullptr},
      {"CriticalPressure", "converted", "PC", "6.1E+06 Pa is 6100 kPa"},
      {"CriticalVolume", "taken", "VC", nullptr},
      {"AcentricityFactor", "taken", "ACENTRIC", nullptr},
      {"DipoleMoment", "converted", "DIPOLE", "3.33564095E-30 Coulomb.m is 1 debye"},
      {"SolubilityParameter", "converted", "SOLUPARA", "20454.82828 J0.5/m1.5 is 10 (cal/cm3)^0.5"},
      {"Parachor", "converted", "PARACHOR", "0.02 kg0.25.m3/s0.5/kmol is 112.4683"},
      {"HeatOfFormation", "converted", "HFORMATION", "-2.35E+08 J/kmol is -235000 kJ/kg-mol"},
      {"AbsEntropy", "no place", nullptr, "a component has no such datum"},
      {"UnifacVLE", "no place", nullptr, "a component has no such datum"},
      {"VaporPressure", "taken", "VaporPressure", "equation 101 is 20"},
      {"AntoineVaporPressure", "no place", "VaporPressure",
       "a component has one record of VaporPressure"},
      {"HeatOfVaporization", "taken", "LatentHeat", "equation 106 is 15"},
      {"LiquidDensity", "taken", "LiquidDensity", "equation 105 is 16"},
      {"IdealGasHeatCapacityCp", "no place", "IdealGasCp",
       "equation 16 has no form here unless A is 0"},
      {"RPPHeatCapacityCp", "taken", "IdealGasCp",
       "equation 4 is 1; its integral is the IdealEnthalpy"},
      {"SecondVirialCoefficient", "no place", nullptr, "a component has no such datum"},
      {"LiquidViscosity", "taken", "LiquidViscosity", "equation 101 is 20"},
      {"VaporThermalConductivity", "taken", "VaporThermal", "equation 102 is 19"},
      {"SurfaceTension", "taken", "SurfaceTension", "equation 100 is 1"},
  };
  for (auto const& row : rows) {
    json const found = Row(done["data"], "tag", row.tag);
    ASSERT_FALSE(found.is_null()) << row.tag;
    EXPECT_EQ(found["result"], row.result) << row.tag << " " << found["what"];
    EXPECT_EQ(found["datum"], row.datum) << row.tag;
    EXPECT_EQ(found["what"], row.what) << row.tag;
    EXPECT_EQ(found["component"], "Inventol");
  }
  EXPECT_EQ(done["data"].size(), std::size(rows));
  EXPECT_EQ(done["taken"].get<int>() + done["converted"].get<int>() + done["no_place"].get<int>(),
            static_cast<int>(std::size(rows)));
  EXPECT_EQ(Row(done["data"], "tag", "MolecularWeight")["line"], 9);
}

// The values are those of the file's formulas, in internal units.
TEST_F(ChemsepTest, CorrelationsHaveTheValuesOfTheFile) {
  Imported(kOne);
  auto const value = [&](std::string const& correlation) {
    json const shown = Json("eval INVENTOL " + correlation + " -l own.lb1 --at 320K");
    return shown["points"][0]["value"].get<double>();
  };
  double const t = 320.0;
  struct {
    char const* correlation;
    double expected;
  } const rows[] = {
      {"VaporPressure", 1e-3 * std::exp(73.3 - 7100 / t - 7.1 * std::log(t) + 2.9e-6 * t * t)},
      {"LatentHeat", 1e-3 * 5.5e7 * std::pow(1 - t / 510, 0.31)},
      {"LiquidDensity", 1.6 / std::pow(0.27, 1 + std::pow(1 - t / 510, 0.23))},
      {"IdealGasCp", 1e-3 * (9000 + 214 * t - 0.084 * t * t + 1.4e-6 * t * t * t)},
      {"LiquidViscosity", 1e3 * std::exp(7.9 + 780 / t - 3.04 * std::log(t))},
      {"VaporThermal", 0.0006 * std::pow(t, 0.79) / (1 + 300 / t)},
      {"SurfaceTension", 0.05 - 9e-5 * t},
  };
  for (auto const& row : rows) {
    EXPECT_NEAR(value(row.correlation), row.expected, 1e-12 * row.expected) << row.correlation;
  }
}

TEST_F(ChemsepTest, KeepsTheSourceAsReference) {
  Imported(kOne);
  json const refs = Json("refs own.lb1");
  ASSERT_EQ(refs["references"].size(), 1U);
  json const& only = refs["references"][0];
  EXPECT_EQ(only["code"], 1);
  EXPECT_EQ(only["citation"], "in.xml, the XML of pure components that several simulators share");
  // The component, nine constants and eight correlations.
  EXPECT_EQ(only["data"], 18);
}

TEST_F(ChemsepTest, AgainChangesNothing) {
  Imported(kOne);
  Contents const before = ContentsOf(Folder());
  json const again = Imported(kOne);
  EXPECT_EQ(again["the_same"], 1);
  EXPECT_EQ(again["code"], 1);
  EXPECT_TRUE(ContentsOf(Folder()) == before);
}

TEST_F(ChemsepTest, TakesTheCodeThatIsGivenOrTheNextFreeOne) {
  EXPECT_EQ(Imported(kOne, "--code 77")["code"], 77);
  MakeFile("other.xml", With("<MolecularWeight value='46'/>"));
  json const other = Json("import --format chemsep own.lb1 other.xml");
  EXPECT_EQ(other["code"], 78);
  EXPECT_EQ(Json("refs own.lb1")["references"].size(), 2U);
}

// Everything else of an existing component stays.
TEST_F(ChemsepTest, AddsToAComponentThatTheBankHas) {
  json const done = Json("import --format chemsep perry.lb1 " + [&] {
    MakeFile("in.xml", With("<DipoleMoment units='C.m' value='1e-29'/>"));
    return std::string("in.xml");
  }());
  EXPECT_EQ(done["bank"], "PURECOMP:PERRY");
  EXPECT_EQ(done["changed"], 1);
  EXPECT_EQ(done["new"], 0);
  json const shown = Json("show perry.lb1 PERRY ETHANOL");
  EXPECT_NEAR(Row(shown["constants"], "keyword", "DIPOLE")["value"].get<double>(), 2.997925, 1e-6);
  EXPECT_EQ(Row(shown["constants"], "keyword", "MW")["code"],
            Row(Json("show perry.lb1 PERRY WATER")["constants"], "keyword", "MW")["code"]);
}

TEST_F(ChemsepTest, NewComponentsGetAnIdThatIsFree) {
  json const done = Imported(
      "<compounds><compound><CompoundID value='2-Inventanol-1'/></compound>"
      "<compound><CompoundID value='2-Inventanol-2'/></compound>"
      "<compound><CompoundID value='1234'/><CAS value='7732-18-5'/></compound></compounds>",
      "--bank PURECOMP:MINE");
  EXPECT_EQ(done["new"], 3);
  for (char const* id : {"2INVENTA", "2INVENT2", "C1234"}) {
    EXPECT_EQ(Zel("show own.lb1 MINE " + std::string(id)).status, 0) << id;
  }
}

TEST_F(ChemsepTest, NumbersAndIdsAreThoseOfTheNamesLibrary) {
  MakeFile("in.xml", With("<MolecularWeight value='46'/>"));
  Good("import --format chemsep own.lb1 in.xml --create --names perry.lb1");
  json const shown = Json("show own.lb1 CHEMSEP ETHANOL");
  EXPECT_EQ(shown["number"], Json("show perry.lb1 PERRY ETHANOL")["number"]);
}

TEST_F(ChemsepTest, TextsBecomeWhatALibraryCanHold) {
  json const done = Imported(
      "<compounds><compound><CompoundID value='Benzo[a]pyr\xC3\xA8ne'/>"
      "<StructureFormula value='C6H4(OH)2'/><Smiles value='c1cc[nH]c1'/></compound></compounds>");
  EXPECT_EQ(done["components"][0]["component"], "Benzo(a)pyr?ne");
  EXPECT_EQ(Row(done["data"], "tag", "CompoundID")["result"], "converted");
  EXPECT_EQ(Row(done["data"], "tag", "StructureFormula")["result"], "no place");
  EXPECT_EQ(Row(done["data"], "tag", "Smiles")["result"], "no place");
}

TEST_F(ChemsepTest, AFormThatNeedsTcHasNoPlaceWithoutIt) {
  json const done = Imported(
      With("<HeatOfVaporization units='J/kmol'><eqno value='106'/><A value='5E7'/><B value='0.3'/>"
           "</HeatOfVaporization>"));
  json const row = Row(done["data"], "tag", "HeatOfVaporization");
  EXPECT_EQ(row["result"], "no place");
  EXPECT_EQ(row["what"], "its form needs TC, which the component does not have");
  EXPECT_EQ(Row(Json("show own.lb1 CHEMSEP INVENTOL")["correlations"], "name", "LatentHeat"),
            nullptr);
}

TEST_F(ChemsepTest, HeatCapacitiesOfAlyAndLeeBecomeTheEnthalpy) {
  json const done = Imported(
      With("<IdealGasHeatCapacityCp units='J/kmol/K'><eqno value='107'/><A value='33363'/>"
           "<B value='26790'/><C value='2610.5'/><D value='8896'/><E value='1169'/>"
           "<Tmin units='K' value='200'/><Tmax units='K' value='1500'/></IdealGasHeatCapacityCp>"));
  json const row = Row(done["data"], "tag", "IdealGasHeatCapacityCp");
  EXPECT_EQ(row["result"], "converted");
  EXPECT_EQ(row["datum"], "IdealEnthalpy");
  json const at = Json("eval INVENTOL IdealEnthalpy -l own.lb1 --at 298.15K 800K");
  EXPECT_NEAR(at["points"][0]["value"].get<double>(), 0.0, 0.01);
  // By Simpson's rule from the formula.
  auto const cp = [](double t) {
    double const s = 2610.5 / t;
    double const h = 1169 / t;
    return 33.363 + 26.790 * std::pow(s / std::sinh(s), 2) + 8.896 * std::pow(h / std::cosh(h), 2);
  };
  double sum = 0.0;
  int const steps = 1000;
  double const step = (800.0 - 298.15) / steps;
  for (int i = 0; i < steps; ++i) {
    double const t = 298.15 + i * step;
    sum += step / 6 * (cp(t) + 4 * cp(t + step / 2) + cp(t + step));
  }
  EXPECT_NEAR(at["points"][1]["value"].get<double>(), sum, 0.01);
}

// Each is refused with its tag, and nothing is imported unless --skip-bad is given.
TEST_F(ChemsepTest, WrongDataAreRefused) {
  struct {
    char const* element;
    char const* why;
  } const rows[] = {
      {"<CriticalTemperature units='K' value='51x'/>", "\"51x\" is not a value of TC"},
      {"<CriticalTemperature units='K' value='NaN'/>", "\"NaN\" is not a value of TC"},
      {"<CriticalTemperature units='K' value='inf'/>", "\"inf\" is not a value of TC"},
      {"<CriticalTemperature units='K' value='1e999'/>", "\"1e999\" is not a value of TC"},
      {"<CriticalTemperature units='K' value='1e39'/>", "TC cannot be stored as 1e+39"},
      {"<CriticalTemperature units='K' value='1e-60'/>", "TC cannot be stored as 1e-60"},
      {"<HeatOfFormation units='kJ/kmol' value='-1e35'/>", "HFORMATION cannot be stored as -1e+35"},
      {"<CriticalTemperature units='K'/>", "\"\" is not a value of TC"},
      {"<CriticalTemperature units='Pa' value='500'/>", "Pa is not a unit for values in K"},
      {"<AcentricityFactor units='Pa' value='0.5'/>", "ACENTRIC is a pure number"},
      {"<LiquidDensity units='kmol/m3'/>", "it has no eqno"},
      {"<LiquidDensity units='kmol/m3'><eqno value='1.5'/><A value='1'/></LiquidDensity>",
       "eqno 1.5 is not the number of an equation"},
      {"<LiquidDensity units='kmol/m3'><eqno value='1'/></LiquidDensity>",
       "it has no coefficient A"},
      {"<LiquidDensity units='kmol/m3'><eqno value='1'/><A value='?'/></LiquidDensity>",
       "A: \"?\" is not a number"},
      {"<LiquidDensity units='kmol/m3'><eqno value='1'/><A value='1e60'/></LiquidDensity>",
       "A cannot be stored as 1e+60"},
      {"<LiquidDensity units='Pa'><eqno value='1'/><A value='1'/></LiquidDensity>",
       "\"Pa\" is not a unit of LiquidDensity"},
      {"<LiquidDensity units='kmol/m3'><eqno value='1'/><A value='1'/>"
       "<Tmin units='C' value='1'/></LiquidDensity>",
       "Tmin is in C, not K"},
      {"<LiquidDensity units='kmol/m3'><eqno value='1'/><A value='1'/><Tmin value='500'/>"
       "<Tmax value='300'/></LiquidDensity>",
       "ends before it begins"},
      {"<CAS value='64-17-5'/>", "it is there twice"},
  };
  for (auto const& row : rows) {
    MakeFile("in.xml", With("<MolecularWeight value='46'/>\n" + std::string(row.element)));
    Outcome const outcome = Zel("import --format chemsep own.lb1 in.xml --create --json");
    EXPECT_EQ(outcome.status, 1) << row.element;
    EXPECT_FALSE(std::filesystem::exists(Folder() / "own.lb1")) << row.element;
    json const printed = json::parse(outcome.out, nullptr, false);
    json const refused = Row(printed["data"], "result", "refused");
    ASSERT_FALSE(refused.is_null()) << row.element;
    EXPECT_NE(refused["what"].get<std::string>().find(row.why), std::string::npos)
        << refused["what"];
    EXPECT_GE(refused["line"].get<int>(), 6) << row.element;
    EXPECT_EQ(printed["refused_data"], 1) << row.element;
  }
  MakeFile("in.xml", With("<MolecularWeight value='46'/><CriticalTemperature value='x'/>"));
  Good("import --format chemsep own.lb1 in.xml --create --skip-bad");
  json const shown = Json("show own.lb1 CHEMSEP INVENTOL");
  EXPECT_EQ(Row(shown["constants"], "keyword", "MW")["value"], 46.0);
  EXPECT_TRUE(Row(shown["constants"], "keyword", "TC").is_null());
}

TEST_F(ChemsepTest, ACompoundWithoutAnyNameIsRefused) {
  Outcome const outcome =
      Import("<compounds><compound><MolecularWeight value='46'/></compound></compounds>");
  EXPECT_EQ(outcome.status, 1);
  json const printed = json::parse(outcome.out, nullptr, false);
  EXPECT_EQ(printed["components"][0]["result"], "refused");
  EXPECT_EQ(printed["components"][0]["what"], "names no component");
}

TEST_F(ChemsepTest, TheSameCompoundTwiceIsRefused) {
  Outcome const outcome = Import(
      "<compounds><compound><CompoundID value='A1'/><CAS value='64-17-5'/></compound>\n"
      "<compound><CompoundID value='A2'/><CAS value='64-17-5'/></compound></compounds>");
  EXPECT_EQ(outcome.status, 1);
  json const printed = json::parse(outcome.out, nullptr, false);
  EXPECT_EQ(printed["components"][1]["what"], "the same as line 1 sets");
}

TEST_F(ChemsepTest, FilesThatAreNotOfTheFormAreRefused) {
  std::string const whole = kOne;
  Refuses("", "in.xml: is empty");
  Refuses("no document", "in.xml, line 1: ");
  Refuses("<library/>", "in.xml, line 1: the root is <library>, not <compounds>");
  Refuses("<compounds>\n<bank/></compounds>", "in.xml, line 2: <bank> is not a <compound>");
  Refuses(std::string(10000, '<'), "in.xml, line 1: ");
  std::string deep;
  for (int i = 0; i < 10000; ++i) deep += "<compounds>";
  Refuses(deep, "in.xml, line 1: ");
  Refuses(
      "<!DOCTYPE compounds [<!ENTITY a 'aaaaaaaaaa'><!ENTITY b '&a;&a;&a;&a;&a;&a;&a;&a;'>"
      "<!ENTITY c '&b;&b;&b;&b;&b;&b;&b;&b;'>]><compounds><compound><CompoundID value='&c;'/>"
      "</compound></compounds>",
      "in.xml, line 1: it has a document type, which is not read");
  Refuses("<!DOCTYPE compounds SYSTEM 'other.dtd'><compounds/>", "it has a document type");
  Refuses("<compounds><compound><CompoundID value='&bomb;'/></compound></compounds>",
          "in.xml, line 1: ");
  Refuses(std::string("<compounds>\0</compounds>", 24), "in.xml, line 1: ");
  Refuses("<compounds>\xFF\xFE</compounds>", "in.xml, line 1: ");
}

// Wherever a file ends, it is refused as a whole.
TEST_F(ChemsepTest, TruncatedFilesAreRefused) {
  std::string const whole = kOne;
  std::size_t const end = whole.rfind("</compounds>");
  for (std::size_t length = 1; length <= end + 11; length += 211) {
    Refuses(whole.substr(0, length), "in.xml, line ");
  }
}

TEST_F(ChemsepTest, TheOptionFitsItsArguments) {
  MakeFile("in.xml", kOne);
  struct {
    char const* words;
    char const* why;
  } const rows[] = {
      {"import own.lb1 in.xml --format other",
       "\"other\" is not a format; there are chemsep, coolprop, nasa, sqlite"},
      {"import own.lb1 --format chemsep", "--format needs one FILE"},
      {"import own.lb1 in.xml in.xml --format chemsep", "--format needs one FILE"},
      {"import own.lb1 --table in.xml --bank X --format chemsep",
       "--format and --table exclude each other"},
      {"import own.lb1 in.xml --code 5", "--code is for --format"},
      {"import own.lb1 in.xml --format chemsep --code 32001", "up to 32000"},
  };
  for (auto const& row : rows) {
    Outcome const outcome = Zel(row.words);
    EXPECT_EQ(outcome.status, 2) << row.words << outcome.err;
    EXPECT_NE(outcome.err.find(row.why), std::string::npos) << outcome.err;
  }
  EXPECT_EQ(Zel("import none.lb1 in.xml --format chemsep").status, 1);
  Outcome const pair = Zel("import sample.lb1 in.xml --format chemsep --bank NRTL");
  EXPECT_EQ(pair.status, 1);
  EXPECT_NE(pair.err.find("is not a bank of components"), std::string::npos) << pair.err;
}

TEST_F(ChemsepTest, ADryRunChangesNothing) {
  Good("create own.lb1");
  MakeFile("in.xml", kOne);
  Contents const before = ContentsOf(Folder());
  json const done = Json("import --format chemsep own.lb1 in.xml --dry-run");
  EXPECT_EQ(done["new"], 1);
  EXPECT_TRUE(ContentsOf(Folder()) == before);
}

}  // namespace
}  // namespace zel::test

// import --format coolprop: constants and identifiers of fluids in JSON.
#include "tests/zel/zel_fixture.h"

namespace zel::test {
namespace {

using nlohmann::json;

// Invented.
json Fluid() {
  return json::parse(R"({
    "INFO": {"NAME": "Inventane", "CAS": "64-17-5", "FORMULA": "C_{2}H_{6}O_{1}", "SMILES": "CCO",
             "INCHI_KEY": "X"},
    "STATES": {"critical": {"T": 514.7, "T_units": "K", "p": 6268000, "p_units": "Pa",
                            "rhomolar": 5000, "rhomolar_units": "mol/m^3"},
               "triple_liquid": {"T": 159.1, "p": 0.5, "p_units": "Pa"},
               "triple_vapor": {"T": 159.1}},
    "EOS": [{"molar_mass": 0.04606844, "molar_mass_units": "kg/mol", "acentric": 0.644,
             "acentric_units": "-", "Ttriple": 159.1, "Ttriple_units": "K", "alphar": []}],
    "ANCILLARIES": {"pS": {"T": 1}, "rhoL": {}},
    "TRANSPORT": {"viscosity": {}}})");
}

class CoolPropTest : public ZelTest {
 protected:
  json Imported(std::string const& text) const {
    MakeFile("f.json", text);
    return Json("import --format coolprop own.lb1 f.json --create");
  }
  void Refuses(std::string const& text, std::string const& why) const {
    MakeFile("f.json", text);
    Contents const before = ContentsOf(Folder());
    Outcome const outcome = Zel("import --format coolprop own.lb1 f.json --create --json");
    EXPECT_EQ(outcome.status, 1) << why << outcome.out;
    EXPECT_NE(outcome.err.find("f.json"), std::string::npos) << outcome.err;
    json const printed = json::parse(outcome.out, nullptr, false);
    std::string const all = outcome.err + printed.dump();
    std::string quoted = json(why).dump();
    quoted = quoted.substr(1, quoted.size() - 2);
    EXPECT_TRUE(all.find(why) != std::string::npos || all.find(quoted) != std::string::npos)
        << why << "\n"
        << all;
    EXPECT_TRUE(ContentsOf(Folder()) == before) << why;
  }
};

TEST_F(CoolPropTest, TakesConstantsAndIdentifiers) {
  json const done = Imported(Fluid().dump());
  struct {
    char const* tag;
    char const* result;
    json datum;
    json what;
  } const rows[] = {
      {"INFO.NAME", "taken", "name", nullptr},
      {"INFO.CAS", "taken", "CAS number", nullptr},
      {"INFO.FORMULA", "converted", "formula", "C2H6O1 is C2H6O"},
      {"INFO.SMILES", "taken", "SMILES", nullptr},
      {"INFO.INCHI_KEY", "no place", nullptr, "a component has no such datum"},
      {"STATES.critical.T", "taken", "TC", nullptr},
      {"STATES.critical.p", "converted", "PC", "6268000 Pa is 6268 kPa"},
      {"STATES.critical.rhomolar", "converted", "VC", "5000 mol/m^3 is 0.2 m3/kg-mol"},
      {"STATES.triple_liquid.p", "converted", "PTP", "0.5 Pa is 0.0005 kPa"},
      {"STATES.triple_vapor", "no place", nullptr, "a component has no such datum"},
      {"EOS.molar_mass", "converted", "MW", "0.04606844 kg/mol is 46.06844 kg/kg-mol"},
      {"EOS.acentric", "taken", "ACENTRIC", nullptr},
      {"EOS.Ttriple", "taken", "TTP", nullptr},
      {"EOS.alphar", "no place", nullptr, "a component has no such datum"},
      {"ANCILLARIES.pS", "no place", nullptr, "a line of saturation has no form here"},
      {"ANCILLARIES.rhoL", "no place", nullptr, "a line of saturation has no form here"},
      {"TRANSPORT.viscosity", "no place", nullptr, "a component has no such datum"},
  };
  for (auto const& row : rows) {
    json const found = Row(done["data"], "tag", row.tag);
    ASSERT_FALSE(found.is_null()) << row.tag;
    EXPECT_EQ(found["result"], row.result) << row.tag;
    EXPECT_EQ(found["datum"], row.datum) << row.tag;
    EXPECT_EQ(found["what"], row.what) << row.tag;
  }
  EXPECT_EQ(done["data"].size(), std::size(rows));
  json const shown = Json("show own.lb1 COOLPROP INVENTAN");
  struct {
    char const* keyword;
    double value;
  } const constants[] = {{"TC", 514.7},  {"PC", 6268},     {"VC", 0.2},        {"PTP", 0.0005},
                         {"TTP", 159.1}, {"MW", 46.06844}, {"ACENTRIC", 0.644}};
  for (auto const& one : constants) {
    EXPECT_NEAR(Row(shown["constants"], "keyword", one.keyword)["value"].get<double>(), one.value,
                1e-6 * one.value)
        << one.keyword;
  }
}

TEST_F(CoolPropTest, AnArrayHasManyFluids) {
  json other = Fluid();
  other["INFO"]["NAME"] = "Other";
  other["INFO"]["CAS"] = "N/A";
  EXPECT_EQ(Imported(json::array({Fluid(), other}).dump())["new"], 2);
}

TEST_F(CoolPropTest, WrongFilesAreRefused) {
  Refuses("", "is not JSON");
  Refuses("{", "is not JSON");
  Refuses("5", "is not a fluid with INFO");
  Refuses("[]", "has no fluids");
  Refuses("{}", "is not a fluid with INFO");
  Refuses(json::array({Fluid(), 5}).dump(), "f.json, fluid 2: is not a fluid with INFO");
  Refuses(std::string(10000, '['), "is not JSON");
  Refuses(std::string(10000, '[') + std::string(10000, ']'), "is not a fluid with INFO");
  Refuses("{\"INFO\": NaN}", "is not JSON");
  std::string const whole = Fluid().dump();
  for (std::size_t length = 1; length < whole.size(); length += 41) {
    Refuses(whole.substr(0, length), "is not JSON");
  }
}

// What is not a CAS number by its form has no place; the fluid is taken.
TEST_F(CoolPropTest, OtherNumbersThanThoseOfCasHaveNoPlace) {
  for (char const* cas :
       {"1333-74-0p", "n-a", "N/A", "", "1-2-3", "64-17-56", "a4-17-5", "-17-5"}) {
    json fluid = Fluid();
    fluid["INFO"]["CAS"] = cas;
    json const done = Imported(fluid.dump());
    json const datum = Row(done["data"], "tag", "INFO.CAS");
    EXPECT_EQ(datum["result"], "no place") << cas;
    EXPECT_EQ(datum["what"], "\"" + std::string(cas) + "\" is not a CAS number");
    EXPECT_EQ(done["refused"], 0);
  }
  EXPECT_TRUE(Json("show own.lb1 COOLPROP INVENTAN")["cas"].is_null());
}

// Terms of equations are not kept, and what is kept is bounded.
TEST_F(CoolPropTest, LargeFilesAreBounded) {
  json deep = Fluid();
  json terms = json::array();
  for (int i = 0; i < 1000; ++i) terms.push_back(std::vector<double>(2000, 0.5));
  deep["EOS"][0]["alphar"] = terms;
  EXPECT_EQ(Imported(deep.dump())["refused"], 0);
  std::string zeros = "[0";
  for (int i = 0; i < 1'000'000; ++i) zeros += ",0";
  Refuses(zeros + "]", "f.json: has more than a million values");
  Refuses(std::string(30000, '['), "f.json: has more than 20000 values within each other");
}

TEST_F(CoolPropTest, WrongDataAreRefused) {
  auto const with = [](char const* path, json const& value) {
    json fluid = Fluid();
    fluid[json::json_pointer(path)] = value;
    return fluid.dump();
  };
  Refuses(with("/STATES/critical/T", "x"), "\"x\" is not a value of TC");
  Refuses(with("/STATES/critical/T", nullptr), "\"null\" is not a value of TC");
  Refuses(with("/STATES/critical/T", json::array()), "\"array\" is not a value of TC");
  Refuses(with("/STATES/critical/T", 1e60), "TC cannot be stored as 1e+60");
  Refuses(with("/STATES/critical/T_units", "Pa"), "Pa is not a unit for values in K");
  Refuses(with("/STATES/critical/rhomolar", 0), "\"0\" is not a density");
  Refuses(with("/STATES/critical/rhomolar", "x"), "\"x\" is not a density");
  Refuses(with("/STATES/critical/rhomolar_units", "kg/m^3"), "kg/m^3 is not mol/m^3");
  Refuses(with("/INFO/CAS", "64-17-6"), "\"64-17-6\" is not a CAS number");
}

}  // namespace
}  // namespace zel::test

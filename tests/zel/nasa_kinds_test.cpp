// import --format nasa: what is not a gas, tables with a molecular weight, and aliases.
#include <cmath>
#include <cstdio>

#include "tests/zel/zel_fixture.h"

namespace zel::test {
namespace {

using nlohmann::json;

constexpr double kR = 8.31446261815324;

class NasaKindsTest : public ZelTest {
 protected:
  json Imported(std::string const& name, std::string const& text) const {
    for (char const* file : {"own.lb1", "own.lb2"}) std::filesystem::remove(Folder() / file);
    MakeFile(name, text);
    return Json("import --format nasa own.lb1 " + name + " --create");
  }
  bool HasYaml() const {
    MakeFile("one.yaml", "species: [{name: X}]");
    return Zel("import --format nasa one.lb1 one.yaml --create").status == 0;
  }
  double Cp(std::string const& at) const {
    json const shown = Json("eval INVENTID IdealGasCp -l own.lb1 --at " + at);
    json const value = shown["points"][0]["value"];
    return value.is_number() ? value.get<double>() / kR : NAN;
  }
};

// The heat capacity is 3 R below the common temperature and 5 R above it. `end` is what columns 66
// to 78 have.
std::string Cards(std::string const& end, std::string const& atoms = "C  16H  24") {
  std::string first = "Inventide               " + atoms;
  first.resize(44, ' ');
  first += "G   200.000  6000.000" + end;
  first.resize(79, ' ');
  std::string const zero = " 0.00000000E+00";
  std::string const five = " 5.00000000E+00" + zero + zero + zero + zero + "    2\n";
  std::string const three = zero + zero + " 3.00000000E+00" + zero + zero + "    3\n";
  std::string last = zero + zero + zero + zero;
  last.resize(79, ' ');
  return "THERMO ALL\n   200.000  1000.000  6000.000\n" + first + "1\n" + five + three + last +
         "4\nEND\n";
}

TEST_F(NasaKindsTest, AMolecularWeightIsNotACommonTemperature) {
  std::string const usual = "columns 66 to 78 are not a common temperature; the usual one, 1000 K";
  std::string const far = "is far from the usual one, 1000 K";
  struct {
    std::string end;
    double common;
    std::string remark;
  } const rows[] = {
      {" 1000.00 ", 1000, ""},
      {" 1400.00 ", 1400, ""},
      {"", 1000, ""},
      {" 2100.00 ", 2100, far},
      {" 450.000 ", 450, far},
      // Goes on in column 74, is out of the range, has a letter, is that of the atoms.
      {"   216.36", 1000, usual},
      {"   1216.36", 1000, usual},
      {" 28.0134 ", 1000, usual},
      {"  B  39.94800", 1000, usual},
      {" B 1216.4", 1000, usual},
      {" 216.36 ", 1000, usual},
  };
  for (auto const& row : rows) {
    json const done = Imported("t.dat", Cards(row.end));
    std::string const what = Row(done["data"], "tag", "low range")["what"];
    if (row.remark.empty()) {
      EXPECT_EQ(what.find("common"), std::string::npos) << row.end << what;
    } else {
      EXPECT_NE(what.find(row.remark), std::string::npos) << row.end << what;
    }
    json const shown = Json("show own.lb1 NASA INVENTID");
    json const record = Row(shown["correlations"], "name", "IdealGasCp");
    EXPECT_EQ(record["to_t"], row.common) << row.end;
    EXPECT_EQ(shown["formula"], "C16H24") << row.end;
    EXPECT_NEAR(Cp("300K"), 3.0, 1e-5);
  }
}

TEST_F(NasaKindsTest, AFifthElementIsOne) {
  Imported("t.dat", Cards(" 1000.00N   2"));
  EXPECT_EQ(Json("show own.lb1 NASA INVENTID")["formula"], "C16H24N2");
  Imported("t.dat", Cards("1000.0000   0"));
  EXPECT_EQ(Json("show own.lb1 NASA INVENTID")["formula"], "C16H24");
}

std::string Species(std::string const& more, std::string const& before = "") {
  return before +
         "species:\n- name: Inventide\n  composition: {H: 2, O: 1}\n  thermo:\n"
         "    model: NASA7\n    temperature-ranges: [200.0, 1000.0]\n"
         "    data: [[4, 0, 0, 0, 0, 1, 1]]\n" +
         more;
}

std::string Phase(std::string const& model, std::string const& species) {
  return "phases:\n- name: one\n  thermo: " + model + "\n" +
         (species.empty() ? "" : "  species: " + species + "\n");
}

TEST_F(NasaKindsTest, CondensedSpeciesOfYamlHaveNoPlace) {
  if (!HasYaml()) GTEST_SKIP() << "built without yaml-cpp";
  struct {
    std::string text;
    std::string why;
  } const rows[] = {
      {Species(""), ""},
      {Species("  equation-of-state: {model: ideal-gas}\n"), ""},
      {Species("  equation-of-state: {model: Redlich-Kwong, a: 1}\n"), ""},
      {Species("  equation-of-state: {model: constant-volume, density: 1000}\n"),
       "its equation of state is constant-volume"},
      {Species("  equation-of-state: [{model: constant-volume}, {model: ideal-gas}]\n"), ""},
      {Species("  equation-of-state: [{model: liquid-water-IAPWS95}]\n"),
       "its equation of state is liquid-water-IAPWS95"},
      {Species("  equation-of-state: {density: 1000}\n"), "its equation of state is not known"},
      {Species("", Phase("ideal-gas", "[Inventide]")), ""},
      {Species("", Phase("ideal-gas", "")), ""},
      {Species("", Phase("fixed-stoichiometry", "[Inventide]")),
       "it is in a phase of the model fixed-stoichiometry"},
      {Species("", Phase("ideal-surface", "")), "it is in a phase of the model ideal-surface"},
      {Species("", Phase("ideal-surface", "all")), "it is in a phase of the model ideal-surface"},
      {Species("", Phase("ideal-surface", "[species: [Inventide]]")),
       "it is in a phase of the model ideal-surface"},
      {Species("", Phase("ideal-surface", "[Other]")), ""},
      {Species("", Phase("ideal-surface", "[Inventide]") +
                       "- {name: two, thermo: ideal-gas, species: all}\n"),
       ""},
  };
  for (auto const& row : rows) {
    json const datum = Row(Imported("s.yaml", row.text)["data"], "tag", "range");
    EXPECT_EQ(datum["result"], row.why.empty() ? "converted" : "no place") << row.text;
    std::string const what = datum["what"];
    EXPECT_TRUE(row.why.empty() || what == row.why) << what << row.text;
    json const shown = Json("show own.lb1 NASA INVENTID");
    EXPECT_EQ(shown["correlations"].size(), row.why.empty() ? 2U : 0U) << row.text;
    EXPECT_EQ(Row(shown["constants"], "keyword", "HFORMATION").is_null(), !row.why.empty());
  }
}

// Small files whose aliases stand for much.
TEST_F(NasaKindsTest, AliasesAreBounded) {
  if (!HasYaml()) GTEST_SKIP() << "built without yaml-cpp";
  auto const refuses = [&](std::string const& text, std::string const& why) {
    MakeFile("s.yaml", text);
    Outcome const outcome = Zel("import --format nasa own.lb1 s.yaml --create --json");
    EXPECT_EQ(outcome.status, 1) << why << outcome.out.substr(0, 300);
    EXPECT_NE((outcome.err + outcome.out).find(why), std::string::npos)
        << outcome.err << outcome.out.substr(0, 300);
  };
  std::string const large = "its species are more than 100 MB, with what aliases stand for";
  auto const repeated = [](std::string const& alias, int count) {
    std::string list = "[" + alias;
    for (int i = 1; i < count; ++i) list += ", " + alias;
    return list + "]";
  };
  std::string limits = "[100";
  for (int i = 101; i <= 121; ++i) limits += ", " + std::to_string(i);
  limits += "]";
  refuses("species: [{name: X, thermo: {model: NASA7, temperature-ranges: " + limits +
              ", data: [&a [3, 0, 0, 0, 0, 0, 0], *a" + repeated("*a", 19).replace(0, 1, ", ") +
              "}}]",
          "it has 21 ranges, more than 20");
  std::string keys = "&s {name: X";
  for (int i = 0; i < 2000; ++i) keys += ", k" + std::to_string(i) + ": 1";
  refuses("a: " + keys + "}\nspecies: " + repeated("*s", 2000), large);
  refuses("a: &n " + std::string(20000, 'x') +
              "\nb: &s {name: X, *n : 1}\nspecies: " + repeated("*s", 10000),
          large);
  refuses("a: &s {name: X, composition: {? " + std::string(20000, 'A') +
              ": 1}}\nspecies: " + repeated("*s", 10000),
          large);
  refuses("a: &p [" + repeated("x", 2000).substr(1) + "\nspecies: [{name: X}]\nphases: " +
              repeated("{thermo: ideal-gas, species: *p}", 2000),
          large);
  std::string bomb = "a: &a [x]\n";
  for (char c = 'b'; c <= 'z'; ++c) {
    std::string const before(1, static_cast<char>(c - 1));
    bomb +=
        std::string(1, c) + ": &" + c + " [species: *" + before + ", species: *" + before + "]\n";
  }
  MakeFile("s.yaml", bomb + "species: [{name: X}]\nphases: [{thermo: x, species: *z}]\n");
  EXPECT_EQ(Zel("import --format nasa own.lb1 s.yaml --create").status, 0);
}

}  // namespace
}  // namespace zel::test

// import --format nasa: polynomials in fixed columns and in YAML.
#include <cmath>
#include <cstdio>

#include "tests/zel/zel_fixture.h"

namespace zel::test {
namespace {

using nlohmann::json;

constexpr double kR = 8.31446261815324;

// Invented coefficients of two ranges.
constexpr double kLow[7] = {3.1, 2.5e-3, -1.5e-6, 4e-10, -5e-14, -9000, 7};
constexpr double kHigh[7] = {4.2, 1.5e-3, -5e-7, 8e-11, -4e-15, -9500, 2};
constexpr double kNine[9] = {22000, -380, 6, -9e-3, 1.2e-5, -6e-9, 1.1e-12, 5000, -10};

std::string Number(double value, int width, int digits, char letter) {
  char text[40];
  std::snprintf(text, sizeof text, "%*.*E", width, digits, value);
  std::string made = text;
  if (letter == 'D') made[made.find('E')] = 'D';
  return made;
}

std::string Padded(std::string text, std::size_t width) {
  text.resize(width, ' ');
  return text;
}

std::string Cards(std::string const& name, char phase = 'G', std::string const& low = "200.000",
                  std::string const& common = "1000.000") {
  std::string first = Padded(name, 24) + "C   2H   6O   1     ";
  first += phase;
  first += Padded(low, 10) + Padded("3000.000", 10) + Padded(common, 8);
  std::string text = Padded(first, 79) + "1\n";
  std::vector<double> all(kHigh, kHigh + 7);
  all.insert(all.end(), kLow, kLow + 7);
  for (std::size_t card = 0; card < 3; ++card) {
    std::string line;
    for (std::size_t i = 0; i < 5 && 5 * card + i < all.size(); ++i) {
      line += Number(all[5 * card + i], 15, 8, 'E');
    }
    text += Padded(line, 79) + static_cast<char>('2' + card) + "\n";
  }
  return text;
}

std::string File(std::string const& cards) {
  return "! invented\nTHERMO ALL\n   200.000  1000.000  3000.000\n" + cards + "END\n";
}

std::string NineFile() {
  std::string text = "THERMO NASA9\n" + Padded("Inventide", 24) + "invented\n";
  text +=
      Padded(" 2 i 1/26 C   2.00H   6.00    0.00    0.00    0.00 0   30.0690400      -84000.0", 80);
  text += "\n";
  std::pair<double, double> const ranges[] = {{200, 1000}, {1000, 6000}};
  for (auto const& [low, high] : ranges) {
    char head[81];
    std::snprintf(head, sizeof head, "%11.3f%11.3f7 -2.0 -1.0  0.0  1.0  2.0  3.0  4.0  0.0", low,
                  high);
    text += Padded(head, 65) + "      11900.0\n";
    for (std::size_t i = 0; i < 5; ++i) text += Number(kNine[i], 16, 9, 'D');
    text += "\n";
    text += Number(kNine[5], 16, 9, 'D') + Number(kNine[6], 16, 9, 'D') + Padded("", 16) +
            Number(kNine[7], 16, 9, 'D') + Number(kNine[8], 16, 9, 'D') + "\n";
  }
  return text + "END\n";
}

double Seven(double const* a, double t) {
  return kR * (a[0] + a[1] * t + a[2] * t * t + a[3] * t * t * t + a[4] * t * t * t * t);
}
double SevenEnthalpy(double const* a, double t) {
  return kR * (a[0] * t + a[1] * t * t / 2 + a[2] * std::pow(t, 3) / 3 + a[3] * std::pow(t, 4) / 4 +
               a[4] * std::pow(t, 5) / 5 + a[5]);
}

class NasaTest : public ZelTest {
 protected:
  json Imported(std::string const& name, std::string const& text,
                std::string const& options = "") const {
    MakeFile(name, text);
    return Json("import --format nasa own.lb1 " + name + " --create " + options);
  }
  void Refuses(std::string const& name, std::string const& text, std::string const& why) const {
    MakeFile(name, text);
    Contents const before = ContentsOf(Folder());
    Outcome const outcome = Zel("import --format nasa own.lb1 " + name + " --create --json");
    EXPECT_EQ(outcome.status, 1) << why << outcome.out;
    std::string quoted = json(why).dump();
    quoted = quoted.substr(1, quoted.size() - 2);
    std::string const all = outcome.err + outcome.out;
    EXPECT_TRUE(all.find(why) != std::string::npos || all.find(quoted) != std::string::npos)
        << why << "\n"
        << all;
    EXPECT_TRUE(ContentsOf(Folder()) == before) << why;
  }
  std::vector<double> Values(std::string const& correlation, std::string const& at) const {
    json const shown = Json("eval INVENTID " + correlation + " -l own.lb1 --at " + at);
    std::vector<double> values;
    for (json const& point : shown["points"]) {
      values.push_back(point["value"].is_number() ? point["value"].get<double>() : NAN);
    }
    return values;
  }
};

// The library keeps seven digits of each coefficient times R.
void ExpectNear(double value, double expected) {
  EXPECT_NEAR(value, expected, 2e-6 * std::abs(expected));
}

TEST_F(NasaTest, TheRangeWithRoomTemperatureIsTaken) {
  json const done = Imported("therm.dat", File(Cards("INVENTIDE")));
  EXPECT_EQ(done["new"], 1);
  EXPECT_EQ(done["bank"], "PURECOMP:NASA");
  EXPECT_EQ(Row(done["data"], "tag", "low range")["result"], "converted");
  EXPECT_EQ(Row(done["data"], "tag", "low range")["line"], 4);
  EXPECT_EQ(Row(done["data"], "tag", "high range")["result"], "no place");
  EXPECT_EQ(Row(done["data"], "tag", "high range")["what"],
            "a record has one range, and another one was chosen");
  EXPECT_EQ(Row(done["data"], "tag", "entropy constant")["result"], "no place");
  json const shown = Json("show own.lb1 NASA INVENTID");
  EXPECT_EQ(shown["formula"], "C2H6O");
  ExpectNear(Row(shown["constants"], "keyword", "HFORMATION")["value"].get<double>(),
             SevenEnthalpy(kLow, 298.15));
  json const record = Row(shown["correlations"], "name", "IdealGasCp");
  EXPECT_EQ(record["equation"], 1);
  EXPECT_EQ(record["from_t"], 200.0);
  EXPECT_EQ(record["to_t"], 1000.0);
  std::vector<double> const cp = Values("IdealGasCp", "200K 298.15K 500K 750K 1000K");
  std::vector<double> const h = Values("IdealEnthalpy", "200K 298.15K 500K 750K 1000K");
  double const at[] = {200, 298.15, 500, 750, 1000};
  for (std::size_t i = 0; i < 5; ++i) {
    ExpectNear(cp[i], Seven(kLow, at[i]));
    EXPECT_NEAR(h[i], SevenEnthalpy(kLow, at[i]) - SevenEnthalpy(kLow, 298.15), 0.02) << at[i];
  }
}

TEST_F(NasaTest, AnotherRangeCanBeChosen) {
  json const done = Imported("therm.dat", File(Cards("INVENTIDE")), "--range high");
  EXPECT_EQ(Row(done["data"], "tag", "low range")["result"], "no place");
  EXPECT_EQ(Row(done["data"], "tag", "high range")["result"], "converted");
  EXPECT_EQ(Row(done["data"], "tag", "enthalpy constant")["what"],
            "the range does not have 298.15 K");
  ExpectNear(Values("IdealGasCp", "2000K").front(), Seven(kHigh, 2000));
  Outcome const both = Zel("import --format nasa own.lb1 therm.dat --range both");
  EXPECT_EQ(both.status, 2);
  EXPECT_NE(both.err.find("\"both\" is neither low nor high: a record has one range"),
            std::string::npos)
      << both.err;
  EXPECT_NE(Zel("import --format chemsep own.lb1 therm.dat --range low")
                .err.find("--range is for --format nasa"),
            std::string::npos);
  EXPECT_EQ(Zel("import own.lb1 therm.dat --range low").status, 2);
}

// The common temperature of the file holds where a species has none; where no range has 298.15 K,
// the lowest is taken.
TEST_F(NasaTest, TemperaturesOfTheFileHoldWhereASpeciesHasNone) {
  Imported("therm.dat", File(Cards("INVENTIDE", 'G', "300.000", "")));
  json const record = Row(Json("show own.lb1 NASA INVENTID")["correlations"], "name", "IdealGasCp");
  EXPECT_EQ(record["from_t"], 300.0);
  EXPECT_EQ(record["to_t"], 1000.0);
}

TEST_F(NasaTest, NineCoefficientsAreFormTwentyFive) {
  json const done = Imported("nine.dat", NineFile());
  EXPECT_EQ(Row(done["data"], "tag", "low range")["result"], "converted");
  json const shown = Json("show own.lb1 NASA INVENTID");
  EXPECT_EQ(Row(shown["correlations"], "name", "IdealGasCp")["equation"], 25);
  EXPECT_TRUE(Row(shown["correlations"], "name", "IdealEnthalpy").is_null());
  auto const cp = [](double t) {
    double sum = 0.0;
    for (int i = 0; i < 7; ++i) sum += kNine[i] * std::pow(t, i - 2);
    return kR * sum;
  };
  std::vector<double> const values = Values("IdealGasCp", "200K 298.15K 500K 750K 1000K");
  double const at[] = {200, 298.15, 500, 750, 1000};
  for (std::size_t i = 0; i < 5; ++i) ExpectNear(values[i], cp(at[i]));
  double const t = 298.15;
  double const enthalpy =
      kR * (-kNine[0] / t + kNine[1] * std::log(t) + kNine[2] * t + kNine[3] * t * t / 2 +
            kNine[4] * std::pow(t, 3) / 3 + kNine[5] * std::pow(t, 4) / 4 +
            kNine[6] * std::pow(t, 5) / 5 + kNine[7]);
  ExpectNear(Row(shown["constants"], "keyword", "HFORMATION")["value"].get<double>(), enthalpy);
}

TEST_F(NasaTest, CondensedSpeciesHaveNoPlace) {
  json const done = Imported("therm.dat", File(Cards("INVENTIDE", 'L')));
  EXPECT_EQ(Row(done["data"], "tag", "low range")["what"], "it is not a gas");
  EXPECT_EQ(Row(done["data"], "tag", "high range")["what"], "it is not a gas");
  EXPECT_TRUE(Json("show own.lb1 NASA INVENTID")["correlations"].empty());
}

TEST_F(NasaTest, SpeciesAreFoundByTheirIds) {
  MakeFile("therm.dat", File(Cards("ETHANOL")));
  json const done = Json("import --format nasa perry.lb1 therm.dat --bank PERRY");
  EXPECT_EQ(done["changed"], 1);
  EXPECT_EQ(done["new"], 0);
}

constexpr char kYaml[] = R"(units: {length: cm}
species:
- name: Inventide
  composition: {C: 2, H: 6, O: 1}
  thermo:
    model: NASA7
    temperature-ranges: [200.0, 1000.0, 3000.0]
    data:
    - [3.1, 2.5e-3, -1.5e-6, 4e-10, -5e-14, -9000, 7]
    - [4.2, 1.5e-3, -5e-7, 8e-11, -4e-15, -9500, 2]
  transport: {model: gas}
- name: Other
  thermo: {model: Shomate}
)";

bool HasYaml(Outcome const& outcome) {
  return outcome.err.find("built without yaml-cpp") == std::string::npos;
}

TEST_F(NasaTest, YamlIsTheSame) {
  MakeFile("gas.yaml", kYaml);
  Outcome const outcome = Zel("import --format nasa own.lb1 gas.yaml --create --json");
  if (!HasYaml(outcome)) GTEST_SKIP() << outcome.err;
  ASSERT_EQ(outcome.status, 0) << outcome.err << outcome.out;
  json const done = json::parse(outcome.out);
  EXPECT_EQ(done["new"], 2);
  EXPECT_EQ(Row(done["data"], "tag", "low range")["line"], 9);
  EXPECT_EQ(Row(done["data"], "tag", "transport")["result"], "no place");
  EXPECT_EQ(Row(done["data"], "tag", "thermo")["what"], "the model Shomate has no form here");
  ExpectNear(Values("IdealGasCp", "500K").front(), Seven(kLow, 500));
  EXPECT_EQ(Json("show own.lb1 NASA INVENTID")["formula"], "C2H6O");
}

TEST_F(NasaTest, WrongYamlIsRefused) {
  MakeFile("gas.yaml", kYaml);
  if (!HasYaml(Zel("import --format nasa own.lb1 gas.yaml --create --dry-run"))) GTEST_SKIP();
  std::string const whole = kYaml;
  auto const with = [&](std::string const& old, std::string const& text) {
    std::string changed = whole;
    return changed.replace(changed.find(old), old.size(), text);
  };
  Refuses("gas.yaml", "", "gas.yaml: has no list of species");
  Refuses("gas.yaml", "species: 5", "gas.yaml: has no list of species");
  Refuses("gas.yaml", "species: [5]", "gas.yaml, line 1: is not a species");
  Refuses("gas.yaml", "species: [", "gas.yaml, line 1: ");
  Refuses("gas.yaml", std::string(10000, '['), "gas.yaml, line 1: ");
  Refuses("gas.yaml", std::string(10000, '{'), "gas.yaml, line 1: ");
  std::string deep;
  for (int i = 0; i < 3000; ++i) deep += std::string(static_cast<std::size_t>(i), ' ') + "a:\n";
  Refuses("gas.yaml", deep, "gas.yaml");
  Refuses("gas.yaml", with("3.1,", "x,"), "\"x\" is not a number");
  Refuses("gas.yaml", with("3.1,", ".nan,"), "\".nan\" is not a number");
  Refuses("gas.yaml", with("3.1,", "1e99,"), "cannot be stored");
  Refuses("gas.yaml", with(", 7]", "]"), "it has 6 coefficients, not 7");
  Refuses("gas.yaml", with("200.0, ", ""), "it has 2 ranges, but 2 temperatures");
  Refuses("gas.yaml", with("200.0", "2000.0"), "the range 2000 to 1000 K is not one");
  Refuses("gas.yaml", with("data:", "date:"), "it has no list data");
  // References to one node are not copies: a bomb stays small.
  std::string bomb = "a: &a [x]\n";
  for (char c = 'b'; c <= 'z'; ++c) {
    std::string const before(1, static_cast<char>(c - 1));
    bomb += std::string(1, c) + ": &" + c + " [*" + before + ",*" + before + ",*" + before + "]\n";
  }
  Refuses("gas.yaml", bomb + "species: *z\n", "is not a species");
}

TEST_F(NasaTest, WrongCardsAreRefused) {
  std::string const cards = Cards("INVENTIDE");
  std::string const whole = File(cards);
  auto const with = [&](std::string const& old, std::string const& text) {
    std::string changed = whole;
    return changed.replace(changed.find(old), text.size(), text);
  };
  Refuses("therm.dat", "", "therm.dat: has no line THERMO");
  Refuses("therm.dat", "nothing\n", "therm.dat: has no line THERMO");
  Refuses("therm.dat", "THERMO\nEND\n", "therm.dat: has no species");
  Refuses("therm.dat", File(cards.substr(0, 81 * 2)), "line 4: the file ends within this species");
  Refuses("therm.dat", File("short\n" + cards), "line 4: column 80 is not 1");
  Refuses("therm.dat", File(cards.substr(0, 81) + cards.substr(162)),
          "line 5: column 80 is not 2, in the species of line 4");
  Refuses("therm.dat", with(" 3.10000000E+00", " 3.1x000000E+00"),
          "line 6, columns 31 to 45: \"3.1x000000E+00\" is not a number");
  Refuses("therm.dat", with(" 3.10000000E+00", "            NaN"), "\"NaN\" is not a number");
  Refuses("therm.dat", with(" 3.10000000E+00", "               "), "\"\" is not a number");
  Refuses("therm.dat", with(" 3.10000000E+00", " 3.10000000E+99"), "cannot be stored");
  Refuses("therm.dat", with("200.000   3000.000", "900.000   0300.000"), "K is not one");
  std::string const nine = NineFile();
  Refuses("nine.dat", nine.substr(0, 300), "line 2: the file ends within this species");
  std::string changed = nine;
  changed.replace(changed.find(" 2 i 1/26"), 2, "xx");
  Refuses("nine.dat", changed, "line 3: columns 1 to 2 are not the number of ranges");
  changed = nine;
  changed.replace(changed.find("  1.0  2.0"), 5, "  1.5");
  Refuses("nine.dat", changed, "the exponents are not -2 to 4");
  for (std::size_t length = 1; length + 6 < whole.size(); length += 37) {
    Refuses("therm.dat", whole.substr(0, length), "therm.dat");
  }
}

}  // namespace
}  // namespace zel::test

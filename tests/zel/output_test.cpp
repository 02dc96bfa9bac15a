// How numbers, units, ranges and tables are shown.
#include <algorithm>
#include <sstream>

#include "tests/zel/zel_fixture.h"

namespace zel::test {
namespace {

using nlohmann::json;

class OutputTest : public ZelTest {
 protected:
  // A component XXX of bank B, in a library.
  void Make(std::string const& library, std::string const& parts,
            std::string const& id = "number=\"7\" name=\"X\" formula=\"C2H6O\"") const {
    MakeFile("c.xml", "<bank type=\"PURECOMP\" name=\"B\"><comp><id " + id + "> XXX </id>" + parts +
                          "</comp></bank>");
    Good("import " + library + " c.xml --create");
  }
  static std::string Tension(std::string const& tempUnit, std::string const& range,
                             std::string const& coefficients) {
    return "<correlation name=\"SurfaceTension\" equation=\"1\" tempUnit=\"" + tempUnit +
           "\" propUnit=\"n/m\" " + range + "> " + coefficients + " </correlation>";
  }
};

// 0.0756 - 0.00017 t in degrees Celsius is 0.1220355 - 0.00017 T in kelvin.
TEST_F(OutputTest, TemperatureWithoutUnitIsKelvinWhicheverRecordWins) {
  Make("c.lb1", Tension("c", "tMin=\"0\" tMax=\"100\"", "0.0756 -0.00017"));
  Make("k.lb1", Tension("k", "tMin=\"273.15\" tMax=\"373.15\"", "0.1220355 -0.00017"));
  for (char const* order : {"-l c.lb1 -l k.lb1", "-l k.lb1 -l c.lb1"}) {
    for (char const* at : {"--at 300", "--at 300K", "--at 26.85C", "--from 300 --to 310"}) {
      json const points = Json("eval XXX Surface " + std::string(order) + " " + at)["points"];
      EXPECT_NEAR(points[0]["value"].get<double>(), 0.0710355, 1e-9) << order << at;
      EXPECT_EQ(points[0]["range"], "inside") << order << at;
    }
  }
}

TEST_F(OutputTest, BoilingPointsAreFoundInAnyUnit) {
  std::string const kelvin = Good("find crc.lb1 --nbp 350:352");
  EXPECT_NE(kelvin.find("ETHANOL"), std::string::npos);
  EXPECT_EQ(Good("find crc.lb1 --nbp 350K:352"), kelvin);
  EXPECT_EQ(Good("find crc.lb1 --nbp 76.85C:78.85c"), kelvin);
  EXPECT_EQ(Good("find crc.lb1 --nbp 630R:173.93F"), kelvin);
  Good("list x.lst --build crc.lb1");
  EXPECT_EQ(Good("list x.lst --sort nbp --range 76.85C:78.85C"),
            Good("list x.lst --sort nbp --range 350:352"));
  EXPECT_EQ(Zel("find crc.lb1 --nbp -300C:").status, 2);
  EXPECT_EQ(Zel("list x.lst --sort mw --range 20C:").status, 2);
}

std::vector<std::string> Words(std::string const& text) {
  std::istringstream stream(text);
  std::vector<std::string> words;
  for (std::string word; stream >> word;) words.push_back(word);
  return words;
}

std::string Digits(json const& value) {
  char text[32];
  std::snprintf(text, sizeof text, "%.7g", value.get<double>());
  return text;
}

// Every number of the JSON form is unbroken in the text.
TEST_F(OutputTest, NumbersAreNotBrokenOverLines) {
  Good("import chemsep.lb1 '" ZEL_DATA "/chemsep.xml' --create");
  for (char const* other : {"perry.lb1", "crc.lb1"}) {
    Good("copy " + std::string(other) + " as-" + other + " --create");
  }
  // Banks of the same name, so that all components are compared.
  Outcome const moved = Shell(
      "mkdir doc && \"$ZEL\" export perry.lb1 -o doc/p.xml >/dev/null && "
      "sed -i 's/name=\"PERRY\"/name=\"CHEMSEP\"/' doc/*.xml && "
      "\"$ZEL\" import moved.lb1 doc/p.xml --create >/dev/null");
  ASSERT_EQ(moved.status, 0) << moved.err;
  json const rows = Json("diff chemsep.lb1 moved.lb1 --bank CHEMSEP")["differences"];
  std::vector<std::string> words = Words(Good("diff chemsep.lb1 moved.lb1 --bank CHEMSEP"));
  std::sort(words.begin(), words.end());
  std::size_t numbers = 0;
  for (json const& row : rows) {
    for (char const* side : {"first", "second"}) {
      if (!row[side].is_number_float()) continue;
      ++numbers;
      EXPECT_TRUE(std::binary_search(words.begin(), words.end(), Digits(row[side])))
          << row << " " << side;
    }
  }
  EXPECT_GT(numbers, 1000U);
}

TEST_F(OutputTest, DiffShowsUnitsByName) {
  Make("a.lb1", Tension("k", "tMin=\"1\" tMax=\"2\"", "1"));
  std::string kinematic = Tension("k", "tMin=\"1\" tMax=\"2\"", "1");
  kinematic.replace(kinematic.find("n/m"), 3, "dyne/cm");
  Make("b.lb1", kinematic);
  json const rows = Json("diff a.lb1 b.lb1")["differences"];
  json const unit = Row(rows, "field", "SurfaceTension unit");
  EXPECT_EQ(unit["first"], "N/m") << rows;
  EXPECT_EQ(unit["second"], "dyne/cm") << rows;
}

TEST_F(OutputTest, RecordWithoutLimitsHasNoRange) {
  Make("none.lb1", Tension("k", "", "0.05"));
  Make("low.lb1", Tension("k", "tMin=\"250\"", "0.05"));
  Make("high.lb1", Tension("c", "tMax=\"20\"", "0.05"));
  struct {
    char const* library;
    json range;
  } const rows[] = {{"none.lb1", nullptr}, {"low.lb1", "from 250 K"}, {"high.lb1", "up to 20 C"}};
  for (auto const& row : rows) {
    std::string const source = std::string(" -l ") + row.library;
    EXPECT_EQ(Json("search XXX" + source)["correlations"][0]["range"], row.range);
    EXPECT_EQ(Json("why XXX SurfaceTension" + source)["sources"][0]["range"], row.range);
    EXPECT_EQ(Json("eval XXX SurfaceTension --at 300" + source)["range"], row.range);
    for (char const* command : {"search XXX", "why XXX Surface", "eval XXX Surface --at 300"}) {
      EXPECT_EQ(Good(command + source).find("- to"), std::string::npos) << command << source;
    }
  }
}

TEST_F(OutputTest, ItemsOfComponentsWithFields) {
  json const report = Json("items perry.lb1 PERRY --fields TC vc VaporP");
  json const ethanol = Row(report["items"], "id", "ETHANOL");
  EXPECT_EQ(ethanol["tc"], 514);
  EXPECT_TRUE(ethanol["vc"].is_number());
  EXPECT_EQ(ethanol["vaporpressure"], "equation 20, 159.05 to 514 K");
  EXPECT_EQ(report["units"]["items"]["tc"], "K");
  EXPECT_EQ(report["items"].size(), Json("items perry.lb1 PERRY")["items"].size());
  json const types = Json("types PURECOMP");
  std::string all;
  for (json const& row : types["constants"]) all += " " + row["keyword"].get<std::string>();
  for (json const& row : types["correlations"]) all += " " + row["name"].get<std::string>();
  Good("items perry.lb1 PERRY --fields" + all);
  Outcome const wrong = Zel("items perry.lb1 PERRY --fields TCC");
  EXPECT_EQ(wrong.status, 1);
  EXPECT_NE(wrong.err.find("no field TCC"), std::string::npos) << wrong.err;
}

TEST_F(OutputTest, CsvHasAllTables) {
  std::string const coverage =
      Good("coverage ETHANOL WATER -l perry.lb1 -l sample.lb1 --details --csv");
  for (char const* part : {"data\ncomponent,datum,", "\n\ncomponents\ncomponent,stored,",
                           "\n\npairs\nmodel,pair,state,from\n", "NRTL,ETHANOL + WATER,stored,"}) {
    EXPECT_NE(coverage.find(part), std::string::npos) << part;
  }
  std::string const types = Good("types PURECOMP --csv");
  EXPECT_NE(types.find("constants\nkeyword,unit,label\n"), std::string::npos) << types;
  EXPECT_NE(types.find("\n\ncorrelations\nname,unit,label\n"), std::string::npos) << types;
}

TEST_F(OutputTest, CopyPrintsItsTableAsCsv) {
  std::size_t const items = Json("items sample.lb1 OCTANE")["items"].size();
  EXPECT_EQ(Good("copy sample.lb1 own.lb1 --create --bank OCTANE --csv"),
            "bank,items\nOCTANE:SAMPLE," + std::to_string(items) + "\n");
}

// Texts that a spreadsheet would run are prefixed with an apostrophe, numbers are not.
TEST_F(OutputTest, CsvTextIsNotRun) {
  for (char const* name : {"=1+cmd", "+A1", "-A1", "@SUM(A1)", "-2-3"}) {
    Make("c.lb1", "<property name=\"HFORMATION\" value=\"-5\" />",
         "number=\"7\" name=\"" + std::string(name) + "\" formula=\"C2H6O\"");
    std::string const csv = Good("items c.lb1 B --fields HFORMATION --csv");
    EXPECT_NE(csv.find(",\"'" + std::string(name) + "\",-5\n"), std::string::npos) << csv;
    std::filesystem::remove(Folder() / "c.lb1");
    std::filesystem::remove(Folder() / "c.lb2");
  }
  Make("c.lb1", "<property name=\"HFORMATION\" value=\"-5\" />",
       "number=\"7\" name=\"x;=1+1\" formula=\"C2H6O\"");
  EXPECT_NE(Good("items c.lb1 B --fields HFORMATION --csv").find(",\"x;=1+1\",-5\n"),
            std::string::npos);
  Good("memo sample.lb1 --set \"$(printf '\\t=1')\" --all");
  Good("copy sample.lb1 b.lb1 --create --bank OCTANE");
  std::string const csv = Good("diff sample.lb1 b.lb1 --csv");
  EXPECT_NE(csv.find(",\"'\t=1\","), std::string::npos) << csv;
  json const pairs = Json("items sample.lb1 NRTL --fields bij")["items"];
  EXPECT_EQ(Good("items sample.lb1 NRTL --fields bij --csv").find('\''), std::string::npos);
  EXPECT_TRUE(std::any_of(pairs.begin(), pairs.end(), [](json const& row) {
    return row["bij"].is_number() && row["bij"].get<double>() < 0.0;
  }));
}

}  // namespace
}  // namespace zel::test

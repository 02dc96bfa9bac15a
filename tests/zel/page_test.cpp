// The pages of sheet and report as files; tests/pages/page_test.py opens them in a browser.
#include <cmath>
#include <cstring>
#include <optional>

#include "desk/pages/equation_texts.h"
#include "desk/pages/json_text.h"
#include "desk/pages/sampled_curve.h"
#include "tests/zel/zel_fixture.h"

namespace zel::test {
namespace {

using nlohmann::json;

class PageTest : public ZelTest {
 protected:
  // The data in a page.
  json DataOf(std::string const& name) const {
    std::string const html = FileText(Folder() / name);
    std::string const begin = "<script type=\"application/json\" id=\"data\">";
    std::size_t const at = html.find(begin);
    EXPECT_NE(at, std::string::npos);
    std::size_t const from = at + begin.size();
    return json::parse(html.substr(from, html.find("</script>", from) - from));
  }

  // The curve of a source in the data; null if it does not have it.
  static json CurveIn(json const& data, std::size_t source, std::string const& correlation) {
    for (json const& part : data["components"][0]["s"]) {
      for (json const& curve : part[2]) {
        if (part[0] == source &&
            data["correlations"][curve[0].get<std::size_t>()][0] == correlation)
          return curve;
      }
    }
    return nullptr;
  }
  // The value that the page shows on the curve at a temperature, both in its units.
  static std::optional<double> ValueAt(json const& data, json const& curve, double temperature) {
    desk::SampledCurve sampled;
    sampled.numbers = Numbers(data["curves"].get<std::string>());
    sampled.numbers.erase(sampled.numbers.begin(),
                          sampled.numbers.begin() + curve[9].get<std::ptrdiff_t>());
    json const& scale = data["temperature"];
    return ValueOf(sampled, (temperature - scale[2].get<double>()) / scale[1].get<double>());
  }
  static std::string UnitIn(json const& data, char const* table, char const* name) {
    for (json const& row : data[table]) {
      if (row[0] == name) return row[2];
    }
    return "none";
  }
  static double ConstantIn(json const& data, char const* keyword) {
    for (json const& row : data["components"][0]["s"][0][1]) {
      if (data["constants"][row[0].get<std::size_t>()][0] == keyword) return row[1];
    }
    return 0.0;
  }

 private:
  // Little-endian floats in base 64.
  static std::vector<float> Numbers(std::string const& text) {
    std::string const digits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::vector<float> numbers;
    std::uint64_t bits = 0;
    std::size_t count = 0;
    std::uint32_t word = 0;
    std::size_t bytes = 0;
    for (char const letter : text) {
      if (letter == '=') break;
      bits = bits << 6 | digits.find(letter);
      count += 6;
      if (count < 8) continue;
      count -= 8;
      word |= static_cast<std::uint32_t>(bits >> count & 0xff) << (8 * bytes++);
      if (bytes < 4) continue;
      float number = 0.0F;
      std::memcpy(&number, &word, sizeof(number));
      numbers.push_back(number);
      bytes = 0;
      word = 0;
    }
    return numbers;
  }
};

TEST_F(PageTest, SheetHasComponentsSideBySide) {
  json const report = Json("sheet ETHANOL WATER -l perry.lb1 -l crc.lb1 -o s.html");
  EXPECT_EQ(report["components"], 2);
  json const data = DataOf("s.html");
  EXPECT_EQ(data["columns"], json::parse("[[0,-1],[1,-1]]"));
  EXPECT_EQ(data["components"][1]["name"], "Water");
  EXPECT_EQ(data["sources"], json::parse("[\"perry.lb1:PERRY\",\"crc.lb1:CRC\"]"));
  // The constants of the first source as zel shows them, each with its code.
  json const shown = Json("show perry.lb1 PERRY ETHANOL")["constants"];
  json const& stored = data["components"][0]["s"][0][1];
  ASSERT_EQ(stored.size(), shown.size());
  for (std::size_t i = 0; i < shown.size(); ++i) {
    EXPECT_EQ(data["constants"][stored[i][0].get<std::size_t>()][0], shown[i]["keyword"]);
    EXPECT_EQ(stored[i][1], shown[i]["value"]);
    EXPECT_EQ(stored[i][2], shown[i]["code"]);
  }
  EXPECT_EQ(data["equations"]["20"][0], "Riedel, DIPPR 101, extended");
}

TEST_F(PageTest, SheetOfEachSource) {
  Good("sheet ETHANOL -l perry.lb1 -l crc.lb1 --each -o s.html");
  EXPECT_EQ(DataOf("s.html")["columns"], json::parse("[[0,0],[0,1]]"));
}

// All numbers that a page shows, and the units that it names.
TEST_F(PageTest, SheetIsInTheUnitsAskedFor) {
  for (std::string const each : {"", " --each"}) {
    std::string const words = "ETHANOL -l perry.lb1" + each;
    Good("sheet " + words + " --units US -o us.html");
    json const data = DataOf("us.html");
    EXPECT_EQ(data["temperature"][0], "F");
    EXPECT_EQ(UnitIn(data, "constants", "TC"), "F");
    EXPECT_EQ(UnitIn(data, "constants", "PC"), "psia");
    EXPECT_EQ(UnitIn(data, "correlations", "VaporPressure"), "psia");
    EXPECT_NEAR(ConstantIn(data, "TC"), 514 * 1.8 - 459.67, 1e-9);
    EXPECT_NEAR(ConstantIn(data, "PC"), 6137 / 6.894757, 0.01);
    json const curve = CurveIn(data, 0, "VaporPressure");
    EXPECT_NEAR(curve[3].get<double>(), 514 * 1.8 - 459.67, 1e-9);
    EXPECT_EQ(curve[4], "F");
    // The coefficients are in the units of the record.
    EXPECT_EQ(curve[5], "kPa");
    EXPECT_EQ(curve[6], "K");
    EXPECT_NEAR(curve[8][0].get<double>(), 66.39625, 1e-9);
    json const point =
        Json("eval ETHANOL VaporPressure -l perry.lb1 --at 173 --units US")["points"][0];
    std::optional<double> const value = ValueAt(data, curve, 173);
    ASSERT_TRUE(value);
    EXPECT_NEAR(*value, point["value"].get<double>(), 1e-4 * *value);
    EXPECT_NEAR(*value, 14.6, 0.3);           // the normal boiling point
    EXPECT_FALSE(ValueAt(data, curve, 514));  // 541 K
  }
  // Derived constants.
  Good("sheet ETHANOL -l perry.lb1 --units MJ/kg-mol -o c.html");
  json const data = DataOf("c.html");
  double heat = 0.0;
  for (json const& row : data["components"][0]["f"]) {
    if (data["constants"][row[0].get<std::size_t>()][0] == "LHV") heat = row[1];
  }
  EXPECT_NEAR(heat, 1277.892, 0.001);
  EXPECT_EQ(UnitIn(data, "constants", "LHV"), "MJ/kg-mol");
  // From the environment too, and in a report.
  Good("create one.lb1");
  Good("copy perry.lb1 one.lb1 --bank PERRY --item ETHANOL");
  EXPECT_EQ(Zel("report -l one.lb1 -o r.html", "ZEL_UNITS=bar,C").status, 0);
  EXPECT_NEAR(ConstantIn(DataOf("r.html"), "PC"), 61.37, 1e-9);
  EXPECT_EQ(DataOf("r.html")["temperature"][0], "C");
}

TEST_F(PageTest, FormsNameTheUnitThatTheyYield) {
  Good("sheet ETHANOL -l perry.lb1 -o s.html");
  json const data = DataOf("s.html");
  EXPECT_EQ(CurveIn(data, 0, "LiquidDensity")[5], "kg-mol/m3");
  EXPECT_EQ(CurveIn(data, 0, "LatentHeat")[5], "kJ/kg-mol");
  EXPECT_EQ(CurveIn(data, 0, "LiquidCp")[5], "kJ/kg-mol-K");
  EXPECT_EQ(CurveIn(data, 0, "LiquidThermal")[5], "W/m-K");
  // By mass, as it is.
  Good("import vdi.lb1 '" ZEL_DATA "/vdi.xml' --create");
  Good("sheet ETHANOL -l vdi.lb1 -o s.html");
  EXPECT_EQ(CurveIn(DataOf("s.html"), 0, "LiquidDensity")[5], "kg/m3");
}

// A source's curve depends on its own constants only, whatever the other sources have.
TEST_F(PageTest, CurveOfASourceIsItsOwn) {
  Good("import vdi.lb1 '" ZEL_DATA "/vdi.xml' --create");
  auto const evaluated = [&](std::string const& sources) -> double {
    return Json("eval CHLORINE SurfaceTension --at 412.947 " + sources)["points"][0]["value"];
  };
  double const own = evaluated("-l vdi.lb1");
  double const merged = evaluated("-l perry.lb1 -l vdi.lb1");
  ASSERT_GT(std::abs(merged - own), 1e-3 * own);
  Good("sheet CHLORINE -l perry.lb1 -l vdi.lb1 --each -o s.html");
  json const each = DataOf("s.html");
  EXPECT_NEAR(ValueAt(each, CurveIn(each, 1, "SurfaceTension"), 412.947).value_or(0), own,
              1e-4 * own);
  Good("sheet CHLORINE -l perry.lb1 -l vdi.lb1 -o s.html");
  json const one = DataOf("s.html");
  EXPECT_NEAR(ValueAt(one, CurveIn(one, 1, "SurfaceTension"), 412.947).value_or(0), merged,
              1e-4 * merged);
  // A library of one component, so that the report has only that.
  for (std::string const name : {"perry", "vdi"}) {
    Good("create one-" + name + ".lb1");
    Good("copy " + name + ".lb1 one-" + name + ".lb1 --bank " + (name == "vdi" ? "VDI" : "PERRY") +
         " --item CHLORINE");
  }
  Good("report -l one-perry.lb1 -l one-vdi.lb1 -o r.html");
  json const report = DataOf("r.html");
  EXPECT_NEAR(ValueAt(report, CurveIn(report, 1, "SurfaceTension"), 412.947).value_or(0), own,
              1e-4 * own);
}

TEST_F(PageTest, ComponentNamedTwiceHasOneColumn) {
  json const report = Json("sheet ETHANOL ETOH 64-17-5 -l perry.lb1 -o s.html");
  EXPECT_EQ(report["components"], 1);
  EXPECT_EQ(DataOf("s.html")["columns"], json::parse("[[0,-1]]"));
}

TEST_F(PageTest, ReportHasComponentsPairsAndFindings) {
  json const report = Json("report -l perry.lb1 -l sample.lb1 -o r.html --title '<A> & B'");
  json const data = DataOf("r.html");
  EXPECT_EQ(data["components"].size(), 340U);
  EXPECT_EQ(report["components"], 340);
  std::size_t pairs = 0;
  for (json const& bank : data["pairs"]) pairs += bank["pairs"].size();
  EXPECT_EQ(report["pairs"], pairs);
  json const found = Json("check perry.lb1 sample.lb1")["findings"];
  ASSERT_EQ(data["findings"].size(), found.size());
  for (std::size_t i = 0; i < found.size(); ++i) {
    json const& row = data["findings"][i];
    EXPECT_EQ(row[0], found[i]["severity"]) << i;
    EXPECT_EQ(row[1], found[i]["id"]) << i;
    EXPECT_EQ(row[2].get<std::string>() + ": " + row[3].get<std::string>(), found[i]["what"]) << i;
  }
  EXPECT_LE(data["error"].get<double>(), 1e-5);
  std::string const html = FileText(Folder() / "r.html");
  EXPECT_NE(html.find("<title>&lt;A&gt; &amp; B</title>"), std::string::npos);
  // Nothing is loaded from elsewhere.
  for (char const* word : {" src=", "<link", "@import", "url("}) {
    EXPECT_EQ(html.find(word), std::string::npos) << word;
  }
  EXPECT_NE(html.find("Copyright (c) 2022 Leon Sorokin"), std::string::npos);
}

TEST_F(PageTest, WordsThatDoNotFit) {
  for (std::string const command : {"sheet ETHANOL -l perry.lb1", "report -l perry.lb1"}) {
    Outcome const ending = Zel(command + " -o page.pdf");
    EXPECT_EQ(ending.status, 2);
    EXPECT_NE(ending.err.find("page.pdf: a page is written as .html"), std::string::npos);
    EXPECT_EQ(Zel(command + " -o perry.lb1").status, 1);
    EXPECT_EQ(Zel(command + " -o none/page.html").status, 1);
    EXPECT_EQ(Zel(command + " --json -o -").status, 2);
    EXPECT_EQ(Zel(command).status, 2);
  }
  Outcome const nobody = Zel("sheet NOBODY -l perry.lb1 -o s.html");
  EXPECT_EQ(nobody.status, 1);
  EXPECT_NE(nobody.err.find("NOBODY"), std::string::npos);
  EXPECT_FALSE(std::filesystem::exists(Folder() / "s.html"));
  EXPECT_EQ(Good("sheet ETHANOL -l perry.lb1 -o -").substr(0, 15), "<!doctype html>");
}

// The files are those that the document of the folder names.
TEST_F(PageTest, ChartLibraryIsThePinnedOne) {
  std::string const folder = ZEL_DOCS "/../desk/pages/uplot/";
  std::string const document = FileText(folder + "README.md");
  for (std::string const name : {"uPlot.iife.min.js", "uPlot.min.css"}) {
    std::string const digest = Shell("sha256sum '" + folder + name + "'").out.substr(0, 64);
    EXPECT_NE(document.find("`" + digest + "`"), std::string::npos) << name;
  }
}

void ExpectClose(desk::TemperatureFunction const& function, double low, double high) {
  desk::SampledCurve const curve = desk::Sample(function, low, high);
  EXPECT_LT(curve.numbers.size(), 1000U);
  // Temperatures that have nothing to do with the points.
  for (int i = 1; i < 997; ++i) {
    double const kelvin = low + (high - low) * i / 997;
    std::optional<double> const value = function(kelvin);
    std::optional<double> const sampled = ValueOf(curve, kelvin);
    ASSERT_EQ(value.has_value(), sampled.has_value()) << kelvin;
    if (!value) continue;
    EXPECT_NEAR(*sampled, *value, 1e-4 * std::abs(*value)) << kelvin;
  }
}

TEST(SampledCurveTest, CurvesAreMetBetweenTheirPoints) {
  ExpectClose([](double t) { return 3.5 + 0.1 * t; }, 100, 900);
  // A vapor pressure over eleven decades.
  ExpectClose([](double t) { return std::exp(66.4 - 7122.3 / t - 7.1 * std::log(t)); }, 159, 514);
  // Steep at the critical point, in two ways.
  ExpectClose([](double t) { return 4e4 * std::pow(1 - t / 514, 0.38); }, 159, 514);
  ExpectClose([](double t) { return 4 + 12 * std::pow(1 - t / 514, 0.3); }, 159, 514);
  // A jump, and no value above a temperature.
  ExpectClose([](double t) { return t < 333.3 ? 1.0 + t : 9.0; }, 200, 500);
  ExpectClose(
      [](double t) -> std::optional<double> {
        if (t > 400.1) return {};
        return std::sqrt(t);
      },
      200, 500);
}

TEST(SampledCurveTest, NothingOutsideTheCurve) {
  desk::SampledCurve const curve = desk::Sample([](double t) { return t; }, 200, 300);
  EXPECT_FALSE(ValueOf(curve, 199).has_value());
  EXPECT_FALSE(ValueOf(curve, 301).has_value());
  EXPECT_TRUE(desk::Sample([](double t) { return t; }, 300, 300).numbers.empty());
}

TEST(PageTextTest, JsonIsSafeInAPage) {
  EXPECT_EQ(desk::JsonText("a\"</script>\n\xff\xc3\xa4"),
            "\"a\\\"\\u003c/script>\\u000a?\xc3\xa4\"");
  EXPECT_EQ(desk::JsonNumber(std::nan("")), "null");
  EXPECT_EQ(desk::Base64({1.0F}), "AACAPw==");
  EXPECT_EQ(desk::Base64({1.0F, -2.0F, 0.0F}), "AACAPwAAAMAAAAAA");
}

TEST(PageTextTest, EquationsAreThoseOfTheDocument) {
  std::size_t rows = 0;
  for (desk::EquationText const& one : desk::EquationTexts()) {
    EXPECT_FALSE(one.form.empty() || one.form == "below") << one.number;
    ++rows;
  }
  EXPECT_EQ(rows, 51U);
  EXPECT_GE(desk::EquationSymbols().size(), 8U);
}

}  // namespace
}  // namespace zel::test

// Charts: what is drawn, in which form, and what a reader can tell apart.
#include <algorithm>
#include <cmath>
#include <regex>
#include <set>
#include <sstream>

#include "tests/zel/zel_fixture.h"

namespace zel::test {
namespace {

using nlohmann::json;

class PlotTest : public ZelTest {
 protected:
  std::string Drawn(std::string const& words) const {
    Good("plot " + words + " -o p.svg");
    return FileText(Folder() / "p.svg");
  }
  static std::vector<std::string> Lines(std::string const& text) {
    std::istringstream stream(text);
    std::vector<std::string> lines;
    for (std::string line; std::getline(stream, line);) lines.push_back(line);
    return lines;
  }
  // All texts of a kind, by their anchor.
  static std::vector<std::string> Texts(std::string const& svg, std::string const& anchor) {
    std::regex const pattern("text-anchor=\"" + anchor + "\"[^>]*>([^<]*)</text>");
    std::vector<std::string> texts;
    for (std::sregex_iterator it(svg.begin(), svg.end(), pattern), end; it != end; ++it) {
      texts.push_back((*it)[1]);
    }
    return texts;
  }
  static std::vector<std::string> Found(std::string const& text, std::string const& pattern) {
    std::regex const expression(pattern);
    std::vector<std::string> found;
    for (std::sregex_iterator it(text.begin(), text.end(), expression), end; it != end; ++it) {
      found.push_back((*it)[1]);
    }
    return found;
  }
};

TEST_F(PlotTest, LegendIsBelowTheCurves) {
  std::string const svg = Drawn("VaporPressure ETHANOL WATER -l perry.lb1 --log");
  double lowest = 0.0;  // of the curves
  for (std::string const& points : Found(svg, "<polyline points=\"([^\"]*)\"")) {
    for (std::string const& y : Found(points, ",([0-9.]+)"))
      lowest = std::max(lowest, std::stod(y));
  }
  ASSERT_GT(lowest, 0.0);
  for (std::string const& y : Found(svg, "y=\"([0-9.]+)\" text-anchor=\"start\"")) {
    EXPECT_GT(std::stod(y), lowest);
  }
  EXPECT_EQ(Texts(svg, "start"),
            (std::vector<std::string>{"Ethanol, perry.lb1:PERRY", "Water, perry.lb1:PERRY"}));
}

TEST_F(PlotTest, LegendOfMergedCurvesHasTheSource) {
  // Only the second library has the curve.
  Good("create none.lb1");
  Good("copy crc.lb1 none.lb1 --bank CRC --item ETHANOL");
  std::string const svg = Drawn("LiquidViscosity ETHANOL -l none.lb1 -l perry.lb1");
  EXPECT_EQ(Texts(svg, "start"), std::vector<std::string>{"Ethanol, perry.lb1:PERRY"});
}

TEST_F(PlotTest, LabelsOfTicksDifferAndAreShort) {
  for (std::string const words :
       {"IdealEnthalpy ETHANOL -l perry.lb1", "LatentHeat ETHANOL -l perry.lb1",
        "VaporPressure ETHANOL -l perry.lb1 --log",
        "VaporPressure ETHANOL -l perry.lb1 --from 350 --to 350.01",
        "VaporPressure ETHANOL -l perry.lb1 --from 350 --to 351 --log",
        "VaporViscosity ETHANOL -l perry.lb1", "VaporThermal ETHANOL -l perry.lb1"}) {
    std::vector<std::string> const labels = Texts(Drawn(words), "end");
    EXPECT_GE(labels.size(), 3U) << words;
    EXPECT_EQ(std::set<std::string>(labels.begin(), labels.end()).size(), labels.size()) << words;
    for (std::string const& label : labels) EXPECT_LE(label.size(), 8U) << words << " " << label;
  }
  std::string const log = Drawn("VaporPressure ETHANOL -l perry.lb1 --log --from 200");
  EXPECT_NE(log.find(">100</text>"), std::string::npos) << log;
  std::string const cold = Drawn("VaporPressure ETHANOL -l perry.lb1 --log");
  EXPECT_NE(cold.find(">10⁻⁶</text>"), std::string::npos) << cold;
  // 20, 40 MJ and not 20000, 40000 kJ.
  std::string const heat = Drawn("LatentHeat ETHANOL -l perry.lb1");
  EXPECT_NE(heat.find("LatentHeat [MJ/kg-mol]"), std::string::npos) << heat;
  EXPECT_NE(heat.find(">40</text>"), std::string::npos) << heat;
}

TEST_F(PlotTest, TwelveLinesCanBeToldApartWithoutColor) {
  std::string const svg = Drawn(
      "VaporPressure METHANE ETHANE PROPANE NBUTANE NPENTANE NHEXANE NHEPTANE NOCTANE NNONANE "
      "NDECANE BENZENE TOLUENE -l perry.lb1 --log");
  // The sample of each line in the legend: its color, its dashes and its marker.
  std::set<std::string> colored;
  std::set<std::string> gray;
  std::regex const sample(
      "stroke=\"(#[0-9a-f]+)\" stroke-width=\"2\"( stroke-dasharray=\"[^\"]*\")?/>\n"
      "<(circle|polygon points=\"([^\"]*)\")");
  for (std::sregex_iterator it(svg.begin(), svg.end(), sample), end; it != end; ++it) {
    // The shape, wherever it is: its corners relative to the first one.
    std::vector<double> corners;
    for (std::string const& number : Found((*it)[4], "([0-9.]+)"))
      corners.push_back(std::stod(number));
    std::string shape;
    for (std::size_t i = 2; i < corners.size(); ++i) {
      shape += std::to_string(std::lround(10 * (corners[i] - corners[i % 2]))) + " ";
    }
    colored.insert((*it)[1].str() + (*it)[2].str());
    gray.insert((*it)[2].str() + (*it)[3].str().substr(0, 6) + shape);
  }
  EXPECT_EQ(colored.size(), 12U);
  EXPECT_GE(gray.size(), 8U);
}

TEST_F(PlotTest, TitleSizeAndUnits) {
  std::string const svg =
      Drawn("VaporPressure ETHANOL -l perry.lb1 --title 'A & B' --size 640x400 --units bar,degC");
  EXPECT_NE(svg.find("viewBox=\"0 0 640 400\" width=\"640\" height=\"400\""), std::string::npos);
  EXPECT_NE(svg.find("<title>A &amp; B</title>"), std::string::npos);
  EXPECT_NE(svg.find("VaporPressure [bar]"), std::string::npos);
  EXPECT_NE(svg.find("T [C]"), std::string::npos);
  EXPECT_NE(svg.find("<desc>VaporPressure [bar] over T [C]; Ethanol, perry.lb1:PERRY: "),
            std::string::npos)
      << svg.substr(0, 600);
  EXPECT_NE(svg.find("role=\"img\""), std::string::npos);
}

// The unit that was asked for is not replaced by one with a decimal prefix.
TEST_F(PlotTest, AxisHasTheUnitAskedFor) {
  std::string const svg = Drawn("VaporPressure ETHANOL -l perry.lb1 --units Pa");
  EXPECT_NE(svg.find(">VaporPressure [10⁶ Pa]</text>"), std::string::npos) << svg;
  EXPECT_EQ(svg.find("MPa"), std::string::npos);
  std::string const heat = Drawn("LatentHeat ETHANOL -l perry.lb1 --units J/g-mol");
  EXPECT_NE(heat.find(">LatentHeat [10³ J/g-mol]</text>"), std::string::npos) << heat;
  // Also if it is the internal one.
  std::string const same = Drawn("LatentHeat ETHANOL -l perry.lb1 --units kJ/kg-mol");
  EXPECT_NE(same.find(">LatentHeat [10³ kJ/kg-mol]</text>"), std::string::npos) << same;
}

TEST_F(PlotTest, DescriptionIsInTheUnitOfTheAxis) {
  double const heat =
      Json("eval ETHANOL LatentHeat -l perry.lb1 --at 159.05")["points"][0]["value"];
  struct Row {
    std::string units;
    std::string head;
    double factor;  // from kJ/kg-mol
  };
  for (Row const& row : {Row{"", "LatentHeat [MJ/kg-mol]", 1e-3},
                         Row{" --units J/g-mol", "LatentHeat [10³ J/g-mol]", 1e-3},
                         Row{" --units J/kg-mol", "LatentHeat [10⁶ J/kg-mol]", 1e-3}}) {
    std::string const svg = Drawn("LatentHeat ETHANOL -l perry.lb1" + row.units);
    std::vector<std::string> const found = Found(svg, "<desc>([^<]*)</desc>");
    ASSERT_EQ(found.size(), 1U);
    std::string const begin = row.head + " over T [K]; Ethanol, perry.lb1:PERRY: ";
    ASSERT_EQ(found[0].substr(0, begin.size()), begin);
    EXPECT_NEAR(std::stod(found[0].substr(begin.size())), row.factor * heat, 1e-4 * heat / 1000);
    EXPECT_NE(svg.find(">" + row.head + "</text>"), std::string::npos);
  }
}

// What a logarithmic axis cannot show is reported, not dropped in silence.
TEST_F(PlotTest, HiddenValuesAreReported) {
  std::string const words = "plot LiquidEnthalpy ETHANOL -l perry.lb1 --log -o ";
  for (std::string const output : {"p.svg", "-"}) {
    Outcome const plot = Zel(words + output);
    EXPECT_EQ(plot.status, 0) << plot.err;
    std::string const begin =
        "zel: Ethanol, perry.lb1:PERRY: values that are not above 0 are not drawn on the "
        "logarithmic axis, at 159.05 to ";
    ASSERT_EQ(plot.err.substr(0, begin.size()), begin);
    EXPECT_NEAR(std::stod(plot.err.substr(begin.size())), 298, 1);
    std::string const svg = output == "-" ? plot.out : FileText(Folder() / output);
    std::vector<std::string> const found = Found(svg, "<desc>([^<]*)</desc>");
    ASSERT_EQ(found.size(), 1U);
    EXPECT_NE(found[0].find(plot.err.substr(5, plot.err.size() - 6)), std::string::npos);
  }
  EXPECT_EQ(Zel("plot LiquidEnthalpy ETHANOL -l perry.lb1 -o p.svg").err, "");
}

TEST_F(PlotTest, SourcesWithoutARecordAreReported) {
  Good("import vdi.lb1 '" ZEL_DATA "/vdi.xml' --create");
  Outcome const plot =
      Zel("plot VaporThermal ETHANOL -l perry.lb1 -l crc.lb1 -l vdi.lb1 --each -o p.svg");
  EXPECT_EQ(plot.err, "zel: no VaporThermal of ETHANOL in crc.lb1:CRC\n");
  EXPECT_NE(FileText(Folder() / "p.svg").find("; no VaporThermal of ETHANOL in crc.lb1:CRC</desc>"),
            std::string::npos);
}

TEST_F(PlotTest, ComponentNamedTwiceIsDrawnOnce) {
  EXPECT_EQ(Json("plot VaporPressure ETHANOL ETHANOL ETOH WATER -l perry.lb1 -o p.svg")["lines"],
            2);
}

TEST_F(PlotTest, CurvesAsCsvAreTheEvaluatedValues) {
  Good("plot VaporPressure ETHANOL -l perry.lb1 --from 300 --to 600 --units bar -o p.csv");
  std::vector<std::string> const lines = Lines(FileText(Folder() / "p.csv"));
  ASSERT_EQ(lines.size(), 1U + 401U + 1U);  // heads, the grid, the upper limit
  EXPECT_EQ(lines[0], "line,T [K],value [bar],range");
  json const value = Json("eval ETHANOL VaporPressure -l perry.lb1 --at 300 600")["points"];
  std::string const name = "\"Ethanol, perry.lb1:PERRY\",";
  ASSERT_EQ(lines[1].substr(0, name.size() + 4), name + "300,");
  EXPECT_NEAR(std::stod(lines[1].substr(name.size() + 4)), value[0]["value"].get<double>() / 100,
              1e-12);
  EXPECT_EQ(lines[1].substr(lines[1].rfind(',')), ",inside");
  EXPECT_EQ(lines.back().substr(lines.back().rfind(',')), ",outside");
  // On standard output too.
  EXPECT_EQ(
      Good("plot VaporPressure ETHANOL -l perry.lb1 --from 300 --to 600 --units bar --csv -o -"),
      FileText(Folder() / "p.csv"));
}

TEST_F(PlotTest, RatioToAReferenceSource) {
  Good(
      "plot VaporPressure ETHANOL -l perry.lb1 -l crc.lb1 --reference CRC --from 350 --to 400 "
      "-o r.csv");
  std::vector<std::string> const lines = Lines(FileText(Folder() / "r.csv"));
  EXPECT_EQ(lines[0], "line,T [K],value,range");
  auto const at350 = [&](std::string const& source) {
    return Json("eval ETHANOL VaporPressure --at 350 -l " + source)["points"][0]["value"]
        .get<double>();
  };
  double const expected = at350("perry.lb1") / at350("crc.lb1");
  std::string const own = "\"Ethanol, perry.lb1:PERRY\",350,";
  std::string const other = "\"Ethanol, crc.lb1:CRC\",350,1,";
  bool hasOwn = false;
  bool hasOther = false;
  for (std::string const& line : lines) {
    if (line.compare(0, own.size(), own) == 0) {
      hasOwn = true;
      EXPECT_NEAR(std::stod(line.substr(own.size())), expected, 1e-12);
    }
    hasOther = hasOther || line.compare(0, other.size(), other) == 0;
  }
  EXPECT_TRUE(hasOwn && hasOther);
  std::string const svg =
      Drawn("VaporPressure ETHANOL -l perry.lb1 -l crc.lb1 --reference crc.lb1");
  EXPECT_NE(svg.find("VaporPressure / crc.lb1:CRC"), std::string::npos);
  // The range of the reference begins at 341 K.
  EXPECT_EQ(
      Json("plot VaporPressure ETHANOL -l perry.lb1 -l crc.lb1 --reference CRC --from 300 --to "
           "345 -o p.svg")["lines"],
      2);
  json const apart = Json(
      "plot VaporPressure ETHANOL -l perry.lb1 -l crc.lb1 --reference CRC --from 300 --to 320 -o "
      "p.svg");
  EXPECT_EQ(apart["lines"], 0);
  EXPECT_NE(apart["warning"].get<std::string>().find("have no values in common"),
            std::string::npos);
}

TEST_F(PlotTest, WordsThatDoNotFit) {
  std::string const plot = "plot VaporPressure ETHANOL -l perry.lb1 -l crc.lb1 ";
  struct Row {
    std::string words;
    std::string message;
  };
  for (Row const& row : {
           Row{"-o p.png", "p.png: a plot is written as .svg (the chart) or .csv (its curves)"},
           Row{"-o p", "p: a plot is written as"},
           Row{"-o p.svg --size 800", "--size must be WIDTHxHEIGHT in points"},
           Row{"-o p.svg --size 0x5", "--size must be 1x1 to 10000x10000"},
           Row{"-o p.svg --size 100x100", "needs at least 220 by"},
           Row{"-o p.svg --size ax5", "a width"},
           Row{"-o p.svg --reference NIST", "\"NIST\" is none of the sources perry.lb1:PERRY"},
       }) {
    Outcome const outcome = Zel(plot + row.words);
    EXPECT_EQ(outcome.status, 2) << row.words;
    EXPECT_NE(outcome.err.find(row.message), std::string::npos) << row.words << outcome.err;
    EXPECT_FALSE(std::filesystem::exists(Folder() / "p.svg")) << row.words;
  }
  Outcome const none =
      Zel("plot SolidDensity ETHANOL -l perry.lb1 -l crc.lb1 --reference CRC -o p.svg");
  EXPECT_EQ(none.status, 1);
  EXPECT_NE(none.err.find("crc.lb1:CRC has no SolidDensity of ETHANOL to compare with"),
            std::string::npos)
      << none.err;
}

TEST_F(PlotTest, UnitOfTheValues) {
  std::string const curve = "VaporPressure ETHANOL -l perry.lb1 ";
  EXPECT_EQ(Drawn(curve + "--unit bar"), Drawn(curve + "--units bar"));
  EXPECT_EQ(Drawn(curve + "--units C,Pa --unit bar"), Drawn(curve + "--units C,bar"));
  for (char const* unit : {"K", "engineering", "kg/m3"}) {
    Outcome const outcome = Zel("plot " + curve + "-o p.svg --unit " + unit);
    EXPECT_EQ(outcome.status, 2) << unit;
    EXPECT_NE(outcome.err.find("is not a unit of VaporPressure, which is in kPa"),
              std::string::npos)
        << outcome.err;
  }
}

TEST_F(PlotTest, FactsAreCsvToo) {
  EXPECT_EQ(Good("plot VaporPressure ETHANOL -l perry.lb1 -o p.svg --csv"),
            "fact,value\nwritten,p.svg\nlines,1\n");
  std::string const curves = Good("plot VaporPressure ETHANOL -l perry.lb1 -o - --csv");
  EXPECT_EQ(curves.substr(0, curves.find('\n')), "line,T [K],value [kPa],range");
  EXPECT_EQ(curves.find("fact"), std::string::npos);
}

}  // namespace
}  // namespace zel::test

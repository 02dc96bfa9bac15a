// Points of data over the curves of a plot.
#include <cmath>
#include <regex>
#include <sstream>

#include "tests/zel/zel_fixture.h"

namespace zel::test {
namespace {

class PointsTest : public ZelTest {
 protected:
  std::string Svg(std::string const& words) const {
    Good("plot " + words + " -o p.svg");
    return FileText(Folder() / "p.svg");
  }
  // The heads and the rows of points in the CSV of the curves.
  std::vector<std::string> Rows(std::string const& words) const {
    std::vector<std::string> rows;
    std::istringstream text(Good("plot " + words + " --csv -o -"));
    for (std::string line; std::getline(text, line);) {
      if (rows.empty() || line.find(",point,") != std::string::npos) rows.push_back(line);
    }
    return rows;
  }
  void Fails(std::string const& words, int status, std::string const& why) const {
    Outcome const outcome = Zel("plot " + words + " -o never.svg");
    EXPECT_EQ(outcome.status, status) << words;
    EXPECT_NE(outcome.err.find(why), std::string::npos) << outcome.err;
    EXPECT_FALSE(std::filesystem::exists(Folder() / "never.svg"));
  }
  static std::vector<std::string> Cells(std::string const& row) {
    std::vector<std::string> cells;
    std::istringstream text(row);
    for (std::string cell; std::getline(text, cell, ',');) cells.push_back(cell);
    return cells;
  }
  static double Deviation(std::string const& row) {
    return std::stod(row.substr(row.rfind(',') + 1));
  }
  // The vapor pressure of ethanol in kPa.
  double At(char const* kelvin) const {
    return Json(std::string("eval ETHANOL VaporPressure -l perry.lb1 --at ") +
                kelvin)["points"][0]["value"];
  }
  std::string const plot_ = "VaporPressure ETHANOL -l perry.lb1 ";
};

// 1 % below and 1 % above the curve.
TEST_F(PointsTest, AreReadInTheUnitsOfTheirHeads) {
  double const low = At("300");
  double const high = At("350");
  std::ostringstream text;
  text << "T [degC],value [bar]\n"
       << 350 - 273.15 << "," << high * 1.01 / 100.0 << "\n"
       << 300 - 273.15 << "," << low * 0.99 / 100.0 << "\n";
  MakeFile("lab.csv", text.str());
  std::vector<std::string> const rows = Rows(plot_ + "--points lab.csv");
  ASSERT_EQ(rows.size(), 3U);
  EXPECT_EQ(rows[0], "line,T [K],value [kPa],range,deviation [%]");
  std::vector<std::string> const first = Cells(rows[1]);
  EXPECT_EQ(first[0], "lab.csv");
  EXPECT_NEAR(std::stod(first[1]), 300.0, 1e-9);
  EXPECT_NEAR(std::stod(first[2]), low * 0.99, 1e-3);
  EXPECT_NEAR(Deviation(rows[1]), -1.0, 1e-2);
  EXPECT_NEAR(Deviation(rows[2]), 1.0, 1e-2);
  MakeFile("own.tsv", "temperature\tVaporPressure\n300\t" + std::to_string(low * 0.99) + "\n");
  EXPECT_NEAR(Deviation(Rows(plot_ + "--points own.tsv")[1]), -1.0, 1e-2);
  std::ostringstream bare;
  bare << "T;value\n" << 300 - 273.15 << ";" << low * 0.99 / 100.0 << "\n";
  MakeFile("bare.csv", bare.str());
  EXPECT_NEAR(Deviation(Rows(plot_ + "--points bare.csv --units bar,degC")[1]), -1.0, 1e-2)
      << "in the display units";
}

TEST_F(PointsTest, AreDrawnAndDescribed) {
  MakeFile("lab.csv", "T [K],value [kPa],label\n310,14,first\n300,9,first\n320,25,second\n");
  std::string const svg = Svg(plot_ + "--points lab.csv");
  EXPECT_NE(svg.find(">first</text>"), std::string::npos) << "in the legend";
  EXPECT_NE(svg.find(">second</text>"), std::string::npos);
  std::string const plain = Svg(plot_);
  auto const count = [](std::string const& text, std::string const& pattern) {
    std::regex const expression(pattern);
    return std::distance(std::sregex_iterator(text.begin(), text.end(), expression),
                         std::sregex_iterator());
  };
  EXPECT_EQ(count(svg, "<polyline"), count(plain, "<polyline")) << "points have no line";
  EXPECT_NE(svg.find("; first, 2 points: 9 at 300, 14 at 310; second, 1 point: 25 at 320</desc>"),
            std::string::npos)
      << svg.substr(0, 800);
  EXPECT_EQ(Good("plot " + plot_ + " --csv -o -").find("deviation"), std::string::npos)
      << "a column only with points";
}

TEST_F(PointsTest, OfSeveralComponentsNameThem) {
  MakeFile("both.csv", "component,T [K],value [kPa]\nWATER,373.15,101.3\nethanol,351.45,101.3\n");
  std::vector<std::string> const rows =
      Rows("VaporPressure ETHANOL WATER -l perry.lb1 --points both.csv");
  ASSERT_EQ(rows.size(), 3U);
  for (std::size_t i : {1U, 2U}) EXPECT_LT(std::abs(Deviation(rows[i])), 1.0) << rows[i];
  MakeFile("nobody.csv", "T [K],value [kPa]\n300,9\n");
  Fails("VaporPressure ETHANOL WATER -l perry.lb1 --points nobody.csv", 2,
        "points for several components need a column \"component\"");
  Fails(plot_ + "--points both.csv", 2, "there are points for WATER, which is not drawn");
}

TEST_F(PointsTest, AreRatiosInARatioPlot) {
  std::ostringstream text;
  text << "T,value\n300," << At("300") * 1.25 << "\n";
  MakeFile("lab.csv", text.str());
  std::vector<std::string> const rows = Rows(plot_ + "--reference PERRY --points lab.csv");
  ASSERT_EQ(rows.size(), 2U);
  EXPECT_NEAR(std::stod(Cells(rows[1])[2]), 1.25, 1e-4);
  EXPECT_NEAR(Deviation(rows[1]), 25.0, 1e-2);
}

// Outside the range of the record there is nothing to compare with.
TEST_F(PointsTest, OutsideTheRangeHaveNoDeviation) {
  MakeFile("far.csv", "T,value\n600,9000\n300,9\n");
  std::vector<std::string> const rows = Rows(plot_ + "--points far.csv");
  ASSERT_EQ(rows.size(), 3U);
  EXPECT_EQ(rows[2].back(), ',') << rows[2];
  EXPECT_NE(rows[1].back(), ',') << rows[1];
}

TEST_F(PointsTest, ThatCannotBeReadAreAnError) {
  struct {
    char const* text;
    char const* why;
  } const rows[] = {{"", "p.csv: "},
                    {"T,value\n", "p.csv: has no points"},
                    {"T,other\n300,1\n", "p.csv: has no column \"value\""},
                    {"value\n1\n", "p.csv: has no column \"T\""},
                    {"T,value\n300,x\n", "p.csv: line 2: value: x is not a number"},
                    {"T,value\n,5\n", "p.csv: line 2: T: nothing is not a number"},
                    {"T [degC],value\n-300,5\n", "p.csv: line 2: the temperature is not above 0 K"},
                    {"T [bar],value\n300,5\n", "p.csv: T [bar]: is not a unit for values in K"},
                    {"T,value [m]\n300,5\n", "p.csv: value [m]: is not a unit for values in kPa"}};
  for (auto const& row : rows) {
    MakeFile("p.csv", row.text);
    Fails(plot_ + "--points p.csv", 1, row.why);
  }
  Fails(plot_ + "--points missing.csv", 1, "missing.csv: ");
  // Its reads fail.
  Fails(plot_ + "--points /proc/self/mem", 1, "/proc/self/mem: cannot be read");
}

}  // namespace
}  // namespace zel::test

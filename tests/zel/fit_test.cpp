// Correlations fitted to points by `zel fit`.
#include <cmath>
#include <nlohmann/json.hpp>
#include <sstream>

#include "tests/zel/change_fixture.h"

namespace zel::test {
namespace {

using nlohmann::json;

constexpr char kWater[] = "own/own.lb1 water.csv --to VaporPressure --component WATER ";

class FitTest : public ChangeTest {
 protected:
  // own.lb1 has ethanol and water of the CRC handbook; water.csv the published points of water.
  void SetUp() override {
    ChangeTest::SetUp();
    Good("copy crc.lb1 own/own.lb1 --bank CRC --item ETHANOL");
    Good("copy crc.lb1 own/own.lb1 --bank CRC --item WATER --keep 0");
    MakeFile("water.csv", FileText(ZEL_DATA "/../water_vapor_pressure.csv"));
    old_ = Now();
  }
  json Fit(std::string const& words) const { return Json("fit " + words); }
  json FitWater(std::string const& words) const { return Fit(kWater + words); }
  void Fails(std::string const& words, std::string const& why, int status = 1) const {
    Outcome const outcome = Zel("fit " + words);
    EXPECT_EQ(outcome.status, status) << words << "\n" << outcome.err;
    EXPECT_NE(outcome.err.find(why), std::string::npos) << words << "\n" << outcome.err;
    EXPECT_TRUE(Now() == old_) << words;
    EXPECT_TRUE(History().empty()) << words;
  }
  json Eval(std::string const& words) const {
    return Json("eval " + words + " -l own/own.lb1")["points"];
  }
  // The points of water from one temperature to another, in degrees Celsius.
  std::string Steam(double low, double high) const {
    std::istringstream text(FileText(Folder() / "water.csv"));
    std::string part;
    for (std::string line; std::getline(text, line);) {
      bool const isHead = part.empty();
      double const celsius = isHead ? 0.0 : std::stod(line);
      if (isHead || (celsius >= low && celsius <= high)) part += line + "\n";
    }
    return part;
  }
};

// The points are a published equation of higher accuracy, in 5 digits.
TEST_F(FitTest, PublishedPointsAreThoseOfTheirSource) {
  double const a[] = {-7.85951783, 1.84408259, -11.7866497, 22.6807411, -15.9618719, 1.80122502};
  double const power[] = {1.0, 1.5, 3.0, 3.5, 4.0, 7.5};
  std::istringstream text(Steam(0.0, 400.0));
  std::string line;
  std::getline(text, line);
  EXPECT_EQ(line, "T [degC],VaporPressure [kPa],component");
  int count = 0;
  while (std::getline(text, line)) {
    double const kelvin = std::stod(line) + 273.15;
    double const value = std::stod(line.substr(line.find(',') + 1));
    double sum = 0.0;
    for (int i = 0; i < 6; ++i) sum += a[i] * std::pow(1.0 - kelvin / 647.096, power[i]);
    double const published = 22064.0 * std::exp(647.096 / kelvin * sum);
    EXPECT_NEAR(value / published, 1.0, 5.1e-5) << line;
    ++count;
  }
  EXPECT_EQ(count, 38);
}

TEST_F(FitTest, TheRecordIsSetAndIsWhatWasFitted) {
  json const report = FitWater("--equation 20 --ref 900 --residuals");
  EXPECT_EQ(report["schema"], "zel/fit");
  EXPECT_EQ(report["item"], "WATER");
  EXPECT_EQ(report["bank"], "PURECOMP:CRC");
  EXPECT_EQ(report["correlation"], "VaporPressure");
  EXPECT_EQ(report["equation"], 20);
  EXPECT_EQ(report["fitted"], "logarithm of the value");
  EXPECT_EQ(report["points"], 38);
  EXPECT_EQ(report["range_from"], 273.16);
  EXPECT_EQ(report["range_to"], 643.15);
  EXPECT_FALSE(report.contains("warning")) << report;
  ASSERT_EQ(report["coefficients"].size(), 5U);
  EXPECT_EQ(report["coefficients"][0]["coefficient"], "C1");
  EXPECT_GT(report["coefficients"][0]["standard_error"], 0.0);
  ASSERT_EQ(report["residuals"].size(), 38U);
  // The library yields the same values, and the deviations are those of these values.
  json const eval = Eval("WATER VaporPressure --at 273.16 373.15 643.15");
  EXPECT_NEAR(eval[0]["value"], report["residuals"][0]["fitted"], 1e-9);
  EXPECT_NEAR(eval[1]["value"], report["residuals"][10]["fitted"], 1e-9);
  EXPECT_NEAR(eval[2]["value"], report["residuals"][37]["fitted"], 1e-6);
  double sum = 0.0;
  double greatest = 0.0;
  for (json const& row : report["residuals"]) {
    double const percent = (row["fitted"].get<double>() / row["value"].get<double>() - 1.0) * 100.0;
    EXPECT_NEAR(percent, row["percent"], 1e-9);
    sum += std::abs(percent);
    if (std::abs(percent) > std::abs(greatest)) greatest = percent;
  }
  EXPECT_NEAR(Row(report["deviations"], "of", "mean")["percent"], sum / 38.0, 1e-9);
  EXPECT_NEAR(Row(report["deviations"], "of", "greatest percent")["percent"], greatest, 1e-9);
  EXPECT_LT(std::abs(greatest), 0.25);
  json const record =
      Row(Json("show own/own.lb1 CRC WATER")["correlations"], "name", "VaporPressure");
  EXPECT_EQ(record["equation"], 20);
  EXPECT_EQ(record["code"], 900);
  EXPECT_EQ(record["unit"], "kPa");
  // The change is one of the library's history.
  Good("undo own/own.lb1");
  EXPECT_EQ(
      Row(Json("show own/own.lb1 CRC WATER")["correlations"], "name", "VaporPressure")["equation"],
      21);
}

// The record of the CRC handbook is that of Landolt-Boernstein, from 323 to 393 K; that of the NIST
// WebBook is from 379 to 573 K.
TEST_F(FitTest, Equation20IsCloserToThePointsThanPublishedAntoineEquations) {
  MakeFile("near.csv", Steam(50.0, 119.0));
  std::string const plot = "plot VaporPressure WATER --csv -o - ";
  auto const greatestOfPlot = [&](std::string const& words) {
    double greatest = 0.0;
    int count = 0;
    std::istringstream text(Good(plot + words));
    for (std::string line; std::getline(text, line);) {
      if (line.find(",point,") == std::string::npos || line.back() == ',') continue;
      greatest = std::max(greatest, std::abs(std::stod(line.substr(line.rfind(',') + 1))));
      ++count;
    }
    EXPECT_GE(count, 7) << words;
    return greatest;
  };
  double const antoine = greatestOfPlot("-l crc.lb1 --points near.csv");
  json const fit =
      Fit("own/own.lb1 near.csv --to VaporPressure --component WATER --equation 20 --fix C5=2");
  double const own = Row(fit["deviations"], "of", "greatest percent")["percent"];
  EXPECT_LT(std::abs(own), 0.5 * antoine);
  EXPECT_GT(antoine, 0.01);
  Good("create nist.lb1");
  Good("import nist.lb1 " ZEL_DATA "/nist.xml");
  double const other = greatestOfPlot("-l nist.lb1 --points water.csv");
  json const whole = FitWater("--equation 20");
  EXPECT_LT(std::abs(Row(whole["deviations"], "of", "greatest percent")["percent"].get<double>()),
            0.05 * other);
}

TEST_F(FitTest, HeadsSayTheUnits) {
  MakeFile("k.csv", "T,value\n300,1\n320,2\n340,4\n360,7\n");
  MakeFile("c.csv",
           "T [degC];VaporPressure [bar]\n26.85;0.01\n46.85;0.02\n66.85;0.04\n86.85;0.07\n");
  std::string const words = " --to VaporP --component WATER --equation 20 --terms 3 --dry-run";
  json const one = Fit("own/own.lb1 k.csv" + words);
  json const other = Fit("own/own.lb1 c.csv" + words);
  for (std::size_t i = 0; i < 3; ++i) {
    double const value = one["coefficients"][i]["value"];
    EXPECT_NEAR(other["coefficients"][i]["value"], value, 1e-5 * std::abs(value));
  }
  // Display units are those of heads without one, and of the report.
  MakeFile("d.csv", "T,value\n26.85,0.01\n46.85,0.02\n66.85,0.04\n86.85,0.07\n");
  json const shown = Fit("own/own.lb1 d.csv --residuals --units bar,C" + words);
  EXPECT_NEAR(shown["residuals"][0]["value"], 0.01, 1e-12);
  EXPECT_NEAR(shown["residuals"][3]["t"], 86.85, 1e-9);
  double const deviation = shown["residuals"][3]["deviation"];
  EXPECT_NEAR(deviation, shown["residuals"][3]["fitted"].get<double>() - 0.07, 1e-12);
  EXPECT_NEAR(shown["range_from"], 26.85, 1e-9);
}

TEST_F(FitTest, OtherUnitsOfTheEquation) {
  // 1000, 980 and 960 kg/m3 of water are 55.508, 54.398 and 53.288 kg-mol/m3.
  MakeFile("rho.csv", "T,value [kg/m3]\n300,1000\n320,980\n340,960\n");
  Fails("own/own.lb1 rho.csv --to LiquidDensity --component WATER --equation 1 --terms 2",
        "is not a unit for values in kg-mol/m3");
  MakeFile("mol.csv", "T,value\n300,55.508\n320,54.398\n340,53.288\n");
  std::string const words =
      "own/own.lb1 mol.csv --to LiquidDensity --component WATER --equation 1 "
      "--terms 2 --value-unit kg/m3 ";
  Fails(words, "give --basis mass, or mole", 2);
  json const mass = Fit(words + "--basis mass");
  EXPECT_NEAR(mass["coefficients"][0]["value"], 1300.0, 0.1);
  EXPECT_NEAR(mass["coefficients"][1]["value"], -1.0, 1e-3);
  EXPECT_NEAR(Eval("WATER LiquidDensity --at 310")[0]["value"], 54.953, 1e-3);
  json const decimal = FitWater("--equation 21 --logarithm decimal --value-unit mmHg");
  EXPECT_NEAR(Eval("WATER VaporPressure --at 373.15")[0]["value"], 101.42, 1.5);
  // The published coefficients for mm Hg, degrees Celsius and decimal logarithms are about 8, 1700
  // and 230: T + 230 - 273.15.
  EXPECT_NEAR(decimal["coefficients"][0]["value"], 8.0, 0.3);
  EXPECT_NEAR(decimal["coefficients"][2]["value"], -43.15, 15.0);
}

TEST_F(FitTest, FixedCoefficientsAndTerms) {
  json const fixed = FitWater("--equation 20 --fix C5=2");
  EXPECT_EQ(fixed["coefficients"][4]["value"], 2.0);
  EXPECT_EQ(fixed["coefficients"][4]["note"], "kept");
  EXPECT_TRUE(fixed["coefficients"][4]["standard_error"].is_null());
  EXPECT_EQ(FitWater("--equation 20 --terms 7 --fix C5=2")["coefficients"].size(), 7U);
  MakeFile("e.csv",
           "T,value\n300,17.0232\n330,16.4166\n360,15.7547\n390,15.0184\n420,14.1752\n"
           "450,13.1602\n");
  json const constant =
      Fit("own/own.lb1 e.csv --to LiquidDensity --component ETHANOL --equation 16 --fix C3=TC");
  EXPECT_EQ(constant["coefficients"][2]["value"],
            Row(Json("show own/own.lb1 CRC ETHANOL")["constants"], "keyword", "TC")["value"]);
}

TEST_F(FitTest, TheRangeLeavesPointsOutOrIsWarnedOf) {
  json const part = FitWater("--equation 20 --fix C5=2 --range 50C:150C");
  EXPECT_EQ(part["points"], 11);
  EXPECT_EQ(part["left_out"], 27);
  EXPECT_EQ(part["range_from"], 323.15);
  EXPECT_EQ(part["range_to"], 423.15);
  json const more = FitWater("--equation 20 --range 250K:");
  EXPECT_EQ(more["range_from"], 250.0);
  EXPECT_NE(more["warning"].get<std::string>().find(
                "the range goes beyond the points, which are from 273.16 to 643.15 K"),
            std::string::npos);
}

// 10 +- 1 and 20 +- 2 have the weighted mean 12.
TEST_F(FitTest, UncertaintiesAreWeights) {
  std::string const words = " --to LiquidCp --component WATER --equation 1 --terms 1 --residuals";
  MakeFile("u.csv", "T,value,uncertainty\n300,10,1\n310,20,2\n");
  MakeFile("percent.csv", "T,value,uncertainty [%]\n300,10,10\n310,20,10\n");
  MakeFile("unit.csv", "T,value,uncertainty [J/mol-K]\n300,10,1\n310,20,2\n");
  for (char const* file : {"u.csv", "percent.csv", "unit.csv"}) {
    json const fit = Fit("own/own.lb1 " + std::string(file) + words + " --dry-run");
    EXPECT_NEAR(fit["coefficients"][0]["value"], 12.0, 1e-6) << file;
    EXPECT_EQ(fit["fitted"], "value, weighted by uncertainties");
    EXPECT_NEAR(fit["coefficients"][0]["standard_error"], std::sqrt(0.8), 1e-9);
    EXPECT_NEAR(fit["residuals"][1]["in_uncertainties"], -4.0, 1e-6);
    EXPECT_NEAR(fit["reduced_sum"], 20.0, 1e-6);
    EXPECT_NE(
        fit["warning"].get<std::string>().find("the reduced sum of squares is 20, not about 1"),
        std::string::npos)
        << fit["warning"];
  }
  MakeFile("good.csv", "T,value,uncertainty\n300,10,5\n310,20,5\n");
  json const good = Fit("own/own.lb1 good.csv" + words + " --dry-run");
  EXPECT_NEAR(good["reduced_sum"], 2.0, 1e-6);
  EXPECT_FALSE(good.contains("warning")) << good["warning"];
  json const without = Fit("own/own.lb1 good.csv --unweighted" + words + " --dry-run");
  EXPECT_FALSE(without.contains("reduced_sum"));
  MakeFile("some.csv", "T,value,uncertainty\n300,10,1\n310,20,\n");
  Fails("own/own.lb1 some.csv" + words,
        "some points have an uncertainty and others have none, as that at 310 K");
  MakeFile("zero.csv", "T,value,uncertainty\n300,10,1\n310,20,0\n");
  Fails("own/own.lb1 zero.csv" + words, "the uncertainty at 310 K is not above 0");
}

TEST_F(FitTest, DryRunChangesNothing) {
  json const report = FitWater("--equation 20 --dry-run --plot p.svg");
  EXPECT_EQ(report["dry_run"], "nothing was changed");
  EXPECT_GT(report["changed"], 5);
  EXPECT_TRUE(Now() == old_);
  EXPECT_TRUE(History().empty());
}

TEST_F(FitTest, PlotHasPointsAndCurve) {
  Fails(std::string(kWater) + "--equation 99 --plot no.svg", "equation 99 is not known");
  EXPECT_FALSE(std::filesystem::exists(Folder() / "no.svg"));
  EXPECT_EQ(FitWater("--equation 20 --plot p.svg")["written"], "p.svg");
  std::string const svg = FileText(Folder() / "p.svg");
  EXPECT_NE(svg.find("<title>WATER, vapor pressure"), std::string::npos) << svg.substr(0, 500);
  EXPECT_NE(svg.find("equation 20"), std::string::npos);
  EXPECT_NE(svg.find("points"), std::string::npos);
}

TEST_F(FitTest, AComponentThatIsMissingIsCopiedFirst) {
  MakeFile("m.csv", "T,value\n300,20\n320,40\n340,80\n360,140\n");
  std::string const words =
      "own/own.lb1 m.csv --to VaporPressure --component METHANOL "
      "--equation 20 --terms 3 ";
  Fails(words, "does not exist");
  Fails(words, "--from LIBRARY copies it");
  json const report = Fit(words + "--from crc.lb1");
  EXPECT_EQ(report["copied_from"], "crc.lb1:CRC");
  EXPECT_GT(Eval("METHANOL VaporPressure --at 330")[0]["value"], 40.0);
}

// A sample in words: a table is a report like any other.
TEST_F(FitTest, TextAndCsv) {
  std::string const text = Good("fit " + std::string(kWater) + "--equation 20 --dry-run");
  EXPECT_NE(text.find("fitted       logarithm of the value\n"), std::string::npos) << text;
  EXPECT_NE(text.find("greatest percent"), std::string::npos);
  std::string const csv = Good("fit " + std::string(kWater) + "--equation 20 --dry-run --csv");
  EXPECT_NE(csv.find("coefficient,value,standard error,note"), std::string::npos) << csv;
}

TEST_F(FitTest, WhatCannotBeFittedIsRefused) {
  std::string const water = kWater;
  MakeFile("few.csv", "T,value\n300,1\n310,2\n");
  MakeFile("zero.csv", "T,value\n300,1\n310,0\n320,3\n330,4\n");
  MakeFile("nan.csv", "T,value\n300,1\n310,nan\n320,3\n");
  MakeFile("one.csv", "T,value\n300,1\n300,2\n300,3\n");
  MakeFile("other.csv", "T,value,component\n300,1,ETHANOL\n310,2,ETHANOL\n");
  MakeFile("empty.csv", "T,value\n");
  auto const with = [](char const* file) {
    return std::string("own/own.lb1 ") + file +
           " --to VaporPressure --component WATER --equation 20 --terms 3";
  };
  Fails(with("few.csv"), "2 points cannot determine 3 coefficients");
  Fails(with("zero.csv"), "the value at 310 K is not above 0 and has no logarithm");
  Fails(with("nan.csv"), "nan.csv: line 3: value: nan is not a number");
  Fails(with("one.csv"), "all points are at one temperature");
  Fails(with("other.csv"), "there are no points of WATER, only of other components");
  Fails(with("empty.csv"), "empty.csv: has no points");
  Fails(with("none.csv"), "none.csv");
  Fails(water + "--equation 54", "equation 54 evaluates the enthalpy of the ideal gas");
  Fails(water + "--equation 20 --terms 4", "equation 20 is fitted with 1, 2, 3, 5,");
  Fails(water + "--equation 20 --range 700K:800K", "no point is in the range 700K:800K");
  Fails(water + "--equation 20 --bank NONE", "NONE");
  Fails(water + "--equation 20 --from own/own.lb1", "is the library to change itself");
  Fails("own/own.lb1 water.csv --to Expansion --component WATER --equation 1",
        "water.csv: has no column \"value\"");
  Fails("own/own.lb1 few.csv --to Expansion --component WATER --equation 1",
        "Expansion is kept and not evaluated");
  Fails("own/own.lb1 few.csv --to Nothing --component WATER --equation 1", "Nothing");
  Fails(water + "--equation x", "--equation is a whole number from 0 to 1000, not x", 2);
  Fails(water + "--equation 20 --terms 16", "--terms is a whole number from 1 to 15, not 16", 2);
  Fails(water + "--equation 20 --ref 40000", "--ref is a whole number from 0 to 32000", 2);
  Fails(water + "--equation 20 --fix C16=1", "--fix is a coefficient and a number", 2);
  Fails(water + "--equation 20 --fix C9=1", "equation 20 with 5 coefficients has no C9");
  Fails(water + "--equation 20 --terms 3 --fix C5=2", "equation 20 with 3 coefficients has no C5");
  Fails(water + "--equation 20 --fix C5=1 c5=2", "--fix names C5 twice", 2);
  Fails(water + "--equation 20 --fix 5=1", "--fix is a coefficient and a number", 2);
  Fails(water + "--equation 20 --fix C5=x", "x", 2);
  Fails(water + "--equation 20 --deviations none", "--deviations are relative or absolute", 2);
  Fails(water + "--equation 20 --logarithm none", "--logarithm is natural or decimal", 2);
  Fails(water + "--equation 20 --basis volume", "--basis is mole or mass", 2);
  Fails(water + "--equation 20 --plot p.png", "whose name ends in .svg", 2);
  Fails(water + "--equation 20 --plot own/own.lb1", "", 1);
}

}  // namespace
}  // namespace zel::test

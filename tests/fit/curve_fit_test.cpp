// What a fit says and refuses.
#include "desk/fit/curve_fit.h"

#include <gtest/gtest.h>
#include <zelaccess/ZelAccess.h>

#include <cmath>
#include <limits>

#include "desk/fit/sampled_fit.h"
#include "desk/words/failure.h"

namespace zel::test {
namespace {

using desk::Failure;
using desk::FitPoint;
using desk::FitQuantity;
using desk::FitTask;

class CurveFits : public testing::Test {
 protected:
  static void SetUpTestSuite() { InitZelAccess(); }

  static FitTask Task(std::uint32_t index, int equation, int count,
                      std::vector<FitPoint> const& points) {
    FitTask task;
    task.record.index = index;
    task.record.equation = equation;
    task.record.coefficientCount = count;
    task.points = points;
    return task;
  }
  static std::string WhyNot(FitTask const& task) {
    try {
      FitCurve(task);
    } catch (Failure const& failure) {
      return failure.what();
    }
    return "it was fitted";
  }
};

// y = 1, 3, 2 at x = 1, 2, 3: the line 1 + 0.5 x, residuals 0.5, -1, 0.5, variance 1.5, and the
// covariance of the textbook: 1.5 * (14/6, -6/6; -6/6, 3/6).
TEST_F(CurveFits, LineHasTheErrorsOfTheTextbook) {
  desk::CurveFit const fit = FitCurve(Task(correlationLiquidCp, 1, 2, {{1, 1}, {2, 3}, {3, 2}}));
  EXPECT_NEAR(fit.coefficients[0], 1.0, 1e-12);
  EXPECT_NEAR(fit.coefficients[1], 0.5, 1e-12);
  EXPECT_NEAR(fit.errors[0], std::sqrt(3.5), 1e-12);
  EXPECT_NEAR(fit.errors[1], std::sqrt(0.75), 1e-12);
  EXPECT_NEAR(fit.covariance.Row(0)[1], -1.5, 1e-12);
  EXPECT_TRUE(fit.isDirect);
  EXPECT_EQ(fit.quantity, FitQuantity::kValue);
  EXPECT_EQ(fit.deviations.points, 3U);
  EXPECT_NEAR(fit.deviations.mean, 2.0 / 3.0, 1e-12);
  EXPECT_NEAR(fit.deviations.greatest, -1.0, 1e-12);
  EXPECT_EQ(fit.deviations.greatestAt, 2.0);
  EXPECT_NEAR(fit.deviations.meanPercent, (50.0 + 100.0 / 3.0 + 25.0) / 3.0, 1e-10);
  EXPECT_NEAR(fit.deviations.greatestPercent, 50.0, 1e-10);
  EXPECT_EQ(fit.deviations.greatestPercentAt, 1.0);
  EXPECT_EQ(fit.record.tMin, 1.0);
  EXPECT_EQ(fit.record.tMax, 3.0);
}

// The weighted mean of 10 +- 1 and 20 +- 2 is 12, its error sqrt(0.8).
TEST_F(CurveFits, UncertaintiesAreWeights) {
  desk::CurveFit const fit =
      FitCurve(Task(correlationLiquidCp, 1, 1, {{300, 10, 1}, {310, 20, 2}}));
  EXPECT_NEAR(fit.coefficients[0], 12.0, 1e-12);
  EXPECT_NEAR(fit.errors[0], std::sqrt(0.8), 1e-12);
  EXPECT_TRUE(fit.isWeighted);
  EXPECT_NEAR(fit.variance, 20.0, 1e-10);  // (2/1)^2 + (8/2)^2, one degree of freedom
}

// Without uncertainties there is nothing to agree with.
TEST_F(CurveFits, TheReducedSumComparesPointsAndUncertainties) {
  EXPECT_NEAR(ReducedSum(FitCurve(Task(correlationLiquidCp, 1, 1, {{300, 10, 1}, {310, 20, 2}}))),
              20.0, 1e-10);
  EXPECT_TRUE(
      std::isnan(ReducedSum(FitCurve(Task(correlationLiquidCp, 1, 1, {{300, 10}, {310, 20}})))));
  EXPECT_TRUE(std::isnan(
      ReducedSum(FitCurve(Task(correlationLiquidCp, 1, 2, {{300, 10, 1}, {310, 20, 2}})))));
}

// C4 T^C5 and C6 T^3 of equation 20 are one term for C5 = 3: the points determine 4 of the 5
// coefficients that are free. They are 1 % above and below a curve.
TEST_F(CurveFits, DegreesOfFreedomAreThoseOfTheRank) {
  std::vector<FitPoint> points;
  for (int i = 0; i < 20; ++i) {
    double const t = 250.0 + 10.0 * i;
    points.push_back({t, std::exp(12.0 - 3000.0 / t) * (i % 2 == 0 ? 1.01 : 0.99)});
  }
  FitTask task = Task(correlationVaporPressure, 20, 6, points);
  task.kept = {std::nullopt, std::nullopt, std::nullopt, std::nullopt, 3.0};
  desk::CurveFit const fit = FitCurve(task);
  EXPECT_FALSE(fit.isDetermined[3]);
  EXPECT_NEAR(fit.variance, fit.sum / (20.0 - 4.0), 1e-12 * fit.sum);
}

TEST_F(CurveFits, ACoefficientThatIsNotThereCannotBeKept) {
  FitTask task = Task(correlationLiquidCp, 1, 2, {{1, 1}, {2, 3}, {3, 2}});
  task.kept = {std::nullopt, std::nullopt, 1.0};
  EXPECT_EQ(WhyNot(task), "equation 1 with 2 coefficients has no C3");
  task.kept = {std::nullopt, std::nullopt, std::nullopt};
  EXPECT_EQ(WhyNot(task), "it was fitted");
}

// A value of 0 has no relative deviation, and the others alone would pass for all.
TEST_F(CurveFits, APointOfZeroLeavesNoPercent) {
  desk::FitDeviations const all =
      FitCurve(Task(correlationLiquidCp, 1, 2, {{1, 0}, {2, 3}, {3, 2}})).deviations;
  EXPECT_EQ(all.points, 3U);
  EXPECT_TRUE(std::isfinite(all.mean));
  EXPECT_TRUE(std::isnan(all.meanPercent));
  EXPECT_TRUE(std::isnan(all.greatestPercent));
}

// The mean of logarithms is that of the geometric mean.
TEST_F(CurveFits, VaporPressuresAreFittedByTheirLogarithms) {
  std::vector<FitPoint> const points = {{300, 1}, {310, 100}};
  FitTask task = Task(correlationVaporPressure, 1, 1, points);
  EXPECT_NEAR(FitCurve(task).coefficients[0], 10.0, 1e-9);
  EXPECT_EQ(FitCurve(task).quantity, FitQuantity::kLogarithm);
  task.quantity = FitQuantity::kValue;
  EXPECT_NEAR(FitCurve(task).coefficients[0], 50.5, 1e-9);
  task.record.index = correlationLiquidViscosity;
  task.quantity.reset();
  EXPECT_NEAR(FitCurve(task).coefficients[0], 10.0, 1e-9);
  task.record.index = correlationLiquidDensity;
  EXPECT_NEAR(FitCurve(task).coefficients[0], 50.5, 1e-9);
}

TEST_F(CurveFits, KeptCoefficientsStay) {
  FitTask task = Task(correlationLiquidCp, 1, 2, {{1, 1}, {2, 3}, {3, 2}});
  task.kept = {std::nullopt, 1.0};  // 1, 3, 2 less 1, 2, 3: the mean is 0
  desk::CurveFit const fit = FitCurve(task);
  EXPECT_NEAR(fit.coefficients[0], 0.0, 1e-12);
  EXPECT_EQ(fit.coefficients[1], 1.0);
  EXPECT_EQ(fit.errors[1], 0.0);
  EXPECT_TRUE(fit.isKept[1]);
  task.kept = {1.0, 1.0};
  EXPECT_EQ(WhyNot(task), "no coefficient is left to fit");
}

// C6 T^3 and C4 T^C5 are the same term for C5 = 3.
TEST_F(CurveFits, WhatThePointsDoNotDetermineIsSaid) {
  std::vector<FitPoint> points;
  for (int i = 0; i < 20; ++i) {
    double const t = 250.0 + 10.0 * i;
    points.push_back({t, std::exp(12.0 - 3000.0 / t)});
  }
  FitTask task = Task(correlationVaporPressure, 20, 6, points);
  task.kept = {std::nullopt, std::nullopt, std::nullopt, std::nullopt, 3.0};
  desk::CurveFit const fit = FitCurve(task);
  EXPECT_FALSE(fit.isDetermined[3]);
  EXPECT_FALSE(fit.isDetermined[5]);
  EXPECT_TRUE(std::isnan(fit.errors[3]));
  EXPECT_TRUE(fit.isDetermined[1]);
  EXPECT_LT(std::abs(fit.deviations.greatestPercent), 1e-3);
}

TEST_F(CurveFits, WhatCannotBeFittedIsRefused) {
  std::vector<FitPoint> const points = {{300, 1}, {310, 2}, {320, 3}, {330, 4}};
  double const nan = std::numeric_limits<double>::quiet_NaN();
  auto const with = [&](FitPoint const& point) {
    std::vector<FitPoint> all = points;
    all.push_back(point);
    return Task(correlationVaporPressure, 20, 3, all);
  };
  EXPECT_EQ(WhyNot(Task(correlationVaporPressure, 20, 5, points)),
            "4 points cannot determine 5 coefficients");
  EXPECT_EQ(WhyNot(Task(correlationVaporPressure, 20, 3, {})), "there are no points");
  EXPECT_EQ(WhyNot(with({340, 0.0})), "the value at 340 K is not above 0 and has no logarithm");
  EXPECT_EQ(WhyNot(with({340, nan})), "the value at 340 K is not a number");
  EXPECT_EQ(WhyNot(with({340, 1e308 * 10})), "the value at 340 K is not a number");
  EXPECT_EQ(WhyNot(with({nan, 1})), "the temperature of a point is not a number");
  EXPECT_EQ(WhyNot(with({-1, 1})), "a point is not above 0 K, at -1 K");
  EXPECT_EQ(WhyNot(with({340, 5, 0.1})),
            "some points have an uncertainty and others have none, as that at 340 K");
  EXPECT_EQ(WhyNot(Task(correlationLiquidCp, 1, 2, {{300, 1, 0.1}, {310, 2, 0.0}, {320, 2, 1}})),
            "the uncertainty at 310 K is not above 0");
  EXPECT_EQ(WhyNot(Task(correlationLiquidCp, 1, 1, {{300, 1}, {300, 2}, {300, 3}})),
            "all points are at one temperature");
  EXPECT_EQ(WhyNot(Task(correlationLiquidCp, 1, 3, {{300, 1}, {300, 2}, {310, 3}})),
            "points at 2 temperatures cannot determine 3 coefficients");
  EXPECT_EQ(WhyNot(Task(correlationLiquidCp, 99, 3, points)), "equation 99 is not known");
  EXPECT_EQ(WhyNot(Task(correlationLiquidCp, 54, 3, points)),
            "equation 54 evaluates the enthalpy of the ideal gas of the component and cannot be "
            "fitted");
  EXPECT_EQ(WhyNot(Task(correlationIdealEnthalpy, 117, 5, points)),
            "equation 117 can be evaluated but not returned by a library, and is not fitted");
  EXPECT_EQ(WhyNot(Task(correlationVaporPressure, 20, 4, points)),
            "equation 20 is fitted with 1, 2, 3, 5, 6, 7, 8, 9, 10 coefficients, not with 4");
  EXPECT_EQ(WhyNot(Task(correlationVaporPressure, 47, 2, points)),
            "equation 47 uses TC, which the component does not have");
  FitTask task = Task(correlationLiquidCp, 15, 2, points);
  task.points.push_back({340, -1});
  task.record.criticalTemperature = 500;
  EXPECT_EQ(WhyNot(task), "equation 15 has no values below 0, as there is one at 340 K");
  task = Task(correlationLiquidCp, 1, 2, points);
  task.record.tMax = 325;
  EXPECT_EQ(WhyNot(task), "a point is above the range, at 330 K");
  task.record.tMin = 305;
  EXPECT_EQ(WhyNot(task), "a point is below the range, at 300 K");
  // Above the critical temperature the form has no value.
  task = Task(correlationVaporPressure, 47, 2, points);
  task.record.criticalTemperature = 200;
  task.record.criticalPressure = 4000;
  EXPECT_EQ(WhyNot(task),
            "equation 47 does not suit the points: it has no values there wherever the search "
            "begins");
}

// A record keeps 7 digits; the deviations are those of what is kept.
TEST_F(CurveFits, DeviationsAreThoseOfTheStoredDigits) {
  desk::CurveFit const fit =
      FitCurve(Task(correlationLiquidCp, 1, 1, {{300, 1.23456789}, {310, 1.23456789}}));
  EXPECT_NEAR(fit.coefficients[0], 1.23456789, 1e-14);
  EXPECT_EQ(fit.record.coefficients[0], 1.234568);
  EXPECT_NEAR(fit.deviations.greatest, 1.1e-7, 1e-12);
}

class SampledFits : public CurveFits {};

// Equation 16 is the curve itself; polynomials come less close.
TEST_F(SampledFits, TheBestEquationIsChosen) {
  ZelCorrelation density;
  density.index = correlationLiquidDensity;
  density.criticalTemperature = 500;
  desk::SampledCurve curve;
  curve.low = 250;
  curve.high = 450;
  curve.curve = [](double t) {
    return 1.2 / std::pow(0.26, 1.0 + std::pow(1.0 - t / 500.0, 0.29));
  };
  desk::SampledFit const best = BestSampledFit(density, curve, {{1, 3}, {16, 4}, {47, 4}});
  EXPECT_EQ(best.choice.equation, 16);
  EXPECT_LT(std::abs(best.deviations.greatestPercent), 1e-4);
  EXPECT_EQ(best.fit.record.tMin, 250);
  EXPECT_EQ(best.fit.record.tMax, 450);
  EXPECT_GT(best.deviations.points, 200U);
  desk::SampledFit const line = BestSampledFit(density, curve, {{1, 2}});
  EXPECT_GT(std::abs(line.deviations.greatestPercent), 0.1);
  EXPECT_NE(line.Text().find("equation 1 from 250 to 450 K: "), std::string::npos) << line.Text();
  EXPECT_NE(line.Text().find("% on the average, "), std::string::npos) << line.Text();
}

TEST_F(SampledFits, WhatNoEquationSuitsIsRefused) {
  ZelCorrelation record;
  desk::SampledCurve curve;
  curve.curve = [](double t) { return t; };
  auto const why = [&](std::vector<desk::FormChoice> const& choices) -> std::string {
    try {
      BestSampledFit(record, curve, choices);
    } catch (Failure const& failure) {
      return failure.what();
    }
    return "";
  };
  EXPECT_EQ(why({{1, 2}}), "the range to sample is not a range of temperatures above 0 K");
  curve.low = 300;
  curve.high = 400;
  EXPECT_EQ(why({}), "no equation was given");
  EXPECT_EQ(why({{47, 4}}), "equation 47 uses TC, which the component does not have");
  EXPECT_EQ(why({{1, 2}, {47, 4}}), "");  // the first suits
  curve.curve = [](double) { return std::nan(""); };
  EXPECT_EQ(why({{1, 2}}), "the curve has no values in the range");
}

// Each correlation has choices, and all of them can be fitted.
TEST_F(SampledFits, EveryCorrelationHasUsualChoices) {
  for (std::uint32_t index = 0; index < 18; ++index) {
    ZelCorrelation record;
    record.index = index;
    record.criticalTemperature = 600;
    record.criticalPressure = 4000;
    desk::SampledCurve curve;
    curve.low = 300;
    curve.high = 500;
    curve.curve = [](double t) { return 10.0 + t / 100.0; };
    desk::SampledFit const fit = BestSampledFit(record, curve, desk::UsualChoices(index));
    EXPECT_LT(std::abs(fit.deviations.greatestPercent), 1.0) << index;
  }
}

}  // namespace
}  // namespace zel::test

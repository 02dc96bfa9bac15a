// Every form that can be fitted finds its own values again: coefficients for which there are no
// published data.
#include <gtest/gtest.h>
#include <zelaccess/ZelAccess.h>

#include <cmath>
#include <set>
#include <string>
#include <vector>

#include "desk/fit/curve_fit.h"
#include "desk/fit/form_rules.h"

namespace zel::test {
namespace {

using desk::CurveFit;
using desk::FitTask;

struct OwnValues {
  int equation;
  std::uint32_t index;
  double low;
  double high;
  std::vector<double> coefficients;
  double within;  // of the values, relative
};

// Critical temperature 500 K, critical pressure 4000 kPa, boiling point 350 K.
std::vector<OwnValues> const& Rows() {
  static std::vector<OwnValues> const rows = {
      {1, correlationLiquidCp, 250, 450, {60, 0.1, 2e-4, -3e-7}, 1e-9},
      {2, correlationLiquidCp, 250, 450, {100, 20, 3, 0.5, 0.1}, 1e-9},
      {3, correlationLiquidCp, 250, 450, {60, 10, 5, 2, 450, 0.5}, 1e-9},
      {4, correlationLiquidDensity, 250, 450, {8, 4, 3, 2, 500, 0.33}, 1e-7},
      {5, correlationVaporViscosity, 250, 900, {1.4e-3, 1.5, 110}, 1e-9},
      {6, correlationLatentHeat, 250, 450, {30000, 20000, -8000, 3000}, 1e-9},
      {12, correlationLiquidViscosity, 250, 450, {-3, 800, 2e4, -3e6}, 1e-9},
      {13, correlationLiquidViscosity, 250, 450, {1.2, 0.6, 510, 40, 0.03}, 1e-9},
      {14, correlationVaporPressure, 250, 490, {8.3, -6.9, 1.4, -3, -2}, 1e-9},
      {15, correlationLatentHeat, 250, 490, {50000, 0.4, -0.1, 0.05}, 1e-9},
      {16, correlationLiquidDensity, 250, 490, {1.2, 0.26, 500, 0.29}, 1e-9},
      {17, correlationIdealEnthalpy, 250, 1500, {-9000, 35, 90, 1600, 60, 700}, 1e-9},
      {18, correlationVaporThermal, 250, 900, {1e-3, 1e-5, 1.2, 100, 5000}, 1e-6},
      {19, correlationVaporViscosity, 250, 900, {5e-4, 0.6, 120, 1000}, 1e-9},
      {20, correlationVaporPressure, 250, 490, {70, -7000, -7.2, 4e-6, 2}, 1e-9},
      {21, correlationVaporPressure, 250, 450, {14, -2800, -45}, 1e-9},
      {22, correlationVaporPressure, 250, 450, {1500, 900, -20, 5, 0.4}, 1e-9},
      {23, correlationIdealEnthalpy, 250, 900, {100, 4, 20, 500, -3, 2, 5, -4}, 1e-6},
      {24, correlationIdealGasCp, 250, 1500, {30, 1e-3, 0.02, 800, 0.03, 2500}, 1e-6},
      {25, correlationIdealGasCp, 298, 1200, {25, 0.06, -3e-5, 6e-9, 1e-13, 100, 9e4}, 1e-9},
      {26, correlationVaporViscosity, 250, 900, {60, 4.5, 350}, 1e-9},
      {27, correlationVaporViscosity, 250, 450, {0.02, 0.3, 1.1}, 1e-7},
      {28, correlationVaporPressure, 250, 450, {40, -6000, -5, 2e-3, -3.5}, 1e-9},
      {29, correlationLiquidDensity, 250, 490, {0.26, 0.02, 0.9}, 1e-9},
      {30, correlationLatentHeat, 250, 490, {45000, 0.37, 0.1}, 1e-9},
      {31, correlationLiquidDensity, 250, 490, {5, 8, 2, -1, 0.5, 0.1, 0.02}, 1e-9},
      {32, correlationLiquidDensity, 250, 490, {5, 9, -3, 6, -2}, 1e-9},
      {33, correlationVaporViscosity, 250, 900, {40, 30, -4}, 1e-9},
      {34, correlationLiquidDensity, 250, 490, {4, 1.9, 0.7, 0.3}, 1e-9},
      {35, correlationLiquidEnthalpy, 250, 490, {3, 0.2, 8, -4, 2}, 1e-9},
      {36, correlationLatentHeat, 250, 490, {7, 5, -3, 2, 1}, 1e-9},
      {37, correlationLiquidViscosity, 250, 450, {2, -4, 600}, 1e-7},
      {39, correlationLatentHeat, 250, 490, {33000, 350, 0.38, 0.02, 0.01, 350, 350}, 1e-7},
      {40, correlationIdealEnthalpy, 100, 1500, {-2000, 4, 1e6, 600, 11, -2, 1e6, 100, 60}, 1e-4},
      {41, correlationLiquidCp, 250, 450, {50, 20, 5, 3, 1, 300}, 1e-7},
      {42, correlationLiquidCp, 250, 450, {60, 0.1, 2e-4, 0, 0, 0, -8, 520}, 1e-6},
      {43, correlationLatentHeat, 250, 490, {33000, 0.38}, 1e-9},
      {44, correlationLiquidViscosity, 250, 450, {-1, 0.5, 2, -0.3}, 1e-9},
      {45, correlationLiquidEnthalpy, 250, 490, {1000, 10, 60, 0.2, 1e-4}, 1e-9},
      {46, correlationLiquidEnthalpy, 250, 490, {9000, 8, 60, 30, -20}, 1e-7},
      {47, correlationVaporPressure, 250, 499, {-7.5, 1.8, -2.5, -3}, 1e-9},
      {48, correlationVaporPressure, 250, 499, {-7.5, 1.8, -2.2, -3.1}, 1e-9},
      {49, correlationLiquidEnthalpy, 250, 490, {9000, 8, 60, 30, -20, 10}, 1e-7},
      {52, correlationLatentHeat, 250, 490, {33000, 0.38, 500}, 1e-7},
      {53, correlationLatentHeat, 250, 490, {0.3, 500}, 1e-9},
  };
  return rows;
}

ZelCorrelation RecordOf(OwnValues const& row) {
  ZelCorrelation record;
  record.index = row.index;
  record.equation = row.equation;
  record.coefficientCount = static_cast<std::int32_t>(row.coefficients.size());
  record.tMin = row.low;
  record.tMax = row.high;
  record.molecularWeight = 60;
  record.criticalTemperature = 500;
  record.criticalPressure = 4000;
  record.boilingPoint = 350;
  for (std::size_t i = 0; i < row.coefficients.size(); ++i) {
    record.coefficients[i] = row.coefficients[i];
  }
  return record;
}

std::vector<desk::FitPoint> PointsOf(ZelCorrelation const& record, int count) {
  std::vector<desk::FitPoint> points;
  for (int i = 0; i < count; ++i) {
    desk::FitPoint point;
    point.kelvin = record.tMin + (record.tMax - record.tMin) * i / (count - 1);
    EvaluateOne(record, point.kelvin, 1, &point.value, nullptr, nullptr, nullptr);
    points.push_back(point);
  }
  return points;
}

TEST(Forms, EachFindsItsOwnValues) {
  InitZelAccess();
  for (OwnValues const& row : Rows()) {
    FitTask task;
    task.record = RecordOf(row);
    task.points = PointsOf(task.record, 41);
    CurveFit fit = FitCurve(task);
    for (std::size_t i = 0; i < fit.coefficients.size(); ++i) {
      fit.record.coefficients[i] = fit.coefficients[i];  // all digits
    }
    double greatest = 0.0;
    std::vector<double> const values = desk::ValuesAt(fit.record, task.points);
    for (std::size_t i = 0; i < values.size(); ++i) {
      double const deviation = std::abs(values[i] / task.points[i].value - 1.0);
      greatest = deviation > greatest ? deviation : greatest;
      EXPECT_TRUE(std::isfinite(values[i])) << "equation " << row.equation;
    }
    EXPECT_LE(greatest, row.within) << "equation " << row.equation << ", starts " << fit.starts;
  }
}

TEST(Forms, AllThatHaveARuleAreTested) {
  std::set<int> tested;
  for (OwnValues const& row : Rows()) tested.insert(row.equation);
  for (int const equation : desk::FittedEquations()) {
    EXPECT_TRUE(tested.count(equation) == 1) << equation;
  }
  EXPECT_EQ(tested.size(), desk::FittedEquations().size());
}

}  // namespace
}  // namespace zel::test

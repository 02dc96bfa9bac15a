// Fits to points that published correlations yield find their coefficients again.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "desk/fit/curve_fit.h"
#include "tests/purecomp/published_records.h"

namespace zel::test {
namespace {

using desk::CurveFit;
using desk::FitPoint;
using desk::FitTask;

struct Published {
  char const* source;
  int component;
  std::uint32_t index;
  std::int32_t equation;
};

// Two correlations or more of each form that the published data have, except form 40, whose
// coefficients depend on each other too closely.
constexpr Published kPublished[] = {
    {"chemsep", 10000001, correlationIdealEnthalpy, 1},
    {"perry", 10000001, correlationLiquidCp, 1},
    {"crc", 10000019, correlationLiquidViscosity, 12},
    {"crc", 10000040, correlationLiquidViscosity, 12},
    {"vdi", 10000001, correlationLiquidViscosity, 13},
    {"vdi", 10000003, correlationLiquidViscosity, 13},
    {"chemsep", 10000001, correlationLatentHeat, 15},
    {"perry", 10000001, correlationLatentHeat, 15},
    {"chemsep", 10000001, correlationLiquidDensity, 16},
    {"perry", 10000001, correlationLiquidDensity, 16},
    {"chemsep", 10000116, correlationIdealEnthalpy, 17},
    {"chemsep", 10000144, correlationIdealEnthalpy, 17},
    {"chemsep", 10000001, correlationVaporThermal, 19},
    {"perry", 10000001, correlationVaporViscosity, 19},
    {"chemsep", 10000001, correlationVaporPressure, 20},
    {"perry", 10000001, correlationVaporPressure, 20},
    {"perry", 10000003, correlationVaporPressure, 20},
    {"crc", 10000001, correlationVaporPressure, 21},
    {"crc", 10000003, correlationVaporPressure, 21},
    {"nist", 10000001, correlationIdealEnthalpy, 25},
    {"nist", 10000001, correlationIdealGasCp, 25},
    {"chemsep", 10000178, correlationSurfaceTension, 32},
    {"chemsep", 10000200, correlationSurfaceTension, 32},
    {"vdi", 10000001, correlationLatentHeat, 36},
    {"vdi", 10000003, correlationLatentHeat, 36},
    {"perry", 10000022, correlationLiquidEnthalpy, 46},
    {"perry", 10000024, correlationLiquidEnthalpy, 46},
    {"poling", 10000001, correlationVaporPressure, 47},
    {"poling", 10000003, correlationVaporPressure, 47},
    {"poling", 10000005, correlationVaporPressure, 48},
    {"vdi", 10000001, correlationVaporPressure, 48},
};

// The record as it is stored, and points over its range, or from 250 to 450 K where it has none.
FitTask TaskOf(ZelCorrelation record) {
  constexpr int kPoints = 40;
  if (gen_IsUndefDouble(record.tMin)) record.tMin = 250.0;
  if (gen_IsUndefDouble(record.tMax)) record.tMax = 450.0;
  FitTask task;
  for (int i = 0; i < kPoints; ++i) {
    double const part = static_cast<double>(i) / (kPoints - 1);
    FitPoint point;
    point.kelvin = record.tMin * (1.0 - part) + record.tMax * part;
    EvaluateOne(record, point.kelvin, 1, &point.value, nullptr, nullptr, nullptr);
    constexpr double kLimit = 1.1e-10;  // ends of the range where the library limits the value
    if (point.value > kLimit || record.index == correlationLiquidEnthalpy ||
        record.index == correlationIdealEnthalpy) {
      task.points.push_back(point);
    }
  }
  task.record = record;
  for (double& c : task.record.coefficients) c = 0.0;  // they are not given away
  return task;
}

// By how much a coefficient changes the value in the middle of the range.
double ShareOf(std::size_t place, CurveFit const& fit) {
  ZelCorrelation record = fit.record;
  std::copy(fit.coefficients.begin(), fit.coefficients.end(), record.coefficients);
  std::vector<FitPoint> const middle = {{(record.tMin + record.tMax) / 2.0, 0.0}};
  double const with = desk::ValuesAt(record, middle).front();
  record.coefficients[place] = 0.0;
  return std::abs(desk::ValuesAt(record, middle).front() / with - 1.0);
}

TEST(Recover, PublishedCoefficientsAreFoundAgain) {
  constexpr double kWithin = 1e-6;
  std::size_t found = 0;
  for (char const* const source : kPublishedSources) {
    PublishedRecords records(ZEL_DATA, source);
    records.Each([&](PublishedRecord const& record) {
      for (Published const& row : kPublished) {
        bool const isMeant = source == std::string(row.source) && record.index == row.index &&
                             record.name.find(std::to_string(row.component)) != std::string::npos;
        if (!isMeant) continue;
        ++found;
        EXPECT_EQ(record.equation, row.equation) << record.name;
        ZelCorrelation published;
        ASSERT_EQ(TakeCorrelation(&records.Component(), record.index, published), kStatusOk);
        CurveFit const fit = FitCurve(TaskOf(published));
        ASSERT_EQ(fit.coefficients.size(), record.coefficients.size());
        for (std::size_t j = 0; j < record.coefficients.size(); ++j) {
          double const wanted = record.coefficients[j];
          if (wanted == 0.0) {
            EXPECT_LT(ShareOf(j, fit), 1e-9) << record.name << " C" << j + 1;
            continue;
          }
          EXPECT_LE(std::abs(fit.coefficients[j] - wanted), kWithin * std::abs(wanted))
              << record.name << " C" << j + 1 << ": " << wanted;
          EXPECT_TRUE(fit.isDetermined[j]) << record.name << " C" << j + 1;
        }
      }
    });
  }
  EXPECT_EQ(found, std::size(kPublished));
  EXPECT_GE(found, 20U);
}

}  // namespace
}  // namespace zel::test

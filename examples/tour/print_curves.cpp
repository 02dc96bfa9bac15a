// Correlations over their range: five points inside, and one beyond each end.
#include <cstdio>

#include "tour.h"

namespace tour {
namespace {

constexpr char const* kIds[] = {"WATER", "NHEXANE"};
constexpr char const* kNames[] = {"VaporPressure", "LiquidDensity",   "LatentHeat",
                                  "IdealEnthalpy", "LiquidViscosity", "VaporViscosity",
                                  "LiquidThermal", "VaporThermal"};
constexpr int kPoints = 5;
constexpr double kBeyond = 0.1;  // distance of the outer points from the bound, relative to it

struct Range {
  double low, high;
};

// False when the component has no such correlation, or the correlation has no limits.
bool RangeOf(Merged const& merged, CurveRow const& row, std::int32_t& equation, Range& range) {
  std::int32_t tempUnit, propUnit, logBasis, basis, count;
  double factor, coefficients[15];
  return merged->GetCorrelation(row.index, &equation, &tempUnit, &propUnit, &factor, &logBasis,
                                &basis, &count, &range.low, &range.high,
                                coefficients) == zel::kStatusOk &&
         !zel::gen_IsUndefDouble(range.low) && !zel::gen_IsUndefDouble(range.high);
}

void PrintPoint(Merged const& merged, CurveRow const& row, double temperature) {
  double value = 0.0;
  double slope = 0.0;
  std::int32_t where = 0;
  zel::ZelStatus const status =
      merged->EvaluateCorrelation(row.index, temperature, 1, &value, &slope, nullptr, &where);
  if (status == zel::kStatusFailed) {
    std::printf(" %9s ", "-");
  } else {
    std::printf(" %9.4g%c", value, where == 0 ? ' ' : '*');
  }
}

void PrintCurve(Merged const& merged, CurveRow const& row, Codes& cited) {
  std::int32_t equation = 0;
  Range range{};
  if (!RangeOf(merged, row, equation, range)) return;
  char source[260];
  std::uint8_t flag = 0;
  std::uint32_t code = 0;
  merged->GetCorrelationSource(row.index, source, &flag);
  merged->GetCorrelationRefCode(row.index, &code);
  if (code != 0) cited.push_back(static_cast<int>(code));
  std::printf("  %s, %s: equation %d from %s, reference %u\n", row.name, row.unit, equation, source,
              code);
  std::vector<double> temperatures = {range.low * (1.0 - kBeyond)};
  for (int i = 0; i < kPoints; ++i) {
    temperatures.push_back(range.low + i * (range.high - range.low) / (kPoints - 1));
  }
  temperatures.push_back(range.high * (1.0 + kBeyond));
  std::printf("    %-6s", "T, K");
  for (double const T : temperatures) std::printf(" %9.2f ", T);
  std::printf("\n    %-6s", "value");
  for (double const T : temperatures) PrintPoint(merged, row, T);
  std::printf("\n");
}

}  // namespace

void PrintCurves(Merged& merged, Components const& components, Codes& cited) {
  for (char const* id : kIds) {
    Component const& component = components.ById(id);
    if (!merged.Find(component)) continue;
    std::printf("\n%s over the temperature (* extrapolated)\n\n", component.name.c_str());
    for (char const* name : kNames) PrintCurve(merged, *FindCurve(name), cited);
  }
}

}  // namespace tour

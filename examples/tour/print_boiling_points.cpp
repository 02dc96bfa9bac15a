// Checks for all components that the vapor pressure at the normal boiling point is one atmosphere.
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <iterator>

#include "tour.h"

namespace tour {
namespace {

constexpr double kAtmosphere = 101.325;                             // kPa
constexpr double kBounds[] = {0.1, 0.2, 0.5, 1.0, 2.0, 5.0, 10.0};  // percent
constexpr std::size_t kWorst = 10;

struct Deviation {
  std::string name;
  double boiling;   // K
  double pressure;  // kPa
  double percent;
  bool extrapolated;
  std::string boilingFrom;
  std::string pressureFrom;
};

bool DeviationOf(Merged& merged, Component const& component, Deviation& found) {
  if (!merged.Find(component)) return false;
  double boiling = 0.0, pressure = 0.0, slope = 0.0;
  std::int32_t where = 0;
  merged->GetProperty(zel::propertyNBP, &boiling);
  if (zel::gen_IsUndefDouble(boiling) ||
      merged->EvaluateCorrelation(zel::correlationVaporPressure, boiling, 1, &pressure, &slope,
                                  nullptr, &where) == zel::kStatusFailed) {
    return false;
  }
  char boilingFrom[260];
  char pressureFrom[260];
  std::uint8_t flag = 0;
  merged->GetPropertySource(zel::propertyNBP, boilingFrom, &flag);
  merged->GetCorrelationSource(zel::correlationVaporPressure, pressureFrom, &flag);
  found = {component.name, boiling,     pressure,    100.0 * (pressure / kAtmosphere - 1.0),
           where != 0,     boilingFrom, pressureFrom};
  return true;
}

void PrintDistribution(std::vector<Deviation> const& all) {
  double low = 0.0;
  std::size_t before = 0;
  for (double const bound : kBounds) {
    auto const upTo = static_cast<std::size_t>(std::count_if(
        all.begin(), all.end(), [&](Deviation const& d) { return std::fabs(d.percent) <= bound; }));
    std::printf("  %5.1f to %5.1f %%  %4zu  %s\n", low, bound, upTo - before,
                std::string((upTo - before + 1) / 2, '#').c_str());
    low = bound;
    before = upTo;
  }
  std::printf("  above    %5.1f %%  %4zu\n", low, all.size() - before);
}

}  // namespace

void PrintBoilingPoints(Merged& merged, Components const& components) {
  std::vector<Deviation> all;
  Deviation found;
  for (Component const& component : components.All()) {
    if (DeviationOf(merged, component, found)) all.push_back(found);
  }
  std::sort(all.begin(), all.end(), [](Deviation const& a, Deviation const& b) {
    return std::fabs(a.percent) > std::fabs(b.percent);
  });
  std::printf(
      "\nVapor pressure at the normal boiling point against 101.325 kPa, %zu components\n\n",
      all.size());
  PrintDistribution(all);
  std::printf("\n  The worst:\n\n  %-28s %8s %9s %8s  %-12s %s\n", "component", "NBP, K", "P, kPa",
              "off by %", "NBP from", "P from");
  for (std::size_t i = 0; i < std::min(kWorst, all.size()); ++i) {
    Deviation const& d = all[i];
    std::printf("  %-28s %8.2f %9.3f %8.2f%c %-12s %s\n", d.name.c_str(), d.boiling, d.pressure,
                d.percent, d.extrapolated ? '*' : ' ', d.boilingFrom.c_str(),
                d.pressureFrom.c_str());
  }
}

}  // namespace tour

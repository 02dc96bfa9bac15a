#include "bench/sample_components.h"

#include <algorithm>
#include <cmath>
#include <string_view>

#include "frame/ascii.h"

namespace zel::bench {
namespace {

struct Row {
  std::string_view name;
  std::string_view formula;
  double mw, tc, pc, vc, gravity, boiling, volume, formation;
  double pressure[5];
  double heat[5];
};

constexpr Row kRows[] = {
    {"BENZENE",
     "C6H6",
     78.11184,
     562.05,
     4895,
     0.256,
     0.882619,
     353.24,
     0.0894,
     82880,
     {88.368, -6712.9, -10.022, 7.694e-06, 2},
     {48810000, 0.61066, -0.25882, 0.032238, 0.022475}},
    {"TOLUENE",
     "C6H5CH3",
     92.13843,
     591.75,
     4108,
     0.316,
     0.870044,
     383.79,
     0.1068,
     50170,
     {32.89891, -5013.81, -1.348918, -1.869928e-06, 2},
     {53752000, 0.50341, 0.24755, -0.72898, 0.37794}},
    {"N-HEPTANE",
     "CH3(CH2)5CH3",
     100.202,
     540.2,
     2740,
     0.428,
     0.686815,
     371.57,
     0.1475,
     -187650,
     {89.80457, -7084.845, -10.17918, 7.441708e-06, 2},
     {42757640, -1.051245, 4.601706, -5.558946, 2.369496}},
    {"CYCLOHEXANE",
     "C6H12",
     84.15948,
     553.5,
     4073,
     0.308,
     0.781822,
     353.93,
     0.1087,
     -123300,
     {79.82965, -6246.688, -8.778766, 6.933726e-06, 2},
     {44856000, 0.35691, 0.26181, -0.47647, 0.25741}},
    {"WATER",
     "H2O",
     18.01528,
     647.14,
     22064,
     0.05595,
     0.997986,
     373.15,
     0.0180674,
     -241814,
     {74.55502, -7295.586, -7.442448, 4.2881e-06, 2},
     {59640000, 0.86515, -1.1134, 0.67764, -0.026925}},
    {"ETHANOL",
     "CH3CH2OH",
     46.06844,
     513.92,
     6148,
     0.167,
     0.79598,
     351.8,
     0.0586177,
     -234950,
     {88.0754, -7652.06, -9.471507, 5.928087e-06, 2},
     {63899000, 1.2782, -2.673, 2.7973, -1.0209}},
};

void SetCorrelation(CorrelationRecord& record, int equation, double const (&coefficients)[5]) {
  record.present = true;
  record.equation = equation;
  record.coefficientCount = 5;
  std::copy(std::begin(coefficients), std::end(coefficients), record.coefficients.begin());
}

std::unique_ptr<Component> Make(Row const& row) {
  constexpr std::size_t kVaporPressure = 0;
  constexpr std::size_t kLatentHeat = 3;
  auto made = std::make_unique<Component>();
  Component& c = *made;
  CopyText(row.name, c.name.data(), c.name.size());
  CopyText(row.formula, c.formula.data(), c.formula.size());
  c.fixed[propertyMW] = row.mw;
  c.fixed[propertyTC] = row.tc;
  c.fixed[propertyPC] = row.pc;
  c.fixed[propertyVC] = row.vc;
  c.fixed[propertySG60F] = row.gravity;
  c.fixed[propertyNBP] = row.boiling;
  c.fixed[propertyMVOL25C] = row.volume;
  c.fixed[propertyHFORMATION] = row.formation;
  SetCorrelation(c.correlations[kVaporPressure], 20, row.pressure);
  SetCorrelation(c.correlations[kLatentHeat], 15, row.heat);
  c.correlations[kVaporPressure].coefficients[0] -= std::log(1000.0);  // from Pa
  c.correlations[kLatentHeat].coefficients[0] /= 1000.0;               // from J/kg-mol
  return made;
}

}  // namespace

Components SampleComponents() {
  Components components;
  for (Row const& row : kRows) components.push_back(Make(row));
  return components;
}

}  // namespace zel::bench

#include "desk/formats/thermoml_properties.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>

namespace zel::desk {
namespace {

constexpr MeasuredProperty kProperties[] = {
    {"Vapor or sublimation pressure, kPa", "Liquid", "VaporPressure", 1.0, 1, 0},
    {"Vapor or sublimation pressure, kPa", "Gas", "VaporPressure", 1.0, 1, 0},
    {"Mass density, kg/m3", "Liquid", "LiquidDensity", 1.0, 1, -1},
    {"Mass density, kg/m3", "Crystal", "SolidDensity", 1.0, 1, -1},
    {"Specific volume, m3/kg", "Liquid", "LiquidDensity", 1.0, -1, -1},
    {"Molar volume, m3/mol", "Liquid", "LiquidDensity", 1e-3, -1, 0},
    {"Amount density, mol/m3", "Liquid", "LiquidDensity", 1e-3, 1, 0},
    {"Viscosity, Pa*s", "Liquid", "LiquidViscosity", 1e3, 1, 0},
    {"Viscosity, Pa*s", "Gas", "VaporViscosity", 1e3, 1, 0},
    {"Thermal conductivity, W/m/K", "Liquid", "LiquidThermal", 1.0, 1, 0},
    {"Thermal conductivity, W/m/K", "Gas", "VaporThermal", 1.0, 1, 0},
    {"Surface tension liquid-gas, N/m", "Liquid", "SurfaceTension", 1.0, 1, 0},
    {"Molar enthalpy of vaporization or sublimation, kJ/mol", "Liquid", "LatentHeat", 1e3, 1, 0},
    {"Molar enthalpy of vaporization or sublimation, kJ/mol", "Gas", "LatentHeat", 1e3, 1, 0},
    {"Molar heat capacity at constant pressure, J/K/mol", "Liquid", "LiquidCp", 1.0, 1, 0},
    {"Molar heat capacity at constant pressure, J/K/mol", "Crystal", "SolidCp", 1.0, 1, 0},
    {"Molar heat capacity at constant pressure, J/K/mol", "Ideal gas", "IdealGasCp", 1.0, 1, 0},
    {"Molar heat capacity at saturation pressure, J/K/mol", "Liquid", "LiquidCp", 1.0, 1, 0},
    {"Molar heat capacity at saturation pressure, J/K/mol", "Crystal", "SolidCp", 1.0, 1, 0},
    {"Specific heat capacity at constant pressure, J/K/kg", "Liquid", "LiquidCp", 1e-3, 1, 1},
    {"Specific heat capacity at saturation pressure, J/K/kg", "Liquid", "LiquidCp", 1e-3, 1, 1},
    {"Relative permittivity at zero frequency", "Liquid", "Dielectric", 1.0, 1, 0},
};

constexpr char kCrystal[] = "Crystal";

bool IsMeasuredPhase(std::string const& wanted, std::string const& phase) {
  if (phase == wanted) return true;
  constexpr std::size_t kLength = sizeof kCrystal - 1;
  bool const isNumbered = phase.size() == kLength + 2 && phase.rfind("Crystal ", 0) == 0 &&
                          phase.back() >= '1' && phase.back() <= '5';
  return wanted == kCrystal && isNumbered;
}

// Levels whose factors are agreed.
struct UsualLevel {
  double from;  // percent
  double to;
  double factor;
};
constexpr UsualLevel kUsualLevels[] = {{67.5, 68.5, 1.0},
                                       {89.5, 90.5, 1.645},
                                       {94.5, 95.5, 2.0},
                                       {98.9, 99.1, 2.576},
                                       {99.65, 99.75, 3.0}};

}  // namespace

MeasuredProperty const* FindMeasuredProperty(std::string const& property,
                                             std::string const& phase) {
  auto const at = std::find_if(
      std::begin(kProperties), std::end(kProperties), [&](MeasuredProperty const& row) {
        return property == row.property && IsMeasuredPhase(row.phase, phase);
      });
  return at == std::end(kProperties) ? nullptr : at;
}

double CoverageFactorOf(double confidence) {
  for (UsualLevel const& level : kUsualLevels) {
    if (confidence >= level.from && confidence <= level.to) return level.factor;
  }
  constexpr double kLeast = 50.0;
  constexpr double kWhole = 100.0;
  if (!(confidence >= kLeast && confidence < kWhole)) {
    return std::numeric_limits<double>::quiet_NaN();
  }
  // The part of normal deviations that are below a factor grows with it.
  double low = 0.0;
  double high = 10.0;
  constexpr int kHalvings = 60;
  for (int i = 0; i < kHalvings; ++i) {
    double const middle = (low + high) / 2.0;
    bool const isBelow = std::erf(middle / std::sqrt(2.0)) < confidence / kWhole;
    (isBelow ? low : high) = middle;
  }
  return high;
}

}  // namespace zel::desk

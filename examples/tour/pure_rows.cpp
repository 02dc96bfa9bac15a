// The names of the constants and correlations of a component, and their internal units.
#include <algorithm>
#include <iterator>

#include "tour.h"

namespace tour {
namespace {

// Internal units.
constexpr ConstantRow kConstants[] = {
    {"MW", 0, "kg/kg-mol"},
    {"TC", 1, "K"},
    {"PC", 2, "kPa"},
    {"VC", 3, "m3/kg-mol"},
    {"ZC", 4, ""},
    {"ACENTRIC", 5, ""},
    {"NMP", 7, "K"},
    {"NBP", 8, "K"},
    {"SG60F", 9, ""},
    {"MVOL25C", 10, "m3/kg-mol"},
    {"SOLUPARA", 11, "(cal/cm3)^0.5"},
    {"PARACHOR", 12, ""},
    {"RACKETT", 13, ""},
    {"DIPOLE", 14, "debye"},
    {"RADIUS", 15, "m"},
    {"DIELECTRIC", 16, ""},
    {"TDIELECTRIC", 17, "K"},
    {"VDWA", 18, ""},
    {"VDWV", 19, ""},
    {"GFORMATION", 23, "kJ/kg-mol"},
    {"HFORMATION", 24, "kJ/kg-mol"},
    {"FLASHPOINT", 25, "K"},
    {"LOFLAMM", 26, "fraction"},
    {"HIFLAMM", 27, "fraction"},
    {"AUTOIGNITION", 28, "K"},
    {"LHV", 34, "kJ/kg-mol"},
    {"CNUM", 35, ""},
    {"TTP", 37, "K"},
    {"PTP", 38, "kPa"},
    {"HCOMBUST", 45, "kJ/kg-mol"},
    {"HFUSIONNMP", 46, "kJ/kg-mol"},
    {"HVAPNBP", 47, "kJ/kg-mol"},
    // These are only derived from the others.
    {"API gravity", 50, ""},
    {"Watson K", 52, ""},
};

constexpr CurveRow kCurves[] = {
    {"VaporPressure", 0, "kPa"},
    {"IdealEnthalpy", 1, "kJ/kg-mol"},
    {"LiquidEnthalpy", 2, "kJ/kg-mol"},
    {"LatentHeat", 3, "kJ/kg-mol"},
    {"LiquidDensity", 4, "kg-mol/m3"},
    {"LiquidThermal", 5, "W/m-K"},
    {"VaporThermal", 6, "W/m-K"},
    {"LiquidViscosity", 7, "cP"},
    {"VaporViscosity", 8, "cP"},
    {"SurfaceTension", 9, "N/m"},
    {"SolidEnthalpy", 11, "kJ/kg-mol"},
    {"SolidDensity", 12, "kg-mol/m3"},
    {"IdealGasCp", 13, "kJ/kg-mol-K"},
    {"LiquidCp", 14, "kJ/kg-mol-K"},
    {"SolidCp", 15, "kJ/kg-mol-K"},
    {"Dielectric", 16, ""},
    {"CharacteristicVolume", 17, "m3/kg-mol"},
};

}  // namespace

CurveRow const* FindCurve(std::string const& name) {
  auto const at = std::find_if(std::begin(kCurves), std::end(kCurves),
                               [&](CurveRow const& row) { return row.name == name; });
  return at == std::end(kCurves) ? nullptr : at;
}

std::vector<ConstantRow> const& AllConstants() {
  static std::vector<ConstantRow> const rows(std::begin(kConstants), std::end(kConstants));
  return rows;
}

}  // namespace tour

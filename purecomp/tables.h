// The fixed constants and correlations of a pure component: names, dimension words, rules.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace zel {

// One fixed constant with a keyword. The dimension word is a class of the unit system, empty for a
// pure number; the unit is the internal one, in which values are kept.
struct PropertyRow {
  std::string_view keyword;
  std::string_view dimension;
  std::int32_t index;
  std::string_view unit;
  std::string_view label;
};

// Ends the rows that are written, and all rows.
inline constexpr std::int32_t kEndOfWritten = -999;
inline constexpr std::int32_t kEndOfRows = -9999;

// Main rows, then aliases that are only read.
// clang-format off
inline constexpr PropertyRow kPropertyRows[] = {
    {"MW",           "",              0, "kg/kg-mol",     "molecular weight"},
    {"TC",           "temp",          1, "K",             "critical temperature"},
    {"PC",           "pres",          2, "kPa",           "critical pressure"},
    {"VC",           "vapspvol",      3, "m3/kg-mol",     "critical volume"},
    {"ZC",           "",              4, "",              "critical compressibility factor"},
    {"ACENTRIC",     "",              5, "",              "acentric factor"},
    {"CHAO",         "",              6, "",              "value stored under this keyword"},
    {"NMP",          "temp",          7, "K",             "normal melting point"},
    {"NBP",          "temp",          8, "K",             "normal boiling point"},
    {"SG60F",        "petrodensity",  9, "",              "specific gravity at 60 F"},
    {"MVOL25C",      "spvol",        10, "m3/kg-mol",     "liquid molar volume at 25 C"},
    {"SOLUPARA",     "",             11, "(cal/cm3)^0.5", "solubility parameter"},
    {"PARACHOR",     "",             12, "",              "parachor"},
    {"RACKETT",      "",             13, "",              "Rackett parameter"},
    {"DIPOLE",       "dipole",       14, "debye",         "dipole moment"},
    {"RADIUS",       "length",       15, "m",             "molecular radius"},
    {"DIELECTRIC",   "",             16, "",              "dielectric constant"},
    {"TDIELECTRIC",  "temp",         17, "K",             "temperature of the dielectric constant"},
    {"VDWA",         "",             18, "",              "van der Waals area"},
    {"VDWV",         "",             19, "",              "van der Waals volume"},
    {"GFORMATION",   "spenthalpy",   23, "kJ/kg-mol",     "Gibbs energy of formation"},
    {"HFORMATION",   "spenthalpy",   24, "kJ/kg-mol",     "heat of formation"},
    {"FLASHPOINT",   "temp",         25, "K",             "flash point"},
    {"LOFLAMM",      "frac",         26, "fraction",      "lower flammability limit"},
    {"HIFLAMM",      "frac",         27, "fraction",      "upper flammability limit"},
    {"AUTOIGNITION", "temp",         28, "K",             "autoignition temperature"},
    {"GHV",          "spenthalpy",   33, "kJ/kg-mol",     "gross heating value"},
    {"LHV",          "spenthalpy",   34, "kJ/kg-mol",     "lower heating value"},
    {"CNUM",         "",             35, "",              "carbon number"},
    {"ZNUM",         "",             36, "",              "value stored under this keyword"},
    {"TTP",          "temp",         37, "K",             "triple point temperature"},
    {"PTP",          "pres",         38, "kPa",           "triple point pressure"},
    {"SVTB",         "spentropy",    39, "kJ/kg-mol-K",   "vapor entropy at the normal boiling point"},
    {"SLTB",         "spentropy",    40, "kJ/kg-mol-K",   "liquid entropy at the normal boiling point"},
    {"SLTM",         "spentropy",    41, "kJ/kg-mol-K",   "liquid entropy at the melting point"},
    {"HVTB",         "spenthalpy",   42, "kJ/kg-mol",     "vapor enthalpy at the normal boiling point"},
    {"HLTB",         "spenthalpy",   43, "kJ/kg-mol",     "liquid enthalpy at the normal boiling point"},
    {"HLTM",         "spenthalpy",   44, "kJ/kg-mol",     "liquid enthalpy at the melting point"},
    {"HCOMBUST",     "spenthalpy",   45, "kJ/kg-mol",     "heat of combustion"},
    {"HFUSIONNMP",   "spenthalpy",   46, "kJ/kg-mol",     "heat of fusion at the melting point"},
    {"HVAPNBP",      "spenthalpy",   47, "kJ/kg-mol",     "heat of vaporization at the normal boiling point"},
    {"", "", kEndOfWritten, "", ""},
    {"MVOL60F",      "spvol",        10, "m3/kg-mol",     "an alias"},
    {"", "", kEndOfRows, "", ""},
};
// clang-format on

// What SetCorrelation does with the basis it is given.
enum class Basis : std::uint8_t { kNone, kAtLeastMolar };
enum class Extrapolation : std::uint8_t { kLogarithmic, kLinear, kFails };

// Limits of an evaluated value, by the code of the table below.
inline constexpr std::int32_t kNoLimit = 0;

struct CorrelationRow {
  std::string_view name;
  std::string_view dimension;
  std::int32_t defaultUnit;
  Basis basis;
  Extrapolation extrapolation;
  std::int32_t limit;     // 9: at least 0; 10: 1e-10 to 1e8; 11 to 13: at least 1e-10
  std::string_view unit;  // internal, that of an evaluated value
  std::string_view label;
};

// By correlation index.
// clang-format off
inline constexpr CorrelationRow kCorrelationRows[] = {
    {"VaporPressure",         "pres",        4015,  Basis::kNone,          Extrapolation::kLogarithmic, 10,       "kPa",         "vapor pressure"},
    {"IdealEnthalpy",         "spenthalpy",  28018, Basis::kAtLeastMolar,  Extrapolation::kLinear,      kNoLimit, "kJ/kg-mol",   "enthalpy of the ideal gas"},
    {"LiquidEnthalpy",        "spenthalpy",  28018, Basis::kAtLeastMolar,  Extrapolation::kLinear,      kNoLimit, "kJ/kg-mol",   "enthalpy of the saturated liquid"},
    {"LatentHeat",            "spenthalpy",  28018, Basis::kAtLeastMolar,  Extrapolation::kLinear,      9,        "kJ/kg-mol",   "heat of vaporization"},
    {"LiquidDensity",         "density",     19081, Basis::kAtLeastMolar,  Extrapolation::kLinear,      12,       "kg-mol/m3",   "density of the saturated liquid"},
    {"LiquidThermal",         "cond",        35010, Basis::kNone,          Extrapolation::kLinear,      12,       "W/m-K",       "thermal conductivity of the liquid"},
    {"VaporThermal",          "cond",        35010, Basis::kNone,          Extrapolation::kLinear,      11,       "W/m-K",       "thermal conductivity of the vapor"},
    {"LiquidViscosity",       "visc",        40010, Basis::kNone,          Extrapolation::kLogarithmic, 12,       "cP",          "viscosity of the liquid"},
    {"VaporViscosity",        "visc",        40010, Basis::kNone,          Extrapolation::kLinear,      11,       "cP",          "viscosity of the vapor"},
    {"SurfaceTension",        "surf",        42015, Basis::kNone,          Extrapolation::kLinear,      12,       "N/m",         "surface tension"},
    {"Expansion",             "temp",        1010,  Basis::kNone,          Extrapolation::kFails,       kNoLimit, "",            "expansion, kept and not evaluated"},
    {"SolidEnthalpy",         "spenthalpy",  28018, Basis::kAtLeastMolar,  Extrapolation::kLinear,      kNoLimit, "kJ/kg-mol",   "enthalpy of the solid"},
    {"SolidDensity",          "density",     19081, Basis::kAtLeastMolar,  Extrapolation::kLinear,      13,       "kg-mol/m3",   "density of the solid"},
    {"IdealGasCp",            "spentropy",   30016, Basis::kAtLeastMolar,  Extrapolation::kLinear,      kNoLimit, "kJ/kg-mol-K", "heat capacity of the ideal gas"},
    {"LiquidCp",              "spentropy",   30016, Basis::kAtLeastMolar,  Extrapolation::kLinear,      kNoLimit, "kJ/kg-mol-K", "heat capacity of the liquid"},
    {"SolidCp",               "spentropy",   30016, Basis::kAtLeastMolar,  Extrapolation::kLinear,      kNoLimit, "kJ/kg-mol-K", "heat capacity of the solid"},
    {"Dielectric",            "diel",        0,     Basis::kNone,          Extrapolation::kLinear,      kNoLimit, "",            "dielectric constant"},
    {"CharacteristicVolume",  "vols",        19081, Basis::kAtLeastMolar,  Extrapolation::kLinear,      12,       "m3/kg-mol",   "characteristic volume"},
};
// clang-format on
inline constexpr std::int32_t kNamedCorrelations = 18;
static_assert(sizeof kCorrelationRows / sizeof kCorrelationRows[0] == kNamedCorrelations);

// Models of group structures, by number.
inline constexpr std::array<std::string_view, 7> kModelKeywords = {
    "legacy", "orig-public", "orig-cons", "dort-public", "dort-cons", "lyngby", "joback"};

}  // namespace zel

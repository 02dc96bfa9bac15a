// The fixed constants and correlations of a pure component: names, dimension words, rules.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace zel {

// One fixed constant with a keyword. The dimension word is a class of the unit system, empty for a
// pure number.
struct PropertyRow {
  std::string_view keyword;
  std::string_view dimension;
  std::int32_t index;
};

// Ends the rows that are written, and all rows.
inline constexpr std::int32_t kEndOfWritten = -999;
inline constexpr std::int32_t kEndOfRows = -9999;

// Main rows, then aliases that are only read.
// clang-format off
inline constexpr PropertyRow kPropertyRows[] = {
    {"MW",           "",             0},  // molecular weight
    {"TC",           "temp",         1},  // critical temperature
    {"PC",           "pres",         2},  // critical pressure
    {"VC",           "vapspvol",     3},  // critical volume
    {"ZC",           "",             4},  // critical compressibility factor
    {"ACENTRIC",     "",             5},  // acentric factor
    {"CHAO",         "",             6},  // value stored under this keyword
    {"NMP",          "temp",         7},  // normal melting point
    {"NBP",          "temp",         8},  // normal boiling point
    {"SG60F",        "petrodensity", 9},  // specific gravity at 60 F
    {"MVOL25C",      "spvol",        10},  // liquid molar volume at 25 C
    {"SOLUPARA",     "",             11},  // solubility parameter
    {"PARACHOR",     "",             12},  // parachor
    {"RACKETT",      "",             13},  // Rackett parameter
    {"DIPOLE",       "dipole",       14},  // dipole moment
    {"RADIUS",       "length",       15},  // molecular radius
    {"DIELECTRIC",   "",             16},  // dielectric constant
    {"TDIELECTRIC",  "temp",         17},  // temperature of the dielectric constant
    {"VDWA",         "",             18},  // van der Waals area
    {"VDWV",         "",             19},  // van der Waals volume
    {"GFORMATION",   "spenthalpy",   23},  // Gibbs energy of formation
    {"HFORMATION",   "spenthalpy",   24},  // heat of formation
    {"FLASHPOINT",   "temp",         25},  // flash point
    {"LOFLAMM",      "frac",         26},  // lower flammability limit
    {"HIFLAMM",      "frac",         27},  // upper flammability limit
    {"AUTOIGNITION", "temp",         28},  // autoignition temperature
    {"GHV",          "spenthalpy",   33},  // gross heating value
    {"LHV",          "spenthalpy",   34},  // lower heating value
    {"CNUM",         "",             35},  // carbon number
    {"ZNUM",         "",             36},  // value stored under this keyword
    {"TTP",          "temp",         37},  // triple point temperature
    {"PTP",          "pres",         38},  // triple point pressure
    {"SVTB",         "spentropy",    39},  // vapor entropy at the normal boiling point
    {"SLTB",         "spentropy",    40},  // liquid entropy at the normal boiling point
    {"SLTM",         "spentropy",    41},  // liquid entropy at the melting point
    {"HVTB",         "spenthalpy",   42},  // vapor enthalpy at the normal boiling point
    {"HLTB",         "spenthalpy",   43},  // liquid enthalpy at the normal boiling point
    {"HLTM",         "spenthalpy",   44},  // liquid enthalpy at the melting point
    {"HCOMBUST",     "spenthalpy",   45},  // heat of combustion
    {"HFUSIONNMP",   "spenthalpy",   46},  // heat of fusion at the melting point
    {"HVAPNBP",      "spenthalpy",   47},  // heat of vaporization at the normal boiling point
    {"",              "",             kEndOfWritten},
    {"MVOL60F",       "spvol",        10},  // an alias
    {"",              "",             kEndOfRows},
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
  std::int32_t limit;  // 9: at least 0; 10: 1e-10 to 1e8; 11 to 13: at least 1e-10
};

// By correlation index.
// clang-format off
inline constexpr CorrelationRow kCorrelationRows[] = {
    {"VaporPressure",         "pres",          4015, Basis::kNone,         Extrapolation::kLogarithmic, 10},
    {"IdealEnthalpy",         "spenthalpy",   28018, Basis::kAtLeastMolar, Extrapolation::kLinear,      kNoLimit},
    {"LiquidEnthalpy",        "spenthalpy",   28018, Basis::kAtLeastMolar, Extrapolation::kLinear,      kNoLimit},
    {"LatentHeat",            "spenthalpy",   28018, Basis::kAtLeastMolar, Extrapolation::kLinear,      9},
    {"LiquidDensity",         "density",      19081, Basis::kAtLeastMolar, Extrapolation::kLinear,      12},
    {"LiquidThermal",         "cond",         35010, Basis::kNone,         Extrapolation::kLinear,      12},
    {"VaporThermal",          "cond",         35010, Basis::kNone,         Extrapolation::kLinear,      11},
    {"LiquidViscosity",       "visc",         40010, Basis::kNone,         Extrapolation::kLogarithmic, 12},
    {"VaporViscosity",        "visc",         40010, Basis::kNone,         Extrapolation::kLinear,      11},
    {"SurfaceTension",        "surf",         42015, Basis::kNone,         Extrapolation::kLinear,      12},
    {"Expansion",             "temp",          1010, Basis::kNone,         Extrapolation::kFails,       kNoLimit},
    {"SolidEnthalpy",         "spenthalpy",   28018, Basis::kAtLeastMolar, Extrapolation::kLinear,      kNoLimit},
    {"SolidDensity",          "density",      19081, Basis::kAtLeastMolar, Extrapolation::kLinear,      13},
    {"IdealGasCp",            "spentropy",    30016, Basis::kAtLeastMolar, Extrapolation::kLinear,      kNoLimit},
    {"LiquidCp",              "spentropy",    30016, Basis::kAtLeastMolar, Extrapolation::kLinear,      kNoLimit},
    {"SolidCp",               "spentropy",    30016, Basis::kAtLeastMolar, Extrapolation::kLinear,      kNoLimit},
    {"Dielectric",            "diel",             0, Basis::kNone,         Extrapolation::kLinear,      kNoLimit},
    {"CharacteristicVolume",  "vols",         19081, Basis::kAtLeastMolar, Extrapolation::kLinear,      12},
};
// clang-format on
inline constexpr std::int32_t kNamedCorrelations = 18;
static_assert(sizeof kCorrelationRows / sizeof kCorrelationRows[0] == kNamedCorrelations);

// Models of group structures, by number.
inline constexpr std::array<std::string_view, 7> kModelKeywords = {
    "legacy", "orig-public", "orig-cons", "dort-public", "dort-cons", "lyngby", "joback"};

}  // namespace zel

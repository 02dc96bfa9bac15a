// The fixed constants and correlations of a pure component: names, dimension words, rules.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "zelaccess/PureComp.h"

namespace zel {

// One fixed constant with a keyword. The dimension word is a class of the unit system, empty for a
// pure number; the unit is the internal one, in which values are kept.
struct PropertyRow {
  std::string_view keyword;
  std::string_view dimension;
  std::int32_t index;  // of zelProperties
  std::string_view unit;
  std::string_view label;
};

// Mark the end of the rows that are written, and of all rows.
inline constexpr std::int32_t kEndOfWritten = -999;
inline constexpr std::int32_t kEndOfRows = -9999;

// Main rows, then aliases that are only read.
// clang-format off
inline constexpr PropertyRow kPropertyRows[] = {
    {"MW",           "",             propertyMW,            "kg/kg-mol",     "molecular weight"},
    {"TC",           "temp",         propertyTC,            "K",             "critical temperature"},
    {"PC",           "pres",         propertyPC,            "kPa",           "critical pressure"},
    {"VC",           "vapspvol",     propertyVC,            "m3/kg-mol",     "critical volume"},
    {"ZC",           "",             propertyZC,            "",              "critical compressibility factor"},
    {"ACENTRIC",     "",             propertyACENTRIC,      "",              "acentric factor"},
    {"CHAO",         "",             propertyCHAO,          "",              "value stored under this keyword"},
    {"NMP",          "temp",         propertyNMP,           "K",             "normal melting point"},
    {"NBP",          "temp",         propertyNBP,           "K",             "normal boiling point"},
    {"SG60F",        "petrodensity", propertySG60F,         "",              "specific gravity at 60 F"},
    {"MVOL25C",      "spvol",        propertyMVOL25C,       "m3/kg-mol",     "liquid molar volume at 25 C"},
    {"SOLUPARA",     "",             propertySOLUPARA,      "(cal/cm3)^0.5", "solubility parameter"},
    {"PARACHOR",     "",             propertyPARACHOR,      "",              "parachor"},
    {"RACKETT",      "",             propertyRACKETT,       "",              "Rackett parameter"},
    {"DIPOLE",       "dipole",       propertyDIPOLE,        "debye",         "dipole moment"},
    {"RADIUS",       "length",       propertyRADIUS,        "m",             "molecular radius"},
    {"DIELECTRIC",   "",             propertyDIELECTRIC,    "",              "dielectric constant"},
    {"TDIELECTRIC",  "temp",         propertyTDIELECTRIC,   "K",             "temperature of the dielectric constant"},
    {"VDWA",         "",             propertyVDWA,          "",              "van der Waals area"},
    {"VDWV",         "",             propertyVDWV,          "",              "van der Waals volume"},
    {"GFORMATION",   "spenthalpy",   propertyGFORMATION,    "kJ/kg-mol",     "Gibbs energy of formation"},
    {"HFORMATION",   "spenthalpy",   propertyHFORMATION,    "kJ/kg-mol",     "heat of formation"},
    {"FLASHPOINT",   "temp",         propertyFLASHPOINT,    "K",             "flash point"},
    {"LOFLAMM",      "frac",         propertyLOFLAMM,       "fraction",      "lower flammability limit"},
    {"HIFLAMM",      "frac",         propertyHIFLAMM,       "fraction",      "upper flammability limit"},
    {"AUTOIGNITION", "temp",         propertyAUTOIGNITION,  "K",             "autoignition temperature"},
    {"GHV",          "spenthalpy",   propertyGHV,           "kJ/kg-mol",     "gross heating value"},
    {"LHV",          "spenthalpy",   propertyLHV,           "kJ/kg-mol",     "lower heating value"},
    {"CNUM",         "",             propertyCNUM,          "",              "carbon number"},
    {"ZNUM",         "",             propertyZNUM,          "",              "value stored under this keyword"},
    {"TTP",          "temp",         propertyTTP,           "K",             "triple point temperature"},
    {"PTP",          "pres",         propertyPTP,           "kPa",           "triple point pressure"},
    {"SVTB",         "spentropy",    propertySVTB,          "kJ/kg-mol-K",   "vapor entropy at the normal boiling point"},
    {"SLTB",         "spentropy",    propertySLTB,          "kJ/kg-mol-K",   "liquid entropy at the normal boiling point"},
    {"SLTM",         "spentropy",    propertySLTM,          "kJ/kg-mol-K",   "liquid entropy at the melting point"},
    {"HVTB",         "spenthalpy",   propertyHVTB,          "kJ/kg-mol",     "vapor enthalpy at the normal boiling point"},
    {"HLTB",         "spenthalpy",   propertyHLTB,          "kJ/kg-mol",     "liquid enthalpy at the normal boiling point"},
    {"HLTM",         "spenthalpy",   propertyHLTM,          "kJ/kg-mol",     "liquid enthalpy at the melting point"},
    {"HCOMBUST",     "spenthalpy",   propertyHCOMBUST,      "kJ/kg-mol",     "heat of combustion"},
    {"HFUSIONNMP",   "spenthalpy",   propertyHFUSIONNMP,    "kJ/kg-mol",     "heat of fusion at the melting point"},
    {"HVAPNBP",      "spenthalpy",   propertyHVAPNBP,       "kJ/kg-mol",     "heat of vaporization at the normal boiling point"},
    {"", "", kEndOfWritten, "", ""},
    {"MVOL60F",      "spvol",        propertyMVOL25C,       "m3/kg-mol",     "an alias"},
    {"", "", kEndOfRows, "", ""},
};
// clang-format on

// How SetCorrelation treats the basis that it is passed.
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

// By zelCorrelations.
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

// By zelStructureModels.
inline constexpr std::array<std::string_view, 7> kModelKeywords = {
    "legacy", "orig-public", "orig-cons", "dort-public", "dort-cons", "lyngby", "joback"};

}  // namespace zel

// The words for unit codes in the correlations of documents.
#pragma once

#include <cstdint>
#include <string_view>

#include "frame/ascii.h"

namespace zel {

struct UnitWordRow {
  std::int32_t code;
  std::string_view written;
  // The word by which the code is found: the one that the unit table shows for the unit, or the
  // word of the document for a molar volume. Empty if another code of the same unit is found
  // instead.
  std::string_view read;
};

// clang-format off
inline constexpr UnitWordRow kUnitWords[] = {
    // temperature
    {1010, "k", "K"}, {1011, "c", "C"}, {1012, "r", "R"}, {1013, "f", "F"},
    // pressure
    {4010, "dyne/cm2", "dyne/cm2"}, {4012, "n/m2", "N/m2"}, {4014, "pa", "Pa"},
    {4015, "kpa", "kPa"}, {4016, "mpa", "MPa"}, {4017, "bar", "bar"}, {4019, "mm hg", "mm Hg"},
    {4021, "kg/cm2", "kg/cm2"}, {4025, "atm", "atm"}, {4026, "psia", "psia"},
    {4032, "in hg", "in Hg"}, {4033, "mbar", "mbar"},
    // density
    {19012, "g/lit", "g/liter"}, {19018, "kg/lit", "kg/liter"}, {19026, "lb/gal", "lb/gal"},
    {19030, "lb/bbl", "lb/bbl"}, {19063, "g/cm3", "g/cm3"}, {19067, "g/m3", "g/m3"},
    {19073, "kg/cm3", "kg/cm3"}, {19081, "kg/m3", "kg/m3"}, {19089, "lb/in3", "lb/in3"},
    {19091, "lb/ft3", "lb/ft3"},
    // molar volume
    {22012, "lit/kg-mole", "liter/kg-mole"}, {22014, "lit/g-mole", "liter/g-mole"},
    {22016, "m3/g-mole", "m3/g-mole"}, {22018, "gal/lb-mole", "gal/lb-mole"},
    {22020, "cm3/kg-mole", "cm3/kg-mole"}, {22022, "cm3/g-mole", "cm3/g-mole"},
    {22024, "m3/kg-mole", "m3/kg-mole"}, {22026, "in3/lb-mole", "in3/lb-mole"},
    {22028, "ft3/lb-mole", "ft3/lb-mole"}, {22034, "bbl/lb-mole", "bbl/lb-mole"},
    // specific energy
    {28010, "j/g", "J/g"}, {28012, "j/kg", "J/kg"}, {28016, "kj/g", "kJ/g"},
    {28018, "kj/kg", "kJ/kg"}, {28028, "cal/g", "cal/g"}, {28030, "cal/kg", "cal/kg"},
    {28064, "cal/kg", ""}, {28034, "kcal/g", "kcal/g"}, {28058, "kcal/g", ""},
    {28036, "kcal/kg", "kcal/kg"}, {28060, "kcal/kg", ""}, {28044, "btu/lb", ""},
    {28070, "btu/lb", "BTU/lb"},
    // specific entropy
    {30010, "j/g-k", "J/K-g"}, {30012, "j/kg-k", "J/K-kg"}, {30014, "kj/g-k", "kJ/K-g"},
    {30016, "kj/kg-k", "kJ/K-kg"}, {30022, "cal/g-k", "cal/K-g"}, {30024, "cal/kg-k", "cal/K-kg"},
    {30026, "kcal/g-k", "kcal/K-g"}, {30028, "kcal/kg-k", "kcal/K-kg"},
    {30030, "btu/lb-f", "BTU/F-lb"},
    // conductivity
    {35010, "w/m-k", "W/m-K"}, {35011, "w/m-k", ""}, {35014, "kw/m-k", "kW/m-K"},
    {35018, "cal/sec-cm-c", "cal/sec-cm-C"}, {35020, "cal/hr-m-c", "cal/hr-m-C"},
    {35022, "kcal/hr-m-c", "kcal/hr-m-C"}, {35024, "btu/hr-ft-f", "BTU/hr-ft-F"},
    // viscosity
    {40010, "cp", "CP"}, {40012, "pa-sec", "Pa-sec"}, {40029, "lb-sec/ft2", "lb-sec/ft2"},
    // surface tension
    {42012, "dyne/cm", "dyne/cm"}, {42013, "dyne/cm", ""}, {42015, "n/m", "N/m"},
    {42016, "n/m", ""},
};
// clang-format on

// The unit table has no class for molar volumes.
constexpr bool IsMolarVolume(std::int32_t code) noexcept { return code / 1000 == 22; }

// Empty for a code that has no word.
constexpr std::string_view UnitWordOf(std::int32_t code) noexcept {
  for (UnitWordRow const& row : kUnitWords) {
    if (row.code == code) return row.written;
  }
  return {};
}

// The code of a word, among those of molar volumes or among the others; 0 for an unknown word.
inline std::int32_t UnitCodeOf(std::string_view word, bool molarVolume) noexcept {
  for (UnitWordRow const& row : kUnitWords) {
    bool const isOfKind = IsMolarVolume(row.code) == molarVolume && !row.read.empty();
    if (isOfKind && SameText(row.read, word)) return row.code;
  }
  return 0;
}

}  // namespace zel

// The word that stands for a unit code where correlations are written. Two codes can share one.
#pragma once

#include <cstdint>
#include <string_view>

namespace zel {

struct UnitWordRow {
  std::int32_t code;
  std::string_view word;
};

// clang-format off
inline constexpr UnitWordRow kUnitWords[] = {
    // temperature
    {1010, "k"}, {1011, "c"}, {1012, "r"}, {1013, "f"},
    // pressure
    {4010, "dyne/cm2"}, {4012, "n/m2"}, {4014, "pa"}, {4015, "kpa"}, {4016, "mpa"}, {4017, "bar"},
    {4019, "mm hg"}, {4021, "kg/cm2"}, {4025, "atm"}, {4026, "psia"}, {4032, "in hg"}, {4033, "mbar"},
    // density
    {19012, "g/lit"}, {19018, "kg/lit"}, {19026, "lb/gal"}, {19030, "lb/bbl"}, {19063, "g/cm3"},
    {19067, "g/m3"}, {19073, "kg/cm3"}, {19081, "kg/m3"}, {19089, "lb/in3"}, {19091, "lb/ft3"},
    // molar volume
    {22012, "lit/kg-mole"}, {22014, "lit/g-mole"}, {22016, "m3/g-mole"}, {22018, "gal/lb-mole"},
    {22020, "cm3/kg-mole"}, {22022, "cm3/g-mole"}, {22024, "m3/kg-mole"}, {22026, "in3/lb-mole"},
    {22028, "ft3/lb-mole"}, {22034, "bbl/lb-mole"},
    // specific energy
    {28010, "j/g"}, {28012, "j/kg"}, {28016, "kj/g"}, {28018, "kj/kg"}, {28028, "cal/g"},
    {28030, "cal/kg"}, {28064, "cal/kg"}, {28034, "kcal/g"}, {28058, "kcal/g"}, {28036, "kcal/kg"},
    {28060, "kcal/kg"}, {28044, "btu/lb"}, {28070, "btu/lb"},
    // specific entropy
    {30010, "j/g-k"}, {30012, "j/kg-k"}, {30014, "kj/g-k"}, {30016, "kj/kg-k"}, {30022, "cal/g-k"},
    {30024, "cal/kg-k"}, {30026, "kcal/g-k"}, {30028, "kcal/kg-k"}, {30030, "btu/lb-f"},
    // conductivity
    {35010, "w/m-k"}, {35011, "w/m-k"}, {35014, "kw/m-k"}, {35018, "cal/sec-cm-c"},
    {35020, "cal/hr-m-c"}, {35022, "kcal/hr-m-c"}, {35024, "btu/hr-ft-f"},
    // viscosity
    {40010, "cp"}, {40012, "pa-sec"}, {40029, "lb-sec/ft2"},
    // surface tension
    {42012, "dyne/cm"}, {42013, "dyne/cm"}, {42015, "n/m"}, {42016, "n/m"},
};
// clang-format on

// Empty for a code that has no word.
constexpr std::string_view UnitWordOf(std::int32_t code) noexcept {
  for (UnitWordRow const& row : kUnitWords) {
    if (row.code == code) return row.word;
  }
  return {};
}

}  // namespace zel

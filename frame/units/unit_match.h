// Reading a unit text against a unit class.
#pragma once

#include <string_view>

#include "frame/units/unit_catalogue.h"

namespace zel {

// Looks for `text` in the list of a class and in what its factors make: the units above the line
// joined by "-", "/", the units below it joined by "-", each with its exponent as a digit behind
// it. The factors of one side may stand in any order. `budget` counts the looks at rows; when it is
// used up nothing matches, so that no table and no text can hold up its reader.
bool MatchUnit(UnitCatalogue const& catalogue, int unitClass, std::string_view text, UnitForm form,
               long& budget, UnitChoice& unit);

// What one look-up of a host may use up.
inline constexpr long kLookUpBudget = 200000;

}  // namespace zel

// Matches a unit text with the units of a class.
#pragma once

#include <string_view>

#include "frame/units/unit_catalogue.h"

namespace zel {

// Looks for `text` in the list of a class and among the products of its factors: the units of
// the numerator joined by "-", then "/", then those of the denominator joined by "-", each followed
// by its exponent as a digit. The factors of one side may be in any order. `budget` limits the
// number of row comparisons; once it is used up nothing matches, so that no table or text can take
// unlimited time.
bool MatchUnit(UnitCatalogue const& catalogue, int unitClass, std::string_view text, UnitForm form,
               long& budget, UnitChoice& unit);

// The budget of one look-up by a host.
inline constexpr long kLookUpBudget = 200000;

}  // namespace zel

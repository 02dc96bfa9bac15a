// Where the ranges of curves begin and end in a library.
#pragma once

#include <span>
#include <vector>

#include "verify/judge/substance.h"
#include "verify/judge/tension.h"

namespace zel {

// Appends to `tensions`, which has a vector for each substance, the comparisons of the limits of
// curves with those that the other components of the bank have: the author of a bank lets nearly
// all curves of a kind begin, or end, at the same point of the substance, together with another
// curve, or at one of a few temperatures. Limits that are at a usual point are not listed, unless
// the same limit of another curve is not at one.
void AddRangeHabits(std::vector<Substance> const& substances,
                    std::vector<std::vector<Tension>>& tensions);

// The rules of these comparisons.
std::span<JudgeRule const> RangeHabitRules();

}  // namespace zel

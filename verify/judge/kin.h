// Forecasts from similar substances: regressions over all components of the libraries.
#pragma once

#include <vector>

#include "verify/judge/substance.h"
#include "verify/judge/tension.h"

namespace zel {

// Appends to `tensions`, which has a vector for each substance, the comparison of each datum with
// what a robust regression over all other substances gives.
void AddKinComparisons(std::vector<Substance> const& substances,
                       std::vector<std::vector<Tension>>& tensions);

// The rules of these comparisons.
std::vector<JudgeRule const*> KinRules();

}  // namespace zel

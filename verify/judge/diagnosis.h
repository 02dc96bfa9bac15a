// Which datum is the likely culprit when comparisons disagree.
#pragma once

#include <vector>

#include "verify/judge/tension.h"

namespace zel {

struct Suspicion {
  Claim claim;            // the datum most likely wrong
  double strength = 0.0;  // 0 to 1
  // The comparisons that disagree and that it explains, the strongest first.
  std::vector<Tension> against;
  std::size_t agreeing = 0;  // comparisons of the datum that agree
};

// The suspicions of one substance that are at least this strong, the strongest first.
std::vector<Suspicion> Diagnose(std::vector<Tension> const& tensions, double minStrength = 0.0);

}  // namespace zel

// Which datum is the likely culprit when comparisons disagree.
#pragma once

#include <vector>

#include "verify/judge/tension.h"

namespace zel {

struct Suspicion {
  Claim claim;            // the datum most likely wrong
  double strength = 0.0;  // 0 to 1
  // The comparisons that disagree and that it explains, the strongest first; in the vector passed.
  std::vector<Tension const*> against;
  std::size_t agreeing = 0;  // comparisons of the datum that agree
};

// The suspicions of one substance, the strongest first.
std::vector<Suspicion> Diagnose(std::vector<Tension> const& tensions);

}  // namespace zel

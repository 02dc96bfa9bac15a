// Faults of the record of a correlation as a whole.
#pragma once

#include <string>

#include "open/pure_component.h"

namespace zelhost {

// "equation 99 is not known", or "equation 16 needs at least 4 coefficients, but the record has 2;
// missing ones count as 0"; empty when nothing is wrong.
std::string FaultOf(Curve const& curve);

}  // namespace zelhost

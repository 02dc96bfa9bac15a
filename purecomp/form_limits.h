// Derivatives and sensitivities of the forms at the points where a root or a power in them begins.
#pragma once

#include <cstddef>
#include <optional>

#include "purecomp/equations.h"

namespace zel {

// The limit of a derivative of a form (order 1 to 3) at the temperature of the call: the limit from
// below, where the forms in 1 - T/Tc are defined, otherwise that from above. Infinite where the
// derivative is unbounded. None for forms in which no root or power begins within their use, and
// where a limit does not exist.
std::optional<double> DerivativeLimit(EquationCall const& call, int N, int order);

// The same for the sensitivity to coefficient k, counted from 0: the limit from above, otherwise
// from below.
std::optional<double> SensitivityLimit(EquationCall const& call, int N, std::size_t k);

}  // namespace zel

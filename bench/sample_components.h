// Components that lack everything that the fill-in can derive.
#pragma once

#include <memory>
#include <vector>

#include "purecomp/component.h"

namespace zel::bench {

using Components = std::vector<std::unique_ptr<Component>>;

// Six liquids with their constants, vapor pressures (equation 20, in kPa) and heats of vaporization
// (equation 15, in kJ/kg-mol); data of ChemSep (Kooijman and Taylor).
Components SampleComponents();

}  // namespace zel::bench

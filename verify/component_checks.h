// The checks that need only one component.
#pragma once

#include "verify/component_view.h"
#include "verify/data_finding.h"

namespace zel {

inline constexpr double kAtmosphere = 101.325;  // kPa

// Checks one component, as its bank has it.
void CheckComponent(ComponentView const& component, CheckedItem const& item,
                    DataFindings& findings);

}  // namespace zel

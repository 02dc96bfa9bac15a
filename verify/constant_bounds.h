// The bounds that physics sets to the constants of a component.
#pragma once

#include "verify/component_view.h"
#include "verify/data_finding.h"

namespace zel {

// The check "bounds": reports each constant that is outside its bounds.
void CheckBounds(ComponentView const& component, CheckedItem const& item, DataFindings& findings);

}  // namespace zel

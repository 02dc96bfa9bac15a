// The checks of banks of pairs and of groups.
#pragma once

#include "verify/checked_library.h"

namespace zel {

// Reports pairs that are stored in both orders with values that contradict each other, although
// their type stores one order for both. Banks of other types are skipped.
void CheckPairs(CheckedLibrary& library, CheckedBank const& bank);

// Reports groups of a group bank whose main group has no interaction with another, and groups of
// components that the bank does not contain. Banks of other types are skipped.
void CheckGroups(CheckedLibrary& library, CheckedBank const& bank);

}  // namespace zel

// Plausibility checks of banks of pairs and groups.
#pragma once

#include "open/library.h"
#include "sense/sense_checks.h"

namespace zelhost {

// Reports pairs that are stored in both orders with values that contradict each other, although
// their type stores one order for both.
void CheckPairSense(Library const& library, BankName const& bank, TellSense const& tell);

// Reports groups of a group bank whose main group has no interaction with another, and groups of
// components that the bank does not contain. Banks of other types are skipped.
void CheckGroupSense(Library const& library, BankName const& bank, TellSense const& tell);

}  // namespace zelhost

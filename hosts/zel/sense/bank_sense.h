// Sense checks of banks of pairs and groups.
#pragma once

#include "open/library.h"
#include "sense/sense_checks.h"

namespace zelhost {

// Pairs that are stored in both orders with values that are not each other's, although their type
// keeps one order for both.
void CheckPairSense(Library const& library, BankName const& bank, TellSense const& tell);

// Groups of a group bank whose main group has no interaction with another, and groups of components
// that the bank does not hold. Banks of other types are passed over.
void CheckGroupSense(Library const& library, BankName const& bank, TellSense const& tell);

}  // namespace zelhost

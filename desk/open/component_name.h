// Components that are named by their names, such as "1-butanol", instead of by an ID.
#pragma once

#include <string>
#include <vector>

#include "desk/open/nearest.h"

namespace zel::desk {

// The word by which a component is looked up. A number, a CAS number and an ID that one of the
// libraries knows are returned as they are. A name is replaced with the first ID of the component
// that has it, or with its number if it has no ID: the component in the first bank that has one of
// exactly this name, else the only component whose name begins with the word. Letters are compared
// without regard to case. A word that means none of these is returned as it is.
//
// Throws Failure if the word is the name, or the beginning of the names, of several components. In
// several banks, components with the same first ID count as one.
std::string LookupWord(std::string const& word, ComponentBanks const& banks);

}  // namespace zel::desk

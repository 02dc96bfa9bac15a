// Suggests a component for a word that does not name one.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "desk/open/library.h"

namespace zel::desk {

// The banks in which to look for a component.
using ComponentBanks = std::vector<std::pair<Library const*, BankName>>;
// The banks of a library and of that of --names.
ComponentBanks BanksKnownTo(Library const& library);

// The component that the word probably means, as the end of a message: "; the nearest ID is WATER
// (Water)". An ID is compared with IDs and names, a number with numbers and a CAS number with CAS
// numbers. Names that begin with the word are considered, and those whose distance from it is at
// most a third of its length; without such a name, the message says which command lists components.
// Empty if the banks hold no component.
std::string NearestTo(std::string const& word, ComponentBanks const& banks);

}  // namespace zel::desk

// What was probably meant by a word that names no component.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "open/library.h"

namespace zelhost {

// Where to look for a component.
using ComponentBanks = std::vector<std::pair<Library const*, BankName>>;
// The banks of a library and of the one that --names gives.
ComponentBanks BanksKnownTo(Library const& library);

// The component that the word probably means, as the end of a message: "; the nearest ID is WATER
// (Water)". An ID is compared with IDs and names, a number with numbers and a CAS number with CAS
// numbers. A name that begins with the word may be meant, and one whose distance from it is at most
// a third of its length; where there is none, the message says which command lists components.
// Empty when the banks hold no component.
std::string NearestTo(std::string const& word, ComponentBanks const& banks);

// How many letters must be put in, left out, changed or exchanged with their neighbour to make one
// text of the other.
std::size_t EditDistance(std::string const& one, std::string const& other);

}  // namespace zelhost

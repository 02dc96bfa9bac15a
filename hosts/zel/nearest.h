// What was probably meant by a word that names no component.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "library.h"

namespace zelhost {

// Where to look for a component.
using ComponentBanks = std::vector<std::pair<Library const*, BankName>>;
// The banks of a library and of the one that --names gives.
ComponentBanks BanksKnownTo(Library const& library);

// The component whose name is nearest to the word, as the end of a message: "; the nearest ID is
// WATER (Water)". An ID is held against IDs and names, a number against numbers and a CAS number
// against those. Empty when the banks hold no component.
std::string NearestTo(std::string const& word, ComponentBanks const& banks);

// How many letters must be put in, left out, changed or exchanged with their neighbour to make one
// text of the other.
std::size_t EditDistance(std::string const& one, std::string const& other);

}  // namespace zelhost

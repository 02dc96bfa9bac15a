// The atoms of a formula, including the water of a hydrate.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>

namespace zel {

// Number of atoms by element, without elements that have 0 atoms.
using Composition = std::map<std::string, std::int64_t>;

// False for an empty text, for one that is not a formula and for "mixture" and "petro", which have
// no atoms.
bool CompositionOf(std::string_view formula, Composition& atoms);

}  // namespace zel

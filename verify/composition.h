// The atoms of a formula, the water of a hydrate among them.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>

namespace zel {

// Atoms by element, without those that are counted 0 times.
using Composition = std::map<std::string, std::int64_t>;

// False for an empty text, for one that is no formula and for "mixture" and "petro", which have no
// atoms.
bool CompositionOf(std::string_view formula, Composition& atoms);

}  // namespace zel

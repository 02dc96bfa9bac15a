// The definition of a unit class as a product and quotient of others, as in "Energy / Mole
// TempDiff".
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace zel {

inline constexpr int kMostFactors = 6;
inline constexpr int kMostExponent = 9;

struct DefinitionFactor {
  std::string name;  // as written, with the digit of an exponent
  bool above;        // the first "/"
};

// A blank multiplies, and everything after the first "/" divides; "1" means that nothing is above
// the line. False when a name is missing on either side of a "/", or when there are more than
// kMostFactors.
bool ReadDefinition(std::string_view text, std::vector<DefinitionFactor>& factors);

}  // namespace zel

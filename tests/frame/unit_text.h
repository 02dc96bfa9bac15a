// Reads a unit text such as BTU/hr-ft2-F by the definitions of its words, independently of the unit
// system and the tables of factors: its value in SI units and its dimension.
#pragma once

#include <array>
#include <optional>
#include <string_view>

namespace zel::test {

// Exponents of kg, m, s, K, mol, C.
using Dimension = std::array<int, 6>;

struct UnitMeaning {
  double value = 1.0;
  Dimension dimension{};
  bool operator==(UnitMeaning const&) const = default;
};

// No result for a text with an unknown word.
std::optional<UnitMeaning> ReadUnit(std::string_view text);

// True if `factor` is `exact` rounded to six digits, or closer.
bool IsRounded(double factor, double exact);

}  // namespace zel::test

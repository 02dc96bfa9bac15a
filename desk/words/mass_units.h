// Units per mass of quantities that libraries have per mole, such as enthalpies and densities. One
// cannot be converted to the other without the molecular weight.
#pragma once

#include <string>

namespace zel::desk {

// True if `unit` is an internal unit per mole and the word a unit of the same quantity per mass:
// "J/g" for "kJ/kg-mol".
bool IsPerMassOf(std::string const& word, std::string const& unit);

// The message for such a word: "J/g is per mass, but the value is per mole; units such as kJ/kg-mol
// and kJ/mol fit".
std::string WhyNotPerMass(std::string const& word, std::string const& unit);

}  // namespace zel::desk

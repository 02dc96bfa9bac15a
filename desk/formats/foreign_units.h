// Units as other programs write them.
#pragma once

#include <string>

namespace zel::desk {

// The word of a unit as the unit system knows it: "J/(kmol K)" for "J/kmol/K", nothing for "_".
std::string UnitWord(std::string const& foreign);

// True if a quantity has this internal unit per mole and the word is not a unit per mole: the
// values are then per mass.
bool IsPerMass(std::string const& word, std::string const& internalUnit);

// Throws Failure for a number that a record cannot hold, or that would read as undefined or as 0.
void CheckForeign(double value, std::string const& name);

// A value in the internal unit of a datum. `isSame` is set if that is the unit of the file. Throws
// WrongUsage or Failure for a unit of another kind, for a text that is not a finite number, and for
// a value that a record cannot hold.
double InternalValue(std::string const& number, std::string const& foreignUnit,
                     std::string const& internalUnit, std::string const& name, bool& isSame);

}  // namespace zel::desk

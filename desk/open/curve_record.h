// Records of correlations that are about to be written.
#pragma once

#include <string>

#include "desk/open/pure_component.h"

namespace zel::desk {

// The code of a unit for the values of a correlation. Without a word that is the code of the unit
// in which the correlation is evaluated, 0 for pure numbers. A word is looked up among the units
// that the correlation can have, the class of the code `present` first; a unit per mole of a
// specific property has the code of the unit per mass. Throws Failure, with the units that exist,
// for another word.
std::int32_t UnitCodeFor(std::string const& word, std::int32_t present,
                         zel::ZelCorrelationInfo const& row);

// Sets the unit of a record's values to that of a word and, for a specific property such as an
// enthalpy or a density, the basis. A unit per mole ("kJ/kg-mol", "J/mol") means the basis mole. A
// unit per mass ("kJ/kg") is stored for both: the basis is then `given`, or 0 if the record is per
// mass already; a record per mole may have got that basis by default. Throws as UnitCodeFor;
// Failure for a unit per mole and a given basis mass; WrongUsage for a unit per mass if the basis
// is not known, with `how` to give one.
void SetValueUnit(Curve& curve, std::string const& word, std::int32_t given,
                  zel::ZelCorrelationInfo const& row, std::string const& how);

// Sets the record of the component in memory. Throws Failure for an equation that is not known or
// that has no form with so few coefficients, for a unit that is not one of the correlation's and
// for numbers that a record cannot hold; WrongUsage for a range that ends before it begins or is
// below absolute zero.
void SetCurve(PureComponent const& component, zel::ZelCorrelationInfo const& row,
              Curve const& curve);

// "equation 20 usually has 5 coefficients, but the record has 2; missing ones count as 0"; empty if
// none is missing, and for series, which can have any number.
std::string MissingCoefficients(Curve const& curve);

}  // namespace zel::desk

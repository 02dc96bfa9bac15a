/// \file
/// Units: words for units, the dimensions that have them, and conversion from word to word.
///
/// A *dimension* is a class of units, such as "Temp", "Pres" or "MolarEnergy"; names are compared
/// without regard to case. docs/units.md lists the dimensions and where the constants come from.
/// A *unit word* of a dimension is
///
/// - the text, the keyword or the long text of one of its units: "mm Hg", "Degree Celsius",
///   "kJ/kg-mol";
/// - an everyday spelling of one: "degC", "J/mol", "kJ/(mol K)", "Pa.s", "m^3/kmol";
/// - the name of a unit system, which means the unit that the system has for the dimension: "SI",
///   "English", "Metric". "QRInternal" is the system of internal units, in which this library
///   calculates.
///
/// The exact text is tried before the text in any case, so that "mH" and "MH" can both be units. A
/// unit per mass is not a unit per mole: "kJ/kg" is not a word of "MolarEnergy".
///
/// InitZelAccess starts the unit system; before it no dimension and no word is known. The functions
/// may be called by any thread at any time after that. Unless a null argument is said to be
/// allowed, it makes the function return false or 0 and change nothing. Texts have at most 95
/// characters; a buffer for one has kUnitTextSize characters.
#ifndef ZELACCESS_UNITS_H
#define ZELACCESS_UNITS_H

#include <cstdint>

#include "zelaccess/Export.h"

namespace zel {

/// Size of a buffer for the text of a unit or the name of a dimension, terminator included.
inline constexpr int kUnitTextSize = 96;

/// Converts values in place.
/// \param dimension  name of the dimension
/// \param from,to    words for the units
/// \param values     `count` values; undefined ones stay undefined; null if `count` is 0
/// \param count      number of values, 0 or more
/// \return false when the dimension or a word is not known, or when a finite value has no finite
///         counterpart in the other unit; all values are then unchanged
ZEL_API bool ConvertUnits(char const* dimension, char const* from, char const* to, double* values,
                          std::int32_t count);

/// Finds the unit that a word means.
/// \param dimension  name of the dimension
/// \param word       a unit word
/// \param text       receives the text of the unit, "mm Hg" for example; unchanged on failure; may
///                   be null
/// \return true when the dimension has such a unit
ZEL_API bool FindUnit(char const* dimension, char const* word, char* text);

/// Returns the dimension of an internal unit as the catalogues of Verify.h and the fields of banks
/// show it: "Pres" for "kPa", "MolarEnergy" for "kJ/kg-mol".
/// \param unit  the unit
/// \return a constant text; "" for pure numbers and for units that cannot be converted; never null
ZEL_API char const* GetDimensionOfUnit(char const* unit);

/// Returns the dimension of a constant of a pure component.
/// \param index  one of zelProperties
/// \return a constant text; "" for a pure number and for an index without a keyword; never null
ZEL_API char const* GetConstantDimension(std::uint32_t index);

/// Returns the dimension of the values of a correlation.
/// \param index  one of zelCorrelations
/// \return a constant text; "" for a pure number and for an index out of range; never null
ZEL_API char const* GetCorrelationDimension(std::uint32_t index);

/// Returns the number of dimensions.
/// \return 0 before InitZelAccess
ZEL_API std::int32_t GetDimensionCount();
/// Returns a dimension.
/// \param index      from 0, less than GetDimensionCount()
/// \param name       receives its name
/// \return false for an index out of range
ZEL_API bool GetDimension(std::int32_t index, char* name);

/// Returns the number of units of a dimension. One that is a product or a quotient of others has
/// all combinations of their units.
/// \param dimension  name of the dimension
/// \return 0 when it is not known
ZEL_API std::int32_t GetUnitCount(char const* dimension);
/// Returns a unit of a dimension.
/// \param dimension  name of the dimension
/// \param index      from 0, less than GetUnitCount(dimension)
/// \param text       receives the text of the unit
/// \return false when the dimension is not known or the index is out of range
ZEL_API bool GetUnit(char const* dimension, std::int32_t index, char* text);

/// Returns the number of unit systems.
/// \return 0 before InitZelAccess
ZEL_API std::int32_t GetUnitSystemCount();
/// Returns the name of a unit system.
/// \param index  from 0, less than GetUnitSystemCount()
/// \param name   receives its name
/// \return false for an index out of range
ZEL_API bool GetUnitSystem(std::int32_t index, char* name);

}  // namespace zel

#endif  // ZELACCESS_UNITS_H

// Units by handle: reads unit texts and converts between the units of one class. The unit table is
// loaded once per process; until then no handle can be made.
#pragma once

#include <memory>

namespace zel {

// A unit of one class; a new handle has no unit until uom_FillStructFromString sets it.
struct uom_Unit;
class UnitCatalogue;

// Results other than 0 of the functions below. uom_Init2 has those of UnitTableError.
inline constexpr int kUomBadArgument = 1;
inline constexpr int kUomUnknownUnit = 2;
inline constexpr int kUomNoUnit = 3;      // the handle has none yet
inline constexpr int kUomOtherClass = 4;  // the two handles are not of the same class
inline constexpr int kUomNoValue = 5;     // a value that has no counterpart in the other unit

// Loads the unit table in a file; `arguments` are "-f" and its path, `count` is 2. On success it
// replaces any table loaded before, whose handles stay usable with each other. Returns 0 on
// success, otherwise a positive UnitTableError, and the previous table stays loaded.
int uom_Init2(int count, char const* const* arguments);

// The classes of the table that is loaded; null for none.
std::shared_ptr<UnitCatalogue const> LoadedUnits();

// Returns a handle for a unit class, whose name is compared without regard to case; null when there
// is no such class, or no unit table. The caller frees it with uom_Free.
uom_Unit* uoms_New(char const* dimension);

// Sets the handle's unit by its text, in form 1 as in the first column of the unit list, in form 2
// by its keyword. In form 1 the name of a slate means the unit that the slate has for the handle's
// class. On failure the handle keeps the unit that it had.
int uom_FillStructFromString(uom_Unit* unit, char const* text, int form);

// The text of the handle's unit (1), or its keyword (2), cut to `size` - 1 characters.
int uom_GetDisplayUnits(uom_Unit const* unit, char* buffer, int size, int form);

// Converts in place. Undefined values stay as they are, and so does every value when source and
// target are the same unit. A finite value without a finite counterpart is a failure, and all
// values then stay as they were.
int uom_ConvertArray(double* values, int count, uom_Unit const* source, uom_Unit const* target);

// Frees the handle and sets it to null; does nothing if it is null.
void uom_Free(uom_Unit** unit);

}  // namespace zel

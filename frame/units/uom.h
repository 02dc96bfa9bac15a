// Units by handle: what reads unit texts and converts between the units of one class. The unit
// table is loaded once in a process; before that there are no handles to be had.
#pragma once

namespace zel {

// A unit of one class; made without a unit, which uom_FillStructFromString gives it.
struct uom_Unit;

// Results other than 0 of the functions below. uom_Init2 has those of UnitTableError.
inline constexpr int kUomBadArgument = 1;
inline constexpr int kUomUnknownUnit = 2;
inline constexpr int kUomNoUnit = 3;      // the handle has none yet
inline constexpr int kUomOtherClass = 4;  // the two handles have nothing to convert between
inline constexpr int kUomNoValue = 5;     // a value that has no counterpart in the other unit

// Loads the unit table in a file; `arguments` are "-f" and its path, `count` is 2. On success it
// takes the place of any table loaded before, handles of which stay good among themselves. 0 on
// success; otherwise a positive UnitTableError, and what was loaded stays.
int uom_Init2(int count, char const* const* arguments);

// A handle for a unit class, named in any case; null when there is no such class, or no table. The
// caller gives it back with uom_Free.
uom_Unit* uoms_New(char const* dimension);

// Gives the handle a unit by its text, in form 1 as in the first column of the unit list, in form 2
// by its keyword. In form 1 the name of a slate stands for the unit that the slate has for the
// handle's class. On failure the handle keeps the unit that it had.
int uom_FillStructFromString(uom_Unit* unit, char const* text, int form);

// The text of the handle's unit (1), or its keyword (2), cut to `size` - 1 characters.
int uom_GetDisplayUnits(uom_Unit const* unit, char* buffer, int size, int form);

// Converts in place. Undefined values stay as they are, and so does every value when source and
// target are the same unit. A finite value without a finite counterpart is a failure, and all
// values then stay as they were.
int uom_ConvertArray(double* values, int count, uom_Unit const* source, uom_Unit const* target);

// Nulls the handle; does nothing with a null one.
void uom_Free(uom_Unit** unit);

}  // namespace zel

// The unit system: it is started from the unit table that is built into the module, and reads and
// converts values in any unit that the table knows. Internal units are those of the slate
// QRInternal: K, kPa, kg-mol, kg, m3, kJ, s, m and units composed of them; docs/units.md lists
// them. A handle is freed by the caller with uom_Free.
#pragma once

#include <string>
#include <string_view>

#include "frame/platform/system.h"
#include "frame/units/uom.h"

namespace zel {

// The bytes of the unit table as built into the module, with its texts in single quotes.
std::string_view UnitTableResource() noexcept;

// Starts the unit system from the table in `module`. 0 when it has been started, -1 when the table
// cannot be found, and a positive result of uom_Init2 otherwise.
int StartUnitSystem(platform::ModuleHandle module);

// The same from the bytes of a table; an empty table counts as not found.
int StartUnitSystemFrom(std::string_view table);

// What StartUnitSystemFrom writes for uom_Init2: the text of the file, in which every single quote
// becomes a double one, and the beginning of the file's name in the process `processId`.
std::string TableFileText(std::string_view table);
std::string TableFilePrefix(int processId);

// A handle for a unit word of a dimension, which is the name of a unit class; null when the word is
// not understood. It is tried as text and as keyword, then cut before "-mol", or with "-mol"
// appended when it has none: kg-mole and kg mean the same unit where a record states the basis.
uom_Unit* OpenUnit(char const* dimension, char const* text);

// Converts to the internal unit of the dimension. False, with the value as it was, when the word or
// the value is not valid there.
bool ConvertToInternal(char const* dimension, char const* text, double& value);

}  // namespace zel

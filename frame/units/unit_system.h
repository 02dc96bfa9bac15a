// The unit system: it is started from the unit table that is built into the module, and reads and
// converts values in any unit that the table knows. Internal units are those of the slate
// QRInternal: K, kPa, kg-mol, kg, m3, kJ, s, m and what is made of them; docs/units.md lists them.
// A handle is freed by the caller with uom_Free.
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

// The same from the bytes of a table; without bytes it cannot be found.
int StartUnitSystemFrom(std::string_view table);

// What the second makes of its arguments for uom_Init2: the text of the file, in which every single
// quote is a double one, and how the file's name begins in the process `processId`.
std::string TableFileText(std::string_view table);
std::string TableFilePrefix(int processId);

// A handle for a unit word of a dimension, which is the name of a unit class; null when the word is
// not understood. It is tried as text and as keyword, then cut before "-mol", or with "-mol" behind
// it when it has none: kg-mole and kg stand for one unit where a record tells the basis.
uom_Unit* OpenUnit(char const* dimension, char const* text);

// Converts to the internal unit of the dimension. False, with the value as it was, when the word or
// the value has no meaning there.
bool ConvertToInternal(char const* dimension, char const* text, double& value);

}  // namespace zel

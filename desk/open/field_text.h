// The value of a field of any bank type as a text that keeps all digits, and back.
#pragma once

#include <string>

#include "desk/open/fields.h"
#include "desk/words/display_units.h"

namespace zel::desk {

// The number with as few digits as are needed to read it back; empty for an undefined one.
std::string AllDigits(double value);

// Several values have blanks between them, with "-" for an undefined one. Empty if all are
// undefined. A code that shares its word with another one is a number.
std::string FieldText(zel::IZelBankDef& bank, Field const& field, DisplayUnits const& units);
// Sets the field; an empty text makes it undefined. Values that are missing from a list become
// undefined. Numbers without a unit are in the display unit. Throws Failure, and changes nothing,
// for a text that the field cannot hold unchanged.
void SetFieldText(zel::IZelBankDef& bank, Field const& field, std::string const& text,
                  DisplayUnits const& units);
// The same for a field that is a text.
void SetTextField(zel::IZelBankDef& bank, Field const& field, std::string const& text);

// The number that a word means for a field, in the field's unit; without a unit it is in the
// display unit, but in that of a note if the field has one. Throws WrongUsage for a word that is
// not `what`.
double ReadNumber(Field const& field, std::string const& word, DisplayUnits const& units,
                  std::string const& what);

// A whole number that fits 32 bits. Throws Failure, which says that the word is not `what`.
std::int32_t WholeNumber(std::string const& word, std::string const& what);

}  // namespace zel::desk

// Sets data of an item in memory.
#pragma once

#include <string>

#include "desk/edit/item_edit.h"
#include "desk/open/fields.h"
#include "desk/open/pure_component.h"
#include "desk/words/display_units.h"

namespace zel::desk {

// The constant that a word means; null for a word that is exactly the name of a correlation, even
// if it differs from the keyword of a constant only in the case of letters.
zel::ZelConstantInfo const* ConstantMeant(std::string const& word);

// The names under which ValuesOf lists a datum begin with the returned one.
// Both throw Failure for a datum that does not exist, with the nearest one, and for a value that
// cannot be stored; WrongUsage for a word that is not a value.
std::vector<std::string> SetData(PureComponent const& component, ItemEdit const& edit,
                                 DisplayUnits const& units);
std::vector<std::string> SetData(zel::IZelBankDef& item, std::vector<Field> const& fields,
                                 ItemEdit const& edit, DisplayUnits const& units);

}  // namespace zel::desk

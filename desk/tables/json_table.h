// Tables as JSON: an array of objects.
#pragma once

#include <string>

#include "desk/tables/text_table.h"

namespace zel::desk {

// Throws Failure for a text that is not JSON or not an array of objects with plain cells.
TextTable ParseJsonTable(std::string const& text, std::string const& shownAs);

}  // namespace zel::desk

// Values separated by commas, semicolons or tabs.
#pragma once

#include <string>
#include <vector>

#include "desk/tables/text_table.h"

namespace zel::desk {

// The rows of a text, the heads included. Throws Failure for a quote that is not closed or is in
// the middle of a value.
std::vector<TextRow> SeparatedRows(std::string const& text, std::string const& shownAs);

// True for a text that begins with an apostrophe before what a spreadsheet would run as a formula,
// or before a blank or a "-", which would not be read as such.
bool IsProtected(std::string const& text);

}  // namespace zel::desk

// The text of a settings file.
#pragma once

#include <istream>
#include <string>

namespace zel::platform {

// One text value; false when the section or the value is missing. Sections are key names; case does
// not matter.
bool ReadSettingFrom(std::istream& file, std::string const& key, std::string const& name,
                     std::string& value);

}  // namespace zel::platform

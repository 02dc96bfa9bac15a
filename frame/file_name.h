// Names of files that are made from names of banks and components.
#pragma once

#include <string>
#include <string_view>

namespace zel {

// The file name for a name, the same on every system. What a system forbids is written as "%" and two
// hexadecimal digits: `<>:"/\|?*` and control characters, a blank or a point at the end, the
// first letter of a name that is a device's (CON, NUL, COM1, ...), also in front of a point; and "%"
// itself if it could be read as one of these. Other names stay as they are. Whoever replaces each "%"
// with two digits 0 to 9, A to F by the character reads the name back.
std::string FileNameOf(std::string_view name);

}  // namespace zel

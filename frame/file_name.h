// Names of files that are made from names of banks and components.
#pragma once

#include <string>
#include <string_view>

#include "frame/platform/file_names.h"

namespace zel {

// The file name for a name. Whatever the system forbids is written as "%" and two hexadecimal
// digits; so is "%" itself if it could be read as one of these, and the first letter of a name that
// is a device's (CON, NUL, COM1, ...), also before a point. Other names stay as they are, since
// programs rely on the names of documents. Replacing each "%" with two digits 0 to 9, A to F by the
// character yields the name again.
std::string FileNameOf(std::string_view name, platform::FileNames forbids = platform::kFileNames);

}  // namespace zel

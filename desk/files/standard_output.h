// Standard output.
#pragma once

#include <string>

namespace zel::desk {

// Throws Failure if it cannot be written, PipeClosed if its reader has closed it.
void Write(std::string const& text);

}  // namespace zel::desk

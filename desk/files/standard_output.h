// Standard output.
#pragma once

#include <string>

namespace zel::desk {

// Throws Failure if it cannot be written, PipeClosed if no one reads it any more.
void Write(std::string const& text);

}  // namespace zel::desk

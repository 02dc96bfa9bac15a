// Standard output.
#pragma once

#include <string>

namespace zelhost {

// Throws Failure when it cannot be written, PipeClosed when no one reads it any more.
void Write(std::string const& text);

}  // namespace zelhost

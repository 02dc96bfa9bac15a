// Texts and numbers in SVG and HTML.
#pragma once

#include <string>

namespace zel::desk {

// The text with the letters that have a meaning in markup, also in quotes, as entities; control
// characters, which XML does not allow, as "?".
std::string Escaped(std::string const& text);
// The value with this many digits after the point, never "-0".
std::string Fixed(double value, int decimals);

}  // namespace zel::desk

// JSON for the data of a page.
#pragma once

#include <string>
#include <vector>

namespace zel::desk {

// A text in quotes. Bytes that are not UTF-8 become "?", and "<" an escape, so that nothing ends
// the element that holds the data.
std::string JsonText(std::string const& text);
// The shortest digits that mean this number; null for an undefined or infinite one.
std::string JsonNumber(double value);
// "[a,b]" of parts that are JSON.
std::string JsonList(std::vector<std::string> const& parts);
// The bytes of the numbers, the lowest byte first, in base 64.
std::string Base64(std::vector<float> const& numbers);

}  // namespace zel::desk

// Case-insensitive texts, for the letters of ASCII only, and patterns.
#pragma once

#include <string>
#include <vector>

namespace zel::desk {

std::string UpperCase(std::string text);
std::string LowerCase(std::string text);
// "*" matches any text, "?" one character; letters are compared without regard to case.
bool Matches(std::string const& pattern, std::string const& text);
// The words of a list, which are separated by blanks, tabs, line ends, commas or semicolons.
std::vector<std::string> ListWords(std::string const& text);

}  // namespace zel::desk

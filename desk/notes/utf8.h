// Texts in UTF-8.
#pragma once

#include <string>
#include <string_view>

namespace zel::desk {

// True for well-formed UTF-8.
bool IsUtf8(std::string_view text);
// Adds a character by its code point, which must be one.
void AppendUtf8(std::string& text, char32_t character);

}  // namespace zel::desk

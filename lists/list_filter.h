// The filter of component lists.
#pragma once

#include <string_view>

namespace zel {

// True if the pattern matches the start of the text: "?" matches one character, "*" any number of
// characters; letters are compared without regard to case. Each part between stars is searched for
// from the left, so many stars cost no more than one.
bool MatchesListFilter(std::string_view text, std::string_view pattern) noexcept;

}  // namespace zel

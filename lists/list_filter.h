// The filter of component lists.
#pragma once

#include <string_view>

namespace zel {

// True when the pattern fits the start of the text: "?" stands for one character, "*" for any
// number, other characters compare without regard to case. Each part between stars is sought from
// the left, so many stars cost no more than one.
bool MatchesListFilter(std::string_view text, std::string_view pattern) noexcept;

}  // namespace zel

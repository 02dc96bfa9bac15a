// File name patterns.
#pragma once

#include <string_view>

namespace zel {

// `*` stands for any characters, `?` for one; letters compare exactly, since callers delete what
// matches. "*.*" matches every name, also one without a point.
bool MatchesFilePattern(std::string_view name, std::string_view pattern) noexcept;

}  // namespace zel

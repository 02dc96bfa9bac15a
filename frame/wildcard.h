// File name patterns.
#pragma once

#include <string_view>

namespace zel {

// `*` matches any characters, `?` one; letters compare exactly, since callers delete what matches.
// "*.*" matches every name, even one without a point.
bool MatchesFilePattern(std::string_view name, std::string_view pattern) noexcept;

}  // namespace zel

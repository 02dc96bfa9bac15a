#include "frame/wildcard.h"

#include <cstddef>

namespace zel {

// Greedy from the left: at a mismatch only the last star can match one more character.
bool MatchesFilePattern(std::string_view name, std::string_view pattern) noexcept {
  if (pattern == "*.*") return true;
  std::size_t at = 0;
  std::size_t p = 0;
  std::size_t star = std::string_view::npos;
  std::size_t starAt = 0;
  while (at < name.size()) {
    if (p < pattern.size() && pattern[p] == '*') {
      star = p++;
      starAt = at;
    } else if (p < pattern.size() && (pattern[p] == '?' || pattern[p] == name[at])) {
      ++p;
      ++at;
    } else if (star != std::string_view::npos) {
      p = star + 1;
      at = ++starAt;
    } else {
      return false;
    }
  }
  while (p < pattern.size() && pattern[p] == '*') ++p;
  return p == pattern.size();
}

}  // namespace zel

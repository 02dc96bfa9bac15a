#include "lists/list_filter.h"

#include "frame/ascii.h"

namespace zel {

namespace {

constexpr char kAny = '*';
constexpr char kOne = '?';

// True if the part, which has no star, matches at a position of the text.
bool FitsAt(std::string_view text, std::size_t at, std::string_view part) noexcept {
  if (part.size() > text.size() - at) return false;
  for (std::size_t i = 0; i < part.size(); ++i) {
    if (part[i] != kOne && ToUpper(part[i]) != ToUpper(text[at + i])) return false;
  }
  return true;
}

// Removes the part up to the next star from the pattern and returns it.
std::string_view TakePart(std::string_view& pattern) noexcept {
  std::string_view const part = pattern.substr(0, pattern.find(kAny));
  pattern.remove_prefix(part.size());
  return part;
}

}  // namespace

bool MatchesListFilter(std::string_view text, std::string_view pattern) noexcept {
  std::string_view part = TakePart(pattern);
  if (!FitsAt(text, 0, part)) return false;
  std::size_t at = part.size();
  while (!pattern.empty()) {
    pattern.remove_prefix(1);  // the star
    part = TakePart(pattern);
    while (at <= text.size() && !FitsAt(text, at, part)) ++at;
    if (at > text.size()) return false;
    at += part.size();
  }
  return true;
}

}  // namespace zel

#include "desk/words/letters.h"

#include <algorithm>
#include <cstddef>

namespace zel::desk {
namespace {

char Upper(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }

}  // namespace

std::string UpperCase(std::string text) {
  std::transform(text.begin(), text.end(), text.begin(), Upper);
  return text;
}

std::string LowerCase(std::string text) {
  for (char& c : text) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  }
  return text;
}

// Only one star is open at a time: a later one replaces an earlier one, which loses no match.
bool Matches(std::string const& pattern, std::string const& text) {
  std::size_t p = 0, t = 0, star = std::string::npos, resume = 0;
  while (t < text.size()) {
    if (p < pattern.size() && pattern[p] == '*') {
      star = p++;
      resume = t;
    } else if (p < pattern.size() && (pattern[p] == '?' || Upper(pattern[p]) == Upper(text[t]))) {
      ++p;
      ++t;
    } else if (star != std::string::npos) {
      p = star + 1;
      t = ++resume;
    } else {
      return false;
    }
  }
  while (p < pattern.size() && pattern[p] == '*') ++p;
  return p == pattern.size();
}

std::vector<std::string> ListWords(std::string const& text) {
  constexpr char kSeparators[] = " ,;\t\n\r";
  std::vector<std::string> words;
  for (std::size_t at = text.find_first_not_of(kSeparators); at < text.size();) {
    std::size_t const end = std::min(text.find_first_of(kSeparators, at), text.size());
    words.push_back(text.substr(at, end - at));
    at = text.find_first_not_of(kSeparators, end);
  }
  return words;
}

}  // namespace zel::desk

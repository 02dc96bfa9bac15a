// Numbers within texts.
#pragma once

#include <algorithm>
#include <charconv>
#include <string_view>

namespace zel::desk {

// True for a decimal number such as "-1.5e+07" with nothing else around it.
inline bool IsNumberWord(std::string_view word) {
  if (word.size() > 1 && word[0] == '+' && word[1] != '-') word.remove_prefix(1);
  if (word.find_first_not_of("+-.0123456789eE") != std::string_view::npos) return false;
  double value = 0.0;
  auto const [end, error] = std::from_chars(word.data(), word.data() + word.size(), value);
  return error == std::errc() && end == word.data() + word.size();
}

// The number without the period, comma or parenthesis of the sentence around it.
inline std::string_view WithoutPunctuation(std::string_view word) {
  std::size_t const first = std::min(word.find_first_not_of("(["), word.size());
  word.remove_prefix(first);
  return word.substr(0, word.find_last_not_of(".,;:)]") + 1);
}

}  // namespace zel::desk

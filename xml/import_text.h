// Functions that decode texts of documents.
#pragma once

#include <string>
#include <string_view>

namespace zel {

// Splits at blanks, and only there: a line end is part of a token.
class Tokens {
 public:
  explicit Tokens(std::string_view text) noexcept : rest_(text) {}
  // False after the last one.
  bool Next(std::string_view& token) noexcept {
    std::size_t const start = rest_.find_first_not_of(' ');
    if (start == std::string_view::npos) return false;
    rest_.remove_prefix(start);
    std::size_t const end = rest_.find(' ');
    token = rest_.substr(0, end);
    rest_.remove_prefix(token.size());
    return true;
  }

 private:
  std::string_view rest_;
};

// A memo as it was before it was exported: without the blank after the opening of its CDATA section
// and without the marks, a bracket and a blank, at the start of every further line. At most 3999
// characters. `lost` is set if more than blanks and marks was dropped.
std::string MemoText(std::string_view text, bool& lost);
inline std::string MemoText(std::string_view text) {
  bool lost = false;
  return MemoText(text, lost);
}

// The text with today's date in place of the first "%date%", at most `longest` characters.
inline constexpr std::size_t kLongestDescription = 100;
std::string DatedText(std::string_view text, std::size_t longest = kLongestDescription);

}  // namespace zel

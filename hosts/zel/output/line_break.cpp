#include "output/line_break.h"

#include <algorithm>

namespace zelhost {
namespace {

constexpr std::size_t kLongestWord = 32;  // a longer word is cut

bool IsOfNumber(char c) { return (c >= '0' && c <= '9') || c == '.' || c == '+' || c == '-'; }

// True if a number would be cut: "1.4e+0" from "7", or "25" from ".5".
bool IsInNumber(std::string const& text, std::size_t at) {
  if (at == 0 || at >= text.size()) return false;
  char const before = text[at - 1];
  char const behind = text[at];
  auto const isExponent = [&](std::size_t i) {
    return (text[i] == 'e' || text[i] == 'E') && i > 0 && IsOfNumber(text[i - 1]) &&
           i + 1 < text.size() && IsOfNumber(text[i + 1]);
  };
  return (IsOfNumber(before) || isExponent(at - 1)) && (IsOfNumber(behind) || isExponent(at));
}

// The bytes of a text that fit into `width` columns.
std::size_t BytesWithin(Screen const& screen, std::string const& text, std::size_t width) {
  std::size_t end = 0;
  for (std::size_t used = 0; end < text.size();) {
    std::size_t const bytes = CharacterBytes(text, end);
    used += screen.Width(text.substr(end, bytes));
    if (used > width) break;
    end += bytes;
  }
  return end;
}

// True for the colon of "perry.lb1:PERRY", after which a line can end; not for that of "12:30".
bool MayEndLine(std::string const& text, std::size_t at) {
  if (at == 0 || text[at] != ':' || at + 1 == text.size()) return false;
  return !IsOfNumber(text[at + 1]) && text[at + 1] != '/';
}

// Returns where to cut a word that is too long: after a colon, as in "perry.lb1:PERRY", else at
// `width` columns, or before or after the number at that place.
std::size_t CutOf(Screen const& screen, std::string const& text, std::size_t width) {
  std::size_t end = std::max(BytesWithin(screen, text, width), CharacterBytes(text, 0));
  for (std::size_t at = end; at-- > 1;) {
    if (MayEndLine(text, at)) return at + 1;
  }
  std::size_t cut = end;
  while (IsInNumber(text, cut)) --cut;
  if (cut > 0) return cut;
  while (IsInNumber(text, end)) ++end;
  return end;
}

}  // namespace

std::vector<std::string> Break(Screen const& screen, std::string const& text, std::size_t width) {
  std::vector<std::string> lines;
  std::string rest = text;
  for (std::size_t end = rest.find('\n'); end != std::string::npos; end = rest.find('\n')) {
    for (std::string& line : Break(screen, rest.substr(0, end), width)) {
      lines.push_back(std::move(line));
    }
    rest.erase(0, end + 1);
  }
  while (screen.Width(rest) > width) {
    // Up to here, the blanks of a text without wide letters are within the width.
    std::size_t const within = screen.isTerminal ? BytesWithin(screen, rest, width) : width;
    std::size_t const at = rest.rfind(' ', within);
    bool const atBlank = at != std::string::npos && at != 0;
    std::size_t const end = atBlank ? at : CutOf(screen, rest, width);
    lines.push_back(rest.substr(0, end));
    rest.erase(0, end + (atBlank ? 1 : 0));
  }
  if (!rest.empty() || lines.empty()) lines.push_back(rest);
  return lines;
}

std::size_t WidthOfWords(Screen const& screen, std::string const& text) {
  std::size_t width = 0;
  std::size_t begin = 0;
  for (std::size_t at = 0; at <= text.size(); ++at) {
    bool const isEnd = at == text.size() || text[at] == ' ' || text[at] == '\n';
    if (!isEnd && !MayEndLine(text, at)) continue;
    std::size_t const end = isEnd ? at : at + 1;
    width = std::max(width, screen.Width(text.substr(begin, end - begin)));
    begin = at + 1;
  }
  return std::min(width, kLongestWord);
}

}  // namespace zelhost

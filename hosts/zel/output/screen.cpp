#include "output/screen.h"

#include <algorithm>
#include <cstdlib>

#include "output/system.h"

namespace zelhost {
namespace {

constexpr std::size_t kNarrowest = 40;
constexpr std::size_t kWidest = 1000;

// The code point of the character at `at`, which has `bytes` bytes.
char32_t CodePoint(std::string const& text, std::size_t at, std::size_t bytes) {
  constexpr unsigned kFirstBits[] = {0, 0x7F, 0x1F, 0x0F, 0x07};
  unsigned code = static_cast<unsigned char>(text[at]) & kFirstBits[bytes];
  for (std::size_t i = 1; i < bytes; ++i) {
    code = code << 6 | (static_cast<unsigned char>(text[at + i]) & 0x3FU);
  }
  return static_cast<char32_t>(code);
}

bool IsSet(char const* variable) {
  char const* const value = std::getenv(variable);
  return value != nullptr && *value != '\0';
}

}  // namespace

std::size_t CharacterBytes(std::string const& text, std::size_t at) {
  auto const first = static_cast<unsigned char>(text[at]);
  std::size_t const bytes = first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : first >= 0xC0 ? 2 : 1;
  std::size_t end = at + 1;
  while (end < text.size() && end < at + bytes && (text[end] & 0xC0) == 0x80) ++end;
  return end - at;
}

std::size_t Screen::Width(std::string const& text) const {
  if (!isTerminal) {
    return static_cast<std::size_t>(
        std::count_if(text.begin(), text.end(), [](char c) { return (c & 0xC0) != 0x80; }));
  }
  LetterWidths const widths;
  std::size_t width = 0;
  for (std::size_t at = 0; at < text.size();) {
    std::size_t const bytes = CharacterBytes(text, at);
    int const one = bytes == 1 ? 1 : widths.Of(CodePoint(text, at, bytes));
    width += one < 0 ? 1 : static_cast<std::size_t>(one);
    at += bytes;
  }
  return width;
}

Screen OutputScreen() {
  Screen screen;
  if (!OutputIsTerminal()) return screen;
  screen.isTerminal = true;
  int columns = TerminalColumns();
  if (columns == 0 && IsSet("COLUMNS")) columns = std::atoi(std::getenv("COLUMNS"));
  if (columns > 0) {
    screen.columns = std::clamp(static_cast<std::size_t>(columns), kNarrowest, kWidest);
  }
  char const* const terminal = std::getenv("TERM");
  screen.hasColours =
      !IsSet("NO_COLOR") && (terminal == nullptr || std::string(terminal) != "dumb");
  return screen;
}

std::string Inked(Screen const& screen, Ink ink, std::string const& text) {
  static constexpr char const* kMarks[] = {"", "\x1b[1m", "\x1b[31m", "\x1b[33m"};
  if (!screen.hasColours || ink == Ink::kPlain || text.empty()) return text;
  return kMarks[static_cast<int>(ink)] + text + "\x1b[0m";
}

}  // namespace zelhost

// Where text is shown: its width, how wide letters are, and colours.
#pragma once

#include <cstddef>
#include <string>

namespace zelhost {

// In an output that is not a terminal, text has 80 columns, each character counts as one, and there
// are no colours, so that output does not depend on who runs zel.
struct Screen {
  std::size_t columns = 80;
  bool isTerminal = false;
  bool hasColours = false;

  // The columns that a text takes. On a terminal East Asian letters take two and marks that combine
  // with the letter before take none.
  std::size_t Width(std::string const& text) const;
};

// Standard output as it is now. The width is that of the terminal, or COLUMNS if the terminal does
// not report one. There are colours unless NO_COLOR is set to anything, or TERM is "dumb".
Screen OutputScreen();

// The length of the first character of UTF-8; 1 for a byte that begins none.
std::size_t CharacterBytes(std::string const& text, std::size_t at);

enum class Ink { kPlain, kBold, kRed, kYellow };
// The text, with the marks of a terminal around it if there are colours.
std::string Inked(Screen const& screen, Ink ink, std::string const& text);

}  // namespace zelhost

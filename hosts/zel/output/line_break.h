// Texts broken into lines of a screen.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "output/screen.h"

namespace zelhost {

// Lines of at most `width` columns, broken at blanks, and within words that are too long, but never
// within a number.
std::vector<std::string> Break(Screen const& screen, std::string const& text, std::size_t width);

// The least width with which Break cuts no word, except after the colon of "perry.lb1:PERRY" and
// words of more than 32 columns.
std::size_t WidthOfWords(Screen const& screen, std::string const& text);

}  // namespace zelhost

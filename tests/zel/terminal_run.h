// Runs zel on a terminal of its own.
#pragma once

#include <string>
#include <vector>

#include "tests/zel/zel_fixture.h"

namespace zel::test {

struct Terminal {
  int columns = 80;
  // As soon as this text is shown, `input` is typed.
  std::string when;
  std::string input;
};

// Standard input, output and error are the terminal, so that both are in `out`, with "\r\n" as line
// ends. `line` is a line of the shell in which $ZEL is the program.
Outcome RunOnTerminal(std::filesystem::path const& folder, std::string const& line,
                      Terminal const& terminal = {});

// The lines of an output, of a terminal or not.
std::vector<std::string> Lines(std::string const& text);

}  // namespace zel::test

// The manual page and the completion of the shell, made from the commands as they are.
#pragma once

#include <CLI/CLI.hpp>
#include <string>

namespace zelhost {

// For man: sources of troff.
std::string ManualPage(CLI::App const& app);
// A script for bash: commands, and the options of each.
std::string BashCompletion(CLI::App const& app);

}  // namespace zelhost

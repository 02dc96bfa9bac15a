// The manual page and the shell completion, made from the commands.
#pragma once

#include <CLI/CLI.hpp>
#include <string>

namespace zelhost {

// The page for man, in troff.
std::string ManualPage(CLI::App const& app);
// A script for bash, which completes commands and the options of each.
std::string BashCompletion(CLI::App const& app);

}  // namespace zelhost

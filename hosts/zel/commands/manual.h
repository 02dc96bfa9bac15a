// The manual page, made from the commands.
#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

namespace zelhost {

std::vector<CLI::App const*> Commands(CLI::App const& app);
// True for an option that neither help nor manual show.
bool IsHidden(CLI::Option const& option);
// The page for man, in troff.
std::string ManualPage(CLI::App const& app);

}  // namespace zelhost

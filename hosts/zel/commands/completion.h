// Completion in shells: scripts with the commands and options, and the values at the cursor.
#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

#include "output/session.h"

namespace zelhost {

// Scripts that complete commands and the options of each; for values they ask the program.
std::string BashCompletion(CLI::App const& app);
std::string ZshCompletion(CLI::App const& app);
std::string FishCompletion(CLI::App const& app);

// The values that the last of the words can have, by the words before it: component IDs, banks,
// bank types, correlations, data. One per line, followed by a tab and what it is, if that is known.
// Nothing where a file name is possible, where nothing is known, and if a library cannot be read: a
// message must not disturb a line that is being typed. The libraries are those that the words name.
std::string CompletedValues(Session& session, CLI::App const& app,
                            std::vector<std::string> const& words);

}  // namespace zelhost

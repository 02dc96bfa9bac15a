// The options of commands that change a library or make one.
#pragma once

#include <sys/types.h>

#include <optional>
#include <string>

#include "command.h"
#include "replacement.h"

namespace zelhost {

void AddChangeOptions(Command& command, ChangeOptions& options);

void AddModeOption(Command& command, std::string& mode);
// What the option's text means; none for the empty text. Throws WrongUsage.
std::optional<mode_t> ModeOf(std::string const& text);

}  // namespace zelhost

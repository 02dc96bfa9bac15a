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
// What the option's text means; none for the empty text. Throws WrongUsage, also for a mode that
// does not let the owner read and write.
std::optional<mode_t> ModeOf(std::string const& text);
// Throws WrongUsage where the option is given and the library exists.
void CheckModeFor(std::string const& library, std::string const& mode);

}  // namespace zelhost

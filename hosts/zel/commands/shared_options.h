// Options that several commands have.
#pragma once

#include <sys/types.h>

#include <optional>
#include <string>

#include "change/library_change.h"
#include "commands/command.h"
#include "open/preference_list.h"

namespace zelhost {

void AddChangeOptions(Command& command, ChangeOptions& options);

void AddModeOption(Command& command, std::string& mode);
// What the option's text means; none for the empty text. Throws WrongUsage, also for a mode that
// does not let the owner read and write.
std::optional<mode_t> ModeOf(std::string const& text);
// Throws WrongUsage where the option is given and the library exists.
void CheckModeFor(std::string const& library, std::string const& mode);

// The libraries that a command merges.
void AddSourceOptions(Command& command, SourceOptions& options);

// --strict, of a command that walks over items.
void AddStrict(Command& command);

}  // namespace zelhost

// Options that several commands have.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "commands/command.h"
#include "desk/change/library_change.h"
#include "desk/findings/finding.h"
#include "desk/notes/carried_notes.h"
#include "desk/open/preference_list.h"

namespace zelhost {

// Sets the password to that of ZEL_PASSWORD, if that is set.
void TakePasswordOfEnvironment(ChangeOptions& options);
// The options of every command that changes an existing library.
void AddChangeOptions(Command& command, ChangeOptions& options);
// Those of them that also apply to a command that replaces a whole library.
void AddReplaceOptions(Command& command, ChangeOptions& options, std::string const& passwordHelp);

void AddModeOption(Command& command, std::string& mode);
// Returns the mode that the option's text means; nothing for the empty text. Throws WrongUsage,
// also for a mode that does not let the owner read and write.
std::optional<zel::desk::FileMode> ModeOf(std::string const& text);
// Throws WrongUsage if the option is given and the library exists.
void CheckModeFor(std::string const& library, std::string const& mode);

// Adds the options that name the libraries to merge.
void AddSourceOptions(Command& command, SourceOptions& options);

// Adds a warning and a table of the conflicts that were accepted; call it when the report has its
// other tables.
void AddWarnings(PreferenceList const& list, Report& report);
// Adds a warning and a table of the codes with different citations, if any. Throws Failure instead
// with --strict.
void AddCitationConflicts(Session const& session, std::vector<CitationConflict> const& conflicts,
                          Report& report);
// Adds a table of findings; their members are for programs.
void AddFindings(std::string const& name, std::vector<Finding> const& findings, Report& report);
// Adds a warning and a table "implausible" of findings about the data that a change has written, if
// any. Throws Failure instead if `isStrict`.
void AddDataWarning(std::vector<Finding> const& findings, bool isStrict, Report& report);
// Notes that `where` does not carry the mark of a library that marks its data as protected. Does
// nothing if the library `to`, to which the data go, has the mark itself.
void NoteMark(Session& session, Library const& library, std::string const& where,
              Library const* to = nullptr);
// Puts the change in place when the report is made. After a dry run the report says that nothing
// was changed.
void PutInPlaceAfter(Report& report, LibraryChange change);

// The change of a library that must exist; if it does not, the message ends with the advice.
LibraryChange ExistingLibrary(Session& session, std::string const& path,
                              ChangeOptions const& options, std::string const& advice);
// The same, but with `create` a library that does not exist is made, with the mode that the text of
// its option means.
LibraryChange ExistingOrNewLibrary(Session& session, std::string const& path, bool create,
                                   std::string const& mode, ChangeOptions const& options);

// Adds --strict to a command that walks over items.
void AddStrict(Command& command);

}  // namespace zelhost

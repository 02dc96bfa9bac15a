// The library of --names, which knows the IDs and CAS numbers that the main library does not.
#pragma once

#include <string>

#include "desk/open/library.h"
#include "desk/open/session.h"

namespace zel::desk {

// Opens the library at the session's namesPath, unless that is empty, and makes it the name index
// of the process. Throws Failure.
void OpenNames(Session& session);
// The same for a command that mends a library, which may be this one: an error is only noted.
void TryOpenNames(Session& session);
// Closes it if it is the library at `path`, which is about to be changed and knows its own IDs.
// Returns true if it was.
bool ReleaseNames(Session& session, std::string const& path);

}  // namespace zel::desk

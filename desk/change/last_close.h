// What a change does about a library that was not closed cleanly before.
#pragma once

#include <string>

#include "desk/open/session.h"

namespace zel::desk {

// Completes a flush of another host that was cut off. Without `isLocked`, the caller does not have
// the lock of the library's first file. Throws Failure.
void CompleteLastFlush(std::string const& path, std::string const& shownAs, bool isLocked);

// True if a flush was cut off that CompleteLastFlush would complete. The caller has a lock for
// reading. Throws Failure if the library cannot be opened.
bool HasUnfinishedFlush(Session& session, std::string const& path, std::string const& shownAs);

// True if a library, a path without symbolic links, was not closed cleanly: it has the mark, or a
// journal that CompleteLastFlush has left, since it does not fit or is not whole. The caller has
// its lock.
bool WasClosedUncleanly(std::string const& library);

// Verifies a library, which can be a copy of the one that was not closed cleanly. Reports to the
// session that it is sound. Throws Failure if it is not, which names what helps: a salvage, and an
// undo if there is a history.
void VerifyUnclean(Session& session, std::string const& path, std::string const& shownAs,
                   bool hasHistory);

}  // namespace zel::desk

// Cleans up after a change that was interrupted, before anything reads the library.
#pragma once

#include <string>

#include "desk/open/change_places.h"
#include "desk/open/library.h"

namespace zel::desk {

// Removes what an interrupted command left, and puts the old library back if it had been
// moved away. Throws Failure if that cannot be done, or if another program has since made a library
// in its place.
void FinishChange(std::string const& path);
// The same for a change whose moves have just failed; `shownAs` is the library's name in messages.
void FinishMoves(std::string const& shownAs, ChangePlaces const& change);

// Calls FinishChange and opens the library for reading, after a change that is about to be moved
// into place. Throws Failure.
Library OpenFinished(Session& session, std::string const& path);

}  // namespace zel::desk

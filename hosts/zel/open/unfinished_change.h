// What is left of a change that was cut off, put right before anything looks at the library.
#pragma once

#include <string>

#include "open/change_places.h"
#include "open/library.h"

namespace zelhost {

// Clears away what a command left that was cut off, and puts the old library back where it had been
// moved away. Throws Failure when that cannot be done, or when another program has made a library
// in the place since.
void FinishChange(std::string const& path);
// The same for a change whose moves have just failed; `shownAs` is what messages call the library.
void FinishMoves(std::string const& shownAs, ChangePlaces const& change);

// Finishes what was cut off, and opens the library for reading. Throws Failure.
Library OpenFinished(Session& session, std::string const& path);

}  // namespace zelhost

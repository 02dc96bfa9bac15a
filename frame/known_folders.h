// Well-known folders of the system.
#pragma once

#include <string>

namespace zel {

// 0 the program's own file, 1 its folder, 2 the install root (1 cut after its first folder
// "hvkthermo"), 3 programs, 4 personal documents, 5 common documents, 6 application data, 7 common
// application data; empty on failure and for any other selector. 0 to 2 are looked up once: a
// failed look-up is never retried. At most 259 characters.
std::string GetWellKnownFolder(int selector);

// The rule for selector 2, applied to the text of selector 1: the text cut at the closing separator
// of the folder "hvkthermo". Empty when the text does not contain that folder with a separator on
// both sides, so a program directly in that folder has no install root.
std::string InstallRootOf(std::string const& programFolder);

// Replaces a path with its long form (no links, no short names) if the file exists; a result of
// more than 259 characters is discarded.
void LongPathInPlace(std::string& path);

}  // namespace zel

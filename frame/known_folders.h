// Well-known folders of the system.
#pragma once

#include <string>

namespace zel {

// 0 the program's own file, 1 its folder, 2 the install root (1 cut behind its first folder
// "hvkthermo"), 3 programs, 4 personal documents, 5 common documents, 6 application data, 7 common
// application data; empty on failure and for any other selector. 0 to 2 are found out once: a
// failed look-up is never tried again. At most 259 characters.
std::string GetWellKnownFolder(int selector);

// The rule behind selector 2, on the text of selector 1: cut at the closing separator of the folder
// "hvkthermo". Empty when the text does not hold that folder with a separator on both sides, so a
// program that lies directly in it has no install root.
std::string InstallRootOf(std::string const& programFolder);

// Replaces a path by its long form (no links, no short names), where the file exists; a result of
// more than 259 characters is not taken.
void LongPathInPlace(std::string& path);

}  // namespace zel

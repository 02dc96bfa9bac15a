// What can still be read out of a damaged library, taken into a new one.
#pragma once

#include <zelaccess/Salvage.h>

#include <string>

#include "desk/open/library.h"
#include "desk/words/table.h"

namespace zel::desk {

struct Salvaged {
  zel::ZelSalvageCounts counts;
  bool isWhole = true;  // nothing is missing, and nothing had to be guessed
  Table library;        // what was wrong with the library as a whole: text
  Table banks;          // for each bank what was found of it
  Table items;          // gaps, and items that were not taken unchanged

  Salvaged();
};

// The type of a library that may be damaged. Throws the error of an open that fails; damage is not
// an error.
zel::libTypes TypeForSalvage(std::string const& path);

// Takes what can be read of the library at the path into `to`, which must be empty. Throws Failure
// for a password that is missing or wrong.
Salvaged Salvage(std::string const& path, std::string const& password, Library const& to);

}  // namespace zel::desk

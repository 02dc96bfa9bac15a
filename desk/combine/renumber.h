// Gives a component of a library another number.
#pragma once

#include <cstdint>
#include <string>

#include "desk/open/library.h"
#include "desk/words/table.h"

namespace zel::desk {

struct Renumbered {
  std::string name;  // of the component; empty if the library has only other items of it
  std::int32_t from = 0;
  std::int32_t to = 0;
  Table banks;                        // for each bank with changed items, their number
  std::vector<std::string> warnings;  // about items that could not be kept in all digits

  Renumbered();
};

// Carries the number through every bank of a library that is open for update: the component itself
// with its IDs and CAS number, all items that are named by it (pairs, groups and other data of
// components), and mappings from and to other programs. `component` is a number, an ID, a CAS
// number or a name; `to` is a number above 0. Throws Failure if the library has nothing under the
// old number, if the new number is in use, or if an item cannot be read or moved; then the change
// must not be put in place.
Renumbered Renumber(Library const& library, std::string const& component, std::string const& to);

}  // namespace zel::desk

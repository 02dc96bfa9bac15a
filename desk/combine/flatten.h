// Saves what a search over a preference list finds as one library.
#pragma once

#include <string>
#include <vector>

#include "desk/notes/carried_notes.h"
#include "desk/open/library.h"
#include "desk/open/preference_list.h"
#include "desk/words/table.h"

namespace zel::desk {

struct FlattenOptions {
  std::string bank = "MERGED";          // the name of all banks of the new library
  std::vector<std::string> components;  // none: all components of the list
};

struct Flattened {
  std::int64_t components = 0;
  std::int64_t items = 0;  // of all other banks
  Table taken;    // what came from where: for each source and bank its items and, of components,
                  // the constants and correlations
  Table leftOut;  // banks of types that this program does not know
  std::vector<CitationConflict> citations;  // that the new library does not have

  Flattened();
};

// Writes the components of the list into `to`, each merged as by PreferenceList::Search, with the
// reference codes of its data; constants that a search derives are not written. From the other
// banks of the libraries, the first item under each key is taken; where libraries number a
// component differently, the key has the number of the merged component. With named components,
// only their items are taken, and all items that do not belong to a component, such as those of
// groups.
//
// Throws Failure if sources contradict each other about a component, unless the list accepts that,
// if two components have the same number, and if an item cannot be written. Items that cannot be
// read are handed to Session::LeaveOut.
Flattened Flatten(PreferenceList& list, Library const& to, FlattenOptions const& options);

}  // namespace zel::desk

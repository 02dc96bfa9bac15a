// Merges the banks of one library into those of the same type and name of another.
#pragma once

#include <string>
#include <vector>

#include "desk/notes/carried_notes.h"
#include "desk/open/identity_conflict.h"
#include "desk/open/library.h"
#include "desk/words/table.h"

namespace zel::desk {

// What is done about items that both libraries have and that differ.
enum class MergeSide {
  kRefuse,  // nothing is changed
  kOurs,    // those of the library that is changed are kept
  kTheirs,  // they are replaced with those of the other library
  kList     // they are listed, and nothing is changed
};

struct MergeOptions {
  MergeSide side = MergeSide::kRefuse;
  std::vector<std::string> banks;  // of the other library; none: all of them
  bool acceptIdentity = false;     // also for components that mean different substances
};

struct Merged {
  Table banks;        // for each bank the numbers of items: added, same, differing
  Table differences;  // with kList, a row for each field that differs
  std::vector<IdentityConflict> conflicts;  // components that mean different substances
  std::vector<CitationConflict> citations;  // of data that were merged

  Merged();
};

// Adds the items, and the banks, that only `from` has. `library` is open for update unless `side`
// is kList. Throws Failure if an item cannot be written, if a bank is of a type that this program
// does not know, for components of one number that mean different substances unless that is
// accepted, and, with kRefuse, if items differ; `library` may then be changed in part. Items of
// `from` that cannot be read are handed to Session::LeaveOut.
Merged Merge(Library const& library, Library const& from, MergeOptions const& options);

}  // namespace zel::desk

// Takes changes of a library back.
#pragma once

#include <string>
#include <vector>

#include "desk/change/library_change.h"
#include "desk/open/history.h"

namespace zel::desk {

// The version to which an undo goes back, out of the versions of a library: that before the last
// change that no undo has taken back. Several undos in a row go back one change each. Null if no
// version is left to go back to.
Version const* VersionToUndo(std::vector<Version> const& versions);

struct UndoOptions {
  int before = 0;      // the change before which the library is restored; 0 for VersionToUndo
  bool force = false;  // also if another program has changed the library since
};

struct Undo {
  Version version;  // what was restored; its record is that of the undone change
  LibraryChange change;
};

// Restores an earlier version of the library at `path` as a change of its own, which keeps what it
// replaces, so that it can be undone in turn. The library in `change` is still as it was; its
// PutInPlace must be called after Restore(version). Throws Failure if that version does not exist,
// or if the library is not as the last change left it.
Undo BeginUndo(Session& session, std::string const& path, UndoOptions const& undo,
               ChangeOptions const& options);

}  // namespace zel::desk

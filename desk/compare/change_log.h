// The changes of a library that its history holds, with what they changed.
#pragma once

#include <string>
#include <vector>

#include "desk/compare/library_difference.h"
#include "desk/open/history.h"
#include "desk/open/session.h"

namespace zel::desk {

struct LoggedChange {
  int number = 0;
  ChangeRecord record;
  // Another program has changed the library between this change and the next one; its changes are
  // among the differences.
  bool isMixed = false;
  Table differences;  // those of the library before the change ("before") and after it ("after")
};

// The changes of the library at `path`, the last one first; at most `most` of them if that is not
// 0. Throws Failure if the library or one of its versions cannot be read.
std::vector<LoggedChange> ChangesOf(Session& session, std::string const& path, int most);

}  // namespace zel::desk

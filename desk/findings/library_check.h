// Checks of the structure and the data of libraries.
#pragma once

#include <zelaccess/LibFile.h>

#include <string>
#include <vector>

#include "desk/findings/finding.h"
#include "desk/open/library.h"

namespace zel::desk {

struct CheckRule {
  std::string id;
  std::string rule;
};

// All checks whose findings are not damage: of the structure, then of the data.
std::vector<CheckRule> CheckRules();

// What a host does before and after the parts of a check: it may show the progress, and end the
// check.
class CheckSteps {
 public:
  virtual ~CheckSteps() = default;
  // Called before a part, which works with the library and is this share of the whole.
  virtual void Begin(std::string const& what, double share, zel::LibFile& library) = 0;
  // Called after a part however it ends, even if Begin throws; the library must not be used
  // afterwards.
  virtual void Leave() noexcept = 0;
  // Called after a part that was completed. Throws to end the check.
  virtual void End() = 0;
};

struct CheckOptions {
  std::vector<std::string> libraries;  // each is compared with the others
  std::vector<std::string> silent;     // IDs of checks that are left out
  bool structureOnly = false;
  bool acceptIdentity = false;  // different substances are a warning
  CheckSteps* steps = nullptr;  // may be null
  double minStrength = 0.5;     // weaker findings are left out
};

// The checks of single rules whose findings the judgement of all comparisons replaces.
std::vector<char const*> const& JudgedChecks();

// The structure of each library, then the data of the sound ones, alone and with each other. The
// findings are in the order of severity and strength. Damage is never left out; Session::Note gets
// a line for each library whose data were not checked because of it, and Session::LeaveOut one for
// each item that can no longer be read. Throws WrongUsage for a check that does not exist.
std::vector<Finding> CheckLibraries(Session& session, CheckOptions const& options);
// The same with libraries that are open; those of the options are not read.
std::vector<Finding> CheckLibraries(Session& session, std::vector<Library> const& libraries,
                                    CheckOptions const& options);

}  // namespace zel::desk

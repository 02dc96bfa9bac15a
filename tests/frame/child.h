// Parts of tests that run in a separate process; see fork_child.h, too.
#pragma once

#include <string>

#include "tests/support/environment.h"

namespace zel::test {

inline constexpr int kHeld = 0;
inline constexpr int kFailed = 1;
inline constexpr int kCannotRun = 77;

// A part of a test that the test program runs in place of its tests when the environment variable
// ZEL_TEST_PART is its name: for what can be observed only in a program just started, or in a copy
// of it elsewhere. Returns one of the above, which becomes the program's exit status.
class ProgramPart {
 public:
  ProgramPart(char const* name, int (*body)());
};

// The file of this program, quoted for the shell.
std::string ThisProgram();
// Runs the part of that name in a new process; returns its result.
int RunPart(char const* name);

}  // namespace zel::test

// Parts of tests that run in a separate process.
#pragma once

#include <sys/wait.h>
#include <unistd.h>

#include <string>

namespace zel::test {

inline constexpr int kHeld = 0;
inline constexpr int kFailed = 1;
inline constexpr int kCannotRun = 77;

// Runs `body`, which returns one of the above, in a child of this process; returns its result, or
// 128 plus the signal that ended it.
template <typename Body>
int InChild(Body const& body) {
  pid_t const child = ::fork();
  if (child == 0) ::_exit(body());
  int status = 0;
  if (child < 0 || ::waitpid(child, &status, 0) != child) return kFailed;
  return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

// A part of a test that the test program runs in place of its tests when the environment variable
// ZEL_TEST_PART is its name: for what can be observed only in a program just started, or in a copy
// of it elsewhere. Returns one of the above, which becomes the program's exit status.
class ProgramPart {
 public:
  ProgramPart(char const* name, int (*body)());
};

struct ProgramResult {
  int status = -1;
  std::string output;  // standard output and standard error
};

// Runs a program with its arguments, as the shell reads them.
ProgramResult RunProgram(std::string const& command);
// The file of this program, quoted for the shell.
std::string ThisProgram();

}  // namespace zel::test

// Parts of tests that run in a copy of this process.
#pragma once

#include <sys/wait.h>
#include <unistd.h>

#include "tests/frame/child.h"

namespace zel::test {

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

}  // namespace zel::test

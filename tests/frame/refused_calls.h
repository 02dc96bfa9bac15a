// Makes system calls fail as specified for the rest of the process's life: full disks, file systems
// that lack a service, every error of an open. For use in a child process.
#pragma once

#include <cstdint>

namespace zel::test {

struct Refusal {
  long call;                // number of the system call
  int error;                // the error it reports
  int argument = -1;        // position of the argument that is tested, -1 for every call
  std::uint32_t least = 0;  // refused when the low word of the argument is at least this
  std::uint32_t flag = 0;   // or, when not 0, when it has this flag
};

// False when the system has no such filter.
bool RefuseCalls(Refusal const& refusal);

}  // namespace zel::test

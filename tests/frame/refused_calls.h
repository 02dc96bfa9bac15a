// System calls that fail as told, for the rest of the process's life: full disks, file systems that
// lack a service, every error of an open. To be used in a child process.
#pragma once

#include <cstdint>

namespace zel::test {

struct Refusal {
  long call;                // number of the system call
  int error;                // what it gives
  int argument = -1;        // position of the argument that is looked at, -1 for every call
  std::uint32_t least = 0;  // refused when the low word of the argument is at least this
  std::uint32_t flag = 0;   // or, when not 0, has this flag
};

// False when the system has no such filter.
bool RefuseCalls(Refusal const& refusal);

}  // namespace zel::test

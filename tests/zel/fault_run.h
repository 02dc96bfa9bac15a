// A program run with one of its file operations failing.
#pragma once

#include <string>
#include <vector>

namespace zel::test {

// Which operation fails, and how. Operations are the system calls that name a file under the
// watched folder, by path or by descriptor, counted from 1.
struct Fault {
  long operation = 0;           // 0: none fails
  int error = 0;                // the error it returns
  bool writesOnly = false;      // count only calls that can need room on the disk
  std::string calls;            // count only calls whose names begin with this
  bool andAllAfter = false;     // the counted operations after it fail too
  bool refuseMappings = false;  // no file can be mapped: all reads and writes are system calls
};

struct FaultedRun {
  bool isTraced = true;  // false: the system does not allow it, and nothing was run
  int status = -1;       // 128 and the signal for a program that a signal ended
  long operations = 0;   // the number counted
  std::string failed;    // name of the call that failed; empty when none did
  std::string out;
  std::string err;
};

// Runs `words`, the first of them a program's path, in `folder`. Operations on files under
// `watched`, an absolute path without links, and on standard output count.
FaultedRun RunFaulted(std::vector<std::string> words, std::string const& folder,
                      std::string const& watched, Fault const& fault);

}  // namespace zel::test

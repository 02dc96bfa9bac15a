// The memory of this process as the system reports it.
#pragma once

#include <cstdint>
#include <fstream>
#include <string>

namespace zel::test {

// A row of /proc/self/status in KB: "VmHWM" the largest resident memory so far, "RssFile" the pages
// of files that are mapped now. -1 if there is no such row.
inline std::int64_t ProcessMemory(std::string const& row) {
  std::ifstream status("/proc/self/status");
  for (std::string name; status >> name;) {
    std::int64_t kilobytes = -1;
    if (name == row + ":" && status >> kilobytes) return kilobytes;
    std::getline(status, name);
  }
  return -1;
}

}  // namespace zel::test

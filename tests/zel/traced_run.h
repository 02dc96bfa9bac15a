// Runs of zel that are ended in the middle.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace zel::test {

enum class Ended { kByItself, kKilled, kCannotTrace };

struct TracedRun {
  Ended ended = Ended::kCannotTrace;
  long stops = 0;  // before and after each system call, until the run ended
};

// Runs zel in a folder, without its output, and kills it at its `stop`-th stop.
TracedRun RunAndKillAt(long stop, std::filesystem::path const& folder,
                       std::vector<std::string> words);

}  // namespace zel::test

// The options of the programs that test for a long time.
#pragma once

#include <cstdio>
#include <functional>
#include <map>
#include <string>

namespace zel::test {

// What to do with the value of each option.
using LongOptions = std::map<std::string, std::function<void(char const*)>>;

// Reads pairs of an option and its value. Anything else would be a measurement of something other
// than what was asked for: false, with a message.
inline bool ReadOptions(int count, char** words, LongOptions const& options) {
  for (int i = 1; i < count; i += 2) {
    auto const at = options.find(words[i]);
    if (at != options.end() && i + 1 < count) {
      at->second(words[i + 1]);
      continue;
    }
    std::string known;
    for (auto const& [name, action] : options) known += " [" + name + " VALUE]";
    std::fprintf(stderr, "%s: usage: %s%s\n", words[i], words[0], known.c_str());
    return false;
  }
  return true;
}

}  // namespace zel::test

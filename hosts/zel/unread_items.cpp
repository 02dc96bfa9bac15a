#include "unread_items.h"

#include <algorithm>
#include <cstdio>

#include "command.h"
#include "failure.h"

namespace zelhost {
namespace {

bool isStrict = false;

}  // namespace

void UnreadItems::Found(zel::zelFindings, char const*, char const* place, char const* text) {
  std::string line = path_ + ": " + place + ": " + text;
  std::replace_if(
      line.begin(), line.end(), [](char c) { return (c >= 0 && c < ' ') || c == '\x7f'; }, '?');
  if (isStrict) throw Failure(line);
  if (told_.insert(line).second) std::fprintf(stderr, "zel: %s; left out\n", line.c_str());
  SetExitStatus(1);
}

void AddStrict(Command& command) {
  command.Flag("--strict", isStrict, "stop at the first item that cannot be read");
}

}  // namespace zelhost

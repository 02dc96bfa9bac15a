#include "open/unread_items.h"

#include <algorithm>
#include <cstdio>

#include "words/failure.h"

namespace zelhost {

void UnreadItems::Found(zel::zelFindings, char const*, char const* place, char const* text) {
  std::string line = path_ + ": " + place + ": " + text;
  std::replace_if(
      line.begin(), line.end(), [](char c) { return (c >= 0 && c < ' ') || c == '\x7f'; }, '?');
  if (session_.isStrict) throw Failure(line);
  if (told_.insert(line).second) std::fprintf(stderr, "zel: %s; left out\n", line.c_str());
  session_.exitStatus = 1;
}

}  // namespace zelhost

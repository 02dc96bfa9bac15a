#include "desk/open/unread_items.h"

#include <algorithm>

namespace zel::desk {

void UnreadItems::Found(zel::zelFindings, char const*, char const* place, char const* text) {
  std::string line = path_ + ": " + place + ": " + text;
  std::replace_if(
      line.begin(), line.end(), [](char c) { return (c >= 0 && c < ' ') || c == '\x7f'; }, '?');
  if (told_.insert(line).second) session_.LeaveOut(line);
}

}  // namespace zel::desk

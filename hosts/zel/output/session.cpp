#include "output/session.h"

#include <cstdio>

#include "output/progress.h"

namespace zelhost {

void Session::LeaveOut(std::string const& line) {
  if (isStrict) zel::desk::Session::LeaveOut(line);
  ClearProgressLine();
  std::fprintf(stderr, "zel: %s; left out\n", line.c_str());
  exitStatus = 1;
}

void Session::Note(std::string const& line) {
  ClearProgressLine();
  std::fprintf(stderr, "zel: %s\n", line.c_str());
}

}  // namespace zelhost

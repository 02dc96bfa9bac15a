#include "output/session.h"

#include <cstdio>

#include "desk/files/standard_output.h"
#include "output/progress.h"

namespace zelhost {

void Session::LeaveOut(std::string const& line) {
  if (isStrict) zel::desk::Session::LeaveOut(line);
  ClearProgressLine();
  lines.push_back(line + "; left out");
  std::fprintf(stderr, "zel: %s; left out\n", line.c_str());
  exitStatus = 1;
}

void Session::Note(std::string const& line) {
  ClearProgressLine();
  lines.push_back(line);
  std::fprintf(stderr, "zel: %s\n", line.c_str());
}

void Session::Print(Report& report) {
  report.SetLines(lines);
  std::string const text = zelhost::Print(report, form, commandName);
  hasReported = true;
  Write(text);
}

}  // namespace zelhost

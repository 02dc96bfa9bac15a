#include "tests/zel/terminal_run.h"

#include <pty.h>
#include <sys/ioctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <sstream>

namespace zel::test {

Outcome RunOnTerminal(std::filesystem::path const& folder, std::string const& line,
                      Terminal const& terminal) {
  struct winsize shape {};
  shape.ws_row = 25;
  shape.ws_col = static_cast<unsigned short>(terminal.columns);
  int master = -1;
  pid_t const child = ::forkpty(&master, nullptr, nullptr, &shape);
  if (child < 0) return {};
  if (child == 0) {
    if (::chdir(folder.c_str()) != 0) ::_exit(126);
    ::setenv("ZEL", ZEL_PROGRAM, 1);
    ::unsetenv("COLUMNS");
    // The shell is replaced by the last command, so that a signal of the terminal ends only that.
    ::execl("/bin/sh", "sh", "-c", line.c_str(), nullptr);
    ::_exit(127);
  }
  Outcome outcome;
  bool isTyped = terminal.when.empty();
  char piece[4096];
  for (ssize_t size = 0; (size = ::read(master, piece, sizeof piece)) > 0;) {
    outcome.out.append(piece, static_cast<std::size_t>(size));
    if (isTyped || outcome.out.find(terminal.when) == std::string::npos) continue;
    isTyped = ::write(master, terminal.input.data(), terminal.input.size()) > 0;
  }
  ::close(master);
  int status = 0;
  ::waitpid(child, &status, 0);
  outcome.status = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
  return outcome;
}

std::vector<std::string> Lines(std::string const& text) {
  std::vector<std::string> lines;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    lines.push_back(line);
  }
  return lines;
}

}  // namespace zel::test

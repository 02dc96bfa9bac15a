#include "tests/zel/traced_run.h"

#include <sys/ptrace.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <cstdlib>

namespace zel::test {
namespace {

[[noreturn]] void BecomeZel(std::filesystem::path const& folder, std::vector<std::string>& words) {
  std::vector<char*> arguments;
  for (std::string& word : words) arguments.push_back(word.data());
  arguments.push_back(nullptr);
  ::setenv("ASAN_OPTIONS", "detect_leaks=0", 1);  // which cannot be done under a tracer
  if (std::freopen("/dev/null", "w", stdout) != nullptr &&
      std::freopen("/dev/null", "w", stderr) != nullptr && ::chdir(folder.c_str()) == 0 &&
      ::ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) == 0) {
    ::execv(ZEL_PROGRAM, arguments.data());
  }
  ::_exit(77);
}

}  // namespace

TracedRun RunAndKillAt(long stop, std::filesystem::path const& folder,
                       std::vector<std::string> words) {
  words.insert(words.begin(), ZEL_PROGRAM);
  TracedRun run;
  std::fflush(stdout);  // or the child writes it, too
  pid_t const child = ::fork();
  if (child == 0) BecomeZel(folder, words);
  int status = 0;
  ::waitpid(child, &status, 0);  // it is stopped at its start
  if (!WIFSTOPPED(status)) return run;
  for (;;) {
    ::ptrace(PTRACE_SYSCALL, child, nullptr, nullptr);
    ::waitpid(child, &status, 0);
    if (WIFEXITED(status) || WIFSIGNALED(status)) {
      run.ended = Ended::kByItself;
      return run;
    }
    if (++run.stops >= stop) break;
  }
  ::kill(child, SIGKILL);
  ::waitpid(child, &status, 0);
  run.ended = Ended::kKilled;
  return run;
}

}  // namespace zel::test

#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <cstdlib>

#include "tests/support/environment.h"

namespace zel::test {

char const* const kTemporaryFolderVariable = "TMPDIR";

void SetVariable(char const* name, std::string const& value) { ::setenv(name, value.c_str(), 1); }

void UnsetVariable(char const* name) { ::unsetenv(name); }

int ProcessNumber() { return static_cast<int>(::getpid()); }

void RemoveFolder(std::filesystem::path const& folder) { std::filesystem::remove_all(folder); }

ProgramResult RunProgram(std::string const& command) {
  ProgramResult result;
  std::FILE* pipe = ::popen((command + " 2>&1").c_str(), "r");
  if (pipe == nullptr) return result;
  std::array<char, 4096> bytes;
  while (std::size_t const n = std::fread(bytes.data(), 1, bytes.size(), pipe)) {
    result.output.append(bytes.data(), n);
  }
  int const status = ::pclose(pipe);
  result.status = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
  return result;
}

std::string Quoted(std::string const& text) { return "'" + text + "'"; }

}  // namespace zel::test

#include <process.h>

#include <array>
#include <cstdio>
#include <cstdlib>

#include "tests/support/environment.h"

namespace zel::test {

char const* const kTemporaryFolderVariable = "TMP";

// Sets the variable of the system, too.
void SetVariable(char const* name, std::string const& value) { ::_putenv_s(name, value.c_str()); }

void UnsetVariable(char const* name) { ::_putenv_s(name, ""); }

int ProcessNumber() { return ::_getpid(); }

void RemoveFolder(std::filesystem::path const& folder) {
  std::filesystem::remove_all(LR"(\\?\)" + std::filesystem::path(folder).make_preferred().native());
}

// The shell takes a pair of quotes away from a command that begins with one.
ProgramResult RunProgram(std::string const& command) {
  ProgramResult result;
  std::FILE* pipe = ::_popen(("\"" + command + " 2>&1\"").c_str(), "rb");
  if (pipe == nullptr) return result;
  std::array<char, 4096> bytes;
  while (std::size_t const n = std::fread(bytes.data(), 1, bytes.size(), pipe)) {
    result.output.append(bytes.data(), n);
  }
  result.status = ::_pclose(pipe);
  return result;
}

std::string Quoted(std::string const& text) { return "\"" + text + "\""; }

}  // namespace zel::test

#include "tests/frame/child.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <map>

namespace zel::test {
namespace {

std::map<std::string, int (*)()>& Parts() {
  static std::map<std::string, int (*)()> parts;
  return parts;
}

// Runs before the first test.
class PartInsteadOfTests : public ::testing::Environment {
  void SetUp() override {
    char const* const name = std::getenv("ZEL_TEST_PART");
    if (name == nullptr) return;
    auto const part = Parts().find(name);
    std::_Exit(part == Parts().end() ? kCannotRun : part->second());
  }
};

auto* const environment = ::testing::AddGlobalTestEnvironment(new PartInsteadOfTests);

}  // namespace

ProgramPart::ProgramPart(char const* name, int (*body)()) { Parts()[name] = body; }

std::string ThisProgram() {
  return "'" + std::filesystem::read_symlink("/proc/self/exe").string() + "'";
}

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

}  // namespace zel::test

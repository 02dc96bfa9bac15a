#include "tests/frame/child.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <map>

#include "frame/platform/system.h"

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

std::string ThisProgram() { return Quoted(platform::ProgramFile()); }

int RunPart(char const* name) {
  SetVariable("ZEL_TEST_PART", name);
  int const status = RunProgram(ThisProgram()).status;
  UnsetVariable("ZEL_TEST_PART");
  return status;
}

}  // namespace zel::test

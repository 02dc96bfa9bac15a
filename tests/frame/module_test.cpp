#include "frame/module.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "frame/platform/system.h"
#include "tests/frame/child.h"

namespace zel {
namespace {

namespace fs = std::filesystem;

TEST(Module, DeleteTestFlagIsOffAtLoadAndStored) {
  EXPECT_FALSE(DeleteTestFlag());
  SetDeleteTestFlag(true);
  EXPECT_TRUE(DeleteTestFlag());
  SetDeleteTestFlag(false);
  EXPECT_FALSE(DeleteTestFlag());
}

TEST(Module, HandleLeadsToTheModulesFile) {
  ASSERT_NE(ThisModule(), nullptr);
  EXPECT_EQ(platform::ModuleFile(ThisModule()), fs::read_symlink("/proc/self/exe").string());
}

TEST(Module, LoadingWritesOneLineToTheDebugOutput) {
  // The program's standard output is discarded, which leaves standard error.
  std::string const quietly = test::ThisProgram() + " --gtest_filter=None 2>&1 >/dev/null";
  EXPECT_EQ(test::RunProgram("(ZELACCESS_DEBUG=1 " + quietly + ")").output,
            "ZelAccess initializing - DllMain\n");
  EXPECT_EQ(test::RunProgram("(unset ZELACCESS_DEBUG; " + quietly + ")").output, "");
}

std::vector<std::string> Sorted(std::vector<std::string> texts) {
  std::sort(texts.begin(), texts.end());
  return texts;
}

// Run in a process in which only the load has happened.
int EnvironmentIsAsAtTheStart() {
  std::ifstream start("/proc/self/environ", std::ios::binary);
  std::vector<std::string> before;
  for (std::string setting; std::getline(start, setting, '\0');) before.push_back(setting);
  std::vector<std::string> now;
  for (char** setting = environ; *setting != nullptr; ++setting) now.emplace_back(*setting);
  bool const hasPath = std::find(before.begin(), before.end(), "Path=a;b") != before.end();
  return hasPath && Sorted(now) == Sorted(before) ? test::kHeld : test::kFailed;
}
test::ProgramPart const environmentPart("environment", EnvironmentIsAsAtTheStart);

TEST(Module, LoadingLeavesTheEnvironmentAlone) {
  std::string const program = "ZEL_TEST_PART=environment " + test::ThisProgram();
  EXPECT_EQ(test::RunProgram("Path='a;b' " + program).status, test::kHeld);
  EXPECT_EQ(test::RunProgram("Path=other " + program).status, test::kFailed) << "is looked at";
}

}  // namespace
}  // namespace zel

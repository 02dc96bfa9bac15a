#include "frame/known_folders.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <string>
#include <utility>

#include "tests/frame/child.h"
#include "tests/frame/temp_folder.h"

namespace zel {
namespace {

namespace fs = std::filesystem;

class KnownFoldersTest : public test::TempFolderTest {};

TEST_F(KnownFoldersTest, ProgramAndItsFolder) {
  std::string const program = fs::read_symlink("/proc/self/exe").string();
  EXPECT_EQ(GetWellKnownFolder(0), program);
  EXPECT_EQ(GetWellKnownFolder(1), fs::path(program).parent_path().string());
}

TEST_F(KnownFoldersTest, FoldersOfTheSystem) {
  ::setenv("XDG_CONFIG_HOME", "/tmp/conf", 1);
  ::setenv("XDG_DOCUMENTS_DIR", "/tmp/docs", 1);
  EXPECT_EQ(GetWellKnownFolder(3), "/usr/local");
  EXPECT_EQ(GetWellKnownFolder(4), "/tmp/docs");
  EXPECT_EQ(GetWellKnownFolder(5), "/usr/local/share");
  EXPECT_EQ(GetWellKnownFolder(6), "/tmp/conf");
  EXPECT_EQ(GetWellKnownFolder(7), "/var/lib");
  ::unsetenv("XDG_CONFIG_HOME");
  ::unsetenv("XDG_DOCUMENTS_DIR");
  std::string const home = std::getenv("HOME") == nullptr ? "" : std::getenv("HOME");
  ::setenv("HOME", "/home/somebody", 1);
  EXPECT_EQ(GetWellKnownFolder(4), "/home/somebody/Documents");
  EXPECT_EQ(GetWellKnownFolder(6), "/home/somebody/.config");
  ::unsetenv("HOME");
  EXPECT_EQ(GetWellKnownFolder(4), "");
  EXPECT_EQ(GetWellKnownFolder(6), "");
  if (!home.empty()) ::setenv("HOME", home.c_str(), 1);
}

TEST_F(KnownFoldersTest, OtherSelectorsGiveNothing) {
  for (int selector : {-1, 8, 1000}) EXPECT_EQ(GetWellKnownFolder(selector), "");
}

TEST_F(KnownFoldersTest, FoldersAreCutAt259Characters) {
  ::setenv("XDG_CONFIG_HOME", std::string(400, 'c').c_str(), 1);
  EXPECT_EQ(GetWellKnownFolder(6), std::string(259, 'c'));
  ::unsetenv("XDG_CONFIG_HOME");
}

TEST_F(KnownFoldersTest, InstallRootIsCutAtItsFolder) {
  EXPECT_EQ(InstallRootOf("/opt/HvkThermo/bin"), "/opt/HvkThermo");
  EXPECT_EQ(InstallRootOf("C:\\hvkthermo\\bin"), "C:\\hvkthermo");
  EXPECT_EQ(InstallRootOf("/hvkthermo/x/hvkthermo/bin"), "/hvkthermo") << "the first one";
  EXPECT_EQ(InstallRootOf("/opt/hvkthermo"), "") << "a program directly in it has none";
  EXPECT_EQ(InstallRootOf("/opt/myhvkthermo/bin"), "");
  EXPECT_EQ(InstallRootOf("/opt/hvkthermo2/bin"), "");
  EXPECT_EQ(InstallRootOf("/opt/other/bin"), "");
  EXPECT_EQ(InstallRootOf(""), "");
}

int InstalledProgramFindsItsRootOnce() {
  fs::path const program = fs::read_symlink("/proc/self/exe");
  fs::path const root = program.parent_path().parent_path();
  bool const found = GetWellKnownFolder(2) == root.string();
  fs::rename(root, root.parent_path() / "moved");
  bool const kept = GetWellKnownFolder(0) == program.string() &&
                    GetWellKnownFolder(1) == program.parent_path().string() &&
                    GetWellKnownFolder(2) == root.string();
  return found && kept ? test::kHeld : test::kFailed;
}
test::ProgramPart const installedPart("installed", InstalledProgramFindsItsRootOnce);

int ProgramElsewhereHasNoRoot() {
  bool const none = GetWellKnownFolder(2).empty() && GetWellKnownFolder(2).empty();
  return none && !GetWellKnownFolder(1).empty() ? test::kHeld : test::kFailed;
}
test::ProgramPart const elsewherePart("elsewhere", ProgramElsewhereHasNoRoot);

TEST_F(KnownFoldersTest, InstallRootOfAProgramIsFoundOnce) {
  for (auto const& [folder, part] :
       {std::pair("HvkThermo/bin", "installed"), std::pair("other/bin", "elsewhere")}) {
    fs::create_directories(Path(folder));
    std::string const program = Path(folder) + "/program";
    fs::copy_file("/proc/self/exe", program);
    EXPECT_EQ(test::RunProgram(std::string("ZEL_TEST_PART=") + part + " '" + program + "'").status,
              test::kHeld)
        << part;
  }
}

TEST_F(KnownFoldersTest, LongPathFollowsLinks) {
  MakeFile("file", "x");
  fs::create_symlink(Path("file"), Path("link"));
  std::string path = Path("./link");
  LongPathInPlace(path);
  EXPECT_EQ(path, Path("file"));
  path = "/no/such/../file";
  LongPathInPlace(path);
  EXPECT_EQ(path, "/no/such/../file") << "unchanged when there is no such file";
}

TEST_F(KnownFoldersTest, LongPathOfMoreThan259CharactersIsNotTaken) {
  fs::path const deep = Folder() / std::string(150, 'a') / std::string(150, 'b');
  fs::create_directories(deep);
  fs::create_directory_symlink(deep, Path("link"));
  std::string path = Path("link");
  LongPathInPlace(path);
  EXPECT_EQ(path, Path("link"));
}

}  // namespace
}  // namespace zel

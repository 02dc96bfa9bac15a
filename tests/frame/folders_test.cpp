// Paths, folder walks, the search path, known folders, settings and the module's state.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "frame/folder_walk.h"
#include "frame/known_folders.h"
#include "frame/module.h"
#include "frame/path_parts.h"
#include "frame/platform/system.h"
#include "frame/search_path.h"
#include "frame/wildcard.h"

namespace zel {
namespace {

namespace fs = std::filesystem;

TEST(PathParts, BothSeparatorsSplit) {
  struct {
    char const* path;
    char const* folder;
    char const* name;
    char const* extension;
  } const rows[] = {{"/a/b.lb1", "/a/", "b", ".lb1"},
                    {"C:\\x\\y.z.txt", "C:\\x\\", "y.z", ".txt"},
                    {".txt", "", "", ".txt"},
                    {"name", "", "name", ""},
                    {"dir.v2/name", "dir.v2/", "name", ""},
                    {"/a/", "/a/", "", ""},
                    {"", "", "", ""}};
  for (auto const& row : rows) {
    PathParts const parts = SplitPath(row.path);
    EXPECT_EQ(parts.folder, row.folder) << row.path;
    EXPECT_EQ(parts.name, row.name) << row.path;
    EXPECT_EQ(parts.extension, row.extension) << row.path;
  }
}

TEST(PathParts, PathsBecomeAbsoluteAndPlain) {
  std::string const here = platform::WorkingFolder();
  EXPECT_EQ(AbsolutePath("x.lb1"), here + "/x.lb1");
  EXPECT_EQ(AbsolutePath("./a/../x"), here + "/x");
  EXPECT_EQ(AbsolutePath("/a//b/./c/../d"), "/a/b/d");
  EXPECT_EQ(AbsolutePath("../../.."
                         "/../../../../../.."),
            "/");
  EXPECT_EQ(AbsolutePath("f", "/base"), "/base/f");
  EXPECT_EQ(AbsolutePath("../f", "/base/sub"), "/base/f");
  EXPECT_EQ(AbsolutePath("f", "rel"), here + "/rel/f");
  EXPECT_EQ(AbsolutePath("/f", "/base"), "/f");
  EXPECT_EQ(AbsolutePath(""), "");
}

TEST(Wildcard, StarsAndQuestionMarks) {
  struct {
    char const* name;
    char const* pattern;
    bool matches;
  } const rows[] = {{"a.cmp", "*.cmp", true}, {"a.CMP", "*.cmp", false}, {"noext", "*.*", true},
                    {"abc", "a?c", true},     {"ac", "a?c", false},      {"abc", "a*", true},
                    {"abc", "*b*c*", true},   {"abc", "*d", false},      {"", "*", true},
                    {"", "?", false},         {"aaab", "*ab", true},     {"x", "", false}};
  for (auto const& row : rows) {
    EXPECT_EQ(MatchesFilePattern(row.name, row.pattern), row.matches) << row.name << row.pattern;
  }
}

class FolderTest : public ::testing::Test {
 protected:
  void SetUp() override {
    root_ = fs::temp_directory_path() / ("zel_folders_" + std::to_string(::getpid()));
    fs::remove_all(root_);
    for (char const* folder : {"a", "b", "b/deep", ".hidden"})
      fs::create_directories(root_ / folder);
    for (char const* file :
         {"1.cmp", "2.cmp", "x.txt", "a/3.cmp", "b/4.cmp", "b/deep/5.cmp", ".hidden/6.cmp"}) {
      std::ofstream(root_ / file) << "x";
    }
  }
  void TearDown() override {
    FindFilesEnd();
    fs::remove_all(root_);
  }
  std::vector<std::string> Found() {
    std::vector<std::string> names;
    std::string path;
    while (FindFilesNext(path)) names.push_back(fs::path(path).lexically_relative(root_).string());
    return names;
  }

  fs::path root_;
};

using Names = std::vector<std::string>;

TEST_F(FolderTest, PlainWalkStaysInTheFolder) {
  FindFilesBegin(root_.string(), "*.cmp", false);
  EXPECT_EQ(Found(), (Names{"1.cmp", "2.cmp"}));
  std::string path;
  EXPECT_FALSE(FindFilesNext(path));
}

TEST_F(FolderTest, RecursiveWalkTakesTheNewestFolderFirst) {
  FindFilesBegin(root_.string(), "*.cmp", true);
  EXPECT_EQ(Found(), (Names{"1.cmp", "2.cmp", "b/4.cmp", "b/deep/5.cmp", "a/3.cmp"}));
}

TEST_F(FolderTest, BeginDiscardsTheWalkBefore) {
  FindFilesBegin(root_.string(), "*.cmp", true);
  std::string path;
  ASSERT_TRUE(FindFilesNext(path));
  FindFilesBegin((root_ / "a").string(), "*", false);
  EXPECT_EQ(Found(), Names{"a/3.cmp"});
  FindFilesBegin(root_.string(), "", true);
  EXPECT_FALSE(FindFilesNext(path)) << "an empty pattern finds nothing";
}

TEST_F(FolderTest, FoundFilesMayBeDeletedDuringTheWalk) {
  FindFilesBegin(root_.string(), "*.cmp", false);
  std::string path;
  int count = 0;
  while (FindFilesNext(path)) {
    EXPECT_TRUE(fs::remove(path));
    ++count;
  }
  EXPECT_EQ(count, 2);
}

TEST_F(FolderTest, FolderWithAnotherAttributeIsHandedOutLikeAFile) {
  fs::create_directory_symlink(root_ / "a", root_ / "link.cmp");
  fs::create_directory(root_ / "locked.cmp");
  ::chmod((root_ / "locked.cmp").c_str(), 0500);
  FindFilesBegin(root_.string(), "*.cmp", true);
  Names const found = Found();
  EXPECT_NE(std::find(found.begin(), found.end(), "link.cmp"), found.end());
  EXPECT_NE(std::find(found.begin(), found.end(), "locked.cmp"), found.end());
  EXPECT_EQ(std::find(found.begin(), found.end(), "link.cmp/3.cmp"), found.end());
  ::chmod((root_ / "locked.cmp").c_str(), 0700);
}

TEST_F(FolderTest, MissingFolderHasNoFiles) {
  FindFilesBegin((root_ / "none").string(), "*", true);
  EXPECT_EQ(Found(), Names{});
}

TEST(SearchPath, FoldersStandInFrontOfTheOldValue) {
  EXPECT_EQ(ComposeSearchPath("", {}, "old"), "path=old");
  EXPECT_EQ(ComposeSearchPath("C:\\Install", {}, "old"), "path=C:\\Install\\VC160x86;old");
  EXPECT_EQ(ComposeSearchPath("C:\\Install\\", {}, ""), "path=C:\\Install\\VC160x86;");
  EXPECT_EQ(ComposeSearchPath("", {"one", "two\\", "three;"}, "old"), "path=one;two;three;old");
}

TEST(SearchPath, LongTextIsCutAtWholeFolders) {
  std::string const folder(1000, 'f');
  std::string const text = ComposeSearchPath("", {folder, folder, folder, folder}, folder);
  EXPECT_EQ(text, "path=" + folder + ";" + folder + ";" + folder + ";" + folder);
  EXPECT_EQ(text.size(), 4008U);
  std::string const exact(4095, 'x');
  EXPECT_EQ(ComposeSearchPath("", {}, exact).size(), 4100U) << "4100 characters stay";
  EXPECT_THROW(ComposeSearchPath("", {}, exact + "x"), std::length_error);
}

TEST(SearchPath, EnvironmentIsChangedAndTheOldValueHandedOut) {
  ::setenv("Path", "before", 1);
  char* old = nullptr;
  BuildSearchPath(old, "", {"first"});
  EXPECT_STREQ(old, "before");
  EXPECT_STREQ(std::getenv("Path"), "first;before");
  std::free(old);
  EXPECT_THROW(BuildSearchPath(old, "", {std::string(5000, 'x')}), std::length_error);
  EXPECT_STREQ(old, "first;before");
  EXPECT_STREQ(std::getenv("Path"), "first;before");
  std::free(old);
  ::unsetenv("Path");
  BuildSearchPath(old, "", {});
  EXPECT_STREQ(old, "");
  std::free(old);
}

TEST(Settings, InstallFolderComesFromTheKeyFile) {
  fs::path const file = fs::temp_directory_path() / ("zel_settings_" + std::to_string(::getpid()));
  std::ofstream(file) << "; comment\n[Other]\nInstallDir=wrong\n"
                         "[Software\\Ordwin\\OrdwinHub\\Mine]\n Name = x\nInstallDir = C:\\Hub \n";
  ::setenv("ZELACCESS_SETTINGS", file.c_str(), 1);
  ::setenv("Path", "p", 1);
  char* old = nullptr;
  BuildSearchPath(old, "Mine", {});
  EXPECT_STREQ(std::getenv("Path"), "C:\\Hub\\VC160x86;p");
  std::free(old);
  ::setenv("Path", "p", 1);
  BuildSearchPath(old, "Absent", {});
  EXPECT_STREQ(std::getenv("Path"), "p") << "a missing key adds nothing";
  std::free(old);
  ::unsetenv("ZELACCESS_SETTINGS");
  ::unsetenv("Path");
  fs::remove(file);
}

TEST(KnownFolders, InstallRootIsCutAtItsFolder) {
  EXPECT_EQ(InstallRootOf("/opt/HvkThermo/bin"), "/opt/HvkThermo");
  EXPECT_EQ(InstallRootOf("C:\\hvkthermo\\bin"), "C:\\hvkthermo");
  EXPECT_EQ(InstallRootOf("/opt/hvkthermo"), "") << "a program directly in it has none";
  EXPECT_EQ(InstallRootOf("/opt/other/bin"), "");
}

TEST(KnownFolders, SelectorsGiveFolders) {
  ::setenv("XDG_CONFIG_HOME", "/tmp/conf", 1);
  ::setenv("XDG_DOCUMENTS_DIR", "/tmp/docs", 1);
  std::string const program = GetWellKnownFolder(0);
  EXPECT_EQ(program, fs::read_symlink("/proc/self/exe").string());
  EXPECT_EQ(GetWellKnownFolder(1), fs::path(program).parent_path().string());
  EXPECT_EQ(GetWellKnownFolder(2), "");
  EXPECT_EQ(GetWellKnownFolder(3), "/usr/local");
  EXPECT_EQ(GetWellKnownFolder(4), "/tmp/docs");
  EXPECT_EQ(GetWellKnownFolder(5), "/usr/local/share");
  EXPECT_EQ(GetWellKnownFolder(6), "/tmp/conf");
  EXPECT_EQ(GetWellKnownFolder(7), "/var/lib");
  for (int bad : {-1, 8, 1000}) EXPECT_EQ(GetWellKnownFolder(bad), "");
  ::unsetenv("XDG_CONFIG_HOME");
  ::unsetenv("XDG_DOCUMENTS_DIR");
}

TEST(KnownFolders, LongPathFollowsLinks) {
  std::string path = "/proc/self/../self/exe";
  LongPathInPlace(path);
  EXPECT_EQ(path, fs::read_symlink("/proc/self/exe").string());
  path = "/no/such/file";
  LongPathInPlace(path);
  EXPECT_EQ(path, "/no/such/file");
}

TEST(Module, DeleteTestFlagIsOffAtLoadAndStored) {
  EXPECT_FALSE(DeleteTestFlag());
  SetDeleteTestFlag(true);
  EXPECT_TRUE(DeleteTestFlag());
  SetDeleteTestFlag(false);
  EXPECT_FALSE(DeleteTestFlag());
}

TEST(Module, HandleLeadsToTheModulesFile) {
  EXPECT_EQ(platform::ModuleFile(ThisModule()), fs::read_symlink("/proc/self/exe").string());
}

TEST(Module, DebugOutputIsSilentUnlessAskedFor) {
  ::testing::internal::CaptureStderr();
  platform::WriteDebug("silent\n");
  EXPECT_EQ(::testing::internal::GetCapturedStderr(), "");
  ::setenv("ZELACCESS_DEBUG", "1", 1);
  ::testing::internal::CaptureStderr();
  platform::WriteDebug("heard\n");
  EXPECT_EQ(::testing::internal::GetCapturedStderr(), "heard\n");
  ::unsetenv("ZELACCESS_DEBUG");
}

TEST(TemporaryFiles, AreNewAndPrivate) {
  std::string const one = platform::MakeTemporaryFile("zeltest");
  std::string const two = platform::MakeTemporaryFile("zeltest");
  ASSERT_FALSE(one.empty());
  EXPECT_NE(one, two);
  struct stat info {};
  ::stat(one.c_str(), &info);
  EXPECT_EQ(info.st_mode & 0777U, 0600U);
  platform::RemoveFile(one);
  platform::RemoveFile(two);
  EXPECT_FALSE(fs::exists(one));
}

}  // namespace
}  // namespace zel

#include "frame/folder_walk.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <iterator>
#include <string>
#include <vector>

#include "tests/frame/temp_folder.h"

namespace zel {
namespace {

namespace fs = std::filesystem;
using Names = std::vector<std::string>;

class FolderWalkTest : public test::TempFolderTest {
 protected:
  FolderWalkTest() {
    for (char const* folder : {"a", "b", "b/deep", ".hidden"}) fs::create_directories(Path(folder));
    for (char const* file : {"2.cmp", "1.cmp", "x.txt", "a/3.cmp", "b/4.cmp", "b/deep/5.cmp",
                             ".hidden/6.cmp", ".7.cmp"}) {
      MakeFile(file, "x");
    }
  }
  ~FolderWalkTest() override { FindFilesEnd(); }

  Names Found() const {
    Names names;
    std::string path;
    while (FindFilesNext(path)) {
      names.push_back(fs::path(path).lexically_relative(Folder()).string());
    }
    return names;
  }
};

TEST_F(FolderWalkTest, PlainWalkStaysInTheFolder) {
  FindFilesBegin(Folder().string(), "*.cmp", false);
  EXPECT_EQ(Found(), (Names{".7.cmp", "1.cmp", "2.cmp"}));
  std::string path;
  EXPECT_FALSE(FindFilesNext(path)) << "an ended walk stays ended";
}

TEST_F(FolderWalkTest, PathIsFolderSeparatorAndName) {
  std::string path;
  FindFilesBegin(Path("a"), "*", false);
  ASSERT_TRUE(FindFilesNext(path));
  EXPECT_EQ(path, Path("a") + "/3.cmp");
  FindFilesBegin(Path("a/"), "*", false);
  ASSERT_TRUE(FindFilesNext(path));
  EXPECT_EQ(path, Path("a") + "/3.cmp");
}

TEST_F(FolderWalkTest, RecursiveWalkTakesTheNewestFolderFirst) {
  FindFilesBegin(Folder().string(), "*.cmp", true);
  EXPECT_EQ(Found(), (Names{".7.cmp", "1.cmp", "2.cmp", "b/4.cmp", "b/deep/5.cmp", "a/3.cmp"}));
}

TEST_F(FolderWalkTest, FoldersAreNotHandedOut) {
  FindFilesBegin(Folder().string(), "*.*", false);
  EXPECT_EQ(Found(), (Names{".7.cmp", "1.cmp", "2.cmp", "x.txt"}));
}

TEST_F(FolderWalkTest, FolderWithoutAMatchIsPassed) {
  FindFilesBegin(Folder().string(), "5.cmp", true);
  EXPECT_EQ(Found(), Names{"b/deep/5.cmp"});
}

TEST_F(FolderWalkTest, BeginDiscardsTheWalkBefore) {
  FindFilesBegin(Folder().string(), "*.cmp", true);
  std::string path;
  ASSERT_TRUE(FindFilesNext(path));
  FindFilesBegin(Path("a"), "*", false);
  EXPECT_EQ(Found(), Names{"a/3.cmp"});
}

TEST_F(FolderWalkTest, EndStopsTheWalk) {
  FindFilesBegin(Folder().string(), "*.cmp", true);
  std::string path;
  ASSERT_TRUE(FindFilesNext(path));
  FindFilesEnd();
  EXPECT_FALSE(FindFilesNext(path));
}

TEST_F(FolderWalkTest, EmptyPatternFindsNothing) {
  FindFilesBegin(Folder().string(), "", true);
  EXPECT_EQ(Found(), Names{});
}

TEST_F(FolderWalkTest, PatternIsCutAt259Characters) {
  std::string const longest(255, 'n');
  MakeFile(longest, "x");
  FindFilesBegin(Folder().string(), longest + "****" + "no more", false);
  EXPECT_EQ(Found(), Names{longest});
}

TEST_F(FolderWalkTest, FoundFilesMayBeDeletedDuringTheWalk) {
  FindFilesBegin(Folder().string(), "*.cmp", true);
  std::string path;
  int count = 0;
  while (FindFilesNext(path)) {
    EXPECT_TRUE(fs::remove(path)) << path;
    ++count;
  }
  EXPECT_EQ(count, 6);
}

// So that a folder may be removed as soon as its last file has been returned.
TEST_F(FolderWalkTest, NoFolderIsOpenWhileItsFilesAreGiven) {
  auto const descriptors = [] {
    fs::directory_iterator const all("/proc/self/fd");
    return std::distance(begin(all), end(all));
  };
  auto const before = descriptors();
  FindFilesBegin(Folder().string(), "*.cmp", true);
  std::string path;
  while (FindFilesNext(path)) EXPECT_EQ(descriptors(), before) << path;
}

// A file that is added to a folder after its first file was returned is not part of the walk.
TEST_F(FolderWalkTest, FolderIsReadWholeBeforeItsFirstFile) {
  FindFilesBegin(Folder().string(), "*.cmp", false);
  std::string path;
  ASSERT_TRUE(FindFilesNext(path));
  MakeFile("0.cmp", "x");
  MakeFile("9.cmp", "x");
  EXPECT_EQ(Found(), (Names{"1.cmp", "2.cmp"}));
}

TEST_F(FolderWalkTest, FolderWithAnotherAttributeIsHandedOutLikeAFile) {
  fs::create_directory_symlink(Path("a"), Path("link.cmp"));
  fs::create_directory(Path("locked.cmp"));
  MakeFile("locked.cmp/8.cmp", "x");
  fs::permissions(Path("locked.cmp"), fs::perms(0500));
  FindFilesBegin(Folder().string(), "*.cmp", true);
  EXPECT_EQ(Found(), (Names{".7.cmp", "1.cmp", "2.cmp", "link.cmp", "locked.cmp", "b/4.cmp",
                            "b/deep/5.cmp", "a/3.cmp"}));
  fs::permissions(Path("locked.cmp"), fs::perms(0700));
}

TEST_F(FolderWalkTest, EmptyFolderNameIsTheWorkingFolder) {
  fs::path const before = fs::current_path();
  fs::current_path(Folder());
  FindFilesBegin("", "*.cmp", true);
  Names found;
  std::string path;
  while (FindFilesNext(path)) found.push_back(path);
  fs::current_path(before);
  EXPECT_EQ(found, (Names{".7.cmp", "1.cmp", "2.cmp", "b/4.cmp", "b/deep/5.cmp", "a/3.cmp"}));
}

TEST_F(FolderWalkTest, MissingFolderHasNoFiles) {
  FindFilesBegin(Path("none"), "*", true);
  EXPECT_EQ(Found(), Names{});
}

}  // namespace
}  // namespace zel

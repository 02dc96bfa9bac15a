#include "frame/path_parts.h"

#include <gtest/gtest.h>

#include <string>

namespace zel {
namespace {

TEST(PathParts, BothSeparatorsSplit) {
  struct {
    char const* path;
    char const* folder;
    char const* name;
    char const* extension;
  } const rows[] = {
      {"/a/b.lb1", "/a/", "b", ".lb1"},
      {"C:\\x\\y.z.txt", "C:\\x\\", "y.z", ".txt"},
      {"a/b\\c.txt", "a/b\\", "c", ".txt"},
      {"a\\b/c.txt", "a\\b/", "c", ".txt"},
      {".txt", "", "", ".txt"},
      {"/a/.txt", "/a/", "", ".txt"},
      {"name", "", "name", ""},
      {"name.", "", "name", "."},
      {"dir.v2/name", "dir.v2/", "name", ""},
      {"/a/", "/a/", "", ""},
      {"", "", "", ""},
  };
  for (auto const& row : rows) {
    PathParts const parts = SplitPath(row.path);
    EXPECT_EQ(parts.folder, row.folder) << row.path;
    EXPECT_EQ(parts.name, row.name) << row.path;
    EXPECT_EQ(parts.extension, row.extension) << row.path;
  }
}

TEST(PathParts, PathsWithDrivesAndSharesBecomeAbsoluteOnEverySystem) {
  struct {
    char const* path;
    char const* folder;
    char const* full;
  } const rows[] = {
      {"C:\\x\\y.lb1", "", "C:/x/y.lb1"},
      {"C:/x/../y", "D:/base", "C:/y"},
      {"c:\\x", "", "c:/x"},
      {"x.lb1", "", "W:/base/x.lb1"},
      {"..\\..\\..\\x", "", "W:/x"},
      {"x", "sub", "W:/base/sub/x"},
      {"x", "C:\\base", "C:/base/x"},
      {"x", "\\base", "W:/base/x"},
      {"\\x", "", "W:/x"},
      {"/x", "C:/base", "C:/x"},
      {"C:x", "C:/base", "C:/base/x"},
      {"c:x", "C:/base", "C:/base/x"},
      {"C:x", "D:/base", "C:/x"},
      {"w:x", "", "W:/base/x"},
      {"C:", "", "C:/"},
      {"C:\\", "", "C:/"},
      {"C:\\..", "", "C:/"},
      {"\\\\server\\share\\a\\..\\b", "", "//server/share/b"},
      {"//server/share/../../b", "C:/base", "//server/share/b"},
      {"\\\\server\\share", "", "//server/share/"},
      {"b", "\\\\server\\share\\a", "//server/share/a/b"},
      {"\\b", "\\\\server\\share\\a", "//server/share/b"},
      {"\\\\?\\C:\\x\\y", "", "C:/x/y"},
      {"\\\\?\\UNC\\server\\share\\x", "", "//server/share/x"},
      {"1:x", "", "W:/base/1:x"},
      {"", "C:/base", ""},
  };
  for (auto const& row : rows) {
    EXPECT_EQ(AbsolutePathFrom(row.path, row.folder, "W:\\base", PathRoots::kDrives), row.full)
        << row.path << " from " << row.folder;
  }
  EXPECT_EQ(AbsolutePathFrom("x", "", "\\\\server\\share\\a", PathRoots::kDrives),
            "//server/share/a/x");
  EXPECT_EQ(AbsolutePathFrom("x", "", "", PathRoots::kDrives), "") << "no working folder";
  EXPECT_EQ(AbsolutePathFrom("\\x", "", "", PathRoots::kDrives), "") << "no drive";
}

TEST(PathParts, DrivesAreNamesWhereRootsAreSlashes) {
  EXPECT_EQ(AbsolutePathFrom("C:\\x", "", "/here", PathRoots::kSlash), "/here/C:/x");
  EXPECT_EQ(AbsolutePathFrom("\\\\server\\x", "", "/here", PathRoots::kSlash), "/server/x");
  EXPECT_EQ(AbsolutePathFrom("x", "", "", PathRoots::kSlash), "") << "no working folder";
}

}  // namespace
}  // namespace zel

// Absolute paths where they begin with a slash.
#include "frame/path_parts.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "tests/frame/temp_folder.h"

namespace zel {
namespace {

namespace fs = std::filesystem;

TEST(PathParts, PathsBecomeAbsoluteAndPlain) {
  std::string const here = fs::current_path().string();
  struct {
    char const* path;
    char const* folder;
    std::string full;
  } const rows[] = {
      {"x.lb1", "", here + "/x.lb1"},
      {"./a/../x", "", here + "/x"},
      {"a\\.\\b\\..\\x", "", here + "/a/x"},
      {"/a//b/./c/../d/", "", "/a/b/d"},
      {"\\a\\b", "", "/a/b"},
      {"../../../../../../../../../../../../../../../..", "", "/"},
      {"/..", "", "/"},
      {"f", "/base", "/base/f"},
      {"f", "/base/", "/base/f"},
      {"..\\f", "/base\\sub", "/base/f"},
      {"f", "rel", here + "/rel/f"},
      {"/f", "/base", "/f"},
      {"", "", ""},
      {"", "/base", ""},
  };
  for (auto const& row : rows) {
    EXPECT_EQ(AbsolutePath(row.path, row.folder), row.full) << row.path << " from " << row.folder;
  }
}

class WorkingFolderTest : public test::TempFolderTest {
 protected:
  ~WorkingFolderTest() override { fs::current_path(before_); }
  fs::path before_ = fs::current_path();
};

TEST_F(WorkingFolderTest, NameWithABackslashInTheWorkingFolderStays) {
  fs::create_directory(Path("odd\\name"));
  fs::current_path(Path("odd\\name"));
  EXPECT_EQ(AbsolutePath("x"), Path("odd\\name/x"));
}

TEST_F(WorkingFolderTest, RelativePathFromADeletedFolderIsEmpty) {
  fs::create_directory(Path("gone"));
  fs::current_path(Path("gone"));
  fs::remove(Path("gone"));
  EXPECT_EQ(AbsolutePath("x.lb1"), "");
  EXPECT_EQ(AbsolutePath("x.lb1", "below"), "");
  EXPECT_EQ(AbsolutePath("/x.lb1"), "/x.lb1");
  EXPECT_EQ(AbsolutePath("x.lb1", "/base"), "/base/x.lb1");
}

}  // namespace
}  // namespace zel

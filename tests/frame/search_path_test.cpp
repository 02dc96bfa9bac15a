#include "frame/search_path.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>

#include "tests/frame/temp_folder.h"

namespace zel {
namespace {

TEST(ComposeSearchPath, StepsInTheirOrder) {
  EXPECT_EQ(ComposeSearchPath({}, {}, "old"), "path=old");
  EXPECT_EQ(ComposeSearchPath({}, {}, ""), "path=");
  EXPECT_EQ(ComposeSearchPath("C:\\Install", {}, "old"), "path=C:\\Install\\VC160x86;old");
  EXPECT_EQ(ComposeSearchPath("C:\\Install\\", {}, ""), "path=C:\\Install\\VC160x86;");
  EXPECT_EQ(ComposeSearchPath("", {}, "old"), "path=\\VC160x86;old") << "an empty value is a value";
  EXPECT_EQ(ComposeSearchPath("I", {"one", "two"}, "old"), "path=I\\VC160x86;one;two;old");
}

TEST(ComposeSearchPath, FolderEndsInOneSemicolon) {
  EXPECT_EQ(ComposeSearchPath({}, {"one", "two\\", "three;"}, "old"), "path=one;two;three;old");
  EXPECT_EQ(ComposeSearchPath({}, {"two\\\\"}, ""), "path=two\\;");
  EXPECT_EQ(ComposeSearchPath({}, {"/unix/"}, ""), "path=/unix/;");
  EXPECT_EQ(ComposeSearchPath({}, {""}, "old"), "path=;old");
  EXPECT_EQ(ComposeSearchPath({}, {"one", ""}, "old"), "path=one;old");
}

TEST(ComposeSearchPath, LongTextLosesWholeFoldersFromItsTail) {
  std::string const folder(1000, 'f');
  EXPECT_EQ(ComposeSearchPath({}, {folder, folder, folder, folder}, folder),
            "path=" + folder + ";" + folder + ";" + folder + ";" + folder);
  EXPECT_EQ(ComposeSearchPath({}, {"first"}, "second;" + std::string(4100, 'x')),
            "path=first;second");
}

TEST(ComposeSearchPath, Keeps4100CharactersAndCuts4101) {
  std::string const fits(4095, 'x');
  EXPECT_EQ(ComposeSearchPath({}, {}, fits), "path=" + fits);
  EXPECT_THROW(ComposeSearchPath({}, {}, fits + "x"), std::length_error);
  std::string const folder(4094, 'x');
  EXPECT_EQ(ComposeSearchPath({}, {folder}, ""), "path=" + folder + ";") << "4100 with its sign";
  EXPECT_EQ(ComposeSearchPath({}, {folder + "x"}, ""), "path=" + folder + "x") << "4101, cut";
  EXPECT_THROW(ComposeSearchPath({}, {folder + "xx"}, ""), std::length_error);
}

struct Freed {
  void operator()(char* text) const { std::free(text); }
};

class BuildSearchPathTest : public test::TempFolderTest {
 protected:
  BuildSearchPathTest() {
    test::SetVariable("Path", "before");
    test::SetVariable("ZELACCESS_SETTINGS", Path("settings"));
    MakeFile("settings", "");
  }
  ~BuildSearchPathTest() override {
    test::UnsetVariable("Path");
    test::UnsetVariable("ZELACCESS_SETTINGS");
  }
  // Returns the old value that was handed out.
  static std::string Build(std::string const& subKey, std::vector<std::string> const& folders) {
    char* old = nullptr;
    BuildSearchPath(old, subKey, folders);
    return std::unique_ptr<char, Freed>(old).get();
  }
};

TEST_F(BuildSearchPathTest, VariableIsSetAndItsOldValueHandedOut) {
  EXPECT_EQ(Build("", {"first", "second\\"}), "before");
  EXPECT_STREQ(std::getenv("Path"), "first;second;before");
}

TEST_F(BuildSearchPathTest, MissingVariableIsEmpty) {
  test::UnsetVariable("Path");
  EXPECT_EQ(Build("", {"first"}), "");
  EXPECT_STREQ(std::getenv("Path"), "first;");
}

TEST_F(BuildSearchPathTest, LengthErrorHandsTheOldValueOutAndLeavesTheVariable) {
  char* old = nullptr;
  EXPECT_THROW(BuildSearchPath(old, "", {std::string(5000, 'x')}), std::length_error);
  std::unique_ptr<char, Freed> const handedOut(old);
  EXPECT_STREQ(old, "before");
  EXPECT_STREQ(std::getenv("Path"), "before");
}

TEST_F(BuildSearchPathTest, InstallFolderComesFromTheSettings) {
  MakeFile("settings",
           "[Software\\Ordwin\\OrdwinHub\\Other]\nInstallDir=wrong\n"
           "[Software\\Ordwin\\OrdwinHub\\Mine]\nInstallDir=C:\\Hub\n");
  EXPECT_EQ(Build("Mine", {"more"}), "before");
  EXPECT_STREQ(std::getenv("Path"), "C:\\Hub\\VC160x86;more;before");
}

TEST_F(BuildSearchPathTest, MissingKeyOrValueAddsNothing) {
  MakeFile("settings", "[Software\\Ordwin\\OrdwinHub\\Mine]\nOther=x\n");
  Build("Mine", {});
  EXPECT_STREQ(std::getenv("Path"), "before");
  Build("Absent", {});
  EXPECT_STREQ(std::getenv("Path"), "before");
}

TEST_F(BuildSearchPathTest, WithoutASubKeyTheSettingsAreNotAsked) {
  MakeFile("settings", "[Software\\Ordwin\\OrdwinHub\\]\nInstallDir=C:\\Hub\n");
  Build("", {});
  EXPECT_STREQ(std::getenv("Path"), "before");
}

TEST_F(BuildSearchPathTest, KeyNameIsCutAt259Characters) {
  std::string const start = "Software\\Ordwin\\OrdwinHub\\";
  std::string const subKey(300, 'k');
  MakeFile("settings", "[" + (start + subKey).substr(0, 259) + "]\nInstallDir=I\n");
  Build(subKey, {});
  EXPECT_STREQ(std::getenv("Path"), "I\\VC160x86;before");
}

}  // namespace
}  // namespace zel

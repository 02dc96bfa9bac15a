// The other services of the system.
#include "frame/platform/system.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <string>
#include <utility>
#include <vector>

#include "tests/frame/temp_folder.h"

namespace zel::platform {
namespace {

namespace fs = std::filesystem;

TEST(DebugOutput, IsSilentUnlessAskedFor) {
  ::unsetenv("ZELACCESS_DEBUG");
  ::testing::internal::CaptureStderr();
  WriteDebug("silent %s\n");
  EXPECT_EQ(::testing::internal::GetCapturedStderr(), "");
  ::setenv("ZELACCESS_DEBUG", "1", 1);
  ::testing::internal::CaptureStderr();
  ::testing::internal::CaptureStdout();
  WriteDebug("heard %s\n");
  EXPECT_EQ(::testing::internal::GetCapturedStderr(), "heard %s\n");
  EXPECT_EQ(::testing::internal::GetCapturedStdout(), "");
  ::unsetenv("ZELACCESS_DEBUG");
}

TEST(Environment, VariablesAreReadAndSet) {
  ::unsetenv("ZEL_TEST_VARIABLE");
  EXPECT_EQ(Environment("ZEL_TEST_VARIABLE"), "");
  SetEnvironment("ZEL_TEST_VARIABLE", "one");
  SetEnvironment("ZEL_TEST_VARIABLE", "two=2;");
  EXPECT_EQ(Environment("ZEL_TEST_VARIABLE"), "two=2;");
  ::unsetenv("ZEL_TEST_VARIABLE");
}

class SettingsTest : public test::TempFolderTest {
 protected:
  SettingsTest() {
    for (auto& [name, before] : variables_) {
      char const* const value = std::getenv(name);
      if (value != nullptr) before = value;
      ::unsetenv(name);
    }
  }
  ~SettingsTest() override {
    for (auto const& [name, before] : variables_) {
      before.empty() ? ::unsetenv(name) : ::setenv(name, before.c_str(), 1);
    }
  }
  // The value of the setting, "none" when there is none.
  static std::string Setting(char const* key, char const* name) {
    std::string value = "none";
    bool const found = ReadSetting(key, name, value);
    EXPECT_EQ(found, value != "none");
    return value;
  }

 private:
  std::vector<std::pair<char const*, std::string>> variables_ = {
      {"ZELACCESS_SETTINGS", ""}, {"XDG_CONFIG_HOME", ""}, {"HOME", ""}};
};

TEST_F(SettingsTest, FirstFileThatExistsIsTaken) {
  fs::create_directories(Path("xdg/zelaccess"));
  fs::create_directories(Path("home/.config/zelaccess"));
  MakeFile("home/.config/zelaccess/settings.ini", "[K]\nwho=home\n");
  ::setenv("HOME", Path("home").c_str(), 1);
  EXPECT_EQ(Setting("K", "who"), "home");
  ::setenv("XDG_CONFIG_HOME", Path("xdg").c_str(), 1);
  EXPECT_EQ(Setting("K", "who"), "home") << "nothing in the folder before";
  MakeFile("xdg/zelaccess/settings.ini", "[K]\nwho=xdg\n");
  EXPECT_EQ(Setting("K", "who"), "xdg");
  ::setenv("ZELACCESS_SETTINGS", Path("mine").c_str(), 1);
  EXPECT_EQ(Setting("K", "who"), "xdg");
  MakeFile("mine", "[K]\nwho=mine\n");
  EXPECT_EQ(Setting("K", "who"), "mine");
  EXPECT_EQ(Setting("K", "other"), "none") << "one file only is asked";
}

TEST_F(SettingsTest, SectionsNamesAndValuesAreReadLeniently) {
  ::setenv("ZELACCESS_SETTINGS", Path("ini").c_str(), 1);
  MakeFile("ini",
           "name=outside\n; [K]\n# name=comment\n[Other]\nname=other\n"
           "[Software\\K]\r\n  Name = two words \r\nname=second\nempty=\nnosign\neq=a=b\n");
  EXPECT_EQ(Setting("Software\\K", "Name"), "two words");
  EXPECT_EQ(Setting("software\\k", "nAME"), "two words") << "case does not matter";
  EXPECT_EQ(Setting("Other", "name"), "other");
  EXPECT_EQ(Setting("Software\\K", "empty"), "");
  EXPECT_EQ(Setting("Software\\K", "eq"), "a=b");
  EXPECT_EQ(Setting("Software\\K", "nosign"), "none");
  EXPECT_EQ(Setting("Software\\K", "absent"), "none");
  EXPECT_EQ(Setting("Software", "name"), "none");
  EXPECT_EQ(Setting("K", "name"), "none");
}

class ListingTest : public test::TempFolderTest {};

TEST_F(ListingTest, NamesAreSortedAndAttributesTold) {
  for (char const* folder : {"open", "locked"}) fs::create_directory(Path(folder));
  ::chmod(Path("locked").c_str(), 0500);
  MakeFile("b.file", "");
  MakeFile("B.file", "");
  MakeFile("fixed", "");
  ::chmod(Path("fixed").c_str(), 0400);
  fs::create_directory_symlink(Path("open"), Path("tofolder"));
  fs::create_directory_symlink(Path("locked"), Path("tolocked"));
  fs::create_symlink(Path("b.file"), Path("tofile"));
  fs::create_symlink(Path("nowhere"), Path("dangling"));
  std::vector<std::pair<std::string, int>> found;
  for (FolderEntry const& entry : ListFolder(Folder().string())) {
    found.emplace_back(entry.name, entry.attributes);
  }
  ::chmod(Path("locked").c_str(), 0700);
  std::vector<std::pair<std::string, int>> const expected = {
      {"B.file", 0},    {"b.file", 0},           {"dangling", 1024},
      {"fixed", 1},     {"locked", 17},          {"open", 16},
      {"tofile", 1024}, {"tofolder", 1024 + 16}, {"tolocked", 1024 + 17}};
  EXPECT_EQ(found, expected);
}

TEST_F(ListingTest, WhatIsNoFolderHasNoEntries) {
  MakeFile("file", "");
  EXPECT_TRUE(ListFolder(Path("file")).empty());
  EXPECT_TRUE(ListFolder(Path("none")).empty());
}

class TemporaryFileTest : public test::TempFolderTest {
 protected:
  TemporaryFileTest() { ::setenv("TMPDIR", Folder().c_str(), 1); }
  ~TemporaryFileTest() override { ::unsetenv("TMPDIR"); }
};

TEST_F(TemporaryFileTest, IsNewAndForItsOwnerAlone) {
  std::string const one = MakeTemporaryFile("~uom");
  std::string const two = MakeTemporaryFile("~uom");
  EXPECT_TRUE(one.starts_with(Path("~uom"))) << one;
  EXPECT_NE(one, two);
  struct stat info {};
  ASSERT_EQ(::stat(one.c_str(), &info), 0);
  EXPECT_EQ(info.st_mode & 0777U, 0600U);
  EXPECT_EQ(info.st_size, 0);
  RemoveFile(one);
  EXPECT_FALSE(fs::exists(one));
  EXPECT_TRUE(fs::exists(two));
}

TEST_F(TemporaryFileTest, WithoutAFolderThereIsNone) {
  ::setenv("TMPDIR", Path("none").c_str(), 1);
  EXPECT_EQ(MakeTemporaryFile("~uom"), "");
}

TEST(Process, NumberAndWorkingFolder) {
  EXPECT_EQ(ProcessId(), ::getpid());
  EXPECT_EQ(WorkingFolder(), fs::current_path().string());
}

}  // namespace
}  // namespace zel::platform

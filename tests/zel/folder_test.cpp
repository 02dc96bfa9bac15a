// Paths in folders; listing and removing folders.
#include "desk/files/folder.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <fstream>

namespace zel::test {
namespace {

namespace fs = std::filesystem;
using Names = std::vector<std::string>;

class FolderTest : public ::testing::Test {
 protected:
  FolderTest() : root_(fs::temp_directory_path() / ("zel_folder_" + std::to_string(::getpid()))) {
    fs::remove_all(root_);
    fs::create_directories(root_ / "one/two/three");
    for (char const* name : {"a", "one/b", "one/two/c", "one/two/three/d"}) {
      std::ofstream(root_ / name) << "text";
    }
  }
  ~FolderTest() override { fs::remove_all(root_); }

  static Names Sorted(Names names) {
    std::sort(names.begin(), names.end());
    return names;
  }

  fs::path root_;
};

// While it lives, this process can open no more than `more` further files.
class FewFiles {
 public:
  explicit FewFiles(rlim_t more) {
    ::getrlimit(RLIMIT_NOFILE, &before_);
    int const next = ::dup(STDIN_FILENO);
    ::close(next);
    rlimit few = before_;
    few.rlim_cur = static_cast<rlim_t>(next) + more;
    ::setrlimit(RLIMIT_NOFILE, &few);
  }
  FewFiles(FewFiles const&) = delete;
  FewFiles& operator=(FewFiles const&) = delete;
  ~FewFiles() { ::setrlimit(RLIMIT_NOFILE, &before_); }

 private:
  rlimit before_ = {};
};

TEST_F(FolderTest, NamesOfFilesFoldersAndLinks) {
  fs::create_symlink("nowhere", root_ / "link");
  std::ofstream(root_ / ".hidden") << "text";
  EXPECT_EQ(Sorted(zel::desk::NamesIn(root_)), (Names{".hidden", "a", "link", "one"}));
  fs::create_directory(root_ / "empty");
  EXPECT_EQ(zel::desk::NamesIn(root_ / "empty"), Names());
}

TEST_F(FolderTest, NamesThroughALinkToAFolder) {
  fs::create_symlink("one", root_ / "link");
  EXPECT_EQ(Sorted(zel::desk::NamesIn(root_ / "link")), (Names{"b", "two"}));
}

TEST_F(FolderTest, NamesOfWhatIsNoFolder) {
  std::error_code error;
  EXPECT_EQ(zel::desk::NamesIn(root_ / "not there", error), Names());
  EXPECT_EQ(error, std::errc::no_such_file_or_directory);
  EXPECT_EQ(zel::desk::NamesIn(root_ / "a", error), Names());
  EXPECT_EQ(error, std::errc::not_a_directory);
  EXPECT_THROW(zel::desk::NamesIn(root_ / "not there"), fs::filesystem_error);
  zel::desk::NamesIn(root_, error);
  EXPECT_FALSE(error);
}

TEST_F(FolderTest, NamesWhereNoFileCanBeOpened) {
  std::error_code error;
  Names names;
  auto const root = root_;
  {
    FewFiles const few(0);  // for this call only: sanitizers open files, too
    names = zel::desk::NamesIn(root, error);
  }
  EXPECT_EQ(names, Names());
  EXPECT_EQ(error, std::errc::too_many_files_open);
}

TEST_F(FolderTest, RemovesATreeAndAFile) {
  zel::desk::RemoveTree(root_ / "one");
  EXPECT_EQ(zel::desk::NamesIn(root_), Names{"a"});
  zel::desk::RemoveTree(root_ / "a");
  EXPECT_EQ(zel::desk::NamesIn(root_), Names());
}

TEST_F(FolderTest, WhatIsNotThereIsNoError) {
  std::error_code error = std::make_error_code(std::errc::io_error);
  zel::desk::RemoveTree(root_ / "not there", error);
  EXPECT_FALSE(error);
  EXPECT_NO_THROW(zel::desk::RemoveTree(root_ / "not there"));
}

TEST_F(FolderTest, LinksAreRemovedAndNotFollowed) {
  fs::create_symlink(root_ / "one", root_ / "link");
  zel::desk::RemoveTree(root_ / "link");
  EXPECT_FALSE(fs::is_symlink(fs::symlink_status(root_ / "link")));
  fs::create_directory(root_ / "tree");
  fs::create_symlink(root_ / "one", root_ / "tree/link");
  zel::desk::RemoveTree(root_ / "tree");
  EXPECT_FALSE(fs::exists(root_ / "tree"));
  EXPECT_TRUE(fs::exists(root_ / "one/two/three/d"));
}

// Two folders can be open at a time: the third is not entered, and everything else is removed.
TEST_F(FolderTest, AnErrorIsToldAndTheRestRemoved) {
  std::error_code error;
  {
    FewFiles const few(2);
    zel::desk::RemoveTree(root_ / "one", error);
  }
  EXPECT_EQ(error, std::errc::too_many_files_open);
  EXPECT_FALSE(fs::exists(root_ / "one/b"));
  EXPECT_FALSE(fs::exists(root_ / "one/two/c"));
  EXPECT_TRUE(fs::exists(root_ / "one/two/three/d"));
  {
    FewFiles const few(2);
    EXPECT_THROW(zel::desk::RemoveTree(root_ / "one"), fs::filesystem_error);
  }
}

// The parts as well as the text: a path that is made otherwise has others for the same text.
TEST_F(FolderTest, InsideIsTheSlashOfTwoPaths) {
  for (char const* folder : {"", "a", "a/", "/", "/a/b", "..", "./", "//a"}) {
    for (char const* name : {"", "b", "b/c", "/b", ".", "../b", "b/"}) {
      fs::path const expected = fs::path(folder) / name;
      fs::path const made = zel::desk::Inside(folder, name);
      EXPECT_EQ(made.native(), expected.native()) << folder << " " << name;
      EXPECT_TRUE(std::equal(made.begin(), made.end(), expected.begin(), expected.end()))
          << folder << " " << name;
    }
  }
}

}  // namespace
}  // namespace zel::test

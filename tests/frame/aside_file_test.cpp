// Files next to a library: who may have put them there, and their access.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "tests/frame/posix_block_file_fixture.h"

namespace zel::platform {
namespace {

namespace fs = std::filesystem;
using test::PosixBlockFileTest;

class AsideFileTest : public PosixBlockFileTest {
 protected:
  AsideFileTest() { MakeFile("f", "library"); }
  std::string Aside() const { return File() + ".journal"; }
  OpenedFile OpenIt(OpenMode mode) const {
    return SystemFileSystem().OpenAside(Aside(), mode, File());
  }
};

TEST_F(AsideFileTest, IsMadeReadAndWrittenWithoutALock) {
  EXPECT_EQ(OpenIt(OpenMode::kRead).outcome, OpenOutcome::kNotFound);
  EXPECT_EQ(OpenIt(OpenMode::kUpdate).outcome, OpenOutcome::kNotFound);
  OpenedFile const made = OpenIt(OpenMode::kCreate);
  ASSERT_TRUE(made.file);
  EXPECT_EQ(made.file->WriteAt(2, "abc", 3), 3);
  OpenedFile const second = OpenIt(OpenMode::kUpdate);
  ASSERT_TRUE(second.file);
  EXPECT_EQ(second.file->Size(), 5U);
  EXPECT_TRUE(second.file->CutTo(3));
  char bytes[3] = {};
  EXPECT_EQ(OpenIt(OpenMode::kRead).file->ReadAt(0, bytes, 3), 3);
  EXPECT_EQ(bytes[2], 'a');
  EXPECT_EQ(OpenIt(OpenMode::kRead).file->WriteAt(0, "x", 1), -1);
}

TEST_F(AsideFileTest, HasTheModeOfTheLibrary) {
  for (unsigned const mode : {0600U, 0640U, 0664U}) {
    fs::remove(Aside());
    fs::permissions(File(), fs::perms(mode));
    OpenIt(OpenMode::kCreate);
    struct stat info {};
    ASSERT_EQ(::stat(Aside().c_str(), &info), 0);
    EXPECT_EQ(info.st_mode & 0777U, mode);
  }
}

TEST_F(AsideFileTest, LinkFolderAndPipeAreNotOpened) {
  MakeFile("victim", "untouched");
  fs::create_symlink("victim", Aside());
  for (OpenMode const mode : {OpenMode::kRead, OpenMode::kUpdate, OpenMode::kCreate}) {
    EXPECT_EQ(OpenIt(mode).outcome, OpenOutcome::kNotFound);
  }
  fs::remove(Aside());
  fs::create_directory(Aside());
  EXPECT_EQ(OpenIt(OpenMode::kCreate).outcome, OpenOutcome::kNotFound);
  fs::remove(Aside());
  ASSERT_EQ(::mkfifo(Aside().c_str(), 0600), 0);
  EXPECT_EQ(OpenIt(OpenMode::kUpdate).outcome, OpenOutcome::kNotFound);
}

// Where everybody may make files, one of somebody else is not trusted.
TEST_F(AsideFileTest, StrangersFileIsNotOpenedInAFolderForAll) {
  if (::geteuid() != 0) GTEST_SKIP() << "only root can make files of others";
  constexpr uid_t kStranger = 65534;
  MakeFile(fs::path(Aside()).filename().string(), "planted");
  ASSERT_EQ(::chown(Aside().c_str(), kStranger, static_cast<gid_t>(-1)), 0);
  fs::path const folder = fs::path(Aside()).parent_path();
  EXPECT_EQ(OpenIt(OpenMode::kRead).outcome, OpenOutcome::kOk) << "who may replace the library";
  fs::permissions(folder, fs::perms(01777));
  EXPECT_EQ(OpenIt(OpenMode::kRead).outcome, OpenOutcome::kNotFound);
  ASSERT_EQ(::chown(File().c_str(), kStranger, static_cast<gid_t>(-1)), 0);
  EXPECT_EQ(OpenIt(OpenMode::kRead).outcome, OpenOutcome::kOk) << "the library's owner";
}

TEST_F(AsideFileTest, TargetFollowsLinksOfTheFile) {
  FileSystem& system = SystemFileSystem();
  EXPECT_EQ(system.Target(File()), File());
  std::string const folder = fs::path(File()).parent_path().string();
  fs::create_symlink("f", folder + "/one");
  fs::create_symlink(folder + "/one", folder + "/two");
  EXPECT_EQ(system.Target(folder + "/two"), folder + "/f");
  fs::create_symlink("round", folder + "/round");
  EXPECT_FALSE(system.Target(folder + "/round").empty()) << "ends";
  EXPECT_TRUE(system.SyncFolder(File()));
  EXPECT_FALSE(system.SyncFolder(folder + "/missing/f"));
}

TEST_F(AsideFileTest, WriteInSectorsIsAWrite) {
  auto const file = Open(OpenMode::kUpdate);
  EXPECT_EQ(file->WriteAt(0, "L", 1), 1);
  EXPECT_EQ(file->WriteInSectors(3, "RARY plus", 9), 9);
  EXPECT_EQ(file->Size(), 12U);
  char bytes[12];
  EXPECT_EQ(file->ReadAt(0, bytes, 12), 12);
  EXPECT_EQ(std::string(bytes, 12), "LibRARY plus");
  EXPECT_EQ(file->WriteInSectors(UINT64_MAX, "x", 1), -1);
}

}  // namespace
}  // namespace zel::platform

// Files of the system: growth, true length, views, locks, errors.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstring>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "frame/platform/block_file.h"

namespace zel::platform {
namespace {

namespace fs = std::filesystem;

class BlockFileTest : public ::testing::Test {
 protected:
  void SetUp() override {
    folder_ = fs::temp_directory_path() / ("zel_blocks_" + std::to_string(::getpid()));
    fs::remove_all(folder_);
    fs::create_directories(folder_);
  }
  void TearDown() override { fs::remove_all(folder_); }

  std::string Path(char const* name = "f") const { return (folder_ / name).string(); }
  std::unique_ptr<BlockFile> Open(OpenMode mode, OpenOutcome expected = OpenOutcome::kOk) {
    OpenedFile opened = PosixFileSystem().Open(Path(), mode);
    EXPECT_EQ(opened.outcome, expected);
    EXPECT_EQ(opened.file != nullptr, expected == OpenOutcome::kOk);
    return std::move(opened.file);
  }

  fs::path folder_;
};

TEST_F(BlockFileTest, FileIsAsLongAsWhatWasWritten) {
  auto file = Open(OpenMode::kCreate);
  EXPECT_EQ(file->WriteAt(5000, "abc", 3), 3);
  EXPECT_EQ(file->Size(), 5003U);
  EXPECT_TRUE(file->Flush());
  EXPECT_EQ(fs::file_size(Path()), 5003U);
  EXPECT_EQ(file->WriteAt(10, "x", 1), 1);
  EXPECT_EQ(file->WriteAt(6000, "y", 1), 1);
  file.reset();
  EXPECT_EQ(fs::file_size(Path()), 6001U);
  file = Open(OpenMode::kRead);
  char bytes[16];
  EXPECT_EQ(file->ReadAt(5000, bytes, 16), 16);
  EXPECT_EQ(std::string(bytes, 4), std::string("abc\0", 4)) << "gaps read as zeros";
  EXPECT_EQ(file->ReadAt(5999, bytes, 16), 2) << "short at the end";
  EXPECT_EQ(file->ReadAt(6001, bytes, 16), 0);
  EXPECT_EQ(file->WriteAt(0, "z", 1), -1);
}

TEST_F(BlockFileTest, ViewsStayWhileTheFileGrows) {
  auto file = Open(OpenMode::kCreate);
  file->WriteAt(0, "start", 5);
  std::byte const* view = file->View(0, 5);
  ASSERT_NE(view, nullptr);
  std::vector<char> const block(1 << 20, 'b');
  for (std::uint64_t at = 0; at < 40; ++at) {
    ASSERT_EQ(file->WriteAt(at << 20, block.data(), block.size()), 1 << 20);
  }
  EXPECT_EQ(file->View(0, 5), view);
  EXPECT_EQ(static_cast<char>(*view), 'b') << "a write shows through";
  EXPECT_EQ(file->View((40 << 20) - 1, 2), nullptr) << "not behind the end";
  EXPECT_NE(file->View((40 << 20) - 1, 1), nullptr);
  EXPECT_EQ(file->View(UINT64_MAX, 1), nullptr);
}

TEST_F(BlockFileTest, BytesBehindTheMappedRangeGoThroughPlainWrites) {
  auto file = Open(OpenMode::kCreate);
  std::uint64_t const far = std::uint64_t{5} << 30;
  EXPECT_EQ(file->WriteAt(far, "far", 3), 3);
  char bytes[3];
  EXPECT_EQ(file->ReadAt(far, bytes, 3), 3);
  EXPECT_EQ(std::string(bytes, 3), "far");
  EXPECT_EQ(file->View(far, 3), nullptr);
}

TEST_F(BlockFileTest, ManySmallReadsGiveTheSameBytes) {
  std::ofstream(Path()) << "0123456789";
  auto file = Open(OpenMode::kRead);
  for (int i = 0; i < 40; ++i) {
    char c = 0;
    ASSERT_EQ(file->ReadAt(static_cast<std::uint64_t>(i % 10), &c, 1), 1);
    ASSERT_EQ(c, '0' + i % 10);
  }
}

TEST_F(BlockFileTest, EmptyFileReadsAsNothing) {
  std::ofstream(Path()).flush();
  auto file = Open(OpenMode::kRead);
  char c = 0;
  EXPECT_EQ(file->ReadAt(0, &c, 1), 0);
  EXPECT_EQ(file->View(0, 1), nullptr);
  EXPECT_EQ(file->Size(), 0U);
}

TEST_F(BlockFileTest, OpenWithoutWritingKeepsSizeAndTimes) {
  std::ofstream(Path()) << "content";
  struct stat before {};
  ::stat(Path().c_str(), &before);
  Open(OpenMode::kUpdate).reset();
  Open(OpenMode::kRead).reset();
  struct stat after {};
  ::stat(Path().c_str(), &after);
  EXPECT_EQ(after.st_size, before.st_size);
  EXPECT_EQ(after.st_mtim.tv_nsec, before.st_mtim.tv_nsec);
  EXPECT_EQ(after.st_ctim.tv_nsec, before.st_ctim.tv_nsec);
}

TEST_F(BlockFileTest, CreateKeepsWhatIsThere) {
  std::ofstream(Path()) << "content";
  auto file = Open(OpenMode::kCreate);
  EXPECT_EQ(file->Size(), 7U);
  struct stat info {};
  fs::remove(Path());
  file.reset();
  Open(OpenMode::kCreate).reset();
  ::stat(Path().c_str(), &info);
  EXPECT_EQ(info.st_mode & 0777U, 0600U);
}

TEST_F(BlockFileTest, LocksHoldWithinTheProcess) {
  std::ofstream(Path()) << "content";
  {
    auto const one = Open(OpenMode::kRead);
    auto const two = Open(OpenMode::kRead);
    Open(OpenMode::kUpdate, OpenOutcome::kDenied);
    Open(OpenMode::kCreate, OpenOutcome::kDenied);
  }
  {
    auto const writer = Open(OpenMode::kUpdate);
    Open(OpenMode::kRead, OpenOutcome::kDenied);
    Open(OpenMode::kUpdate, OpenOutcome::kDenied);
  }
  Open(OpenMode::kUpdate);
}

TEST_F(BlockFileTest, LocksHoldBetweenProcesses) {
  std::ofstream(Path()) << "content";
  auto const writer = Open(OpenMode::kUpdate);
  pid_t const child = ::fork();
  if (child == 0) {
    bool const denied =
        PosixFileSystem().Open(Path(), OpenMode::kRead).outcome == OpenOutcome::kDenied;
    ::_exit(denied ? 0 : 1);
  }
  int status = -1;
  ::waitpid(child, &status, 0);
  EXPECT_EQ(status, 0);
}

TEST_F(BlockFileTest, ErrorsAreToldApart) {
  Open(OpenMode::kRead, OpenOutcome::kNotFound);
  Open(OpenMode::kUpdate, OpenOutcome::kNotFound);
  EXPECT_FALSE(PosixFileSystem().Exists(Path()));
  fs::create_directory(Path());
  Open(OpenMode::kRead, OpenOutcome::kDenied);
  Open(OpenMode::kUpdate, OpenOutcome::kDenied);
  EXPECT_EQ(PosixFileSystem().Open(Path() + "/x/y", OpenMode::kCreate).outcome,
            OpenOutcome::kNotFound);
  std::ofstream(Path("plain")).flush();
  EXPECT_EQ(PosixFileSystem().Open(Path("plain") + "/below", OpenMode::kRead).outcome,
            OpenOutcome::kNotFound);
  ASSERT_EQ(::mkfifo(Path("pipe").c_str(), 0600), 0);
  EXPECT_EQ(PosixFileSystem().Open(Path("pipe"), OpenMode::kRead).outcome, OpenOutcome::kDenied);
}

}  // namespace
}  // namespace zel::platform

// Files of a POSIX system: growth, holes, views under update, modes, and that readers do not change
// access times.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <string>
#include <vector>

#include "frame/platform/block_file.h"
#include "tests/frame/posix_block_file_fixture.h"

namespace zel::platform {
namespace {

namespace fs = std::filesystem;
using test::PosixBlockFileTest;

constexpr std::uint64_t kKiB = 1024;
constexpr std::uint64_t kMiB = 1024 * kKiB;
constexpr std::uint64_t kReserved = std::uint64_t{4000} * 999'999;

TEST_F(PosixBlockFileTest, GrowsInStepsThatAreReallyAllocated) {
  if (!MakesRoom()) GTEST_SKIP() << "the file system makes no room ahead";
  auto file = Open(OpenMode::kCreate);
  constexpr std::uint64_t kLengths[] = {64 * kKiB, 128 * kKiB, 256 * kKiB, 512 * kKiB,
                                        1 * kMiB,  2 * kMiB,   4 * kMiB,   8 * kMiB,
                                        16 * kMiB, 32 * kMiB,  48 * kMiB,  64 * kMiB};
  std::uint64_t at = 0;
  for (std::uint64_t const length : kLengths) {
    ASSERT_EQ(file->WriteAt(at, "x", 1), 1);
    EXPECT_EQ(LengthOnDisk(), length);
    EXPECT_GE(static_cast<std::uint64_t>(Status().st_blocks) * 512, length) << "no holes";
    at = length;
  }
  ASSERT_EQ(file->WriteAt(100 * kMiB, "x", 1), 1);
  EXPECT_EQ(LengthOnDisk(), 100 * kMiB + 1) << "a step is not below what is needed";
  EXPECT_EQ(file->Size(), 100 * kMiB + 1);
}

TEST_F(PosixBlockFileTest, WriteFarBehindTheEndTakesNoRoomForTheGap) {
  auto file = Open(OpenMode::kCreate);
  ASSERT_EQ(file->WriteAt(0, "abc", 3), 3);
  constexpr std::uint64_t kFar = 1024 * kMiB;
  ASSERT_EQ(file->WriteAt(kFar, "xyz", 3), 3);
  ASSERT_EQ(file->WriteAt(3, "d", 1), 1);
  EXPECT_EQ(file->Size(), kFar + 3);
  EXPECT_LT(static_cast<std::uint64_t>(Status().st_blocks) * 512, 2 * kMiB);
  char text[4];
  ASSERT_EQ(file->ReadAt(0, text, 4), 4);
  EXPECT_EQ(std::string(text, 4), "abcd");
  ASSERT_EQ(file->ReadAt(kFar, text, 4), 3);
  EXPECT_EQ(std::string(text, 3), "xyz");
  file.reset();
  EXPECT_EQ(LengthOnDisk(), kFar + 3);
}

TEST_F(PosixBlockFileTest, HolesOfAnExistingFileGetRoomBeforeTheyAreWritten) {
  if (!MakesRoom()) GTEST_SKIP() << "the file system makes no room ahead";
  MakeFile("f", "");
  fs::resize_file(File(), 1 * kMiB);
  ASSERT_LT(static_cast<std::uint64_t>(Status().st_blocks) * 512, 500 * kKiB);
  auto file = Open(OpenMode::kUpdate);
  EXPECT_EQ(file->WriteAt(500 * kKiB, "x", 1), 1);
  EXPECT_GE(static_cast<std::uint64_t>(Status().st_blocks) * 512, 500 * kKiB);
  EXPECT_EQ(LengthOnDisk(), 1 * kMiB);
}

TEST_F(PosixBlockFileTest, LargeHolesOfAnExistingFileStayHoles) {
  MakeFile("f", "start");
  constexpr std::uint64_t kLength = 1024 * kMiB;
  fs::resize_file(File(), kLength);
  auto file = Open(OpenMode::kUpdate);
  for (std::uint64_t const at : {std::uint64_t{5}, 500 * kMiB, kLength - 1, kLength}) {
    EXPECT_EQ(file->WriteAt(at, "x", 1), 1) << at;
    char read = 0;
    EXPECT_EQ(file->ReadAt(at, &read, 1), 1) << at;
    EXPECT_EQ(read, 'x') << at;
  }
  // Where addresses have 32 bits, only the first part of a file is mapped.
  std::uint64_t const viewed = (sizeof(void*) > 4 ? 500 : 50) * kMiB;
  std::byte const* const view = file->View(viewed, 1);
  ASSERT_NE(view, nullptr);
  ASSERT_EQ(file->WriteAt(viewed, "y", 1), 1);
  EXPECT_EQ(static_cast<char>(*view), 'y') << "a write shows in the map";
  ASSERT_TRUE(file->Flush());
  file.reset();
  EXPECT_LT(static_cast<std::uint64_t>(Status().st_blocks) * 512, 2 * kMiB);
  EXPECT_EQ(LengthOnDisk(), kLength + 1);
}

TEST_F(PosixBlockFileTest, ViewsStayWhileTheFileGrows) {
  auto file = Open(OpenMode::kCreate);
  file->WriteAt(0, "start", 5);
  std::byte const* view = file->View(0, 5);
  ASSERT_NE(view, nullptr);
  std::vector<char> const block(kMiB, 'b');
  for (std::uint64_t at = 0; at < 40; ++at) {
    ASSERT_EQ(file->WriteAt(at * kMiB, block.data(), block.size()), 1 << 20);
  }
  EXPECT_EQ(file->View(0, 5), view);
  EXPECT_EQ(static_cast<char>(*view), 'b') << "a write shows through";
  ASSERT_TRUE(file->Flush());
  EXPECT_EQ(file->View(0, 5), view);
}

TEST_F(PosixBlockFileTest, ViewsLieInsideTheTrueLength) {
  for (OpenMode mode : {OpenMode::kCreate, OpenMode::kRead}) {
    auto file = Open(mode);
    if (mode == OpenMode::kCreate) file->WriteAt(0, "0123456789", 10);
    EXPECT_NE(file->View(0, 10), nullptr);
    EXPECT_NE(file->View(9, 1), nullptr);
    EXPECT_EQ(file->View(9, 2), nullptr);
    EXPECT_EQ(file->View(10, 1), nullptr);
    EXPECT_EQ(file->View(0, 11), nullptr);
    EXPECT_EQ(file->View(UINT64_MAX, 1), nullptr);
    EXPECT_EQ(file->View(1, SIZE_MAX), nullptr);
  }
}

TEST_F(PosixBlockFileTest, BytesBehindTheMappedRangeGoThroughPlainTransfers) {
  auto file = Open(OpenMode::kCreate);
  ASSERT_EQ(file->WriteAt(kReserved - 1, "ab", 2), 2) << "across the end of the range";
  EXPECT_EQ(file->Size(), kReserved + 1);
  char bytes[3] = {};
  EXPECT_EQ(file->ReadAt(kReserved - 1, bytes, 3), 2);
  EXPECT_EQ(std::string(bytes, 2), "ab");
  EXPECT_EQ(file->View(kReserved, 1), nullptr);
  EXPECT_EQ(file->View(kReserved - 1, 2), nullptr);
  EXPECT_EQ(file->WriteAt(5, "x", 1), 1);
  EXPECT_LT(static_cast<std::uint64_t>(Status().st_blocks) * 512, kMiB)
      << "the gap in between gets no room before it is written";
  EXPECT_TRUE(file->Flush());
  EXPECT_EQ(LengthOnDisk(), kReserved + 1);
}

bool SameTime(timespec const& a, timespec const& b) {
  return a.tv_sec == b.tv_sec && a.tv_nsec == b.tv_nsec;
}

TEST_F(PosixBlockFileTest, ReaderLeavesNoTrace) {
  MakeFile("f", std::string(100'000, 'a'));
  // Older than its last change: a read that is recorded would change it.
  timespec const times[2] = {{1'000'000'000, 0}, {1'500'000'000, 0}};
  ASSERT_EQ(::utimensat(AT_FDCWD, File().c_str(), times, 0), 0);
  struct stat const before = Status();
  {
    auto file = Open(OpenMode::kRead);
    char bytes[100];
    for (std::uint64_t i = 0; i < 100; ++i) EXPECT_EQ(file->ReadAt(i * 1000, bytes, 100), 100);
    EXPECT_EQ(static_cast<char>(*file->View(50'000, 1)), 'a');
    EXPECT_TRUE(file->Flush());
  }
  struct stat const after = Status();
  EXPECT_EQ(after.st_size, before.st_size);
  EXPECT_TRUE(SameTime(after.st_atim, before.st_atim));
  EXPECT_TRUE(SameTime(after.st_mtim, before.st_mtim));
  EXPECT_TRUE(SameTime(after.st_ctim, before.st_ctim));
}

TEST_F(PosixBlockFileTest, FileOpenForUpdateThatIsNotWrittenKeepsSizeAndTimes) {
  MakeFile("f", "content");
  timespec const times[2] = {{1'500'000'000, 0}, {1'500'000'000, 0}};
  ASSERT_EQ(::utimensat(AT_FDCWD, File().c_str(), times, 0), 0);
  struct stat const before = Status();
  {
    auto file = Open(OpenMode::kUpdate);
    EXPECT_EQ(static_cast<char>(*file->View(0, 7)), 'c');
    EXPECT_TRUE(file->Flush());
  }
  struct stat const after = Status();
  EXPECT_EQ(after.st_size, before.st_size);
  EXPECT_TRUE(SameTime(after.st_mtim, before.st_mtim));
  EXPECT_TRUE(SameTime(after.st_ctim, before.st_ctim));
}

TEST_F(PosixBlockFileTest, CreateKeepsWhatIsThere) {
  MakeFile("f", "content");
  auto file = Open(OpenMode::kCreate);
  EXPECT_EQ(file->Size(), 7U);
  EXPECT_EQ(static_cast<char>(*file->View(0, 7)), 'c');
}

// A program that the host starts does not inherit a library's files or their locks.
TEST_F(PosixBlockFileTest, FilesAreClosedInProgramsThatAreStarted) {
  for (OpenMode mode : {OpenMode::kCreate, OpenMode::kUpdate, OpenMode::kRead}) {
    auto const file = Open(mode);
    int found = 0;
    for (auto const& entry : fs::directory_iterator("/proc/self/fd")) {
      std::error_code gone;  // the descriptor of this listing
      if (fs::read_symlink(entry.path(), gone) != fs::canonical(File())) continue;
      int const flags = ::fcntl(std::stoi(entry.path().filename()), F_GETFD);
      EXPECT_NE(flags & FD_CLOEXEC, 0) << int(mode);
      ++found;
    }
    EXPECT_EQ(found, 1) << int(mode);
  }
}

TEST_F(PosixBlockFileTest, NewFileIsForItsOwnerAlone) {
  Open(OpenMode::kCreate);
  EXPECT_EQ(Status().st_mode & 0777U, 0600U);
}

}  // namespace
}  // namespace zel::platform

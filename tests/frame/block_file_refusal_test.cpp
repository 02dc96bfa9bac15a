// Results of file operations when the system refuses.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/un.h>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <string>
#include <vector>

#include "tests/frame/fork_child.h"
#include "tests/frame/posix_block_file_fixture.h"
#include "tests/frame/refused_calls.h"

namespace zel::platform {
namespace {

namespace fs = std::filesystem;
using test::PosixBlockFileTest;
using test::Refusal;

constexpr std::uint64_t kKiB = 1024;

// Runs `body` on a file open for update or create in a child of this process, where the system
// refuses as specified. `body` returns true when everything is as expected.
template <typename Body>
void ExpectUnderRefusal(std::string const& path, std::vector<Refusal> const& refusals,
                        Body const& body) {
  int const status = test::InChild([&] {
    for (Refusal const& refusal : refusals) {
      if (!test::RefuseCalls(refusal)) return test::kCannotRun;
    }
    OpenedFile opened = SystemFileSystem().Open(path, OpenMode::kCreate);
    if (opened.outcome != OpenOutcome::kOk) return test::kFailed;
    bool held = body(*opened.file);
    opened.file.reset();
    return held ? test::kHeld : test::kFailed;
  });
  if (status == test::kCannotRun) GTEST_SKIP() << "the system has no filter of calls";
  EXPECT_EQ(status, test::kHeld);
}

TEST_F(PosixBlockFileTest, OpenErrorsAreToldApart) {
  struct {
    int error;
    OpenOutcome outcome;
  } const rows[] = {
      {ENOENT, OpenOutcome::kNotFound}, {ENOTDIR, OpenOutcome::kNotFound},
      {EACCES, OpenOutcome::kDenied},   {EPERM, OpenOutcome::kDenied},
      {EROFS, OpenOutcome::kDenied},    {EISDIR, OpenOutcome::kDenied},
      {ETXTBSY, OpenOutcome::kDenied},  {ENXIO, OpenOutcome::kDenied},
      {EMFILE, OpenOutcome::kFailed},   {EIO, OpenOutcome::kFailed},
      {ENOSPC, OpenOutcome::kFailed},   {ENAMETOOLONG, OpenOutcome::kFailed},
  };
  MakeFile("f", "content");
  for (auto const& row : rows) {
    for (OpenMode mode : {OpenMode::kRead, OpenMode::kUpdate, OpenMode::kCreate}) {
      int const status = test::InChild([&] {
        if (!test::RefuseCalls({.call = SYS_openat, .error = row.error})) return test::kCannotRun;
        OpenedFile const opened = SystemFileSystem().Open(File(), mode);
        return opened.outcome == row.outcome && !opened.file ? test::kHeld : test::kFailed;
      });
      if (status == test::kCannotRun) GTEST_SKIP() << "the system has no filter of calls";
      EXPECT_EQ(status, test::kHeld) << std::strerror(row.error);
    }
  }
}

TEST_F(PosixBlockFileTest, LockThatFailsOtherwiseIsNoDenial) {
  MakeFile("f", "content");
  int const status = test::InChild([&] {
    Refusal const noLocks{
        .call = SYS_fcntl, .error = ENOLCK, .argument = 1, .least = F_OFD_SETLK, .flag = 0};
    if (!test::RefuseCalls(noLocks)) return test::kCannotRun;
    OpenedFile const opened = SystemFileSystem().Open(File(), OpenMode::kRead);
    return opened.outcome == OpenOutcome::kFailed ? test::kHeld : test::kFailed;
  });
  if (status == test::kCannotRun) GTEST_SKIP() << "the system has no filter of calls";
  EXPECT_EQ(status, test::kHeld);
}

TEST_F(PosixBlockFileTest, AbsentFilesAreNotFound) {
  Open(OpenMode::kRead, OpenOutcome::kNotFound);
  Open(OpenMode::kUpdate, OpenOutcome::kNotFound);
  EXPECT_FALSE(fs::exists(File()));
  EXPECT_FALSE(SystemFileSystem().Exists(File()));
  EXPECT_EQ(SystemFileSystem().Open(Path("none/f"), OpenMode::kCreate).outcome,
            OpenOutcome::kNotFound);
  MakeFile("f", "");
  EXPECT_TRUE(SystemFileSystem().Exists(File()));
  EXPECT_EQ(SystemFileSystem().Open(Path("f/below"), OpenMode::kRead).outcome,
            OpenOutcome::kNotFound);
}

TEST_F(PosixBlockFileTest, OnlyRegularFilesAreOpened) {
  fs::create_directory(Path("folder"));
  ASSERT_EQ(::mkfifo(Path("pipe").c_str(), 0600), 0);
  int const socket = ::socket(AF_UNIX, SOCK_STREAM, 0);
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  ASSERT_LT(Path("socket").size(), sizeof address.sun_path);
  std::strcpy(address.sun_path, Path("socket").c_str());
  ASSERT_EQ(::bind(socket, reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
  ::close(socket);
  for (std::string const& path :
       {Path("folder"), Path("pipe"), Path("socket"), std::string("/dev/null")}) {
    for (OpenMode mode : {OpenMode::kRead, OpenMode::kUpdate, OpenMode::kCreate}) {
      OpenedFile const opened = SystemFileSystem().Open(path, mode);
      EXPECT_EQ(opened.outcome, OpenOutcome::kDenied) << path;
      EXPECT_EQ(opened.file, nullptr);
    }
  }
}

TEST_F(PosixBlockFileTest, FileWithoutPermissionIsDenied) {
  MakeFile("f", "content");
  ::chmod(File().c_str(), 0400);
  fs::create_directory(Path("closed"));
  MakeFile("closed/f", "content");
  ::chmod(Path("closed").c_str(), 0);
  auto const outcome = [](std::string const& path, OpenMode mode) {
    return SystemFileSystem().Open(path, mode).outcome;
  };
  int const status = test::InChild([&] {
    // The superuser may do everything, so another user tries, who may not open the file at all.
    bool const somebodyElse = ::geteuid() == 0;
    if (somebodyElse && ::setuid(65534) != 0) return test::kCannotRun;
    OpenOutcome const read = somebodyElse ? OpenOutcome::kDenied : OpenOutcome::kOk;
    bool const held = outcome(File(), OpenMode::kRead) == read &&
                      outcome(File(), OpenMode::kUpdate) == OpenOutcome::kDenied &&
                      outcome(Path("closed/f"), OpenMode::kRead) == OpenOutcome::kDenied;
    return held ? test::kHeld : test::kFailed;
  });
  ::chmod(Path("closed").c_str(), 0700);
  EXPECT_EQ(status, test::kHeld);
}

TEST_F(PosixBlockFileTest, ReaderWhoDoesNotOwnTheFileOpensItAllTheSame) {
  MakeFile("f", "content");
  int const status = test::InChild([&] {
    if (!test::RefuseCalls(
            {.call = SYS_openat, .error = EPERM, .argument = 2, .flag = O_NOATIME})) {
      return test::kCannotRun;
    }
    OpenedFile const opened = SystemFileSystem().Open(File(), OpenMode::kRead);
    return opened.outcome == OpenOutcome::kOk ? test::kHeld : test::kFailed;
  });
  if (status == test::kCannotRun) GTEST_SKIP() << "the system has no filter of calls";
  EXPECT_EQ(status, test::kHeld);
}

TEST_F(PosixBlockFileTest, FullDiskIsAnErrorOfTheWriteThatMeetsIt) {
  if (!MakesRoom()) GTEST_SKIP() << "the file system makes no room ahead";
  Refusal const fullFrom64KiB{
      .call = SYS_fallocate, .error = ENOSPC, .argument = 2, .least = 64 * kKiB};
  ExpectUnderRefusal(File(), {fullFrom64KiB}, [](BlockFile& file) {
    char c = 0;
    return file.WriteAt(64 * kKiB - 1, "a", 1) == 1 && file.WriteAt(64 * kKiB, "b", 1) == -1 &&
           file.Size() == 64 * kKiB && file.ReadAt(64 * kKiB - 1, &c, 1) == 1 && c == 'a' &&
           file.WriteAt(100, "c", 1) == 1 && file.Flush();
  });
  if (IsSkipped()) return;
  EXPECT_EQ(LengthOnDisk(), 64 * kKiB);
}

TEST_F(PosixBlockFileTest, RoomThatIsNotNeededIsGivenBackWhenTheDiskIsFull) {
  if (!MakesRoom()) GTEST_SKIP() << "the file system makes no room ahead";
  Refusal const fullFrom64KiB{
      .call = SYS_fallocate, .error = ENOSPC, .argument = 2, .least = 64 * kKiB};
  ExpectUnderRefusal(File(), {fullFrom64KiB}, [&](BlockFile& file) {
    bool const ahead = file.WriteAt(0, "abc", 3) == 3 && LengthOnDisk() == 64 * kKiB;
    bool const full = file.WriteAt(70 * kKiB, "d", 1) == -1 && LengthOnDisk() == 3;
    return ahead && full && file.WriteAt(3, "d", 1) == 1;
  });
  if (IsSkipped()) return;
  EXPECT_EQ(LengthOnDisk(), 4U);
}

TEST_F(PosixBlockFileTest, DiskWithoutRoomForAStepStillTakesWhatIsNeeded) {
  if (!MakesRoom()) GTEST_SKIP() << "the file system makes no room ahead";
  Refusal const noSteps{.call = SYS_fallocate, .error = ENOSPC, .argument = 3, .least = 64 * kKiB};
  ExpectUnderRefusal(File(), {noSteps}, [](BlockFile& file) {
    return file.WriteAt(0, "abc", 3) == 3 && file.WriteAt(4000, "d", 1) == 1 &&
           file.WriteAt(80 * kKiB, "e", 1) == -1 && file.Size() == 4001;
  });
  if (IsSkipped()) return;
  EXPECT_EQ(LengthOnDisk(), 4001U);
}

// Some file systems extend a file by the room that there is before they refuse the rest.
TEST_F(PosixBlockFileTest, LengthThatARefusedStepLeavesBehindIsCut) {
  if (!MakesRoom()) GTEST_SKIP() << "the file system makes no room ahead";
  Refusal const noSteps{.call = SYS_fallocate, .error = ENOSPC, .argument = 3, .least = 64 * kKiB};
  ExpectUnderRefusal(File(), {noSteps}, [&](BlockFile& file) {
    bool const written = file.WriteAt(0, "abc", 3) == 3;
    return written && ::truncate(File().c_str(), 5000) == 0 && file.Flush();
  });
  if (IsSkipped()) return;
  EXPECT_EQ(LengthOnDisk(), 3U);
}

// Plain writes are then used, and views show them.
bool WritesAndViews(BlockFile& file) {
  std::byte const* const view = file.View(0, 3);
  std::uint64_t const size = file.Size();
  char c = 0;
  return size == 7 && file.WriteAt(1, "X", 1) == 1 && file.WriteAt(5000, "Y", 1) == 1 &&
         file.Size() == 5001 && file.ReadAt(5000, &c, 1) == 1 && c == 'Y' &&
         file.ReadAt(4999, &c, 1) == 1 && c == '\0' && file.View(0, 3) == view &&
         (view == nullptr || static_cast<char>(view[1]) == 'X') && file.Flush();
}

TEST_F(PosixBlockFileTest, FileSystemThatCannotMakeRoomAheadTakesPlainWrites) {
  MakeFile("f", "content");
  ExpectUnderRefusal(File(), {{.call = SYS_fallocate, .error = EOPNOTSUPP}}, [](BlockFile& file) {
    return file.View(0, 3) != nullptr && WritesAndViews(file);
  });
  if (IsSkipped()) return;
  EXPECT_EQ(LengthOnDisk(), 5001U);
}

TEST_F(PosixBlockFileTest, FullDiskShowsInPlainWritesToo) {
  ExpectUnderRefusal(File(),
                     {{.call = SYS_fallocate, .error = EOPNOTSUPP},
                      {.call = SYS_pwrite64, .error = ENOSPC, .argument = 3, .least = 100}},
                     [](BlockFile& file) {
                       return file.WriteAt(0, "abc", 3) == 3 && file.WriteAt(100, "d", 1) == -1 &&
                              file.Size() == 3;
                     });
  if (IsSkipped()) return;
  EXPECT_EQ(LengthOnDisk(), 3U);
}

TEST_F(PosixBlockFileTest, WithoutAMapPlainTransfersServe) {
  MakeFile("f", "content");
  Refusal const noLargeMaps{
      .call = SYS_mmap, .error = ENOMEM, .argument = 1, .least = 3'000'000'000U};
  ExpectUnderRefusal(File(), {noLargeMaps}, [](BlockFile& file) {
    return file.View(0, 3) == nullptr && WritesAndViews(file);
  });
  if (IsSkipped()) return;
  EXPECT_EQ(LengthOnDisk(), 5001U);
}

TEST_F(PosixBlockFileTest, FlushTellsWhenTheDiskDoesNotTakeTheBytes) {
  ExpectUnderRefusal(File(), {{.call = SYS_fdatasync, .error = EIO}}, [](BlockFile& file) {
    return file.WriteAt(0, "abc", 3) == 3 && !file.Flush();
  });
  if (IsSkipped()) return;
  EXPECT_EQ(LengthOnDisk(), 3U);
}

TEST_F(PosixBlockFileTest, FlushWithoutSyncAsksForNothing) {
  int const status = test::InChild([&] {
    if (!test::RefuseCalls({.call = SYS_fdatasync, .error = EIO})) return test::kCannotRun;
    OpenedFile const opened = SystemFileSystemWithoutSync().Open(File(), OpenMode::kCreate);
    bool const held = opened.file->WriteAt(0, "abc", 3) == 3 && opened.file->Flush();
    return held ? test::kHeld : test::kFailed;
  });
  if (status == test::kCannotRun) GTEST_SKIP() << "the system has no filter of calls";
  EXPECT_EQ(status, test::kHeld);
}

TEST_F(PosixBlockFileTest, FlushTellsWhenTheFileCannotBeCut) {
  if (!MakesRoom()) GTEST_SKIP() << "the file system makes no room ahead";
  ExpectUnderRefusal(File(), {{.call = SYS_ftruncate, .error = EIO}}, [](BlockFile& file) {
    return file.WriteAt(0, "abc", 3) == 3 && !file.Flush();
  });
  if (IsSkipped()) return;
}

}  // namespace
}  // namespace zel::platform

// Writes beyond the process's file size limit fail as on a full disk, and the host receives no
// signal.
#include <gtest/gtest.h>
#include <sys/resource.h>

#include <cerrno>
#include <csignal>
#include <string>
#include <vector>

#include "frame/platform/text_file.h"
#include "tests/frame/fork_child.h"
#include "tests/frame/posix_block_file_fixture.h"

namespace zel::platform {
namespace {

constexpr rlim_t kLimit = rlim_t{128} << 10;
constexpr std::size_t kPiece = 4096;

class FileSizeLimitTest : public test::PosixBlockFileTest {
 protected:
  // Runs `body` in a child that may make files of 128 KiB. The signal ends the child unless `body`
  // handles it.
  template <typename Body>
  static void ExpectUnderLimit(Body const& body) {
    int const status = test::InChild([&] {
      rlimit const limit = {kLimit, kLimit};
      if (::setrlimit(RLIMIT_FSIZE, &limit) != 0) return test::kCannotRun;
      return body() ? test::kHeld : test::kFailed;
    });
    EXPECT_EQ(status, test::kHeld);
  }
  static bool IsWaiting() {
    sigset_t waiting;
    ::sigpending(&waiting);
    return sigismember(&waiting, SIGXFSZ) == 1;
  }
  // Writes pieces of 4 KiB one after the other until one is refused; returns how many were written.
  static std::size_t Fill(BlockFile& file) {
    std::vector<char> const piece(kPiece, 'x');
    std::size_t at = 0;
    while (file.WriteAt(at * kPiece, piece.data(), kPiece) == static_cast<std::int64_t>(kPiece)) {
      ++at;
    }
    return at;
  }
};

TEST_F(FileSizeLimitTest, BlockFileIsFullThere) {
  ExpectUnderLimit([&] {
    OpenedFile const opened = SystemFileSystem().Open(File(), OpenMode::kCreate);
    return Fill(*opened.file) == kLimit / kPiece && opened.file->Flush() && !IsWaiting();
  });
  EXPECT_EQ(LengthOnDisk(), kLimit);
}

// A write far past the end goes to the file itself and not through the map.
TEST_F(FileSizeLimitTest, WriteFarBehindTheEnd) {
  ExpectUnderLimit([&] {
    OpenedFile const opened = SystemFileSystem().Open(File(), OpenMode::kCreate);
    char const byte = 'x';
    return opened.file->WriteAt(std::uint64_t{1} << 30, &byte, 1) == -1 && !IsWaiting();
  });
  EXPECT_EQ(LengthOnDisk(), 0U);
}

TEST_F(FileSizeLimitTest, TextFileHasLostSomething) {
  ExpectUnderLimit([&] {
    TextFile file(Path("text"));
    file.Put(std::string(kLimit + 1, 'x'));
    return !file.Close() && !IsWaiting();
  });
}

int handled = 0;

TEST_F(FileSizeLimitTest, HandlerOfTheHostIsNotCalledAndStays) {
  ExpectUnderLimit([&] {
    std::signal(SIGXFSZ, [](int) { ++handled; });
    OpenedFile const opened = SystemFileSystem().Open(File(), OpenMode::kCreate);
    Fill(*opened.file);
    if (handled != 0) return false;
    std::raise(SIGXFSZ);
    return handled == 1;
  });
}

TEST_F(FileSizeLimitTest, SignalThatWaitedBeforeStillWaits) {
  ExpectUnderLimit([&] {
    sigset_t size;
    sigemptyset(&size);
    sigaddset(&size, SIGXFSZ);
    ::pthread_sigmask(SIG_BLOCK, &size, nullptr);
    OpenedFile const opened = SystemFileSystem().Open(File(), OpenMode::kCreate);
    Fill(*opened.file);
    if (IsWaiting()) return false;
    ::pthread_kill(::pthread_self(), SIGXFSZ);
    Fill(*opened.file);
    return IsWaiting();
  });
}

}  // namespace
}  // namespace zel::platform

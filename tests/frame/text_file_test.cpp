// Text files are written sequentially and read whole.
#include "frame/platform/text_file.h"

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <climits>
#include <filesystem>
#include <new>

#include "temp_folder.h"
#include "tests/support/allocations.h"
#include "tests/support/sanitizers.h"

namespace zel::platform {
namespace {

namespace fs = std::filesystem;

class TextFileTest : public zel::test::TempFolderTest {
 protected:
  static std::ptrdiff_t OpenDescriptors() {
    fs::directory_iterator const all("/proc/self/fd");
    return std::distance(begin(all), end(all));
  }

  // A file that takes no room on disk.
  std::string Sparse(std::uintmax_t bytes) const {
    MakeFile("sparse", "");
    fs::resize_file(Path("sparse"), bytes);
    return Path("sparse");
  }

  std::string text_;
};

TEST_F(TextFileTest, ComesBackByteForByte) {
  std::string written(200'000, 'x');
  written[100] = '\0';
  written += "\r\nend";
  TextFile file(Path("a"));
  file.Put(written);
  ASSERT_TRUE(file.Close());
  ASSERT_EQ(ReadTextFile(Path("a"), text_), ReadResult::kRead);
  EXPECT_TRUE(text_ == written);
}

TEST_F(TextFileTest, WithoutMemoryForItsBufferNoFileStaysOpen) {
  std::string const path = Path("a");
  std::ptrdiff_t const before = OpenDescriptors();
  bool isRefused = false;
  {
    test::AllocationWatch const watch(1);
    try {
      TextFile const file(path);
    } catch (std::bad_alloc const&) {
      isRefused = true;
    }
  }
  EXPECT_TRUE(isRefused);
  EXPECT_EQ(OpenDescriptors(), before);
}

TEST_F(TextFileTest, AFileThatGrowsWhileItIsReadIsReadToItsEnd) {
  // Files of /proc report a size of 0.
  ASSERT_EQ(ReadTextFile("/proc/self/status", text_), ReadResult::kRead);
  EXPECT_NE(text_.find("\nPid:\t"), std::string::npos);
}

TEST_F(TextFileTest, WhatIsNoFileCannotBeRead) {
  EXPECT_EQ(ReadTextFile("", text_), ReadResult::kMissing);
  EXPECT_EQ(ReadTextFile(Path("none"), text_), ReadResult::kMissing);
  EXPECT_EQ(ReadTextFile(Folder().string(), text_), ReadResult::kUnreadable);
  EXPECT_EQ(ReadTextFile("/dev/zero", text_), ReadResult::kUnreadable);
}

TEST_F(TextFileTest, PiecesComeFromTheirPlace) {
  MakeFile("a", "0123456789");
  auto const before = OpenDescriptors();
  char piece[8] = {};
  {
    TextInput file;
    ASSERT_EQ(file.Open(Path("a")), ReadResult::kRead);
    EXPECT_EQ(file.Size(), 10U);
    EXPECT_EQ(file.Read(2, piece, 4), 4U);
    EXPECT_EQ(std::string(piece, 4), "2345");
    EXPECT_EQ(file.Read(8, piece, sizeof piece), 2U) << "up to the end";
    EXPECT_EQ(file.Read(10, piece, sizeof piece), 0U);
    fs::rename(Path("a"), Path("b"));
    MakeFile("a", "other");
    EXPECT_EQ(file.Read(0, piece, 1), 1U);
    EXPECT_EQ(piece[0], '0') << "the file that was opened";
    EXPECT_EQ(file.Open(Path("none")), ReadResult::kMissing);
    EXPECT_EQ(file.Read(0, piece, 1), std::nullopt);
    EXPECT_EQ(file.Open(Folder().string()), ReadResult::kUnreadable);
    ASSERT_EQ(file.Open(Sparse(std::uintmax_t{INT_MAX} + 1)), ReadResult::kRead) << "of any size";
    EXPECT_EQ(file.Size(), std::uint64_t{INT_MAX} + 1);
    EXPECT_EQ(file.Read(INT_MAX, piece, sizeof piece), 1U);
  }
  EXPECT_EQ(OpenDescriptors(), before);
}

TEST_F(TextFileTest, ATextLongerThanAnIntIsRefusedBeforeItIsRead) {
  auto const before = OpenDescriptors();
  EXPECT_EQ(ReadTextFile(Sparse(std::uintmax_t{INT_MAX} + 1), text_), ReadResult::kUnreadable);
  EXPECT_LT(text_.capacity(), 1'000'000U);
  EXPECT_EQ(OpenDescriptors(), before);
}

#if !ZEL_ADDRESS_SANITIZER  // which does not work with a limit on address space
TEST_F(TextFileTest, AFileThatMemoryCannotHoldIsClosed) {
  auto const before = OpenDescriptors();
  std::string const path = Sparse(INT_MAX);
  rlimit old{};
  ASSERT_EQ(::getrlimit(RLIMIT_AS, &old), 0);
  rlimit const little{1U << 30, old.rlim_max};
  ASSERT_EQ(::setrlimit(RLIMIT_AS, &little), 0);
  EXPECT_THROW(ReadTextFile(path, text_), std::bad_alloc);
  ASSERT_EQ(::setrlimit(RLIMIT_AS, &old), 0);
  EXPECT_EQ(OpenDescriptors(), before);
}
#endif

TEST_F(TextFileTest, WhatADiskDoesNotTakeIsTold) {
  TextFile full("/dev/full");
  ASSERT_TRUE(full);
  full.Put("some text");
  EXPECT_FALSE(full.Close());
  EXPECT_FALSE(TextFile(Path("none/a")));
}

}  // namespace
}  // namespace zel::platform

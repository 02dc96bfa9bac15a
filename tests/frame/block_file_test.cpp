// Files of the system: bytes, true length and views of readers.
#include "frame/platform/block_file.h"

#include <gtest/gtest.h>

#include <fstream>
#include <string>
#include <vector>

#include "tests/frame/block_file_fixture.h"

namespace zel::platform {
namespace {

using test::BlockFileTest;

TEST_F(BlockFileTest, FileIsAsLongAsWhatWasWritten) {
  auto file = Open(OpenMode::kCreate);
  EXPECT_EQ(file->Size(), 0U);
  EXPECT_EQ(file->WriteAt(5000, "abc", 3), 3);
  EXPECT_EQ(file->Size(), 5003U);
  EXPECT_TRUE(file->Flush());
  EXPECT_EQ(LengthOnDisk(), 5003U);
  EXPECT_EQ(file->WriteAt(10, "x", 1), 1);
  EXPECT_EQ(file->WriteAt(6000, "y", 1), 1);
  EXPECT_EQ(file->WriteAt(9000, "", 0), 0);
  EXPECT_EQ(file->Size(), 6001U);
  file.reset();
  EXPECT_EQ(LengthOnDisk(), 6001U);
}

TEST_F(BlockFileTest, LongerFileKeepsItsLength) {
  MakeFile("f", std::string(100'000, 'a'));
  auto file = Open(OpenMode::kUpdate);
  EXPECT_EQ(file->WriteAt(3, "b", 1), 1);
  EXPECT_EQ(file->Size(), 100'000U);
  EXPECT_TRUE(file->Flush());
  EXPECT_EQ(LengthOnDisk(), 100'000U);
  file.reset();
  EXPECT_EQ(LengthOnDisk(), 100'000U);
  std::ifstream in(File());
  std::string const start = {std::istreambuf_iterator<char>(in), {}};
  EXPECT_EQ(start, "aaab" + std::string(99'996, 'a'));
}

TEST_F(BlockFileTest, ReadsAreShortAtTheEndAndGapsAreZeros) {
  Open(OpenMode::kCreate)->WriteAt(5000, "abc", 3);
  for (OpenMode mode : {OpenMode::kRead, OpenMode::kUpdate}) {
    auto file = Open(mode);
    char bytes[16] = {'?', '?', '?', '?', '?'};
    EXPECT_EQ(file->ReadAt(5002, bytes, 16), 1);
    EXPECT_EQ(std::string(bytes, 2), "c?") << "nothing is put behind what was read";
    EXPECT_EQ(file->ReadAt(5003, bytes, 16), 0);
    EXPECT_EQ(file->ReadAt(UINT64_MAX, bytes, 16), 0);
    EXPECT_EQ(file->ReadAt(4990, bytes, 12), 12);
    EXPECT_EQ(std::string(bytes, 12), std::string(10, '\0') + "ab");
  }
}

TEST_F(BlockFileTest, GapMadeAfterACutIsZerosAgain) {
  auto file = Open(OpenMode::kCreate);
  file->WriteAt(0, "0123456789", 10);
  ASSERT_TRUE(file->Flush());
  EXPECT_EQ(file->WriteAt(300'000, "z", 1), 1);
  std::vector<char> bytes(300'001, '?');
  EXPECT_EQ(file->ReadAt(0, bytes.data(), bytes.size()), 300'001);
  EXPECT_EQ(std::string(bytes.begin(), bytes.end()),
            "0123456789" + std::string(299'990, '\0') + "z");
}

TEST_F(BlockFileTest, ReaderCannotWrite) {
  MakeFile("f", "content");
  auto file = Open(OpenMode::kRead);
  EXPECT_EQ(file->WriteAt(0, "z", 1), -1);
  EXPECT_TRUE(file->Flush());
  EXPECT_EQ(file->Size(), 7U);
}

TEST_F(BlockFileTest, OffsetsBeyondWhatAFileCanHaveAreRefused) {
  auto file = Open(OpenMode::kCreate);
  EXPECT_EQ(file->WriteAt(UINT64_MAX, "ab", 2), -1);
  EXPECT_EQ(file->WriteAt(UINT64_MAX - 1, "ab", 2), -1);
  EXPECT_EQ(file->WriteAt(INT64_MAX, "ab", 2), -1);
  EXPECT_EQ(file->Size(), 0U);
}

TEST_F(BlockFileTest, ManySmallReadsGiveTheSameBytes) {
  MakeFile("f", "0123456789");
  auto file = Open(OpenMode::kRead);
  for (int i = 0; i < 40; ++i) {
    char c = 0;
    ASSERT_EQ(file->ReadAt(static_cast<std::uint64_t>(i % 10), &c, 1), 1);
    ASSERT_EQ(c, '0' + i % 10);
  }
}

TEST_F(BlockFileTest, EmptyFileReadsAsNothing) {
  MakeFile("f", "");
  auto file = Open(OpenMode::kRead);
  char c = 0;
  EXPECT_EQ(file->ReadAt(0, &c, 1), 0);
  EXPECT_EQ(file->View(0, 1), nullptr);
  EXPECT_EQ(file->View(0, 0), nullptr);
  EXPECT_EQ(file->Size(), 0U);
}

TEST_F(BlockFileTest, FileWithoutSyncBehavesTheSame) {
  {
    OpenedFile opened = SystemFileSystemWithoutSync().Open(File(), OpenMode::kCreate);
    ASSERT_EQ(opened.outcome, OpenOutcome::kOk);
    EXPECT_EQ(opened.file->WriteAt(0, "abc", 3), 3);
    EXPECT_TRUE(opened.file->Flush());
    EXPECT_EQ(LengthOnDisk(), 3U);
    Open(OpenMode::kRead, OpenOutcome::kDenied);
  }
  EXPECT_EQ(static_cast<char>(*Open(OpenMode::kRead)->View(2, 1)), 'c');
}

}  // namespace
}  // namespace zel::platform

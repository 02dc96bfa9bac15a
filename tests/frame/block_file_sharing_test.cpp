// Who may open a file that is already open, in this process and in another.
#include <gtest/gtest.h>

#include <string>

#include "tests/frame/block_file_fixture.h"
#include "tests/frame/child.h"

namespace zel::platform {
namespace {

using test::BlockFileTest;

constexpr OpenMode kModes[] = {OpenMode::kRead, OpenMode::kUpdate, OpenMode::kCreate};

OpenOutcome ExpectedBeside(OpenMode holder, OpenMode opener) {
  bool const readers = holder == OpenMode::kRead && opener == OpenMode::kRead;
  return readers ? OpenOutcome::kOk : OpenOutcome::kDenied;
}

int OpenInChild(std::string const& path, OpenMode mode, OpenOutcome expected) {
  return test::InChild([&] {
    bool const held = PosixFileSystem().Open(path, mode).outcome == expected;
    return held ? test::kHeld : test::kFailed;
  });
}

class BlockFileSharingTest : public BlockFileTest {
 protected:
  BlockFileSharingTest() { MakeFile("f", "content"); }
};

TEST_F(BlockFileSharingTest, ReadersShareAndAWriterIsAloneInOneProcess) {
  for (OpenMode holder : kModes) {
    for (OpenMode opener : kModes) {
      SCOPED_TRACE(std::to_string(int(holder)) + " held, " + std::to_string(int(opener)));
      auto const file = Open(holder);
      Open(opener, ExpectedBeside(holder, opener));
    }
  }
}

TEST_F(BlockFileSharingTest, ReadersShareAndAWriterIsAloneBetweenProcesses) {
  for (OpenMode holder : kModes) {
    for (OpenMode opener : kModes) {
      SCOPED_TRACE(std::to_string(int(holder)) + " held, " + std::to_string(int(opener)));
      auto const file = Open(holder);
      EXPECT_EQ(OpenInChild(File(), opener, ExpectedBeside(holder, opener)), test::kHeld);
    }
  }
}

TEST_F(BlockFileSharingTest, ClosingOneOfTwoReadersKeepsTheOthersLock) {
  auto one = Open(OpenMode::kRead);
  auto two = Open(OpenMode::kRead);
  one.reset();
  Open(OpenMode::kUpdate, OpenOutcome::kDenied);
  EXPECT_EQ(OpenInChild(File(), OpenMode::kUpdate, OpenOutcome::kDenied), test::kHeld);
  two.reset();
  Open(OpenMode::kUpdate);
}

TEST_F(BlockFileSharingTest, RefusedOpenLeavesNothingLocked) {
  auto reader = Open(OpenMode::kRead);
  Open(OpenMode::kUpdate, OpenOutcome::kDenied);
  auto const another = Open(OpenMode::kRead);
  reader.reset();
  EXPECT_EQ(OpenInChild(File(), OpenMode::kRead, OpenOutcome::kOk), test::kHeld);
}

TEST_F(BlockFileSharingTest, RefusedCreateChangesNothing) {
  auto const reader = Open(OpenMode::kRead);
  Open(OpenMode::kCreate, OpenOutcome::kDenied);
  EXPECT_EQ(LengthOnDisk(), 7U);
}

TEST_F(BlockFileSharingTest, LockGoesWithItsProcess) {
  int const status = test::InChild([&] {
    OpenedFile opened = PosixFileSystem().Open(File(), OpenMode::kUpdate);
    ::_exit(opened.outcome == OpenOutcome::kOk ? test::kHeld : test::kFailed);
    return test::kFailed;
  });
  EXPECT_EQ(status, test::kHeld);
  Open(OpenMode::kUpdate);
}

TEST_F(BlockFileSharingTest, WriterSeesWhatTheWriterBeforeLeft) {
  Open(OpenMode::kUpdate)->WriteAt(7, " more", 5);
  EXPECT_EQ(Open(OpenMode::kUpdate)->Size(), 12U);
}

}  // namespace
}  // namespace zel::platform

// Who may open a file that is already open, in this process and in another.
#include <gtest/gtest.h>

#include <cstdlib>
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

constexpr char kFile[] = "ZEL_TEST_FILE";
constexpr char kMode[] = "ZEL_TEST_MODE";

// Opens the file in another process, which returns the outcome.
int OpenIt() {
  auto const mode = static_cast<OpenMode>(std::stoi(std::getenv(kMode)));
  return static_cast<int>(SystemFileSystem().Open(std::getenv(kFile), mode).outcome);
}
test::ProgramPart const openPart("open it", OpenIt);

// The same, and ends without closing it.
int OpenItAndEnd() {
  OpenedFile const opened = SystemFileSystem().Open(std::getenv(kFile), OpenMode::kUpdate);
  std::_Exit(static_cast<int>(opened.outcome));
}
test::ProgramPart const endPart("open it and end", OpenItAndEnd);

OpenOutcome OpenElsewhere(std::string const& path, OpenMode mode, char const* part = "open it") {
  test::SetVariable(kFile, path);
  test::SetVariable(kMode, std::to_string(static_cast<int>(mode)));
  return static_cast<OpenOutcome>(test::RunPart(part));
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
      EXPECT_EQ(OpenElsewhere(File(), opener), ExpectedBeside(holder, opener));
    }
  }
}

TEST_F(BlockFileSharingTest, ClosingOneOfTwoReadersKeepsTheOthersLock) {
  auto one = Open(OpenMode::kRead);
  auto two = Open(OpenMode::kRead);
  one.reset();
  Open(OpenMode::kUpdate, OpenOutcome::kDenied);
  EXPECT_EQ(OpenElsewhere(File(), OpenMode::kUpdate), OpenOutcome::kDenied);
  two.reset();
  Open(OpenMode::kUpdate);
}

TEST_F(BlockFileSharingTest, RefusedOpenLeavesNothingLocked) {
  auto reader = Open(OpenMode::kRead);
  Open(OpenMode::kUpdate, OpenOutcome::kDenied);
  auto const another = Open(OpenMode::kRead);
  reader.reset();
  EXPECT_EQ(OpenElsewhere(File(), OpenMode::kRead), OpenOutcome::kOk);
}

TEST_F(BlockFileSharingTest, RefusedCreateChangesNothing) {
  auto const reader = Open(OpenMode::kRead);
  Open(OpenMode::kCreate, OpenOutcome::kDenied);
  EXPECT_EQ(LengthOnDisk(), 7U);
}

TEST_F(BlockFileSharingTest, LockGoesWithItsProcess) {
  EXPECT_EQ(OpenElsewhere(File(), OpenMode::kUpdate, "open it and end"), OpenOutcome::kOk);
  Open(OpenMode::kUpdate);
}

TEST_F(BlockFileSharingTest, WriterSeesWhatTheWriterBeforeLeft) {
  Open(OpenMode::kUpdate)->WriteAt(7, " more", 5);
  EXPECT_EQ(Open(OpenMode::kUpdate)->Size(), 12U);
}

}  // namespace
}  // namespace zel::platform

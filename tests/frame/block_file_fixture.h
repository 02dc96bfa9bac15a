#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <utility>

#include "frame/platform/block_file.h"
#include "tests/frame/temp_folder.h"

namespace zel::test {

// One file, "f", in the test's own folder.
class BlockFileTest : public TempFolderTest {
 protected:
  std::string File() const { return Path("f"); }
  std::unique_ptr<platform::BlockFile> Open(
      platform::OpenMode mode, platform::OpenOutcome expected = platform::OpenOutcome::kOk) const {
    platform::OpenedFile opened = platform::SystemFileSystem().Open(File(), mode);
    EXPECT_EQ(opened.outcome, expected);
    EXPECT_EQ(opened.file != nullptr, expected == platform::OpenOutcome::kOk);
    return std::move(opened.file);
  }
  std::uint64_t LengthOnDisk() const { return std::filesystem::file_size(File()); }
};

}  // namespace zel::test

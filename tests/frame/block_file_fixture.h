#pragma once

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdint>
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
    platform::OpenedFile opened = platform::PosixFileSystem().Open(File(), mode);
    EXPECT_EQ(opened.outcome, expected);
    EXPECT_EQ(opened.file != nullptr, expected == platform::OpenOutcome::kOk);
    return std::move(opened.file);
  }
  // What the system reports about the file, also while it is open.
  struct stat Status() const {
    struct stat info {};
    EXPECT_EQ(::stat(File().c_str(), &info), 0);
    return info;
  }
  // True if the file system of the temporary files can allocate room in advance.
  bool MakesRoom() const {
    int const fd = ::open(Path("probe").c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
    bool const made = ::fallocate(fd, 0, 0, 4096) == 0;
    ::close(fd);
    return made;
  }
  std::uint64_t LengthOnDisk() const { return static_cast<std::uint64_t>(Status().st_size); }
};

}  // namespace zel::test

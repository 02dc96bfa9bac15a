#pragma once

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "tests/frame/block_file_fixture.h"

namespace zel::test {

class PosixBlockFileTest : public BlockFileTest {
 protected:
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
};

}  // namespace zel::test

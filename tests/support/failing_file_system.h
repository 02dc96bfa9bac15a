// A file system over another one, whose n-th operation fails - only that one, or that one and all
// later ones. Operations are opens, reads, writes and flushes, counted from 1. Also keeps the trace
// of writes.
#pragma once

#include <string>
#include <vector>

#include "frame/platform/block_file.h"

namespace zel::test {

class FailingFileSystem final : public platform::FileSystem {
 public:
  struct Write {
    std::string path;
    std::uint64_t offset;
    std::vector<std::byte> bytes;
  };

  explicit FailingFileSystem(platform::FileSystem& real) : real_(real) {}

  // 0: nothing fails.
  void FailAt(int operation, bool forEver) {
    failAt_ = operation;
    forEver_ = forEver;
    count_ = 0;
  }
  int Operations() const { return count_; }
  std::vector<Write> const& Trace() const { return trace_; }

  bool Exists(std::string const& path) override { return real_.Exists(path); }
  bool Remove(std::string const& path) override { return real_.Remove(path); }
  platform::OpenedFile Open(std::string const& path, platform::OpenMode mode) override;
  std::string Target(std::string const& path) override { return real_.Target(path); }
  platform::OpenedFile OpenAside(std::string const& path, platform::OpenMode mode,
                                 std::string const& library) override;
  bool SyncFolder(std::string const& path) override { return !Fails() && real_.SyncFolder(path); }

 private:
  class File;
  // Counts an operation; true when it is to fail.
  bool Fails();

  platform::FileSystem& real_;
  int failAt_ = 0;
  bool forEver_ = false;
  int count_ = 0;
  std::vector<Write> trace_;
};

}  // namespace zel::test

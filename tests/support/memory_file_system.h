// A file system in memory: files are byte vectors by path, with the sharing rules of the real one.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "frame/platform/block_file.h"

namespace zel::test {

class MemoryFileSystem final : public platform::FileSystem {
 public:
  using Bytes = std::vector<std::byte>;

  bool Exists(std::string const& path) override { return files_.count(path) != 0; }
  platform::OpenedFile Open(std::string const& path, platform::OpenMode mode) override;
  platform::OpenedFile OpenAside(std::string const& path, platform::OpenMode mode,
                                 std::string const& library) override;

  // Contents of a file, created empty if it does not exist. They must not be changed while the file
  // is open.
  Bytes& Contents(std::string const& path) { return files_[path].bytes; }
  bool Remove(std::string const& path) override { return files_.erase(path) != 0; }
  // With views off, every block is read by copying.
  void ServeViews(bool on) { views_ = on; }
  int FlushCount() const { return flushes_; }

 private:
  class File;
  struct Node {
    Bytes bytes;
    int readers = 0;
    int writers = 0;
  };

  std::map<std::string, Node> files_;
  bool views_ = true;
  int flushes_ = 0;
};

}  // namespace zel::test

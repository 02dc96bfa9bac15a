// A file system in memory that knows what is on disk: what a kill of the program or a power cut
// leaves can be taken at any moment.
//
// A write is on disk after a flush of its file, a file's name after a sync of its folder. Until
// then a power cut leaves of each 512 bytes what they were at the last flush or after any write
// since, of each length one of those since, and of each name one of its states since.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "frame/platform/block_file.h"
#include "tests/support/memory_file_system.h"

namespace zel::test {

class CrashFileSystem final : public platform::FileSystem {
 public:
  using Bytes = MemoryFileSystem::Bytes;
  using Image = std::map<std::string, Bytes>;
  using Random = std::mt19937_64;

  // Called at each moment at which something has changed: before each operation, and within one.
  std::function<void()> atMoment;

  // All files are on disk.
  void Load(Image const& image);
  Image AfterKill() const;
  Image AfterPowerCut(Random& random) const;
  // Operations that change something, so far.
  long Operations() const { return operations_; }
  long Syncs() const { return syncs_; }

  bool Exists(std::string const& path) override { return names_.count(path) != 0; }
  bool Remove(std::string const& path) override;
  platform::OpenedFile Open(std::string const& path, platform::OpenMode mode) override;
  bool SyncFolder(std::string const& path) override;

 private:
  class File;
  static constexpr std::size_t kSector = 512;
  // A file, under whatever name.
  struct Node {
    Bytes now;
    Bytes onDisk;
    // Since the last flush.
    std::map<std::size_t, std::vector<Bytes>> sectors;
    std::vector<std::size_t> lengths;

    void Write(std::size_t offset, std::byte const* bytes, std::size_t count);
    void Cut(std::size_t length);
    void Flush();
    Bytes AfterPowerCut(Random& random, double share) const;
  };
  using Names = std::map<std::string, std::shared_ptr<Node>>;

  void Moment();
  void SetName(std::string const& path, std::shared_ptr<Node> node);

  Names names_;
  Names namesOnDisk_;
  std::map<std::string, std::vector<std::shared_ptr<Node>>> pendingNames_;  // null: removed
  long operations_ = 0;
  long syncs_ = 0;
};

}  // namespace zel::test

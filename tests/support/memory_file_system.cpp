#include "tests/support/memory_file_system.h"

#include <algorithm>
#include <cstring>

namespace zel::test {

class MemoryFileSystem::File final : public platform::BlockFile {
 public:
  File(MemoryFileSystem& system, Node& node, bool writable, bool locks)
      : system_(system), node_(node), writable_(writable), locks_(locks ? 1 : 0) {
    (writable_ ? node_.writers : node_.readers) += locks_;
  }
  ~File() override { (writable_ ? node_.writers : node_.readers) -= locks_; }

  std::int64_t ReadAt(std::uint64_t offset, void* to, std::size_t count) override {
    if (offset >= node_.bytes.size()) return 0;
    std::size_t const n = std::min<std::size_t>(count, node_.bytes.size() - offset);
    std::memcpy(to, node_.bytes.data() + offset, n);
    return static_cast<std::int64_t>(n);
  }

  std::int64_t WriteAt(std::uint64_t offset, void const* from, std::size_t count) override {
    if (!writable_) return -1;
    if (offset + count > node_.bytes.size()) node_.bytes.resize(offset + count);
    std::memcpy(node_.bytes.data() + offset, from, count);
    return static_cast<std::int64_t>(count);
  }

  std::byte const* View(std::uint64_t offset, std::size_t count) const noexcept override {
    bool const inside = offset <= node_.bytes.size() && count <= node_.bytes.size() - offset;
    return system_.views_ && inside ? node_.bytes.data() + offset : nullptr;
  }

  std::uint64_t Size() const noexcept override { return node_.bytes.size(); }

  bool CutTo(std::uint64_t size) override {
    if (size < node_.bytes.size()) node_.bytes.resize(size);
    return true;
  }

  bool Flush() override {
    ++system_.flushes_;
    return true;
  }

 private:
  MemoryFileSystem& system_;
  Node& node_;
  bool writable_;
  int locks_;
};

platform::OpenedFile MemoryFileSystem::Open(std::string const& path, platform::OpenMode mode) {
  bool const writable = mode != platform::OpenMode::kRead;
  if (mode != platform::OpenMode::kCreate && !Exists(path)) {
    return {platform::OpenOutcome::kNotFound, nullptr};
  }
  Node& node = files_[path];
  if (node.writers > 0 || (writable && node.readers > 0)) {
    return {platform::OpenOutcome::kDenied, nullptr};
  }
  return {platform::OpenOutcome::kOk, std::make_unique<File>(*this, node, writable, true)};
}

platform::OpenedFile MemoryFileSystem::OpenAside(std::string const& path, platform::OpenMode mode,
                                                 std::string const&) {
  if (mode != platform::OpenMode::kCreate && !Exists(path)) {
    return {platform::OpenOutcome::kNotFound, nullptr};
  }
  bool const writable = mode != platform::OpenMode::kRead;
  return {platform::OpenOutcome::kOk, std::make_unique<File>(*this, files_[path], writable, false)};
}

}  // namespace zel::test

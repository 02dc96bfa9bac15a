#include "tests/support/crash_file_system.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace zel::test {
namespace {

std::size_t Below(std::mt19937_64& random, std::size_t bound) {
  return static_cast<std::size_t>(random() % bound);
}

}  // namespace

// --- one file ----------------------------------------------------------------------------------

void CrashFileSystem::Node::Write(std::size_t offset, std::byte const* bytes, std::size_t count) {
  if (count == 0) return;
  std::size_t const before = now.size();
  if (offset + count > now.size()) now.resize(offset + count);
  std::memcpy(now.data() + offset, bytes, count);
  for (std::size_t sector = std::min(offset, before) / kSector; sector * kSector < offset + count;
       ++sector) {
    Bytes version(kSector);
    std::size_t const from = sector * kSector;
    std::memcpy(version.data(), now.data() + from, std::min(kSector, now.size() - from));
    sectors[sector].push_back(std::move(version));
  }
  if (now.size() != before) lengths.push_back(now.size());
}

void CrashFileSystem::Node::Cut(std::size_t length) {
  if (length >= now.size()) return;
  now.resize(length);
  lengths.push_back(length);
  for (auto& [sector, versions] : sectors) {
    if ((sector + 1) * kSector <= length) continue;
    std::size_t const kept = length - std::min(length, sector * kSector);
    Bytes version = versions.back();
    std::fill(version.begin() + static_cast<std::ptrdiff_t>(kept), version.end(), std::byte{});
    versions.push_back(std::move(version));
  }
}

void CrashFileSystem::Node::Flush() {
  onDisk = now;
  sectors.clear();
  lengths.clear();
}

CrashFileSystem::Bytes CrashFileSystem::Node::AfterPowerCut(Random& random, double share) const {
  Bytes bytes = onDisk;
  std::bernoulli_distribution reached(share);
  std::size_t length = onDisk.size();
  if (!lengths.empty() && reached(random)) length = lengths[Below(random, lengths.size())];
  for (auto const& [sector, versions] : sectors) {
    if (!reached(random)) continue;
    Bytes const& version =
        random() % 2 == 0 ? versions.back() : versions[Below(random, versions.size())];
    std::size_t const from = sector * kSector;
    if (bytes.size() < from + kSector) bytes.resize(from + kSector);
    std::memcpy(bytes.data() + from, version.data(), kSector);
  }
  bytes.resize(length);
  return bytes;
}

class CrashFileSystem::File final : public platform::BlockFile {
 public:
  File(CrashFileSystem& system, std::shared_ptr<Node> node, bool writable)
      : system_(system), node_(std::move(node)), writable_(writable) {}

  std::int64_t ReadAt(std::uint64_t offset, void* to, std::size_t count) override {
    if (offset >= node_->now.size()) return 0;
    auto const from = static_cast<std::size_t>(offset);
    std::size_t const n = std::min(count, node_->now.size() - from);
    std::memcpy(to, node_->now.data() + from, n);
    return static_cast<std::int64_t>(n);
  }
  std::int64_t WriteAt(std::uint64_t offset, void const* from, std::size_t count) override {
    return WriteInParts(offset, from, count, count / 2);
  }
  std::int64_t WriteInSectors(std::uint64_t offset, void const* from, std::size_t count) override {
    std::uint64_t const half = (offset + count / 2) / kSector * kSector;
    return WriteInParts(offset, from, count,
                        half > offset ? static_cast<std::size_t>(half - offset) : 0);
  }
  std::byte const* View(std::uint64_t, std::size_t) const noexcept override { return nullptr; }
  std::uint64_t Size() const noexcept override { return node_->now.size(); }
  bool CutTo(std::uint64_t size) override {
    system_.Moment();
    node_->Cut(static_cast<std::size_t>(size));
    return true;
  }
  bool Flush() override {
    system_.Moment();
    ++system_.syncs_;
    if (writable_) node_->Flush();
    return true;
  }

 private:
  // The program may be killed between the two parts.
  std::int64_t WriteInParts(std::uint64_t offset, void const* from, std::size_t count,
                            std::size_t first) {
    if (!writable_) return -1;
    auto const* const bytes = static_cast<std::byte const*>(from);
    system_.Moment();
    auto const at = static_cast<std::size_t>(offset);
    node_->Write(at, bytes, first);
    if (first != 0) system_.Moment();
    node_->Write(at + first, bytes + first, count - first);
    return static_cast<std::int64_t>(count);
  }

  CrashFileSystem& system_;
  std::shared_ptr<Node> node_;
  bool writable_;
};

// --- all files ---------------------------------------------------------------------------------

void CrashFileSystem::Moment() {
  ++operations_;
  if (atMoment) atMoment();
}

void CrashFileSystem::SetName(std::string const& path, std::shared_ptr<Node> node) {
  pendingNames_[path].push_back(node);
  if (node) {
    names_[path] = std::move(node);
  } else {
    names_.erase(path);
  }
}

void CrashFileSystem::Load(Image const& image) {
  for (auto const& [path, bytes] : image) {
    auto node = std::make_shared<Node>();
    node->now = bytes;
    node->Flush();
    names_[path] = node;
  }
  namesOnDisk_ = names_;
  pendingNames_.clear();
}

CrashFileSystem::Image CrashFileSystem::AfterKill() const {
  Image image;
  for (auto const& [path, node] : names_) image[path] = node->now;
  return image;
}

CrashFileSystem::Image CrashFileSystem::AfterPowerCut(Random& random) const {
  constexpr double kShares[] = {0.0, 0.1, 0.5, 0.9, 1.0};
  double const share = kShares[Below(random, std::size(kShares))];
  Names left = namesOnDisk_;
  for (auto const& [path, states] : pendingNames_) {
    std::size_t const state = Below(random, states.size() + 1);  // 0: as on disk
    if (state == 0) continue;
    left[path] = states[state - 1];
  }
  Image image;
  for (auto const& [path, node] : left) {
    if (node) image[path] = node->AfterPowerCut(random, share);
  }
  return image;
}

bool CrashFileSystem::Remove(std::string const& path) {
  if (!Exists(path)) return false;
  Moment();
  SetName(path, nullptr);
  return true;
}

platform::OpenedFile CrashFileSystem::Open(std::string const& path, platform::OpenMode mode) {
  if (!Exists(path)) {
    if (mode != platform::OpenMode::kCreate) return {platform::OpenOutcome::kNotFound, nullptr};
    Moment();
    SetName(path, std::make_shared<Node>());
  }
  bool const writable = mode != platform::OpenMode::kRead;
  return {platform::OpenOutcome::kOk, std::make_unique<File>(*this, names_[path], writable)};
}

bool CrashFileSystem::SyncFolder(std::string const&) {
  Moment();
  ++syncs_;
  namesOnDisk_ = names_;
  pendingNames_.clear();
  return true;
}

}  // namespace zel::test

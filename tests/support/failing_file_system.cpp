#include "tests/support/failing_file_system.h"

#include <utility>

namespace zel::test {

class FailingFileSystem::File final : public platform::BlockFile {
 public:
  File(FailingFileSystem& system, std::string path, std::unique_ptr<platform::BlockFile> real)
      : system_(system), path_(std::move(path)), real_(std::move(real)) {}

  std::int64_t ReadAt(std::uint64_t offset, void* to, std::size_t count) override {
    return system_.Fails() ? -1 : real_->ReadAt(offset, to, count);
  }
  std::int64_t WriteAt(std::uint64_t offset, void const* from, std::size_t count) override {
    if (system_.Fails()) return -1;
    auto const* bytes = static_cast<std::byte const*>(from);
    system_.trace_.push_back({path_, offset, {bytes, bytes + count}});
    return real_->WriteAt(offset, from, count);
  }
  std::byte const* View(std::uint64_t offset, std::size_t count) const noexcept override {
    return real_->View(offset, count);
  }
  std::uint64_t Size() const noexcept override { return real_->Size(); }
  bool CutTo(std::uint64_t size) override { return !system_.Fails() && real_->CutTo(size); }
  bool Flush() override { return !system_.Fails() && real_->Flush(); }

 private:
  FailingFileSystem& system_;
  std::string path_;
  std::unique_ptr<platform::BlockFile> real_;
};

bool FailingFileSystem::Fails() {
  ++count_;
  return failAt_ != 0 && (count_ == failAt_ || (forEver_ && count_ > failAt_));
}

platform::OpenedFile FailingFileSystem::Open(std::string const& path, platform::OpenMode mode) {
  if (Fails()) return {platform::OpenOutcome::kFailed, nullptr};
  platform::OpenedFile opened = real_.Open(path, mode);
  if (opened.file) opened.file = std::make_unique<File>(*this, path, std::move(opened.file));
  return opened;
}

platform::OpenedFile FailingFileSystem::OpenAside(std::string const& path, platform::OpenMode mode,
                                                  std::string const& library) {
  // Looking for a file that is not there is not an operation.
  bool const opens = mode == platform::OpenMode::kCreate || real_.Exists(path);
  if (opens && Fails()) return {platform::OpenOutcome::kFailed, nullptr};
  platform::OpenedFile opened = real_.OpenAside(path, mode, library);
  if (opened.file) opened.file = std::make_unique<File>(*this, path, std::move(opened.file));
  return opened;
}

}  // namespace zel::test

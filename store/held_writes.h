// Writes that are held back in memory until a flush, which puts them into the files of a library
// all together: first into a journal, and when that is on disk into the files.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "frame/platform/block_file.h"
#include "store/format.h"
#include "store/journal.h"

namespace zel {

// A file whose writes are held back, or one that is read as a journal says that it should be.
class HeldFile final : public platform::BlockFile {
 public:
  class Owner {
   public:
    virtual void Ended(HeldFile const& file) noexcept = 0;

   protected:
    ~Owner() = default;
  };

  // The owner, which may be null, is notified when the file is closed.
  HeldFile(std::unique_ptr<platform::BlockFile> real, int number, Owner* owner)
      : real_(std::move(real)), owner_(owner), number_(number), size_(real_->Size()) {}
  ~HeldFile() override {
    if (owner_ != nullptr) owner_->Ended(*this);
  }

  std::int64_t ReadAt(std::uint64_t offset, void* to, std::size_t count) override {
    return Read(offset, to, count, false);
  }
  std::int64_t ReadUnmapped(std::uint64_t offset, void* to, std::size_t count) override {
    return Read(offset, to, count, true);
  }
  // Holds the bytes back. Throws std::bad_alloc, and changes nothing.
  std::int64_t WriteAt(std::uint64_t offset, void const* from, std::size_t count) override;
  // Valid until the next write. Null for a range of which something is held back.
  std::byte const* View(std::uint64_t offset, std::size_t count) const noexcept override;
  bool WriteCannotFail(std::uint64_t offset, std::size_t count) override;
  std::uint64_t Size() const noexcept override { return size_; }
  bool CutTo(std::uint64_t size) override;
  // Does nothing: the files of a library are flushed together.
  bool Flush() override { return true; }
  void BoundMemory(bool on) override { real_->BoundMemory(on); }

  int Number() const noexcept { return number_; }
  platform::BlockFile& Real() noexcept { return *real_; }
  // The pages that are held back and differ from the file, or from a journal that was not put in
  // place, in their order.
  std::vector<ChangedPage> Changes() const;
  bool HasOtherLength() const noexcept { return size_ != real_->Size(); }
  // A journal has these pages, from Changes. Until they are in place, they count as changes even if
  // they become equal to the file again, since an opener would apply the journal.
  void NoteJournaled(std::vector<ChangedPage> const& pages) noexcept;
  // Puts pages from Changes, and the length, into the file itself. False on failure.
  // Sets `hasLostSync` if a sync has failed.
  bool PutInPlace(std::vector<ChangedPage> const& pages, bool& hasLostSync);
  // Holds nothing back any longer.
  void Forget() noexcept;
  // Reads the file as a journal says. False if that cannot be read.
  bool Overlay(JournaledFile const& journaled);

 private:
  struct Page {
    std::array<std::byte, kPageBytes> bytes;
    std::array<std::uint64_t, kSectorsOfPage> before;
    unsigned journaled = 0;  // bit n for the n-th sector: a journal that is not in place has it
  };

  // The page, which is held back from now on; null if it cannot be read.
  Page* Hold(std::uint64_t number);
  bool HoldAll(std::uint64_t offset, std::size_t count);
  std::int64_t Read(std::uint64_t offset, void* to, std::size_t count, bool isUnmapped);
  bool ReadReal(std::uint64_t offset, std::byte* to, std::size_t count, bool isUnmapped);

  std::unique_ptr<platform::BlockFile> real_;
  Owner* owner_;
  int number_;
  std::uint64_t size_;
  std::unordered_map<std::uint64_t, std::unique_ptr<Page>> pages_;  // by number
};

// The held-back writes of the files of one library.
class HeldWrites final : public HeldFile::Owner {
 public:
  // The journal is at that path; `library` is the first file. The file system must outlive this.
  HeldWrites(platform::FileSystem& system, std::string journal, std::string library);

  // Holds the writes of a file back.
  std::unique_ptr<platform::BlockFile> Hold(int number, std::unique_ptr<platform::BlockFile> real);
  // Makes the journal, unless this was done already. False if it cannot be made.
  bool Begin();
  // Puts everything that is held back into the files: as a whole or, if it fails, not at all. It
  // may fail when the journal is on disk already; the next Commit, or the next opener of the
  // library, then completes it.
  bool Commit();
  // At the end, before the files are closed: drops what is held back, and removes the journal as
  // soon as the files are on disk.
  void End() noexcept;

 private:
  void Ended(HeldFile const& file) noexcept override;
  bool Sync(bool onlyNew);
  bool Checkpoint();

  struct File {
    HeldFile* held = nullptr;  // null unless open
    bool isSynced = false;     // since it was opened
  };

  platform::FileSystem* system_;
  std::string path_;
  std::string library_;
  std::array<File, format::kFileSlots> files_;  // by number
  std::unique_ptr<platform::BlockFile> journal_;
  std::optional<JournalWriter> writer_;
  bool isNew_ = true;      // it is not known to be on disk that the journal and the files exist
  bool isInPlace_ = true;  // the files have all that the journal has
  // A sync has failed. The system can report success the next time although it has dropped the
  // data, so the journal stays until the next open completes the files from it.
  bool hasLostSync_ = false;
};

}  // namespace zel

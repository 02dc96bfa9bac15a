#include "store/held_writes.h"

#include <algorithm>
#include <cstring>
#include <new>
#include <utility>

namespace zel {
namespace {

// No file of a library is longer.
constexpr std::uint64_t kMostBytes = std::uint64_t{1} << 42;

}  // namespace

// --- one file ----------------------------------------------------------------------------------

// Bytes that the file does not have are zeros.
bool HeldFile::ReadReal(std::uint64_t offset, std::byte* to, std::size_t count, bool isUnmapped) {
  std::uint64_t const end = real_->Size();
  std::size_t const there =
      offset >= end ? 0 : static_cast<std::size_t>(std::min<std::uint64_t>(count, end - offset));
  std::fill(to + there, to + count, std::byte{});
  auto const got = there == 0   ? std::int64_t{0}
                   : isUnmapped ? real_->ReadUnmapped(offset, to, there)
                                : real_->ReadAt(offset, to, there);
  return got == static_cast<std::int64_t>(there);
}

HeldFile::Page* HeldFile::Hold(std::uint64_t number) {
  auto const found = pages_.find(number);
  if (found != pages_.end()) return found->second.get();
  auto page = std::make_unique<Page>();
  // A file that is overlaid can be one that is salvaged.
  bool const isUnmapped = owner_ == nullptr;
  if (!ReadReal(number * kPageBytes, page->bytes.data(), kPageBytes, isUnmapped)) return nullptr;
  for (std::size_t i = 0; i < kSectorsOfPage; ++i) {
    page->before[i] = HashOf(page->bytes.data() + i * kSectorBytes, kSectorBytes);
  }
  return pages_.emplace(number, std::move(page)).first->second.get();
}

// False if a page cannot be read. Throws std::bad_alloc.
bool HeldFile::HoldAll(std::uint64_t offset, std::size_t count) {
  if (count > kMostBytes || offset > kMostBytes - count) return false;
  for (std::uint64_t page = offset / kPageBytes; page * kPageBytes < offset + count; ++page) {
    if (Hold(page) == nullptr) return false;
  }
  return true;
}

std::int64_t HeldFile::Read(std::uint64_t offset, void* to, std::size_t count, bool isUnmapped) {
  if (offset >= size_) return 0;
  count = static_cast<std::size_t>(std::min<std::uint64_t>(count, size_ - offset));
  auto* const bytes = static_cast<std::byte*>(to);
  for (std::size_t done = 0; done < count;) {
    std::uint64_t const at = offset + done;
    auto const inPage = static_cast<std::size_t>(at % kPageBytes);
    std::size_t const part = std::min(count - done, kPageBytes - inPage);
    auto const found = pages_.find(at / kPageBytes);
    if (found != pages_.end()) {
      std::memcpy(bytes + done, found->second->bytes.data() + inPage, part);
    } else if (!ReadReal(at, bytes + done, part, isUnmapped)) {
      return -1;
    }
    done += part;
  }
  return static_cast<std::int64_t>(count);
}

std::int64_t HeldFile::WriteAt(std::uint64_t offset, void const* from, std::size_t count) {
  if (!HoldAll(offset, count)) return -1;
  auto const* const bytes = static_cast<std::byte const*>(from);
  for (std::size_t done = 0; done < count;) {
    std::uint64_t const at = offset + done;
    auto const inPage = static_cast<std::size_t>(at % kPageBytes);
    std::size_t const part = std::min(count - done, kPageBytes - inPage);
    std::memcpy(pages_.find(at / kPageBytes)->second->bytes.data() + inPage, bytes + done, part);
    done += part;
  }
  size_ = std::max(size_, offset + count);
  return static_cast<std::int64_t>(count);
}

std::byte const* HeldFile::View(std::uint64_t offset, std::size_t count) const noexcept {
  if (offset > size_ || count > size_ - offset) return nullptr;
  if (!pages_.empty() && count != 0) {
    std::uint64_t const first = offset / kPageBytes;
    std::uint64_t const last = (offset + count - 1) / kPageBytes;
    bool const isShort = last - first < pages_.size();
    for (std::uint64_t number = first; isShort && number <= last; ++number) {
      if (pages_.count(number) != 0) return nullptr;
    }
    auto const isInside = [&](auto const& page) {
      return page.first >= first && page.first <= last;
    };
    if (!isShort && std::any_of(pages_.begin(), pages_.end(), isInside)) return nullptr;
  }
  return real_->View(offset, count);
}

bool HeldFile::WriteCannotFail(std::uint64_t offset, std::size_t count) try {
  return HoldAll(offset, count);
} catch (std::bad_alloc const&) {
  return false;
}

// What is cut off is zeros if the file grows again.
bool HeldFile::CutTo(std::uint64_t size) {
  if (size >= size_) return true;
  std::uint64_t const end = std::max(size, std::min(size_, real_->Size()));
  if (!HoldAll(size, static_cast<std::size_t>(end - size))) return false;
  for (auto& [number, page] : pages_) {
    std::uint64_t const from = number * kPageBytes;
    if (from + kPageBytes <= size) continue;
    std::size_t const stays = from >= size ? 0 : static_cast<std::size_t>(size - from);
    std::fill(page->bytes.begin() + static_cast<std::ptrdiff_t>(stays), page->bytes.end(),
              std::byte{});
  }
  size_ = size;
  return true;
}

std::vector<ChangedPage> HeldFile::Changes() const {
  std::vector<ChangedPage> changes;
  for (auto const& [number, page] : pages_) {
    unsigned changed = 0;
    for (std::size_t i = 0; i < kSectorsOfPage; ++i) {
      auto const now = HashOf(page->bytes.data() + i * kSectorBytes, kSectorBytes);
      bool const isJournaled = (page->journaled >> i & 1U) != 0;
      if (isJournaled || now != page->before[i]) changed |= 1U << i;
    }
    if (changed == 0) continue;
    changes.push_back({number_, number, changed, page->before.data(), page->bytes.data()});
  }
  std::sort(changes.begin(), changes.end(),
            [](ChangedPage const& a, ChangedPage const& b) { return a.page < b.page; });
  return changes;
}

void HeldFile::NoteJournaled(std::vector<ChangedPage> const& pages) noexcept {
  for (ChangedPage const& page : pages) pages_.find(page.page)->second->journaled |= page.changed;
}

bool HeldFile::PutInPlace(std::vector<ChangedPage> const& pages, bool& hasLostSync) {
  PlacedPages placed(*real_, size_);
  for (std::size_t i = 0; i < pages.size(); ++i) {
    ChangedPage const& page = pages[i];
    // Writes from the first sector that changes to the last one, and on into the next pages if they
    // change too: what is in between stays the same, and few writes are enough.
    bool const isAfterOne = i > 0 && pages[i - 1].page + 1 == page.page;
    bool const isBeforeOne = i + 1 < pages.size() && page.page + 1 == pages[i + 1].page;
    std::size_t first = 0;
    std::size_t end = kSectorsOfPage;
    while (!isAfterOne && (page.changed >> first & 1U) == 0) ++first;
    while (!isBeforeOne && (page.changed >> (end - 1) & 1U) == 0) --end;
    if (!placed.Put(page.page, first, end - first, page.bytes + first * kSectorBytes)) return false;
  }
  bool const good = placed.Finish();
  hasLostSync = hasLostSync || placed.HasLostSync();
  return good;
}

void HeldFile::Forget() noexcept {
  pages_.clear();
  size_ = real_->Size();
}

bool HeldFile::Overlay(JournaledFile const& journaled) {
  bool good = true;
  for (auto const& [number, sector] : journaled.sectors) {
    Page* const page = Hold(number / kSectorsOfPage);
    good = good && page != nullptr;
    if (page == nullptr) continue;
    std::memcpy(page->bytes.data() + number % kSectorsOfPage * kSectorBytes, sector.versions.back(),
                kSectorBytes);
  }
  size_ = journaled.length;  // a longer file is not read any further
  return good;
}

// --- all files of a library --------------------------------------------------------------------

HeldWrites::HeldWrites(platform::FileSystem& system, std::string journal, std::string library)
    : system_(&system), path_(std::move(journal)), library_(std::move(library)) {}

std::unique_ptr<platform::BlockFile> HeldWrites::Hold(int number,
                                                      std::unique_ptr<platform::BlockFile> real) {
  auto file = std::make_unique<HeldFile>(std::move(real), number, this);
  files_[static_cast<std::size_t>(number)] = {file.get(), false};
  isNew_ = true;  // the file may have just been made
  return file;
}

void HeldWrites::Ended(HeldFile const& file) noexcept {
  files_[static_cast<std::size_t>(file.Number())] = {};
}

bool HeldWrites::Begin() {
  if (journal_) return true;
  constexpr auto kCreate = platform::OpenMode::kCreate;
  platform::OpenedFile opened = system_->OpenAside(path_, kCreate, library_);
  // Anything else in its place, a link for example, is not a journal.
  if (!opened.file && system_->Remove(path_)) {
    opened = system_->OpenAside(path_, kCreate, library_);
  }
  if (!opened.file || !opened.file->CutTo(0)) return false;
  journal_ = std::move(opened.file);
  writer_.emplace(*journal_);
  return true;
}

// Asks the system to write the files to disk: all of them, or only those that have not been synced
// since they were opened.
bool HeldWrites::Sync(bool onlyNew) {
  for (File& file : files_) {
    if (file.held == nullptr || (onlyNew && file.isSynced)) continue;
    if (!file.held->Real().Flush()) {
      hasLostSync_ = true;
      return false;
    }
    file.isSynced = true;
  }
  return true;
}

// When the files have everything on disk, the journal can begin anew.
bool HeldWrites::Checkpoint() { return isInPlace_ && Sync(false) && writer_->Restart(); }

bool HeldWrites::Commit() {
  constexpr std::uint64_t kLongJournal = std::uint64_t{8} << 20;
  std::array<std::vector<ChangedPage>, format::kFileSlots> changes;
  std::vector<ChangedPage> all;
  LengthsOfFiles lengths;
  bool hasChanges = false;
  for (std::size_t i = 0; i < files_.size(); ++i) {
    HeldFile* const held = files_[i].held;
    if (held == nullptr) continue;
    changes[i] = held->Changes();
    all.insert(all.end(), changes[i].begin(), changes[i].end());
    lengths[i] = {held->Real().Size(), held->Size()};
    hasChanges = hasChanges || !changes[i].empty() || held->HasOtherLength();
  }
  if (!hasChanges && isInPlace_) {
    for (File& file : files_) {
      if (file.held != nullptr) file.held->Forget();
    }
    return Sync(true);
  }
  // What the journal is compared with must be on disk, too.
  if (!Begin() || !Sync(true)) return false;
  bool const isLong = writer_->Length() > kLongJournal && !hasLostSync_;
  if (isLong && isInPlace_ && !Checkpoint()) return false;
  // Must be done before the commit: a file that it changes must not be missing after a power cut.
  if (isNew_ && !system_->SyncFolder(path_)) return false;
  isNew_ = false;
  bool const isJournaled = writer_->Append(all, lengths);
  if (!isJournaled && !writer_->MayHaveIt()) return false;
  isInPlace_ = false;
  for (std::size_t i = 0; i < files_.size(); ++i) {
    if (files_[i].held != nullptr) files_[i].held->NoteJournaled(changes[i]);
  }
  if (!isJournaled) return false;
  for (std::size_t i = 0; i < files_.size(); ++i) {
    HeldFile* const held = files_[i].held;
    if (held != nullptr && !held->PutInPlace(changes[i], hasLostSync_)) return false;
  }
  isInPlace_ = true;
  for (File& file : files_) {
    if (file.held != nullptr) file.held->Forget();
  }
  return true;
}

void HeldWrites::End() noexcept {
  for (File& file : files_) {
    if (file.held != nullptr) file.held->Forget();
  }
  if (!journal_) return;
  bool const isDone = isInPlace_ && !hasLostSync_ && Sync(false);
  writer_.reset();
  journal_.reset();
  if (isDone && system_->Remove(path_)) system_->SyncFolder(path_);
}

}  // namespace zel

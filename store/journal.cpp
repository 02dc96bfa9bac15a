#include "store/journal.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace zel {
namespace {

constexpr std::size_t kMagicBytes = 8;
constexpr char kMagic[kMagicBytes + 1] = "ZELJRNL1";
constexpr std::size_t kSealBytes = 8;
constexpr std::size_t kLengthsAt = 32;
constexpr std::size_t kHeadBytes = kLengthsAt + std::size_t{16} * format::kMaxFiles;
constexpr std::size_t kPageHeadBytes = 16;
constexpr std::size_t kWrittenAtOnce = std::size_t{256} << 10;
constexpr unsigned kAllSectors = (1U << kSectorsOfPage) - 1;
constexpr std::size_t kLongestPage =
    kPageHeadBytes + kSectorsOfPage * sizeof(std::uint64_t) + kPageBytes;
// No file of a library has more.
constexpr std::uint64_t kMostPages = (std::uint64_t{1} << 42) / kPageBytes;

void Put64(std::byte* to, std::uint64_t number) noexcept {
  for (int i = 0; i < 8; ++i) to[i] = static_cast<std::byte>(number >> (8 * i) & 0xFFU);
}

std::uint64_t Get64(std::byte const* from) noexcept {
  std::uint64_t number = 0;
  for (int i = 7; i >= 0; --i) number = number << 8 | std::to_integer<std::uint64_t>(from[i]);
  return number;
}

void Put32(std::byte* to, std::uint32_t number) noexcept {
  for (int i = 0; i < 4; ++i) to[i] = static_cast<std::byte>(number >> (8 * i) & 0xFFU);
}

std::uint32_t Get32(std::byte const* from) noexcept {
  std::uint32_t number = 0;
  for (int i = 3; i >= 0; --i) number = number << 8 | std::to_integer<std::uint32_t>(from[i]);
  return number;
}

std::size_t CountOf(unsigned changed) noexcept {
  std::size_t count = 0;
  for (; changed != 0; changed &= changed - 1) ++count;
  return count;
}

std::size_t PageBytesOf(unsigned changed) noexcept {
  return kPageHeadBytes + CountOf(changed) * (sizeof(std::uint64_t) + kSectorBytes);
}

}  // namespace

std::uint64_t HashOf(std::byte const* bytes, std::size_t count, std::uint64_t seed) noexcept {
  constexpr std::uint64_t kStart = 0xcbf29ce484222325;
  constexpr std::uint64_t kFactor = 0x9e3779b97f4a7c15;
  std::uint64_t hash = kStart ^ (seed * kFactor);
  auto const mix = [&](std::uint64_t word) {
    hash = (hash ^ word) * kFactor;
    hash ^= hash >> 32;
  };
  std::size_t at = 0;
  for (; at + 8 <= count; at += 8) mix(Get64(bytes + at));
  if (at < count) {
    std::byte last[8] = {};
    std::memcpy(last, bytes + at, count - at);
    mix(Get64(last));
  }
  mix(count);
  return hash;
}

// --- placing -----------------------------------------------------------------------------------

// A file that is about to become shorter is written in whole sectors, so that each is as before or
// as after.
bool PlacedPages::Put(std::uint64_t page, std::size_t sector, std::size_t sectors,
                      std::byte const* bytes) {
  std::uint64_t const from = page * kPageBytes + sector * kSectorBytes;
  std::uint64_t const end = std::max(length_, file_.Size());
  if (from >= end) return true;
  auto const count =
      static_cast<std::size_t>(std::min<std::uint64_t>(sectors * kSectorBytes, end - from));
  bool const isNext = from == runFrom_ + run_.size() && run_.size() < kWrittenAtOnce;
  if (!isNext) {
    if (!WriteRun()) return false;
    runFrom_ = from;
  }
  run_.insert(run_.end(), bytes, bytes + count);
  return true;
}

bool PlacedPages::WriteRun() {
  std::size_t const count = run_.size();
  if (count == 0) return true;
  auto const written = file_.WriteInSectors(runFrom_, run_.data(), count);
  run_.clear();
  return written == static_cast<std::int64_t>(count);
}

bool PlacedPages::Finish() {
  std::byte const zero{};
  if (!WriteRun()) return false;
  if (file_.Size() < length_) return file_.WriteInSectors(length_ - 1, &zero, 1) == 1;
  // The file must not be cut on disk before the sectors at its new end are written there.
  if (file_.Size() == length_) return true;
  hasLostSync_ = !file_.Flush();
  return !hasLostSync_ && file_.CutTo(length_);
}

// --- writing -----------------------------------------------------------------------------------

void JournalWriter::Put(std::byte const* bytes, std::size_t count) {
  hash_ = HashOf(bytes, count, hash_);
  buffer_.insert(buffer_.end(), bytes, bytes + count);
}

bool JournalWriter::WriteBuffer() {
  std::size_t const count = buffer_.size();
  auto const written = file_.WriteAt(at_, buffer_.data(), count);
  buffer_.clear();
  at_ += count;
  return written == static_cast<std::int64_t>(count);
}

void JournalWriter::PutPage(ChangedPage const& page) {
  std::array<std::byte, kPageHeadBytes + kSectorsOfPage * 8 + kPageBytes> record;
  Put32(record.data(), static_cast<std::uint32_t>(page.file));
  Put32(record.data() + 4, page.changed);
  Put64(record.data() + 8, page.page);
  std::byte* to = record.data() + kPageHeadBytes;
  for (std::size_t i = 0; i < kSectorsOfPage; ++i) {
    if ((page.changed >> i & 1U) == 0) continue;
    Put64(to, page.before[i]);
    to += 8;
  }
  for (std::size_t i = 0; i < kSectorsOfPage; ++i) {
    if ((page.changed >> i & 1U) == 0) continue;
    std::memcpy(to, page.bytes + i * kSectorBytes, kSectorBytes);
    to += kSectorBytes;
  }
  Put(record.data(), static_cast<std::size_t>(to - record.data()));
}

bool JournalWriter::Append(std::vector<ChangedPage> const& pages, LengthsOfFiles const& lengths) {
  std::array<std::byte, kHeadBytes> head;
  std::uint64_t bytes = 0;
  for (ChangedPage const& page : pages) bytes += PageBytesOf(page.changed);
  std::memcpy(head.data(), kMagic, kMagicBytes);
  Put64(head.data() + 8, seal_);
  Put64(head.data() + 16, bytes);
  Put64(head.data() + 24, pages.size());
  for (std::size_t i = 0; i < std::size_t{format::kMaxFiles}; ++i) {
    Put64(head.data() + kLengthsAt + 16 * i, lengths[i + 1].before);
    Put64(head.data() + kLengthsAt + 16 * i + 8, lengths[i + 1].after);
  }
  at_ = end_;
  hash_ = seal_;
  buffer_.clear();
  Put(head.data(), head.size());
  bool good = true;
  for (ChangedPage const& page : pages) {
    PutPage(page);
    if (buffer_.size() >= kWrittenAtOnce) good = WriteBuffer();
    if (!good) break;
  }
  std::byte seal[kSealBytes];
  std::uint64_t const hash = hash_;
  Put64(seal, hash);
  Put(seal, sizeof seal);
  mayHaveIt_ = good && WriteBuffer();
  if (!mayHaveIt_ || !file_.Flush()) {
    file_.CutTo(end_);
    return false;
  }
  end_ = at_;
  seal_ = hash;
  return true;
}

bool JournalWriter::Restart() {
  if (!file_.CutTo(0)) return false;
  end_ = 0;
  seal_ = 0;
  return file_.Flush();
}

// --- reading -----------------------------------------------------------------------------------

namespace {

// A page of a commit. It refers to the bytes of the commit.
struct PageRecord {
  std::byte const* at;

  std::uint32_t File() const noexcept { return Get32(at); }
  std::uint32_t Changed() const noexcept { return Get32(at + 4); }
  std::uint64_t Page() const noexcept { return Get64(at + 8); }
  std::size_t Bytes() const noexcept { return PageBytesOf(Changed()); }
  std::uint64_t Before(std::size_t n) const noexcept { return Get64(at + kPageHeadBytes + 8 * n); }
  std::byte const* New(std::size_t n) const noexcept {
    return at + kPageHeadBytes + 8 * CountOf(Changed()) + n * kSectorBytes;
  }
};

FileLengths LengthsIn(std::byte const* commit, int number) noexcept {
  std::byte const* const at = commit + kLengthsAt + 16 * static_cast<std::size_t>(number - 1);
  return {Get64(at), Get64(at + 8)};
}

bool IsLength(std::uint64_t length) noexcept { return length <= kMostPages * kPageBytes; }

bool AreLengths(std::byte const* commit) noexcept {
  for (int number = 1; number <= format::kMaxFiles; ++number) {
    FileLengths const lengths = LengthsIn(commit, number);
    bool const isOpen = lengths.before != FileLengths::kNotOpen;
    if (isOpen != (lengths.after != FileLengths::kNotOpen)) return false;
    if (isOpen && !(IsLength(lengths.before) && IsLength(lengths.after))) return false;
  }
  return true;
}

bool IsPage(PageRecord const& page, std::byte const* commit, std::size_t room) noexcept {
  if (room < kPageHeadBytes || page.Changed() == 0 || page.Changed() > kAllSectors) return false;
  if (page.Bytes() > room || page.Page() >= kMostPages) return false;
  std::uint32_t const file = page.File();
  return file >= 1 && file <= std::uint32_t{format::kMaxFiles} &&
         LengthsIn(commit, static_cast<int>(file)).before != FileLengths::kNotOpen;
}

// Reads one commit and verifies it while reading, so that it takes no more memory than its valid
// pages need.
class CommitReader {
 public:
  // The commit begins at that place of the file, and the one before it has that seal.
  CommitReader(platform::BlockFile& file, std::uint64_t at, std::uint64_t sealBefore) noexcept
      : file_(file), at_(at), sealBefore_(sealBefore) {}

  // False if it is not whole, or cannot be read; see Failed.
  bool Read() { return ReadHead() && ReadPages() && Get64(commit_.data() + end_) == hash_; }
  bool Failed() const noexcept { return failed_; }
  // The whole commit.
  std::vector<std::byte> Take() noexcept { return std::move(commit_); }

 private:
  bool Grow(std::size_t count) {
    std::size_t const from = commit_.size();
    commit_.resize(from + count);
    auto const got = file_.ReadUnmapped(at_ + from, commit_.data() + from, count);
    failed_ = got != static_cast<std::int64_t>(count);
    return !failed_;
  }

  bool ReadHead() {
    std::uint64_t const size = file_.Size();
    if (size - at_ < kHeadBytes + kSealBytes || !Grow(kHeadBytes)) return false;
    std::byte const* const head = commit_.data();
    std::uint64_t const bytes = Get64(head + 16);
    bool const isHead = std::memcmp(head, kMagic, kMagicBytes) == 0 &&
                        Get64(head + 8) == sealBefore_ &&
                        bytes <= size - at_ - kHeadBytes - kSealBytes && AreLengths(head);
    if (!isHead) return false;
    // A commit that is larger than memory can be, where addresses have 32 bits.
    failed_ = bytes > commit_.max_size() - kHeadBytes - kSealBytes;
    hash_ = HashOf(head, kHeadBytes, sealBefore_);
    end_ = kHeadBytes + static_cast<std::size_t>(bytes);
    return !failed_;
  }

  bool ReadPages() {
    constexpr std::size_t kStep = std::size_t{1} << 20;
    std::uint64_t pages = Get64(commit_.data() + 24);
    std::size_t const all = end_ + kSealBytes;
    for (std::size_t next = kHeadBytes; commit_.size() < all;) {
      if (!Grow(std::min(all - commit_.size(), kStep))) return false;
      std::size_t const there = std::min(commit_.size(), end_);
      while (next < there) {
        PageRecord const page{commit_.data() + next};
        bool const isCut = there < end_ && there - next < kLongestPage;
        if (isCut) break;
        if (!IsPage(page, commit_.data(), there - next)) return false;
        hash_ = HashOf(page.at, page.Bytes(), hash_);
        next += page.Bytes();
        --pages;
      }
    }
    return pages == 0;
  }

  platform::BlockFile& file_;
  std::uint64_t at_;
  std::uint64_t sealBefore_;
  std::vector<std::byte> commit_;
  std::size_t end_ = 0;     // of the pages in the commit
  std::uint64_t hash_ = 0;  // of what was verified
  bool failed_ = false;
};

// The commits that are whole; sets `failed` if the file cannot be read.
std::vector<std::vector<std::byte>> CommitsIn(platform::BlockFile& file, bool& failed) {
  std::vector<std::vector<std::byte>> commits;
  std::uint64_t seal = 0;
  std::uint64_t at = 0;
  while (true) {
    CommitReader reader(file, at, seal);
    bool const isWhole = reader.Read();
    failed = reader.Failed();
    if (!isWhole) return commits;
    commits.push_back(reader.Take());
    at += commits.back().size();
    seal = Get64(commits.back().data() + commits.back().size() - kSealBytes);
  }
}

}  // namespace

std::optional<Journal> Journal::Read(platform::BlockFile& file, bool& failed) {
  failed = false;
  Journal journal;
  journal.commits_ = CommitsIn(file, failed);
  if (failed || journal.commits_.empty()) return std::nullopt;
  for (std::vector<std::byte> const& commit : journal.commits_) journal.Take(commit);
  return journal;
}

void Journal::Take(std::vector<std::byte> const& commit) {
  std::byte const* const end = commit.data() + commit.size() - kSealBytes;
  for (int number = 1; number <= format::kMaxFiles; ++number) {
    FileLengths const lengths = LengthsIn(commit.data(), number);
    if (lengths.before == FileLengths::kNotOpen) continue;
    auto& file = files_[static_cast<std::size_t>(number)];
    if (!file) file.emplace();
    file->lengths.insert({lengths.before, lengths.after});
    file->length = lengths.after;
  }
  for (PageRecord page{commit.data() + kHeadBytes}; page.at < end; page.at += page.Bytes()) {
    std::size_t n = 0;
    for (std::size_t i = 0; i < kSectorsOfPage; ++i) {
      if ((page.Changed() >> i & 1U) == 0) continue;
      JournaledSector& sector = files_[page.File()]->sectors[page.Page() * kSectorsOfPage + i];
      if (sector.versions.empty()) sector.before = page.Before(n);
      sector.versions.push_back(page.New(n));
      ++n;
    }
  }
}

// --- comparing and completing ------------------------------------------------------------------

namespace {

using SectorBytes = std::array<std::byte, kSectorBytes>;

// Reads a sector as far as the file goes; the rest is zeros. Returns the bytes read, -1 on failure.
std::int64_t ReadSector(platform::BlockFile& file, std::uint64_t sector, SectorBytes& bytes) {
  bytes.fill(std::byte{});
  std::uint64_t const from = sector * kSectorBytes;
  if (from >= file.Size()) return 0;
  auto const count =
      static_cast<std::size_t>(std::min<std::uint64_t>(kSectorBytes, file.Size() - from));
  return file.ReadUnmapped(from, bytes.data(), count);
}

// A file that has lost its newest part ends within a sector. If it grows again, the rest of that
// sector is zeros.
bool IsVersion(std::byte const* version, SectorBytes const& bytes, std::size_t length) {
  auto const rest = bytes.begin() + static_cast<std::ptrdiff_t>(length);
  return std::equal(bytes.begin(), rest, version) &&
         std::all_of(rest, bytes.end(), [](std::byte b) { return b == std::byte{}; });
}

// `read` bytes are in the file; the rest is zeros.
bool IsOneOf(JournaledFile const& of, std::uint64_t number, JournaledSector const& sector,
             SectorBytes const& bytes, std::size_t read) {
  if (HashOf(bytes.data(), bytes.size()) == sector.before) return true;
  std::uint64_t const from = number * kSectorBytes;
  return std::any_of(sector.versions.begin(), sector.versions.end(), [&](std::byte const* version) {
    if (IsVersion(version, bytes, read)) return true;
    auto const inside = of.lengths.upper_bound(from);
    for (auto at = inside; at != of.lengths.end() && *at < from + kSectorBytes; ++at) {
      if (IsVersion(version, bytes, static_cast<std::size_t>(*at - from))) return true;
    }
    return false;
  });
}

// Room that was allocated ahead is zeros, and less than this.
constexpr std::uint64_t kMostAhead = std::uint64_t{64} << 20;

bool HasOnlyZerosFrom(platform::BlockFile& file, std::uint64_t from, bool& failed) {
  if (file.Size() > from && file.Size() - from > kMostAhead) return false;
  std::vector<std::byte> bytes(std::size_t{64} << 10);
  for (; from < file.Size(); from += bytes.size()) {
    auto const count =
        static_cast<std::size_t>(std::min<std::uint64_t>(bytes.size(), file.Size() - from));
    auto const got = file.ReadUnmapped(from, bytes.data(), count);
    failed = failed || got != static_cast<std::int64_t>(count);
    if (failed) return false;
    auto const end = bytes.begin() + static_cast<std::ptrdiff_t>(count);
    if (std::any_of(bytes.begin(), end, [](std::byte b) { return b != std::byte{}; })) return false;
  }
  return true;
}

}  // namespace

bool Journal::Fits(JournaledFile const& of, platform::BlockFile* file, bool& failed) {
  failed = false;
  std::uint64_t const shortest = *of.lengths.begin();
  std::uint64_t const there = file == nullptr ? 0 : file->Size();
  std::uint64_t const written =
      of.sectors.empty() ? 0 : (of.sectors.rbegin()->first + 1) * kSectorBytes;
  if (of.length > std::max(there, written) + kMostAhead) return false;
  if (file == nullptr) return shortest == 0;
  if (file->Size() < shortest) return false;
  if (!HasOnlyZerosFrom(*file, *of.lengths.rbegin(), failed)) return false;
  SectorBytes bytes;
  return std::all_of(of.sectors.begin(), of.sectors.end(), [&](auto const& entry) {
    auto const& [number, sector] = entry;
    std::int64_t const read = ReadSector(*file, number, bytes);
    failed = failed || read < 0;
    return !failed && IsOneOf(of, number, sector, bytes, static_cast<std::size_t>(read));
  });
}

bool Journal::Complete(JournaledFile const& of, platform::BlockFile& file) {
  PlacedPages placed(file, of.length);
  for (auto const& [number, sector] : of.sectors) {
    bool const good =
        placed.Put(number / kSectorsOfPage, number % kSectorsOfPage, 1, sector.versions.back());
    if (!good) return false;
  }
  return placed.Finish();
}

}  // namespace zel

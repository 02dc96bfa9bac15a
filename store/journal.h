// The journal of held-back writes: what flushes change, written and on disk before any of it is in
// the files of the library, so that a flush that is cut off can be completed.
//
// A journal is a chain of commits, one for each flush. All numbers are little-endian. A commit is
//
//   Byte  Bytes
//      0      8  "ZELJRNL1"
//      8      8  the seal of the commit before, 0 for the first
//     16      8  the length of the pages in bytes
//     24      8  the number of pages
//     32    144  for each of the files 1 to 9: its length before and after the flush, 16 bytes;
//                twice 2^64 - 1 for a file that was not open
//    176         the pages
//            8  the seal: the hash of the last page, or of the head in a commit without pages
//
// and a page
//
//      0      4  number of the file
//      4      4  which of its sectors change: bit n for the n-th
//      8      8  number of the page, from 0
//     16         for each sector that changes: HashOf of what it was
//                and then the new bytes of these sectors
//
// A sector has 512 bytes and a page 8 sectors. What is past the end of a file counts as zeros. The
// hash of the head is HashOf with the seal of the commit before as its seed, and that of each page
// has the one before it as its seed. The chain ends before the first commit that is not whole.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <vector>

#include "frame/platform/block_file.h"
#include "store/format.h"

namespace zel {

inline constexpr std::size_t kSectorBytes = 512;
inline constexpr std::size_t kSectorsOfPage = 8;
inline constexpr std::size_t kPageBytes = kSectorBytes * kSectorsOfPage;

// A hash that protects against accidents, not against forged data.
std::uint64_t HashOf(std::byte const* bytes, std::size_t count, std::uint64_t seed = 0) noexcept;

// The lengths of a file before and after a flush.
struct FileLengths {
  static constexpr std::uint64_t kNotOpen = UINT64_MAX;
  std::uint64_t before = kNotOpen;
  std::uint64_t after = kNotOpen;
};
using LengthsOfFiles = std::array<FileLengths, format::kFileSlots>;  // by file number

// A page that a flush changes.
struct ChangedPage {
  int file;
  std::uint64_t page;
  unsigned changed;             // bit n for its n-th sector, at least one
  std::uint64_t const* before;  // the hashes of all its sectors, as they were
  std::byte const* bytes;       // of the page
};

// Writes sectors of a file and sets its length, in the same way for a flush that is not cut off and
// for one that is completed later.
class PlacedPages {
 public:
  // For a file whose new length is `length`.
  PlacedPages(platform::BlockFile& file, std::uint64_t length) noexcept
      : file_(file), length_(length) {}
  // Writes the sectors of a page from the n-th on, in ascending order. Those that follow each other
  // are written together, at the latest by Finish. False on failure.
  bool Put(std::uint64_t page, std::size_t sector, std::size_t sectors, std::byte const* bytes);
  // Sets the length. False on failure.
  bool Finish();
  // True if a sync has failed.
  bool HasLostSync() const noexcept { return hasLostSync_; }

 private:
  bool WriteRun();

  platform::BlockFile& file_;
  std::uint64_t length_;
  std::uint64_t runFrom_ = 0;
  std::vector<std::byte> run_;
  bool hasLostSync_ = false;
};

// Appends commits.
class JournalWriter {
 public:
  // Starts at the beginning of an empty file.
  explicit JournalWriter(platform::BlockFile& file) noexcept : file_(file) {}

  // Writes a commit and asks the system to put it on disk. False on failure: the chain is then as
  // before, unless MayHaveIt.
  bool Append(std::vector<ChangedPage> const& pages, LengthsOfFiles const& lengths);
  // True if the last Append failed although its commit was written and may be on disk.
  bool MayHaveIt() const noexcept { return mayHaveIt_; }
  // Makes the chain empty, on disk. False on failure.
  bool Restart();
  std::uint64_t Length() const noexcept { return end_; }

 private:
  void Put(std::byte const* bytes, std::size_t count);
  void PutPage(ChangedPage const& page);
  bool WriteBuffer();

  platform::BlockFile& file_;
  std::uint64_t end_ = 0;  // of the last whole commit
  std::uint64_t at_ = 0;   // of what is written of the next one, the buffer after it
  std::vector<std::byte> buffer_;
  std::uint64_t seal_ = 0;  // of the last whole commit
  std::uint64_t hash_ = 0;  // of the next one
  bool mayHaveIt_ = false;
};

// How the commits of a journal change a sector, and a file.
struct JournaledSector {
  std::uint64_t before = 0;                // the hash of what it was at first
  std::vector<std::byte const*> versions;  // its new bytes, one for each commit that changes it
};
struct JournaledFile {
  std::set<std::uint64_t> lengths;                   // before and after each commit
  std::uint64_t length = 0;                          // after the last one
  std::map<std::uint64_t, JournaledSector> sectors;  // by number, from 0
};

// The whole commits of a journal, read into memory.
class Journal {
 public:
  // Reads the chain. Nothing if it has no whole commit. Sets `failed` if the file cannot be read.
  static std::optional<Journal> Read(platform::BlockFile& file, bool& failed);

  // Null for a file that the commits do not name.
  JournaledFile const* Of(int number) const noexcept {
    auto const& file = files_[static_cast<std::size_t>(number)];
    return file ? &*file : nullptr;
  }
  // True if the file can be one of those that the journal was written for: each sector that changes
  // is as before or after a commit, and the file as long. A file that does not exist is null. Sets
  // `failed` if the file cannot be read; the answer is then not valid.
  static bool Fits(JournaledFile const& of, platform::BlockFile* file, bool& failed);
  // Makes the file what it is after the last commit. False on failure.
  static bool Complete(JournaledFile const& of, platform::BlockFile& file);

 private:
  void Take(std::vector<std::byte> const& commit);

  std::vector<std::vector<std::byte>> commits_;  // the versions are in them
  std::array<std::optional<JournaledFile>, format::kFileSlots> files_;
};

}  // namespace zel

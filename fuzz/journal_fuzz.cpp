// Journals next to a library of two files. The first byte of the input says what the rest is: the
// bytes of the journal, if it is even; otherwise pieces of 8 bytes, each a page of a commit whose
// hashes are right: file and end of the commit (1 byte), sectors that change (1), page (2), new
// bytes (1), what the sectors were (1), and the new length of the file (2, in units of 64 bytes).
//
// What the journal makes of the files in memory is what it makes of them on disk, and once it was
// completed there is nothing to complete.
#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <vector>

#include "store/held_writes.h"
#include "store/unfinished_flush.h"
#include "tests/support/memory_file_system.h"

namespace {

using zel::test::MemoryFileSystem;

constexpr char kFirst[] = "/a.lb1";
constexpr std::size_t kFileBytes = 20'000;

void Check(bool good) {
  if (!good) std::abort();
}

// The pages of one commit, with what they refer to.
struct Commit {
  struct Page {
    std::array<std::byte, zel::kPageBytes> bytes;
    std::array<std::uint64_t, zel::kSectorsOfPage> before;
  };
  std::vector<std::unique_ptr<Page>> made;
  std::vector<zel::ChangedPage> pages;
  zel::LengthsOfFiles lengths;

  void Add(std::uint8_t const* piece) {
    constexpr std::size_t kUnit = 64;
    int const file = 1 + piece[0] % 2;
    auto page = std::make_unique<Page>();
    page->bytes.fill(static_cast<std::byte>(piece[4]));
    std::array<std::byte, zel::kSectorBytes> old;
    old.fill(static_cast<std::byte>(piece[5]));
    page->before.fill(zel::HashOf(old.data(), old.size()));
    auto const number = static_cast<std::uint64_t>(piece[2] | piece[3] << 8);
    pages.push_back(
        {file, number, std::max<unsigned>(1, piece[1]), page->before.data(), page->bytes.data()});
    made.push_back(std::move(page));
    auto const length = static_cast<std::uint64_t>(piece[6] | piece[7] << 8) * kUnit;
    lengths[static_cast<std::size_t>(file)] = {kFileBytes, length};
  }
};

void WriteCommits(std::uint8_t const* data, std::size_t size, zel::platform::BlockFile& file) {
  constexpr std::size_t kPiece = 8;
  zel::JournalWriter writer(file);
  Commit commit;
  for (std::size_t at = 0; at + kPiece <= size; at += kPiece) {
    commit.Add(data + at);
    bool const isEnd = (data[at] & 2) != 0 || at + 2 * kPiece > size;
    if (!isEnd) continue;
    Check(writer.Append(commit.pages, commit.lengths));
    commit = {};
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
  if (size == 0) return 0;
  MemoryFileSystem files;
  for (int number : {1, 2}) {
    files.Contents(zel::FileOfLibrary(kFirst, number)).assign(kFileBytes, std::byte{7});
  }
  std::string const journal = zel::JournalOf(kFirst);
  if (*data % 2 == 0) {
    auto& bytes = files.Contents(journal);
    bytes.resize(size - 1);
    std::memcpy(bytes.data(), data + 1, size - 1);
  } else {
    WriteCommits(data + 1, size - 1, *files.Open(journal, zel::platform::OpenMode::kCreate).file);
  }
  zel::UnfinishedFlush unfinished(files, kFirst);
  Check(unfinished.Look() == zel::platform::OpenOutcome::kOk);
  if (unfinished.Found() != zel::UnfinishedFlush::State::kThere) return 0;
  std::array<MemoryFileSystem::Bytes, 3> expected;
  for (int const number : {1, 2}) {
    MemoryFileSystem::Bytes& bytes = expected[static_cast<std::size_t>(number)];
    std::string const path = zel::FileOfLibrary(kFirst, number);
    bytes = files.Contents(path);
    if (unfinished.Of(number) == nullptr) continue;
    zel::HeldFile held(files.Open(path, zel::platform::OpenMode::kRead).file, number, nullptr);
    Check(held.Overlay(*unfinished.Of(number)));
    bytes.resize(held.Size());
    auto const count = static_cast<std::int64_t>(bytes.size());
    Check(held.ReadAt(0, bytes.data(), bytes.size()) == count);
  }
  Check(unfinished.Complete() == zel::platform::OpenOutcome::kOk);
  for (int const number : {1, 2}) {
    Check(files.Contents(zel::FileOfLibrary(kFirst, number)) ==
          expected[static_cast<std::size_t>(number)]);
  }
  Check(!files.Exists(journal));
  Check(unfinished.Look() == zel::platform::OpenOutcome::kOk);
  Check(unfinished.Found() == zel::UnfinishedFlush::State::kNone);
  return 0;
}

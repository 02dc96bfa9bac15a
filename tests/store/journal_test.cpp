// The journal of held-back writes: its bytes, and journals that are cut, flipped or of other files.
#include "store/journal.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <string>

#include "tests/support/failing_file_system.h"
#include "tests/support/memory_file_system.h"

namespace zel {
namespace {

using platform::OpenMode;
using test::MemoryFileSystem;

std::uint64_t Word(MemoryFileSystem::Bytes const& bytes, std::size_t at, int size) {
  std::uint64_t word = 0;
  for (int i = size - 1; i >= 0; --i) {
    word = word << 8 | std::to_integer<std::uint64_t>(bytes[at + static_cast<std::size_t>(i)]);
  }
  return word;
}

class JournalTest : public ::testing::Test {
 protected:
  JournalTest() {
    for (std::size_t i = 0; i < kPageBytes; ++i) {
      old_[i] = static_cast<std::byte>(i % 7);
      first_[i] = old_[i];
      second_[i] = old_[i];
    }
    // Sectors 1 and 7 change at first, then 1 and 2.
    first_[512] = second_[512] = std::byte{0xAA};
    second_[600] = std::byte{0xDD};
    first_[4095] = second_[4095] = std::byte{0xBB};
    second_[1024] = std::byte{0xCC};
    for (std::size_t i = 0; i < kSectorsOfPage; ++i) {
      before_[i] = HashOf(old_.data() + i * kSectorBytes, kSectorBytes);
    }
    lengths_[1] = {kPageBytes, kPageBytes};
    Bytes().assign(old_.begin(), old_.end());
  }
  std::unique_ptr<platform::BlockFile> Open(char const* path) {
    return files_.Open(path, OpenMode::kCreate).file;
  }
  // Writes both commits.
  void Write() {
    auto const file = Open("/j");
    JournalWriter writer(*file);
    ASSERT_TRUE(writer.Append({{1, 0, 0x82, before_.data(), first_.data()}}, lengths_));
    end_ = writer.Length();
    ASSERT_TRUE(writer.Append({{1, 0, 0x06, before_.data(), second_.data()}}, lengths_));
    EXPECT_EQ(writer.Length(), file->Size());
  }
  std::optional<Journal> Read() {
    bool failed = true;
    auto const file = files_.OpenAside("/j", OpenMode::kRead, "/f").file;
    auto journal = Journal::Read(*file, failed);
    EXPECT_FALSE(failed);
    return journal;
  }
  bool Fits(Journal const& journal) {
    bool failed = true;
    bool const fits = Journal::Fits(*journal.Of(1), Open("/f").get(), failed);
    EXPECT_FALSE(failed);
    return fits;
  }
  MemoryFileSystem::Bytes& Bytes() { return files_.Contents("/f"); }

  MemoryFileSystem files_;
  std::array<std::byte, kPageBytes> old_{};
  std::array<std::byte, kPageBytes> first_{};   // after the first flush
  std::array<std::byte, kPageBytes> second_{};  // after the second
  std::array<std::uint64_t, kSectorsOfPage> before_{};
  LengthsOfFiles lengths_;
  std::uint64_t end_ = 0;  // of the first commit
};

TEST_F(JournalTest, BytesAreThoseOfTheFormat) {
  Write();
  auto const& bytes = files_.Contents("/j");
  EXPECT_EQ(std::memcmp(bytes.data(), "ZELJRNL1", 8), 0);
  EXPECT_EQ(Word(bytes, 8, 8), 0U) << "the first has none before it";
  constexpr std::size_t kPage = 16 + 2 * 8 + 2 * 512;
  EXPECT_EQ(Word(bytes, 16, 8), kPage);
  EXPECT_EQ(Word(bytes, 24, 8), 1U);
  EXPECT_EQ(Word(bytes, 32, 8), 4096U);
  EXPECT_EQ(Word(bytes, 40, 8), 4096U);
  EXPECT_EQ(Word(bytes, 48, 8), UINT64_MAX) << "file 2 was not open";
  EXPECT_EQ(Word(bytes, 176, 4), 1U);
  EXPECT_EQ(Word(bytes, 180, 4), 0x82U);
  EXPECT_EQ(Word(bytes, 184, 8), 0U);
  EXPECT_EQ(Word(bytes, 192, 8), before_[1]);
  EXPECT_EQ(Word(bytes, 200, 8), before_[7]);
  EXPECT_EQ(Word(bytes, 208, 1), 0xAAU);
  EXPECT_EQ(Word(bytes, 208 + 1023, 1), 0xBBU);
  EXPECT_EQ(end_, 176 + kPage + 8);
  std::uint64_t const seal = Word(bytes, end_ - 8, 8);
  EXPECT_EQ(seal, HashOf(bytes.data() + 176, kPage, HashOf(bytes.data(), 176, 0)));
  EXPECT_EQ(Word(bytes, end_ + 8, 8), seal) << "the second commit names the first";
}

TEST_F(JournalTest, CompletesToTheLastCommit) {
  Write();
  auto const journal = Read();
  ASSERT_TRUE(journal);
  EXPECT_EQ(journal->Of(2), nullptr);
  ASSERT_TRUE(Fits(*journal));
  ASSERT_TRUE(Journal::Complete(*journal->Of(1), *Open("/f")));
  EXPECT_TRUE(std::equal(second_.begin(), second_.end(), Bytes().begin(), Bytes().end()));
  EXPECT_TRUE(Fits(*journal)) << "a second time";
}

// What a crash leaves of the files: each sector of any of the flushes.
TEST_F(JournalTest, FitsEachMixtureOfSectors) {
  Write();
  auto const journal = Read();
  for (int mixture = 0; mixture < 12; ++mixture) {
    auto const put = [&](std::size_t sector, auto const& from) {
      std::copy_n(from.begin() + static_cast<long>(sector * 512), 512,
                  Bytes().begin() + static_cast<long>(sector * 512));
    };
    put(1, mixture % 3 == 0 ? old_ : mixture % 3 == 1 ? first_ : second_);
    put(2, mixture / 3 % 2 == 0 ? old_ : second_);
    put(7, mixture / 6 == 0 ? old_ : first_);
    EXPECT_TRUE(Fits(*journal)) << mixture;
  }
}

// A file that cannot be read is not taken for another one.
TEST_F(JournalTest, ReadErrorIsNotAMisfit) {
  Write();
  auto const journal = Read();
  test::FailingFileSystem failing(files_);
  auto const file = failing.Open("/f", OpenMode::kRead).file;
  int failures = 0;
  for (int n = 1; n < 20; ++n) {
    failing.FailAt(n, false);
    bool failed = false;
    bool const fits = Journal::Fits(*journal->Of(1), file.get(), failed);
    EXPECT_NE(fits, failed);
    failures += failed ? 1 : 0;
  }
  EXPECT_GE(failures, 3) << "one for each sector that changes";
}

// A file that is killed can have room that was allocated ahead, which is zeros, but only so much.
TEST_F(JournalTest, FitsAFileWithRoomAhead) {
  constexpr std::size_t kMegabyte = std::size_t{1} << 20;
  Write();
  auto const journal = Read();
  Bytes().resize(kPageBytes + 16 * kMegabyte);
  EXPECT_TRUE(Fits(*journal));
  Bytes().back() = std::byte{1};
  EXPECT_FALSE(Fits(*journal));
  Bytes().back() = std::byte{};
  Bytes().resize(kPageBytes + 65 * kMegabyte);
  EXPECT_FALSE(Fits(*journal));
}

// A journal that would make a file long without having written it would fill the disk, or keep
// readers busy with zeros.
TEST_F(JournalTest, DoesNotFitIfItMakesAFileLongWithoutContents) {
  constexpr std::uint64_t kMegabyte = std::uint64_t{1} << 20;
  for (auto const& [length, fits] : {std::pair{64 * kMegabyte, true},
                                     {65 * kMegabyte, false},
                                     {std::uint64_t{1} << 42, false}}) {
    lengths_[1] = {kPageBytes, length};
    Write();
    auto const journal = Read();
    EXPECT_EQ(Fits(*journal), fits) << length;
    bool failed = true;
    JournaledFile made;
    made.lengths = {0, length};
    made.length = length;
    EXPECT_EQ(Journal::Fits(made, nullptr, failed), fits) << length;
    EXPECT_FALSE(failed);
  }
}

// Commits of many pages are read in pieces.
TEST_F(JournalTest, LongCommitIsRead) {
  constexpr std::uint64_t kPages = 1000;  // 4 MB
  {
    auto const file = Open("/j");
    JournalWriter writer(*file);
    std::vector<ChangedPage> pages;
    for (std::uint64_t page = 0; page < kPages; ++page) {
      pages.push_back({1, page, page % 2 == 0 ? 0xFFU : 0x10U, before_.data(), first_.data()});
    }
    lengths_[1] = {kPageBytes * kPages, kPageBytes * kPages};
    ASSERT_TRUE(writer.Append(pages, lengths_));
  }
  auto const journal = Read();
  ASSERT_TRUE(journal);
  EXPECT_EQ(journal->Of(1)->sectors.size(), kPages / 2 * 9);
  auto& bytes = files_.Contents("/j");
  for (std::size_t at = 300; at < bytes.size(); at += 99'991) {
    bytes[at] ^= std::byte{1};
    EXPECT_FALSE(Read()) << at;
    bytes[at] ^= std::byte{1};
  }
  bytes.pop_back();
  EXPECT_FALSE(Read());
}

// A commit that claims more than there is, in an otherwise empty file.
TEST_F(JournalTest, ClaimOfMorePagesIsRefused) {
  Write();
  auto& bytes = files_.Contents("/j");
  bytes.resize(std::size_t{8} << 20);
  for (std::size_t i = 0; i < 8; ++i) bytes[16 + i] = std::byte{};
  bytes[18] = std::byte{0x70};  // 7 MB of pages
  EXPECT_FALSE(Read());
}

TEST_F(JournalTest, DoesNotFitOtherFiles) {
  Write();
  auto const journal = Read();
  for (std::size_t const at : {512U, 1023U, 1024U, 1535U, 3584U, 4095U}) {
    Bytes()[at] ^= std::byte{1};
    EXPECT_FALSE(Fits(*journal)) << at;
    Bytes()[at] ^= std::byte{1};
  }
  Bytes()[0] ^= std::byte{1};  // no flush has changed that sector
  EXPECT_TRUE(Fits(*journal));
  Bytes().resize(kPageBytes - 1);
  EXPECT_FALSE(Fits(*journal)) << "shorter than it ever was";
  Bytes().resize(kPageBytes - 1);
  Bytes().push_back(old_[kPageBytes - 1]);
  EXPECT_TRUE(Fits(*journal));
  Bytes().resize(kPageBytes + 5000);
  EXPECT_TRUE(Fits(*journal)) << "room that was allocated ahead";
  Bytes().back() = std::byte{1};
  EXPECT_FALSE(Fits(*journal)) << "longer than it ever was";
  bool failed = true;
  EXPECT_FALSE(Journal::Fits(*journal->Of(1), nullptr, failed)) << "missing";
  EXPECT_FALSE(failed);
}

// The length of a file that has grown may be lost, and any of its new sectors.
TEST_F(JournalTest, FitsAFileThatDidNotGrowYet) {
  lengths_[1] = {700, kPageBytes - 100};
  std::fill(old_.begin() + 700, old_.end(), std::byte{});
  for (std::size_t i = 0; i < kSectorsOfPage; ++i) {
    before_[i] = HashOf(old_.data() + i * kSectorBytes, kSectorBytes);
  }
  std::fill(second_.end() - 100, second_.end(), std::byte{});
  {
    auto const file = Open("/j");
    JournalWriter writer(*file);
    ASSERT_TRUE(writer.Append({{1, 0, 0xFE, before_.data(), second_.data()}}, lengths_));
  }
  auto const journal = Read();
  for (std::size_t length = 700; length <= kPageBytes - 100; length += 33) {
    for (bool isNew : {false, true}) {
      Bytes().assign(old_.begin(), old_.begin() + 512);
      auto const& rest = isNew ? second_ : old_;
      Bytes().insert(Bytes().end(), rest.begin() + 512, rest.begin() + static_cast<long>(length));
      ASSERT_TRUE(Fits(*journal)) << length << isNew;
      if (length == 700) {
        // It was completed as far as the next sector, but what it had there was not written.
        Bytes().resize(1024);
        ASSERT_TRUE(Fits(*journal)) << isNew;
      }
      ASSERT_TRUE(Journal::Complete(*journal->Of(1), *Open("/f")));
      ASSERT_EQ(Bytes().size(), kPageBytes - 100);
      ASSERT_TRUE(std::equal(Bytes().begin() + 512, Bytes().end(), second_.begin() + 512));
    }
  }
}

TEST_F(JournalTest, CutOffAtEachByteItEndsWithAWholeCommit) {
  Write();
  auto const whole = files_.Contents("/j");
  for (std::size_t length = 0; length <= whole.size(); ++length) {
    files_.Contents("/j").assign(whole.begin(), whole.begin() + static_cast<long>(length));
    auto const journal = Read();
    ASSERT_EQ(journal.has_value(), length >= end_) << length;
    if (!journal) continue;
    std::size_t const versions = journal->Of(1)->sectors.at(1).versions.size();
    ASSERT_EQ(versions, length == whole.size() ? 2U : 1U) << length;
  }
}

TEST_F(JournalTest, EachFlippedBitEndsTheChainBeforeItsCommit) {
  Write();
  auto const whole = files_.Contents("/j");
  for (std::size_t bit = 0; bit < whole.size() * 8; ++bit) {
    auto& bytes = files_.Contents("/j");
    bytes[bit / 8] ^= static_cast<std::byte>(1U << bit % 8);
    auto const journal = Read();
    ASSERT_EQ(journal.has_value(), bit / 8 >= end_) << bit;
    if (journal) {
      ASSERT_EQ(journal->Of(1)->sectors.at(1).versions.size(), 1U) << bit;
    }
    bytes[bit / 8] ^= static_cast<std::byte>(1U << bit % 8);
  }
}

// Counts, numbers and lengths at their limits, with a seal that fits them.
TEST_F(JournalTest, SealedNonsenseIsNotACommit) {
  struct {
    std::size_t at;
    int size;
    std::uint64_t number;
  } const kWrong[] = {{16, 8, 0},           {16, 8, UINT64_MAX},  {16, 8, 1055},
                      {24, 8, 0},           {24, 8, 2},           {32, 8, UINT64_MAX},
                      {40, 8, UINT64_MAX},  {40, 8, 1ULL << 43},  {176, 4, 0},
                      {176, 4, 10},         {176, 4, 2},          {176, 4, UINT32_MAX},
                      {180, 4, 0},          {180, 4, 0x182},      {180, 4, 0xFF},
                      {180, 4, UINT32_MAX}, {184, 8, UINT64_MAX}, {184, 8, 1ULL << 40}};
  for (auto const& wrong : kWrong) {
    files_.Remove("/j");
    {
      auto const file = Open("/j");
      JournalWriter writer(*file);
      ASSERT_TRUE(writer.Append({{1, 0, 0x82, before_.data(), first_.data()}}, lengths_));
    }
    auto& bytes = files_.Contents("/j");
    for (int i = 0; i < wrong.size; ++i) {
      bytes[wrong.at + static_cast<std::size_t>(i)] =
          static_cast<std::byte>(wrong.number >> (8 * i) & 0xFFU);
    }
    std::size_t const pages = bytes.size() - 176 - 8;
    std::uint64_t const seal = HashOf(bytes.data() + 176, pages, HashOf(bytes.data(), 176, 0));
    for (std::size_t i = 0; i < 8; ++i) {
      bytes[bytes.size() - 8 + i] = static_cast<std::byte>(seal >> (8 * i) & 0xFFU);
    }
    EXPECT_FALSE(Read()) << wrong.at << " " << wrong.number;
  }
}

TEST_F(JournalTest, RestartedJournalIsEmpty) {
  Write();
  {
    auto const file = Open("/j");
    JournalWriter writer(*file);
    ASSERT_TRUE(writer.Restart());
    EXPECT_EQ(file->Size(), 0U);
    EXPECT_FALSE(Read());
    ASSERT_TRUE(writer.Append({{1, 0, 0x82, before_.data(), first_.data()}}, lengths_));
  }
  EXPECT_TRUE(Read()) << "begins anew";
}

}  // namespace
}  // namespace zel

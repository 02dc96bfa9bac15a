// Commits of two files that are cut off, among them those in which the journal has become long and
// begins anew.
#include <gtest/gtest.h>

#include <array>
#include <random>
#include <vector>

#include "store/held_writes.h"
#include "store/unfinished_flush.h"
#include "tests/support/crash_file_system.h"

namespace zel {
namespace {

using platform::OpenMode;
using test::CrashFileSystem;
using Image = CrashFileSystem::Image;

constexpr char kFirst[] = "/c.lb1";
constexpr char kSecond[] = "/c.lb2";

class HeldCrashTest : public ::testing::Test {
 protected:
  // Makes commits of up to a megabyte and a half until the journal has begun anew some times.
  void Run(bool isPowerCut) {
    constexpr int kCommits = 30;
    system_.Load({{kFirst, Image::mapped_type(300'000)}, {kSecond, Image::mapped_type(5000)}});
    HeldWrites held(system_, JournalOf(kFirst), kFirst);
    std::array files = {held.Hold(1, system_.Open(kFirst, OpenMode::kUpdate).file),
                        held.Hold(2, system_.Open(kSecond, OpenMode::kUpdate).file)};
    flushed_ = system_.AfterKill();
    system_.atMoment = [&] { AtMoment(isPowerCut); };
    std::uint64_t before = 0;
    for (int i = 0; i < kCommits; ++i) {
      next_ = flushed_;
      for (int k = 0; k < 12; ++k) Write(*files[random_() % 2]);
      ASSERT_TRUE(held.Commit());
      flushed_ = next_;
      std::uint64_t const length = system_.AfterKill()[JournalOf(kFirst)].size();
      if (length < before) ++restarts_;
      before = length;
    }
    held.End();
    system_.atMoment = nullptr;
    Image const end = system_.AfterKill();
    EXPECT_TRUE(end == flushed_) << "and no journal";
  }
  void Write(platform::BlockFile& file) {
    char const* const name = static_cast<HeldFile&>(file).Number() == 1 ? kFirst : kSecond;
    std::size_t const offset = random_() % 1'000'000;
    CrashFileSystem::Bytes bytes(random_() % 120'000 + 1);
    // Few different bytes, so that sectors often become what they were.
    for (std::size_t at = 0; at < bytes.size(); at += 512) {
      bytes[at] = static_cast<std::byte>(random_() % 3);
    }
    ASSERT_EQ(file.WriteAt(offset, bytes.data(), bytes.size()),
              static_cast<std::int64_t>(bytes.size()));
    auto& expected = next_[name];
    expected.resize(std::max(expected.size(), offset + bytes.size()));
    std::copy(bytes.begin(), bytes.end(), expected.begin() + static_cast<std::ptrdiff_t>(offset));
  }
  void AtMoment(bool isPowerCut) {
    constexpr std::uint64_t kOneOf = 20;
    // The few moments at which files are synced or cut are all of interest.
    bool const isRare = system_.Syncs() != syncs_;
    syncs_ = system_.Syncs();
    if (!isRare && random_() % kOneOf != 0) return;
    Image image = isPowerCut ? system_.AfterPowerCut(random_) : system_.AfterKill();
    CrashFileSystem left;
    left.Load(image);
    UnfinishedFlush unfinished(left, kFirst);
    ASSERT_EQ(unfinished.Look(), platform::OpenOutcome::kOk);
    ASSERT_NE(unfinished.Found(), UnfinishedFlush::State::kForeign) << images_;
    if (unfinished.Found() == UnfinishedFlush::State::kThere) {
      ASSERT_EQ(unfinished.Complete(), platform::OpenOutcome::kOk);
    }
    image = left.AfterKill();
    image.erase(JournalOf(kFirst));
    ASSERT_TRUE(image == flushed_ || image == next_) << images_;
    ++images_;
  }

  CrashFileSystem system_;
  CrashFileSystem::Random random_{11};
  Image flushed_;
  Image next_;
  int restarts_ = 0;
  int images_ = 0;
  long syncs_ = 0;
};

TEST_F(HeldCrashTest, KillsLeaveACommit) {
  Run(false);
  EXPECT_GT(restarts_, 0);
  EXPECT_GT(images_, 60);
}

TEST_F(HeldCrashTest, PowerCutsLeaveACommit) {
  Run(true);
  EXPECT_GT(restarts_, 0);
  EXPECT_GT(images_, 60);
}

// A reader could not open the library if the journal has changes of a file that is not there.
TEST_F(HeldCrashTest, NewFilesAreThereBeforeTheJournalHasThem) {
  system_.Load({{kFirst, Image::mapped_type(3000)}});
  HeldWrites held(system_, JournalOf(kFirst), kFirst);
  std::array files = {held.Hold(1, system_.Open(kFirst, OpenMode::kUpdate).file),
                      held.Hold(2, system_.Open(kSecond, OpenMode::kCreate).file)};
  int withJournal = 0;
  system_.atMoment = [&] {
    for (int i = 0; i < 20; ++i) {
      Image const image = system_.AfterPowerCut(random_);
      CrashFileSystem left;
      left.Load(image);
      UnfinishedFlush unfinished(left, kFirst);
      ASSERT_EQ(unfinished.Look(), platform::OpenOutcome::kOk);
      if (unfinished.Found() != UnfinishedFlush::State::kThere) continue;
      ++withJournal;
      ASSERT_EQ(image.count(kSecond), 1U);
    }
  };
  std::array<std::byte, 600> bytes;
  bytes.fill(std::byte{7});
  for (auto const& file : files) ASSERT_EQ(file->WriteAt(100, bytes.data(), bytes.size()), 600);
  ASSERT_TRUE(held.Commit());
  held.End();
  system_.atMoment = nullptr;
  EXPECT_GT(withJournal, 10);
}

}  // namespace
}  // namespace zel

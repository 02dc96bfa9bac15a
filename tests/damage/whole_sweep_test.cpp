// Every bit of a library flipped, and its files cut at every length: nothing crashes or hangs, and
// damage in one item affects only that item.
//
// Words that no node uses are sampled by one bit each, and under the sanitizers only some of the
// images are tested. The long run tests every bit and every length:
//   ZEL_DAMAGE_ALL=1 build/release/tests/damage_test
#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>

#include "store/format.h"
#include "tests/support/sample_library.h"
#include "tests/support/sanitizers.h"

namespace zel {
namespace {

using test::Finding;
using test::MemoryFileSystem;
using Bytes = MemoryFileSystem::Bytes;

#if ZEL_ADDRESS_SANITIZER || ZEL_THREAD_SANITIZER
constexpr std::size_t kStride = 23;
#else
constexpr std::size_t kStride = 1;
#endif

bool All() { return std::getenv("ZEL_DAMAGE_ALL") != nullptr; }
std::size_t Stride() { return All() ? 1 : kStride; }

std::int32_t WordAt(Bytes const& bytes, std::size_t index) {
  std::int32_t word = 0;
  std::memcpy(&word, bytes.data() + 4 * index, 4);
  return word;
}

class SweepTest : public ::testing::Test {
 protected:
  void SetUp() override {
    test::MakeSampleLibrary(files_);
    whole_ = test::ReadEverything(files_);
    ASSERT_EQ(whole_.openError, 0);
    ASSERT_FALSE(whole_.threw);
    ASSERT_EQ(whole_.banks.size(), 55U);
  }

  static void Flip(Bytes& bytes, std::size_t word, int bit) {
    bytes[4 * word + static_cast<std::size_t>(bit / 8)] ^= static_cast<std::byte>(1 << (bit % 8));
  }

  MemoryFileSystem files_;
  Finding whole_;
};

TEST_F(SweepTest, EveryBitOfTheFirstFile) {
  Bytes& bytes = files_.Contents(test::kSamplePath);
  for (std::size_t i = 0; i < bytes.size() * 8; i += Stride()) {
    Flip(bytes, i / 32, static_cast<int>(i % 32));
    test::ReadEverything(files_);
    Flip(bytes, i / 32, static_cast<int>(i % 32));
  }
}

TEST_F(SweepTest, EveryUsedBitOfTheNodes) {
  Bytes& bytes = files_.Contents(test::kSamplePath2);
  std::size_t image = 0;
  for (bool views : {true, false}) {
    files_.ServeViews(views);
    for (std::size_t word = 0; word < bytes.size() / 4; ++word) {
      // A zero word is hardly ever in use; one of its bits represents all of them in the fast run.
      bool const used = WordAt(bytes, word) != 0 || All();
      std::size_t const step = views ? Stride() : Stride() * 7;
      for (int bit = used ? 0 : static_cast<int>(word % 32); bit < 32; ++bit) {
        if (++image % step == 0) {
          Flip(bytes, word, bit);
          test::ReadEverything(files_);
          Flip(bytes, word, bit);
        }
        if (!used) break;
      }
    }
  }
  EXPECT_EQ(test::ReadEverything(files_).banks, whole_.banks);
}

TEST_F(SweepTest, FlipInTheWordsOfAnItemChangesThatItemAlone) {
  Bytes& bytes = files_.Contents(test::kSamplePath2);
  int itemNodes = 0;
  for (std::size_t block = 0; block < bytes.size() / 4000; ++block) {
    std::size_t const node = block * 1000;
    std::int32_t const key = WordAt(bytes, node + 5);
    bool const isItemLeaf =
        WordAt(bytes, node) == 1 && ((key >= 100 && key < 1000) || key == test::kSampleComponent);
    if (!isItemLeaf) continue;
    ++itemNodes;
    // The link right of the entry ends it.
    std::size_t end = node + 6;
    while (WordAt(bytes, end) != format::kNullAddress) ++end;
    for (std::size_t word = node + 9; word < end; ++word) {  // after up to four key words
      for (int bit = 0; bit < 32; bit += Stride() == 1 ? 1 : 5) {
        Flip(bytes, word, bit);
        Finding const found = test::ReadEverything(files_);
        Flip(bytes, word, bit);
        ASSERT_EQ(found.openError, 0);
        ASSERT_FALSE(found.threw);
        ASSERT_EQ(found.banks.size(), whole_.banks.size());
        int changed = 0;
        for (auto const& [bank, text] : whole_.banks) changed += found.banks.at(bank) != text;
        ASSERT_LE(changed, 1);
      }
    }
  }
  EXPECT_EQ(itemNodes, 55);
}

// The blocks of a component are in the first file: main, correlation and structure block.
TEST_F(SweepTest, FlipInTheBlocksOfAComponentChangesThatComponentAlone) {
  Bytes& bytes = files_.Contents(test::kSamplePath);
  auto const wordsFrom = [](std::int32_t address) {
    auto const block = static_cast<std::size_t>(address % format::kFileFactor);
    return (block - 1) * static_cast<std::size_t>(format::kBlockWordsOfFile1);
  };
  std::size_t const main = wordsFrom(test::SampleComponentAddress(files_));
  ASSERT_EQ(WordAt(bytes, main), test::kSampleComponent);
  struct Run {
    std::size_t word, count;
  };
  Run const runs[] = {{main, 250},
                      {wordsFrom(WordAt(bytes, main + 95)), 400},
                      {wordsFrom(WordAt(bytes, main + 98)), 126}};
  int images = 0;
  int changedAtAll = 0;
  for (Run const& run : runs) {
    for (std::size_t word = run.word; word < run.word + run.count; ++word) {
      for (int bit = 0; bit < 32; bit += Stride() == 1 ? 1 : 5) {
        Flip(bytes, word, bit);
        Finding const found = test::ReadEverything(files_);
        Flip(bytes, word, bit);
        ++images;
        ASSERT_EQ(found.openError, 0);
        ASSERT_EQ(found.banks.size(), whole_.banks.size());
        for (auto const& [bank, text] : whole_.banks) {
          bool const changed = found.banks.at(bank) != text;
          ASSERT_TRUE(!changed || bank == "PURECOMP:B1") << bank << " word " << word;
          changedAtAll += changed;
        }
      }
    }
  }
  EXPECT_GT(changedAtAll, images / 3) << "the flips were seen";
}

TEST_F(SweepTest, EveryLengthOfEachFile) {
  for (char const* path : {test::kSamplePath, test::kSamplePath2}) {
    Bytes const original = files_.Contents(path);
    std::size_t const step = path == test::kSamplePath || All() ? Stride() : Stride() * 5;
    for (std::size_t size = 0; size < original.size(); size += step) {
      files_.Contents(path).resize(size);
      test::ReadEverything(files_);
      files_.Contents(path) = original;
    }
  }
}

}  // namespace
}  // namespace zel

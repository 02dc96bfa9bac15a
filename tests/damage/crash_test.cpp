// Sessions that are cut off at random moments; crash_images makes many more of them.
#include <gtest/gtest.h>

#include "tests/support/crash_trial.h"

namespace zel::test {
namespace {

constexpr long kImages = 250;
constexpr std::uint64_t kSeed = 20;

TEST(CrashTest, HeldBackWritesLoseNothingThatWasFlushed) {
  for (Crash const crash : {Crash::kKill, Crash::kPowerCut}) {
    CrashCounts const counts = CrashSessions(writesHeld, crash, kImages, kSeed);
    EXPECT_EQ(counts.images, kImages);
    EXPECT_GT(counts.flushed, 100 * kImages);
    EXPECT_EQ(counts.lost, 0);
    EXPECT_EQ(counts.between, 0);
    EXPECT_EQ(counts.damaged, 0);
    EXPECT_GT(counts.completed, kImages / 2);
    EXPECT_GT(counts.cutAgain, kImages / 10);
  }
}

// The same judgement finds what plain writes lose.
TEST(CrashTest, PlainWritesLoseItems) {
  CrashCounts const killed = CrashSessions(writesPlain, Crash::kKill, kImages, kSeed);
  EXPECT_GT(killed.lost, 0);
  EXPECT_GT(killed.between, 0);
  CrashCounts const cut = CrashSessions(writesPlain, Crash::kPowerCut, kImages, kSeed);
  EXPECT_GT(cut.lost, killed.lost);
  EXPECT_GT(cut.damaged, 0);
}

}  // namespace
}  // namespace zel::test

// Cuts sessions off at random moments, by a kill of the program and by a power cut, with plain and
// with held-back writes, opens what is left, and prints how many items that were flushed are lost.
// Everything is in memory. Fails if a session with held-back writes loses one, or is neither as
// after the last flush nor as after the one under way.
//   crash_images [--count <images of each kind>] [--seed <number>]
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <initializer_list>

#include "tests/long/long_options.h"
#include "tests/support/crash_trial.h"

namespace zel::test {
namespace {

void Print(char const* writes, char const* crash, CrashCounts const& c) {
  double const share =
      c.flushed == 0 ? 0.0 : 100.0 * static_cast<double>(c.lost) / static_cast<double>(c.flushed);
  std::printf("%s, %s: %ld images of %ld sessions, %ld of them cut off in a flush\n", writes, crash,
              c.images, c.sessions, c.inFlush);
  std::printf("  flushed items %ld, lost %ld (%.2f %%)\n", c.flushed, c.lost, share);
  std::printf(
      "  images between two flushes %ld, not readable %ld, damaged %ld; flushes completed "
      "by the open %ld, cut off again %ld\n",
      c.between, c.unread, c.damaged, c.completed, c.cutAgain);
}

int Run(long count, std::uint64_t seed) {
  bool good = true;
  for (Crash const crash : {Crash::kKill, Crash::kPowerCut}) {
    char const* const name = crash == Crash::kKill ? "killed" : "power cut";
    Print("plain writes", name, CrashSessions(writesPlain, crash, count, seed));
    CrashCounts const held = CrashSessions(writesHeld, crash, count, seed);
    Print("held-back writes", name, held);
    good = good && held.lost == 0 && held.between == 0 && held.damaged == 0;
  }
  return good ? 0 : 1;
}

}  // namespace
}  // namespace zel::test

int main(int argc, char** argv) {
  long count = 10'000;
  std::uint64_t seed = 1;
  bool const good = zel::test::ReadOptions(
      argc, argv,
      {{"--count", [&](char const* word) { count = std::atol(word); }},
       {"--seed", [&](char const* word) { seed = std::strtoull(word, nullptr, 10); }}});
  if (!good) return 2;
  try {
    return zel::test::Run(count, seed);
  } catch (std::exception const& error) {
    std::fprintf(stderr, "%s\n", error.what());
  } catch (unsigned long address) {
    std::fprintf(stderr, "block %lu\n", address);
  }
  return 2;
}

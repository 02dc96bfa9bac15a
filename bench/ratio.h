// Ratios of running times: project and peer in turn, in one run.
//
// A single time says as much about the machine and its other load as about the code. So a
// comparison consists of rounds: in each the peer runs, then the project, on the same keys, and the
// round yields one ratio. The median of the round ratios is the result; the quartiles show how far
// to trust it. The first round warms caches and is dropped.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "bench/run_file.h"

namespace zel::bench {

// One side's part of a round: nanoseconds per operation, or what the comparison's unit says.
// `check` summarizes the results: both sides must have the same.
struct Timing {
  double figure;
  std::uint64_t check;
};
using Side = std::function<Timing(int round)>;

// The reading of a clock, in nanoseconds.
double WallTime() noexcept;
double ThreadTime() noexcept;  // of the processor, for this thread

// Times `run`, which performs `operations` operations and returns their check. By the wall clock,
// for work that can wait for the file system.
template <typename Run>
Timing Time(std::size_t operations, Run const& run, double (*clock)() noexcept = WallTime) {
  double const start = clock();
  std::uint64_t const check = run();
  return {(clock() - start) / static_cast<double>(operations), check};
}

// By processor time, for work on data in memory, which waits for nothing: other work on the machine
// then does not count.
template <typename Run>
Timing TimeInMemory(std::size_t operations, Run const& run) {
  return Time(operations, run, ThreadTime);
}

// The limit of a ratio, or of the project's own figure.
struct Target {
  enum class Kind { kNone, kRatio, kFigure } kind = Kind::kNone;
  double limit = 0.0;

  static Target None() { return {}; }
  static Target Ratio(double limit) { return {Kind::kRatio, limit}; }
  static Target Figure(double limit) { return {Kind::kFigure, limit}; }
};

struct Comparison {
  std::string what;
  std::string peerName;
  Side peer;
  Side project;
  Target target;
  char const* unit = "ns";  // of the figures of both sides
  int mostRounds = 1000;    // for figures that take long and hardly differ between rounds
};

class RatioTable {
 public:
  RatioTable(int rounds, bool markdown) : rounds_(rounds), markdown_(markdown) {}

  // Prints the titles. A row is printed for each comparison as it is made.
  void PrintTitles() const;
  // Throws when the two sides disagree on their results.
  void Compare(Comparison const& comparison);
  int Missed() const noexcept { return missed_; }
  // What was compared so far.
  std::vector<RunRow> const& Rows() const noexcept { return rows_; }

 private:
  void PrintRow(RunRow const& row, Target const& target) const;

  int rounds_;
  bool markdown_;
  int missed_ = 0;
  std::vector<RunRow> rows_;
};

}  // namespace zel::bench

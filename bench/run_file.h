// The figures of a run of the benchmarks as a file, and what differs between two runs.
//
// Runs are compared by their ratios to the peers, which depend less on the machine than times do.
#pragma once

#include <string>
#include <vector>

namespace zel::bench {

// One comparison of a run.
struct RunRow {
  std::string what;
  std::string peer;
  std::string unit;  // of the two figures: "ns" per operation, "KB", "bytes"
  double project = 0.0;
  double peerFigure = 0.0;
  double ratio = 0.0;  // median over the rounds, with the quartiles
  double lowerQuartile = 0.0;
  double upperQuartile = 0.0;
};

struct BenchRun {
  std::string commit;
  std::string date;       // UTC, as 2026-01-31T12:00:00Z
  std::string processor;  // the name that the system reports
  int rounds = 0;
  std::vector<RunRow> rows;
};

// Throw std::runtime_error, with the path, when the file cannot be read, is not a run, or cannot be
// written.
BenchRun ReadRun(std::string const& path);
void WriteRun(BenchRun const& run, std::string const& path);
// The present time and this machine, for the run that is being made.
std::string TimeNow();
std::string ProcessorName();

// How a row of a run compares with the row of the same title and peer of an older run.
// "Missing" rows are only in the older run, "new" ones only in the later one.
enum class Change { kSame, kSlower, kFaster, kMissing, kNew };
struct RowChange {
  Change change = Change::kSame;
  RunRow before;  // of a new row: empty
  RunRow after;   // of a missing row: empty
  double noise = 0.0;
};

// The difference of two ratios that counts as noise: the spread between the rounds of both runs,
// from quartile to quartile, and at least kLeastNoise of the older ratio: from run to run,
// places in memory and other programs differ too.
inline constexpr double kLeastNoise = 0.05;
double NoiseOf(RunRow const& before, RunRow const& after);

std::vector<RowChange> ChangesOf(BenchRun const& before, BenchRun const& after);
// One line for each row that is not the same, then the counts; ends with a line feed.
std::string TextOf(BenchRun const& before, std::vector<RowChange> const& changes);
// The status of a program that compared: 1 when something got slower.
int StatusOf(std::vector<RowChange> const& changes);

}  // namespace zel::bench

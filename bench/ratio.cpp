#include "bench/ratio.h"

#include <time.h>

#include <algorithm>
#include <cstdio>
#include <stdexcept>

namespace zel::bench {
namespace {

constexpr char kTextTitles[] = "%-44s %-14s %10s %10s %6s  %-13s %9s  %s\n";
constexpr char kTextRow[] = "%-44s %-14s %7.4g %s %7.4g %s %6.2f  %5.2f..%-5.2f  %9s  %s\n";
constexpr char kMarkdownTitles[] = "| %s | %s | %s | %s | %s | %s | %s | %s |\n";
constexpr char kMarkdownRow[] = "| %s | %s | %.4g %s | %.4g %s | %.2f | %.2f to %.2f | %s | %s |\n";

double Read(clockid_t clock) noexcept {
  constexpr double kSecond = 1e9;
  timespec now{};
  ::clock_gettime(clock, &now);
  return static_cast<double>(now.tv_sec) * kSecond + static_cast<double>(now.tv_nsec);
}

// A quantile of sorted values; `part` is from 0 to 1.
double Quantile(std::vector<double> const& sorted, double part) {
  double const at = part * static_cast<double>(sorted.size() - 1);
  auto const below = static_cast<std::size_t>(at);
  std::size_t const above = std::min(below + 1, sorted.size() - 1);
  return sorted[below] + (at - static_cast<double>(below)) * (sorted[above] - sorted[below]);
}

double Median(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  return Quantile(values, 0.5);
}

bool IsMissed(RunRow const& row, Target const& target) noexcept {
  double const reached = target.kind == Target::Kind::kRatio ? row.ratio : row.project;
  return target.kind != Target::Kind::kNone && reached > target.limit;
}

char const* Verdict(RunRow const& row, Target const& target) noexcept {
  if (target.kind == Target::Kind::kNone) return "";
  return IsMissed(row, target) ? "missed" : "met";
}

std::string TextOf(Target const& target, std::string const& unit) {
  char text[32] = "";
  if (target.kind == Target::Kind::kRatio) std::snprintf(text, sizeof text, "%.2f", target.limit);
  if (target.kind == Target::Kind::kFigure) {
    std::snprintf(text, sizeof text, "%.4g %s", target.limit, unit.c_str());
  }
  return text;
}

}  // namespace

double WallTime() noexcept { return Read(CLOCK_MONOTONIC); }
double ThreadTime() noexcept { return Read(CLOCK_THREAD_CPUTIME_ID); }

void RatioTable::PrintTitles() const {
  std::printf(markdown_ ? kMarkdownTitles : kTextTitles, "Case", "Peer", "Project", "Peer takes",
              "Ratio", "Quartiles", "At most", "Target");
  if (markdown_) std::printf("|---|---|---:|---:|---:|---|---:|---|\n");
  std::fflush(stdout);
}

void RatioTable::PrintRow(RunRow const& row, Target const& target) const {
  std::printf(markdown_ ? kMarkdownRow : kTextRow, row.what.c_str(), row.peer.c_str(), row.project,
              row.unit.c_str(), row.peerFigure, row.unit.c_str(), row.ratio, row.lowerQuartile,
              row.upperQuartile, TextOf(target, row.unit).c_str(), Verdict(row, target));
  std::fflush(stdout);
}

void RatioTable::Compare(Comparison const& comparison) {
  std::vector<double> peers;
  std::vector<double> projects;
  std::vector<double> ratios;
  for (int round = 0; round <= std::min(rounds_, comparison.mostRounds); ++round) {
    Timing const peer = comparison.peer(round);
    Timing const project = comparison.project(round);
    if (peer.check != project.check) {
      throw std::runtime_error(comparison.what + ": " + comparison.peerName +
                               " and the project give different results");
    }
    if (round == 0) continue;
    peers.push_back(peer.figure);
    projects.push_back(project.figure);
    ratios.push_back(project.figure / peer.figure);
  }
  std::sort(ratios.begin(), ratios.end());
  rows_.push_back({comparison.what, comparison.peerName, comparison.unit, Median(projects),
                   Median(peers), Quantile(ratios, 0.5), Quantile(ratios, 0.25),
                   Quantile(ratios, 0.75)});
  missed_ += IsMissed(rows_.back(), comparison.target) ? 1 : 0;
  PrintRow(rows_.back(), comparison.target);
}

}  // namespace zel::bench

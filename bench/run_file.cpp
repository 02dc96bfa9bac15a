#include "bench/run_file.h"

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <fstream>
#include <nlohmann/json.hpp>
#include <stdexcept>

namespace zel::bench {
namespace {

using Json = nlohmann::ordered_json;

Json JsonOf(RunRow const& row) {
  return {{"case", row.what},
          {"peer", row.peer},
          {"unit", row.unit},
          {"project", row.project},
          {"peerFigure", row.peerFigure},
          {"ratio", row.ratio},
          {"lowerQuartile", row.lowerQuartile},
          {"upperQuartile", row.upperQuartile}};
}

RunRow RowOf(Json const& json) {
  RunRow row;
  json.at("case").get_to(row.what);
  json.at("peer").get_to(row.peer);
  json.at("unit").get_to(row.unit);
  json.at("project").get_to(row.project);
  json.at("peerFigure").get_to(row.peerFigure);
  json.at("ratio").get_to(row.ratio);
  json.at("lowerQuartile").get_to(row.lowerQuartile);
  json.at("upperQuartile").get_to(row.upperQuartile);
  return row;
}

RunRow const* RowOf(BenchRun const& run, RunRow const& like) {
  auto const at = std::find_if(run.rows.begin(), run.rows.end(), [&](RunRow const& row) {
    return row.what == like.what && row.peer == like.peer;
  });
  return at == run.rows.end() ? nullptr : &*at;
}

RowChange ChangeOf(RunRow const& before, RunRow const& after) {
  RowChange result{Change::kSame, before, after, NoiseOf(before, after)};
  double const difference = after.ratio - before.ratio;
  if (difference > result.noise) result.change = Change::kSlower;
  if (difference < -result.noise) result.change = Change::kFaster;
  return result;
}

std::string LineOf(RowChange const& row) {
  char figures[160] = "";
  switch (row.change) {
    case Change::kSame: return {};
    case Change::kMissing:
      return "missing  " + row.before.what + ", " + row.before.peer + ": not in this run\n";
    case Change::kNew:
      return "new      " + row.after.what + ", " + row.after.peer + ": not in the older run\n";
    case Change::kSlower:
    case Change::kFaster: break;
  }
  std::snprintf(figures, sizeof figures, ": ratio %.3f, was %.3f (%+.0f%%, noise %.0f%%)\n",
                row.after.ratio, row.before.ratio,
                100.0 * (row.after.ratio / row.before.ratio - 1.0),
                100.0 * row.noise / row.before.ratio);
  return std::string(row.change == Change::kSlower ? "slower   " : "faster   ") + row.after.what +
         ", " + row.after.peer + figures;
}

long CountOf(std::vector<RowChange> const& changes, Change change) {
  return std::count_if(changes.begin(), changes.end(),
                       [&](RowChange const& row) { return row.change == change; });
}

}  // namespace

BenchRun ReadRun(std::string const& path) {
  std::ifstream file(path);
  if (!file) throw std::runtime_error(path + ": cannot be read");
  try {
    Json const json = Json::parse(file);
    BenchRun run;
    json.at("commit").get_to(run.commit);
    json.at("date").get_to(run.date);
    json.at("processor").get_to(run.processor);
    json.at("rounds").get_to(run.rounds);
    for (Json const& row : json.at("rows")) run.rows.push_back(RowOf(row));
    return run;
  } catch (Json::exception const& failure) {
    throw std::runtime_error(path + ": is not a run of the benchmarks: " + failure.what());
  }
}

void WriteRun(BenchRun const& run, std::string const& path) {
  Json json = {{"commit", run.commit},
               {"date", run.date},
               {"processor", run.processor},
               {"rounds", run.rounds},
               {"rows", Json::array()}};
  for (RunRow const& row : run.rows) json["rows"].push_back(JsonOf(row));
  std::ofstream file(path);
  file << json.dump(1) << '\n';
  file.close();
  if (!file) throw std::runtime_error(path + ": cannot be written");
}

std::string TimeNow() {
  std::time_t const now = std::time(nullptr);
  std::tm utc{};
  char text[32] = "";
  if (::gmtime_r(&now, &utc) != nullptr) {
    std::strftime(text, sizeof text, "%Y-%m-%dT%H:%M:%SZ", &utc);
  }
  return text;
}

std::string ProcessorName() {
  std::ifstream system("/proc/cpuinfo");
  for (std::string line; std::getline(system, line);) {
    std::size_t const colon = line.find(": ");
    if (line.rfind("model name", 0) == 0 && colon != line.npos) return line.substr(colon + 2);
  }
  return "unknown";
}

double NoiseOf(RunRow const& before, RunRow const& after) {
  double const spread =
      (before.upperQuartile - before.lowerQuartile) + (after.upperQuartile - after.lowerQuartile);
  return std::max(spread, kLeastNoise * before.ratio);
}

std::vector<RowChange> ChangesOf(BenchRun const& before, BenchRun const& after) {
  std::vector<RowChange> changes;
  for (RunRow const& row : after.rows) {
    RunRow const* const old = RowOf(before, row);
    changes.push_back(old == nullptr ? RowChange{Change::kNew, {}, row} : ChangeOf(*old, row));
  }
  for (RunRow const& row : before.rows) {
    if (RowOf(after, row) == nullptr) changes.push_back({Change::kMissing, row, {}});
  }
  return changes;
}

std::string TextOf(BenchRun const& before, std::vector<RowChange> const& changes) {
  std::string text =
      "Compared with " + before.commit + " of " + before.date + " on " + before.processor + ":\n";
  for (RowChange const& row : changes) text += LineOf(row);
  char counts[160];
  std::snprintf(counts, sizeof counts, "%ld slower, %ld faster, %ld within the noise\n",
                CountOf(changes, Change::kSlower), CountOf(changes, Change::kFaster),
                CountOf(changes, Change::kSame));
  return text + counts;
}

int StatusOf(std::vector<RowChange> const& changes) {
  return CountOf(changes, Change::kSlower) > 0 ? 1 : 0;
}

}  // namespace zel::bench

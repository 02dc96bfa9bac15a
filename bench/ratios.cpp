// bench_ratios: the project compared with its peers, as ratios; see docs/performance.md.
#include <lmdb.h>
#include <sqlite3.h>

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "bench/own_folder.h"
#include "bench/ratio_cases.h"

namespace {

constexpr char kUsage[] =
    "usage: bench_ratios "
    "[--only=reads|loads|deletes|itemreads|itemwrites|itemdeletes|banks|\n"
    "                            "
    "opens|trims|components|evaluation|fillins|imports|exports|lists|host|growth]\n"
    "                    [--items=N] [--rounds=N] [--folder=DIR] [--markdown]\n"
    "                    [--keep=FILE] [--commit=TEXT] [--against=FILE]\n"
    "  --only      one group of comparisons instead of all but growth, which takes long\n"
    "  --items     this number of items instead of 10000, 100000 and 1000000\n"
    "  --rounds    rounds that count, 11 unless told\n"
    "  --folder    where the files are made, the system's temporary folder unless told\n"
    "  --markdown  the table as Markdown\n"
    "  --keep      the figures are written to this file\n"
    "  --commit    what the file says was measured\n"
    "  --against   a file of an older run: what is slower or faster than in it, by more than the\n"
    "              noise between rounds; exit status 1 if anything is slower\n";

struct Options {
  std::string only;
  std::size_t items = 0;
  int rounds = 11;
  std::filesystem::path folder = std::filesystem::temp_directory_path();
  bool markdown = false;
  std::string keep;
  std::string commit = "unknown";
  std::string against;
  bool good = true;
};

Options OptionsOf(int count, char** arguments) {
  Options options;
  for (int i = 1; i < count; ++i) {
    std::string_view const argument = arguments[i];
    std::size_t const equals = argument.find('=');
    std::string_view const name = argument.substr(0, equals);
    std::string value(equals == argument.npos ? "" : argument.substr(equals + 1));
    // "--against FILE" is "--against=FILE".
    if (name != "--markdown" && equals == argument.npos && i + 1 < count) value = arguments[++i];
    options.good = options.good && (name == "--markdown" || !value.empty());
    if (name == "--only") {
      options.only = value;
    } else if (name == "--items") {
      options.items = std::strtoul(value.c_str(), nullptr, 10);
    } else if (name == "--rounds") {
      options.rounds = std::atoi(value.c_str());
    } else if (name == "--folder") {
      options.folder = value;
    } else if (name == "--markdown") {
      options.markdown = true;
    } else if (name == "--keep") {
      options.keep = value;
    } else if (name == "--commit") {
      options.commit = value;
    } else if (name == "--against") {
      options.against = value;
    } else {
      options.good = false;
    }
  }
  options.good = options.good && options.rounds > 0;
  return options;
}

void CompareAll(zel::bench::RatioTable& table, Options const& options) {
  using namespace zel::bench;
  OwnFolder const folder(options.folder);
  auto const wanted = [&](char const* group) {
    return options.only.empty() || options.only == group;
  };
  auto const sizes = options.items != 0 ? std::vector<std::size_t>{options.items}
                                        : std::vector<std::size_t>{10'000, 100'000, 1'000'000};
  table.PrintTitles();
  for (std::size_t const items : sizes) {
    if (wanted("reads")) CompareReads(table, folder.Path(), items);
  }
  for (std::size_t const items : sizes) {
    if (wanted("loads")) CompareLoads(table, folder.Path(), items);
  }
  for (std::size_t const items : sizes) {
    if (wanted("deletes")) CompareDeletes(table, folder.Path(), items);
  }
  for (std::size_t const items : sizes) {
    if (wanted("itemreads")) ComparePublicReads(table, folder.Path(), items);
  }
  for (std::size_t const items : sizes) {
    if (wanted("itemwrites")) ComparePublicChanges(table, folder.Path(), items);
  }
  for (std::size_t const items : sizes) {
    if (wanted("itemdeletes")) ComparePublicDeletes(table, folder.Path(), items);
  }
  if (wanted("banks")) CompareManyBanks(table, folder.Path());
  if (wanted("opens")) CompareOpens(table, folder.Path(), sizes.back());
  if (wanted("trims")) CompareTrims(table);
  if (wanted("components")) CompareComponents(table, folder.Path());
  if (wanted("evaluation")) CompareEvaluations(table, folder.Path());
  if (wanted("fillins")) CompareFillIns(table);
  if (wanted("imports")) CompareImports(table, folder.Path());
  if (wanted("exports")) CompareExports(table, folder.Path());
  if (wanted("lists")) CompareLists(table, folder.Path());
  if (wanted("host")) CompareHost(table, folder.Path());
  if (options.only == "growth") CompareGrowth(table, folder.Path(), options.items);
}

int RunAndCompare(Options const& options) {
  using namespace zel::bench;
  // Read first: a file that cannot be read is reported before minutes of work.
  BenchRun const older = options.against.empty() ? BenchRun() : ReadRun(options.against);
  RatioTable table(options.rounds, options.markdown);
  CompareAll(table, options);
  std::printf("\nTargets missed: %d\n", table.Missed());
  BenchRun const run = {options.commit, TimeNow(), ProcessorName(), options.rounds, table.Rows()};
  if (!options.keep.empty()) WriteRun(run, options.keep);
  if (options.against.empty()) return 0;
  std::vector<RowChange> const changes = ChangesOf(older, run);
  std::printf("\n%s", TextOf(older, changes).c_str());
  return StatusOf(changes);
}

}  // namespace

int main(int count, char** arguments) {
  Options const options = OptionsOf(count, arguments);
  if (!options.good) {
    std::fputs(kUsage, stderr);
    return 2;
  }
#ifndef NDEBUG
  std::fputs("Built with assertions: the numbers mean little.\n", stderr);
#endif
  std::printf(
      "Peers: %s; SQLite %s. No one syncs. Ratio: median of %d rounds of peer, project.\n\n",
      mdb_version(nullptr, nullptr, nullptr), sqlite3_libversion(), options.rounds);
  try {
    return RunAndCompare(options);
  } catch (std::exception const& failure) {
    std::fprintf(stderr, "bench_ratios: %s\n", failure.what());
    return 2;
  }
}

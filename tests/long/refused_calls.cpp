// Every public call of the library while memory is refused and operations on files fail: the n-th
// request or operation of each step, n = 1, 2, ... until the step makes fewer; only that one, or
// all from it on. A step ends with the right result or with an error that its functions document.
// Then the same objects are used again, the library is closed and opened, and must be whole and
// hold what it held before the step or what it holds after it.
//
//   refused_calls [--every N] [--only WORD] [--kind WORD]
//
// With --every N one in N is refused. Prints what was done; the exit status is 1 after a fault, and
// when there is a public function that no step calls (refused_coverage.cpp).
#include "tests/long/refused_calls.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <filesystem>
#include <new>

#include "tests/long/long_options.h"

namespace zel::test {
namespace {

namespace fs = std::filesystem;

char now[300] = "";

// Says which step crashed.
void OnSignal(int signal) {
  std::size_t const length = std::strlen(now);
  static_cast<void>(::write(1, now, length) == static_cast<ssize_t>(length));
  std::signal(signal, SIG_DFL);
  std::raise(signal);
}

constexpr Kind kKinds[] = {
    {"memory", {Refused::kMemory, 0, false, ENOMEM, true}},
    {"memory from one on", {Refused::kMemory, 0, true, ENOMEM, true}},
    {"EIO", {Refused::kFiles, 0, false, EIO, true}},
    {"EIO from one on", {Refused::kFiles, 0, true, EIO, true}},
    {"EIO, not mapped", {Refused::kFiles, 0, false, EIO, false}},
    {"EIO from one on, not mapped", {Refused::kFiles, 0, true, EIO, false}},
    {"EINTR, not mapped", {Refused::kFiles, 0, false, EINTR, false}},
    {"short transfer, not mapped", {Refused::kFiles, 0, false, 0, false}},
    {"ENOSPC", {Refused::kGrowth, 0, false, ENOSPC, true}},
    {"ENOSPC from one on", {Refused::kGrowth, 0, true, ENOSPC, true}},
    {"ENOSPC from one on, not mapped", {Refused::kGrowth, 0, true, ENOSPC, false}},
    {"EDQUOT, not mapped", {Refused::kGrowth, 0, false, EDQUOT, false}},
};

struct Options {
  long every = 1;
  std::string only;
  std::string kind;
};

// What is done to a library that is open for update is also done with other modes of writing.
void AddOpenAs(Opens opens, char const* word, unsigned traits, Steps const& steps, Steps& all) {
  for (Step step : steps) {
    if (step.opens != Opens::kUpdate) continue;
    step.name += word;
    step.opens = opens;
    if ((step.traits & (kParts | kImports)) == 0) step.traits |= traits;
    all.push_back(step);
  }
}

Steps AllSteps() {
  Steps all;
  for (Steps (*steps)() : {LibrarySteps, MaintenanceSteps, DocumentSteps}) {
    for (Step const& step : steps()) all.push_back(step);
    AddOpenAs(Opens::kHeld, ", held", kWhole, steps(), all);
  }
  AddOpenAs(Opens::kMarked, ", marked", kPlain, LibrarySteps(), all);
  for (Steps (*steps)() : {OpenSteps, ComponentSteps, BankTypeSteps, ReaderSteps}) {
    for (Step const& step : steps()) all.push_back(step);
  }
  return all;
}

// The process remembers the documents that it read last; from then on an import adds none.
void FillImportStack(std::string const& folder) {
  openErrors error{};
  Handle<LibFile> const library(
      LibFile::OpenLibFile(accUpdate, (folder + "/" + kOtherFile).c_str(), "", error));
  Handle<LibMaint> const maint(LibMaint::NewLibMaint(library.get()));
  for (int i = 0; i < 100; ++i) maint->Import((folder + "/missing.xml").c_str(), false);
}

int Run(Options const& options) {
  fs::path const folder = fs::temp_directory_path() / ("zel_refused_" + std::to_string(::getpid()));
  fs::remove_all(folder);
  fs::create_directories(folder);
  InitZelAccess();
  Steps const steps = AllSteps();
  int wrong = PrintCoverage(steps);
  Trials trials(folder.string());
  FillImportStack(folder.string());
  long next = 0;
  for (Step const& step : steps) {
    if (step.name.find(options.only) == std::string::npos) continue;
    if (!trials.Begin(step)) continue;
    for (Kind const& kind : kKinds) {
      if (std::string(kind.name).find(options.kind) == std::string::npos) continue;
      // Other requests of each step and kind, so that few of them cover many places.
      trials.RunAll(kind, options.every, 1 + next++ * 7 % options.every);
    }
  }
  wrong += trials.Print();
  fs::remove_all(folder);
  return wrong == 0 ? 0 : 1;
}

}  // namespace

void SetNow(Step const& step, char const* kind, long at) {
  std::snprintf(now, sizeof now, "crash or hang in \"%s\", %s, number %ld\n", step.name.c_str(),
                kind, at);
  ::alarm(120);
}

}  // namespace zel::test

int main(int count, char** words) {
  zel::test::Options options;
  bool const good = zel::test::ReadOptions(
      count, words,
      {{"--every", [&](char const* word) { options.every = std::max(1L, std::atol(word)); }},
       {"--only", [&](char const* word) { options.only = word; }},
       {"--kind", [&](char const* word) { options.kind = word; }}});
  if (!good) return 2;
  for (int signal : {SIGSEGV, SIGABRT, SIGALRM, SIGBUS}) std::signal(signal, zel::test::OnSignal);
  return zel::test::Run(options);
}

// diff
#include <memory>
#include <optional>

#include "commands/command.h"
#include "commands/shared_options.h"
#include "desk/compare/library_difference.h"
#include "desk/open/members.h"
#include "desk/open/unfinished_change.h"
#include "output/progress.h"

namespace zelhost {
namespace {

struct Options {
  std::string one;
  std::string other;
  std::string bank;
  bool exitCode = false;
};

Report Diff(Session& session, Options const& o) {
  Library const one = OpenFinished(session, o.one);
  Library const other = OpenFinished(session, o.other);
  std::optional<Progress> progress;
  DifferenceOptions options;
  options.bank = o.bank;
  options.progress = [&](std::string const& bank, std::size_t items) {
    if (bank.empty()) return progress->Step();
    progress.reset();
    progress.emplace("comparing " + bank, items);
  };
  Table table = DifferencesOf(one, other, options);
  progress.reset();
  if (o.exitCode && !table.Empty()) session.exitStatus = 1;
  Report report;
  report.Fact("differences found", static_cast<std::int64_t>(table.Rows().size()));
  report.Add(std::move(table), ItemColumns());
  return report;
}

}  // namespace

void AddDiffCommand(CommandLine& line) {
  auto const o = std::make_shared<Options>();
  Command diff(line, "diff", "Show the differences between two libraries",
               "zel diff perry.lb1 own.lb1 --bank PERRY");
  diff.Argument("FIRST", o->one, "a library file")
      .Argument("SECOND", o->other, "a library file")
      .Library(o->one)
      .Library(o->other)
      .Option("--bank", o->bank, "only this bank", "BANK")
      .Flag("--exit-code", o->exitCode, "exit status 1 if they differ");
  AddStrict(diff);
  diff.Run(Outputs::kJsonAndCsv, [o](Session& session) { return Diff(session, *o); });
}

}  // namespace zelhost

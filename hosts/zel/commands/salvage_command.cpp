// salvage
#include <filesystem>
#include <memory>
#include <system_error>

#include "commands/command.h"
#include "commands/shared_options.h"
#include "desk/change/library_change.h"
#include "desk/combine/salvage.h"
#include "desk/open/unfinished_change.h"
#include "desk/open/when_free.h"
#include "desk/words/failure.h"
#include "output/progress.h"

namespace zelhost {
namespace {

struct Options {
  std::string path;
  std::string output;
  std::string mode;
  bool force = false;
  ChangeOptions change;
};

void CheckOutput(Options const& o) {
  std::error_code none;
  if (std::filesystem::equivalent(o.path, o.output, none)) {
    throw Failure(o.output + ": BROKEN and RESCUED are the same library");
  }
  if (!o.force && std::filesystem::exists(o.output)) {
    throw Failure(o.output + ": exists; --force replaces it");
  }
}

Report Salvage(Session& session, Options const& o) {
  if (!o.force) CheckModeFor(o.output, o.mode);
  zel::libTypes const type = WhenFree(session, [&] {
    FinishChange(o.path);
    return TypeForSalvage(o.path);
  });
  CheckOutput(o);
  zel::InitZelAccess();
  Waiting const waiting("salvaging " + o.path);
  LibraryChange change =
      LibraryChange::New(session, o.output, {type, o.force, ModeOf(o.mode)}, o.change);
  Salvaged done = Salvage(o.path, o.change.password, change.Open());
  Report report;
  report.Fact("written", o.output);
  report.Fact("items", done.counts.items);
  report.Fact("scanned", done.counts.scanned);
  report.Fact("altered", done.counts.altered);
  report.Fact("without key", done.counts.keyless);
  report.Fact("lost", done.counts.lost);
  report.Fact("gaps", done.counts.gaps);
  if (!done.library.Empty()) report.Add(std::move(done.library));
  report.Add(std::move(done.banks));
  if (!done.items.Empty()) report.Add(std::move(done.items));
  if (!done.isWhole) session.exitStatus = 1;
  PutInPlaceAfter(report, std::move(change));
  return report;
}

}  // namespace

void AddSalvageCommand(CommandLine& line) {
  auto const o = std::make_shared<Options>();
  TakePasswordOfEnvironment(o->change);
  o->change.passwordIsGeneral = true;  // a library that is replaced may have none
  Command salvage(line, "salvage", "Take what can be read out of a damaged library",
                  "zel salvage broken.lb1 rescued.lb1");
  salvage.Argument("BROKEN", o->path, "the damaged library, which is only read")
      .Argument("RESCUED", o->output, "the new library")
      .Library(o->path)
      .Flag("--force", o->force, "replace an existing library");
  AddReplaceOptions(salvage, o->change, "of a protected library");
  AddModeOption(salvage, o->mode);
  salvage.Mends();
  salvage.Run(Outputs::kJsonAndCsv, [o](Session& session) { return Salvage(session, *o); });
}

}  // namespace zelhost

// flatten, merge, renumber
#include <filesystem>
#include <memory>
#include <system_error>

#include "commands/command.h"
#include "commands/shared_options.h"
#include "desk/change/library_change.h"
#include "desk/combine/flatten.h"
#include "desk/combine/merge.h"
#include "desk/combine/renumber.h"
#include "desk/open/members.h"
#include "desk/open/storable.h"
#include "desk/open/unfinished_change.h"
#include "desk/words/failure.h"
#include "desk/words/letters.h"
#include "output/progress.h"

namespace zelhost {
namespace {

struct Options {
  SourceOptions sources;
  FlattenOptions flatten;
  std::string output;
  std::string mode;
  bool force = false;
  std::string path;
  std::string from;
  std::string component;
  std::string number;
  ChangeOptions change;
  MergeOptions merge;
  bool ours = false;
  bool theirs = false;
  bool list = false;
};

// The names of the sources, unless they are too many or a document could not hold them.
std::string DescriptionOf(PreferenceList const& list) {
  constexpr std::size_t kMost = 100;
  std::string names;
  for (Library const& library : list.Libraries()) {
    names +=
        (names.empty() ? "" : ", ") + std::filesystem::path(library.Path()).filename().string();
  }
  std::string const text = "Merged from " + names;
  bool const isGood = text.size() <= kMost && NotForDocument(text, DocumentPlace::kElement).empty();
  return isGood ? text
                : "Merged from " + std::to_string(list.Libraries().size()) +
                      (list.Libraries().size() == 1 ? " library" : " libraries");
}

void CheckBankName(std::string const& name) {
  if (name.empty() || name.size() >= kNameSize) {
    throw WrongUsage("a bank's name has 1 to 8 characters: " + name);
  }
  CheckDocument(name, DocumentPlace::kAttribute, "the bank name " + name);
}

Report Flatten(Session& session, Options const& o) {
  FlattenOptions options = o.flatten;
  options.bank = UpperCase(options.bank);
  CheckBankName(options.bank);
  if (!o.force) CheckModeFor(o.output, o.mode);
  PreferenceList list(session, o.sources);
  for (Library const& library : list.Libraries()) {
    std::error_code none;
    if (std::filesystem::equivalent(library.Path(), o.output, none)) {
      throw Failure(o.output + ": is one of the sources");
    }
  }
  zel::InitZelAccess();
  if (!o.force && std::filesystem::exists(o.output)) {
    throw Failure(o.output + ": exists; --force replaces it");
  }
  Waiting const waiting("merging into " + o.output);
  LibraryChange change =
      LibraryChange::New(session, o.output, {zel::libKind11, o.force, ModeOf(o.mode)}, o.change);
  change.Open().File().SetDescriptionAndVersion(DescriptionOf(list).c_str(), nullptr);
  Flattened done = Flatten(list, change.Open(), options);
  for (Library const& library : list.Libraries()) {
    NoteMark(session, library, o.output, &change.Open());
  }
  Report report;
  report.Fact("written", o.output);
  report.Fact("components", done.components);
  report.Fact("items", done.items);
  report.Add(std::move(done.taken));
  if (!done.leftOut.Empty()) {
    report.Warning("warning", "banks of unknown types were left out");
    report.Add(std::move(done.leftOut));
  }
  AddWarnings(list, report);
  AddCitationConflicts(session, done.citations, report);
  PutInPlaceAfter(report, std::move(change));
  return report;
}

MergeSide SideOf(Options const& o) {
  if (int{o.ours} + int{o.theirs} + int{o.list} > 1) {
    throw WrongUsage("--ours, --theirs and --list exclude each other");
  }
  if (o.ours) return MergeSide::kOurs;
  if (o.theirs) return MergeSide::kTheirs;
  return o.list ? MergeSide::kList : MergeSide::kRefuse;
}

void AddMerged(Session const& session, Merged merged, bool isList, Report& report) {
  report.Add(std::move(merged.banks));
  if (isList) report.Add(std::move(merged.differences), ItemColumns());
  AddCitationConflicts(session, merged.citations, report);
  if (merged.conflicts.empty()) return;
  std::size_t const count = merged.conflicts.size();
  report.Warning("identity warning",
                 (count == 1 ? "1 component means" : std::to_string(count) + " components mean") +
                     std::string(" different substances"));
  report.Add(IdentityTable(merged.conflicts));
}

Report Merge(Session& session, Options const& o) {
  MergeOptions options = o.merge;
  options.side = SideOf(o);
  std::error_code none;
  if (std::filesystem::equivalent(o.from, o.path, none)) {
    throw Failure(o.from + ": LIBRARY and FROM are the same library");
  }
  Library const from = OpenFinished(session, o.from);
  Waiting const waiting("merging " + o.from);
  Report report;
  if (o.list) {
    AddMerged(session, Merge(OpenFinished(session, o.path), from, options), true, report);
    return report;
  }
  LibraryChange change(session, o.path, o.change);
  AddMerged(session, Merge(change.Open(), from, options), false, report);
  NoteMark(session, from, o.path, &change.Open());
  PutInPlaceAfter(report, std::move(change));
  return report;
}

Report Renumber(Session& session, Options const& o) {
  LibraryChange change(session, o.path, o.change);
  Waiting const waiting("renumbering " + o.path);
  Renumbered done = Renumber(change.Open(), o.component, o.number);
  Report report;
  report.Fact("component", Text(done.name));
  report.Fact("old number", std::int64_t{done.from});
  report.Fact("new number", std::int64_t{done.to});
  for (std::string const& warning : done.warnings) report.Warning("warning", Text(warning));
  report.Add(std::move(done.banks));
  PutInPlaceAfter(report, std::move(change));
  return report;
}

}  // namespace

void AddCombineCommands(CommandLine& line) {
  auto const o = std::make_shared<Options>();
  Command flatten(line, "flatten", "Save what a search over libraries finds as one",
                  "zel flatten own.lb1 perry.lb1 crc.lb1 -o merged.lb1");
  flatten.Argument("SOURCE", o->sources.libraries, "LIBRARY[:BANK]; the preferred one first")
      .Library(o->sources.libraries)
      .Required("-o,--output", o->output, "the new library", "FILE")
      .Option("--components", o->flatten.components, "these; by default all", "COMPONENT...")
      .Option("--bank", o->flatten.bank, "the name of its banks; default: MERGED", "NAME")
      .Flag("--accept-identity", o->sources.acceptIdentity,
            "merge sources that mean different substances")
      .Flag("--force", o->force, "replace an existing library");
  AddReplaceOptions(flatten, o->change, "of an existing protected library");
  AddModeOption(flatten, o->mode);
  AddStrict(flatten);
  flatten.Run(Outputs::kJsonAndCsv, [o](Session& session) { return Flatten(session, *o); });
  Command merge(line, "merge", "Merge a library into another, bank by bank",
                "zel merge own.lb1 perry.lb1 --ours");
  merge.Argument("LIBRARY", o->path, "the library to change")
      .Argument("FROM", o->from, "a library file")
      .Library(o->path)
      .Library(o->from)
      .Option("--bank", o->merge.banks, "this bank; by default all banks of FROM", "BANK")
      .Flag("--ours", o->ours, "keep the items of LIBRARY that differ")
      .Flag("--theirs", o->theirs, "replace them with those of FROM")
      .Flag("--list", o->list, "list what differs, and change nothing")
      .Flag("--accept-identity", o->merge.acceptIdentity,
            "merge components that mean different substances");
  AddStrict(merge);
  AddChangeOptions(merge, o->change);
  merge.Run(Outputs::kJsonAndCsv, [o](Session& session) { return Merge(session, *o); });
  Command renumber(line, "renumber", "Give a component another number in all banks",
                   "zel renumber own.lb1 ETHANOL 21000001");
  renumber.Argument("LIBRARY", o->path, "the library to change")
      .Library(o->path)
      .Argument("OLD", o->component, "by number, ID, CAS number or name")
      .Argument("NEW", o->number, "a number that nothing in the library has");
  AddChangeOptions(renumber, o->change);
  renumber.Run(Outputs::kJsonAndCsv, [o](Session& session) { return Renumber(session, *o); });
}

}  // namespace zelhost

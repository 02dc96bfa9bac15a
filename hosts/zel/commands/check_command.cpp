// check
#include <zelaccess/DataCheck.h>

#include <algorithm>
#include <cstdio>
#include <memory>
#include <set>

#include "commands/command.h"
#include "desk/open/library.h"
#include "desk/open/unfinished_change.h"
#include "desk/open/unread_items.h"
#include "output/progress.h"

namespace zelhost {
namespace {

struct Options {
  std::vector<std::string> paths;
  std::vector<std::string> silent;
  bool structureOnly = false;
  bool listIds = false;
  bool acceptIdentity = false;
};

// Collects the findings about structure and data in one table.
class Collector final : public zel::ZelDataFindingSink {
 public:
  Collector(Session& session, Options const& options, Table& table)
      : session_(session), silent_(options.silent.begin(), options.silent.end()), table_(table) {}

  // The library whose structure is checked.
  void Library(std::string path) { path_ = std::move(path); }
  void Found(zel::zelFindings severity, char const* id, char const* place,
             char const* text) override {
    // Damage cannot be silenced.
    bool const isSilent = severity == zel::findingWarning && silent_.count(id) != 0;
    if (severity != zel::findingNote && !isSilent) Add(severity, id, path_, place, text);
  }
  void FoundData(zel::ZelDataFinding const& finding) override {
    if (finding.severity == zel::findingNote) return;  // the check was cancelled
    if (finding.severity == zel::findingDamage) {
      // The structure is sound: what is unreadable now was readable before.
      UnreadItems(session_, finding.library)
          .Found(finding.severity, finding.id, finding.place, finding.text);
      return;
    }
    Add(finding.severity, finding.id, finding.library, finding.place, finding.text);
  }
  std::int64_t Count(zel::zelFindings severity) const { return counts_[severity]; }

 private:
  void Add(zel::zelFindings severity, std::string const& id, std::string const& library,
           std::string const& place, std::string const& text) {
    static constexpr char const* kWords[] = {"note", "warning", "damage", "error"};
    ++counts_[severity];
    table_.Add(kWords[severity], id, library + ": " + place + ": " + text);
  }

  Session& session_;
  std::set<std::string> silent_;
  Table& table_;
  std::string path_;
  std::int64_t counts_[4] = {};
};

struct Kind {
  char const* id;
  char const* rule;
};

// All checks whose findings are not damage: of the structure, then of the data.
std::vector<Kind> Kinds() {
  std::vector<Kind> kinds = {
      {"block-leaked", "each block belongs to something or is free"},
      {"identifier-missing", "each component is found by its IDs and its CAS number"},
      {"identifier-stale", "each ID and CAS number is that of a component"},
      {"bank", "each bank is of a type that this program knows"}};
  std::int32_t count = 0;
  zel::ZelDataCheck const* const checks = zel::GetDataChecks(count);
  for (std::int32_t i = 0; i < count; ++i) kinds.push_back({checks[i].id, checks[i].rule});
  return kinds;
}

void CheckSilence(Options const& o) {
  std::vector<Kind> const kinds = Kinds();
  for (std::string const& id : o.silent) {
    if (std::none_of(kinds.begin(), kinds.end(), [&](Kind const& kind) { return kind.id == id; })) {
      throw WrongUsage("--silence: there is no warning " + id + "; see zel check --ids");
    }
  }
}

Report ListKinds() {
  Report report;
  Table& table = report.Begin("checks", {{"id", ""}, {"rule", ""}});
  for (Kind const& kind : Kinds()) table.Add(kind.id, kind.rule);
  return report;
}

// The structure of each library, then the data of the sound ones, alone and with each other.
void CheckLibraries(Session& session, Options const& o, Collector& collector) {
  std::vector<char const*> silent;
  for (std::string const& id : o.silent) silent.push_back(id.c_str());
  zel::ZelDataCheckOptions options;
  options.silent = silent.data();
  options.silentCount = static_cast<std::int32_t>(silent.size());
  options.acceptIdentity = o.acceptIdentity;
  std::vector<Library> open;
  std::vector<zel::ZelCheckedLibrary> sound;
  open.reserve(o.paths.size());
  // The data of a library take about twice as long as its structure; libraries are compared last.
  constexpr double kStructurePart = 1.0 / 3.0;
  double const perLibrary = 1.0 / static_cast<double>(o.paths.size() + 1);
  FollowedWork work("checking");
  for (std::string const& path : o.paths) {
    Library library = OpenFinished(session, path);
    FollowedWork::Following const following(work, library.File());
    collector.Library(path);
    work.BeginPart("checking the structure of " + path, kStructurePart * perLibrary);
    bool const good = zel::VerifyLibrary(&library.File(), collector);
    work.EndIfCancelled("the findings so far are not shown");
    if (!good && !o.structureOnly) {
      std::fprintf(stderr, "zel: %s: is damaged; the plausibility of its data was not checked\n",
                   path.c_str());
    }
    if (!good || o.structureOnly) continue;
    sound.push_back({&library.File(), path.c_str()});
    open.push_back(std::move(library));
    work.BeginPart("checking " + path, (1.0 - kStructurePart) * perLibrary);
    zel::CheckLibraryData(sound.back(), options, collector);
    work.EndIfCancelled("the findings so far are not shown");
  }
  if (sound.empty()) return;
  FollowedWork::Following const following(work, open.front().File());
  work.BeginPart("comparing libraries", perLibrary);
  zel::CompareLibraryData(sound.data(), static_cast<std::int32_t>(sound.size()), options,
                          collector);
  work.EndIfCancelled("the findings so far are not shown");
}

Report Check(Session& session, Options const& o) {
  if (o.listIds) return ListKinds();
  if (o.paths.empty()) throw WrongUsage("name a library; see zel check --help");
  CheckSilence(o);
  Report report;
  Table& table = report.Begin("findings", {{"severity", ""}, {"id", ""}, {"what", ""}});
  Collector collector(session, o, table);
  CheckLibraries(session, o, collector);
  std::int64_t const damage = collector.Count(zel::findingDamage);
  std::int64_t const errors = collector.Count(zel::findingError);
  report.Fact("libraries", static_cast<std::int64_t>(o.paths.size()));
  report.Fact("damage", damage);
  report.Fact("errors", errors);
  report.Fact("warnings", collector.Count(zel::findingWarning));
  if (damage != 0 || errors != 0) session.exitStatus = 1;
  return report;
}

}  // namespace

void AddCheckCommand(CommandLine& line) {
  auto const o = std::make_shared<Options>();
  Command(line, "check", "Check the structure and plausibility of libraries",
          "zel check perry.lb1 crc.lb1 --silence source")
      .OptionalArgument("LIBRARY", o->paths, "libraries, each compared with the others")
      .Library(o->paths)
      .Option("--silence", o->silent, "do not report these checks", "ID...")
      .Flag("--accept-identity", o->acceptIdentity,
            "different substances are a warning, not an error")
      .Flag("--structure", o->structureOnly, "check only the structure")
      .Flag("--ids", o->listIds, "list the checks and their rules")
      .Run(Outputs::kJsonAndCsv, [o](Session& session) { return Check(session, *o); });
}

}  // namespace zelhost

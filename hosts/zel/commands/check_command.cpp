// check
#include <algorithm>
#include <cstdio>
#include <iterator>
#include <memory>
#include <set>

#include "commands/command.h"
#include "open/identity_conflict.h"
#include "open/item_key.h"
#include "open/library.h"
#include "open/unfinished_change.h"
#include "output/progress.h"
#include "sense/bank_sense.h"
#include "sense/sense_checks.h"

namespace zelhost {
namespace {

struct Options {
  std::vector<std::string> paths;
  std::vector<std::string> silent;
  bool structureOnly = false;
  bool senseIds = false;
  bool acceptIdentity = false;
};

// Collects the findings of the library and of the plausibility checks in one table.
class Collector final : public zel::ZelFindingSink {
 public:
  Collector(Options const& options, Table& table)
      : silent_(options.silent.begin(), options.silent.end()),
        acceptIdentity_(options.acceptIdentity),
        table_(table) {}

  void Library(std::string path) { path_ = std::move(path); }
  void Found(zel::zelFindings severity, char const* id, char const* place,
             char const* text) override {
    static constexpr char const* kWords[] = {"note", "warning", "damage"};
    // Damage cannot be silenced.
    bool const isSilent = severity == zel::findingWarning && silent_.count(id) != 0;
    if (severity == zel::findingNote || isSilent) return;
    ++counts_[severity];
    table_.Add(kWords[severity], id, path_ + ": " + place + ": " + text);
  }
  // For the plausibility checks.
  TellSense SenseTaker() {
    return TellSense::Take([this](char const* id, std::string const& place, std::string const& text,
                                  bool isError) { Sense(id, place, text, isError); });
  }
  void Sense(char const* id, std::string const& place, std::string const& text,
             bool isError = false) {
    auto const& kinds = SenseKinds();
    auto const kind = std::find_if(kinds.begin(), kinds.end(),
                                   [&](SenseKind const& one) { return std::string(one.id) == id; });
    bool const isAccepted = acceptIdentity_ && id == std::string(kIdentity);
    isError = isError || (kind != kinds.end() && kind->isError);
    if (!isError || isAccepted) {
      Found(zel::findingWarning, id, place.c_str(), text.c_str());
    } else if (silent_.count(id) == 0) {
      ++errors_;
      table_.Add("error", id, path_ + ": " + place + ": " + text);
    }
  }
  std::int64_t Count(zel::zelFindings severity) const { return counts_[severity]; }
  std::int64_t Errors() const { return errors_; }

 private:
  std::set<std::string> silent_;
  bool acceptIdentity_;
  Table& table_;
  std::string path_;
  std::int64_t counts_[3] = {};
  std::int64_t errors_ = 0;
};

std::string PlaceOf(BankName const& bank, zel::ZelIdentity const& identity) {
  return bank.name + " " +
         (*identity.ids[0] != '\0' ? identity.ids[0] : std::to_string(identity.number));
}

void CheckSense(Library const& library, Collector& collector) {
  TellSense const tell = collector.SenseTaker();
  for (BankName const& bank : library.Banks(kPureType)) {
    SenseAcross across(tell);
    PureComponent component;
    Progress progress("checking " + ToText(bank), Keys(library, bank, *component.Def()).size());
    std::int32_t words[10] = {};
    library.Maint().BeginItemWalk(bank.type.c_str(), bank.name.c_str());
    while (library.Maint().NextItem(words, component.Def())) {
      progress.Step();
      std::string const place = PlaceOf(bank, component.Compared());
      CheckComponentSense(component, place, tell);
      across.Component(component, place);
    }
    across.Close();
  }
  for (BankName const& bank : library.Banks()) {
    CheckPairSense(library, bank, tell);
    CheckGroupSense(library, bank, tell);
  }
}

// Reports components that have the number, an ID or the CAS number of one in another library or
// bank and are a different substance.
void CheckIdentities(std::vector<Library> const& libraries, Collector& collector) {
  std::string place;
  IdentityAcross across(
      [&](SourcedIdentity const& one, SourcedIdentity const& other, std::string const& what) {
        collector.Sense(kIdentity, place,
                        "has " + what + " of " + other.source + " but is " + ToText(one.identity) +
                            "; there it is " + ToText(other.identity));
      });
  for (Library const& library : libraries) {
    collector.Library(library.Path());
    for (BankName const& bank : library.Banks(kPureType)) {
      PureComponent const component;
      std::int32_t words[10] = {};
      library.Maint().BeginItemWalk(bank.type.c_str(), bank.name.c_str());
      while (library.Maint().NextItem(words, component.Def())) {
        zel::ZelIdentity const identity = component.Compared();
        place = PlaceOf(bank, identity);
        across.Component({library.Path() + ":" + bank.name, identity});
      }
      library.Maint().EndItemWalk();
    }
  }
}

// Reads the bank's record of a component: the one with its CAS number, else one with its number or
// one of its IDs that does not contradict it.
bool ReadSame(Library const& library, BankName const& bank, zel::ZelIdentity const& wanted,
              PureComponent const& found) {
  auto const read = [&](Component const& label) {
    return library.Maint().ReadItem(found.Def(), bank.name.c_str(), KeyOf({label}).get());
  };
  zel::casn const cas(wanted.casNumber);
  if (static_cast<long>(cas) != 0 && read(cas)) return true;
  auto const agrees = [&] {
    return zel::CompareIdentities(wanted, found.Compared()) == zel::identityAgrees;
  };
  if (wanted.number != 0 && read(long{wanted.number}) && agrees()) return true;
  return std::any_of(std::begin(wanted.ids), std::end(wanted.ids), [&](char const* id) {
    return *id != '\0' && read(std::string(id)) && agrees();
  });
}

// Compares every component of the first library with the same one of the other.
void CheckAcross(Library const& one, Library const& other, Collector& collector) {
  TellSense const tell = collector.SenseTaker();
  for (BankName const& bank : one.Banks(kPureType)) {
    PureComponent a;
    PureComponent b;
    std::int32_t words[10] = {};
    one.Maint().BeginItemWalk(bank.type.c_str(), bank.name.c_str());
    while (one.Maint().NextItem(words, a.Def())) {
      zel::ZelIdentity const identity = a.Compared();
      for (BankName const& there : other.Banks(kPureType)) {
        bool isThere = false;
        other.Walk(there, [&] { isThere = ReadSame(other, there, identity, b); });
        if (!isThere) continue;
        std::string const place = PlaceOf(bank, identity);
        CheckMagnitude(a, place, b, other.Path(), tell);
        CheckBoilingPoint(a, place, b, other.Path(), tell);
        collector.Library(other.Path());
        CheckBoilingPoint(b, PlaceOf(there, b.Compared()), a, one.Path(), tell);
        collector.Library(one.Path());
      }
    }
    one.Maint().EndItemWalk();
  }
}

// Findings of the structure check that are not damage.
std::vector<SenseKind> const& StructureWarnings() {
  static std::vector<SenseKind> const kinds = {
      {"block-leaked", "each block belongs to something or is free"},
      {"identifier-missing", "each component is found by its IDs and its CAS number"},
      {"identifier-stale", "each ID and CAS number is that of a component"},
      {"bank", "each bank is of a type that this program knows"}};
  return kinds;
}

void CheckSilence(Options const& o) {
  for (std::string const& id : o.silent) {
    auto const isId = [&](SenseKind const& kind) { return kind.id == id; };
    auto const& sense = SenseKinds();
    auto const& structure = StructureWarnings();
    if (std::none_of(sense.begin(), sense.end(), isId) &&
        std::none_of(structure.begin(), structure.end(), isId)) {
      throw WrongUsage("--silence: there is no warning " + id + "; see zel check --ids");
    }
  }
}

Report Kinds() {
  Report report;
  Table& table = report.Begin("checks", {{"id", ""}, {"rule", ""}});
  for (SenseKind const& kind : StructureWarnings()) table.Add(kind.id, kind.rule);
  for (SenseKind const& kind : SenseKinds()) table.Add(kind.id, kind.rule);
  return report;
}

Report Check(Session& session, Options const& o) {
  if (o.senseIds) return Kinds();
  if (o.paths.empty()) throw WrongUsage("name a library; see zel check --help");
  CheckSilence(o);
  Report report;
  Table& table = report.Begin("findings", {{"severity", ""}, {"id", ""}, {"what", ""}});
  Collector collector(o, table);
  std::vector<Library> sound;
  for (std::string const& path : o.paths) {
    Library library = OpenFinished(session, path);
    collector.Library(path);
    bool const good = zel::VerifyLibrary(&library.File(), collector);
    if (!good && !o.structureOnly) {
      std::fprintf(stderr, "zel: %s: is damaged; the plausibility of its data was not checked\n",
                   path.c_str());
    }
    if (!good || o.structureOnly) continue;
    CheckSense(library, collector);
    sound.push_back(std::move(library));
  }
  CheckIdentities(sound, collector);
  for (std::size_t i = 1; i < sound.size(); ++i) {
    for (std::size_t earlier = 0; earlier < i; ++earlier) {
      collector.Library(sound[i].Path());
      CheckAcross(sound[i], sound[earlier], collector);
    }
  }
  std::int64_t const damage = collector.Count(zel::findingDamage);
  report.Fact("libraries", static_cast<std::int64_t>(o.paths.size()));
  report.Fact("damage", damage);
  report.Fact("errors", collector.Errors());
  report.Fact("warnings", collector.Count(zel::findingWarning));
  if (damage != 0 || collector.Errors() != 0) session.exitStatus = 1;
  return report;
}

}  // namespace

void AddCheckCommand(CommandLine& line) {
  auto const o = std::make_shared<Options>();
  Command(line, "check", "Check the structure and plausibility of libraries",
          "zel check perry.lb1 crc.lb1 --silence source")
      .OptionalArgument("LIBRARY", o->paths, "libraries, each compared with the others")
      .Option("--silence", o->silent, "do not report these checks", "ID...")
      .Flag("--accept-identity", o->acceptIdentity,
            "different substances are a warning, not an error")
      .Flag("--structure", o->structureOnly, "check only the structure")
      .Flag("--ids", o->senseIds, "list the checks and their rules")
      .Run(Outputs::kJsonAndCsv, [o](Session& session) { return Check(session, *o); });
}

}  // namespace zelhost

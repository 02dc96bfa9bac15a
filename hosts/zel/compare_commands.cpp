// diff, check
#include <algorithm>
#include <array>
#include <cstdio>
#include <memory>
#include <set>

#include "bank_sense.h"
#include "command.h"
#include "failure.h"
#include "fields.h"
#include "identity_conflict.h"
#include "item_key.h"
#include "item_values.h"
#include "progress.h"
#include "sense_checks.h"

namespace zelhost {
namespace {

struct Options {
  std::string one;
  std::string other;
  std::string bank;
  std::vector<std::string> paths;
  std::vector<std::string> silent;
  bool exitCode = false;
  bool structureOnly = false;
  bool senseIds = false;
  bool acceptIdentity = false;
};

class Difference {
 public:
  Difference(Library const& one, Library const& other, Table& table)
      : one_(one), other_(other), table_(table) {}

  void Header();
  void Bank(BankName const& bank);
  void OnlyIn(Library const& library, std::string const& place) {
    bool const first = &library == &one_;
    table_.Add(place, "whole", first ? "there" : "not there", first ? "not there" : "there");
  }

 private:
  void Field(std::string const& place, char const* field, Cell one, Cell other);
  void BankHeader(BankName const& bank);
  void Item(BankName const& bank, std::vector<std::int32_t> const& stored,
            std::string const& place);

  Library const& one_;
  Library const& other_;
  Table& table_;
};

void Difference::Field(std::string const& place, char const* field, Cell one, Cell other) {
  if (one != other) table_.Add(place, field, std::move(one), std::move(other));
}

void Difference::Header() {
  auto const header = [](Library const& library) {
    char description[101] = {};
    char version[13] = {};
    char memo[kMemoSize] = {};
    library.File().GetDescriptionAndVersion(description, version);
    library.File().GetMemo(memo);
    return std::array<std::string, 3>{description, version, memo};
  };
  auto const a = header(one_);
  auto const b = header(other_);
  static constexpr char const* kNames[] = {"description", "version", "memo"};
  for (std::size_t i = 0; i < a.size(); ++i) Field("library", kNames[i], Text(a[i]), Text(b[i]));
}

void Difference::BankHeader(BankName const& bank) {
  auto const format = [&](Library const& library) {
    return Cell(std::int64_t{library.Maint().GetBankFormat(bank.type.c_str(), bank.name.c_str())});
  };
  auto const memo = [&](Library const& library) {
    char text[kMemoSize] = {};
    library.Maint().GetBankMemo(bank.type.c_str(), bank.name.c_str(), text);
    return Text(text);
  };
  Field(ToText(bank), "format", format(one_), format(other_));
  Field(ToText(bank), "memo", memo(one_), memo(other_));
}

// Both lists of keys rise; equal ones are items that both have.
void Difference::Bank(BankName const& bank) {
  BankHeader(bank);
  zel::Handle<zel::IZelBankDef> const item = BankOfType(bank.type);
  auto const a = Keys(one_, bank, *item);
  auto const b = Keys(other_, bank, *item);
  KeyWords wordsA(one_, *item);
  KeyWords wordsB(other_, *item);
  Progress progress("comparing " + ToText(bank), a.size());
  std::size_t i = 0, k = 0;
  while (i < a.size() || k < b.size()) {
    bool const inA = k == b.size() || (i < a.size() && a[i] <= b[k]);
    bool const inB = i == a.size() || (k < b.size() && b[k] <= a[i]);
    std::string const place =
        ToText(bank) + " " + (inA ? Joined(wordsA.Of(a[i])) : Joined(wordsB.Of(b[k])));
    if (inA && inB) {
      Item(bank, a[i], place);
    } else {
      OnlyIn(inA ? one_ : other_, place);
    }
    if (inA) {
      ++i;
      progress.Step();
    }
    if (inB) ++k;
  }
}

void Difference::Item(BankName const& bank, std::vector<std::int32_t> const& stored,
                      std::string const& place) {
  zel::Handle<zel::Key> const key = StoredKey(stored);
  bool isRead = true;
  auto const read = [&](Library const& library, zel::IZelBankDef* item) {
    try {
      if (library.Maint().ReadItem(item, bank.name.c_str(), key.get())) return;
    } catch (unsigned long const address) {
      library.TellUnread(place, address);
      isRead = false;
      return;
    }
    throw Failure(library.Path() + ": " + place + " cannot be read");
  };
  auto const valuesIn = [&](Library const& library) {
    if (bank.type == kPureType) {
      PureComponent const component;
      read(library, component.Def());
      return ValuesOf(component);
    }
    zel::Handle<zel::IZelBankDef> const item = BankOfType(bank.type);
    read(library, item.get());
    return ValuesOf(*item);
  };
  std::vector<NamedValue> const a = valuesIn(one_);
  std::vector<NamedValue> const b = valuesIn(other_);
  if (!isRead) return;
  auto const valueIn = [](std::vector<NamedValue> const& values, std::string const& name) {
    auto const at = std::find_if(values.begin(), values.end(),
                                 [&](NamedValue const& value) { return value.name == name; });
    return at == values.end() ? NamedValue{name, {}} : *at;
  };
  auto const put = [&](NamedValue const& here, NamedValue const& there) {
    if (here == there) return;
    auto [one, other] = Beside(here, there);
    table_.Add(place, here.name, std::move(one), std::move(other));
  };
  for (NamedValue const& value : a) put(value, valueIn(b, value.name));
  for (NamedValue const& value : b) {
    bool const isNew = std::none_of(
        a.begin(), a.end(), [&](NamedValue const& known) { return known.name == value.name; });
    if (isNew) put({value.name, {}}, value);
  }
}

BankName NamedInEither(Library const& one, Library const& other, std::string const& word) {
  try {
    return one.Bank(word);
  } catch (Failure const&) {
    return other.Bank(word);
  }
}

Report Diff(Options const& o) {
  Library const one = Library::OpenRead(o.one);
  Library const other = Library::OpenRead(o.other);
  Report report;
  Table& table =
      report.Begin("differences", {{"item", ""}, {"field", ""}, {"first", ""}, {"second", ""}});
  Difference difference(one, other, table);
  auto const has = [](std::vector<BankName> const& banks, BankName const& bank) {
    return std::any_of(banks.begin(), banks.end(),
                       [&](BankName const& known) { return ToText(known) == ToText(bank); });
  };
  std::vector<BankName> a = one.Banks();
  std::vector<BankName> b = other.Banks();
  if (!o.bank.empty()) {
    BankName const bank = NamedInEither(one, other, o.bank);
    auto const isOther = [&](BankName const& known) { return ToText(known) != ToText(bank); };
    std::erase_if(a, isOther);
    std::erase_if(b, isOther);
  } else {
    difference.Header();
  }
  for (BankName const& bank : a) {
    if (has(b, bank)) {
      if (BankOrNone(bank.type)) {
        difference.Bank(bank);
      } else {
        table.Add(ToText(bank), "whole", "unknown type", "not compared");
      }
    } else {
      difference.OnlyIn(one, ToText(bank));
    }
  }
  for (BankName const& bank : b) {
    if (!has(a, bank)) difference.OnlyIn(other, ToText(bank));
  }
  report.Fact("differences found", static_cast<std::int64_t>(table.Rows().size()));
  if (o.exitCode && !table.Empty()) SetExitStatus(1);
  return report;
}

// Collects the findings of the library and of the sense checks in one table.
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
  // Of the sense checks.
  void Sense(char const* id, std::string const& place, std::string const& text) {
    auto const& kinds = SenseKinds();
    auto const kind = std::find_if(kinds.begin(), kinds.end(),
                                   [&](SenseKind const& one) { return std::string(one.id) == id; });
    bool const isAccepted = acceptIdentity_ && id == std::string(kIdentity);
    if (kind == kinds.end() || !kind->isError || isAccepted) {
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

void CheckSense(Library const& library, Collector& collector) {
  TellSense const tell = [&](char const* id, std::string const& place, std::string const& text) {
    collector.Sense(id, place, text);
  };
  for (BankName const& bank : library.Banks(kPureType)) {
    SenseAcross across(tell);
    PureComponent component;
    Progress progress("checking " + ToText(bank), Keys(library, bank, *component.Def()).size());
    std::int32_t words[10] = {};
    library.Maint().BeginItemWalk(bank.type.c_str(), bank.name.c_str());
    while (library.Maint().NextItem(words, component.Def())) {
      progress.Step();
      Identity const identity = component.ReadIdentity();
      std::string const place =
          bank.name + " " + (identity.ids.empty() ? std::to_string(words[0]) : identity.FirstId());
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

// What one library or bank calls by the number, an ID or the CAS number of another and is something
// else.
void CheckIdentities(std::vector<Library> const& libraries, Collector& collector) {
  std::string place;
  IdentityAcross across(
      [&](SourcedIdentity const& one, SourcedIdentity const& other, std::string const& what) {
        collector.Sense(kIdentity, place,
                        "has " + what + " of " + other.source + " and is " + ToText(one.identity) +
                            ", there " + ToText(other.identity));
      });
  for (Library const& library : libraries) {
    collector.Library(library.Path());
    for (BankName const& bank : library.Banks(kPureType)) {
      PureComponent const component;
      std::int32_t words[10] = {};
      library.Maint().BeginItemWalk(bank.type.c_str(), bank.name.c_str());
      while (library.Maint().NextItem(words, component.Def())) {
        zel::ZelIdentity const identity = component.Compared();
        place = bank.name + " " +
                (*identity.ids[0] != '\0' ? identity.ids[0] : std::to_string(identity.number));
        across.Component({library.Path() + ":" + bank.name, identity});
      }
      library.Maint().EndItemWalk();
    }
  }
}

// Every component of the first library against the same of a later one, found by its CAS number.
void CheckAcross(Library const& one, Library const& other, Collector& collector) {
  TellSense const tell = [&](char const* id, std::string const& place, std::string const& text) {
    collector.Sense(id, place, text);
  };
  for (BankName const& bank : one.Banks(kPureType)) {
    PureComponent a;
    PureComponent b;
    std::int32_t words[10] = {};
    one.Maint().BeginItemWalk(bank.type.c_str(), bank.name.c_str());
    while (one.Maint().NextItem(words, a.Def())) {
      Identity const identity = a.ReadIdentity();
      if (identity.cas.empty()) continue;
      zel::Handle<zel::Key> const key(zel::Key::NewKey());
      key->SetKey(zel::casn(identity.cas.c_str()));
      for (BankName const& there : other.Banks(kPureType)) {
        bool isThere = false;
        other.Walk(there, [&] {
          isThere = other.Maint().ReadItem(b.Def(), there.name.c_str(), key.get());
        });
        if (!isThere) continue;
        std::string const place = bank.name + " " + identity.FirstId();
        CheckMagnitude(a, place, b, other.Path(), tell);
        CheckBoilingPoint(a, place, b, other.Path(), tell);
        collector.Library(other.Path());
        CheckBoilingPoint(b, there.name + " " + identity.FirstId(), a, one.Path(), tell);
        collector.Library(one.Path());
      }
    }
  }
}

// What the check of the structure finds that is no damage.
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

Report Check(Options const& o) {
  if (o.senseIds) return Kinds();
  if (o.paths.empty()) throw WrongUsage("name a library; see zel check --help");
  CheckSilence(o);
  Report report;
  Table& table = report.Begin("findings", {{"severity", ""}, {"id", ""}, {"what", ""}});
  Collector collector(o, table);
  std::vector<Library> sound;
  for (std::string const& path : o.paths) {
    Library library = Library::OpenRead(path);
    collector.Library(path);
    bool const good = zel::VerifyLibrary(&library.File(), collector);
    if (!good && !o.structureOnly) {
      std::fprintf(stderr, "zel: %s: is damaged, the sense of its data was not checked\n",
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
  if (damage != 0 || collector.Errors() != 0) SetExitStatus(1);
  return report;
}

}  // namespace

void AddCompareCommands(CLI::App& app) {
  auto const o = std::make_shared<Options>();
  Command diff(app, "diff", "Tell what differs between two libraries",
               "zel diff perry.lb1 own.lb1 --bank PERRY");
  diff.Argument("FIRST", o->one, "a library file")
      .Argument("SECOND", o->other, "a library file")
      .Option("--bank", o->bank, "only this bank", "BANK")
      .Flag("--exit-code", o->exitCode, "exit status 1 when they differ");
  AddStrict(diff);
  diff.Run(Outputs::kJsonAndCsv, [o] { return Diff(*o); });
  Command(app, "check", "Check a library's structure and its data's sense",
          "zel check perry.lb1 crc.lb1 --silence source")
      .OptionalArgument("LIBRARY", o->paths, "libraries, each held against the others")
      .Option("--silence", o->silent, "tell nothing of these checks", "ID...")
      .Flag("--accept-identity", o->acceptIdentity, "different substances are a warning")
      .Flag("--structure", o->structureOnly, "the structure only")
      .Flag("--ids", o->senseIds, "list the checks of sense and their rules")
      .Run(Outputs::kJsonAndCsv, [o] { return Check(*o); });
}

}  // namespace zelhost

// Damages libraries and salvages them: what share of the items comes back?
//   salvage_rate [--count N] [--seed N] [--only KIND] [--library NAME] [--worst N] [--trial N]
//                [<folder of the documents>]
// --worst lists the trials that lose most, --trial shows one of them.
//
// The libraries are those of the published documents, and two that are made here: one with trees of
// three levels, the other after many deletions. Each is damaged in one way, 1 to 50 times.
//
// intact      items of which no byte was changed, neither in the entry nor in the component's
// blocks walkable    intact items whose tree can still be walked down to them: header, heads,
// directory
//             entry, and counts and links of all nodes on the way are unchanged
// rescued     intact items that the salvaged library has, under their key and with their values
// elsewhere   those of them that are in a bank of another name, or of a type with the same records
// wrong       intact items whose key leads to other values
// unsound     salvaged libraries that are damaged; each is a fault
// made up     items of the salvaged library whose key the library did not have
#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <map>
#include <set>
#include <stdexcept>
#include <string>
#include <vector>

#include "maint/lib_maint.h"
#include "store/key.h"
#include "tests/long/long_options.h"
#include "tests/support/damage.h"
#include "tests/support/memory_file_system.h"
#include "tests/support/sample_component.h"
#include "verify/salvage/salvage.h"
#include "zelaccess/Banks.h"
#include "zelaccess/Module.h"
#include "zelaccess/Verify.h"

namespace zel::test {
namespace {

constexpr char kPath[] = "/a.lb1";
constexpr char kPath2[] = "/a.lb2";

// Percent; with less the program fails. A few libraries, or one kind of damage, can have less.
constexpr double kLeastOfWalkable = 99.0;
constexpr double kLeastOfIntact = 95.0;

struct Subject {
  std::string name;
  LibraryBytes bytes;
  StoredItems items;
};

struct Counts {
  long long libraries = 0;
  long long items = 0;
  long long intact = 0;
  long long walkable = 0;
  long long rescued = 0;
  long long rescuedWalkable = 0;
  long long elsewhere = 0;
  long long wrong = 0;
  long long madeUp = 0;
  long long unsound = 0;  // salvaged libraries with damage
  double seconds = 0.0;

  void Add(Counts const& other) {
    libraries += other.libraries;
    items += other.items;
    intact += other.intact;
    walkable += other.walkable;
    rescued += other.rescued;
    rescuedWalkable += other.rescuedWalkable;
    elsewhere += other.elsewhere;
    wrong += other.wrong;
    madeUp += other.madeUp;
    unsound += other.unsound;
    seconds += other.seconds;
  }
};

LibraryBytes BytesOf(MemoryFileSystem& files) {
  return {{files.Contents(kPath), files.Contents(kPath2)}};
}

template <typename Fill>
Subject Make(std::string name, Fill const& fill) {
  MemoryFileSystem files;
  LibFile_i library(files, accUpdate, kPath, "a");
  if (library.CreateNew(libKind11) != openOk) std::abort();
  {
    LibMaint_i maint(&library);
    fill(maint);
  }
  library.CloseLibFile();
  LibraryBytes bytes = BytesOf(files);
  StoredItems items = ReadItems(bytes);
  return {std::move(name), std::move(bytes), std::move(items)};
}

void WritePairs(LibMaint_i& maint, char const* type, char const* name, long count) {
  FaceRef<IZelBankDef> const bank(NewBank(type));
  Key_i key;
  // Items of two banks differ, so that those of one do not count as those of another.
  double const ofBank = static_cast<double>(std::string_view(name).front()) / 8.0;
  for (long i = 0; i < count; ++i) {
    double const values[4] = {100.0 + static_cast<double>(i), 0.5 + ofBank, -2.25, 300.0};
    bank->SetDoubleField("aij", values);
    bank->SetDoubleField("bij", values + 1);
    long const a = 1 + i % 97;
    key.SetKey(a, a + 1 + i / 97);
    if (!maint.WriteItem(bank.Get(), name, &key)) std::abort();
  }
}

void WriteComponents(LibMaint_i& maint, char const* name, long first, long count) {
  FaceRef<IZelBankDef> const bank(NewBank("PURECOMP"));
  auto const component = FaceRef<IZelPureComp>::Of(bank.Get(), IID_IZelPureComp);
  for (long i = 0; i < count; ++i) {
    bank->Clear();
    FillComponent(component.Get());
    auto const number = static_cast<std::int32_t>(first + 7 * i);
    char ids[12][9] = {};
    std::snprintf(ids[0], sizeof ids[0], "X%d", number);
    component->SetIdentity(number, 0, 0, ids, ids[0], "", 0);
    component->SetProperty(1, 300.0 + static_cast<double>(i));
    Key_i key;
    key.SetKey(static_cast<long>(number));
    if (!maint.WriteItem(bank.Get(), name, &key)) std::abort();
  }
}

void FillLarge(LibMaint_i& maint) {
  for (char const* bank : {"VLE", "OTHER"}) maint.CreateBank("NRTL", bank, 0);
  maint.CreateBank("UNIQUAC", "OWN", 0);
  maint.CreateBank("PURECOMP", "OWN", 0);
  WriteComponents(maint, "OWN", 1000, 600);
  WritePairs(maint, "NRTL", "VLE", 6000);
  WritePairs(maint, "NRTL", "OTHER", 2000);
  WritePairs(maint, "UNIQUAC", "OWN", 3000);
}

void FillEdited(LibMaint_i& maint) {
  for (char const* bank : {"OLD", "VLE"}) maint.CreateBank("WILSON", bank, 0);
  for (char const* bank : {"OLD", "OWN"}) maint.CreateBank("PURECOMP", bank, 0);
  WritePairs(maint, "WILSON", "OLD", 500);
  WriteComponents(maint, "OWN", 1000, 300);
  WriteComponents(maint, "OLD", 7001, 40);
  WritePairs(maint, "WILSON", "VLE", 1500);
  maint.DeleteBank("WILSON", "OLD");
  maint.DeleteBank("PURECOMP", "OLD");
  Key_i key;
  for (long i = 0; i < 1500; i += 3) {
    long const a = 1 + i % 97;
    key.SetKey(a, a + 1 + i / 97);
    if (!maint.DeleteItem("WILSON", "VLE", &key)) std::abort();
  }
  for (long i = 0; i < 300; i += 10) {
    key.SetKey(1000 + 7 * i);
    if (!maint.DeleteItem("PURECOMP", "OWN", &key)) std::abort();
  }
}

std::vector<Subject> Subjects(std::string const& folder, std::string const& only) {
  std::vector<Subject> subjects;
  auto const isWanted = [&](std::string const& name) { return only.empty() || only == name; };
  for (char const* name : {"sample", "perry", "chemsep", "vdi", "poling", "crc", "nist"}) {
    if (!isWanted(name)) continue;
    subjects.push_back(Make(name, [&](LibMaint_i& maint) {
      std::string const path = folder + "/" + name + ".xml";
      if (!maint.Import(path.c_str(), false)) std::abort();
    }));
  }
  if (isWanted("large")) subjects.push_back(Make("large", FillLarge));
  if (isWanted("edited")) subjects.push_back(Make("edited", FillEdited));
  return subjects;
}

// Prints what was not simply taken.
struct Printer final : ZelSalvageSink {
  void Salvaged(ZelSalvageRecord const& r) override {
    if (r.state == salvageTaken && r.way == salvageByWalk) return;
    std::printf("  kind %d state %d way %d %s:%s", r.kind, r.state, r.way, r.type, r.bank);
    for (std::int32_t i = 0; i < r.keyCount; ++i) std::printf(" %d", r.keyWords[i]);
    std::printf(" %s\n", r.text);
  }
};

struct Damages final : ZelFindingSink {
  void Found(zelFindings severity, char const*, char const* place, char const* text) override {
    if (severity != findingDamage) return;
    ++count;
    if (isShown) std::printf("  damage: %s: %s\n", place, text);
  }
  int count = 0;
  bool isShown = false;
};

// The damaged library; the same for the same seed.
LibraryBytes Damaged(Subject const& subject, DamageKind const& kind, std::uint64_t seed) {
  constexpr double kMostHits = 50.0;
  std::mt19937_64 random(seed);
  LibraryBytes broken = subject.bytes;
  double const u = static_cast<double>(random() % 1000000) / 1e6;
  int const hits = kind.isRepeated ? static_cast<int>(std::pow(kMostHits + 0.999, u)) : 1;
  for (int i = 0; i < hits; ++i) kind.apply(broken, random);
  return broken;
}

// The items of the rescued library; sets how long it took, and whether the library is sound. False
// if the damage made a password necessary.
bool Salvage(LibraryBytes const& broken, bool show, Counts& counts, StoredItems& items) {
  MemoryFileSystem files;
  files.Contents(kPath) = broken.file[0];
  if (!broken.file[1].empty()) files.Contents(kPath2) = broken.file[1];
  MemoryFileSystem saved;
  LibFile_i rescued(saved, accUpdate, kPath, "r");
  libTypes type{};
  auto const start = std::chrono::steady_clock::now();
  if (FindTypeOnFiles(files, kPath, type) != openOk || rescued.CreateNew(type) != openOk) {
    std::abort();
  }
  Printer printer;
  ZelSalvageCounts found;
  openErrors const error =
      SalvageFiles(files, kPath, "", &rescued, show ? &printer : nullptr, found);
  if (error == openPasswordNeeded) return false;
  if (error != openOk) std::abort();
  rescued.CloseLibFile();
  counts.seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
  if (rescued.ReopenLibFile() != openOk) std::abort();
  Damages damages;
  damages.isShown = show;
  VerifyLibrary(&rescued, damages);
  counts.unsound = damages.count > 0 ? 1 : 0;
  rescued.CloseLibFile();
  try {
    items = ReadItems(BytesOf(saved));
  } catch (std::logic_error const&) {
    counts.unsound = 1;  // something leads out of the files
  }
  return true;
}

Counts Trial(Subject const& subject, DamageKind const& kind, std::uint64_t seed, bool show) {
  LibraryBytes const broken = Damaged(subject, kind, seed);
  Counts counts;
  StoredItems now;
  if (!Salvage(broken, show, counts, now)) return {};
  std::multimap<std::vector<std::int32_t>, StoredItem const*> byKey;
  for (auto const& [name, item] : now) byKey.emplace(name.key, &item);
  counts.libraries = 1;
  counts.items = static_cast<long long>(subject.items.size());
  std::map<std::string, int> lost;
  std::set<std::vector<std::int32_t>> keys;
  for (auto const& [name, item] : subject.items) {
    keys.insert(name.key);
    if (!item.IsIntact(subject.bytes, broken)) continue;
    bool const walkable = item.CanBeWalkedTo(subject.bytes, broken);
    auto const at = now.find(name);
    bool const isInPlace = at != now.end() && at->second.values == item.values;
    auto const [from, to] = byKey.equal_range(name.key);
    bool const isThere = isInPlace || std::any_of(from, to, [&item = item](auto const& one) {
                           return one.second->values == item.values;
                         });
    ++counts.intact;
    counts.walkable += walkable ? 1 : 0;
    counts.wrong += at != now.end() && !isInPlace ? 1 : 0;
    counts.elsewhere += isThere && !isInPlace ? 1 : 0;
    counts.rescued += isThere ? 1 : 0;
    counts.rescuedWalkable += isThere && walkable ? 1 : 0;
    if (!isThere) ++lost[name.type + ":" + name.bank];
  }
  for (auto const& [name, item] : now) counts.madeUp += keys.count(name.key) == 0 ? 1 : 0;
  for (auto const& [bank, number] : lost) {
    if (show) std::printf("  %d intact items of %s are not there\n", number, bank.c_str());
  }
  return counts;
}

double Share(long long part, long long all) {
  return all == 0 ? 100.0 : 100.0 * static_cast<double>(part) / static_cast<double>(all);
}

void Print(char const* name, Counts const& c) {
  std::printf("%-15s %6lld %9lld %9lld %8.3f%% %9lld %8.3f%% %8.3f%% %9lld %7lld %7lld %7lld\n",
              name, c.libraries, c.items, c.intact, Share(c.rescued, c.intact), c.walkable,
              Share(c.rescuedWalkable, c.walkable), Share(c.rescued - c.elsewhere, c.intact),
              c.elsewhere, c.wrong, c.madeUp, c.unsound);
}

struct Options {
  long long count = 1000;
  std::uint64_t seed = 1;
  std::string kind;
  std::string library;
  long long worst = 0;
  long long trial = -1;
  std::string folder = ZEL_DATA;
};

int Run(Options const& o) {
  std::vector<Subject> const subjects = Subjects(o.folder, o.library);
  std::vector<DamageKind> kinds;
  for (DamageKind const& kind : DamageKinds()) {
    if (o.kind.empty() || o.kind == kind.name) kinds.push_back(kind);
  }
  std::map<std::string, Counts> rows;
  Counts all;
  std::multimap<long long, std::string> worst;  // by minus what is not there
  double slowest = 0.0;
  for (long long i = 0; i < o.count; ++i) {
    if (o.trial >= 0 && i != o.trial) continue;
    DamageKind const& kind = kinds[static_cast<std::size_t>(i) % kinds.size()];
    Subject const& subject = subjects[static_cast<std::size_t>(i) / kinds.size() % subjects.size()];
    Counts const counts =
        Trial(subject, kind, o.seed * 1'000'003 + static_cast<std::uint64_t>(i), o.trial >= 0);
    rows[kind.name].Add(counts);
    rows["of " + subject.name].Add(counts);
    all.Add(counts);
    if (counts.unsound > 0) {
      std::printf("trial %lld, %s, %s: the rescued library is not sound\n", i, kind.name,
                  subject.name.c_str());
    }
    slowest = std::max(slowest, counts.seconds);
    if (o.worst > 0) {
      worst.emplace(counts.rescued - counts.intact,
                    "trial " + std::to_string(i) + ", " + kind.name + ", " + subject.name);
    }
  }
  std::printf("%-15s %6s %9s %9s %9s %9s %9s %9s %9s %7s %7s %7s\n", "damage", "libs", "items",
              "intact", "rescued", "walkable", "rescued", "in place", "elsewhere", "wrong",
              "made up", "unsound");
  for (auto const& [name, counts] : rows) Print(name.c_str(), counts);
  Print("all", all);
  std::printf("a salvage takes %.1f ms on average, %.1f ms at most\n",
              1000.0 * all.seconds / static_cast<double>(std::max<long long>(1, all.libraries)),
              1000.0 * slowest);
  long long left = o.worst;
  for (auto const& [loss, text] : worst) {
    if (left-- > 0) std::printf("%lld intact items are not there: %s\n", -loss, text.c_str());
  }
  bool const isEnough = Share(all.rescuedWalkable, all.walkable) >= kLeastOfWalkable &&
                        Share(all.rescued, all.intact) >= kLeastOfIntact;
  return all.unsound == 0 && isEnough ? 0 : 1;
}

}  // namespace
}  // namespace zel::test

int main(int argc, char** argv) {
  zel::InitZelAccess();
  zel::test::Options o;
  bool const good = zel::test::ReadOptions(
      argc, argv,
      {{"--count", [&](char const* word) { o.count = std::atoll(word); }},
       {"--seed", [&](char const* word) { o.seed = std::strtoull(word, nullptr, 10); }},
       {"--only", [&](char const* word) { o.kind = word; }},
       {"--library", [&](char const* word) { o.library = word; }},
       {"--worst", [&](char const* word) { o.worst = std::atoll(word); }},
       {"--trial", [&](char const* word) { o.trial = std::atoll(word); }}});
  return good ? zel::test::Run(o) : 2;
}

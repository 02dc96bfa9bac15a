#include <stdexcept>

#include "bench/lmdb_store.h"
#include "bench/ratio_cases.h"
#include "bench/size_text.h"
#include "bench/sqlite_store.h"
#include "bench/store_sides.h"
#include "bench/zel_store.h"

namespace zel::bench {
namespace {

constexpr std::size_t kOpensPerRound = 2'000;
constexpr std::size_t kManyItems = 1'000'000;

constexpr double kPointReadLimit = 0.6;
constexpr double kPointReadLimitManyItems = 0.8;
constexpr double kSqliteReadLimit = 1.0 / 3.0;
constexpr double kReadItemLimit = 1.0;
constexpr double kWalkLimit = 0.5;
constexpr std::size_t kWalkLimitItems = 100'000;
constexpr double kOpenLimit = 0.4;

template <typename Store>
Side GetsOf(std::vector<Pair> const& keys, Store& store) {
  return ReadsOf(keys.size(), [&](std::size_t i) { return store.Get(keys[i]); });
}

template <typename Store>
Side DecodedGetsOf(std::vector<Pair> const& keys, Store& store) {
  return ReadsOf(keys.size(), [&](std::size_t i) { return store.GetDecoded(keys[i]); });
}

template <typename Store>
Side WalksOf(std::size_t items, Store& store) {
  return PassesOf(items, [&store] { return store.Walk(); });
}

template <typename Store>
Side OpensOf(std::vector<Pair> const& keys, Store& store) {
  return [&keys, &store](int round) {
    std::size_t const at = static_cast<std::size_t>(round) * kOpensPerRound % keys.size();
    return Time(kOpensPerRound, [&] {
      std::uint64_t sum = 0;
      for (std::size_t i = 0; i < kOpensPerRound; ++i) {
        sum += store.OpenReadClose(keys[(at + i) % keys.size()]);
      }
      return sum;
    });
  };
}

template <typename Store>
void LoadAndOpen(Store& store, DataSet const& set) {
  store.RemoveFiles();
  store.Load(set.items, true);
  store.OpenForReading();
  if (store.Hash() != HashOf(set.items)) throw std::runtime_error("a store differs after its load");
}

}  // namespace

void CompareReads(RatioTable& table, std::filesystem::path const& folder, std::size_t items) {
  DataSet const set = MakeDataSet(items);
  std::vector<Pair> const present = Shuffled(KeysOf(set.items));
  std::vector<Pair> const absent = Shuffled(set.absent);
  ZelStore project(folder);
  LmdbStore lmdb(folder);
  SqliteStore sqlite(folder, SqliteTable::kPair);
  SqliteStore rows(folder, SqliteTable::kRowId);
  LoadAndOpen(project, set);
  LoadAndOpen(lmdb, set);
  LoadAndOpen(sqlite, set);
  LoadAndOpen(rows, set);

  Target const limit =
      Target::Ratio(items < kManyItems ? kPointReadLimit : kPointReadLimitManyItems);
  Target const sqliteLimit = Target::Ratio(kSqliteReadLimit);
  std::string const size = ", " + SizeText(items);
  for (bool const there : {true, false}) {
    std::vector<Pair> const& keys = there ? present : absent;
    std::string const what =
        (there ? "internal: point read" : "internal: point read of an absent key") + size;
    Side const own = GetsOf(keys, project);
    table.Compare({what, LmdbStore::kName, GetsOf(keys, lmdb), own, limit});
    table.Compare({what, sqlite.Name(), GetsOf(keys, sqlite), own, sqliteLimit});
    table.Compare({what, rows.Name(), GetsOf(keys, rows), own, Target::None()});
  }
  table.Compare({"ReadItem, 12 floats decoded" + size, LmdbStore::kName,
                 DecodedGetsOf(present, lmdb), DecodedGetsOf(present, project),
                 Target::Ratio(kReadItemLimit)});
  Target const walkLimit = items == kWalkLimitItems ? Target::Ratio(kWalkLimit) : Target::None();
  table.Compare({"internal: walk, per item" + size, LmdbStore::kName, WalksOf(items, lmdb),
                 WalksOf(items, project), walkLimit});
  for (auto* store : {&sqlite, &rows}) store->Close();
  lmdb.Close();
  project.Close();
  project.RemoveFiles();
  lmdb.RemoveFiles();
  sqlite.RemoveFiles();
  rows.RemoveFiles();
}

void CompareOpens(RatioTable& table, std::filesystem::path const& folder, std::size_t items) {
  DataSet const set = MakeDataSet(items);
  std::vector<Pair> const keys = Shuffled(KeysOf(set.items));
  ZelStore project(folder);
  LmdbStore lmdb(folder);
  SqliteStore sqlite(folder, SqliteTable::kPair);
  auto const prepare = [&](auto& store) {
    LoadAndOpen(store, set);
    store.Close();
  };
  prepare(project);
  prepare(lmdb);
  prepare(sqlite);
  std::string const what = "internal: open, read one, close, " + SizeText(items);
  Side const own = OpensOf(keys, project);
  table.Compare({what, LmdbStore::kName, OpensOf(keys, lmdb), own, Target::Ratio(kOpenLimit)});
  table.Compare({what, sqlite.Name(), OpensOf(keys, sqlite), own, Target::None()});
  project.RemoveFiles();
  lmdb.RemoveFiles();
  sqlite.RemoveFiles();
}

}  // namespace zel::bench

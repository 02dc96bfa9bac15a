// The library as a host uses it, through LibMaint, Key and a bank, compared with its peers.
//
// The peers do the least that yields the same numbers: LMDB widens floats to doubles. By processor
// time throughout, loads and deletes too, since none of the stores waits for the disk.
#include <numeric>
#include <stdexcept>
#include <vector>

#include "bench/lmdb_store.h"
#include "bench/public_store.h"
#include "bench/ratio_cases.h"
#include "bench/size_text.h"
#include "bench/sqlite_store.h"
#include "bench/store_sides.h"

namespace zel::bench {
namespace {

constexpr std::size_t kBanks = 1'000;
constexpr std::size_t kItemsOfBanks = 100'000;

// The limits by number of items.
struct Limits {
  double few;       // 10,000
  double many;      // 100,000
  double veryMany;  // 1,000,000

  Target For(std::size_t items) const {
    return Target::Ratio(items <= 10'000 ? few : items <= 100'000 ? many : veryMany);
  }
};
constexpr Limits kReadLimits = {1.25, 0.8, 0.85};
constexpr Limits kExistsLimits = {0.6, 0.6, 0.6};
constexpr Limits kWalkLimits = {7.0, 5.5, 4.0};
constexpr Limits kOrderedLoadLimits = {0.6, 0.6, 0.6};      // of SQLite
constexpr Limits kOrderedLoadLmdbLimits = {1.7, 1.7, 1.7};  // of LMDB
constexpr Limits kRandomLoadLimits = {1.3, 1.0, 1.0};       // of LMDB
constexpr Limits kDeleteLimits = {1.2, 2.0, 3.0};
constexpr double kManyBanksLimit = 1.5;
constexpr double kColumnsLimit = 0.2;

// Item by item in an order in which the banks come in turn. A turn of all banks reads a thousand
// neighbours of one bank with the same items, which are in the cache, or, scattered, items from
// everywhere in it.
std::vector<std::size_t> BanksInTurn(bool scattered) {
  std::vector<std::size_t> turns(kItemsOfBanks / kBanks);
  std::vector<std::size_t> banks(kBanks);
  std::iota(turns.begin(), turns.end(), 0);
  std::iota(banks.begin(), banks.end(), 0);
  std::vector<std::size_t> const starts = Shuffled(turns);
  std::vector<std::size_t> const steps = Shuffled(banks);
  std::vector<std::size_t> order;
  for (std::size_t const turn : turns) {
    for (std::size_t const bank : banks) {
      std::size_t const at = turn + (scattered ? steps[bank] : 0);
      order.push_back(starts[at % starts.size()] * kBanks + bank);
    }
  }
  return order;
}

template <typename Store>
Side WalksOf(std::size_t items, Store& store) {
  return PassesOf(items, [&store] { return store.WalkWidened(); });
}

template <typename Store>
Side ColumnsOf(std::size_t items, Store& store) {
  return PassesOf(items, [&store] { return store.Columns(); });
}

}  // namespace

void ComparePublicReads(RatioTable& table, std::filesystem::path const& folder, std::size_t items) {
  DataSet const set = MakeDataSet(items);
  std::vector<Pair> const keys = Shuffled(KeysOf(set.items));
  PublicStore project(folder);
  LmdbStore lmdb(folder);
  project.RemoveFiles();
  lmdb.RemoveFiles();
  project.Load(set.items);
  lmdb.Load(set.items, true);
  project.OpenForReading();
  lmdb.OpenForReading();
  if (project.Hash() != HashOf(set.items)) throw std::runtime_error("the load differs");

  std::string const size = ", " + SizeText(items);
  auto const each = [&](auto& store, auto read) {
    return ReadsOf(keys.size(), [&, read](std::size_t at) { return (store.*read)(keys[at]); });
  };
  table.Compare({"ReadItem and GetData" + size, "LMDB, widened", each(lmdb, &LmdbStore::GetWidened),
                 each(project, &PublicStore::GetWidened), kReadLimits.For(items)});
  table.Compare({"ItemExists" + size, LmdbStore::kName, each(lmdb, &LmdbStore::Exists),
                 each(project, &PublicStore::Exists), kExistsLimits.For(items)});
  table.Compare({"NextItem and GetData" + size, "LMDB, widened", WalksOf(items, lmdb),
                 WalksOf(items, project), kWalkLimits.For(items)});
  SqliteStore sqlite(folder, SqliteTable::kPair);
  sqlite.RemoveFiles();
  sqlite.MakeColumns(set.items);
  table.Compare({"ColumnReader, 13 columns" + size, "SQLite, SELECT", ColumnsOf(items, sqlite),
                 ColumnsOf(items, project), Target::Ratio(kColumnsLimit)});
  sqlite.Close();
  sqlite.RemoveFiles();
  project.Close();
  lmdb.Close();
  project.RemoveFiles();
  lmdb.RemoveFiles();
}

void ComparePublicChanges(RatioTable& table, std::filesystem::path const& folder,
                          std::size_t items) {
  std::vector<Item> const ordered = MakeDataSet(items).items;
  std::vector<Item> const shuffled = Shuffled(ordered);
  PublicStore project(folder);
  LmdbStore lmdb(folder);
  SqliteStore sqlite(folder, SqliteTable::kPair);
  auto const own = [&](auto const& source) {
    return LoadsOf(
        items, project, [&] { project.Load(source); }, ThreadTime);
  };
  auto const puts = [&](auto const& source) {
    return LoadsOf(
        items, lmdb, [&] { lmdb.Load(source, false); }, ThreadTime);
  };
  std::string const size = SizeText(items);
  std::string const inOrder = "WriteItem in key order, " + size;
  table.Compare({inOrder, sqlite.Name(),
                 LoadsOf(
                     items, sqlite, [&] { sqlite.Load(ordered, true); }, ThreadTime),
                 own(ordered), kOrderedLoadLimits.For(items)});
  table.Compare(
      {inOrder, LmdbStore::kName, puts(ordered), own(ordered), kOrderedLoadLmdbLimits.For(items)});
  table.Compare({"WriteItem in random order, " + size, LmdbStore::kName, puts(shuffled),
                 own(shuffled), kRandomLoadLimits.For(items)});
  project.RemoveFiles();
  lmdb.RemoveFiles();
  sqlite.RemoveFiles();
}

void ComparePublicDeletes(RatioTable& table, std::filesystem::path const& folder,
                          std::size_t items) {
  std::vector<Item> const ordered = MakeDataSet(items).items;
  PublicStore project(folder);
  LmdbStore lmdb(folder);
  std::vector<Pair> keys = Shuffled(KeysOf(ordered));
  keys.resize(keys.size() / kDeletedPart);
  table.Compare({"DeleteItem of any key, " + SizeText(items), LmdbStore::kName,
                 DeletesOf(
                     keys, lmdb, [&] { lmdb.Load(ordered, true); }, ThreadTime),
                 DeletesOf(
                     keys, project, [&] { project.Load(ordered); }, ThreadTime),
                 kDeleteLimits.For(items)});
  project.RemoveFiles();
  lmdb.RemoveFiles();
}

void CompareManyBanks(RatioTable& table, std::filesystem::path const& folder) {
  DataSet const set = MakeDataSet(kItemsOfBanks);
  PublicStore one(folder / "one");
  PublicStore many(folder / "many");
  for (char const* name : {"one", "many"}) std::filesystem::create_directories(folder / name);
  one.LoadInto(1, set.items);
  many.LoadInto(kBanks, set.items);
  one.OpenForReading();
  many.OpenForReading();
  auto const reads = [&](PublicStore& store, std::size_t banks,
                         std::vector<std::size_t> const& in) {
    return ReadsOf(in.size(), [&, banks](std::size_t at) {
      return store.GetFrom(in[at] % banks, set.items[in[at]].key);
    });
  };
  char const* const what = "ReadItem over 1,000 banks in turn";
  std::vector<std::size_t> const neighbours = BanksInTurn(false);
  std::vector<std::size_t> const scattered = BanksInTurn(true);
  table.Compare({what, "over one bank", reads(one, 1, neighbours), reads(many, kBanks, neighbours),
                 Target::Ratio(kManyBanksLimit)});
  table.Compare({what, "over one bank, random keys", reads(one, 1, scattered),
                 reads(many, kBanks, scattered), Target::None()});
  for (PublicStore* store : {&one, &many}) {
    store->Close();
    store->RemoveFiles();
  }
  for (char const* name : {"one", "many"}) std::filesystem::remove(folder / name);
}

}  // namespace zel::bench

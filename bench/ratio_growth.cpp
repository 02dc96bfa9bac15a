// How the time of a read, the time of a write and the bytes of an item grow with the number of
// items: the library as a host uses it, LMDB and SQLite.
#include <sys/stat.h>

#include <vector>

#include "bench/lmdb_store.h"
#include "bench/public_store.h"
#include "bench/ratio_cases.h"
#include "bench/size_text.h"
#include "bench/sqlite_store.h"
#include "bench/store_sides.h"

namespace zel::bench {
namespace {

constexpr int kMostRounds = 3;
// Loads of more items in random order take minutes with each of the stores.
constexpr std::size_t kMostInRandomOrder = 1'000'000;

// A store in a folder of its own.
template <typename Store>
struct InFolder {
  template <typename... Rest>
  InFolder(std::filesystem::path const& parent, char const* name, Rest... rest)
      : folder(parent / name),
        store((std::filesystem::create_directories(folder), folder), rest...) {}
  InFolder(InFolder const&) = delete;
  InFolder& operator=(InFolder const&) = delete;
  ~InFolder() {
    store.Close();
    std::filesystem::remove_all(folder);
  }

  // What the files take on disk: one that has holes takes less than its length.
  double BytesOnDisk() const {
    constexpr double kUnit = 512.0;  // of st_blocks
    double bytes = 0.0;
    for (auto const& file : std::filesystem::directory_iterator(folder)) {
      struct stat info {};
      if (::stat(file.path().c_str(), &info) == 0)
        bytes += kUnit * static_cast<double>(info.st_blocks);
    }
    return bytes;
  }

  std::filesystem::path folder;
  Store store;
};

// Bytes per item of what is loaded.
template <typename Store>
Side SizesOf(std::size_t items, InFolder<Store> const& store) {
  return [items, &store](int) {
    return Timing{store.BytesOnDisk() / static_cast<double>(items), 0};
  };
}

template <typename Store>
Side GetsOf(std::vector<Pair> const& keys, Store& store) {
  return ReadsOf(keys.size(), [&](std::size_t at) { return store.GetWidened(keys[at]); });
}

// The stores that are compared, and the items they are loaded with.
struct Growing {
  Growing(std::filesystem::path const& folder, std::size_t items)
      : project(folder, "project"),
        lmdb(folder, "lmdb"),
        sqlite(folder, "sqlite", SqliteTable::kPair),
        source(MakeDataSet(items).items) {}

  InFolder<PublicStore> project;
  InFolder<LmdbStore> lmdb;
  InFolder<SqliteStore> sqlite;
  std::vector<Item> source;
};

void CompareLoads(RatioTable& table, Growing& stores, bool ascending) {
  std::vector<Item> const& source = stores.source;
  auto const loads = [&](auto& store, auto load) {
    return LoadsOf(source.size(), store, load, ThreadTime);
  };
  Side const own = loads(stores.project.store, [&] { stores.project.store.Load(source); });
  Side const others[] = {
      loads(stores.lmdb.store, [&] { stores.lmdb.store.Load(source, ascending); }),
      loads(stores.sqlite.store, [&] { stores.sqlite.store.Load(source, ascending); })};
  Side const sizes[] = {SizesOf(source.size(), stores.lmdb), SizesOf(source.size(), stores.sqlite)};
  std::string const peers[] = {LmdbStore::kName, stores.sqlite.store.Name()};
  std::string const what =
      (ascending ? " in key order, " : " in random order, ") + SizeText(source.size());
  for (std::size_t i = 0; i < 2; ++i) {
    table.Compare({"write" + what, peers[i], others[i], own, Target::None(), "ns", kMostRounds});
  }
  for (std::size_t i = 0; i < 2; ++i) {
    table.Compare({"size, written" + what, peers[i], sizes[i],
                   SizesOf(source.size(), stores.project), Target::None(), "B", 1});
  }
}

// Reads in random order of what was written last.
void CompareReads(RatioTable& table, Growing& stores) {
  std::vector<Pair> const keys = Shuffled(KeysOf(stores.source));
  stores.project.store.OpenForReading();
  stores.lmdb.store.OpenForReading();
  stores.sqlite.store.OpenForReading();
  Side const own = GetsOf(keys, stores.project.store);
  Side const others[] = {GetsOf(keys, stores.lmdb.store), GetsOf(keys, stores.sqlite.store)};
  std::string const peers[] = {LmdbStore::kName, stores.sqlite.store.Name()};
  for (std::size_t i = 0; i < 2; ++i) {
    table.Compare({"read, " + SizeText(keys.size()), peers[i], others[i], own, Target::None(), "ns",
                   kMostRounds});
  }
}

void CompareSize(RatioTable& table, std::filesystem::path const& folder, std::size_t items) {
  Growing stores(folder, items);
  CompareLoads(table, stores, true);
  CompareReads(table, stores);
  if (items > kMostInRandomOrder) return;
  stores.source = Shuffled(std::move(stores.source));
  CompareLoads(table, stores, false);
}

}  // namespace

void CompareGrowth(RatioTable& table, std::filesystem::path const& folder, std::size_t items) {
  if (items != 0) return CompareSize(table, folder, items);
  constexpr std::size_t kSizes[] = {10'000, 100'000, 1'000'000, 10'000'000};
  for (std::size_t const size : kSizes) CompareSize(table, folder, size);
}

}  // namespace zel::bench

#include <algorithm>
#include <stdexcept>

#include "bench/lmdb_store.h"
#include "bench/ratio_cases.h"
#include "bench/size_text.h"
#include "bench/sqlite_store.h"
#include "bench/store_sides.h"
#include "bench/zel_store.h"

namespace zel::bench {
namespace {

constexpr double kLoadLimit = 1.0;

// Every tenth of the keys that the library has in leaves. As long as only these are deleted, no
// node changes its place in the tree and they all stay in leaves.
std::vector<Pair> KeysToDelete(ZelStore& project, std::vector<Item> const& items) {
  project.RemoveFiles();
  project.Load(items, true);
  project.OpenForReading();
  std::vector<Pair> const inLeaves = project.LeafKeys();
  project.Close();
  std::vector<Pair> keys;
  for (std::size_t i = 0; i < inLeaves.size(); i += kDeletedPart) keys.push_back(inLeaves[i]);
  return Shuffled(keys);
}

}  // namespace

void CompareLoads(RatioTable& table, std::filesystem::path const& folder, std::size_t items) {
  std::vector<Item> const ordered = MakeDataSet(items).items;
  std::vector<Item> const shuffled = Shuffled(ordered);
  ZelStore project(folder);
  LmdbStore lmdb(folder);
  SqliteStore sqlite(folder, SqliteTable::kPair);
  SqliteStore rows(folder, SqliteTable::kRowId);
  Target const limit = Target::Ratio(kLoadLimit);
  for (bool const ascending : {true, false}) {
    std::vector<Item> const& source = ascending ? ordered : shuffled;
    std::string const order =
        (ascending ? " in key order, " : " in random order, ") + SizeText(items);
    auto const loads = [&](auto& store) {
      return LoadsOf(
          items, store, [&, ascending] { store.Load(source, ascending); }, ThreadTime);
    };
    Side const byTree = loads(project);
    Side const byItem = LoadsOf(
        items, project, [&] { project.LoadThroughItems(source); }, ThreadTime);
    std::string const tree = "internal: load" + order;
    std::string const item = "load by WriteItem" + order;
    table.Compare({tree, sqlite.Name(), loads(sqlite), byTree, limit});
    table.Compare({tree, rows.Name(), loads(rows), byTree, Target::None()});
    table.Compare({tree, LmdbStore::kName, loads(lmdb), byTree, Target::None()});
    table.Compare({item, sqlite.Name(), loads(sqlite), byItem, limit});
    table.Compare({item, rows.Name(), loads(rows), byItem, Target::None()});
  }
  project.RemoveFiles();
  lmdb.RemoveFiles();
  sqlite.RemoveFiles();
  rows.RemoveFiles();
}

void CompareDeletes(RatioTable& table, std::filesystem::path const& folder, std::size_t items) {
  std::vector<Item> const all = MakeDataSet(items).items;
  ZelStore project(folder);
  LmdbStore lmdb(folder);
  SqliteStore sqlite(folder, SqliteTable::kPair);
  std::vector<Pair> const keys = KeysToDelete(project, all);
  std::string const what = "internal: delete from leaves, " + SizeText(items);
  auto const deletes = [&](auto& store) {
    return DeletesOf(
        keys, store, [&] { store.Load(all, true); }, ThreadTime);
  };
  Side const own = deletes(project);
  table.Compare({what, LmdbStore::kName, deletes(lmdb), own, Target::None()});
  table.Compare({what, sqlite.Name(), deletes(sqlite), own, Target::None()});
  project.RemoveFiles();
  lmdb.RemoveFiles();
  sqlite.RemoveFiles();
}

}  // namespace zel::bench

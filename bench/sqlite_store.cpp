#include "bench/sqlite_store.h"

#include <stdexcept>

namespace zel::bench {

// Parameters: 1 and 2 the key, 3 the data. A select returns the data first, a walk also the key
// after it.
struct SqliteTexts {
  char const* name;
  char const* file;
  char const* create;
  char const* insert;
  char const* select;
  char const* walk;
  char const* erase;
};

namespace {

constexpr SqliteTexts kPairTexts = {
    "SQLite",
    "pairs.sqlite",
    "CREATE TABLE pair(a INT, b INT, data BLOB, PRIMARY KEY(a, b)) WITHOUT ROWID",
    "INSERT INTO pair(a, b, data) VALUES(?1, ?2, ?3)",
    "SELECT data FROM pair WHERE a = ?1 AND b = ?2",
    "SELECT data, a, b FROM pair ORDER BY a, b",
    "DELETE FROM pair WHERE a = ?1 AND b = ?2",
};
constexpr SqliteTexts kRowIdTexts = {
    "SQLite, rowid",
    "rows.sqlite",
    "CREATE TABLE pair(id INTEGER PRIMARY KEY, data BLOB)",
    "INSERT INTO pair(id, data) VALUES(?1, ?3)",
    "SELECT data FROM pair WHERE id = ?1",
    "SELECT data, id FROM pair ORDER BY id",
    "DELETE FROM pair WHERE id = ?1",
};

constexpr char kSettings[] =
    "PRAGMA journal_mode = OFF;"
    "PRAGMA synchronous = OFF;"
    "PRAGMA locking_mode = EXCLUSIVE;"
    "PRAGMA cache_size = -2000000;"  // KiB
    "PRAGMA mmap_size = 4000000000;";

constexpr int kDataParameter = 3;

std::int64_t RowIdOf(Pair key) noexcept {
  return std::int64_t{key.a} * (std::int64_t{1} << 32) + key.b;
}
Pair PairOf(std::int64_t rowId) noexcept {
  return {static_cast<std::int32_t>(rowId >> 32), static_cast<std::int32_t>(rowId & 0xFFFFFFFF)};
}

}  // namespace

SqliteStore::SqliteStore(std::filesystem::path const& folder, SqliteTable table)
    : table_(table), texts_(table == SqliteTable::kPair ? kPairTexts : kRowIdTexts) {
  path_ = folder / texts_.file;
}

char const* SqliteStore::Name() const noexcept { return texts_.name; }

void SqliteStore::RemoveFiles() const { std::filesystem::remove(path_); }

void SqliteStore::Run(char const* sql) {
  if (sqlite3_exec(database_, sql, nullptr, nullptr, nullptr) != SQLITE_OK) {
    throw std::runtime_error(sqlite3_errmsg(database_));
  }
}

void SqliteStore::Prepare(char const* sql) {
  if (sqlite3_prepare_v2(database_, sql, -1, &statement_, nullptr) != SQLITE_OK) {
    throw std::runtime_error(sqlite3_errmsg(database_));
  }
}

void SqliteStore::Open(int flags) {
  if (sqlite3_open_v2(path_.c_str(), &database_, flags | SQLITE_OPEN_NOMUTEX, nullptr) !=
      SQLITE_OK) {
    throw std::runtime_error(sqlite3_errmsg(database_));
  }
}

void SqliteStore::Close() noexcept {
  sqlite3_finalize(statement_);
  sqlite3_close(database_);
  statement_ = nullptr;
  database_ = nullptr;
}

void SqliteStore::OpenForReading() {
  Open(SQLITE_OPEN_READONLY);
  Run(kSettings);
  Run("BEGIN");
  Prepare(texts_.select);
}

void SqliteStore::BindKey(Pair key) {
  if (table_ == SqliteTable::kRowId) {
    sqlite3_bind_int64(statement_, 1, RowIdOf(key));
  } else {
    sqlite3_bind_int(statement_, 1, key.a);
    sqlite3_bind_int(statement_, 2, key.b);
  }
}

void SqliteStore::Load(std::span<Item const> items, bool) {
  Open(SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
  Run(kSettings);
  Run("BEGIN");
  Run(texts_.create);
  Prepare(texts_.insert);
  for (Item const& item : items) {
    BindKey(item.key);
    sqlite3_bind_blob(statement_, kDataParameter, item.data.data(), sizeof item.data,
                      SQLITE_STATIC);
    if (sqlite3_step(statement_) != SQLITE_DONE) {
      throw std::runtime_error(sqlite3_errmsg(database_));
    }
    sqlite3_reset(statement_);
  }
  Run("COMMIT");
  Close();
}

template <typename Sum>
std::uint64_t SqliteStore::Read(Pair key, Sum const& sum) {
  BindKey(key);
  bool const found = sqlite3_step(statement_) == SQLITE_ROW;
  std::uint64_t const result = found ? sum(sqlite3_column_blob(statement_, 0)) : kAbsent;
  sqlite3_reset(statement_);
  return result;
}

std::uint64_t SqliteStore::Get(Pair key) {
  return Read(key, [](void const* data) { return SumOf(data); });
}

std::uint64_t SqliteStore::GetWidened(Pair key) {
  return Read(key, [](void const* data) { return SumOfFloats(Widen(data)); });
}

template <typename Visit>
void SqliteStore::ForEach(Visit const& visit) {
  sqlite3_finalize(statement_);
  statement_ = nullptr;
  Prepare(texts_.walk);
  while (sqlite3_step(statement_) == SQLITE_ROW) visit(sqlite3_column_blob(statement_, 0));
  sqlite3_finalize(statement_);
  statement_ = nullptr;
  Prepare(texts_.select);
}

std::uint64_t SqliteStore::Walk() {
  std::uint64_t sum = 0;
  ForEach([&](void const* data) { sum += SumOf(data); });
  return sum;
}

std::uint64_t SqliteStore::Hash() {
  std::uint64_t hash = 0;
  ForEach([&](void const* data) {
    Pair const key = table_ == SqliteTable::kRowId ? PairOf(sqlite3_column_int64(statement_, 1))
                                                   : Pair{sqlite3_column_int(statement_, 1),
                                                          sqlite3_column_int(statement_, 2)};
    hash = HashOf(hash, key, data);
  });
  return hash;
}

void SqliteStore::MakeColumns(std::span<Item const> items) {
  Open(SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
  Run(kSettings);
  Run("BEGIN");
  Run("CREATE TABLE item(a INT, b INT, v0 REAL, v1 REAL, v2 REAL, v3 REAL, v4 REAL, v5 REAL, "
      "v6 REAL, v7 REAL, v8 REAL, v9 REAL, v10 REAL, v11 REAL, ref INT, PRIMARY KEY(a, b)) "
      "WITHOUT ROWID");
  Prepare("INSERT INTO item VALUES(?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)");
  constexpr int kFirstValue = 3;
  for (Item const& item : items) {
    Decoded const values = Widen(item.data.data());
    BindKey(item.key);
    for (std::size_t i = 0; i < kFloats; ++i) {
      sqlite3_bind_double(statement_, kFirstValue + static_cast<int>(i), values.values[i]);
    }
    sqlite3_bind_int(statement_, kFirstValue + static_cast<int>(kFloats), values.reference);
    sqlite3_step(statement_);
    sqlite3_reset(statement_);
  }
  sqlite3_finalize(statement_);
  statement_ = nullptr;
  Run("COMMIT");
  Prepare("SELECT v0, v1, v2, v3, v4, v5, v6, v7, v8, v9, v10, v11, ref FROM item ORDER BY a, b");
}

std::uint64_t SqliteStore::Columns() {
  ColumnArrays columns;
  std::uint64_t sum = 0;
  std::size_t row = 0;
  while (sqlite3_step(statement_) == SQLITE_ROW) {
    for (std::size_t i = 0; i < kFloats; ++i) {
      columns.values[i][row] = sqlite3_column_double(statement_, static_cast<int>(i));
    }
    columns.reference[row] = sqlite3_column_int(statement_, static_cast<int>(kFloats));
    if (++row < ColumnArrays::kRows) continue;
    sum += columns.Sum(row);
    row = 0;
  }
  sqlite3_reset(statement_);
  return row == 0 ? sum : sum + columns.Sum(row);
}

std::size_t SqliteStore::Delete(std::span<Pair const> keys) {
  Open(SQLITE_OPEN_READWRITE);
  Run(kSettings);
  Run("BEGIN");
  Prepare(texts_.erase);
  std::size_t deleted = 0;
  for (Pair const key : keys) {
    BindKey(key);
    sqlite3_step(statement_);
    deleted += static_cast<std::size_t>(sqlite3_changes(database_));
    sqlite3_reset(statement_);
  }
  Run("COMMIT");
  Close();
  return deleted;
}

std::uint64_t SqliteStore::OpenReadClose(Pair key) {
  Open(SQLITE_OPEN_READONLY);
  Prepare(texts_.select);
  std::uint64_t const sum = Get(key);
  Close();
  return sum;
}

}  // namespace zel::bench

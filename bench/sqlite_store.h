// The items in an SQLite file, through statements that are prepared once.
//
// No journal, no syncing, no other process expected, a cache and a map larger than the file. Reads
// share one transaction.
#pragma once

#include <sqlite3.h>

#include <cstdint>
#include <filesystem>
#include <span>
#include <string>

#include "bench/pairs.h"

namespace zel::bench {

enum class SqliteTable {
  kPair,  // the two numbers as primary key, without rowid
  kRowId  // both numbers in one 64-bit integer primary key, SQLite's fastest access
};

struct SqliteTexts;

class SqliteStore {
 public:
  SqliteStore(std::filesystem::path const& folder, SqliteTable table);
  SqliteStore(SqliteStore const&) = delete;
  SqliteStore& operator=(SqliteStore const&) = delete;
  ~SqliteStore() { Close(); }

  char const* Name() const noexcept;
  void RemoveFiles() const;
  // From no file to a closed one, in one transaction.
  void Load(std::span<Item const> items, bool ascending);
  void OpenForReading();
  void Close() noexcept;

  std::uint64_t Get(Pair key);
  // The floats widened to doubles.
  std::uint64_t GetWidened(Pair key);
  std::uint64_t Walk();
  // Keys, order and data as one number.
  std::uint64_t Hash();
  // From closed to closed, in one transaction. Returns how many were present.
  std::size_t Delete(std::span<Pair const> keys);
  // The items as a table of 15 columns, key, 12 floats and reference, in a file of its own; its 13
  // columns of data read in key order into arrays, in batches. From the call of MakeColumns on, the
  // store is open for Columns alone.
  void MakeColumns(std::span<Item const> items);
  std::uint64_t Columns();
  // From closed to closed.
  std::uint64_t OpenReadClose(Pair key);

 private:
  void Open(int flags);
  void Run(char const* sql);
  void Prepare(char const* sql);
  void BindKey(Pair key);
  template <typename Sum>
  std::uint64_t Read(Pair key, Sum const& sum);
  template <typename Visit>
  void ForEach(Visit const& visit);

  std::string path_;
  SqliteTable table_;
  SqliteTexts const& texts_;
  sqlite3* database_ = nullptr;
  sqlite3_stmt* statement_ = nullptr;
};

}  // namespace zel::bench

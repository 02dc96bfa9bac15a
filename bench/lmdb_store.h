// The items in an LMDB file: 8-byte key, 56-byte value.
//
// The key is the two component numbers, the larger byte first, so that LMDB's own comparison yields
// the order of the library. Nothing is synced to disk (MDB_NOSYNC) and a load writes into the map.
#pragma once

#include <lmdb.h>

#include <cstdint>
#include <filesystem>
#include <span>
#include <string>

#include "bench/pairs.h"

namespace zel::bench {

class LmdbStore {
 public:
  static constexpr char const* kName = "LMDB";

  // The file is created by the first load.
  explicit LmdbStore(std::filesystem::path const& folder);
  LmdbStore(LmdbStore const&) = delete;
  LmdbStore& operator=(LmdbStore const&) = delete;
  ~LmdbStore() { Close(); }

  void RemoveFiles() const;
  // From no file to a closed one, in one transaction. `ascending` items are appended without a
  // search.
  void Load(std::span<Item const> items, bool ascending);
  // Reads share one transaction, which lasts until Close.
  void OpenForReading();
  void Close() noexcept;

  std::uint64_t Get(Pair key) {
    MDB_val value;
    return Find(key, value) ? SumOf(value.mv_data) : kAbsent;
  }
  // Decodes the item's floats through text.
  std::uint64_t GetDecoded(Pair key) {
    MDB_val value;
    return Find(key, value) ? SumOf(DecodeThroughText(value.mv_data)) : kAbsent;
  }
  // Widens the item's floats to doubles.
  std::uint64_t GetWidened(Pair key) {
    MDB_val value;
    return Find(key, value) ? SumOfFloats(Widen(value.mv_data)) : kAbsent;
  }
  std::uint64_t Exists(Pair key) {
    MDB_val value;
    return Find(key, value) ? 1 : 0;
  }
  std::uint64_t Walk();
  std::uint64_t WalkWidened();
  // Keys, order and data as one number.
  std::uint64_t Hash();
  // From closed to closed, in one transaction. Returns how many were present.
  std::size_t Delete(std::span<Pair const> keys);
  // From closed to closed.
  std::uint64_t OpenReadClose(Pair key);

 private:
  using KeyBytes = std::uint64_t;

  static KeyBytes BytesOf(Pair key) noexcept;
  static Pair PairOf(MDB_val const& key) noexcept;
  bool Find(Pair key, MDB_val& value);
  void Open(unsigned flags, unsigned transaction);
  void Commit();
  template <typename Visit>
  void ForEach(Visit const& visit);

  std::string path_;
  MDB_env* env_ = nullptr;
  MDB_txn* transaction_ = nullptr;
  MDB_dbi table_ = 0;
};

}  // namespace zel::bench

#include "bench/lmdb_store.h"

#include <bit>
#include <cstring>
#include <stdexcept>

namespace zel::bench {
namespace {

constexpr std::size_t kMapBytes = std::size_t{2} << 30;
constexpr unsigned kMode = 0600;

void Check(int result) {
  if (result != MDB_SUCCESS) throw std::runtime_error(mdb_strerror(result));
}

std::uint64_t BigEndian(std::uint64_t word) noexcept {
  return std::endian::native == std::endian::little ? __builtin_bswap64(word) : word;
}

}  // namespace

LmdbStore::LmdbStore(std::filesystem::path const& folder) : path_(folder / "pairs.mdb") {}

void LmdbStore::RemoveFiles() const {
  std::filesystem::remove(path_);
  std::filesystem::remove(path_ + "-lock");
}

// Component numbers are positive, so the order of the bytes is that of the numbers.
LmdbStore::KeyBytes LmdbStore::BytesOf(Pair key) noexcept {
  return BigEndian(std::uint64_t{static_cast<std::uint32_t>(key.a)} << 32 |
                   static_cast<std::uint32_t>(key.b));
}

Pair LmdbStore::PairOf(MDB_val const& key) noexcept {
  KeyBytes bytes = 0;
  std::memcpy(&bytes, key.mv_data, sizeof bytes);
  std::uint64_t const word = BigEndian(bytes);
  return {static_cast<std::int32_t>(word >> 32), static_cast<std::int32_t>(word & 0xFFFFFFFF)};
}

void LmdbStore::Open(unsigned flags, unsigned transaction) {
  Check(mdb_env_create(&env_));
  // A reader uses the size of the file.
  if ((flags & MDB_RDONLY) == 0) Check(mdb_env_set_mapsize(env_, kMapBytes));
  Check(mdb_env_open(env_, path_.c_str(), flags | MDB_NOSUBDIR | MDB_NOTLS, kMode));
  Check(mdb_txn_begin(env_, nullptr, transaction, &transaction_));
  Check(mdb_dbi_open(transaction_, nullptr, 0, &table_));
}

void LmdbStore::Commit() {
  MDB_txn* const transaction = transaction_;
  transaction_ = nullptr;
  Check(mdb_txn_commit(transaction));
}

void LmdbStore::Close() noexcept {
  if (transaction_ != nullptr) mdb_txn_abort(transaction_);
  if (env_ != nullptr) mdb_env_close(env_);
  transaction_ = nullptr;
  env_ = nullptr;
}

void LmdbStore::OpenForReading() { Open(MDB_RDONLY, MDB_RDONLY); }

void LmdbStore::Load(std::span<Item const> items, bool ascending) {
  Open(MDB_NOSYNC | MDB_WRITEMAP, 0);
  for (Item const& item : items) {
    KeyBytes bytes = BytesOf(item.key);
    MDB_val key{sizeof bytes, &bytes};
    MDB_val value{sizeof item.data, const_cast<std::int32_t*>(item.data.data())};
    Check(mdb_put(transaction_, table_, &key, &value, ascending ? MDB_APPEND : MDB_NOOVERWRITE));
  }
  Commit();
  Close();
}

bool LmdbStore::Find(Pair key, MDB_val& value) {
  KeyBytes bytes = BytesOf(key);
  MDB_val lmdbKey{sizeof bytes, &bytes};
  return mdb_get(transaction_, table_, &lmdbKey, &value) == MDB_SUCCESS;
}

template <typename Visit>
void LmdbStore::ForEach(Visit const& visit) {
  MDB_cursor* cursor = nullptr;
  Check(mdb_cursor_open(transaction_, table_, &cursor));
  MDB_val key;
  MDB_val value;
  while (mdb_cursor_get(cursor, &key, &value, MDB_NEXT) == MDB_SUCCESS) visit(key, value);
  mdb_cursor_close(cursor);
}

std::uint64_t LmdbStore::Walk() {
  std::uint64_t sum = 0;
  ForEach([&](MDB_val const&, MDB_val const& value) { sum += SumOf(value.mv_data); });
  return sum;
}

std::uint64_t LmdbStore::WalkWidened() {
  std::uint64_t sum = 0;
  ForEach([&](MDB_val const&, MDB_val const& value) { sum += SumOfFloats(Widen(value.mv_data)); });
  return sum;
}

std::uint64_t LmdbStore::Hash() {
  std::uint64_t hash = 0;
  ForEach([&](MDB_val const& key, MDB_val const& value) {
    hash = HashOf(hash, PairOf(key), value.mv_data);
  });
  return hash;
}

std::size_t LmdbStore::Delete(std::span<Pair const> keys) {
  Open(MDB_NOSYNC | MDB_WRITEMAP, 0);
  std::size_t deleted = 0;
  for (Pair const pair : keys) {
    KeyBytes bytes = BytesOf(pair);
    MDB_val key{sizeof bytes, &bytes};
    deleted += mdb_del(transaction_, table_, &key, nullptr) == MDB_SUCCESS ? 1 : 0;
  }
  Commit();
  Close();
  return deleted;
}

std::uint64_t LmdbStore::OpenReadClose(Pair key) {
  OpenForReading();
  std::uint64_t const sum = Get(key);
  Close();
  return sum;
}

}  // namespace zel::bench

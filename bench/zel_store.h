// The items in an NRTL bank of a component library, format 1: 14 words a record.
//
// The library uses the system's files without syncing them to disk, since the peers do not sync
// either. There are two ways to an item: the bank's tree, once the bank has been located, and
// LibMaint, which locates bank and item at each call.
#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "bench/pairs.h"
#include "maint/lib_maint.h"
#include "store/btree.h"
#include "store/lib_file.h"
#include "zelaccess/BankTypes.h"
#include "zelaccess/Key.h"

namespace zel::bench {

class ZelStore {
 public:
  // The files are created by the first load.
  explicit ZelStore(std::filesystem::path const& folder);
  ZelStore(ZelStore const&) = delete;
  ZelStore& operator=(ZelStore const&) = delete;
  ~ZelStore();

  void RemoveFiles() const;
  // From no file to a closed library: Find, Insert, fill, write the node, item after item.
  void Load(std::span<Item const> items, bool ascending);
  // The same through WriteItem; the bank is filled by its PutData.
  void LoadThroughItems(std::span<Item const> items);
  void OpenForReading();
  void Close() noexcept;

  std::uint64_t Get(Pair key) {
    std::int32_t const words[] = {key.a, key.b};
    std::int32_t const* data = nullptr;
    return tree_->Find(words, data) ? SumOf(data) : kAbsent;
  }
  // Through ReadItem and the bank's GetData.
  std::uint64_t GetDecoded(Pair key);
  std::uint64_t Walk();
  // Keys, order and data as one number.
  std::uint64_t Hash();
  // The keys that are in leaves, in key order. The store must be open.
  std::vector<Pair> LeafKeys();
  // From closed to closed. Returns how many operations reported success.
  std::size_t Delete(std::span<Pair const> keys);
  // From closed to closed.
  std::uint64_t OpenReadClose(Pair key);

 private:
  using Head = std::array<std::int32_t, format::kHeadWords>;

  void Create();
  void Open(accModes mode);
  void LocateBank();
  void StoreHead();

  std::string path_;
  Key* key_;
  IZelBankDef* bank_;
  IZelNrtl* nrtl_;
  std::optional<LibFile_i> library_;
  std::optional<LibMaint_i> maint_;
  Head head_{};  // of the bank's tree
  std::optional<BTree_i> tree_;
};

}  // namespace zel::bench

// The items in a library, used as a host uses it: through LibMaint, Key and a bank alone.
//
// Only the library object is made differently from a host's: its files are not synced, like those
// of the other stores.
#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <span>
#include <string>

#include "bench/pairs.h"
#include "zelaccess/ZelAccess.h"

namespace zel::bench {

class PublicStore {
 public:
  // The files are created by the first load.
  explicit PublicStore(std::filesystem::path const& folder);
  PublicStore(PublicStore const&) = delete;
  PublicStore& operator=(PublicStore const&) = delete;
  ~PublicStore() = default;

  void RemoveFiles() const;
  // From no file to a closed library, by WriteItem.
  void Load(std::span<Item const> items);
  // The same, with the items distributed over a number of banks: item i is in bank i modulo
  // `banks`.
  void LoadInto(std::size_t banks, std::span<Item const> items);
  void OpenForReading();
  void Close() noexcept;

  // ItemExists.
  std::uint64_t Exists(Pair key);
  // ReadItem and GetData, from one bank or from one of those of LoadInto.
  std::uint64_t GetWidened(Pair key) { return GetFrom(kBank, key); }
  std::uint64_t GetFrom(std::size_t bank, Pair key) { return GetFrom(names_[bank], key); }
  // NextItem and GetData.
  std::uint64_t WalkWidened();
  // All fields of the items into arrays, by a ColumnReader in batches; returns a sum over them.
  std::uint64_t Columns();
  // Keys, order and data as one number, by NextItem and GetData.
  std::uint64_t Hash();
  // From closed to closed, by DeleteItem. Returns how many were present.
  std::size_t Delete(std::span<Pair const> keys);

 private:
  static constexpr char kType[] = "NRTL";
  static constexpr char kBank[] = "BENCH";
  using BankName = std::array<char, 9>;

  std::uint64_t GetFrom(char const* bank, Pair key);
  std::uint64_t GetFrom(BankName const& name, Pair key) { return GetFrom(name.data(), key); }
  void Create();
  void Open(accModes mode);
  void Write(char const* bank, Item const& item);
  Decoded Get();
  template <typename Visit>
  void ForEach(Visit const& visit);

  std::string path_;
  Handle<Key> key_;
  BankFace<IZelNrtl> nrtl_;
  Handle<LibFile> library_;
  Handle<LibMaint> maint_;
  std::vector<BankName> names_;
};

}  // namespace zel::bench

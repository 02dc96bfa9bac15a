// What is remembered between calls: the class of the last bank object, and where banks are.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <typeinfo>
#include <unordered_map>

#include "banks/bank_base.h"
#include "frame/limits.h"
#include "maint/block_info.h"
#include "maint/face_ref.h"
#include "store/format.h"
#include "store/lib_file.h"

namespace zel {

// Type and name of a bank, as given, as numbers; empty for names that no bank has.
struct BankName {
  std::uint64_t type = 0;
  std::uint64_t name = 0;

  // The characters of a text, kTooLong if there are more than a name has.
  static std::uint64_t Packed(char const* text) noexcept {
    static_assert(kMostName == sizeof(std::uint64_t));
    std::uint64_t word = 0;
    for (std::size_t i = 0; text != nullptr && text[i] != '\0'; ++i) {
      if (i == kMostName) return kTooLong;
      word |= std::uint64_t{static_cast<unsigned char>(text[i])} << 8 * i;
    }
    return word;
  }
  bool IsEmpty() const noexcept { return type == 0 || type == kTooLong || name == kTooLong; }
  bool operator==(BankName const&) const = default;

 private:
  static constexpr std::uint64_t kTooLong = ~std::uint64_t{0};
};

// A bank object that a host passed to a call, with what it reports about its blocks. All objects of
// one of the library's own classes report the same: an object of the same class as the last one is
// not queried again. An object of another implementation is queried each time.
class BankObject {
 public:
  // False when the object is null or has no IZelBankIO. The host keeps the object alive during the
  // call.
  bool Take(IZelBankDef* bank) {
    if (bank != nullptr && class_ != nullptr && &typeid(*bank) == class_) {
      io_ = static_cast<BankBase_i*>(bank);
      return true;
    }
    return TakeOther(bank);
  }

  IZelBankIO* Io() const noexcept { return io_; }
  BlockInfo const& Info() const noexcept { return *info_; }
  // The bank of the object's type with this name.
  BankName Named(char const* name) const noexcept { return {type_, BankName::Packed(name)}; }
  // Null for an object of another implementation.
  std::type_info const* Class() const noexcept { return class_; }

 private:
  bool TakeOther(IZelBankDef* bank) {
    class_ = nullptr;
    auto const io = FaceRef<IZelBankIO>::Of(bank, IID_IZelBankIO);
    io_ = io.Get();
    if (!io) return false;
    info_.emplace(io_);
    type_ = BankName::Packed(info_->type);
    if (dynamic_cast<BankBase_i*>(bank) != nullptr) class_ = &typeid(*bank);
    return true;
  }

  IZelBankIO* io_ = nullptr;
  std::optional<BlockInfo> info_;
  std::uint64_t type_ = 0;  // as in a BankName
  std::type_info const* class_ = nullptr;
};

// The state of a library at a moment: what was located then is valid as long as the state is the
// same.
struct LibraryStamp {
  std::uint64_t changes = 0;  // writes of blocks
  // 0 in a library open for reading, where they change nothing.
  std::uint64_t directorySearches = 0;
  std::uint32_t closings = 0;  // of files

  static LibraryStamp Of(LibFile_i& library) noexcept {
    BlockStore& store = library.Store();
    bool const canChange = store.Mode() == accUpdate;
    return {store.Changes(), canChange ? library.DirectorySearches() : 0, store.Closings()};
  }
  bool operator==(LibraryStamp const&) const = default;
};

// The heads of banks of a library open for reading, which does not change while it is open.
class BankMemory {
 public:
  using Head = std::array<std::int32_t, format::kHeadWords>;

  // Null for a bank that is not remembered.
  Head const* Find(BankName const& name, LibraryStamp const& now) noexcept {
    if (now != stamp_) return nullptr;
    auto const at = heads_.find(name);
    return at == heads_.end() ? nullptr : &at->second;
  }
  void Keep(BankName const& name, Head const& head, LibraryStamp const& now) {
    if (now != stamp_ || heads_.size() >= kMost) heads_.clear();
    stamp_ = now;
    heads_.insert_or_assign(name, head);
  }

 private:
  static constexpr std::size_t kMost = 4096;
  struct Hash {
    std::size_t operator()(BankName const& name) const noexcept {
      std::uint64_t const mixed =
          (name.type * 0x9E3779B97F4A7C15U ^ name.name) * 0xD6E8FEB86659FD93U;
      return static_cast<std::size_t>(mixed ^ mixed >> 32);
    }
  };

  LibraryStamp stamp_;
  std::unordered_map<BankName, Head, Hash> heads_;
};

}  // namespace zel

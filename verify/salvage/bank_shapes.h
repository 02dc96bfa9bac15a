// The banks of a library: what the bank types say about their trees, and what the entries of the
// directory say about the banks.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "banks/catalogue.h"
#include "verify/salvage/broken_library.h"
#include "verify/salvage/tree_shape.h"

namespace zel {

// A record format of a bank type.
struct BankShape {
  std::string type;
  std::int32_t format = 1;
  bool isMarked = false;  // in the key of the directory
  KeyKind keyKind = kComponentKeys;
  TreeShape shape;
};
// All formats of all types.
std::vector<BankShape> const& BankShapes();

inline constexpr TreeShape kDirectoryShape{format::kBankKeyWords, format::kBankDataWords,
                                           format::kBankDataWords, false};
inline constexpr TreeShape kIdShape{format::kIdKeyWords, 1, 1, false};
inline constexpr TreeShape kCasShape{format::kCasKeyWords, 1, 1, false};

// Whether an entry can be one of the tree of IDs, or of that of CAS numbers.
bool IsIdEntry(std::int32_t const* entry) noexcept;
bool IsCasEntry(std::int32_t const* entry);

// A bank as the directory describes it.
struct BankHeading {
  std::array<std::int32_t, format::kBankKeyWords> key{};
  std::string type;
  std::string name;
  TreeShape shape;
  std::int32_t root = format::kNullAddress;
  std::int32_t memoAddress = format::kNullAddress;
  std::int32_t memoWords = 0;
  std::int32_t digits = 0;  // of the head
  bool keyIsGood = true;    // type and name are as they were written, as far as can be seen
  std::string typeIsOneOf;  // where several types have this shape: their names
};

// Whether an entry of the directory can be right: its key is that of a bank, or its head that of a
// tree.
bool IsBankEntry(BrokenLibrary const& library, std::int32_t const* entry);
// Returns what an entry says. Damaged parts are taken from the bank type, and a damaged type from
// the head.
BankHeading ReadBankEntry(BrokenLibrary const& library, std::int32_t const* entry);
// A bank that no entry describes.
BankHeading MakeHeading(BankShape const& shape, std::string name, std::int32_t root);

}  // namespace zel

// The catalogue of bank types: what distinguishes each, and what makes its banks.
#pragma once

#include <cstdint>
#include <string_view>

#include "zelaccess/Banks.h"

namespace zel {

enum KeyKind : std::int32_t { kComponentKeys = 0, kNumericKey = 1, kCharacterKey = 2 };

// How the parts of a key are ordered.
enum PairRule : std::int32_t {
  kNotSorted = 0,
  kSymmetric = 1,   // sorted; (j, i) finds the same item and no field changes
  kAsymmetric = 2,  // sorted; SwapPair turns the item round when the sort swapped the parts
  kOrdered = 3      // as given; (i, j) and (j, i) are two items
};

struct BankType {
  std::string_view keyword;
  std::string_view description;
  KeyKind keyKind;
  std::int32_t keyWords;
  std::int32_t minKeyWords;
  PairRule pairRule;
  std::int32_t fileResident;
  std::uint8_t listed;  // kept and reported; nothing here reads it
  IZelBankDef* (*factory)();
  std::string_view references[2] = {};  // types that the bank refers to by bank name
};

// Null for a keyword that no type has; case does not matter.
BankType const* FindBankType(std::string_view keyword) noexcept;

// A bank of the type; null only for a keyword that no type has, where NewBank gives null for lack
// of memory too. Throws std::bad_alloc.
IZelBankDef* NewKnownBank(char const* keyword);

}  // namespace zel

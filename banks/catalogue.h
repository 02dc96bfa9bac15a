// The catalogue of bank types: what distinguishes each type, and the factory of its banks.
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
  kAsymmetric = 2,  // sorted; SwapPair reverses the item when the sort swapped the parts
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
  std::uint8_t listed;  // stored and reported; not used here
  IZelBankDef* (*factory)();
  std::string_view references[2] = {};  // types that the bank refers to by bank name
};

// Null for an unknown keyword; case is ignored.
BankType const* FindBankType(std::string_view keyword) noexcept;

// Makes a bank of the type; null only for an unknown keyword, whereas NewBank returns null also
// when memory is short. Throws std::bad_alloc.
IZelBankDef* NewKnownBank(char const* keyword);

}  // namespace zel

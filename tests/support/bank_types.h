// The keywords of all bank types, for tests that hold for each of them.
#pragma once

#include <cstddef>
#include <vector>

#include "zelaccess/BankDef.h"

namespace zel::test {

inline std::vector<char const*> BankTypes() {
  constexpr std::size_t kSize = 9;
  static std::vector<char> const texts = [] {
    long const count = GetBankTypeCount();
    std::vector<char> all(static_cast<std::size_t>(count) * kSize);
    GetBankTypeList(count, reinterpret_cast<char(*)[kSize]>(all.data()));
    return all;
  }();
  std::vector<char const*> types;
  for (std::size_t at = 0; at < texts.size(); at += kSize) types.push_back(&texts[at]);
  return types;
}

}  // namespace zel::test

// The new library that takes what was found.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>

#include "store/btree.h"
#include "store/lib_file.h"
#include "verify/salvage/bank_shapes.h"
#include "verify/salvage/component_records.h"

namespace zel {

// Writes by the ordinary means of the store, word for word as the items were. Throws block errors.
class RescuedLibrary {
 public:
  // An open, empty library.
  explicit RescuedLibrary(LibFile_i& library) : library_(library) {}

  // Begins a bank; the name is changed where the library has such a bank already, and made up if it
  // is empty. The items of a bank are added in ascending order.
  void BeginBank(BankHeading& heading);
  void AddItem(std::int32_t const* key, std::int32_t const* data);
  void AddComponent(std::int32_t number, ComponentWords& words);
  // Writes words that an item leads to; returns their address.
  std::int32_t WriteRun(std::int32_t words, std::int32_t const* buffer);
  // Ends the bank, with its memo, empty for none.
  void EndBank(std::string const& memo);
  // Enters an identifier, unless it has been entered. IDs have 2 words, CAS numbers 1.
  void AddId(std::int32_t const* key, std::int32_t number);
  void AddCas(std::int32_t cas, std::int32_t number);

 private:
  LibFile_i& library_;
  std::array<std::int32_t, format::kBankKeyWords> key_{};
  std::array<std::int32_t, format::kBankDataWords> entry_{};
  std::optional<BTree_i> tree_;
  int named_ = 0;
};

}  // namespace zel

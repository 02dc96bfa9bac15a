// Checks of the records of items by themselves.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "maint/face_ref.h"
#include "verify/item_fields.h"
#include "verify/salvage/bank_shapes.h"

namespace zel {

class ItemChecks {
 public:
  // True if key and numbers of an inline item are such as an item of the bank can have. Always true
  // for a bank whose type or record length is not known.
  bool IsPlausible(BankHeading const& bank, std::int32_t const* entry);
  // The same for a record format of a bank type.
  bool IsPlausible(BankShape const& shape, std::int32_t const* entry);
  // Whether the words of a record can have been written in this format: those that it does not use
  // are zero. `used` receives true for each word that it uses.
  bool IsOfFormat(BankShape const& shape, std::int32_t const* data, std::vector<bool>& used);
  // Sets the reals of a record that are not numbers to undefined; returns the names of their
  // fields.
  std::vector<std::string> Mend(BankHeading const& bank, std::int32_t* data);

 private:
  struct Type {
    FaceRef<IZelBankDef> item;
    FaceRef<IZelBankIO> io;
    std::vector<ItemField> fields;
    BankShape const* shape = nullptr;
    std::vector<bool> used;  // by word of the record

    explicit Type(BankShape const& of);
  };
  // Null for a bank that is not known.
  Type* TypeOf(BankHeading const& bank);
  Type& TypeOf(BankShape const& shape) { return types_.try_emplace(&shape, shape).first->second; }

  std::map<BankShape const*, Type> types_;
};

}  // namespace zel

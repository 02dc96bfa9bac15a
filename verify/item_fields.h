// The fields of an item of any bank type, and their values.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "zelaccess/Banks.h"

namespace zel {

struct ItemField {
  std::string name;
  std::string unit;  // unit class, empty for none
  std::int32_t type;
  std::int32_t count;  // values

  ItemField(std::string fieldName, std::string unitClass, std::int32_t fieldType,
            std::int32_t values)
      : name(std::move(fieldName)), unit(std::move(unitClass)), type(fieldType), count(values) {}
};

// The fields in the order of the type's table; none for a type without one.
std::vector<ItemField> FieldsOf(IZelBankDef& item);
bool HasField(IZelBankDef& item, std::string_view name);
// The values of a field of reals.
std::vector<double> RealsOf(IZelBankDef& item, ItemField const& field);

// The value of a field.
struct FieldValue {
  // Several values are separated by blanks, an enumerated one is its word; "-" for no value.
  std::string text;
  double number = gen_GetUndefDouble();  // undefined unless it is one number

  bool operator==(FieldValue const&) const = default;
};
FieldValue ValueOf(IZelBankDef& item, ItemField const& field);

}  // namespace zel

// The fields of an item of any bank type.
#pragma once

#include <zelaccess/ZelAccess.h>

#include <string>
#include <vector>

#include "desk/words/table.h"

namespace zel::desk {

// The properties of a bank type.
struct BankFacts {
  std::string type;
  std::string description;
  std::int32_t keyKind = 0;  // 0 components, 1 numbers, 2 text
  std::int32_t keyWords = 0;
  std::int32_t shortestKey = 0;
  std::int32_t formats = 0;

  explicit BankFacts(zel::IZelBankDef& bank);
};

// A new item of a type. For an unknown type, the first function returns null and the second one
// throws Failure. Both throw std::bad_alloc if memory runs out.
zel::Handle<zel::IZelBankDef> BankOrNone(std::string const& type);
zel::Handle<zel::IZelBankDef> BankOfType(std::string const& type);

struct Field {
  std::string name;
  std::string label;
  std::string unit;
  std::int32_t type = zel::fieldReal;
  std::int32_t count = 1;  // values
  // The unit is from a note: numbers in it are not converted, and no other unit is accepted.
  bool isNoteUnit = false;
};

// The fields in the order of the type's table; none for a type without one.
std::vector<Field> FieldsOf(zel::IZelBankDef& bank);
// The name may be in upper or lower case. Throws Failure if the type has no such field.
Field FieldNamed(zel::IZelBankDef& bank, std::string const& name);
// "number", "whole number", "text" or "word", one of an enumeration.
std::string KindOf(Field const& field);
// The item's value of a field; several values are a text with blanks between them.
Cell ValueOf(zel::IZelBankDef& bank, Field const& field);

}  // namespace zel::desk

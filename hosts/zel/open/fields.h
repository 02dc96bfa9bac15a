// The fields of an item of any bank type.
#pragma once

#include <zelaccess/ZelAccess.h>

#include <string>
#include <vector>

#include "output/report.h"

namespace zelhost {

// What a bank type is.
struct BankFacts {
  std::string type;
  std::string description;
  std::int32_t keyKind = 0;  // 0 components, 1 numbers, 2 text
  std::int32_t keyWords = 0;
  std::int32_t shortestKey = 0;
  std::int32_t formats = 0;

  explicit BankFacts(zel::IZelBankDef& bank);
};

// An item of a type, null when there is no such type; throws Failure for that in the second form.
// Both throw std::bad_alloc when there is no memory.
zel::Handle<zel::IZelBankDef> BankOrNone(std::string const& type);
zel::Handle<zel::IZelBankDef> BankOfType(std::string const& type);

struct Field {
  std::string name;
  std::string label;
  std::string unit;
  std::int32_t type = zel::fieldReal;
  std::int32_t count = 1;  // values
};

// In the order of the type's table; none for a type without one.
std::vector<Field> FieldsOf(zel::IZelBankDef& bank);
// In any case of letters. Throws Failure when the type has no such field.
Field FieldNamed(zel::IZelBankDef& bank, std::string const& name);
// "number", "whole number", "text" or "word", one of an enumeration.
std::string KindOf(Field const& field);
// What the item has in a field: one value, or several as a text with blanks between them.
Cell ValueOf(zel::IZelBankDef& bank, Field const& field);

}  // namespace zelhost

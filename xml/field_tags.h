// The fields of a bank as the tags of its items.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "zelaccess/Banks.h"

namespace zel {

struct FieldTag {
  struct Choice {
    std::string name;
    std::int32_t value;
  };

  std::string name;
  std::int32_t type;            // as in zelFieldTypes
  std::size_t count;            // values; for a text its buffer, terminator included
  std::vector<Choice> choices;  // of an enumerated field
};

struct FieldTags {
  std::vector<FieldTag> tags;
  std::size_t largest = 1;  // count of all

  // The fields of a record format; 0 means all.
  FieldTags(IZelBankDef* bank, std::int32_t format);
};

}  // namespace zel

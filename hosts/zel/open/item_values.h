// Everything that an item holds, as named values: what two libraries are compared by.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "open/pure_component.h"
#include "output/report.h"

namespace zelhost {

struct NamedValue {
  std::string name;
  Cell value;
  std::int64_t code = 0;  // what is stored, where the value is a word for it

  bool operator==(NamedValue const&) const = default;
};
// The values of one name as they are shown beside each other: a word that two codes share goes with
// its code.
std::pair<Cell, Cell> Beside(NamedValue const& one, NamedValue const& other);
// Of an item just read, by the fields of its type.
std::vector<NamedValue> ValuesOf(zel::IZelBankDef& item);
// Of a pure component, without what is not there.
std::vector<NamedValue> ValuesOf(PureComponent const& component);

}  // namespace zelhost

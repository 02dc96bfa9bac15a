// Everything that an item holds, as named values: what two libraries are compared by.
#pragma once

#include <string>
#include <vector>

#include "pure_component.h"
#include "report.h"

namespace zelhost {

struct NamedValue {
  std::string name;
  Cell value;
};
// Of an item just read, by the fields of its type.
std::vector<NamedValue> ValuesOf(zel::IZelBankDef& item);
// Of a pure component, without what is not there.
std::vector<NamedValue> ValuesOf(PureComponent const& component);

}  // namespace zelhost

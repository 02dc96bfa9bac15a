// Everything that an item holds, as named values: what two libraries are compared by.
#pragma once

#include <string>
#include <vector>

#include "report.h"
#include "zelaccess/ZelAccess.h"

namespace zelhost {

struct NamedValue {
  std::string name;
  Cell value;
};
// Of an item just read. Values of a pure component that are not there are left out.
std::vector<NamedValue> ValuesOf(zel::IZelBankDef& item);

}  // namespace zelhost

// Components that have one number in one library and another one in the other.
#pragma once

#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "desk/open/library.h"

namespace zel::desk {

struct RenumberedComponents {
  // The number in the second library by that in the first, of components whose data all changed
  // their number with them.
  std::map<std::int32_t, std::int32_t> numbers;
  // The numbers of other components that have the same ID in both libraries, but not one number for
  // all data.
  std::set<std::int32_t> ambiguous;
};

// Finds them among the components that both libraries name by one ID. The banks are those whose
// items are compared, of the first and of the second library. Throws block errors.
RenumberedComponents FindRenumbered(Library const& one, std::vector<BankName> const& banksOfOne,
                                    Library const& other,
                                    std::vector<BankName> const& banksOfOther);

}  // namespace zel::desk

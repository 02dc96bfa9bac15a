// One row of a component list.
#pragma once

#include <cstdint>
#include <string>

#include "zelaccess/Casn.h"
#include "zelaccess/Types.h"

namespace zel {

struct ListEntry {
  enum Kind : std::int32_t {
    kComponent = 0,
    kFurtherId = 1,      // of the preceding component
    kFurtherFormula = 2  // of the preceding component
  };

  std::string name;
  std::string id;
  std::string formula;
  casn cas;
  double nbp = gen_GetUndefDouble();  // K
  double mw = gen_GetUndefDouble();
  std::int32_t kind = kComponent;
  std::int32_t order = 0;  // position in the list; before sorting, in the order of adding
  std::string sortKey;     // of the current sort
};

}  // namespace zel

// A row of the unit code tables: a value in the unit times the factor is the value in the base unit
// of the unit's class.
#pragma once

namespace zel {

struct UnitFactor {
  double factor;
  char const* unit;
};

}  // namespace zel

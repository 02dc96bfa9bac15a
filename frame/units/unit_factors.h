// The factors of unit codes, which stored correlations use.
//
// A code is class x 1000 + position, class 1 to 50, position from 10. A factor converts a value in
// that unit to the base unit of its class by one multiplication; there are no offsets, so that in
// the temperature classes the factors are those of a temperature difference.
#pragma once

#include <cstdint>

namespace zel {

// 1.0 for a code that names no unit. The table is constant: it can be used at any time.
double GetUnitFactor(std::int32_t code) noexcept;
// "" for a code that names no unit.
char const* GetUnitName(std::int32_t code) noexcept;

}  // namespace zel

#include "frame/units/unit_factors.h"

#include <span>

#include "frame/units/unit_factor_table.h"

namespace zel {

double GetUnitFactor(std::int32_t code) noexcept {
  constexpr std::int32_t kClassFactor = 1000;
  constexpr std::int32_t kFirstPosition = 10;
  std::int32_t const unitClass = code / kClassFactor;
  std::int32_t const position = code % kClassFactor - kFirstPosition;
  if (unitClass < 1 || unitClass > kUnitClasses || position < 0) return 1.0;
  std::span<UnitFactor const> const units = kUnitFactors[unitClass - 1];
  auto const at = static_cast<std::size_t>(position);
  return at < units.size() ? units[at].factor : 1.0;
}

}  // namespace zel

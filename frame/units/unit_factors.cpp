#include "frame/units/unit_factors.h"

#include <span>

#include "frame/units/unit_factor_table.h"

namespace zel {

namespace {

// Null for a code that names no unit.
UnitFactor const* FindUnit(std::int32_t code) noexcept {
  constexpr std::int32_t kClassFactor = 1000;
  constexpr std::int32_t kFirstPosition = 10;
  std::int32_t const unitClass = code / kClassFactor;
  std::int32_t const position = code % kClassFactor - kFirstPosition;
  if (unitClass < 1 || unitClass > kUnitClasses || position < 0) return nullptr;
  std::span<UnitFactor const> const units = kUnitFactors[unitClass - 1];
  auto const at = static_cast<std::size_t>(position);
  return at < units.size() ? &units[at] : nullptr;
}

}  // namespace

double GetUnitFactor(std::int32_t code) noexcept {
  UnitFactor const* const unit = FindUnit(code);
  return unit != nullptr ? unit->factor : 1.0;
}

char const* GetUnitName(std::int32_t code) noexcept {
  UnitFactor const* const unit = FindUnit(code);
  return unit != nullptr ? unit->unit : "";
}

}  // namespace zel

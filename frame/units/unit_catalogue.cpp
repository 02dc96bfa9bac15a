#include "frame/units/unit_catalogue.h"

#include <cmath>
#include <cstddef>

#include "frame/ascii.h"
#include "frame/units/unit_binder.h"
#include "frame/units/unit_match.h"

namespace zel {

double UnitRule::ToIntermediate(double value) const noexcept {
  if (isGravity) return multiplication / (value + addition) * kWaterDensityAt60F;
  return (value + addition) * multiplication;
}

double UnitRule::FromIntermediate(double value) const noexcept {
  if (isGravity) return multiplication * kWaterDensityAt60F / value - addition;
  return value / multiplication - addition;
}

std::unique_ptr<UnitCatalogue const> UnitCatalogue::Make(UnitTable table, UnitTableError& error) {
  std::unique_ptr<UnitCatalogue> catalogue(new UnitCatalogue(std::move(table)));
  error = UnitBinder(*catalogue).Bind();
  if (error != UnitTableError::kNone) return nullptr;
  return catalogue;
}

int UnitCatalogue::FindClass(std::string_view name) const {
  auto const found = classOfName_.find(LowerText(name));
  bool const none =
      found == classOfName_.end() || ClassAt(found->second).state == Class::State::kAbsent;
  return none ? -1 : found->second;
}

bool UnitCatalogue::FindUnit(int unitClass, std::string_view text, UnitForm form,
                             UnitChoice& unit) const {
  long budget = kLookUpBudget;
  return MatchUnit(*this, unitClass, text, form, budget, unit);
}

bool UnitCatalogue::FindSlateUnit(int unitClass, std::string_view slate, UnitChoice& unit) const {
  auto const found = slateOfName_.find(LowerText(slate));
  if (found == slateOfName_.end()) return false;
  unit = slateUnits_[static_cast<std::size_t>(found->second)][static_cast<std::size_t>(unitClass)];
  return !unit.rows.empty();
}

std::string UnitCatalogue::Text(int unitClass, UnitChoice const& unit, UnitForm form) const {
  auto const nameOf = [this, form](int row) -> std::string const& {
    return form == UnitForm::kText ? Row(row).text : Row(row).keyword;
  };
  if (!unit.ofFactors) return unit.rows.empty() ? std::string() : nameOf(unit.rows.front());
  std::string above;
  std::string below;
  std::vector<Factor> const& factors = ClassAt(unitClass).factors;
  for (std::size_t i = 0; i < unit.rows.size(); ++i) {
    int const power = factors[i].exponent;
    std::string& side = power > 0 ? above : below;
    if (!side.empty()) side += '-';
    side += nameOf(unit.rows[i]);
    if (std::abs(power) > 1) side += static_cast<char>('0' + std::abs(power));
  }
  if (above.empty()) above = "1";
  return below.empty() ? above : above + "/" + below;
}

UnitRule UnitCatalogue::Rule(int unitClass, UnitChoice const& unit) const {
  UnitRule rule;
  Class const& own = ClassAt(unitClass);
  if (!unit.ofFactors) {
    UnitRow const& row = Row(unit.rows.front());
    rule.isGravity = IsGravity(row);
    rule.addition = own.isDifference ? 0.0 : row.addition;
    rule.multiplication = row.multiplication;
    return rule;
  }
  for (std::size_t i = 0; i < unit.rows.size(); ++i) {
    int const power = own.factors[i].exponent;
    for (int k = 0; k < std::abs(power); ++k) {
      double const one = Row(unit.rows[i]).multiplication;
      rule.multiplication = power > 0 ? rule.multiplication * one : rule.multiplication / one;
    }
  }
  return rule;
}

}  // namespace zel

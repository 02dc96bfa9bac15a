#include "desk/formats/foreign_units.h"

#include <algorithm>
#include <iterator>

#include "desk/open/storable.h"
#include "desk/words/display_units.h"
#include "desk/words/failure.h"
#include "desk/words/number_range.h"

namespace zel::desk {
namespace {

struct OtherWord {
  char const* foreign;
  char const* word;
};
constexpr OtherWord kOtherWords[] = {
    {"_", ""}, {"-", ""}, {"Coulomb.m", "Coul-m"}, {"C.m", "Coul-m"}, {"C*m", "Coul-m"},
};

// Units that the unit system does not have for a constant: those of roots, and kg/mol.
struct OwnUnit {
  char const* foreign;
  char const* constant;
  double factor;
};
// (J/m3)^0.5 with the thermochemical calorie; (N/m)^0.25 is 1000^0.25 (dyne/cm)^0.25, and m3/kmol
// 1000 cm3/mol.
constexpr double kRootOfCalories = 4.888821290839616e-04;  // 1/sqrt(4.184e6)
constexpr double kParachor = 5623.413251903491;            // 1000^1.25
constexpr OwnUnit kOwnUnits[] = {
    {"kg/mol", "MW", 1000.0},
    {"J0.5/m1.5", "SOLUPARA", kRootOfCalories},
    {"(J/m3)^0.5", "SOLUPARA", kRootOfCalories},
    {"Pa^0.5", "SOLUPARA", kRootOfCalories},
    {"kg0.25.m3/s0.5/kmol", "PARACHOR", kParachor},
};

}  // namespace

std::string UnitWord(std::string const& foreign) {
  auto const at = std::find_if(std::begin(kOtherWords), std::end(kOtherWords),
                               [&](OtherWord const& one) { return foreign == one.foreign; });
  if (at != std::end(kOtherWords)) return at->word;
  std::size_t const first = foreign.find('/');
  std::size_t const second = first == std::string::npos ? first : foreign.find('/', first + 1);
  bool const isPlain = second != std::string::npos && foreign.find('(') == std::string::npos;
  if (!isPlain) return foreign;
  std::string below = foreign.substr(first + 1);
  std::replace(below.begin(), below.end(), '/', ' ');
  return foreign.substr(0, first) + "/(" + below + ")";
}

bool IsPerMass(std::string const& word, std::string const& internalUnit) {
  bool const isPerMole = internalUnit.find("kg-mol") != std::string::npos;
  return isPerMole && !word.empty() && UnitNamed(word, internalUnit).empty();
}

void CheckForeign(double value, std::string const& name) {
  CheckStorable(value, name);
  bool const isLost = value != 0.0 && static_cast<float>(value) == 0.0F;
  if (zel::gen_IsUndefDouble(value) || isLost) {
    throw Failure(name + " cannot be stored as " + Digits(value));
  }
}

double InternalValue(std::string const& number, std::string const& foreignUnit,
                     std::string const& internalUnit, std::string const& name, bool& isSame) {
  double const plain = ParseNumber(number, "a value of " + name);
  auto const own = std::find_if(
      std::begin(kOwnUnits), std::end(kOwnUnits),
      [&](OwnUnit const& one) { return foreignUnit == one.foreign && name == one.constant; });
  double value = plain;
  if (own != std::end(kOwnUnits)) {
    value = plain * own->factor;
    isSame = false;
  } else {
    std::string const unit = UnitWord(foreignUnit);
    if (!unit.empty() && internalUnit.empty() && unit != internalUnit) {
      throw Failure(name + " is a pure number, without the unit " + foreignUnit);
    }
    if (!unit.empty()) {
      value = DisplayUnits().Read(number + " " + unit, internalUnit, "a value of " + name);
    }
    isSame = value == plain;
  }
  CheckForeign(value, name);
  return value;
}

}  // namespace zel::desk

#include "desk/words/mass_units.h"

#include <zelaccess/Units.h>

namespace zel::desk {
namespace {

constexpr char kInternal[] = "QRInternal";
constexpr char kMole[] = "kg-mol";
constexpr char kMolePerKelvin[] = "kg-mol-K";

bool IsIn(std::string const& dimension, std::string const& word) {
  char text[zel::kUnitTextSize] = {};
  return !dimension.empty() && word.size() + 1 < sizeof(text) &&
         zel::FindUnit(dimension.c_str(), word.c_str(), text);
}

// The unit with another text for that of the mole.
std::string With(std::string unit, std::string const& mole, char const* other) {
  std::size_t const at = unit.find(mole);
  return at == std::string::npos ? "" : unit.replace(at, mole.size(), other);
}

// True if the word is a unit of a dimension whose internal unit is this one.
bool IsLike(std::string const& internal, std::string const& word) {
  char dimension[zel::kUnitTextSize] = {};
  char text[zel::kUnitTextSize] = {};
  for (std::int32_t i = 0; !internal.empty() && zel::GetDimension(i, dimension); ++i) {
    bool const isIt = zel::FindUnit(dimension, kInternal, text) && internal == text;
    if (isIt && IsIn(dimension, word)) return true;
  }
  return false;
}

}  // namespace

bool IsPerMassOf(std::string const& word, std::string const& unit) {
  // Entropies and heat capacities are two quantities per mass: kJ/K-kg and kJ/kg-K.
  return IsLike(With(unit, kMole, "kg"), word) || IsLike(With(unit, kMolePerKelvin, "K-kg"), word);
}

std::string WhyNotPerMass(std::string const& word, std::string const& unit) {
  std::string const everyday = With(unit, kMole, "mol");
  bool const isUnit = IsIn(zel::GetDimensionOfUnit(unit.c_str()), everyday);
  return word + " is per mass, but the value is per mole; units such as " + unit + " and " +
         (isUnit ? everyday : With(unit, kMole, "g-mol")) + " fit";
}

}  // namespace zel::desk

#include "tests/frame/unit_text.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace zel::test {
namespace {

// Exact by definition.
constexpr double kInch = 0.0254;
constexpr double kFoot = 0.3048;
constexpr double kPound = 0.45359237;
constexpr double kGravity = 9.80665;
constexpr double kGallon = 231.0 * kInch * kInch * kInch;
constexpr double kFoot3 = kFoot * kFoot * kFoot;
constexpr double kCalorie = 4.1868;
// A BTU/lb-F is a cal/g-K.
constexpr double kBtu = kCalorie * 1000.0 * kPound / 1.8;
constexpr double kPoundForce = kPound * kGravity;
constexpr double kLightSpeed = 299792458.0;
constexpr double kPi = 3.14159265358979323846;
// By convention: mercury of 13595.1 kg/m3, water at 60 F.
constexpr double kMercury = 13595.1 * kGravity;
constexpr double kWater = 9796.98;

constexpr Dimension kNone{};
constexpr Dimension kMass{1};
constexpr Dimension kLength{0, 1};
constexpr Dimension kArea{0, 2};
constexpr Dimension kVolume{0, 3};
constexpr Dimension kTime{0, 0, 1};
constexpr Dimension kRate{0, 0, -1};
constexpr Dimension kTemperature{0, 0, 0, 1};
constexpr Dimension kAmount{0, 0, 0, 0, 1};
constexpr Dimension kForce{1, 1, -2};
constexpr Dimension kTension{1, 0, -2};
constexpr Dimension kPressure{1, -1, -2};
constexpr Dimension kEnergy{1, 2, -2};
constexpr Dimension kPower{1, 2, -3};
constexpr Dimension kViscosity{1, -1, -1};
constexpr Dimension kDiffusivity{0, 2, -1};
constexpr Dimension kDipole{0, 1, 0, 0, 0, 1};

struct Word {
  std::string_view text;
  double value;
  Dimension dimension;
};

// Words that contain a sign come before their parts: a pound is a force in ft-lb and lb-sec, a
// kilogram in kg-m and kg/cm2, a gram in g-cm and g/cm.
constexpr Word kWords[] = {
    {"K", 1.0, kTemperature},
    {"C", 1.0, kTemperature},
    {"R", 5.0 / 9.0, kTemperature},
    {"F", 5.0 / 9.0, kTemperature},
    {"dyne", 1e-5, kForce},
    {"Dyne", 1e-5, kForce},
    {"N", 1.0, kForce},
    {"PDL", kPound* kFoot, kForce},
    {"lb-sec", kPoundForce, {1, 1, -1}},
    {"g/cm", 0.001 * kGravity / 0.01, kTension},
    {"kg/cm2", kGravity * 1e4, kPressure},
    {"ata", kGravity * 1e4, kPressure},
    {"ate", kGravity * 1e4, kPressure},
    {"Pa", 1.0, kPressure},
    {"kPa", 1e3, kPressure},
    {"MPa", 1e6, kPressure},
    {"bar", 1e5, kPressure},
    {"mbar", 100.0, kPressure},
    {"atm", 101325.0, kPressure},
    {"torr", 101325.0 / 760.0, kPressure},
    {"mm Hg", 0.001 * kMercury, kPressure},
    {"in Hg", kInch* kMercury, kPressure},
    {"in H2O", kInch* kWater, kPressure},
    {"mm H2O", 0.001 * kWater, kPressure},
    {"psi", kPoundForce / (kInch * kInch), kPressure},
    {"psia", kPoundForce / (kInch * kInch), kPressure},
    {"psig", kPoundForce / (kInch * kInch), kPressure},
    {"psf", kPoundForce / (kFoot * kFoot), kPressure},
    {"g", 0.001, kMass},
    {"kg", 1.0, kMass},
    {"tonm", 1e3, kMass},
    {"Ktonm", 1e6, kMass},
    {"oz", kPound / 16.0, kMass},
    {"lb", kPound, kMass},
    {"klb", 1e3 * kPound, kMass},
    {"ton", 2000.0 * kPound, kMass},
    {"tonl", 2240.0 * kPound, kMass},
    {"sec", 1.0, kTime},
    {"min", 60.0, kTime},
    {"hr", 3600.0, kTime},
    {"day", 86400.0, kTime},
    {"wk", 604800.0, kTime},
    {"mon", 30.0 * 86400.0, kTime},
    {"yr", 365.25 * 86400.0, kTime},
    {"ang", 1e-10, kLength},
    {"mmic", 1e-9, kLength},
    {"mic", 1e-6, kLength},
    {"mm", 1e-3, kLength},
    {"cm", 1e-2, kLength},
    {"dm", 0.1, kLength},
    {"m", 1.0, kLength},
    {"km", 1e3, kLength},
    {"in", kInch, kLength},
    {"ft", kFoot, kLength},
    {"yd", 3.0 * kFoot, kLength},
    {"mi", 5280.0 * kFoot, kLength},
    {"hect", 1e4, kArea},
    {"liter", 1e-3, kVolume},
    {"KL", 1.0, kVolume},
    {"gal", kGallon, kVolume},
    {"Mgal", 1e3 * kGallon, kVolume},
    {"MMgal", 1e6 * kGallon, kVolume},
    {"igal", 0.00454609, kVolume},
    {"bbl", 42.0 * kGallon, kVolume},
    {"Mbbl", 42e3 * kGallon, kVolume},
    {"MMm3", 1e6, kVolume},
    {"Mft3", 1e3 * kFoot3, kVolume},
    {"MMft3", 1e6 * kFoot3, kVolume},
    // At 60 F: a normal cubic metre is measured at 0 C.
    {"nm3", (60.0 + 459.67) / (32.0 + 459.67), kVolume},
    {"scf", kFoot3, kVolume},
    {"g-mol", 1.0, kAmount},
    {"kg-mol", 1e3, kAmount},
    {"tonm-mol", 1e6, kAmount},
    {"lb-mol", 1e3 * kPound, kAmount},
    {"J", 1.0, kEnergy},
    {"kJ", 1e3, kEnergy},
    {"MJ", 1e6, kEnergy},
    {"cal", kCalorie, kEnergy},
    {"kcal", 1e3 * kCalorie, kEnergy},
    {"g-cm", 0.001 * kGravity * 0.01, kEnergy},
    {"kg-m", kGravity, kEnergy},
    {"ft-lb", kFoot* kPoundForce, kEnergy},
    {"BTU", kBtu, kEnergy},
    {"CHU", 1.8 * kBtu, kEnergy},
    {"PCU", 1.8 * kBtu, kEnergy},
    {"W", 1.0, kPower},
    {"kW", 1e3, kPower},
    {"cP", 1e-3, kViscosity},
    {"POIS", 0.1, kViscosity},
    {"cST", 1e-6, kDiffusivity},
    {"ST", 1e-4, kDiffusivity},
    {"DEB", 1e-21 / kLightSpeed, kDipole},
    {"EU", 1e-3 / kLightSpeed, kDipole},
    {"Coul", 1.0, {0, 0, 0, 0, 0, 1}},
    {"fraction", 1.0, kNone},
    {"percent", 0.01, kNone},
    {"ppm", 1e-6, kNone},
    {"rps", 2.0 * kPi, kRate},
    {"rpm", 2.0 * kPi / 60.0, kRate},
    {"rph", 2.0 * kPi / 3600.0, kRate},
    {"rpd", 2.0 * kPi / 86400.0, kRate},
    {"rad", 1.0, kNone},
    {"revolution", 2.0 * kPi, kNone},
};

void Multiply(UnitMeaning& product, Word const& word, int exponent) {
  product.value *= std::pow(word.value, exponent);
  for (std::size_t i = 0; i < word.dimension.size(); ++i) {
    product.dimension[i] += exponent * word.dimension[i];
  }
}

Word const* Find(std::string_view text) {
  auto const* const at = std::ranges::find(kWords, text, &Word::text);
  return at == std::end(kWords) ? nullptr : at;
}

// A word, or one followed by a digit as its exponent.
bool MultiplyWord(UnitMeaning& product, std::string_view text, int sign) {
  if (Word const* word = Find(text)) {
    Multiply(product, *word, sign);
    return true;
  }
  if (text.empty() || (text.back() != '2' && text.back() != '3')) return false;
  int const exponent = text.back() - '0';
  text.remove_suffix(1);
  Word const* word = text.find('/') == std::string_view::npos ? Find(text) : nullptr;
  if (word == nullptr) return false;
  Multiply(product, *word, sign * exponent);
  return true;
}

// One side of the line, factors between signs, longest words first.
bool MultiplySide(UnitMeaning& product, std::string_view side, int sign) {
  for (std::size_t end = side.size();; end = side.rfind('-', end - 1)) {
    if (end == std::string_view::npos) return false;
    if (MultiplyWord(product, side.substr(0, end), sign)) {
      return end == side.size() || MultiplySide(product, side.substr(end + 1), sign);
    }
    if (end == 0) return false;
  }
}

}  // namespace

std::optional<UnitMeaning> ReadUnit(std::string_view text) {
  UnitMeaning meaning;
  if (MultiplyWord(meaning, text, 1)) return meaning;
  std::size_t const line = text.find('/');
  if (!MultiplySide(meaning, text.substr(0, line), 1)) return std::nullopt;
  if (line != std::string_view::npos && !MultiplySide(meaning, text.substr(line + 1), -1)) {
    return std::nullopt;
  }
  return meaning;
}

bool IsRounded(double factor, double exact) {
  double const lastDigit = std::pow(10.0, std::floor(std::log10(exact)) - 5.0);
  return std::abs(factor - exact) <= 0.5 * lastDigit * (1.0 + 1e-9);
}

}  // namespace zel::test

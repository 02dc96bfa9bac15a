#include "verify/judge/slip.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <utility>

#include "verify/component_view.h"

namespace zel {
namespace {

// A number in the first unit that was stored as if it were in the second is wrong by a factor.
struct Factor {
  std::string_view unit;  // of the datum
  double factor;          // stored value over right value
  char const* text;
};

constexpr double kCalorie = 4.184;           // J, thermochemical
constexpr double kBtuPerPound = 2.326;       // kJ/kg
constexpr double kPoundPerInch2 = 6.894757;  // kPa
constexpr double kMercury = 0.1333224;       // kPa, 1 mm Hg
constexpr double kPoundPerFoot3 = 16.01846;  // kg/m3
constexpr double kDebye = 3.33564;           // 1e-30 C m

constexpr Factor kFactors[] = {
    {"kPa", 0.01, "bar taken for kPa"},
    {"kPa", 1.0 / 101.325, "atm taken for kPa"},
    {"kPa", 1.0 / kPoundPerInch2, "psi taken for kPa"},
    {"kPa", 1.0 / kMercury, "mmHg taken for kPa"},
    {"kPa", 1000.0, "Pa taken for kPa"},
    {"kPa", 0.001, "MPa taken for kPa"},
    {"kPa", 100.0, "kPa taken for bar"},
    {"kPa", 101.325, "kPa taken for atm"},
    {"kPa", kPoundPerInch2, "kPa taken for psi"},
    {"kPa", kMercury, "kPa taken for mmHg"},
    {"kJ/kg-mol", 1.0 / kCalorie, "cal taken for J"},
    {"kJ/kg-mol", 1e-3 / kCalorie, "kcal/mol taken for J/mol"},
    {"kJ/kg-mol", kCalorie, "J taken for cal"},
    {"kJ/kg-mol", 1.0 / kBtuPerPound, "BTU/lb taken for kJ/kg"},
    {"kJ/kg-mol", kBtuPerPound, "kJ/kg taken for BTU/lb"},
    {"kJ/kg-mol-K", 1.0 / kCalorie, "cal taken for J"},
    {"kJ/kg-mol-K", kCalorie, "J taken for cal"},
    {"(cal/cm3)^0.5", 2.0454829, "(J/cm3)^0.5 taken for (cal/cm3)^0.5"},
    {"m3/kg-mol", kPoundPerFoot3, "ft3/lb taken for m3/kg"},
    {"m3/kg-mol", 1.0 / kPoundPerFoot3, "m3/kg taken for ft3/lb"},
    {"kg-mol/m3", 1.0 / kPoundPerFoot3, "lb/ft3 taken for kg/m3"},
    {"kg-mol/m3", kPoundPerFoot3, "kg/m3 taken for lb/ft3"},
    {"W/m-K", 1.0 / 1.730735, "BTU/hr-ft-F taken for W/m-K"},
    {"W/m-K", 1.730735, "W/m-K taken for BTU/hr-ft-F"},
    {"W/m-K", 1.0 / 418.4, "cal/cm-s-K taken for W/m-K"},
    {"debye", kDebye, "1e-30 C m taken for debye"},
    {"debye", 1.0 / kDebye, "debye taken for 1e-30 C m"},
    {"K", 1.8, "R taken for K"},
    {"K", 1.0 / 1.8, "K taken for R"},
};

bool IsNear(double ratio, double factor, double play) {
  return ratio > 0.0 && std::abs(std::log(ratio / factor)) <= play;
}

std::string TemperatureSlip(double value, double expected, double play) {
  constexpr double kZeroCelsius = 273.15;
  double const step = play * std::abs(expected);
  struct {
    double wrong;
    char const* text;
  } const rows[] = {{expected - kZeroCelsius, "C taken for K"},
                    {expected + kZeroCelsius, "K taken for C"},
                    {expected * 1.8 - 459.67, "F taken for K"},
                    {(expected + 459.67) / 1.8, "K taken for F"}};
  constexpr double kApart = 10.0;  // a smaller change may be the uncertainty of the value
  for (auto const& row : rows) {
    if (std::abs(row.wrong - expected) < kApart * step) continue;
    if (std::abs(value - row.wrong) <= step) return row.text;
  }
  return {};
}

// A power of ten, up to six digits.
std::string DecimalSlip(double ratio, double play) {
  constexpr int kMost = 6;
  double const power = std::round(std::log10(ratio));
  if (power == 0.0 || std::abs(power) > kMost || !IsNear(ratio, std::pow(10.0, power), play))
    return {};
  return "a decimal point that slipped by " + std::to_string(static_cast<int>(std::abs(power))) +
         (std::abs(power) > 1.0 ? " digits" : " digit");
}

// A number without sign and point, of so many decimals; empty if it has more.
std::string DigitsOf(double number, int decimals) {
  constexpr double kExact = 1e-6;
  constexpr std::size_t kMost = 8;
  double const scaled = std::abs(number) * std::pow(10.0, decimals);
  double const whole = std::round(scaled);
  if (std::abs(scaled - whole) > kExact * whole) return {};
  std::string text = std::to_string(static_cast<long long>(whole));
  return text.size() > kMost ? std::string() : text;
}

// Numbers of two digits can be so by chance.
bool AreExchanged(std::string a, std::string b) {
  constexpr std::size_t kFewest = 3;
  auto const isShort = [](std::string const& digits) {
    return digits.find_last_not_of('0') + 1 < kFewest;
  };
  if (isShort(a) && isShort(b)) return false;
  std::size_t const length = std::max(a.size(), b.size());
  a.insert(0, length - a.size(), '0');
  b.insert(0, length - b.size(), '0');
  auto const [inA, inB] = std::mismatch(a.begin(), a.end(), b.begin());
  if (a.end() - inA < 2) return false;
  std::swap(inA[0], inA[1]);
  return a == b;
}

}  // namespace

bool HasExchangedDigits(double value, double expected) {
  constexpr double kLargest = 1e8;
  constexpr int kMostDecimals = 7;
  if (!(std::max(std::abs(value), std::abs(expected)) < kLargest)) return false;
  for (int decimals = 0; decimals <= kMostDecimals; ++decimals) {
    std::string const a = DigitsOf(value, decimals);
    std::string const b = DigitsOf(expected, decimals);
    if (!a.empty() && !b.empty()) return AreExchanged(a, b);
  }
  return false;
}

std::string LikelySlip(double value, double expected, std::string_view unit, double uncertainty,
                       double molecularWeight) {
  // A factor is recognised if the expected value is certain enough.
  constexpr double kLeast = 0.002;
  constexpr double kMost = 0.05;
  if (!IsDefined(value) || !IsDefined(expected) || expected == 0.0 || value == 0.0) return {};
  double const play = std::clamp(uncertainty, kLeast, kMost);
  double const ratio = value / expected;
  if (IsNear(-ratio, 1.0, play)) return "a lost sign";
  if (unit == "K") {
    std::string slip = TemperatureSlip(value, expected, std::min(play, 0.01));
    if (!slip.empty()) return slip;
  }
  if (!(ratio > 0.0) || std::abs(std::log(ratio)) < 2.0 * play) return {};
  for (Factor const& row : kFactors) {
    if (row.unit == unit && IsNear(ratio, row.factor, play)) return row.text;
  }
  bool const isPerMole = unit.find("kg-mol") != std::string_view::npos;
  if (isPerMole && IsDefined(molecularWeight) && molecularWeight > 2.0) {
    // The number of a density per mass is the larger one, that of a heat or a volume the smaller.
    bool const isDensity = unit.find("kg-mol") == 0;
    double const factor = isDensity ? 1.0 / molecularWeight : molecularWeight;
    if (IsNear(ratio, factor, play)) return "a molar value taken for one per mass";
    if (IsNear(ratio, 1.0 / factor, play)) return "a value per mass taken for a molar one";
  }
  std::string slip = DecimalSlip(ratio, play);
  if (slip.empty() && HasExchangedDigits(value, expected)) slip = "two digits exchanged";
  return slip;
}

}  // namespace zel

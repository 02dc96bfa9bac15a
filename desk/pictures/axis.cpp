#include "desk/pictures/axis.h"

#include <algorithm>
#include <cmath>
#include <string_view>

#include "desk/pictures/markup.h"

namespace zel::desk {
namespace {

// 10 to the power, as a text with raised digits.
std::string PowerOfTen(int power) {
  static constexpr char const* kRaised[] = {"⁰", "¹", "²", "³", "⁴", "⁵", "⁶", "⁷", "⁸", "⁹"};
  std::string text = power < 0 ? "10⁻" : "10";
  for (char const digit : std::to_string(std::abs(power))) text += kRaised[digit - '0'];
  return text;
}

struct Prefix {
  char const* text;
  int power;
};
constexpr Prefix kPrefixes[] = {{"n", -9}, {"µ", -6}, {"m", -3}, {"", 0},
                                {"k", 3},  {"M", 6},  {"G", 9},  {"T", 12}};

// True if the unit begins with the symbol, and not with a longer word.
bool BeginsWith(std::string const& unit, std::string const& symbol) {
  if (unit.compare(0, symbol.size(), symbol) != 0) return false;
  return unit.size() == symbol.size() ||
         std::string_view("/-. *(").find(unit[symbol.size()]) != std::string_view::npos;
}

// The unit that is 10^power times `unit`, 3 a divisor of the power: "MJ/kg-mol" for "kJ/kg-mol" and
// 3, "10⁻³ kg-mol/m3" for a unit without prefix and for a fixed one.
std::string TimesPower(std::string const& unit, int power, bool isFixed) {
  if (power == 0) return unit;
  std::string asPower = PowerOfTen(power) + (unit.empty() ? "" : " " + unit);
  if (isFixed) return asPower;
  for (std::string const symbol : {"J", "Pa", "W", "N", "bar"}) {
    for (Prefix const& old : kPrefixes) {
      if (!BeginsWith(unit, old.text + symbol)) continue;
      for (Prefix const& next : kPrefixes) {
        if (next.power == old.power + power) {
          return next.text + unit.substr(std::string(old.text).size());
        }
      }
    }
  }
  return asPower;
}

// The power, a multiple of 3, by which numbers up to `most` are divided.
int PowerFor(double most) {
  constexpr double kLarge = 10000;
  constexpr double kSmall = 0.1;
  if (!(most > 0.0) || (most < kLarge && most >= kSmall)) return 0;
  return 3 * static_cast<int>(std::floor(std::floor(std::log10(most)) / 3));
}

// The distance of about `count` ticks: 1, 2 or 5 times a power of ten.
double Step(double low, double high, int count) {
  double const raw = (high - low) / count;
  double const power = std::pow(10.0, std::floor(std::log10(raw)));
  for (double const factor : {1.0, 2.0, 5.0}) {
    if (factor * power >= raw) return factor * power;
  }
  return 10 * power;
}

// The values 1 to 9 times powers of ten on a logarithmic axis.
std::vector<double> LogValues(double low, double high, int count) {
  static constexpr double kAll[] = {1, 2, 3, 4, 5, 6, 7, 8, 9};
  static constexpr double kFew[] = {1, 2, 5};
  double const decades = high - low;
  int const skip = std::max(1, static_cast<int>(std::ceil(decades / count)));
  std::vector<double> values;
  for (double power = std::floor(low); power <= high; power += 1.0) {
    if (decades > 3 && std::fmod(power, skip) != 0.0) continue;
    for (double const factor : kAll) {
      bool const isFew = std::find(std::begin(kFew), std::end(kFew), factor) != std::end(kFew);
      bool const isShown = decades > 3 ? factor == 1 : isFew || decades < 1;
      double const value = factor * std::pow(10.0, power);
      double const at = std::log10(value);
      if (isShown && at >= low && at <= high) values.push_back(value);
    }
  }
  return values;
}

std::string LogLabel(double value) {
  int power = static_cast<int>(std::floor(std::log10(value)));
  int factor = static_cast<int>(std::lround(value / std::pow(10.0, power)));
  if (factor == 10) {
    factor = 1;
    ++power;
  }
  if (power >= -3 && power <= 3) return Fixed(factor * std::pow(10.0, power), std::max(0, -power));
  return factor == 1 ? PowerOfTen(power) : std::to_string(factor) + "·" + PowerOfTen(power);
}

}  // namespace

void AxisRange::Take(double value) {
  low = std::min(low, value);
  high = std::max(high, value);
}

void AxisRange::Widen() {
  if (!(low <= high)) *this = {0.0, 1.0};
  // Ticks cannot distinguish closer values: the step would vanish in rounding.
  constexpr double kClosest = 1e-12;
  double const size = std::max(std::abs(low), std::abs(high));
  if (high - low > kClosest * size && high > low) return;
  double const margin = size == 0.0 ? 1.0 : size / 10;
  low -= margin;
  high += margin;
}

Ticks LinearTicks(double low, double high, int count, std::string const& unit, bool isFixed) {
  double const step = Step(low, high, count);
  int const power = PowerFor(std::max(std::abs(low), std::abs(high)));
  double const scale = std::pow(10.0, power);
  int const decimals = std::max(0, static_cast<int>(-std::floor(std::log10(step / scale) + 1e-9)));
  Ticks result;
  // Multiples of the step, so that rounding does not add up and 0 is 0.
  for (double n = std::ceil(low / step); n * step <= high && result.ticks.size() < 100; n += 1.0) {
    double const value = n * step + 0.0;  // no negative zero
    result.ticks.push_back({value, Fixed(value / scale, decimals)});
  }
  result.unit = TimesPower(unit, power, isFixed);
  result.scale = scale;
  return result;
}

Ticks LogTicks(double low, double high, int count, std::string const& unit, bool isFixed) {
  constexpr std::size_t kFewest = 4;
  std::vector<double> const values = LogValues(low, high, count);
  if (values.size() < kFewest && high - low < 1) {
    return LinearTicks(std::pow(10.0, low), std::pow(10.0, high), count, unit, isFixed);
  }
  Ticks result;
  for (double const value : values) result.ticks.push_back({value, LogLabel(value)});
  result.unit = unit;
  return result;
}

}  // namespace zel::desk

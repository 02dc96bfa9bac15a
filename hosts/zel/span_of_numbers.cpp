#include "span_of_numbers.h"

#include <charconv>
#include <cmath>

#include "failure.h"
#include "zelaccess/Types.h"

namespace zelhost {
namespace {

constexpr double kIcePoint = 273.15;        // K
constexpr double kFahrenheitZero = 459.67;  // Rankine
constexpr double kRankine = 1.8;            // degrees Rankine per kelvin

double ToKelvin(double value, std::int32_t unit) {
  switch (unit) {
    case 11: return value + kIcePoint;
    case 12: return value / kRankine;
    case 13: return (value + kFahrenheitZero) / kRankine;
    default: return value;
  }
}

double FromKelvin(double value, std::int32_t unit) {
  switch (unit) {
    case 11: return value - kIcePoint;
    case 12: return value * kRankine;
    case 13: return value * kRankine - kFahrenheitZero;
    default: return value;
  }
}

}  // namespace

double ParseNumber(std::string const& word, std::string const& what) {
  std::size_t const sign = word.size() > 1 && word[0] == '+' && word[1] != '-' ? 1 : 0;
  double value = 0.0;
  char const* const last = word.data() + word.size();
  auto const [end, error] = std::from_chars(word.data() + sign, last, value);
  if (error != std::errc() || end != last || !std::isfinite(value)) {
    throw WrongUsage("\"" + word + "\" is not " + what);
  }
  return value;
}

bool Span::Has(double value) const {
  if (zel::gen_IsUndefDouble(value)) return false;
  return (!low || value >= *low) && (!high || value <= *high);
}

std::optional<Span> ParseSpan(std::string const& word, std::string const& what) {
  if (word.empty()) return std::nullopt;
  std::size_t const colon = word.find(':');
  if (colon == std::string::npos) {
    throw WrongUsage("\"" + word + "\" is not a range MIN:MAX of " + what);
  }
  Span span;
  if (colon > 0) span.low = ParseNumber(word.substr(0, colon), what);
  if (colon + 1 < word.size()) span.high = ParseNumber(word.substr(colon + 1), what);
  return span;
}

double Temperature::In(std::int32_t code) const {
  double const kelvin = ToKelvin(value, unit.value_or(code));
  if (kelvin < 0.0) throw WrongUsage("a temperature is below absolute zero");
  return unit ? Convert(value, *unit, code) : value;
}

Temperature ParseTemperature(std::string const& word) {
  constexpr char kWhat[] = "a temperature such as 298.15K, 25C, 537R or 77F";
  Temperature temperature;
  std::string number = word;
  if (!number.empty()) {
    switch (number.back()) {
      case 'K':
      case 'k': temperature.unit = 10; break;
      case 'C':
      case 'c': temperature.unit = 11; break;
      case 'R':
      case 'r': temperature.unit = 12; break;
      case 'F':
      case 'f': temperature.unit = 13; break;
      default: break;
    }
    if (temperature.unit) number.pop_back();
  }
  try {
    temperature.value = ParseNumber(number, kWhat);
  } catch (WrongUsage const&) {
    throw WrongUsage("\"" + word + "\" is not " + kWhat);
  }
  return temperature;
}

double Convert(double value, std::int32_t from, std::int32_t to) {
  if (from == to) return value;
  // A limit of a record stays a limit: what the way through kelvin adds to the last digits is cut.
  constexpr double kDigits = 1e9;
  return std::round(FromKelvin(ToKelvin(value, from), to) * kDigits) / kDigits;
}

}  // namespace zelhost

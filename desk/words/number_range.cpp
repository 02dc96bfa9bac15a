#include "desk/words/number_range.h"

#include <zelaccess/Types.h>
#include <zelaccess/Verify.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <string_view>

#include "desk/words/failure.h"
#include "desk/words/letters.h"

namespace zel::desk {

std::string HintForNumber(std::string const& word) {
  std::size_t const comma = word.find(',');
  if (comma == std::string::npos || comma == 0 || comma + 1 == word.size()) return "";
  auto const isDigit = [](char c) { return c >= '0' && c <= '9'; };
  if (!isDigit(word[comma + 1])) return "";
  return isDigit(word[comma - 1]) && word.find(',', comma + 1) == std::string::npos
             ? "; the decimal sign is a point"
             : "; several are written with blanks between them";
}

double ParseNumber(std::string const& word, std::string const& what) {
  std::size_t const sign = word.size() > 1 && word[0] == '+' && word[1] != '-' ? 1 : 0;
  double value = 0.0;
  char const* const last = word.data() + word.size();
  auto const [end, error] = std::from_chars(word.data() + sign, last, value);
  if (error != std::errc() || end != last || !std::isfinite(value)) {
    throw WrongUsage("\"" + word + "\" is not " + what + HintForNumber(word));
  }
  return value;
}

bool Span::Has(double value) const {
  if (zel::gen_IsUndefDouble(value)) return false;
  return (!low || value >= *low) && (!high || value <= *high);
}

namespace {

template <typename Parse>
std::optional<Span> SpanOf(std::string const& word, std::string const& what, Parse const& parse) {
  if (word.empty()) return std::nullopt;
  std::size_t const colon = word.find(':');
  if (colon == std::string::npos) {
    throw WrongUsage("\"" + word + "\" is not a range MIN:MAX of " + what);
  }
  Span span;
  if (colon > 0) span.low = parse(word.substr(0, colon));
  if (colon + 1 < word.size()) span.high = parse(word.substr(colon + 1));
  if (span.low && span.high && *span.low > *span.high) {
    throw WrongUsage("the range " + word + " ends before it begins");
  }
  return span;
}

}  // namespace

std::optional<Span> ParseSpan(std::string const& word, std::string const& what) {
  return SpanOf(word, what, [&](std::string const& end) { return ParseNumber(end, what); });
}

namespace {

// Refuses "70:80C", in which 70 is in K but may be meant in C; 351.15 in "351.15:79C" cannot be.
void RefuseUnitOfOneEnd(std::string const& word, DisplayUnits const& units) {
  std::size_t const colon = word.find(':');
  if (colon == std::string::npos || colon == 0 || colon + 1 == word.size()) return;
  auto const unitOf = [](std::string const& end) {
    return end.substr(end.find_last_of("0123456789.") + 1);
  };
  std::string const low = word.substr(0, colon);
  std::string const high = word.substr(colon + 1);
  if (!unitOf(low).empty() || unitOf(high).empty()) return;
  double const mayBe = ParseTemperature(low + unitOf(high), units).In(kKelvin);
  double const is = ParseTemperature(low, units).In(kKelvin);
  if (mayBe == is || mayBe > ParseTemperature(high, units).In(kKelvin)) return;
  throw WrongUsage("\"" + word + "\": only one of two temperatures has a unit");
}

}  // namespace

std::optional<Span> ParseTemperatureSpan(std::string const& word, std::string const& what,
                                         DisplayUnits const& units) {
  RefuseUnitOfOneEnd(word, units);
  return SpanOf(word, what,
                [&](std::string const& end) { return ParseTemperature(end, units).In(kKelvin); });
}

double ParseTolerance(std::string const& word) {
  constexpr char kWhat[] = "a tolerance such as 1% or 0.01";
  constexpr double kPercent = 100.0;
  bool const isPercent = !word.empty() && word.back() == '%';
  std::string const number = isPercent ? word.substr(0, word.size() - 1) : word;
  double value = -1.0;
  try {
    value = ParseNumber(number, kWhat);
  } catch (WrongUsage const&) {
    // Reported with the whole word.
  }
  if (value < 0.0) throw WrongUsage("\"" + word + "\" is not " + kWhat + HintForNumber(word));
  return isPercent ? value / kPercent : value;
}

double Temperature::In(std::int32_t code) const {
  return zel::ConvertTemperature(value, unit, code);
}

namespace {

bool IsTemperatureUnit(std::string const& word) {
  return word.find_first_of("0123456789") == std::string::npos && !UnitNamed(word, "K").empty();
}

}  // namespace

std::int32_t TemperatureUnitNamed(std::string const& word) {
  constexpr std::string_view kLetters = "KCRF";
  std::string unit = UpperCase(word);
  if (unit.size() != 1) unit = UnitNamed(word, "K");
  std::size_t const at = kLetters.find(unit);
  if (unit.size() != 1 || at == std::string_view::npos) {
    throw WrongUsage("\"" + word + "\" is not a unit of temperatures: K, C, R or F");
  }
  return kKelvin + static_cast<std::int32_t>(at);
}

Temperature ParseTemperature(std::string const& word, DisplayUnits const& units) {
  constexpr char kWhat[] = "a temperature such as 298.15K, 25C, 537R or 77F";
  constexpr std::string_view kLetters = "KCRF";
  // What follows the number: nothing, a letter in upper or lower case, or another word for a unit.
  std::size_t const end = word.find_last_of("0123456789.") + 1;
  std::string const suffix = word.substr(end);
  std::string unit = UpperCase(suffix);
  if (suffix.empty()) unit = units.UnitFor("K");
  if (unit.size() != 1 || kLetters.find(unit) == std::string::npos) {
    unit = UnitNamed(suffix.substr(std::min(suffix.find_first_not_of(' '), suffix.size())), "K");
  }
  Temperature temperature;
  try {
    if (unit.empty()) throw WrongUsage(word);
    temperature.unit = kKelvin + static_cast<std::int32_t>(kLetters.find(unit.front()));
    temperature.value = ParseNumber(word.substr(0, end), kWhat);
  } catch (WrongUsage const&) {
    std::string const hint = IsTemperatureUnit(word) ? "; a unit follows its number without a blank"
                                                     : HintForNumber(word);
    throw WrongUsage("\"" + word + "\" is not " + kWhat + hint);
  }
  if (temperature.In(kKelvin) < 0.0) throw WrongUsage("\"" + word + "\" is below absolute zero");
  return temperature;
}

}  // namespace zel::desk

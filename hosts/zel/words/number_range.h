// Numbers, spans and temperatures as words of the command line.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace zelhost {

// Throws WrongUsage, naming what it should be, when the word is no number.
double ParseNumber(std::string const& word, std::string const& what);

// From ... to, both ends included; a missing end is open.
struct Span {
  std::optional<double> low;
  std::optional<double> high;

  // False for an undefined value.
  bool Has(double value) const;
};
// "250:320", "250:", ":320"; nothing for an empty word.
std::optional<Span> ParseSpan(std::string const& word, std::string const& what);

inline constexpr std::int32_t kKelvin = 10;

// A temperature with its unit, "25C"; without one it is in K.
struct Temperature {
  double value = 0.0;
  std::int32_t unit = kKelvin;  // 10 K, 11 C, 12 R, 13 F

  // In a unit. Throws WrongUsage below absolute zero.
  double In(std::int32_t code) const;
};
Temperature ParseTemperature(std::string const& word);
// From one temperature to another, "20C:350", in K.
std::optional<Span> ParseTemperatureSpan(std::string const& word, std::string const& what);
// From one unit to another.
double Convert(double value, std::int32_t from, std::int32_t to);

}  // namespace zelhost

// Numbers, ranges and temperatures given on the command line.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "desk/words/display_units.h"

namespace zel::desk {

// A hint for a user who typed a word that is not a number, as the end of a message: that the
// decimal sign is a point, or that several numbers are separated by blanks. Empty if the word has
// no comma after a digit or a letter.
std::string HintForNumber(std::string const& word);

// Throws WrongUsage, which says what is expected, if the word is not a number.
double ParseNumber(std::string const& word, std::string const& what);

// A range, both ends included; a missing end is open.
struct Span {
  std::optional<double> low;
  std::optional<double> high;

  // False for an undefined value.
  bool Has(double value) const;
};
// "250:320", "250:", ":320"; nothing for an empty word.
std::optional<Span> ParseSpan(std::string const& word, std::string const& what);

// A tolerance, "1%" or 0.01, as a fraction. Throws WrongUsage if the word is neither, or below 0.
double ParseTolerance(std::string const& word);

inline constexpr std::int32_t kKelvin = 10;

// The code of the unit of temperatures that a word means: "C", "degC". Throws WrongUsage for any
// other word.
std::int32_t TemperatureUnitNamed(std::string const& word);

// A temperature with its unit, "25C".
struct Temperature {
  double value = 0.0;
  std::int32_t unit = kKelvin;  // 10 K, 11 C, 12 R, 13 F

  // The temperature in the unit with this code.
  double In(std::int32_t code) const;
};
// Without a unit, it is in the display unit, K by default. Throws WrongUsage below absolute zero.
Temperature ParseTemperature(std::string const& word, DisplayUnits const& units);
// A range of temperatures such as "20C:350", in K.
std::optional<Span> ParseTemperatureSpan(std::string const& word, std::string const& what,
                                         DisplayUnits const& units);

}  // namespace zel::desk

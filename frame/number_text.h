// Numbers as text, whatever the process's locale.
#pragma once

#include <charconv>
#include <cstdint>
#include <string>
#include <string_view>

namespace zel {

// As std::from_chars reads a double, to the nearest one on every machine.
std::from_chars_result ReadReal(char const* first, char const* last, double& value) noexcept;

// Lenient readers: they skip blanks, accept a sign, and stop at the first character that is not
// part of the number; a text without a number yields 0. Integers are clamped to 32 bits. Reals may
// be "inf" and "nan" in any case, as they are printed, but not hexadecimal; a value that is too
// large is infinite.
double ParseReal(std::string_view text) noexcept;
std::int32_t ParseInt(std::string_view text) noexcept;

// As "%.<digits>g" prints in the C locale: at least two digits of exponent. At most 31 characters
// and a terminator go into `buffer`; returns the length.
int PrintReal(double value, int digits, char* buffer) noexcept;
std::string RealText(double value, int digits);

}  // namespace zel

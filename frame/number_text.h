// Numbers as text, whatever the process's locale.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace zel {

// Lenient readers: they skip blanks, take a sign, and stop at the first character that does not
// belong; nothing readable gives 0. Integers stop at the limits of 32 bits. Reals know "inf" and
// "nan" in any case, as they are printed, and no hexadecimal form; what is too large is infinite.
double ParseReal(std::string_view text) noexcept;
std::int32_t ParseInt(std::string_view text) noexcept;

// As "%.<digits>g" prints in the C locale: at least two digits of exponent. At most 31 characters
// and a terminator go into `buffer`; gives the length.
int PrintReal(double value, int digits, char* buffer) noexcept;
std::string RealText(double value, int digits);

}  // namespace zel

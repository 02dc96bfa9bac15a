#include "frame/number_text.h"

#if defined(__i386__)
#include <locale.h>
#include <stdlib.h>
#endif

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <optional>
#include <system_error>

namespace zel {
namespace {

constexpr std::size_t kBufferSize = 32;
constexpr int kMostDigits = 17;

// Skips blanks and a plus sign, which std::from_chars does not accept.
std::string_view StartOfNumber(std::string_view text) noexcept {
  std::size_t const start = text.find_first_not_of(" \t\n\v\f\r");
  if (start == std::string_view::npos) return {};
  text.remove_prefix(start);
  bool const plus = text.size() > 1 && text[0] == '+' && text[1] != '-' && text[1] != '+';
  return plus ? text.substr(1) : text;
}

// The power of ten of the first nonzero digit; the number must have one.
std::int64_t DecimalExponent(std::string_view number) noexcept {
  std::size_t const e = std::min(number.find_first_of("eE"), number.size());
  std::string_view const mantissa = number.substr(0, e);
  auto const first = static_cast<std::int64_t>(mantissa.find_first_of("123456789"));
  auto const point = static_cast<std::int64_t>(std::min(mantissa.find('.'), mantissa.size()));
  std::int64_t const stated = e < number.size() ? ParseInt(number.substr(e + 1)) : 0;
  return stated + (first < point ? point - first - 1 : point - first);
}

// Exact powers of ten.
constexpr double kPowers[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                              1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                              1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
constexpr int kArithmeticDigits = 8;

// A number as decimal digits, of which the first is worth 10^exponent.
struct Digits {
  std::uint32_t digits;
  int exponent;
};

// The digits by one multiplication or division with a power of ten. Its error is far below the
// required distance from a tie; no result for a number that is nearer to a tie than that.
std::optional<Digits> DigitsOf(double size, int count) noexcept {
  constexpr double kLeast = 1e-14, kMost = 1e22, kTieDistance = 1e-6;
  if (!(size >= kLeast && size < kMost) || count > kArithmeticDigits) return std::nullopt;
  auto const scaled = [&](int exponent) {
    int const power = count - 1 - exponent;
    return power >= 0 ? size * kPowers[power] : size / kPowers[-power];
  };
  constexpr double kLog2 = 0.30103;
  int binary = 0;
  std::frexp(size, &binary);
  auto exponent = static_cast<int>(std::floor((binary - 1) * kLog2));
  double value = scaled(exponent);
  if (value >= kPowers[count]) value = scaled(++exponent);
  double const whole = std::floor(value);
  if (std::abs(value - whole - 0.5) < kTieDistance) return std::nullopt;
  auto digits = static_cast<std::uint32_t>(value - whole > 0.5 ? whole + 1.0 : whole);
  if (digits == static_cast<std::uint32_t>(kPowers[count])) {
    digits /= 10;
    ++exponent;
  }
  return Digits{digits, exponent};
}

// Puts the digits as "%g" does: without zeros at the end, with an exponent where there are more
// places before the point than digits or more than four zeros after it. Returns the end.
char* PutDigits(Digits number, int count, char* at) noexcept {
  constexpr int kMostZeros = 4;
  bool const hasExponent = number.exponent < -kMostZeros || number.exponent >= count;
  char text[kArithmeticDigits];
  for (int i = count - 1; i >= 0; --i, number.digits /= 10) {
    text[i] = static_cast<char>('0' + number.digits % 10);
  }
  while (count > 1 && text[count - 1] == '0') --count;

  int const before = hasExponent ? 1 : number.exponent + 1;  // digits before the point
  if (before <= 0) {
    *at++ = '0';
    *at++ = '.';
    at = std::fill_n(at, -before, '0');
  }
  for (int i = 0; i < std::max(count, before); ++i) {
    if (i == before && i > 0) *at++ = '.';
    *at++ = i < count ? text[i] : '0';
  }
  if (!hasExponent) return at;
  *at++ = 'e';
  *at++ = number.exponent < 0 ? '-' : '+';
  int const size = std::abs(number.exponent);
  *at++ = static_cast<char>('0' + size / 10);
  *at++ = static_cast<char>('0' + size % 10);
  return at;
}

// The C++ library for i386 computes short numbers in registers of 80 bits, and rounds them twice.
// The function of C does not.
#if defined(__i386__)
double ReadAgain(char const* first, std::size_t length, double value) noexcept {
  static locale_t const classic = ::newlocale(LC_ALL_MASK, "C", nullptr);
  char text[64];  // longer numbers are computed with integers
  if (classic == nullptr || length >= sizeof text) return value;
  std::memcpy(text, first, length);
  text[length] = '\0';
  return ::strtod_l(text, nullptr, classic);
}
#else
double ReadAgain(char const*, std::size_t, double value) noexcept { return value; }
#endif

}  // namespace

std::from_chars_result ReadReal(char const* first, char const* last, double& value) noexcept {
  auto const result = std::from_chars(first, last, value);
  if (result.ec == std::errc()) {
    value = ReadAgain(first, static_cast<std::size_t>(result.ptr - first), value);
  }
  return result;
}

double ParseReal(std::string_view text) noexcept {
  text = StartOfNumber(text);
  double value = 0.0;
  auto const result = ReadReal(text.data(), text.data() + text.size(), value);
  if (result.ec != std::errc::result_out_of_range) return value;
  // Too large or too small for a double.
  auto const length = static_cast<std::size_t>(result.ptr - text.data());
  bool const tiny = DecimalExponent(text.substr(0, length)) < 0;
  double const magnitude = tiny ? 0.0 : std::numeric_limits<double>::infinity();
  return text.front() == '-' ? -magnitude : magnitude;
}

std::int32_t ParseInt(std::string_view text) noexcept {
  text = StartOfNumber(text);
  std::int32_t value = 0;
  auto const result = std::from_chars(text.data(), text.data() + text.size(), value);
  if (result.ec == std::errc::result_out_of_range) {
    return text.front() == '-' ? INT32_MIN : INT32_MAX;
  }
  return result.ec == std::errc() ? value : 0;
}

int PrintReal(double value, int digits, char* buffer) noexcept {
  int const precision = digits < 1 ? 1 : digits > kMostDigits ? kMostDigits : digits;
  if (auto const known = DigitsOf(std::abs(value), precision)) {
    char* at = buffer;
    if (value < 0.0) *at++ = '-';
    at = PutDigits(*known, precision, at);
    *at = '\0';
    return static_cast<int>(at - buffer);
  }
  auto const result =
      std::to_chars(buffer, buffer + kBufferSize - 1, value, std::chars_format::general, precision);
  *result.ptr = '\0';
  return static_cast<int>(result.ptr - buffer);
}

std::string RealText(double value, int digits) {
  char buffer[kBufferSize];
  int const length = PrintReal(value, digits, buffer);
  return {buffer, static_cast<std::size_t>(length)};
}

}  // namespace zel

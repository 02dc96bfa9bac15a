#include "frame/number_text.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <limits>
#include <system_error>

namespace zel {
namespace {

constexpr std::size_t kBufferSize = 32;
constexpr int kMostDigits = 17;

// Drops blanks and a plus sign, which the strict readers do not take.
std::string_view StartOfNumber(std::string_view text) noexcept {
  std::size_t const start = text.find_first_not_of(" \t\n\v\f\r");
  if (start == std::string_view::npos) return {};
  text.remove_prefix(start);
  bool const plus = text.size() > 1 && text[0] == '+' && text[1] != '-' && text[1] != '+';
  return plus ? text.substr(1) : text;
}

// Power of ten of the first digit that is not 0, of a number that has one.
std::int64_t DecimalExponent(std::string_view number) noexcept {
  std::size_t const e = std::min(number.find_first_of("eE"), number.size());
  std::string_view const mantissa = number.substr(0, e);
  auto const first = static_cast<std::int64_t>(mantissa.find_first_of("123456789"));
  auto const point = static_cast<std::int64_t>(std::min(mantissa.find('.'), mantissa.size()));
  std::int64_t const stated = e < number.size() ? ParseInt(number.substr(e + 1)) : 0;
  return stated + (first < point ? point - first - 1 : point - first);
}

}  // namespace

double ParseReal(std::string_view text) noexcept {
  text = StartOfNumber(text);
  double value = 0.0;
  auto const result = std::from_chars(text.data(), text.data() + text.size(), value);
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

#include "bench/text_trim.h"

#include <charconv>
#include <cstdio>
#include <cstdlib>

namespace zel::bench {
namespace {

constexpr int kDigits = 7;
constexpr int kTextRoom = 32;

}  // namespace

double TrimByPrintf(float value) noexcept {
  char text[kTextRoom];
  std::snprintf(text, sizeof text, "%.*g", kDigits, static_cast<double>(value));
  return std::strtod(text, nullptr);
}

double TrimByChars(float value) noexcept {
  char text[kTextRoom];
  auto const end = std::to_chars(text, text + sizeof text, static_cast<double>(value),
                                 std::chars_format::general, kDigits);
  double trimmed = 0.0;
  std::from_chars(text, end.ptr, trimmed);
  return trimmed;
}

}  // namespace zel::bench

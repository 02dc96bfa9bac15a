#include "frame/trim7.h"

#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>

namespace zel {
namespace {

// Powers of ten that a double holds exactly.
constexpr int kExactPowers = 22;
constexpr std::array<double, kExactPowers + 1> kPowers = {
    1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,  1e10, 1e11,
    1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};

constexpr double kSevenDigits = 1e6;   // smallest number of seven digits
constexpr double kEightDigits = 1e7;
// The scaled number is off by less than 1e-8. Nearer than this to a half the text decides.
constexpr double kNearHalf = 1e-6;

// Power of ten that brings a float with the given binary exponent field to seven digits, or to six
// or eight where the exponent alone cannot tell.
constexpr std::array<std::int8_t, 256> MakeScales() {
  std::array<std::int8_t, 256> scales{};
  for (int field = 0; field < 256; ++field) {
    // floor((field - 127) log10 2), in integers.
    int const e2 = field - 127;
    int const scaled = e2 * 30103;
    int const e10 = scaled >= 0 ? scaled / 100000 : -((-scaled + 99999) / 100000);
    scales[static_cast<std::size_t>(field)] = static_cast<std::int8_t>(6 - e10);
  }
  return scales;
}

constexpr std::array<std::int8_t, 256> kScales = MakeScales();

double Scale(double x, int power) noexcept {
  return power >= 0 ? x * kPowers[static_cast<std::size_t>(power)]
                    : x / kPowers[static_cast<std::size_t>(-power)];
}

double TrimByText(double value) noexcept {
  char text[32];
  auto const end = std::to_chars(text, text + sizeof text, value, std::chars_format::scientific, 6);
  double result = value;
  std::from_chars(text, end.ptr, result);
  return result;
}

}  // namespace

double Trim7(float value) noexcept {
  auto const bits = std::bit_cast<std::uint32_t>(value);
  std::uint32_t const field = bits >> 23 & 0xFF;
  double const exact = value;
  if ((bits & 0x7FFFFFFF) == 0 || field == 0xFF) return exact;  // zero, infinite, not a number
  int power = kScales[field];
  if (field == 0 || power >= kExactPowers || power <= -kExactPowers) return TrimByText(exact);
  double const magnitude = std::fabs(exact);
  double scaled = Scale(magnitude, power);
  if (scaled >= kEightDigits) {
    scaled = Scale(magnitude, --power);
  } else if (scaled < kSevenDigits) {
    scaled = Scale(magnitude, ++power);
  }
  double const digits = static_cast<double>(static_cast<std::int64_t>(scaled));
  double const fraction = scaled - digits;
  if (std::fabs(fraction - 0.5) < kNearHalf) return TrimByText(exact);
  double const rounded = fraction > 0.5 ? digits + 1.0 : digits;
  return std::copysign(Scale(rounded, -power), exact);  // one correctly rounded step
}

}  // namespace zel

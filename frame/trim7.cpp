#include "frame/trim7.h"

#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>

#include "frame/limits.h"
#include "frame/number_text.h"

namespace zel {
namespace {

// Powers of ten that a double holds exactly.
constexpr int kExactPowers = 22;
constexpr std::array<double, kExactPowers + 1> kPowers = {
    1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,  1e10, 1e11,
    1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};

// Within this distance of a half the printed text decides; the error of the scaled number is below
// 1e-8.
constexpr double kNearHalf = 1e-6;

// The value that marks fields without data, the most frequent of all: it is beyond the exact
// powers, and its result is known in advance.
constexpr std::uint32_t kUndefinedBits = 0xF99A130C;

// Scaling by a power of ten without a branch. To seven digits by one product, which is rounded
// twice where the power is negative; back by a factor and a divisor, one of them 1, so that the
// result is rounded once.
struct ScaleStep {
  double up;
  double factor;
  double divisor;
};
constexpr ScaleStep StepFor(int power) {
  return power >= 0 ? ScaleStep{kPowers[static_cast<std::size_t>(power)], 1.0,
                                kPowers[static_cast<std::size_t>(power)]}
                    : ScaleStep{1.0 / kPowers[static_cast<std::size_t>(-power)],
                                kPowers[static_cast<std::size_t>(-power)], 1.0};
}

constexpr double PowerOf(int e10) {
  return e10 >= 0 ? kPowers[static_cast<std::size_t>(e10)]
                  : 1.0 / kPowers[static_cast<std::size_t>(-e10)];
}

// For a binary exponent field of a float, in a cache line of its own: the step that scales its
// smallest float to seven digits, and the one by a power lower by one, for the floats from `next`
// on, given as bits without sign. Fields whose floats need powers that a double does not hold
// exactly have steps that yield no number.
struct alignas(64) FieldScale {
  ScaleStep steps[2];
  std::uint32_t next;
};

constexpr std::array<FieldScale, 256> MakeScales() {
  constexpr double kNone = std::numeric_limits<double>::quiet_NaN();
  std::array<FieldScale, 256> scales{};
  for (int field = 0; field < 256; ++field) {
    FieldScale& scale = scales[static_cast<std::size_t>(field)];
    scale = {{{kNone, 1.0, 1.0}, {kNone, 1.0, 1.0}}, 0};
    int const e2 = field - 127;
    if (field == 0 || e2 > 72 || e2 < -52) continue;
    double smallest = 1.0;
    for (int i = 0; i < e2; ++i) smallest *= 2.0;
    for (int i = 0; i > e2; --i) smallest /= 2.0;
    int e10 = -17;  // of the smallest float: 10^e10 <= smallest
    while (e10 < kExactPowers && PowerOf(e10 + 1) <= smallest) ++e10;
    int const power = 6 - e10;
    if (power > kExactPowers || power - 1 < -kExactPowers || e10 + 1 > kExactPowers) continue;
    // The smallest float that is not below the power of ten.
    double const next = PowerOf(e10 + 1);
    auto const nearest = static_cast<float>(next);
    auto const bits = std::bit_cast<std::uint32_t>(nearest);
    scale = {{StepFor(power), StepFor(power - 1)},
             static_cast<double>(nearest) < next ? bits + 1 : bits};
  }
  return scales;
}
constexpr std::array<FieldScale, 256> kScales = MakeScales();

double TrimByText(double value) noexcept {
  char text[32];
  auto const end = std::to_chars(text, text + sizeof text, value, std::chars_format::scientific, 6);
  double result = value;
  ReadReal(text, end.ptr, result);
  return result;
}

// Floats that no step scales, and those whose seventh digit the printed text decides.
double TrimRare(std::uint32_t bits) noexcept {
  if (bits == kUndefinedBits) return gen_GetUndefDouble();
  double const exact = std::bit_cast<float>(bits);
  bool const zeroOrNoNumber = (bits & 0x7FFFFFFF) == 0 || (bits >> 23 & 0xFF) == 0xFF;
  return zeroOrNoNumber ? exact : TrimByText(exact);
}

inline double Trim(std::uint32_t bits) noexcept {
  // Added to a number of seven digits and subtracted again, it rounds to the nearest integer.
  constexpr double kRounder = 6755399441055744.0;  // 1.5 times 2^52
  FieldScale const& scale = kScales[bits >> 23 & 0xFF];
  ScaleStep const& step = scale.steps[(bits & 0x7FFFFFFF) >= scale.next ? 1 : 0];
  double const scaled = static_cast<double>(std::bit_cast<float>(bits)) * step.up;
  double const rounded = scaled + kRounder - kRounder;
  if (!(std::fabs(scaled - rounded) < 0.5 - kNearHalf)) return TrimRare(bits);
  return rounded * step.factor / step.divisor;
}

}  // namespace

double Trim7(float value) noexcept { return Trim(std::bit_cast<std::uint32_t>(value)); }

void Trim7Words(std::int32_t const* words, std::int32_t count, double* values) noexcept {
  for (std::int32_t i = 0; i < count; ++i) values[i] = Trim(static_cast<std::uint32_t>(words[i]));
}

}  // namespace zel

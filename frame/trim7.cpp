#include "frame/trim7.h"

#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>

#include "frame/limits.h"

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

// Scaling by a power of ten without a branch. Index 0 is the lowest power. To seven digits by one
// product, which is rounded twice where the power is negative; back by a factor and a divisor, one
// of them 1, so that the result is rounded once.
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
constexpr std::array<ScaleStep, 2 * kExactPowers + 1> MakeSteps() {
  std::array<ScaleStep, 2 * kExactPowers + 1> steps{};
  for (int p = -kExactPowers; p <= kExactPowers; ++p) {
    steps[static_cast<std::size_t>(p + kExactPowers)] = StepFor(p);
  }
  return steps;
}
constexpr std::array<ScaleStep, 2 * kExactPowers + 1> kSteps = MakeSteps();

// For a binary exponent field of a float: the power of ten that scales the smallest float of that
// field to seven digits, and `next`, the number from which on a power lower by one does so. Fields
// whose floats need powers that a double does not hold exactly have power kNoPower.
struct FieldScale {
  double next;
  int power;
};
constexpr int kNoPower = 99;

constexpr std::array<FieldScale, 256> MakeScales() {
  std::array<FieldScale, 256> scales{};
  for (int field = 0; field < 256; ++field) {
    FieldScale& scale = scales[static_cast<std::size_t>(field)];
    scale = {0.0, kNoPower};
    int const e2 = field - 127;
    if (field == 0 || e2 > 72 || e2 < -52) continue;
    double smallest = 1.0;
    for (int i = 0; i < e2; ++i) smallest *= 2.0;
    for (int i = 0; i > e2; --i) smallest /= 2.0;
    int e10 = -17;  // of the smallest float: 10^e10 <= smallest
    while (e10 < kExactPowers &&
           (e10 + 1 >= 0 ? kPowers[static_cast<std::size_t>(e10 + 1)]
                         : 1.0 / kPowers[static_cast<std::size_t>(-e10 - 1)]) <= smallest) {
      ++e10;
    }
    int const power = 6 - e10;
    if (power > kExactPowers || power - 1 < -kExactPowers || e10 + 1 > kExactPowers) continue;
    double const next = e10 + 1 >= 0 ? kPowers[static_cast<std::size_t>(e10 + 1)]
                                     : 1.0 / kPowers[static_cast<std::size_t>(-e10 - 1)];
    scale = {next, power};
  }
  return scales;
}
constexpr std::array<FieldScale, 256> kScales = MakeScales();

double TrimByText(double value) noexcept {
  char text[32];
  auto const end = std::to_chars(text, text + sizeof text, value, std::chars_format::scientific, 6);
  double result = value;
  std::from_chars(text, end.ptr, result);
  return result;
}

inline double Trim(float value) noexcept {
  auto const bits = std::bit_cast<std::uint32_t>(value);
  std::uint32_t const field = bits >> 23 & 0xFF;
  double const exact = value;
  FieldScale const& scale = kScales[field];
  if (scale.power == kNoPower) {
    bool const zeroOrNoNumber = (bits & 0x7FFFFFFF) == 0 || field == 0xFF;
    if (zeroOrNoNumber) return exact;
    return bits == kUndefinedBits ? gen_GetUndefDouble() : TrimByText(exact);
  }
  double const magnitude = std::fabs(exact);
  int const power = scale.power - (magnitude >= scale.next ? 1 : 0);
  ScaleStep const& step = kSteps[static_cast<std::size_t>(power + kExactPowers)];
  double const scaled = magnitude * step.up;
  auto const digits = static_cast<std::int64_t>(scaled);
  double const fraction = scaled - static_cast<double>(digits);
  if (std::fabs(fraction - 0.5) < kNearHalf) return TrimByText(exact);
  double const rounded = static_cast<double>(static_cast<std::int64_t>(scaled + 0.5));
  return std::copysign(rounded * step.factor / step.divisor, exact);
}

}  // namespace

double Trim7(float value) noexcept { return Trim(value); }

void Trim7Words(std::int32_t const* words, std::int32_t count, double* values) noexcept {
  for (std::int32_t i = 0; i < count; ++i) values[i] = Trim(std::bit_cast<float>(words[i]));
}

}  // namespace zel

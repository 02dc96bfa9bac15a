#include "frame/trim7.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <limits>

#include "tests/support/sanitizers.h"

namespace zel {
namespace {

double ByText(float value) {
  char text[32];
  std::snprintf(text, sizeof text, "%.7g", static_cast<double>(value));
  return std::strtod(text, nullptr);
}

void ExpectSame(std::uint32_t pattern) {
  float const value = std::bit_cast<float>(pattern);
  if (std::isnan(value)) return;
  ASSERT_EQ(std::bit_cast<std::uint64_t>(Trim7(value)), std::bit_cast<std::uint64_t>(ByText(value)))
      << std::hex << pattern;
}

#if ZEL_ADDRESS_SANITIZER
constexpr int kPatterns = 500'000;
#else
constexpr int kPatterns = 10'000'000;
#endif

TEST(Trim7, EqualsPrintingAndReadingBackForTenMillionPatterns) {
  std::uint32_t pattern = 12345;
  for (int i = 0; i < kPatterns; ++i) ExpectSame(pattern += 2654435761U);
}

TEST(Trim7, EqualsPrintingAndReadingBackAroundPowersOfTenAndTwo) {
  for (int e = -45; e <= 38; ++e) {
    auto const middle = std::bit_cast<std::uint32_t>(static_cast<float>(std::pow(10.0, e)));
    for (std::uint32_t d = 0; d < 2000; ++d) {
      ExpectSame(middle + d - 1000);
      ExpectSame((middle + d - 1000) | 0x80000000U);
    }
  }
  for (std::uint32_t exponent = 0; exponent < 255; ++exponent) {
    for (std::uint32_t d = 0; d < 64; ++d) ExpectSame((exponent << 23) + d - 32);
  }
}

// Floats exactly between two texts of seven digits: the even one is used.
TEST(Trim7, TiesGoToTheEvenDigit) {
  EXPECT_EQ(Trim7(1000000.5F), 1000000.0);
  EXPECT_EQ(Trim7(1000001.5F), 1000002.0);
  EXPECT_EQ(Trim7(1048576.25F), 1048576.0);
  EXPECT_EQ(Trim7(8388608.0F), 8388608.0);
  EXPECT_EQ(Trim7(16777216.0F), 16777220.0);
}

TEST(Trim7, StoredDecimalsComeBackAsTyped) {
  for (double value : {0.1, 0.2, 1e-5, 298.15, 101.325, 8.314471, 123456.7, -1e35, 1e30}) {
    EXPECT_EQ(Trim7(static_cast<float>(value)), value);
  }
}

TEST(Trim7, NonFiniteValuesAndZerosPass) {
  float const inf = std::numeric_limits<float>::infinity();
  EXPECT_EQ(Trim7(inf), static_cast<double>(inf));
  EXPECT_EQ(Trim7(-inf), static_cast<double>(-inf));
  EXPECT_TRUE(std::isnan(Trim7(std::numeric_limits<float>::quiet_NaN())));
  EXPECT_FALSE(std::signbit(Trim7(0.0F)));
  EXPECT_TRUE(std::signbit(Trim7(-0.0F)));
}

}  // namespace
}  // namespace zel

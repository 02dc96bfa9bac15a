#include "frame/number_text.h"

#include <gtest/gtest.h>

#include <bit>
#include <clocale>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <string>

namespace zel {
namespace {

// Few digits and a power of ten, the shape that a library may compute instead of reading digit by
// digit.
TEST(NumberText, RealsAreTheNearestOnEveryMachine) {
  std::uint32_t pattern = 4711;
  for (int i = 0; i < 200'000; ++i) {
    pattern = pattern * 1664525U + 1013904223U;
    std::string const text =
        std::to_string(pattern) + "e" + std::to_string(static_cast<int>(pattern >> 7 & 63) - 32);
    double const expected = std::strtod(text.c_str(), nullptr);
    ASSERT_EQ(std::bit_cast<std::uint64_t>(ParseReal(text)), std::bit_cast<std::uint64_t>(expected))
        << text;
  }
}

TEST(NumberText, IntegersAreReadLeniently) {
  struct {
    char const* text;
    std::int32_t value;
  } const rows[] = {{"12", 12},
                    {"  -7x", -7},
                    {"+5", 5},
                    {"", 0},
                    {"x", 0},
                    {"+-5", 0},
                    {"3.9", 3},
                    {"-", 0},
                    {"2147483648", INT32_MAX},
                    {"-99999999999", INT32_MIN},
                    {"\t8", 8},
                    {"0x10", 0},
                    {"+", 0}};
  for (auto const& row : rows) EXPECT_EQ(ParseInt(row.text), row.value) << row.text;
}

TEST(NumberText, RealsAreReadLeniently) {
  struct {
    char const* text;
    double value;
  } const rows[] = {{"1.5", 1.5}, {" +2e3 ", 2000.0}, {"-.5kPa", -0.5}, {"", 0.0},
                    {"abc", 0.0}, {"1,5", 1.0},       {"1e", 1.0},      {"2.0\n3.0", 2.0},
                    {"-0", -0.0}, {"1e-400", 0.0}};
  for (auto const& row : rows) EXPECT_EQ(ParseReal(row.text), row.value) << row.text;
  EXPECT_TRUE(std::isinf(ParseReal("1e400")));
  EXPECT_TRUE(std::signbit(ParseReal("-1e400")));
  EXPECT_EQ(ParseReal(std::string(400, '9')), std::numeric_limits<double>::infinity());
  EXPECT_EQ(ParseReal("0." + std::string(400, '0') + "1"), 0.0);
}

TEST(NumberText, RealsBeyondADoubleAreInfiniteOrZeroByTheirSize) {
  double const infinite = std::numeric_limits<double>::infinity();
  struct {
    std::string text;
    double value;
  } const rows[] = {{"1" + std::string(400, '0') + "e-50", infinite},
                    {"0." + std::string(400, '0') + "1e+50", 0.0},
                    {"-1" + std::string(400, '0') + ".5x", -infinite},
                    {"+.1e+99999999999", infinite},
                    {"1e-99999999999", 0.0},
                    {"5e-324", 5e-324},
                    {"1.7976931348623157e308", std::numeric_limits<double>::max()}};
  for (auto const& row : rows) EXPECT_EQ(ParseReal(row.text), row.value) << row.text;
  EXPECT_TRUE(std::signbit(ParseReal("-1e-400")));
  EXPECT_TRUE(std::signbit(ParseReal("-0")));
}

TEST(NumberText, RealsThatAreNoNumbersAreReadAsTheyArePrinted) {
  double const infinite = std::numeric_limits<double>::infinity();
  EXPECT_EQ(ParseReal(RealText(infinite, 7)), infinite);
  EXPECT_EQ(ParseReal(RealText(-infinite, 7)), -infinite);
  EXPECT_TRUE(std::isnan(ParseReal(RealText(std::nan(""), 7))));
  EXPECT_EQ(ParseReal("0x10"), 0.0) << "no hexadecimal form";
}

std::string AsCPrints(double value, int digits) {
  char text[64];
  std::snprintf(text, sizeof text, "%.*g", digits, value);
  return text;
}

TEST(NumberText, PrintsAsTheCLocaleDoes) {
  for (double value : {0.0, -0.0, 1.0, -1.5, 0.1, 1e35, -1e35, 1e-5, 9.9999995e-5, 0.0001, 1e100,
                       5e-324, 123456789.0, 298.15, 1e6, 1e7, 999999.5, 9999999.5, 1234567.5}) {
    for (int digits : {1, 6, 7, 17}) {
      EXPECT_EQ(RealText(value, digits), AsCPrints(value, digits)) << value;
    }
  }
  EXPECT_EQ(RealText(1e35, 7), "1e+35");
  EXPECT_EQ(RealText(1e-5, 6), "1e-05") << "two digits of exponent at least";
  EXPECT_EQ(RealText(-1e-100, 6), "-1e-100");
}

TEST(NumberText, PrintsAnyDoubleAsTheCLocaleDoes) {
  std::uint64_t pattern = 1;
  for (int i = 0; i < 200'000; ++i) {
    pattern = pattern * 6364136223846793005U + 1442695040888963407U;
    double const value = std::bit_cast<double>(pattern);
    if (std::isnan(value)) continue;
    int const digits = i % 17 + 1;
    char text[32];
    int const length = PrintReal(value, digits, text);
    ASSERT_EQ(std::string(text), AsCPrints(value, digits));
    ASSERT_EQ(std::string(text).size(), static_cast<std::size_t>(length));
    ASSERT_LE(length, 31);
  }
}

// Values of usual size, short decimals, and those at a tie or next to one.
TEST(NumberText, PrintsUsualDoublesAsTheCLocaleDoes) {
  std::uint64_t pattern = 7;
  char text[32];
  for (int i = 0; i < 300'000; ++i) {
    pattern = pattern * 6364136223846793005U + 1442695040888963407U;
    auto const number = static_cast<std::int64_t>(pattern >> 20) % 100'000'000;
    int const power = static_cast<int>(pattern >> 54) % 40 - 16;
    double value = static_cast<double>(number) * std::pow(10.0, power - 7);
    switch (i % 5) {
      case 0: value = static_cast<float>(value); break;
      case 1: value = static_cast<double>(number) + 0.5; break;
      case 2: value = std::nextafter(static_cast<double>(number) + 0.5, 0.0); break;
      case 3: value = -(static_cast<double>(number % 10'000) + 0.5) / 64.0; break;
      default: break;
    }
    for (int digits = 1; digits <= 9; ++digits) {
      PrintReal(value, digits, text);
      ASSERT_EQ(std::string(text), AsCPrints(value, digits)) << digits;
    }
  }
  for (int power = -20; power <= 25; ++power) {
    for (double nearOne : {1.0, 0.99999995, 0.999999949, 0.9999999500001, 9.9999995, 9.99999949}) {
      double const value = nearOne * std::pow(10.0, power);
      for (int digits = 1; digits <= 9; ++digits) {
        PrintReal(value, digits, text);
        ASSERT_EQ(std::string(text), AsCPrints(value, digits)) << digits;
      }
    }
  }
}

TEST(NumberText, DigitsStayBetween1And17) {
  EXPECT_EQ(RealText(1.25, 0), "1");
  EXPECT_EQ(RealText(0.1, 40), AsCPrints(0.1, 17));
}

TEST(NumberText, LocaleDoesNotMatter) {
  char const* const old = std::setlocale(LC_NUMERIC, nullptr);
  std::string const saved = old;
  for (char const* name : {"de_DE.UTF-8", "fr_FR.UTF-8"}) std::setlocale(LC_NUMERIC, name);
  EXPECT_EQ(ParseReal("1.5"), 1.5);
  EXPECT_EQ(RealText(1.5, 7), "1.5");
  std::setlocale(LC_NUMERIC, saved.c_str());
}

}  // namespace
}  // namespace zel

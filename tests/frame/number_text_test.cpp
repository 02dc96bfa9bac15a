#include "frame/number_text.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cmath>
#include <cstdio>
#include <limits>

namespace zel {
namespace {

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

TEST(NumberText, PrintsAsTheCLocaleDoes) {
  for (double value :
       {0.0, 1.0, -1.5, 0.1, 1e35, -1e35, 1e-5, 123456789.0, 1e100, 298.15, 1e6, 999999.5}) {
    for (int digits : {1, 6, 7, 17}) {
      char expected[64];
      std::snprintf(expected, sizeof expected, "%.*g", digits, value);
      EXPECT_EQ(RealText(value, digits), expected);
    }
  }
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

#include <gtest/gtest.h>

#include <cstdint>
#include <string>

#include "zelaccess/Casn.h"

namespace zel {
namespace {

long Value(casn const& c) { return c; }
std::string Text(casn const& c) { return static_cast<char const*>(c); }

struct Row {
  char const* text;
  long value;
  char const* printed;
};

TEST(Casn, TextsAreReadOrGiveTheEmptyNumber) {
  constexpr Row kRows[] = {
      {"7732-18-5", 7732185, "7732-18-5"},
      {"64-17-5", 64175, "64-17-5"},
      {"50-00-0", 50000, "50-00-0"},
      {"1-1", 11, "0-01-1"},  // short, and right by the rule
      {"7732-18-6", 0, ""},   // check digit
      {"7732185", 0, ""},     // no dashes
      {"11", 0, ""},          // short ones need them too
      {"0011", 0, ""},
      {"64175", 0, ""},
      {"1", 0, ""},           // a check digit alone
      {"77-3218-5", 0, ""},   // dashes in the wrong places
      {" 7732-18-5", 0, ""},  // nothing is skipped
      {"7732-18-5 ", 0, ""},
      {"773x-18-5", 0, ""},
      {"", 0, ""},
      {"-", 0, ""},
      {"9999999999999-99-9", 0, ""},           // wraps around
      {"4302699-48-1", 7732185, "7732-18-5"},  // likewise, to a number that passes
  };
  for (Row const& row : kRows) {
    casn const c(row.text);
    EXPECT_EQ(Value(c), row.value) << row.text;
    EXPECT_EQ(Text(c), row.printed) << row.text;
  }
}

TEST(Casn, IntegersAreValidatedByTheCheckDigit) {
  EXPECT_EQ(Text(casn(7732185)), "7732-18-5");
  EXPECT_EQ(Text(casn(7732185L)), "7732-18-5");
  EXPECT_EQ(Text(casn(50000)), "50-00-0");
  EXPECT_EQ(Value(casn(static_cast<short>(11))), 11);
  // Where a long has 64 bits, also values that differ from others only in the upper ones.
  constexpr bool kIsLong = sizeof(long) > sizeof(std::int32_t);
  constexpr long kLarge = kIsLong ? static_cast<long>(std::int64_t{1} << 40) : 2147483647L;
  constexpr long kUpper =
      kIsLong ? static_cast<long>(7732185 + (std::int64_t{1} << 32)) : -2147483647L;
  for (long bad : {7732186L, 0L, -7732185L, kLarge, kUpper}) {
    EXPECT_EQ(Value(casn(bad)), 0) << bad;
    EXPECT_EQ(Text(casn(bad)), "") << bad;
  }
}

TEST(Casn, EveryNumberFollowsTheCheckDigitAlone) {
  for (long number = 1; number <= 200000; ++number) {
    long sum = 0;
    long position = 1;
    for (long q = number / 10; q > 0; q /= 10) sum += position++ * (q % 10);
    bool const valid = sum % 10 == number % 10;
    casn const c(number);
    ASSERT_EQ(Value(c), valid ? number : 0);
    if (valid && number >= 1000) {
      ASSERT_EQ(Value(casn(Text(c).c_str())), number) << Text(c);
    }
  }
}

TEST(Casn, LargestNumbersPrintWhole) {
  EXPECT_EQ(Text(casn(2147483643)), "2147483-64-3");
  EXPECT_EQ(Text(casn("2147483-64-3")), "2147483-64-3");
}

TEST(Casn, TextIsGivenInPlace) {
  casn c("64-17-5");
  char* text = c;
  char const* same = c;
  EXPECT_STREQ(text, "64-17-5");
  EXPECT_EQ(text, same);
  casn const fixed(c);
  char const* copied = fixed;
  EXPECT_STREQ(copied, "64-17-5");
  EXPECT_NE(copied, same);
}

TEST(Casn, NullTextIsEmpty) { EXPECT_EQ(Value(casn(static_cast<char const*>(nullptr))), 0); }

TEST(Casn, AssignmentReplacesBothForms) {
  casn c("7732-18-5");
  c = "64-17-5";
  EXPECT_EQ(Value(c), 64175);
  EXPECT_EQ(Text(c), "64-17-5");
  c = 7732185L;
  EXPECT_EQ(Text(c), "7732-18-5");
  casn other("50-00-0");
  other = c;
  EXPECT_EQ(Value(other), 7732185);
  EXPECT_EQ(Text(other), "7732-18-5");
  other = casn();
  EXPECT_EQ(Value(other), 0);
  EXPECT_EQ(Text(other), "");
  c = "nonsense";
  EXPECT_EQ(Value(c), 0);
  EXPECT_EQ(Text(c), "");
}

}  // namespace
}  // namespace zel

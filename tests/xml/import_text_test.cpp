// Decoding texts of documents.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "frame/date_text.h"
#include "xml/import_text.h"

namespace zel {
namespace {

std::vector<std::string> Split(std::string_view text) {
  std::vector<std::string> all;
  Tokens tokens(text);
  std::string_view token;
  while (tokens.Next(token)) all.emplace_back(token);
  return all;
}

using Texts = std::vector<std::string>;

TEST(TokensTest, BlanksAloneSeparate) {
  EXPECT_EQ(Split("  a  b c "), (Texts{"a", "b", "c"}));
  EXPECT_EQ(Split("a\nb\tc d"), (Texts{"a\nb\tc", "d"}));
  EXPECT_EQ(Split(""), Texts{});
  EXPECT_EQ(Split("   "), Texts{});
}

// The work stops at the length that is kept: if every line searched for a mark to the end, this
// would take minutes.
TEST(MemoTextTest, MillionsOfLinesTakeNoTime) {
  std::string const lines(std::size_t{8} << 20, '\n');
  EXPECT_EQ(MemoText(lines).size(), 3999U);
}

TEST(MemoTextTest, MarksOfFurtherLinesAreDropped) {
  EXPECT_EQ(MemoText(" one"), "one");
  EXPECT_EQ(MemoText(" one\n            [ two\n            [ three"), "one\ntwo\nthree");
  EXPECT_EQ(MemoText("xone\n[ "), "one\n");
  EXPECT_EQ(MemoText(""), "");
  EXPECT_EQ(MemoText(" "), "");
}

TEST(MemoTextTest, WithoutAMarkOneCharacterIsDropped) {
  EXPECT_EQ(MemoText(" one\n two\n three"), "one\ntwo\nthree");
  EXPECT_EQ(MemoText(" one\n"), "one\n");
}

TEST(MemoTextTest, NextMarkCountsWhereverItStands) {
  EXPECT_EQ(MemoText(" one\ntwo\nthree [ four"), "one\nfour");
  EXPECT_EQ(MemoText(" one\n["), "one\n") << "nothing is behind the mark";
}

TEST(MemoTextTest, KeepsOneLessThanTheBuffer) {
  EXPECT_EQ(MemoText(" " + std::string(3999, 'a')), std::string(3999, 'a'));
  EXPECT_EQ(MemoText(" " + std::string(5000, 'a')), std::string(3999, 'a'));
}

TEST(DatedTextTest, FirstMarkBecomesTheDate) {
  std::string const today = TodayText();
  EXPECT_EQ(DatedText("Built %date% here"), "Built " + today + " here");
  EXPECT_EQ(DatedText("%date% %date%"), today + " %date%");
  EXPECT_EQ(DatedText("%DATE%"), "%DATE%");
  EXPECT_EQ(DatedText("none"), "none");
}

TEST(DatedTextTest, OneHundredCharactersAreKept) {
  EXPECT_EQ(DatedText(std::string(200, 'a')), std::string(100, 'a'));
  std::string const text = std::string(94, 'a') + "%date%";
  EXPECT_EQ(DatedText(text), (std::string(94, 'a') + TodayText()).substr(0, 100));
  EXPECT_EQ(DatedText(std::string(95, 'a') + "%date%"), std::string(95, 'a') + "%date")
      << "cut before it is looked at";
}

TEST(DateTest, HasDayMonthAndYear) {
  std::string const today = TodayText();
  ASSERT_EQ(today.size(), 11U) << today;
  EXPECT_EQ(today.substr(7), std::to_string(CurrentYear()));
  EXPECT_NE(std::string("Jan Feb Mar Apr May Jun Jul Aug Sep Oct Nov Dec").find(today.substr(3, 3)),
            std::string::npos);
}

// English names from the list of months, never those of a locale.
TEST(DateTest, LongDateHasTheWholeMonth) {
  std::string const before = TodayText();
  std::string const text = LongTodayText();
  if (TodayText() != before) GTEST_SKIP() << "midnight";
  std::string month;
  for (char const* name : {"January", "February", "March", "April", "May", "June", "July", "August",
                           "September", "October", "November", "December"}) {
    if (before.substr(3, 3) == std::string(name).substr(0, 3)) month = name;
  }
  ASSERT_FALSE(month.empty()) << before;
  EXPECT_EQ(text, before.substr(0, 3) + month + before.substr(6));
}

}  // namespace
}  // namespace zel

// The filter of lists, compared with the procedure that defines it.
#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <vector>

#include "frame/ascii.h"
#include "lists/list_filter.h"

namespace zel {
namespace {

// The definition: step by step, trying every position after a star.
bool Literal(std::string_view text, std::string_view pattern, bool sawStar = false) {
  if (pattern == "*") return true;
  while (!pattern.empty()) {
    char const c = pattern.front();
    pattern.remove_prefix(1);
    if (c == '?') {
      if (text.empty()) return false;
      text.remove_prefix(1);
    } else if (c == '*') {
      if (!sawStar) {
        for (std::size_t i = 0; i <= text.size(); ++i) {
          if (Literal(text.substr(i), pattern, true)) return true;
        }
        return false;
      }
    } else {
      if (text.empty() || ToUpper(text.front()) != ToUpper(c)) return false;
      text.remove_prefix(1);
      sawStar = false;
    }
    if (pattern == "*") return true;
  }
  return true;
}

// All texts of a few symbols up to a length.
std::vector<std::string> AllOf(std::string_view symbols, std::size_t longest) {
  std::vector<std::string> all{""};
  for (std::size_t start = 0, length = 1; length <= longest; ++length) {
    std::size_t const end = all.size();
    for (; start < end; ++start) {
      for (char c : symbols) all.push_back(all[start] + c);
    }
  }
  return all;
}

TEST(ListFilter, IsTheProcedureOnAllShortTexts) {
  std::vector<std::string> const texts = AllOf("ab", 6);
  std::size_t matches = 0;
  for (std::string const& pattern : AllOf("aB?*", 6)) {
    for (std::string const& text : texts) {
      bool const expected = Literal(text, pattern);
      ASSERT_EQ(MatchesListFilter(text, pattern), expected) << text << " by " << pattern;
      matches += expected ? 1 : 0;
    }
  }
  EXPECT_GT(matches, 100'000U);
}

TEST(ListFilter, TextMayGoOnBehindThePattern) {
  EXPECT_TRUE(MatchesListFilter("ETHANE", "eth"));
  EXPECT_TRUE(MatchesListFilter("ETHANE", "*ane"));
  EXPECT_TRUE(MatchesListFilter("ETHANEDIOL", "*ane"));
  EXPECT_FALSE(MatchesListFilter("METHANE", "eth"));
  EXPECT_TRUE(MatchesListFilter("METHANE", "?eth"));
  EXPECT_FALSE(MatchesListFilter("ETH", "eth?"));
  EXPECT_TRUE(MatchesListFilter("", "*"));
  EXPECT_FALSE(MatchesListFilter("", "?"));
}

// The literal definition would take far too long for this.
TEST(ListFilter, ManyStarsCostNoMore) {
  std::string pattern;
  for (int i = 0; i < 50; ++i) pattern += "*a";
  std::string const text(20'000, 'a');
  auto const start = std::chrono::steady_clock::now();
  EXPECT_TRUE(MatchesListFilter(text, pattern + "*"));
  EXPECT_FALSE(MatchesListFilter(text, pattern + "*b"));
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(2));
}

}  // namespace
}  // namespace zel

#include "frame/wildcard.h"

#include <gtest/gtest.h>

#include <string>

namespace zel {
namespace {

TEST(Wildcard, StarsAndQuestionMarks) {
  struct {
    char const* name;
    char const* pattern;
    bool matches;
  } const rows[] = {
      {"a.cmp", "*.cmp", true}, {"a.CMP", "*.cmp", false}, {"a.cmpx", "*.cmp", false},
      {"noext", "*.*", true},   {"a.b", "*.*", true},      {"", "*.*", true},
      {"noext", "n*.*", false}, {"abc", "a?c", true},      {"ac", "a?c", false},
      {"abc", "a*", true},      {"abc", "*b*c*", true},    {"abc", "*d", false},
      {"", "*", true},          {"", "?", false},          {"aaab", "*ab", true},
      {"abab", "*ab", true},    {"x", "", false},          {"", "", true},
      {"abc", "abc", true},     {"abcd", "abc", false},    {"abc", "abcd", false},
      {"abc", "***", true},     {"a*c", "a?c", true},      {"abc", "?*?", true},
      {"a", "?*?", false},
  };
  for (auto const& row : rows) {
    EXPECT_EQ(MatchesFilePattern(row.name, row.pattern), row.matches)
        << row.name << " by " << row.pattern;
  }
}

// Follows the meaning of the signs, with one step of recursion for each.
bool Literally(std::string const& name, std::string const& pattern) {
  if (pattern.empty()) return name.empty();
  std::string const rest = pattern.substr(1);
  if (pattern[0] == '*') {
    return Literally(name, rest) || (!name.empty() && Literally(name.substr(1), pattern));
  }
  bool const one = !name.empty() && (pattern[0] == '?' || pattern[0] == name[0]);
  return one && Literally(name.substr(1), rest);
}

// Calls `use` with all texts of these signs up to a length.
void ForAll(std::string const& signs, std::size_t length, std::string text, auto const& use) {
  use(text);
  if (text.size() == length) return;
  for (char c : signs) ForAll(signs, length, text + c, use);
}

TEST(Wildcard, AllShortPatternsMatchAsTheirSignsMean) {
  int matches = 0;
  ForAll("ab*?", 4, "", [&](std::string const& pattern) {
    ForAll("ab", 5, "", [&](std::string const& name) {
      bool const expected = Literally(name, pattern);
      matches += expected ? 1 : 0;
      ASSERT_EQ(MatchesFilePattern(name, pattern), expected) << name << " by " << pattern;
    });
  });
  EXPECT_GT(matches, 1000);
}

}  // namespace
}  // namespace zel

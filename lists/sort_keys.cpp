#include "lists/sort_keys.h"

#include <algorithm>
#include <array>
#include <cstring>

#include "frame/ascii.h"

namespace zel {

namespace {

constexpr std::string_view kPlaces = "0123456789'\"";
constexpr std::string_view kLocantsOfNitrogen = "n'\"";
constexpr std::string_view kDigits = "0123456789";
constexpr std::size_t kLongestWord = 40;

struct PrefixRow {
  std::string_view word;
  char sortLetter;
  WordCase letters;
  int part;
};
// The prefix "l" becomes upper case and "d" lower case.
constexpr PrefixRow kPrefixes[] = {
    {"alpha", 'a', WordCase::kLower, 1},   {"beta", 'b', WordCase::kLower, 1},
    {"gamma", 'c', WordCase::kLower, 1},   {"delta", 'd', WordCase::kLower, 1},
    {"epsilon", 'e', WordCase::kLower, 1}, {"i", 'i', WordCase::kLower, 1},
    {"n", 'n', WordCase::kLower, 1},       {"sec", 's', WordCase::kLower, 1},
    {"s", 's', WordCase::kLower, 1},       {"tert", 't', WordCase::kLower, 1},
    {"t", 't', WordCase::kLower, 1},       {"o", 'x', WordCase::kLower, 1},
    {"m", 'y', WordCase::kLower, 1},       {"p", 'z', WordCase::kLower, 1},
    {"d", 'D', WordCase::kLower, 2},       {"l", 'L', WordCase::kUpper, 2},
    {"cis", 'c', WordCase::kLower, 2},     {"trans", 't', WordCase::kLower, 2},
};

constexpr std::size_t kLongestPrefix = 7;
static_assert(std::all_of(std::begin(kPrefixes), std::end(kPrefixes),
                          [](PrefixRow const& row) { return row.word.size() <= kLongestPrefix; }));

bool IsDelimiter(char c) noexcept {
  return c == '-' || c == ',' || c == ' ' || c == '(' || c == ')';
}

// Most words fail at their first character, which needs no search.
bool ConsistsOf(std::string_view text, std::string_view characters) noexcept {
  return std::all_of(text.begin(), text.end(), [characters](char c) {
    for (char const one : characters) {
      if (c == one) return true;
    }
    return false;
  });
}

// Calls `visit` with each word, its delimiter (0 after the last) and its start.
template <typename Visit>
void ForEachWord(std::string_view name, Visit const& visit) {
  std::size_t start = 0;
  for (;;) {
    std::string_view const rest = name.substr(start);
    std::size_t const end =
        start + static_cast<std::size_t>(std::find_if(rest.begin(), rest.end(), IsDelimiter) -
                                         rest.begin());
    bool const last = end == name.size();
    char const delimiter = last ? '\0' : name[end];
    std::string_view const word = rest.substr(0, end - start);
    char const first = word.empty() ? '\0' : word.front();
    visit(start, word.size(),
          ClassifyWord(first, delimiter, LowerText(word.substr(0, kLongestWord))));
    if (last) return;
    start = end + 1;
  }
}

}  // namespace

WordClass ClassifyWord(char first, char delimiter, std::string_view lowerWord) {
  bool const blank = delimiter == ' ';
  char const tail = delimiter == ',' ? ',' : '-';
  std::string word(lowerWord);
  if (word.empty()) return {blank ? " " : "", WordCase::kAsItIs, 0};
  if (ConsistsOf(word, kPlaces)) return {word + tail, WordCase::kAsItIs, 1};
  if (first == 'N' && ConsistsOf(word, kLocantsOfNitrogen)) {
    return {word + tail, WordCase::kUpper, 1};
  }
  if (word.size() <= kLongestPrefix) {
    for (PrefixRow const& row : kPrefixes) {
      if (row.word == word) return {{row.sortLetter, tail}, row.letters, row.part};
    }
  }
  return {blank ? word + ' ' : word, WordCase::kAsItIs, 0};
}

// A word is classified before its case is changed, and delimiters have no case.
void TidyName(char* name) {
  ForEachWord(name, [&](std::size_t start, std::size_t size, WordClass const& word) {
    if (word.letters == WordCase::kAsItIs) return;
    for (char* at = name + start; at != name + start + size; ++at) {
      *at = word.letters == WordCase::kUpper ? ToUpper(*at) : ToLower(*at);
    }
  });
}

std::string MakeNameKey(std::string_view name) {
  std::array<std::string, 3> parts;
  ForEachWord(name, [&](std::size_t, std::size_t, WordClass const& word) {
    parts[static_cast<std::size_t>(word.part)] += word.sortText;
  });
  return parts[0] + "  " + parts[1] + "  " + parts[2];
}

std::string MakeIdKey(std::string_view id) {
  std::size_t const digits = std::min(id.find_first_not_of(kDigits), id.size());
  std::string key(id.substr(digits));
  if (digits < 10) key += ' ';  // the number of digits in two places
  key.append(std::to_string(digits)).append(id.substr(0, digits));
  key.erase(std::remove(key.begin(), key.end(), '-'), key.end());
  return key + " -";
}

}  // namespace zel

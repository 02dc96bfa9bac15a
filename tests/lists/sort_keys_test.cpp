// Names and IDs: correcting their case, and their sort keys.
#include "lists/sort_keys.h"

#include <gtest/gtest.h>

#include "frame/ascii.h"

namespace zel {
namespace {

std::string Tidied(std::string_view name) {
  char text[41];
  CopyText(name, text, sizeof text);
  TidyName(text);
  return text;
}

TEST(SortKeys, WordsAreClassified) {
  struct Row {
    char const* word;
    char delimiter;
    char const* sortText;
    WordCase letters;
    int part;
  };
  constexpr WordCase kAsItIs = WordCase::kAsItIs;
  constexpr WordCase kUpper = WordCase::kUpper;
  constexpr WordCase kLower = WordCase::kLower;
  constexpr Row kRows[] = {
      {"", ' ', " ", kAsItIs, 0},         {"", '-', "", kAsItIs, 0},
      {"", '\0', "", kAsItIs, 0},         {"12'\"", ',', "12'\",", kAsItIs, 1},
      {"1", '-', "1-", kAsItIs, 1},       {"1", ' ', "1-", kAsItIs, 1},
      {"1", ')', "1-", kAsItIs, 1},       {"1", '\0', "1-", kAsItIs, 1},
      {"N", ',', "n,", kUpper, 1},        {"N'", '-', "n'-", kUpper, 1},
      {"NN\"", '-', "nn\"-", kUpper, 1},  {"alpha", '-', "a-", kLower, 1},
      {"BETA", ',', "b,", kLower, 1},     {"Gamma", ' ', "c-", kLower, 1},
      {"delta", '(', "d-", kLower, 1},    {"epsilon", '-', "e-", kLower, 1},
      {"i", '-', "i-", kLower, 1},        {"n", '-', "n-", kLower, 1},
      {"sec", '-', "s-", kLower, 1},      {"s", '-', "s-", kLower, 1},
      {"tert", '-', "t-", kLower, 1},     {"t", '-', "t-", kLower, 1},
      {"o", '-', "x-", kLower, 1},        {"m", '-', "y-", kLower, 1},
      {"p", '-', "z-", kLower, 1},        {"D", '-', "D-", kLower, 2},
      {"l", '-', "L-", kUpper, 2},        {"cis", '-', "c-", kLower, 2},
      {"trans", '-', "t-", kLower, 2},    {"Butane", '\0', "butane", kAsItIs, 0},
      {"ACID", ' ', "acid ", kAsItIs, 0}, {"ACID", '-', "acid", kAsItIs, 0},
      {"nn", '-', "nn", kAsItIs, 0},      {"alphas", '-', "alphas", kAsItIs, 0}};
  for (Row const& row : kRows) {
    WordClass const got = ClassifyWord(row.word[0], row.delimiter, LowerText(row.word));
    EXPECT_EQ(got.sortText, row.sortText) << row.word;
    EXPECT_EQ(got.letters, row.letters) << row.word;
    EXPECT_EQ(got.part, row.part) << row.word;
  }
}

TEST(SortKeys, NamesAreTidied) {
  EXPECT_EQ(Tidied("N,N'-DIMETHYLHYDRAZINE"), "N,N'-DIMETHYLHYDRAZINE");
  EXPECT_EQ(Tidied("n-BUTANE"), "n-BUTANE");
  EXPECT_EQ(Tidied("N-BUTANE"), "N-BUTANE");
  EXPECT_EQ(Tidied("D-GLUCOSE"), "d-GLUCOSE");
  EXPECT_EQ(Tidied("l-ALANINE"), "L-ALANINE");
  EXPECT_EQ(Tidied("TRANS-2-Butene (CIS), P"), "trans-2-Butene (cis), p");
  EXPECT_EQ(Tidied(""), "");
  EXPECT_EQ(Tidied("-,( )"), "-,( )");
}

TEST(SortKeys, NameKeysLeadWithTheMainWords) {
  EXPECT_EQ(MakeNameKey("alpha-PINENE"), "pinene  a-  ");
  EXPECT_EQ(MakeNameKey("n-Butane"), "butane  n-  ");
  EXPECT_EQ(MakeNameKey("Butane"), "butane    ");
  EXPECT_EQ(MakeNameKey("trans-2-Butene"), "butene  2-  t-");
  EXPECT_EQ(MakeNameKey("Acetic acid"), "acetic acid    ");
  EXPECT_EQ(MakeNameKey("1,2-Dichloro ethane"), "dichloro ethane  1,2-  ");
  EXPECT_EQ(MakeNameKey(""), "    ");
  EXPECT_LT(MakeNameKey("n-Butane"), MakeNameKey("Butanol"));
}

// Only the first 40 characters of a word are examined; the case is applied to the whole word.
TEST(SortKeys, LongWordsCountByTheirFirstFortyCharacters) {
  std::string const fifty(50, 'B');
  EXPECT_EQ(MakeNameKey(fifty + "-1"), std::string(40, 'b') + "  1-  ");
  EXPECT_EQ(MakeNameKey(std::string(45, '7') + ",x"), "x  " + std::string(40, '7') + ",  ");
  std::string const primes(39, '\'');
  std::string name = "N" + primes + "'tail-CIS-rest";
  EXPECT_EQ(MakeNameKey(name), "rest  n" + primes + "-  c-");
  TidyName(name.data());
  EXPECT_EQ(name, "N" + primes + "'TAIL-cis-rest");
  name = "alpha" + std::string(40, 'A');
  TidyName(name.data());
  EXPECT_EQ(name, "alpha" + std::string(40, 'A')) << "no prefix any more";
}

TEST(SortKeys, IdKeysPutLeadingDigitsBehind) {
  EXPECT_EQ(MakeIdKey("1-BUTENE"), "BUTENE 11 -");
  EXPECT_EQ(MakeIdKey("BUTANE"), "BUTANE 0 -");
  EXPECT_EQ(MakeIdKey("12PDO"), "PDO 212 -");
  EXPECT_EQ(MakeIdKey("1234567890"), "101234567890 -");
  EXPECT_EQ(MakeIdKey(""), " 0 -");
}

}  // namespace
}  // namespace zel

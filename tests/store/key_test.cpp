// Setting and widening keys.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <memory>
#include <string>
#include <type_traits>

#include "tests/store/key_fixture.h"

namespace zel {
namespace {

// Handles are never copied.
static_assert(!std::is_copy_constructible_v<Key_i> && !std::is_copy_assignable_v<Key_i>);

using test::KeyTest;
using test::KnownIds;
using test::Words;

TEST_F(KeyTest, FreshKeyIsEmpty) {
  EXPECT_EQ(key_.GetCompCount(), 0);
  for (int i = 0; i < 3; ++i) EXPECT_EQ(key_.GetCompKind(i), keyNone);
}

TEST_F(KeyTest, NumberIsKept) {
  key_.SetKey(5L);
  long number = 0;
  key_.GetCompNumber(0, number);
  EXPECT_EQ(key_.GetCompCount(), 1);
  EXPECT_EQ(key_.GetCompKind(0), keyNumber);
  EXPECT_EQ(number, 5);
}

TEST_F(KeyTest, NumbersAreCutToTheirWord) {
  key_.SetKey(static_cast<long>((std::int64_t{1} << 32) + 5));
  ASSERT_TRUE(Resolve(nullptr));
  EXPECT_EQ(Words(key_, 1)[0], 5);
}

TEST_F(KeyTest, IdsAreUpperCasedAndCutToEight) {
  char text[9];
  key_.SetKey("ab", "abcdefghi");
  key_.GetCompText(0, text);
  EXPECT_STREQ(text, "AB");
  key_.GetCompText(1, text);
  EXPECT_STREQ(text, "ABCDEFGH");
  EXPECT_EQ(key_.GetCompKind(2), keyNone);
}

TEST_F(KeyTest, EveryOverloadSetsKindsAndCount) {
  casn const s("64-17-5");
  char const* const c = "X";
  long const n = 4;
  auto const kinds = [&] {
    std::string text;
    for (int i = 0; i < key_.GetCompCount(); ++i) text += "-nct"[key_.GetCompKind(i)];
    return text;  // n number, c text, t CAS
  };
#define CHECK_KEY(expected, ...) \
  key_.SetKey(__VA_ARGS__);      \
  EXPECT_EQ(kinds(), expected)
  CHECK_KEY("ttt", s, s, s);
  CHECK_KEY("ttc", s, s, c);
  CHECK_KEY("ttn", s, s, n);
  CHECK_KEY("tct", s, c, s);
  CHECK_KEY("tcc", s, c, c);
  CHECK_KEY("tcn", s, c, n);
  CHECK_KEY("tnt", s, n, s);
  CHECK_KEY("tnc", s, n, c);
  CHECK_KEY("tnn", s, n, n);
  CHECK_KEY("ctt", c, s, s);
  CHECK_KEY("ctc", c, s, c);
  CHECK_KEY("ctn", c, s, n);
  CHECK_KEY("cct", c, c, s);
  CHECK_KEY("ccc", c, c, c);
  CHECK_KEY("ccn", c, c, n);
  CHECK_KEY("cnt", c, n, s);
  CHECK_KEY("cnc", c, n, c);
  CHECK_KEY("cnn", c, n, n);
  CHECK_KEY("ntt", n, s, s);
  CHECK_KEY("ntc", n, s, c);
  CHECK_KEY("ntn", n, s, n);
  CHECK_KEY("nct", n, c, s);
  CHECK_KEY("ncc", n, c, c);
  CHECK_KEY("ncn", n, c, n);
  CHECK_KEY("nnt", n, n, s);
  CHECK_KEY("nnc", n, n, c);
  CHECK_KEY("tt", s, s);
  CHECK_KEY("tc", s, c);
  CHECK_KEY("tn", s, n);
  CHECK_KEY("ct", c, s);
  CHECK_KEY("cc", c, c);
  CHECK_KEY("cn", c, n);
  CHECK_KEY("nt", n, s);
  CHECK_KEY("nc", n, c);
  CHECK_KEY("t", s);
  CHECK_KEY("c", c);
  CHECK_KEY("nnn", n, n, n);
  CHECK_KEY("nn", n, n);
  CHECK_KEY("n", n);
#undef CHECK_KEY
}

TEST_F(KeyTest, GettersGiveWhatTheKindSays) {
  casn cas;
  long number = 7;
  char text[9] = "as is";
  key_.SetKey(casn("64-17-5"), 3L);
  key_.GetCompCasn(0, cas);
  EXPECT_EQ(static_cast<long>(cas), 64175);
  key_.GetCompNumber(0, number);
  EXPECT_EQ(number, 64175);
  key_.GetCompText(0, text);
  EXPECT_STREQ(text, "as is") << "the text of a CAS component is not given";
  key_.GetCompText(1, text);
  EXPECT_STREQ(text, "");
  key_.GetCompCasn(1, cas);
  EXPECT_EQ(static_cast<long>(cas), 0);
  for (int position : {-1, 3, 1000}) {
    EXPECT_EQ(key_.GetCompKind(position), keyNone);
    number = 7;
    key_.GetCompNumber(position, number);
    EXPECT_EQ(number, 0);
    std::strcpy(text, "as is");
    key_.GetCompText(position, text);
    EXPECT_STREQ(text, "");
    cas = casn("64-17-5");
    key_.GetCompCasn(position, cas);
    EXPECT_EQ(static_cast<long>(cas), 0);
  }
}

// Words without a component are zeros in a fresh key and keep their values in a used one.
TEST_F(KeyTest, KeyShorterThanItsIndexKeepsTheWordsBehind) {
  key_.SetKey(7L);
  key_.FitCompCount(2, 2);
  EXPECT_EQ(key_.GetCompCount(), 1);
  ASSERT_TRUE(Resolve(nullptr));
  EXPECT_EQ(Words(key_, 3), (std::vector<std::int32_t>{7, 0, 0}));
  key_.SetKey(4L, 5L);
  ASSERT_TRUE(Resolve(nullptr));
  key_.SetKey(7L);
  key_.FitCompCount(2, 2);
  ASSERT_TRUE(Resolve(nullptr));
  EXPECT_EQ(Words(key_, 3), (std::vector<std::int32_t>{7, 5, 0}));
}

TEST_F(KeyTest, DirectWordsAreCutToTen) {
  std::int32_t const words[12] = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12};
  key_.SetKeyWords(12, words);
  EXPECT_EQ(key_.GetCompCount(), 10);
  EXPECT_EQ(Words(key_, 10), std::vector<std::int32_t>(words, words + 10));
  EXPECT_EQ(key_.GetCompKind(0), keyNone);
  // Where a long has 64 bits, one whose lower ones are 0.
  constexpr long kMany =
      sizeof(long) > sizeof(std::int32_t) ? static_cast<long>(std::int64_t{1} << 40) : 2147483647L;
  for (long none : {0L, -1L, -kMany}) {
    key_.SetKeyWords(12, words);
    key_.SetKeyWords(none, words);
    EXPECT_EQ(key_.GetCompCount(), 0);
    ASSERT_TRUE(Resolve(nullptr, 2));
    EXPECT_FALSE(swapped_);
  }
  key_.SetKeyWords(kMany, words);
  EXPECT_EQ(key_.GetCompCount(), 10);
  key_.SetKeyWords(2, words);
  EXPECT_EQ(Words(key_, 3), (std::vector<std::int32_t>{1, 2, 0})) << "the others are cleared";
  key_.SetKey(3L);  // no longer direct
  EXPECT_EQ(key_.GetCompKind(0), keyNumber);
}

TEST_F(KeyTest, DirectWordsHideTheComponentsOfAnEarlierUse) {
  std::int32_t const words[] = {9, 3};
  char text[9] = "old";
  long number = 1;
  key_.SetKey("AB", 4L);
  key_.SetKeyWords(2, words);
  ASSERT_TRUE(Resolve(nullptr)) << "no component is looked up";
  EXPECT_EQ(Words(key_, 2), (std::vector<std::int32_t>{9, 3}));
  for (int i = 0; i < 3; ++i) EXPECT_EQ(key_.GetCompKind(i), keyNone);
  key_.GetCompText(0, text);
  EXPECT_STREQ(text, "");
  key_.GetCompNumber(1, number);
  EXPECT_EQ(number, 0);
}

TEST_F(KeyTest, TextIsNotFolded) {
  key_.SetKeyText(1, "aB");
  std::int32_t word = 0;
  TextToWords("aB", &word, 1);
  EXPECT_EQ(Words(key_, 2), (std::vector<std::int32_t>{word, 0}));
  key_.SetKeyText(2, nullptr);
  EXPECT_EQ(Words(key_, 2), (std::vector<std::int32_t>{0, 0}));
}

TEST_F(KeyTest, TextIsPackedIntoWords) {
  key_.SetKeyText(3, "ABCDEFGHIJKL");
  std::int32_t words[3];
  TextToWords("ABCDEFGHIJKL", words, 3);
  EXPECT_EQ(Words(key_, 3), std::vector<std::int32_t>(words, words + 3));
  EXPECT_EQ(key_.GetCompCount(), 3);
}

TEST_F(KeyTest, ClearEmpties) {
  key_.SetKey(1L, 2L);
  key_.ClearKey();
  EXPECT_EQ(key_.GetCompCount(), 0);
  EXPECT_EQ(key_.GetCompKind(0), keyNone);
}

TEST_F(KeyTest, ShortKeysAreWidened) {
  key_.SetKey(7L);
  key_.FitCompCount(2, 1);
  ASSERT_TRUE(Resolve(nullptr));
  EXPECT_EQ(Words(key_, 2), (std::vector<std::int32_t>{7, 7}));

  key_.SetKey(4L, 5L);
  key_.FitCompCount(3, 2);
  ASSERT_TRUE(Resolve(nullptr));
  EXPECT_EQ(Words(key_, 3), (std::vector<std::int32_t>{4, 5, 2147483647}));

  key_.SetKey(4L, 5L);
  key_.FitCompCount(2, 2);
  EXPECT_EQ(key_.GetCompCount(), 2);

  key_.ClearKey();
  key_.FitCompCount(2, 0);
  ASSERT_TRUE(Resolve(nullptr));
  EXPECT_EQ(Words(key_, 2), (std::vector<std::int32_t>{2147483647, 2147483647}));
}

TEST_F(KeyTest, DoublingTakesAllOfTheComponent) {
  char text[9] = "";
  casn cas;
  key_.SetKey("AB");
  key_.FitCompCount(2, 1);
  EXPECT_EQ(key_.GetCompKind(1), keyText);
  key_.GetCompText(1, text);
  EXPECT_STREQ(text, "AB");
  key_.SetKey(casn("64-17-5"));
  key_.FitCompCount(2, 1);
  EXPECT_EQ(key_.GetCompKind(1), keyCas);
  key_.GetCompCasn(1, cas);
  EXPECT_EQ(static_cast<long>(cas), 64175);

  KnownIds library;
  auto index = std::make_unique<KnownIds>();
  index->AddId("X", 44);
  LibFile::SetOrdwinNameIndex(index->Library());
  key_.SetKey("X");
  ASSERT_TRUE(Resolve(library.Library()));
  key_.FitCompCount(2, 1);
  LibFile::ClearOrdwinNameIndex();
  ASSERT_TRUE(Resolve(library.Library())) << "the cached number was doubled too";
  EXPECT_EQ(Words(key_, 2), (std::vector<std::int32_t>{44, 44}));
}

// More components than the index has: those beyond the short length are removed too.
TEST_F(KeyTest, LongKeysAreCutToTheFullLength) {
  key_.SetKey(4L, 5L, 6L);
  key_.FitCompCount(2, 1);
  EXPECT_EQ(key_.GetCompCount(), 2);
  ASSERT_TRUE(Resolve(nullptr));
  EXPECT_EQ(Words(key_, 2), (std::vector<std::int32_t>{4, 2147483647}));
  key_.SetKey(4L, 5L, 6L);
  key_.FitCompCount(2, 3);
  ASSERT_TRUE(Resolve(nullptr));
  EXPECT_EQ(Words(key_, 2), (std::vector<std::int32_t>{4, 5}));
}

TEST_F(KeyTest, LengthsThatNoIndexHasStayWithinTheKey) {
  std::int32_t const words[] = {9, 3};
  for (std::int32_t full : {-1, 0, 10, 11, 1000, INT32_MAX, INT32_MIN}) {
    for (bool direct : {true, false}) {
      key_.SetKey(9L, 3L);
      if (direct) key_.SetKeyWords(2, words);
      key_.FitCompCount(full, 1);
      EXPECT_EQ(key_.GetCompCount(), std::clamp(full, 0, 10)) << full;
      EXPECT_TRUE(Resolve(nullptr, 2));
      EXPECT_FALSE(swapped_) << "9 ahead of wildcards";
    }
  }
}

TEST_F(KeyTest, DirectKeyOfOneWordIsDoubledToo) {
  std::int32_t const word = 9;
  key_.SetKeyWords(1, &word);
  key_.FitCompCount(2, 0);
  ASSERT_TRUE(Resolve(nullptr));
  EXPECT_EQ(Words(key_, 2), (std::vector<std::int32_t>{9, 9}));
}

TEST_F(KeyTest, DirectKeyGetsWildcardsToo) {
  std::int32_t const words[] = {4, 5, 6};
  key_.SetKeyWords(2, words);
  key_.FitCompCount(3, 2);
  ASSERT_TRUE(Resolve(nullptr));
  EXPECT_EQ(Words(key_, 3), (std::vector<std::int32_t>{4, 5, 2147483647}));
  key_.SetKeyWords(3, words);
  key_.FitCompCount(2, 1);
  EXPECT_EQ(key_.GetCompCount(), 2);
  ASSERT_TRUE(Resolve(nullptr));
  EXPECT_EQ(Words(key_, 2), (std::vector<std::int32_t>{4, 2147483647}));
}

TEST_F(KeyTest, SortingGoesByTheMode) {
  struct {
    std::int32_t mode;
    std::vector<std::int32_t> words;
    bool swapped;
  } const kRows[] = {{0, {9, 3}, false}, {1, {3, 9}, false}, {2, {3, 9}, true}, {3, {9, 3}, false}};
  for (auto const& row : kRows) {
    key_.SetKey(9L, 3L);
    ASSERT_TRUE(Resolve(nullptr, row.mode));
    EXPECT_EQ(Words(key_, 2), row.words) << row.mode;
    EXPECT_EQ(swapped_, row.swapped) << row.mode;
  }
  key_.SetKey(3L, 9L);
  ASSERT_TRUE(Resolve(nullptr, 2));
  EXPECT_FALSE(swapped_);
}

TEST_F(KeyTest, DirectKeyStaysReversedForTheNextResolution) {
  std::int32_t const words[] = {9, 3};
  key_.SetKeyWords(2, words);
  for (int i = 0; i < 2; ++i) {
    ASSERT_TRUE(Resolve(nullptr, 2));
    EXPECT_EQ(Words(key_, 2), (std::vector<std::int32_t>{3, 9}));
    EXPECT_TRUE(swapped_);
  }
}

TEST_F(KeyTest, AssignmentBetweenKeysChangesNeither) {
  Key* a = Key::NewKey();
  Key* b = Key::NewKey();
  a->SetKey(1L);
  b->SetKey(2L, 3L);
  *a = *b;
  EXPECT_EQ(dynamic_cast<Key_p*>(a)->GetCompCount(), 1);
  EXPECT_EQ(dynamic_cast<Key_p*>(b)->GetCompCount(), 2);
  Key::DelKey(a);
  auto* inner = dynamic_cast<Key_p*>(b);
  Key_p::DelKey(inner);
  EXPECT_EQ(a, nullptr);
  EXPECT_EQ(inner, nullptr);
  Key::DelKey(a);  // null: nothing
}

}  // namespace
}  // namespace zel

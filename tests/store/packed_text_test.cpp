#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "store/bank_key.h"
#include "store/packed_text.h"

namespace zel {
namespace {

// The table of 100 characters, written out again.
std::string const kTable =
    std::string(" ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789") +
    "+-*/=().,'\":;!@#$&?<>_%" + std::string(14, ' ');

std::vector<std::int32_t> Packed(std::string const& text, int n) {
  std::vector<std::int32_t> words(static_cast<std::size_t>(n));
  TextToWords(text, words.data(), n);
  return words;
}

std::string Unpacked(std::vector<std::int32_t> const& words) {
  std::vector<char> text(words.size() * 4 + 1, 'x');
  WordsToText(words.data(), static_cast<int>(words.size()), text.data());
  return text.data();
}

TEST(PackedText, TableHasAHundredCharacters) { ASSERT_EQ(kTable.size(), 100U); }

TEST(PackedText, EveryCharacterIsItsIndexInEachPlace) {
  for (int c = 1; c < 256; ++c) {
    std::size_t const found = kTable.find(static_cast<char>(c));
    long const index = found == std::string::npos ? 0 : static_cast<long>(found);
    long weight = 1000000;
    for (int place = 0; place < 4; ++place, weight /= 100) {
      std::string text = "    ";
      text[static_cast<std::size_t>(place)] = static_cast<char>(c);
      EXPECT_EQ(Packed(text, 1)[0], index * weight) << c;
    }
  }
}

TEST(PackedText, WordsAreTheHandCalculatedOnes) {
  EXPECT_EQ(Packed("EDLIB", 3), (std::vector<std::int32_t>{5041209, 2000000, 0}));
  EXPECT_EQ(Packed("AB", 3), (std::vector<std::int32_t>{1020000, 0, 0}));
  EXPECT_EQ(Packed("zZ9%x", 1), (std::vector<std::int32_t>{52266285}));  // cut at four
}

TEST(PackedText, RoundTripCutsTrailingBlanksOnly) {
  EXPECT_EQ(Unpacked(Packed("AB", 3)), "AB");
  EXPECT_EQ(Unpacked(Packed(" A B  ", 3)), " A B");
  EXPECT_EQ(Unpacked(Packed("", 3)), "");
  EXPECT_EQ(Unpacked(Packed("a[b", 3)), "a b");
  EXPECT_EQ(Unpacked(Packed("a\tb\\c", 3)), "a b c");
}

TEST(PackedText, FirstWordTellsTheShapeAsAnUnsignedNumber) {
  EXPECT_EQ(Unpacked({99999999, 1020304}), std::string("    ABCD"));
  EXPECT_EQ(Unpacked({100000000, 0x44434241}), std::string());  // first byte is zero
  EXPECT_EQ(Unpacked({0x44434241, 0x48474645}), "ABCDEFGH");
  auto const high = static_cast<std::int32_t>(0xE4434241);  // negative: raw all the same
  EXPECT_EQ(Unpacked({high}), "ABC\xE4");
  EXPECT_EQ(Unpacked({0x44004241, 0x44444444}), "AB");  // a zero byte ends raw text
}

TEST(PackedText, CodedWordsOfAnySizeDecodeWithinTheTable) {
  EXPECT_LE(Unpacked({1, 2147483647, -1}).size(), 12U);
  // Two digits at a time of the unsigned word: 47 48 36 47, and 4294 96 72 95 of -1.
  auto const at = [](std::initializer_list<std::size_t> indexes) {
    std::string text;
    for (std::size_t i : indexes) text += kTable[i];
    return text;
  };
  EXPECT_EQ(Unpacked({1, 2147483647}), "   A" + at({47, 48, 36, 47}));
  EXPECT_EQ(Unpacked({1, -1, 1}), "   A" + at({94, 96, 72, 95}) + "   A");
}

TEST(PackedText, RawFormKeepsCharactersOutsideTheTable) {
  std::int32_t words[2];
  TextToRawWords("a[\xE4\t]", words, 2);
  EXPECT_EQ(Unpacked({words[0], words[1]}), "a[\xE4 ]");
  EXPECT_EQ(words[1], 0x2020205D);
  TextToRawWords("\x01\x1F !\x7F\xFF.", words, 2);
  EXPECT_EQ(Unpacked({words[0], words[1]}), "   !\x7F\xFF.") << "blanks below code 33 only";
}

struct KeyRow {
  char const* type;
  char const* name;
  bool marker;
  char const* text;  // the 16 characters as packed
};

TEST(BankKey, TypeAndNameArePackedUpperCase) {
  constexpr KeyRow kRows[] = {
      {"NRTL", "X", true, "NRTL@   X       "},
      {"NRTL", "X", false, "NRTL    X       "},
      {"nrtl", "mine", false, "NRTL    MINE    "},
      {"PURECOMP", "ORDWIN", false, "PURECOMPORDWIN  "},
      {"UNIQUAC", "12345678", true, "UNIQUAC@12345678"},
      {"ABCDEFGHIJ", "ABCDEFGHIJ", false, "ABCDEFGHABCDEFGH"},
  };
  for (KeyRow const& row : kRows) {
    std::int32_t key[4];
    MakeBankKey(row.type, row.name, key, row.marker);
    EXPECT_EQ((std::vector<std::int32_t>(key, key + 4)), Packed(row.text, 4)) << row.text;
  }
}

TEST(BankKey, MarkedTypeOfEightCharactersMovesItsSecondWord) {
  std::int32_t plain[4];
  std::int32_t marked[4];
  MakeBankKey("AZEOTROP", "X", plain, false);
  MakeBankKey("AZEOTROP", "X", marked, true);
  auto const w = static_cast<std::uint32_t>(plain[1]);
  std::uint32_t const expected = (w % 100 * 1000000U + w / 100) * 100U + 77U;
  EXPECT_EQ(static_cast<std::uint32_t>(marked[1]), expected);
  EXPECT_EQ(marked[0], plain[0]);
  EXPECT_EQ(marked[2], plain[2]);
}

TEST(BankKey, TypeComesBackWhereTheArithmeticAllowsIt) {
  for (std::string type : {"NRTL", "WILSON", "PSRK", "AZEOTROP", "MARGULES", "PCSAFTPU", "IDIMPURE",
                           "PUREBWRS", "PURECOMP"}) {
    for (bool marker : {false, true}) {
      std::int32_t key[4];
      char back[9];
      char name[9];
      MakeBankKey(type, "SAMPLE", key, marker);
      UnpackBankKey(key, back, name);
      EXPECT_EQ(back, type) << marker;
      EXPECT_STREQ(name, "SAMPLE");
    }
  }
  std::int32_t key[4];
  char back[9];
  char name[9];
  MakeBankKey("PENELOUX", "SAMPLE", key, true);  // wraps around: only the name is safe
  EXPECT_EQ(static_cast<std::uint32_t>(key[1]), 2412152177U);
  UnpackBankKey(key, back, name);
  EXPECT_STRNE(back, "PENELOUX");
  EXPECT_STREQ(name, "SAMPLE");
}

}  // namespace
}  // namespace zel

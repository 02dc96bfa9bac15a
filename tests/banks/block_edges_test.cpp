// Edges of blocks, fields and sources: formats that no type has, words that are not numbers, names
// that several rows share, undefined values in the middle of arrays.
#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <cmath>
#include <limits>
#include <vector>

#include "banks/field_table.h"
#include "store/lib_file.h"
#include "tests/banks/bank_fields.h"
#include "tests/banks/expected_fields.h"
#include "tests/support/memory_file_system.h"

namespace zel {
namespace {

using test::ExpectedField;
using test::ExpectedType;
using test::Fields;
using test::Typed;

std::int32_t FloatWord(double value) {
  return std::bit_cast<std::int32_t>(static_cast<float>(value));
}

// All elements of all numeric fields.
std::vector<double> Numbers(IZelBankDef* bank, ExpectedType const& type) {
  std::vector<double> all;
  Fields const fields(bank);
  for (ExpectedField const& field : type.fields) {
    auto const count = static_cast<std::size_t>(field.count);
    if (field.type == 1) {
      for (double value : fields.Reals(field.name, count)) all.push_back(value);
    } else if (field.type != 2) {
      for (std::int32_t value : fields.Ints(field.name, count)) all.push_back(value);
    }
  }
  return all;
}

TEST(Blocks, FormatsThatATypeDoesNotHaveTouchNothing) {
  for (ExpectedType const& type : test::ExpectedTypes()) {
    Typed<IZelBankDef> bank(type.keyword, IID_IZelBankDef);
    auto const before = Numbers(bank.Def(), type);
    auto const formats = static_cast<std::int32_t>(type.recordWords.size());
    std::array<std::int32_t, 32> block;
    block.fill(5);
    for (std::int32_t format : {INT32_MIN, -1, 0, formats + 1, INT32_MAX}) {
      EXPECT_EQ(bank.IO()->ReadBlock(block.data(), format), kStatusFailed) << type.keyword;
      EXPECT_EQ(bank.IO()->WriteBlock(block.data(), format), kStatusFailed) << type.keyword;
    }
    for (std::int32_t word : block) EXPECT_EQ(word, 5) << type.keyword;
    EXPECT_EQ(Numbers(bank.Def(), type), before) << type.keyword;
  }
}

TEST(Blocks, NeverGoBeyondTheirLength) {
  for (ExpectedType const& type : test::ExpectedTypes()) {
    Typed<IZelBankDef> bank(type.keyword, IID_IZelBankDef);
    for (std::size_t f = 1; f <= type.recordWords.size(); ++f) {
      auto const words = static_cast<std::size_t>(type.recordWords[f - 1]);
      for (std::int32_t fill : {0, -1, 77, INT32_MIN, INT32_MAX, FloatWord(12.5)}) {
        // On the heap with the exact length, so that the sanitizers see an access beyond.
        std::vector<std::int32_t> read(words, fill);
        std::vector<std::int32_t> written(words, fill);
        EXPECT_EQ(bank.IO()->ReadBlock(read.data(), static_cast<std::int32_t>(f)), kStatusOk);
        if (bank.IO()->SwapPair() == kStatusOk) bank.IO()->SwapPair();
        EXPECT_EQ(bank.IO()->WriteBlock(written.data(), static_cast<std::int32_t>(f)), kStatusOk);
      }
    }
  }
}

// Also in the banks that encode their blocks themselves.
TEST(Blocks, EveryNumberThatIsReadIsTrimmed) {
  for (ExpectedType const& type : test::ExpectedTypes()) {
    Typed<IZelBankDef> bank(type.keyword, IID_IZelBankDef);
    bool const scaled = std::string(type.keyword) == "PPR78";
    for (double stored : {0.1, 298.15, 1e-5, -1e35}) {
      std::array<std::int32_t, 32> block;
      block.fill(FloatWord(stored));
      ASSERT_EQ(
          bank.IO()->ReadBlock(block.data(), static_cast<std::int32_t>(type.recordWords.size())),
          kStatusOk);
      for (ExpectedField const& field : type.fields) {
        if (field.type != 1) continue;
        for (double value :
             Fields(bank.Def()).Reals(field.name, static_cast<std::size_t>(field.count))) {
          EXPECT_EQ(value, scaled ? stored / 2.914213562373095 : stored)
              << type.keyword << " " << field.name;
        }
      }
    }
  }
}

TEST(Blocks, WordsThatAreNoNumbersPass) {
  Typed<IZelVanLaar> bank("VANLAAR", IID_IZelVanLaar);
  Fields const fields(bank.Def());
  double const infinite = std::numeric_limits<double>::infinity();
  std::int32_t block[14] = {};
  block[1] = FloatWord(infinite);
  block[2] = FloatWord(-infinite);
  block[5] = FloatWord(std::numeric_limits<double>::quiet_NaN());
  block[6] = FloatWord(-0.0);
  ASSERT_EQ(bank.IO()->ReadBlock(block, 1), kStatusOk);
  EXPECT_EQ(fields.Reals("tMin", 1)[0], infinite);
  EXPECT_EQ(fields.Reals("tMax", 1)[0], -infinite);
  EXPECT_TRUE(std::isnan(fields.Reals("aij", 1)[0]));
  EXPECT_EQ(fields.Reals("aji", 1)[0], 0.0);
  EXPECT_TRUE(std::signbit(fields.Reals("aji", 1)[0]));
}

TEST(Blocks, NumbersBeyondAFloatBecomeInfinite) {
  Typed<IZelVanLaar> bank("VANLAAR", IID_IZelVanLaar);
  std::int32_t block[14];
  bank->PutData(1e39, -1e39, -3e35, 0, 0, 0, 0);
  bank.IO()->WriteBlock(block, 1);
  EXPECT_EQ(block[5], FloatWord(std::numeric_limits<double>::infinity()));
  EXPECT_EQ(block[6], FloatWord(-std::numeric_limits<double>::infinity()));
  bank.IO()->ReadBlock(block, 1);
  EXPECT_EQ(Fields(bank.Def()).Reals("tMin", 1)[0], -3e35) << "below the undefined value, and kept";
}

TEST(Blocks, BlockInfoSaysWhatBankInfoSays) {
  for (ExpectedType const& type : test::ExpectedTypes()) {
    Typed<IZelBankDef> bank(type.keyword, IID_IZelBankDef);
    char keyword[9], sameKeyword[9], description[50];
    std::int32_t info[5] = {-7, -7, -7, -7, -7};
    std::int32_t block[7] = {-8, -8, -8, -8, -8, -8, -8};
    std::uint8_t listed = 9;
    EXPECT_EQ(bank->GetBankInfo(keyword, description, info, info + 1, info + 2, info + 3, info + 4,
                                &listed),
              kStatusOk);
    EXPECT_EQ(bank.IO()->GetBlockInfo(sameKeyword, block, block + 1, block + 2, block + 3,
                                      block + 4, block + 5, block + 6),
              kStatusOk);
    EXPECT_STREQ(keyword, sameKeyword);
    EXPECT_TRUE(std::equal(info, info + 5, block)) << type.keyword;
    std::int32_t words = -1;
    EXPECT_EQ(bank.IO()->GetRecordLength(0, &words), kStatusOk);
    EXPECT_EQ(words, type.recordWords.back()) << type.keyword;
    EXPECT_EQ(bank.IO()->GetRecordLength(3, &words), kStatusFailed);
    EXPECT_EQ(words, 0);
  }
}

TEST(Defaulted, OnlyUndefinedElementsBecomeZero) {
  Typed<IZelSrkM> bank("SRKM", IID_IZelSrkM);
  double const kij[] = {1.5, -1e35, -3e35, -9.99e34};
  double const kji[] = {-1e35, 2.5, std::numeric_limits<double>::infinity(), 1e35};
  bank->PutData(kij, kji, -2e35, 4.5, -1e35, 400.0, -1e35, 100.0, gen_GetUndefInt());
  double i[4], j[4], d[2], bounds[4];
  std::int32_t code = 0;
  bank->GetDataDefaulted(i, j, d, d + 1, bounds, bounds + 1, bounds + 2, bounds + 3, &code);
  EXPECT_EQ(std::vector<double>(i, i + 4), (std::vector<double>{1.5, 0.0, 0.0, -9.99e34}));
  EXPECT_EQ(std::vector<double>(j, j + 4), (std::vector<double>{0.0, 2.5, kji[2], 1e35}));
  EXPECT_EQ(std::vector<double>(d, d + 2), (std::vector<double>{0.0, 4.5}));
  EXPECT_EQ(std::vector<double>(bounds, bounds + 4),
            (std::vector<double>{-1e35, 400.0, -1e35, 100.0}));
  EXPECT_EQ(code, gen_GetUndefInt());
  bank->GetData(i, j, d, d + 1, bounds, bounds + 1, bounds + 2, bounds + 3, &code);
  EXPECT_EQ(std::vector<double>(i, i + 4), std::vector<double>(kij, kij + 4)) << "the item stays";
  EXPECT_EQ(d[0], -2e35);
}

TEST(Defaulted, OldBlockOfWilsonShowsItsNewCoefficientsAsZero) {
  Typed<IZelWilson> bank("WILSON", IID_IZelWilson);
  std::int32_t block[14];
  std::fill(std::begin(block), std::end(block), FloatWord(2.5));
  block[12] = 24011;
  block[13] = 9;
  bank.Def()->Clear();
  ASSERT_EQ(bank.IO()->ReadBlock(block, 1), kStatusOk);
  std::int32_t form = 0, eqnForm = 7, volRatio = 7, code = 0;
  double c[12];
  double bounds[4];
  bank->GetDataDefaulted(&form, &eqnForm, &volRatio, c, c + 1, c + 2, c + 3, c + 4, c + 5, c + 6,
                         c + 7, c + 8, c + 9, c + 10, c + 11, bounds, bounds + 1, bounds + 2,
                         bounds + 3, &code);
  EXPECT_EQ(form, 24011);
  EXPECT_EQ(eqnForm, 0);
  EXPECT_EQ(volRatio, 1);
  EXPECT_EQ(c[0], 2.5);
  EXPECT_EQ(c[1], 2.5);
  for (int k = 2; k < 12; ++k) EXPECT_EQ(c[k], 0.0) << k;
  EXPECT_EQ(bounds[0], 2.5);
  EXPECT_EQ(code, 9);
}

// The words that the older format does not use are those of "bij" to "dij" in the later one.
TEST(Wilson, WrittenInTheOldFormatLeavesThePlaceOfLaterFieldsZero) {
  Typed<IZelWilson> bank("WILSON", IID_IZelWilson);
  bank->PutData(1010, 1, 2, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17);
  std::int32_t block[14];
  ASSERT_EQ(bank.IO()->WriteBlock(block, 1), kStatusOk);
  for (int word : {0, 7, 8, 9, 10, 11}) EXPECT_EQ(block[word], 0) << word;
  EXPECT_EQ(block[12], 1010);
  EXPECT_EQ(block[13], 17);
}

TEST(Wilson, EnumerationsAreFoundInAnyCaseAndOthersAreNot) {
  Typed<IZelWilson> bank("WILSON", IID_IZelWilson);
  std::int32_t count = 0;
  EXPECT_EQ(bank.Def()->GetEnumCount("EQNFORM", &count), kStatusOk);
  EXPECT_EQ(count, 2);
  char names[4][13];
  std::int32_t values[4];
  std::int32_t index = 5;
  for (char const* field : {"aij", "refCode", "", "eqn"}) {
    EXPECT_EQ(bank.Def()->GetEnumCount(field, &count), kStatusNotImplemented) << field;
    EXPECT_EQ(bank.Def()->GetEnumList(field, names, values, &index), kStatusNotImplemented);
  }
  EXPECT_EQ(bank.Def()->GetEnumCount(nullptr, &count), kStatusNotImplemented);
  EXPECT_EQ(count, 2);
  EXPECT_EQ(index, 5);
}

TEST(Azeotrope, UndefinedFractionTurnsLikeAnyOther) {
  Typed<IZelAzeo> bank("AZEOTROP", IID_IZelAzeo);
  bank.IO()->SwapPair();
  EXPECT_EQ(Fields(bank.Def()).Reals("x1", 1)[0], 1e35);
  bank->PutData(350, 101, 0.25, 2);
  bank.IO()->SwapPair();
  bank.IO()->SwapPair();
  EXPECT_EQ(Numbers(bank.Def(), {"",
                                 {},
                                 {{"temp", "", 1, 1, "", 0, 1},
                                  {"pres", "", 1, 1, "", 0, 1},
                                  {"x1", "", 1, 1, "", 0, 1},
                                  {"basis", "", 0, 1, "", 0, 1}}}),
            (std::vector<double>{350, 101, 0.25, 2}));
}

TEST(HeatsOfMixing, TwoTurnsAreNone) {
  Typed<IZelHMix> bank("HMIX", IID_IZelHMix);
  bank->PutData(1, 2, 3, 4, 5, 6, 7, 8, 300, 400, 1, 2, 9);
  bank.IO()->SwapPair();
  EXPECT_EQ(Fields(bank.Def()).Ints("refCode", 1)[0], 9);
  EXPECT_EQ(Fields(bank.Def()).Reals("pMax", 1)[0], 2);
  bank.IO()->SwapPair();
  EXPECT_EQ(Fields(bank.Def()).Reals("bij", 1)[0], 2);
  EXPECT_EQ(Fields(bank.Def()).Reals("hij", 1)[0], 8);
}

std::string SourceOf(IZelBankDef* bank) {
  char text[260];
  std::uint8_t isProtected = 0;
  bank->GetSource(text, &isProtected);
  return text;
}

TEST(Sources, KeepTheirFirstCharacterAndLoseOnlyBlanks) {
  test::MemoryFileSystem files;
  Typed<IZelLkp> bank("LKP", IID_IZelLkp);
  LibFile_i blank(files, accUpdate, "/l.lb1", std::string(259, ' '));
  LibFile_i named(files, accUpdate, "/l.lb1", "Lib ");
  bank.IO()->SetSource(&blank, "B", 0);
  EXPECT_EQ(SourceOf(bank.Def()), " ");
  bank.IO()->SetSource(&named, "B\t  ", 0);
  EXPECT_EQ(SourceOf(bank.Def()), "Lib :B\t");
  bank.IO()->SetSource(&named, "   ", 0);
  EXPECT_EQ(SourceOf(bank.Def()), "Lib :");
  bank.IO()->SetSource(nullptr, nullptr, 0);
  EXPECT_EQ(SourceOf(bank.Def()), ":");
}

// A list does not say where the data came from when only one bank had them.
TEST(Sources, OfAListDoNotTouchTheItem) {
  test::MemoryFileSystem files;
  Typed<IZelVanLaar> bank("VANLAAR", IID_IZelVanLaar);
  LibFile_i library(files, accUpdate, "/l.lb1", "Lib");
  bank->PutData(1, 2, 3, 4, 5, 6, 7);
  std::uint8_t const one[2] = {0, 7};
  bank.IO()->SetSource(&library, "B", 0);
  bank.IO()->SetSourceList(2, one, one);
  std::uint8_t flags[2] = {9, 9};
  bank.Def()->GetSourceFlags(flags);
  EXPECT_EQ(flags[0], 0);
  EXPECT_EQ(flags[1], 7) << "copied as given";
  EXPECT_EQ(SourceOf(bank.Def()), "Lib:B");
  EXPECT_EQ(Fields(bank.Def()).Reals("aij", 1)[0], 1);
}

}  // namespace
}  // namespace zel

// Banks that encode numbers themselves: inputs that no sound block or caller has.
#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <vector>

#include "frame/trim7.h"
#include "tests/banks/bank_fields.h"

namespace zel {
namespace {

using test::Fields;
using test::Typed;

std::int32_t FloatWord(double value) {
  return std::bit_cast<std::int32_t>(static_cast<float>(value));
}

// The word of "basis" is not trimmed to seven digits: 0.1 is added to the float as it is.
TEST(CodedNumbers, BasisOfAnAzeotropeIsNotTrimmed) {
  Typed<IZelAzeo> bank("AZEOTROP", IID_IZelAzeo);
  struct {
    double stored;
    std::int32_t read;
  } const rows[] = {{1.9, 1},
                    {16777215.0, 16777215},
                    {2147483520.0, 2147483520},
                    {-16777215.0, -16777214},
                    {-2147483520.0, -2147483519}};
  for (auto const& row : rows) {
    std::int32_t const block[4] = {0, 0, 0, FloatWord(row.stored)};
    ASSERT_EQ(bank.IO()->ReadBlock(block, 1), kStatusOk);
    EXPECT_EQ(Fields(bank.Def()).Ints("basis", 1)[0], row.read) << row.stored;
  }
  EXPECT_EQ(Trim7(1.9F), 1.9) << "trimmed it would be 2";
}

TEST(CodedNumbers, AlphaGroupsRunOverAndDivideTowardZero) {
  Typed<IZelAlpha> bank("ALPHA", IID_IZelAlpha);
  std::int32_t const eos[] = {INT32_MAX, -3, 42949673};
  std::int32_t const form[] = {INT32_MAX, -5, 0};
  double const none[9] = {};
  bank->PutData(eos, form, none, none, 0);
  std::int32_t block[16];
  ASSERT_EQ(bank.IO()->WriteBlock(block, 1), kStatusOk);
  EXPECT_EQ(block[1], 2147483547) << "101 x (2^31 - 1), cut to 32 bits";
  EXPECT_EQ(block[6], -305);
  EXPECT_EQ(block[11], 4) << "4294967300 cut to 32 bits";
  ASSERT_EQ(bank.IO()->ReadBlock(block, 1), kStatusOk);
  Fields const fields(bank.Def());
  EXPECT_EQ(fields.Ints("eos", 3), (std::vector<std::int32_t>{21474835, -3, 0}));
  EXPECT_EQ(fields.Ints("form", 3), (std::vector<std::int32_t>{47, -5, 4}));
  block[1] = -99;
  ASSERT_EQ(bank.IO()->ReadBlock(block, 1), kStatusOk);
  EXPECT_EQ(fields.Ints("eos", 3)[0], 0);
  EXPECT_EQ(fields.Ints("form", 3)[0], -99);
}

// Points are stored and returned only up to the count, the count itself unchanged.
template <typename Face>
void CheckCurveCounts(char const* type, ZelIid const& id) {
  Typed<Face> bank(type, id);
  double const undefined[12] = {};
  double mw[12], kij[12], mwOut[12], kijOut[12];
  std::fill_n(mw, 12, 3.0);
  std::fill_n(kij, 12, 4.0);
  std::int32_t count = 0;
  std::fill_n(mwOut, 12, 7.0);
  std::fill_n(kijOut, 12, 7.0);
  EXPECT_EQ(bank->GetData(&count, mwOut, kijOut), kStatusOk);
  EXPECT_EQ(count, gen_GetUndefInt()) << "never set";
  EXPECT_TRUE(std::equal(mwOut, mwOut + 12, undefined));
  EXPECT_TRUE(std::equal(kijOut, kijOut + 12, undefined));
  for (std::int32_t given : {INT32_MIN, -1, 0, 1, 11, 12, 13, INT32_MAX}) {
    EXPECT_EQ(bank->PutData(given, mw, kij), kStatusOk);
    std::int32_t const used = std::clamp(given, 0, 12);
    EXPECT_EQ(Fields(bank.Def()).Ints("count", 1)[0], given);
    for (char const* field : {"mw", "kij"}) {
      auto const kept = Fields(bank.Def()).Reals(field, 12);
      EXPECT_EQ(std::count(kept.begin(), kept.end(), 0.0), 12 - used) << field << " " << given;
    }
    bank->GetData(&count, mwOut, kijOut);
    EXPECT_EQ(count, given);
    EXPECT_EQ(std::count(mwOut, mwOut + 12, 3.0), used);
    EXPECT_EQ(std::count(kijOut, kijOut + 12, 4.0), used);
  }
}

TEST(CodedNumbers, CurvesTakeTwelvePointsAtMost) {
  CheckCurveCounts<IZelMwPr>("MWPR", IID_IZelMwPr);
  CheckCurveCounts<IZelMwSrk>("MWSRK", IID_IZelMwSrk);
}

TEST(CodedNumbers, StructuresTakeTenGroupsAtMost) {
  Typed<IZelStruct> bank("STRUCT", IID_IZelStruct);
  std::int32_t const zeros[10] = {};
  std::int32_t ids[10], counts[10], idsOut[10], countsOut[10];
  std::fill_n(ids, 10, 3);
  std::fill_n(counts, 10, 4);
  std::int32_t count = 0;
  EXPECT_EQ(bank->GetData(&count, idsOut, countsOut), kStatusOk);
  EXPECT_EQ(count, gen_GetUndefInt()) << "never set";
  EXPECT_TRUE(std::equal(idsOut, idsOut + 10, zeros));
  EXPECT_TRUE(std::equal(countsOut, countsOut + 10, zeros));
  for (std::int32_t given : {INT32_MIN, -1, 0, 1, 9, 10, 11, INT32_MAX}) {
    EXPECT_EQ(bank->PutData(given, ids, counts), kStatusOk);
    std::int32_t const used = std::clamp(given, 0, 10);
    for (char const* field : {"groupNumber", "groupCount"}) {
      auto const kept = Fields(bank.Def()).Ints(field, 10);
      EXPECT_EQ(std::count(kept.begin(), kept.end(), 0), 10 - used) << field << " " << given;
    }
    bank->GetData(&count, idsOut, countsOut);
    EXPECT_EQ(count, given);
    EXPECT_EQ(std::count(idsOut, idsOut + 10, 3), used);
    EXPECT_EQ(std::count(countsOut, countsOut + 10, 4), used);
  }
}

// The float of 1.0 on the other scale and the next one print alike.
TEST(CodedNumbers, GroupParametersComeBackToSevenDigits) {
  Typed<IZelPpr78> bank("PPR78", IID_IZelPpr78);
  bank->PutData(1.0, -10.0);
  std::int32_t block[2], again[2];
  bank.IO()->WriteBlock(block, 1);
  EXPECT_EQ(Trim7(std::bit_cast<float>(block[0])), 2.914214);
  EXPECT_EQ(Trim7(std::bit_cast<float>(block[1])), -29.14214);
  bank.IO()->ReadBlock(block, 1);
  EXPECT_EQ(Fields(bank.Def()).Reals("aij", 1)[0], 2.914214 / 2.914213562373095);
  bank.IO()->WriteBlock(again, 1);
  EXPECT_EQ(Trim7(std::bit_cast<float>(again[0])), 2.914214);
  EXPECT_EQ(Trim7(std::bit_cast<float>(again[1])), -29.14214);
}

}  // namespace
}  // namespace zel

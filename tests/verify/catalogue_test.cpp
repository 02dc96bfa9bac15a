// Names, units and weights for data tools.
#include <gtest/gtest.h>

#include <cstring>
#include <set>
#include <string>

#include "store/packed_text.h"
#include "zelaccess/Types.h"
#include "zelaccess/Verify.h"

namespace zel {
namespace {

TEST(CatalogueTest, ConstantsInTheirOrder) {
  std::int32_t count = 0;
  ZelConstantInfo const* const rows = GetConstantCatalogue(count);
  ASSERT_EQ(count, 41);
  EXPECT_STREQ(rows[0].keyword, "MW");
  EXPECT_STREQ(rows[0].unit, "kg/kg-mol");
  EXPECT_STREQ(rows[2].label, "critical pressure");
  EXPECT_STREQ(rows[2].unit, "kPa");
  EXPECT_STREQ(rows[40].keyword, "HVAPNBP");
  EXPECT_EQ(rows[40].index, 47U);
  std::set<std::uint32_t> indices;
  for (std::int32_t i = 0; i < count; ++i) indices.insert(rows[i].index);
  EXPECT_EQ(indices.size(), 41U);
}

TEST(CatalogueTest, CorrelationsByIndex) {
  std::int32_t count = 0;
  ZelCorrelationInfo const* const rows = GetCorrelationCatalogue(count);
  ASSERT_EQ(count, 18);
  EXPECT_STREQ(rows[0].name, "VaporPressure");
  EXPECT_STREQ(rows[4].unit, "kg-mol/m3");
  EXPECT_STREQ(rows[17].name, "CharacteristicVolume");
}

TEST(CatalogueTest, UnitsOfCodes) {
  EXPECT_STREQ(GetUnitCodeName(4015), "kPa");
  EXPECT_STREQ(GetUnitCodeName(1011), "C");
  EXPECT_STREQ(GetUnitCodeName(28018), "kJ/kg");
  for (std::int32_t const code : {0, -4015, 4009, 4037, 51010, INT32_MAX, INT32_MIN}) {
    EXPECT_STREQ(GetUnitCodeName(code), "") << code;
  }
}

TEST(CatalogueTest, TextOfKeyWords) {
  std::int32_t words[10] = {};
  TextToWords("WATER", words, 2);
  char text[41];
  GetKeyText(words, 2, text);
  EXPECT_STREQ(text, "WATER");
  GetKeyText(words, 0, text);
  EXPECT_STREQ(text, "");
  GetKeyText(words, -1, text);
  EXPECT_STREQ(text, "");
}

struct WeightRow {
  char const* formula;
  double weight;
};

// Sums of the printed atomic weights, calculated by hand.
class FormulaWeightTest : public ::testing::TestWithParam<WeightRow> {};

TEST_P(FormulaWeightTest, IsTheSumOfItsAtoms) {
  EXPECT_NEAR(GetFormulaWeight(GetParam().formula), GetParam().weight, 1e-9);
}

INSTANTIATE_TEST_SUITE_P(Rows, FormulaWeightTest,
                         ::testing::Values(WeightRow{"H2O", 2 * 1.008 + 15.999},
                                           WeightRow{"C2H5OH", 2 * 12.011 + 6 * 1.008 + 15.999},
                                           WeightRow{"(CH3)2CO", 3 * 12.011 + 6 * 1.008 + 15.999},
                                           WeightRow{"UF6", 238.03 + 6 * 18.998},
                                           WeightRow{"CuSO4.5H2O",
                                                     63.546 + 32.06 + 9 * 15.999 + 10 * 1.008}));

TEST(FormulaWeightTest, IsUndefinedForWhatIsNoFormula) {
  for (char const* text : {"", "mixture", "petro", "Xx2", "(CH3", "12", "H0"}) {
    EXPECT_TRUE(gen_IsUndefDouble(GetFormulaWeight(text))) << text;
  }
  EXPECT_TRUE(gen_IsUndefDouble(GetFormulaWeight(nullptr)));
}

}  // namespace
}  // namespace zel

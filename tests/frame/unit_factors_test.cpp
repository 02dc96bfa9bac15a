// The factors of unit codes: lengths of the classes, rows that stored values rely on, the codes
// that have words, and every row compared with the meaning of its unit's text.
#include "frame/units/unit_factors.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <limits>
#include <numeric>
#include <ostream>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "frame/units/unit_factor_table.h"
#include "tests/frame/unit_fixture.h"
#include "tests/frame/unit_text.h"

namespace zel {
namespace {

struct ClassFacts {
  std::size_t length;
  char const* base;  // null where no factor converts
};

// By class, from 1.
// clang-format off
constexpr ClassFacts kClassFacts[] = {
    {4, "K"}, {4, "K"}, {4, "K"}, {27, "kPa"}, {27, "kPa"}, {25, "kPa"}, {15, "kg"}, {10, "sec"},
    {13, "m"}, {13, "m"}, {13, "m2"}, {23, "m3"}, {23, "m3"}, {48, "m3"}, {4, "kg-mol"},
    {33, "kg/sec"}, {28, "kg-mol/sec"}, {4, "kg/kg-mol"}, {83, "kg/m3"}, {83, "kg/m3"},
    {83, "kg/m3"}, {64, "m3/kg-mol"}, {64, "m3/kg-mol"}, {12, "kJ"}, {86, "kW"}, {86, "kW"},
    {86, "kW"}, {62, "kJ/kg"}, {34, "kJ/kg-K"}, {34, "kJ/kg-K"}, {64, "m3/kg"}, {64, "m3/kg"},
    {145, "m3/sec"}, {123, "m3/sec"}, {16, "W/m-K"}, {8, "W/m2-K"}, {8, "W/m2-K"}, {8, "W/m2-K"},
    {10, "W/K"}, {21, "cP"}, {4, "m2/sec"}, {9, "N/m"}, {10, nullptr}, {10, nullptr},
    {3, "fraction"}, {3, "fraction"}, {3, "fraction"}, {3, "fraction"}, {4, "DEB"}, {6, "rps"},
};
// clang-format on

constexpr bool LengthsAreRight() {
  return std::ranges::equal(
      kUnitFactors, kClassFacts, {}, [](auto units) { return units.size(); }, &ClassFacts::length);
}

static_assert(LengthsAreRight());
static_assert(std::accumulate(std::begin(kClassFacts), std::end(kClassFacts), std::size_t{0},
                              [](std::size_t sum, auto const& facts) {
                                return sum + facts.length;
                              }) == 1617);

std::int32_t Code(std::size_t index, std::size_t position) {
  return static_cast<std::int32_t>((index + 1) * 1000 + position + 10);
}

std::vector<double> Factors(std::int32_t unitClass, std::size_t count) {
  std::vector<double> factors;
  for (std::size_t i = 0; i < count; ++i) {
    factors.push_back(GetUnitFactor(unitClass * 1000 + 10 + static_cast<std::int32_t>(i)));
  }
  return factors;
}

TEST(UnitFactorsTest, FactorOfACodeIsThatOfItsRow) {
  std::size_t rows = 0;
  for (std::size_t index = 0; index < std::size(kUnitFactors); ++index) {
    for (std::size_t i = 0; i < kUnitFactors[index].size(); ++i, ++rows) {
      EXPECT_EQ(GetUnitFactor(Code(index, i)), kUnitFactors[index][i].factor) << Code(index, i);
    }
  }
  EXPECT_EQ(rows, 1617U);
}

TEST(UnitFactorsTest, RowsThatStoredValuesWereMadeWith) {
  using Row = std::vector<double>;
  for (int unitClass = 1; unitClass <= 3; ++unitClass) {
    EXPECT_EQ(Factors(unitClass, 4), (Row{1.0, 1.0, 0.5555556, 0.5555556})) << unitClass;
  }
  EXPECT_EQ(Factors(4, 27),
            (Row{0.0001,     0.0001,  0.001,    0.001,    0.001,   1.0,       1000.0,
                 100.0,      100.0,   0.133322, 0.133322, 98.0665, 98.0665,   98.0665,
                 98.0665,    101.325, 6.89476,  6.89476,  6.89476, 0.0478803, 0.248843,
                 0.00979698, 3.38639, 0.1,      0.1,      98.0665, 98.0665}));
  EXPECT_EQ(Factors(7, 15), (Row{0.001, 1.0, 1000.0, 1000.0, 0.0283495, 0.453592, 453.592, 907.185,
                                 907.185, 1016.05, 1016.05, 0.001, 907.185, 1000000.0, 1000000.0}));
  EXPECT_EQ(Factors(8, 10), (Row{1.0, 60.0, 3600.0, 3600.0, 86400.0, 604800.0, 604800.0, 2592000.0,
                                 31557600.0, 31557600.0}));
  EXPECT_EQ(Factors(9, 13), (Row{1e-10, 1e-09, 1e-06, 0.001, 0.01, 0.1, 1.0, 1000.0, 0.0254, 0.3048,
                                 0.9144, 1609.34, 1.0}));
  EXPECT_EQ(Factors(24, 12), (Row{0.001, 1.0, 0.0041868, 4.1868, 9.80665e-08, 0.00980665,
                                  0.00135582, 1.05506, 1.8991, 1.8991, 3600.0, 0.001}));
  EXPECT_EQ(Factors(42, 9),
            (Row{0.9806614, 0.9806614, 0.001, 0.001, 0.001, 1.0, 1.0, 5.443092, 5.443092}));
  EXPECT_EQ(Factors(43, 10), Row(10, 0.0));
  EXPECT_EQ(Factors(44, 10), Row(10, 0.0));
  EXPECT_EQ(Factors(45, 3), (Row{1.0, 0.01, 1e-06}));
  EXPECT_EQ(Factors(49, 4), (Row{1.0, 2.99792e+29, 2.99792e+29, 1e+18}));
}

TEST(UnitFactorsTest, CodeWithoutAUnitHasFactorOne) {
  using Limits = std::numeric_limits<std::int32_t>;
  for (std::int32_t const code : {0, 1, 9, 10, 999, -1, -10, -1010, -4025, 1000, 1009, 51000, 51010,
                                  99010, 999999, Limits::min(), Limits::max()}) {
    EXPECT_EQ(GetUnitFactor(code), 1.0) << code;
  }
  for (std::size_t index = 0; index < std::size(kUnitFactors); ++index) {
    std::int32_t const first = Code(index, 0);
    for (std::int32_t const code :
         {first - 10, first - 1, Code(index, kUnitFactors[index].size()), first + 989}) {
      EXPECT_EQ(GetUnitFactor(code), 1.0) << code;
    }
  }
}

struct CodeWithWord {
  std::int32_t code;
  char const* unit;
  double exact;
};

// Exact by definition.
constexpr double kInch = 0.0254;
constexpr double kFoot = 12.0 * kInch;
constexpr double kPound = 0.45359237;
constexpr double kGravity = 9.80665;
constexpr double kInch3 = kInch * kInch * kInch;
constexpr double kGallon = 231.0 * kInch3;
constexpr double kBarrel = 42.0 * kGallon;
constexpr double kFoot3 = kFoot * kFoot * kFoot;
constexpr double kCalorie = 4.1868;
constexpr double kBtu = 1055.05585262;

// The codes that have their own word in the interchange format.
constexpr CodeWithWord kCodesWithWords[] = {
    {1010, "K", 1.0},
    {1011, "C", 1.0},
    {1012, "R", 5.0 / 9.0},
    {1013, "F", 5.0 / 9.0},
    {4010, "dyne/cm2", 1e-4},
    {4012, "N/m2", 1e-3},
    {4014, "Pa", 1e-3},
    {4015, "kPa", 1.0},
    {4016, "MPa", 1e3},
    {4017, "bar", 100.0},
    {4019, "mm Hg", 13.5951 * kGravity / 1e3},
    {4021, "kg/cm2", 10.0 * kGravity},
    {4025, "atm", 101.325},
    {4026, "psia", kPound* kGravity / (kInch * kInch) / 1e3},
    {4032, "in Hg", 25.4 * 13.5951 * kGravity / 1e3},
    {4033, "mbar", 0.1},
    {19012, "g/liter", 1.0},
    {19018, "kg/liter", 1e3},
    {19026, "lb/gal", kPound / kGallon},
    {19030, "lb/bbl", kPound / kBarrel},
    {19063, "g/cm3", 1e3},
    {19067, "g/m3", 1e-3},
    {19073, "kg/cm3", 1e6},
    {19081, "kg/m3", 1.0},
    {19089, "lb/in3", kPound / kInch3},
    {19091, "lb/ft3", kPound / kFoot3},
    {22012, "liter/kg-mol", 1e-3},
    {22014, "liter/g-mol", 1.0},
    {22016, "m3/g-mol", 1e3},
    {22018, "gal/lb-mol", kGallon / kPound},
    {22020, "cm3/kg-mol", 1e-6},
    {22022, "cm3/g-mol", 1e-3},
    {22024, "m3/kg-mol", 1.0},
    {22026, "in3/lb-mol", kInch3 / kPound},
    {22028, "ft3/lb-mol", kFoot3 / kPound},
    {22034, "bbl/lb-mol", kBarrel / kPound},
    {24011, "kJ", 1.0},
    {24013, "kcal", kCalorie},
    {28010, "J/g", 1.0},
    {28012, "J/kg", 1e-3},
    {28016, "kJ/g", 1e3},
    {28018, "kJ/kg", 1.0},
    {28028, "cal/g", kCalorie},
    {28030, "cal/kg", kCalorie / 1e3},
    {28034, "kcal/g", kCalorie * 1e3},
    {28036, "kcal/kg", kCalorie},
    {28044, "BTU/lb", kBtu / kPound / 1e3},
    {28058, "kcal/g", kCalorie * 1e3},
    {28060, "kcal/kg", kCalorie},
    {28064, "cal/kg", kCalorie / 1e3},
    {28070, "BTU/lb", kBtu / kPound / 1e3},
    {30010, "J/g-K", 1.0},
    {30012, "J/kg-K", 1e-3},
    {30014, "kJ/g-K", 1e3},
    {30016, "kJ/kg-K", 1.0},
    {30022, "cal/g-K", kCalorie},
    {30024, "cal/kg-K", kCalorie / 1e3},
    {30026, "kcal/g-K", kCalorie * 1e3},
    {30028, "kcal/kg-K", kCalorie},
    {30030, "BTU/lb-F", kBtu / kPound / 1e3 * 1.8},
    {35010, "W/m-K", 1.0},
    {35011, "W/m-K", 1.0},
    {35014, "kW/m-K", 1e3},
    {35018, "cal/sec-cm-C", kCalorie * 100.0},
    {35020, "cal/hr-m-C", kCalorie / 3600.0},
    {35022, "kcal/hr-m-C", kCalorie / 3.6},
    {35024, "BTU/hr-ft-F", kBtu / 3600.0 / kFoot * 1.8},
    {40010, "cP", 1.0},
    {40012, "Pa-sec", 1e3},
    {40029, "lb-sec/ft2", kPound* kGravity / (kFoot * kFoot) * 1e3},
    {42012, "dyne/cm", 1e-3},
    {42013, "dyne/cm", 1e-3},
    {42015, "N/m", 1.0},
    {42016, "N/m", 1.0},
};

TEST(UnitFactorsTest, CodesWithWordsAreThoseUnits) {
  for (auto const& [code, unit, exact] : kCodesWithWords) {
    UnitFactor const& row =
        kUnitFactors[code / 1000 - 1][static_cast<std::size_t>(code % 1000) - 10];
    EXPECT_STREQ(row.unit, unit) << code;
    EXPECT_TRUE(test::IsRounded(GetUnitFactor(code), exact))
        << code << " " << GetUnitFactor(code) << " " << exact;
  }
  for (std::int32_t const code : {1010, 4015, 19081, 28018, 30016, 35010, 40010, 42015}) {
    EXPECT_EQ(GetUnitFactor(code), 1.0) << "a default unit is internal: " << code;
  }
}

// Factors kept because stored values were made with them, with their true values to six digits.
constexpr CodeWithWord kKeptFactors[] = {
    {42010, "g/cm", 0.980665},
    {42011, "g/cm", 0.980665},
    {42017, "PDL/in", 5.44311},
    {42018, "PDL/in", 5.44311},
};

TEST(UnitFactorsTest, EveryFactorIsThatOfItsUnitsText) {
  std::size_t checked = 0;
  for (std::size_t index = 0; index < std::size(kUnitFactors); ++index) {
    char const* const baseText = kClassFacts[index].base;
    if (baseText == nullptr) continue;
    auto const base = test::ReadUnit(baseText);
    ASSERT_TRUE(base) << baseText;
    for (std::size_t i = 0; i < kUnitFactors[index].size(); ++i, ++checked) {
      auto const& [factor, text] = kUnitFactors[index][i];
      std::int32_t const code = Code(index, i);
      auto const unit = test::ReadUnit(text);
      ASSERT_TRUE(unit) << code << " " << text;
      EXPECT_EQ(unit->dimension, base->dimension) << code << " " << text;
      double const exact = unit->value / base->value;
      auto const* const kept = std::ranges::find(kKeptFactors, code, &CodeWithWord::code);
      if (kept == std::end(kKeptFactors)) {
        EXPECT_TRUE(test::IsRounded(factor, exact)) << code << " " << text << " " << exact;
      } else {
        EXPECT_STREQ(text, kept->unit);
        EXPECT_TRUE(test::IsRounded(kept->exact, exact)) << code;
        EXPECT_NEAR(factor / exact, 1.0, 4e-6) << code;
        EXPECT_FALSE(test::IsRounded(factor, exact)) << code << " is no longer apart";
      }
    }
  }
  EXPECT_EQ(checked, 1597U);
}

TEST(UnitFactorsTest, ReaderOfUnitTextsTellsUnitsApart) {
  EXPECT_DOUBLE_EQ(test::ReadUnit("lb/ft-sec")->value, kPound / kFoot);
  EXPECT_DOUBLE_EQ(test::ReadUnit("ft-lb/sec")->value, kPound * kGravity * kFoot);
  EXPECT_DOUBLE_EQ(test::ReadUnit("m3/kg-mol")->value, 1e-3);
  EXPECT_EQ(test::ReadUnit("m3/kg-mol")->dimension, (test::Dimension{0, 3, 0, 0, -1, 0}));
  EXPECT_EQ(test::ReadUnit("J/kg-K")->dimension, (test::Dimension{0, 2, -2, -1, 0, 0}));
  for (char const* text :
       {"", "-", "/", "kg/", "/m3", "kg-", "-m", "stone", "kg/m4", "2", "kg//m"}) {
    EXPECT_FALSE(test::ReadUnit(text)) << text;
  }
  EXPECT_TRUE(test::IsRounded(0.333333, 1.0 / 3.0));
  EXPECT_FALSE(test::IsRounded(0.333334, 1.0 / 3.0));
  EXPECT_FALSE(test::IsRounded(3.33333, 1.0 / 3.0));
}

struct DocumentRow {
  std::string unit;  // "from | unit", as the document shows it; "class" with its number where a
                     // class begins
  double factor;
  bool operator==(DocumentRow const&) const = default;
  friend void PrintTo(DocumentRow const& row, std::ostream* out) {
    *out << row.unit << " | " << row.factor;
  }
};

// The rows "| from | unit | factor |" of the document, class by class.
std::vector<DocumentRow> ShownRows() {
  std::ifstream document(ZEL_DOCS "/unit-codes.md");
  std::vector<DocumentRow> rows;
  for (std::string line; std::getline(document, line);) {
    if (line.starts_with("## Class")) {
      auto const* const number = line.c_str() + line.find_first_of("0123456789");
      rows.push_back({"class", std::strtod(number, nullptr)});
    }
    if (!line.starts_with("| ") || std::isdigit(static_cast<unsigned char>(line[2])) == 0) continue;
    std::size_t const bar = line.rfind(" | ");
    rows.push_back({line.substr(2, bar - 2), std::strtod(line.c_str() + bar + 3, nullptr)});
  }
  return rows;
}

TEST(UnitFactorsTest, DocumentShowsTheTable) {
  std::vector<DocumentRow> rows;
  UnitFactor const* last = nullptr;
  for (int unitClass = 1; unitClass <= kUnitClasses; ++unitClass) {
    std::span<UnitFactor const> const units = kUnitFactors[unitClass - 1];
    if (units.data() == std::exchange(last, units.data())) continue;  // shares the previous rows
    rows.push_back({"class", static_cast<double>(unitClass)});
    for (std::size_t i = 0, j = 0; i < units.size(); i = j) {
      auto const same = [&](UnitFactor const& other) {
        return other.factor == units[i].factor && std::string(other.unit) == units[i].unit;
      };
      while (j < units.size() && same(units[j])) ++j;
      std::string const name = *units[i].unit == '\0' ? "-" : units[i].unit;
      std::string const times = j - i > 1 ? " x" + std::to_string(j - i) : "";
      rows.push_back({std::to_string(10 + i) + " | " + name + times, units[i].factor});
    }
  }
  EXPECT_EQ(ShownRows(), rows);
}

class UnitFactorsAndSystemTest : public test::UnitSystemTest {};

// Classes of codes, with the unit classes that have all their units.
struct SharedClass {
  std::int32_t unitClass;
  char const* dimension;
};

constexpr SharedClass kSharedClasses[] = {
    {3, "tempdiff"},    {4, "pres"},      {7, "mass"},       {8, "time"},       {9, "leng"},
    {11, "area"},       {12, "vol"},      {13, "stdliqvol"}, {14, "stdvapvol"}, {15, "mole"},
    {16, "weightrate"}, {17, "molerate"}, {19, "density"},   {24, "energy"},    {28, "spenthalpy"},
    {30, "spentropy"},  {31, "spvol"},    {33, "stdlvrat"},  {34, "stdgvrat"},  {35, "cond"},
    {36, "htco"},       {39, "ua"},       {40, "visc"},      {41, "kvis"},      {42, "surf"},
    {45, "frac"},       {49, "dipole"},
};

// Compares differences, since codes have no offset: a gauge unit has the factor of its scale.
TEST_F(UnitFactorsAndSystemTest, UnitSystemConvertsAlike) {
  for (auto const& [unitClass, dimension] : kSharedClasses) {
    auto const index = static_cast<std::size_t>(unitClass - 1);
    for (std::size_t i = 0; i < kUnitFactors[index].size(); ++i) {
      auto const& [factor, text] = kUnitFactors[index][i];
      double zero = 0.0;
      double one = 1.0;
      ASSERT_EQ(Convert(dimension, text, kClassFacts[index].base, zero), 0) << text;
      ASSERT_EQ(Convert(dimension, text, kClassFacts[index].base, one), 0) << text;
      if (std::ranges::find(kKeptFactors, Code(index, i), &CodeWithWord::code) !=
          std::end(kKeptFactors)) {
        continue;
      }
      EXPECT_TRUE(test::IsRounded(factor, one - zero)) << dimension << " " << text << " " << one;
    }
  }
}

}  // namespace
}  // namespace zel

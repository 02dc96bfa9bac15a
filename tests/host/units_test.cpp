// Units through the public header.
#include <gtest/gtest.h>
#include <zelaccess/Types.h>
#include <zelaccess/Units.h>
#include <zelaccess/Verify.h>
#include <zelaccess/ZelAccess.h>

#include <limits>
#include <set>
#include <string>

namespace {

class UnitsTest : public testing::Test {
 protected:
  void SetUp() override { zel::InitZelAccess(); }
};

double Converted(char const* dimension, double value, char const* from, char const* to) {
  EXPECT_TRUE(zel::ConvertUnits(dimension, from, to, &value, 1)) << from << " " << to;
  return value;
}

std::string UnitOf(char const* dimension, char const* word) {
  char text[zel::kUnitTextSize] = "none";
  zel::FindUnit(dimension, word, text);
  return text;
}

TEST_F(UnitsTest, ConvertsFromWordToWord) {
  EXPECT_DOUBLE_EQ(Converted("Temp", 78.31, "C", "K"), 351.46);
  EXPECT_NEAR(Converted("temp", 32.0, "F", "C"), 0.0, 1e-12);
  EXPECT_DOUBLE_EQ(Converted("TempDiff", 1.8, "F", "K"), 1.0);
  EXPECT_DOUBLE_EQ(Converted("Pres", 1.2, "bar", "kPa"), 120.0);
  EXPECT_DOUBLE_EQ(Converted("Pres", 1.0, "atm", "mm Hg@0C"), 101325.0 / 133.322);
  EXPECT_DOUBLE_EQ(Converted("MolarEnergy", 1000.0, "J/mol", "kJ/kg-mol"), 1000.0);
  EXPECT_DOUBLE_EQ(Converted("MolarEnergy", 1.0, "BTU/lb-mol", "kJ/kg-mol"), 2.326);
  EXPECT_DOUBLE_EQ(Converted("MolarEntropy", 4.1868, "J/(mol K)", "cal/mol-K"), 1.0);
  EXPECT_DOUBLE_EQ(Converted("MolarVolume", 1.0, "cm3/mol", "m3/kg-mol"), 1e-3);
  EXPECT_DOUBLE_EQ(Converted("MolarDensity", 2.0, "mol/L", "kmol/m3"), 2.0);
  EXPECT_NEAR(Converted("PetroDensity", 10.0, "API", "spgr"), 1.0, 1e-15);
}

TEST_F(UnitsTest, ReadsEverydaySpellings) {
  struct Row {
    char const* dimension;
    char const* word;
    char const* text;
  };
  constexpr Row kRows[] = {
      {"Temp", "degC", "C"},
      {"Temp", "\u00b0C", "C"},
      {"Temp", "degf", "none"},  // only the spellings of the table are compared in any case
      {"Temp", "degF", "F"},
      {"Temp", "degree celsius", "C"},
      {"Temp", "degR", "R"},
      {"Pres", "BAR", "bar"},
      {"Pres", "mmHg", "mm Hg"},
      {"Pres", "Kilopascal", "kPa"},
      {"Pres", "kgf/cm2", "kg/cm2"},
      {"MolarEnergy", "J/mol", "J/g-mol"},
      {"MolarEnergy", "kJ/kmol", "kJ/kg-mol"},
      {"MolarEnergy", "kJ/mole", "kJ/g-mol"},
      {"MolarEnergy", "Btu/lbmol", "BTU/lb-mol"},
      {"MolarEntropy", "kJ/kg-mol-K", "kJ/K-kg-mol"},
      {"MolarEntropy", "J/mol/K", "J/K-g-mol"},
      {"MolarEntropy", "J/(mol\u00b7K)", "J/K-g-mol"},
      {"MolarEntropy", "J/(kg mol K)", "J/K-kg-mol"},
      {"MolarVolume", "m^3/kmol", "m3/kg-mol"},
      {"MolarVolume", "cm\u00b3/mol", "cm3/g-mol"},
      {"MolarVolume", "L/mol", "liter/g-mol"},
      {"Visc", "Pa.s", "Pa-sec"},
      {"Visc", "Pa*s", "Pa-sec"},
      {"Visc", "mPa.s", "cP"},
      {"Surf", "mN/m", "Dyne/cm"},
      {"Cond", "W/(m K)", "W/m-K"},
      {"Dipole", "debye", "DEB"},
      {"Dipole", "D", "DEB"},
      {"Frac", "%", "percent"},
      {"KVis", "mm2/s", "cST"},
      {"InverseLength", "1/m", "1/m"},
      {"Density", "kg/m**3", "kg/m3"},
      {"Pres", "QRInternal", "kPa"},
      {"Pres", "SI", "kPa"},
      {"Temp", "English", "F"},
      // A unit per mass is not one per mole, and nonsense is nothing.
      {"MolarEnergy", "kJ/kg", "none"},
      {"SpEnthalpy", "kJ/kg-mol", "none"},
      {"MolarEnergy", "kJ", "none"},
      {"Pres", "m", "none"},
      {"Pres", "", "none"},
      {"Pres", "/", "none"},
      {"Pres", "bar/", "bar"},
      {"Furlong", "bar", "none"},
      {"", "bar", "none"},
  };
  for (Row const& row : kRows) EXPECT_EQ(UnitOf(row.dimension, row.word), row.text) << row.word;
}

TEST_F(UnitsTest, WhatCannotBeConvertedStays) {
  double values[] = {1.0, zel::gen_GetUndefDouble(), 3.0};
  EXPECT_TRUE(zel::ConvertUnits("Pres", "bar", "kPa", values, 3));
  EXPECT_EQ(values[0], 100.0);
  EXPECT_TRUE(zel::gen_IsUndefDouble(values[1]));
  EXPECT_EQ(values[2], 300.0);
  EXPECT_FALSE(zel::ConvertUnits("Pres", "bar", "furlong", values, 3));
  EXPECT_FALSE(zel::ConvertUnits("Pres", "bar", "kPa", values, -1));
  EXPECT_EQ(values[0], 100.0);
  double gravity[] = {1.0, 0.0};  // 0 has no counterpart in degrees API
  EXPECT_FALSE(zel::ConvertUnits("PetroDensity", "spgr", "API", gravity, 2));
  EXPECT_EQ(gravity[0], 1.0);
  EXPECT_TRUE(zel::ConvertUnits("Pres", "bar", "kPa", values, 0));
  EXPECT_TRUE(zel::ConvertUnits("Pres", "bar", "kPa", nullptr, 0));
  EXPECT_FALSE(zel::ConvertUnits("Pres", "bar", "kPa", nullptr, 1));
}

TEST_F(UnitsTest, EveryUnitThatIsListedIsRead) {
  std::set<std::string> names;
  EXPECT_EQ(zel::GetDimensionCount(), 94);
  int units = 0;
  for (std::int32_t i = 0; i < zel::GetDimensionCount(); ++i) {
    char name[zel::kUnitTextSize];
    ASSERT_TRUE(zel::GetDimension(i, name));
    EXPECT_TRUE(names.insert(name).second) << name;
    std::int32_t const count = zel::GetUnitCount(name);
    EXPECT_GT(count, 0) << name;
    for (std::int32_t k = 0; k < count; ++k) {
      char text[zel::kUnitTextSize];
      ASSERT_TRUE(zel::GetUnit(name, k, text)) << name << " " << k;
      EXPECT_EQ(UnitOf(name, text), text) << name;
      ++units;
    }
    char unused[zel::kUnitTextSize] = "x";
    EXPECT_FALSE(zel::GetUnit(name, count, unused));
    EXPECT_FALSE(zel::GetUnit(name, -1, unused));
    EXPECT_STREQ(unused, "x");
  }
  EXPECT_GT(units, 5000);
  EXPECT_FALSE(zel::GetDimension(94, nullptr));
  char text[zel::kUnitTextSize];
  EXPECT_FALSE(zel::GetDimension(-1, text));
  EXPECT_FALSE(zel::GetDimension(94, text));
}

TEST_F(UnitsTest, EveryUnitSystemHasAUnitForEveryDimension) {
  EXPECT_EQ(zel::GetUnitSystemCount(), 19);
  for (std::int32_t i = 0; i < zel::GetUnitSystemCount(); ++i) {
    char system[zel::kUnitTextSize];
    ASSERT_TRUE(zel::GetUnitSystem(i, system));
    for (std::int32_t k = 0; k < zel::GetDimensionCount(); ++k) {
      char name[zel::kUnitTextSize];
      ASSERT_TRUE(zel::GetDimension(k, name));
      EXPECT_TRUE(zel::FindUnit(name, system, nullptr)) << system << " " << name;
    }
  }
  char text[zel::kUnitTextSize];
  EXPECT_FALSE(zel::GetUnitSystem(19, text));
  EXPECT_FALSE(zel::GetUnitSystem(-1, text));
}

// A datum's unit, as the catalogue shows it, is the internal unit of its dimension.
void ExpectInternal(char const* dimension, char const* unit, char const* what) {
  if (*dimension == '\0') return;
  double value = 1.0;
  char const* const word = *unit == '\0' ? "spgr" : unit;
  EXPECT_TRUE(zel::ConvertUnits(dimension, word, "QRInternal", &value, 1)) << what;
  EXPECT_EQ(value, 1.0) << what;
}

TEST_F(UnitsTest, EveryDatumHasTheDimensionOfItsUnit) {
  std::set<std::string> without;
  std::int32_t count = 0;
  auto const* const constants = zel::GetConstantCatalogue(count);
  for (std::int32_t i = 0; i < count; ++i) {
    char const* const dimension = zel::GetConstantDimension(constants[i].index);
    ExpectInternal(dimension, constants[i].unit, constants[i].keyword);
    if (*dimension == '\0' && *constants[i].unit != '\0') without.insert(constants[i].unit);
  }
  auto const* const correlations = zel::GetCorrelationCatalogue(count);
  for (std::int32_t i = 0; i < count; ++i) {
    char const* const dimension = zel::GetCorrelationDimension(static_cast<std::uint32_t>(i));
    ExpectInternal(dimension, correlations[i].unit, correlations[i].name);
    if (*dimension == '\0' && *correlations[i].unit != '\0') without.insert(correlations[i].unit);
  }
  EXPECT_EQ(without, (std::set<std::string>{"kg/kg-mol", "(cal/cm3)^0.5"}));
  EXPECT_STREQ(zel::GetConstantDimension(zel::propertyTC), "Temp");
  EXPECT_STREQ(zel::GetConstantDimension(zel::propertySG60F), "PetroDensity");
  EXPECT_STREQ(zel::GetConstantDimension(99), "");
  EXPECT_STREQ(zel::GetCorrelationDimension(0), "Pres");
  EXPECT_STREQ(zel::GetCorrelationDimension(18), "");
  EXPECT_STREQ(zel::GetDimensionOfUnit("kPa"), "Pres");
  EXPECT_STREQ(zel::GetDimensionOfUnit("bar"), "");
  EXPECT_STREQ(zel::GetDimensionOfUnit(nullptr), "");
}

}  // namespace

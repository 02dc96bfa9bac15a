// The factors of unit codes, against values that this test makes from the names of the units.
#include "frame/units/unit_factors.h"

#include <gtest/gtest.h>

#include <cctype>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "frame/units/unit_factor_table.h"

namespace zel {
namespace {

// clang-format off
constexpr std::int32_t kLengths[50] = {
    4,  4,  4,  27, 27, 25, 15, 10, 13, 13, 13, 23, 23,  48,  4,  33, 28, 4, 83, 83, 83, 64, 64, 12, 86,
    86, 86, 62, 34, 34, 64, 64, 145, 123, 16, 8, 8, 8, 10, 21, 4, 9, 10, 10, 3, 3, 3, 3, 4, 6};
// clang-format on

double Factor(std::int32_t unitClass, std::size_t at) {
  return GetUnitFactor(unitClass * 1000 + 10 + static_cast<std::int32_t>(at));
}

TEST(UnitFactors, ClassesHaveTheirLengths) {
  int total = 0;
  for (std::int32_t c = 1; c <= 50; ++c) {
    EXPECT_EQ(std::ssize(kUnitFactors[c - 1]), kLengths[c - 1]) << c;
    total += kLengths[c - 1];
    EXPECT_EQ(GetUnitFactor(c * 1000 + 9), 1.0);
    EXPECT_EQ(GetUnitFactor(c * 1000 + 10 + kLengths[c - 1]), 1.0) << "one beyond class " << c;
  }
  EXPECT_EQ(total, 1617);
}

TEST(UnitFactors, CodesThatNameNoUnitGiveOne) {
  for (std::int32_t code : {INT32_MIN, -4015, -1, 0, 9, 10, 999, 1009, 1014, 1999, 50016, 51000,
                            51010, 999999, INT32_MAX}) {
    EXPECT_EQ(GetUnitFactor(code), 1.0) << code;
  }
}

// Rows that stored data depend on digit for digit.
TEST(UnitFactors, FixedRowsAreExact) {
  std::map<std::int32_t, std::vector<double>> const rows = {
      {1, {1.0, 1.0, 0.5555556, 0.5555556}},
      {2, {1.0, 1.0, 0.5555556, 0.5555556}},
      {3, {1.0, 1.0, 0.5555556, 0.5555556}},
      {4, {0.0001,   0.0001,    0.001,    0.001,      0.001,   1.0,     1000.0,  100.0,   100.0,
           0.133322, 0.133322,  98.0665,  98.0665,    98.0665, 98.0665, 101.325, 6.89476, 6.89476,
           6.89476,  0.0478803, 0.248843, 0.00979698, 3.38639, 0.1,     0.1,     98.0665, 98.0665}},
      {7,
       {0.001, 1.0, 1000.0, 1000.0, 0.0283495, 0.453592, 453.592, 907.185, 907.185, 1016.05,
        1016.05, 0.001, 907.185, 1000000.0, 1000000.0}},
      {8,
       {1.0, 60.0, 3600.0, 3600.0, 86400.0, 604800.0, 604800.0, 2592000.0, 31557600.0, 31557600.0}},
      {9,
       {1e-10, 1e-09, 1e-06, 0.001, 0.01, 0.1, 1.0, 1000.0, 0.0254, 0.3048, 0.9144, 1609.34, 1.0}},
      {24,
       {0.001, 1.0, 0.0041868, 4.1868, 9.80665e-08, 0.00980665, 0.00135582, 1.05506, 1.8991, 1.8991,
        3600.0, 0.001}},
      {42, {0.9806614, 0.9806614, 0.001, 0.001, 0.001, 1.0, 1.0, 5.443092, 5.443092}},
      {43, std::vector<double>(10, 0.0)},
      {44, std::vector<double>(10, 0.0)},
      {45, {1.0, 0.01, 1e-06}},
      {49, {1.0, 2.99792e+29, 2.99792e+29, 1e+18}}};
  for (auto const& [unitClass, factors] : rows) {
    ASSERT_EQ(std::ssize(factors), kLengths[unitClass - 1]);
    for (std::size_t i = 0; i < factors.size(); ++i) {
      EXPECT_EQ(Factor(unitClass, i), factors[i]) << unitClass << " " << i;
    }
  }
}

// Units in SI, amounts in kg-mol, from their definitions.
constexpr double kPound = 0.45359237, kGravity = 9.80665, kFoot = 0.3048, kInch = 0.0254;
constexpr double kCalorie = 4.1868, kBtu = kCalorie * 453.59237 / 1.8;
std::map<std::string, double> const kUnits = {{"ang", 1e-10},
                                              {"mmic", 1e-9},
                                              {"mic", 1e-6},
                                              {"mm", 1e-3},
                                              {"cm", 1e-2},
                                              {"dm", 0.1},
                                              {"m", 1},
                                              {"km", 1e3},
                                              {"in", kInch},
                                              {"ft", kFoot},
                                              {"yd", 3 * kFoot},
                                              {"mi", 5280 * kFoot},
                                              {"hect", 1e4},
                                              {"liter", 1e-3},
                                              {"KL", 1},
                                              {"gal", 231 * kInch* kInch* kInch},
                                              {"igal", 4.54609e-3},
                                              {"bbl", 42 * 231 * kInch* kInch* kInch},
                                              {"Mbbl", 42e3 * 231 * kInch* kInch* kInch},
                                              {"Mgal", 231e3 * kInch* kInch* kInch},
                                              {"MMgal", 231e6 * kInch* kInch* kInch},
                                              {"MMm3", 1e6},
                                              {"Mft3", 1e3 * kFoot* kFoot* kFoot},
                                              {"MMft3", 1e6 * kFoot* kFoot* kFoot},
                                              {"nm3", (60 + 459.67) / (32 + 459.67)},
                                              {"g", 1e-3},
                                              {"kg", 1},
                                              {"tonm", 1e3},
                                              {"oz", kPound / 16},
                                              {"lb", kPound},
                                              {"klb", 1e3 * kPound},
                                              {"ton", 2000 * kPound},
                                              {"tonl", 2240 * kPound},
                                              {"Ktonm", 1e6},
                                              {"g-mol", 1e-3},
                                              {"kg-mol", 1},
                                              {"tonm-mol", 1e3},
                                              {"lb-mol", kPound},
                                              {"sec", 1},
                                              {"min", 60},
                                              {"hr", 3600},
                                              {"day", 86400},
                                              {"wk", 7 * 86400},
                                              {"mon", 30 * 86400},
                                              {"yr", 365.25 * 86400},
                                              {"K", 1},
                                              {"C", 1},
                                              {"R", 1 / 1.8},
                                              {"F", 1 / 1.8},
                                              {"Pa", 1},
                                              {"kPa", 1e3},
                                              {"MPa", 1e6},
                                              {"bar", 1e5},
                                              {"mbar", 100},
                                              {"atm", 101325},
                                              {"mm Hg", 133.322387415},
                                              {"torr", 101325.0 / 760},
                                              {"in Hg", 3386.389},
                                              {"in H2O", 248.843},
                                              {"mm H2O", 248.843 / 25.4},
                                              {"ata", 1e4 * kGravity},
                                              {"ate", 1e4 * kGravity},
                                              {"psi", kPound* kGravity / (kInch * kInch)},
                                              {"psia", kPound* kGravity / (kInch * kInch)},
                                              {"psig", kPound* kGravity / (kInch * kInch)},
                                              {"psf", kPound* kGravity / (kFoot * kFoot)},
                                              {"dyne", 1e-5},
                                              {"N", 1},
                                              {"PDL", kPound* kFoot},
                                              {"J", 1},
                                              {"kJ", 1e3},
                                              {"MJ", 1e6},
                                              {"cal", kCalorie},
                                              {"kcal", 1e3 * kCalorie},
                                              {"BTU", kBtu},
                                              {"CHU", 1.8 * kBtu},
                                              {"PCU", 1.8 * kBtu},
                                              {"g-cm", 1e-5 * kGravity},
                                              {"kg-m", kGravity},
                                              {"ft-lb", kFoot* kPound* kGravity},
                                              {"kW-hr", 3.6e6},
                                              {"W", 1},
                                              {"kW", 1e3},
                                              {"cP", 1e-3},
                                              {"POIS", 0.1},
                                              {"Pa-sec", 1},
                                              {"lb-sec", kPound* kGravity},
                                              {"cST", 1e-6},
                                              {"ST", 1e-4},
                                              {"fraction", 1},
                                              {"percent", 0.01},
                                              {"ppm", 1e-6},
                                              {"rps", 1},
                                              {"revolution", 1},
                                              {"rpm", 1.0 / 60},
                                              {"rph", 1.0 / 3600},
                                              {"rpd", 1.0 / 86400},
                                              {"rad", 0.5 / 3.141592653589793},
                                              {"DEB", 3.33564e-30},
                                              {"Coul-m", 1},
                                              {"EU", 3.33564e-12}};

// A product of units with exponents, as "m-K" or "cm2".
double Product(std::string const& text) {
  if (auto const at = kUnits.find(text); at != kUnits.end()) return at->second;
  if (auto const dash = text.rfind('-'); dash != std::string::npos) {
    return Product(text.substr(0, dash)) * Product(text.substr(dash + 1));
  }
  auto const exponent = static_cast<double>(text.back() - '0');
  return std::pow(kUnits.at(text.substr(0, text.size() - 1)), exponent);
}

double Value(std::string const& unit, std::int32_t unitClass) {
  bool const byForce = unitClass <= 6 || unitClass == 42;  // weights that stand for forces
  double const scale = byForce && (unit == "kg/cm2" || unit == "g/cm") ? kGravity : 1.0;
  auto const slash = unit.find('/');
  if (slash == std::string::npos) return Product(unit);
  return scale * Product(unit.substr(0, slash)) / Product(unit.substr(slash + 1));
}

// Base units by class.
std::string Base(std::int32_t unitClass) {
  std::vector<std::string> const bases = {
      "K",         "K",         "K",          "kPa",       "kPa",      "kPa",      "kg",
      "sec",       "m",         "m",          "m2",        "m3",       "m3",       "m3",
      "kg-mol",    "kg/sec",    "kg-mol/sec", "kg/kg-mol", "kg/m3",    "kg/m3",    "kg/m3",
      "m3/kg-mol", "m3/kg-mol", "kJ",         "kW",        "kW",       "kW",       "kJ/kg",
      "kJ/kg-K",   "kJ/kg-K",   "m3/kg",      "m3/kg",     "m3/sec",   "m3/sec",   "W/m-K",
      "W/m2-K",    "W/m2-K",    "W/m2-K",     "W/K",       "cP",       "m2/sec",   "N/m",
      "",          "",          "fraction",   "fraction",  "fraction", "fraction", "DEB",
      "rps"};
  return bases.at(static_cast<std::size_t>(unitClass - 1));
}

TEST(UnitFactors, EveryFactorFollowsFromTheNamesOfItsUnits) {
  constexpr double kSixDigits = 6e-6;
  int compared = 0;
  for (std::int32_t c = 1; c <= 50; ++c) {
    if (c == 43 || c == 44) continue;
    for (std::size_t i = 0; i < kUnitFactors[c - 1].size(); ++i) {
      std::string const unit = kUnitFactors[c - 1][i].unit;
      double const expected = Value(unit, c) / Value(Base(c), c);
      EXPECT_NEAR(Factor(c, i) / expected, 1.0, kSixDigits) << c << " " << unit;
      ++compared;
    }
  }
  EXPECT_EQ(compared, 1597);
}

TEST(UnitFactors, CodesOfCorrelationsNameTheirUnits) {
  std::map<std::int32_t, char const*> const names = {{1010, "K"},
                                                     {1011, "C"},
                                                     {1012, "R"},
                                                     {1013, "F"},
                                                     {4010, "dyne/cm2"},
                                                     {4012, "N/m2"},
                                                     {4014, "Pa"},
                                                     {4015, "kPa"},
                                                     {4016, "MPa"},
                                                     {4017, "bar"},
                                                     {4019, "mm Hg"},
                                                     {4021, "kg/cm2"},
                                                     {4025, "atm"},
                                                     {4026, "psia"},
                                                     {4032, "in Hg"},
                                                     {4033, "mbar"},
                                                     {19012, "g/liter"},
                                                     {19018, "kg/liter"},
                                                     {19026, "lb/gal"},
                                                     {19030, "lb/bbl"},
                                                     {19063, "g/cm3"},
                                                     {19067, "g/m3"},
                                                     {19073, "kg/cm3"},
                                                     {19081, "kg/m3"},
                                                     {19089, "lb/in3"},
                                                     {19091, "lb/ft3"},
                                                     {22012, "liter/kg-mol"},
                                                     {22014, "liter/g-mol"},
                                                     {22016, "m3/g-mol"},
                                                     {22018, "gal/lb-mol"},
                                                     {22020, "cm3/kg-mol"},
                                                     {22022, "cm3/g-mol"},
                                                     {22024, "m3/kg-mol"},
                                                     {22026, "in3/lb-mol"},
                                                     {22028, "ft3/lb-mol"},
                                                     {22034, "bbl/lb-mol"},
                                                     {24013, "kcal"},
                                                     {28010, "J/g"},
                                                     {28012, "J/kg"},
                                                     {28016, "kJ/g"},
                                                     {28018, "kJ/kg"},
                                                     {28028, "cal/g"},
                                                     {28030, "cal/kg"},
                                                     {28064, "cal/kg"},
                                                     {28034, "kcal/g"},
                                                     {28058, "kcal/g"},
                                                     {28036, "kcal/kg"},
                                                     {28060, "kcal/kg"},
                                                     {28044, "BTU/lb"},
                                                     {28070, "BTU/lb"},
                                                     {30010, "J/g-K"},
                                                     {30012, "J/kg-K"},
                                                     {30014, "kJ/g-K"},
                                                     {30016, "kJ/kg-K"},
                                                     {30022, "cal/g-K"},
                                                     {30024, "cal/kg-K"},
                                                     {30026, "kcal/g-K"},
                                                     {30028, "kcal/kg-K"},
                                                     {30030, "BTU/lb-F"},
                                                     {35010, "W/m-K"},
                                                     {35011, "W/m-K"},
                                                     {35014, "kW/m-K"},
                                                     {35018, "cal/sec-cm-C"},
                                                     {35020, "cal/hr-m-C"},
                                                     {35022, "kcal/hr-m-C"},
                                                     {35024, "BTU/hr-ft-F"},
                                                     {40010, "cP"},
                                                     {40012, "Pa-sec"},
                                                     {40029, "lb-sec/ft2"},
                                                     {42012, "dyne/cm"},
                                                     {42013, "dyne/cm"},
                                                     {42015, "N/m"},
                                                     {42016, "N/m"}};
  for (auto const& [code, name] : names) {
    auto const row = kUnitFactors[code / 1000 - 1][static_cast<std::size_t>(code % 1000 - 10)];
    EXPECT_STREQ(row.unit, name) << code;
    EXPECT_EQ(GetUnitFactor(code), row.factor) << code;
  }
  for (std::int32_t code : {1010, 4015, 19081, 28018, 30016, 35010, 40010, 42015}) {
    EXPECT_EQ(GetUnitFactor(code), 1.0) << "a default unit is internal: " << code;
  }
}

struct DocumentRow {
  std::string unit;  // "from | unit", as the document shows it; "class" where a class begins
  double factor;
  bool operator==(DocumentRow const&) const = default;
};

// The rows "| from | unit | factor |" of the document, class by class.
std::vector<DocumentRow> ShownRows() {
  std::ifstream document(ZEL_DOCS "/unit-codes.md");
  std::vector<DocumentRow> rows;
  for (std::string line; std::getline(document, line);) {
    if (line.starts_with("## Class")) rows.push_back({"class", 0.0});
    if (!line.starts_with("| ") || std::isdigit(static_cast<unsigned char>(line[2])) == 0) continue;
    std::size_t const bar = line.rfind(" | ");
    rows.push_back({line.substr(2, bar - 2), std::strtod(line.c_str() + bar + 3, nullptr)});
  }
  return rows;
}

TEST(UnitFactors, DocumentShowsTheTable) {
  std::vector<DocumentRow> rows;
  UnitFactor const* last = nullptr;
  for (std::span<UnitFactor const> units : kUnitFactors) {
    if (units.data() == std::exchange(last, units.data())) continue;  // shares the rows before
    rows.push_back({"class", 0.0});
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
  EXPECT_TRUE(ShownRows() == rows);
}

}  // namespace
}  // namespace zel

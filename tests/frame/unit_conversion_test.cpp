// Conversions of the real unit table compared with numbers computed from the definitions of the
// units.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>

#include "tests/frame/unit_fixture.h"
#include "zelaccess/Types.h"

namespace zel {
namespace {

// Exact by definition.
constexpr double kInch = 0.0254;
constexpr double kFoot = 0.3048;
constexpr double kPound = 0.45359237;
constexpr double kGravity = 9.80665;
constexpr double kPsi = kPound * kGravity / (kInch * kInch);
constexpr double kGallon = 231.0 * kInch * kInch * kInch;
constexpr double kBtu = 1055.05585262;
constexpr double kCalorie = 4.1868;
constexpr double kFoot3 = kFoot * kFoot * kFoot;
constexpr double kPi = 3.14159265358979323846;
// 60 F in K.
constexpr double kSixty = (60.0 + 459.67) / 1.8;

struct Conversion {
  char const* dimension;
  double value;
  char const* from;
  char const* to;
  double expected;
};

constexpr Conversion kConversions[] = {
    {"temp", 100.0, "C", "K", 373.15},
    {"temp", 212.0, "F", "K", 373.15},
    {"temp", -40.0, "F", "C", -40.0},
    {"temp", 491.67, "R", "C", 0.0},
    {"temp", 0.0, "K", "F", -459.67},
    {"tempabs", 25.0, "C", "R", 536.67},
    {"tempdiff", 100.0, "C", "K", 100.0},
    {"tempdiff", 100.0, "C", "F", 180.0},
    {"temperaturechg", 9.0, "F", "K", 5.0},
    {"pres", 1.0, "atm", "kPa", 101.325},
    {"pres", 1.0, "psia", "kPa", kPsi / 1000.0},
    {"pres", 0.0, "barg", "kPa", 101.325},
    {"pres", 1.0, "kPag", "Pa", 102325.0},
    {"pres", 760.0, "torr", "atm", 1.0},
    {"pres", 1.0, "kg/cm2", "bar", 0.980665},
    {"pres", 1.0, "ata", "kPa", 98.0665},
    {"pres", 1.0, "mm Hg", "Pa", 13.5951 * kGravity},
    {"pres", 1.0, "in Hg", "mm Hg", 25.4},
    {"pres", 1.0, "ft H2O", "in H2O", 12.0},
    {"pres", 1.0, "psf", "psi", 1.0 / 144.0},
    {"pres", 1.0, "dyne/cm2", "N/m2", 0.1},
    {"presdiff", 1.0, "psi", "Pa", kPsi},
    {"time", 1.0, "yr", "day", 365.25},
    {"time", 1.0, "mon", "day", 30.0},
    {"time", 2.0, "wk", "hr", 336.0},
    {"leng", 1.0, "mi", "ft", 5280.0},
    {"leng", 1.0, "yd", "m", 0.9144},
    {"leng", 1.0, "ang", "mmic", 0.1},
    {"leng", 3.0, "hundred-ft", "m", 91.44},
    {"length", 1.0, "in", "cm", 2.54},
    {"area", 1.0, "acre", "m2", 43560.0 * kFoot* kFoot},
    {"area", 1.0, "hect", "m2", 10000.0},
    {"area", 1.0, "mi2", "acre", 640.0},
    {"vol", 1.0, "bbl", "gal", 42.0},
    {"vol", 1.0, "gal", "liter", kGallon * 1000.0},
    {"vol", 1.0, "igal", "cm3", 4546.09},
    {"vol", 1.0, "ft3", "in3", 1728.0},
    {"vol", 1.0, "MMft3", "Mft3", 1000.0},
    {"vol", 1.0, "Mbbl", "m3", 42000.0 * kGallon},
    {"stdvapvol", 1.0, "nm3", "m3", kSixty / 273.15},
    {"stdvapvol", 1.0, "nm3", "scf", kSixty / 273.15 / kFoot3},
    {"mass", 1.0, "lb", "oz", 16.0},
    {"mass", 1.0, "tonl", "lb", 2240.0},
    {"mass", 1.0, "ton", "kg", 2000.0 * kPound},
    {"mass", 1.0, "Ktonm", "tonm", 1000.0},
    {"mole", 1.0, "lb-mol", "g-mol", kPound * 1000.0},
    {"mole", 1.0, "kg-mol", "g-mol", 1000.0},
    {"energy", 1.0, "kcal", "kJ", 4.1868},
    {"energy", 1.0, "BTU", "cal", kBtu / kCalorie},
    {"energy", 1.0, "CHU", "BTU", 1.8},
    {"energy", 1.0, "kW-hr", "MJ", 3.6},
    {"energy", 1.0, "ft-lb", "J", kFoot* kPound* kGravity},
    {"energy", 1.0, "kg-m", "g-cm", 100000.0},
    {"power", 1.0, "HP", "W", 550.0 * kFoot* kPound* kGravity},
    {"power", 1.0, "MVA", "kW", 1000.0},
    {"e6energy", 1.0, "x 10^6 BTU", "x 10^6 kJ", kBtu / 1000.0},
    {"visc", 1.0, "POIS", "cP", 100.0},
    {"visc", 1.0, "Pa-sec", "cP", 1000.0},
    {"visc", 1.0, "lb/ft-hr", "cP", kPound / kFoot / 3.6},
    {"visc", 1.0, "lb-sec/ft2", "Pa-sec", kPound* kGravity / (kFoot * kFoot)},
    {"cond", 1.0, "kcal/hr-m-C", "W/m-K", 4186.8 / 3600.0},
    {"cond", 1.0, "cal/sec-cm-C", "W/m-K", 418.68},
    {"cond", 1.0, "BTU/hr-ft-F", "W/m-K", kBtu * 1.8 / 3600.0 / kFoot},
    {"cond", 1.0, "BTU/hr-in-F", "BTU/hr-ft-F", 12.0},
    {"surf", 1.0, "Dyne/cm", "N/m", 0.001},
    {"surf", 1.0, "g/cm", "N/m", 0.980665},
    {"surf", 1.0, "PDL/in", "N/m", kPound* kFoot / kInch},
    {"htco", 1.0, "BTU/hr-ft2-F", "W/m2-K", kBtu * 1.8 / 3600.0 / (kFoot * kFoot)},
    {"ua", 1.0, "BTU/hr-F", "W/K", kBtu * 1.8 / 3600.0},
    {"foul", 1.0, "hr-m2-K/kJ", "m2-K/W", 3.6},
    {"dipole", 1.0, "DEB", "Coul-m", 1e-21 / 299792458.0},
    {"dipole", 1e-18, "EU", "DEB", 1.0},
    {"kvis", 1.0, "ST", "m2/sec", 1e-4},
    {"kvis", 1.0, "in2/sec", "cST", 645.16},
    {"cp", 1.0, "BTU/lb-F", "cal/g-C", kBtu * 1.8 / kPound / 1000.0 / kCalorie},
    {"cp", 1.0, "PCU/lb-F", "BTU/lb-F", 1.8},
    {"torque", 1.0, "lb-ft", "N-m", kFoot* kPound* kGravity},
    {"frac", 25.0, "percent", "fraction", 0.25},
    {"frac", 1.0, "ppm", "ppb", 1000.0},
    {"currency", 1.0, "EUR", "DEM", 1.95583},
    {"rotation", 60.0, "rpm", "rad/sec", 2.0 * kPi},
    {"rotation", 1.0, "rps", "rpd", 86400.0},
    {"angle", 180.0, "degree", "radian", kPi},
    {"potential", 1.0, "kV", "V", 1000.0},
    {"current", 1.0, "kAmp", "Amp", 1000.0},
    {"resistance", 1.0, "kOhm", "Ohm", 1000.0},
    {"inductance", 1.0, "H", "muH", 1e6},
    {"capacitance", 1.0, "F", "mF", 1000.0},
    {"density", 1.0, "g/cm3", "kg/m3", 1000.0},
    {"density", 1.0, "lb/ft3", "kg/m3", kPound / kFoot3},
    {"density", 1.0, "lb/gal", "kg/m3", kPound / kGallon},
    {"density", 1.0, "lb/bbl", "lb/gal", 1.0 / 42.0},
    {"spvol", 1.0, "ft3/lb", "m3/kg", kFoot3 / kPound},
    {"spenthalpy", 1.0, "BTU/lb", "kJ/kg", 2.326},
    {"spentropy", 1.0, "BTU/F-lb", "kJ/K-kg", 4.1868},
    {"molarenergy", 1.0, "BTU/lb-mol", "kJ/kg-mol", 2.326},
    {"molarcp", 1.0, "cal/g-mol-K", "kJ/kg-mol-K", 4.1868},
    {"hxduty", 1.0, "BTU/hr", "kJ/sec", kBtu / 3600000.0},
    {"rhovv", 1.0, "lb/ft-sec2", "kg/m-sec2", kPound / kFoot},
    {"finelenginverse", 1.0, "1/in", "1/cm", 1.0 / 2.54},
    {"inversepressure", 1.0, "1/atm", "1/kPa", 1.0 / 101.325},
    {"productivityidx", 1.0, "bbl/day-psi", "m3/sec-Pa", 42.0 * kGallon / 86400.0 / kPsi},
    {"geogradient", 1.0, "F/hundred-ft", "K/m", 1.0 / 1.8 / 100.0 / kFoot},
    {"gas-oilratio", 1.0, "scf/bbl", "m3/m3", kFoot3 / (42.0 * kGallon)},
    {"diffusivity", 1.0, "ft2/hr", "m2/sec", kFoot* kFoot / 3600.0},
    {"diffusivity", 1.0, "cST", "m2/hr", 0.0036},
};

class UnitConversionTest : public test::UnitSystemTest {};

TEST_F(UnitConversionTest, AgreesWithTheDefinitions) {
  for (Conversion const& row : kConversions) {
    SCOPED_TRACE(std::string(row.dimension) + " " + row.from + " to " + row.to);
    double value = row.value;
    ASSERT_EQ(Convert(row.dimension, row.from, row.to, value), 0);
    // Temperatures are sums; their error is that of their largest part.
    bool const isTemperature = std::string(row.dimension).substr(0, 4) == "temp";
    double const size = std::max(std::abs(row.expected), isTemperature ? 460.0 : 0.0);
    EXPECT_NEAR(value, row.expected, 2e-15 * 4.0 * size);
  }
}

// Known to fewer digits: measured values, and psig as in the table.
TEST_F(UnitConversionTest, AgreesWithPublishedValues) {
  constexpr Conversion kPublished[] = {
      {"pres", 0.0, "psig", "psia", 14.6959},
      {"pres", 1.0, "in H2O", "Pa", 248.84},
      {"pres", 1.0, "mm H2O", "Pa", 248.84 / 25.4},
      {"pres", 1.0, "in H2O@39.2F", "Pa", 249.082},
      {"pres", 1.0, "cm H2O@4C", "Pa", 98.0638},
      {"pres", 1.0, "in Hg@60F", "Pa", 3376.85},
      {"flowconductance", 1.0, "K-v", "Cv", 1.1561},
      {"flowconductance", 1.0, "Cv", "(kg/sec)/sqrt(Pa-kg/m3)", 2.4016e-5},
      {"flowconductance", 1.0, "(lb/hr)/sqrt(psi-lb/ft3)", "Cv", 1.0 / 63.34},
  };
  for (Conversion const& row : kPublished) {
    double value = row.value;
    ASSERT_EQ(Convert(row.dimension, row.from, row.to, value), 0) << row.from;
    EXPECT_NEAR(value / row.expected, 1.0, 1e-4) << row.dimension << " " << row.from;
  }
}

TEST_F(UnitConversionTest, InternalUnitsAreOneSet) {
  // Amounts: R = 8.314471 J/(g-mol K) has the same value in kPa m3/(kg-mol K) and kJ/(kg-mol K).
  EXPECT_NEAR(Internal("molarentropy", "J/K-g-mol", 8.314471), 8.314471, 1e-14);
  double const pressure = Internal("pres", "atm", 1.0);
  double const volume = Internal("vol", "liter", 22.413969) / Internal("mole", "g-mol", 1.0);
  EXPECT_NEAR(pressure * volume / Internal("temp", "C", 0.0), 8.31447, 1e-5);
  // Work: a pressure times a volume is an energy, an energy per time a power, and so on.
  EXPECT_NEAR(Internal("pres", "Pa", 1.0) * Internal("vol", "m3", 1.0),
              Internal("energy", "J", 1.0), 1e-18);
  EXPECT_NEAR(Internal("hxduty", "BTU/hr", 1.0),
              Internal("energy", "BTU", 1.0) / Internal("time", "hr", 1.0), 1e-18);
  EXPECT_NEAR(Internal("power", "W", 1.0), Internal("hxduty", "J/sec", 1.0), 1e-18);
  EXPECT_NEAR(Internal("density", "lb/ft3", 1.0) * Internal("spvol", "ft3/lb", 1.0), 1.0, 1e-14);
  EXPECT_NEAR(Internal("cp", "BTU/lb-F", 1.0), Internal("spentropy", "BTU/F-lb", 1.0), 1e-14);
  EXPECT_NEAR(Internal("molardensity", "lb-mol/ft3", 1.0),
              Internal("mole", "lb-mol", 1.0) / Internal("vol", "ft3", 1.0), 1e-13);
}

TEST_F(UnitConversionTest, HeatsAndVolumesOfAMoleAndOfAMassLandOnOneNumber) {
  for (char const* word : {"kJ/kg", "kJ/kg-mol", "kJ/kg-mole", "kj/KG-MOLE", "J/g", "J/g-mole"}) {
    EXPECT_NEAR(Internal("spenthalpy", word, 393510.016), 393510.016, 1e-9) << word;
  }
  // Heats of combustion of carbon and hydrogen in other units.
  EXPECT_NEAR(Internal("spenthalpy", "kJ/g-mol", 393.510016), 393510.016, 1e-9);
  EXPECT_NEAR(Internal("spenthalpy", "kcal/g-mol", 241.814 / 4.1868), 241814.0, 1e-9);
  EXPECT_NEAR(Internal("spenthalpy", "BTU/lb-mol", 1000.0), 2326.0, 1e-9);
  EXPECT_NEAR(Internal("vapspvol", "m3/kg-mole", 0.255), 0.255, 1e-15);
  EXPECT_NEAR(Internal("vapspvol", "cm3/g-mol", 255.0), 0.255, 1e-15);
  EXPECT_NEAR(Internal("spvol", "ft3/lb-mole", 1.0), kFoot3 / kPound, 1e-15);
}

TEST_F(UnitConversionTest, SolubilityParameterComesOutInCaloriesPerVolume) {
  // Benzene: heat of vaporization 33.83 kJ/g-mol, 89.4 cm3/g-mol, handbook value 9.16.
  double const heat = Internal("spenthalpy", "kJ/g-mol", 33.83);
  double const volume = Internal("spvol", "cm3/g-mol", 89.4);
  double const square = (heat - 2478.95952865) / volume / 4.18321 / 1000.0;
  EXPECT_NEAR(std::sqrt(square), 9.16, 0.01);
  // The divisor converts kJ/m3 to cal/cm3, with a calorie close to the defined ones.
  double joules = (heat - 2478.95952865) / volume;
  ASSERT_EQ(Convert("heatval", "kJ/m3", "cal/cm3", joules), 0);
  EXPECT_NEAR(joules / square, 1.0, 0.001);
}

TEST_F(UnitConversionTest, SpecificGravityTakesApiDegreesAndDensities) {
  EXPECT_NEAR(Internal("petrodensity", "API", 10.0), 1.0, 1e-15);
  EXPECT_NEAR(Internal("petrodensity", "API", 35.0), 141.5 / 166.5, 1e-15);
  EXPECT_NEAR(Internal("petrodensity", "kg/m3", 849.0), 849.0 / 999.016, 1e-15);
  EXPECT_NEAR(Internal("petrodensity", "g/cm3", 0.849), 849.0 / 999.016, 1e-15);
  EXPECT_NEAR(Internal("petrodensity", "lb/ft3", 53.0), 53.0 * kPound / kFoot3 / 999.016, 1e-14);
  EXPECT_EQ(Internal("petrodensity", "spgr", 0.85), 0.85);
  double value = 141.5 / 166.5;
  ASSERT_EQ(Convert("petrodensity", "spgr", "API", value), 0);
  EXPECT_NEAR(value, 35.0, 1e-12);
  value = 0.999016;
  ASSERT_EQ(Convert("liqdensgrav", "g/cm3", "API", value), 0);
  EXPECT_NEAR(value, 10.0, 1e-12);
}

TEST_F(UnitConversionTest, WhatHasNoCounterpartStaysAndIsAFailure) {
  double value = -131.5;
  EXPECT_FALSE(ConvertToInternal("petrodensity", "API", value));
  EXPECT_EQ(value, -131.5);
  value = 0.0;
  EXPECT_EQ(Convert("petrodensity", "spgr", "API", value), kUomNoValue);
  EXPECT_EQ(value, 0.0);
  value = 1e308;
  EXPECT_FALSE(ConvertToInternal("pres", "MPa", value));
  EXPECT_EQ(value, 1e308);
}

TEST_F(UnitConversionTest, UndefinedAndEndlessValuesPass) {
  double value = gen_GetUndefDouble();
  EXPECT_TRUE(ConvertToInternal("pres", "Pa", value));
  EXPECT_EQ(value, gen_GetUndefDouble());
  value = INFINITY;
  EXPECT_TRUE(ConvertToInternal("pres", "Pa", value));
  EXPECT_EQ(value, INFINITY);
  value = NAN;
  EXPECT_TRUE(ConvertToInternal("temp", "C", value));
  EXPECT_TRUE(std::isnan(value));
}

TEST_F(UnitConversionTest, EveryUnitOfEveryListGoesToInternalAndBack) {
  UnitTable table;
  ASSERT_EQ(ReadUnitTable(test::RealTableText(), table), UnitTableError::kNone);
  std::size_t units = 0;
  for (UnitList const& list : table.lists) {
    for (std::string const& unit : list.units) {
      for (double const start : {1.0, 0.0, 37.5, 1234.5678, -3.25}) {
        SCOPED_TRACE(list.name + " " + unit);
        double value = start;
        ASSERT_EQ(Convert(list.name.c_str(), unit.c_str(), "QRInternal", value), 0);
        ASSERT_EQ(Convert(list.name.c_str(), "qrinternal", unit.c_str(), value), 0);
        // The offset of a temperature or a gauge pressure costs digits near zero.
        bool const hasZero = list.name.substr(0, 4) == "Temp" || list.name.substr(0, 4) == "Pres";
        double const offset = hasZero ? 1.1e5 : 0.0;
        EXPECT_NEAR(value, start, 1e-15 * (8.0 * std::abs(start) + offset));
      }
      ++units;
    }
  }
  EXPECT_EQ(units, 509u);
}

TEST_F(UnitConversionTest, ConvertsWholeArrays) {
  double values[] = {0.0, 100.0, gen_GetUndefDouble(), -273.15};
  uom_Unit* source = OpenUnit("temp", "c");
  uom_Unit* target = OpenUnit("temp", "k");
  EXPECT_EQ(uom_ConvertArray(values, 4, source, target), 0);
  EXPECT_DOUBLE_EQ(values[0], 273.15);
  EXPECT_DOUBLE_EQ(values[1], 373.15);
  EXPECT_EQ(values[2], gen_GetUndefDouble());
  EXPECT_NEAR(values[3], 0.0, 1e-12);
  EXPECT_EQ(uom_ConvertArray(values, 0, source, target), 0);
  uom_Free(&source);
  uom_Free(&target);
}

}  // namespace
}  // namespace zel

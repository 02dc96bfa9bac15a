// Each relation among constants, and of constants with curves: with published values, which agree
// with what a calculation by hand gives, and with a mistake in one of them.
#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "tests/verify/data_check_fixture.h"
#include "verify/judge/relation_tables.h"

namespace zel {
namespace {

struct Stored {
  zelProperties index;
  double value;
};

// A straight line through a value, 30 K to both sides of it.
struct Point {
  zelCorrelations curve;
  double kelvin, value, slope;
};

struct Case {
  char const* rule;
  double expected;  // by hand
  Stored mistake;
  std::vector<Stored> constants;
  std::vector<Point> curves;
  char const* formula = "C6H6";

  friend void PrintTo(Case const& row, std::ostream* out) { *out << row.rule; }
};

// Benzene, if no other formula is given. Constants: handbooks of chemistry and of physical
// properties, in internal units; sums and methods recalculated outside this program.
std::vector<Case> const kCases = {
    {"formula-weight", 78.114, {propertyMW, 87.112}, {{propertyMW, 78.112}}, {}},
    {"carbon-number", 6, {propertyCNUM, 9}, {{propertyCNUM, 6}}, {}},
    {"critical",
     0.26815,
     {propertyZC, 0.286},
     {{propertyZC, 0.268}, {propertyTC, 562.05}, {propertyPC, 4895}, {propertyVC, 0.256}},
     {}},
    {"critical-acentric",
     0.26027,
     {propertyVC, 2.56},
     {{propertyVC, 0.256}, {propertyTC, 562.05}, {propertyPC, 4895}, {propertyACENTRIC, 0.2103}},
     {}},
    {"boiling-critical",
     529.86,
     {propertyTC, 288.9},  // in C
     {{propertyTC, 562.05}, {propertyNBP, 353.24}},
     {}},
    {"acentric",
     0.21018,
     {propertyACENTRIC, 0.1203},
     {{propertyACENTRIC, 0.2103}, {propertyTC, 562.05}, {propertyPC, 4895}},
     {{correlationVaporPressure, 393.435, 301.7, 7.3}}},
    {"acentric-boiling",
     0.20829,
     {propertyPC, 48.95},  // in bar
     {{propertyACENTRIC, 0.2103}, {propertyTC, 562.05}, {propertyPC, 4895}, {propertyNBP, 353.24}},
     {}},
    {"vapor-pressure",
     101.325,
     {propertyNBP, 335.24},
     {{propertyNBP, 353.24}},
     {{correlationVaporPressure, 353.24, 101.3, 3.09}}},
    {"critical-pressure",
     4895,
     {propertyPC, 489.5},
     {{propertyTC, 562.05}, {propertyPC, 4895}},
     {{correlationVaporPressure, 550.0, 4180, 62.0}}},
    {"triple-point",
     278.68,
     {propertyNMP, 5.53},  // in C
     {{propertyTTP, 278.67}, {propertyNMP, 278.68}},
     {}},
    {"melting-boiling",
     353.24,
     {propertyNBP, 80.09},
     {{propertyNMP, 278.68}, {propertyNBP, 353.24}},
     {}},
    {"melting-critical",
     562.05,
     {propertyTC, 56.205},
     {{propertyNMP, 278.68}, {propertyTC, 562.05}},
     {}},
    {"triple-pressure",
     4.77,
     {propertyPTP, 0.0479},  // in bar
     {{propertyTTP, 278.67}, {propertyPTP, 4.785}},
     {{correlationVaporPressure, 278.67, 4.77, 0.15}}},
    {"triple-below-boiling",
     101.325,
     {propertyPTP, 478.5},
     {{propertyTTP, 278.67}, {propertyPTP, 4.785}, {propertyNBP, 353.24}},
     {}},
    {"molar-volume",
     0.089413,
     {propertyMVOL25C, 0.08491},
     {{propertyMVOL25C, 0.08941}},
     {{correlationLiquidDensity, 298.15, 11.184, -0.0138}}},
    {"specific-gravity",
     0.88463,
     {propertySG60F, 0.8289},
     {{propertySG60F, 0.8829}, {propertyMW, 78.112}},
     {{correlationLiquidDensity, 288.71, 11.314, -0.0138}}},
    {"gravity-volume",
     0.88254,
     {propertySG60F, 0.8289},
     {{propertySG60F, 0.8829}, {propertyMW, 78.112}, {propertyMVOL25C, 0.08941}},
     {}},
    {"rackett",
     0.26991,
     {propertyRACKETT, 0.2969},
     {{propertyRACKETT, 0.2696}, {propertyTC, 562.05}, {propertyPC, 4895}},
     {{correlationLiquidDensity, 337.23, 10.634, -0.0145}}},
    {"rackett-volume",
     0.26943,
     {propertyRACKETT, 0.2969},
     {{propertyRACKETT, 0.2696},
      {propertyTC, 562.05},
      {propertyPC, 4895},
      {propertyMVOL25C, 0.08941}},
     {}},
    {"rackett-acentric",
     0.27211,
     {propertyRACKETT, 0.2069},
     {{propertyRACKETT, 0.2696}, {propertyACENTRIC, 0.2103}},
     {}},
    {"characteristic-volume",
     0.25593,
     {propertyACENTRIC, 2.103},
     {{propertyTC, 562.05}, {propertyACENTRIC, 0.2103}},
     {{correlationLiquidDensity, 337.23, 10.634, -0.0145},
      {correlationCharacteristicVolume, 337.23, 0.2564, 0}}},
    {"characteristic-molar-volume",
     0.25509,
     {propertyMVOL25C, 0.0981},
     {{propertyTC, 562.05}, {propertyACENTRIC, 0.2103}, {propertyMVOL25C, 0.08941}},
     {{correlationCharacteristicVolume, 298.15, 0.2564, 0}}},
    {"characteristic-critical",
     0.256,
     {propertyVC, 0.526},
     {{propertyVC, 0.256}},
     {{correlationCharacteristicVolume, 298.15, 0.2564, 0}}},
    {"boiling-volume",
     0.25807,
     {propertyVC, 0.526},
     {{propertyVC, 0.256}, {propertyNBP, 353.24}},
     {{correlationLiquidDensity, 353.24, 10.415, -0.015}}},
    {"critical-volume",
     0.25593,
     {propertyVC, 0.526},
     {{propertyVC, 0.256}, {propertyTC, 562.05}, {propertyACENTRIC, 0.2103}},
     {{correlationLiquidDensity, 337.23, 10.634, -0.0145}}},
    {"critical-molar-volume",
     0.25509,
     {propertyVC, 0.526},
     {{propertyVC, 0.256},
      {propertyTC, 562.05},
      {propertyACENTRIC, 0.2103},
      {propertyMVOL25C, 0.08941}},
     {}},
    {"critical-density",
     3.90625,
     {propertyVC, 0.526},
     {{propertyVC, 0.256}, {propertyTC, 562.05}},
     {{correlationLiquidDensity, 562.05, 3.9, -0.1}}},
    {"parachor",
     206.065,
     {propertyPARACHOR, 250.1},
     {{propertyPARACHOR, 205.1}, {propertyTC, 562.05}, {propertyNBP, 353.24}},
     {{correlationSurfaceTension, 298.15, 0.02821, -0.00013},
      {correlationLiquidDensity, 298.15, 11.184, -0.0138}}},
    {"parachor-volume",
     202.64,
     {propertyPARACHOR, 250.1},
     {{propertyPARACHOR, 205.1}, {propertyMVOL25C, 0.08941}, {propertyTC, 562.05}},
     {}},
    {"parachor-density",
     205.787,
     {propertyPARACHOR, 250.1},
     {{propertyPARACHOR, 205.1}, {propertyTC, 562.05}, {propertyPC, 4895}},
     {{correlationLiquidDensity, 337.23, 10.634, -0.0145}}},
    {"parachor-critical",
     199.475,
     {propertyPARACHOR, 2051},
     {{propertyPARACHOR, 205.1}, {propertyVC, 0.256}, {propertyTC, 562.05}},
     {}},
    {"waals-volume",
     3.26932,
     {propertyVDWV, 3.7818},
     {{propertyVDWV, 3.1878}, {propertyMVOL25C, 0.08941}, {propertyTC, 562.05}},
     {}},
    {"waals-density",
     3.28193,
     {propertyVDWV, 31.878},
     {{propertyVDWV, 3.1878}, {propertyTC, 562.05}},
     {{correlationLiquidDensity, 337.23, 10.634, -0.0145}}},
    {"waals-area", 2.76461, {propertyVDWA, 4.2}, {{propertyVDWA, 2.4}, {propertyVDWV, 3.1878}}, {}},
    {"combustion",
     -3135588,
     {propertyHCOMBUST, 3136000},
     {{propertyHCOMBUST, -3136000},
      {propertyHFORMATION, 82880},
      {propertyNMP, 278.68},
      {propertyNBP, 353.24}},
     {{correlationLatentHeat, 298.15, 33830, -57}}},
    {"lower-heating",
     3136000,
     {propertyLHV, 749520},  // in kcal
     {{propertyHCOMBUST, -3136000}, {propertyLHV, 3135600}},
     {}},
    {"gross-heating",
     3267612,
     {propertyGHV, 3135600},
     {{propertyGHV, 3267600}, {propertyLHV, 3135600}},
     {}},
    {"gibbs-energy",
     126666.6,
     {propertyGFORMATION, 12966},
     {{propertyGFORMATION, 129660}, {propertyHFORMATION, 82880}, {propertyMW, 78.112}},
     {{correlationIdealGasCp, 298.15, 82.4, 0.26}}},
    {"element-heat", 0, {propertyHFORMATION, 9160}, {{propertyHFORMATION, 0}}, {}, "N2"},
    {"element-gibbs", 0, {propertyGFORMATION, 9160}, {{propertyGFORMATION, 0}}, {}, "N2"},
    {"element-dipole", 0, {propertyDIPOLE, 0.2}, {{propertyDIPOLE, 0}}, {}, "Ar"},
    {"latent-heat",
     30750,
     {propertyHVAPNBP, 37020},
     {{propertyHVAPNBP, 30720}, {propertyNBP, 353.24}},
     {{correlationLatentHeat, 353.24, 30750, -65}}},
    {"boiling-slope",
     30283.3,                  // the slope is 3.09 of 101.35 kPa
     {propertyHVAPNBP, 7342},  // in cal
     {{propertyHVAPNBP, 30720}, {propertyNBP, 353.24}, {propertyTC, 562.05}, {propertyPC, 4895}},
     {{correlationVaporPressure, 353.24, 101.35, 3.09}}},
    {"boiling-heat",
     30548.5,
     {propertyHVAPNBP, 37020},
     {{propertyHVAPNBP, 30720}, {propertyNBP, 353.24}, {propertyTC, 562.05}, {propertyPC, 4895}},
     {}},
    {"trouton",
     31182.6,
     {propertyHVAPNBP, 7342},  // in cal
     {{propertyHVAPNBP, 30720}, {propertyNBP, 353.24}},
     {}},
    {"boiling-enthalpy",
     38000,
     {propertyHVTB, 83000},
     {{propertyHVTB, 38000}, {propertyHLTB, 7280}, {propertyHVAPNBP, 30720}},
     {}},
    {"boiling-entropy",
     283.966,  // 197 + 30720/353.24
     {propertySVTB, 248},
     {{propertySVTB, 284}, {propertySLTB, 197}, {propertyHVAPNBP, 30720}, {propertyNBP, 353.24}},
     {}},
    {"solubility",
     9.15437,
     {propertySOLUPARA, 18.73},  // in (J/cm3)^0.5
     {{propertySOLUPARA, 9.158}, {propertyTC, 562.05}},
     {{correlationLatentHeat, 298.15, 33830, -57},
      {correlationLiquidDensity, 298.15, 11.184, -0.0138}}},
    {"solubility-volume",
     9.15455,
     {propertySOLUPARA, 1.958},
     {{propertySOLUPARA, 9.158}, {propertyTC, 562.05}, {propertyMVOL25C, 0.08941}},
     {{correlationLatentHeat, 298.15, 33830, -57}}},
    {"solubility-gas",
     6.75067,
     {propertySOLUPARA, 56.8},
     {{propertySOLUPARA, 5.68}, {propertyTC, 190.56}, {propertyNBP, 111.66}},
     {{correlationLatentHeat, 111.66, 8170, -40}, {correlationLiquidDensity, 111.66, 26.33, -0.09}},
     "CH4"},
    {"lower-limit", 0.013588, {propertyLOFLAMM, 0.12}, {{propertyLOFLAMM, 0.012}}, {}},
    {"lower-limit-heat",
     0.013233,
     {propertyLOFLAMM, 0.12},
     {{propertyLOFLAMM, 0.012}, {propertyHCOMBUST, -3136000}},
     {}},
    {"upper-limit", 0.10055, {propertyHIFLAMM, 0.008}, {{propertyHIFLAMM, 0.08}}, {}},
    {"flammable-range",
     0.012,
     {propertyHIFLAMM, 0.008},
     {{propertyHIFLAMM, 0.08}, {propertyLOFLAMM, 0.012}},
     {}},
    {"flash-pressure",
     1.70226,
     {propertyLOFLAMM, 1.2},  // in percent
     {{propertyFLASHPOINT, 262}, {propertyLOFLAMM, 0.012}},
     {{correlationVaporPressure, 262, 1.95, 0.06}}},
    {"flash-boiling",
     272.249,
     {propertyFLASHPOINT, -11},  // in C
     {{propertyFLASHPOINT, 262}, {propertyNBP, 353.24}},
     {}},
    {"flash-limit",
     263.229,
     {propertyFLASHPOINT, 226},
     {{propertyFLASHPOINT, 262}, {propertyNBP, 353.24}, {propertyLOFLAMM, 0.012}},
     {}},
    {"ignition-flash",
     262,
     {propertyAUTOIGNITION, 77.1},
     {{propertyAUTOIGNITION, 771}, {propertyFLASHPOINT, 262}},
     {}},
    {"dielectric",
     2.2843,
     {propertyDIELECTRIC, 22.825},
     {{propertyDIELECTRIC, 2.2825}, {propertyTDIELECTRIC, 293.2}},
     {{correlationDielectric, 293.2, 2.2843, -0.002}}},
    {"dipole-dielectric",
     2.40668,
     {propertyDIPOLE, 9.607},  // in 1e-30 C m
     {{propertyDIPOLE, 2.88}, {propertyDIELECTRIC, 21.01}, {propertyTDIELECTRIC, 293.2}},
     {{correlationLiquidDensity, 293.2, 13.6, -0.019}},
     "C3H6O"},
};

class JudgeConstantRelationsTest : public ::testing::TestWithParam<Case> {
 protected:
  // Of the data of the case, with one value instead of its own.
  std::optional<Outcome> Find(Stored const* instead) {
    Case const& data = GetParam();
    test::GoodComponent component = Bare(data);
    ComponentView view;
    component.Fill(*view.Face());
    if (instead != nullptr) view.Face()->SetProperty(instead->index, instead->value);
    records_.emplace_back(view, CheckedItem("own", CheckedBank("PURECOMP", "TEST"), {}, "A", "A"));
    Substance substance;
    substance.Add(records_.back());
    Reading reading(records_.back(), substance);
    for (Relation const* const relation : AllRelations()) {
      if (std::string_view(relation->rule.id) == data.rule)
        return relation->find(reading, relation->rule);
    }
    return std::nullopt;
  }

 private:
  static test::GoodComponent Bare(Case const& data) {
    test::GoodComponent component;
    component.formula = data.formula;
    component.change = [&data](IZelPureComp& c) {
      for (std::uint32_t i = 0; i < kJudgedConstants; ++i) c.SetProperty(i, gen_GetUndefDouble());
      for (std::uint32_t i = 0; i < kJudgedCurves; ++i) c.ResetCorrelation(i);
      for (Stored const& row : data.constants) c.SetProperty(row.index, row.value);
      for (Point const& row : data.curves) {
        constexpr double kReach = 30.0;
        test::GoodComponent::Line(c, row.curve, row.kelvin - kReach, row.kelvin + kReach,
                                  row.value - row.slope * row.kelvin, row.slope);
      }
    };
    return component;
  }

  std::deque<Record> records_;
};

TEST_P(JudgeConstantRelationsTest, AgreesWithPublishedValues) {
  std::optional<Outcome> const outcome = Find(nullptr);
  ASSERT_TRUE(outcome);
  EXPECT_LE(outcome->deviation, 1.0);
  constexpr double kDigits = 2e-4;
  EXPECT_NEAR(outcome->expected, GetParam().expected, kDigits * std::abs(GetParam().expected));
}

TEST_P(JudgeConstantRelationsTest, DeviatesByAMistake) {
  std::optional<Outcome> const outcome = Find(&GetParam().mistake);
  ASSERT_TRUE(outcome);
  EXPECT_GT(outcome->deviation, 1.0);
}

INSTANTIATE_TEST_SUITE_P(Rows, JudgeConstantRelationsTest, ::testing::ValuesIn(kCases),
                         [](auto const& row) {
                           std::string name = row.param.rule;
                           std::replace(name.begin(), name.end(), '-', '_');
                           return name;
                         });

TEST(JudgeConstantRelationTablesTest, EachRelationHasACase) {
  std::set<std::string> cases;
  for (Case const& row : kCases) cases.insert(row.rule);
  std::set<std::string> rules;
  for (auto const& table :
       {ConstantRelations(), VolumeRelations(), ThermalRelations(), HazardRelations()}) {
    for (Relation const& row : table) rules.insert(row.rule.id);
  }
  EXPECT_EQ(cases, rules);
}

}  // namespace
}  // namespace zel

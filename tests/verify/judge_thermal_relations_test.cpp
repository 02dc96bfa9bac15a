// The relations of heats, hazards and dielectric constants.
#include "tests/verify/judge_relation_case.h"

namespace zel::test {
namespace {

// Benzene, if no other formula is given. Constants: handbooks of chemistry and of physical
// properties, in internal units; sums and methods recalculated outside this program.
std::vector<RelationCase> const kThermalCases = {
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
    {"oxygen-combustion",
     -3086250,
     {propertyHCOMBUST, 3136000},
     {{propertyHCOMBUST, -3136000}},
     {}},
    {"fusion-entropy",
     9866,  // between the limits
     {propertyHFUSIONNMP, 41280},
     {{propertyHFUSIONNMP, 9866}, {propertyNMP, 278.68}},
     {}},
};

std::vector<RelationCase> const kHazardCases = {
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
    {"dielectric-temperature",
     293.2,  // between the limits
     {propertyTDIELECTRIC, 20.05},
     {{propertyTDIELECTRIC, 293.2}, {propertyNMP, 278.68}, {propertyTC, 562.05}},
     {}},
    {"dipole-dielectric",
     2.40668,
     {propertyDIPOLE, 9.607},  // in 1e-30 C m
     {{propertyDIPOLE, 2.88}, {propertyDIELECTRIC, 21.01}, {propertyTDIELECTRIC, 293.2}},
     {{correlationLiquidDensity, 293.2, 13.6, -0.019}},
     "C3H6O"},
};

class ThermalRelationsTest : public JudgeRelationCaseTest {};

TEST_P(ThermalRelationsTest, AgreesWithPublishedValues) { Agrees(); }
TEST_P(ThermalRelationsTest, DeviatesByAMistake) { Deviates(); }

INSTANTIATE_TEST_SUITE_P(Rows, ThermalRelationsTest, ::testing::ValuesIn(kThermalCases), NameOf);

TEST(ThermalRelationTableTest, EachHasACase) {
  EXPECT_EQ(RulesOf(kThermalCases), RulesOf(ThermalRelations()));
}

class HazardRelationsTest : public JudgeRelationCaseTest {};

TEST_P(HazardRelationsTest, AgreesWithPublishedValues) { Agrees(); }
TEST_P(HazardRelationsTest, DeviatesByAMistake) { Deviates(); }

INSTANTIATE_TEST_SUITE_P(Rows, HazardRelationsTest, ::testing::ValuesIn(kHazardCases), NameOf);

TEST(HazardRelationTableTest, EachHasACase) {
  EXPECT_EQ(RulesOf(kHazardCases), RulesOf(HazardRelations()));
}

}  // namespace
}  // namespace zel::test

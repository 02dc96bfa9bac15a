// The relations of constants and of volumes.
#include "tests/verify/judge_relation_case.h"

namespace zel::test {
namespace {

// Benzene, if no other formula is given. Constants: handbooks of chemistry and of physical
// properties, in internal units; sums and methods recalculated outside this program.
std::vector<RelationCase> const kConstantCases = {
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
};

std::vector<RelationCase> const kVolumeCases = {
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
};

class ConstantRelationsTest : public JudgeRelationCaseTest {};

TEST_P(ConstantRelationsTest, AgreesWithPublishedValues) { Agrees(); }
TEST_P(ConstantRelationsTest, DeviatesByAMistake) { Deviates(); }

INSTANTIATE_TEST_SUITE_P(Rows, ConstantRelationsTest, ::testing::ValuesIn(kConstantCases), NameOf);

TEST(ConstantRelationTableTest, EachHasACase) {
  EXPECT_EQ(RulesOf(kConstantCases), RulesOf(ConstantRelations()));
}

class VolumeRelationsTest : public JudgeRelationCaseTest {};

TEST_P(VolumeRelationsTest, AgreesWithPublishedValues) { Agrees(); }
TEST_P(VolumeRelationsTest, DeviatesByAMistake) { Deviates(); }

INSTANTIATE_TEST_SUITE_P(Rows, VolumeRelationsTest, ::testing::ValuesIn(kVolumeCases), NameOf);

TEST(VolumeRelationTableTest, EachHasACase) {
  EXPECT_EQ(RulesOf(kVolumeCases), RulesOf(VolumeRelations()));
}

// Published sizes of UNIQUAC; the sums are recalculated by hand.
std::vector<RelationCase> const kGroupCases = {
    {"waals-volume-groups",
     3.1878,
     {propertyVDWV, 3.8178},
     {{propertyVDWV, 3.1878}},
     {},
     "C6H6",
     "c1ccccc1"},
    {"waals-area-groups", 2.4, {propertyVDWA, 4.2}, {{propertyVDWA, 2.4}}, {}, "C6H6", "c1ccccc1"},
};

class JudgeGroupRelationsTest : public JudgeRelationCaseTest {};
TEST_P(JudgeGroupRelationsTest, AgreesWithPublishedValues) { Agrees(); }
TEST_P(JudgeGroupRelationsTest, DeviatesByAMistake) { Deviates(); }
INSTANTIATE_TEST_SUITE_P(Rows, JudgeGroupRelationsTest, ::testing::ValuesIn(kGroupCases), NameOf);

TEST(JudgeGroupRelationTablesTest, EachRelationHasACase) {
  EXPECT_EQ(RulesOf(kGroupCases), RulesOf(GroupRelations()));
}

// Ethanol: the sum is 2.1055, and 2.5756 with the hydroxyl group of UNIFAC.
class JudgeHydroxylTest : public JudgeRelationCaseTest {};
TEST_P(JudgeHydroxylTest, IsTakenInEitherSize) { Agrees(); }
TEST_P(JudgeHydroxylTest, DeviatesByAMistake) { Deviates(); }
INSTANTIATE_TEST_SUITE_P(Rows, JudgeHydroxylTest,
                         ::testing::Values(RelationCase{"waals-volume-groups",
                                                        2.1054,
                                                        {propertyVDWV, 2.3},
                                                        {{propertyVDWV, 2.1055}},
                                                        {},
                                                        "C2H6O",
                                                        "CCO"},
                                           RelationCase{"waals-volume-groups",
                                                        2.5755,
                                                        {propertyVDWV, 2.3},
                                                        {{propertyVDWV, 2.5755}},
                                                        {},
                                                        "C2H6O",
                                                        "CCO"}));

// What is not a sum of the groups: another isomer, all hydrogen on one atom, two double bonds of an
// atom, oxygen that is bound to sulfur, no structure.
class JudgeNoGroupsTest : public JudgeRelationCaseTest {};
TEST_P(JudgeNoGroupsTest, NothingIsCompared) { EXPECT_FALSE(Find(nullptr)); }
RelationCase Volume(char const* formula, char const* smiles) {
  return {"waals-volume-groups", 0, {propertyVDWV, 1}, {{propertyVDWV, 2}}, {}, formula, smiles};
}
INSTANTIATE_TEST_SUITE_P(Rows, JudgeNoGroupsTest,
                         ::testing::Values(Volume("CH4", "C"), Volume("C3H4", "C=C=C"),
                                           Volume("C2H6OS", "CS(C)=O"), Volume("C2H4O2", "COC=O"),
                                           Volume("N2", "N#N"), Volume("C2H6O", "")));

}  // namespace
}  // namespace zel::test

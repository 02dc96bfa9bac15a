// Each relation of curves: with published curves of benzene, which agree with what a calculation by
// hand gives, and with a mistake in one of them.
#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "tests/verify/data_check_fixture.h"
#include "verify/judge/relation_tables.h"

namespace zel {
namespace {

struct Curve {
  zelCorrelations index;
  std::int32_t equation;
  double tMin, tMax;
  std::vector<double> coefficients;
};

// Published correlations of a handbook of chemical engineering, of surface tension, solid and ideal
// gas of other collections; in internal units.
std::vector<Curve> const kBenzene = {
    {correlationVaporPressure, 20, 278.68, 562.05, {76.19924, -6486.2, -9.2194, 6.9844e-6, 2}},
    {correlationIdealEnthalpy,
     1,
     50,
     1000,
     {-14138.8357, 29.525, -0.0257085, 3.98133333e-4, -4.117e-7, 1.36922e-10}},
    {correlationLiquidEnthalpy, 1, 278.68, 500, {-40808.1084, 162.94, -0.17247, 2.85206667e-4}},
    {correlationLatentHeat, 15, 278.68, 562.05, {45346, 0.39053}},
    {correlationLiquidDensity, 16, 278.68, 562.05, {1.0259, 0.26666, 562.05, 0.28394}},
    {correlationLiquidThermal, 1, 278.68, 413.1, {0.23444, -0.00030572}},
    {correlationVaporThermal, 19, 339.15, 1000, {1.652e-5, 1.3117, 491}},
    {correlationLiquidViscosity, 20, 278.68, 545, {14.41945528, 294.68, -2.794}},
    {correlationVaporViscosity, 19, 278.68, 1000, {3.134e-5, 0.9676, 7.9}},
    {correlationSurfaceTension, 15, 278.65, 562.01, {0.07178, 1.23593}},
    {correlationSolidEnthalpy,
     1,
     40,
     278.7,
     {-607.3280804, -0.12461, 0.45451, -2.01633333e-3, 5.72125e-6, -4.9276e-9}},
    {correlationSolidDensity, 1, 273.1, 278.68, {13.059, -0.00034838}},
    {correlationIdealGasCp, 1, 50, 1000, {29.525, -0.051417, 1.1944e-3, -1.6468e-6, 6.8461e-10}},
    {correlationLiquidCp, 1, 278.68, 500, {162.94, -0.34494, 0.00085562}},
    {correlationSolidCp, 1, 40, 278.7, {-0.12461, 0.90902, -6.049e-3, 2.2885e-5, -2.4638e-8}},
    {correlationDielectric, 1, 293, 513, {2.6706, -0.00091648, -1.4257e-6}},
    {correlationCharacteristicVolume, 1, 278.68, 500, {0.2564}}};

struct Constant {
  zelProperties index;
  double value;
};
constexpr Constant kConstants[] = {{propertyMW, 78.112},  {propertyTC, 562.05},
                                   {propertyPC, 4895},    {propertyACENTRIC, 0.2103},
                                   {propertyNMP, 278.68}, {propertyNBP, 353.24}};

// A curve with another equation, other limits or coefficients; what is empty or zero stays.
struct Mistake {
  zelCorrelations index;
  double tMin, tMax;
  std::vector<double> coefficients;
  std::int32_t equation = 0;
};

struct Case {
  char const* rule;
  double expected;  // by hand; 0 where the expected value is one of the curve itself or a limit
  Mistake mistake;

  friend void PrintTo(Case const& row, std::ostream* out) { *out << row.rule; }
};

std::vector<Case> const kCases = {
    // In C, a digit lost, another scale.
    {"vapor-pressure-begin", 0, {correlationVaporPressure, 5.53, 562.05, {}}},
    {"vapor-pressure-end", 0, {correlationVaporPressure, 278.68, 1011.7, {}}},
    {"latent-heat-begin", 0, {correlationLatentHeat, 551.83, 562.05, {}}},
    {"latent-heat-end", 0, {correlationLatentHeat, 278.68, 835.2, {}}},
    {"liquid-density-begin", 0, {correlationLiquidDensity, 501.6, 562.05, {}}},
    {"liquid-density-end", 0, {correlationLiquidDensity, 278.68, 288.9, {}}},
    {"liquid-thermal-begin", 0, {correlationLiquidThermal, 5.53, 413.1, {}}},
    {"liquid-thermal-end", 0, {correlationLiquidThermal, 278.68, 743.6, {}}},
    {"liquid-viscosity-begin", 0, {correlationLiquidViscosity, 27.868, 545, {}}},
    {"liquid-viscosity-end", 0, {correlationLiquidViscosity, 278.68, 981, {}}},
    {"surface-tension-begin", 0, {correlationSurfaceTension, 5.5, 562.01, {}}},
    {"surface-tension-end", 0, {correlationSurfaceTension, 278.65, 288.86, {}}},
    {"liquid-enthalpy-begin", 0, {correlationLiquidEnthalpy, 501.62, 900, {}}},
    {"liquid-enthalpy-end", 0, {correlationLiquidEnthalpy, 501.62, 900, {}}},
    {"liquid-cp-begin", 0, {correlationLiquidCp, 27.868, 500, {}}},
    {"liquid-cp-end", 0, {correlationLiquidCp, 278.68, 773.15, {}}},
    {"dielectric-begin", 0, {correlationDielectric, 19.85, 239.85, {}}},
    {"dielectric-end", 0, {correlationDielectric, 19.85, 51.3, {}}},
    {"characteristic-volume-begin", 0, {correlationCharacteristicVolume, 5.53, 500, {}}},
    {"characteristic-volume-end", 0, {correlationCharacteristicVolume, 278.68, 900, {}}},
    {"vapor-thermal-begin", 0, {correlationVaporThermal, 612.3, 1273.15, {}}},
    {"vapor-thermal-end", 0, {correlationVaporThermal, 339.15, 100, {}}},
    {"vapor-viscosity-begin", 0, {correlationVaporViscosity, 5.53, 726.85, {}}},
    {"vapor-viscosity-end", 0, {correlationVaporViscosity, 278.68, 1800, {}}},
    {"ideal-enthalpy-begin", 0, {correlationIdealEnthalpy, 1000, 50, {}}},
    {"ideal-enthalpy-end", 0, {correlationIdealEnthalpy, 50, 10000, {}}},
    {"ideal-cp-begin", 0, {correlationIdealGasCp, 323.15, 1273.15, {}}},
    {"ideal-cp-end", 0, {correlationIdealGasCp, 50, 100, {}}},
    {"solid-enthalpy-begin", 0, {correlationSolidEnthalpy, 400, 2787, {}}},
    {"solid-enthalpy-end", 0, {correlationSolidEnthalpy, 40, 562.05, {}}},
    {"solid-density-begin", 0, {correlationSolidDensity, 546.25, 551.83, {}}},
    {"solid-density-end", 0, {correlationSolidDensity, 273.1, 551.83, {}}},
    {"solid-cp-begin", 0, {correlationSolidCp, -233.15, 5.55, {}}},
    {"solid-cp-end", 0, {correlationSolidCp, 40, 551.85, {}}},
    // A lost sign, most often.
    {"vapor-pressure-rises",
     0,
     {correlationVaporPressure, 0, 0, {76.19924, -6486.2, -9.2194, -6.9844e-5, 2}}},
    {"latent-heat-falls", 0, {correlationLatentHeat, 0, 0, {45346, -0.39053}}},
    {"liquid-density-falls",
     0,
     {correlationLiquidDensity, 0, 0, {1.0259, 0.26666, 562.05, -0.28394}}},
    {"liquid-thermal-falls", 0, {correlationLiquidThermal, 278.68, 500, {0.23444, 0.0030572}}},
    {"vapor-thermal-rises", 0, {correlationVaporThermal, 0, 0, {1.652e-5, -1.3117, 491}}},
    {"liquid-viscosity-falls", 0, {correlationLiquidViscosity, 0, 0, {14.41945528, 294.68, 2.794}}},
    {"vapor-viscosity-rises", 0, {correlationVaporViscosity, 0, 0, {3.134e-5, -0.9676, 7.9}}},
    {"surface-tension-falls", 0, {correlationSurfaceTension, 0, 0, {0.07178, -1.23593}}},
    {"solid-density-falls", 0, {correlationSolidDensity, 0, 0, {13.059, 0.34838}}},
    {"ideal-cp-rises",
     0,
     {correlationIdealGasCp, 0, 0, {29.525, -0.51417, 1.1944e-3, -1.6468e-6, 6.8461e-10}}},
    {"liquid-cp-rises", 0, {correlationLiquidCp, 0, 0, {162.94, -0.34494, -0.00085562}}},
    {"solid-cp-rises",
     0,
     {correlationSolidCp, 0, 0, {-0.12461, 0.90902, -6.049e-3, 2.2885e-5, -6.4638e-8}}},
    {"dielectric-falls", 0, {correlationDielectric, 0, 0, {2.6706, 0.0091648, -1.4257e-6}}},
    {"vapor-pressure-bounds",
     0,
     {correlationVaporPressure, 0, 0, {86.19924, -6486.2, -9.2194, 6.9844e-6, 2}}},
    {"liquid-density-bounds",
     0,
     {correlationLiquidDensity, 0, 0, {1025.9, 0.26666, 562.05, 0.28394}}},
    {"liquid-thermal-bounds", 0, {correlationLiquidThermal, 0, 0, {2.3444, -0.00030572}}},
    {"vapor-thermal-bounds", 0, {correlationVaporThermal, 0, 0, {1.652e-2, 1.3117, 491}}},
    {"liquid-viscosity-bounds",
     0,
     {correlationLiquidViscosity, 0, 0, {4.41945528, 294.68, -2.794}}},
    {"vapor-viscosity-bounds", 0, {correlationVaporViscosity, 0, 0, {3.134e-8, 0.9676, 7.9}}},
    {"surface-tension-bounds", 0, {correlationSurfaceTension, 0, 0, {71.78, 1.23593}}},
    {"solid-density-bounds", 0, {correlationSolidDensity, 0, 0, {1020, -0.00034838}}},
    {"dielectric-bounds", 0, {correlationDielectric, 0, 0, {0.26706, -0.00091648, -1.4257e-6}}},
    {"ideal-cp-positive", 0, {correlationIdealGasCp, 0, 0, {-295.25}}},
    {"liquid-cp-positive", 0, {correlationLiquidCp, 0, 0, {-162.94, -0.34494, 0.00085562}}},
    {"solid-cp-positive", 0, {correlationSolidCp, 0, 0, {-1246.1}}},
    // Another equation, swapped digits, another power of ten.
    {"latent-heat-law", 0, {correlationLatentHeat, 0, 0, {45346, 0.93053}}},
    {"surface-tension-law", 0, {correlationSurfaceTension, 0, 0, {0.07178, 2.13593}}},
    {"liquid-density-law", 0, {correlationLiquidDensity, 0, 0, {1.0259, 0.26666, 562.05, 0.82394}}},
    {"liquid-thermal-law", 0, {correlationLiquidThermal, 0, 0, {0.23444, 0.0030572}}},
    {"vapor-viscosity-law", 0, {correlationVaporViscosity, 0, 0, {3.134e-5, 0.09676, 7.9}}},
    {"vapor-thermal-law", 0, {correlationVaporThermal, 0, 0, {1.652e-5, 3.3117, 491}}},
    {"liquid-viscosity-law", 0, {correlationLiquidViscosity, 0, 0, {14.41945528, 2946.8, -2.794}}},
    {"vapor-pressure-law",
     0,
     {correlationVaporPressure, 0, 0, {76.19924, -648.62, -9.2194, 6.9844e-6, 2}}},
    {"vapor-pressure-bend",
     0,
     {correlationVaporPressure, 0, 0, {76.19924, -6486.2, -9.2194, 6.9844e-5, 2}}},
    {"liquid-viscosity-bend",
     0,
     {correlationLiquidViscosity, 0, 0, {14.41945528, 294.68, -2.794, 2e-5, 2}}},
    {"vapor-pressure-cold",
     5.47687,
     {correlationVaporPressure, 0, 0, {71.59407, -6486.2, -9.2194, 6.9844e-6, 2}}},
    {"vapor-pressure-warm",
     1548.845,
     {correlationVaporPressure, 0, 0, {71.59407, -6486.2, -9.2194, 6.9844e-6, 2}}},
    // J for cal, and others.
    {"ideal-enthalpy-slope",
     0,
     {correlationIdealGasCp, 0, 0, {29.525, -0.051417, 1.9144e-3, -1.6468e-6, 6.8461e-10}}},
    {"liquid-enthalpy-slope", 0, {correlationLiquidCp, 0, 0, {126.94, -0.34494, 0.00085562}}},
    {"solid-enthalpy-slope",
     0,
     {correlationSolidCp, 0, 0, {-0.12461, 0.99002, -6.049e-3, 2.2885e-5, -2.4638e-8}}},
    {"ideal-enthalpy-zero",
     0,
     {correlationIdealEnthalpy,
      0,
      0,
      {-11438.8357, 29.525, -0.0257085, 3.98133333e-4, -4.117e-7, 1.36922e-10}}},
    {"liquid-enthalpy-zero",
     0,
     {correlationLiquidEnthalpy, 0, 0, {-48008.1084, 162.94, -0.17247, 2.85206667e-4}}},
    {"solid-enthalpy-zero",
     0,
     {correlationSolidEnthalpy,
      0,
      0,
      {-6073.280804, -0.12461, 0.45451, -2.01633333e-3, 5.72125e-6, -4.9276e-9}}},
    {"kirchhoff", 30251.13, {correlationLiquidCp, 0, 0, {38.94, -0.08244, 0.000204}}},
    {"liquid-cp-gas", 130.2622, {correlationLiquidCp, 0, 0, {38.94, -0.08244, 0.000204}}},
    {"liquid-enthalpy-gas",
     130.2622,
     {correlationLiquidEnthalpy, 0, 0, {-40808.1084, 62.94, -0.17247, 2.85206667e-4}}},
    {"solid-cp-liquid",
     106.6094,
     {correlationSolidCp, 0, 0, {-0.12461, 0.090902, -6.049e-4, 2.2885e-6, -2.4638e-9}}},
    {"solid-enthalpy-liquid",
     106.6094,
     {correlationSolidEnthalpy,
      0,
      0,
      {-607.3280804, -0.12461, 0.045451, -2.01633333e-3, 5.72125e-6, -4.9276e-9}}},
    {"solid-cp-gas",
     99.3769,
     {correlationSolidCp, 0, 0, {-0.12461, 0.090902, -6.049e-4, 2.2885e-6, -2.4638e-9}}},
    {"solid-enthalpy-gas",
     99.3769,
     {correlationSolidEnthalpy,
      0,
      0,
      {-607.3280804, -0.12461, 0.045451, -2.01633333e-3, 5.72125e-6, -4.9276e-9}}},
    {"ideal-cp-atoms",
     89.1227,
     {correlationIdealGasCp, 0, 0, {29.525, -0.15147, 1.1944e-3, -1.6468e-6, 6.8461e-10}}},
    {"ideal-cp-atoms-warm",
     140.9883,
     {correlationIdealGasCp, 0, 0, {49.525, -0.051417, 1.1944e-3, -1.6468e-6, 6.8461e-10}}},
    {"ideal-cp-atoms-hot",
     210.9795,
     {correlationIdealGasCp, 0, 0, {29.525, -0.051417, 1.1944e-3, -1.6648e-6, 6.8461e-10}}},
    {"ideal-enthalpy-atoms",
     89.1227,
     {correlationIdealEnthalpy,
      0,
      0,
      {-14138.8357, 9.525, -0.0257085, 3.98133333e-4, -4.117e-7, 1.36922e-10}}},
    {"ideal-enthalpy-atoms-warm",
     140.9883,
     {correlationIdealEnthalpy,
      0,
      0,
      {-14138.8357, 9.525, -0.0257085, 3.98133333e-4, -4.117e-7, 1.36922e-10}}},
    {"ideal-enthalpy-atoms-hot",
     210.9795,
     {correlationIdealEnthalpy,
      0,
      0,
      {-14138.8357, 9.525, -0.0257085, 3.98133333e-4, -4.117e-7, 1.36922e-10}}},
    {"liquid-cp-atoms", 132.5325, {correlationLiquidCp, 0, 0, {126.94, -0.34494, 0.00085562}}},
    {"liquid-enthalpy-atoms",
     132.5325,
     {correlationLiquidEnthalpy, 0, 0, {-40808.1084, 126.94, -0.17247, 2.85206667e-4}}},
    {"ideal-cp-limits",
     0,
     {correlationIdealGasCp, 0, 0, {29.525, -0.051417, 1.1944e-3, -1.6468e-6, 8.6461e-10}}},
    {"ideal-enthalpy-limits",
     0,
     {correlationIdealEnthalpy,
      0,
      0,
      {-14138.8357, 29.525, -0.257085, 3.98133333e-4, -4.117e-7, 1.36922e-10}}},
    {"solid-cp-limits",
     0,
     {correlationSolidCp, 0, 0, {-0.12461, 9.0902, -6.049e-3, 2.2885e-5, -2.4638e-8}}},
    {"solid-enthalpy-limits",
     0,
     {correlationSolidEnthalpy,
      0,
      0,
      {-607.3280804, -0.12461, -0.45451, -2.01633333e-3, 5.72125e-6, -4.9276e-9}}},
    {"clapeyron-cold", 34810.39, {correlationLatentHeat, 0, 0, {54346, 0.39053}}},
    {"clapeyron", 29838.49, {correlationLatentHeat, 0, 0, {54346, 0.39053}}},
    {"clapeyron-warm", 22551.72, {correlationLatentHeat, 0, 0, {54346, 0.39053}}},
    {"eucken", 0.02450538, {correlationVaporThermal, 0, 0, {1.256e-5, 1.3117, 491}}},
    {"viscosity-slope",
     0.6107608,
     {correlationLiquidViscosity, 0, 0, {14.41945528, 2946.8, -2.794}}},
    {"surface-energy", 0.02154782, {correlationSurfaceTension, 0, 0, {0.7178, 1.23593}}},
    {"solid-density-liquid", 12.90702, {correlationSolidDensity, 0, 0, {10.359, -0.00034838}}},
    {"latent-heat-state", 28375.68, {correlationLatentHeat, 0, 0, {54346, 0.39053}}},
    {"vapor-viscosity-state",
     0.01273932,
     {correlationVaporViscosity, 0, 0, {1.334e-5, 0.9676, 7.9}}},
    {"liquid-thermal-state", 0.1305066, {correlationLiquidThermal, 0, 0, {0.43244, -0.00030572}}},
    {"liquid-viscosity-state",
     0.1657058,
     {correlationLiquidViscosity, 0, 0, {16.72204, 294.68, -2.794}}},
    {"surface-tension-state", 0.02252692, {correlationSurfaceTension, 0, 0, {0.01778, 1.23593}}},
    {"liquid-density-state",
     9.685869,
     {correlationLiquidDensity, 0, 0, {1.2059, 0.26666, 562.05, 0.28394}}},
};

class JudgeCurveRelationsTest : public ::testing::TestWithParam<Case> {
 protected:
  std::optional<Outcome> Find(Mistake const* mistake) {
    test::ComponentBank bank;
    bank->SetIdentity(1, 71432, 0, kIds, "Benzene", "C6H6", 0);
    for (Constant const& row : kConstants) bank->SetProperty(row.index, row.value);
    for (Curve curve : kBenzene) {
      if (mistake != nullptr && mistake->index == curve.index) Change(curve, *mistake);
      bank->SetCorrelation(curve.index, curve.equation, 10, 0, 1, 1,
                           static_cast<std::int32_t>(curve.coefficients.size()), curve.tMin,
                           curve.tMax, curve.coefficients.data());
    }
    Record const record(
        ComponentView(dynamic_cast<PureComp_i&>(*bank.Get())),
        CheckedItem("own", CheckedBank("PURECOMP", "TEST"), {1}, "BENZENE", "TEST BENZENE"));
    Substance substance;
    substance.Add(record);
    Reading reading(record, substance);
    for (Relation const* const relation : AllRelations()) {
      if (std::string_view(relation->rule.id) != GetParam().rule) continue;
      std::optional<Outcome> outcome = relation->find(reading, relation->rule);
      EXPECT_TRUE(!outcome || HasRead(reading, outcome->about));
      return outcome;
    }
    return std::nullopt;
  }

 private:
  static constexpr char kIds[12][9] = {"BENZENE"};

  static void Change(Curve& curve, Mistake const& mistake) {
    if (mistake.tMax != 0.0) {
      curve.tMin = mistake.tMin;
      curve.tMax = mistake.tMax;
    }
    if (!mistake.coefficients.empty()) curve.coefficients = mistake.coefficients;
    if (mistake.equation != 0) curve.equation = mistake.equation;
  }
  static bool HasRead(Reading const& reading, Datum datum) {
    return std::any_of(reading.Parts().begin(), reading.Parts().end(),
                       [&](Tension::Part const& part) { return part.claim.datum == datum; });
  }
};

TEST_P(JudgeCurveRelationsTest, AgreesWithPublishedCurves) {
  std::optional<Outcome> const outcome = Find(nullptr);
  ASSERT_TRUE(outcome);
  EXPECT_LE(outcome->deviation, 1.0) << outcome->value << " " << outcome->expected;
  constexpr double kDigits = 2e-4;
  double const expected = GetParam().expected;
  if (expected != 0.0) {
    EXPECT_NEAR(outcome->expected, expected, kDigits * expected);
  }
}

TEST_P(JudgeCurveRelationsTest, DeviatesByAMistake) {
  std::optional<Outcome> const outcome = Find(&GetParam().mistake);
  ASSERT_TRUE(outcome);
  EXPECT_GT(outcome->deviation, 1.0) << outcome->value << " " << outcome->expected;
}

INSTANTIATE_TEST_SUITE_P(Rows, JudgeCurveRelationsTest, ::testing::ValuesIn(kCases),
                         [](auto const& row) {
                           std::string name = row.param.rule;
                           std::replace(name.begin(), name.end(), '-', '_');
                           return name;
                         });

// What is compared is not a value of the curve; findings name it.
class JudgeRangeRelationTest : public JudgeCurveRelationsTest {};

TEST_P(JudgeRangeRelationTest, NamesTheEnd) {
  std::optional<Outcome> const outcome = Find(&GetParam().mistake);
  ASSERT_TRUE(outcome);
  EXPECT_STREQ(outcome->quantity, "the end of the range of ");
  EXPECT_STREQ(outcome->unit, "K");
  EXPECT_EQ(outcome->value, 835.2);
  EXPECT_NEAR(outcome->expected, 1.035 * 562.05, 1e-9);
}

INSTANTIATE_TEST_SUITE_P(LatentHeat, JudgeRangeRelationTest, ::testing::Values(kCases[3]));

TEST(JudgeCurveRelationTablesTest, EachRelationHasACase) {
  std::set<std::string> cases;
  for (Case const& row : kCases) cases.insert(row.rule);
  std::set<std::string> rules;
  cases.insert("fusion-enthalpy");  // in judge_smooth_relations_test.cpp
  for (auto const& table :
       {CurveRangeRelations(), CurveShapeRelations(), CurveLawRelations(), CurveEnthalpyRelations(),
        CurveHeatRelations(), CurvePairRelations(), CurveStateRelations()}) {
    for (Relation const& row : table) rules.insert(row.rule.id);
  }
  EXPECT_EQ(cases, rules);
}

}  // namespace
}  // namespace zel

// Poles in curves; the step of enthalpy from solid to liquid.
#include <gtest/gtest.h>

#include <algorithm>
#include <deque>
#include <set>
#include <string>
#include <vector>

#include "tests/verify/data_check_fixture.h"
#include "verify/judge/relation_tables.h"

namespace zel::test {
namespace {

// A component with the constants and curves that a test gives it.
class JudgeCurvesTest : public ::testing::Test {
 protected:
  void Constant(zelProperties index, double value) { component_->SetProperty(index, value); }
  void Curve(zelCorrelations index, std::int32_t equation, double tMin, double tMax,
             std::vector<double> const& coefficients) {
    component_->SetCorrelation(index, equation, 10, 0, 1, 1,
                               static_cast<std::int32_t>(coefficients.size()), tMin, tMax,
                               coefficients.data());
  }
  std::optional<Outcome> Find(std::string_view rule) {
    records_.emplace_back(ComponentView(dynamic_cast<PureComp_i&>(*component_.Get())),
                          CheckedItem("own", CheckedBank("PURECOMP", "TEST"), {1}, "A", "A"));
    Substance substance;
    substance.Add(records_.back());
    Reading reading(records_.back(), substance);
    for (Relation const* const relation : AllRelations()) {
      if (relation->rule.id == rule) return relation->find(reading, relation->rule);
    }
    ADD_FAILURE() << rule;
    return std::nullopt;
  }

 private:
  ComponentBank component_;
  std::deque<Record> records_;
};

struct SmoothCase {
  char const* rule;
  zelCorrelations curve;

  friend void PrintTo(SmoothCase const& row, std::ostream* out) { *out << row.rule; }
};

std::vector<SmoothCase> const kSmoothCases = {
    {"vapor-pressure-smooth", correlationVaporPressure},
    {"ideal-enthalpy-smooth", correlationIdealEnthalpy},
    {"liquid-enthalpy-smooth", correlationLiquidEnthalpy},
    {"latent-heat-smooth", correlationLatentHeat},
    {"liquid-density-smooth", correlationLiquidDensity},
    {"liquid-thermal-smooth", correlationLiquidThermal},
    {"vapor-thermal-smooth", correlationVaporThermal},
    {"liquid-viscosity-smooth", correlationLiquidViscosity},
    {"vapor-viscosity-smooth", correlationVaporViscosity},
    {"surface-tension-smooth", correlationSurfaceTension},
    {"solid-enthalpy-smooth", correlationSolidEnthalpy},
    {"solid-density-smooth", correlationSolidDensity},
    {"ideal-cp-smooth", correlationIdealGasCp},
    {"liquid-cp-smooth", correlationLiquidCp},
    {"solid-cp-smooth", correlationSolidCp},
    {"dielectric-smooth", correlationDielectric},
};

class JudgeSmoothRelationsTest : public JudgeCurvesTest,
                                 public ::testing::WithParamInterface<SmoothCase> {};

// 1e-4 T^3, and the same over 1 - C/T.
TEST_P(JudgeSmoothRelationsTest, PoleInTheRangeDeviates) {
  constexpr std::int32_t kPowerOverSum = 19;
  Constant(propertyTC, 600.0);
  Curve(GetParam().curve, kPowerOverSum, 250.0, 450.0, {1e-4, 3.0});
  EXPECT_FALSE(Find(GetParam().rule)) << "smooth: nothing is found";
  Curve(GetParam().curve, kPowerOverSum, 250.0, 450.0, {1e-4, 3.0, -352.0});
  std::optional<Outcome> const outcome = Find(GetParam().rule);
  ASSERT_TRUE(outcome);
  EXPECT_GT(outcome->deviation, 2.0);
  EXPECT_NEAR(outcome->temperature, 352.0, 40.0);
  // Below its range a curve may have any pole.
  Curve(GetParam().curve, kPowerOverSum, 420.0, 450.0, {1e-4, 3.0, -352.0});
  EXPECT_FALSE(Find(GetParam().rule));
}

INSTANTIATE_TEST_SUITE_P(Rows, JudgeSmoothRelationsTest, ::testing::ValuesIn(kSmoothCases),
                         [](auto const& row) {
                           std::string name = row.param.rule;
                           std::replace(name.begin(), name.end(), '-', '_');
                           return name;
                         });

TEST(JudgeSmoothRelationTablesTest, EachRelationHasACase) {
  std::set<std::string> cases, rules;
  for (SmoothCase const& row : kSmoothCases) cases.insert(row.rule);
  for (Relation const& row : CurveSmoothRelations()) rules.insert(row.rule.id);
  EXPECT_EQ(cases, rules);
}

// The solid is zero at 0 K; at the melting point, 278.68 K, it has 27868 kJ/kg-mol.
class JudgeFusionTest : public JudgeCurvesTest {
 protected:
  JudgeFusionTest() {
    Constant(propertyNMP, 278.68);
    Constant(propertyHFUSIONNMP, 9866.0);
    Curve(correlationSolidEnthalpy, 1, 40.0, 278.68, {0.0, 100.0});
  }
  // The enthalpy of the liquid at the melting point; the heat capacity is 160 kJ/kg-mol-K.
  void Liquid(double atMelting) {
    Curve(correlationLiquidEnthalpy, 1, 278.68, 500.0, {atMelting - 160.0 * 278.68, 160.0});
  }
};

TEST_F(JudgeFusionTest, StepIsTheHeatOfFusion) {
  Liquid(27868.0 + 9866.0);
  std::optional<Outcome> const outcome = Find("fusion-enthalpy");
  ASSERT_TRUE(outcome);
  EXPECT_NEAR(outcome->expected, 9866.0, 1e-6);
  EXPECT_LT(outcome->deviation, 1e-6);
  // The zero of the liquid is at 42.8 K, which is that of the solid.
  EXPECT_LE(Find("liquid-enthalpy-zero")->deviation, 1.0);
  EXPECT_LE(Find("solid-enthalpy-zero")->deviation, 1.0);
}

TEST_F(JudgeFusionTest, AnotherHeatOfFusionDeviates) {
  Liquid(27868.0 + 9866.0);
  Constant(propertyHFUSIONNMP, 9866.0 / 4.184);
  EXPECT_GT(Find("fusion-enthalpy")->deviation, 10.0);
  EXPECT_GT(Find("liquid-enthalpy-zero")->deviation, 1.0);
}

TEST_F(JudgeFusionTest, EnthalpiesWithAZeroEachHaveNoStep) {
  Liquid(160.0 * (278.68 - 298.15));  // zero at 25 C
  EXPECT_FALSE(Find("fusion-enthalpy"));
}

TEST_F(JudgeFusionTest, CurvesThatEndFarFromTheMeltingPointHaveNoStep) {
  Curve(correlationLiquidEnthalpy, 1, 300.0, 500.0, {37734.0 - 160.0 * 278.68, 160.0});
  EXPECT_FALSE(Find("fusion-enthalpy"));
  Curve(correlationLiquidEnthalpy, 1, 285.0, 500.0, {37734.0 - 160.0 * 278.68, 160.0});
  ASSERT_TRUE(Find("fusion-enthalpy"));
  EXPECT_NEAR(Find("fusion-enthalpy")->expected, 9866.0, 1e-6);
}

}  // namespace
}  // namespace zel::test

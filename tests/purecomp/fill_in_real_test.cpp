// Derived constants of real components compared with published ones.
//
// Data and published values are those of the ChemSep pure component data (Kooijman and Taylor). The
// tolerances reflect the accuracy of the estimates, not of their computation.
#include <cmath>

#include "purecomp/fill_in.h"
#include "tests/purecomp/fill_in_fixture.h"

namespace zel {
namespace {

using test::FillInTest;
using test::kLatentHeatAt;
using test::kVaporPressureAt;

using FillInOfReal = FillInTest;

// Enthalpies of formation are those of the ideal gas; the heats of combustion here are published
// for the gas too.
TEST_F(FillInOfReal, HeatOfCombustionOfGases) {
  struct {
    char const* formula;
    double formation;
    double combustion;  // kJ/kg-mol
  } const rows[] = {{"CH4", -74520.0, -802620.0},
                    {"C2H6", -83820.0, -1428640.0},
                    {"C3H8", -104680.0, -2043110.0},
                    {"H2S", -20630.0, -518000.0}};
  for (auto const& row : rows) {
    Clear();
    SetFormula(row.formula);
    Set(propertyHFORMATION, row.formation);
    EXPECT_NEAR(Completed(propertyHCOMBUST), row.combustion, 30.0) << row.formula;
    EXPECT_NEAR(c.completed[propertyLHV], -row.combustion, 30.0) << row.formula;
  }
}

TEST_F(FillInOfReal, ParachorOfAlkanesWithinThreePercent) {
  struct {
    char const* name;
    double mw;
    double tc;
    double vc;
    double parachor;  // (dyne/cm)^0.25 cm3/g-mol
  } const rows[] = {{"methane", 16.04246, 190.56, 0.0986, 72.54203},
                    {"ethane", 30.06904, 305.32, 0.1455, 110.7812},
                    {"propane", 44.09562, 369.83, 0.2, 150.7075},
                    {"n-heptane", 100.202, 540.2, 0.428, 308.7254},
                    {"n-decane", 142.2817, 617.7, 0.624, 425.13}};
  for (auto const& row : rows) {
    Clear();
    Set(propertyMW, row.mw);
    Set(propertyTC, row.tc);
    Set(propertyVC, row.vc);
    EXPECT_NEAR(Completed(propertyPARACHOR), row.parachor, 0.03 * row.parachor) << row.name;
    EXPECT_EQ(Label(propertyPARACHOR), row.mw > 142.0 ? "from MW" : "from Vc,Tc");
  }
}

// Water at 60 F is 10 degrees API by definition. The Watson factor distinguishes the families:
// about 13 for paraffins, 11 for naphthenes, 10 for light aromatics.
TEST_F(FillInOfReal, GravityAndWatsonFactor) {
  Set(propertySG60F, 1.0);
  EXPECT_EQ(Completed(50), 10.0);
  struct {
    char const* name;
    double gravity;
    double boiling;
    double watson;
  } const rows[] = {{"n-heptane", 0.686815, 371.57, 12.7},
                    {"n-decane", 0.732721, 447.3, 12.7},
                    {"cyclohexane", 0.781822, 353.93, 11.0},
                    {"benzene", 0.882619, 353.24, 9.7},
                    {"toluene", 0.870044, 383.79, 10.15}};
  for (auto const& row : rows) {
    Clear();
    Set(propertySG60F, row.gravity);
    Set(propertyNBP, row.boiling);
    EXPECT_NEAR(Completed(52), row.watson, 0.06) << row.name;
  }
}

TEST_F(FillInOfReal, CriticalCompressibilityToItsThreeDigits) {
  struct {
    char const* name;
    double tc;
    double pc;
    double vc;
    double zc;
  } const rows[] = {{"ethane", 305.32, 4872.0, 0.1455, 0.279},
                    {"toluene", 591.75, 4108.0, 0.316, 0.264},
                    {"n-heptane", 540.2, 2740.0, 0.428, 0.261},
                    {"water", 647.14, 22064.0, 0.05595, 0.229}};
  for (auto const& row : rows) {
    Clear();
    Set(propertyTC, row.tc);
    Set(propertyPC, row.pc);
    Set(propertyVC, row.vc);
    EXPECT_NEAR(Completed(propertyZC), row.zc, 0.0006) << row.name;
  }
}

// Vapor pressures are exp(C1 + C2/T + C3 ln T + C4 T^C5) in Pa, heats of vaporization
// C1 tau^(C2 + C3 Tr + C4 Tr^2 + C5 Tr^3) in J/kg-mol.
TEST_F(FillInOfReal, SolubilityParameterAndAcentricFactor) {
  struct {
    char const* name;
    double tc;
    double pc;
    double volume;
    double solubility;  // (cal/cm3)^0.5
    double acentric;
    double exactSolubility;  // of these data, computed independently of the code
    double exactAcentric;
    std::vector<double> pressure;
    std::vector<double> heat;
  } const rows[] = {
      {"toluene",
       591.75,
       4108.0,
       0.1068,
       8.922099,
       0.264,
       8.9280014358898294,
       0.25232694313288073,
       {32.89891, -5013.81, -1.348918, -1.869928e-06, 2.0},
       {53752000.0, 0.50341, 0.24755, -0.72898, 0.37794}},
      {"n-heptane",
       540.2,
       2740.0,
       0.1475,
       7.450564,
       0.35,
       7.436806757543614,
       0.3493409169123646,
       {89.80457, -7084.845, -10.17918, 7.441708e-06, 2.0},
       {42757640.0, -1.051245, 4.601706, -5.558946, 2.369496}},
      {"cyclohexane",
       553.5,
       4073.0,
       0.1087,
       8.183887,
       0.211,
       8.1819661538138236,
       0.21157315890872451,
       {79.82965, -6246.688, -8.778766, 6.933726e-06, 2.0},
       {44856000.0, 0.35691, 0.26181, -0.47647, 0.25741}},
      {"water",
       647.14,
       22064.0,
       0.0180674,
       23.3979,
       0.344,
       23.431874929637754,
       0.34491561957874559,
       {74.55502, -7295.586, -7.442448, 4.2881e-06, 2.0},
       {59640000.0, 0.86515, -1.1134, 0.67764, -0.026925}},
      {"ethanol",
       513.92,
       6148.0,
       0.0586177,
       12.77938,
       0.649,
       12.777063268504361,
       0.65181108921061684,
       {88.0754, -7652.06, -9.471507, 5.928087e-06, 2.0},
       {63899000.0, 1.2782, -2.673, 2.7973, -1.0209}},
  };
  constexpr int kExtendedAntoine = 20;
  constexpr int kWatson = 15;
  for (auto const& row : rows) {
    Clear();
    Set(propertyTC, row.tc);
    Set(propertyPC, row.pc);
    Set(propertyMVOL25C, row.volume);
    std::vector<double> pressure = row.pressure;
    std::vector<double> heat = row.heat;
    pressure[0] -= std::log(1000.0);  // to kPa
    heat[0] /= 1000.0;                // to kJ/kg-mol
    SetCorrelation(kVaporPressureAt, kExtendedAntoine, pressure);
    SetCorrelation(kLatentHeatAt, kWatson, heat);
    CompleteComponent(c);
    EXPECT_NEAR(c.completed[propertySOLUPARA], row.exactSolubility, 1e-12) << row.name;
    EXPECT_NEAR(c.completed[propertyACENTRIC], row.exactAcentric, 1e-12) << row.name;
    EXPECT_NEAR(c.completed[propertySOLUPARA], row.solubility, 0.002 * row.solubility) << row.name;
    EXPECT_NEAR(c.completed[propertyACENTRIC], row.acentric, 0.012) << row.name;
  }
}

}  // namespace
}  // namespace zel

// Atoms, weight fractions and heats. Expected numbers without a remark were computed independently
// of the code with 40 digits.
#include <array>
#include <cmath>

#include "purecomp/fill_in.h"
#include "tests/purecomp/fill_in_fixture.h"

namespace zel {
namespace {

using test::FillInTest;
using test::kUndefined;

using FillInAtoms = FillInTest;
using FillInHeats = FillInTest;

using Atoms = std::array<double, 5>;  // C, H, N, O, S

TEST_F(FillInAtoms, CountsComeFromTheFormula) {
  struct {
    char const* formula;
    Atoms atoms;
  } const rows[] = {
      {"C2H6", {2, 6, 0, 0, 0}},
      {"C3H7NO2S", {3, 7, 1, 2, 1}},
      {"(CH3)2CO", {3, 6, 0, 1, 0}},
      {"HOOCCH2NH2", {2, 5, 1, 2, 0}},
      {"C2H5Br", {2, 5, 0, 0, 0}},
      {"CD4", {1, 0, 0, 0, 0}},
      {"Ca(OH)2", {0, 2, 0, 2, 0}},
      {"CuSO4.5H2O", {0, 0, 0, 4, 1}},
      {"CoClNaSi", {0, 0, 0, 0, 0}},
      {"petro", {0, 0, 0, 0, 0}},
      {"Petro", {0, 0, 0, 0, 0}},
      {"MIXTURE", {0, 0, 0, 0, 0}},
      {"", {0, 0, 0, 0, 0}},
      // After a failure the counts up to it remain.
      {"C2H6)N", {2, 6, 0, 0, 0}},
      {"C2h6", {2, 0, 0, 0, 0}},
      {"C2H6.5N", {2, 6, 0, 0, 0}},
      {"O(C2H6", {0, 0, 0, 1, 0}},
      {"c2H6", {0, 0, 0, 0, 0}},
      // An unknown symbol has no slot here and therefore no effect.
      {"XxC2H6", {2, 6, 0, 0, 0}},
      {"C9999H12345", {9999, 1234, 0, 0, 0}},
      {"((C9999)9999)9999", {2147483647, 0, 0, 0, 0}},
  };
  for (auto const& row : rows) {
    Clear();
    SetFormula(row.formula);
    CompleteComponent(c);
    for (std::size_t i = 0; i < row.atoms.size(); ++i) {
      EXPECT_EQ(c.completed[60 + i], row.atoms[i]) << row.formula << " " << i;
      EXPECT_EQ(Label(60 + i), "from chemical formula");
    }
    EXPECT_EQ(c.completed[propertyCNUM], row.atoms[0]);
    EXPECT_EQ(Label(propertyCNUM), "from chemical formula");
    EXPECT_EQ(c.fixed[propertyCNUM], kUndefined);
    EXPECT_EQ(c.completed[65], kUndefined);
  }
}

TEST_F(FillInAtoms, StoredCarbonNumberWinsForTheCarbonCountAlone) {
  SetFormula("C2H6");
  Set(propertyCNUM, 2.0, "LIB");
  CompleteComponent(c);
  EXPECT_EQ(c.completed[60], 2.0);
  EXPECT_EQ(Label(60), "from CNUM");
  EXPECT_EQ(Label(61), "from chemical formula");
  EXPECT_EQ(Label(propertyCNUM), "LIB");

  Set(propertyMW, 30.0);
  Set(propertyCNUM, 2.5, "LIB");
  Set(propertyHFORMATION, 0.0);
  CompleteComponent(c);
  EXPECT_EQ(c.completed[60], 2.5);
  EXPECT_EQ(c.completed[propertyCNUM], 2.5);
  EXPECT_DOUBLE_EQ(c.completed[70], 2.5 * 12.011 / 30.0);  // follows the stored number
  EXPECT_DOUBLE_EQ(c.completed[propertyHCOMBUST], -2.0 * 393510.016 - 3.0 * 241814.0);  // does not

  Set(propertyCNUM, std::nan(""));  // not above the undefined limit
  CompleteComponent(c);
  EXPECT_EQ(c.completed[60], 2.0);
  EXPECT_EQ(Label(60), "from chemical formula");
}

TEST_F(FillInAtoms, WeightFractionsAndTheirLabels) {
  SetFormula("C3H7NO2S");
  Set(propertyMW, 121.16);
  CompleteComponent(c);
  struct {
    std::size_t index;
    double value;
    char const* label;
  } const rows[] = {{70, 0.29740013205678442, "from CNUMB,MW_C,MW"},
                    {71, 0.058233578326180258, "from HNUMB,MW_H,MW"},
                    {72, 0.11560527401782767, "from NNUMB,MW_N,MW"},
                    {73, 0.26410366457576758, "from ONUMB,MW_O,MW"},
                    {74, 0.26465831957741829, "from SNUMB,MW_S,MW"},
                    {80, 5.1070214231207784, "from CWTFRAC,HWTFRAC"}};
  for (auto const& row : rows) {
    EXPECT_NEAR(c.completed[row.index], row.value, 4e-16 * row.value) << row.index;
    EXPECT_EQ(Label(row.index), row.label);
  }
  EXPECT_EQ(c.completed[75], kUndefined);
  EXPECT_EQ(Label(75), "");
  EXPECT_EQ(c.completed[81], kUndefined);
}

TEST_F(FillInAtoms, WithoutHydrogenTheRatioIsZero) {
  for (char const* formula : {"petro", "CO2", "", "N2"}) {
    Clear();
    SetFormula(formula);
    Set(propertyMW, 44.0);
    CompleteComponent(c);
    EXPECT_EQ(c.completed[71], 0.0) << formula;
    EXPECT_EQ(c.completed[80], 0.0) << formula;
    EXPECT_EQ(Label(80), "defaulted to zero") << formula;
  }
  Clear();
  SetFormula("petro");
  Set(propertyMW, 200.0);
  CompleteComponent(c);
  for (std::size_t i = 60; i <= 64; ++i) {
    EXPECT_EQ(c.completed[i], 0.0);
    EXPECT_EQ(c.completed[i + 10], 0.0);
  }
  // Hydrogen alone has a ratio of 0, though not by default.
  SetFormula("H2");
  EXPECT_EQ(Completed(80), 0.0);
  EXPECT_EQ(Label(80), "from CWTFRAC,HWTFRAC");
}

TEST_F(FillInAtoms, FractionsOverAnUndefinedOrZeroMolecularWeight) {
  SetFormula("C2H6");
  CompleteComponent(c);
  EXPECT_DOUBLE_EQ(c.completed[70], -2.4022e-34);
  EXPECT_DOUBLE_EQ(c.completed[71], -6.0476403e-35);
  EXPECT_EQ(c.completed[80], 0.0);
  EXPECT_EQ(Label(80), "defaulted to zero");
  EXPECT_EQ(Label(70), "from CNUMB,MW_C,MW");
  Set(propertyMW, 0.0);
  CompleteComponent(c);
  EXPECT_TRUE(std::isinf(c.completed[70]));
  EXPECT_TRUE(std::isnan(c.completed[72]));
  EXPECT_TRUE(std::isnan(c.completed[80]));
  EXPECT_EQ(Label(80), "from CWTFRAC,HWTFRAC");
}

// --- heats --------------------------------------------------------------------------------------

constexpr double kStoredFormation = -83820.0;
constexpr double kEthaneCombustion = -1428642.032;
constexpr char kFromFormation[] = "from Heat of formation,CNUM,NHUM,SNUM";

TEST_F(FillInHeats, EachFollowsFromWhatIsThere) {
  struct {
    double combustion;
    double heating;
    double formation;
    double combustionAfter;
    double heatingAfter;
    char const* combustionLabel;
    char const* heatingLabel;
  } const rows[] = {
      {kUndefined, 1400.0, kUndefined, -1400.0, 1400.0, "from Lower Heating Value", ""},
      {kUndefined, 1400.0, kStoredFormation, -1400.0, 1400.0, "from Lower Heating Value", ""},
      {kUndefined, kUndefined, kStoredFormation, kEthaneCombustion, -kEthaneCombustion,
       kFromFormation, kFromFormation},
      {-1500.0, kUndefined, kUndefined, -1500.0, 1500.0, "", "from Heat of Combustion"},
      {-1500.0, kUndefined, kStoredFormation, -1500.0, 1500.0, "", "from Heat of Combustion"},
      {-1500.0, 1400.0, kUndefined, -1500.0, 1400.0, "", ""},
      {-1500.0, 1400.0, kStoredFormation, -1500.0, 1400.0, "", ""},
      {kUndefined, kUndefined, kUndefined, kUndefined, kUndefined, "", ""},
  };
  for (auto const& row : rows) {
    Clear();
    SetFormula("C2H6");
    Set(propertyHCOMBUST, row.combustion);
    Set(propertyLHV, row.heating);
    Set(propertyHFORMATION, row.formation);
    CompleteComponent(c);
    EXPECT_DOUBLE_EQ(c.completed[propertyHCOMBUST], row.combustionAfter);
    EXPECT_DOUBLE_EQ(c.completed[propertyLHV], row.heatingAfter);
    EXPECT_EQ(c.completed[propertyHFORMATION], row.formation) << "never touched";
    EXPECT_EQ(Label(propertyHCOMBUST), row.combustionLabel);
    EXPECT_EQ(Label(propertyLHV), row.heatingLabel);
    EXPECT_EQ(Label(propertyHFORMATION), "");
    EXPECT_EQ(c.fixed[propertyHCOMBUST], row.combustion);
    EXPECT_EQ(c.fixed[propertyLHV], row.heating);
  }
}

TEST_F(FillInHeats, OfCombustionByElement) {
  struct {
    char const* formula;
    double formation;
    double combustion;
  } const rows[] = {{"C", 0.0, -393510.016},
                    {"H2", 0.0, -241814.0},
                    {"H", 0.0, -120907.0},
                    {"S", 0.0, -296840.0},
                    {"N2O3", 0.0, 0.0},
                    {"petro", -7.0, 7.0},
                    {"CH4", -74520.0, -802618.016},
                    {"C3H7NO2S", -382000.0, -1941719.048},
                    {"H2O", -241814.0, 0.0}};
  for (auto const& row : rows) {
    Clear();
    SetFormula(row.formula);
    Set(propertyHFORMATION, row.formation);
    EXPECT_DOUBLE_EQ(Completed(propertyHCOMBUST), row.combustion) << row.formula;
    EXPECT_DOUBLE_EQ(c.completed[propertyLHV], -row.combustion) << row.formula;
  }
}

}  // namespace
}  // namespace zel

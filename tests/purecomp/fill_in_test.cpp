// Constants derived from constants. Expected numbers without a remark were computed independently
// of the code with 40 digits.
#include "purecomp/fill_in.h"

#include <bit>
#include <climits>
#include <cmath>

#include "tests/purecomp/fill_in_fixture.h"

namespace zel {
namespace {

using test::FillInTest;
using test::kUndefined;

using FillIn = FillInTest;

TEST_F(FillIn, PhaseAboveEightBecomesItsRemainder) {
  struct {
    std::int32_t stored;
    std::int32_t phase;
  } const rows[] = {{0, 0},  {1, 1},  {7, 7},   {8, 8},   {9, 1},       {15, 7},
                    {16, 0}, {17, 1}, {-1, -1}, {-9, -9}, {INT_MAX, 7}, {INT_MIN, INT_MIN}};
  for (auto const& row : rows) {
    c.phase = row.stored;
    CompleteComponent(c);
    EXPECT_EQ(c.phase, row.phase) << row.stored;
  }
}

TEST_F(FillIn, CopiesAllConstantsAndKeepsThemAsRead) {
  for (std::size_t i = 0; i < kConstants; ++i) Set(i, 1000.0 + static_cast<double>(i), "LIB");
  auto const fixed = c.fixed;
  CompleteComponent(c);
  EXPECT_EQ(c.fixed, fixed);
  auto const derived = [](std::size_t i) {
    return i == 50 || (i >= 52 && i <= 57) || (i >= 60 && i <= 64) || (i >= 70 && i <= 74) ||
           i == 80;
  };
  for (std::size_t i = 0; i < kConstants; ++i) {
    if (!derived(i)) {
      EXPECT_EQ(c.completed[i], fixed[i]) << i;
      EXPECT_EQ(Label(i), "LIB") << i;
    } else {
      EXPECT_NE(c.completed[i], fixed[i]) << i;
      EXPECT_NE(Label(i), "LIB") << i;
    }
  }
}

TEST_F(FillIn, OneMissingCriticalConstantFollowsFromTheOthers) {
  struct {
    std::size_t missing;
    double value;
  } const rows[] = {{propertyTC, 305.58458782866493},
                    {propertyPC, 4867.7816200404115},
                    {propertyVC, 0.14537402005662559},
                    {propertyZC, 0.27924177913073993}};
  for (auto const& row : rows) {
    Clear();
    Set(propertyTC, 305.32, "A");
    Set(propertyPC, 4872.0, "A");
    Set(propertyVC, 0.1455, "A");
    Set(propertyZC, 0.279, "A");
    Set(row.missing, kUndefined);
    EXPECT_NEAR(Completed(row.missing), row.value, 1e-14 * row.value);
    EXPECT_EQ(c.fixed[row.missing], kUndefined);
    EXPECT_EQ(Label(row.missing), "") << "derived critical constants have no label";
  }
}

TEST_F(FillIn, TheGasConstantHasAllItsDigits) {
  Set(propertyTC, 1.0);
  Set(propertyPC, 1.0);
  Set(propertyVC, 1.0);
  EXPECT_EQ(Completed(propertyZC), 0.12027223379575203);
  Clear();
  Set(propertyTC, 1.0);
  Set(propertyVC, 1.0);
  Set(propertyZC, 1.0);
  EXPECT_EQ(Completed(propertyPC), 1.0 / 0.12027223379575203);
}

TEST_F(FillIn, TwoOrMoreMissingCriticalConstantsStay) {
  std::size_t const all[] = {propertyTC, propertyPC, propertyVC, propertyZC};
  int subsets = 0;
  for (unsigned missing = 0; missing < 16; ++missing) {
    if (std::popcount(missing) < 2) continue;
    ++subsets;
    Clear();
    Set(propertyPARACHOR, 1.0);
    for (std::size_t i = 0; i < 4; ++i) {
      if ((missing >> i & 1) == 0) Set(all[i], 2.0);
    }
    CompleteComponent(c);
    for (std::size_t i = 0; i < 4; ++i) {
      EXPECT_EQ(c.completed[all[i]], (missing >> i & 1) == 0 ? 2.0 : kUndefined) << missing;
    }
  }
  EXPECT_EQ(subsets, 11);
}

// The undefined limit itself is undefined, the next number above it is not.
TEST_F(FillIn, ValuesAtTheLimitAndBelowAreUndefined) {
  Set(propertySG60F, -1e36);
  EXPECT_EQ(Completed(50), kUndefined);
  Set(propertySG60F, -1e35);
  EXPECT_EQ(Completed(50), kUndefined);
  Set(propertySG60F, std::nextafter(-1e35, 0.0));
  EXPECT_EQ(Completed(50), 141.5 / std::nextafter(-1e35, 0.0) - 131.5);
}

// --- consistency --------------------------------------------------------------------------------

class Consistency : public FillInTest {
 protected:
  // Pc Vc/(R Zc Tc) is `ratio`.
  void SetCriticals(double ratio, std::string_view tc, std::string_view pc, std::string_view vc,
                    std::string_view zc) {
    Set(propertyTC, 1.0, tc);
    Set(propertyPC, ratio, pc);
    Set(propertyVC, 1.0, vc);
    Set(propertyZC, 0.12027223379575203, zc);
  }
  // As after an earlier fill-in.
  void Mark(bool flag) {
    c.consistencyWarning = flag;
    CopyText("before", c.consistencyText.data(), c.consistencyText.size());
  }
  std::string Text() const { return c.consistencyText.data(); }
};

TEST_F(Consistency, ConstantsOfOneSourceAreTrusted) {
  SetCriticals(1.11, "Lib:PURECOMP", "Lib:PURECOMP", "LIB:PureComp", "lib:purecomp");
  Mark(true);
  CompleteComponent(c);
  EXPECT_FALSE(c.consistencyWarning);
  EXPECT_EQ(Text(), "before");
}

TEST_F(Consistency, ConstantsOfSeveralSourcesThatContradictAreWarnedOf) {
  struct {
    char const* tc;
    char const* pc;
    char const* vc;
    char const* zc;
  } const rows[] = {{"A", "B", "A", "A"}, {"A", "A", "B", "A"}, {"A", "A", "A", "B"},
                    {"B", "A", "A", "A"}, {"A", "", "A", "A"},  {"A", "AA", "A", "A"}};
  for (auto const& row : rows) {
    for (double ratio : {1.11, 0.89, 1.1001, 0.8999, -1.0, 1e30}) {
      Clear();
      CopyText("ETHANE", c.name.data(), c.name.size());
      SetCriticals(ratio, row.tc, row.pc, row.vc, row.zc);
      CompleteComponent(c);
      EXPECT_TRUE(c.consistencyWarning);
      EXPECT_EQ(Text(),
                "The [Pc*Vc/(R*Zc*Tc) = 1] consistency check is showing an error greater than 10% "
                "for ETHANE.");
    }
  }
}

TEST_F(Consistency, WithinTheToleranceNothingIsTouched) {
  for (bool flag : {false, true}) {
    for (double ratio : {1.0, 1.0999, 0.9001}) {
      SetCriticals(ratio, "A", "B", "C", "D");
      Mark(flag);
      CompleteComponent(c);
      EXPECT_EQ(c.consistencyWarning, flag);
      EXPECT_EQ(Text(), "before");
    }
  }
}

TEST_F(Consistency, WithAConstantMissingNothingIsTouched) {
  for (std::size_t missing : {propertyTC, propertyPC, propertyVC, propertyZC}) {
    SetCriticals(5.0, "A", "B", "C", "D");
    Set(missing, kUndefined);
    Mark(true);
    CompleteComponent(c);
    EXPECT_TRUE(c.consistencyWarning);
    EXPECT_EQ(Text(), "before");
  }
}

TEST_F(Consistency, TheNameIsNoFormat) {
  std::string const name = "%s%n%d%g 40 characters in all and %% too";
  ASSERT_EQ(name.size(), 40U);
  CopyText(name, c.name.data(), c.name.size());
  SetCriticals(2.0, "A", "B", "A", "A");
  CompleteComponent(c);
  EXPECT_EQ(
      Text(),
      "The [Pc*Vc/(R*Zc*Tc) = 1] consistency check is showing an error greater than 10% for " +
          name + ".");
}

// --- parachor -----------------------------------------------------------------------------------

TEST_F(FillIn, ParachorFromCriticalVolumeAndTemperature) {
  struct {
    double tc;
    double vc;
    double parachor;
  } const rows[] = {{190.56, 0.0986, 71.586936973136947},
                    {305.32, 0.1455, 113.38227849279422},
                    {540.2, 0.428, 313.27701899939184},
                    {562.05, 0.256, 243.47321864239716},
                    {305.32, -0.1455, -268.17504824786349},
                    {-305.32, 0.1455, -1908.7078166846635},
                    {1.0, 1.0, -5743.48437187},
                    {305.32, -1e35, -1.1580665911286771e88},
                    {-1e35, 0.1455, 8.7458087999928002e34},
                    {-1e35, -1e35, 2.8194674985806974e112}};
  for (auto const& row : rows) {
    for (double mw : {30.0, 142.0, kUndefined}) {
      Clear();
      Set(propertyMW, mw);
      Set(propertyTC, row.tc);
      Set(propertyVC, row.vc);
      EXPECT_NEAR(Completed(propertyPARACHOR), row.parachor, 2e-12 * std::fabs(row.parachor))
          << row.tc;
      EXPECT_EQ(Label(propertyPARACHOR), "from Vc,Tc");
      EXPECT_EQ(c.fixed[propertyPARACHOR], kUndefined);
    }
  }
}

TEST_F(FillIn, ParachorOfHeavyComponentsFromMolecularWeight) {
  Set(propertyMW, 142.1);
  Set(propertyTC, 600.0);
  Set(propertyVC, 0.6);
  EXPECT_DOUBLE_EQ(Completed(propertyPARACHOR), 424.932);
  EXPECT_EQ(Label(propertyPARACHOR), "from MW");
  Set(propertyMW, std::nextafter(142.0, 143.0));
  EXPECT_DOUBLE_EQ(Completed(propertyPARACHOR), 424.64);
  EXPECT_EQ(Label(propertyPARACHOR), "from MW");
}

TEST_F(FillIn, ParachorSeesADerivedCriticalConstant) {
  Set(propertyTC, 305.32);
  Set(propertyPC, 4872.0);
  Set(propertyZC, 0.279);  // the critical volume is then 0.14537402005662559
  CompleteComponent(c);
  double const derived = c.completed[propertyPARACHOR];
  Set(propertyVC, c.completed[propertyVC]);
  EXPECT_DOUBLE_EQ(Completed(propertyPARACHOR), derived);
  EXPECT_NEAR(derived, 113.38, 0.5);
}

TEST_F(FillIn, StoredParachorStays) {
  Set(propertyMW, 200.0);
  Set(propertyPARACHOR, 7.0, "LIB");
  EXPECT_EQ(Completed(propertyPARACHOR), 7.0);
  EXPECT_EQ(Label(propertyPARACHOR), "LIB");
}

// --- gravity and boiling point ------------------------------------------------------------------

TEST_F(FillIn, GravityAndWatsonFactor) {
  struct {
    double gravity;
    double boiling;
    double api;
    double watson;
  } const rows[] = {{0.870044, 383.79, 31.135452919622456, 10.160478710336338},
                    {0.686815, 371.57, 74.523456098075901, 12.733015789663988},
                    {0.30, 111.66, 340.16666666666667, 19.525498092909871},
                    {1.0, 373.15, 10.0, 8.7576042738700599},
                    {0.5, -20.0, 151.5, -6.6038544977892534}};
  for (auto const& row : rows) {
    Clear();
    Set(propertySG60F, row.gravity);
    Set(propertyNBP, row.boiling);
    CompleteComponent(c);
    EXPECT_NEAR(c.completed[50], row.api, 1e-13 * row.api);
    EXPECT_NEAR(c.completed[52], row.watson, 1e-14 * std::fabs(row.watson));
    EXPECT_EQ(Label(50), "from sg6oF");
    EXPECT_EQ(Label(52), "from NBP,sg6oF");
    EXPECT_EQ(c.completed[51], kUndefined);
  }
}

TEST_F(FillIn, GravityNeedsWhatItComesFrom) {
  Set(propertyNBP, 300.0);
  CompleteComponent(c);
  EXPECT_EQ(c.completed[50], kUndefined);
  EXPECT_EQ(c.completed[52], kUndefined);
  EXPECT_EQ(Label(50), "");
  EXPECT_EQ(Label(52), "");
  Clear();
  Set(propertySG60F, 0.5);
  CompleteComponent(c);
  EXPECT_EQ(c.completed[50], 151.5);
  EXPECT_EQ(c.completed[52], kUndefined);
  EXPECT_EQ(Label(52), "");
}

TEST_F(FillIn, FiveCopiesOfTheBoilingPointWhateverItIs) {
  for (double boiling : {373.15, 0.0, kUndefined, -2e35}) {
    Clear();
    Set(propertyNBP, boiling);
    CompleteComponent(c);
    for (std::size_t i = 53; i <= 57; ++i) {
      EXPECT_EQ(c.completed[i], boiling);
      EXPECT_EQ(Label(i), "from NBP");
    }
    EXPECT_EQ(c.completed[58], kUndefined);
    EXPECT_EQ(Label(58), "");
  }
}

}  // namespace
}  // namespace zel

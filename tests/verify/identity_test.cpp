// Whether two records of a component describe the same substance.
#include <gtest/gtest.h>

#include <cstring>

#include "zelaccess/Handles.h"
#include "zelaccess/Identity.h"
#include "zelaccess/PureComp.h"

namespace zel {
namespace {

struct FormulaRow {
  char const* one;
  char const* other;
  bool agree;
};

class FormulasAgreeTest : public ::testing::TestWithParam<FormulaRow> {};

TEST_P(FormulasAgreeTest, InBothOrders) {
  FormulaRow const& row = GetParam();
  EXPECT_EQ(FormulasAgree(row.one, row.other), row.agree);
  EXPECT_EQ(FormulasAgree(row.other, row.one), row.agree);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, FormulasAgreeTest,
    ::testing::Values(FormulaRow{"C2H6O", "C2H5OH", true}, FormulaRow{"H6C2", "C2H6", true},
                      FormulaRow{"(CH3)2CO", "C3H6O", true}, FormulaRow{"NaCl", "ClNa", true},
                      FormulaRow{"CuSO4.5H2O", "CuH10O9S", true},
                      FormulaRow{"CuSO4.5H2O", "CuSO4", false}, FormulaRow{"H2O", "C4H10", false},
                      FormulaRow{"H2O", "D2O", false}, FormulaRow{"C2H6", "C2H6N0", true},
                      FormulaRow{"CO", "Co", false}, FormulaRow{"CO2", "CO", false},
                      FormulaRow{"Mixture", "MIXTURE", true}, FormulaRow{"petro", "mixture", false},
                      FormulaRow{"petro", "C10H22", false}, FormulaRow{"Xx2", "xX2", true},
                      FormulaRow{"Xx2", "C4H10", false}, FormulaRow{"C4H10", "", true},
                      FormulaRow{"C4H10", nullptr, true}, FormulaRow{nullptr, nullptr, true}));

class CompareIdentitiesTest : public ::testing::Test {
 protected:
  static ZelIdentity Of(std::int32_t cas, char const* formula) {
    ZelIdentity identity;
    identity.casNumber = cas;
    std::strcpy(identity.formula, formula);
    return identity;
  }
  static constexpr std::int32_t kWater = 7732185;
  static constexpr std::int32_t kButane = 106978;
  static constexpr std::int32_t kIsobutane = 75285;
};

TEST_F(CompareIdentitiesTest, TellsWhatContradicts) {
  EXPECT_EQ(CompareIdentities(Of(kWater, "H2O"), Of(kWater, "OH2")), identityAgrees);
  EXPECT_EQ(CompareIdentities(Of(kWater, "H2O"), Of(kButane, "C4H10")),
            identityCas | identityFormula);
  EXPECT_EQ(CompareIdentities(Of(kButane, "C4H10"), Of(kIsobutane, "C4H10")), identityCas);
  EXPECT_EQ(CompareIdentities(Of(kWater, "H2O"), Of(kWater, "D2O")), identityFormula);
}

TEST_F(CompareIdentitiesTest, WhatIsNotSaidContradictsNothing) {
  EXPECT_EQ(CompareIdentities({}, Of(kButane, "C4H10")), identityAgrees);
  EXPECT_EQ(CompareIdentities(Of(kWater, ""), Of(0, "C4H10")), identityAgrees);
  EXPECT_EQ(CompareIdentities(Of(0, "H2O"), Of(kButane, "C4H10")), identityFormula);
}

TEST_F(CompareIdentitiesTest, LabelsOfASourceAreNotCompared) {
  ZelIdentity one = Of(kWater, "H2O");
  ZelIdentity other = Of(kWater, "H2O");
  one.number = 1;
  other.number = 2;
  std::strcpy(one.ids[0], "WATER");
  std::strcpy(other.ids[0], "H2O");
  std::strcpy(one.name, "Water");
  std::strcpy(other.name, "Steam");
  EXPECT_EQ(CompareIdentities(one, other), identityAgrees);
}

TEST(GetComponentIdentityTest, IsThatOfTheComponent) {
  BankFace<IZelPureComp> const component("PURECOMP", IID_IZelPureComp);
  char ids[12][9] = {"WATER", "STEAM"};
  component->SetIdentity(10000326, 7732185, 0, ids, "Water", "H2O", 0);
  ZelIdentity identity;
  ASSERT_TRUE(GetComponentIdentity(component.operator->(), identity));
  EXPECT_EQ(identity.number, 10000326);
  EXPECT_EQ(identity.casNumber, 7732185);
  EXPECT_STREQ(identity.ids[0], "WATER");
  EXPECT_STREQ(identity.ids[1], "STEAM");
  EXPECT_STREQ(identity.ids[2], "");
  EXPECT_STREQ(identity.name, "Water");
  EXPECT_STREQ(identity.formula, "H2O");
  EXPECT_FALSE(GetComponentIdentity(nullptr, identity));
  EXPECT_EQ(identity.number, 0);
  EXPECT_STREQ(identity.name, "");
}

}  // namespace
}  // namespace zel

// The checks of the components of a bank with each other, and of banks of pairs and groups.
#include <cstring>

#include "tests/verify/data_check_fixture.h"

namespace zel::test {
namespace {

class BankDataTest : public DataCheckTest {
 protected:
  // The library's findings with the sink's IDs.
  std::string Ids(std::vector<GoodComponent> const& components) {
    Check(components);
    return sink_.ids;
  }
};

TEST_F(BankDataTest, CasNumbersThatAreShared) {
  GoodComponent const first = Bare(10000007, "FIRST", "H2O");
  EXPECT_EQ(Check({first, Bare(10000008, "SECOND", "OH2")}),
            Lines{"warning cas-shared | own PURECOMP:TEST [10000008] SECOND | CAS number = - "
                  "(7732-18-5)  at - | - to - () | TEST FIRST | TEST SECOND: has the CAS number "
                  "7732-18-5 of TEST FIRST"});
  EXPECT_TRUE(isGood_);
  EXPECT_EQ(Check({first, Bare(10000008, "SECOND", "D2O")}),
            Lines{"error cas-formula | own PURECOMP:TEST [10000008] SECOND | formula = - (D2O)  at "
                  "- | - to - (H2O) | TEST FIRST | TEST SECOND: has the CAS number 7732-18-5 of "
                  "TEST FIRST and another formula, D2O instead of H2O"});
  EXPECT_FALSE(isGood_);
  GoodComponent other = Bare(10000008, "SECOND", "H2O");
  other.cas = 7789200;
  EXPECT_EQ(Check({first, other}), Lines{});
}

TEST_F(BankDataTest, RepeatedData) {
  GoodComponent other;
  other.number = 10000008;
  other.id = "OTHER";
  other.cas = 7789200;
  other.change = [](IZelPureComp& c) {
    c.SetProperty(propertyPC, 10001);
    c.ResetCorrelation(correlationVaporPressure);
    GoodComponent::Line(c, correlationSurfaceTension, 300, 600, 0.0600001, -0.0001);
    GoodComponent::Line(c, correlationLiquidCp, 300, 500, 75.1, 0.01);
  };
  EXPECT_EQ(
      Check({GoodComponent{}, other}),
      Lines{"warning repeated | own PURECOMP:TEST [10000008] OTHER | SurfaceTension = - (0.06 "
            "-0.0001)  at - | - to - () | TEST GOOD | TEST OTHER: SurfaceTension has the "
            "coefficients of TEST GOOD"});
  GoodComponent critical = Bare(10000008, "OTHER", "H2O");
  critical.cas = 7789200;
  critical = With(With(critical, propertyTC, 600), propertyPC, 10000);
  EXPECT_EQ(
      Check({GoodComponent{}, critical}),
      Lines{"warning repeated | own PURECOMP:TEST [10000008] OTHER | TC and PC = - (600 10000) "
            " at - | - to - () | TEST GOOD | TEST OTHER: has TC and PC of TEST GOOD"});
}

TEST_F(BankDataTest, ConstantsOfManyDigitsThatAreRepeated) {
  auto const four = [](double dipole, char const* lastFormula) {
    std::vector<GoodComponent> components;
    char const* const formulas[] = {"CH4", "C2H6", "C3H8", lastFormula};
    std::int32_t const cas[] = {74828, 74840, 74986, 106978};
    for (int i = 0; i < 4; ++i) {
      std::string const id = "ID" + std::to_string(i);
      GoodComponent one = Bare(10000007 + i, id.c_str(), formulas[i]);
      one.cas = cas[i];
      components.push_back(With(one, propertyDIPOLE, dipole));
    }
    return components;
  };
  EXPECT_EQ(
      Check(four(1.2345, "C4H10")),
      Lines{"warning repeated | own PURECOMP:TEST [10000010] ID3 | DIPOLE = 1.2345 (1.2345) "
            "debye at - | - to - () | TEST ID0 | TEST ID3: has DIPOLE 1.2345 debye with 3 others, "
            "the first of them TEST ID0"});
  EXPECT_EQ(Ids(four(1.234, "C4H10")), "") << "four digits";
  std::vector<GoodComponent> three = four(1.2345, "C4H10");
  three.pop_back();
  EXPECT_EQ(Ids(three), "") << "three components";
}

// Such a library comes from another writer: the keys of one pair are swapped in its file.
TEST_F(BankDataTest, PairsInBothOrders) {
  auto library = Make("/p.lb1");
  auto const add = [&](std::int32_t a, std::int32_t b, double aji) {
    AddItem(*library, "VANLAAR", "V", {a, b}, [&](IZelBankDef& item) {
      double const aij = 1.5;
      item.SetDoubleField("aij", &aij);
      item.SetDoubleField("aji", &aji);
    });
  };
  add(10000007, 10000008, 2.0);
  add(10000008, 10000009, 3.0);
  EXPECT_EQ(CheckLibrary(*library), Lines{});
  library->CloseLibFile();
  std::int32_t const was[] = {10000008, 10000009}, swapped[] = {10000008, 10000007};
  auto& bytes = files_.Contents("/p.lb2");
  std::size_t at = 0;
  while (at + sizeof was <= bytes.size() && std::memcmp(&bytes[at], was, sizeof was) != 0) at += 4;
  ASSERT_LE(at + sizeof was, bytes.size());
  std::memcpy(&bytes[at], swapped, sizeof swapped);
  ASSERT_EQ(library->ReopenLibFile(), openOk);
  EXPECT_EQ(
      CheckLibrary(*library),
      (Lines{"warning pair-twice | own VANLAAR:V [10000007 10000008] 10000007 + 10000008 | aij "
             "= 1.5 (1.5)  at - | 3 to 3 (3) |  | VANLAAR:V 10000007 + 10000008: is stored in "
             "both orders; aij is 1.5 in one and 3 in the other",
             "warning pair-twice | own VANLAAR:V [10000007 10000008] 10000007 + 10000008 | aji "
             "= 2 (2)  at - | 1.5 to 1.5 (1.5) |  | VANLAAR:V 10000007 + 10000008: is stored "
             "in both orders; aji is 2 in one and 1.5 in the other"}));
}

class GroupDataTest : public BankDataTest {
 protected:
  // Groups 1 and 2 with an interaction, and a last one.
  std::unique_ptr<LibFile_i> Groups(std::int32_t last) {
    auto library = Make("/g.lb1");
    auto const group = [&](std::int32_t number) {
      AddItem(*library, "UNFORIG", "G", {number},
              [&](IZelBankDef& item) { item.SetIntField("mainGroup", &number); });
    };
    AddItem(*library, "UNFORIG", "G", {}, [](IZelBankDef& item) {
      item.SetStringField("structure", "s");
      item.SetStringField("context", "orig-public");
    });
    for (std::int32_t const number : {1, 2, last}) group(number);
    AddItem(*library, "UNFORIG", "G", {1, 2}, [](IZelBankDef& item) {
      double const value = 10.0;
      item.SetDoubleField("vlij", &value);
    });
    return library;
  }
  static void Structure(LibFile_i& library, std::int32_t component, std::int32_t group) {
    AddItem(library, "STRUCT", "S", {component}, [&](IZelBankDef& item) {
      std::int32_t const count = 2, groups[10] = {1, group}, counts[10] = {1, 1};
      item.SetIntField("count", &count);
      item.SetIntField("groupNumber", groups);
      item.SetIntField("groupCount", counts);
    });
  }
};

TEST_F(GroupDataTest, GroupsThatAreComplete) {
  auto const library = Groups(2);
  Structure(*library, 10000007, 2);
  EXPECT_EQ(CheckLibrary(*library), Lines{});
}

TEST_F(GroupDataTest, GroupWithoutAnInteraction) {
  auto const library = Groups(9);
  CheckLibrary(*library);
  ASSERT_EQ(sink_.lines.size(), 1U);
  std::string const& line = sink_.lines[0];
  EXPECT_EQ(line.substr(0, line.find('[')), "warning group-use | own UNFORIG:G ");
  EXPECT_EQ(
      line.substr(line.find(']')),
      "] group 9 | mainGroup = 9 (9)  at - | - to - () |  | UNFORIG:G group 9: its main group "
      "9 has no interaction with another");
}

TEST_F(GroupDataTest, ComponentsWithUnknownGroups) {
  auto const library = Groups(2);
  Structure(*library, 10000008, 5);
  EXPECT_EQ(
      CheckLibrary(*library),
      Lines{"warning group-use | own STRUCT:S [10000008] 10000008 | groups = - (5)  at - | - to "
            "- () | UNFORIG:G | STRUCT:S 10000008: has groups that are not in UNFORIG:G: 5"});
  GoodComponent component;
  component.change = [](IZelPureComp& c) {
    std::int32_t const groups[10] = {1, 7}, counts[10] = {1, 1};
    c.SetStructure(structureOrigPublic, 2, groups, counts);
  };
  Add(*library, component);
  CheckLibrary(*library);
  EXPECT_EQ(sink_.ids, "group-use group-use");
  EXPECT_EQ(
      sink_.lines[1],
      "warning group-use | own PURECOMP:TEST [10000007] 10000007 | groups = - (7)  at - | - to "
      "- () | UNFORIG:G | PURECOMP:TEST 10000007: has groups that are not in UNFORIG:G: 7");
}

}  // namespace
}  // namespace zel::test

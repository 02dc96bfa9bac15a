// The order in which a unit word is tried.
#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "tests/frame/unit_fixture.h"
#include "tests/support/allocations.h"

namespace zel {
namespace {

class UnitWordTest : public test::UnitSystemTest {};

TEST_F(UnitWordTest, MoleIsLookedForInTheFirst29Characters) {
  // 25 letters and "-mol" are 29.
  std::string const fits = "(lb/sec)/sqrt(psi-lb/ft3)";
  ASSERT_EQ(fits.size(), 25u);
  EXPECT_EQ(Opened("flowconductance", (fits + "-mol").c_str()), fits);
  EXPECT_EQ(Opened("flowconductance", (fits + "-mole").c_str()), fits);
  // 27 letters and "-mol" are 31: the cut leaves "-m".
  std::string const beyond = "(lb/sec)/sqrt(inH2O-lb/ft3)";
  EXPECT_EQ(Opened("flowconductance", beyond.c_str()), beyond);
  EXPECT_EQ(Opened("flowconductance", (beyond + "-mol").c_str()), "-");
}

TEST_F(UnitWordTest, FirstMoleOfAWordIsCutAt) {
  EXPECT_EQ(Opened("mass", "lb-mol-mol"), "lb");
  EXPECT_EQ(Opened("mass", "lb-Mol-mole"), "lb");
}

TEST_F(UnitWordTest, OtherBasisIsTriedAsKeywordToo) {
  EXPECT_EQ(Opened("vol", "lit-mol"), "liter");
  EXPECT_EQ(Opened("currency", "usd-mole"), "$");
}

TEST_F(UnitWordTest, WordsThatAreRefusedLeaveNothingBehind) {
  double value = 5.0;
  for (char const* word : {"furlong", "furlong-mol", "lb-mol-mol", ""}) {
    test::AllocationWatch const watch;
    bool const refused =
        OpenUnit("pres", word) == nullptr && !ConvertToInternal("pres", word, value);
    int const requested = watch.Requested();
    int const freed = watch.Freed();
    EXPECT_TRUE(refused) << word;
    EXPECT_GT(requested, 0);
    EXPECT_EQ(requested, freed) << word;
  }
}

TEST_F(UnitWordTest, ConvertingLeavesNothingBehind) {
  double value = 25.0;
  test::AllocationWatch const watch;
  bool const converted = ConvertToInternal("temp", "C", value);
  int const kept = watch.Requested() - watch.Freed();
  EXPECT_TRUE(converted);
  EXPECT_EQ(kept, 0);
}

// Each of the four attempts finds a different unit for one of these words.
TEST(UnitWordOrder, TextThenKeywordThenTheOtherBasis) {
  test::SmallTable table;
  table.units =
      "'one','TWO','',0,0,1\n'two','ONE','',0,0,1\n'x','x1','',0,0,1\n'x-mol','x2','',0,0,1\n"
      "'y','z-mol','',0,0,1\n'z','z3','',0,0,1\n'v','w','',0,0,1\n'w1','v-mol','',0,0,1\n";
  table.lists =
      "'BEGINLIST'\n'Mixed'\n'one'\n'two'\n'x'\n'x-mol'\n'y'\n'z'\n'v'\n'w1'\n'ENDLIST'\n";
  ASSERT_EQ(StartUnitSystemFrom(table.Text()), 0);
  struct Case {
    char const* word;
    char const* display;
  };
  constexpr Case kCases[] = {
      {"one", "one"},      // a text and a keyword
      {"ONE", "one"},      // a text in any case comes before a keyword
      {"two", "two"},      //
      {"x", "x"},          // a text with and without "-mol"
      {"x-mol", "x-mol"},  //
      {"z-mol", "y"},      // a keyword; when cut it would be a text
      {"w-mol", "v"},      // when cut it is a keyword
      {"v", "v"},          // a text; with "-mol" it would be a keyword
  };
  for (Case const& row : kCases) {
    uom_Unit* unit = OpenUnit("mixed", row.word);
    ASSERT_NE(unit, nullptr) << row.word;
    char text[30];
    EXPECT_EQ(uom_GetDisplayUnits(unit, text, 30, 1), 0);
    EXPECT_STREQ(text, row.display) << row.word;
    uom_Free(&unit);
  }
}

// The unit system on a small table with a class of these units, for which QRInternal has no unit.
void StartWith(std::vector<std::string> const& units) {
  test::SmallTable table;
  table.lists = "'BEGINLIST'\n'Mixed'\n";
  for (std::string const& unit : units) {
    table.units += "'" + unit + "','" + std::to_string(table.units.size()) + "','',0,0,1\n";
    table.lists += "'" + unit + "'\n";
  }
  table.lists += "'ENDLIST'\n";
  ASSERT_EQ(StartUnitSystemFrom(table.Text()), 0);
}

// The text of the unit that a word opens there.
std::string OpenedMixed(std::string const& word) {
  uom_Unit* unit = OpenUnit("mixed", word.c_str());
  if (unit == nullptr) return "-";
  char text[60] = "";
  uom_GetDisplayUnits(unit, text, sizeof text, 1);
  uom_Free(&unit);
  return text;
}

TEST(UnitWordOrder, ExactTextComesBeforeTheSameInOtherCase) {
  StartWith({"PQ", "pq", "Pq"});
  for (char const* word : {"PQ", "pq", "Pq"}) EXPECT_EQ(OpenedMixed(word), word);
  EXPECT_EQ(OpenedMixed("pQ"), "PQ") << "the first of the list";
}

TEST(UnitWordOrder, MoleIsPutBehindInLowerCase) {
  StartWith({"q-MOL", "q-mol", "q-Mol"});
  EXPECT_EQ(OpenedMixed("q"), "q-mol");
}

TEST(UnitWordOrder, WordIsCutTo29CharactersBeforeMoleIsPutBehind) {
  std::string const most(29, 'u');
  StartWith({most + "-mol", "v"});
  EXPECT_EQ(OpenedMixed(most), most + "-mol");
  EXPECT_EQ(OpenedMixed(most + "wxyz"), most + "-mol");
  EXPECT_EQ(OpenedMixed(most.substr(1)), "-") << "one character less";
}

TEST(UnitWordOrder, ClassWithoutAnInternalUnitConvertsNothing) {
  StartWith({"p", "q"});
  double value = 5.0;
  test::AllocationWatch const watch;
  bool const converted = ConvertToInternal("mixed", "p", value);
  int const kept = watch.Requested() - watch.Freed();
  EXPECT_FALSE(converted);
  EXPECT_EQ(value, 5.0);
  EXPECT_EQ(kept, 0);
}

}  // namespace
}  // namespace zel

// Component lists: reading them from files and walking them.
#include "lists/comp_list.h"

#include <algorithm>
#include <type_traits>

#include "tests/lists/comp_list_fixture.h"

namespace zel {
namespace {

// Copying a handle must not copy the object.
static_assert(!std::is_copy_constructible_v<CompList_i> && !std::is_copy_assignable_v<CompList_i>);

using test::CompListTest;
using test::kNone;

constexpr char kLong[] =
    "; comment\n\n"
    "Ethanol\t1\tETHANOL\t1\tC2H6O\t0\t64-17-5\t1\t351.4\t1\t46.07\t1\n"
    "Water\t0\tWATER\t0\tH2O\t1\t7732-18-5\t0\t373.15\t0\t18.02\t0  \r\n"
    "   \n"
    "Oil\t-1\tOIL\t2\t \t-1\t-\t-1\t-1e+35\t-1\t-1e+35\t-1\n";

// --- reading and walking -------------------------------------------------------------------------

TEST_F(CompListTest, TwelveColumnsHoldRowsAndOrders) {
  ASSERT_TRUE(Read(kLong));
  EXPECT_EQ(Walk(sortByName), "WATER ETHANOL ");
  EXPECT_EQ(Walk(sortById), "WATER ETHANOL OIL ") << "the numbers are those of the order";
  EXPECT_EQ(Walk(sortByFormula), "ETHANOL WATER ");
  EXPECT_EQ(Walk(sortByCas), "WATER ETHANOL ");
  EXPECT_EQ(Walk(sortById, true), "OIL ETHANOL WATER ");
  EXPECT_EQ(Walk(static_cast<compListSorts>(6)), "");
  EXPECT_EQ(Walk(static_cast<compListSorts>(-1)), "");
  char name[41], id[13], formula[21], cas[21];
  double nbp, mw;
  list_.SetSort(sortById, 0);
  ASSERT_TRUE(list_.GetNext(name, id, formula, cas, nbp, mw));
  EXPECT_STREQ(name, "Water");
  EXPECT_STREQ(formula, "H2O");
  EXPECT_STREQ(cas, "7732-18-5");
  EXPECT_EQ(nbp, 373.15);
  EXPECT_EQ(mw, 18.02);
  ASSERT_TRUE(list_.GetNext(name, id, formula, cas, nbp, mw));
  ASSERT_TRUE(list_.GetNext(name, id, formula, cas, nbp, mw));
  EXPECT_STREQ(formula, " ");
  EXPECT_STREQ(cas, "");
  EXPECT_TRUE(gen_IsUndefDouble(nbp));
  EXPECT_FALSE(list_.GetNext(name, id, formula, cas, nbp, mw));
}

TEST_F(CompListTest, FiveColumnsAreInTheOrderOfTheirIds) {
  ASSERT_TRUE(Read("Water\tB\tH2O\t1\t1\nEthanol\tA\tC2H6O\t0\t0\n"));
  EXPECT_EQ(Walk(sortById), "B A ");
  EXPECT_EQ(Walk(sortByName), "A B ");
  EXPECT_EQ(Walk(sortByFormula), "A B ");
  EXPECT_EQ(Walk(sortByCas), "");
  EXPECT_EQ(Walk(sortByNbp), "");
  EXPECT_EQ(Walk(sortByMw), "");
  char id[13], name[41], formula[21];
  list_.SetSort(sortById, 0);
  ASSERT_TRUE(list_.GetNextShort(id, name, formula));
  EXPECT_STREQ(id, "B");
  EXPECT_STREQ(name, "Water");
  EXPECT_STREQ(formula, "H2O");
}

TEST_F(CompListTest, OtherShapesGiveAnEmptyList) {
  for (char const* text :
       {"", "; only\n;comments\n", "a\tb\tc\n", "a\tb\tc\t1\t2\t3\n", "plain\n"}) {
    EXPECT_TRUE(Read(text)) << text;
    EXPECT_EQ(Walk(sortById), "") << text;
  }
  EXPECT_FALSE(list_.ReadList(Path("none").c_str()));
  EXPECT_FALSE(list_.ReadList(nullptr));
  EXPECT_FALSE(list_.ReadList(Path("").c_str())) << "a folder";
}

TEST_F(CompListTest, ReadingClearsWhatWasThere) {
  ASSERT_TRUE(Read(kLong));
  list_.SetFilter("x");
  EXPECT_FALSE(list_.ReadList(Path("none").c_str()));
  EXPECT_EQ(Walk(sortById), "");
  EXPECT_STREQ(list_.GetFilter(), "*");
}

TEST_F(CompListTest, LongLinesAreSplitByTheirBuffer) {
  std::string const first(490, 'n');
  ASSERT_TRUE(Read(first + "\tA\tF\t0\t0\nrest\tB\tG\t1\t1\n"));
  EXPECT_EQ(Walk(sortById), "A B ");
  ASSERT_TRUE(Read("W\tA\tF\t0\t0\n" + std::string(490, 'n') + "\tID\tFORMULAX\t1\t1\n"));
  // 499 characters end within the formula; the rest is read as a separate line.
  std::string walked = Walk(sortById);
  EXPECT_EQ(walked.substr(0, 5), "A ID ");
  EXPECT_EQ(std::count(walked.begin(), walked.end(), ' '), 3);
}

TEST_F(CompListTest, LineOf499CharactersIsStillOneLine) {
  auto const line = [](std::size_t length) {
    std::string const rest = "\tA\tF\t0\t0";
    return std::string(length - rest.size(), 'n') + rest + "\n";
  };
  ASSERT_TRUE(Read(line(499) + "W\tB\tG\t1\t1\n"));
  EXPECT_EQ(list_.Entries().size(), 2U);
  ASSERT_TRUE(Read(line(500) + "W\tB\tG\t1\t1\n"));
  EXPECT_EQ(list_.Entries().size(), 3U) << "the last character is a line of its own";
}

TEST_F(CompListTest, TabAtTheEndOfALineCountsAndAZeroByteEndsIt) {
  ASSERT_TRUE(Read("N\tI\tF\t0\t0\t\n"));
  EXPECT_EQ(list_.Entries().size(), 0U) << "six columns are no shape";
  using namespace std::string_literals;
  ASSERT_TRUE(Read("W\tA\tF\t0\t0\0junk\tx\n"s));
  EXPECT_EQ(Walk(sortById), "A ");
}

TEST_F(CompListTest, EmptyColumnsShiftTheOthers) {
  ASSERT_TRUE(Read("Water\tA\tH2O\t0\t0\nOil\tB\t\t1\t1\n"));
  char id[13], name[41], formula[21];
  list_.SetSort(sortById, 0);
  list_.GetNextShort(id, name, formula);
  ASSERT_TRUE(list_.GetNextShort(id, name, formula));
  EXPECT_STREQ(formula, "1") << "the empty column is none";
}

TEST_F(CompListTest, NumbersThatPointAtNoRowArePassedOver) {
  ASSERT_TRUE(Read("W\tA\tF\t7\t99999999999\nX\tB\tG\t1\tx\n"));
  EXPECT_EQ(Walk(sortByName), "B ");
  EXPECT_EQ(Walk(sortByFormula), "A ") << "what is no number reads as 0";
}

// They remain in their orders, within the range of the type, and are skipped in both directions.
TEST_F(CompListTest, NumbersBeyondTheRowsAndBeyondNumbersAreKept) {
  ASSERT_TRUE(Read("W\tA\tF\t7\t4294967296\nX\tB\tG\t1\t-4294967295\nY\tC\tH\t0\t99999999999\n"));
  EXPECT_EQ(list_.OrderBy(sortByName), (CompList_i::Order{7, 1, 0}));
  EXPECT_EQ(list_.OrderBy(sortByFormula), (CompList_i::Order{INT32_MAX, INT32_MAX}));
  EXPECT_EQ(Walk(sortByName), "B A ");
  EXPECT_EQ(Walk(sortByName, true), "A B ");
  EXPECT_EQ(Walk(sortByFormula), "");
}

TEST_F(CompListTest, MissingColumnsAreEmptyAndGiveNoNumber) {
  ASSERT_TRUE(Read("W\tA\tF\t0\t0\nonly a name\n"));
  EXPECT_EQ(Walk(sortByName), "A ");
  EXPECT_EQ(Walk(sortById), "A  ");
}

TEST_F(CompListTest, NumbersBehindTheEndOfALongLineAreUndefined) {
  ASSERT_TRUE(
      Read("Water\t0\tA\t0\tH2O\t0\t-\t0\t373.15\t0\t18.02\t0\n"
           "Oil\t1\tB\t1\tF\t1\t-\t1\t400\n"
           "Tar\t2\tC\t2\n"
           "Wax\t3\tD\t3\tG\t3\t-\t3\t0\t3\tx\t3\n"));
  ASSERT_EQ(list_.Entries().size(), 4U);
  EXPECT_EQ(list_.Entries()[0].mw, 18.02);
  EXPECT_EQ(list_.Entries()[1].nbp, 400.0);
  EXPECT_TRUE(gen_IsUndefDouble(list_.Entries()[1].mw));
  EXPECT_TRUE(gen_IsUndefDouble(list_.Entries()[2].nbp));
  EXPECT_TRUE(gen_IsUndefDouble(list_.Entries()[2].mw));
  EXPECT_EQ(list_.Entries()[3].nbp, 0.0) << "a number that is there";
  EXPECT_EQ(list_.Entries()[3].mw, 0.0) << "a text that is no number";
}

TEST_F(CompListTest, TextsAreCutToTheirBuffers) {
  ASSERT_TRUE(Read(std::string(60, 'n') + "\t" + std::string(30, 'i') + "\t" +
                   std::string(30, 'f') + "\t0\t0\n"));
  char id[13], name[41], formula[21];
  list_.SetSort(sortById, 0);
  ASSERT_TRUE(list_.GetNextShort(id, name, formula));
  EXPECT_EQ(name, std::string(40, 'n'));
  EXPECT_EQ(id, std::string(12, 'i'));
  EXPECT_EQ(formula, std::string(20, 'f'));
}

// --- settings ------------------------------------------------------------------------------------

TEST_F(CompListTest, FilterIsOfTheFieldSortedBy) {
  ASSERT_TRUE(Read(kLong));
  list_.SetFilter("*a");
  EXPECT_EQ(Walk(sortByName), "WATER ETHANOL ");
  list_.SetFilter("w");
  EXPECT_EQ(Walk(sortByName), "WATER ");
  EXPECT_EQ(Walk(sortById), "WATER ");
  EXPECT_EQ(Walk(sortByFormula), "");
  list_.SetFilter("64");
  EXPECT_EQ(Walk(sortByCas), "ETHANOL ");
  EXPECT_EQ(Walk(sortByNbp), "WATER ETHANOL ") << "numbers have no filter";
  list_.SetFilter("");
  EXPECT_STREQ(list_.GetFilter(), "*");
  list_.SetFilter("x");
  list_.SetFilter(nullptr);
  EXPECT_STREQ(list_.GetFilter(), "*");
}

TEST_F(CompListTest, RangeIsOfTheNumberSortedBy) {
  ASSERT_TRUE(Read(kLong));
  list_.SetRange(360.0, kNone);
  EXPECT_EQ(Walk(sortByNbp), "WATER ");
  EXPECT_EQ(Walk(sortByMw), "");
  EXPECT_EQ(Walk(sortById), "WATER ETHANOL OIL ") << "texts have no range";
  list_.SetRange(kNone, 46.07);
  EXPECT_EQ(Walk(sortByMw), "WATER ETHANOL ") << "the ends belong to it";
  list_.SetFilter("no such text");
  EXPECT_EQ(Walk(sortByMw), "WATER ETHANOL ") << "numbers have no filter";
  list_.SetFilter("*");
  list_.SetRange(18.02, 18.02);
  EXPECT_EQ(Walk(sortByMw), "WATER ");
  double low, high;
  list_.GetRange(low, high);
  EXPECT_EQ(low, 18.02);
  EXPECT_EQ(high, 18.02);
  list_.ResetRange();
  EXPECT_EQ(Walk(sortByMw), "WATER ETHANOL ");
}

TEST_F(CompListTest, SettingsBelongToTheProcess) {
  {
    CompList_i other;
    other.SetFilter("abc");
    other.SetSort(sortByCas, 1);
    other.SetRange(1.0, 2.0);
    EXPECT_STREQ(list_.GetFilter(), "abc");
    list_.ClearList();
    EXPECT_STREQ(other.GetFilter(), "*");
    std::int32_t key = 9, descending = 9;
    other.GetSort(key, descending);
    EXPECT_EQ(key, sortByName);
    EXPECT_EQ(descending, 0);
    other.SetFilter("abc");
  }
  EXPECT_STREQ(list_.GetFilter(), "*") << "a list that ends clears them too";
  double low, high;
  list_.GetRange(low, high);
  EXPECT_EQ(low, 1.0) << "but for the range";
}

TEST_F(CompListTest, EveryChangeRewindsItsOwnList) {
  ASSERT_TRUE(Read(kLong));
  list_.SetSort(sortById, 0);
  char id[13], name[41], formula[21];
  auto const first = [&] {
    EXPECT_TRUE(list_.GetNextShort(id, name, formula));
    return std::string(id);
  };
  EXPECT_EQ(first(), "WATER");
  EXPECT_EQ(first(), "ETHANOL");
  list_.SetFilter("*");
  EXPECT_EQ(first(), "WATER");
  list_.SetRange(0, 1);
  EXPECT_EQ(first(), "WATER");
  list_.Rewind();
  EXPECT_EQ(first(), "WATER");
  CompList_i other;
  other.ResetSort();
  other.SetSort(sortById, 0);
  EXPECT_EQ(first(), "ETHANOL") << "another list does not rewind this one";
}

TEST(CompListHandle, DelNullsTheHandle) {
  CompList* list = CompList::NewCompList();
  CompListBuild* builder = list->GetBuilder();
  EXPECT_EQ(builder, list->GetBuilder());
  CompList::DelCompList(list);
  EXPECT_EQ(list, nullptr);
  CompList::DelCompList(list);
}

}  // namespace
}  // namespace zel

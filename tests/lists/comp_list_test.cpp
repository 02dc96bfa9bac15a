// Component lists: read from files, built from libraries, walked.
#include "lists/comp_list.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <stdexcept>

#include "frame/ascii.h"
#include "frame/date_text.h"
#include "lists/comp_list_build.h"
#include "maint/lib_maint.h"
#include "purecomp/formula.h"
#include "store/key.h"
#include "tests/frame/temp_folder.h"
#include "tests/support/memory_file_system.h"
#include "tests/support/sample_component.h"

namespace zel {
namespace {

double const kNone = gen_GetUndefDouble();

class CompListTest : public test::TempFolderTest {
 protected:
  ~CompListTest() override { list_.ResetRange(); }

  bool Read(std::string const& text) {
    MakeFile("list.lst", text);
    return list_.ReadList(Path("list.lst").c_str());
  }
  // IDs of all that a walk gives.
  std::string Walk(compListSorts sort, bool descending = false) {
    list_.SetSort(sort, descending ? 1 : 0);
    return Rest();
  }
  std::string Rest() {
    std::string ids;
    char name[41], id[13], formula[21], cas[21];
    double nbp, mw;
    while (list_.GetNext(name, id, formula, cas, nbp, mw)) ids += std::string(id) + " ";
    return ids;
  }
  CompListBuild_p& Builder() { return dynamic_cast<CompListBuild_p&>(*list_.GetBuilder()); }
  std::string FileText(std::string_view name) const {
    std::ifstream file(Path(name), std::ios::binary);
    if (!file) return "no file";
    return {std::istreambuf_iterator<char>(file), {}};
  }
  static std::string Head(std::string const& file) {
    return "; *********************************************\n;\n"
           "; *** Generated File - Do Not Edit Manually ***\n"
           ";     File name      - " +
           file + "\n;     Last generated - " + LongTodayText() +
           "\n; *** Generated File - Do Not Edit Manually ***\n;\n"
           "; *********************************************\n\n";
  }

  CompList_i list_;
};

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
  // 499 characters end within the formula; what follows is a line of its own.
  std::string walked = Walk(sortById);
  EXPECT_EQ(walked.substr(0, 5), "A ID ");
  EXPECT_EQ(std::count(walked.begin(), walked.end(), ' '), 3);
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

TEST_F(CompListTest, MissingColumnsAreEmptyAndGiveNoNumber) {
  ASSERT_TRUE(Read("W\tA\tF\t0\t0\nonly a name\n"));
  EXPECT_EQ(Walk(sortByName), "A ");
  EXPECT_EQ(Walk(sortById), "A  ");
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

// --- building ------------------------------------------------------------------------------------

TEST_F(CompListTest, RecordsAreCleaned) {
  char name[41] = "D-thing";
  char ids[12][9] = {"H20", "abc", "", "1234567", "123456", "h20", "C02", "C0", "OLD-DOP", "x"};
  char formula[21] = "C2H6";
  char second[21] = "";
  std::int32_t count = 0, result = 0, cas = 64175;
  EXPECT_TRUE(Builder().CleanRecord(name, ids, count, formula, second, 0, result, cas));
  EXPECT_STREQ(name, "d-thing");
  ASSERT_EQ(count, 4);
  EXPECT_STREQ(ids[0], "ABC");
  EXPECT_STREQ(ids[1], "123456");
  EXPECT_STREQ(ids[2], "H20") << "dropped only as it is written";
  EXPECT_STREQ(ids[3], "X");
  EXPECT_STREQ(ids[4], "123456") << "rows behind stay";
  EXPECT_EQ(result, 1);
  EXPECT_EQ(cas, 64175);
}

TEST_F(CompListTest, NothingLeftIsNotWorthListing) {
  char name[41] = "";
  char ids[12][9] = {"H20", "7654321"};
  char formula[21] = "C2H6", second[21];
  std::int32_t count = 9, result = 0, cas = 64176;
  EXPECT_FALSE(Builder().CleanRecord(name, ids, count, formula, second, 0, result, cas));
  EXPECT_EQ(count, 0);
  EXPECT_EQ(cas, 0) << "a number that is none";
  char good[12][9] = {"", "id"};
  EXPECT_TRUE(Builder().CleanRecord(name, good, count, formula, second, 0, result, cas));
  EXPECT_STREQ(name, "H20") << "taken in the pass before";
  char empty[41] = "";
  EXPECT_TRUE(Builder().CleanRecord(empty, good, count, formula, second, 0, result, cas));
  EXPECT_STREQ(empty, "ID");
}

class BuildTest : public CompListTest {
 protected:
  void AddAll() {
    CompListBuild_p& b = Builder();
    b.AddRecord("n-Butane", "NBUTANE", "C4H10", casn("106-97-8"), 272.65, 58.12);
    b.AddRecord("Water", "WATER", "H2O", casn("7732-18-5"), 373.15, 18.02);
    b.AddId("STEAM");
    b.AddRecord("alpha-Pinene", "1APINENE", "C10H16", casn(), kNone, 136.2);
    b.AddFormula("second");
    b.AddRecord("Oil", "OIL", "", casn("64-17-5"), 500.0, kNone);
    b.SortRecords();
  }
};

TEST_F(BuildTest, OrdersAreMadeFromTheRows) {
  AddAll();
  EXPECT_EQ(Walk(sortById), "1APINENE NBUTANE OIL STEAM WATER ");
  EXPECT_EQ(Walk(sortByName), "NBUTANE OIL 1APINENE WATER ") << "by the main words";
  EXPECT_EQ(Walk(sortByCas), "OIL NBUTANE WATER ");
  EXPECT_EQ(Walk(sortByNbp), "NBUTANE WATER OIL ");
  EXPECT_EQ(Walk(sortByMw), "WATER NBUTANE 1APINENE ");
  EXPECT_EQ(Builder().CountOrders(), 6);
  std::string const formulas = Walk(sortByFormula);
  EXPECT_EQ(std::count(formulas.begin(), formulas.end(), ' '), 4) << formulas;
  EXPECT_EQ(formulas.find("OIL"), std::string::npos) << "it has none";
}

TEST_F(BuildTest, FurtherRowsShowTheirComponent) {
  AddAll();
  list_.SetSort(sortById, 0);
  list_.SetFilter("STEAM");
  char name[41], id[13], formula[21], cas[21];
  double nbp, mw;
  ASSERT_TRUE(list_.GetNext(name, id, formula, cas, nbp, mw));
  EXPECT_STREQ(name, "Water");
  EXPECT_STREQ(cas, "7732-18-5");
  EXPECT_EQ(mw, 18.02);
}

TEST_F(BuildTest, LongFormIsWrittenAndReadBack) {
  AddAll();
  ASSERT_TRUE(Builder().WriteList(Path("out.lst").c_str()));
  EXPECT_EQ(FileText("out.lst").substr(0, Head("out.lst").size()), Head("out.lst"));
  std::string orders[6];
  for (int i = 0; i < 6; ++i) orders[i] = Walk(static_cast<compListSorts>(i));
  ASSERT_TRUE(list_.ReadList(Path("out.lst").c_str()));
  for (int i = 0; i < 6; ++i) EXPECT_EQ(Walk(static_cast<compListSorts>(i)), orders[i]) << i;
}

TEST_F(BuildTest, LinesHaveTheirColumns) {
  Builder().AddRecord("Name", "ID", "", casn(), 1234567.0, 0.1);
  Builder().AddRecord("Other", "IE", "H2O", casn("7732-18-5"), kNone * 3.0, kNone);
  Builder().SortRecords();
  char text[1000];
  Builder().FormatRecord(0, text);
  EXPECT_STREQ(text, "Name\t0\tID\t0\t \t1\t-\t1\t1.23457e+06\t0\t0.1\t0\n");
  Builder().FormatRecord(1, text);
  EXPECT_STREQ(text, "Other\t1\tIE\t1\tH2O\t-1\t7732-18-5\t-1\t-3e+35\t-1\t-1e+35\t-1\n");
  EXPECT_THROW(Builder().FormatRecord(2, text), std::out_of_range);
  EXPECT_THROW(Builder().FormatRecord(-1, text), std::out_of_range);
  try {
    Builder().FormatRecord(2, text);
  } catch (std::out_of_range const& error) {
    EXPECT_STREQ(error.what(), "invalid vector subscript");
  }
}

TEST_F(BuildTest, ShortFormHasFiveColumnsAndNoFurtherFormulas) {
  Builder().SetShortForm(true);
  AddAll();
  EXPECT_EQ(Builder().CountOrders(), 5);
  ASSERT_TRUE(Builder().WriteList(Path("s.lst").c_str()));
  EXPECT_EQ(FileText("s.lst"), Head("s.lst") +
                                   "alpha-Pinene\t1APINENE\tC10H16\t1\t1\n"
                                   "n-Butane\tNBUTANE\tC4H10\t2\t0\n"
                                   "Oil\tOIL\t\t0\t4\n"
                                   "Water\tSTEAM\tH2O\t4\t-1\n"
                                   "Water\tWATER\tH2O\t-1\t-1\n");
}

TEST_F(BuildTest, LongNamesAreWrittenWhole) {
  std::string const name(2000, 'n');
  Builder().AddRecord(name.c_str(), "A", "", casn(), kNone, kNone);
  Builder().SortRecords();
  ASSERT_TRUE(Builder().WriteList(Path("l.lst").c_str()));
  EXPECT_NE(FileText("l.lst").find(name + "\t0\tA"), std::string::npos);
  char text[1000];
  Builder().FormatRecord(0, text);
  EXPECT_EQ(std::string(text).size(), 999U);
}

TEST_F(BuildTest, EmptyPathWritesNothing) {
  AddAll();
  EXPECT_TRUE(Builder().WriteList(""));
  EXPECT_TRUE(Builder().WriteList(nullptr));
  EXPECT_FALSE(Builder().WriteList(Path("none/such.lst").c_str()));
}

TEST_F(BuildTest, ClearListEmptiesTheBuilderToo) {
  AddAll();
  list_.ClearList();
  Builder().SortRecords();
  EXPECT_EQ(Builder().CountOrders(), 0);
}

// --- from a library ------------------------------------------------------------------------------

class LibraryListTest : public CompListTest {
 protected:
  LibraryListTest() : library_(files_, accUpdate, "/l.lb1", "Mine"), maint_(&library_) {
    EXPECT_EQ(library_.CreateNew(libKind11), openOk);
    EXPECT_TRUE(maint_.CreateBank("PURECOMP", "PURE", 0));
  }
  void Add(std::int32_t number, std::initializer_list<char const*> ids, char const* name,
           char const* formula, bool keepFormula = false, std::int32_t cas = 0) {
    test::ComponentBank bank;
    char texts[12][9] = {};
    std::size_t n = 0;
    for (char const* id : ids) CopyText(id, texts[n++], sizeof texts[0]);
    bank->SetIdentity(number, cas, 0, texts, name, formula, keepFormula ? 1 : 0);
    bank->SetProperty(8, 300.0 + number);
    bank->SetProperty(0, 10.0 * number);
    Key_i key;
    key.SetKey(static_cast<long>(number));
    ASSERT_TRUE(maint_.WriteItem(bank.Def(), "PURE", &key)) << maint_.Log().PendingText();
  }
  bool Build(char const* path = "") {
    return list_.GetBuilder()->BuildList(&library_, "PURE", path);
  }

  test::MemoryFileSystem files_;
  LibFile_i library_;
  LibMaint_i maint_;
};

TEST_F(LibraryListTest, ComponentsAreListed) {
  Add(3, {"ETHANOL", "ETOH", "C2H5OH"}, "Ethanol", "C2H6O", false, 64175);
  Add(1, {"WATER"}, "", "H2O");
  Add(2, {"1234567"}, "Only a number", "CH4");
  ASSERT_TRUE(Build(Path("l.lst").c_str()));
  EXPECT_EQ(Walk(sortById), "C2H5OH ETHANOL ETOH WATER ");
  EXPECT_EQ(Walk(sortByName), "ETHANOL WATER ") << "each once";
  EXPECT_EQ(Walk(sortByMw), "WATER ETHANOL ");
  EXPECT_EQ(Walk(sortByCas), "ETHANOL ");
  list_.SetSort(sortByMw, 0);
  char name[41], id[13], formula[21], cas[21];
  double nbp, mw;
  ASSERT_TRUE(list_.GetNext(name, id, formula, cas, nbp, mw));
  EXPECT_STREQ(name, "WATER") << "its ID, for want of a name";
  EXPECT_EQ(nbp, 301.0);
  double total, sort, order;
  Builder().GetTimes(total, sort, order);
  EXPECT_GE(total, 0.0);
  EXPECT_LT(total + sort + order, 60.0);
  EXPECT_NE(FileText("l.lst").find("\tETHANOL\t"), std::string::npos);
}

TEST_F(LibraryListTest, FormulasKeptApartHaveTwoRows) {
  Add(1, {"A"}, "A", "H2SO4", true);
  Add(2, {"B"}, "B", "C2H6", true);
  ASSERT_TRUE(Build());
  char formula[21] = "H2SO4", second[21];
  bool const apart = NormaliseFormula(formula, second, true) == 2;
  std::string const walked = Walk(sortByFormula);
  EXPECT_EQ(std::count(walked.begin(), walked.end(), 'A'), apart ? 2 : 1);
  EXPECT_TRUE(apart);
}

TEST_F(LibraryListTest, ProtectedLibraryHidesItsNumbers) {
  Add(1, {"A"}, "A", "CH4");
  library_.SetPassword(2, "secret");
  ASSERT_TRUE(Build(Path("l.lst").c_str()));
  EXPECT_EQ(Walk(sortByNbp), "");
  EXPECT_EQ(Walk(sortByMw), "");
  EXPECT_NE(FileText("l.lst").find("\t-3e+35\t-1\t-3e+35\t-1\n"), std::string::npos);
}

TEST_F(LibraryListTest, NoBankMakesAnEmptyList) {
  EXPECT_TRUE(list_.GetBuilder()->BuildList(&library_, "NONE", ""));
  EXPECT_TRUE(list_.GetBuilder()->BuildList(nullptr, "PURE", ""));
  EXPECT_EQ(Walk(sortById), "");
}

TEST_F(LibraryListTest, SecondBuildTakesThePlaceOfTheFirst) {
  Add(1, {"A"}, "A", "CH4");
  ASSERT_TRUE(Build());
  ASSERT_TRUE(Build());
  EXPECT_EQ(Walk(sortById), "A ");
}

}  // namespace
}  // namespace zel

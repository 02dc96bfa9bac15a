// Component lists: building them from rows and from libraries, and writing them as files.
#include "lists/comp_list_build.h"

#include <algorithm>
#include <limits>
#include <stdexcept>
#include <string>
#include <vector>

#include "frame/ascii.h"
#include "lists/sort_keys.h"
#include "maint/lib_maint.h"
#include "purecomp/formula.h"
#include "store/key.h"
#include "tests/lists/comp_list_fixture.h"
#include "tests/support/memory_file_system.h"
#include "tests/support/sample_component.h"
#include "zelaccess/Progress.h"

namespace zel {
namespace {

using test::CompListTest;
using test::kNone;

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

// Further IDs and formulas are in rows of their own, with the other data of their component; rows
// that sort alike stay in the order in which they were added.
TEST_F(BuildTest, FurtherRowsHaveTheirPlacesInEveryOrder) {
  CompListBuild_p& b = Builder();
  b.AddRecord("Aa", "M", "C2H6O", casn(), 300, 46);
  b.AddId("Z");
  b.AddFormula("NaCl");
  b.AddId("Y");
  b.AddRecord("Bb", "Z", "H2O", casn(), 300, 46);
  b.AddRecord("Aa", "M", "H2O", casn(), 300, 46);
  b.SortRecords();
  ASSERT_TRUE(b.WriteList(Path("rows.lst").c_str()));
  EXPECT_EQ(FileText("rows.lst"), Head("rows.lst") +
                                      "Aa\t0\tM\t0\tC2H6O\t0\t-\t-1\t300\t0\t46\t0\n"
                                      "Aa\t1\tM\t1\tH2O\t1\t-\t-1\t300\t1\t46\t1\n"
                                      "Aa\t4\tY\t2\tC2H6O\t4\t-\t-1\t300\t4\t46\t4\n"
                                      "Aa\t-1\tZ\t3\tC2H6O\t5\t-\t-1\t300\t-1\t46\t-1\n"
                                      "Bb\t-1\tZ\t4\tH2O\t-1\t-\t-1\t300\t-1\t46\t-1\n"
                                      "Aa\t-1\tM\t-1\tNaCl\t-1\t-\t-1\t300\t-1\t46\t-1\n");
}

// More rows than a sort would leave in order by chance.
TEST_F(BuildTest, RowsThatSortAlikeStayInTheOrderOfTheirAdding) {
  CompListBuild_p& b = Builder();
  std::string expected;
  for (int i = 0; i < 500; ++i) {
    b.AddRecord(std::to_string(i).c_str(), "SAME", "CH4", casn("64-17-5"), 300, 16);
    expected += std::to_string(i) + " ";
  }
  b.SortRecords();
  for (compListSorts sort : {sortById, sortByFormula, sortByCas, sortByNbp, sortByMw}) {
    list_.SetSort(sort, 0);
    std::string names;
    char id[13], name[41], formula[21];
    while (list_.GetNextShort(id, name, formula)) names += std::string(name) + " ";
    EXPECT_EQ(names, expected) << sort;
  }
}

TEST_F(BuildTest, RowsAddedAfterASortAreSortedWithTheOthers) {
  CompListBuild_p& b = Builder();
  std::string names;
  for (int round = 0; round < 3; ++round) {
    b.AddRecord(("First " + std::to_string(round)).c_str(), "M", "CH4", casn(), kNone, kNone);
    b.AddFormula("second");
    b.AddRecord(("Other " + std::to_string(round)).c_str(), "A", "CH4", casn(), kNone, kNone);
    b.SortRecords();
    b.SortRecords();
  }
  for (ListEntry const& row : list_.Entries()) names += row.name + ", ";
  EXPECT_EQ(names,
            "Other 0, Other 1, Other 2, First 0, First 1, First 2, First 0, First 1, First 2, ");
  list_.ClearList();
  b.SortRecords();
  EXPECT_TRUE(list_.Entries().empty());
}

// Whatever the length of what they have in common.
TEST_F(BuildTest, KeysThatBeginAlikeAreInTheOrderOfTheirBytes) {
  CompListBuild_p& b = Builder();
  std::vector<std::string> names;
  for (std::size_t size = 6; size < 40; ++size) {
    for (char const* end : {"", "0", "A", "z", "\xE4"})
      names.push_back(std::string(size, 'k') + end);
  }
  std::reverse(names.begin(), names.end());
  for (std::string const& name : names) {
    b.AddRecord(name.c_str(), name.c_str(), "", casn(), kNone, kNone);
  }
  b.SortRecords();
  auto const byKey = [](auto const& key) {
    return [key](std::string const& x, std::string const& y) { return key(x) < key(y); };
  };
  auto const check = [&](compListSorts sort) {
    std::vector<std::string> got;
    for (std::int32_t const row : list_.OrderBy(sort)) {
      got.push_back(list_.Entries()[static_cast<std::size_t>(row)].name);
    }
    EXPECT_EQ(got, names) << sort;
  };
  std::stable_sort(names.begin(), names.end(),
                   byKey([](std::string const& id) { return MakeIdKey(id); }));
  check(sortById);
  std::stable_sort(names.begin(), names.end(),
                   byKey([](std::string const& name) { return MakeNameKey(name); }));
  check(sortByName);
}

// Each formula appends to the sort text of the previous row: a second one is sorted after the first
// ones of all components with that ID.
TEST_F(BuildTest, SecondFurtherFormulaSortsBehindTheFirstOnes) {
  CompListBuild_p& b = Builder();
  b.AddRecord("One", "M", "A1", casn(), kNone, kNone);
  b.AddFormula("A2");
  b.AddFormula("A3");
  b.AddRecord("Two", "M", "B1", casn(), kNone, kNone);
  b.AddFormula("B2");
  b.SortRecords();
  std::string formulas;
  for (ListEntry const& row : list_.Entries()) formulas += row.formula + " ";
  EXPECT_EQ(formulas, "A1 B1 A2 B2 A3 ");
}

TEST_F(BuildTest, NumberThatIsNoneHasNoPlaceInItsOrder) {
  CompListBuild_p& b = Builder();
  double const none = std::numeric_limits<double>::quiet_NaN();
  double next = 400.0;
  for (char const* id : {"A", "B", "C", "D", "E", "F"}) {
    bool const listed = (*id - 'A') % 2 != 0;
    b.AddRecord(id, id, "CH4", casn(), listed ? next : none, listed ? next : none);
    next -= 10.0;
  }
  b.SortRecords();
  EXPECT_EQ(Walk(sortByNbp), "F D B ");
  EXPECT_EQ(Walk(sortByMw), "F D B ");
  EXPECT_EQ(Walk(sortById), "A B C D E F ");
}

TEST_F(BuildTest, HeadNamesTheFileBehindTheLastSeparatorOfEitherKind) {
  ASSERT_TRUE(Builder().WriteList(Path("a\\b.lst").c_str()));
  EXPECT_EQ(FileText("a\\b.lst"), Head("b.lst"));
}

TEST_F(BuildTest, FullDiskGivesFalse) {
  AddAll();
  EXPECT_FALSE(Builder().WriteList("/dev/full"));
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
  EXPECT_TRUE(std::filesystem::is_empty(Folder()));
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
  EXPECT_EQ(list_.Entries().size(), apart ? 3U : 2U);
}

TEST_F(LibraryListTest, ShortFormHasNoSecondFormula) {
  Add(1, {"A"}, "A", "H2SO4", true);
  Builder().SetShortForm(true);
  ASSERT_TRUE(Build());
  EXPECT_EQ(list_.Entries().size(), 1U);
}

TEST_F(LibraryListTest, ProtectedLibraryHidesItsNumbers) {
  Add(1, {"A"}, "A", "CH4");
  Add(2, {"B"}, "B", "C2H6");
  library_.SetPassword(2, "secret");
  ASSERT_TRUE(Build(Path("l.lst").c_str()));
  EXPECT_EQ(Walk(sortByNbp), "");
  EXPECT_EQ(Walk(sortByMw), "");
  std::string const text = FileText("l.lst");
  std::string const hidden = "\t-3e+35\t-1\t-3e+35\t-1\n";
  std::size_t const first = text.find(hidden);
  ASSERT_NE(first, std::string::npos);
  EXPECT_NE(text.find(hidden, first + 1), std::string::npos) << "both rows";
}

// Records the shares, and cancels at one of the calls.
struct Follower final : ZelProgress {
  bool OnProgress(double share) noexcept override {
    shares.push_back(share);
    return shares.size() != cancelAt;
  }
  std::vector<double> shares;
  std::size_t cancelAt = 0;  // counted from 1
};

TEST_F(LibraryListTest, ProgressIsReportedAndCancels) {
  for (std::int32_t i = 1; i <= 600; ++i) Add(i, {("C" + std::to_string(i)).c_str()}, "", "CH4");
  Follower follower;
  SetProgress(&library_, &follower);
  ASSERT_TRUE(Build());
  EXPECT_EQ(follower.shares, (std::vector<double>{0.0, 256.0 / 600.0, 512.0 / 600.0, 0.999, 1.0}));
  for (std::size_t call = 1; call < follower.shares.size(); ++call) {
    Follower canceller;
    canceller.cancelAt = call;
    SetProgress(&library_, &canceller);
    EXPECT_FALSE(Build(Path("cancelled.lst").c_str())) << call;
    EXPECT_EQ(canceller.shares.size(), call);
    EXPECT_EQ(Walk(sortById), "");
    EXPECT_EQ(FileText("cancelled.lst"), "no file");
  }
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

// Tables made from libraries and changes of libraries, compared with those of the desk.
#include <zelaccess/DeskChanges.h>
#include <zelaccess/DeskReports.h>

#include <cmath>
#include <fstream>

#include "c_fixture.h"

using ctest::Held;
using ctest::Reason;

namespace desk = zel::desk;

namespace {

class CDeskTest : public CFaceTest {
 protected:
  void SetUp() override {
    for (fs::directory_entry const& entry : fs::directory_iterator(Path(""))) {
      std::string const name = entry.path().filename().string();
      if (name.find("own") != std::string::npos) fs::remove_all(entry.path());
    }
    for (char const* ending : {".lb1", ".lb2"}) {
      fs::copy_file(Path("perry") + ending, Path("own") + ending);
    }
    own_ = Path("own.lb1");
  }
  void TearDown() override {
    if (change_ == nullptr) return;
    EXPECT_EQ(zel_change_drop(&change_), ZEL_OK);
  }
  static double Boiling() {
    auto const nbp =
        desk::Libraries({Path("own.lb1")}).Component("ETHANOL").Constant(zel::Constant::NBP);
    return nbp ? nbp->value : 0.0;
  }
  zel_status Edit(std::vector<std::string> texts, zel_table** table) {
    ctest::Words const words(std::move(texts));
    return zel_change_edit(change_, words.data(), words.size(), table);
  }

  std::string own_;
  zel_change* change_ = nullptr;
  ctest::Words libraries_{Paths({"crc.lb1", "perry.lb1"})};
};

TEST_F(CDeskTest, TablesAreThoseOfTheDesk) {
  char const* const two[] = {libraries_.data()[0], libraries_.data()[1]};
  zel_report_options const options = {sizeof options, nullptr, "bar,degC", 0, 0.0, nullptr, 0};
  desk::ReportSettings settings;
  settings.units = "bar,degC";

  Held why;
  ASSERT_EQ(zel_why(two, 2, "ETHANOL", "VaporPressure", &options, &why), ZEL_OK) << Reason();
  ctest::ExpectSame(why, desk::WhyOf(libraries_.Texts(), "ETHANOL", "VaporPressure", settings));

  Held data;
  char const* const components[] = {"ETHANOL", "WATER"};
  char const* const fields[] = {"TC", "PC", "VaporPressure"};
  ASSERT_EQ(zel_data(two, 2, components, 2, fields, 3, 1, &options, &data), ZEL_OK) << Reason();
  ctest::ExpectSame(data, desk::DataOf(libraries_.Texts(), {"ETHANOL", "WATER"},
                                       {"TC", "PC", "VaporPressure"}, true, settings));
  Held all;
  ASSERT_EQ(zel_data(two, 2, nullptr, 0, fields, 1, 0, nullptr, &all), ZEL_OK) << Reason();
  ctest::ExpectSame(all, desk::DataOf(libraries_.Texts(), {}, {"TC"}));
  Held none;
  EXPECT_EQ(zel_data(two, 2, nullptr, 0, components, 1, 0, nullptr, &none), ZEL_FAILED);
}

TEST_F(CDeskTest, PairsAndTheirCoverageAreThoseOfTheDesk) {
  std::string const sample = Path("sample.lb1");
  std::string const perry = Path("perry.lb1");
  char const* const one[] = {sample.c_str()};
  char const* const fields[] = {"bij", "bji"};
  char const* const components[] = {"ETHANOL", "WATER", "BENZENE"};
  zel_report_options const options = {sizeof options, perry.c_str(), nullptr, 0, 0.0, nullptr, 0};
  desk::ReportSettings settings;
  settings.names = perry;
  Held pairs;
  ASSERT_EQ(zel_pairs(one, 1, "NRTL", fields, 2, components, 1, &options, &pairs), ZEL_OK)
      << Reason();
  desk::Table const expected =
      desk::PairsOf({sample}, "NRTL", {"bij", "bji"}, {"ETHANOL"}, settings);
  EXPECT_GT(expected.Rows().size(), 2U);
  ctest::ExpectSame(pairs, expected);
  Held coverage;
  char const* const both[] = {sample.c_str(), perry.c_str()};
  ASSERT_EQ(zel_coverage(both, 2, "NRTL", components, 3, &options, &coverage), ZEL_OK) << Reason();
  ctest::ExpectSame(coverage, desk::CoverageOf({sample, perry}, "NRTL",
                                               {"ETHANOL", "WATER", "BENZENE"}, settings));
  Held none;
  EXPECT_EQ(zel_pairs(one, 1, "PURECOMP", fields, 2, nullptr, 0, &options, &none), ZEL_FAILED);
  EXPECT_EQ(zel_coverage(both, 2, "NRTL", fields, 1, &options, &none), ZEL_MISSING_COMPONENT);
}

TEST_F(CDeskTest, FindingsAreThoseOfTheDesk) {
  Held found;
  ASSERT_EQ(zel_check(libraries_.data(), 2, nullptr, nullptr, &found), ZEL_OK) << Reason();
  desk::Table const expected = desk::FindingsOf(libraries_.Texts(), {});
  EXPECT_FALSE(expected.Empty());
  ctest::ExpectSame(found, expected);
  char const* const silent[] = {"melting-point", "kin"};
  char const* const unknown[] = {"no-such-check"};
  zel_check_options check = {sizeof check, unknown, 1, 0, 0};
  Held none;
  EXPECT_EQ(zel_check(libraries_.data(), 2, &check, nullptr, &none), ZEL_UNKNOWN_WORD);
  check = {sizeof check, silent, 0, 0, 1};
  Held weak;
  ASSERT_EQ(zel_check(libraries_.data(), 1, &check, nullptr, &weak), ZEL_OK) << Reason();
  desk::CheckSettings settings;
  settings.minStrength = 0.0;
  ctest::ExpectSame(weak, desk::FindingsOf({libraries_.Texts()[0]}, settings));
  check = {sizeof check, nullptr, 0, 1, 0};
  Held structure;
  ASSERT_EQ(zel_check(libraries_.data(), 2, &check, nullptr, &structure), ZEL_OK);
  settings = {};
  settings.structureOnly = true;
  ctest::ExpectSame(structure, desk::FindingsOf(libraries_.Texts(), settings));
}

TEST_F(CDeskTest, ReportsSayWhatIsWrong) {
  Held table;
  EXPECT_EQ(zel_why(libraries_.data(), 2, "ETHANLO", "NBP", nullptr, &table),
            ZEL_MISSING_COMPONENT);
  EXPECT_EQ(zel_why(libraries_.data(), 2, "ETHANOL", "NPB", nullptr, &table), ZEL_UNKNOWN_WORD);
  zel_report_options options = {1, nullptr, nullptr, 0, 0.0, nullptr, 0};
  EXPECT_EQ(zel_why(libraries_.data(), 2, "ETHANOL", "NBP", &options, &table), ZEL_BAD_ARGUMENT);
  options = {sizeof options, nullptr, "furlong", 0, 0.0, nullptr, 0};
  EXPECT_NE(zel_why(libraries_.data(), 2, "ETHANOL", "NBP", &options, &table), ZEL_OK);
  EXPECT_EQ(table.table, nullptr);
}

TEST_F(CDeskTest, AnEditIsThereAfterTheCommitOnly) {
  double const before = Boiling();
  zel_change_options const options = {sizeof options, nullptr, nullptr, "degC", "from C", 0.0, 0};
  ASSERT_EQ(zel_change_begin(own_.c_str(), &options, &change_), ZEL_OK) << Reason();
  zel_change* second = nullptr;
  EXPECT_EQ(zel_change_begin(own_.c_str(), nullptr, &second), ZEL_IN_USE);
  EXPECT_EQ(second, nullptr);
  Held rows;
  ASSERT_EQ(Edit({"ETHANOL", "NBP=78.31"}, &rows), ZEL_OK) << Reason();
  std::size_t column = 0;
  double value = 0.0;
  ASSERT_EQ(zel_table_column(rows, "new", &column), ZEL_OK);
  ASSERT_EQ(zel_table_number(rows, 0, column, &value), ZEL_OK);
  EXPECT_NEAR(value, 78.31, 1e-4);
  EXPECT_EQ(zel_change_drop(&change_), ZEL_OK);
  EXPECT_EQ(change_, nullptr);
  EXPECT_EQ(Boiling(), before) << "dropped";

  ASSERT_EQ(zel_change_begin(own_.c_str(), &options, &change_), ZEL_OK);
  ASSERT_EQ(Edit({"ETHANOL", "NBP=78.31"}, nullptr), ZEL_OK);
  ASSERT_EQ(zel_change_commit(&change_), ZEL_OK) << Reason();
  EXPECT_EQ(change_, nullptr);
  EXPECT_NEAR(Boiling(), 351.46, 1e-4);
  Held history;
  ASSERT_EQ(zel_history(own_.c_str(), &history), ZEL_OK);
  ctest::ExpectSame(history, desk::HistoryOf(own_));
  EXPECT_EQ(ctest::CellOf(history, 0, 2), desk::Cell("from C"));
  Held restored;
  ASSERT_EQ(zel_undo(own_.c_str(), nullptr, &restored), ZEL_OK) << Reason();
  std::size_t restoredRows = 0;
  ASSERT_EQ(zel_table_size(restored, &restoredRows, nullptr), ZEL_OK);
  EXPECT_EQ(restoredRows, 1U);
  EXPECT_EQ(Boiling(), before);
  EXPECT_EQ(zel_undo(own_.c_str(), nullptr, nullptr), ZEL_FAILED) << "nothing is left";
}

TEST_F(CDeskTest, ADryRunChangesNothing) {
  double const before = Boiling();
  zel_change_options options = {sizeof options, nullptr, nullptr, nullptr, nullptr, 0.0, 1};
  ASSERT_EQ(zel_change_begin(own_.c_str(), &options, &change_), ZEL_OK);
  ASSERT_EQ(Edit({"ETHANOL", "NBP=300"}, nullptr), ZEL_OK);
  ASSERT_EQ(zel_change_commit(&change_), ZEL_OK);
  EXPECT_EQ(Boiling(), before);
}

TEST_F(CDeskTest, AnEditThatMeansNothingIsReported) {
  ASSERT_EQ(zel_change_begin(own_.c_str(), nullptr, &change_), ZEL_OK);
  Held rows;
  EXPECT_EQ(Edit({"ETHANOL", "NPB=1"}, &rows), ZEL_FAILED);
  EXPECT_NE(Reason().find("did you mean NBP?"), std::string::npos) << Reason();
  EXPECT_EQ(Edit({"ETHANLO", "NBP=1"}, &rows), ZEL_FAILED);
  EXPECT_NE(Reason().find("ETHANLO is not a component"), std::string::npos) << Reason();
  EXPECT_EQ(Edit({"ETHANOL", "NBP=78bar"}, &rows), ZEL_UNKNOWN_WORD);
  EXPECT_EQ(rows.table, nullptr);
}

TEST_F(CDeskTest, ImplausibleValuesAreFindings) {
  ASSERT_EQ(zel_change_begin(own_.c_str(), nullptr, &change_), ZEL_OK);
  ASSERT_EQ(Edit({"ETHANOL", "HVAPNBP=-5"}, nullptr), ZEL_OK);
  Held findings;
  ASSERT_EQ(zel_change_findings(change_, &findings), ZEL_OK);
  std::size_t rows = 0;
  std::size_t datum = 0;
  ASSERT_EQ(zel_table_size(findings, &rows, nullptr), ZEL_OK);
  ASSERT_EQ(rows, 1U);
  ASSERT_EQ(zel_table_column(findings, "datum", &datum), ZEL_OK);
  EXPECT_EQ(ctest::CellOf(findings, 0, datum), desk::Cell("HVAPNBP"));
}

TEST_F(CDeskTest, DocumentsAndTablesAreImported) {
  std::string const made = Path("own_made.lb1");
  ASSERT_EQ(zel_change_create(made.c_str(), nullptr, &change_), ZEL_OK) << Reason();
  zel_import_counts counts = {9, 9, 9};
  Held log;
  ASSERT_EQ(zel_change_import_document(change_, ZEL_DATA "/sample-nrtl.xml", nullptr, 0,
                                       ZEL_IMPORT_STRICT, &counts, &log),
            ZEL_OK)
      << Reason();
  EXPECT_EQ(counts.items, 218);
  EXPECT_EQ(counts.banks, 1);
  EXPECT_EQ(counts.components, 0);
  std::size_t lines = 9;
  ASSERT_EQ(zel_table_size(log, &lines, nullptr), ZEL_OK);
  EXPECT_EQ(lines, 0U);
  for (std::int32_t const checks : {0, 4}) {
    EXPECT_EQ(zel_change_import_document(change_, ZEL_DATA "/sample-nrtl.xml", nullptr, 0, checks,
                                         nullptr, nullptr),
              ZEL_BAD_ARGUMENT);
  }
  ASSERT_EQ(zel_change_commit(&change_), ZEL_OK) << Reason();
  EXPECT_TRUE(fs::exists(made));
  EXPECT_EQ(zel_change_create(made.c_str(), nullptr, &change_), ZEL_FAILED) << "it exists";

  ASSERT_EQ(zel_change_begin(own_.c_str(), nullptr, &change_), ZEL_OK);
  std::string const table = Path("own.csv");
  std::ofstream(table) << "id,NBP\nETHANOL,351.5\nWATER,373.1\n";
  Held rows;
  ASSERT_EQ(zel_change_import_table(change_, table.c_str(), "PERRY", &rows), ZEL_OK) << Reason();
  std::size_t count = 0;
  ASSERT_EQ(zel_table_size(rows, &count, nullptr), ZEL_OK);
  EXPECT_EQ(count, 2U);
  std::ofstream(table) << "id,NBP\nETHANOL,warm\n";
  EXPECT_EQ(zel_change_import_table(change_, table.c_str(), "PERRY", nullptr), ZEL_FAILED);
  EXPECT_NE(Reason().find("warm"), std::string::npos) << Reason();
  EXPECT_EQ(zel_change_import_document(change_, "none.xml", "", 0, 2, &counts, nullptr),
            ZEL_FAILED);
}

TEST_F(CDeskTest, AComponentIsImportedIntoABank) {
  fs::create_directories(Path("own_documents"));
  zel_library* library = nullptr;
  ASSERT_EQ(zel_library_open(Path("crc.lb1").c_str(), nullptr, &library), ZEL_OK);
  ASSERT_EQ(zel_library_export(library, Path("own_documents/crc.xml").c_str()), ZEL_OK);
  ASSERT_EQ(zel_library_close(&library), ZEL_OK);
  std::string document;  // of one component
  for (fs::directory_entry const& file : fs::recursive_directory_iterator(Path("own_documents"))) {
    zel_document_facts facts = {};
    if (file.is_regular_file() && zel_document_describe(file.path().c_str(), &facts) == ZEL_OK &&
        facts.banks == 0 && facts.components == 1) {
      document = file.path().string();
    }
  }
  ASSERT_NE(document, "");
  ASSERT_EQ(zel_change_create(Path("own_new.lb1").c_str(), nullptr, &change_), ZEL_OK);
  zel_import_counts counts = {};
  ASSERT_EQ(zel_change_import_document(change_, document.c_str(), "MINE", 0, 2, &counts, nullptr),
            ZEL_OK)
      << Reason();
  EXPECT_EQ(counts.components, 1);
  EXPECT_EQ(zel_change_import_document(change_, document.c_str(), "MINE", 0, 2, &counts, nullptr),
            ZEL_FAILED)
      << "it exists";
  EXPECT_EQ(zel_change_import_document(change_, document.c_str(), "MINE", 1, 2, &counts, nullptr),
            ZEL_OK)
      << Reason();
}

TEST_F(CDeskTest, AChangeThatCannotBeginIsReported) {
  EXPECT_EQ(zel_change_begin("none.lb1", nullptr, &change_), ZEL_NOT_FOUND);
  EXPECT_EQ(change_, nullptr);
  zel_change_options options = {7, nullptr, nullptr, nullptr, nullptr, 0.0, 0};
  EXPECT_EQ(zel_change_begin(own_.c_str(), &options, &change_), ZEL_BAD_ARGUMENT);
  EXPECT_EQ(change_, nullptr);
}

}  // namespace

// Changes, undo, tables, comparisons and pages as a host in C++17 makes them.
#include <zelaccess/DeskChanges.h>
#include <zelaccess/DeskReports.h>

#include <algorithm>
#include <fstream>
#include <thread>

#include "desk_fixture.h"

namespace desk = zel::desk;

namespace {

class DeskChangeTest : public DeskTest {
 protected:
  // own.lb1 is a copy of perry.lb1.
  void SetUp() override {
    for (fs::directory_entry const& entry : fs::directory_iterator(Path(""))) {
      std::string const name = entry.path().filename().string();
      if (name.find("own") != std::string::npos) fs::remove_all(entry.path());
    }
    for (char const* ending : {".lb1", ".lb2"}) {
      if (fs::exists(Path("perry") + ending)) {
        fs::copy_file(Path("perry") + ending, Path("own") + ending);
      }
    }
  }
  static double Boiling(char const* component = "ETHANOL") {
    auto const nbp =
        desk::Libraries(Paths({"own.lb1"})).Component(component).Constant(zel::Constant::NBP);
    return nbp ? nbp->value : 0.0;
  }
  static std::string MakeFile(std::string const& name, std::string const& text) {
    std::ofstream(Path(name), std::ios::binary) << text;
    return Path(name);
  }
};

// The cell of the first row whose first cell has the text.
desk::Cell CellAt(desk::Table const& table, std::string const& row, std::string const& column) {
  auto const at = std::find_if(table.Columns().begin(), table.Columns().end(),
                               [&](desk::Column const& one) { return one.name == column; });
  for (auto const& cells : table.Rows()) {
    if (cells[0] == desk::Cell(row)) {
      return cells.at(static_cast<std::size_t>(at - table.Columns().begin()));
    }
  }
  return "no such row";
}

TEST_F(DeskChangeTest, AnEditIsThereAfterTheCommitOnly) {
  double const before = Boiling();
  {
    desk::ChangeSettings settings;
    settings.units = "degC";
    settings.command = "correction of the boiling point";
    desk::Change change(Path("own.lb1"), settings);
    desk::EditSettings edit;
    edit.code = 999;
    desk::Table const changes = change.Edit({"ETHANOL", "NBP=78.31"}, edit);
    EXPECT_EQ(CellAt(changes, "NBP", "unit"), desk::Cell("C"));
    EXPECT_NEAR(std::get<double>(CellAt(changes, "NBP", "new")), 78.31, 1e-4);
    EXPECT_EQ(CellAt(changes, "NBP", "new code"), desk::Cell(std::int64_t{999}));
    EXPECT_THROW(desk::Change(Path("own.lb1")), desk::LibraryInUse);
    EXPECT_THROW(change.Edit({"ETHANOL", "NPB=78.31"}), desk::Error);
    EXPECT_THROW(change.Edit({"ETHANOL", "NBP=78.31bar"}), desk::UnknownWord);
  }
  EXPECT_EQ(Boiling(), before) << "dropped";
  EXPECT_TRUE(desk::HistoryOf(Path("own.lb1")).Empty());
  desk::ChangeSettings settings;
  settings.command = "correction";
  desk::Change change(Path("own.lb1"), settings);
  change.Edit({"ETHANOL", "NBP", "78.31C"});
  change.Commit();
  EXPECT_THROW(change.Commit(), desk::Error) << "only once";
  EXPECT_THROW(change.Edit({"ETHANOL", "NBP=1"}), desk::Error);
  EXPECT_NEAR(Boiling(), 351.46, 1e-4);
  desk::Table const history = desk::HistoryOf(Path("own.lb1"));
  ASSERT_EQ(history.Rows().size(), 1U);
  EXPECT_EQ(history.Rows()[0][2], desk::Cell("correction"));
  desk::Table const restored = desk::UndoLastChange(Path("own.lb1"));
  ASSERT_EQ(restored.Rows().size(), 1U);
  EXPECT_EQ(restored.Rows()[0][4], desk::Cell("K"));
  EXPECT_EQ(Boiling(), before);
  EXPECT_THROW(desk::UndoLastChange(Path("own.lb1")), desk::Error) << "nothing is left";
}

TEST_F(DeskChangeTest, ImplausibleValuesAreFindings) {
  desk::ChangeSettings settings;
  settings.units = "bar";
  desk::Change change(Path("own.lb1"), settings);
  change.Edit({"ETHANOL", "DIPOLE=1.69"});
  EXPECT_TRUE(change.Findings().Empty());
  change.Edit({"ETHANOL", "HVAPNBP=-5"});
  ASSERT_EQ(change.Findings().Rows().size(), 1U);
  change.ImportTable(MakeFile("bad.csv", "id,PTP\nWATER,-2\n"), "PERRY");
  desk::Table const findings = change.Findings();
  ASSERT_EQ(findings.Rows().size(), 2U);
  EXPECT_EQ(CellAt(findings, "error", "datum"), desk::Cell("HVAPNBP"));
  std::vector<desk::Cell> const& water = findings.Rows()[1];
  EXPECT_EQ(water[6], desk::Cell("WATER"));
  EXPECT_EQ(water[8], desk::Cell(-2.0));
  EXPECT_EQ(water[9], desk::Cell("bar"));
  change.Commit();
  EXPECT_THROW(change.Findings(), desk::Error);
}

TEST_F(DeskChangeTest, ADryRunChangesNothing) {
  double const before = Boiling();
  desk::ChangeSettings settings;
  settings.dryRun = true;
  desk::Change change(Path("own.lb1"), settings);
  EXPECT_EQ(change.Edit({"ETHANOL", "NBP=300"}).Rows().size(), 1U);
  change.Commit();
  EXPECT_EQ(Boiling(), before);
}

TEST_F(DeskChangeTest, ATableIsImportedWholeOrNotAtAll) {
  std::string const good = MakeFile("good.csv", "id;NBP [degC]\nETHANOL;78.31\nWATER;100\n");
  std::string const bad = MakeFile("bad.csv", "id,NBP\nETHANOL,300\nWATER,warm\n");
  {
    desk::Change change(Path("own.lb1"));
    desk::ImportedRows const rows = change.ImportTable(good, "PERRY");
    EXPECT_EQ(rows.read, 2);
    EXPECT_EQ(rows.changed + rows.same, 2);
    EXPECT_EQ(rows.refused, 0);
    change.Commit();
  }
  EXPECT_NEAR(Boiling(), 351.46, 1e-4);
  {
    desk::Change change(Path("own.lb1"));
    try {
      change.ImportTable(bad, "PERRY");
      FAIL() << "the row is refused";
    } catch (desk::Error const& error) {
      EXPECT_NE(std::string(error.what()).find("line 3"), std::string::npos) << error.what();
    }
  }
  EXPECT_NEAR(Boiling(), 351.46, 1e-4);
  desk::Change change(Path("own.lb1"));
  desk::TableSettings settings;
  settings.skipBad = true;
  EXPECT_EQ(change.ImportTable(bad, "PERRY", settings).refused, 1);
  change.Commit();
  EXPECT_NEAR(Boiling(), 300.0, 1e-4);
}

TEST_F(DeskChangeTest, ANewLibraryTakesPairsAndMergesOthers) {
  std::string const pairs = MakeFile("pairs.csv", "item 1,item 2,bij\n10000007,10000326,1.5\n");
  {
    desk::Change change = desk::Change::New(Path("own2.lb1"));
    EXPECT_EQ(change.ImportTable(pairs, "NRTL:OWN").isNew, 1);
    desk::Table const merged = change.Merge(Path("perry.lb1"));
    EXPECT_FALSE(merged.Empty());
    EXPECT_FALSE(fs::exists(Path("own2.lb1"))) << "not yet";
    change.Commit();
  }
  EXPECT_EQ(desk::Libraries(Paths({"own2.lb1"})).Pair("NRTL", "10000007", "10000326").Value("bij"),
            1.5);
  EXPECT_EQ(desk::Libraries(Paths({"own2.lb1"})).Component("ETHANOL").Identity().cas, "64-17-5");
  EXPECT_THROW(desk::Change::New(Path("own2.lb1")), desk::Error);
  desk::Change change(Path("own2.lb1"));
  desk::Table const banks = change.Renumber("ETHANOL", 21000001);
  EXPECT_FALSE(banks.Empty());
  change.Commit();
  EXPECT_EQ(desk::Libraries(Paths({"own2.lb1"})).Component("ETHANOL").Identity().number, 21000001);
}

TEST_F(DeskChangeTest, MergeRefusesWhatDiffersUnlessASideIsChosen) {
  {
    desk::Change change(Path("own.lb1"));
    change.Edit({"ETHANOL", "NBP=300"});
    change.Commit();
  }
  {
    desk::Change change(Path("own.lb1"));
    EXPECT_THROW(change.Merge(Path("perry.lb1")), desk::Error);
    EXPECT_THROW(change.Merge(Path("own.lb1")), desk::Error);
    EXPECT_THROW(change.Merge(Path("none.lb1")), desk::OpenError);
  }
  double const perry = desk::Libraries(Paths({"perry.lb1"}))
                           .Component("ETHANOL")
                           .Constant(zel::Constant::NBP)
                           .value_or(desk::ConstantValue{})
                           .value;
  desk::Change change(Path("own.lb1"));
  change.Merge(Path("perry.lb1"), desk::MergeChoice::kOurs);
  change.Commit();
  EXPECT_EQ(Boiling(), 300.0);
  desk::Change again(Path("own.lb1"));
  again.Merge(Path("perry.lb1"), desk::MergeChoice::kTheirs);
  again.Commit();
  EXPECT_EQ(Boiling(), perry);
}

TEST_F(DeskChangeTest, TablesOfComponentsAndPairsSayTheirUnits) {
  desk::ReportSettings settings;
  settings.units = "degC,bar";
  desk::Table const data = desk::DataOf(Paths({"crc.lb1", "perry.lb1"}), {"ETHANOL", "WATER"},
                                        {"NBP", "PC"}, false, settings);
  ASSERT_EQ(data.Rows().size(), 2U);
  auto const unitOf = [&](std::string const& name) {
    for (desk::Column const& column : data.Columns()) {
      if (column.name == name) return column.unit;
    }
    return std::string("no column");
  };
  EXPECT_EQ(unitOf("NBP"), "C");
  EXPECT_EQ(unitOf("PC"), "bar");
  EXPECT_THROW(desk::DataOf(Paths({"perry.lb1"}), {"ETHANLO"}, {"TC"}), desk::MissingComponent);
  EXPECT_THROW(desk::DataOf(Paths({"perry.lb1"}), {"ETHANOL"}, {"NPB"}), desk::Error);
  settings.units = "parsec";
  EXPECT_THROW(desk::DataOf(Paths({"perry.lb1"}), {"ETHANOL"}, {"TC"}, false, settings),
               desk::UnknownWord);
  desk::Table const pairs = desk::PairsOf(Paths({"sample.lb1"}), "NRTL", {"bij"});
  EXPECT_EQ(pairs.Rows().size(), 218U);
  EXPECT_THROW(desk::PairsOf(Paths({"sample.lb1"}), "RACKETT", {}), desk::Error);
}

TEST_F(DeskChangeTest, CoverageNamesTheSourceOfAPairOrNone) {
  desk::Table const table =
      desk::CoverageOf(Paths({"perry.lb1", "sample.lb1"}), "NRTL", {"ETHANOL", "WATER", "ARGON"});
  ASSERT_EQ(table.Rows().size(), 3U);
  EXPECT_NE(table.Rows()[0][2], desk::Cell()) << "ethanol and water";
  EXPECT_EQ(table.Rows()[1][2], desk::Cell()) << "ethanol and argon";
}

TEST_F(DeskChangeTest, AComparisonShowsWhatAnEditChanged) {
  {
    desk::Change change(Path("own.lb1"));
    change.Edit({"ETHANOL", "TC=500"});
    change.Commit();
  }
  desk::ReportSettings settings;
  settings.units = "degC";
  desk::ComparedSources const found =
      desk::CompareSources(Path("perry.lb1"), Path("own.lb1"), {"ETHANOL"}, 0.01, settings);
  EXPECT_EQ(found.components, 1);
  ASSERT_EQ(found.constants.Rows().size(), 1U);
  EXPECT_NEAR(std::get<double>(found.constants.Rows()[0][3]), 226.85, 1e-4);
  EXPECT_EQ(found.constants.Rows()[0][4], desk::Cell("C"));
  EXPECT_TRUE(
      desk::CompareSources(Path("perry.lb1"), Path("own.lb1"), {"ETHANOL"}, 0.1).constants.Empty());
}

TEST_F(DeskChangeTest, ATableTextReadsBackToTheSameValues) {
  std::string const text = desk::TableTextOf(Path("sample.lb1"), "NRTL", "csv");
  std::string const path = MakeFile("own.csv", text);
  {
    desk::Change change = desk::Change::New(Path("own3.lb1"));
    EXPECT_EQ(change.ImportTable(path, "NRTL:SAMPLE").isNew, 218);
    change.Commit();
  }
  EXPECT_EQ(desk::TableTextOf(Path("own3.lb1"), "NRTL", "csv"), text);
  EXPECT_THROW(desk::TableTextOf(Path("sample.lb1"), "NRTL", "doc"), desk::UnknownWord);
  EXPECT_THROW(desk::TableTextOf(Path("sample.lb1"), "NONE", "csv"), desk::Error);
}

TEST_F(DeskChangeTest, FlattenMakesOneLibraryOfWhatTheSearchFinds) {
  desk::Table const taken =
      desk::FlattenTo(Paths({"crc.lb1", "perry.lb1"}), Path("own4.lb1"), {"ETHANOL", "WATER"});
  EXPECT_FALSE(taken.Empty());
  desk::Libraries const merged(Paths({"own4.lb1"}));
  EXPECT_EQ(merged.Components().size(), 2U);
  desk::Libraries const both(Paths({"crc.lb1", "perry.lb1"}));
  EXPECT_EQ(merged.Component("WATER").Constant(zel::Constant::TC)->value,
            both.Component("WATER").Constant(zel::Constant::TC)->value);
  EXPECT_THROW(desk::FlattenTo(Paths({"crc.lb1"}), Path("own4.lb1")), desk::Error) << "exists";
}

TEST_F(DeskChangeTest, PagesAreWholeDocuments) {
  std::string const sheet = desk::SheetOf(Paths({"perry.lb1"}), {"ETHANOL"});
  EXPECT_EQ(sheet.rfind("<!doctype html>", 0), 0U);
  EXPECT_NE(sheet.find("64-17-5"), std::string::npos);
  EXPECT_NE(sheet.find("</html>"), std::string::npos);
  EXPECT_EQ(sheet.find("Benzene"), std::string::npos);
  EXPECT_THROW(desk::SheetOf(Paths({"perry.lb1"}), {"ETHANLO"}), desk::MissingComponent);
  EXPECT_NE(desk::ReportOf(Paths({"crc.lb1", "perry.lb1"})).find("Benzene"), std::string::npos);
}

TEST_F(DeskChangeTest, DifferentThreadsChangeDifferentLibraries) {
  std::vector<std::thread> threads;
  for (int i = 0; i < 4; ++i) {
    threads.emplace_back([i] {
      desk::Change change = desk::Change::New(Path("own_t" + std::to_string(i) + ".lb1"));
      change.Merge(Path("perry.lb1"));
      change.Edit({"ETHANOL", "NBP=" + std::to_string(300 + i)});
      change.Commit();
    });
  }
  for (std::thread& thread : threads) thread.join();
  for (int i = 0; i < 4; ++i) {
    desk::Libraries const own({Path("own_t" + std::to_string(i) + ".lb1")});
    EXPECT_EQ(own.Component("ETHANOL").Constant(zel::Constant::NBP)->value, 300.0 + i);
  }
}

}  // namespace

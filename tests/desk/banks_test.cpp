// Banks of one library, and the tables of why and check, as a host in C++17 uses them.
#include <gtest/gtest.h>
#include <zelaccess/DeskBanks.h>
#include <zelaccess/DeskChanges.h>
#include <zelaccess/DeskReports.h>

#include <algorithm>
#include <fstream>

#include "desk_fixture.h"

namespace desk = zel::desk;

namespace {

class DeskBanksTest : public DeskTest {
 protected:
  // An empty folder.
  static std::string Folder(std::string const& name) {
    fs::remove_all(Path(name));
    fs::create_directory(Path(name));
    return Path(name);
  }
  static void RemoveLibrary(std::string const& name) {
    for (char const* ending : {".lb1", ".lb2"}) fs::remove(Path(name + ending));
  }
};

TEST_F(DeskBanksTest, TypesAndFieldsAreThoseOfTheCatalogue) {
  std::vector<desk::BankType> const types = desk::BankTypes();
  EXPECT_EQ(types.size(), 50U);
  for (desk::BankType const& type : types) {
    if (type.type != "NRTL") continue;
    EXPECT_EQ(type.keyKind, desk::KeyKind::kComponents);
    EXPECT_EQ(type.keyParts, 2);
    EXPECT_EQ(type.formats, 2);
  }
  std::vector<desk::FieldInfo> const fields = desk::FieldsOfType("nrtl");
  auto const bij = std::find_if(fields.begin(), fields.end(),
                                [](desk::FieldInfo const& one) { return one.name == "bij"; });
  ASSERT_NE(bij, fields.end());
  EXPECT_EQ(bij->type, zel::fieldReal);
  EXPECT_THROW(desk::FieldsOfType("NRLT"), desk::UnknownWord);
}

TEST_F(DeskBanksTest, ItemsOfABankAreFoundByTheirKeys) {
  desk::LibrariesOptions options;
  options.names = Path("perry.lb1");
  desk::LibraryFile const library(Path("sample.lb1"), options);
  EXPECT_EQ(library.Bank("nrtl").name, "SAMPLE");
  EXPECT_EQ(library.Bank("NRTL:SAMPLE").items, 218);
  auto const keys = library.Keys("NRTL");
  ASSERT_EQ(keys.size(), 218U);
  EXPECT_TRUE(library.Item("NRTL", keys[0]).Value("bij"));
  EXPECT_EQ(library.Item("NRTL", {"ETHANOL", "WATER"}).Value("bji"), 624.867);
  EXPECT_EQ(library.Item("NRTL", {"WATER", "ETHANOL"}).Value("bij"), 624.867);
  EXPECT_THROW(library.Item("NRTL", {"ETHANOL", "ETHANOL"}), desk::MissingItem);
  EXPECT_THROW(library.Item("WILSN", {"ETHANOL", "WATER"}), desk::MissingBank);
  desk::LibraryFile const perry(Path("perry.lb1"));
  desk::Item const ethanol = perry.Item("PURECOMP", {"ETHANOL"});
  EXPECT_EQ(ethanol.Value("TC"), 514.0);
  EXPECT_EQ(ethanol.Field("formula").text, "C2H6O");
  EXPECT_NE(library.Memo("NRTL") + library.Memo(), "");
}

TEST_F(DeskBanksTest, DocumentsThatWereWrittenAreRead) {
  desk::LibraryFile const library(Path("sample.lb1"));
  std::string const folder = Folder("documents");
  EXPECT_EQ(library.Export(folder), static_cast<std::int64_t>(library.Banks().size()) + 1);
  EXPECT_EQ(library.Export(folder + "/nrtl.xml", "NRTL"), 1);
  RemoveLibrary("copy");
  desk::Change change = desk::Change::New(Path("copy.lb1"));
  desk::ImportedDocument const done = change.ImportDocument(folder + "/nrtl.xml");
  EXPECT_EQ(done.items, 218);
  EXPECT_EQ(done.banks, 1);
  EXPECT_TRUE(done.log.Empty());
  change.Commit();
  EXPECT_EQ(desk::LibraryFile(Path("copy.lb1")).Bank("NRTL").items, 218);
  EXPECT_THROW(library.Export(Path("copy.lb1")), desk::Error) << "a library is not overwritten";
}

TEST_F(DeskBanksTest, ADocumentWithAnErrorIsRefused) {
  std::ofstream(Path("bad.xml")) << "<bank>";
  RemoveLibrary("copy");
  desk::Change change = desk::Change::New(Path("copy.lb1"));
  try {
    change.ImportDocument(Path("bad.xml"));
    FAIL() << "imported";
  } catch (desk::Error const& error) {
    EXPECT_EQ(error.File(), Path("bad.xml"));
    EXPECT_FALSE(error.Reason().empty());
  }
  EXPECT_THROW(change.ImportDocument(Path("none.xml")), desk::Error);
  EXPECT_THROW(change.ImportDocument(Path("bad.xml"), {"", false, "careful"}), desk::UnknownWord);
}

TEST_F(DeskBanksTest, TextIndexesAreWrittenIntoAFolder) {
  std::string const folder = Folder("indexes");
  EXPECT_EQ(desk::LibraryFile(Path("perry.lb1")).Dump(folder), 2);
  EXPECT_TRUE(fs::exists(folder + "/perry.bnk"));
  EXPECT_TRUE(fs::exists(folder + "/perry.PERRY.cmp"));
  EXPECT_FALSE(fs::exists(folder + "/perry.lb1"));
}

TEST_F(DeskBanksTest, WhyHasARowForEachSource) {
  desk::Table const nbp = desk::WhyOf(Paths({"perry.lb1", "crc.lb1"}), "ETHANOL", "NBP");
  ASSERT_EQ(nbp.Rows().size(), 2U);
  EXPECT_EQ(nbp.Columns()[1].unit, "K");
  EXPECT_EQ(nbp.Rows()[0][3], desk::Cell("has no value"));
  EXPECT_EQ(nbp.Rows()[1][1], desk::Cell(351.39));
  EXPECT_EQ(nbp.Rows()[1][3], desk::Cell("won"));
  desk::Table const curve =
      desk::WhyOf(Paths({"perry.lb1", "crc.lb1"}), "ETHANOL", "VaporPressure");
  EXPECT_EQ(curve.Rows()[0][1], desk::Cell(std::int64_t{20}));
  EXPECT_EQ(curve.Rows()[0][6], desk::Cell("won"));
  EXPECT_THROW(desk::WhyOf(Paths({"crc.lb1"}), "ETHANOL", "NPB"), desk::UnknownWord);
}

TEST_F(DeskBanksTest, ACheckListsItsFindings) {
  desk::Table const sound = desk::CheckOf(Paths({"sample.lb1"}), {}, true);
  EXPECT_TRUE(sound.Empty());
  fs::copy_file(Path("perry.lb1"), Path("cut.lb1"), fs::copy_options::overwrite_existing);
  fs::copy_file(Path("perry.lb2"), Path("cut.lb2"), fs::copy_options::overwrite_existing);
  fs::resize_file(Path("cut.lb2"), 1024);
  desk::Table const damaged = desk::CheckOf(Paths({"cut.lb1"}));
  ASSERT_FALSE(damaged.Empty());
  EXPECT_EQ(damaged.Rows()[0][0], desk::Cell("damage"));
  EXPECT_THROW(desk::CheckOf(Paths({"perry.lb1"}), {"nothing"}), desk::UnknownWord);
}

TEST_F(DeskBanksTest, FindingsHaveAStrengthAFingerprintAndEvidence) {
  desk::CheckSettings check;
  check.minStrength = 0.0;
  desk::Table const all = desk::FindingsOf(Paths({"crc.lb1", "perry.lb1"}), check);
  std::vector<std::string> names;
  for (desk::Column const& column : all.Columns()) names.push_back(column.name);
  std::vector<std::string> const last = {"strength", "fingerprint", "evidence", "text"};
  ASSERT_EQ(names.size(), 17U);
  EXPECT_TRUE(std::equal(last.begin(), last.end(), names.end() - 4));
  auto const strengthOf = [](std::vector<desk::Cell> const& row) {
    return std::get<double>(row[13]);
  };
  std::size_t judged = 0;
  std::size_t weak = 0;
  for (auto const& row : all.Rows()) {
    EXPECT_GE(strengthOf(row), 0.0);
    EXPECT_LE(strengthOf(row), 1.0);
    EXPECT_EQ(std::get<std::string>(row[14]).size(), 16U);
    if (std::holds_alternative<std::string>(row[15])) ++judged;
    if (strengthOf(row) < 0.49) ++weak;
  }
  EXPECT_GT(judged, 0U);
  EXPECT_GT(weak, 0U);
  // The default is that of CheckOf.
  desk::Table const strong = desk::FindingsOf(Paths({"crc.lb1", "perry.lb1"}), {});
  EXPECT_EQ(strong.Rows(), desk::CheckOf(Paths({"crc.lb1", "perry.lb1"})).Rows());
  EXPECT_LE(strong.Rows().size() + weak, all.Rows().size());
  check.minStrength = 1.0;
  desk::Table const certain = desk::FindingsOf(Paths({"crc.lb1", "perry.lb1"}), check);
  for (auto const& row : certain.Rows()) EXPECT_EQ(strengthOf(row), 1.0);
  check.structureOnly = true;
  EXPECT_TRUE(desk::FindingsOf(Paths({"crc.lb1"}), check).Empty());
  check.structureOnly = false;
  check.silent = {"nothing"};
  EXPECT_THROW(desk::FindingsOf(Paths({"crc.lb1"}), check), desk::UnknownWord);
}

}  // namespace

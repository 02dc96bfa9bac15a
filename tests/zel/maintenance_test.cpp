// The commands of zel that change, copy and compare libraries.
#include <algorithm>

#include "tests/zel/zel_fixture.h"

namespace zel::test {
namespace {

using nlohmann::json;

class MaintenanceTest : public ZelTest {};

TEST_F(MaintenanceTest, EveryPrintableCharacterThatAPasswordMayHaveOpens) {
  Good("create own.lb1");
  Outcome const set = Zel("set own.lb1 --new-password 'Az09 !\"#$%&()*+,-./:;<=>?@_'");
  ASSERT_EQ(set.status, 0) << set.err;
  EXPECT_EQ(Zel("set own.lb1 --description x").status, 1);
  Good("set own.lb1 --description x --password 'Az09 !\"#$%&()*+,-./:;<=>?@_'");
  EXPECT_EQ(
      Zel("set own.lb1 --description y", "ZEL_PASSWORD='Az09 !\"#$%&()*+,-./:;<=>?@_'").status, 0);
}

// A password in the environment is for the libraries that have one.
TEST_F(MaintenanceTest, PasswordForALibraryWithout) {
  Outcome const general = Zel("set crc.lb1 --description y", "ZEL_PASSWORD=x");
  EXPECT_EQ(general.status, 0) << general.err;
  Outcome const given = Zel("set crc.lb1 --description z --password x");
  EXPECT_EQ(given.status, 1);
  EXPECT_EQ(given.err, "zel: crc.lb1: has no password; omit --password\n");
  EXPECT_NE(Good("info crc.lb1").find("y\n"), std::string::npos);
}

TEST_F(MaintenanceTest, ChangedLibraryKeepsItsModeAndGroup) {
  ASSERT_EQ(Shell("chmod 640 crc.lb1 && chmod 664 crc.lb2 && chgrp $(id -G | tr ' ' '\\n' | tail "
                  "-1) crc.lb1")
                .status,
            0);
  std::string const before = Shell("stat -c '%a %u %g' crc.lb1 crc.lb2").out;
  Good("set crc.lb1 --description x");
  EXPECT_EQ(Shell("stat -c '%a %u %g' crc.lb1 crc.lb2").out, before);
}

TEST_F(MaintenanceTest, NothingIsToldAsNone) {
  Good("create own.lb1");
  EXPECT_EQ(Good("banks own.lb1"), "none\n");
  EXPECT_EQ(Json("banks own.lb1")["banks"], json::array());
}

TEST_F(MaintenanceTest, InPlaceDoesTheSame) {
  Good("copy sample.lb1 one.lb1 --create --bank OCTANE");
  Good("copy sample.lb1 two.lb1 --create --bank OCTANE");
  Good("set one.lb1 --description x");
  Good("set two.lb1 --description x --in-place");
  Good("copy sample.lb1 one.lb1 --bank RACKETT");
  Good("copy sample.lb1 two.lb1 --bank RACKETT --in-place");
  EXPECT_EQ(Json("diff one.lb1 two.lb1")["differences_found"], 0);
  EXPECT_EQ(Zel("set two.lb1 --description y --in-place --password z").status, 1);
}

TEST_F(MaintenanceTest, SwitchesOfExportAndImport) {
  Good("export crc.lb1 --banner -o a.xml");
  EXPECT_NE(FileText(Folder() / "a.xml").find("*** Maintenance Log ***"), std::string::npos);
  std::filesystem::create_directory(Folder() / "files");
  EXPECT_GT(Json("export crc.lb1 --component-files -o files")["documents"], 100);
  EXPECT_NE(Good("import own.lb1 a.xml --create --verbose"), Good("import two.lb1 a.xml --create"));
}

TEST_F(MaintenanceTest, ExportAndImportComeBackEqual) {
  Good("export sample.lb1 -o out.xml");
  Good("import again.lb1 out.xml --create");
  json const difference = Json("diff sample.lb1 again.lb1");
  EXPECT_EQ(difference["differences_found"], 0) << difference;
  Good("export perry.lb1 --component ETHANOL -o ethanol.xml");
  EXPECT_NE(FileText(Folder() / "ethanol.xml").find("64-17-5"), std::string::npos);
  Good("export sample.lb1 --bank NRTL -o nrtl.xml");
  EXPECT_NE(FileText(Folder() / "nrtl.xml").find("NRTL"), std::string::npos);
  Good("create one.lb1");
  Good("copy perry.lb1 one.lb1 --bank PERRY --item WATER");
  Good("import one.lb1 ethanol.xml --bank PERRY");
  EXPECT_EQ(Json("find one.lb1")["found"], 2);
}

TEST_F(MaintenanceTest, DocumentsTellAsJson) {
  json const imported = Json("import own.lb1 '" ZEL_DATA "/sample-octane.xml' --create");
  EXPECT_EQ(imported["imported"], 1);
  json const exported = Json("export own.lb1 -o own.xml");
  EXPECT_EQ(exported["documents"], 2);
  EXPECT_TRUE(Json("dump own.lb1")["written"].is_string());
}

TEST_F(MaintenanceTest, DumpWritesIndexesAndShowsATree) {
  Good("dump perry.lb1");
  Contents const once = ContentsOf(Folder());
  Good("dump perry.lb1");
  EXPECT_TRUE(ContentsOf(Folder()) == once) << "nothing is left beside the indexes";
  std::string const banks = FileText(Folder() / "perry.bnk");
  EXPECT_NE(banks.find("PURECOMP"), std::string::npos) << banks;
  std::string const components = FileText(Folder() / "perry.PERRY.cmp");
  EXPECT_NE(components.find("Ethanol"), std::string::npos);
  std::string const tree = Good("dump sample.lb1 --tree NRTL");
  EXPECT_NE(tree.find("218"), std::string::npos) << tree;
}

TEST_F(MaintenanceTest, ListIsBuiltAndQueried) {
  json const found = Json("list pick.lst --build crc.lb1 --filter '*butane'")["components"];
  std::vector<std::string> names;
  for (json const& row : found) names.push_back(row["name"]);
  ASSERT_FALSE(names.empty());
  EXPECT_EQ(names[0], "Butane");
  double before = 0.0;
  json const rising = Json("list pick.lst --sort nbp --range 300:310");
  for (json const& row : rising["components"]) {
    double const nbp = row["nbp"];
    EXPECT_GE(nbp, before);
    EXPECT_GE(nbp, 300);
    EXPECT_LE(nbp, 310);
    before = nbp;
  }
  EXPECT_GT(before, 0.0);
  json const falling = Json("list pick.lst --sort nbp --range 300:310 --descending")["components"];
  EXPECT_EQ(falling[0]["nbp"], before);
}

// By the main word of a name.
TEST_F(MaintenanceTest, ListSortsButaneUnderBAndPineneUnderP) {
  Good("import own.lb1 '" ZEL_EXAMPLES "/own.xml' --create");
  for (char const* id : {"BENZENE", "PROPANE", "WATER"}) {
    Good("copy perry.lb1 own.lb1 --bank PERRY --item " + std::string(id));
  }
  json const list = Json("list own.lst --build own.lb1");
  std::vector<std::string> names;
  for (json const& row : list["components"]) names.push_back(row["name"]);
  EXPECT_EQ(names,
            (std::vector<std::string>{"Benzene", "n-Butane", "alpha-Pinene", "Propane", "Water"}));
}

TEST_F(MaintenanceTest, CopyOfBanksAndItems) {
  Good("copy sample.lb1 own.lb1 --create --bank NRTL --bank WILSON");
  EXPECT_EQ(Json("banks own.lb1")["banks"].size(), 2U);
  EXPECT_EQ(Json("diff sample.lb1 own.lb1 --bank NRTL")["differences_found"], 0);
  EXPECT_EQ(Zel("copy sample.lb1 own.lb1 --bank NRTL").status, 1) << "is there already";
  Good("copy sample.lb1 own.lb1 --bank NRTL --replace");
  Good("copy sample.lb1 own.lb1 --replace");
  EXPECT_EQ(Rows(Json("diff sample.lb1 own.lb1")["differences"], "item", "library"),
            Json("diff sample.lb1 own.lb1")["differences_found"])
      << "banks are copied, the description is not";
}

TEST_F(MaintenanceTest, CopyIntoAnOlderFormatIsRefused) {
  MakeFile("old.xml", "<bank type=\"NRTL\" name=\"SAMPLE\" format=\"1\"></bank>");
  Good("import old.lb1 old.xml --create");
  Outcome const outcome = Zel("copy sample.lb1 old.lb1 --bank NRTL");
  EXPECT_EQ(outcome.status, 1);
  EXPECT_NE(outcome.err.find("is of format 1"), std::string::npos) << outcome.err;
}

TEST_F(MaintenanceTest, CopyOfComponents) {
  Good("copy perry.lb1 own.lb1 --create");
  EXPECT_EQ(Json("diff perry.lb1 own.lb1 --bank PERRY")["differences_found"], 0);
  Good("copy crc.lb1 two.lb1 --create --bank CRC --item 64-17-5");
  json const one = Json("find two.lb1");
  ASSERT_EQ(one["found"], 1);
  EXPECT_EQ(one["components"][0]["id"], "ETHANOL");
  // Another component with an ID that is already used.
  Good("export two.lb1 --component ETHANOL -o ethanol.xml");
  Outcome const changed = Shell(
      "sed 's|10000007|77|' ethanol.xml > other.xml && \"$ZEL\" create other.lb1 && "
      "\"$ZEL\" import other.lb1 other.xml --bank CRC && "
      "\"$ZEL\" copy other.lb1 two.lb1 --replace");
  EXPECT_EQ(changed.status, 1);
  EXPECT_NE(changed.err.find("\"ETHANOL\""), std::string::npos) << changed.err;
}

TEST_F(MaintenanceTest, DeleteOfItemAndBank) {
  json const before = Json("info sample.lb1");
  Good("delete sample.lb1 NRTL ETHANOL WATER --names perry.lb1");
  EXPECT_EQ(Zel("show sample.lb1 NRTL ETHANOL WATER", "ZEL_NAMES=perry.lb1").status, 1);
  Good("delete sample.lb1 WILSON --whole-bank");
  json const after = Json("info sample.lb1");
  EXPECT_EQ(Row(after["banks"], "type", "NRTL")["items"].get<int>(),
            Row(before["banks"], "type", "NRTL")["items"].get<int>() - 1);
  EXPECT_TRUE(Row(after["banks"], "type", "WILSON").is_null());
}

TEST_F(MaintenanceTest, DiffNamesFieldAndBothValues) {
  Good("copy sample.lb1 own.lb1 --create --bank NRTL");
  Good("delete own.lb1 NRTL ETHANOL WATER --names perry.lb1");
  json const missing = Json("diff sample.lb1 own.lb1 --bank NRTL --names perry.lb1");
  ASSERT_EQ(missing["differences_found"], 1);
  EXPECT_EQ(missing["differences"][0]["field"], "whole");
  EXPECT_EQ(missing["differences"][0]["second"], "not there");
  EXPECT_EQ(Zel("diff sample.lb1 own.lb1 --bank NRTL --exit-code").status, 1);
  EXPECT_EQ(Zel("diff sample.lb1 sample.lb1 --exit-code").status, 0);
  EXPECT_EQ(Json("diff perry.lb1 sample.lb1 --bank NRTL")["differences_found"], 1)
      << "a bank of the second alone";
  // Another value of one field, through a document.
  Good("export own.lb1 --bank NRTL -o own.xml");
  Outcome const changed = Shell(
      "sed 's|<alphaij> .* </alphaij>|<alphaij> 0.25 </alphaij>|' own.xml > changed.xml && "
      "\"$ZEL\" create changed.lb1 && \"$ZEL\" import changed.lb1 changed.xml && "
      "\"$ZEL\" diff own.lb1 changed.lb1 --bank NRTL --json");
  ASSERT_EQ(changed.status, 0) << changed.err;
  json const difference = json::parse(changed.out.substr(changed.out.find("{\n")));
  ASSERT_GT(difference["differences_found"], 0);
  for (json const& row : difference["differences"]) {
    EXPECT_EQ(row["field"], "alphaij");
    EXPECT_EQ(row["second"], 0.25);
  }
}

TEST_F(MaintenanceTest, CheckOfSoundLibraries) {
  json const sample = Json("check sample.lb1");
  EXPECT_EQ(sample["damage"], 0);
  EXPECT_EQ(sample["warnings"], 0);
  json const crc = Json("check crc.lb1");
  EXPECT_EQ(crc["damage"], 0);
  EXPECT_GT(crc["warnings"], 0);
  std::string all;
  json const rules = Json("check --ids")["checks"];
  for (json const& check : rules) all += " " + check["id"].get<std::string>();
  json const silent = Json("check crc.lb1 --min-strength 0 --silence" + all);
  EXPECT_EQ(silent["warnings"], 0) << silent;
  // A silenced rule finds nothing, and is not part of what others find.
  json const without = Json("check crc.lb1 --min-strength 0 --silence vapor-pressure");
  EXPECT_EQ(without.dump().find("(vapor-pressure)"), std::string::npos);
  EXPECT_NE(Json("check crc.lb1 --min-strength 0").dump().find("(vapor-pressure)"),
            std::string::npos);
  EXPECT_GT(without["warnings"], 0);
  EXPECT_EQ(Json("check crc.lb1 --structure")["warnings"], 0);
}

TEST_F(MaintenanceTest, DiffSeesHeadersAndCodes) {
  Good("copy crc.lb1 own.lb1 --create");
  Good("set own.lb1 --description other --library-version 1");
  Good("memo own.lb1 --bank CRC --set note");
  json const rows = Json("diff crc.lb1 own.lb1")["differences"];
  EXPECT_EQ(rows.size(), 2U);
  EXPECT_EQ(Row(rows, "field", "description")["second"], "other");
  EXPECT_EQ(Row(rows, "field", "memo")["item"], "PURECOMP:CRC");
  Good("export crc.lb1 --component ETHANOL -o e.xml");
  Outcome const changed = Shell(
      "sed 's|refCode=\"[0-9]*\"|refCode=\"999\"|' e.xml > f.xml && "
      "\"$ZEL\" import e.lb1 e.xml --bank B --create >/dev/null && "
      "\"$ZEL\" import f.lb1 f.xml --bank B --create >/dev/null && "
      "\"$ZEL\" diff e.lb1 f.lb1 --csv");
  ASSERT_EQ(changed.status, 0) << changed.err;
  EXPECT_NE(changed.out.find("VaporPressure code,"), std::string::npos) << changed.out;
}

TEST_F(MaintenanceTest, CheckTellsDamageByItsExitStatus) {
  // The length of the free list, in the block table.
  std::string bytes = FileText(Folder() / "perry.lb1");
  bytes[1000] = '\x63';
  MakeFile("perry.lb1", bytes);
  Outcome const outcome = Zel("check perry.lb1 --json");
  EXPECT_EQ(outcome.status, 1);
  json const report = json::parse(outcome.out);
  EXPECT_GE(report["damage"], 1);
  EXPECT_EQ(report["findings"][0]["severity"], "damage");
  EXPECT_EQ(report["findings"][0]["id"], "extent");
}

}  // namespace
}  // namespace zel::test

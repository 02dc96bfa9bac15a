// The command salvage: what can be read out of a damaged library, in a new one.
#include <cstring>
#include <fstream>

#include "tests/zel/zel_fixture.h"

namespace zel::test {
namespace {

using nlohmann::json;

class SalvageCommandTest : public ZelTest {
 protected:
  // A copy of a library; `at` of its file gets zeros.
  void Break(std::string const& library, std::string const& file, std::size_t from,
             std::size_t bytes) const {
    for (char const* ending : {".lb1", ".lb2"}) {
      std::filesystem::copy_file(Folder() / (library + ending),
                                 Folder() / (std::string("broken") + ending),
                                 std::filesystem::copy_options::overwrite_existing);
    }
    std::fstream stream(Folder() / file, std::ios::in | std::ios::out | std::ios::binary);
    stream.seekp(static_cast<std::streamoff>(from));
    stream << std::string(bytes, '\0');
  }
  // The report of a run that ends with 1.
  json Found(std::string const& words) const {
    Outcome const outcome = Zel(words + " --json");
    EXPECT_EQ(outcome.status, 1) << outcome.err;
    return json::parse(outcome.out);
  }
};

TEST_F(SalvageCommandTest, UndamagedLibraryComesOutTheSame) {
  for (std::string const library : {"sample.lb1", "perry.lb1", "crc.lb1"}) {
    json const report = Json("salvage " + library + " whole.lb1 --force");
    EXPECT_EQ(report["written"], "whole.lb1");
    for (char const* count : {"scanned", "altered", "without_key", "lost", "gaps"}) {
      EXPECT_EQ(report[count], 0) << count;
    }
    EXPECT_EQ(report.count("header"), 0U);
    EXPECT_EQ(report.count("not_simply_taken"), 0U);
    EXPECT_EQ(Json("diff " + library + " whole.lb1")["differences_found"], 0);
    EXPECT_EQ(Json("check whole.lb1 --structure")["damage"], 0);
    EXPECT_EQ(Good("memo whole.lb1"), Good("memo " + library));
    EXPECT_EQ(Json("info whole.lb1")["banks"], Json("info " + library)["banks"]);
  }
}

TEST_F(SalvageCommandTest, LibraryWithoutAHeaderComesBack) {
  Break("perry", "broken.lb1", 0, 1000);
  EXPECT_EQ(Zel("info broken.lb1").status, 1);
  json const report = Found("salvage broken.lb1 rescued.lb1");
  EXPECT_EQ(report["items"], Json("find perry.lb1")["found"]);
  EXPECT_FALSE(report["header"].empty());
  // What only the header had is lost.
  json const differences = Json("diff perry.lb1 rescued.lb1")["differences"];
  ASSERT_EQ(differences.size(), 2U);
  EXPECT_EQ(differences[0]["field"], "description");
  EXPECT_EQ(differences[1]["field"], "version");
}

TEST_F(SalvageCommandTest, WhatIsLostIsNamed) {
  Break("sample", "broken.lb2", 40000, 4000);
  json const before = Json("info sample.lb1")["banks"];
  json const report = Found("salvage broken.lb1 rescued.lb1");
  json const after = Json("info rescued.lb1")["banks"];
  ASSERT_EQ(after.size(), before.size());
  int damaged = 0;
  std::int64_t missing = 0;
  for (std::size_t i = 0; i < before.size(); ++i) {
    std::string const bank = std::string(before[i]["type"]) + ":" + std::string(before[i]["name"]);
    json const row = Row(report["banks"], "bank", bank);
    EXPECT_EQ(row["items"], after[i]["items"]);
    if (after[i]["items"] == before[i]["items"]) continue;
    ++damaged;
    missing += before[i]["items"].get<int>() - after[i]["items"].get<int>();
    EXPECT_GT(row["gaps"].get<int>(), 0) << bank;
    EXPECT_EQ(Row(report["not_simply_taken"], "bank", bank)["state"], "lost");
  }
  EXPECT_EQ(damaged, 1) << "one node";
  EXPECT_GT(missing, 0);
}

TEST_F(SalvageCommandTest, ItemsAreNamedByTheirComponents) {
  Break("perry", "broken.lb1", 0, 0);
  // The main block of ethanol, which its number begins.
  std::string const bytes = FileText(Folder() / "perry.lb1");
  std::int32_t const number = 10000007;
  std::size_t at = 0;
  for (; at < bytes.size(); at += 1000) {
    if (bytes.compare(at, 4, reinterpret_cast<char const*>(&number), 4) == 0) break;
  }
  ASSERT_LT(at, bytes.size());
  std::int32_t address = 0;
  std::memcpy(&address, bytes.data() + at + std::size_t{4} * 95, 4);
  auto const block = static_cast<std::size_t>(address % 1000000 - 1);
  Break("perry", "broken.lb1", 1000 * block, 400);  // the first five of its correlations
  json const report = Found("salvage broken.lb1 rescued.lb1");
  EXPECT_EQ(report["altered"], 1);
  json const row = Row(report["not_simply_taken"], "state", "altered");
  EXPECT_EQ(row["item"], "ETHANOL");
  EXPECT_EQ(row["found_by"], "walk");
  EXPECT_EQ(std::string(row["text"]).find("missing: "), 0U) << row["text"];
}

TEST_F(SalvageCommandTest, BrokenLibraryIsOnlyRead) {
  Break("perry", "broken.lb1", 0, 1000);
  std::string const before = FileText(Folder() / "broken.lb1");
  Found("salvage broken.lb1 rescued.lb1");
  EXPECT_EQ(FileText(Folder() / "broken.lb1"), before);
}

TEST_F(SalvageCommandTest, DryRunWritesNothing) {
  json const report = Json("salvage perry.lb1 rescued.lb1 --dry-run");
  EXPECT_EQ(report["dry_run"], "nothing was changed");
  EXPECT_FALSE(std::filesystem::exists(Folder() / "rescued.lb1"));
}

TEST_F(SalvageCommandTest, PasswordIsThatOfTheBrokenLibrary) {
  Good("copy perry.lb1 own.lb1 --create --bank PERRY --item WATER");
  Good("set own.lb1 --new-password secret");
  Outcome const none = Zel("salvage own.lb1 rescued.lb1");
  EXPECT_EQ(none.status, 1);
  EXPECT_NE(none.err.find("password"), std::string::npos) << none.err;
  EXPECT_FALSE(std::filesystem::exists(Folder() / "rescued.lb1"));
  Good("salvage own.lb1 rescued.lb1 --password secret");
  EXPECT_EQ(Json("info rescued.lb1")["password_level"], 1);
}

TEST_F(SalvageCommandTest, RefusesWhatItCannotReadOrReplace) {
  struct Row {
    char const* words;
    int status;
    char const* text;
  };
  Row const rows[] = {{"salvage nowhere.lb1 rescued.lb1", 1, "nowhere.lb1: not found"},
                      {"salvage perry.lb1 perry.lb1", 1, "BROKEN and RESCUED are the same library"},
                      {"salvage perry.lb1 crc.lb1", 1, "crc.lb1: exists; --force replaces it"},
                      {"salvage perry.lb1 no/rescued.lb1", 1, "its folder does not exist"},
                      {"salvage perry.lb1 rescued.txt", 1, "rescued.txt"},
                      {"salvage perry.lb1", 2, "RESCUED"}};
  for (Row const& row : rows) {
    Outcome const outcome = Zel(row.words);
    EXPECT_EQ(outcome.status, row.status) << row.words;
    EXPECT_NE(outcome.err.find(row.text), std::string::npos) << row.words << "\n" << outcome.err;
    EXPECT_FALSE(std::filesystem::exists(Folder() / "rescued.lb1")) << row.words;
  }
}

}  // namespace
}  // namespace zel::test

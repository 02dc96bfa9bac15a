// The history of a library: what changes replaced, as a list and taken back.
#include "desk/open/history.h"

#include <zelaccess/ZelAccess.h>

#include "desk/change/undo.h"
#include "tests/zel/change_fixture.h"

namespace zel::test {
namespace {

namespace fs = std::filesystem;
using nlohmann::json;

class HistoryTest : public ChangeTest {
 protected:
  void Describe(std::string const& text, std::string const& options = "") const {
    Good("set own/own.lb1 --description " + text + " " + options);
  }
  std::string Description() const {
    json const text = Json("info own/own.lb1")["description"];
    return text.is_null() ? "" : text.get<std::string>();
  }
  json Log(std::string const& options = "") const { return Json("log own/own.lb1 " + options); }
  void Fails(std::string const& words, std::string const& why) const {
    Contents const before = ContentsOf(Own());
    Outcome const outcome = Zel(words);
    EXPECT_EQ(outcome.status, 1) << words;
    EXPECT_NE(outcome.err.find(why), std::string::npos) << words << "\n" << outcome.err;
    EXPECT_TRUE(ContentsOf(Own()) == before) << words;
  }
  // Another program changes the library.
  void ChangeByHost(char const* text) const {
    openErrors error = openFailed;
    Handle<LibFile> const host(
        LibFile::OpenLibFile(accUpdate, (Own() / "own.lb1").c_str(), "", error));
    ASSERT_NE(host, nullptr);
    host->SetDescriptionAndVersion(text, nullptr);
    host->CloseLibFile();
  }
};

TEST_F(HistoryTest, AChangeKeepsWhatItReplaced) {
  Describe("one");
  HistoryFits(old_, true);
  std::string const record = FileText(Own() / ".own.lb1.zel-history/1/change");
  EXPECT_EQ(record.find("command zel set own/own.lb1 --description one\ntime 20"), 0U) << record;
  EXPECT_NE(record.find("\nkeep 10\n"), std::string::npos) << record;
  // Every host can open a version.
  EXPECT_EQ(Json("diff own/.own.lb1.zel-history/1/own.lb1 own/own.lb1")["differences_found"], 1);
}

TEST_F(HistoryTest, NewLibrariesAndFailedChangesKeepNothing) {
  Good("create own/new.lb1");
  Good("copy own/own.lb1 own/two.lb1 --create");
  Fails("delete own/own.lb1 NRTL --whole-bank", "no bank NRTL");
  EXPECT_TRUE(History().empty());
}

TEST_F(HistoryTest, LogListsCommandTimeAndDifferences) {
  EXPECT_EQ(Good("log own/own.lb1"), "none\n");
  Describe("one");
  Good("copy sample.lb1 own/own.lb1 --bank RACKETT");
  Good("delete own/own.lb1 OCTANE ETHANOL --names perry.lb1");
  json const log = Log("--names perry.lb1");
  ASSERT_EQ(log["changes"].size(), 3U);
  EXPECT_EQ(log["changes"][0]["change"], 3) << "the last change is the first";
  EXPECT_EQ(log["changes"][0]["command"],
            "zel delete own/own.lb1 OCTANE ETHANOL --names perry.lb1");
  EXPECT_EQ(log["changes"][0]["note"], nullptr);
  EXPECT_EQ(log["changes"][0]["time"].get<std::string>().size(), 20U);
  EXPECT_EQ(log["differences"][0], json::parse(R"({"change": 3, "item": "OCTANE:SAMPLE ETHANOL",
      "field": "whole", "before": "there", "after": "not there", "unit": null,
      "bank": "OCTANE:SAMPLE", "item_1": "ETHANOL", "item_2": null, "item_3": null})"));
  // The note about the parameter of the data came with them.
  EXPECT_EQ(log["differences"][1]["item"], "library");
  EXPECT_EQ(log["differences"][1]["field"], "parameter RACKETT zRa");
  EXPECT_EQ(log["differences"][2], json::parse(R"({"change": 2, "item": "RACKETT:SAMPLE",
      "field": "whole", "before": "not there", "after": "there", "unit": null,
      "bank": "RACKETT:SAMPLE", "item_1": null, "item_2": null, "item_3": null})"));
  EXPECT_EQ(log["differences"][3], json::parse(R"({"change": 1, "item": "library",
      "field": "description", "before": null, "after": "one", "unit": null,
      "bank": null, "item_1": null, "item_2": null, "item_3": null})"));
  EXPECT_EQ(Log("--last 1")["changes"].size(), 1U);
  EXPECT_EQ(Zel("log own/own.lb1 --last -1").status, 2);
  EXPECT_NE(Good("log own/own.lb1 --csv").find("change,time,command,note\n3,20"),
            std::string::npos);
  Fails("log own/none.lb1", "own/none.lb1: not found");
}

TEST_F(HistoryTest, WordsAreQuotedAndPasswordsLeftOut) {
  Good("memo own/own.lb1 --set \"it's\"");
  Good("memo own/own.lb1 --set \"$(printf 'two\\nlines')\"");
  Good("set own/own.lb1 --new-password SESAM --description ''");
  Good("set own/own.lb1 --description x --password=SESAM");
  Outcome const general = Zel("set own/own.lb1 --description y", "ZEL_PASSWORD=SESAM");
  EXPECT_EQ(general.status, 0) << general.err;
  json const changes = Log()["changes"];
  ASSERT_EQ(changes.size(), 5U);
  EXPECT_EQ(changes[4]["command"], "zel memo own/own.lb1 --set 'it'\\''s'");
  EXPECT_EQ(changes[3]["command"], "zel memo own/own.lb1 --set $'two\\012lines'");
  EXPECT_EQ(changes[2]["command"], "zel set own/own.lb1 --new-password *** --description ''");
  EXPECT_EQ(changes[1]["command"], "zel set own/own.lb1 --description x --password=***");
  EXPECT_EQ(changes[0]["command"], "zel set own/own.lb1 --description y");
}

TEST_F(HistoryTest, EachUndoGoesOneChangeFurtherBack) {
  Describe("one");
  Describe("two");
  json const undone = Json("undo own/own.lb1");
  EXPECT_EQ(undone["undone"], 2);
  EXPECT_EQ(undone["command"], "zel set own/own.lb1 --description two");
  EXPECT_EQ(undone["differences"], json::parse(R"([{"item": "library", "field": "description",
      "before": "two", "after": "one", "unit": null,
      "bank": null, "item_1": null, "item_2": null, "item_3": null}])"));
  EXPECT_EQ(Description(), "one");
  Good("undo own/own.lb1");
  EXPECT_TRUE(Now() == old_) << "byte for byte";
  Fails("undo own/own.lb1", "all changes that are kept are undone already");
  // An undo is a change, and a change after it is the next to be undone.
  EXPECT_EQ(Log()["changes"][0]["note"], "undoes 1");
  Describe("three");
  Good("undo own/own.lb1");
  EXPECT_TRUE(Now() == old_);
}

TEST_F(HistoryTest, AnUndoCanBeUndone) {
  Describe("one");
  Describe("two");
  Good("undo own/own.lb1");
  Good("undo own/own.lb1");
  Good("undo own/own.lb1 --before 3");
  EXPECT_EQ(Description(), "two");
  Good("undo own/own.lb1");
  EXPECT_EQ(Description(), "one");
  Fails("undo own/own.lb1 --before 77", "change 77 is not kept; `zel log own/own.lb1` lists");
  EXPECT_EQ(Zel("undo own/own.lb1 --before -1").status, 2);
  EXPECT_EQ(Zel("undo own/own.lb1 --in-place").status, 2);
}

TEST_F(HistoryTest, FilesComeAndGoWithAnUndo) {
  Good("create own/own.lb1 --force");
  ASSERT_EQ(Now().size(), 1U);
  Contents const empty = Now();
  Good("undo own/own.lb1");
  EXPECT_TRUE(Now() == old_);
  Good("undo own/own.lb1 --before 2");
  EXPECT_TRUE(Now() == empty);
}

TEST_F(HistoryTest, AChangeByAnotherProgramIsNoticed) {
  Describe("one");
  ChangeByHost("host");
  Fails("undo own/own.lb1", "by another program or with --in-place; --force undoes that, too");
  EXPECT_EQ(Log()["changes"][0]["note"], "other programs changed too");
  Good("undo own/own.lb1 --force");
  EXPECT_TRUE(Now() == old_);
  Good("undo own/own.lb1 --before 2");
  EXPECT_EQ(Description(), "host") << "nothing is lost";
  Describe("in-place", "--in-place");
  Fails("undo own/own.lb1", "--in-place");
}

TEST_F(HistoryTest, NumberOfVersions) {
  Fails("undo own/own.lb1", "nothing to undo: it has no history");
  for (int i = 0; i < 12; ++i) Describe(std::to_string(i));
  json changes = Log()["changes"];
  ASSERT_EQ(changes.size(), 10U);
  EXPECT_EQ(changes[9]["change"], 3);
  for (int i = 0; i < 10; ++i) Good("undo own/own.lb1");
  EXPECT_EQ(Description(), "1") << "as many undos as versions";
  Describe("x", "--keep 2");
  changes = Log()["changes"];
  ASSERT_EQ(changes.size(), 2U);
  EXPECT_EQ(changes[0]["change"], 23);
  Describe("y", "--keep 0");
  EXPECT_FALSE(fs::exists(Own() / ".own.lb1.zel-history"));
  EXPECT_EQ(Zel("set own/own.lb1 --description z --keep -1").status, 2);
  EXPECT_EQ(Description(), "y");
}

TEST_F(HistoryTest, UndoOfAProtectedLibraryNeedsThePassword) {
  Good("set own/own.lb1 --new-password SESAM");
  Fails("undo own/own.lb1", "protected; give its password with --password");
  Fails("undo own/own.lb1 --password OTHER", "wrong password");
  Good("undo own/own.lb1 --password SESAM");
  EXPECT_TRUE(Now() == old_);
}

TEST_F(HistoryTest, ForWhomTheLibraryIsTheHistoryIs) {
  fs::permissions(Own() / "own.lb1", fs::perms(0660));
  fs::permissions(Own() / "own.lb2", fs::perms(0640));
  Describe("one");
  EXPECT_EQ(
      Shell("cd own/.own.lb1.zel-history && stat -c '%a' . 1 1/own.lb1 1/own.lb2 1/change").out,
      "770\n770\n660\n640\n660\n");
}

// The change is in place all the same, and says so.
TEST_F(HistoryTest, SomethingInThePlaceOfTheHistory) {
  MakeFile("own/.own.lb1.zel-history", "a file");
  Outcome outcome = Zel("set own/own.lb1 --description one");
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.err,
            "zel: own/own.lb1: the change is in place, but what it replaced is not kept: File "
            "exists\n");
  EXPECT_EQ(FileText(Own() / ".own.lb1.zel-history"), "a file");
  fs::remove(Own() / ".own.lb1.zel-history");
  fs::create_directory(Folder() / "other");
  fs::create_directory_symlink(Folder() / "other", Own() / ".own.lb1.zel-history");
  outcome = Zel("set own/own.lb1 --description two");
  EXPECT_NE(outcome.err.find("is not kept"), std::string::npos) << outcome.err;
  EXPECT_TRUE(fs::is_empty(Folder() / "other")) << "a link is not followed";
  EXPECT_EQ(Description(), "two");
  Fails("log own/own.lb1", ".own.lb1.zel-history: is not a folder of the library's owner");
  Fails("undo own/own.lb1", ".own.lb1.zel-history: is not a folder of the library's owner");
}

TEST_F(HistoryTest, VersionsThatAreDamaged) {
  Describe("one");
  MakeFile("own/.own.lb1.zel-history/1/own.lb1", "not a library");
  Fails("log own/own.lb1", "zel-history/1/own.lb1: not a component library");
  Fails("undo own/own.lb1", "zel-history/1/own.lb1: not a component library");
  fs::remove(Own() / ".own.lb1.zel-history/1/own.lb1");
  Fails("undo own/own.lb1", "zel-history/1/own.lb1: not found");
  MakeFile("own/.own.lb1.zel-history/1/own.lb1", old_.at("own.lb1"));
  fs::remove(Own() / ".own.lb1.zel-history/1/change");
  Fails("undo own/own.lb1", "of an unknown time, by another program");
  EXPECT_EQ(Log()["changes"][0]["command"], nullptr);
  Good("undo own/own.lb1 --force");
  EXPECT_TRUE(Now() == old_);
}

TEST_F(HistoryTest, WhatIsLeftOfARemovedVersionGoes) {
  Describe("one");
  fs::create_directory(Own() / ".own.lb1.zel-history/removed-7");
  MakeFile("own/.own.lb1.zel-history/removed-7/own.lb1", "half");
  EXPECT_EQ(Log()["changes"].size(), 1U);
  Describe("two");
  EXPECT_FALSE(fs::exists(Own() / ".own.lb1.zel-history/removed-7"));
  EXPECT_EQ(Log()["changes"].size(), 2U);
}

TEST_F(HistoryTest, LibraryInUse) {
  Describe("one");
  openErrors error = openFailed;
  Handle<LibFile> const host(LibFile::OpenLibFile(accRead, (Own() / "own.lb1").c_str(), "", error));
  ASSERT_NE(host, nullptr);
  Fails("undo own/own.lb1", "another program has it open");
  EXPECT_EQ(Log()["changes"].size(), 1U);
}

// Every command that changes a library reports the same, marked, and changes nothing.
TEST_F(HistoryTest, DryRun) {
  Describe("one");
  Good("export perry.lb1 --component ETHANOL -o ethanol.xml");
  Contents const before = ContentsOf(Own());
  for (char const* command :
       {"set own.lb1 --description x", "set own.lb1 --description x --in-place",
        "memo own.lb1 --set x", "memo own.lb1 --bank OCTANE --set x", "refs own.lb1 add 7 x",
        "parameters own.lb1 set OCTANE MON x", "delete own.lb1 OCTANE --whole-bank",
        "copy ../sample.lb1 own.lb1 --bank NRTL", "copy ../sample.lb1 new.lb1 --bank NRTL --create",
        "create new.lb1", "create own.lb1 --force", "import own.lb1 ../ethanol.xml --bank B",
        "import new.lb1 ../ethanol.xml --bank B --create", "undo own.lb1",
        "undo own.lb1 --before 1 --keep 0"}) {
    std::string const words = std::string(command) + " --json";
    Outcome const dry = Shell("cd own && \"$ZEL\" " + words + " --dry-run");
    EXPECT_EQ(dry.status, 0) << command << "\n" << dry.err;
    EXPECT_TRUE(ContentsOf(Own()) == before) << command;
    Outcome const done = Shell("cd own && \"$ZEL\" " + words);
    EXPECT_EQ(done.status, 0) << command << "\n" << done.err;
    EXPECT_FALSE(ContentsOf(Own()) == before) << command;
    json report = json::parse(dry.out);
    EXPECT_EQ(report["dry_run"], "nothing was changed") << command;
    report.erase("dry_run");
    EXPECT_EQ(report, json::parse(done.out)) << command;
    fs::remove_all(Own());
    fs::create_directory(Own());
    for (auto const& [name, bytes] : before) {
      if (bytes.empty()) fs::create_directory(Own() / name);
      if (!bytes.empty()) MakeFile("own/" + name, bytes);
    }
  }
  Fails("set own/own.lb1 --description x --dry-run --password y", "has no password");
  EXPECT_NE(Good("undo own/own.lb1 --dry-run --csv").find("dry run,nothing was changed"),
            std::string::npos);
}

TEST(VersionToUndo, FollowsUndos) {
  auto const versions = [](std::vector<std::pair<int, int>> const& numbersAndUndoes) {
    std::vector<desk::Version> all;
    for (auto const& [number, undoes] : numbersAndUndoes) {
      all.emplace_back().number = number;
      all.back().change.undoes = undoes;
    }
    return all;
  };
  auto const next = [&](std::vector<std::pair<int, int>> const& numbersAndUndoes) {
    std::vector<desk::Version> const all = versions(numbersAndUndoes);
    desk::Version const* const version = desk::VersionToUndo(all);
    return version == nullptr ? 0 : version->number;
  };
  EXPECT_EQ(next({}), 0);
  EXPECT_EQ(next({{4, 0}, {5, 0}}), 5);
  EXPECT_EQ(next({{4, 0}, {5, 0}, {6, 5}}), 4);
  EXPECT_EQ(next({{4, 0}, {5, 0}, {6, 5}, {7, 4}}), 0);
  EXPECT_EQ(next({{4, 0}, {5, 0}, {6, 5}, {7, 0}}), 7);
  EXPECT_EQ(next({{4, 0}, {5, 0}, {6, 5}, {7, 0}, {8, 7}}), 4);
  EXPECT_EQ(next({{4, 0}, {5, 0}, {6, 5}, {7, 6}}), 5) << "the undo was undone";
  EXPECT_EQ(next({{6, 5}, {7, 0}, {8, 7}}), 0) << "5 is not kept any more";
}

}  // namespace
}  // namespace zel::test

// Changes of a library that are cut off: the library is then the old one or the new one, whole.
#include <zelaccess/ZelAccess.h>

#include "tests/zel/change_fixture.h"

namespace zel::test {
namespace {

namespace fs = std::filesystem;

// A copy that nobody will finish is not in anybody's way. The report comes after the change, and
// its loss does not take the change back.
TEST_F(ChangeTest, ReportThatCannotBeWritten) {
  for (char const* command :
       {"set perry.lb1 --description y", "memo perry.lb1 --set y --all",
        "delete perry.lb1 PERRY WATER", "copy perry.lb1 new.lb1 --create", "create none.lb1"}) {
    Outcome const outcome = Zel(std::string(command) + " >/dev/full");
    EXPECT_EQ(outcome.status, 1) << command;
    EXPECT_NE(
        outcome.err.find("cannot be written: No space left on device; the change is in place"),
        std::string::npos)
        << command << "\n"
        << outcome.err;
  }
  nlohmann::json const info = Json("info perry.lb1");
  EXPECT_EQ(info["description"], "y");
  EXPECT_EQ(info["memo"], "y");
  EXPECT_EQ(Zel("show perry.lb1 PERRY WATER").status, 1);
  EXPECT_EQ(Rows(Json("banks new.lb1")["banks"], "name", "PERRY"), 1U);
  EXPECT_EQ(Zel("info sample.lb1 >/dev/full").err.find("the change"), std::string::npos);
}

// The library ends the program when it cannot start.
TEST_F(ChangeTest, NoRoomForTheTableOfUnits) {
  Outcome const outcome = Zel("copy perry.lb1 new.lb1 --create", "TMPDIR=/dev/null");
  EXPECT_EQ(outcome.status, 1);
  EXPECT_NE(outcome.err.find("zel: the library cannot start"), std::string::npos) << outcome.err;
  Good("copy perry.lb1 new.lb1 --create");
  EXPECT_EQ(Json("check new.lb1 --structure")["damage"], 0);
}

TEST_F(ChangeTest, WhatIsLeftOfAKilledCommandGoesWithTheNext) {
  fs::create_directory(Folder() / "own/.own.lb1.zel-new");
  MakeFile("own/.own.lb1.zel-new/lock", "");
  MakeFile("own/.own.lb1.zel-new/own.lb1", "half");
  Good("set own/own.lb1 --description x");
  EXPECT_EQ(Now().size(), 2U);
}

TEST_F(ChangeTest, ReadersRemoveWhatIsLeftToo) {
  fs::create_directory(Folder() / "own/.own.lb1.zel-new");
  MakeFile("own/.own.lb1.zel-new/own.lb1", "half");
  Good("info own/own.lb1");
  EXPECT_TRUE(Now() == old_);
}

// Of two commands that make a library at once, one has made it, and the other says so.
TEST_F(ChangeTest, TwoThatMakeOneLibrary) {
  for (int round = 0; round < 10; ++round) {
    Outcome const outcome = Shell(
        "rm -f two.lb1 two.lb2; "
        "\"$ZEL\" copy perry.lb1 two.lb1 --create >one.out 2>&1 & first=$!; "
        "\"$ZEL\" copy crc.lb1 two.lb1 --create >two.out 2>&1; second=$?; "
        "wait $first; echo $? $second");
    std::string const banks = Good("banks two.lb1 --csv");
    bool const hasPerry = banks.find("PERRY") != std::string::npos;
    bool const hasCrc = banks.find("CRC") != std::string::npos;
    // One may have started when the other was done, and added its bank.
    EXPECT_TRUE((outcome.out == "0 1\n" && hasPerry && !hasCrc) ||
                (outcome.out == "1 0\n" && hasCrc && !hasPerry) ||
                (outcome.out == "0 0\n" && hasCrc && hasPerry))
        << outcome.out << banks;
    EXPECT_EQ(Json("check two.lb1 --structure")["damage"], 0);
  }
}

// A script may hold the folder while it works in it.
TEST_F(ChangeTest, FolderThatTheCallerLocked) {
  Outcome const outcome = Shell(
      "command -v flock >/dev/null || exit 77; "
      "flock own timeout 20 \"$ZEL\" set own/own.lb1 --description x");
  if (outcome.status == 77) GTEST_SKIP() << "no flock";
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_EQ(Json("info own/own.lb1")["description"], "x");
}

TEST_F(ChangeTest, FolderAtWorkIsLeftAlone) {
  fs::create_directory(Folder() / "own/.new.lb1.zel-new");
  std::string const lock = (Folder() / "own/.new.lb1.zel-new/lock").string();
  openErrors error{};
  // Any file under the lock of libraries will do.
  fs::copy(Folder() / "own/own.lb1", Folder() / "own/.new.lb1.zel-new/held.lb1");
  fs::copy(Folder() / "own/own.lb2", Folder() / "own/.new.lb1.zel-new/held.lb2");
  Handle<LibFile> const holder(LibFile::OpenLibFile(
      accUpdate, (Folder() / "own/.new.lb1.zel-new/held.lb1").c_str(), "", error));
  ASSERT_EQ(error, openOk);
  fs::create_hard_link(Folder() / "own/.new.lb1.zel-new/held.lb1", lock);
  Contents const before = Now();
  Outcome const outcome = Zel("create own/new.lb1");
  EXPECT_EQ(outcome.status, 1);
  EXPECT_NE(outcome.err.find("another program has it open"), std::string::npos) << outcome.err;
  EXPECT_TRUE(Now() == before);
}

// The states between the moves, made by hand.
class FinishTest : public ChangeTest {
 protected:
  void SetUp() override {
    ChangeTest::SetUp();
    Good("set own/own.lb1 --description changed");
    Good("delete own/own.lb1 OCTANE --whole-bank");
    new_ = Now();
    ASSERT_EQ(new_.size(), 2U);
    PutBack(old_);
    fs::create_directory(Folder() / "own/.own.lb1.zel-ready");
  }
  void Ready(std::string const& name, std::string const& bytes = "") const {
    MakeFile("own/.own.lb1.zel-ready/" + name, bytes);
  }
  void Finished(Contents const& expected) {
    Good("info own/own.lb1");
    EXPECT_TRUE(Now() == expected);
  }

  Contents new_;
};

// The library in place is valid, whoever wrote it since: nothing was decided.
TEST_F(FinishTest, NothingMovedYet) {
  Ready("lock");
  for (auto const& [name, bytes] : new_) Ready(name, bytes);
  Finished(old_);
}

TEST_F(FinishTest, OnlyTheLibraryItselfIsFinished) {
  Ready("lock");
  for (auto const& [name, bytes] : new_) Ready(name, bytes);
  Contents const before = Now();
  for (char const* word : {"own", "own.lb2", "own.LB1", "own.xml"}) {
    EXPECT_EQ(Zel("info own/" + std::string(word)).status, 1) << word;
    EXPECT_TRUE(Now() == before) << word;
  }
  Finished(old_);
}

// Nothing is discarded if the first file is missing.
TEST_F(FinishTest, FirstFileLost) {
  Ready("lock");
  Ready("old", old_.at("own.lb1"));
  fs::remove(Folder() / "own/own.lb1");
  Outcome const outcome = Zel("info own/own.lb1");
  EXPECT_EQ(outcome.status, 1);
  EXPECT_NE(outcome.err.find("its first file is lost"), std::string::npos) << outcome.err;
  EXPECT_TRUE(fs::exists(Folder() / "own/.own.lb1.zel-ready/old"));
}

TEST_F(FinishTest, LockLost) {
  for (auto const& [name, bytes] : new_) Ready(name, bytes);
  Finished(old_);
}

TEST_F(FinishTest, FirstFileAway) {
  Ready("lock");
  for (auto const& [name, bytes] : new_) Ready(name, bytes);
  fs::rename(Own() / "own.lb1", Own() / ".own.lb1.zel-ready/old");
  Finished(old_);
}

TEST_F(FinishTest, SecondFileInPlace) {
  Ready("lock");
  Ready("own.lb1", new_.at("own.lb1"));
  fs::rename(Own() / "own.lb1", Own() / ".own.lb1.zel-ready/old");
  fs::rename(Own() / "own.lb2", Own() / ".own.lb1.zel-ready/old2");
  MakeFile("own/own.lb2", new_.at("own.lb2"));
  Finished(old_);
}

// A host made a library where it found none.
TEST_F(FinishTest, MadeAnewMeanwhile) {
  Ready("lock");
  for (auto const& [name, bytes] : new_) Ready(name, bytes);
  fs::rename(Own() / "own.lb1", Own() / ".own.lb1.zel-ready/old");
  Good("create other.lb1");
  fs::copy(Folder() / "other.lb1", Own() / "own.lb1");
  Contents const before = Now();
  for (char const* command : {"info own/own.lb1", "set own/own.lb1 --description x"}) {
    Outcome const outcome = Zel(command);
    EXPECT_EQ(outcome.status, 1);
    EXPECT_NE(outcome.err.find("another program made it"), std::string::npos) << outcome.err;
    EXPECT_NE(outcome.err.find(".own.lb1.zel-ready"), std::string::npos) << outcome.err;
    EXPECT_TRUE(Now() == before);
  }
  fs::rename(Own() / ".own.lb1.zel-ready", Folder() / "kept");
  Good("info own/own.lb1");
}

TEST_F(FinishTest, AllInPlaceAndTheFolderHalfRemoved) {
  Ready("lock");
  Ready("old", old_.at("own.lb1"));
  for (auto const& [name, bytes] : new_) MakeFile("own/" + name, bytes);
  Finished(new_);
  fs::create_directory(Folder() / "own/.own.lb1.zel-ready");
  Finished(new_);
}

TEST_F(FinishTest, FileThatTheNewLibraryHasNot) {
  Ready("lock");
  Good("create empty.lb1");
  Ready("own.lb1", FileText(Folder() / "empty.lb1"));
  fs::rename(Own() / "own.lb1", Own() / ".own.lb1.zel-ready/old");
  fs::rename(Own() / "own.lb2", Own() / ".own.lb1.zel-ready/old2");
  Finished(old_);
}

TEST_F(FinishTest, FileThatTheOldLibraryHasNot) {
  Good("create empty.lb1");
  std::string const empty = FileText(Folder() / "empty.lb1");
  Ready("lock");
  Ready("add2");
  Ready("old", empty);
  Ready("own.lb1", new_.at("own.lb1"));
  fs::remove(Own() / "own.lb1");
  Finished({{"own.lb1", empty}});
}

// The version is kept by the next command, whoever it is.
TEST_F(FinishTest, AllInPlaceAndTheVersionNotKept) {
  Ready("lock");
  Ready("add3");
  Ready("change", "command zel delete\ntime 2026-01-02T03:04:05Z\nkeep 10\n");
  Ready("old", old_.at("own.lb1"));
  Ready("old2", old_.at("own.lb2"));
  for (auto const& [name, bytes] : new_) MakeFile("own/" + name, bytes);
  Finished(new_);
  HistoryFits(old_, true);
}

// In a folder where everybody may make files, somebody else may have made one of this name.
TEST_F(FinishTest, LinkInThePlaceOfTheFolderIsNotFollowed) {
  fs::remove(Own() / ".own.lb1.zel-ready");
  fs::create_directory(Folder() / "other");
  MakeFile("other/kept.txt", "kept");
  for (char const* ending : {"ready", "new"}) {
    fs::create_directory_symlink(Folder() / "other",
                                 Own() / (std::string(".own.lb1.zel-") + ending));
  }
  Good("info own/own.lb1");
  Outcome const refused = Zel("set own/own.lb1 --description x");
  EXPECT_EQ(refused.status, 1);
  EXPECT_NE(refused.err.find(".own.lb1.zel-ready is in the way"), std::string::npos) << refused.err;
  fs::remove(Own() / ".own.lb1.zel-ready");
  Good("set own/own.lb1 --description x");
  EXPECT_EQ(FileText(Folder() / "other/kept.txt"), "kept");
}

}  // namespace
}  // namespace zel::test

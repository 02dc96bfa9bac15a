// Changes of a library that are cut off: the library is then the old one or the new one, whole.
#include <sys/ptrace.h>
#include <sys/wait.h>
#include <unistd.h>
#include <zelaccess/ZelAccess.h>

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <vector>

#include "tests/zel/zel_fixture.h"

namespace zel::test {
namespace {

namespace fs = std::filesystem;

enum class Ended { kByItself, kKilled, kCannotTrace };

// Runs zel in a folder and kills it at its `calls`-th system call.
Ended RunAndKillAt(long calls, fs::path const& folder, std::vector<std::string> words) {
  pid_t const child = ::fork();
  if (child == 0) {
    std::vector<char*> arguments;
    words.insert(words.begin(), ZEL_PROGRAM);
    for (std::string& word : words) arguments.push_back(word.data());
    arguments.push_back(nullptr);
    ::setenv("ASAN_OPTIONS", "detect_leaks=0", 1);  // which cannot be done under a tracer
    if (::freopen("/dev/null", "w", stdout) == nullptr || ::chdir(folder.c_str()) != 0 ||
        ::ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) != 0) {
      ::_exit(77);
    }
    ::execv(ZEL_PROGRAM, arguments.data());
    ::_exit(77);
  }
  int status = 0;
  ::waitpid(child, &status, 0);  // stands at its start
  if (!WIFSTOPPED(status)) return Ended::kCannotTrace;
  long stops = 0;
  for (;;) {
    ::ptrace(PTRACE_SYSCALL, child, nullptr, nullptr);
    ::waitpid(child, &status, 0);
    if (WIFEXITED(status) || WIFSIGNALED(status)) return Ended::kByItself;
    // Each call stops twice: before it and behind it.
    if (++stops >= 2 * calls) break;
  }
  ::kill(child, SIGKILL);
  ::waitpid(child, &status, 0);
  return Ended::kKilled;
}

class ChangeTest : public ZelTest {
 protected:
  // A small library, and the bytes of its files.
  void SetUp() override {
    fs::create_directory(Folder() / "own");
    Good("copy sample.lb1 own/own.lb1 --create --bank OCTANE");
    old_ = ContentsOf(Folder() / "own");
    ASSERT_EQ(old_.size(), 2U);
  }
  void PutBack(Contents const& contents) const {
    fs::remove_all(Folder() / "own");
    fs::create_directory(Folder() / "own");
    for (auto const& [name, bytes] : contents) MakeFile("own/" + name, bytes);
  }
  // Both files, or that there is no second one.
  static bool HasLibrary(Contents const& folder, Contents const& library) {
    for (char const* name : {"own.lb1", "own.lb2"}) {
      auto const in = folder.find(name);
      auto const wanted = library.find(name);
      if ((in == folder.end()) != (wanted == library.end())) return false;
      if (in != folder.end() && in->second != wanted->second) return false;
    }
    return true;
  }
  Contents Now() const { return ContentsOf(Folder() / "own"); }

  Contents old_;
};

// A command that changes the library, killed all along its system calls. Under a sanitizer a
// program takes long to start.
#if defined(__SANITIZE_ADDRESS__)
constexpr long kStep = 40;
#else
constexpr long kStep = 5;
#endif

TEST_F(ChangeTest, KilledAtAnyPointItIsOldOrNew) {
  std::vector<std::vector<std::string>> const commands = {
      {"set", "own.lb1", "--description", "changed"},
      {"delete", "own.lb1", "OCTANE", "--whole-bank"},
      {"copy", "../sample.lb1", "own.lb1", "--bank", "RACKETT"},
      {"create", "own.lb1", "--force", "--description", "empty"}};
  for (auto const& command : commands) {
    PutBack(old_);
    ASSERT_NE(RunAndKillAt(1'000'000, Folder() / "own", command), Ended::kKilled);
    Contents const whole = Now();
    ASSERT_TRUE(whole != old_) << command[0];
    int oldOnes = 0;
    int newOnes = 0;
    for (long calls = 20;; calls += kStep) {
      PutBack(old_);
      Ended const ended = RunAndKillAt(calls, Folder() / "own", command);
      if (ended == Ended::kCannotTrace) GTEST_SKIP() << "this machine allows no tracing";
      // What anybody can open meanwhile is never old and new mixed.
      Contents const cut = Now();
      if (cut.count("own.lb1") != 0) {
        EXPECT_TRUE(HasLibrary(cut, old_) || HasLibrary(cut, whole)) << command[0] << " " << calls;
      }
      // The next command finishes what was begun.
      Outcome const look = Zel("check own/own.lb1 --structure");
      ASSERT_EQ(look.status, 0) << command[0] << " at " << calls << "\n" << look.err;
      Contents const after = Now();
      bool const isNew = HasLibrary(after, whole);
      EXPECT_TRUE(isNew || HasLibrary(after, old_)) << command[0] << " at " << calls;
      ++(isNew ? newOnes : oldOnes);
      if (isNew) {
        EXPECT_EQ(after.size(), whole.size()) << command[0] << " at " << calls;
      }
      if (ended == Ended::kByItself) break;
    }
    EXPECT_GT(oldOnes, 3) << command[0];
    EXPECT_GT(newOnes, 0) << command[0];
  }
}

// A copy that nobody will finish is in nobody's way.
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

// One of two that make a library at once has made it, the other one says so.
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
    // The second one may have come when the first was done, and added its bank.
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

// The states between the steps of the move, made by hand.
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

TEST_F(FinishTest, NothingMovedYet) {
  Ready("lock");
  for (auto const& [name, bytes] : new_) Ready(name, bytes);
  Finished(new_);
}

TEST_F(FinishTest, OnlyTheLibraryItselfIsFinished) {
  Ready("lock");
  for (auto const& [name, bytes] : new_) Ready(name, bytes);
  Contents const before = Now();
  for (char const* word : {"own", "own.lb2", "own.LB1", "own.xml"}) {
    EXPECT_EQ(Zel("info own/" + std::string(word)).status, 1) << word;
    EXPECT_TRUE(Now() == before) << word;
  }
  Finished(new_);
}

// Nothing is thrown away where the first file is missing.
TEST_F(FinishTest, FirstFileLost) {
  Ready("lock");
  Ready("old", old_.at("own.lb1"));
  fs::remove(Folder() / "own/own.lb1");
  Outcome const outcome = Zel("info own/own.lb1");
  EXPECT_EQ(outcome.status, 1);
  EXPECT_NE(outcome.err.find("its first file is lost"), std::string::npos) << outcome.err;
  EXPECT_TRUE(fs::exists(Folder() / "own/.own.lb1.zel-ready/old"));
}

// As a copy of the folder may be that left empty files out.
TEST_F(FinishTest, LockLost) {
  for (auto const& [name, bytes] : new_) Ready(name, bytes);
  Finished(new_);
}

TEST_F(FinishTest, FirstFileAway) {
  Ready("lock");
  for (auto const& [name, bytes] : new_) Ready(name, bytes);
  fs::rename(Folder() / "own/own.lb1", Folder() / "own/.own.lb1.zel-ready/old");
  Finished(new_);
}

TEST_F(FinishTest, SecondFileInPlace) {
  Ready("lock");
  Ready("own.lb1", new_.at("own.lb1"));
  fs::rename(Folder() / "own/own.lb1", Folder() / "own/.own.lb1.zel-ready/old");
  MakeFile("own/own.lb2", new_.at("own.lb2"));
  Finished(new_);
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
  Ready("drop2");
  Good("create empty.lb1");
  std::string const empty = FileText(Folder() / "empty.lb1");
  Ready("own.lb1", empty);
  Finished({{"own.lb1", empty}});
}

}  // namespace
}  // namespace zel::test

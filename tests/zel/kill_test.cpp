// Changes of a library that are cut off by a kill. Whoever opens the library then, a plain host or
// the next command, finds the old library or the new one, whole; and what a host writes then is
// kept.
//
// The environment variable ZEL_KILLS sets how many kills each test makes; 1000 take some minutes.
#include <zelaccess/ZelAccess.h>

#include <cstdio>
#include <cstdlib>
#include <map>
#include <vector>

#include "desk/open/history.h"
#include "tests/support/sanitizers.h"
#include "tests/zel/change_fixture.h"
#include "tests/zel/traced_run.h"

namespace zel::test {
namespace {

// Fewer would miss some of the moments. Under the sanitizers each takes several times as long.
constexpr long kStandardKills = ZEL_ADDRESS_SANITIZER ? 160 : 320;

long Kills() {
  char const* const given = std::getenv("ZEL_KILLS");
  return given == nullptr ? kStandardKills : std::atol(given);
}

struct Change {
  std::vector<std::string> words;
  bool makesNew;  // in an empty folder
};

std::vector<Change> Changes() {
  return {{{"set", "own.lb1", "--description", "changed"}, false},
          {{"delete", "own.lb1", "OCTANE", "--whole-bank"}, false},
          {{"copy", "../sample.lb1", "own.lb1", "--bank", "RACKETT"}, false},
          {{"create", "own.lb1", "--force", "--description", "empty"}, false},
          {{"copy", "../sample.lb1", "own.lb1", "--bank", "OCTANE", "--create"}, true}};
}

class KillTest : public ChangeTest {
 protected:
  // Kills each command at moments over its whole run, one in three among the last ones, in which
  // the files are moved; then calls `then(command, before, whole, cut)` with the folder before,
  // after the command in full, and as the kill left it.
  template <typename Then>
  void KillAllAlong(Then const& then) {
    std::vector<Change> const changes = Changes();
    long const kills = Kills() / static_cast<long>(changes.size());
    long made = 0;
    for (Change const& change : changes) {
      Contents const before = change.makesNew ? Contents() : old_;
      PutBack(before);
      TracedRun const full = RunAndKillAt(kNever, Own(), change.words);
      if (full.ended == Ended::kCannotTrace) GTEST_SKIP() << "this machine allows no tracing";
      Contents const whole = Now();
      ASSERT_EQ(full.ended, Ended::kByItself);
      ASSERT_TRUE(whole != before) << change.words[0];
      for (long const stop : Moments(full.stops, kills)) {
        PutBack(before);
        // A few calls more or less from run to run: it may have ended before.
        if (RunAndKillAt(stop, Own(), change.words).ended != Ended::kKilled) continue;
        SCOPED_TRACE(change.words[0] + " at " + std::to_string(stop));
        ++made;
        then(before, whole, Now());
      }
    }
    if (std::getenv("ZEL_KILLS") == nullptr) return;
    std::printf("%ld kills\n", made);
    std::fflush(stdout);  // before the next child process gets a copy of what is buffered
  }
  // After a command that only reads, nothing but the library is in the folder.
  void LookAfter(Contents const& expected) const {
    Outcome const look = Zel("check own/own.lb1 --structure");
    EXPECT_EQ(look.status, expected.empty() ? 1 : 0) << look.err;
    EXPECT_TRUE(Now() == expected);
  }

 private:
  static constexpr long kNever = 1'000'000;

  static std::vector<long> Moments(long stops, long kills) {
    constexpr long kLast = 300;
    std::map<long, bool> chosen;
    long const late = kills / 3;
    for (long i = 0; i < late; ++i) chosen[stops - 1 - i * kLast / late] = true;
    for (long i = 0; i < kills - late; ++i) chosen[1 + i * (stops - kLast) / (kills - late)] = true;
    std::vector<long> moments;
    moments.reserve(chosen.size());
    for (auto const& [stop, unused] : chosen) moments.push_back(stop);
    return moments;
  }
};

TEST_F(KillTest, TheNextCommandFindsOldOrNew) {
  int olds = 0;
  int news = 0;
  KillAllAlong([&](Contents const& before, Contents const& whole, Contents const& cut) {
    // What can be opened meanwhile is never a mixture of old and new.
    bool const isThere = cut.count("own.lb1") != 0;
    bool const isNew = isThere && HasLibrary(cut, whole);
    EXPECT_TRUE(!isThere || isNew || HasLibrary(cut, before));
    LookAfter(isNew ? whole : before);
    desk::VersionsOf((Own() / "own.lb1").string());  // whoever reads the history finishes it
    HistoryFits(before, isNew);
    ++(isNew ? news : olds);
  });
  EXPECT_GT(olds, 5);
  EXPECT_GT(news, 5);
}

// A host that opens the library after the kill and writes into it.
TEST_F(KillTest, WhatAHostWroteSinceStays) {
  int written = 0;
  int refused = 0;
  KillAllAlong([&](Contents const& before, Contents const&, Contents const& cut) {
    openErrors error = openFailed;
    LibFile* host = LibFile::OpenLibFile(accUpdate, (Own() / "own.lb1").c_str(), "", error);
    if (host == nullptr) {
      EXPECT_EQ(error, openNotFound);
      EXPECT_EQ(cut.count("own.lb1"), 0U);
      ++refused;
      return LookAfter(before);
    }
    std::string const text = "written by a host " + std::to_string(++written);
    host->SetDescriptionAndVersion(text.c_str(), nullptr);
    host->FlushLibFile();
    LibFile::DelLibFile(host);
    Contents after;
    for (auto const& [name, bytes] : Now()) {
      if (name.front() != '.') after[name] = bytes;
    }
    LookAfter(after);
    EXPECT_EQ(Json("info own/own.lb1")["description"], text);
  });
  EXPECT_GT(written, 5);
  EXPECT_GT(refused, 0);
  RecordProperty("written", written);
  RecordProperty("refused", refused);
}

// A host that makes a library where it finds none.
TEST_F(KillTest, WhatAHostMadeSinceStays) {
  int made = 0;
  int told = 0;
  KillAllAlong([&](Contents const&, Contents const&, Contents const& cut) {
    if (cut.count("own.lb1") != 0) return;
    openErrors error = openFailed;
    LibFile* host = LibFile::NewLibFile(libKind12, (Own() / "own.lb1").c_str(), error);
    ASSERT_NE(host, nullptr);
    host->SetDescriptionAndVersion("made by a host", nullptr);
    LibFile::DelLibFile(host);
    std::string const bytes = FileText(Own() / "own.lb1");
    Outcome const look = Zel("info own/own.lb1");
    if (look.status != 0) {
      EXPECT_NE(look.err.find("another program made it"), std::string::npos) << look.err;
      EXPECT_TRUE(FileText(Own() / ".own.lb1.zel-ready/old") == old_.at("own.lb1"));
      ++told;
    }
    EXPECT_TRUE(FileText(Own() / "own.lb1") == bytes);
    ++made;
  });
  EXPECT_GT(made, 0);
  EXPECT_GT(told, 0);
}

}  // namespace
}  // namespace zel::test

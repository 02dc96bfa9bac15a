// Each file that a command moves into place fails to move once, and each file that it looks for
// cannot be examined once: the folder is then as it was, the error is reported, and no later
// command continues what failed.
#include <cerrno>
#include <iterator>

#include "desk/open/history.h"
#include "tests/zel/change_fixture.h"
#include "tests/zel/fault_run.h"

namespace zel::test {
namespace {

using Words = std::vector<std::string>;

class MovesTest : public ChangeTest {
 protected:
  static Fault FailsAt(char const* calls) {
    Fault fault;
    fault.operation = 1;
    fault.error = EIO;
    fault.calls = calls;
    return fault;
  }
  static Fault AndAllAfter() {
    Fault fault = FailsAt("rename");
    fault.andAllAfter = true;
    return fault;
  }
  FaultedRun Run(Words words, Fault const& fault) const {
    words.insert(words.begin(), ZEL_PROGRAM);
    return RunFaulted(words, Own().string(), Own().string(), fault);
  }
  static bool IsTold(FaultedRun const& run) {
    return run.status == 1 && run.err.find("Input/output error") != std::string::npos;
  }
  // Lets one operation after another fail, from that of `fault` on, and calls `then(run)` after
  // each.
  template <typename Then>
  void FailAll(Words const& words, Contents const& before, Fault fault, Then const& then) {
    constexpr long kAtLeast = 2;
    for (;; ++fault.operation) {
      PutBack(before);
      FaultedRun const run = Run(words, fault);
      if (!run.isTraced) GTEST_SKIP() << "this machine allows no tracing";
      SCOPED_TRACE(words[0] + ", " + std::to_string(fault.operation) + ": " + run.err);
      if (run.failed.empty()) {
        EXPECT_EQ(run.status, 0);
        EXPECT_GT(run.operations, kAtLeast);
        EXPECT_FALSE(Now() == before);
        return;
      }
      then(run);
    }
  }
  void IsAsItWas(Contents const& before) const {
    EXPECT_TRUE(Now() == before);
    EXPECT_TRUE(History().empty());
    for (char const* name : {"own", "new"}) Zel(std::string("info own/") + name + ".lb1");
    EXPECT_TRUE(Now() == before) << "after the next command";
  }
  // A change that is in place, and only its history could not be written.
  static bool IsWithoutHistory(FaultedRun const& run) {
    return run.status == 0 && run.err.find(
                                  "the change is in place, but what it replaced is not kept: "
                                  "Input/output error") != std::string::npos;
  }
  // After a move that failed behind the last one of the library's files.
  void HistoryIsSettled(FaultedRun const& run, Contents const& before, Contents const& whole) {
    EXPECT_TRUE(Now() == whole);
    if (IsWithoutHistory(run)) {
      EXPECT_TRUE(History().empty());
      ++withoutHistory_;
      return;
    }
    EXPECT_EQ(run.err, "");
    // Whoever reads the history names the files.
    for (char const* name : {"own.lb1", "new.lb1"}) desk::VersionsOf((Own() / name).string());
    HistoryFits(before, true);
    ++namedLater_;
  }
  // The folder after the command.
  Contents WholeAfter(Words const& words, Contents const& before) {
    PutBack(before);
    EXPECT_EQ(Run(words, {}).status, 0);
    return Now();
  }
  void EachMove(Words const& words, Contents const& before) {
    Contents const whole = WholeAfter(words, before);
    FailAll(words, before, FailsAt("rename"), [&](FaultedRun const& run) {
      if (run.status == 0) return HistoryIsSettled(run, before, whole);
      EXPECT_TRUE(IsTold(run));
      IsAsItWas(before);
    });
  }
  // The command may not depend on the look that fails, and then succeeds.
  void EachLook(Words const& words, Contents const& before) {
    Contents const whole = WholeAfter(words, before);
    FailAll(words, before, FailsAt("fstatat"), [&](FaultedRun const& run) {
      EXPECT_TRUE(Seen() == (run.status == 0 ? whole : before));
      Good("info own/own.lb1");
      EXPECT_TRUE(Seen() == (run.status == 0 ? whole : before)) << "after the next command";
    });
  }
  // Without what a command may leave for the next one to remove.
  Contents Seen() const {
    Contents seen = Now();
    for (auto file = seen.begin(); file != seen.end();) {
      file = file->first.find(".zel-") == std::string::npos ? std::next(file) : seen.erase(file);
    }
    return seen;
  }
  // Then nothing can be moved back either until the next command, which restores the old library.
  void EachMoveAndAllAfter(Words const& words) {
    Contents const whole = WholeAfter(words, old_);
    FailAll(words, old_, AndAllAfter(), [&](FaultedRun const& run) {
      if (run.status == 0) return HistoryIsSettled(run, old_, whole);
      EXPECT_TRUE(IsTold(run));
      Good("info own/own.lb1");
      EXPECT_TRUE(Now() == old_);
    });
  }
  // Three components, and the contents of their documents in a folder.
  Contents MakeComponents() const {
    for (char const* id : {"ETHANOL", "WATER", "BENZENE"}) {
      Good(std::string("copy perry.lb1 few.lb1 --create --bank PERRY --item ") + id);
    }
    return {{"ETHANOL.xml", "old"}, {"WATER.xml", "old too"}};
  }

  int withoutHistory_ = 0;
  int namedLater_ = 0;
  Words const export_ = {"export", "../few.lb1", "-o", "./", "--component-files"};
};

// The last three moves are those of the version: its folder and its two files.
// A disk that could not write the new library would lose it after the old one is gone. The syncs of
// an undo are those of two files, of its record, of the folder with them, of the one around it
// where that is announced, and of both after the moves of what is old.
TEST_F(MovesTest, SyncThatFailsIsAFailure) {
  Good("set own/own.lb1 --description one");
  Contents const before = ContentsOf(Own());
  for (long const operation : {1, 2, 3, 4, 5, 6, 7}) {
    Fault fault = FailsAt("fsync");
    fault.operation = operation;
    FaultedRun const run = Run({"undo", "own.lb1"}, fault);
    if (!run.isTraced) GTEST_SKIP() << "the system does not allow it";
    EXPECT_EQ(run.failed, "fsync");
    EXPECT_TRUE(IsTold(run)) << run.status << run.err;
    EXPECT_TRUE(ContentsOf(Own()) == before) << operation;
  }
}

TEST_F(MovesTest, Set) {
  EachMove({"set", "own.lb1", "--description", "x"}, old_);
  EXPECT_EQ(withoutHistory_, 1);
  EXPECT_EQ(namedLater_, 2);
}
TEST_F(MovesTest, CopyThatMakesALibrary) {
  EachMove({"copy", "own.lb1", "new.lb1", "--create"}, old_);
}
TEST_F(MovesTest, CopyThatAddsAFile) {
  Good("create own/new.lb1");
  EachMove({"copy", "own.lb1", "new.lb1"}, Now());
}
TEST_F(MovesTest, Export) {
  EachMove(export_, MakeComponents());
  EachMove(export_, {});
}

TEST_F(MovesTest, LooksOfACopyThatMakesALibrary) {
  EachLook({"copy", "own.lb1", "new.lb1", "--create"}, old_);
}
TEST_F(MovesTest, LooksOfADeletion) {
  EachLook({"delete", "own.lb1", "OCTANE", "--whole-bank"}, old_);
}

TEST_F(MovesTest, SetWhereNothingCanGoBack) {
  EachMoveAndAllAfter({"set", "own.lb1", "--description", "x"});
  EXPECT_EQ(withoutHistory_, 1);
  EXPECT_EQ(namedLater_, 2);
}

// Documents that cannot be moved back are named, and no others are.
TEST_F(MovesTest, ExportWhereNothingCanGoBack) {
  Contents const before = MakeComponents();
  int left = 0;
  FailAll(export_, before, AndAllAfter(), [&](FaultedRun const& run) {
    EXPECT_TRUE(IsTold(run));
    std::size_t const list = run.err.find("; these are already new: ");
    std::string const named = list == std::string::npos ? "" : run.err.substr(list);
    for (auto const& [name, bytes] : Now()) {
      auto const old = before.find(name);
      bool const isNew = old == before.end() || old->second != bytes;
      EXPECT_EQ(named.find("/" + name) != std::string::npos, isNew) << name;
      if (isNew) ++left;
    }
  });
  EXPECT_GT(left, 2);
}

}  // namespace
}  // namespace zel::test

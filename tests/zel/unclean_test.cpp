// Libraries that another host did not close cleanly, or whose last flush was cut off: what zel does
// about them, and that zel itself leaves a mark when it is killed while it changes a library in
// place.
#include <sys/wait.h>
#include <unistd.h>
#include <zelaccess/OpenLibrary.h>
#include <zelaccess/ZelAccess.h>

#include <csignal>
#include <fstream>

#include "tests/zel/change_fixture.h"
#include "tests/zel/traced_run.h"

namespace zel::test {
namespace {

constexpr char kNotClean[] = "own/own.lb1: was not closed cleanly";

class UncleanTest : public ChangeTest {
 protected:
  std::string Path() const { return (Own() / "own.lb1").string(); }
  bool HasMark() const { return std::filesystem::exists(Path() + ".open"); }
  bool HasJournal() const { return std::filesystem::exists(Path() + ".journal"); }
  // A host changes the description, flushes, changes it again and is killed.
  void KillHost(zelWriteModes writes) const {
    pid_t const child = ::fork();
    if (child == 0) {
      openErrors error = openFailed;
      ZelOpenOptions options;
      options.mode = accUpdate;
      options.writes = writes;
      LibFile* const host = OpenLibrary(Path().c_str(), options, error);
      if (host == nullptr) ::_exit(1);
      host->SetDescriptionAndVersion("flushed", nullptr);
      host->FlushLibFile();
      host->SetMemo("not flushed");
      ::raise(SIGKILL);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    ASSERT_TRUE(WIFSIGNALED(status));
  }
  // The root of a tree is not a node any longer.
  void Damage() const {
    std::fstream file(Own() / "own.lb2", std::ios::in | std::ios::out | std::ios::binary);
    std::string const nonsense(4000, 'x');
    file.write(nonsense.data(), 4000);
  }
  std::string Description() const { return Json("info own/own.lb1")["description"]; }
};

TEST_F(UncleanTest, ReaderSaysItOnceAndChangesNothing) {
  KillHost(writesMarked);
  ASSERT_TRUE(HasMark());
  Contents const before = ContentsOf(Own());
  Outcome const info = Zel("info own/own.lb1");
  EXPECT_EQ(info.status, 0);
  std::size_t const at = info.err.find(kNotClean);
  EXPECT_NE(at, std::string::npos) << info.err;
  EXPECT_EQ(info.err.find(kNotClean, at + 1), std::string::npos) << info.err;
  EXPECT_EQ(Zel("diff own/own.lb1 own/own.lb1").err.find(kNotClean),
            Zel("diff own/own.lb1 own/own.lb1").err.rfind(kNotClean));
  EXPECT_TRUE(ContentsOf(Own()) == before);
}

TEST_F(UncleanTest, SoundLibraryIsCheckedAndChanged) {
  for (char const* inPlace : {"", " --in-place"}) {
    KillHost(writesMarked);
    ASSERT_TRUE(HasMark());
    std::string const set = "set own/own.lb1 --description changed" + std::string(inPlace);
    Outcome const dry = Zel(set + " --dry-run");
    EXPECT_EQ(dry.status, 0) << dry.err;
    EXPECT_TRUE(HasMark()) << "nothing was changed";
    Outcome const done = Zel(set);
    EXPECT_EQ(done.status, 0) << done.err;
    EXPECT_NE(done.err.find("own/own.lb1: was not closed cleanly; it was checked and is sound"),
              std::string::npos)
        << done.err;
    EXPECT_FALSE(HasMark());
    EXPECT_EQ(Description(), "changed");
    EXPECT_EQ(Zel("info own/own.lb1").err, "");
  }
}

TEST_F(UncleanTest, DamagedLibraryIsNotChanged) {
  KillHost(writesMarked);
  Damage();
  Contents const before = ContentsOf(Own());
  for (char const* inPlace : {"", " --in-place", " --dry-run"}) {
    Outcome const done = Zel("set own/own.lb1 --description changed" + std::string(inPlace));
    EXPECT_EQ(done.status, 1);
    EXPECT_NE(done.err.find("own/own.lb1: was not closed cleanly and is damaged ("),
              std::string::npos)
        << done.err;
    EXPECT_NE(done.err.find("`zel salvage own/own.lb1 rescued.lb1`"), std::string::npos)
        << done.err;
    EXPECT_TRUE(ContentsOf(Own()) == before) << inPlace;
  }
  EXPECT_EQ(Zel("create own/own.lb1 --force").status, 0) << "it need not be sound to be replaced";
  EXPECT_FALSE(HasMark());
  EXPECT_EQ(Zel("check own/own.lb1 --structure").status, 0);
}

// The library may lack a part of what the journal has.
TEST_F(UncleanTest, JournalThatDoesNotFitIsAnUncleanClose) {
  KillHost(writesHeld);
  ASSERT_TRUE(HasJournal());
  // Another host, which does not know journals, has changed what the journal changes as well.
  std::fstream(Own() / "own.lb1", std::ios::in | std::ios::out | std::ios::binary)
      .seekp(4 * 45)
      .write("\1\1\1\1", 4);
  EXPECT_NE(Zel("info own/own.lb1").err.find("journal"), std::string::npos);
  Outcome const dry = Zel("set own/own.lb1 --description 2 --dry-run");
  EXPECT_EQ(dry.status, 0) << dry.err;
  EXPECT_TRUE(HasJournal()) << "nothing was changed";
  Damage();
  Contents const before = ContentsOf(Own());
  Outcome const refused = Zel("set own/own.lb1 --description 2");
  EXPECT_EQ(refused.status, 1);
  EXPECT_NE(refused.err.find("was not closed cleanly and is damaged"), std::string::npos)
      << refused.err;
  EXPECT_TRUE(ContentsOf(Own()) == before);
}

TEST_F(UncleanTest, UndoNeedsNoSoundLibraryIfItIsForced) {
  std::string const whole = Zel("dump own/own.lb1").out;
  ASSERT_EQ(Zel("set own/own.lb1 --description 2").status, 0);
  KillHost(writesMarked);
  Damage();
  Outcome const refused = Zel("undo own/own.lb1");
  EXPECT_EQ(refused.status, 1);
  EXPECT_NE(refused.err.find("`zel undo --force own/own.lb1` goes back to before the last change"),
            std::string::npos)
      << refused.err;
  Outcome const done = Zel("undo --force own/own.lb1");
  EXPECT_EQ(done.status, 0) << done.err;
  EXPECT_EQ(Zel("dump own/own.lb1").out, whole);
  EXPECT_FALSE(HasMark());
  // The header of the library is lost.
  ASSERT_EQ(Zel("set own/own.lb1 --description 3").status, 0);
  std::fstream(Own() / "own.lb1", std::ios::in | std::ios::out | std::ios::binary)
      .write(std::string(1000, '\0').data(), 1000);
  EXPECT_EQ(Zel("undo own/own.lb1").status, 1);
  Outcome const again = Zel("undo --force own/own.lb1");
  EXPECT_EQ(again.status, 0) << again.err;
  EXPECT_NE(again.err.find("what the undo changes is not listed"), std::string::npos) << again.err;
  EXPECT_EQ(Zel("dump own/own.lb1").out, whole);
}

// Neither a journal that is left next to the library, nor that it is the one with the names, nor
// that its first file is gone.
TEST_F(UncleanTest, ForcedUndoNeedsOnlyTheHistory) {
  std::string const whole = Zel("dump own/own.lb1").out;
  auto const undone = [&](std::string const& names = "") {
    Outcome const done = Zel(names + "undo --force own/own.lb1");
    EXPECT_EQ(done.status, 0) << done.err;
    EXPECT_EQ(Zel("dump own/own.lb1").out, whole);
    return done.err;
  };
  ASSERT_EQ(Zel("set own/own.lb1 --description 2").status, 0);
  MakeFile("own/own.lb1", std::string(100'000, 'x'));
  MakeFile("own/own.lb1.journal", "x");
  undone();
  ASSERT_EQ(Zel("set own/own.lb1 --description 3").status, 0);
  MakeFile("own/own.lb1", std::string(100'000, 'x'));
  EXPECT_NE(undone("--names own/own.lb1 ")
                .find("not a component library (named by --names or ZEL_NAMES)"),
            std::string::npos);
  ASSERT_EQ(Zel("set own/own.lb1 --description 4").status, 0);
  std::filesystem::remove(Path());
  EXPECT_EQ(Zel("undo own/own.lb1").status, 1);
  undone();
}

// What says how the old library was closed stays with it at every moment: the next host of the new
// one has marks of its own.
TEST_F(UncleanTest, MarkGoesWithTheOldLibrary) {
  KillHost(writesMarked);
  ASSERT_TRUE(HasMark());
  Contents const before = ContentsOf(Own());
  std::vector<std::string> const words = {"set", "own.lb1", "--description", "changed"};
  TracedRun const full = RunAndKillAt(1'000'000, Own(), words);
  if (full.ended == Ended::kCannotTrace) GTEST_SKIP() << "this machine allows no tracing";
  EXPECT_FALSE(HasMark());
  int old = 0;
  int changed = 0;
  constexpr long kLast = 240;
  for (long stop = full.stops - 1; stop > full.stops - kLast && stop > 0; stop -= 3) {
    PutBack(before);
    if (RunAndKillAt(stop, Own(), words).ended != Ended::kKilled) continue;
    bool const isInPlace = std::filesystem::exists(Path());
    bool const hadMark = HasMark();
    bool const isNew = Description() == "changed";
    EXPECT_TRUE(!isInPlace || hadMark == !isNew) << stop;
    EXPECT_EQ(HasMark(), !isNew) << "after the next command, " << stop;
    ++(isNew ? changed : old);
  }
  EXPECT_GT(old, 10);
  EXPECT_GT(changed, 10);
}

TEST_F(UncleanTest, FlushThatWasCutOffIsSeenByReaders) {
  KillHost(writesHeld);
  ASSERT_TRUE(HasJournal());
  Contents const before = ContentsOf(Own());
  EXPECT_EQ(Description(), "flushed");
  Outcome const check = Zel("check own/own.lb1 --structure");
  EXPECT_EQ(check.status, 0) << check.out;
  EXPECT_EQ(check.err, "");
  EXPECT_TRUE(ContentsOf(Own()) == before);
}

TEST_F(UncleanTest, FlushThatWasCutOffIsCompletedBeforeAChange) {
  KillHost(writesHeld);
  Good("set own/own.lb1 --library-version 2");
  EXPECT_FALSE(HasJournal());
  EXPECT_EQ(Description(), "flushed");
  Good("undo own/own.lb1");
  EXPECT_EQ(Description(), "flushed") << "the version that was kept is the whole library";
  EXPECT_NE(Json("info own/own.lb1")["version"], "2");
}

TEST_F(UncleanTest, JournalOfOtherFilesIsReportedAndGoes) {
  KillHost(writesHeld);
  for (char const* name : {"own.lb1", "own.lb2"}) MakeFile(std::string("own/") + name, old_[name]);
  std::string bytes = FileText(Path());
  bytes[200] = static_cast<char>(bytes[200] + 1);  // in the description
  MakeFile("own/own.lb1", bytes);
  Outcome const info = Zel("info own/own.lb1");
  EXPECT_EQ(info.status, 0);
  EXPECT_NE(info.err.find("own/own.lb1: the journal next to it was written for other files"),
            std::string::npos)
      << info.err;
  EXPECT_TRUE(HasJournal());
  Good("set own/own.lb1 --library-version 3");
  EXPECT_FALSE(HasJournal());
  EXPECT_EQ(Json("info own/own.lb1")["version"], "3");
}

TEST_F(UncleanTest, ChangeInPlaceThatIsKilledLeavesTheMark) {
  std::vector<std::string> const words = {"memo", "own.lb1", "--set", "changed", "--in-place"};
  TracedRun const full = RunAndKillAt(1'000'000, Own(), words);
  if (full.ended == Ended::kCannotTrace) GTEST_SKIP() << "this machine allows no tracing";
  EXPECT_FALSE(HasMark());
  int marked = 0;
  int checked = 0;
  constexpr long kLast = 160;
  for (long stop = full.stops - 1; stop > full.stops - kLast && stop > 0; stop -= 4) {
    PutBack(old_);
    if (RunAndKillAt(stop, Own(), words).ended != Ended::kKilled) continue;
    bool const isChanged = FileText(Path()) != old_["own.lb1"];
    if (HasMark()) ++marked;
    // What was written before the mark, or after it was taken away, is a whole library.
    Outcome const next = Zel("set own/own.lb1 --library-version 4");
    bool const isRefused = next.err.find("and is damaged") != std::string::npos;
    EXPECT_TRUE(next.status == 0 || isRefused) << next.err;
    if (next.err.find("not closed cleanly") != std::string::npos) ++checked;
    if (!HasMark() && next.status == 0) {
      EXPECT_EQ(Zel("check own/own.lb1 --structure").status, 0) << stop << isChanged;
    }
  }
  EXPECT_GT(marked, 1);
  EXPECT_EQ(checked, marked);
}

}  // namespace
}  // namespace zel::test

// Libraries that several programs use at once: who reads and who changes them, who waits for whom.
#include <zelaccess/ZelAccess.h>

#include <unistd.h>

#include <chrono>
#include <future>
#include <map>
#include <optional>
#include <thread>
#include <vector>

#include "desk/change/library_change.h"
#include "desk/files/file_lock.h"
#include "desk/open/change_places.h"
#include "tests/zel/change_fixture.h"

namespace zel::test {
namespace {

namespace fs = std::filesystem;
using desk::LibraryChange;
using desk::LibraryInUse;
using std::chrono::milliseconds;
using std::chrono::seconds;

desk::ChangeOptions AdmittingReaders() {
  desk::ChangeOptions options;
  options.admitsReaders = true;
  return options;
}

void Describe(LibraryChange& change, char const* text) {
  change.Open().File().SetDescriptionAndVersion(text, nullptr);
}

class BusyLibraryTest : public ChangeTest {
 protected:
  std::string Path() const { return (Own() / "own.lb1").string(); }
  Handle<LibFile> OpenAsHost(accModes mode) const {
    openErrors error = openFailed;
    return Handle<LibFile>(LibFile::OpenLibFile(mode, Path().c_str(), "", error));
  }
  std::string Description() const {
    nlohmann::json const text = Json("info own/own.lb1")["description"];
    return text.is_null() ? "" : text.get<std::string>();
  }
  void IsInUse(std::string const& words) const {
    Outcome const outcome = Zel(words);
    EXPECT_EQ(outcome.status, 1) << words;
    EXPECT_NE(outcome.err.find("own/own.lb1: another program has it open"), std::string::npos)
        << words << "\n"
        << outcome.err;
  }
  // A change that is at its end and waits for a reader.
  std::future<void> PutInPlaceLater(LibraryChange& change) const {
    auto done = std::async(std::launch::async, [&change] { change.PutInPlace(); });
    while (!desk::IsBeingChanged(Path())) std::this_thread::sleep_for(milliseconds(1));
    return done;
  }

  desk::Session session_;
};

TEST_F(BusyLibraryTest, ReadersReadTheOldLibraryDuringAChange) {
  std::string const before = Description();
  LibraryChange change(session_, Path(), AdmittingReaders());
  Describe(change, "new");
  for (char const* words : {"check own/own.lb1 --structure", "items own/own.lb1 OCTANE",
                            "copy own/own.lb1 taken.lb1 --create"}) {
    Good(words);
  }
  EXPECT_EQ(Description(), before);
  EXPECT_TRUE(OpenAsHost(accRead));
  change.PutInPlace();
  EXPECT_EQ(Description(), "new");
  HistoryFits(old_, true);
}

TEST_F(BusyLibraryTest, NobodyElseChangesItDuringAChange) {
  LibraryChange change(session_, Path(), AdmittingReaders());
  EXPECT_FALSE(OpenAsHost(accUpdate));
  EXPECT_THROW(LibraryChange(session_, Path(), {}), LibraryInUse);
  IsInUse("set own/own.lb1 --description x");
  IsInUse("set own/own.lb1 --description x --in-place");
  IsInUse("create own/own.lb1 --force");
  IsInUse("set own/own.lb1 --description x --wait 0.1");
  Describe(change, "first");
  auto second = std::async(std::launch::async,
                           [&] { return Zel("set own/own.lb1 --description second --wait 60"); });
  std::this_thread::sleep_for(milliseconds(200));
  change.PutInPlace();
  Outcome const outcome = second.get();
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_EQ(Description(), "second");
  EXPECT_EQ(Json("log own/own.lb1")["differences"][0]["before"], "first");
}

TEST_F(BusyLibraryTest, AChangeThatAdmitsNoReaders) {
  LibraryChange const change(session_, Path(), {});
  IsInUse("info own/own.lb1");
  EXPECT_FALSE(OpenAsHost(accRead));
}

TEST_F(BusyLibraryTest, AChangeWaitsForReadersAtItsEnd) {
  session_.patienceAtMoves = seconds(60);
  LibraryChange change(session_, Path(), AdmittingReaders());
  Describe(change, "new");
  Handle<LibFile> reader = OpenAsHost(accRead);
  ASSERT_TRUE(reader);
  auto done = PutInPlaceLater(change);
  EXPECT_EQ(done.wait_for(milliseconds(300)), std::future_status::timeout);
  EXPECT_TRUE(FileText(Path()) == old_.at("own.lb1"));
  reader.reset();
  done.get();
  EXPECT_EQ(Description(), "new");
}

TEST_F(BusyLibraryTest, AReaderThatStaysIsTheEndOfTheChange) {
  session_.patienceAtMoves = milliseconds(100);
  Handle<LibFile> const reader = [&] {
    LibraryChange change(session_, Path(), AdmittingReaders());
    Handle<LibFile> opened = OpenAsHost(accRead);
    EXPECT_TRUE(opened);
    Describe(change, "new");
    EXPECT_THROW(change.PutInPlace(), LibraryInUse);
    return opened;
  }();
  EXPECT_TRUE(ContentsOf(Own()) == old_);
}

TEST_F(BusyLibraryTest, WithoutPatienceNoWorkIsBegunThatAReaderMakesVain) {
  Handle<LibFile> const reader = OpenAsHost(accRead);
  EXPECT_THROW(LibraryChange(session_, Path(), AdmittingReaders()), LibraryInUse);
  EXPECT_TRUE(ContentsOf(Own()) == old_);
  session_.patience = milliseconds(1);
  EXPECT_NO_THROW(LibraryChange(session_, Path(), AdmittingReaders()));
}

TEST_F(BusyLibraryTest, WhoComesLetsAChangeThatWaitsGoFirst) {
  session_.patience = seconds(60);
  LibraryChange change(session_, Path(), AdmittingReaders());
  Describe(change, "new");
  Handle<LibFile> reader = OpenAsHost(accRead);
  auto done = PutInPlaceLater(change);
  auto const look = [&] { return Zel("info own/own.lb1 --json"); };
  auto first = std::async(std::launch::async, look);
  std::this_thread::sleep_for(milliseconds(300));
  reader.reset();
  done.get();
  EXPECT_NE(first.get().out.find("\"description\": \"new\""), std::string::npos);
}

TEST_F(BusyLibraryTest, ButNotForLong) {
  session_.patience = seconds(600);
  std::string const before = Description();
  LibraryChange change(session_, Path(), AdmittingReaders());
  Describe(change, "new");
  Handle<LibFile> reader = OpenAsHost(accRead);
  auto done = PutInPlaceLater(change);
  EXPECT_EQ(Description(), before);
  EXPECT_EQ(done.wait_for(milliseconds(0)), std::future_status::timeout);
  IsInUse("set own/own.lb1 --description x");
  reader.reset();
  done.get();
  EXPECT_EQ(Description(), "new");
}

// The state between the moves of a change that another program, here the test, is making.
class BusyMovesTest : public BusyLibraryTest {
 protected:
  void BeginMoves() {
    PutBack(old_);
    fs::create_directory(ready_);
    MakeFile("own/.own.lb1.zel-ready/lock", "held");
    MakeFile("own/.own.lb1.zel-ready/own.lb1", old_.at("own.lb1"));
    fs::rename(Path(), ready_ / "old");
    lock_.emplace(desk::FileLock::Take((ready_ / "lock").string(), ""));
  }
  void EndMoves() {
    fs::rename(ready_ / "own.lb1", Path());
    fs::remove_all(ready_);
    lock_.reset();
  }
  // Runs "zel WORDS" during the moves; it ends well after them.
  void IsWaiting(std::string const& words, std::string const& before = "") {
    SCOPED_TRACE(words);
    BeginMoves();
    auto outcome = std::async(std::launch::async, [&] { return Zel(words, before); });
    EXPECT_EQ(outcome.wait_for(milliseconds(300)), std::future_status::timeout);
    EndMoves();
    Outcome const ended = outcome.get();
    EXPECT_EQ(ended.status, 0) << ended.err;
  }

  fs::path ready_ = desk::ReadyFolder(Path());
  std::optional<desk::FileLock> lock_;
};

TEST_F(BusyMovesTest, AreWaitedForWithoutBeingAsked) {
  for (char const* words :
       {"info own/own.lb1", "diff own/own.lb1 sample.lb1", "log own/own.lb1", "dump own/own.lb1",
        "search ETHANOL -l perry.lb1 --names own/own.lb1", "set own/own.lb1 --description x",
        "set own/own.lb1 --description x --in-place", "create own/own.lb1 --force"}) {
    IsWaiting(words);
  }
}

// What is only away for a moment is not made anew.
TEST_F(BusyMovesTest, ALibraryThatIsAwayIsNotMadeAnew) {
  IsWaiting("copy sample.lb1 own/own.lb1 --bank NRTL --create");
  nlohmann::json const banks = Json("banks own/own.lb1")["banks"];
  EXPECT_EQ(Rows(banks, "type", "NRTL"), 1U);
  EXPECT_EQ(Rows(banks, "type", "OCTANE"), 1U);
}

// Who may not take the lock of the moves sees that it is held.
TEST_F(BusyMovesTest, AUserWhoMayOnlyReadWaitsToo) {
  if (::geteuid() != 0) GTEST_SKIP() << "only root can become another user";
  std::string const nobody = "setpriv --reuid=65534 --regid=65534 --clear-groups ";
  if (Shell(nobody + "test -x \"$ZEL\"").status != 0) GTEST_SKIP() << "nobody may run zel here";
  fs::permissions(Folder(), fs::perms::others_read | fs::perms::others_exec, fs::perm_options::add);
  IsWaiting("info own/own.lb1", nobody);
}

TEST_F(BusyMovesTest, AreNotWaitedForForever) {
  BeginMoves();
  Outcome const outcome = Zel("info own/own.lb1");
  EXPECT_EQ(outcome.status, 1);
  EXPECT_NE(outcome.err.find("own/own.lb1: is being changed by another program; try again"),
            std::string::npos)
      << outcome.err;
}

// 100 commands on one library, 20 at a time; one in five changes it. Readers need not ask to wait.
TEST_F(BusyLibraryTest, ManyCommandsAtOnce) {
  constexpr int kCommands = 100;
  constexpr int kOneIn = 5;
  Good("copy perry.lb1 own/busy.lb1 --create");
  nlohmann::json const items = Json("items own/busy.lb1 PERRY")["items"];
  std::vector<std::string> const readers = {"show own/busy.lb1 PERRY ETHANOL",
                                            "search WATER -l own/busy.lb1",
                                            "why ETHANOL TC -l own/busy.lb1",
                                            "check own/busy.lb1 --structure",
                                            "items own/busy.lb1 PERRY",
                                            "log own/busy.lb1",
                                            "info own/busy.lb1",
                                            "eval WATER VaporPressure -l own/busy.lb1 --at 300K"};
  std::map<std::string, double> edited;
  for (int i = 0; i < kCommands; ++i) {
    std::string words = readers[static_cast<std::size_t>(i) % readers.size()];
    if (i % kOneIn == 0) {
      std::string const id = items.at(static_cast<std::size_t>(i)).at("id");
      edited[id] = 500 + i;
      words = "edit own/busy.lb1 " + id + " TC=" + std::to_string(500 + i) + "K --wait 300";
    }
    MakeFile("command" + std::to_string(i), words);
  }
  Outcome const outcome =
      Shell("seq 0 " + std::to_string(kCommands - 1) +
            " | xargs -P 20 -I@ sh -c '\"$ZEL\" $(cat command@) >out@ 2>&1 || cat command@ out@'");
  EXPECT_EQ(outcome.out, "");
  for (auto const& [id, value] : edited) {
    EXPECT_EQ(Json("why " + id + " TC -l own/busy.lb1")["value"], value) << id;
  }
  EXPECT_EQ(Json("check own/busy.lb1 --structure")["damage"], 0);
}

}  // namespace
}  // namespace zel::test

// Files whose writes are held back, and libraries with them.
#include "store/held_writes.h"

#include <gtest/gtest.h>

#include <random>

#include "store/unfinished_flush.h"
#include "tests/store/lib_file_fixture.h"
#include "tests/support/failing_file_system.h"

namespace zel {
namespace {

using platform::OpenMode;
using test::FailingFileSystem;
using test::MemoryFileSystem;

// --- one file ----------------------------------------------------------------------------------

// Random reads, writes and cuts: the same as with a file that holds nothing back, and after a
// commit the real file is the same.
TEST(HeldFileTest, IsLikeAFileThatHoldsNothingBack) {
  constexpr std::size_t kRange = 40'000;
  std::mt19937_64 random(3);
  MemoryFileSystem files;
  MemoryFileSystem models;
  files.Contents("/f.lb1").assign(10'000, std::byte{7});
  models.Contents("/f.lb1") = files.Contents("/f.lb1");
  auto const model = models.Open("/f.lb1", OpenMode::kUpdate).file;
  HeldWrites held(files, "/j", "/f.lb1");
  auto const file = held.Hold(1, files.Open("/f.lb1", OpenMode::kUpdate).file);
  std::vector<std::byte> bytes(9000);
  std::vector<std::byte> expected(9000);
  int commits = 0;
  for (int i = 0; i < 4000; ++i) {
    std::size_t const offset = random() % kRange;
    std::size_t const count = random() % (random() % 10 == 0 ? 9000 : 300);
    std::uint64_t const what = random() % 100;
    if (what < 40) {
      for (std::size_t k = 0; k < count; ++k) bytes[k] = static_cast<std::byte>(random() % 4);
      ASSERT_EQ(file->WriteAt(offset, bytes.data(), count),
                model->WriteAt(offset, bytes.data(), count));
    } else if (what < 90) {
      auto const got = file->ReadAt(offset, bytes.data(), count);
      ASSERT_EQ(got, model->ReadAt(offset, expected.data(), count));
      ASSERT_TRUE(std::equal(bytes.begin(), bytes.begin() + got, expected.begin())) << i;
      std::byte const* const view = file->View(offset, count);
      ASSERT_TRUE(view == nullptr || std::equal(view, view + count, expected.begin())) << i;
    } else if (what < 95) {
      ASSERT_EQ(file->CutTo(offset), model->CutTo(offset));
    } else {
      ASSERT_TRUE(held.Commit());
      ASSERT_EQ(files.Contents("/f.lb1"), models.Contents("/f.lb1")) << i;
      ++commits;
    }
    ASSERT_EQ(file->Size(), model->Size()) << i;
  }
  EXPECT_GT(commits, 100);
  held.End();
  EXPECT_FALSE(files.Exists("/j"));
}

TEST(HeldFileTest, NothingReachesTheFileBeforeTheCommit) {
  MemoryFileSystem files;
  files.Contents("/f.lb1").assign(5000, std::byte{7});
  auto const before = files.Contents("/f.lb1");
  HeldWrites held(files, "/j", "/f.lb1");
  auto file = held.Hold(1, files.Open("/f.lb1", OpenMode::kUpdate).file);
  EXPECT_EQ(file->WriteAt(4990, "abcdefghijklmnop", 16), 16);
  EXPECT_EQ(file->Size(), 5006U);
  EXPECT_TRUE(file->Flush());
  EXPECT_EQ(file->View(4990, 4), nullptr) << "held back";
  EXPECT_NE(file->View(0, 4), nullptr);
  EXPECT_EQ(files.Contents("/f.lb1"), before);
  held.End();
  file.reset();
  EXPECT_EQ(files.Contents("/f.lb1"), before) << "dropped";
}

// Puts `letter` at the beginning of a page of 4096 bytes.
void PutLetter(platform::BlockFile& file, std::uint64_t page, char letter) {
  ASSERT_EQ(file.WriteAt(4096 * page, &letter, 1), 1);
}

// A commit fails at any operation; then what it changed is put back, something else is changed, and
// the next commit fails at any operation or succeeds. The file is that of one of the three states.
TEST(HeldFileTest, CommitAfterOneThatFailedIsWhole) {
  constexpr int kOperations = 30;
  std::string const original(20'000, '7');
  std::string one = original;
  one[0] = one[4096 * 2] = 'a';
  std::string two = original;
  two[4096 * 4] = 'b';
  int failures = 0;
  int successes = 0;
  for (int i = 0; i < kOperations * kOperations * 2; ++i) {
    int const first = i % kOperations + 1;
    int const second = i / kOperations % kOperations + 1;
    MemoryFileSystem files;
    auto& bytes = files.Contents("/f.lb1");
    for (char const c : original) bytes.push_back(static_cast<std::byte>(c));
    FailingFileSystem failing(files);
    bool good = false;
    {
      HeldWrites held(failing, "/f.lb1.journal", "/f.lb1");
      auto const file = held.Hold(1, failing.Open("/f.lb1", OpenMode::kUpdate).file);
      PutLetter(*file, 0, 'a');
      PutLetter(*file, 2, 'a');
      failing.FailAt(first, false);
      if (held.Commit()) continue;
      failing.FailAt(0, false);
      PutLetter(*file, 0, '7');
      PutLetter(*file, 2, '7');
      PutLetter(*file, 4, 'b');
      failing.FailAt(second, i >= kOperations * kOperations);
      good = held.Commit();
      ++(good ? successes : failures);
      if (good) {
        std::string const now(reinterpret_cast<char const*>(bytes.data()), bytes.size());
        EXPECT_EQ(now == two, true) << first << " " << second;
      }
      failing.FailAt(1, true);  // cut off: nothing is cleaned up
      held.End();
    }
    UnfinishedFlush unfinished(files, "/f.lb1");
    ASSERT_EQ(unfinished.Look(), platform::OpenOutcome::kOk);
    ASSERT_NE(unfinished.Found(), UnfinishedFlush::State::kForeign) << first << " " << second;
    if (unfinished.Found() == UnfinishedFlush::State::kThere) {
      ASSERT_EQ(unfinished.Complete(), platform::OpenOutcome::kOk);
    }
    std::string const left(reinterpret_cast<char const*>(bytes.data()), bytes.size());
    bool const isState = left == two || (!good && (left == original || left == one));
    EXPECT_TRUE(isState) << first << " " << second;
  }
  EXPECT_GT(failures, 20);
  EXPECT_GT(successes, 20);
}

TEST(HeldFileTest, WritesTooFarAwayAreRefused) {
  MemoryFileSystem files;
  HeldWrites held(files, "/j", "/f.lb1");
  auto const file = held.Hold(1, files.Open("/f.lb1", OpenMode::kCreate).file);
  EXPECT_EQ(file->WriteAt(UINT64_MAX - 1, "abc", 3), -1);
  EXPECT_EQ(file->WriteAt(std::uint64_t{1} << 50, "abc", 3), -1);
  EXPECT_EQ(file->Size(), 0U);
}

// --- a library ---------------------------------------------------------------------------------

class HeldWritesTest : public test::LibFileTest {
 protected:
  HeldWritesTest() { MakeLibrary(); }
  std::unique_ptr<LibFile_i> OpenHeld(platform::FileSystem& system) {
    auto library = std::make_unique<LibFile_i>(system, accUpdate, "/lib.lb1", "l");
    library->Store().SetWriteMode(writesHeld);
    EXPECT_EQ(library->OpenExisting({true, ""}, nullptr), openOk);
    return library;
  }
  std::string MemoOf(platform::FileSystem& system) {
    LibFile_i library(system, accRead, "/lib.lb1", "l");
    if (library.OpenExisting({true, ""}, nullptr) != openOk) return "not opened";
    char memo[4000];
    library.GetMemo(memo);
    return memo;
  }
  bool HasJournal() { return files_.Exists("/lib.lb1.journal"); }
  // A session with a memo and a node that is cut off in its flush as soon as the journal is on
  // disk. The files are then what a kill leaves.
  void CutOffFlush() {
    auto const first = File1();
    auto const second = files_.Contents("/lib.lb2");
    for (int n = 1; n < 100; ++n) {
      File1() = first;
      files_.Contents("/lib.lb2") = second;
      FailingFileSystem failing(files_);
      auto library = OpenHeld(failing);
      Change(*library, "cut off");
      failing.FailAt(n, true);
      EXPECT_THROW(library->FlushLibFile(), unsigned long);
      library->Abandon();
      if (MemoOf(files_) == "cut off") return;
    }
    ADD_FAILURE() << "no journal";
  }
  static void Change(LibFile_i& library, char const* memo) {
    std::int32_t node[1000] = {1, 2, 3};
    std::int32_t address = 112000001;
    library.SetMemo(memo);
    EXPECT_EQ(library.WriteBlock(address, 1000, node, 0), 4000);
    address = format::kNullAddress;
    EXPECT_EQ(library.WriteBlock(address, 1000, node, 2), 4000);
  }
};

TEST_F(HeldWritesTest, FilesAreThoseOfPlainWrites) {
  MemoryFileSystem plain;
  plain.Contents("/lib.lb1") = File1();
  plain.Contents("/lib.lb2") = files_.Contents("/lib.lb2");
  {
    LibFile_i library(plain, accUpdate, "/lib.lb1", "l");
    ASSERT_EQ(library.OpenExisting({true, ""}, nullptr), openOk);
    Change(library, "changed");
  }
  auto library = OpenHeld(files_);
  Change(*library, "changed");
  EXPECT_NE(File1(), plain.Contents("/lib.lb1"));
  library->CloseLibFile();
  EXPECT_EQ(File1(), plain.Contents("/lib.lb1"));
  EXPECT_EQ(files_.Contents("/lib.lb2"), plain.Contents("/lib.lb2"));
  EXPECT_FALSE(HasJournal());
  EXPECT_EQ(library->ReopenLibFile(), openOk);
  Change(*library, "changed again");
  library->CloseLibFile();
  EXPECT_EQ(MemoOf(files_), "changed again");
}

TEST_F(HeldWritesTest, NewLibraryIsHeldBackToo) {
  MemoryFileSystem plain;
  for (MemoryFileSystem* system : {&plain, &files_}) {
    LibFile_i library(*system, accUpdate, "/new.lb1", "l");
    if (system == &files_) library.Store().SetWriteMode(writesHeld);
    ASSERT_EQ(library.CreateNew(libKind12), openOk);
    std::int32_t const node[1000] = {9};
    std::int32_t address = format::kNullAddress;
    library.WriteBlock(address, 1000, node, 2);
    library.SetMemo("new");
    EXPECT_EQ(system->Contents("/new.lb2").empty(), system == &files_);
  }
  EXPECT_EQ(files_.Contents("/new.lb1"), plain.Contents("/new.lb1"));
  EXPECT_EQ(files_.Contents("/new.lb2"), plain.Contents("/new.lb2"));
  EXPECT_FALSE(files_.Exists("/new.lb1.journal"));
}

TEST_F(HeldWritesTest, WorkThatIsTakenBackLeavesNothing) {
  auto library = OpenHeld(files_);
  library->SetMemo("first");
  library->FlushLibFile();
  auto const first = File1();
  auto const second = files_.Contents("/lib.lb2");
  library->BeginUndo();
  Change(*library, "second");
  library->TakeBack();
  library->CloseLibFile();
  EXPECT_EQ(File1(), first);
  EXPECT_EQ(files_.Contents("/lib.lb2"), second);
}

// Whatever fails at a flush: the library is as before it or as after it, and the flush says whether
// it can be relied on.
TEST_F(HeldWritesTest, FlushIsDoneAsAWholeOrNotAtAll) {
  auto const first = File1();
  auto const second = files_.Contents("/lib.lb2");
  int before = 0;
  int after = 0;
  for (bool const forEver : {false, true}) {
    for (int n = 1; n < 60; ++n) {
      File1() = first;
      files_.Contents("/lib.lb2") = second;
      files_.Remove("/lib.lb1.journal");
      FailingFileSystem failing(files_);
      bool isFlushed = false;
      {
        auto library = OpenHeld(failing);
        Change(*library, "changed");
        failing.FailAt(n, forEver);
        try {
          library->FlushLibFile();
          isFlushed = true;
        } catch (unsigned long) {
        }
        library->Abandon();
        failing.FailAt(0, false);
      }
      std::string const memo = MemoOf(files_);
      ASSERT_TRUE(memo == "changed" || (memo.empty() && !isFlushed)) << n << " " << memo;
      ++(memo.empty() ? before : after);
      ASSERT_EQ(OpenAs(accUpdate), openOk);  // and closes
      ASSERT_EQ(MemoOf(files_), memo) << n;
      ASSERT_FALSE(HasJournal()) << n;
    }
  }
  EXPECT_GT(before, 3);
  EXPECT_GT(after, 3);
}

// After a sync that failed, the journal stays for the next updater: the system can report success
// the next time for data that it gave up.
TEST_F(HeldWritesTest, FlushThatFailedCanBeRepeated) {
  int kept = 0;
  for (int n = 1; n < 40; ++n) {
    FailingFileSystem failing(files_);
    auto library = OpenHeld(failing);
    std::string const memo = "memo " + std::to_string(n);
    Change(*library, memo.c_str());
    failing.FailAt(n, false);
    bool failed = false;
    try {
      library->FlushLibFile();
    } catch (unsigned long) {
      failed = true;
    }
    failing.FailAt(0, false);
    if (failed) library->FlushLibFile();
    library->Abandon();
    ASSERT_EQ(MemoOf(files_), memo) << n;
    if (!HasJournal()) continue;
    ASSERT_TRUE(failed) << n;
    ++kept;
    LibFile_i updater(files_, accUpdate, "/lib.lb1", "l");
    ASSERT_EQ(updater.OpenExisting({true, ""}, nullptr), openOk);
    ASSERT_FALSE(HasJournal()) << n;
    updater.Abandon();
    ASSERT_EQ(MemoOf(files_), memo) << n;
  }
  EXPECT_GT(kept, 0);
  EXPECT_LT(kept, 4);
}

// --- the next opener ---------------------------------------------------------------------------

TEST_F(HeldWritesTest, ReaderSeesTheWholeFlushAndChangesNothing) {
  CutOffFlush();
  ASSERT_TRUE(HasJournal());
  auto const first = File1();
  auto const second = files_.Contents("/lib.lb2");
  auto const journal = files_.Contents("/lib.lb1.journal");
  EXPECT_EQ(MemoOf(files_), "cut off");
  LibFile_i status(files_, accRead, "/lib.lb1", "l");
  ASSERT_EQ(status.OpenExisting({false, {}}, nullptr), openOk);
  EXPECT_TRUE(status.Store().LastClose()->isCompleted);
  std::int32_t node[1000];
  EXPECT_EQ(status.ReadBlock(112000003, 1000, node), 4000);
  EXPECT_EQ(node[2], 3);
  EXPECT_EQ(status.Store().BlocksInFile(2), 3);
  status.CloseLibFile();
  EXPECT_EQ(File1(), first);
  EXPECT_EQ(files_.Contents("/lib.lb2"), second);
  EXPECT_EQ(files_.Contents("/lib.lb1.journal"), journal);
}

TEST_F(HeldWritesTest, PlainUpdaterCompletesTheFlushFirst) {
  CutOffFlush();
  auto library = Opened(accUpdate);
  EXPECT_FALSE(HasJournal());
  EXPECT_TRUE(library->Store().LastClose()->isCompleted);
  char memo[4000];
  library->GetMemo(memo);
  EXPECT_STREQ(memo, "cut off");
  library->CloseLibFile();
  EXPECT_FALSE(Opened(accUpdate)->Store().LastClose()->isCompleted) << "once only";
}

TEST_F(HeldWritesTest, UpdaterThatCannotCompleteIsRefused) {
  CutOffFlush();
  FailingFileSystem failing(files_);
  int refused = 0;
  int operations = 0;
  for (int n = 1; n < 60; ++n) {
    failing.FailAt(n, true);
    LibFile_i library(failing, accUpdate, "/lib.lb1", "l");
    openErrors error = openFailed;
    try {
      error = library.OpenExisting({true, ""}, nullptr);
    } catch (unsigned long) {
    }
    operations = failing.Operations();
    if (error == openOk) {
      library.Abandon();
      break;
    }
    failing.FailAt(0, false);
    ASSERT_EQ(MemoOf(files_), "cut off") << n;
    ++refused;
  }
  EXPECT_GT(refused, 10) << operations;
  EXPECT_EQ(MemoOf(files_), "cut off");
}

// A backup was copied over the library.
TEST_F(HeldWritesTest, JournalOfOtherFilesIsNotUsed) {
  auto const first = File1();
  auto const second = files_.Contents("/lib.lb2");
  {
    auto library = Opened(accUpdate);
    library->SetMemo("later");
  }
  CutOffFlush();
  File1() = first;
  files_.Contents("/lib.lb2") = second;
  auto library = Opened(accRead);
  EXPECT_TRUE(library->Store().LastClose()->hasForeignJournal);
  EXPECT_FALSE(library->Store().LastClose()->isCompleted);
  library->CloseLibFile();
  EXPECT_EQ(MemoOf(files_), "");
  EXPECT_TRUE(HasJournal());
  library = Opened(accUpdate);
  EXPECT_TRUE(library->Store().LastClose()->hasForeignJournal);
  EXPECT_TRUE(HasJournal()) << "until the first write";
  library->SetMemo("since");
  EXPECT_FALSE(HasJournal());
  library->CloseLibFile();
  EXPECT_EQ(MemoOf(files_), "since");
}

TEST_F(HeldWritesTest, NewLibraryDropsAnOldJournal) {
  CutOffFlush();
  files_.Remove("/lib.lb1");
  files_.Remove("/lib.lb2");
  MakeLibrary();
  EXPECT_FALSE(HasJournal());
  EXPECT_EQ(MemoOf(files_), "");
}

TEST_F(HeldWritesTest, JournalWithoutAWholeCommitIsIgnored) {
  CutOffFlush();
  auto const journal = files_.Contents("/lib.lb1.journal");
  {
    auto library = Opened(accUpdate);  // completes it
    library->SetMemo("as it was");
  }
  for (std::size_t length : {std::size_t{0}, std::size_t{100}, journal.size() - 1}) {
    files_.Contents("/lib.lb1.journal")
        .assign(journal.begin(), journal.begin() + static_cast<long>(length));
    EXPECT_EQ(MemoOf(files_), "as it was");
    auto library = Opened(accUpdate);
    EXPECT_FALSE(library->Store().LastClose()->hasForeignJournal);
    library->CloseLibFile();
    EXPECT_EQ(MemoOf(files_), "as it was");
    EXPECT_FALSE(HasJournal()) << "the close has written";
  }
}

}  // namespace
}  // namespace zel

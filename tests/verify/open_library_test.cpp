// Opens with settings, on files of the system: the mark, held-back writes, hosts that are killed,
// and waiting.
#include "zelaccess/OpenLibrary.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <string>
#include <thread>

#include "store/lib_file.h"
#include "zelaccess/Handles.h"

namespace zel {
namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

class OpenLibraryTest : public ::testing::Test {
 protected:
  void SetUp() override {
    folder_ = fs::temp_directory_path() / ("zel_open_library_" + std::to_string(::getpid()));
    fs::remove_all(folder_);
    fs::create_directories(folder_);
    openErrors error{};
    Handle<LibFile> const library(LibFile::NewLibFile(libKind11, Path().c_str(), error));
    ASSERT_EQ(error, openOk);
    library->SetMemo("first");
  }
  void TearDown() override {
    fs::permissions(folder_, fs::perms::owner_all);
    fs::remove_all(folder_);
  }
  std::string Path(char const* name = "s.lb1") const { return (folder_ / name).string(); }
  bool HasMark() const { return fs::exists(Path("s.lb1.open")); }
  bool HasJournal() const { return fs::exists(Path("s.lb1.journal")); }

  Handle<LibFile> Open(ZelOpenOptions const& options, openErrors expected = openOk) {
    openErrors error = openFailed;
    Handle<LibFile> library(OpenLibrary(Path().c_str(), options, error));
    EXPECT_EQ(error, expected);
    EXPECT_EQ(library != nullptr, expected == openOk);
    return library;
  }
  static ZelOpenOptions Update(zelWriteModes writes, zelUncleanModes unclean = uncleanIgnored) {
    ZelOpenOptions options;
    options.mode = accUpdate;
    options.writes = writes;
    options.unclean = unclean;
    return options;
  }
  static ZelOpenOptions Read(zelUncleanModes unclean = uncleanIgnored) {
    ZelOpenOptions options;
    options.unclean = unclean;
    return options;
  }
  std::string Memo() {
    openErrors error{};
    Handle<LibFile> const library(LibFile::OpenLibFile(accRead, Path().c_str(), "", error));
    if (library == nullptr) return "error " + std::to_string(error);
    char memo[4000];
    library->GetMemo(memo);
    return memo;
  }
  // Another process opens the library, does the work and is killed.
  template <typename Work>
  void KilledAfter(ZelOpenOptions const& options, Work const& work) {
    pid_t const child = ::fork();
    if (child == 0) {
      openErrors error{};
      LibFile* const library = OpenLibrary(Path().c_str(), options, error);
      if (library == nullptr) ::_exit(1);
      work(*library);
      ::raise(SIGKILL);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    ASSERT_TRUE(WIFSIGNALED(status));
  }
  // Makes a block of the library's memo one that is free, too.
  void Damage() {
    std::fstream file(Path(), std::ios::in | std::ios::out | std::ios::binary);
    std::int32_t const address = 119000001;
    file.seekp(28);
    file.write(reinterpret_cast<char const*>(&address), 4);
  }

  fs::path folder_;
};

TEST_F(OpenLibraryTest, DefaultsAreThoseOfAPlainOpenForReading) {
  auto const library = Open({});
  libTypes type{};
  accModes mode{};
  library->GetLibInfo(type, mode);
  EXPECT_EQ(mode, accRead);
  EXPECT_STREQ(library->GetLibName(), "s.lb1");
  ZelOpenOptions named;
  named.name = "a name";
  EXPECT_STREQ(Open(named)->GetLibName(), "a name");
}

// Nothing can be next to it: neither a journal nor a mark.
TEST_F(OpenLibraryTest, NameMayBeAsLongAsThatOfAnyFile) {
  std::string name = std::to_string(::getpid()) + ".lb1";
  name.insert(0, 250 - name.size(), 'n');
  std::string const longest = (fs::temp_directory_path() / name).string();
  openErrors error{};
  Handle<LibFile> library(LibFile::NewLibFile(libKind11, longest.c_str(), error));
  if (library == nullptr) GTEST_SKIP() << "the folder for temporary files has a long name";
  library->CloseLibFile();
  EXPECT_EQ(library->ReopenLibFile(), openOk);
  library.reset();
  library.reset(LibFile::OpenLibFile(accRead, longest.c_str(), "", error));
  EXPECT_EQ(error, openOk);
  libTypes type{};
  LibFile::StatusLibFile(longest.c_str(), type, error);
  EXPECT_EQ(error, openOk);
  EXPECT_EQ(FinishLastFlush(longest.c_str(), false), openOk);
  fs::remove(longest);
}

TEST_F(OpenLibraryTest, PasswordIsTested) {
  {
    auto const library = Open(Update(writesPlain));
    library->SetPassword(1, "word");
  }
  Open(Update(writesHeld), openPasswordNeeded);
  ZelOpenOptions options = Update(writesHeld);
  options.password = "wrong";
  Open(options, openBadPassword);
  options.password = "word";
  Open(options);
}

// --- kills -------------------------------------------------------------------------------------

TEST_F(OpenLibraryTest, KilledHostWithHeldBackWritesLeavesTheLastFlush) {
  KilledAfter(Update(writesHeld), [](LibFile& library) { library.SetMemo("not flushed"); });
  EXPECT_EQ(Memo(), "first");
  KilledAfter(Update(writesHeld), [](LibFile& library) {
    library.SetMemo("flushed");
    library.FlushLibFile();
    library.SetMemo("not flushed");
  });
  EXPECT_EQ(Memo(), "flushed");
  EXPECT_TRUE(HasJournal());
  ZelLastClose state;
  ASSERT_TRUE(GetLastClose(Open(Read(uncleanRefused)).get(), state)) << "nothing is unclean";
  EXPECT_TRUE(state.isCompleted);
  EXPECT_FALSE(state.isMarked);
  EXPECT_FALSE(state.hasForeignJournal);
  EXPECT_EQ(FinishLastFlush(Path().c_str(), false), openOk);
  EXPECT_FALSE(HasJournal());
  EXPECT_EQ(Memo(), "flushed");
}

TEST_F(OpenLibraryTest, KilledHostWithMarkedWritesLeavesTheMark) {
  KilledAfter(Update(writesMarked), [](LibFile&) {});
  EXPECT_FALSE(HasMark()) << "nothing was written";
  KilledAfter(Update(writesMarked), [](LibFile& library) { library.SetMemo("written"); });
  EXPECT_TRUE(HasMark());
  EXPECT_EQ(fs::file_size(Path("s.lb1.open")), 0U);
  Open(Read(uncleanRefused), openUncleanlyClosed);
  Open(Update(writesPlain, uncleanRefused), openUncleanlyClosed);
  Open(Read(uncleanIgnored));
  Open(Read(uncleanVerified));
  EXPECT_TRUE(HasMark()) << "a reader changes nothing";
  Open(Update(writesMarked, uncleanVerified));
  EXPECT_FALSE(HasMark());
  Open(Read(uncleanRefused));
}

TEST_F(OpenLibraryTest, DamagedLibraryIsNotOpenedAndStaysAsItIs) {
  KilledAfter(Update(writesMarked), [](LibFile& library) { library.SetMemo("written"); });
  Damage();
  auto const before = fs::last_write_time(Path());
  for (ZelOpenOptions const& options :
       {Read(uncleanVerified), Update(writesPlain, uncleanVerified)}) {
    Open(options, openDamaged);
    EXPECT_TRUE(HasMark());
    EXPECT_EQ(fs::last_write_time(Path()), before);
  }
  fs::remove(Path("s.lb1.open"));
  Open(Update(writesPlain, uncleanVerified))->SetDescriptionAndVersion("not asked for", nullptr);
}

TEST_F(OpenLibraryTest, CleanCloseTakesTheMarkAway) {
  auto library = Open(Update(writesMarked));
  library->SetMemo("second");
  EXPECT_TRUE(HasMark());
  library.reset();
  EXPECT_FALSE(HasMark());
  EXPECT_EQ(Memo(), "second");
}

// --- the files next to the library -------------------------------------------------------------

TEST_F(OpenLibraryTest, JournalIsFoundWhateverLinkLeadsToTheLibrary) {
  fs::create_directories(folder_ / "other");
  fs::create_symlink("../s.lb1", folder_ / "other/link.lb1");
  fs::create_symlink("../s.lb2", folder_ / "other/link.lb2");
  std::string const link = Path("other/link.lb1");
  pid_t const child = ::fork();
  if (child == 0) {
    openErrors error{};
    LibFile* const library = OpenLibrary(link.c_str(), Update(writesHeld), error);
    library->SetMemo("through a link");
    library->FlushLibFile();
    ::raise(SIGKILL);
  }
  ::waitpid(child, nullptr, 0);
  EXPECT_TRUE(HasJournal());
  EXPECT_EQ(Memo(), "through a link");
  EXPECT_EQ(FinishLastFlush(link.c_str(), false), openOk);
  EXPECT_FALSE(HasJournal());
}

TEST_F(OpenLibraryTest, LinksInTheirPlaceAreNotFollowed) {
  std::ofstream(Path("victim")) << "untouched";
  fs::create_symlink("victim", Path("s.lb1.journal"));
  fs::create_symlink("victim", Path("s.lb1.open"));
  auto library = Open(Read());
  ZelLastClose state;
  ASSERT_TRUE(GetLastClose(library.get(), state));
  EXPECT_TRUE(state.hasForeignJournal);
  library.reset();
  library = Open(Update(writesHeld));
  library->SetMemo("second");
  library.reset();
  EXPECT_FALSE(fs::exists(fs::symlink_status(Path("s.lb1.journal"))));
  std::string text;
  std::getline(std::ifstream(Path("victim")), text);
  EXPECT_EQ(text, "untouched");
  EXPECT_EQ(Memo(), "second");
}

TEST_F(OpenLibraryTest, JournalHasTheModeOfTheLibrary) {
  fs::permissions(Path(), fs::perms(0640));
  auto library = Open(Update(writesHeld));
  library->SetMemo("second");
  struct stat info {};
  ASSERT_EQ(::stat(Path("s.lb1.journal").c_str(), &info), 0);
  EXPECT_EQ(info.st_mode & 0777U, 0640U);
}

TEST_F(OpenLibraryTest, FolderThatMayNotBeWrittenToFailsTheFirstWrite) {
  // Root may write everywhere.
  constexpr uid_t kNobody = 65534;
  bool const isRoot = ::geteuid() == 0;
  if (isRoot) {
    for (char const* name : {"", "s.lb1", "s.lb2"}) {
      ASSERT_EQ(::chown(Path(name).c_str(), kNobody, static_cast<gid_t>(-1)), 0);
    }
    ASSERT_EQ(::seteuid(kNobody), 0);
  }
  auto library = Open(Update(writesHeld));
  fs::permissions(folder_, fs::perms(0500));
  EXPECT_THROW(library->FlushLibFile(), unsigned long);
  EXPECT_EQ(fs::exists(Path("s.lb1.journal")), false);
  library.reset();
  EXPECT_EQ(Memo(), "first");
  library = Open(Update(writesPlain));
  library->SetMemo("plain writes need no other file");
  library.reset();
  EXPECT_NE(Memo(), "first");
  EXPECT_TRUE(!isRoot || ::seteuid(0) == 0);
}

TEST_F(OpenLibraryTest, ForgetUncleanCloseRemovesBoth) {
  std::ofstream(Path("s.lb1.open")) << "";
  std::ofstream(Path("s.lb1.journal")) << "anything";
  EXPECT_TRUE(ForgetUncleanClose(Path().c_str()));
  EXPECT_FALSE(HasMark());
  EXPECT_FALSE(HasJournal());
  EXPECT_TRUE(ForgetUncleanClose(Path().c_str())) << "nothing to do";
}

TEST_F(OpenLibraryTest, NewLibraryHoldsItsWritesBack) {
  std::string const path = Path("new.lb1");
  openErrors error = openFailed;
  ZelOpenOptions options;
  options.writes = writesHeld;
  Handle<LibFile> library(NewLibrary(libKind12, path.c_str(), options, error));
  ASSERT_EQ(error, openOk);
  library->SetMemo("new");
  EXPECT_EQ(fs::file_size(path), 0U);
  library.reset();
  EXPECT_GT(fs::file_size(path), 1000U);
  EXPECT_FALSE(fs::exists(path + ".journal"));
  library.reset(NewLibrary(libKind12, Path("new.txt").c_str(), options, error));
  EXPECT_EQ(error, openNotLibrary);
}

TEST_F(OpenLibraryTest, FinishingUnderTheLockOfTheCaller) {
  KilledAfter(Update(writesHeld), [](LibFile& library) {
    library.SetMemo("flushed");
    library.FlushLibFile();
  });
  auto const lock = platform::SystemFileSystem().Open(Path(), platform::OpenMode::kUpdate);
  ASSERT_TRUE(lock.file);
  EXPECT_EQ(FinishLastFlush(Path().c_str(), false), openDenied);
  EXPECT_TRUE(HasJournal());
  EXPECT_EQ(FinishLastFlush(Path().c_str(), true), openOk);
  EXPECT_FALSE(HasJournal());
}

// --- waiting -----------------------------------------------------------------------------------

TEST_F(OpenLibraryTest, WaitsForALibraryInUse) {
  auto held = Open(Update(writesPlain));
  std::thread closer([&] {
    std::this_thread::sleep_for(std::chrono::milliseconds(150));
    held.reset();
  });
  ZelOpenOptions options = Update(writesPlain);
  options.waitMilliseconds = 20'000;
  auto const start = Clock::now();
  auto const library = Open(options);
  EXPECT_GE(Clock::now() - start, std::chrono::milliseconds(100));
  closer.join();
}

TEST_F(OpenLibraryTest, WaitEnds) {
  auto const held = Open(Update(writesPlain));
  ZelOpenOptions options;
  options.waitMilliseconds = 60;
  auto const start = Clock::now();
  Open(options, openDenied);
  EXPECT_GE(Clock::now() - start, std::chrono::milliseconds(60));
  openErrors error = openOk;
  EXPECT_EQ(NewLibrary(libKind11, Path().c_str(), options, error), nullptr);
  EXPECT_EQ(error, openDenied);
}

TEST_F(OpenLibraryTest, NobodyWaitsForWhatIsNotInUse) {
  ZelOpenOptions options;
  options.waitMilliseconds = 600'000;
  fs::remove(Path());
  Open(options, openNotFound);
  fs::create_directory(Path());
  Open(options, openDenied);
}

}  // namespace
}  // namespace zel

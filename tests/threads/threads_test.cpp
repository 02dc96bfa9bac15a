// Several threads, each with libraries of its own: reads, writes, walks, searches, evaluations,
// imports, exports, lists and checks have the same results as in one thread. Also for
// ThreadSanitizer.
#include <gtest/gtest.h>
#include <unistd.h>

#include <string>

#include "in_threads.h"
#include "worker.h"

namespace zel::test {
namespace {

namespace fs = std::filesystem;
constexpr int kThreads = 8;

class ThreadsTest : public ::testing::Test {
 protected:
  ThreadsTest()
      : folder_(fs::temp_directory_path() / ("zel_threads_" + std::to_string(::getpid()))) {
    fs::remove_all(folder_);
    fs::create_directories(folder_);
  }
  ~ThreadsTest() override { fs::remove_all(folder_); }

  fs::path folder_;
};

TEST_F(ThreadsTest, LibrariesOfDifferentThreadsDoNotDisturbEachOther) {
  constexpr int kRounds = 3;
  InitZelAccess();
  Handle<LibFile> const index = MakeNameIndex(folder_);
  LibFile::SetOrdwinNameIndex(index.get());
  std::string const problems = InThreads(kThreads, [&](int n) {
    for (int round = 0; round < kRounds; ++round) {
      Worker(folder_ / (std::to_string(n) + "_" + std::to_string(round)), n).Run();
    }
  });
  LibFile::ClearOrdwinNameIndex();
  EXPECT_EQ(problems, "");
}

TEST_F(ThreadsTest, ReadersOfOneFileHaveHandlesOfTheirOwn) {
  constexpr int kBanks = 30;
  {
    openErrors error{};
    Handle<LibFile> const library(
        LibFile::NewLibFile(libKind11, (folder_ / "one.lb1").c_str(), error));
    Handle<LibMaint> const maint(LibMaint::NewLibMaint(library.get()));
    for (int i = 0; i < kBanks; ++i) {
      ASSERT_TRUE(maint->CreateBank("NRTL", ("B" + std::to_string(i)).c_str(), 0));
    }
    library->CloseLibFile();
  }
  std::string const problems = InThreads(kThreads, [&](int) {
    openErrors error{};
    Handle<LibFile> const library(
        LibFile::OpenLibFile(accRead, (folder_ / "one.lb1").c_str(), "", error));
    Handle<LibMaint> const maint(LibMaint::NewLibMaint(library.get()));
    for (int round = 0; round < 500; ++round) {
      char type[9];
      char name[9];
      int banks = 0;
      maint->BeginBankWalk();
      while (maint->NextBank(type, name)) ++banks;
      if (banks != kBanks) throw std::runtime_error("a walk with " + std::to_string(banks));
    }
  });
  EXPECT_EQ(problems, "");
}

// The first thread starts the unit system; the others find it started.
TEST_F(ThreadsTest, UnitsAreStartedOnceByWhoComesFirst) {
  EXPECT_EQ(InThreads(kThreads,
                      [&](int n) {
                        InitZelAccess();
                        Worker(folder_ / ("first" + std::to_string(n)), n);
                      }),
            "");
}

TEST_F(ThreadsTest, SettingsOfListsAreSharedAndGuarded) {
  Handle<CompList> const shown(CompList::NewCompList());
  EXPECT_EQ(InThreads(kThreads,
                      [&](int n) {
                        Handle<CompList> const list(CompList::NewCompList());
                        for (int i = 0; i < 200; ++i) {
                          list->SetFilter(n % 2 == 0 ? "even" : "odd");
                          std::string const filter = list->GetFilter();
                          if (filter != "even" && filter != "odd" && filter != "*") {
                            throw std::runtime_error(filter);
                          }
                        }
                      }),
            "");
  shown->ResetFilter();
}

TEST_F(ThreadsTest, NameIndexCanBeSetWhileOthersAsk) {
  Handle<LibFile> index = MakeNameIndex(folder_);
  std::string const problems = InThreads(kThreads, [&](int n) {
    openErrors error{};
    std::string const path = (folder_ / ("n" + std::to_string(n) + ".lb1")).string();
    Handle<LibFile> const library(LibFile::NewLibFile(libKind11, path.c_str(), error));
    Handle<LibMaint> const maint(LibMaint::NewLibMaint(library.get()));
    for (int i = 0; i < 200; ++i) {
      if (n == 1) LibFile::SetOrdwinNameIndex(i % 2 == 0 ? index.get() : nullptr);
      std::int32_t const number = maint->FindNumberById("WATER");
      if (number != 0 && number != 10000326) throw std::runtime_error(std::to_string(number));
    }
  });
  LibFile::ClearOrdwinNameIndex();
  EXPECT_EQ(problems, "");
}

}  // namespace
}  // namespace zel::test

// The file from which the unit system is started.
#include <gtest/gtest.h>
#include <sys/inotify.h>
#include <unistd.h>

#include <array>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <new>
#include <string>
#include <vector>

#include "tests/frame/temp_folder.h"
#include "tests/frame/unit_fixture.h"
#include "tests/support/allocations.h"

namespace zel {
namespace {

class UnitTableFileTest : public test::TempFolderTest {
 protected:
  UnitTableFileTest() : before_(platform::Environment("TMPDIR")) {
    ::setenv("TMPDIR", Folder().c_str(), 1);
    watch_ = ::inotify_init1(IN_NONBLOCK | IN_CLOEXEC);
    EXPECT_GE(::inotify_add_watch(watch_, Folder().c_str(), IN_CREATE | IN_DELETE), 0);
  }
  ~UnitTableFileTest() override {
    ::close(watch_);
    before_.empty() ? ::unsetenv("TMPDIR") : ::setenv("TMPDIR", before_.c_str(), 1);
  }

  // Files created and removed in the folder: '+' or '-' and the name.
  std::vector<std::string> Events() const {
    std::vector<std::string> events;
    alignas(inotify_event) std::array<char, 4096> bytes{};
    ssize_t const count = ::read(watch_, bytes.data(), bytes.size());
    for (ssize_t at = 0; at < count;) {
      inotify_event event;
      std::memcpy(&event, bytes.data() + at, sizeof event);
      std::string const name(bytes.data() + at + sizeof event);
      events.push_back(((event.mask & IN_CREATE) != 0 ? "+" : "-") + name);
      at += static_cast<ssize_t>(sizeof event + event.len);
    }
    return events;
  }

 private:
  std::string before_;
  int watch_ = -1;
};

// Skipped where the file system of the folder has no such files; see TemporaryFileTest for what
// happens there.
TEST_F(UnitTableFileTest, FileHasNoNameThatAKilledProcessCouldLeave) {
  if (platform::TemporaryFile("x", 259).Path().rfind("/proc/self/fd/", 0) != 0) {
    GTEST_SKIP() << "no files without a name here";
  }
  Events();
  ASSERT_EQ(StartUnitSystemFrom(UnitTableResource()), 0);
  EXPECT_TRUE(Events().empty());
}

TEST_F(UnitTableFileTest, NamedFileComesAndGoes) {
  {
    platform::TemporaryFile const file(TableFilePrefix(::getpid()), 259, false);
    EXPECT_EQ(file.Path().rfind((Folder() / TableFilePrefix(::getpid())).string(), 0), 0u);
    EXPECT_TRUE(std::filesystem::exists(file.Path()));
  }
  std::vector<std::string> const events = Events();
  ASSERT_EQ(events.size(), 2u);
  EXPECT_EQ(events[0].rfind("+" + TableFilePrefix(::getpid()), 0), 0u) << events[0];
  EXPECT_EQ(events[1].substr(1), events[0].substr(1));
  EXPECT_EQ(events[1].front(), '-');
}

TEST_F(UnitTableFileTest, NamelessFileIsReadAgainUnderItsPath) {
  platform::TemporaryFile const file("x", 259);
  std::ofstream(file.Path()) << "some text";
  std::string text;
  std::getline(std::ifstream(file.Path()), text);
  EXPECT_EQ(text, "some text");
}

TEST_F(UnitTableFileTest, EmptyTableMakesNoFile) {
  EXPECT_EQ(StartUnitSystemFrom(""), -1);
  EXPECT_TRUE(Events().empty());
}

// Whichever allocation of the loading fails, no file is left behind.
TEST_F(UnitTableFileTest, FileGoesWhenMemoryIsRefused) {
  std::string const table = test::SmallTable{}.Text();
  int refused = 0;
  for (int request = 1;; ++request) {
    ASSERT_LT(request, 100'000);
    int result = -1;
    bool thrown = false;
    {
      test::AllocationWatch const watch(request);
      try {
        result = StartUnitSystemFrom(table);
      } catch (std::bad_alloc const&) {
        thrown = true;
      }
    }
    std::filesystem::directory_iterator const left(Folder());
    ASSERT_EQ(std::distance(begin(left), end(left)), 0) << "request " << request;
    if (!thrown && result == 0) break;
    ++refused;
  }
  EXPECT_GT(refused, 50);
}

}  // namespace
}  // namespace zel

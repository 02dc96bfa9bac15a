// The order in which a unit word is tried, and the file from which the unit system is started.
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

class UnitWordTest : public test::UnitSystemTest {};

TEST_F(UnitWordTest, MoleIsLookedForInTheFirst29Characters) {
  // 25 letters and "-mol" are 29.
  std::string const fits = "(lb/sec)/sqrt(psi-lb/ft3)";
  ASSERT_EQ(fits.size(), 25u);
  EXPECT_EQ(Opened("flowconductance", (fits + "-mol").c_str()), fits);
  EXPECT_EQ(Opened("flowconductance", (fits + "-mole").c_str()), fits);
  // 27 letters and "-mol" are 31: the cut leaves "-m".
  std::string const beyond = "(lb/sec)/sqrt(inH2O-lb/ft3)";
  EXPECT_EQ(Opened("flowconductance", beyond.c_str()), beyond);
  EXPECT_EQ(Opened("flowconductance", (beyond + "-mol").c_str()), "-");
}

TEST_F(UnitWordTest, FirstMoleOfAWordIsCutAt) {
  EXPECT_EQ(Opened("mass", "lb-mol-mol"), "lb");
  EXPECT_EQ(Opened("mass", "lb-Mol-mole"), "lb");
}

TEST_F(UnitWordTest, OtherBasisIsTriedAsKeywordToo) {
  EXPECT_EQ(Opened("vol", "lit-mol"), "liter");
  EXPECT_EQ(Opened("currency", "usd-mole"), "$");
}

TEST_F(UnitWordTest, WordsThatAreRefusedLeaveNothingBehind) {
  double value = 5.0;
  for (char const* word : {"furlong", "furlong-mol", "lb-mol-mol", ""}) {
    test::AllocationWatch const watch;
    bool const refused =
        OpenUnit("pres", word) == nullptr && !ConvertToInternal("pres", word, value);
    int const requested = watch.Requested();
    int const freed = watch.Freed();
    EXPECT_TRUE(refused) << word;
    EXPECT_GT(requested, 0);
    EXPECT_EQ(requested, freed) << word;
  }
}

TEST_F(UnitWordTest, ConvertingLeavesNothingBehind) {
  double value = 25.0;
  test::AllocationWatch const watch;
  bool const converted = ConvertToInternal("temp", "C", value);
  int const kept = watch.Requested() - watch.Freed();
  EXPECT_TRUE(converted);
  EXPECT_EQ(kept, 0);
}

// Each of the four attempts finds a different unit for one of these words.
TEST(UnitWordOrder, TextThenKeywordThenTheOtherBasis) {
  test::SmallTable table;
  table.units =
      "'one','TWO','',0,0,1\n'two','ONE','',0,0,1\n'x','x1','',0,0,1\n'x-mol','x2','',0,0,1\n"
      "'y','z-mol','',0,0,1\n'z','z3','',0,0,1\n'v','w','',0,0,1\n'w1','v-mol','',0,0,1\n";
  table.lists =
      "'BEGINLIST'\n'Mixed'\n'one'\n'two'\n'x'\n'x-mol'\n'y'\n'z'\n'v'\n'w1'\n'ENDLIST'\n";
  ASSERT_EQ(StartUnitSystemFrom(table.Text()), 0);
  struct Case {
    char const* word;
    char const* display;
  };
  constexpr Case kCases[] = {
      {"one", "one"},      // a text and a keyword
      {"ONE", "one"},      // a text in any case comes before a keyword
      {"two", "two"},      //
      {"x", "x"},          // a text with and without "-mol"
      {"x-mol", "x-mol"},  //
      {"z-mol", "y"},      // a keyword; when cut it would be a text
      {"w-mol", "v"},      // when cut it is a keyword
      {"v", "v"},          // a text; with "-mol" it would be a keyword
  };
  for (Case const& row : kCases) {
    uom_Unit* unit = OpenUnit("mixed", row.word);
    ASSERT_NE(unit, nullptr) << row.word;
    char text[30];
    EXPECT_EQ(uom_GetDisplayUnits(unit, text, 30, 1), 0);
    EXPECT_STREQ(text, row.display) << row.word;
    uom_Free(&unit);
  }
}

// The unit system on a small table with a class of these units, for which QRInternal has no unit.
void StartWith(std::vector<std::string> const& units) {
  test::SmallTable table;
  table.lists = "'BEGINLIST'\n'Mixed'\n";
  for (std::string const& unit : units) {
    table.units += "'" + unit + "','" + std::to_string(table.units.size()) + "','',0,0,1\n";
    table.lists += "'" + unit + "'\n";
  }
  table.lists += "'ENDLIST'\n";
  ASSERT_EQ(StartUnitSystemFrom(table.Text()), 0);
}

// The text of the unit that a word opens there.
std::string OpenedMixed(std::string const& word) {
  uom_Unit* unit = OpenUnit("mixed", word.c_str());
  if (unit == nullptr) return "-";
  char text[60] = "";
  uom_GetDisplayUnits(unit, text, sizeof text, 1);
  uom_Free(&unit);
  return text;
}

TEST(UnitWordOrder, ExactTextComesBeforeTheSameInOtherCase) {
  StartWith({"PQ", "pq", "Pq"});
  for (char const* word : {"PQ", "pq", "Pq"}) EXPECT_EQ(OpenedMixed(word), word);
  EXPECT_EQ(OpenedMixed("pQ"), "PQ") << "the first of the list";
}

TEST(UnitWordOrder, MoleIsPutBehindInLowerCase) {
  StartWith({"q-MOL", "q-mol", "q-Mol"});
  EXPECT_EQ(OpenedMixed("q"), "q-mol");
}

TEST(UnitWordOrder, WordIsCutTo29CharactersBeforeMoleIsPutBehind) {
  std::string const most(29, 'u');
  StartWith({most + "-mol", "v"});
  EXPECT_EQ(OpenedMixed(most), most + "-mol");
  EXPECT_EQ(OpenedMixed(most + "wxyz"), most + "-mol");
  EXPECT_EQ(OpenedMixed(most.substr(1)), "-") << "one character less";
}

TEST(UnitWordOrder, ClassWithoutAnInternalUnitConvertsNothing) {
  StartWith({"p", "q"});
  double value = 5.0;
  test::AllocationWatch const watch;
  bool const converted = ConvertToInternal("mixed", "p", value);
  int const kept = watch.Requested() - watch.Freed();
  EXPECT_FALSE(converted);
  EXPECT_EQ(value, 5.0);
  EXPECT_EQ(kept, 0);
}

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

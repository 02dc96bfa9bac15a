// The progress of long work on a terminal, and Ctrl-C.
#include <csignal>
#include <sstream>

#include "tests/zel/terminal_run.h"

namespace zel::test {
namespace {

constexpr char kCtrlC[] = "\x03";
constexpr int kInterrupted = 128 + SIGINT;

class WorkTest : public ZelTest {
 protected:
  // Takes seconds to import.
  void MakePairs(char const* file, int items) const {
    std::ostringstream text;
    text << "<bank type='NRTL' name='BIG'>\n";
    for (std::int64_t i = 0; i < items; ++i) {
      std::int64_t const pair = i * 7919 % items;
      text << "<item><keys>" << 10'000'000 + pair / 400 << ' ' << 20'000'000 + pair % 400
           << "</keys><aij>" << pair % 1000 << "</aij></item>\n";
    }
    text << "</bank>\n";
    MakeFile(file, text.str());
  }
  Outcome OnTerminal(std::string const& words, Terminal const& terminal = {}) const {
    return RunOnTerminal(Folder(), "ZEL_PROGRESS_DELAY=0 exec \"$ZEL\" " + words, terminal);
  }
};

TEST_F(WorkTest, ShareAndTimeLeftAreShown) {
  MakePairs("big.xml", 60'000);
  Outcome const import = OnTerminal("import big.lb1 big.xml --create");
  EXPECT_EQ(import.status, 0) << import.out;
  EXPECT_NE(import.out.find(" % importing big.xml, "), std::string::npos) << import.out;
  EXPECT_NE(import.out.find(" s left"), std::string::npos) << import.out;
  EXPECT_NE(OnTerminal("export big.lb1 -o out.xml").out.find(" % exporting big.lb1"),
            std::string::npos);
  Outcome const check = OnTerminal("check big.lb1 crc.lb1");
  EXPECT_NE(check.out.find(" % checking the structure of big.lb1"), std::string::npos) << check.out;
  EXPECT_NE(check.out.find(" % checking crc.lb1"), std::string::npos) << check.out;
  EXPECT_NE(check.out.find(" % comparing libraries"), std::string::npos) << check.out;
  EXPECT_NE(OnTerminal("list own.lst --build crc.lb1").out.find(" % listing crc.lb1"),
            std::string::npos);
  EXPECT_EQ(Zel("import other.lb1 big.xml --create", "ZEL_PROGRESS_DELAY=0").err, "")
      << "none that is not on a terminal";
}

TEST_F(WorkTest, CtrlCLosesNothing) {
  MakePairs("big.xml", 200'000);
  Contents const before = ContentsOf(Folder());
  Outcome const outcome = OnTerminal("import crc.lb1 big.xml", {80, "% importing big.xml", kCtrlC});
  EXPECT_EQ(outcome.status, kInterrupted) << outcome.out;
  EXPECT_NE(outcome.out.find("zel: cancelled; the library is unchanged\r\n"), std::string::npos)
      << outcome.out;
  EXPECT_EQ(ContentsOf(Folder()), before) << "and no folder of the change is left";
}

TEST_F(WorkTest, CtrlCMakesNoLibrary) {
  MakePairs("big.xml", 200'000);
  Contents const before = ContentsOf(Folder());
  Outcome const outcome =
      OnTerminal("import new.lb1 big.xml --create", {80, "% importing big.xml", kCtrlC});
  EXPECT_EQ(outcome.status, kInterrupted) << outcome.out;
  EXPECT_NE(outcome.out.find("zel: cancelled; no library was created\r\n"), std::string::npos)
      << outcome.out;
  EXPECT_EQ(ContentsOf(Folder()), before);
}

// In place, too: the library takes back what it has written.
TEST_F(WorkTest, CtrlCInPlaceLosesNothing) {
  MakePairs("big.xml", 200'000);
  Good("info crc.lb1");
  Contents const before = ContentsOf(Folder());
  Outcome const outcome = OnTerminal("import crc.lb1 big.xml --in-place", {80, "NRTL:BIG", kCtrlC});
  EXPECT_EQ(outcome.status, kInterrupted) << outcome.out;
  EXPECT_NE(outcome.out.find("zel: cancelled; the library is unchanged\r\n"), std::string::npos)
      << outcome.out;
  EXPECT_EQ(ContentsOf(Folder()), before);
}

TEST_F(WorkTest, CtrlCWritesNothingElse) {
  MakePairs("big.xml", 200'000);
  Good("import big.lb1 big.xml --create");
  Contents const before = ContentsOf(Folder());
  Outcome const exported = OnTerminal("export big.lb1 -o out.xml", {80, "% exporting", kCtrlC});
  EXPECT_EQ(exported.status, kInterrupted) << exported.out;
  EXPECT_NE(exported.out.find("zel: cancelled; nothing was written\r\n"), std::string::npos);
  Outcome const check = OnTerminal("check big.lb1", {80, "% checking", kCtrlC});
  EXPECT_EQ(check.status, kInterrupted) << check.out;
  EXPECT_NE(check.out.find("zel: cancelled; the findings so far are not shown\r\n"),
            std::string::npos);
  EXPECT_EQ(ContentsOf(Folder()), before);
}

}  // namespace
}  // namespace zel::test

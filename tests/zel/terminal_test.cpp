// Text on a terminal: its width, letters of two columns, colors.
#include <algorithm>

#include "tests/zel/terminal_run.h"

namespace zel::test {
namespace {

class TerminalTest : public ZelTest {
 protected:
  // Without progress, which a slow machine would show.
  Outcome OnTerminal(std::string const& words, int columns, std::string const& before = "") const {
    std::string const line = before + " ZEL_PROGRESS_DELAY=600000 exec \"$ZEL\" " + words;
    return RunOnTerminal(Folder(), line, {columns, "", ""});
  }
  static std::size_t Longest(std::vector<std::string> const& lines) {
    std::size_t longest = 0;
    for (std::string const& line : lines) longest = std::max(longest, line.size());
    return longest;
  }
  static std::string const kPlain;
};

std::string const TerminalTest::kPlain = "NO_COLOR=1";

TEST_F(TerminalTest, LinesAreAsWideAsTheTerminal) {
  std::string const words = "check crc.lb1";
  std::vector<std::string> const piped = Lines(Good(words));
  std::vector<std::string> const wide = Lines(OnTerminal(words, 160, kPlain).out);
  std::vector<std::string> const narrow = Lines(OnTerminal(words, 60, kPlain).out);
  EXPECT_LE(Longest(piped), 80U);
  EXPECT_GT(Longest(wide), 80U);
  EXPECT_LE(Longest(wide), 160U);
  EXPECT_LE(Longest(narrow), 60U);
  EXPECT_LT(wide.size(), piped.size()) << "fewer lines are broken";
  EXPECT_GT(narrow.size(), piped.size());
  EXPECT_EQ(Lines(OnTerminal(words, 80, kPlain).out), piped) << "the same as in a file";
}

// A terminal that does not say how wide it is.
TEST_F(TerminalTest, ColumnsIsTheWidthOtherwise) {
  std::string const words = "check crc.lb1";
  auto const longest = [&](std::string const& before) {
    return Longest(Lines(OnTerminal(words, 0, kPlain + before).out));
  };
  EXPECT_GT(longest(" COLUMNS=150"), 80U);
  EXPECT_LE(longest(" COLUMNS=150"), 150U);
  EXPECT_LE(longest(""), 80U);
  EXPECT_LE(longest(" COLUMNS=no"), 80U);
  EXPECT_EQ(Zel(words, "COLUMNS=150").out, Good(words)) << "a file has the same width always";
}

// The column in which a text begins: "水" takes two columns, and the accent after an e takes none.
std::size_t ColumnOf(std::string const& line, std::string const& text) {
  std::string before = line.substr(0, line.find(text));
  std::size_t column = 0;
  for (std::size_t at = 0; at < before.size();) {
    bool const isWide = before.compare(at, 3, "水") == 0;
    bool const isAccent = before.compare(at, 2, "\u0301") == 0;
    column += isWide ? 2 : isAccent ? 0 : 1;
    at += isWide ? 3 : isAccent ? 2 : 1;
  }
  return column;
}

TEST_F(TerminalTest, WideLettersAreAligned) {
  Shell("for n in 1 2; do cp crc.lb$n 水水.lb$n; cp crc.lb$n e\u0301t.lb$n; done");
  std::string const words = "search ETHANOL -l 水水.lb1 -l e\u0301t.lb1 -l perry.lb1";
  std::vector<std::string> rows;
  for (std::string const& line : Lines(OnTerminal(words, 80, kPlain).out)) {
    if (line.find(" yes ") != std::string::npos) rows.push_back(line);
  }
  ASSERT_EQ(rows.size(), 3U) << OnTerminal(words, 80, kPlain).out;
  EXPECT_EQ(ColumnOf(rows[0], "yes"), ColumnOf(rows[2], "yes")) << rows[0] << "\n" << rows[2];
  EXPECT_EQ(ColumnOf(rows[1], "yes"), ColumnOf(rows[2], "yes")) << rows[1] << "\n" << rows[2];
  // In a file each character counts as one.
  std::vector<std::string> piped;
  for (std::string const& line : Lines(Good(words))) {
    if (line.find(" yes ") != std::string::npos) piped.push_back(line);
  }
  ASSERT_EQ(piped.size(), 3U);
  EXPECT_EQ(ColumnOf(piped[0], "yes"), ColumnOf(piped[2], "yes") + 2);
}

TEST_F(TerminalTest, ColorsAreForTerminals) {
  std::string const words = "check crc.lb1";
  std::string const colored = OnTerminal(words, 80).out;
  EXPECT_NE(colored.find("\x1b[33mwarning\x1b[0m"), std::string::npos) << colored.substr(0, 500);
  EXPECT_NE(colored.find("\x1b[1mseverity\x1b[0m"), std::string::npos);
  EXPECT_EQ(OnTerminal(words, 80, kPlain).out.find("\x1b[3"), std::string::npos);
  EXPECT_EQ(OnTerminal(words, 80, "TERM=dumb").out.find("\x1b[3"), std::string::npos);
  EXPECT_NE(OnTerminal(words, 80, "NO_COLOR=").out.find("\x1b[33m"), std::string::npos)
      << "an empty NO_COLOR says nothing";
  EXPECT_EQ(Zel(words, "TERM=xterm").out.find('\x1b'), std::string::npos);
  EXPECT_EQ(OnTerminal(words + " --json", 80).out.find("\x1b[3"), std::string::npos);
  // Without its marks, the text is that of a file of the same width.
  std::string plain = colored;
  for (std::string const mark : {"\x1b[1m", "\x1b[31m", "\x1b[33m", "\x1b[0m"}) {
    for (std::size_t at; (at = plain.find(mark)) != std::string::npos;)
      plain.erase(at, mark.size());
  }
  EXPECT_EQ(Lines(plain), Lines(Zel(words).out));
}

}  // namespace
}  // namespace zel::test

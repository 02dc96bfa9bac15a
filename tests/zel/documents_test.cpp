// The documentation of zel agrees with it: the document with its session, the manual page, the
// help, the shell completion.
#include <algorithm>
#include <regex>
#include <set>
#include <sstream>
#include <vector>

#include "tests/zel/zel_fixture.h"

namespace zel::test {
namespace {

namespace fs = std::filesystem;

std::vector<std::string> Lines(std::string const& text) {
  std::vector<std::string> lines;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) lines.push_back(line);
  return lines;
}

// A command of a session with the output that the document shows, or a file with its lines: a block
// "ini" whose first line is a comment with the name.
struct Step {
  std::string command;
  std::vector<std::string> output;
  std::string file;
};

std::vector<Step> SessionOf(std::string const& document) {
  std::vector<Step> steps;
  bool inside = false;
  bool isFile = false;
  bool isOpen = false;
  for (std::string const& line : Lines(document)) {
    if (line.substr(0, 3) == "```") {
      isOpen = !isOpen;
      EXPECT_EQ(isOpen, line != "```") << "a block is not closed before: " << line;
      inside = line == "```console";
      isFile = line == "```ini";
      if (isFile) steps.push_back({});
    } else if (isFile) {
      if (steps.back().file.empty()) steps.back().file = line.substr(2);
      steps.back().output.push_back(line);
    } else if (inside && line.substr(0, 2) == "$ ") {
      steps.push_back({line.substr(2), {}, ""});
    } else if (inside && !steps.empty()) {
      steps.back().output.push_back(line);
    }
  }
  return steps;
}

class DocumentsTest : public ZelTest {
 protected:
  DocumentsTest() {
    for (auto const& row : Lines(Good("--help"))) {
      if (row == "Subcommands:") inside_ = true;
      if (row.empty()) inside_ = false;
      if (inside_ && row.substr(0, 2) == "  ")
        commands_.push_back(row.substr(2, row.find(' ', 2) - 2));
    }
  }
  // Long options in the help of a command.
  std::set<std::string> OptionsOf(std::string const& command) const {
    std::set<std::string> options;
    for (std::string const& line : Lines(Good(command + " --help"))) {
      std::size_t const at = line.find("--");
      if (line.substr(0, 3) != "  -" || at == std::string::npos || at > 6) continue;
      options.insert(line.substr(at, line.find_first_of(" ,", at) - at));
    }
    return options;
  }

  void BeginAsAUser() const;
  std::set<std::string> RunSession(std::string const& document) const;

  std::vector<std::string> commands_;

 private:
  bool inside_ = false;
};

// The line with another time in the place of each, "2026-01-02T03:04:05Z".
std::string WithoutTimes(std::string const& line) {
  static std::regex const time("[0-9]{4}-[0-9]{2}-[0-9]{2}T[0-9]{2}:[0-9]{2}:[0-9]{2}Z");
  return std::regex_replace(line, time, "2026-01-02T03:04:05Z");
}

// A line "..." stands for the rest of an output. A command whose output ends with a message of zel
// that is not a warning fails; all others succeed. Words that are not commands of zel are the
// shell's. Returns the commands that the document uses.
std::set<std::string> DocumentsTest::RunSession(std::string const& document) const {
  std::set<std::string> used;
  for (Step const& step : SessionOf(FileText(document))) {
    if (!step.file.empty()) {
      std::string text;
      for (std::string const& line : step.output) text += line + "\n";
      MakeFile(step.file, text);
      continue;
    }
    std::smatch found;
    if (std::regex_search(step.command, found, std::regex("(?:^| )zel ([a-z]+)"))) {
      used.insert(found[1]);
    }
    Outcome const outcome = Shell("PATH=\"${ZEL%/*}:$PATH\"; " + step.command);
    std::string const last = step.output.empty() ? "" : step.output.back();
    bool const fails = last.rfind("zel: ", 0) == 0 && last.rfind("zel: warning: ", 0) != 0;
    EXPECT_EQ(outcome.status != 0, fails) << step.command << "\n" << outcome.err;
    std::vector<std::string> const lines = Lines(outcome.out + outcome.err);
    for (std::size_t i = 0; i < std::max(lines.size(), step.output.size()); ++i) {
      if (i < step.output.size() && step.output[i] == "...") break;
      std::string const shown =
          i < step.output.size() ? WithoutTimes(step.output[i]) : "(nothing more)";
      std::string const printed = i < lines.size() ? WithoutTimes(lines[i]) : "(nothing more)";
      EXPECT_EQ(printed, shown) << step.command << ", line " << i + 1;
      if (printed != shown) break;
    }
  }
  return used;
}

// In the folder of the repository, as far as sessions see it.
void DocumentsTest::BeginAsAUser() const {
  for (char const* name : {"sample", "perry", "crc"}) {
    for (char const* ending : {".lb1", ".lb2"}) fs::remove(Folder() / (name + std::string(ending)));
  }
  fs::create_directory(Folder() / "data");
  fs::create_directory_symlink(ZEL_DATA, Folder() / "data/xml");
  fs::create_directory_symlink(ZEL_EXAMPLES, Folder() / "examples");
}

TEST_F(DocumentsTest, SessionOfTheDocument) {
  BeginAsAUser();
  EXPECT_GT(RunSession(ZEL_DOCS "/zel.md").size(), 12U);
}

TEST_F(DocumentsTest, SessionOfTheFirstHour) {
  if (Shell("command -v git >/dev/null").status != 0) GTEST_SKIP() << "no git";
  BeginAsAUser();
  for (char const* who : {"AUTHOR", "COMMITTER"}) {
    ::setenv(("GIT_" + std::string(who) + "_NAME").c_str(), "keeper", 1);
    ::setenv(("GIT_" + std::string(who) + "_EMAIL").c_str(), "keeper@localhost", 1);
  }
  EXPECT_GT(RunSession(ZEL_DOCS "/first-hour.md").size(), 12U);
}

TEST_F(DocumentsTest, SheetOfTheFirstHourIsAsShown) {
  std::string sheet = FileText(ZEL_EXAMPLES "/lab.csv");
  EXPECT_EQ(sheet.substr(0, 3), "\xef\xbb\xbf") << "no byte order mark";
  EXPECT_NE(sheet.find("\r\n"), std::string::npos);
  sheet.erase(std::remove(sheet.begin(), sheet.end(), '\r'), sheet.end());
  EXPECT_NE(FileText(ZEL_DOCS "/first-hour.md").find("```text\n" + sheet.substr(3) + "```"),
            std::string::npos);
}

TEST_F(DocumentsTest, SessionAndPlotOfTheReadme) {
  Good("import chemsep.lb1 '" ZEL_DATA "/chemsep.xml' --create");
  EXPECT_EQ(RunSession(ZEL_DOCS "/../README.md"), (std::set<std::string>{"eval", "plot", "why"}));
  EXPECT_TRUE(FileText(Folder() / "vapor-pressure.svg") == FileText(ZEL_DOCS "/vapor-pressure.svg"))
      << "docs/vapor-pressure.svg is not what zel draws";
}

TEST_F(DocumentsTest, SessionAndPlotOfFits) {
  BeginAsAUser();
  fs::create_symlink(ZEL_DATA "/../water_vapor_pressure.csv",
                     Folder() / "data/water_vapor_pressure.csv");
  EXPECT_EQ(RunSession(ZEL_DOCS "/fit.md"),
            (std::set<std::string>{"eval", "fit", "import", "points"}));
  EXPECT_TRUE(FileText(Folder() / "fit.svg") == FileText(ZEL_DOCS "/fit.svg"))
      << "docs/fit.svg is not what zel draws";
}

TEST_F(DocumentsTest, ExampleOfADaysWorkRuns) {
  Outcome const outcome = Shell("bash '" ZEL_EXAMPLES "/desk.sh' $ZEL .");
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_EQ(outcome.err, "");
  for (char const* line : {"NBP    351.45  351.46  K     -              999", "undone   2",
                           "constants that differ     2", "NRTL   WATER + BENZENE    missing  -",
                           "own.lb1:OWN        PURECOMP:MERGED      2          6             0"}) {
    EXPECT_NE(outcome.out.find(line), std::string::npos) << line << "\n" << outcome.out;
  }
}

TEST_F(DocumentsTest, DocumentTellsOfEveryCommand) {
  ASSERT_EQ(commands_.size(), 41U);
  std::string const document = FileText(ZEL_DOCS "/zel.md");
  for (std::string const& command : commands_) {
    EXPECT_NE(document.find("`" + command + "`"), std::string::npos) << command;
  }
}

TEST_F(DocumentsTest, HelpFitsEightyColumnsAndEndsWithAnExample) {
  for (std::string const& command : commands_) {
    std::vector<std::string> const lines = Lines(Good(command + " --help"));
    EXPECT_EQ(std::count(lines.begin(), lines.end(),
                         "All commands also take --names, --units and --wait; see zel --help."),
              1)
        << command;
    for (std::string const& line : lines) EXPECT_LE(line.size(), 80U) << command << "\n" << line;
    ASSERT_GE(lines.size(), 2U);
    EXPECT_EQ(lines[lines.size() - 2], "Example:") << command;
    EXPECT_EQ(lines.back().substr(0, 6 + command.size()), "  zel " + command) << command;
  }
  for (std::string const& line : Lines(Good("--help"))) EXPECT_LE(line.size(), 80U) << line;
}

// One after the other, in the order of the help: each finds the files that it names.
TEST_F(DocumentsTest, ExamplesOfTheHelp) {
  for (char const* name : {"nist.xml", "nist-purecomp.xml"}) {
    MakeFile(name, FileText(ZEL_DATA "/" + std::string(name)));
  }
  MakeFile("measured.xml", FileText(ZEL_EXAMPLES "/measured.xml"));
  MakeFile("steam.csv", FileText(ZEL_DATA "/../water_vapor_pressure.csv"));
  for (char const* ending : {".lb1", ".lb2"}) {
    fs::copy_file(Folder() / (std::string("perry") + ending),
                  Folder() / (std::string("broken") + ending));
  }
  for (std::string const& command : commands_) {
    std::string const example = Lines(Good(command + " --help")).back().substr(6);
    std::string const out = Good(example);
    EXPECT_EQ(out.find("found  0"), std::string::npos) << "zel " << example;
  }
}

TEST_F(DocumentsTest, ManualPageTellsOfEveryCommandAndOption) {
  std::string page = Good("--man");
  for (std::size_t at = page.find('\\'); at != std::string::npos; at = page.find('\\', at)) {
    page.erase(at, 1);
  }
  for (std::string const& command : commands_) {
    std::size_t const at = page.find("\n.SS zel " + command);
    ASSERT_NE(at, std::string::npos) << command;
    std::string const part = page.substr(at, page.find("\n.S", at + 2) - at);
    for (std::string const& option : OptionsOf(command)) {
      EXPECT_TRUE(option == "--help" || part.find(option) != std::string::npos)
          << command << " " << option;
    }
  }
  Outcome const groff = Shell(
      "command -v groff >/dev/null || exit 0; \"$ZEL\" --man | groff -man -ww -Tascii >/dev/null");
  EXPECT_EQ(groff.status, 0);
  EXPECT_EQ(groff.err, "");
}

TEST_F(DocumentsTest, CompletionGivesCommandsAndTheirOptions) {
  Good("--bash-completion >zel.bash");
  auto const complete = [&](std::string const& words) {
    std::istringstream reply(
        Shell("bash -c 'source ./zel.bash; COMP_WORDS=(" + words +
              "); COMP_CWORD=$((${#COMP_WORDS[@]} - 1)); _zel; echo \"${COMPREPLY[@]}\"'")
            .out);
    std::set<std::string> found;
    for (std::string word; reply >> word;) found.insert(word);
    return found;
  };
  std::set<std::string> const all = complete("zel \"\"");
  for (std::string const& command : commands_) {
    EXPECT_EQ(all.count(command), 1U) << command;
    std::set<std::string> const options = complete("zel " + command + " --");
    for (std::string const& option : OptionsOf(command)) {
      EXPECT_EQ(options.count(option), 1U) << command << " " << option;
    }
  }
  EXPECT_EQ(complete("zel ev"), std::set<std::string>{"eval"});
  EXPECT_EQ(complete("zel eval --de"), std::set<std::string>{"--derivatives"});
  EXPECT_TRUE(complete("zel info sam").empty()) << "files are the shell's";
}

TEST_F(DocumentsTest, VersionIsThatOfTheLibrary) {
  EXPECT_EQ(Good("--version"), "zel " ZEL_VERSION "\n");
}

// On a terminal, which the program `script` provides.
TEST_F(DocumentsTest, LongWorkShowsABar) {
  Outcome const outcome = Shell(
      "command -v script >/dev/null || exit 77; "
      "ZEL_PROGRESS_DELAY=0 script -qec '\"$ZEL\" copy crc.lb1 own.lb1 --create' /dev/null");
  if (outcome.status == 77) GTEST_SKIP() << "no program that makes a terminal";
  EXPECT_EQ(outcome.status, 0) << outcome.out;
  EXPECT_NE(outcome.out.find(" % copying PURECOMP:CRC"), std::string::npos) << outcome.out;
  EXPECT_EQ(Zel("copy crc.lb1 two.lb1 --create", "ZEL_PROGRESS_DELAY=0").err, "")
      << "none where nobody looks";
}

}  // namespace
}  // namespace zel::test

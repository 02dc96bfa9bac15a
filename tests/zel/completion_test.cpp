// Completion in bash, zsh and fish: commands, options, and values that the program knows.
#include <set>
#include <sstream>

#include "tests/zel/zel_fixture.h"

namespace zel::test {
namespace {

using Words = std::set<std::string>;

class CompletionTest : public ZelTest {
 protected:
  // The words of what a shell completes, one per line.
  static Words In(std::string const& lines) {
    Words words;
    std::istringstream text(lines);
    for (std::string line; std::getline(text, line);) words.insert(line.substr(0, line.find('\t')));
    return words;
  }
  // What the program answers for the words of a line, the last of which is being typed.
  Words Values(std::string const& words) const { return In(Good("--complete " + words)); }
  bool Has(char const* shell) const {
    return Shell(std::string("command -v ") + shell).status == 0;
  }
  // Makes the program known as "zel", which the scripts call.
  std::string const path_ = "mkdir -p bin && ln -sf \"$ZEL\" bin/zel && PATH=\"$PWD/bin:$PATH\" ";
};

TEST_F(CompletionTest, ValuesFollowTheWordsBefore) {
  EXPECT_EQ(Values("show crc.lb1 CRC ETHAN"), (Words{"ETHANE", "ETHANOL"}));
  EXPECT_EQ(Values("show crc.lb1 CRC ethan"), (Words{"ETHANE", "ETHANOL"})) << "in lower case";
  EXPECT_EQ(Values("show sample.lb1 NR"), (Words{"NRTL:SAMPLE"}));
  EXPECT_EQ(Values("eval ETHANOL Vap"), (Words{"VaporPressure", "VaporThermal", "VaporViscosity"}));
  EXPECT_EQ(Values("why ETHANOL T"), (Words{"TC", "TDIELECTRIC", "TTP"}));
  EXPECT_EQ(Values("plot VaporPressure ETHANOL -l crc.lb1 WATE"), Words{"WATER"});
  EXPECT_EQ(Values("sheet -l crc.lb1:CRC --title x ETHANO"), Words{"ETHANOL"});
  EXPECT_EQ(Values("table ETHANOL -l perry.lb1 --fields N"), (Words{"NBP", "NMP"}));
  EXPECT_EQ(Values("pairs NRT"), (Words{"NRTL", "NRTLLL"}));
  EXPECT_EQ(Values("export crc.lb1 --component ETHANO"), Words{"ETHANOL"});
  EXPECT_EQ(Values("export crc.lb1 --bank C"), Words{"CRC"});
  EXPECT_EQ(Values("check crc.lb1 --fail-on ''"), (Words{"error", "note", "warning"}));
  EXPECT_EQ(Values("check crc.lb1 --format j"), Words{"junit"});
  EXPECT_EQ(Values("check crc.lb1 --silence block"), Words{"block-leaked"});
  EXPECT_EQ(Values("find crc.lb1 --id block"), Words{});
  EXPECT_EQ(Values("schema re"), (Words{"refs", "renumber", "report"}));
  EXPECT_EQ(Values("show crc CRC ETHAN"), (Words{"ETHANE", "ETHANOL"})) << "found on the path";
}

TEST_F(CompletionTest, ValuesOfDataFieldsUnitsAndCommands) {
  EXPECT_EQ(Values("why -l perry.lb1 ETHANO"), Words{"ETHANOL"}) << "an option before";
  EXPECT_EQ(Values("table -l perry.lb1 ETHANO"), Words{"ETHANOL"});
  EXPECT_EQ(Values("edit crc.lb1 ETHANO"), Words{"ETHANOL"});
  EXPECT_EQ(Values("edit crc.lb1 ETHANOL NB"), Words{"NBP"});
  EXPECT_EQ(Values("edit sample.lb1 NRTL ETHANOL WATER bi"), Words{"bij"});
  EXPECT_EQ(Values("pairs NRTL --fields bi"), Words{"bij"});
  EXPECT_TRUE(Values("eval ETHANOL VaporPressure --units ba").count("bar") == 1);
  EXPECT_EQ(Values("help ed"), Words{"edit"});
}

TEST_F(CompletionTest, NothingWhereNothingIsKnown) {
  for (char const* words : {"", "''", "show", "nothing ETH", "info cr", "show crc.lb1 CRC ZZZZ",
                            "show missing.lb1 CRC E", "eval ETHANOL VaporPressure --at 3"}) {
    EXPECT_EQ(Values(words), Words{}) << words;
  }
  MakeFile("bad.lb1", "not a library");
  Outcome const outcome = Zel("--complete show bad.lb1 CRC E");
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out + outcome.err, "");
  EXPECT_EQ(In(Zel("--complete sheet ETHANO", "ZEL_NAMES=crc.lb1").out), Words{"ETHANOL"});
}

TEST_F(CompletionTest, Bash) {
  Good("--bash-completion >zel.bash");
  auto const complete = [&](std::string const& words) {
    return In(Shell(path_ + "bash -c 'source ./zel.bash; COMP_WORDS=(" + words +
                    "); COMP_CWORD=$((${#COMP_WORDS[@]} - 1)); _zel; printf \"%s\\n\" "
                    "\"${COMPREPLY[@]}\"'")
                  .out);
  };
  EXPECT_EQ(complete("zel ev"), Words{"eval"});
  EXPECT_EQ(complete("zel --units bar --wait 2 ev"), Words{"eval"});
  EXPECT_EQ(complete("zel --wa"), Words{"--wait"});
  EXPECT_EQ(complete("zel show crc.lb1 CRC ETHAN"), (Words{"ETHANE", "ETHANOL"}));
  EXPECT_EQ(complete("zel import own.lb1 --format c"), (Words{"chemsep", "coolprop"}));
  EXPECT_EQ(complete("zel info cr"), Words{""}) << "files are the shell's";
}

// zsh shows what it is given through _describe, which is replaced here.
TEST_F(CompletionTest, Zsh) {
  if (!Has("zsh")) GTEST_SKIP() << "zsh is not installed";
  Good("--zsh-completion >_zel");
  Outcome const parsed = Shell("zsh -n _zel");
  EXPECT_EQ(parsed.status, 0) << parsed.err;
  auto const complete = [&](std::string const& words) {
    Outcome const outcome = Shell(
        path_ +
        "zsh -f -c 'compdef() { : }; _files() { print FILES }\n"
        "_describe() { for choice in \"${(@P)2}\"; do print -r -- \"${choice/:/\t}\"; done }\n"
        "source ./_zel; words=(" +
        words + "); CURRENT=$#words; PREFIX=$words[-1]; _zel'");
    EXPECT_EQ(outcome.err, "") << words;
    return In(outcome.out);
  };
  Words const commands = complete("zel \"\"");
  EXPECT_EQ(commands.count("eval"), 1U);
  EXPECT_EQ(commands.count("import"), 1U);
  EXPECT_EQ(complete("zel --units bar --wait 2 \"\"").count("eval"), 1U);
  Words const options = complete("zel eval --");
  EXPECT_EQ(options.count("--derivatives"), 1U);
  EXPECT_EQ(options.count("--units"), 1U);
  EXPECT_EQ(options.count("--reference"), 0U) << "of another command";
  EXPECT_EQ(complete("zel show crc.lb1 CRC ETHAN"), (Words{"ETHANE", "ETHANOL"}));
  EXPECT_EQ(complete("zel show sample.lb1 NR"), Words{"NRTL\\"}) << "with its colon escaped";
  EXPECT_EQ(complete("zel info cr"), Words{"FILES"});
}

TEST_F(CompletionTest, Fish) {
  if (!Has("fish")) GTEST_SKIP() << "fish is not installed";
  Good("--fish-completion >zel.fish");
  auto const complete = [&](std::string const& line) {
    Outcome const outcome = Shell(
        path_ + "HOME=$PWD fish --no-config -c 'source zel.fish; complete -C \"" + line + "\"'");
    EXPECT_EQ(outcome.err, "") << line;
    return In(outcome.out);
  };
  EXPECT_EQ(complete("zel ev"), Words{"eval"});
  EXPECT_EQ(complete("zel --units bar --wait 2 ev"), Words{"eval"});
  EXPECT_EQ(complete("zel eval --deri"), Words{"--derivatives"});
  EXPECT_EQ(complete("zel plot --deri"), Words{}) << "of another command";
  EXPECT_EQ(complete("zel eval --uni"), Words{"--units"});
  EXPECT_EQ(complete("zel show crc.lb1 CRC ETHAN"), (Words{"ETHANE", "ETHANOL"}));
  EXPECT_EQ(complete("zel info cr"), (Words{"crc.lb1", "crc.lb2"})) << "files are the shell's";
}

}  // namespace
}  // namespace zel::test

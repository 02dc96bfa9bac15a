// Files that commands make: their owners, and that links cannot redirect them.
#include <sys/stat.h>
#include <zelaccess/ZelAccess.h>

#include <sstream>
#include <utility>

#include "tests/zel/zel_fixture.h"

namespace zel::test {
namespace {

namespace fs = std::filesystem;

class OutputFilesTest : public ZelTest {
 protected:
  void SetUp() override {
    fs::create_directory(Folder() / "out");
    MakeFile("victim", "precious");
  }
  // A link to the victim, in the place of an output or of a file on the way to it.
  void Plant(std::string const& name) const {
    fs::create_symlink(Folder() / "victim", Folder() / "out" / name);
  }
  void VictimIsWhole() const {
    EXPECT_EQ(FileText(Folder() / "victim"), "precious");
    EXPECT_TRUE(fs::is_regular_file(fs::symlink_status(Folder() / "victim")));
  }
  void IsNewFile(std::string const& name) const {
    EXPECT_TRUE(fs::is_regular_file(fs::symlink_status(Folder() / "out" / name))) << name;
    EXPECT_NE(FileText(Folder() / "out" / name), "precious") << name;
  }
  std::string ModesOf(std::string const& names) const {
    return Shell("stat -c %a " + names + " | tr '\\n' ' '").out;
  }
  // The hidden files in the folder of outputs, without the histories of libraries.
  int Hidden() const {
    int count = 0;
    for (auto const& entry : fs::directory_iterator(Folder() / "out")) {
      bool const isHistory = entry.path().extension() == ".zel-history";
      if (entry.path().filename().string().front() == '.' && !isHistory) ++count;
    }
    return count;
  }

  static constexpr char kPlot[] = "plot VaporPressure ETHANOL -l perry.lb1 -o ";
};

TEST_F(OutputFilesTest, PlotFollowsNoLink) {
  Plant("p.svg");
  Plant("p.svg.zel-new");
  Good(std::string(kPlot) + "out/p.svg");
  VictimIsWhole();
  IsNewFile("p.svg");
  fs::remove(Folder() / "out/p.svg");
  fs::create_symlink(Folder() / "not there", Folder() / "out/p.svg");
  Good(std::string(kPlot) + "out/p.svg");
  EXPECT_FALSE(fs::exists(Folder() / "not there"));
  IsNewFile("p.svg");
  EXPECT_EQ(Hidden(), 0);
}

TEST_F(OutputFilesTest, DocumentsIndexesAndListsFollowNoLink) {
  for (char const* name :
       {"doc.xml", "crc.xml", "CRC.xml", "crc.bnk", "crc.CRC.cmp", "picker.lst"}) {
    Plant(name);
  }
  for (char const* name : {"crc.lb1", "crc.lb2"})
    fs::rename(Folder() / name, Folder() / "out" / name);
  Good("export out/crc.lb1 --bank CRC -o out/doc.xml");
  Good("export out/crc.lb1");
  Good("dump out/crc.lb1");
  Good("list out/picker.lst --build out/crc.lb1");
  VictimIsWhole();
  for (char const* name : {"doc.xml", "crc.xml", "crc.bnk", "crc.CRC.cmp", "picker.lst"})
    IsNewFile(name);
  EXPECT_EQ(Hidden(), 0);
}

TEST_F(OutputFilesTest, LibrariesFollowNoLink) {
  Plant("own.lb2");
  EXPECT_EQ(Zel("create out/own.lb1").status, 1);
  Good("create out/own.lb1 --force");
  Good("copy crc.lb1 out/own.lb1");
  VictimIsWhole();
  EXPECT_EQ(Json("check out/own.lb1 --structure")["damage"], 0);
  EXPECT_EQ(Hidden(), 0);
}

// The chart alone, so that the program that reads it gets an SVG document.
TEST_F(OutputFilesTest, PlotToStandardOutput) {
  for (std::string const name : {"/dev/stdout", "-"}) {
    Outcome const piped = Shell("\"$ZEL\" " + std::string(kPlot) + name + " | cat");
    EXPECT_EQ(piped.out.substr(0, 4), "<svg");
    EXPECT_EQ(piped.out.substr(piped.out.size() - 7), "</svg>\n") << "and nothing after it";
    Outcome const filed = Shell("\"$ZEL\" " + std::string(kPlot) + name + " >out/p.svg");
    EXPECT_EQ(filed.status, 0) << filed.err;
    EXPECT_EQ(FileText(Folder() / "out/p.svg").substr(0, 4), "<svg");
    EXPECT_EQ(Zel(kPlot + name + " --json").status, 2);
  }
  EXPECT_FALSE(fs::exists(Folder() / "-"));
  EXPECT_TRUE(fs::is_symlink(fs::symlink_status("/dev/stdout")));
}

TEST_F(OutputFilesTest, ListToStandardOutput) {
  Good("list out/p.lst --build perry.lb1");
  // The comments at its beginning name the file.
  auto const rows = [](std::string const& list) { return list.substr(list.find("\n\n")); };
  for (std::string const name : {"/dev/stdout", "-"}) {
    Outcome const piped = Shell("\"$ZEL\" list " + name + " --build perry.lb1 | cat");
    EXPECT_EQ(piped.out.substr(0, 2), "; ");
    EXPECT_EQ(rows(piped.out), rows(FileText(Folder() / "out/p.lst")))
        << "the list and nothing else";
    EXPECT_EQ(Zel("list " + name + " --build perry.lb1 --json").status, 2);
    EXPECT_EQ(Zel("list " + name + " --build perry.lb1 --filter x").status, 2);
  }
  EXPECT_FALSE(fs::exists(Folder() / "-"));
  Outcome const other = Zel("list out/p.txt --build perry.lb1");
  EXPECT_EQ(other.status, 2);
  EXPECT_NE(other.err.find("out/p.txt: a list ends in .lst"), std::string::npos) << other.err;
}

// A pipe without a reader would make the command wait for ever; so would reading a list from one.
TEST_F(OutputFilesTest, WhatIsNotARegularFileIsRefused) {
  for (char const* name : {"crc.lb1", "crc.lb2"}) {
    fs::copy(Folder() / name, Folder() / "out" / name);
  }
  ASSERT_EQ(::mkfifo((Folder() / "out/pipe").c_str(), 0600), 0);
  ASSERT_EQ(::mkfifo((Folder() / "out/pipe.xml").c_str(), 0600), 0);
  ASSERT_EQ(::mkfifo((Folder() / "out/crc.bnk").c_str(), 0600), 0);
  fs::create_directory(Folder() / "out/folder.svg");
  struct {
    std::string words;
    char const* text;
  } const rows[] = {
      {std::string(kPlot) + "out/pipe", "out/pipe: cannot be written: it is not a regular file"},
      {std::string(kPlot) + "/dev/null", "/dev/null: cannot be written: it is not a regular file"},
      {std::string(kPlot) + "/dev/stderr", "/dev/stderr: cannot be written"},
      {std::string(kPlot) + "out/folder.svg", "out/folder.svg: cannot be written: it is a folder"},
      {"export crc.lb1 -o out/pipe", "out/pipe: cannot be written: it is not a regular file"},
      {"export crc.lb1 --bank CRC -o out/pipe.xml", "out/pipe.xml: cannot be written: it is not"},
      {"list out/pipe --build crc.lb1", "out/pipe: cannot be written: it is not a regular file"},
      {"list out/pipe", "out/pipe: is not a regular file"},
      {"list out", "out: is not a regular file"},
      {"dump out/crc.lb1", "out/crc.bnk: cannot be written: it is not a regular file"}};
  for (auto const& row : rows) {
    Outcome const outcome = Shell("timeout 20 \"$ZEL\" " + row.words);
    EXPECT_EQ(outcome.status, 1) << row.words << "\n" << outcome.err;
    EXPECT_NE(outcome.err.find(row.text), std::string::npos) << row.words << "\n" << outcome.err;
  }
  EXPECT_TRUE(fs::is_fifo(Folder() / "out/pipe"));
  EXPECT_TRUE(fs::is_fifo(Folder() / "out/crc.bnk"));
  EXPECT_TRUE(fs::is_character_file("/dev/null"));
  EXPECT_FALSE(fs::exists(Folder() / "out/crc.CRC.cmp")) << "all or none";
  EXPECT_EQ(Hidden(), 0);
}

TEST_F(OutputFilesTest, PlotThatTheDiskRefusesLeavesTheOldOne) {
  MakeFile("out/p.svg", "old");
  Outcome const outcome = Shell("ulimit -f 1; \"$ZEL\" " + std::string(kPlot) + "out/p.svg");
  EXPECT_EQ(outcome.status, 1);
  EXPECT_NE(outcome.err.find("out/p.svg: cannot be written: File too large"), std::string::npos)
      << outcome.err;
  EXPECT_EQ(FileText(Folder() / "out/p.svg"), "old");
  EXPECT_EQ(Hidden(), 0);
}

TEST_F(OutputFilesTest, NewLibraryHasTheModeThatTheUmaskLeaves) {
  for (auto const& [mask, mode] : {std::pair("022", "644 "), {"002", "664 "}, {"077", "600 "}}) {
    fs::remove_all(Folder() / "out");
    fs::create_directory(Folder() / "out");
    Outcome const outcome =
        Shell("umask " + std::string(mask) + "; \"$ZEL\" create out/own.lb1 && " +
              "\"$ZEL\" copy crc.lb1 out/own.lb1");
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_EQ(ModesOf("out/own.lb1 out/own.lb2"), std::string(mode) + mode);
    EXPECT_EQ(Hidden(), 0);
  }
}

TEST_F(OutputFilesTest, NewLibraryHasTheModeOfTheOthers) {
  Good("create out/a.lb1 --mode 0660");
  Good("create out/b.lb1 --mode 660");
  Good("create out/c.lb1 --mode 0600");
  EXPECT_EQ(ModesOf("out/a.lb1 out/b.lb1 out/c.lb1"), "660 660 600 ");
  Good("import out/new.lb1 '" ZEL_DATA "/crc.xml' --create");
  Good("copy crc.lb1 out/copy.lb1 --create");
  EXPECT_EQ(ModesOf("out/new.lb? out/copy.lb?"), "660 660 660 660 ");
  Good("create out/c.lb1 --force");
  Good("copy crc.lb1 out/c.lb1 --in-place");
  EXPECT_EQ(ModesOf("out/c.lb?"), "600 600 ");
  Good("create out/c.lb1 --force --mode 0644");
  EXPECT_EQ(ModesOf("out/c.lb1"), "644 ");
}

TEST_F(OutputFilesTest, ModeThatIsNone) {
  for (char const* mode : {"8", "0x1", "1777", "rw", "''-1", "0", "400", "0200", "066"}) {
    Outcome const outcome = Zel("create out/own.lb1 --mode " + std::string(mode));
    EXPECT_EQ(outcome.status, 2) << mode << outcome.err;
  }
  EXPECT_NE(Zel("create out/own.lb1 --mode 400").err.find("owner read and write"),
            std::string::npos);
  EXPECT_FALSE(fs::exists(Folder() / "out/own.lb1"));
}

// The option is an error then, and is not silently ignored.
TEST_F(OutputFilesTest, ModeOfALibraryThatExistsIsKept) {
  Good("create out/own.lb1 --mode 0640");
  for (std::string const words :
       {"import out/own.lb1 '" ZEL_DATA "/crc.xml' --mode 0664",
        "import out/own.lb1 '" ZEL_DATA "/crc.xml' --create --mode 0664",
        "copy crc.lb1 out/own.lb1 --mode 0664", "copy crc.lb1 out/own.lb1 --create --mode 0664"}) {
    Outcome const outcome = Zel(words);
    EXPECT_EQ(outcome.status, 2) << words;
    EXPECT_NE(outcome.err.find("out/own.lb1 exists and keeps its mode; use chmod to change it"),
              std::string::npos)
        << outcome.err;
    EXPECT_EQ(ModesOf("out/own.lb1"), "640 ");
    EXPECT_EQ(Json("info out/own.lb1")["banks"].size(), 0U) << words;
  }
  EXPECT_NE(Zel("import out/no.lb1 '" ZEL_DATA "/crc.xml' --mode 0664").err.find("not found"),
            std::string::npos);
}

// The class of libraries has its own rule.
TEST_F(OutputFilesTest, LibraryThatAHostMakesIsItsOwners) {
  openErrors error = openFailed;
  LibFile* library = LibFile::NewLibFile(libKind11, (Folder() / "out/host.lb1").c_str(), error);
  ASSERT_NE(library, nullptr);
  LibFile::DelLibFile(library);
  EXPECT_EQ(ModesOf("out/host.lb1"), "600 ");
}

// A hole of 4 GB at the end remains a hole.
TEST_F(OutputFilesTest, HolesOfALibraryStayHoles) {
  fs::resize_file(Folder() / "crc.lb2", std::uintmax_t{4} << 30);
  Outcome const outcome = Shell(
      "before=$(stat -c %b crc.lb2); timeout 20 \"$ZEL\" set crc.lb1 --description x && "
      "echo $(( $(stat -c %b crc.lb2) - before )) $(stat -c %s crc.lb2)");
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  long more = -1;
  long size = -1;
  std::istringstream(outcome.out.substr(outcome.out.find('\n') + 1)) >> more >> size;
  EXPECT_LT(more, 200);
  EXPECT_EQ(size, long{4} << 30);
  EXPECT_EQ(Json("info crc.lb1")["description"], "x");
}

TEST_F(OutputFilesTest, TablesGoToStandardOutputAsCsv) {
  for (char const* const words : {"refs perry.lb1 -o ", "parameters sample.lb1 -o ",
                                  "export sample.lb1 --bank NRTL --table "}) {
    std::string const command = words;
    Good(command + "t.csv");
    std::string const expected = FileText(Folder() / "t.csv");
    EXPECT_EQ(Good(command + "-"), expected) << words;
    EXPECT_EQ(Good(command + "/dev/stdout"), expected) << words;
    for (char const* form : {"--json", "--csv"}) {
      if (command[0] == 'e' && std::string(form) == "--csv") continue;  // not an option of export
      Outcome const both = Zel(command + "- " + form);
      EXPECT_EQ(both.status, 2) << words << form;
      EXPECT_NE(both.err.find("exclude each other"), std::string::npos) << both.err;
    }
  }
}

}  // namespace
}  // namespace zel::test

// The commands of tables with libraries that cannot be used: damaged, in use, missing, in a folder
// that cannot be written.
#include <zelaccess/ZelAccess.h>

#include <unistd.h>

#include "tests/zel/zel_fixture.h"

namespace zel::test {
namespace {

namespace fs = std::filesystem;

class TableLibrariesTest : public ZelTest {
 protected:
  void SetUp() override {
    fs::create_directory(Folder() / "own");
    Good("copy perry.lb1 own/own.lb1 --create --bank PERRY");
    Good("copy sample.lb1 own/own.lb1 --bank NRTL --keep 0");
    Good("export own/own.lb1 --bank NRTL --table nrtl.csv");
    Good("export own/own.lb1 --bank PERRY --table perry.csv");
  }
  void Fails(std::string const& words, std::string const& why) const {
    Contents const before = ContentsOf(Folder());
    Outcome const outcome = Zel(words);
    EXPECT_EQ(outcome.status, 1) << words << outcome.out;
    EXPECT_EQ(outcome.out, "") << words;
    EXPECT_NE(outcome.err.find(why), std::string::npos) << words << "\n" << outcome.err;
    EXPECT_TRUE(ContentsOf(Folder()) == before) << words << " changed something";
  }
  // Commands that only read the library, and one that changes it.
  static std::vector<std::string> Reading(std::string const& library) {
    return {"table ETHANOL --fields TC -l " + library, "pairs NRTL -l " + library,
            "export " + library + " --bank NRTL --table out.csv",
            "export " + library + " --bank PERRY --table -"};
  }
  static std::string Changing(std::string const& library) {
    return "import " + library + " --table nrtl.csv --bank NRTL";
  }
};

TEST_F(TableLibrariesTest, Missing) {
  for (std::string const& words : Reading("none.lb1")) Fails(words, "none.lb1: not found");
  Fails(Changing("none.lb1"), "none.lb1: not found");
  Fails("import own/own.lb1 --table none.csv --bank NRTL", "none.csv: ");
  Fails("template NRTLX", "NRTLX");
  Fails("export own/own.lb1 --bank NONE --table out.csv", "own/own.lb1: no bank NONE");
  Fails("import own/own.lb1 --table nrtl.csv --bank NONE", "NONE");
}

TEST_F(TableLibrariesTest, NotALibrary) {
  MakeFile("bad.lb1", "not a library");
  for (std::string const& words : Reading("bad.lb1")) Fails(words, "bad.lb1: ");
  Fails(Changing("bad.lb1"), "bad.lb1: ");
}

// A reader keeps a writer out, and a writer everybody.
TEST_F(TableLibrariesTest, InUse) {
  std::string const path = (Folder() / "own/own.lb1").string();
  openErrors error = openFailed;
  Handle<LibFile> reader(LibFile::OpenLibFile(accRead, path.c_str(), "", error));
  ASSERT_NE(reader, nullptr);
  for (std::string const& words : Reading("own/own.lb1")) EXPECT_EQ(Zel(words).status, 0) << words;
  fs::remove(Folder() / "out.csv");
  Fails(Changing("own/own.lb1"), "another program has it open");
  reader.reset();
  Handle<LibFile> const writer(LibFile::OpenLibFile(accUpdate, path.c_str(), "", error));
  ASSERT_NE(writer, nullptr);
  for (std::string const& words : Reading("own/own.lb1")) {
    Fails(words, "another program");
  }
  Fails(Changing("own/own.lb1"), "another program");
  EXPECT_EQ(Zel("template NRTL").status, 0);
}

// A node of a tree that is not a node: the commands end by themselves and say where.
TEST_F(TableLibrariesTest, Damaged) {
  std::string bytes = FileText(Folder() / "own/own.lb2");
  ASSERT_GT(bytes.size(), 8000U);
  for (std::size_t i = 4000; i < bytes.size(); ++i) bytes[i] = '\xff';
  MakeFile("own/own.lb2", bytes);
  for (std::string const& words : Reading("own/own.lb1")) {
    Outcome const outcome = Shell("timeout 20 \"$ZEL\" " + words);
    EXPECT_EQ(outcome.status, 1) << words << outcome.out;
    EXPECT_NE(outcome.err.find("own/own.lb"), std::string::npos) << words << "\n" << outcome.err;
    EXPECT_FALSE(fs::exists(Folder() / "out.csv")) << words;
  }
  Contents const before = ContentsOf(Folder() / "own");
  Outcome const outcome = Shell("timeout 20 \"$ZEL\" " + Changing("own/own.lb1"));
  EXPECT_EQ(outcome.status, 1) << outcome.out;
  EXPECT_TRUE(ContentsOf(Folder() / "own") == before);
}

TEST_F(TableLibrariesTest, FolderThatCannotBeWritten) {
  if (::geteuid() == 0) {
    // The superuser may write everywhere, but not on a file system of the kernel.
    Fails("export own/own.lb1 --bank NRTL --table /proc/out.csv", "/proc/out.csv: ");
    return;
  }
  fs::permissions(Folder() / "own", fs::perms::owner_read | fs::perms::owner_exec);
  for (std::string const& words : Reading("own/own.lb1")) {
    EXPECT_EQ(Zel(words).status, 0) << words << ": reading needs no writing";
  }
  fs::remove(Folder() / "out.csv");
  Fails("export own/own.lb1 --bank NRTL --table own/out.csv", "own/out.csv: cannot be written");
  Fails(Changing("own/own.lb1"), "own");
  fs::permissions(Folder() / "own", fs::perms::owner_all);
}

}  // namespace
}  // namespace zel::test

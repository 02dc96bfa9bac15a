// What every command does with bad input: an exit status, one clear line, nothing changed and
// nothing left behind.
#include <zelaccess/ZelAccess.h>

#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <thread>

#include "tests/zel/zel_fixture.h"

namespace zel::test {
namespace {

constexpr int kFailed = 1;
constexpr int kWrongUsage = 2;

struct Row {
  char const* words;
  int status;
  char const* text;  // which the line has
};

class BadInputTest : public ZelTest {
 protected:
  void SetUp() override {
    MakeFile("text.lb1", "not a library, but long enough to be read as the header of one: " +
                             std::string(2000, 'x'));
    MakeFile("no.xml", "<library><bank");
    MakeFile("good.csv", "T,value\n300,3\n320,10\n340,27\n360,62\n380,128\n400,245\n");
    MakeFile("notes.txt", "nothing in particular\n");
    MakeFile("nul.txt", std::string("a\0b", 3));
    std::filesystem::create_directory(Folder() / "folder.lb1");
    std::filesystem::copy(Folder() / "perry.lb1", Folder() / "alone.lb1");
    Good("create locked.lb1");
    Good("copy sample.lb1 locked.lb1 --bank OCTANE");
    Good("set locked.lb1 --new-password sesame");
  }

  // The command fails and leaves everything as it was.
  void Refuses(Row const& row) {
    Contents const before = ContentsOf(Folder());
    Outcome const outcome = Zel(row.words, as_);
    EXPECT_EQ(outcome.status, row.status) << row.words << "\n" << outcome.err;
    // An import lists what is wrong with a document before it ends.
    bool const isImport = std::string(row.words).substr(0, 6) == "import";
    bool const isJson = std::string(row.words).find("--json") != std::string::npos;
    EXPECT_TRUE(isImport || isJson || outcome.out.empty()) << row.words << "\n" << outcome.out;
    if (isJson) {
      EXPECT_EQ(nlohmann::json::parse(outcome.out)["schema"], "zel/error") << row.words;
    }
    EXPECT_EQ(std::count(outcome.err.begin(), outcome.err.end(), '\n'), 1) << row.words << "\n"
                                                                           << outcome.err;
    EXPECT_EQ(outcome.err.substr(0, 5), "zel: ") << row.words;
    EXPECT_NE(outcome.err.find(row.text), std::string::npos) << row.words << "\n" << outcome.err;
    EXPECT_TRUE(ContentsOf(Folder()) == before) << row.words << " changed something";
  }

  std::string as_;  // in front of the program
};

TEST_F(BadInputTest, EachHasItsLine) {
  Row const rows[] = {
      // files that are not there
      {"info none.lb1", kFailed, "none.lb1: not found"},
      {"memo none.lb1", kFailed, "none.lb1: not found"},
      {"memo none.lb1 --set x", kFailed, "none.lb1: not found"},
      {"set none.lb1 --description x", kFailed, "none.lb1: not found"},
      {"banks none.lb1", kFailed, "none.lb1: not found"},
      {"salvage none.lb1 new.lb1", kFailed, "none.lb1: not found"},
      {"items none.lb1 NRTL", kFailed, "none.lb1: not found"},
      {"show none.lb1 NRTL A B", kFailed, "none.lb1: not found"},
      {"find none.lb1", kFailed, "none.lb1: not found"},
      {"eval ETHANOL VaporP -l none.lb1", kFailed, "none.lb1: not found"},
      {"plot VaporP ETHANOL -l none.lb1 -o x.svg", kFailed, "none.lb1: not found"},
      {"search ETHANOL -l none.lb1", kFailed, "none.lb1: not found"},
      {"why ETHANOL TC -l none.lb1", kFailed, "none.lb1: not found"},
      {"coverage ETHANOL -l none.lb1", kFailed, "none.lb1: not found"},
      {"import none.lb1 no.xml", kFailed, "none.lb1: not found"},
      {"import sample.lb1 none.xml", kFailed, "none.xml: not found"},
      {"import new.lb1 none.xml --create", kFailed, "none.xml: not found"},
      {"import sample.lb1 none.xml --format chemsep", kFailed, "none.xml: not found"},
      {"import sample.lb1 no.xml --format chemsep", kFailed, "no.xml, line 1: "},
      {"import sample.lb1 folder.lb1 --format chemsep", kFailed, "folder.lb1: is a folder"},
      {"import sample.lb1 nul.txt --format chemsep", kFailed, "nul.txt, line 1: "},
      {"import new.lb1 no.xml --create --format chemsep", kFailed, "no.xml, line 1: "},
      {"fit none.lb1 good.csv --to VaporP --equation 20 --component A", kFailed,
       "none.lb1: not found"},
      {"fit perry.lb1 none.csv --to VaporP --equation 20 --component WATER", kFailed,
       "none.csv: not found"},
      {"fit perry.lb1 nul.txt --to VaporP --equation 20 --component WATER", kFailed, "nul.txt: "},
      {"fit perry.lb1 good.csv --equation 20 --component WATER", kWrongUsage, "--to"},
      {"fit perry.lb1 good.csv --to VaporP --component WATER", kWrongUsage, "--equation"},
      {"fit perry.lb1 good.csv --to VaporP --equation 20", kWrongUsage, "--component"},
      {"fit perry.lb1 --to VaporP --equation 20 --component WATER", kWrongUsage, "POINTS"},
      {"points none.xml", kFailed, "none.xml: "},
      {"points no.xml", kFailed, "no.xml, line 1: "},
      {"points good.csv", kFailed, "good.csv, line 1: "},
      {"points", kWrongUsage, "FILE"},
      {"import sample.lb1 notes.txt --format nasa", kFailed, "notes.txt: has no line THERMO"},
      {"import sample.lb1 none.txt --format nasa", kFailed, "none.txt: not found"},
      {"import sample.lb1 notes.txt --format coolprop", kFailed, "notes.txt: is not JSON"},
      {"import sample.lb1 none.txt --format coolprop", kFailed, "none.txt: not found"},
      {"import sample.lb1 notes.txt --format sqlite", kFailed, "notes.txt: "},
      {"export none.lb1 --sqlite out.db", kFailed, "none.lb1: not found"},
      {"export none.lb1", kFailed, "none.lb1: not found"},
      {"dump none.lb1", kFailed, "none.lb1: not found"},
      {"list none.lst", kFailed, "none.lst: not found"},
      {"list new.lst --build none.lb1", kFailed, "none.lb1: not found"},
      {"copy none.lb1 sample.lb1", kFailed, "none.lb1: not found"},
      {"copy sample.lb1 none.lb1", kFailed, "none.lb1: not found"},
      {"delete none.lb1 NRTL A B", kFailed, "none.lb1: not found"},
      {"diff none.lb1 sample.lb1", kFailed, "none.lb1: not found"},
      {"diff sample.lb1 none.lb1", kFailed, "none.lb1: not found"},
      {"check none.lb1", kFailed, "none.lb1: not found"},
      {"memo sample.lb1 --file none.txt", kFailed, "none.txt: cannot be read"},
      // files that are something else
      {"info text.lb1", kFailed, "text.lb1: not a component library"},
      {"info folder.lb1", kFailed, "folder.lb1: "},
      {"set text.lb1 --description x", kFailed, "text.lb1: not a component library"},
      {"create text.lb1 --force", kFailed, "text.lb1: not a component library"},
      {"check text.lb1", kFailed, "text.lb1: not a component library"},
      {"info notes.txt", kFailed, "notes.txt: not a component library"},
      {"info alone.lb1", kFailed, "its second file (.lb2) is missing"},
      {"import sample.lb1 notes.txt", kFailed, "notes.txt: "},
      {"import sample.lb1 no.xml", kFailed, "no.xml: "},
      {"import new.lb1 no.xml --create", kFailed, "no.xml: "},
      {"list notes.txt", kFailed, "notes.txt: is not a list"},
      {"list folder.lb1", kFailed, "folder.lb1"},
      {"list perry.lb1", kFailed, "perry.lb1: is not a list"},
      {"memo sample.lb1 --file nul.txt", kFailed, "nul.txt: is not a text file"},
      {"memo sample.lb1 --file folder.lb1", kFailed, "folder.lb1: cannot be read"},
      // passwords
      {"set locked.lb1 --description x", kFailed, "--password"},
      {"set locked.lb1 --description x --password sesam", kFailed, "wrong password"},
      {"memo locked.lb1 --clear --password x", kFailed, "wrong password"},
      {"delete locked.lb1 OCTANE --whole-bank", kFailed, "--password"},
      {"copy sample.lb1 locked.lb1 --bank NRTL", kFailed, "--password"},
      {"import locked.lb1 no.xml", kFailed, "--password"},
      {"create locked.lb1 --force", kFailed, "--password"},
      {"salvage locked.lb1 new.lb1", kFailed, "--password"},
      {"salvage locked.lb1 new.lb1 --password sesam", kFailed, "wrong password"},
      // banks, types, components, items, fields
      {"items sample.lb1 VIRIAL", kFailed, "sample.lb1: no bank VIRIAL; it has"},
      {"items sample.lb1 SAMPLE", kFailed, "SAMPLE may mean several banks"},
      {"show sample.lb1 NONE A B", kFailed, "no bank NONE"},
      {"find sample.lb1 --bank X", kFailed, "no bank PURECOMP:X"},
      {"memo sample.lb1 --bank X", kFailed, "no bank X"},
      {"search ETHANOL -l sample.lb1", kFailed, "no bank of pure components"},
      {"search ETHANOL -l perry.lb1:NONE", kFailed, "no bank PURECOMP:NONE"},
      {"export sample.lb1 --bank X -o x.xml", kFailed, "no bank X"},
      {"export sample.lb1 --component X -o x.xml", kFailed, "no bank PURECOMP"},
      {"list new.lst --build sample.lb1", kFailed, "no bank PURECOMP"},
      {"dump sample.lb1 --tree X", kFailed, "no bank X"},
      {"copy sample.lb1 perry.lb1 --bank X", kFailed, "no bank X"},
      {"delete sample.lb1 X --whole-bank", kFailed, "no bank X"},
      {"diff sample.lb1 sample.lb1 --bank X", kFailed, "no bank X"},
      {"types NONE", kFailed, "there is no bank type NONE"},
      {"show perry.lb1 PERRY NOBODY", kFailed, "has no item NOBODY"},
      {"show perry.lb1 PERRY 64-17-6", kFailed, "64-17-6 is not a CAS number"},
      {"show perry.lb1 PERRY 99999999999", kFailed, "too large for a component number"},
      {"show perry.lb1 PERRY a-long-name", kFailed, "is not a component ID"},
      {"show perry.lb1 PERRY ''", kFailed, "is not a component ID"},
      {"show perry.lb1 PERRY A B", kFailed, "is named by 1 component"},
      {"show sample.lb1 NRTL ETHANOL", kFailed, "is named by 2 component"},
      {"show sample.lb1 NRTL 1 2", kFailed, "has no item 1 + 2"},
      {"show sample.lb1 UNFORIG x", kFailed, "x is not a whole number"},
      {"items sample.lb1 NRTL --fields zij", kFailed, "have no field zij"},
      {"eval NOBODY VaporP -l perry.lb1", kFailed, "component NOBODY is not in perry.lb1:PERRY"},
      {"eval ETHANOL Vapor -l perry.lb1", kFailed, "Vapor"},
      {"eval ETHANOL SolidCp -l perry.lb1", kFailed, "olid"},
      {"plot VaporP NOBODY -l perry.lb1 -o x.svg", kFailed, "NOBODY"},
      {"why ETHANOL XX -l perry.lb1", kFailed, "\"XX\" is neither a constant nor a correlation"},
      {"find sample.lb1 --bank NRTL:SAMPLE", kFailed, "is not a bank of pure components"},
      {"show sample.lb1 NRTL ETHANOL WATER", kFailed, "; use --names LIBRARY"},
      {"export perry.lb1 --component NOBODY -o x.xml", kFailed, "NOBODY"},
      {"copy perry.lb1 crc.lb1 --bank PERRY --item NOBODY", kFailed, "NOBODY"},
      {"delete perry.lb1 PERRY NOBODY", kFailed, "NOBODY"},
      // words that are not numbers
      {"eval ETHANOL VaporP -l perry.lb1 --at abc", kWrongUsage, "\"abc\" is not a temperature"},
      {"eval ETHANOL VaporP -l perry.lb1 --at 1e999", kWrongUsage, "is not a temperature"},
      {"eval ETHANOL VaporP -l perry.lb1 --from x", kWrongUsage, "is not a temperature"},
      {"eval ETHANOL VaporP -l perry.lb1 --steps x", kWrongUsage, "--steps"},
      {"eval ETHANOL VaporP -l perry.lb1 --steps -1", kWrongUsage, "steps"},
      {"eval ETHANOL VaporP -l perry.lb1 --derivatives 4", kWrongUsage, "derivatives"},
      {"find perry.lb1 --nbp 300", kWrongUsage, "\"300\" is not a range MIN:MAX"},
      {"find perry.lb1 --mw a:b", kWrongUsage, "\"a\" is not a molecular weight"},
      {"create new.lb1 --kind 14", kWrongUsage, "11, 12 or 13"},
      {"set sample.lb1 --new-password x --level 3", kWrongUsage, "level 1 or 2"},
      {"list new.lst --build perry.lb1 --sort size", kWrongUsage, "--sort must be"},
      // outputs that cannot be written
      {"create none/new.lb1", kFailed, "none/new.lb1: its folder does not exist"},
      {"create new.xyz", kFailed, "new.xyz: not a component library"},
      {"create sample.lb1", kFailed, "sample.lb1: exists; `zel create --force` replaces it"},
      {"set sample.lb1 --new-password 'p\xC3\xA4sswort'", kFailed, "the password has characters"},
      {"set sample.lb1 --new-password 'a{b'", kFailed, "from \"{b\" on"},
      {"create new.lb1 --description 'a|b'", kFailed, "the description has characters"},
      {"set sample.lb1 --new-password x --clear-password", kWrongUsage, "exclude each other"},
      {"plot VaporP ETHANOL -l perry.lb1 -o none/x.svg", kFailed, "none/x.svg: cannot be written"},
      {"plot VaporP ETHANOL -l perry.lb1 -o perry.lb1", kFailed, "is the name of a library's file"},
      {"export perry.lb1 -o perry.lb2", kFailed, "is the name of a library's file"},
      {"list crc.lb1 --build perry.lb1", kFailed, "is the name of a library's file"},
      {"export perry.lb1 -o none/x.xml", kFailed, "cannot be written"},
      {"list none/x.lst --build perry.lb1", kFailed, "none/x.lst: cannot be written"},
      {"list /dev/full --build perry.lb1", kFailed, "/dev/full: cannot be written"},
      {"banks sample.lb1 >/dev/full", kFailed, "standard output cannot be written"},
      {"--help >/dev/full", kFailed, "standard output cannot be written"},
      {"plot VaporP ETHANOL -l perry.lb1 -o CRC.LB2", kFailed, "is the name of a library's file"},
      {"export perry.lb1 -o /dev/full", kFailed, "/dev/full"},
      // what contradicts itself
      {"create long.lb1 --library-version 1234567890123", kFailed,
       "13 characters; at most 12 can be stored"},
      {"set perry.lb1 --password x --description y", kFailed, "has no password"},
      {"import new.lb1 no.xml --create --bank TOOLONGNAME", kFailed, "1 to 8 characters"},
      {"import sample.lb1 folder.lb1", kFailed, "folder.lb1: is not a file"},
      {"copy perry.lb1 ./perry.lb1", kFailed, "FROM and TO are the same library"},
      {"search ETHANOL -l sample.lb1 -l locked.lb1", kFailed,
       "sample.lb1, locked.lb1: no bank of pure components"},
      {"eval ETHANOL VaporP -l perry.lb1 --at -1K", kWrongUsage, "\"-1K\" is below absolute zero"},
      {"find perry.lb1 --nbp 400:300", kWrongUsage, "the range 400:300 ends before it begins"},
      {"find perry.lb1 --mw 40:30", kWrongUsage, "the range 40:30 ends before it begins"},
      {"eval ETHANOL VaporP -l perry.lb1 --at +-5", kWrongUsage, "is not a temperature"},
      {"eval ETHANOL VaporP -l perry.lb1 --json --csv", kWrongUsage, "see zel eval --help"},
      {"list notes.txt --range 1:2", kWrongUsage, "--range needs --sort nbp or mw"},
      {"list notes.txt --sort mw --filter x", kWrongUsage, "--filter needs --sort"},
      {"list notes.txt --bank PERRY", kWrongUsage, "--bank needs --build"},
      {"memo sample.lb1 --set x --clear", kWrongUsage, "exclude each other"},
      {"check perry.lb1 --silence sauce", kWrongUsage, "there is no warning sauce"},
      {"check perry.lb1 --silence tree-order", kWrongUsage, "there is no warning tree-order"},
      {"check perry.lb1 --min-strength 2", kWrongUsage, "--min-strength is 0 to 1, not 2"},
      {"check perry.lb1 --min-strength -0.5", kWrongUsage, "--min-strength is 0 to 1, not -0.5"},
      {"check perry.lb1 --min-strength most", kWrongUsage, "--min-strength"},
      {"info ''", kFailed, "a file name is empty"},
      // the command line
      {"", kWrongUsage, "see zel --help"},
      {"nonsense", kWrongUsage, "'nonsense' is not a zel command; see zel --help"},
      {"info", kWrongUsage, "LIBRARY is required"},
      {"info sample.lb1 --nonsense", kWrongUsage, "--nonsense"},
      {"set sample.lb1", kWrongUsage, "nothing to set"},
      {"check", kWrongUsage, "name a library"},
      {"delete sample.lb1 NRTL", kWrongUsage, "--whole-bank"},
      {"copy sample.lb1 crc.lb1 --item A B", kWrongUsage, "--item needs one --bank"},
      {"--names none.lb1 info sample.lb1", kFailed, "none.lb1: not found"},
  };
  for (Row const& row : rows) Refuses(row);
}

// One that is not there, one that is something else, half of one, and one that is being changed.
TEST_F(BadInputTest, EveryCommandRefusesEachBadLibrary) {
  openErrors error{};
  Good("copy sample.lb1 busy.lb1 --create --bank OCTANE");
  Handle<LibFile> const writer(
      LibFile::OpenLibFile(accUpdate, (Folder() / "busy.lb1").c_str(), "", error));
  ASSERT_EQ(error, openOk);
  char const* const commands[] = {"info @",
                                  "memo @",
                                  "memo @ --set x",
                                  "set @ --description x",
                                  "banks @",
                                  "items @ NRTL",
                                  "show @ NRTL 1 2",
                                  "find @",
                                  "eval ETHANOL VaporP -l @",
                                  "plot VaporP ETHANOL -l @ -o x.svg",
                                  "search ETHANOL -l @",
                                  "why ETHANOL TC -l @",
                                  "coverage ETHANOL -l perry.lb1 -l @",
                                  "import @ notes.txt",
                                  "export @",
                                  "dump @",
                                  "dump @ --tree NRTL",
                                  "list x.lst --build @",
                                  "copy @ sample.lb1",
                                  "copy sample.lb1 @",
                                  "delete @ NRTL 1 2",
                                  "diff @ sample.lb1",
                                  "diff sample.lb1 @",
                                  "compare @ perry.lb1",
                                  "compare perry.lb1 @",
                                  "flatten perry.lb1 @ -o x.lb1",
                                  "merge @ sample.lb1 --list",
                                  "merge @ sample.lb1 --ours",
                                  "merge sample.lb1 @ --theirs",
                                  "renumber @ ETHANOL 21000001",
                                  "check @",
                                  "check perry.lb1 @",
                                  "--names @ banks sample.lb1"};
  struct Bad {
    char const* library;
    char const* text;
  };
  for (Bad const& bad : {Bad{"none.lb1", "none.lb1: not found"},
                         Bad{"text.lb1", "text.lb1: not a component library"},
                         Bad{"alone.lb1", "alone.lb1: its second file (.lb2) is missing"},
                         Bad{"busy.lb1", "busy.lb1: another program has it open"}}) {
    for (std::string words : commands) {
      words.replace(words.find('@'), 1, bad.library);
      Refuses({words.c_str(), kFailed, bad.text});
    }
  }
}

TEST_F(BadInputTest, MemoThatIsTooLong) {
  MakeFile("long.txt", std::string(4000, 'x'));
  Refuses(
      {"memo sample.lb1 --file long.txt", kFailed, "4000 characters; at most 3999 can be stored"});
  MakeFile("fits.txt", std::string(3999, 'x'));
  Good("memo sample.lb1 --file fits.txt --all");
}

TEST_F(BadInputTest, LibraryThatAnotherProgramHasOpen) {
  openErrors error{};
  std::string const path = (Folder() / "sample.lb1").string();
  {
    Handle<LibFile> const reader(LibFile::OpenLibFile(accRead, path.c_str(), "", error));
    ASSERT_EQ(error, openOk);
    Good("banks sample.lb1");
    Refuses({"set sample.lb1 --description x", kFailed, "sample.lb1: another program has it open"});
    Refuses({"delete sample.lb1 NRTL --whole-bank", kFailed, "another program has it open"});
    Refuses({"create sample.lb1 --force", kFailed, "another program has it open"});
  }
  Handle<LibFile> const writer(LibFile::OpenLibFile(accUpdate, path.c_str(), "", error));
  ASSERT_EQ(error, openOk);
  Refuses({"banks sample.lb1", kFailed, "another program has it open"});
  Refuses({"check sample.lb1", kFailed, "another program has it open"});
  Refuses({"set sample.lb1 --description x --in-place", kFailed, "another program has it open"});
}

TEST_F(BadInputTest, WaitsForALibraryThatAnotherProgramHasOpen) {
  std::string const path = (Folder() / "sample.lb1").string();
  // Does the work while another program updates the library, for half a second.
  auto const whileOpen = [&](auto const& work) {
    openErrors error{};
    Handle<LibFile> writer(LibFile::OpenLibFile(accUpdate, path.c_str(), "", error));
    ASSERT_EQ(error, openOk);
    std::thread end([&] {
      std::this_thread::sleep_for(std::chrono::milliseconds(500));
      writer.reset();
    });
    work();
    end.join();
  };
  whileOpen([&] { Good("banks sample.lb1 --wait 60"); });
  whileOpen([&] { Good("set sample.lb1 --description x --wait 60"); });
  whileOpen([&] { Good("set sample.lb1 --description y --wait 60 --in-place"); });
  whileOpen([&] { EXPECT_EQ(Zel("banks sample.lb1", "ZEL_WAIT=60").status, 0); });
  whileOpen([&] {
    Refuses({"banks sample.lb1 --wait 0.05", kFailed, "sample.lb1: another program has it open"});
  });
  // What will not change is not waited for.
  auto const begin = std::chrono::steady_clock::now();
  Refuses({"banks none.lb1 --wait 60", kFailed, "none.lb1: not found"});
  Refuses({"banks text.lb1 --wait 60", kFailed, "not a component library"});
  std::filesystem::create_directory(Folder() / "folder.lb1");
  Refuses({"banks folder.lb1 --wait 60", kFailed, "is a folder"});
  EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(40));
  Refuses({"banks sample.lb1 --wait -1", kWrongUsage, "--wait"});
  Refuses({"banks sample.lb1 --wait soon", kWrongUsage, "--wait"});
}

TEST_F(BadInputTest, FolderThatMayNotBeWritten) {
  if (::geteuid() == 0) {  // root may write everywhere, so the test becomes another user
    as_ = "setpriv --reuid=65534 --regid=65534 --clear-groups ";
    Shell("chown -R 65534:65534 .");
    if (Shell(as_ + "test -x \"$ZEL\"").status != 0) GTEST_SKIP() << "nobody may run zel here";
  }
  std::filesystem::permissions(
      Folder(), std::filesystem::perms::owner_read | std::filesystem::perms::owner_exec);
  EXPECT_EQ(Zel("banks sample.lb1", as_).status, 0);
  Refuses({"set sample.lb1 --description x", kFailed, "cannot make a copy next to it"});
  Refuses({"dump sample.lb1", kFailed, "cannot be written"});
  Refuses({"create new.lb1", kFailed, "cannot make a copy next to it"});
  Refuses({"export sample.lb1", kFailed, "cannot be written"});
}

TEST_F(BadInputTest, ClosedPipeEndsQuietly) {
  for (char const* words : {"items sample.lb1 NRTL", "types", "--help", "check crc.lb1",
                            "export sample.lb1 -o piped.xml", "dump sample.lb1 --tree NRTL"}) {
    Outcome const outcome = Shell("\"$ZEL\" " + std::string(words) + " | true");
    EXPECT_EQ(outcome.err, "") << words;
  }
  // What a command changes is changed, or not, as a whole.
  Outcome const outcome =
      Shell("\"$ZEL\" import piped.lb1 '" ZEL_DATA "/sample.xml' --create | true");
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(Json("check piped.lb1")["damage"], 0);
}

// The old output is kept if the new one cannot be written completely. A limit on the size of files
// simulates a full disk; the program needs some for its table of units.
TEST_F(BadInputTest, DocumentThatCannotBeWrittenWhole) {
  std::filesystem::create_directory(Folder() / "doc");
  Good("export crc.lb1 -o doc/crc.xml");
  Good("plot VaporP WATER -l crc.lb1 -l perry.lb1 -o doc/crc.svg");
  Contents const before = ContentsOf(Folder() / "doc");
  ASSERT_EQ(before.size(), 3U);
  for (char const* line : {"ulimit -f 200; \"$ZEL\" export crc.lb1 -o doc/crc.xml",
                           "ulimit -f 4; \"$ZEL\" plot VaporP WATER -l perry.lb1 -o doc/crc.svg"}) {
    Outcome const outcome = Shell("trap '' XFSZ; " + std::string(line));
    EXPECT_EQ(outcome.status, kFailed) << line;
    EXPECT_NE(outcome.err.find("cannot be written"), std::string::npos) << line << outcome.err;
    EXPECT_TRUE(ContentsOf(Folder() / "doc") == before) << line;
  }
}

TEST_F(BadInputTest, ExportOverAFolder) {
  std::filesystem::create_directories(Folder() / "doc/Bank-NRTL-SAMPLE.xml");
  Refuses({"export sample.lb1 -o doc/s.xml", kFailed, "Bank-NRTL-SAMPLE.xml: cannot be written"});
}

TEST_F(BadInputTest, DumpThatCannotBeWrittenKeepsTheOneBefore) {
  Good("dump crc.lb1");
  Contents const before = ContentsOf(Folder());
  Outcome const outcome = Shell("trap '' XFSZ; ulimit -f 8; \"$ZEL\" dump crc.lb1");
  EXPECT_EQ(outcome.status, kFailed);
  EXPECT_NE(outcome.err.find("cannot be written completely"), std::string::npos) << outcome.err;
  EXPECT_TRUE(ContentsOf(Folder()) == before);
}

TEST_F(BadInputTest, NameIndexThatIsTheLibraryToChange) {
  Outcome const outcome = Zel("set perry.lb1 --description x", "ZEL_NAMES=perry.lb1");
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_EQ(Zel("--help", "ZEL_NAMES=none.lb1").status, 0);
}

// Whatever the bytes are, a command ends by itself, with one of its exit statuses.
TEST_F(BadInputTest, DamagedLibraries) {
  std::string const first = FileText(Folder() / "crc.lb1");
  std::string const second = FileText(Folder() / "crc.lb2");
  unsigned seed = 7;
  auto const next = [&] { return (seed = seed * 1664525U + 1013904223U) >> 8; };
  for (int round = 0; round < 12; ++round) {
    std::string one = first;
    std::string two = second;
    for (int i = 0; i < 20; ++i) {
      std::string& bytes = i % 4 == 0 ? one : two;
      bytes[next() % bytes.size()] = static_cast<char>(next());
    }
    if (round % 4 == 3) two.resize(next() % two.size());
    MakeFile("crc.lb1", one);
    MakeFile("crc.lb2", two);
    for (char const* words :
         {"info crc.lb1", "check crc.lb1", "find crc.lb1", "show crc.lb1 CRC ETHANOL --complete",
          "eval ETHANOL VaporP -l crc.lb1", "search ETHANOL -l crc.lb1 -l perry.lb1",
          "dump crc.lb1", "dump crc.lb1 --tree CRC", "export crc.lb1 -o damaged.xml",
          "list damaged.lst --build crc.lb1", "diff crc.lb1 perry.lb1",
          "set crc.lb1 --description x", "copy crc.lb1 new.lb1 --create"}) {
      Outcome const outcome = Shell("timeout 20 \"$ZEL\" " + std::string(words));
      EXPECT_TRUE(outcome.status == 0 || outcome.status == kFailed)
          << "round " << round << ": zel " << words << " ended with " << outcome.status << "\n"
          << outcome.err;
    }
    std::filesystem::remove(Folder() / "new.lb1");
    std::filesystem::remove(Folder() / "new.lb2");
  }
}

}  // namespace
}  // namespace zel::test

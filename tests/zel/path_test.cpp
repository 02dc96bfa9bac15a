// The search path, and what a configuration file sets for all commands.
#include <cstdlib>

#include "desk/open/configuration.h"
#include "desk/open/library_path.h"
#include "tests/zel/zel_fixture.h"

namespace zel::test {
namespace {

namespace fs = std::filesystem;
using nlohmann::json;

class PathTest : public ZelTest {
 protected:
  // perry.lb1 in "shared", crc.lb1 in "more", sample.lb1 here.
  PathTest() {
    for (char const* folder : {"shared", "more"}) fs::create_directory(Folder() / folder);
    Move("perry", "shared");
    Move("crc", "more");
  }
  void Move(std::string const& name, std::string const& folder) const {
    for (char const* ending : {".lb1", ".lb2"}) {
      fs::path const file = name + ending;
      fs::rename(Folder() / file, Folder() / folder / file.filename());
    }
  }
  json JsonOf(std::string const& words, std::string const& before) const {
    Outcome const outcome = Zel(words + " --json", before);
    EXPECT_EQ(outcome.status, 0) << before << " zel " << words << "\n" << outcome.err;
    return json::parse(outcome.out, nullptr, false);
  }
  void Fails(std::string const& words, std::string const& before, int status,
             std::string const& text) const {
    Outcome const outcome = Zel(words, before);
    EXPECT_EQ(outcome.status, status) << words;
    EXPECT_EQ(outcome.out, "") << words;
    EXPECT_NE(outcome.err.find(text), std::string::npos) << words << "\n" << outcome.err;
  }
};

constexpr char kBoth[] = "ZEL_PATH=shared:more";

TEST_F(PathTest, NameStandsForTheFirstLibraryOnThePath) {
  EXPECT_EQ(JsonOf("why ETHANOL NBP -l perry -l crc:CRC", kBoth)["from"], "more/crc.lb1:CRC");
  EXPECT_EQ(JsonOf("info perry.lb1", kBoth)["library"], "shared/perry.lb1");
  Good("copy more/crc.lb1 more/perry.lb1 --create");
  EXPECT_EQ(JsonOf("info perry", kBoth)["library"], "shared/perry.lb1");
  EXPECT_EQ(JsonOf("info perry", "ZEL_PATH=more:shared")["library"], "more/perry.lb1");
}

TEST_F(PathTest, EveryWordForALibraryIsLookedUp) {
  for (char const* words : {"info perry",
                            "banks perry",
                            "items perry PERRY",
                            "show perry PERRY ETHANOL",
                            "find perry --id ETHANOL",
                            "memo perry",
                            "diff perry crc",
                            "compare perry crc",
                            "check perry crc --structure",
                            "log perry",
                            "list a.lst --build perry",
                            "export perry -o out.xml",
                            "flatten perry crc -o flat.lb1 --components ETHANOL",
                            "copy perry own.lb1 --create",
                            "merge own.lb1 perry",
                            "eval ETHANOL VaporPressure -l perry",
                            "edit own.lb1 PURECOMP METHANOL TC 512K --from perry",
                            "dump perry",
                            "plot VaporPressure ETHANOL -l perry -l crc --reference crc -o x.svg",
                            "sheet ETHANOL -l perry -o x.html",
                            "show sample NRTL ETHANOL WATER --names perry",
                            "pairs NRTL -l sample --names perry",
                            "table ETHANOL --fields TC -l perry",
                            "set perry --description x",
                            "renumber perry ETHANOL 21000001",
                            "delete perry PERRY WATER",
                            "undo perry",
                            "import perry --table t.csv --bank PERRY --dry-run"}) {
    MakeFile("t.csv", "id,TC [K]\nETHANOL,514\n");
    Outcome const outcome = Zel(words, kBoth);
    EXPECT_EQ(outcome.status, 0) << words << "\n" << outcome.err;
  }
}

TEST_F(PathTest, FileThatExistsAsGivenWins) {
  Good("create perry.lb1 --description here");
  EXPECT_EQ(JsonOf("info perry.lb1", kBoth)["description"], "here");
  EXPECT_EQ(JsonOf("info perry", kBoth)["description"], "here");
  EXPECT_EQ(JsonOf("info shared/perry.lb1", kBoth)["description"], "Perry's handbook");
  MakeFile("crc", "a file");
  Fails("info crc", kBoth, 1, "crc: not a component library: its name must end in .lb1");
}

TEST_F(PathTest, FolderOfTheNameDoesNotHideALibrary) {
  fs::create_directory(Folder() / "perry");
  EXPECT_EQ(JsonOf("info perry", kBoth)["library"], "shared/perry.lb1");
}

TEST_F(PathTest, CurrentFolderNeedsNoEnding) {
  EXPECT_EQ(Json("info sample")["library"], "sample.lb1");
  Fails("info perry", "", 1, "zel: perry: not found\n");
}

// Its first file is away between two moves of the change; a library of this name elsewhere is
// another one.
TEST_F(PathTest, LibraryThatIsBeingChangedIsNotLookedForElsewhere) {
  Good("copy shared/perry.lb1 perry.lb1 --create");
  fs::create_directory(Folder() / ".perry.lb1.zel-ready");
  fs::rename(Folder() / "perry.lb1", Folder() / ".perry.lb1.zel-ready/old");
  fs::copy_file(Folder() / ".perry.lb1.zel-ready/old", Folder() / ".perry.lb1.zel-ready/perry.lb1");
  EXPECT_EQ(JsonOf("info perry", kBoth)["library"], "perry.lb1");
  EXPECT_TRUE(fs::exists(Folder() / "perry.lb1")) << "the change was not undone";
}

TEST_F(PathTest, NewLibraryIsMadeWhereItIsNamed) {
  Good("create perry.lb1");
  fs::remove(Folder() / "perry.lb1");
  fs::remove(Folder() / "perry.lb2");
  std::string const before = FileText(Folder() / "shared/perry.lb1");
  EXPECT_EQ(Zel("import perry.lb1 '" ZEL_DATA "/crc.xml' --create", kBoth).status, 0);
  EXPECT_EQ(Zel("copy crc crc.lb1 --create", kBoth).status, 0);
  EXPECT_TRUE(fs::exists(Folder() / "perry.lb1"));
  EXPECT_TRUE(fs::exists(Folder() / "crc.lb1"));
  EXPECT_TRUE(FileText(Folder() / "shared/perry.lb1") == before);
}

TEST_F(PathTest, NameThatFindsNothingIsAnsweredWithTheFoldersAndTheNearest) {
  Fails("info pery", "ZEL_PATH=shared:none", 1,
        "zel: pery: not found in the current folder and on the path (shared, none); did you mean "
        "perry?\n");
  Fails("why ETHANOL NBP -l perry -l other:X", kBoth, 1,
        "zel: other: not found in the current folder and on the path (shared, more)\n");
  Fails("info shared/pery.lb1", kBoth, 1,
        "zel: shared/pery.lb1: not found; did you mean shared/perry.lb1?\n");
  Fails("info more/pery.lb1", kBoth, 1, "zel: more/pery.lb1: not found\n");
  Fails("info sample --names nowhere", kBoth, 1, "(named by --names or ZEL_NAMES)");
}

TEST_F(PathTest, FoldersOfAText) {
  using Folders = std::vector<std::string>;
  EXPECT_EQ(desk::FoldersOf(""), Folders());
  EXPECT_EQ(desk::FoldersOf("/a:b"), (Folders{"/a", "b"}));
  EXPECT_EQ(desk::FoldersOf(":/a:"), (Folders{".", "/a", "."}));
}

TEST_F(PathTest, PathShowsFoldersAndLibraries) {
  Good("copy shared/perry.lb1 more/perry.lb1 --create");
  json const shown = JsonOf("path", "ZEL_PATH=shared:more:none");
  EXPECT_EQ(shown["configuration"], nullptr);
  json const& folders = shown["folders"];
  EXPECT_EQ(Row(folders, "folder", ".")["libraries"], 1);
  EXPECT_EQ(Row(folders, "folder", "more")["libraries"], 2);
  EXPECT_EQ(Row(folders, "folder", "more")["from"], "ZEL_PATH");
  EXPECT_EQ(Row(folders, "folder", "none")["libraries"], nullptr);
  json const& libraries = shown["libraries"];
  EXPECT_EQ(libraries.size(), 4U);
  EXPECT_EQ(Row(libraries, "library", "sample.lb1")["name"], "sample");
  EXPECT_EQ(Row(libraries, "library", "shared/perry.lb1")["hidden_by"], nullptr);
  EXPECT_EQ(Row(libraries, "library", "more/perry.lb1")["hidden_by"], "shared/perry.lb1");
  json const one = JsonOf("path crc sample", kBoth);
  EXPECT_EQ(one["libraries"].size(), 2U);
  EXPECT_EQ(Row(one["libraries"], "name", "crc")["library"], "more/crc.lb1");
  Fails("path crc nowhere", kBoth, 1, "nowhere: not found");
  Fails("path nowhere", "", 1, "zel: nowhere: not found\n");
}

class ConfigurationTest : public PathTest {
 protected:
  ConfigurationTest() {
    fs::create_directories(Folder() / "home/.config/zel");
    MakeFile("config",
             "# libraries of the plant\r\n"
             "path = shared:more\n"
             "libraries = perry, crc:CRC\n"
             "names = perry\n"
             "units = plant\n"
             "\n"
             "[unit-sets]\n"
             "basis = engineering\n"
             "Plant = basis, J/mol\n");
  }
};
constexpr char kFile[] = "ZEL_CONFIG=config";

TEST_F(ConfigurationTest, SetsWhatCommandsUse) {
  json const why = JsonOf("why ETHANOL NBP", kFile);
  EXPECT_EQ(why["unit"], "C");
  EXPECT_EQ(why["sources"].size(), 2U);
  EXPECT_EQ(why["from"], "more/crc.lb1:CRC");
  EXPECT_EQ(JsonOf("show sample NRTL ETHANOL WATER", kFile)["item"], "ETHANOL + WATER");
}

TEST_F(ConfigurationTest, CommandLineBeatsEnvironmentBeatsFile) {
  std::string const file = kFile;
  EXPECT_EQ(JsonOf("why ETHANOL NBP", file + " ZEL_UNITS=F")["unit"], "F");
  EXPECT_EQ(JsonOf("why ETHANOL NBP --units R", file + " ZEL_UNITS=F")["unit"], "R");
  EXPECT_EQ(JsonOf("why ETHANOL NBP --units ''", file + " ZEL_UNITS=F")["unit"], "K");
  EXPECT_EQ(JsonOf("why ETHANOL NBP --units plant,F", file)["unit"], "F");
  EXPECT_EQ(JsonOf("why ETHANOL NBP -l crc", file)["sources"].size(), 1U);
  EXPECT_EQ(JsonOf("info crc --names ''", file + " ZEL_PATH=more")["library"], "more/crc.lb1");
  Fails("info perry", file + " ZEL_PATH=more", 1, "(named by config)");
  Fails("info perry --names ''", file + " ZEL_PATH=more", 1, "the path (more)");
  Fails("info sample", file + " ZEL_NAMES=nowhere", 1, "(named by --names or ZEL_NAMES)");
}

TEST_F(ConfigurationTest, IsFoundWhereProgramsKeepTheirs) {
  std::string const home = Folder().string() + "/home";
  fs::copy_file(Folder() / "config", Folder() / "home/.config/zel/config");
  std::string const unset = "unset ZEL_CONFIG; XDG_CONFIG_HOME=";
  EXPECT_EQ(JsonOf("path --units K --names ''", unset + " HOME='" + home + "'")["configuration"],
            home + "/.config/zel/config");
  EXPECT_EQ(
      JsonOf("path --names ''", unset + "'" + home + "/.config' HOME=/nowhere")["configuration"],
      home + "/.config/zel/config");
  EXPECT_EQ(JsonOf("path", unset + " HOME=/nowhere")["configuration"], nullptr);
  EXPECT_EQ(JsonOf("path", "ZEL_CONFIG= HOME='" + home + "'")["configuration"], nullptr);
}

TEST_F(ConfigurationTest, PlacesAreRelativeToTheFileOrTheHome) {
  MakeFile("home/.config/zel/config",
           "path = ~/libs:../sets\nlibraries = ~/libs/a.lb1, sets/b, c\nnames = ./d.lb1\n");
  ::setenv("HOME", (Folder() / "home").c_str(), 1);
  std::string const file = (Folder() / "home/.config/zel/config").string();
  desk::Configuration const read = desk::ReadConfiguration(file);
  std::string const home = (Folder() / "home").string();
  EXPECT_EQ(read.path, (std::vector<std::string>{home + "/libs", home + "/.config/sets"}));
  EXPECT_EQ(read.libraries,
            (std::vector<std::string>{home + "/libs/a.lb1", home + "/.config/zel/sets/b", "c"}));
  EXPECT_EQ(read.names, home + "/.config/zel/d.lb1");
  EXPECT_EQ(read.lines.at("names"), 3);
}

TEST_F(ConfigurationTest, FaultsAreNamedWithTheirLines) {
  struct {
    char const* text;
    char const* message;
  } const rows[] = {
      {"\n\nlibrarys = x\n", "bad: line 3: \"librarys\" is not a setting; did you mean libraries?"},
      {"zzz = x\n", "line 1: \"zzz\" is not a setting; settings are path, libraries, names, units"},
      {"perry\n", "line 1: \"perry\" is not a setting, NAME = VALUE"},
      {"= perry\n", "line 1: \"= perry\" is not a setting, NAME = VALUE"},
      {"names =\n", "line 1: names has no value"},
      {"libraries = a,,b\n", "line 1: a name between commas is missing"},
      {"libraries = a,\n", "line 1: a name between commas is missing"},
      {"names = a\n# x\nnames = b\n", "line 3: names is set in line 1 too"},
      {"units = Metrik\n",
       "line 1: \"Metrik\" is neither a unit nor a set of units; did you mean "
       "Metric?"},
      {"[units]\n", "line 1: there is no section [units], only [unit-sets]"},
      {"[unit-sets\n", "line 1: a section ends with ]"},
      {"[unit-sets]\nbar = kPa\n", "line 2: \"bar\" is already the name of a unit or of a set"},
      {"[unit-sets]\nus = kPa\n", "line 2: \"us\" is already the name of a unit or of a set"},
      {"[unit-sets]\na b = kPa\n", "line 2: the name of a set has no blanks and commas"},
      {"[unit-sets]\nmine =\n", "line 2: the set mine has no units"},
      {"[unit-sets]\nmine = bar\nMINE = C\n", "line 3: the set MINE is there twice"},
      {"[unit-sets]\nmine = mine\n", "line 2: \"mine\" is neither a unit nor a set"},
      {"[unit-sets]\na1 = b1\nb1 = bar\n", "line 2: \"b1\" is neither a unit nor a set"},
  };
  for (auto const& row : rows) {
    MakeFile("bad", row.text);
    for (char const* words : {"info sample", "path", "find sample --units bar"}) {
      Fails(words, "ZEL_CONFIG=bad", 1, row.message);
    }
    EXPECT_EQ(Zel("--help", "ZEL_CONFIG=bad").status, 0) << "help needs no configuration";
  }
  Fails("info sample", "ZEL_CONFIG=nowhere", 1, "zel: nowhere: not found\n");
  Fails("info sample", "ZEL_CONFIG=more", 1, "zel: more: is a folder\n");
}

TEST_F(ConfigurationTest, PathShowsWhereSettingsComeFrom) {
  json const shown = JsonOf("path", kFile);
  EXPECT_EQ(shown["configuration"], "config");
  json const& settings = shown["settings"];
  EXPECT_EQ(Rows(settings, "setting", "libraries"), 2U);
  EXPECT_EQ(Row(settings, "value", "crc:CRC")["library"], "more/crc.lb1");
  EXPECT_EQ(Row(settings, "setting", "names")["from"], "line 4");
  EXPECT_EQ(Row(settings, "setting", "units")["value"], "plant");
  EXPECT_EQ(Row(settings, "setting", "unit set plant")["value"], "basis, J/mol");
  json const given = JsonOf("path --units bar", kFile)["settings"];
  EXPECT_EQ(Row(given, "setting", "units")["from"], "--units or ZEL_UNITS");
  MakeFile("other", "libraries = nowhere\n");
  EXPECT_EQ(JsonOf("path", "ZEL_CONFIG=other")["settings"][0]["library"], nullptr);
}

TEST_F(ConfigurationTest, OwnSetsMayBeNamedInAnyCase) {
  EXPECT_EQ(JsonOf("why ETHANOL HFORMATION --units PLANT -l crc", kFile)["unit"], "J/g-mol");
  Fails("why ETHANOL TC --units plan -l crc", kFile, 2, "did you mean plant?");
}

TEST_F(PathTest, NearestLibraryOfTheFolderIsNamedWithoutAPathToo) {
  Move("shared/perry", ".");
  Fails("info pery", "", 1, "zel: pery: not found; did you mean perry?\n");
  Fails("info PERY.lb1", "", 1, "zel: PERY.lb1: not found; did you mean perry.lb1?\n");
  Fails("why ETHANOL NBP -l ./pery.lb1:PERRY", "", 1,
        "zel: ./pery.lb1: not found; did you mean ./perry.lb1?\n");
  Fails("path smple", "", 1, "zel: smple: not found; did you mean sample?\n");
  Fails("set pery.lb1 --description x", "", 1, "did you mean perry.lb1?");
  Fails("info nothing", "", 1, "zel: nothing: not found\n");
  Outcome const asJson = Zel("info pery --json");
  EXPECT_EQ(json::parse(asJson.out)["error"]["near"][0], "perry") << asJson.out;
}

}  // namespace
}  // namespace zel::test

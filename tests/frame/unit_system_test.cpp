// Opening units by word, and starting the unit system.
#include "frame/units/unit_system.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include "frame/ascii.h"
#include "tests/frame/child.h"
#include "tests/frame/temp_folder.h"
#include "tests/frame/unit_fixture.h"

namespace zel {
namespace {

namespace fs = std::filesystem;

class OpenUnitTest : public test::UnitSystemTest {};

struct Word {
  char const* dimension;
  char const* word;
  char const* display;
};

// The words in exported files, and those that the reader of such files looks up for them.
TEST_F(OpenUnitTest, WordsOfExportedFilesOpenTheirUnits) {
  constexpr Word kWords[] = {
      {"temp", "k", "K"},
      {"temp", "c", "C"},
      {"temp", "r", "R"},
      {"temp", "f", "F"},
      {"pres", "dyne/cm2", "dyne/cm2"},
      {"pres", "n/m2", "N/m2"},
      {"pres", "pa", "Pa"},
      {"pres", "kpa", "kPa"},
      {"pres", "mpa", "MPa"},
      {"pres", "bar", "bar"},
      {"pres", "mm hg", "mm Hg"},
      {"pres", "kg/cm2", "kg/cm2"},
      {"pres", "atm", "atm"},
      {"pres", "psia", "psia"},
      {"pres", "in hg", "in Hg"},
      {"pres", "mbar", "mbar"},
      {"density", "g/lit", "g/liter"},
      {"density", "kg/lit", "kg/liter"},
      {"density", "lb/gal", "lb/gal"},
      {"density", "lb/bbl", "lb/bbl"},
      {"density", "g/cm3", "g/cm3"},
      {"density", "g/m3", "g/m3"},
      {"density", "kg/cm3", "kg/cm3"},
      {"density", "kg/m3", "kg/m3"},
      {"density", "lb/in3", "lb/in3"},
      {"density", "lb/ft3", "lb/ft3"},
      {"spenthalpy", "j/g", "J/g"},
      {"spenthalpy", "j/kg", "J/kg"},
      {"spenthalpy", "kj/g", "kJ/g"},
      {"spenthalpy", "kj/kg", "kJ/kg"},
      {"spenthalpy", "cal/g", "cal/g"},
      {"spenthalpy", "cal/kg", "cal/kg"},
      {"spenthalpy", "kcal/g", "kcal/g"},
      {"spenthalpy", "kcal/kg", "kcal/kg"},
      {"spenthalpy", "btu/lb", "BTU/lb"},
      // Temperature first, as the reader reorders them.
      {"spentropy", "j/k-g", "J/K-g"},
      {"spentropy", "j/k-kg", "J/K-kg"},
      {"spentropy", "kj/k-g", "kJ/K-g"},
      {"spentropy", "kj/k-kg", "kJ/K-kg"},
      {"spentropy", "cal/k-g", "cal/K-g"},
      {"spentropy", "cal/k-kg", "cal/K-kg"},
      {"spentropy", "kcal/k-g", "kcal/K-g"},
      {"spentropy", "kcal/k-kg", "kcal/K-kg"},
      {"spentropy", "BTU/F-lb", "BTU/F-lb"},
      {"cond", "w/m-k", "W/m-K"},
      {"cond", "kw/m-k", "kW/m-K"},
      {"cond", "cal/sec-cm-c", "cal/sec-cm-C"},
      {"cond", "cal/hr-m-c", "cal/hr-m-C"},
      {"cond", "kcal/hr-m-c", "kcal/hr-m-C"},
      {"cond", "btu/hr-ft-f", "BTU/hr-ft-F"},
      {"visc", "cp", "cP"},
      {"visc", "pa-sec", "Pa-sec"},
      {"visc", "lb-sec/ft2", "lb-sec/ft2"},
      {"surf", "dyne/cm", "Dyne/cm"},
      {"surf", "n/m", "N/m"},
  };
  for (Word const& row : kWords) {
    EXPECT_EQ(Opened(row.dimension, row.word), row.display) << row.dimension << " " << row.word;
    uom_Unit* unit = OpenUnit(row.dimension, row.word);
    EXPECT_EQ(LowerText(Display(unit, 2)), LowerText(row.word)) << "is the keyword";
    uom_Free(&unit);
  }
}

TEST_F(OpenUnitTest, KeywordsOfHeatCapacitiesAreTheWordsOfExportedFiles) {
  for (char const* word : {"j/g-k", "j/kg-k", "kj/g-k", "kj/kg-k", "cal/g-k", "cal/kg-k",
                           "kcal/g-k", "kcal/kg-k", "btu/lb-f"}) {
    uom_Unit* unit = uoms_New("cp");
    EXPECT_EQ(uom_FillStructFromString(unit, word, 2), 0) << word;
    EXPECT_EQ(LowerText(Display(unit)), word);
    uom_Free(&unit);
  }
}

TEST_F(OpenUnitTest, MoleIsCutOrAdded) {
  EXPECT_EQ(Opened("mass", "lb-mol"), "lb");
  EXPECT_EQ(Opened("mass", "kg-mole"), "kg");
  EXPECT_EQ(Opened("mass", "KG-MOLES"), "kg");
  EXPECT_EQ(Opened("mole", "lb"), "lb-mol");
  EXPECT_EQ(Opened("mole", "kg-mole"), "kg-mol");
  EXPECT_EQ(Opened("mole", "LB-MOL"), "lb-mol");
  EXPECT_EQ(Opened("spvol", "m3/kg-mole"), "m3/kg");
  EXPECT_EQ(Opened("spenthalpy", "btu/lb-mole"), "BTU/lb");
  EXPECT_EQ(Opened("molarenergy", "kJ/kg"), "kJ/kg-mol");
  EXPECT_EQ(Opened("density", "kg-mole/m3"), "-");
}

TEST_F(OpenUnitTest, CaseCountsOnlyWhereTwoUnitsDiffer) {
  EXPECT_EQ(Opened("PRES", "KPA"), "kPa");
  EXPECT_EQ(Opened("inductance", "mh"), "mH");
  EXPECT_EQ(Opened("vol", "mmm3"), "MMm3");
  EXPECT_EQ(Opened("vol", "LIT"), "liter");
  EXPECT_EQ(Opened("currency", "usd"), "$");
}

TEST_F(OpenUnitTest, FahrenheitAndFaradAreToldByTheirClass) {
  EXPECT_NEAR(Internal("temp", "F", 32.0), 273.15, 1e-12);
  EXPECT_EQ(Internal("capacitance", "F", 32.0), 32.0);
  EXPECT_EQ(Internal("capacitance", "mF", 32.0), 0.032);
}

TEST_F(OpenUnitTest, ProductsTakeTheirFactorsInAnyOrderAndShowThemInOne) {
  EXPECT_EQ(Opened("spentropy", "kJ/kg-K"), "kJ/K-kg");
  EXPECT_EQ(Opened("spentropy", "kJ/K-kg"), "kJ/K-kg");
  EXPECT_EQ(Opened("molarcp", "kJ/K-kg-mol"), "kJ/kg-mol-K");
  EXPECT_EQ(Opened("molarentropy", "cal/g-mol-C"), "cal/C-g-mol");
  EXPECT_EQ(Opened("spenthalpy", "kg-m/kg"), "kg-m/kg");
  EXPECT_EQ(Opened("rhovv", "lb/sec2-ft"), "lb/ft-sec2");
  EXPECT_EQ(Opened("inverselength", "1/ft"), "1/ft");
  EXPECT_EQ(Opened("formationvolfac", "bbl/bbl"), "bbl/bbl");
}

TEST_F(OpenUnitTest, WhatIsNoUnitOfTheClassIsRefused) {
  constexpr Word kWords[] = {
      {"pres", "furlong", "-"},
      {"pres", "K", "-"},
      {"temp", "", "-"},
      {"spenthalpy", "kJ", "-"},
      {"spenthalpy", "kJ/", "-"},
      {"spenthalpy", "/kg", "-"},
      {"spenthalpy", "kJ/kg-K", "-"},
      {"spenthalpy", "kJ/kg/kg", "-"},
      {"spenthalpy", "kJkg", "-"},
      {"spentropy", "kJ/K-K", "-"},
      {"rhovv", "lb/ft-sec", "-"},
      {"inverselength", "ft", "-"},
      {"presdiff", "psig", "-"},
      {"presabs", "barg", "-"},
      {"diel", "m", "-"},
      {"vols", "m3/kg-mole", "-"},
      {"", "K", "-"},
      {"nosuch", "K", "-"},
  };
  for (Word const& row : kWords) {
    EXPECT_EQ(Opened(row.dimension, row.word), row.display) << row.dimension << " " << row.word;
  }
  EXPECT_EQ(OpenUnit(nullptr, "K"), nullptr);
  EXPECT_EQ(OpenUnit("temp", nullptr), nullptr);
  EXPECT_EQ(OpenUnit("pres", std::string(100000, '-').c_str()), nullptr);
  EXPECT_EQ(OpenUnit("molarcp", ("kJ/" + std::string(60, 'K')).c_str()), nullptr);
  double value = 5.0;
  EXPECT_FALSE(ConvertToInternal("pres", "furlong", value));
  EXPECT_FALSE(ConvertToInternal("diel", "K", value));
  EXPECT_FALSE(ConvertToInternal("vols", "m3/kg-mole", value));
  EXPECT_EQ(value, 5.0);
}

TEST_F(OpenUnitTest, SlatesStandForTheirUnit) {
  uom_Unit* unit = uoms_New("spentropy");
  ASSERT_NE(unit, nullptr);
  char text[30];
  EXPECT_EQ(uom_GetDisplayUnits(unit, text, 30, 1), kUomNoUnit);
  EXPECT_STREQ(text, "");
  EXPECT_EQ(uom_FillStructFromString(unit, "qrinternal", 1), 0);
  EXPECT_EQ(Display(unit), "kJ/K-kg");
  EXPECT_EQ(uom_FillStructFromString(unit, "ENGLISH", 1), 0);
  EXPECT_EQ(Display(unit), "BTU/F-lb");
  EXPECT_EQ(uom_FillStructFromString(unit, "qrinternal", 2), kUomUnknownUnit);
  EXPECT_EQ(Display(unit), "BTU/F-lb") << "a failure leaves the unit";
  EXPECT_EQ(uom_FillStructFromString(unit, "qrinternal", 3), kUomBadArgument);
  uom_Free(&unit);
}

TEST_F(OpenUnitTest, InternalUnitsOfTheWordsInUse) {
  constexpr Word kWords[] = {
      {"temp", "", "K"},
      {"pres", "", "kPa"},
      {"vapspvol", "", "m3/kg"},
      {"spvol", "", "m3/kg"},
      {"petrodensity", "", "spgr"},
      {"dipole", "", "DEB"},
      {"length", "", "m"},
      {"spenthalpy", "", "kJ/kg"},
      {"spentropy", "", "kJ/K-kg"},
      {"frac", "", "fraction"},
      {"density", "", "kg/m3"},
      {"cond", "", "W/m-K"},
      {"visc", "", "cP"},
      {"surf", "", "N/m"},
      {"area", "", "m2"},
      {"vol", "", "m3"},
      {"mole", "", "kg-mol"},
      {"mass", "", "kg"},
      {"energy", "", "kJ"},
      {"time", "", "sec"},
      {"molarenergy", "", "kJ/kg-mol"},
      {"molarentropy", "", "kJ/K-kg-mol"},
  };
  for (Word const& row : kWords) {
    uom_Unit* unit = uoms_New(row.dimension);
    ASSERT_EQ(uom_FillStructFromString(unit, "qrinternal", 1), 0) << row.dimension;
    EXPECT_EQ(Display(unit), row.display) << row.dimension;
    uom_Free(&unit);
  }
}

TEST_F(OpenUnitTest, EverySlateHasAUnitForEveryClass) {
  UnitTable table;
  ASSERT_EQ(ReadUnitTable(test::RealTableText(), table), UnitTableError::kNone);
  std::vector<std::string> classes = {"Length",    "Pressure",   "Density",      "VaporDensity",
                                      "SpVol",     "VapSpVol",   "PetroDensity", "SpEnthalpy",
                                      "SpEntropy", "MolarVolume"};
  for (UnitList const& list : table.lists) classes.push_back(list.name);
  for (CustomClass const& custom : table.classes) classes.push_back(custom.name);
  for (UnitSlate const& slate : table.slates) {
    for (std::string const& name : classes) {
      uom_Unit* unit = uoms_New(name.c_str());
      ASSERT_NE(unit, nullptr) << name;
      EXPECT_EQ(uom_FillStructFromString(unit, slate.name.c_str(), 1), 0) << slate.name << name;
      // The text of a slate's unit can be read again.
      std::string const text = Display(unit);
      EXPECT_EQ(uom_FillStructFromString(unit, text.c_str(), 1), 0) << name << " " << text;
      EXPECT_EQ(Display(unit), text);
      uom_Free(&unit);
    }
  }
}

TEST_F(OpenUnitTest, DisplayTextsAreCutToTheBuffer) {
  uom_Unit* unit = OpenUnit("flowconductance", "(lb/sec)/sqrt(inH2O-lb/ft3)");
  ASSERT_NE(unit, nullptr);
  char text[30];
  EXPECT_EQ(uom_GetDisplayUnits(unit, text, 5, 1), 0);
  EXPECT_STREQ(text, "(lb/");
  EXPECT_EQ(uom_GetDisplayUnits(unit, text, 1, 1), 0);
  EXPECT_STREQ(text, "");
  EXPECT_EQ(uom_GetDisplayUnits(unit, text, 0, 1), kUomBadArgument);
  EXPECT_EQ(uom_GetDisplayUnits(unit, text, 30, 2), 0);
  EXPECT_STREQ(text, "(LB/SEC)/SQRT(INH2O-LB/FT3)");
  uom_Free(&unit);
}

TEST_F(OpenUnitTest, HandlesThatDoNotFitAreRefused) {
  uom_Unit* pressure = OpenUnit("pres", "kPa");
  uom_Unit* length = OpenUnit("leng", "m");
  uom_Unit* empty = uoms_New("pres");
  double value = 3.0;
  EXPECT_EQ(uom_ConvertArray(&value, 1, pressure, length), kUomOtherClass);
  EXPECT_EQ(uom_ConvertArray(&value, 1, pressure, empty), kUomNoUnit);
  EXPECT_EQ(uom_ConvertArray(&value, 1, pressure, nullptr), kUomBadArgument);
  EXPECT_EQ(uom_ConvertArray(nullptr, 1, pressure, pressure), kUomBadArgument);
  EXPECT_EQ(uom_ConvertArray(&value, -1, pressure, pressure), kUomBadArgument);
  EXPECT_EQ(value, 3.0);
  // One class by definition.
  uom_Unit* other = OpenUnit("length", "ft");
  EXPECT_EQ(uom_ConvertArray(&value, 1, other, length), 0);
  EXPECT_DOUBLE_EQ(value, 0.9144);
  for (uom_Unit** unit : {&pressure, &length, &empty, &other}) uom_Free(unit);
  uom_Free(&other);
  uom_Free(nullptr);
  EXPECT_EQ(uom_FillStructFromString(nullptr, "K", 1), kUomBadArgument);
}

// Run in a process where no table has been loaded.
int NothingBeforeTheStart() {
  double value = 25.0;
  bool const nothing = OpenUnit("temp", "C") == nullptr && uoms_New("temp") == nullptr &&
                       !ConvertToInternal("temp", "C", value) && value == 25.0;
  return nothing ? test::kHeld : test::kFailed;
}
test::ProgramPart const beforePart("units before the start", NothingBeforeTheStart);

TEST(UnitSystem, GivesNothingBeforeItsStart) {
  EXPECT_EQ(test::RunPart("units before the start"), test::kHeld);
}

// With its own folder for temporary files.
class StartUnitSystemTest : public test::TempFolderTest {
 protected:
  StartUnitSystemTest() : before_(platform::Environment(test::kTemporaryFolderVariable)) {
    test::SetVariable(test::kTemporaryFolderVariable, Folder().string());
  }
  ~StartUnitSystemTest() override {
    if (before_.empty()) {
      test::UnsetVariable(test::kTemporaryFolderVariable);
    } else {
      test::SetVariable(test::kTemporaryFolderVariable, before_);
    }
  }

 private:
  std::string before_;
};

TEST_F(StartUnitSystemTest, TakesTheTableOfTheModule) {
  char const module = 0;
  EXPECT_EQ(StartUnitSystem(&module), 0);
  EXPECT_TRUE(fs::is_empty(Folder())) << "the file is gone";
}

TEST_F(StartUnitSystemTest, MissingOrEmptyTableGivesMinusOne) {
  EXPECT_EQ(StartUnitSystem(nullptr), -1);
  EXPECT_EQ(StartUnitSystemFrom({}), -1);
  EXPECT_EQ(StartUnitSystemFrom(""), -1);
}

TEST_F(StartUnitSystemTest, BadTableGivesAPositiveErrorAndLeavesNoFile) {
  EXPECT_EQ(StartUnitSystemFrom("no table"), static_cast<int>(UnitTableError::kOrder));
  EXPECT_EQ(StartUnitSystemFrom("'BEGINUOMLIST'\n"), static_cast<int>(UnitTableError::kEnds));
  EXPECT_TRUE(fs::is_empty(Folder()));
}

TEST_F(StartUnitSystemTest, NoTemporaryFileGivesAPositiveError) {
  test::SetVariable(test::kTemporaryFolderVariable, Path("missing"));
  EXPECT_EQ(StartUnitSystemFrom(UnitTableResource()), static_cast<int>(UnitTableError::kNoFile));
  // A name of more than 259 characters cannot be used either.
  fs::path deep = Folder();
  while (deep.string().size() < 260) deep /= "folder-in-a-folder";
  fs::create_directories(deep);
  test::SetVariable(test::kTemporaryFolderVariable, deep.string());
  EXPECT_EQ(StartUnitSystemFrom(UnitTableResource()), static_cast<int>(UnitTableError::kNoFile));
  EXPECT_TRUE(fs::is_empty(deep));
}

TEST_F(StartUnitSystemTest, QuotesOfEitherKindWillDo) {
  std::string const text = TableFileText(UnitTableResource());
  EXPECT_EQ(text.find('\''), std::string::npos);
  EXPECT_EQ(text.size(), UnitTableResource().size());
  EXPECT_EQ(TableFileText(text), text);
  EXPECT_EQ(StartUnitSystemFrom(text), 0);
}

TEST_F(StartUnitSystemTest, FilesAreNamedByTheProcess) {
  EXPECT_EQ(TableFilePrefix(42), "~uom0042");
  EXPECT_EQ(TableFilePrefix(1234567), "~uom1234567");
}

TEST_F(StartUnitSystemTest, LoadingTakesItsTwoArguments) {
  MakeFile("table", TableFileText(UnitTableResource()));
  std::string const path = Path("table");
  char const* const good[] = {"-f", path.c_str()};
  char const* const other[] = {"-x", path.c_str()};
  char const* const none[] = {"-f", nullptr};
  int const bad = static_cast<int>(UnitTableError::kArguments);
  EXPECT_EQ(uom_Init2(2, good), 0);
  EXPECT_EQ(uom_Init2(1, good), bad);
  EXPECT_EQ(uom_Init2(2, other), bad);
  EXPECT_EQ(uom_Init2(2, none), bad);
  EXPECT_EQ(uom_Init2(2, nullptr), bad);
  std::string const noFile = Folder().string();
  char const* const folder[] = {"-f", noFile.c_str()};
  EXPECT_GT(uom_Init2(2, folder), 0);
}

TEST_F(StartUnitSystemTest, FailedLoadLeavesWhatWasLoaded) {
  ASSERT_EQ(StartUnitSystemFrom(UnitTableResource()), 0);
  uom_Unit* old = OpenUnit("temp", "C");
  EXPECT_GT(StartUnitSystemFrom("bad"), 0);
  uom_Unit* present = OpenUnit("temp", "K");
  double value = 1.0;
  EXPECT_EQ(uom_ConvertArray(&value, 1, old, present), 0);
  // Handles of different tables cannot be combined.
  ASSERT_EQ(StartUnitSystemFrom(UnitTableResource()), 0);
  uom_Unit* later = OpenUnit("temp", "K");
  EXPECT_EQ(uom_ConvertArray(&value, 1, old, later), kUomOtherClass);
  EXPECT_EQ(uom_ConvertArray(&value, 1, present, old), 0);
  for (uom_Unit** unit : {&old, &present, &later}) uom_Free(unit);
}

}  // namespace
}  // namespace zel

// Words of property units.
#include <random>

#include "tests/xml/import_fixture.h"
#include "xml/unit_word_table.h"
#include "xml/unit_words.h"
#include "zelaccess/Module.h"

namespace zel {
namespace {

class UnitWordsTest : public test::ImportTest {
 protected:
  UnitWordsTest() { InitZelAccess(); }

  std::int32_t CodeOf(std::string_view dimension, std::string_view word) {
    std::int32_t code = -1;
    Caught([&] {
      code = words_.CodeOf(dimension, word);
      return true;
    });
    return code;
  }
  static std::string Warning(std::string const& text) { return "***  : warning : " + text + "\n"; }

  UnitWords words_{Maint().Log()};
};

struct WordRow {
  char const* dimension;
  char const* word;
  std::int32_t code;
};

TEST_F(UnitWordsTest, DisplayWordsGiveTheirCodes) {
  constexpr WordRow kRows[] = {{"temp", "K", 1010},
                               {"temp", "C", 1011},
                               {"temp", "R", 1012},
                               {"temp", "F", 1013},
                               {"pres", "dyne/cm2", 4010},
                               {"pres", "N/m2", 4012},
                               {"pres", "Pa", 4014},
                               {"pres", "kPa", 4015},
                               {"pres", "MPa", 4016},
                               {"pres", "bar", 4017},
                               {"pres", "mm Hg", 4019},
                               {"pres", "kg/cm2", 4021},
                               {"pres", "atm", 4025},
                               {"pres", "psia", 4026},
                               {"pres", "in Hg", 4032},
                               {"pres", "mbar", 4033},
                               {"density", "g/liter", 19012},
                               {"density", "kg/liter", 19018},
                               {"density", "lb/gal", 19026},
                               {"density", "lb/bbl", 19030},
                               {"density", "g/cm3", 19063},
                               {"density", "g/m3", 19067},
                               {"density", "kg/cm3", 19073},
                               {"density", "kg/m3", 19081},
                               {"density", "lb/in3", 19089},
                               {"density", "lb/ft3", 19091},
                               {"spenthalpy", "J/g", 28010},
                               {"spenthalpy", "J/kg", 28012},
                               {"spenthalpy", "kJ/g", 28016},
                               {"spenthalpy", "kJ/kg", 28018},
                               {"spenthalpy", "cal/g", 28028},
                               {"spenthalpy", "cal/kg", 28030},
                               {"spenthalpy", "kcal/g", 28034},
                               {"spenthalpy", "kcal/kg", 28036},
                               {"spenthalpy", "BTU/lb", 28070},
                               {"spentropy", "J/K-g", 30010},
                               {"spentropy", "J/K-kg", 30012},
                               {"spentropy", "kJ/K-g", 30014},
                               {"spentropy", "kJ/K-kg", 30016},
                               {"spentropy", "cal/K-g", 30022},
                               {"spentropy", "cal/K-kg", 30024},
                               {"spentropy", "kcal/K-g", 30026},
                               {"spentropy", "kcal/K-kg", 30028},
                               {"spentropy", "BTU/F-lb", 30030},
                               {"cond", "W/m-K", 35010},
                               {"cond", "kW/m-K", 35014},
                               {"cond", "cal/sec-cm-C", 35018},
                               {"cond", "cal/hr-m-C", 35020},
                               {"cond", "kcal/hr-m-C", 35022},
                               {"cond", "BTU/hr-ft-F", 35024},
                               {"visc", "CP", 40010},
                               {"visc", "Pa-sec", 40012},
                               {"visc", "lb-sec/ft2", 40029},
                               {"surf", "dyne/cm", 42012},
                               {"surf", "N/m", 42015}};
  for (WordRow const& row : kRows) {
    std::string lower = row.word;
    for (char& c : lower) c = static_cast<char>(std::tolower(c));
    EXPECT_EQ(CodeOf(row.dimension, row.word), row.code) << row.word;
    EXPECT_EQ(CodeOf(row.dimension, lower), row.code) << lower;
    EXPECT_EQ(Lines(), "");
  }
}

TEST_F(UnitWordsTest, MolarVolumesHaveAListOfTheirOwn) {
  constexpr WordRow kRows[] = {{"vols", "liter/kg-mole", 22012},
                               {"vols", "LITER/g-mole", 22014},
                               {"vols", "m3/g-mole", 22016},
                               {"vols", "gal/lb-mole", 22018},
                               {"vols", "cm3/kg-mole", 22020},
                               {"vols", "cm3/g-mole", 22022},
                               {"vols", "m3/kg-mole", 22024},
                               {"vols", "in3/lb-mole", 22026},
                               {"vols", "ft3/lb-mole", 22028},
                               {"vols", "bbl/lb-mole", 22034},
                               {"vols", "lit/kg-mole", 0},
                               {"vols", "lit/g-mole", 0},
                               {"vols", "m3/kg", 0},
                               {"vols", "", 0}};
  for (WordRow const& row : kRows) EXPECT_EQ(CodeOf(row.dimension, row.word), row.code) << row.word;
}

// A written word is read back as the first code that has this word, except for two molar volumes.
TEST_F(UnitWordsTest, WrittenWordsReadBack) {
  struct Class {
    std::int32_t first;
    char const* dimension;
  };
  constexpr Class kClasses[] = {{1000, "temp"},  {4000, "pres"},        {19000, "density"},
                                {22000, "vols"}, {28000, "spenthalpy"}, {30000, "spentropy"},
                                {35000, "cond"}, {40000, "visc"},       {42000, "surf"}};
  int rows = 0;
  for (UnitWordRow const& row : kUnitWords) {
    auto const* unitClass =
        std::find_if(std::begin(kClasses), std::end(kClasses),
                     [&](Class const& c) { return row.code / 1000 == c.first / 1000; });
    ASSERT_NE(unitClass, std::end(kClasses)) << row.code;
    std::int32_t expected = row.code;
    for (UnitWordRow const& other : kUnitWords) {
      bool const sameClass = other.code / 1000 == row.code / 1000;
      if (sameClass && other.written == row.written && other.code < expected) expected = other.code;
    }
    if (row.written == "btu/lb") expected = 28070;  // the code of the unit as it is displayed
    if (row.written == "lit/kg-mole" || row.written == "lit/g-mole") expected = 0;
    EXPECT_EQ(CodeOf(unitClass->dimension, row.written), expected) << row.written;
    EXPECT_EQ(Lines(), "") << row.written;
    ++rows;
  }
  EXPECT_EQ(rows, 72);
}

TEST_F(UnitWordsTest, UnknownWordsGiveNothing) {
  for (char const* word : {"furlong", "kPa", "W/m-C", "BTU/hr-in-F"}) {
    EXPECT_EQ(CodeOf("cond", word), 0) << word;
  }
  EXPECT_EQ(CodeOf("pres", "psi"), 0);
  EXPECT_EQ(CodeOf("pres", ""), 0);
  EXPECT_EQ(CodeOf("none", "K"), 0);
  EXPECT_EQ(CodeOf("pres", std::string(100, 'k')), 0);
}

TEST_F(UnitWordsTest, TemperatureOfAnEntropyGoesInFront) {
  EXPECT_EQ(CodeOf("spentropy", "kj/kg-k"), 30016);
  EXPECT_EQ(CodeOf("spentropy", "KJ/KG-K"), 30016);
  EXPECT_EQ(CodeOf("spentropy", "BTU/lb-F"), 30030);
  EXPECT_EQ(CodeOf("spentropy", "J/-K"), 0);
  EXPECT_EQ(CodeOf("spentropy", "abc/-K"), 0);
  EXPECT_EQ(CodeOf("spentropy", "ab-/K"), 0);
  EXPECT_EQ(CodeOf("spentropy", "/K-K"), 0);
}

TEST_F(UnitWordsTest, ObsoleteWordsAreMendedWithAWarning) {
  struct Row {
    char const* dimension;
    char const* label;
    char const* word;
    char const* becomes;
    std::int32_t code;
  };
  constexpr Row kRows[] = {{"cond", "Thermal conductivity", "w/mk", "w/m-k", 35010},
                           {"cond", "Thermal conductivity", "KC/h", "kcal/hr-m-c", 35022},
                           {"visc", "Viscosity", "lbs/f", "lb-sec/ft2", 40029},
                           {"surf", "Surface tension", "D/cm", "dyne/cm", 42012}};
  for (Row const& row : kRows) {
    EXPECT_EQ(CodeOf(row.dimension, row.word), row.code) << row.word;
    EXPECT_EQ(Lines(),
              Warning(std::string(row.label) + " unit \"" + row.word +
                      "\" is obsolete and should be replaced with \"" + row.becomes + "\""));
  }
  EXPECT_EQ(CodeOf("visc", "w/mk"), 0) << "of another dimension";
  EXPECT_EQ(Lines(), "");
  EXPECT_EQ(Maint().Log().WarningCount(), 4);
  EXPECT_FALSE(Maint().Log().HasErrors());
}

TEST_F(UnitWordsTest, AmbiguousWordsAreAssumedWithAWarning) {
  auto const assumed = [](std::string const& word, std::string const& becomes) {
    return Warning("Thermal conductivity unit \"" + word + "\" is ambiguous - \"" + becomes +
                   "\" has been assumed");
  };
  EXPECT_EQ(CodeOf("cond", "btu/hr"), 35024);
  EXPECT_EQ(Lines(), assumed("btu/hr", "btu/hr-ft-f"));
  EXPECT_EQ(CodeOf("cond", "BTU/hr-"), 35024);
  EXPECT_EQ(Lines(), assumed("BTU/hr-", "btu/hr-ft-f"));
  EXPECT_EQ(CodeOf("cond", "cal/s"), 35018);
  EXPECT_EQ(Lines(), assumed("cal/s", "cal/sec-cm-c"));
  EXPECT_EQ(CodeOf("cond", ""), 35024) << "the first of the rows that an empty word begins";
  EXPECT_EQ(Lines(), assumed("", "btu/hr-ft-f"));
  EXPECT_EQ(CodeOf("cond", "btu/hr-ft-f"), 35024);
  EXPECT_EQ(Lines(), "") << "a whole candidate is no beginning of the other";
  EXPECT_EQ(CodeOf("cond", "btu/hr-f"), 0);
  EXPECT_EQ(Lines(), "");
}

TEST_F(UnitWordsTest, WarningsStopAtTenButForFirstOnes) {
  std::string const again =
      Warning("Viscosity unit \"lbs/f\" is obsolete and should be replaced with \"lb-sec/ft2\"");
  for (int i = 0; i < 10; ++i) {
    EXPECT_EQ(CodeOf("visc", "lbs/f"), 40029);
    EXPECT_EQ(Lines(), again) << i;
  }
  EXPECT_EQ(CodeOf("visc", "lbs/f"), 40029);
  EXPECT_EQ(Lines(),
            Warning("Ten unit warnings encountered - additional duplicate warnings will be "
                    "suppressed"));
  EXPECT_EQ(CodeOf("visc", "lbs/f"), 40029) << "mended all the same";
  EXPECT_EQ(Lines(), "");
  EXPECT_EQ(CodeOf("surf", "d/cm"), 42012);
  EXPECT_NE(Lines(), "") << "the first of its kind";
  EXPECT_EQ(CodeOf("surf", "d/cm"), 42012);
  EXPECT_EQ(Lines(), "");
}

// The line about suppression is shown only for the eleventh event: if that is the first one of its
// kind, the line is never shown.
TEST_F(UnitWordsTest, FirstWarningInTheEleventhPlaceTakesTheLine) {
  for (int i = 0; i < 10; ++i) CodeOf("visc", "lbs/f");
  CodeOf("surf", "d/cm");
  EXPECT_NE(Lines().find("obsolete"), std::string::npos);
  CodeOf("visc", "lbs/f");
  EXPECT_EQ(Lines(), "");
}

// Only the first 29 characters of a word are read. Anything may follow "-mol", so a cut is visible
// by the temperature at the end, which is then not moved.
TEST_F(UnitWordsTest, LongWordsAreCut) {
  std::string const start = "cal/K-g-mol";
  EXPECT_EQ(CodeOf("spentropy", start), 30022);
  EXPECT_EQ(CodeOf("spentropy", start + std::string(16, 'x') + "-K"), 0) << "29 characters";
  EXPECT_EQ(CodeOf("spentropy", start + std::string(17, 'x') + "-K"), 30022) << "30";
  EXPECT_EQ(CodeOf("spentropy", start + std::string(500, 'x') + "-K"), 30022);
}

TEST_F(UnitWordsTest, OnlyEntropiesAreMoved) {
  EXPECT_EQ(CodeOf("spentropy", "btu/lb-f"), 30030);
  EXPECT_EQ(CodeOf("spentropy", "j/g-c"), 0) << "moved, but not in the list";
  EXPECT_EQ(CodeOf("spentropy", "cal/g-mole-k"), 30022) << "moved, then cut before the mole";
  EXPECT_EQ(CodeOf("spentropy", "BTU/LB-MOLE-F"), 30030);
  EXPECT_EQ(CodeOf("spentropy", "cal/g/k"), 0) << "no dash before the temperature";
  EXPECT_EQ(CodeOf("spentropy", "cal/gxk"), 0);
  EXPECT_EQ(CodeOf("spenthalpy", "kj/kg-k"), 0);
  EXPECT_EQ(CodeOf("cond", "w/m-k"), 35010) << "its temperature stays behind";
}

// Any bytes and lengths, and words that differ from good ones in one place.
TEST_F(UnitWordsTest, RandomBytesNeverFail) {
  std::mt19937 random(11);
  constexpr char const* kDimensions[] = {"temp",       "pres", "density",   "vols",
                                         "spenthalpy", "cond", "spentropy", "visc",
                                         "surf",       "diel", ""};
  ::testing::internal::CaptureStdout();
  for (int i = 0; i < 20'000; ++i) {
    std::string word;
    if (i % 2 == 0) {
      word.resize(random() % 70);
      for (char& c : word) c = static_cast<char>(random());
    } else {
      word = kUnitWords[random() % std::size(kUnitWords)].written;
      word[random() % word.size()] = static_cast<char>(random());
    }
    std::int32_t const code = words_.CodeOf(kDimensions[random() % std::size(kDimensions)], word);
    ASSERT_TRUE(code == 0 || (code > 1000 && code < 43'000)) << word;
  }
  ::testing::internal::GetCapturedStdout();
}

TEST_F(UnitWordsTest, RandomWordsNeverFail) {
  std::mt19937 random(7);
  constexpr std::string_view kLetters = "kgjcalbtuwmhrsedyn/-0123FKRC ";
  constexpr char const* kDimensions[] = {"temp", "pres",      "density", "vols", "spenthalpy",
                                         "cond", "spentropy", "visc",    "surf", "diel"};
  ::testing::internal::CaptureStdout();
  for (int i = 0; i < 20'000; ++i) {
    std::string word;
    for (std::size_t n = random() % 12; n > 0; --n) word += kLetters[random() % kLetters.size()];
    std::int32_t const code = words_.CodeOf(kDimensions[random() % 10], word);
    ASSERT_TRUE(code == 0 || (code > 1000 && code < 43'000)) << word;
  }
  ::testing::internal::GetCapturedStdout();
}

}  // namespace
}  // namespace zel

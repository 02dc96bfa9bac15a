#include <gtest/gtest.h>

#include <string>

#include "purecomp/formula.h"
#include "tests/purecomp/formula_calls.h"

namespace zel {
namespace {

using test::Normalise;
using test::Normalised;

TEST(NormalFormula, HillOrderWithCarbonAndHydrogenBytesWithout) {
  struct {
    char const* formula;
    char const* normal;
  } const rows[] = {
      {"H6C2", "C2H6"},
      {"C2H6", "C2H6"},
      {"CH3CH2OH", "C2H6O"},
      {"ClC2H5", "C2H5Cl"},
      {"H2NCOOH", "CH3NO2"},
      {"CaC4H6O4.H2O", "C4H6CaO4.H2O"},
      {"CH4.12H2O", "CH4.12H2O"},
      {"CH4.0H2O", "CH4"},
      {"BrCHClD", "CHBrClD"},
      {"C0H4", "H4"},
      {"C1H4", "CH4"},
      {"C10H22", "C10H22"},
      {"(CH3)2CHCoCs", "C3H7CoCs"},
  };
  for (auto const& row : rows) {
    Normalised const normal = Normalise(row.formula, false);
    EXPECT_EQ(normal.result, 1) << row.formula;
    EXPECT_EQ(normal.formula, row.normal) << row.formula;
    EXPECT_EQ(normal.work, "") << row.formula;
    bool const same = std::string(row.formula) == row.normal;
    Normalised const strict = Normalise(row.formula, true);
    EXPECT_EQ(strict.result, same ? 1 : 2) << row.formula;
    EXPECT_EQ(strict.formula, row.formula);
    EXPECT_EQ(strict.work, same ? "" : row.normal) << row.formula;
  }
}

TEST(NormalFormula, WithoutCarbonAndHydrogenNothingIsReplaced) {
  struct {
    char const* formula;
    char const* normal;
  } const rows[] = {{"ClNa", "ClNa"},
                    {"NaCl", "ClNa"},
                    {"H2O", "H2O"},
                    {"CO2", "CO2"},
                    {"O2C", "CO2"},
                    {"HCl", "ClH"},
                    {"NH3", "H3N"},
                    {"O3Cr", "CrO3"},
                    {"CCl4", "CCl4"},
                    {"CoC", "CCo"},
                    {"CuSO4.5H2O", "CuO4S.5H2O"},
                    {"Na2", "Na2"},
                    {"NaNa", "Na2"},
                    {"()", ""},
                    {"", ""}};
  for (auto const& row : rows) {
    bool const same = std::string(row.formula) == row.normal;
    for (bool strict : {false, true}) {
      Normalised const normal = Normalise(row.formula, strict);
      EXPECT_EQ(normal.result, same ? 1 : 2) << row.formula;
      EXPECT_EQ(normal.formula, row.formula);
      EXPECT_EQ(normal.work, same ? "" : row.normal) << row.formula;
    }
  }
}

TEST(NormalFormula, WordsGetTheirSpelling) {
  for (bool strict : {false, true}) {
    for (char const* word : {"petro", "PETRO", "Petro", "pETRO"}) {
      Normalised const normal = Normalise(word, strict);
      EXPECT_EQ(normal.result, 1);
      EXPECT_EQ(normal.formula, "Petro");
      EXPECT_EQ(normal.work, "");
    }
    for (char const* word : {"mixture", "MIXTURE", "Mixture"}) {
      Normalised const normal = Normalise(word, strict);
      EXPECT_EQ(normal.result, 1);
      EXPECT_EQ(normal.formula, "Mixture");
      EXPECT_EQ(normal.work, "");
    }
  }
}

TEST(NormalFormula, WhatDoesNotParseStays) {
  for (char const* formula : {"Xx2", "c2h6", "C2H6)", "C2H6.H2", "20 characters of text"}) {
    std::string const text = std::string(formula).substr(0, 20);
    Normalised const normal = Normalise(text, false);
    EXPECT_EQ(normal.result, 1);
    EXPECT_EQ(normal.formula, text);
    EXPECT_EQ(normal.work, "before");
  }
}

TEST(NormalFormula, KeysAndTextsAreCutAtTheirSizes) {
  // A key is three columns and the element's text: 6 characters of it are kept.
  // 9999 x 9801 is 98000199.
  EXPECT_EQ(Normalise("((C9999H)99)99", false).formula, "C98000H9801");
  EXPECT_EQ(Normalise("((CH9999)99)99", false).formula, "C9801H98000");
  EXPECT_EQ(Normalise("(Cl9999)99CH", false).formula, "CHCl9899");  // of Cl989901
  // 10 elements of two characters each fill the text, an eleventh is dropped.
  EXPECT_EQ(Normalise("(CHBrIFKNOPSUVWY)2", false).formula, "C2H2Br2F2I2K2N2O2P2S");
  EXPECT_EQ(Normalise("(CHBrIFKNOPSU)2", false).formula, "C2H2Br2F2I2K2N2O2P2S");
  EXPECT_EQ(Normalise("(CHIFKNOPS)2.12H2O", false).formula, "C2H2F2I2K2N2O2P2S2.1");
}

TEST(SortKey, ElementsInTheOrderOfTheFormula) {
  struct {
    char const* formula;
    std::string key;
  } const rows[] = {
      {"C2H6", "C 002H 006"},
      {"CH3CH2OH", "C 001H 003C 001H 002O 001H 001"},
      {"Ca(OH)2", "Ca001O 002H 002"},
      {"CuSO4.5H2O", "Cu001S 001O 004zz005"},
      {"CuSO4.H2O", "Cu001S 001O 004zz001"},
      {"CuSO4.0H2O", "Cu001S 001O 004"},
      {"C1234", "C 1234"},
      {"H0", "H 000"},
      {"mixture", "Mixture"},
      {"MIXTURE", "Mixture"},
      {"petro", "Petro"},
      {"Petro", "Petro"},
      {"", ""},
      {"Xx", "\x01"},
      {"c", "\x01"},
      {"C.", "\x01"},
  };
  for (auto const& row : rows) EXPECT_EQ(FormulaSortKey(row.formula), row.key) << row.formula;
  // A failed formula sorts before all others except the empty one.
  EXPECT_LT(FormulaSortKey("c"), FormulaSortKey("Ac"));
  EXPECT_LT(FormulaSortKey("C2H4"), FormulaSortKey("C2H6"));
  EXPECT_LT(FormulaSortKey("C2H6"), FormulaSortKey("C10H22"));
  EXPECT_LT(FormulaSortKey("C2H6O"), FormulaSortKey("C2H6O.H2O"));
}

TEST(SortKey, AtMostTwentyOccurrences) {
  std::string formula;
  std::string key;
  for (int i = 0; i < 25; ++i) {
    formula += i % 2 == 0 ? "C2" : "H3";
    if (i < 20) key += i % 2 == 0 ? "C 002" : "H 003";
  }
  EXPECT_EQ(FormulaSortKey(formula), key);
}

}  // namespace
}  // namespace zel

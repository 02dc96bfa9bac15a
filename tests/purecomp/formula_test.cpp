#include "purecomp/formula.h"

#include <gtest/gtest.h>

#include <climits>
#include <set>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "tests/purecomp/formula_calls.h"
#include "tests/support/formula_model.h"

namespace zel {
namespace {

using test::FormulaCall;

// As "C2 H6", with the hydrate after a point; "failed:" before the counts of a failed parse.
std::string Parsed(std::string const& formula, bool sequence = false) {
  FormulaCall work(20);
  bool const parsed = sequence ? ParseFormulaSequence(formula, work.slots, work.result)
                               : ParseFormulaMerged(formula, work.slots, work.result);
  std::ostringstream text;
  text << (parsed ? "" : "failed:");
  for (std::size_t i = 0; i < static_cast<std::size_t>(work.result.foundCount); ++i) {
    text << (i == 0 ? "" : " ") << work.Symbol(i) << work.counts[i];
  }
  if (work.result.hydrate != 0) text << " ." << work.result.hydrate;
  return text.str();
}

TEST(Formula, ParsesElementsParenthesesCountsAndHydrate) {
  struct {
    char const* formula;
    char const* parsed;
  } const rows[] = {
      {"C2H6", "C2 H6"},
      {"Ca(OH)2", "Ca1 O2 H2"},
      {"CuSO4.5H2O", "Cu1 S1 O4 .5"},  // the water is not counted among the elements
      {"CuSO4.H2O", "Cu1 S1 O4 .1"},
      {"CuSO4.0H2O", "Cu1 S1 O4"},
      {"CH3CH2OH", "C2 H6 O1"},
      {"CO", "C1 O1"},
      {"Co", "Co1"},
      {"D2O", "D2 O1"},
      {"((CH3)2N)3PO", "C6 H18 N3 P1 O1"},
      {"(C(H2)3)2", "C2 H12"},
      {"H0C", "H0 C1"},
      {"(CH4)0", "C0 H0"},
      {"C0012", "C12"},
      {"C00012", "C1"},  // four digits are used, including leading zeros
      {"C12345H", "C1234 H1"},
      {"(H2)12345", "H2468"},
      {"C.123456H2O", "C1 .1234"},
      {"()", ""},
      {"()5", ""},
      {".H2O", " .1"},
      {"", ""},
  };
  for (auto const& row : rows) EXPECT_EQ(Parsed(row.formula), row.parsed) << row.formula;
}

TEST(Formula, FailuresLeaveWhatWasCounted) {
  struct {
    char const* formula;
    char const* parsed;
  } const rows[] = {
      {"CuSO4.2H2", "failed:Cu1 S1 O4"},
      {"CuSO4.", "failed:Cu1 S1 O4"},
      {"CuSO4.5", "failed:Cu1 S1 O4"},
      {"CuSO4.H2O2", "failed:Cu1 S1 O4"},
      {"CuSO4.h2o", "failed:Cu1 S1 O4"},
      {"CuSO4. H2O", "failed:Cu1 S1 O4"},
      {"CuSO4.H2O.H2O", "failed:Cu1 S1 O4"},
      {"CuSO4..H2O", "failed:Cu1 S1 O4"},
      {"Xx2", "failed:Xx2"},
      {"CXxH", "failed:C1 Xx1 H1"},
      {"c2", "failed:"},
      {"2H", "failed:"},
      {"Hhe", "failed:Hh1"},
      {"C2 H6", "failed:C2"},
      {"C2H6)", "failed:C2 H6"},
      {"(C2H6", "failed:C0 H0"},  // the counts of an open group are lost, its symbols stay
      {"N(C2(H6)2", "failed:N1 C0 H0"},
      {"N(C.H2O)", "failed:N1 C0"},
      {"C2H6+", "failed:C2 H6"},
      {"C\xC3\xA9", "failed:C1"},
      {"\xFF", "failed:"},
  };
  for (auto const& row : rows) EXPECT_EQ(Parsed(row.formula), row.parsed) << row.formula;
}

TEST(Formula, NothingIsReadBehindTheText) {
  std::string_view const text = "C2H6.5H2O";
  FormulaCall call(20);
  EXPECT_TRUE(ParseFormulaMerged(text.substr(0, 3), call.slots, call.result));
  EXPECT_EQ(call.counts[1], 1);
  EXPECT_FALSE(ParseFormulaMerged(text.substr(0, 5), call.slots, call.result));
  EXPECT_FALSE(ParseFormulaMerged(text.substr(0, 8), call.slots, call.result));
  EXPECT_TRUE(ParseFormulaMerged(text, call.slots, call.result));
  EXPECT_EQ(call.result.hydrate, 5);
}

TEST(Formula, WordsAreNoFormulaAndNoFailure) {
  for (char const* word : {"mixture", "Mixture", "MIXTURE", "petro", "PETRO", "pEtRo", ""}) {
    FormulaCall work(5, {"C", "H", "N", "O", "S"});
    EXPECT_TRUE(ParseFormulaMerged(word, work.slots, work.result)) << word;
    EXPECT_EQ(work.counts, std::vector<std::int32_t>(5, 0)) << word;
    EXPECT_EQ(work.result.foundCount, 5) << word;
    EXPECT_EQ(work.result.hydrate, 0) << word;
    EXPECT_FALSE(work.result.hasCarbonAndHydrogen) << word;
  }
  EXPECT_EQ(Parsed("mixtur"), "failed:");
  EXPECT_EQ(Parsed("Petro "), "failed:Pe1");
}

TEST(Formula, CarbonAndHydrogenAnywhereAreNoted) {
  struct {
    char const* formula;
    bool both;
  } const rows[] = {{"CH4", true},    {"HC", true},     {"C2(H)", true}, {"(C)(H)", true},
                    {"C0H0", true},   {"C", false},     {"H2", false},   {"CoHe", false},
                    {"ClHg", false},  {"C.H2O", false}, {"CD4", false},  {"NH4(CO)2", true},
                    {"CH4.2H", true}, {"CHXx", true},   {"CH4)", false}, {"(CH4", false}};
  for (auto const& row : rows) {
    FormulaCall work(20);
    ParseFormulaMerged(row.formula, work.slots, work.result);
    EXPECT_EQ(work.result.hasCarbonAndHydrogen, row.both) << row.formula;
  }
  // Also when neither has a slot.
  FormulaCall work(1, {"O"});
  EXPECT_TRUE(ParseFormulaMerged("OCH", work.slots, work.result));
  EXPECT_TRUE(work.result.hasCarbonAndHydrogen);
}

TEST(Formula, ElementsWithoutASlotAreDropped) {
  FormulaCall work(5, {"C", "H", "N", "O", "S"});
  std::int32_t found = 0;
  EXPECT_TRUE(CountElements("C2H5Br", work.slots, found));
  EXPECT_EQ(work.counts, (std::vector<std::int32_t>{2, 5, 0, 0, 0}));
  EXPECT_EQ(found, 5);
  // An unknown symbol is detected only if it has a slot.
  EXPECT_TRUE(CountElements("C2H5Xx7S", work.slots, found));
  EXPECT_EQ(work.counts, (std::vector<std::int32_t>{2, 5, 0, 0, 1}));

  FormulaCall two(2);
  EXPECT_TRUE(CountElements("NaClONa3", two.slots, found));
  EXPECT_EQ(two.Symbol(0) + two.Symbol(1), "NaCl");
  EXPECT_EQ(two.counts, (std::vector<std::int32_t>{4, 1}));
  EXPECT_EQ(found, 2);

  FormulaCall none(0);
  EXPECT_TRUE(CountElements("NaCl", none.slots, found));
  EXPECT_EQ(found, 0);
}

TEST(Formula, UnknownPresetSymbolFails) {
  FormulaCall work(2, {"Xx"});
  std::int32_t found = 0;
  EXPECT_FALSE(CountElements("C", work.slots, found));
  EXPECT_EQ(work.counts, (std::vector<std::int32_t>{0, 1}));
  EXPECT_EQ(found, 2);
}

TEST(Formula, SequenceGivesEachOccurrenceASlotButForPresetOnes) {
  EXPECT_EQ(Parsed("CH3CH2OH", true), "C1 H3 C1 H2 O1 H1");
  EXPECT_EQ(Parsed("Ca(OH)2", true), "Ca1 O2 H2");
  EXPECT_EQ(Parsed("(CH2)2(CH2)3", true), "C2 H4 C3 H6");
  FormulaCall work(4, {"H"});
  EXPECT_TRUE(ParseFormulaSequence("CH3CH2OH", work.slots, work.result));
  EXPECT_EQ(work.counts, (std::vector<std::int32_t>{6, 1, 1, 1}));
  EXPECT_EQ(work.Symbol(0) + work.Symbol(1) + work.Symbol(2) + work.Symbol(3), "HCCO");
  EXPECT_TRUE(work.result.hasCarbonAndHydrogen);
}

TEST(Formula, ExactlyTheElementsAreKnown) {
  std::istringstream list(test::kElementList);
  std::set<std::string> elements;
  for (std::string element; list >> element;) elements.insert(element);
  ASSERT_EQ(elements.size(), 115U);
  for (char a = 'A'; a <= 'Z'; ++a) {
    for (char b = 'a' - 1; b <= 'z'; ++b) {
      std::string const symbol = b < 'a' ? std::string{a} : std::string{a, b};
      bool const known = elements.count(symbol) != 0;
      EXPECT_EQ(Parsed(symbol + "3"), (known ? "" : "failed:") + symbol + "3");
    }
  }
}

TEST(Formula, CountsStopAtTheLargestInteger) {
  // 9999 to the powers 1, 2 and 3, the last above 2^31.
  EXPECT_EQ(Parsed("C9999"), "C9999");
  EXPECT_EQ(Parsed("(C9999)9999"), "C99980001");
  EXPECT_EQ(Parsed("((C9999)9999)9999"), "C" + std::to_string(INT_MAX));
  EXPECT_EQ(Parsed("(((C9999)9999)9999)9999C9999"), "C" + std::to_string(INT_MAX));
  EXPECT_EQ(Parsed("(((C9999)9999)9999)0"), "C0");
  EXPECT_EQ(Parsed("((C9999)9999)21(C9999)9999(C9999)9999"), "C" + std::to_string(INT_MAX));
  // 99980001 * 21 + 47903626 is the largest integer itself.
  EXPECT_EQ(Parsed("((C9999)9999)21(C9999)4790(C4)2C8408"), "C" + std::to_string(INT_MAX));
  EXPECT_EQ(Parsed("((C9999)9999)21(C9999)4790(C4)2C8407"), "C" + std::to_string(INT_MAX - 1));
}

// Each must end quickly and without a crash; the result is known only for some of them.
TEST(Formula, LongAndDeepTexts) {
  constexpr std::size_t kLong = 200'000;
  EXPECT_EQ(Parsed(std::string(kLong, '(')), "failed:");
  EXPECT_EQ(Parsed(std::string(kLong, '(') + "C" + std::string(kLong, ')')), "C1");
  EXPECT_EQ(Parsed(std::string(kLong, '(') + "C" + std::string(kLong - 1, ')')), "failed:C0");
  EXPECT_EQ(Parsed(std::string(kLong, ')')), "failed:");
  EXPECT_EQ(Parsed(std::string(kLong, 'C')), "C" + std::to_string(kLong));
  EXPECT_EQ(Parsed("C" + std::string(kLong, '9')), "C9999");
  std::string groups;
  for (std::size_t i = 0; i < kLong; ++i) groups += "(CN)";
  std::string const both = "C" + std::to_string(kLong) + " N" + std::to_string(kLong);
  EXPECT_EQ(Parsed(groups), both);
  EXPECT_EQ(Parsed("(" + groups + ")"), both);
  std::string nested;
  for (std::size_t i = 0; i < kLong; ++i) nested += i % 2 == 0 ? "(C" : "(N";
  nested += std::string(kLong, ')');
  EXPECT_EQ(Parsed(nested), "C" + std::to_string(kLong / 2) + " N" + std::to_string(kLong / 2));
  EXPECT_EQ(Parsed(std::string("C\0H", 3)), "failed:C1");
}

}  // namespace
}  // namespace zel

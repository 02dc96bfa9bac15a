// All short texts of a few signs, and random long ones, compared with a literal model.
#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <random>
#include <string>
#include <vector>

#include "purecomp/formula.h"
#include "tests/purecomp/formula_calls.h"
#include "tests/support/formula_model.h"

namespace zel {
namespace {

using test::FormulaCall;
using test::Normalise;
using test::Normalised;

// Calls `use` with all texts of these signs up to a length.
void ForAll(std::string const& signs, std::size_t length, std::string const& text,
            auto const& use) {
  use(text);
  if (text.size() == length) return;
  for (char c : signs) ForAll(signs, length, text + c, use);
}

struct Layout {
  std::size_t capacity;
  std::vector<std::string> preset;
};

std::vector<Layout> const& Layouts() {
  static std::vector<Layout> const layouts = {
      {20, {}}, {5, {"C", "H", "N", "O", "S"}}, {1, {}}, {2, {"H"}}, {3, {"Xx"}}, {0, {}}};
  return layouts;
}

void ExpectAsModel(std::string const& text, Layout const& layout, bool sequence) {
  FormulaCall work(layout.capacity, layout.preset);
  bool const parsed = sequence ? ParseFormulaSequence(text, work.slots, work.result)
                               : ParseFormulaMerged(text, work.slots, work.result);
  test::ModelFormula const model = test::ParseModel(text, layout.capacity, layout.preset, sequence);
  ASSERT_EQ(parsed, model.parsed) << text;
  ASSERT_EQ(work.result.foundCount, model.found) << text;
  ASSERT_EQ(work.result.hydrate, model.hydrate) << text;
  ASSERT_EQ(work.result.hasCarbonAndHydrogen, model.carbonAndHydrogen) << text;
  for (std::size_t i = 0; i < layout.capacity; ++i) {
    ASSERT_EQ(work.Symbol(i), model.elements[i]) << text;
    ASSERT_EQ(work.counts[i], std::min(model.counts[i], double{INT_MAX})) << text;
  }
}

void ExpectNormalAsModel(std::string const& text, bool strict) {
  Normalised const normal = Normalise(text, strict);
  test::ModelNormal const model = test::NormaliseModel(text, "before", strict);
  ASSERT_EQ(normal.result, model.result) << text;
  ASSERT_EQ(normal.formula, model.formula) << text;
  ASSERT_EQ(normal.work, model.work) << text;
}

TEST(Formula, AllShortTextsAreParsedAsTheModelDoes) {
  struct {
    char const* signs;
    std::size_t length;
  } const worlds[] = {{"CH()2.x", 5}, {"CHO2.l0", 5}, {"H2O.(1", 6}};
  int texts = 0;
  int parsed = 0;
  for (auto const& world : worlds) {
    ForAll(world.signs, world.length, "", [&](std::string const& text) {
      ++texts;
      for (Layout const& layout : Layouts()) {
        for (bool sequence : {false, true}) ExpectAsModel(text, layout, sequence);
      }
      parsed += test::ParseModel(text, 20, {}, false).parsed ? 1 : 0;
      for (bool strict : {false, true}) ExpectNormalAsModel(text, strict);
      ASSERT_EQ(FormulaSortKey(text), test::SortKeyModel(text)) << text;
    });
    if (HasFatalFailure()) return;
  }
  EXPECT_GT(texts, 90'000);
  EXPECT_GT(parsed, 3'000);
}

// Texts made of the parts of formulas, so that most are parsed far, up to 20 characters for the
// normal form and up to 260 for the parser.
std::string RandomText(std::mt19937& random, std::size_t length) {
  static char const* const pieces[] = {"C",  "H",  "O", "N",  "Cl", "Br", "Na", "D", "Xx",
                                       "(",  ")",  "(", ")2", "2",  "3",  "12", "0", "9999",
                                       "He", "Ca", "B", ".",  "I",  "F",  "P",  "S", "Fe"};
  std::string text;
  while (true) {
    std::string const piece = pieces[random() % std::size(pieces)];
    if (text.size() + piece.size() > length) break;
    text += piece;
  }
  // Close open groups, and sometimes append water.
  std::size_t open = 0;
  std::string closed;
  for (char c : text) {
    if (c == ')' && open == 0) continue;
    if (c == '.') continue;
    open += c == '(' ? 1U : 0U;
    open -= c == ')' ? 1U : 0U;
    closed += c;
  }
  if (random() % 8 != 0) text = closed + std::string(open, ')');
  if (random() % 4 == 0) text += ".5H2O";
  return text.substr(0, length);
}

TEST(Formula, RandomTextsAreParsedAsTheModelDoes) {
  std::mt19937 random(20240611);
  int parsed = 0;
  for (int i = 0; i < 60'000; ++i) {
    std::string const text = RandomText(random, i % 3 == 0 ? 260 : 20);
    for (bool sequence : {false, true}) {
      ExpectAsModel(text, Layouts()[random() % Layouts().size()], sequence);
    }
    if (text.size() <= 20) {
      for (bool strict : {false, true}) ExpectNormalAsModel(text, strict);
      ASSERT_EQ(FormulaSortKey(text), test::SortKeyModel(text)) << text;
    }
    if (HasFatalFailure()) return;
    parsed += test::ParseModel(text, 20, {}, false).parsed ? 1 : 0;
  }
  EXPECT_GT(parsed, 5'000);
}

}  // namespace
}  // namespace zel

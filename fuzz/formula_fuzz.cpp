// Formulas: any text, through every operation. The input is the text.
#include <algorithm>
#include <array>
#include <climits>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

#include "purecomp/formula.h"

namespace {

using zel::ElementSymbol;
using zel::FormulaResult;

void Require(bool holds, char const* what) {
  if (holds) return;
  std::fprintf(stderr, "formula_fuzz: not so: %s\n", what);
  std::abort();
}

constexpr std::size_t kMostSlots = 20;
constexpr std::int32_t kLargestWritten = 9999;

struct Parse {
  std::vector<ElementSymbol> elements;
  std::vector<std::int32_t> counts;
  FormulaResult result{-1, -1, true};
  bool parsed = false;

  std::string_view Symbol(std::size_t i) const { return elements[i].data(); }
  std::int32_t CountOf(std::string_view symbol) const {
    std::int64_t sum = 0;
    for (std::size_t i = 0; i < counts.size(); ++i) sum += Symbol(i) == symbol ? counts[i] : 0;
    return static_cast<std::int32_t>(std::min<std::int64_t>(sum, INT32_MAX));
  }
  // Fewer slots taken than there are: nothing was dropped.
  bool HasRoom() const { return static_cast<std::size_t>(result.foundCount) < counts.size(); }
};

Parse ParseInto(std::string_view text, std::size_t capacity,
                std::vector<ElementSymbol> const& preset, bool sequence) {
  Parse p;
  p.elements.assign(capacity, ElementSymbol{"Zz"});
  p.counts.assign(capacity, -1);
  std::copy(preset.begin(), preset.end(), p.elements.begin());
  zel::ElementSlots const slots{p.elements, p.counts, static_cast<std::int32_t>(preset.size())};
  p.parsed = sequence ? ParseFormulaSequence(text, slots, p.result)
                      : ParseFormulaMerged(text, slots, p.result);
  return p;
}

void CheckParse(Parse const& p, std::size_t presets) {
  auto const found = static_cast<std::size_t>(p.result.foundCount);
  Require(found >= presets && found <= p.counts.size(), "slots found lie within the capacity");
  Require(p.result.hydrate >= 0 && p.result.hydrate <= kLargestWritten, "hydrate in four digits");
  Require(p.parsed || p.result.hydrate == 0, "a hydrate only when parsed");
  for (std::size_t i = 0; i < p.counts.size(); ++i) {
    Require(p.counts[i] >= 0, "counts are never negative");
    Require((i < found) == (p.elements[i][0] != '\0'), "the slots found are the filled ones");
    Require(i < found || p.counts[i] == 0, "free slots count nothing");
    Require(p.elements[i].back() == '\0', "symbols are terminated");
  }
}

// Merged, as a sequence and by preset elements: the same formula.
void CheckReadings(std::string_view text) {
  std::vector<ElementSymbol> const preset = {{"C"}, {"H"}, {"N"}, {"O"}, {"S"}};
  Parse const merged = ParseInto(text, kMostSlots, {}, false);
  Parse const sequence = ParseInto(text, kMostSlots, {}, true);
  Parse const five = ParseInto(text, preset.size(), preset, false);
  Parse const none = ParseInto(text, 0, {}, true);
  for (Parse const* p : {&merged, &sequence, &none}) CheckParse(*p, 0);
  CheckParse(five, preset.size());
  for (std::size_t i = 0; i < kMostSlots; ++i) {
    for (std::size_t j = i + 1; j < kMostSlots; ++j) {
      Require(merged.Symbol(i).empty() || merged.Symbol(i) != merged.Symbol(j),
              "merged elements stand once");
    }
  }
  if (merged.parsed) Require(five.parsed && none.parsed, "dropped elements are no failure");
  if (merged.HasRoom()) {
    for (std::size_t i = 0; i < preset.size(); ++i) {
      Require(five.counts[i] == merged.CountOf(five.Symbol(i)), "preset elements count the same");
    }
  }
  if (!sequence.HasRoom()) return;
  Require(sequence.parsed == merged.parsed, "both forms are judged alike");
  Require(sequence.result.hydrate == merged.result.hydrate &&
              sequence.result.hasCarbonAndHydrogen == merged.result.hasCarbonAndHydrogen,
          "hydrate and mark are those of the text");
  for (std::size_t i = 0; i < kMostSlots; ++i) {
    Require(sequence.CountOf(merged.Symbol(i)) == merged.counts[i] || merged.Symbol(i).empty(),
            "occurrences add up to the merged count");
  }
}

struct Normal {
  char formula[21] = "";
  char work[21] = "before";
  int result = 0;
};

Normal NormaliseText(std::string const& text, bool strict) {
  Normal n;
  std::memcpy(n.formula, text.c_str(), text.size() + 1);
  n.result = zel::NormaliseFormula(n.formula, n.work, strict);
  return n;
}

void CheckNormalForm(std::string const& text, bool strict) {
  Parse const parse = ParseInto(text, kMostSlots, {}, false);
  Normal const n = NormaliseText(text, strict);
  Require(n.result == 1 || n.result == 2, "the result is 1 or 2");
  if (!parse.parsed) {
    Require(n.result == 1 && text == n.formula && std::string_view(n.work) == "before",
            "what does not parse changes nothing");
    return;
  }
  Require(n.result == 2 || n.work[0] == '\0', "the work text is empty unless the two differ");
  Require(n.result == 1 || (text == n.formula && text != n.work), "a refusal keeps the formula");
  std::string const normal = n.result == 1 ? n.formula : n.work;
  bool const whole = normal.size() < kMostSlots;  // otherwise it may have been cut
  bool plain = true;                              // each count can be written and read back
  for (std::int32_t i = 0; i < parse.result.foundCount; ++i) {
    std::int32_t const count = parse.counts[static_cast<std::size_t>(i)];
    plain = plain && count >= 1 && count <= kLargestWritten;
  }
  if (!whole || !plain) return;
  Normal const again = NormaliseText(normal, strict);
  Require(again.result == 1 && normal == again.formula && again.work[0] == '\0',
          "a normal form is its own normal form");
  Parse const back = ParseInto(normal, kMostSlots, {}, false);
  bool const word = normal == "Mixture" || normal == "Petro";
  Require(back.parsed && back.result.hydrate == parse.result.hydrate, "a normal form parses");
  for (std::size_t i = 0; i < kMostSlots && !word; ++i) {
    Require(parse.Symbol(i).empty() || back.CountOf(parse.Symbol(i)) == parse.counts[i],
            "a normal form counts the same");
  }
}

void CheckSortKey(std::string_view text) {
  constexpr std::size_t kLongestKey = kMostSlots * 12 + 6;
  std::string const key = zel::FormulaSortKey(text);
  Require(key.size() <= kLongestKey, "a sort key has bounds");
  Require((key == "\x01") == !ParseInto(text, kMostSlots, {}, true).parsed,
          "only what does not parse has the key of failure");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
  std::string_view const text(reinterpret_cast<char const*>(data), size);
  CheckReadings(text);
  CheckSortKey(text);
  std::string const field(text.substr(0, std::min(kMostSlots, text.find('\0'))));
  for (bool strict : {false, true}) CheckNormalForm(field, strict);
  return 0;
}

// Calls of the formula operations, with their results side by side.
#pragma once

#include <algorithm>
#include <cstring>
#include <string>
#include <vector>

#include "purecomp/formula.h"

namespace zel::test {

// A caller's arrays, filled with the results of an earlier call.
struct FormulaCall {
  explicit FormulaCall(std::size_t capacity, std::vector<std::string> const& preset = {})
      : elements(capacity, ElementSymbol{"Zz"}), counts(capacity, 77) {
    for (std::size_t i = 0; i < preset.size(); ++i) {
      elements[i] = {};
      std::copy(preset[i].begin(), preset[i].end(), elements[i].begin());
    }
    slots = {elements, counts, static_cast<std::int32_t>(preset.size())};
  }
  std::string Symbol(std::size_t i) const { return elements[i].data(); }

  std::vector<ElementSymbol> elements;
  std::vector<std::int32_t> counts;
  ElementSlots slots;
  FormulaResult result{77, 77, true};
};

struct Normalised {
  int result;
  std::string formula;
  std::string work;
};

inline Normalised Normalise(std::string const& formula, bool strict) {
  char text[21] = "";
  char work[21] = "before";
  std::memcpy(text, formula.c_str(), formula.size() + 1);
  int const result = NormaliseFormula(text, work, strict);
  return {result, text, work};
}

}  // namespace zel::test

// A slow, literal model of chemical formulas: recursive, with plain texts and unlimited counts.
#pragma once

#include <string>
#include <vector>

namespace zel::test {

struct ModelFormula {
  bool parsed = false;
  int found = 0;
  int hydrate = 0;
  bool carbonAndHydrogen = false;
  std::vector<std::string> elements;  // a text for each slot
  std::vector<double> counts;
};

// `preset` are the symbols that the caller fills in, `capacity` the total number of slots. With
// `sequence` each occurrence has its own slot.
ModelFormula ParseModel(std::string const& text, std::size_t capacity,
                        std::vector<std::string> const& preset, bool sequence);

struct ModelNormal {
  int result;
  std::string formula;
  std::string work;
};

ModelNormal NormaliseModel(std::string const& formula, std::string const& work, bool strict);
std::string SortKeyModel(std::string const& formula);

// The elements, separated by blanks.
extern char const kElementList[];

}  // namespace zel::test

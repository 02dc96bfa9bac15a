// What the sources of a preference list have of components and their pairs, and what is missing.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "desk/open/component_numbers.h"
#include "desk/open/preference_list.h"

namespace zel::desk {

enum class DatumState { kStored, kFilledIn, kMissing };

DatumState StateOf(PureComponent const& component, std::uint32_t constant);
// "stored", "filled in" or "missing"
char const* Word(DatumState state);

struct DatumCounts {
  std::int64_t stored = 0;    // constants
  std::int64_t filledIn = 0;  // constants
  std::int64_t missing = 0;   // constants
  std::int64_t curves = 0;    // correlations that exist
};
DatumCounts CountOf(PureComponent const& component);

// The components whose pairs a model should have.
class PairCoverage {
 public:
  explicit PairCoverage(PreferenceList const& list) : list_(list) {}

  // Adds a component by the word of the user.
  void Add(std::string const& word);
  std::size_t Count() const { return components_.size(); }
  std::string const& WordOf(std::size_t i) const { return components_[i].word; }
  // The first bank of a type that has the pair, "sample.lb1:SAMPLE", over the libraries in their
  // order; empty if none has it.
  std::string SourceOf(std::string const& type, std::size_t one, std::size_t other) const;

 private:
  struct Covered {
    std::string word;
    ComponentNumbers numbers;
  };

  PreferenceList const& list_;
  std::vector<Covered> components_;
};

// The types of component pairs for which any of the libraries has a bank.
std::vector<std::string> PairTypes(PreferenceList const& list);
// The same types as named, in upper case. Throws Failure for a type that does not exist, or whose
// items are not pairs of components.
std::vector<std::string> PairTypes(std::vector<std::string> const& named);
// The components of the list that are in a pair of one of the types: their first IDs, or their
// numbers, in the order of the list.
std::vector<std::string> ComponentsInPairs(PreferenceList const& list,
                                           std::vector<std::string> const& types);

}  // namespace zel::desk
